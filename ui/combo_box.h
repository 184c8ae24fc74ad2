// Combo box: a drop-down list, or an edit with a drop-down list.
#pragma once

#include <string>

#include "ui/control.h"

class ComboBox : public Control {
public:
    ComboBox() : Control(WC_COMBOBOXW) {}

    // Adds at the end (or where CBS_SORT wants it). Answers the index, negative on failure.
    int AddString(const wchar_t* text);
    void Clear();
    int GetCount() const;
    // -1 when nothing is selected.
    int GetSelection() const;
    // -1 selects nothing. No notification comes.
    bool SetSelection(int index);
    std::wstring GetString(int index) const;
    // The entry equal to `text`, ignoring case, or -1.
    int FindExact(const wchar_t* text) const;
    // Selects characters in the edit part; 0, -1 is everything.
    void SelectEdit(int first, int last);
    // At most `characters` in the edit part.
    void SetLimit(int characters);
    void DropDown(bool show);
    bool IsDroppedDown() const;
    // The edit part, 0 for a pure list.
    HWND GetEdit() const;
    // Height of the selection field, device pixels.
    void SetFieldHeight(int height);
    // As high as a line of its font: in a higher field some systems let the text stand above the middle. Its list's
    // rows become roomy too.
    void FitFieldToFont();
    // Makes the list's rows at least 18 logical pixels high, to be tapped, and ten of them show. Once the font is set,
    // which undoes it.
    void MakeRowsRoomy();
};
