#include <gmock/gmock.h>

#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

using testing::Contains;
using testing::ElementsAre;

namespace {

class MenuBarTest : public ShellTest {
protected:
    MenuBarTest() { EXPECT_TRUE(CreateBar(IDR_BAR)); }

    static TBBUTTONINFOW Info(HWND bar, UINT command) {
        TBBUTTONINFOW info{};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_STATE | TBIF_STYLE | TBIF_SIZE;
        EXPECT_NE(SendMessageW(bar, TB_GETBUTTONINFOW, command, reinterpret_cast<LPARAM>(&info)), -1);
        return info;
    }

    // An open menu takes the keys of its thread, whichever window they are for.
    void ChooseByKeys(std::initializer_list<WORD> keys) const {
        for (const WORD key : keys)
            PostMessageW(Window(), WM_KEYDOWN, key, 0);
    }

    RECT BarPlace() const {
        RECT place{};
        GetWindowRect(Bar(), &place);
        MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
};

}  // namespace

TEST_F(MenuBarTest, IsFoundByItsClassNames) {
    ASSERT_NE(Toolbar(), nullptr);
    EXPECT_EQ(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0), 6);
}

TEST_F(MenuBarTest, LiesAlongTheBottomOfTheClientArea) {
    RECT client;
    GetClientRect(Window(), &client);
    const RECT place = BarPlace();
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.right, client.right);
    EXPECT_EQ(place.bottom, client.bottom);
    EXPECT_EQ(place.bottom - place.top, Px(26));
    EXPECT_EQ(SHMenuBarHeight(Window()), Px(26));
}

TEST_F(MenuBarTest, ButtonsFillTheBarsHeightAndDoNotOverlap) {
    LONG right = 0;
    for (int i = 0; i < 6; ++i) {
        RECT button{};
        ASSERT_TRUE(SendMessageW(Toolbar(), TB_GETITEMRECT, i, reinterpret_cast<LPARAM>(&button)));
        EXPECT_EQ(button.top, 0);
        EXPECT_EQ(button.bottom, Px(26) - 1);
        EXPECT_GE(button.left, right);
        EXPECT_GT(button.right, button.left);
        right = button.right;
    }
    EXPECT_LT(right, Px(200));
}

TEST_F(MenuBarTest, ATapOnAPictureButtonSendsItsCommand) {
    Click(Middle(Toolbar(), IDM_PICTURE));
    ASSERT_TRUE(WaitForCommand(IDM_PICTURE));
    EXPECT_EQ(HIWORD(Seen(WM_COMMAND)[0].wparam), 0);
    EXPECT_EQ(reinterpret_cast<HWND>(Seen(WM_COMMAND)[0].lparam), Bar());
}

TEST_F(MenuBarTest, AButtonThatIsNotEnabledSendsNothing) {
    Click(Middle(Toolbar(), IDM_DISABLED));
    Click(Middle(Toolbar(), IDM_PICTURE));
    ASSERT_TRUE(WaitForCommand(IDM_PICTURE));
    EXPECT_THAT(Commands(), ElementsAre(IDM_PICTURE));
}

TEST_F(MenuBarTest, ButtonsAreEnabledThroughTheBar) {
    SendMessageW(Bar(), TB_ENABLEBUTTON, IDM_DISABLED, TRUE);
    Click(Middle(Toolbar(), IDM_DISABLED));
    EXPECT_TRUE(WaitForCommand(IDM_DISABLED));
}

TEST_F(MenuBarTest, ACheckButtonKeepsItsStateForTheBarToTell) {
    EXPECT_EQ(Info(Bar(), IDM_CHECKED).fsState & TBSTATE_CHECKED, 0);
    Click(Middle(Toolbar(), IDM_CHECKED));
    ASSERT_TRUE(WaitForCommand(IDM_CHECKED));
    EXPECT_NE(Info(Bar(), IDM_CHECKED).fsState & TBSTATE_CHECKED, 0);
    SendMessageW(Bar(), TB_CHECKBUTTON, IDM_CHECKED, FALSE);
    EXPECT_EQ(Info(Bar(), IDM_CHECKED).fsState & TBSTATE_CHECKED, 0);
}

