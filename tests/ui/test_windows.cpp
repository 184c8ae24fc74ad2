#include "tests/ui/test_windows.h"

HINSTANCE TestInstance() {
    return GetModuleHandleW(nullptr);
}

const wchar_t* PlainClass(const wchar_t* name) {
    WNDCLASSW type = {};
    type.lpfnWndProc = DefWindowProcW;
    type.hInstance = TestInstance();
    type.lpszClassName = name;
    RegisterClassW(&type);  // fails the second time, which is fine
    return name;
}

HWND MakeChild(HWND parent, const wchar_t* className, DWORD style) {
    return CreateWindowExW(0, className, L"", WS_CHILD | style, 0, 0, 100, 20, parent, nullptr, TestInstance(),
                           nullptr);
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

RecordingWindow::RecordingWindow() {
    constexpr wchar_t kClass[] = L"UiTestRecorder";
    WNDCLASSW type = {};
    type.lpfnWndProc = Procedure;
    type.hInstance = TestInstance();
    type.lpszClassName = kClass;
    RegisterClassW(&type);
    handle_ = CreateWindowExW(0, kClass, L"Recorder", WS_OVERLAPPEDWINDOW, 10, 10, 300, 200, nullptr, nullptr,
                              TestInstance(), this);
}

RecordingWindow::~RecordingWindow() {
    if (::IsWindow(handle_)) DestroyWindow(handle_);
}

std::vector<MSG> RecordingWindow::Seen(UINT message) const {
    std::vector<MSG> found;
    for (const MSG& seen : seen_) {
        if (seen.message == message) found.push_back(seen);
    }
    return found;
}

LRESULT CALLBACK RecordingWindow::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(hwnd, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    auto* self = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (self != nullptr && message != WM_NCDESTROY) {
        MSG seen = {};
        seen.hwnd = hwnd;
        seen.message = message;
        seen.wParam = wparam;
        seen.lParam = lparam;
        self->seen_.push_back(seen);
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}
