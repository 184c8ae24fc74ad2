#include "ui/tab_control.h"

#include <px.h>

#include "ui/gdi_scope.h"

namespace {

// Between a tab's text and its border, logical pixels.
constexpr int kPaddingX = 8;
constexpr int kPaddingY = 4;

constexpr int kLongestText = 64;

}  // namespace

bool TabControl::CreateIn(HWND parent, int id, DWORD style, const RECT& place) {
    if (!Control::CreateIn(parent, id, style | TCS_OWNERDRAWFIXED, place)) return false;
    // The system scales the text with the font, but not this.
    SendMessage(TCM_SETPADDING, 0, MAKELPARAM(Px(kPaddingX), Px(kPaddingY)));
    return true;
}

int TabControl::InsertTab(int index, const wchar_t* text) {
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<wchar_t*>(text);
    return static_cast<int>(SendMessage(TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
}

int TabControl::GetCount() const {
    return static_cast<int>(SendMessage(TCM_GETITEMCOUNT));
}

int TabControl::GetSelection() const {
    return static_cast<int>(SendMessage(TCM_GETCURSEL));
}

int TabControl::SetSelection(int index) {
    return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index)));
}

int TabControl::GetRowCount() const {
    return static_cast<int>(SendMessage(TCM_GETROWCOUNT));
}

bool TabControl::GetTabRect(int index, RECT* rect) const {
    return SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)) != 0;
}

int TabControl::GetStripHeight() {
    if (GetCount() <= 0) return 0;
    RECT tab = {};
    if (!GetTabRect(0, &tab)) {
        // A strip without width shows no tab and knows no height; it gets the width that it most likely will have.
        RECT parent = {};
        ::GetClientRect(GetParent(), &parent);
        SetWindowPos(nullptr, 0, 0, parent.right, Px(100), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
        GetTabRect(0, &tab);
    }
    return (tab.bottom - tab.top) * GetRowCount() + Px(2);
}

// Some systems let the texts at the bottom of a strip hang over the tabs' borders.
void TabControl::Draw(const DRAWITEMSTRUCT& draw) const {
    wchar_t text[kLongestText] = L"";
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = kLongestText;
    RECT place = {};
    SendMessage(TCM_GETITEMW, draw.itemID, reinterpret_cast<LPARAM>(&item));
    GetTabRect(static_cast<int>(draw.itemID), &place);

    const SelectedObject font(draw.hDC, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, GetSysColor(COLOR_BTNTEXT));
    DrawTextW(draw.hDC, text, -1, &place, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
    if (!(draw.itemState & ODS_SELECTED) || ::GetFocus() != GetHandle()) return;
    InflateRect(&place, -Px(kPaddingX) / 2, -Px(kPaddingY) / 2);
    DrawFocusRect(draw.hDC, &place);
}