TEST_F(MenuBarTest, ANewTextChangesTheButtonsWidth) {
    const WORD before = Info(Bar(), IDM_TOOLS).cx;
    TBBUTTONINFOW info{};
    info.cbSize = sizeof(info);
    info.dwMask = TBIF_TEXT;
    wchar_t text[] = L"A much longer text";
    info.pszText = text;
    ASSERT_TRUE(SendMessageW(Bar(), TB_SETBUTTONINFOW, IDM_TOOLS, reinterpret_cast<LPARAM>(&info)));
    EXPECT_GT(Info(Bar(), IDM_TOOLS).cx, before + Px(20));
}

TEST_F(MenuBarTest, TheDropDownOpensAboveItsButtonOnThePress) {
    RECT menu{};
    WhenMenuOpens([&](HWND open) {
        GetWindowRect(open, &menu);
        EndMenu();
    });
    MoveTo(Middle(Toolbar(), IDM_TOOLS));
    Press();
    EXPECT_TRUE(PumpUntil([&] { return menu.bottom != 0; }));
    Release();
    PumpOnce();
    RECT bar;
    GetWindowRect(Bar(), &bar);
    EXPECT_LE(menu.bottom, bar.top + Px(2));
    EXPECT_TRUE(Commands().empty());
    EXPECT_FALSE(Seen(WM_INITMENUPOPUP).empty());
}

TEST_F(MenuBarTest, AnItemOfTheDropDownIsSentToTheOwner) {
    WhenMenuOpens([&](HWND) { ChooseByKeys({VK_DOWN, VK_DOWN, VK_RETURN}); });
    Click(Middle(Toolbar(), IDM_TOOLS));
    ASSERT_TRUE(WaitForCommand(IDM_OPTIONS));
    EXPECT_THAT(Commands(), ElementsAre(IDM_OPTIONS));
}

TEST_F(MenuBarTest, AnItemOfTheDropDownIsTakenByTheMouse) {
    WhenMenuOpens([&](HWND open) {
        RECT place;
        GetWindowRect(open, &place);
        MoveTo(POINT{(place.left + place.right) / 2, place.top + GetSystemMetrics(SM_CYMENU) / 2});
        Press();
        Release();
    });
    Click(Middle(Toolbar(), IDM_TOOLS));
    ASSERT_TRUE(WaitForCommand(IDM_ABOUT));
}

TEST_F(MenuBarTest, TheNewButtonSendsItsCommandWithoutAMenu) {
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) { return codes.push_back(notice->code), 0; };
    const RECT before = BarPlace();
    Click(LeftPart(Toolbar(), IDM_SHAREDNEW));
    ASSERT_TRUE(WaitForCommand(IDM_SHAREDNEW));
    EXPECT_TRUE(codes.empty());
    EXPECT_EQ(before.top, BarPlace().top);
}

TEST_F(MenuBarTest, AButtonIsNotLitWhileItsCommandRuns) {
    LRESULT lit = 99;
    onCommand = [&] { lit = SendMessageW(Toolbar(), TB_GETHOTITEM, 0, 0); };
    Click(LeftPart(Toolbar(), IDM_SHAREDNEW));
    ASSERT_TRUE(WaitForCommand(IDM_SHAREDNEW));
    EXPECT_EQ(lit, -1);
}

