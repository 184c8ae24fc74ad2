#include "ui/window.h"

#include <algorithm>
#include <vector>

#include "ui/window_class.h"

Window::~Window() {
    LetGo();
}

void Window::LetGo() {
    if (::IsWindow(handle_)) {
        for (const UINT_PTR id : timers_)
            ::KillTimer(handle_, id);
        if (replaced_ != nullptr) ::SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replaced_));
    }
    timers_.clear();
    replaced_ = nullptr;
    menuBar_ = nullptr;
    handle_ = nullptr;
}

bool Window::Destroy() {
    font_.reset();
    brush_.reset();
    if (!IsWindow()) return false;
    const HWND window = handle_;
    if (!::DestroyWindow(window)) return false;
    // The screen's procedure may have detached the object while the window went.
    if (handle_ == window) LetGo();
    return true;
}

bool Window::Create(const wchar_t* className, const wchar_t* title, DWORD style, int x, int y, int width, int height,
                    HWND parent, HMENU menuOrId, HINSTANCE instance, void* parameter) {
    return CreateEx(0, className, title, style, x, y, width, height, parent, menuOrId, instance, parameter);
}

bool Window::CreateEx(DWORD exStyle, const wchar_t* className, const wchar_t* title, DWORD style, int x, int y,
                      int width, int height, HWND parent, HMENU menuOrId, HINSTANCE instance, void* parameter) {
    handle_ =
        ::CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menuOrId, instance, parameter);
    return IsWindow();
}

bool Window::Attach(HWND handle) {
    if (handle_ != nullptr) return false;
    handle_ = handle;
    return true;
}

bool Window::Detach() {
    if (handle_ == nullptr) return false;
    LetGo();
    return true;
}

bool Window::PreTranslate(MSG*) {
    return false;
}

bool Window::FillRect(HDC dc, const RECT& rect, HBRUSH brush) const {
    return ::FillRect(dc, &rect, brush) != 0;
}

HWND Window::GetHandle() const {
    return handle_;
}

HWND Window::GetParent() const {
    return ::GetParent(handle_);
}

HWND Window::GetMenuBar() const {
    return menuBar_;
}

bool Window::IsVisible() const {
    return ::IsWindowVisible(handle_) != FALSE;
}

bool Window::IsEnabled() const {
    return ::IsWindowEnabled(handle_) != FALSE;
}

bool Window::IsWindow() const {
    return ::IsWindow(handle_) != FALSE;
}

bool Window::IsClass(const wchar_t* className) const {
    return IsWindowClass(handle_, className);
}

bool Window::IsInputPanelUp() const {
    SIPINFO info = {};
    info.cbSize = sizeof(info);
    return SHSipInfo(SPI_GETSIPINFO, 0, &info, 0) && (info.fdwFlags & SIPF_ON) != 0;
}

DWORD Window::GetStyle() const {
    return static_cast<DWORD>(GetWindowLong(GWL_STYLE));
}

DWORD Window::GetExStyle() const {
    return static_cast<DWORD>(GetWindowLong(GWL_EXSTYLE));
}

DWORD Window::SetStyle(DWORD style) {
    return static_cast<DWORD>(SetWindowLong(GWL_STYLE, static_cast<LONG>(style)));
}

DWORD Window::SetExStyle(DWORD exStyle) {
    return static_cast<DWORD>(SetWindowLong(GWL_EXSTYLE, static_cast<LONG>(exStyle)));
}

LONG_PTR Window::GetWindowLong(int index) const {
    return ::GetWindowLongPtrW(handle_, index);
}

LONG_PTR Window::SetWindowLong(int index, LONG_PTR value) {
    return ::SetWindowLongPtrW(handle_, index, value);
}

bool Window::GetWindowRect(RECT* rect) const {
    return ::GetWindowRect(handle_, rect) != FALSE;
}

bool Window::GetClientRect(RECT* rect) const {
    if (!::GetClientRect(handle_, rect)) return false;
    rect->bottom = std::max(rect->top, rect->bottom - SHMenuBarHeight(handle_));
    return true;
}

bool Window::MoveWindow(int x, int y, int width, int height, bool repaint) {
    return ::MoveWindow(handle_, x, y, width, height, repaint) != FALSE;
}

bool Window::SetWindowPos(HWND after, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(handle_, after, x, y, width, height, flags) != FALSE;
}

bool Window::Enable(bool enable) {
    return ::EnableWindow(handle_, enable) != FALSE;
}

bool Window::Show(int command) {
    return ::ShowWindow(handle_, command) != FALSE;
}

bool Window::Hide() {
    return ::ShowWindow(handle_, SW_HIDE) != FALSE;
}

LRESULT Window::SendMessage(UINT message, WPARAM wparam, LPARAM lparam) const {
    return ::SendMessageW(handle_, message, wparam, lparam);
}

bool Window::PostMessage(UINT message, WPARAM wparam, LPARAM lparam) const {
    // With a null window the system would post to the thread instead.
    return handle_ != nullptr && ::PostMessageW(handle_, message, wparam, lparam) != FALSE;
}

