// The password at the start: the main window is made first and shown only after the right digits.
#include <gmock/gmock.h>

#include <functional>
#include <utility>
#include <vector>

#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/support/pad_visits.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;

// Notes, while it lives, each message by which the main window would appear, or by which something of it is drawn.
class MainWindowWatch {
public:
    MainWindowWatch() {
        appearances_ = 0;
        hook_ = SetWindowsHookExW(WH_CALLWNDPROC, OnCall, nullptr, GetCurrentThreadId());
        EXPECT_NE(hook_, nullptr);
    }
    ~MainWindowWatch() { UnhookWindowsHookEx(hook_); }
    MainWindowWatch(const MainWindowWatch&) = delete;
    MainWindowWatch& operator=(const MainWindowWatch&) = delete;

    int Appearances() const { return appearances_; }

private:
    static bool IsMainWindow(HWND window) {
        wchar_t name[20] = L"";
        GetClassNameW(window, name, 20);
        return lstrcmpW(name, L"JCLASS") == 0;
    }
    static bool Shows(const CWPSTRUCT& call) {
        switch (call.message) {
            case WM_SHOWWINDOW: return call.wParam != FALSE;
            case WM_WINDOWPOSCHANGED:
                return (reinterpret_cast<const WINDOWPOS*>(call.lParam)->flags & SWP_SHOWWINDOW) != 0;
            default: return false;
        }
    }
    static LRESULT CALLBACK OnCall(int code, WPARAM wparam, LPARAM lparam) {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lparam);
        if (code == HC_ACTION) {
            const bool drawn = call.message == WM_PAINT || call.message == WM_ERASEBKGND;
            if (IsMainWindow(call.hwnd) ? drawn || Shows(call) : drawn && IsMainWindow(GetAncestor(call.hwnd, GA_ROOT)))
                ++appearances_;
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    static int appearances_;

    HHOOK hook_;
};

int MainWindowWatch::appearances_ = 0;

// Counts the menus that open while it lives, and closes them.
class MenuWatch {
public:
    MenuWatch() {
        opened_ = 0;
        hook_ = SetWindowsHookExW(WH_CALLWNDPROC, OnCall, nullptr, GetCurrentThreadId());
    }
    ~MenuWatch() { UnhookWindowsHookEx(hook_); }
    MenuWatch(const MenuWatch&) = delete;
    MenuWatch& operator=(const MenuWatch&) = delete;