TEST_F(MenuBarTest, TheNewArrowAsksForItemsAndPostsTheChosenOne) {
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) -> LRESULT {
        codes.push_back(notice->code);
        if (notice->code == NMN_GETAPPREGKEY) {
            const HMENU menu = reinterpret_cast<NMNEWMENU*>(notice)->hMenu;
            EXPECT_EQ(GetMenuItemCount(menu), 0);
            EXPECT_EQ(notice->hwndFrom, Bar());
            AppendMenuW(menu, MF_STRING, 3001, L"Quillon Journal");
        } else {
            EXPECT_TRUE(Commands().empty());  // posted: it comes after the notification
        }
        return 0;
    };
    WhenMenuOpens([&](HWND) { ChooseByKeys({VK_DOWN, VK_RETURN}); });
    Click(RightEnd(Toolbar(), IDM_SHAREDNEW));
    ASSERT_TRUE(WaitForCommand(3001));
    EXPECT_THAT(Commands(), ElementsAre(3001));
    EXPECT_THAT(codes, ElementsAre(NMN_GETAPPREGKEY, NMN_NEWMENUDESTROY));
}

TEST_F(MenuBarTest, ANewMenuNobodyFillsIsNotShown) {
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) { return codes.push_back(notice->code), 0; };
    Click(RightEnd(Toolbar(), IDM_SHAREDNEW));
    EXPECT_TRUE(PumpUntil([&] { return codes.size() == 2; }));
    EXPECT_TRUE(Commands().empty());
}

TEST_F(MenuBarTest, TheOnePartNewButtonAlwaysOpensTheMenu) {
    ASSERT_TRUE(CreateBar(IDR_DEFAULT_NEW));
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) { return codes.push_back(notice->code), 0; };
    Click(LeftPart(Toolbar(), IDM_SHAREDNEWDEFAULT));
    EXPECT_TRUE(PumpUntil([&] { return codes.size() == 2; }));
    EXPECT_TRUE(Commands().empty());
}

TEST_F(MenuBarTest, PopupsAreReadAndReplacedByTheirButtons) {
    const HMENU tools = SHGetSubMenu(Bar(), IDM_TOOLS);
    ASSERT_NE(tools, nullptr);
    EXPECT_EQ(GetMenuItemID(tools, 0), static_cast<UINT>(IDM_ABOUT));
    EXPECT_EQ(GetSubMenu(SHGetMenu(Bar()), 0), tools);
    EXPECT_EQ(SHGetSubMenu(Bar(), IDM_PICTURE), nullptr);
    EXPECT_EQ(SHGetSubMenu(Bar(), 4711), nullptr);

    const HMENU other = CreatePopupMenu();
    EXPECT_EQ(SHSetSubMenu(Bar(), IDM_TOOLS, other), tools);
    EXPECT_EQ(SHGetSubMenu(Bar(), IDM_TOOLS), other);
    DestroyWindow(Bar());
    EXPECT_TRUE(IsMenu(other)) << "the bar destroyed a menu that is not its own";
    DestroyMenu(other);
}

TEST_F(MenuBarTest, FollowsTheSizeOfItsOwner) {
    SetWindowPos(Window(), nullptr, 0, 0, Px(400), Px(500), SWP_NOMOVE | SWP_NOZORDER);
    PumpOnce();
    RECT client;
    GetClientRect(Window(), &client);
    EXPECT_EQ(BarPlace().right, client.right);
    EXPECT_EQ(BarPlace().bottom, client.bottom);
}

TEST_F(MenuBarTest, ANewBarTakesThePlaceOfTheOldOne) {
    const HWND before = Bar();
    ASSERT_TRUE(CreateBar(IDR_OTHER_BAR));
    EXPECT_FALSE(IsWindow(before));
    Click(Middle(Toolbar(), IDM_OTHER));
    EXPECT_TRUE(WaitForCommand(IDM_OTHER));
}

TEST_F(MenuBarTest, AFailedReplacementKeepsTheBar) {
    const HWND before = Bar();
    EXPECT_FALSE(CreateBar(IDR_TRUNCATED));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_DATA));
    EXPECT_FALSE(CreateBar(IDR_GARBAGE));
    EXPECT_FALSE(CreateBar(4711));
    EXPECT_EQ(Bar(), before);
    EXPECT_TRUE(IsWindow(before));
}

