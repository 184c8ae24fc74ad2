#include "ui/list_view.h"

#include <algorithm>

int ListView::InsertColumn(int column, const wchar_t* title, int width) {
    LVCOLUMNW data = {};
    data.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    data.pszText = const_cast<wchar_t*>(title);
    data.cx = width;
    data.iSubItem = column;
    return static_cast<int>(
        SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data)));
}

int ListView::GetColumnWidth(int column) const {
    return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

bool ListView::SetColumnWidth(int column, int width) {
    return SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0)) != 0;
}

int ListView::GetColumnCount() const {
    return static_cast<int>(::SendMessageW(GetHeader(), HDM_GETITEMCOUNT, 0, 0));
}

void ListView::FitLastColumn() {
    const int last = GetColumnCount() - 1;
    RECT client;
    if (last < 0 || !GetClientRect(&client)) return;
    int rest = client.right - client.left;
    for (int column = 0; column < last; ++column)
        rest -= GetColumnWidth(column);
    SetColumnWidth(last, std::max(0, rest));
}

HWND ListView::GetHeader() const {
    return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
}

int ListView::InsertItem(int row, const wchar_t* text, LPARAM data) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = row;
    item.pszText = const_cast<wchar_t*>(text);
    item.lParam = data;
    return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)));
}

bool ListView::SetItemText(int row, int column, const wchar_t* text) {
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    return SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)) != 0;
}

std::wstring ListView::GetItemText(int row, int column) const {
    wchar_t buffer[1024] = L"";
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = buffer;
    item.cchTextMax = static_cast<int>(std::size(buffer));
    SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

LPARAM ListView::GetItemData(int row) const {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.lParam;
}

bool ListView::SetItemData(int row, LPARAM data) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = data;
    return SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != 0;
}

bool ListView::DeleteItem(int row) {
    return SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(row)) != 0;
}

bool ListView::DeleteAllItems() {
    return SendMessage(LVM_DELETEALLITEMS) != 0;
}

int ListView::GetItemCount() const {
    return static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
}

bool ListView::SetItemCount(int count, DWORD flags) {
    return SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), static_cast<LPARAM>(flags)) != 0;
}

bool ListView::SetItemState(int row, UINT state, UINT mask) {
    LVITEMW item = {};
    item.state = state;
    item.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)) != 0;
}

UINT ListView::GetItemState(int row, UINT mask) const {
    return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(row), static_cast<LPARAM>(mask)));
}

int ListView::GetNextItem(int after, UINT flags) const {
    return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(after), MAKELPARAM(flags, 0)));
}

int ListView::GetSelectedCount() const {
    return static_cast<int>(SendMessage(LVM_GETSELECTEDCOUNT));
}

bool ListView::EnsureVisible(int row, bool partialIsEnough) {
    return SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), partialIsEnough) != 0;
}

int ListView::GetTopIndex() const {
    return static_cast<int>(SendMessage(LVM_GETTOPINDEX));
}

int ListView::GetCountPerPage() const {
    return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE));
}

bool ListView::GetItemRect(int row, RECT* rect, int part) const {
    rect->left = part;
    return SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(rect)) != 0;
}

bool ListView::GetCellRect(int row, int column, RECT* rect) const {
    if (!GetItemRect(row, rect)) return false;
    for (int before = 0; before < column; ++before)
        rect->left += GetColumnWidth(before);
    rect->right = rect->left + GetColumnWidth(column);
    return true;
}

int ListView::HitTest(POINT point, int* column) const {
    LVHITTESTINFO info = {};
    info.pt = point;
    const int row = static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&info)));
    if (column != nullptr) *column = row < 0 ? -1 : info.iSubItem;
    return row;
}

bool ListView::RedrawItems(int first, int last) {
    return SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last) != 0;
}

void ListView::SetExtendedStyle(DWORD style) {
    SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style));
}

void ListView::SetRowHeight(int height) {
    UniqueImageList images(ImageList_Create(1, height, ILC_COLOR, 1, 1));
    SendMessage(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images.get()));
    if (GetStyle() & LVS_SHAREIMAGELISTS) {
        rowHeight_ = std::move(images);
    } else {
        (void)images.release();  // the control destroys it
    }
}
