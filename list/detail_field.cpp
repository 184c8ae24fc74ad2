#include "list/detail_field.h"

#include "list/open_keys.h"
#include "list/tap_guard.h"

namespace {

constexpr UINT_PTR kSubclassId = 1;

}  // namespace

bool DetailField::CreateIn(HWND parent, int id, DWORD kind) {
    constexpr RECT nowhere = {};
    return Control::CreateIn(parent, id, kind | SS_NOTIFY | SS_NOPREFIX | WS_TABSTOP, nowhere) &&
           SetWindowSubclass(GetHandle(), Procedure, kSubclassId, 0);
}

LRESULT CALLBACK DetailField::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                        DWORD_PTR) noexcept {
    switch (message) {
        case WM_GETDLGCODE:
            return BringsOpenKey(lparam) ? DLGC_WANTMESSAGE : 0;  // not DLGC_STATIC, which keys pass over
        case WM_KEYDOWN:
            if (!IsOpenKey(wparam)) break;
            SendTap(hwnd);
            return 0;
        case WM_LBUTTONDOWN:
            SwallowSecondTap(nullptr);  // it would press what opens in this place
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: InvalidateRect(hwnd, nullptr, TRUE); break;
        case WM_NCDESTROY: RemoveWindowSubclass(hwnd, Procedure, kSubclassId); break;
        default: break;
    }
    return DefSubclassProc(hwnd, message, wparam, lparam);
}
