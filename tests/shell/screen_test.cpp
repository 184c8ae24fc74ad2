#include <gmock/gmock.h>

#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

namespace {

class ScreenTest : public ShellTest {
protected:
    ScreenTest() {
        CreateBar(IDR_BAR);
        Forget();
    }
    void Resize(int width, int height) {
        SetWindowPos(Window(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
        PumpOnce();
    }
};

}  // namespace

TEST_F(ScreenTest, AResizedWindowLaysItselfOutAgain) {
    Resize(Px(300), Px(400));
    const auto changes = Seen(WM_SETTINGCHANGE);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].wparam, 0xE0u);
}

TEST_F(ScreenTest, AMovedWindowDoesNot) {
    SetWindowPos(Window(), nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    PumpOnce();
    EXPECT_TRUE(Seen(WM_SETTINGCHANGE).empty());
}

TEST_F(ScreenTest, AWindowThatIsNotShownIsNotTold) {
    ShowWindow(Window(), SW_HIDE);
    Resize(Px(300), Px(400));
    EXPECT_TRUE(Seen(WM_SETTINGCHANGE).empty());
}

TEST_F(ScreenTest, TheSettingChangeLeavesTheSizeThePersonChose) {
    Resize(Px(300), Px(400));
    RECT before, after;
    GetWindowRect(Window(), &before);
    SHACTIVATEINFO info{};
    EXPECT_TRUE(SHHandleWMSettingChange(Window(), SPI_SETSIPINFO, 0, &info));
    GetWindowRect(Window(), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST_F(ScreenTest, TheActivationRecordKnowsWhetherTheWindowIsActive) {
    SHACTIVATEINFO info{};
    EXPECT_TRUE(SHHandleWMActivate(Window(), WA_ACTIVE, 0, &info, 0));
    EXPECT_EQ(info.fActive, 1u);
    EXPECT_TRUE(SHHandleWMActivate(Window(), WA_INACTIVE, 0, &info, 0));
    EXPECT_EQ(info.fActive, 0u);
}

TEST_F(ScreenTest, ARightClickIsATapAndHold) {
    NMRGINFO seen{};
    onNotify = [&](NMHDR* notice) { return seen = *reinterpret_cast<NMRGINFO*>(notice), 0; };
    RightClick(At(Window(), Px(30), Px(40)));
    ASSERT_TRUE(PumpUntil([&] { return seen.hdr.code != 0; }));
    const POINT at = At(Window(), Px(30), Px(40)).point();
    EXPECT_EQ(seen.hdr.code, static_cast<UINT>(GN_CONTEXTMENU));
    EXPECT_EQ(seen.hdr.hwndFrom, Window());
    EXPECT_EQ(seen.ptAction.x, at.x);
    EXPECT_EQ(seen.ptAction.y, at.y);
}

TEST_F(ScreenTest, ARightClickOnTheListComesWithTheListAsItsSender) {
    const HWND list = CreateWindowExW(0, WC_LISTVIEWW, nullptr, WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, Px(200),
                                      Px(100), Window(), reinterpret_cast<HMENU>(101), nullptr, nullptr);
    NMRGINFO seen{};
    onNotify = [&](NMHDR* notice) {
        if (notice->code == GN_CONTEXTMENU) seen = *reinterpret_cast<NMRGINFO*>(notice);
        return 0;
    };
    RightClick(At(list, Px(30), Px(60)));
    ASSERT_TRUE(PumpUntil([&] { return seen.hdr.code != 0; }));
    EXPECT_EQ(seen.hdr.hwndFrom, list);
    EXPECT_EQ(seen.hdr.idFrom, 101u);
}

TEST_F(ScreenTest, TheCaptionKeepsItsOwnMenu) {
    bool notified = false;
    onNotify = [&](NMHDR*) { return notified = true, 0; };
    RECT window;
    GetWindowRect(Window(), &window);
    SendMessageW(Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Window()),
                 MAKELPARAM(window.right + 50, window.top + 2));
    EXPECT_FALSE(notified);
}

TEST_F(ScreenTest, TheFocusReturnsToTheControlThatHadIt) {
    const HWND edit =
        CreateWindowExW(0, L"Edit", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, Window(), nullptr, nullptr, nullptr);
    SetFocus(edit);
    const HWND other = CreateWindowExW(0, L"Static", L"other", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                       nullptr, nullptr);
    SetActiveWindow(other);
    ASSERT_NE(GetFocus(), edit);
    SetActiveWindow(Window());
    EXPECT_EQ(GetFocus(), edit);
    DestroyWindow(other);
}

TEST(ScreenWindowTest, TurnsADeviceWindowIntoADesktopOne) {
    DWORD style = WS_VISIBLE;
    SIZE size{Px(240), Px(268)};
    SHScreenWindow(&style, &size);
    EXPECT_EQ(style & WS_VISIBLE, 0u);
    constexpr DWORD kFrame = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    EXPECT_EQ(style & kFrame, kFrame);
    const HWND window =
        CreateWindowExW(0, L"Static", nullptr, style, 0, 0, size.cx, size.cy, nullptr, nullptr, nullptr, nullptr);
    RECT client;
    GetClientRect(window, &client);
    EXPECT_EQ(client.right, Px(240));
    EXPECT_EQ(client.bottom, Px(294));
    DestroyWindow(window);
}

TEST(ScreenWindowTest, IsNoLargerThanTheWorkArea) {
    DWORD style = 0;
    SIZE size{20'000, 20'000};
    SHScreenWindow(&style, &size);
    RECT work;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_EQ(size.cx, work.right - work.left);
    EXPECT_EQ(size.cy, work.bottom - work.top);
}
