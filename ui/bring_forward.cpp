#include "ui/bring_forward.h"

namespace {

bool CanBeUsed(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

// Topmost first.
BOOL CALLBACK TakeUsable(HWND window, LPARAM found) {
    if (!CanBeUsed(window) || (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// What the user can go on with. A box without an owner, which keeps all others disabled, is nobody's popup.
HWND FrontOf(HWND root) {
    const HWND popup = GetLastActivePopup(root);
    if (CanBeUsed(popup)) return popup;
    HWND usable = nullptr;
    EnumThreadWindows(GetWindowThreadProcessId(root, nullptr), TakeUsable, reinterpret_cast<LPARAM>(&usable));
    return usable ? usable : popup;
}

void Restore(HWND window) {
    if (IsIconic(window)) ShowWindowAsync(window, SW_RESTORE);
}

}  // namespace

void BringForward(HWND window) {
    const HWND root = GetAncestor(window, GA_ROOTOWNER);
    Restore(root);
    const HWND front = FrontOf(root);
    if (front != root) Restore(front);
    SetForegroundWindow(front);
}
