#include "list/detail_note.h"

#include <cstdlib>

#include "list/open_keys.h"
#include "list/tap_guard.h"

namespace {

constexpr UINT_PTR kSubclassId = 1;

POINT PointOf(LPARAM lparam) {
    return {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
}

}  // namespace

bool DetailNote::CreateIn(HWND parent, int id, const RECT& place) {
    return RichInk::CreateIn(parent, id, kNoteStyle | ES_READONLY | WS_VISIBLE, place) &&
           SetWindowSubclass(GetHandle(), Procedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
}

void DetailNote::Load(const DbJItem& body) {
    const CEBLOB& blob = *body.GetBlob();
    StreamIn(SF_RTF, std::vector<BYTE>(blob.lpb, blob.lpb + blob.dwCount));
}

LRESULT CALLBACK DetailNote::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                       DWORD_PTR data) noexcept {
    return reinterpret_cast<DetailNote*>(data)->OnMessage(hwnd, message, wparam, lparam);
}

LRESULT DetailNote::OnMessage(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        // Arrows scroll; Tab and Escape are the dialog's.
        case WM_GETDLGCODE: return DLGC_WANTARROWS | (BringsOpenKey(lparam) ? DLGC_WANTMESSAGE : 0);
        case WM_KEYDOWN:
            if (wparam != VK_RETURN) break;  // Space is left to the control
            SendTap(hwnd);
            return 0;
        case WM_LBUTTONDOWN:
            pressed_ = PointOf(lparam);
            isPressed_ = true;
            break;
        case WM_LBUTTONUP: {
            const bool tap = IsTap(lparam);
            isPressed_ = false;
            const LRESULT result = DefSubclassProc(hwnd, message, wparam, lparam);
            if (!tap) return result;
            SwallowSecondTap(nullptr);  // it would press what opens in this place
            SendTap(hwnd);
            return result;
        }
        case WM_NCDESTROY: RemoveWindowSubclass(hwnd, Procedure, kSubclassId); break;
        default: break;
    }
    return DefSubclassProc(hwnd, message, wparam, lparam);
}

bool DetailNote::IsTap(LPARAM released) const {
    const POINT point = PointOf(released);
    return isPressed_ && std::abs(point.x - pressed_.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
           std::abs(point.y - pressed_.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
}
