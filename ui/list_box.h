// List box.
#pragma once

#include <string>

#include "ui/control.h"

class ListBox : public Control {
public:
    ListBox() : Control(WC_LISTBOXW) {}

    // Adds at the end (or where LBS_SORT wants it). Answers the index, negative on failure.
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    bool DeleteString(int index);
    void Clear();
    int GetCount() const;
    // -1 when nothing is selected.
    int GetSelection() const;
    // -1 selects nothing. No notification comes.
    void SetSelection(int index);
    // Of a list box of several selections; row -1 selects or deselects all. No notification comes.
    bool IsRowSelected(int index) const;
    void SelectRow(int index, bool selected);
    std::wstring GetString(int index) const;
    LPARAM GetItemData(int index) const;
    bool SetItemData(int index, LPARAM data);
};