    int Opened() const { return opened_; }

private:
    static LRESULT CALLBACK OnCall(int code, WPARAM wparam, LPARAM lparam) {
        if (code == HC_ACTION && reinterpret_cast<const CWPSTRUCT*>(lparam)->message == WM_INITMENUPOPUP) {
            ++opened_;
            EndMenu();
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    static inline int opened_;

    HHOOK hook_;
};

BOOL CALLBACK TapChild(HWND child, LPARAM) {
    RECT client;
    GetClientRect(child, &client);
    for (int x = 2; x < client.right; x += 12) {
        const LPARAM at = MAKELPARAM(x, client.bottom > 40 ? 8 : client.bottom / 2);
        PostMessageW(child, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(child, WM_LBUTTONUP, 0, at);
    }
    PostMessageW(child, WM_RBUTTONDOWN, MK_RBUTTON, 0);
    PostMessageW(child, WM_RBUTTONUP, 0, 0);
    return TRUE;
}

// What another program can do without a mouse.
void TapEveryChild(HWND window) {
    EnumChildWindows(window, TapChild, 0);
    PumpOnce();
}

class LockGateTest : public AppFixture {
protected:
    LockGateTest() {
        app_->WriteString(L"Options", L"vacc", L"1204");
        app_->WriteInt(L"Options", L"pwActive", 1);
    }
    static HWND Main() { return FindWindowW(L"JCLASS", nullptr); }
    void ExpectWrong(const std::wstring& digits = L"1") {
        pads_.Expect([this, digits] {
            EXPECT_NE(Main(), nullptr);
            EXPECT_FALSE(IsWindowVisible(Main()));
            pads_.Tap(digits);
        });
        boxes_.Expect(L"Quillon Journal", L"Incorrect Password!\nAccess Denied");
    }
    void ExpectRight() {
        pads_.Expect([this] {
            EXPECT_FALSE(IsWindowVisible(Main()));
            EXPECT_EQ(watch_->Appearances(), 0);
            pads_.Tap(L"1204");
        });
    }
    bool StartWatched() {
        watch_ = std::make_unique<MainWindowWatch>();
        const bool started = Start();
        appearances_ = watch_->Appearances();
        watch_.reset();
        return started;
    }

    PadVisits pads_;
    std::unique_ptr<MainWindowWatch> watch_;
    int appearances_ = 0;
};

TEST_F(LockGateTest, TheRightDigitsShowTheFilledList) {
    Write({L"one", L"two"});
    ExpectRight();
    ASSERT_TRUE(StartWatched());
    EXPECT_TRUE(window_->IsVisible());
    EXPECT_TRUE(window_->IsEnabled());
    EXPECT_GT(appearances_, 0);  // the watch sees what it is to see
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
    EXPECT_EQ(GetFocus(), List().GetHandle());
}

TEST_F(LockGateTest, TheThirdTryStillOpens) {
    ExpectWrong();
    ExpectWrong(L"");
    ExpectRight();
    ASSERT_TRUE(StartWatched());
    EXPECT_TRUE(window_->IsVisible());
    EXPECT_EQ(pads_.Seen(), 3);
}

TEST_F(LockGateTest, ThreeWrongTriesEndTheStartWithNothingShown) {
    Write({L"one"});
    for (int tries = 0; tries < 3; ++tries)
        ExpectWrong();
    EXPECT_FALSE(StartWatched());
    EXPECT_EQ(appearances_, 0);
    EXPECT_EQ(pads_.Seen(), 3);
    EXPECT_EQ(Main(), nullptr);
    EXPECT_EQ(journal_.GetHandle(), nullptr);
}

TEST_F(LockGateTest, WithoutAStoredPasswordNothingOpens) {
    app_->DeleteValue(L"Options", L"vacc");
    ExpectWrong(L"");
    ExpectWrong(L"1204");
    ExpectWrong(L"0");
    EXPECT_FALSE(StartWatched());
    EXPECT_EQ(appearances_, 0);
}

TEST_F(LockGateTest, AnEmptyStoredPasswordOpensNothing) {
    app_->WriteString(L"Options", L"vacc", L"");
    ExpectWrong(L"");
    ExpectWrong(L"0");
    ExpectWrong(L"1204");
    EXPECT_FALSE(StartWatched());
    EXPECT_EQ(appearances_, 0);
}

TEST_F(LockGateTest, WithTheLockOffNobodyAsks) {
    app_->WriteInt(L"Options", L"pwActive", 0);
    ASSERT_TRUE(Start());
    EXPECT_EQ(pads_.Seen(), 0);
    EXPECT_TRUE(window_->IsVisible());
}

TEST_F(LockGateTest, CommandsFromOutsideOpenNothingWhileItAsks) {
    pads_.Expect([this] {
        for (const WORD command : {WORD{IDM_SHAREDNEW}, WORD{IDM_NEW_ENTRY}, WORD{IDM_ABOUT}, WORD{IDM_FILTER}})
            SendMessageW(Main(), WM_COMMAND, command, 0);
        EXPECT_TRUE(FakeEditor::opened.empty());
        EXPECT_FALSE(IsWindowVisible(Main()));
        pads_.Tap(L"1204");
    });
    EXPECT_TRUE(StartWatched());
}

TEST_F(LockGateTest, NothingShowsTheWindowWhileItAsks) {
    pads_.Expect([this] {
        const HWND main = Main();
        EXPECT_NE(GetPropW(main, L"Journal.Locked"), nullptr);
        const std::vector<std::pair<const char*, std::function<void()>>> ways = {
            {"show", [&] { ShowWindow(main, SW_SHOW); }},
            {"show as it was", [&] { ShowWindow(main, SW_SHOWNA); }},
            {"maximise", [&] { ShowWindow(main, SW_MAXIMIZE); }},
            {"minimise", [&] { ShowWindow(main, SW_MINIMIZE); }},
            {"restore", [&] { ShowWindow(main, SW_RESTORE); }},
            {"place", [&] { SetWindowPos(main, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW); }},
            {"style", [&] { SetWindowLongW(main, GWL_STYLE, GetWindowLongW(main, GWL_STYLE) | WS_VISIBLE); }},
            {"drawing on", [&] { SendMessageW(main, WM_SETREDRAW, TRUE, 0); }},
            {"command", [&] { SendMessageW(main, WM_SYSCOMMAND, SC_RESTORE, 0); }},
        };
        for (const auto& [name, show] : ways) {
            show();
            PumpOnce();
            EXPECT_FALSE(IsWindowVisible(main)) << name;
        }
        pads_.Tap(L"1204");
    });
    ASSERT_TRUE(StartWatched());
    EXPECT_TRUE(window_->IsVisible());
    EXPECT_FALSE(IsIconic(window_->GetHandle()));
    EXPECT_EQ(GetPropW(window_->GetHandle(), L"Journal.Locked"), nullptr);
}

TEST_F(LockGateTest, NoMenuOpensWhileItAsksEvenWhenSomebodyEnablesTheWindow) {
    pads_.Expect([this] {
        const MenuWatch menus;
        for (const BOOL enabled : {FALSE, TRUE}) {
            EnableWindow(Main(), enabled);
            TapEveryChild(Main());
            for (const WPARAM letter : {WPARAM{0}, WPARAM{' '}, WPARAM{'t'}, WPARAM{'n'}})
                PostMessageW(Main(), WM_SYSCOMMAND, SC_KEYMENU, static_cast<LPARAM>(letter));
            PostMessageW(Main(), WM_SYSCOMMAND, SC_MOUSEMENU, 0);
            PostMessageW(Main(), 0x0313, 0, 0);
            PostMessageW(Main(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Main()), -1);
            PostMessageW(Main(), WM_NCRBUTTONDOWN, HTCAPTION, 0);
            PostMessageW(Main(), WM_NCRBUTTONUP, HTCAPTION, 0);
            PumpOnce();
        }
        EXPECT_EQ(menus.Opened(), 0);
        EnableWindow(Main(), FALSE);
        pads_.Tap(L"1204");
    });
    EXPECT_TRUE(StartWatched());
}

TEST_F(LockGateTest, TheListTellsNothingWhileItAsksAndTapsOnItDoNotStay) {
    Write({L"one", L"two"});
    pads_.Expect([this] {
        const HWND list = GetDlgItem(Main(), IDC_ENTRY_LIST);
        ASSERT_NE(list, nullptr);
        TapEveryChild(Main());
        for (int column = 0; column < 2; ++column) {
            wchar_t text[100] = L"before";
            LVITEMW item = {};
            item.mask = LVIF_TEXT;
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = 100;
            SendMessageW(list, LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
            EXPECT_STREQ(item.pszText, L"");
        }
        pads_.Tap(L"1204");
    });
    ASSERT_TRUE(StartWatched());
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
    EXPECT_EQ(List().GetSelectedCount(), 0);
    EXPECT_TRUE(FakeDetail::shown.empty());
}

TEST_F(LockGateTest, ClosedFromOutsideWhileItAsksItEndsWithoutAWord) {
    pads_.Expect([this] { SendMessageW(Main(), WM_CLOSE, 0, 0); });
    EXPECT_FALSE(StartWatched());
    EXPECT_EQ(appearances_, 0);
    EXPECT_EQ(pads_.Seen(), 1);
    EXPECT_EQ(Main(), nullptr);
}

}  // namespace
