#include "tests/monkey/monkey.h"

#include <aygshell.h>

#include <cstdio>
#include <cstdlib>

#include "data/link_message.h"
#include "res/ids.h"

namespace {

constexpr ULONGLONG kLongest = 30'000;  // milliseconds
constexpr int kMostAtOnce = 80;         // what happens between two looks at the windows

constexpr unsigned kCommands[] = {IDM_SHAREDNEW,       IDM_NEW_ENTRY,      IDM_OPEN_ENTRY, IDM_EDIT_ENTRY,
                                  IDM_COPY_ENTRIES,    IDM_DELETE_ENTRIES, IDM_SHOW_ALL,   IDM_FILTER,
                                  IDM_FILTER_CHANGED,  IDM_EXPORT,         IDM_FIND,       IDM_OPTIONS,
                                  IDM_EXPORT_SELECTED, IDM_ABOUT};
constexpr unsigned kNotifications[] = {0, 0, 0, 0, 0x466, 0x467, 0x469, 0x4FF};
constexpr unsigned kCodes[] = {BN_CLICKED,   BN_CLICKED,    BN_CLICKED,  BN_DBLCLK,  EN_CHANGE,
                               EN_KILLFOCUS, CBN_SELCHANGE, CBN_CLOSEUP, LBN_DBLCLK, CBN_EDITCHANGE};
constexpr unsigned kKeys[] = {VK_TAB,  VK_RETURN, VK_ESCAPE, VK_UP,   VK_DOWN,  VK_LEFT, VK_RIGHT, VK_HOME, VK_END,
                              VK_NEXT, VK_PRIOR,  VK_DELETE, VK_BACK, VK_SPACE, VK_F2,   VK_F3,    VK_F4};
constexpr unsigned kAnswers[] = {IDOK, IDCANCEL, IDYES, IDNO};

BOOL CALLBACK TakeShown(HWND window, LPARAM windows) {
    if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

BOOL CALLBACK TakeChild(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

HWND Main() {
    return FindWindowW(kJournalClass, kJournalTitle);
}

// A message box is the system's: it takes for a pointer what comes with WM_INITDIALOG.
bool IsOurs(HWND window) {
    return reinterpret_cast<HMODULE>(GetWindowLongPtrW(window, GWLP_HINSTANCE)) == GetModuleHandleW(nullptr);
}

bool IsTraced() {
    static const bool traced = std::getenv("JOURNAL_MONKEY_TRACE") != nullptr;
    return traced;
}

}  // namespace

Monkey* Monkey::live_ = nullptr;

std::vector<HWND> ShownWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), TakeShown, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

Monkey::Monkey(unsigned seed, int messages) : random_(seed), end_(GetTickCount64() + kLongest), left_(messages) {
    live_ = this;
    timer_ = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

Monkey::~Monkey() {
    KillTimer(nullptr, timer_);
    live_ = nullptr;
}

void CALLBACK Monkey::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (live_ == nullptr) return;
    if (GetTickCount64() > live_->end_) live_->left_ = 0;
    if (live_->left_ <= 0) return live_->CloseSomething();
    for (int count = live_->Below(kMostAtOnce); count >= 0; --count)
        live_->Act();
}

void Monkey::Act() {
    switch (Below(20)) {
        case 0:
        case 1:
        case 2: return SendCommand();
        case 3:
        case 4:
        case 5:
        case 6:
        case 7: return SendScreenCommand();
        case 8:
        case 9:
        case 10: return PressKey();
        case 11:
        case 12:
        case 13: return Tap();
        case 14: return OpenMenu();
        case 15: return CloseScreen();
        case 16: return Request();
        case 17: return Resize();
        default: return SendPrivate();
    }
}

// One way or another each of them ends with one of these.
void Monkey::CloseSomething() {
    for (const HWND window : ShownWindows()) {
        if (!IsWindowEnabled(window)) continue;
        PostMessageW(window, WM_CANCELMODE, 0, 0);
        if (window != Main()) PostMessageW(window, WM_COMMAND, OneOf(kAnswers), 0);
        PostMessageW(window, WM_CLOSE, 0, 0);
        return;
    }
}

// ---- What it does ----

void Monkey::SendCommand() {
    const unsigned id = Below(10) == 0 ? static_cast<unsigned>(Below(0x10000)) : OneOf(kCommands);
    Post(Main(), WM_COMMAND, MAKEWPARAM(id, OneOf(kNotifications)));
}

void Monkey::SendScreenCommand() {
    const HWND screen = AnyScreen();
    if (screen == nullptr || screen == Main()) return;
    std::vector<HWND> controls;
    EnumChildWindows(screen, TakeChild, reinterpret_cast<LPARAM>(&controls));
    if (controls.empty() || Below(4) == 0) return Post(screen, WM_COMMAND, OneOf(kAnswers));
    const HWND control = controls[Below(static_cast<int>(controls.size()))];
    Post(screen, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), OneOf(kCodes)), reinterpret_cast<LPARAM>(control));
}