bool Window::Invalidate(const RECT* rect, bool erase) {
    if (handle_ == nullptr) return false;  // null would repaint every window on the screen
    if (rect == nullptr) return ::InvalidateRect(handle_, nullptr, erase) != FALSE;
    const RECT copy = *rect;
    return ::InvalidateRect(handle_, &copy, erase) != FALSE;
}

bool Window::Update() {
    return ::UpdateWindow(handle_) != FALSE;
}

bool Window::SetForeground() {
    return ::SetForegroundWindow(handle_) != FALSE;
}

int Window::GetTextLength() const {
    return static_cast<int>(SendMessage(WM_GETTEXTLENGTH));
}

void Window::GetText(std::wstring& text) const {
    std::vector<wchar_t> buffer(static_cast<size_t>(GetTextLength()) + 1, L'\0');
    // The length may be an overestimate: what was copied counts.
    const int copied = GetText(buffer.data(), static_cast<int>(buffer.size()));
    text.assign(buffer.data(), static_cast<size_t>(copied));
}

int Window::GetText(wchar_t* buffer, int size) const {
    return static_cast<int>(SendMessage(WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

bool Window::SetText(const wchar_t* text) {
    return SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

bool Window::KillTimer(UINT_PTR id) {
    if (!FindTimer(id)) return false;
    timers_.remove(id);
    return ::KillTimer(handle_, id) != FALSE;
}

bool Window::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    // Without a window the system would choose an id of its own, and nobody could kill the timer.
    if (handle_ == nullptr || ::SetTimer(handle_, id, milliseconds, procedure) == 0) return false;
    if (!FindTimer(id)) timers_.push_front(id);
    return true;
}

bool Window::FindTimer(UINT_PTR id) const {
    return std::find(timers_.begin(), timers_.end(), id) != timers_.end();
}

HBRUSH Window::GetBrush() const {
    return brush_.get();
}

void Window::ReleaseBrush() {
    brush_.reset();
}

int Window::MessageBox(const wchar_t* text, const wchar_t* title, UINT flags) const {
    return ::MessageBoxW(handle_, text, title, flags);
}

bool Window::Validate(const RECT* rect) {
    return handle_ != nullptr && ::ValidateRect(handle_, rect) != FALSE;
}

bool Window::BringToTop() {
    return ::BringWindowToTop(handle_) != FALSE;
}

bool Window::ScreenToClient(POINT* point) const {
    return ::ScreenToClient(handle_, point) != FALSE;
}

bool Window::ScreenToClient(RECT* rect) const {
    POINT* corners = reinterpret_cast<POINT*>(rect);
    return ::ScreenToClient(handle_, &corners[0]) && ::ScreenToClient(handle_, &corners[1]);
}

bool Window::ClientToScreen(RECT* rect) const {
    POINT* corners = reinterpret_cast<POINT*>(rect);
    return ::ClientToScreen(handle_, &corners[0]) && ::ClientToScreen(handle_, &corners[1]);
}

HWND Window::SetActive() {
    return ::SetActiveWindow(handle_);
}

void Window::SetFont(HFONT font, bool redraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
}

HDC Window::GetDC() const {
    return ::GetDC(handle_);
}

bool Window::ReleaseDC(HDC dc) const {
    return ::ReleaseDC(handle_, dc) != 0;
}

HWND Window::SetFocus() {
    return ::SetFocus(handle_);
}

void Window::KillFocus(HWND next) {
    SendMessage(WM_KILLFOCUS, reinterpret_cast<WPARAM>(next));
}

bool Window::SipPreference(SIPSTATE state) {
    return SHSipPreference(handle_, state) != FALSE;
}

int Window::CreateMenuBar(bool create, DWORD flags, UINT resourceId, HINSTANCE instance, int bitmapId, int imageCount) {
    constexpr int kDone = 1;
    constexpr int kFailed = -1;
    if (!create || menuBar_ != nullptr) {
        if (::IsWindow(menuBar_)) ::DestroyWindow(menuBar_);
        menuBar_ = nullptr;
        return kDone;
    }
    SHMENUBARINFO info = {};
    info.cbSize = sizeof(info);
    info.hwndParent = handle_;
    info.dwFlags = flags;
    info.nToolBarId = resourceId;
    info.hInstRes = instance;
    info.nBmpId = bitmapId;
    info.cBmpImages = imageCount;
    if (!SHCreateMenuBar(&info)) return kFailed;
    menuBar_ = info.hwndMB;
    return kDone;
}

bool Window::Subclass(WNDPROC procedure) {
    if (replaced_ != nullptr || handle_ == nullptr) return false;
    replaced_ = reinterpret_cast<WNDPROC>(SetWindowLong(GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    return replaced_ != nullptr;
}

bool Window::Unsubclass() {
    if (replaced_ == nullptr) return false;
    SetWindowLong(GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replaced_));
    replaced_ = nullptr;
    return true;
}

void Window::HoldFont(UniqueFont font) {
    SetFont(font.get());
    font_ = std::move(font);
}

void Window::HoldBrush(UniqueBrush brush) {
    brush_ = std::move(brush);
}

LRESULT Window::CallReplaced(UINT message, WPARAM wparam, LPARAM lparam) const {
    if (replaced_ == nullptr) return ::DefWindowProcW(handle_, message, wparam, lparam);
    return ::CallWindowProcW(replaced_, handle_, message, wparam, lparam);
}