TEST_F(MenuBarTest, TheDoneButtonOutlivesTheBar) {
    ASSERT_TRUE(SHDoneButton(Window(), SHDB_SHOW));
    Click(Middle(DoneBar(), IDOK));
    ASSERT_TRUE(WaitForCommand(IDOK));
    Forget();
    ASSERT_TRUE(CreateBar(IDR_OTHER_BAR));
    Click(Middle(DoneBar(), IDOK));
    EXPECT_TRUE(WaitForCommand(IDOK));
    Forget();

    DestroyWindow(Bar());
    ASSERT_TRUE(CreateBar(IDR_BAR));
    Click(Middle(DoneBar(), IDOK));
    EXPECT_TRUE(WaitForCommand(IDOK));
    Forget();

    SHDoneButton(Window(), SHDB_HIDE);
    EXPECT_FALSE(IsWindowVisible(DoneBar()));
}

TEST_F(MenuBarTest, AWindowWithADoneButtonThatLosesItsBarGetsAnEmptyOne) {
    SHDoneButton(Window(), SHDB_SHOW);
    DestroyWindow(Bar());
    ASSERT_TRUE(PumpUntil([&] { return Bar() != nullptr; }));
    Click(Middle(DoneBar(), IDOK));
    EXPECT_TRUE(WaitForCommand(IDOK));
}

TEST_F(MenuBarTest, WithoutADoneButtonADestroyedBarStaysAway) {
    DestroyWindow(Bar());
    PumpOnce();
    EXPECT_EQ(Bar(), nullptr);
    EXPECT_EQ(SHMenuBarHeight(Window()), 0);
}

TEST_F(MenuBarTest, TheDoneButtonStaysAtTheRightEnd) {
    SHDoneButton(Window(), SHDB_SHOW);
    SetWindowPos(Window(), nullptr, 0, 0, Px(400), Px(300), SWP_NOMOVE | SWP_NOZORDER);
    PumpOnce();
    RECT done, bar;
    GetWindowRect(DoneBar(), &done);
    GetWindowRect(Bar(), &bar);
    EXPECT_LE(bar.right - done.right, Px(4));
    EXPECT_LE(done.right, bar.right);
    RECT last;
    GetWindowRect(Toolbar(), &last);
    EXPECT_LE(last.right, done.left);
}

TEST_F(MenuBarTest, APopupThatTheMenuLacksLeavesAPlainButton) {
    ASSERT_TRUE(CreateBar(IDR_NO_SUCH_POPUP));
    EXPECT_EQ(SHGetSubMenu(Bar(), IDM_TOOLS), nullptr);
    Click(Middle(Toolbar(), IDM_TOOLS));
    EXPECT_TRUE(WaitForCommand(IDM_TOOLS));
}

TEST_F(MenuBarTest, ABarWithoutButtonsIsMadeFromAnEmptyResourceAndFromNone) {
    ASSERT_TRUE(CreateBar(IDR_NO_BUTTONS));
    EXPECT_EQ(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0), 0);
    ASSERT_TRUE(CreateBar(4711, SHCMBF_EMPTYBAR));
    EXPECT_EQ(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0), 0);
}

TEST_F(MenuBarTest, AHiddenBarTakesNoRoomUntilItIsShown) {
    ASSERT_TRUE(CreateBar(IDR_BAR, SHCMBF_HIDDEN));
    EXPECT_EQ(SHMenuBarHeight(Window()), 0);
    ShowWindow(Bar(), SW_SHOW);
    EXPECT_EQ(SHMenuBarHeight(Window()), Px(26));
}

