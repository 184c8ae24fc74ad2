// The form's list of fields: a caption and a value in each row, drawn by this class.
#pragma once

#include <string>

#include "ui/list_view.h"
#include "ui/unique_handle.h"

// Captions are bold and olive, values normal, and a text that stands for an empty value thin and olive. The selected
// row's caption has the colours of an active window's caption; its value is where the field's editor goes. Whenever the
// rows have moved, by bar, wheel, keys or a selection, the parent is sent LVN_ENDSCROLL; on some systems more than
// once. A character
// typed into the list is sent to the parent as NM_CHAR, and not looked for among the captions.
class FieldList : public ListView {
public:
    // Creates the list as a child of `parent` at `place` (device pixels), with its two columns.
    bool CreateIn(HWND parent, int id, const RECT& place);

    // Moves the list and gives its columns a third and two thirds of its width.
    void Place(const RECT& place);
    // Gives them anew: after rows have come or gone, and with them the scroll bar.
    void FitColumns();

    // Adds a row at the end. `kind` is the field's item type; 0: the row has a caption only.
    void AppendRow(const wchar_t* caption, int kind);
    // Shows a value; `isDefault`: the text stands for an empty value. Line breaks show as blanks, and what is too long
    // for a row is cut.
    void SetValue(int row, const std::wstring& text, bool isDefault);

    // The selected row, or -1.
    int Selected() const { return GetNextItem(-1, LVNI_SELECTED); }
    // Selects and focuses a row and scrolls it into view.
    void Select(int row);

    // The place of a row's value in the client coordinates of the list's parent; false when there is no such row.
    bool GetValueRect(int row, RECT* rect) const;

    // Answers the parent's WM_DRAWITEM and WM_MEASUREITEM for this list.
    void Draw(const DRAWITEMSTRUCT& draw) const;
    void Measure(MEASUREITEMSTRUCT& measure) const;

private:
    static LRESULT CALLBACK Procedure(HWND list, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR) noexcept;
    void DrawCaption(HDC dc, const RECT& cell, const std::wstring& text, bool selected) const;
    void DrawValue(HDC dc, const RECT& cell, const std::wstring& text, bool isDefault) const;

    UniqueFont defaultFont_;
    UniqueFont valueFont_;
    UniqueFont captionFont_;
};
