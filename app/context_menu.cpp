#include "app/context_menu.h"

#include <pictures.h>
#include <px.h>

#include "res/ids.h"
#include "ui/fonts.h"
#include "ui/gdi_scope.h"
#include "ui/resource_text.h"
#include "ui/window.h"

namespace {

constexpr int kSeparatorHeight = 10;
constexpr int kSeparatorWidth = 50;
constexpr int kTextInset = 10;
constexpr int kLineInset = 6;
constexpr int kCheckInset = 3;
constexpr int kCheckSize = 12;

// An item without text is a separator.
const std::wstring* TextOf(ULONG_PTR itemData) {
    return reinterpret_cast<const std::wstring*>(itemData);
}

void DrawSeparator(HDC dc, const RECT& item) {
    const int y = (item.top + item.bottom) / 2;
    MoveToEx(dc, item.left + Px(kLineInset), y, nullptr);
    LineTo(dc, item.right - Px(kLineInset), y);
}

void DrawItemText(const DRAWITEMSTRUCT& item, const std::wstring& text) {
    RECT area = item.rcItem;
    area.left += Px(kTextInset);
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(item.itemState & ODS_GRAYED ? COLOR_GRAYTEXT : COLOR_MENUTEXT));
    DrawTextW(item.hDC, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

}  // namespace

ContextMenu::ContextMenu() : menu_(CreatePopupMenu()), font_(MakeFont(L"Tahoma", -13, FW_BOLD)) {
    check_.reset(LoadPictureStrip(GetModuleHandleW(nullptr), IDB_CHECK, Px(kCheckSize)));
    Append(0, IDM_COPY_ENTRIES, IDS_COPY);
    Append(1, IDM_DELETE_ENTRIES, IDS_DELETE);
    Append(2, IDM_EXPORT_SELECTED, IDS_EXPORT_SELECTED);
}

void ContextMenu::Append(size_t index, UINT id, UINT text) {
    texts_[index] = LoadText(text);
    AppendMenuW(menu_.get(), MF_OWNERDRAW, id, reinterpret_cast<const wchar_t*>(&texts_[index]));
}

UINT ContextMenu::Alignment(const RECT& client, POINT point) {
    const bool right = point.x >= (client.left + client.right) / 2;
    const bool lower = point.y >= (client.top + client.bottom) / 2;
    return (right ? TPM_RIGHTALIGN : TPM_LEFTALIGN) | (lower ? TPM_BOTTOMALIGN : TPM_TOPALIGN);
}

void ContextMenu::Open(const Window& owner, POINT point) const {
    RECT client;
    owner.GetClientRect(&client);
    POINT inside = point;
    owner.ScreenToClient(&inside);
    TrackPopupMenu(menu_.get(), Alignment(client, inside), point.x, point.y, 0, owner.GetHandle(), nullptr);
}

LRESULT ContextMenu::Measure(MEASUREITEMSTRUCT* item) const {
    if (item->CtlType != ODT_MENU) return FALSE;
    const std::wstring* text = TextOf(item->itemData);
    if (text == nullptr || text->empty()) {
        item->itemHeight = static_cast<UINT>(Px(kSeparatorHeight));
        item->itemWidth = static_cast<UINT>(Px(kSeparatorWidth));
        return TRUE;
    }
    const WindowDc screen(nullptr);
    const SelectedObject font(screen.Dc(), font_.get());
    const int length = static_cast<int>(text->size());
    SIZE size = {};
    GetTextExtentPoint32W(screen.Dc(), text->c_str(), length, &size);
    item->itemHeight = static_cast<UINT>(size.cy + Px(2));
    item->itemWidth = static_cast<UINT>(size.cx + 5 * (size.cx / length));
    return TRUE;
}

LRESULT ContextMenu::Draw(const DRAWITEMSTRUCT& item, HBRUSH paper) const {
    if (item.CtlType != ODT_MENU) return FALSE;
    ::FillRect(item.hDC, &item.rcItem, paper);
    const SelectedObject font(item.hDC, font_.get());
    if (item.itemState & ODS_CHECKED) {
        DrawPicture(item.hDC, check_.get(), 0, {item.rcItem.left + Px(kCheckInset), item.rcItem.top + Px(kCheckInset)},
                    255);
    }
    const std::wstring* text = TextOf(item.itemData);
    if (text != nullptr && !text->empty()) {
        DrawItemText(item, *text);
    } else if (item.itemAction & (ODA_DRAWENTIRE | ODA_SELECT)) {
        DrawSeparator(item.hDC, item.rcItem);
    }
    // The paper stays the same under the chosen item; a frame tells which one it is.
    if (item.itemState & ODS_SELECTED) FrameRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_HIGHLIGHT));
    return TRUE;
}
