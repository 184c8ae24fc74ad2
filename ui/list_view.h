// List view in report mode: owner data (the list of entries) or owner drawn (the fields of the form).
#pragma once

#include <string>

#include "ui/control.h"

class ListView : public Control {
public:
    ListView() : Control(WC_LISTVIEWW) {}

    // ---- Columns ----
    // Answers the column's index, -1 on failure. `width` in device pixels.
    int InsertColumn(int column, const wchar_t* title, int width);
    int GetColumnWidth(int column) const;
    bool SetColumnWidth(int column, int width);
    int GetColumnCount() const;
    // Widens (or narrows) the last column to the client width less the widths of the others; never below 0.
    void FitLastColumn();
    // The header control, there even when LVS_NOCOLUMNHEADER hides it in report mode; 0 when none.
    HWND GetHeader() const;

    // ---- Rows ----
    // Answers the row's index, -1 on failure.
    int InsertItem(int row, const wchar_t* text, LPARAM data = 0);
    bool SetItemText(int row, int column, const wchar_t* text);
    // At most 1023 characters.
    std::wstring GetItemText(int row, int column) const;
    LPARAM GetItemData(int row) const;
    bool SetItemData(int row, LPARAM data);
    bool DeleteItem(int row);
    bool DeleteAllItems();
    int GetItemCount() const;
    // Owner data: how many rows there are. `flags`: LVSICF_NOINVALIDATEALL, LVSICF_NOSCROLL.
    bool SetItemCount(int count, DWORD flags = 0);

    // ---- State ----
    // Row -1: every row, announced by one LVN_ITEMCHANGED with iItem -1.
    bool SetItemState(int row, UINT state, UINT mask);
    UINT GetItemState(int row, UINT mask) const;
    // The next row after `after` (-1: from the start) that has the LVNI_ flags, or -1.
    int GetNextItem(int after, UINT flags) const;
    int GetSelectedCount() const;
    bool EnsureVisible(int row, bool partialIsEnough);
    int GetTopIndex() const;
    int GetCountPerPage() const;

    // ---- Geometry and look ----
    // `part`: LVIR_BOUNDS, LVIR_LABEL... False when there is no such row.
    bool GetItemRect(int row, RECT* rect, int part = LVIR_BOUNDS) const;
    // The cell; unlike the message, column 0 answers that cell alone and not the whole row.
    bool GetCellRect(int row, int column, RECT* rect) const;
    // The row at a client point, or -1; `column`, when given, receives the column.
    int HitTest(POINT point, int* column = nullptr) const;
    bool RedrawItems(int first, int last);
    // Sets all extended list view styles (LVS_EX_...).
    void SetExtendedStyle(DWORD style);
    // Owner drawn: a list view takes its row height from an image list of one pixel's width, which this object holds.
    void SetRowHeight(int height);

private:
    UniqueImageList rowHeight_;
};
