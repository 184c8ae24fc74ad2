#include "ui/tab_control.h"

#include <px.h>

bool TabControl::CreateIn(HWND parent, int id, DWORD style, const RECT& place) {
    if (!Control::CreateIn(parent, id, style, place)) return false;
    // What the system uses at 96 DPI; it scales the text with the font, but not this.
    SendMessage(TCM_SETPADDING, 0, MAKELPARAM(Px(6), Px(3)));
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
