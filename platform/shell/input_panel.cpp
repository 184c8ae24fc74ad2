#include "platform/shell/input_panel.h"

#include <algorithm>
#include <new>

#include "aygshell.h"
#include "platform/shell/screen.h"
#include "platform/window_support.h"
#include "px.h"

namespace {

constexpr wchar_t kClass[] = L"cehost.InputPanel";
constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kRepeatDelay = 450;  // milliseconds until a key that is held strikes again
constexpr UINT kRepeatPace = 70;

bool is_up = false;

HFONT MakeFont(int height) {
    return CreateFontW(-height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY, DEFAULT_PITCH | FF_SWISS, L"Tahoma");
}

bool Repeats(const PanelKey& key) {
    switch (key.kind) {
        case PanelKeyKind::kBackspace:
        case PanelKeyKind::kLeft:
        case PanelKeyKind::kRight: return true;
        default: return key.plain == L' ';
    }
}

BOOL CALLBACK CollectScreen(HWND window, LPARAM screens) {
    if (Screen::Of(window)) reinterpret_cast<std::vector<HWND>*>(screens)->push_back(window);
    return TRUE;
}

}  // namespace

bool InputPanel::IsUp() {
    return is_up;
}

void InputPanel::SetUp(bool up) {
    if (is_up == up) return;
    is_up = up;
    std::vector<HWND> screens;
    EnumThreadWindows(GetCurrentThreadId(), CollectScreen, reinterpret_cast<LPARAM>(&screens));
    for (const HWND window : screens) {
        if (const Screen* screen = Screen::Of(window)) screen->ShowPanelState();
    }
    // A screen may close another one when it is told.
    for (const HWND window : screens) {
        Screen* screen = Screen::Of(window);
        if (!screen) continue;
        screen->PlaceBar();
        // On a device the window itself is sized: what a screen does then, it is to do now.
        RECT client{};
        GetClientRect(window, &client);
        SendMessageW(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
        if (IsWindow(window)) SendMessageW(window, WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
    }
}

HWND InputPanel::Create(HWND screen) {
    if (!RegisterWindowClass(kClass, Procedure)) return nullptr;
    auto* panel = new (std::nothrow) InputPanel;
    if (!panel) return nullptr;
    return CreateWindowExW(WS_EX_NOACTIVATE | WS_EX_NOPARENTNOTIFY, kClass, L"Keyboard", WS_CHILD | WS_CLIPSIBLINGS, 0,
                           0, 0, 0, screen, nullptr, OwnModule(), panel);
}

InputPanel::~InputPanel() {
    if (font_) DeleteObject(font_);
    if (smallFont_) DeleteObject(smallFont_);
}

// The window owns the object from WM_NCCREATE to WM_NCDESTROY.
LRESULT CALLBACK InputPanel::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* created = static_cast<InputPanel*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* panel = reinterpret_cast<InputPanel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!panel) return DefWindowProcW(window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        delete panel;
        return 0;
    }
    return panel->OnMessage(message, wparam, lparam);
}

LRESULT InputPanel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE: OnSize(); return 0;
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: Paint(); return 0;
        case WM_MOUSEACTIVATE: return OnMouseActivate();
        case WM_LBUTTONDOWN: OnDown(PointOf(lparam)); return 0;
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED: OnUp(); return 0;
        case WM_TIMER: OnTimer(); return 0;
        case WM_CONTEXTMENU: return 0;  // not the screen's context menu
    }
    return DefWindowProcW(window_, message, wparam, lparam);
}

void InputPanel::OnSize() {
    RECT client;
    GetClientRect(window_, &client);
    keys_ = PlacePanelKeys({client.right, client.bottom}, page_);
    const int row = keys_.empty() ? 0 : keys_[0].place.bottom - keys_[0].place.top;
    if (font_) DeleteObject(font_);
    if (smallFont_) DeleteObject(smallFont_);
    font_ = MakeFont(std::clamp(row * 11 / 16, 1, Px(18)));
    smallFont_ = MakeFont(std::clamp(row * 9 / 16, 1, Px(14)));
    InvalidateRect(window_, nullptr, FALSE);
}

// A tap leaves the focus alone. Only when another program has the keys, the screen comes forward like for any click,
// and its focus with it: what is tapped is for this program.
LRESULT InputPanel::OnMouseActivate() const {
    return GetActiveWindow() == GetAncestor(window_, GA_ROOT) ? MA_NOACTIVATE : MA_ACTIVATE;
}

void InputPanel::OnDown(POINT at) {
    const int key = PanelKeyAt(keys_, at);
    if (key < 0) return;
    SetCapture(window_);
    pressed_ = key;
    if (Repeats(keys_[key])) SetTimer(window_, kRepeatTimer, kRepeatDelay, nullptr);
    Strike(keys_[key]);
    InvalidateRect(window_, nullptr, FALSE);
    UpdateWindow(window_);
}

void InputPanel::OnUp() {
    if (pressed_ < 0) return;
    pressed_ = -1;
    KillTimer(window_, kRepeatTimer);
    if (GetCapture() == window_) ReleaseCapture();
    InvalidateRect(window_, nullptr, FALSE);
}

void InputPanel::OnTimer() {
    if (pressed_ < 0) return;
    SetTimer(window_, kRepeatTimer, kRepeatPace, nullptr);
    Strike(keys_[pressed_]);
}

void InputPanel::Strike(const PanelKey& key) {
    switch (key.kind) {
        case PanelKeyKind::kBackspace: return TypeKey(VK_BACK);
        case PanelKeyKind::kTab: return TypeKey(VK_TAB);
        case PanelKeyKind::kEnter: return TypeKey(VK_RETURN);
        case PanelKeyKind::kLeft: return TypeKey(VK_LEFT);
        case PanelKeyKind::kRight: return TypeKey(VK_RIGHT);
        case PanelKeyKind::kShift:
            // Once for the next letter, once more for all, once more for none.
            shift_ = shift_ == Shift::kOff ? Shift::kOnce : shift_ == Shift::kOnce ? Shift::kLocked : Shift::kOff;
            return;
        case PanelKeyKind::kPage:
            page_ = page_ == PanelPage::kPlain ? PanelPage::kAccents : PanelPage::kPlain;
            return OnSize();
        case PanelKeyKind::kCharacter: break;
    }
    // A button takes a blank as a key, not as a character.
    if (key.plain == L' ') return TypeKey(VK_SPACE);
    TypeCharacter(shift_ == Shift::kOff ? key.plain : key.shifted);
    if (shift_ == Shift::kOnce) shift_ = Shift::kOff;
}

// Through the queue, so that it passes the same loop as a key of a real keyboard: dialogs and field editors look there.
void InputPanel::TypeCharacter(wchar_t character) {
    if (const HWND focus = GetFocus()) PostMessageW(focus, WM_CHAR, character, 1);
}

void InputPanel::TypeKey(WORD key) {
    const HWND focus = GetFocus();
    if (!focus) return;
    const bool extended = key == VK_LEFT || key == VK_RIGHT;
    const LPARAM down = 1 | static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16 | (extended ? 1 << 24 : 0);
    PostMessageW(focus, WM_KEYDOWN, key, down);
    PostMessageW(focus, WM_KEYUP, key, down | static_cast<LPARAM>(0xC0000000));
}
