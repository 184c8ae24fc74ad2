// Keys that do what a tap does, in the controls of the detail view.
#pragma once

#include <win.h>

// Return and Space.
inline bool IsOpenKey(WPARAM key) {
    return key == VK_RETURN || key == VK_SPACE;
}

// For WM_GETDLGCODE: whether the message that its lParam brings (there may be none) is such a key going down.
inline bool BringsOpenKey(LPARAM lparam) {
    const MSG* message = reinterpret_cast<const MSG*>(lparam);
    return message != nullptr && message->message == WM_KEYDOWN && IsOpenKey(message->wParam);
}

// Tells the control's parent what a tap on the control would tell it.
inline void SendTap(HWND control) {
    SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), STN_CLICKED),
                 reinterpret_cast<LPARAM>(control));
}
