#include "ui/key_watch.h"

namespace {

constexpr UINT_PTR kSubclassId = 1;

bool Wants(const KeyListener& listener, HWND control, const MSG* message) {
    return message && message->message == WM_KEYDOWN && listener.WantsKey(control, static_cast<UINT>(message->wParam));
}

// The character that a key taken here would have typed is waiting in the queue: nobody shall get it.
void DropCharacter(HWND control) {
    MSG message;
    PeekMessageW(&message, control, WM_CHAR, WM_CHAR, PM_REMOVE);
}

LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR, DWORD_PTR data) {
    KeyListener& listener = *reinterpret_cast<KeyListener*>(data);
    switch (message) {
        case WM_GETDLGCODE:
            if (Wants(listener, control, reinterpret_cast<const MSG*>(lparam))) return DLGC_WANTMESSAGE;
            break;
        case WM_KEYDOWN:
            if (!listener.WantsKey(control, static_cast<UINT>(wparam))) break;
            DropCharacter(control);
            listener.OnKey(control, static_cast<UINT>(wparam));
            return 0;
        case WM_NCDESTROY: RemoveWindowSubclass(control, Procedure, kSubclassId); break;
        default: break;
    }
    return DefSubclassProc(control, message, wparam, lparam);
}

}  // namespace

void WatchKeys(HWND control, KeyListener& listener) {
    SetWindowSubclass(control, Procedure, kSubclassId, reinterpret_cast<DWORD_PTR>(&listener));
}
