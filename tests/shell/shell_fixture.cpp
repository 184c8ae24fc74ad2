#include "tests/shell/shell_fixture.h"

#include "px.h"
#include "tests/support/pump.h"

namespace {

constexpr UINT_PTR kMenuTimer = 77;

void Mouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

RECT ButtonRect(HWND toolbar, UINT command) {
    RECT button{};
    SendMessageW(toolbar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
    MapWindowPoints(toolbar, nullptr, reinterpret_cast<POINT*>(&button), 2);
    return button;
}

HWND awaited = nullptr;  // the window that is to be pressed, until this thread takes its press out of the queue

LRESULT CALLBACK CountPresses(int code, WPARAM removed, LPARAM data) {
    const UINT message = reinterpret_cast<const MSG*>(data)->message;
    const bool press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
                       message == WM_RBUTTONDBLCLK;
    const bool taken = code == HC_ACTION && removed == PM_REMOVE;
    if (taken && press && reinterpret_cast<const MSG*>(data)->hwnd == awaited) awaited = nullptr;
    return CallNextHookEx(nullptr, code, removed, data);
}

HWND ChildOfClass(HWND parent, const wchar_t* name) {
    return FindWindowExW(parent, nullptr, name, nullptr);
}

}  // namespace

ShellTest::ShellTest() : hook_(SetWindowsHookExW(WH_GETMESSAGE, CountPresses, nullptr, GetCurrentThreadId())) {
    WNDCLASSW window{};
    window.lpfnWndProc = Procedure;
    window.hInstance = GetModuleHandleW(nullptr);
    window.lpszClassName = L"ShellTest";
    window.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    RegisterClassW(&window);
    DWORD style = 0;
    SIZE size{Px(240), Px(268)};
    SHScreenWindow(&style, &size);
    window_ = CreateWindowExW(0, window.lpszClassName, L"Shell", style, 100, 100, size.cx, size.cy, nullptr, nullptr,
                              window.hInstance, this);
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    Settle(window_);
}

void ShellTest::Settle(HWND window) {
    constexpr int kStill = 4;  // turns of the loop without a move
    RECT last{};
    int still = 0;
    EXPECT_TRUE(PumpUntil([&] {
        RECT now;
        GetWindowRect(window, &now);
        still = EqualRect(&now, &last) ? still + 1 : 0;
        last = now;
        return still >= kStill && GetForegroundWindow() == window;
    }));
}

ShellTest::~ShellTest() {
    MoveTo(POINT{0, 0});
    DestroyWindow(window_);
    PumpOnce();
    UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK ShellTest::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    }
    if (auto* test = reinterpret_cast<ShellTest*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
        test->seen_.push_back({message, wparam, lparam});
        if (message == WM_COMMAND && test->onCommand) test->onCommand();
        if (message == WM_NOTIFY && test->onNotify) return test->onNotify(reinterpret_cast<NMHDR*>(lparam));
        const HWND menu = message == WM_TIMER && wparam == kMenuTimer ? FindWindowW(L"#32768", nullptr) : nullptr;
        if (menu && IsWindowVisible(menu)) test->whenMenuOpens_(menu);
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

bool ShellTest::CreateBar(UINT resource, DWORD flags) {
    SHMENUBARINFO info{};
    info.cbSize = sizeof(info);
    info.hwndParent = window_;
    info.dwFlags = flags;
    info.nToolBarId = resource;
    info.hInstRes = GetModuleHandleW(nullptr);
    info.nBmpId = IDB_STRIP;
    info.cBmpImages = 5;
    const bool created = SHCreateMenuBar(&info);
    const DWORD error = GetLastError();
    PumpOnce();
    SetLastError(error);
    return created && info.hwndMB == SHFindMenuBar(window_);
}

HWND ShellTest::Toolbar() const {
    const HWND rebar = ChildOfClass(ChildOfClass(window_, L"CBFRAME"), L"ReBarWindow32");
    for (HWND bar = GetWindow(rebar, GW_CHILD); bar; bar = GetWindow(bar, GW_HWNDNEXT)) {
        wchar_t name[32] = {};
        GetClassNameW(GetWindow(bar, GW_CHILD), name, ARRAYSIZE(name));
        if (lstrcmpW(name, L"Menu") == 0) return bar;
    }
    return nullptr;
}

HWND ShellTest::DoneBar() const {
    return ChildOfClass(Bar(), L"ToolbarWindow32");
}

ShellTest::Place ShellTest::Middle(HWND toolbar, UINT command) {
    return {toolbar, [=] {
                const RECT button = ButtonRect(toolbar, command);
                return POINT{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
            }};
}

ShellTest::Place ShellTest::LeftPart(HWND toolbar, UINT command) {
    return {toolbar, [=] {
                const RECT button = ButtonRect(toolbar, command);
                return POINT{button.left + Px(5), (button.top + button.bottom) / 2};
            }};
}

ShellTest::Place ShellTest::RightEnd(HWND toolbar, UINT command) {
    return {toolbar, [=] {
                const RECT button = ButtonRect(toolbar, command);
                return POINT{button.right - Px(5), (button.top + button.bottom) / 2};
            }};
}

ShellTest::Place ShellTest::At(HWND window, int x, int y) {
    return {window, [=] {
                POINT at{x, y};
                ClientToScreen(window, &at);
                return at;
            }};
}

void ShellTest::MoveTo(POINT at) {
    SetCursorPos(at.x, at.y);
    Mouse(MOUSEEVENTF_MOVE);
    PumpOnce();
}

void ShellTest::MoveTo(const Place& at) {
    POINT now = at.point();
    EXPECT_TRUE(PumpUntil([&] {
        const POINT before = now;
        MoveTo(before);
        now = at.point();
        return now.x == before.x && now.y == before.y;
    }));
}

void ShellTest::Press() {
    Mouse(MOUSEEVENTF_LEFTDOWN);
}
void ShellTest::Release() {
    Mouse(MOUSEEVENTF_LEFTUP);
}

// Input is in the queue of the window under the pointer as soon as SendInput returns. Where the press did not come
// out of the queue for the window that was meant, the window manager has moved the window away from under it: once
// more.
void ShellTest::Click(const Place& at, DWORD down, DWORD up) {
    awaited = at.window;
    EXPECT_TRUE(PumpUntil([&] {
        MoveTo(at);
        Mouse(down);
        Mouse(up);
        PumpOnce();
        return awaited == nullptr;
    }));
}

void ShellTest::Click(const Place& at) {
    Click(at, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP);
}
void ShellTest::RightClick(const Place& at) {
    Click(at, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
}

void ShellTest::Type(WORD key) {
    INPUT inputs[2]{};
    inputs[0].type = inputs[1].type = INPUT_KEYBOARD;
    inputs[0].ki.wVk = inputs[1].ki.wVk = key;
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
}

std::vector<SeenMessage> ShellTest::Seen(UINT message) const {
    std::vector<SeenMessage> found;
    for (const SeenMessage& seen : seen_) {
        if (seen.message == message) found.push_back(seen);
    }
    return found;
}

std::vector<WPARAM> ShellTest::Commands() const {
    std::vector<WPARAM> commands;
    for (const SeenMessage& seen : Seen(WM_COMMAND))
        commands.push_back(LOWORD(seen.wparam));
    return commands;
}

bool ShellTest::WaitForCommand(UINT command) const {
    return PumpUntil([&] {
        for (const WPARAM seen : Commands()) {
            if (seen == command) return true;
        }
        return false;
    });
}

void ShellTest::WhenMenuOpens(std::function<void(HWND)> act) {
    whenMenuOpens_ = std::move(act);
    SetTimer(window_, kMenuTimer, 10, nullptr);
}
