#include "list/tap_guard.h"

#include <win.h>

#include <cstdlib>
#include <utility>

namespace {

HHOOK hook = nullptr;
DWORD firstTime = 0;
POINT firstPlace = {};
void (*tell)() = nullptr;
bool swallowed = false;  // the press has been taken; its release is still to come

bool IsNearFirst(const POINT& point) {
    return std::abs(point.x - firstPlace.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
           std::abs(point.y - firstPlace.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
}

bool IsSecondTap(const MSG& message) {
    return message.time - firstTime <= GetDoubleClickTime() && IsNearFirst(message.pt);
}

// Whether the button was pressed since the last call, whoever got the message.
bool WasPressed() {
    return (GetAsyncKeyState(GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON) & 1) != 0;
}

void Tell() {
    if (tell != nullptr) std::exchange(tell, nullptr)();
}

void Disarm() {
    UnhookWindowsHookEx(hook);
    hook = nullptr;
}

// Sees every message this thread takes from its queue, whichever loop takes it.
LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM lparam) noexcept {
    MSG& message = *reinterpret_cast<MSG*>(lparam);
    const HHOOK current = hook;
    if (code == HC_ACTION) {
        switch (message.message) {
            case WM_LBUTTONDOWN:
            case WM_LBUTTONDBLCLK:
            case WM_NCLBUTTONDOWN:
            case WM_NCLBUTTONDBLCLK:
                if (!swallowed && IsSecondTap(message)) {
                    message.message = WM_NULL;
                    swallowed = removed == PM_REMOVE;
                } else {
                    Disarm();
                }
                break;
            case WM_LBUTTONUP:
            case WM_NCLBUTTONUP:
                if (!swallowed) break;
                message.message = WM_NULL;
                if (removed != PM_REMOVE) break;
                Disarm();
                Tell();
                break;
            case WM_MOUSEMOVE:
                if (!swallowed && !IsSecondTap(message)) Disarm();
                break;
            default: break;
        }
    }
    return CallNextHookEx(current, code, removed, lparam);
}

}  // namespace

void SwallowSecondTap(void (*onSwallowed)()) {
    const DWORD place = GetMessagePos();
    firstPlace = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    firstTime = static_cast<DWORD>(GetMessageTime());
    swallowed = false;
    tell = onSwallowed;
    WasPressed();  // the first tap
    if (hook == nullptr) hook = SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId());
}

void TakeLostSecondTap() {
    POINT now;
    if (hook == nullptr || !WasPressed() || !GetCursorPos(&now) || !IsNearFirst(now)) return;
    Tell();  // the press itself, should it still come, is swallowed as before
}