void Monkey::PressKey() {
    HWND window = GetFocus();
    if (window == nullptr || Below(4) == 0) window = AnyWindow();
    if (Below(2) == 0) return Post(window, WM_CHAR, static_cast<WPARAM>(L' ' + Below(0x180)), 1);
    const WPARAM key = OneOf(kKeys);
    Post(window, WM_KEYDOWN, key, 1);
    Post(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void Monkey::Tap() {
    const HWND window = AnyWindow();
    if (window == nullptr) return;
    RECT client{};
    GetClientRect(window, &client);
    const LPARAM at = MAKELPARAM(Below(client.right + 1), Below(client.bottom + 1));
    const bool right = Below(4) == 0;
    Post(window, right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON, at);
    Post(window, right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, at);
    if (right || Below(3) != 0) return;
    Post(window, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    Post(window, WM_LBUTTONUP, 0, at);
}

void Monkey::OpenMenu() {
    const HWND screen = AnyScreen();
    if (Below(2) == 0) {
        Post(screen, WM_SYSCOMMAND, SC_KEYMENU, Below(2) == 0 ? 0 : L'a' + Below(26));
    } else {
        Post(screen, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(AnyWindow()), -1);
    }
}

void Monkey::CloseScreen() {
    const HWND screen = AnyScreen();
    if (screen != Main()) return Post(screen, WM_CLOSE);
    if (Below(20) == 0) Post(screen, Below(2) == 0 ? WM_CLOSE : 1023);
}

void Monkey::Request() {
    if (Below(2) == 0) return Post(Main(), 1125, static_cast<WPARAM>(Below(4)));
    Post(Main(), kLinkMessage, MAKEWPARAM(Below(5), Below(3)), Below(40));
}

void Monkey::Resize() {
    const HWND screen = AnyScreen();
    switch (Below(4)) {
        case 0:
            SetWindowPos(screen, nullptr, 0, 0, Below(700), Below(700), SWP_NOMOVE | SWP_NOZORDER | SWP_ASYNCWINDOWPOS);
            break;
        case 1: ShowWindowAsync(screen, Below(2) == 0 ? SW_MINIMIZE : SW_RESTORE); break;
        case 2: Post(screen, WM_SETTINGCHANGE, SPI_SETSIPINFO); break;
        default: SHSipPreference(screen, Below(2) == 0 ? SIP_UP : SIP_FORCEDOWN); break;
    }
    --left_;
}

void Monkey::SendPrivate() {
    const HWND screen = AnyScreen();
    if (screen == nullptr || !IsOurs(screen)) return;
    switch (Below(6)) {
        case 0: return Post(screen, WM_INITDIALOG, 0, Below(3) * 8);
        case 1: return Post(screen, WM_TIMER, static_cast<WPARAM>(Below(6)));
        case 2: return Post(screen, WM_USER + 1 + Below(6), static_cast<WPARAM>(Below(40)), Below(40));
        case 3: return Post(screen, WM_CANCELMODE);
        case 4: return Post(screen, WM_ENABLE, static_cast<WPARAM>(Below(2)));
        default: return Post(screen, WM_APP + 1 + Below(8), static_cast<WPARAM>(Below(8)), Below(8));
    }
}

// ---- Chance ----

void Monkey::Post(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    --left_;
    if (window == nullptr) return;
    if (IsTraced()) {
        wchar_t name[40] = L"";
        wchar_t title[40] = L"";
        GetClassNameW(window, name, 40);
        InternalGetWindowText(window, title, 40);
        std::fprintf(stderr, "%d: %04X %llX %llX to %ls \"%ls\"\n", left_, message, static_cast<ULONGLONG>(wparam),
                     static_cast<ULONGLONG>(lparam), name, title);
        std::fflush(stderr);
    }
    PostMessageW(window, message, wparam, lparam);
}

int Monkey::Below(int end) {
    return static_cast<int>(random_() % static_cast<unsigned>(end));
}

HWND Monkey::AnyScreen() {
    const std::vector<HWND> screens = ShownWindows();
    if (screens.empty()) return nullptr;
    // Mostly what the user would have in front.
    return Below(3) == 0 ? screens[Below(static_cast<int>(screens.size()))] : screens[0];
}

HWND Monkey::AnyWindow() {
    const HWND screen = AnyScreen();
    if (screen == nullptr) return nullptr;
    std::vector<HWND> windows = {screen};
    EnumChildWindows(screen, TakeChild, reinterpret_cast<LPARAM>(&windows));
    return windows[Below(static_cast<int>(windows.size()))];
}
