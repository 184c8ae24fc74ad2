#include "inkx.h"

#include <cstring>
#include <new>
#include <string>

#include "platform/richink/ink_stream.h"
#include "platform/richink/rich_ink.h"
#include "platform/window_support.h"
#include "richink.h"

namespace {

HWND RichInk(HWND container) {
    return GetWindow(container, GW_CHILD);
}

bool CreateRichInk(HWND container, const CREATESTRUCTW& created) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | (created.style & WS_TABSTOP);
    return CreateWindowExW(0, WC_RICHINK, nullptr, style, 0, 0, created.cx, created.cy, container, nullptr, OwnModule(),
                           nullptr) != nullptr;
}

std::string Data(HWND container) {
    std::string bytes;
    if (SaveFrom(RichInkControl::Procedure, RichInk(container), SF_RTF, &bytes)) bytes.clear();
    return bytes;
}

LRESULT GetData(HWND container, size_t room, void* buffer) {
    const std::string bytes = Data(container);
    if (!buffer || bytes.size() > room) return 0;
    std::memcpy(buffer, bytes.data(), bytes.size());
    return static_cast<LRESULT>(bytes.size());
}

LRESULT SetData(HWND container, size_t size, const void* data) {
    if (!data) size = 0;
    const std::string bytes(static_cast<const char*>(data), size);
    if (LoadInto(RichInkControl::Procedure, RichInk(container), SF_RTF, bytes)) return 0;
    return static_cast<LRESULT>(size);
}

LRESULT OnDataMessage(HWND container, UINT message, WPARAM wparam, LPARAM lparam) {
    try {
        if (message == IM_GETDATALEN) return static_cast<LRESULT>(Data(container).size());
        if (message == IM_GETDATA) return GetData(container, wparam, reinterpret_cast<void*>(lparam));
        return SetData(container, wparam, reinterpret_cast<const void*>(lparam));
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
}

LRESULT CALLBACK InkXProcedure(HWND container, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_CREATE: return CreateRichInk(container, *reinterpret_cast<CREATESTRUCTW*>(lparam)) ? 0 : -1;
        case WM_SIZE: MoveWindow(RichInk(container), 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE); return 0;
        case WM_SETFOCUS: SetFocus(RichInk(container)); return 0;
        case WM_CLOSE: return 0;  // the rich edit's answer to Escape in a dialog; the dialog has seen the key itself
        case WM_COMMAND:          // the notifications of the control are the container's
            return SendMessageW(GetParent(container), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(container), HIWORD(wparam)),
                                reinterpret_cast<LPARAM>(container));
        case IM_GETRICHINK: return reinterpret_cast<LRESULT>(RichInk(container));
        case IM_GETDATALEN:
        case IM_GETDATA:
        case IM_SETDATA: return OnDataMessage(container, message, wparam, lparam);
        case IM_CLEARALL:
        case IM_REINIT: return SendMessageW(RichInk(container), EM_CLEARALL, TRUE, 0);
        case EM_GETMODIFY:
        case EM_SETMODIFY: return SendMessageW(RichInk(container), message, wparam, lparam);
    }
    return DefWindowProcW(container, message, wparam, lparam);
}

}  // namespace

void InitInkX() {
    InitRichInkDLL();
    RegisterWindowClass(WC_INKX, InkXProcedure);
}
