// The menu bar as screens make, use and replace it, on the shell's real bar.
#include "ui/menu_bar.h"

#include <gtest/gtest.h>
#include <px.h>

#include "tests/support/pump.h"
#include "tests/ui/ids.h"
#include "tests/ui/test_windows.h"
#include "ui/menu_toolbar.h"

namespace {

class MenuBarTest : public testing::Test {
protected:
    MenuBarTest() { window_.Attach(recorder_.Handle()); }

    int MakeBar() { return window_.CreateMenuBar(true, 0, IDR_BAR, TestInstance()); }

    RecordingWindow recorder_;
    Window window_;
};

}  // namespace

TEST_F(MenuBarTest, CreateMakesTheBarAndKeepsItsHandle) {
    EXPECT_EQ(MakeBar(), 1);
    EXPECT_TRUE(IsWindow(window_.GetMenuBar()));
    EXPECT_EQ(GetParent(window_.GetMenuBar()), recorder_.Handle());
}

TEST_F(MenuBarTest, AMissingResourceAnswersMinusOne) {
    EXPECT_EQ(window_.CreateMenuBar(true, 0, IDD_MISSING, TestInstance()), -1);
    EXPECT_EQ(window_.GetMenuBar(), nullptr);
    EXPECT_EQ(MakeBar(), 1);
}

TEST_F(MenuBarTest, CreateWithoutTheFlagDestroysTheBar) {
    ASSERT_EQ(MakeBar(), 1);
    const HWND bar = window_.GetMenuBar();
    EXPECT_EQ(window_.CreateMenuBar(false), 1);
    EXPECT_FALSE(IsWindow(bar));
    EXPECT_EQ(window_.GetMenuBar(), nullptr);
}

TEST_F(MenuBarTest, CreateOverAnExistingBarDestroysItAndMakesNone) {
    ASSERT_EQ(MakeBar(), 1);
    const HWND bar = window_.GetMenuBar();
    EXPECT_EQ(MakeBar(), 1);
    EXPECT_FALSE(IsWindow(bar));
    EXPECT_EQ(window_.GetMenuBar(), nullptr);
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
}

TEST_F(MenuBarTest, ABarIsReplacedByDestroyingAndMakingItAgain) {
    ASSERT_EQ(MakeBar(), 1);
    const HWND first = window_.GetMenuBar();
    ASSERT_EQ(window_.CreateMenuBar(false), 1);
    ASSERT_EQ(MakeBar(), 1);
    EXPECT_TRUE(IsWindow(window_.GetMenuBar()));
    EXPECT_FALSE(IsWindow(first) && first != window_.GetMenuBar());
}

TEST_F(MenuBarTest, DestroyingWithoutABarChangesNothing) {
    EXPECT_EQ(window_.CreateMenuBar(false), 1);
    EXPECT_EQ(window_.GetMenuBar(), nullptr);
}

TEST_F(MenuBarTest, TheClientRectangleEndsAboveTheBar) {
    window_.Show();
    RECT whole;
    ASSERT_TRUE(window_.GetClientRect(&whole));
    ASSERT_EQ(MakeBar(), 1);
    RECT above;
    ASSERT_TRUE(window_.GetClientRect(&above));
    EXPECT_EQ(above.bottom, whole.bottom - Px(kMenuBarHeight));
    EXPECT_EQ(above.right, whole.right);
    window_.CreateMenuBar(false);
    ASSERT_TRUE(window_.GetClientRect(&above));
    EXPECT_EQ(above.bottom, whole.bottom);
}

TEST_F(MenuBarTest, TheClientRectangleOfASmallWindowIsNeverNegative) {
    ASSERT_EQ(MakeBar(), 1);
    RECT frame = {0, 0, 200, 5};
    AdjustWindowRectEx(&frame, window_.GetStyle(), FALSE, 0);
    window_.MoveWindow(0, 0, frame.right - frame.left, frame.bottom - frame.top);
    RECT client;
    ASSERT_TRUE(window_.GetClientRect(&client));
    EXPECT_GE(client.bottom, client.top);
}

TEST_F(MenuBarTest, ButtonsAndMenusAreReachedThroughTheHandle) {
    ASSERT_EQ(MakeBar(), 1);
    MenuBar bar;
    ASSERT_TRUE(bar.Attach(window_.GetMenuBar()));
    EXPECT_FALSE(bar.IsButtonChecked(IDM_TOGGLE));
    EXPECT_TRUE(bar.CheckButton(IDM_TOGGLE, true));
    EXPECT_TRUE(bar.IsButtonChecked(IDM_TOGGLE));
    const HMENU menu = bar.GetSubMenu(IDM_ONE);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(GetMenuItemID(menu, 0), static_cast<UINT>(IDM_TWO));
    EXPECT_EQ(bar.GetSubMenu(IDM_TOGGLE), nullptr);
}

// ---- FindMenuToolbar ----

TEST_F(MenuBarTest, FindsTheToolbarOfARealBar) {
    ASSERT_EQ(MakeBar(), 1);
    Window toolbar;
    toolbar.Attach(FindMenuToolbar(recorder_.Handle()));
    ASSERT_TRUE(toolbar.IsWindow());
    EXPECT_TRUE(toolbar.IsClass(L"ToolbarWindow32"));
}

TEST_F(MenuBarTest, FindsNothingInAWindowWithoutABar) {
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
    EXPECT_EQ(FindMenuToolbar(nullptr), nullptr);
}

namespace {

// Classes of the tests' own, whose names begin with the wanted ones: that counts, and the real classes stay untouched.
constexpr wchar_t kFrame[] = L"CBFRAME of the test";
constexpr wchar_t kRebar[] = L"ReBarWindow32 of the test";
constexpr wchar_t kToolbar[] = L"ToolbarWindow32 of the test";
constexpr wchar_t kMenu[] = L"Menu of the test";

}  // namespace

TEST_F(MenuBarTest, FindsNothingWhenALevelIsMissing) {
    const HWND frame = MakeChild(recorder_.Handle(), PlainClass(kFrame));
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
    const HWND rebar = MakeChild(frame, PlainClass(kRebar));
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
    const HWND toolbar = MakeChild(rebar, PlainClass(kToolbar));
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
    MakeChild(toolbar, PlainClass(kMenu));
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), toolbar);
}

TEST_F(MenuBarTest, SearchesEachLevelAmongAllChildren) {
    // Each window made later lies on top, that is before the others in the order.
    const HWND frame = MakeChild(recorder_.Handle(), PlainClass(kFrame));
    MakeChild(recorder_.Handle(), WC_STATICW);
    const HWND rebar = MakeChild(frame, PlainClass(kRebar));
    MakeChild(frame, WC_STATICW);
    const HWND toolbar = MakeChild(rebar, PlainClass(kToolbar));
    MakeChild(toolbar, PlainClass(kMenu));
    const HWND other = MakeChild(rebar, PlainClass(kToolbar));
    for (HWND window : {frame, rebar, toolbar})
        SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), toolbar);
    // The toolbar's first child decides.
    SetWindowPos(MakeChild(toolbar, WC_STATICW), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), nullptr);
    MakeChild(other, PlainClass(kMenu));
    EXPECT_EQ(FindMenuToolbar(recorder_.Handle()), other);
}