TEST_F(MenuBarTest, BadArgumentsAreRefused) {
    SHMENUBARINFO info{};
    EXPECT_FALSE(SHCreateMenuBar(nullptr));
    info.hwndParent = Window();
    EXPECT_FALSE(SHCreateMenuBar(&info));
    info.cbSize = sizeof(info);
    info.hwndParent = reinterpret_cast<HWND>(0x1234);
    EXPECT_FALSE(SHCreateMenuBar(&info));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST_F(MenuBarTest, APictureButtonIsNamedAfterTheMenuItemWithItsCommand) {
    wchar_t text[64] = {};
    SendMessageW(Bar(), TB_GETBUTTONTEXTW, IDM_PICTURE, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"Find");
}

TEST_F(MenuBarTest, ARightClickOnTheBarIsNotTheScreensContextMenu) {
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) { return codes.push_back(notice->code), 0; };
    RightClick(Middle(Toolbar(), IDM_PICTURE));
    Click(Middle(Toolbar(), IDM_PICTURE));
    ASSERT_TRUE(WaitForCommand(IDM_PICTURE));
    EXPECT_TRUE(codes.empty());
}

// What other programs can do to a bar without a mouse: post it taps and keys.
TEST_F(MenuBarTest, BehindAModalDialogOrHiddenItDoesNothing) {
    bool opened = false;
    WhenMenuOpens([&](HWND) {
        opened = true;
        EndMenu();
    });
    const auto tapEverything = [&] {
        const auto buttons = static_cast<int>(SendMessageW(Toolbar(), TB_BUTTONCOUNT, 0, 0));
        for (int button = 0; button < buttons; ++button) {
            RECT place{};
            SendMessageW(Toolbar(), TB_GETITEMRECT, button, reinterpret_cast<LPARAM>(&place));
            const LPARAM at = MAKELPARAM(place.right - 3, place.bottom / 2);
            PostMessageW(Toolbar(), WM_LBUTTONDOWN, MK_LBUTTON, at);
            PostMessageW(Toolbar(), WM_LBUTTONUP, 0, at);
        }
        PumpOnce();
        for (const wchar_t letter : {L't', L'n'})
            SendMessageW(Window(), WM_SYSCOMMAND, SC_KEYMENU, letter);
        SendMessageW(Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Window()), -1);
        SendMessageW(Bar(), WM_COMMAND, kInputPanelCommand, 0);
        PumpOnce();
    };
    int notices = 0;
    onNotify = [&](NMHDR*) { return ++notices, 0; };
    Forget();
    EnableWindow(Window(), FALSE);
    tapEverything();
    EXPECT_TRUE(Commands().empty());
    EXPECT_EQ(notices, 0);
    EnableWindow(Window(), TRUE);
    ShowWindow(Window(), SW_HIDE);
    tapEverything();
    EXPECT_TRUE(Commands().empty());
    EXPECT_FALSE(opened);
}

TEST_F(MenuBarTest, TheKeyboardWalksToAButtonAndPressesIt) {
    Type(VK_F10);
    Type(VK_RIGHT);
    Type(VK_RIGHT);
    Type(VK_RETURN);
    EXPECT_TRUE(WaitForCommand(IDM_PICTURE));
    EXPECT_THAT(Commands(), ElementsAre(IDM_PICTURE));
}

TEST_F(MenuBarTest, TheKeyboardOpensADropDownByItsLetter) {
    WhenMenuOpens([&](HWND) { Type(VK_RETURN); });
    Type(VK_F10);
    Type('T');
    EXPECT_TRUE(WaitForCommand(IDM_ABOUT));
}

TEST_F(MenuBarTest, EscapeLeavesTheBarWithoutACommand) {
    Type(VK_F10);
    Type(VK_ESCAPE);
    Click(Middle(Toolbar(), IDM_PICTURE));
    ASSERT_TRUE(WaitForCommand(IDM_PICTURE));
    EXPECT_THAT(Commands(), ElementsAre(IDM_PICTURE));
}
