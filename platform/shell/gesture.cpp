// Tap-and-hold.
#include "aygshell.h"
#include "px.h"

namespace {

constexpr DWORD kHold = 600;
constexpr DWORD kLongHold = 1200;
constexpr int kStillness = 4;  // logical pixels a resting stylus may tremble

// Whether the stylus rests within the rectangle until the time is up. Whatever ends the rest stays in the queue.
bool Rests(const RECT& stillness, DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_NOREMOVE)) {
            if (message.message != WM_MOUSEMOVE || !PtInRect(&stillness, message.pt)) return false;
            PeekMessageW(&message, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_MOUSE | QS_SENDMESSAGE);
    }
    return true;
}

}  // namespace

DWORD SHRecognizeGesture(SHRGINFO* info) {
    if (!info || info->cbSize != sizeof(SHRGINFO) || !IsWindow(info->hwndClient)) return 0;
    POINT down = info->ptDown;
    ClientToScreen(info->hwndClient, &down);
    RECT stillness{down.x, down.y, down.x + 1, down.y + 1};
    InflateRect(&stillness, Px(kStillness), Px(kStillness));
    if (!Rests(stillness, info->dwFlags & SHRG_LONGDELAY ? kLongHold : kHold)) return 0;
    if (info->dwFlags & SHRG_RETURNCMD) return GN_CONTEXTMENU;

    NMRGINFO notice{};
    notice.hdr = {info->hwndClient, static_cast<UINT_PTR>(GetDlgCtrlID(info->hwndClient)), GN_CONTEXTMENU};
    notice.ptAction = down;
    const HWND receiver = info->dwFlags & SHRG_NOTIFYPARENT ? GetParent(info->hwndClient) : info->hwndClient;
    return static_cast<DWORD>(SendMessageW(receiver, WM_NOTIFY, notice.hdr.idFrom, reinterpret_cast<LPARAM>(&notice)));
}
