#include "editor/field_list.h"

#include <algorithm>

#include "data/dbj_item.h"
#include "px.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"

namespace {

constexpr COLORREF kOlive = RGB(125, 125, 60);

constexpr int kRowHeight = 24;  // logical pixels: room for a drop-down list
constexpr int kTextMargin = 4;

// A row's data: the item type, and whether its value stands for an empty one.
constexpr LPARAM kKindMask = 0xFFFF;
constexpr LPARAM kIsDefault = 0x10000;

constexpr UINT_PTR kSubclassId = 2;  // 1 watches the keys

// Messages in which the rows may move.
bool MayScroll(UINT message) {
    return message == WM_VSCROLL || message == WM_MOUSEWHEEL || message == WM_KEYDOWN || message == WM_LBUTTONDOWN ||
           message == LVM_SCROLL || message == LVM_ENSUREVISIBLE;
}

// More than the widest row shows; a body may be as long as it likes.
constexpr size_t kMaxShown = 250;

std::wstring OneLine(const std::wstring& text) {
    std::wstring line = text.substr(0, kMaxShown);
    if (!line.empty() && IS_HIGH_SURROGATE(line.back())) line.pop_back();  // the pair's other half was cut off
    line.erase(std::remove(line.begin(), line.end(), L'\r'), line.end());
    std::replace(line.begin(), line.end(), L'\n', L' ');
    std::replace(line.begin(), line.end(), L'\t', L' ');
    return line;
}

// The margin at the right is the next cell's, or the window's border.
void DrawCell(HDC dc, RECT cell, const std::wstring& text, COLORREF colour, HFONT font) {
    const SelectedObject selectedFont(dc, font);
    SetTextColor(dc, colour);
    SetBkMode(dc, TRANSPARENT);
    cell.left += Px(kTextMargin);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &cell,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace

bool FieldList::CreateIn(HWND parent, int id, const RECT& place) {
    defaultFont_ = MakeFont(L"Tahoma", -11, FW_THIN);
    valueFont_ = MakeFont(L"Tahoma", -12, FW_NORMAL);
    captionFont_ = MakeFont(L"Tahoma", -11, FW_BOLD);
    constexpr DWORD style = WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_CLIPSIBLINGS | LVS_REPORT | LVS_SINGLESEL |
                            LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS;
    if (!ListView::CreateIn(parent, id, style, place)) return false;
    SetWindowSubclass(GetHandle(), Procedure, kSubclassId, 0);
    SetFont(valueFont_.get());
    SetRowHeight(Px(kRowHeight));
    InsertColumn(0, L"Field", 1);
    InsertColumn(1, L"Value", 1);
    Place(place);
    return true;
}

// The control tells of the end of a scroll alone, and not on every system of that.
LRESULT CALLBACK FieldList::Procedure(HWND list, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR) noexcept {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(list, Procedure, kSubclassId);
    if (message == WM_CHAR) {
        NMCHAR typed = {{list, static_cast<UINT_PTR>(::GetDlgCtrlID(list)), static_cast<UINT>(NM_CHAR)},
                        static_cast<UINT>(wparam),
                        0,
                        0};
        return ::SendMessageW(::GetParent(list), WM_NOTIFY, typed.hdr.idFrom, reinterpret_cast<LPARAM>(&typed));
    }
    const auto topRow = [list] { return DefSubclassProc(list, LVM_GETTOPINDEX, 0, 0); };
    const LRESULT before = MayScroll(message) ? topRow() : 0;
    const LRESULT result = DefSubclassProc(list, message, wparam, lparam);
    if (!MayScroll(message) || topRow() == before) return result;
    NMLVSCROLL scrolled = {};
    scrolled.hdr = {list, static_cast<UINT_PTR>(::GetDlgCtrlID(list)), static_cast<UINT>(LVN_ENDSCROLL)};
    ::SendMessageW(::GetParent(list), WM_NOTIFY, scrolled.hdr.idFrom, reinterpret_cast<LPARAM>(&scrolled));
    return result;
}

void FieldList::Place(const RECT& place) {
    const int width = place.right - place.left;
    MoveWindow(place.left, place.top, width, place.bottom - place.top);
    FitColumns();
}

void FieldList::FitColumns() {
    // The scroll bar takes from the page, so that the columns need no second one below them.
    RECT client = {};
    GetClientRect(&client);
    const int third = client.right / 3;
    SetColumnWidth(0, third);
    SetColumnWidth(1, third * 2);
}

void FieldList::AppendRow(const wchar_t* caption, int kind) {
    InsertItem(GetItemCount(), caption, kind);
}

void FieldList::SetValue(int row, const std::wstring& text, bool isDefault) {
    SetItemText(row, 1, OneLine(text).c_str());
    SetItemData(row, (GetItemData(row) & kKindMask) | (isDefault ? kIsDefault : 0));
    RedrawItems(row, row);
}

void FieldList::Select(int row) {
    constexpr UINT state = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(row, state, state);
    EnsureVisible(row, false);
}

bool FieldList::GetValueRect(int row, RECT* rect) const {
    if (!GetCellRect(row, 1, rect)) return false;
    MapWindowPoints(GetHandle(), GetParent(), reinterpret_cast<POINT*>(rect), 2);
    return true;
}

void FieldList::Measure(MEASUREITEMSTRUCT& measure) const {
    measure.itemHeight = static_cast<UINT>(Px(kRowHeight));
}

void FieldList::Draw(const DRAWITEMSTRUCT& draw) const {
    const int row = static_cast<int>(draw.itemID);
    const LPARAM data = GetItemData(row);
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;

    RECT caption = draw.rcItem;
    caption.right = caption.left + GetColumnWidth(0);
    RECT value = draw.rcItem;
    value.left = caption.right;

    ::FillRect(draw.hDC, &draw.rcItem, GetSysColorBrush(COLOR_WINDOW));
    const RECT line = {draw.rcItem.left, draw.rcItem.bottom - 1, draw.rcItem.right, draw.rcItem.bottom};
    ::FillRect(draw.hDC, &line, GetSysColorBrush(COLOR_BTNFACE));

    DrawCaption(draw.hDC, caption, GetItemText(row, 0), selected);
    if ((data & kKindMask) != kItemLabelOnly) {
        DrawValue(draw.hDC, value, GetItemText(row, 1), (data & kIsDefault) != 0);
    }
    if (selected && GetFocus() == GetHandle()) DrawFocusRect(draw.hDC, &draw.rcItem);
}

// A field is known by its caption, which is therefore written narrower rather than cut.
void FieldList::DrawCaption(HDC dc, const RECT& cell, const std::wstring& text, bool selected) const {
    if (selected) ::FillRect(dc, &cell, GetSysColorBrush(COLOR_ACTIVECAPTION));
    const int room = cell.right - cell.left - Px(kTextMargin);
    const UniqueFont narrow = MakeNarrowFont(dc, captionFont_.get(), text, room);
    DrawCell(dc, cell, text, selected ? GetSysColor(COLOR_CAPTIONTEXT) : kOlive,
             narrow ? narrow.get() : captionFont_.get());
}

void FieldList::DrawValue(HDC dc, const RECT& cell, const std::wstring& text, bool isDefault) const {
    DrawCell(dc, cell, text, isDefault ? kOlive : GetSysColor(COLOR_WINDOWTEXT),
             (isDefault ? defaultFont_ : valueFont_).get());
}
