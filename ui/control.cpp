#include "ui/control.h"

#include "ui/fonts.h"

bool Control::CreateIn(HWND parent, int id, DWORD style, const RECT& place, DWORD exStyle) {
    const HINSTANCE instance = reinterpret_cast<HINSTANCE>(::GetWindowLongPtrW(parent, GWLP_HINSTANCE));
    if (!CreateEx(exStyle, className_, L"", style | WS_CHILD, place.left, place.top, place.right - place.left,
                  place.bottom - place.top, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance,
                  nullptr)) {
        return false;
    }
    SetFont(ControlFont(), false);
    return true;
}

bool Control::AttachItem(HWND dialog, int id) {
    const HWND item = ::GetDlgItem(dialog, id);
    return item != nullptr && Attach(item);
}

int Control::GetId() const {
    return ::GetDlgCtrlID(GetHandle());
}
