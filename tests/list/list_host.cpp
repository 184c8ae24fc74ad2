#include "tests/list/list_host.h"

namespace {
constexpr wchar_t kClass[] = L"ListHost";
}

ListHost::ListHost() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    handle_ = CreateWindowExW(0, kClass, L"list host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 256, 300, nullptr,
                              nullptr, GetModuleHandleW(nullptr), this);
}

ListHost::~ListHost() {
    DestroyWindow(handle_);
}

RECT ListHost::Client() const {
    RECT client;
    GetClientRect(handle_, &client);
    return client;
}

LRESULT CALLBACK ListHost::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(hwnd, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    auto* host = reinterpret_cast<ListHost*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (host != nullptr && message == WM_COMMAND) {
        host->commands.push_back({LOWORD(wparam), HIWORD(wparam)});
        return 0;
    }
    if (host != nullptr && message == WM_NOTIFY) {
        auto* header = reinterpret_cast<NMHDR*>(lparam);
        host->notified.push_back(header->code);
        return host->onNotify ? host->onNotify(header) : 0;
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}
