#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "platform/shell/panel_keys.h"
#include "px.h"
#include "tests/shell/shell_fixture.h"
#include "tests/support/pump.h"

namespace {

SIPINFO SipInfo() {
    SIPINFO info{};
    info.cbSize = sizeof(info);
    EXPECT_TRUE(SHSipInfo(SPI_GETSIPINFO, 0, &info, 0));
    return info;
}

bool IsUp() {
    return (SipInfo().fdwFlags & SIPF_ON) != 0;
}

void SetPanel(bool up) {
    SIPINFO info = SipInfo();
    info.fdwFlags = up ? SIPF_ON : SIPF_OFF;
    EXPECT_TRUE(SHSipInfo(SPI_SETSIPINFO, 0, &info, 0));
}

HWND PanelOf(HWND screen) {
    return FindWindowExW(screen, nullptr, L"cehost.InputPanel", nullptr);
}

RECT PlaceIn(HWND screen, HWND child) {
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, screen, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

class InputPanelTest : public ShellTest {
protected:
    InputPanelTest() {
        EXPECT_TRUE(CreateBar(IDR_BAR));
        MakeEdit(ES_MULTILINE | ES_WANTRETURN);
    }
    ~InputPanelTest() override { SetPanel(false); }

    void MakeEdit(DWORD style) {
        if (edit_) DestroyWindow(edit_);
        edit_ = CreateWindowExW(0, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | WS_BORDER | style, Px(4), Px(4), Px(200),
                                Px(60), Window(), nullptr, nullptr, nullptr);
        SetFocus(edit_);
        PumpOnce();
    }

    HWND Panel() const { return PanelOf(Window()); }
    HWND PanelBar() const { return GetWindow(DoneBar(), GW_HWNDNEXT); }

    void Raise() {
        SetPanel(true);
        PumpOnce();
        ASSERT_NE(Panel(), nullptr);
    }

    std::vector<PanelKey> Keys() const {
        RECT client{};
        GetClientRect(Panel(), &client);
        return PlacePanelKeys({client.right, client.bottom}, page_);
    }
    Place PlaceOf(const PanelKey& key) const {
        return At(Panel(), (key.place.left + key.place.right) / 2, (key.place.top + key.place.bottom) / 2);
    }
    PanelKey KeyOf(PanelKeyKind kind, wchar_t plain = 0) const {
        const auto keys = Keys();
        const auto found = std::find_if(keys.begin(), keys.end(),
                                        [&](const PanelKey& key) { return key.kind == kind && key.plain == plain; });
        EXPECT_NE(found, keys.end());
        return found == keys.end() ? PanelKey{} : *found;
    }
    void Tap(PanelKeyKind kind) { Click(PlaceOf(KeyOf(kind))); }
    void Tap(const wchar_t* characters) {
        for (; *characters; ++characters)
            Click(PlaceOf(KeyOf(PanelKeyKind::kCharacter, *characters)));
    }

    std::wstring Text() const {
        wchar_t text[256] = {};
        GetWindowTextW(edit_, text, ARRAYSIZE(text));
        return text;
    }
    void ExpectText(const wchar_t* text) {
        EXPECT_TRUE(PumpUntil([&] { return Text() == text; }));
        EXPECT_EQ(Text(), text);
    }

    HWND edit_ = nullptr;
    PanelPage page_ = PanelPage::kPlain;
};

}  // namespace

TEST_F(InputPanelTest, IsDownAtFirst) {
    EXPECT_FALSE(IsUp());
    EXPECT_EQ(Panel(), nullptr);
}

TEST_F(InputPanelTest, TheButtonOnTheBarRaisesAndLowersIt) {
    Click(Middle(PanelBar(), kInputPanelCommand));
    ASSERT_TRUE(PumpUntil([] { return IsUp(); }));
    EXPECT_TRUE(IsWindowVisible(Panel()));
    EXPECT_TRUE(SendMessageW(PanelBar(), TB_ISBUTTONCHECKED, kInputPanelCommand, 0));
    Click(Middle(PanelBar(), kInputPanelCommand));
    ASSERT_TRUE(PumpUntil([] { return !IsUp(); }));
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_FALSE(SendMessageW(PanelBar(), TB_ISBUTTONCHECKED, kInputPanelCommand, 0));
    EXPECT_THAT(Commands(), testing::Not(testing::Contains(kInputPanelCommand))) << "the button is the shell's";
    EXPECT_EQ(GetFocus(), edit_);
}

TEST_F(InputPanelTest, TheKeyboardReachesTheButton) {
    Type(VK_F10);
    Type(VK_LEFT);
    Type(VK_RETURN);
    EXPECT_TRUE(PumpUntil([] { return IsUp(); }));
}

TEST_F(InputPanelTest, LiesAboveTheBarAndTheScreenMakesRoom) {
    Forget();
    Raise();
    const RECT panel = PlaceIn(Window(), Panel());
    const RECT bar = PlaceIn(Window(), Bar());
    EXPECT_EQ(panel.bottom, bar.top);
    EXPECT_EQ(panel.left, 0);
    EXPECT_EQ(panel.right, bar.right);
    EXPECT_EQ(panel.bottom - panel.top, InputPanelHeight(bar.right, bar.top));
    EXPECT_EQ(SHMenuBarHeight(Window()), bar.bottom - panel.top);
    const auto changes = Seen(WM_SETTINGCHANGE);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].wparam, static_cast<WPARAM>(SPI_SETSIPINFO));
    Forget();
    SetPanel(true);
    EXPECT_TRUE(Seen(WM_SETTINGCHANGE).empty()) << "it was up already";
    SetPanel(false);
    EXPECT_EQ(Seen(WM_SETTINGCHANGE).size(), 1u);
    EXPECT_EQ(SHMenuBarHeight(Window()), Px(26));
}

TEST_F(InputPanelTest, TypesWhatIsTapped) {
    Raise();
    Tap(PanelKeyKind::kShift);
    Tap(L"hi 42x");
    Tap(PanelKeyKind::kBackspace);
    Tap(PanelKeyKind::kEnter);
    Tap(L"ok.");
    ExpectText(L"Hi 42\r\nok.");
    EXPECT_EQ(GetFocus(), edit_);
}

TEST_F(InputPanelTest, ShiftTappedTwiceHoldsUntilItIsTappedAgain) {
    Raise();
    Tap(PanelKeyKind::kShift);
    Tap(PanelKeyKind::kShift);
    Tap(L"ab1");
    Tap(PanelKeyKind::kShift);
    Tap(L"ab1");
    ExpectText(L"AB!ab1");
}

TEST_F(InputPanelTest, TheArrowsMoveTheCaret) {
    Raise();
    Tap(L"ac");
    Tap(PanelKeyKind::kLeft);
    Tap(L"b");
    Tap(PanelKeyKind::kRight);
    Tap(L"d");
    ExpectText(L"abcd");
}

TEST_F(InputPanelTest, TheOtherPageHasTheAccents) {
    Raise();
    Tap(PanelKeyKind::kPage);
    page_ = PanelPage::kAccents;
    Tap(L"\u00FC");
    Tap(PanelKeyKind::kShift);
    Tap(L"\u00E9");
    Tap(PanelKeyKind::kPage);
    page_ = PanelPage::kPlain;
    Tap(L"a");
    ExpectText(L"\u00FC\u00C9a");
}

TEST_F(InputPanelTest, ABackspaceThatIsHeldGoesOn) {
    Raise();
    SetWindowTextW(edit_, L"A line to be taken back");
    SendMessageW(edit_, EM_SETSEL, 100, 100);
    MoveTo(PlaceOf(KeyOf(PanelKeyKind::kBackspace)));
    Press();
    EXPECT_TRUE(PumpUntil([&] { return Text().empty(); }));
    Release();
    PumpOnce();
    EXPECT_FALSE(KillTimer(Panel(), 1)) << "the next key that is held would be struck again";
    Tap(L"b");
    ExpectText(L"b");
}

TEST_F(InputPanelTest, ALetterThatIsHeldIsTypedOnce) {
    Raise();
    MoveTo(PlaceOf(KeyOf(PanelKeyKind::kCharacter, L'e')));
    Press();
    EXPECT_TRUE(PumpUntil([&] { return Text() == L"e"; }));
    EXPECT_FALSE(KillTimer(Panel(), 1)) << "a timer would strike it again";
    Release();
    Tap(L"n");
    ExpectText(L"en");
}

TEST_F(InputPanelTest, NeverTakesTheFocus) {
    Raise();
    Tap(L"a");
    EXPECT_EQ(GetFocus(), edit_);
    EXPECT_EQ(GetActiveWindow(), Window());
    EXPECT_EQ(SendMessageW(Panel(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(Window()), HTCLIENT), MA_NOACTIVATE);
    EXPECT_TRUE(GetWindowLongW(Panel(), GWL_EXSTYLE) & WS_EX_NOACTIVATE);
    EXPECT_FALSE(GetWindowLongW(Panel(), GWL_STYLE) & WS_TABSTOP);
}

TEST_F(InputPanelTest, ARightClickOnItIsNotTheScreensContextMenu) {
    Raise();
    std::vector<UINT> codes;
    onNotify = [&](NMHDR* notice) { return codes.push_back(notice->code), 0; };
    RightClick(PlaceOf(KeyOf(PanelKeyKind::kCharacter, L'a')));
    Tap(L"b");
    ExpectText(L"b");
    EXPECT_TRUE(codes.empty());
}

TEST_F(InputPanelTest, FollowsTheSizeOfItsScreen) {
    Raise();
    SetWindowPos(Window(), nullptr, 0, 0, Px(500), Px(600), SWP_NOMOVE | SWP_NOZORDER);
    PumpOnce();
    const RECT panel = PlaceIn(Window(), Panel());
    const RECT bar = PlaceIn(Window(), Bar());
    EXPECT_EQ(panel.right, bar.right);
    EXPECT_EQ(panel.bottom, bar.top);
    EXPECT_GT(panel.bottom - panel.top, Px(100));
    Tap(L"z");
    ExpectText(L"z");
}

TEST_F(InputPanelTest, AMinimisedScreenHasNone) {
    Raise();
    ShowWindow(Window(), SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(Window()));
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_TRUE(IsUp());
    ShowWindow(Window(), SW_RESTORE);
    PumpOnce();
    EXPECT_NE(Panel(), nullptr);
}

TEST_F(InputPanelTest, RaisedWhileAScreenIsMinimisedItComesWithTheScreen) {
    ShowWindow(Window(), SW_MINIMIZE);
    SetPanel(true);
    PumpOnce();
    EXPECT_EQ(Panel(), nullptr);
    ShowWindow(Window(), SW_RESTORE);
    PumpOnce();
    EXPECT_NE(Panel(), nullptr);
}

TEST_F(InputPanelTest, ABarWithoutTheButtonHasNoPanel) {
    Raise();
    ASSERT_TRUE(CreateBar(IDR_OTHER_BAR, SHCMBF_HIDESIPBUTTON));
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(SHMenuBarHeight(Window()), Px(26));
    ASSERT_TRUE(CreateBar(IDR_BAR));
    EXPECT_NE(Panel(), nullptr);
}

TEST_F(InputPanelTest, GoesWithItsBar) {
    Raise();
    DestroyWindow(Bar());
    EXPECT_EQ(Panel(), nullptr);
    EXPECT_EQ(SHMenuBarHeight(Window()), 0);
}

TEST_F(InputPanelTest, AScreenThatOpensWhileItIsUpHasIt) {
    Raise();
    struct Dialog {
        static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM) {
            if (message == WM_COMMAND && LOWORD(wparam) == IDOK) return EndDialog(dialog, 1), TRUE;
            if (message != WM_INITDIALOG) return FALSE;
            SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG};
            EXPECT_TRUE(SHInitDialog(&info));
            EXPECT_NE(PanelOf(dialog), nullptr);
            EXPECT_GT(SHMenuBarHeight(dialog), Px(26 + 40));
            EndDialog(dialog, 1);
            return TRUE;
        }
    };
    EXPECT_EQ(DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_SCREEN), Window(), Dialog::Procedure, 0),
              1);
}

TEST_F(InputPanelTest, ADialogMayLowerIt) {
    Raise();
    const HWND dialog = CreateDialogParamW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_SCREEN), Window(),
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    SHINITDLGINFO info{SHIDIM_FLAGS, dialog, SHIDIF_DONEBUTTON | SHIDIF_SIZEDLG | SHIDIF_SIPDOWN};
    EXPECT_TRUE(SHInitDialog(&info));
    EXPECT_FALSE(IsUp());
    DestroyWindow(dialog);
}

TEST_F(InputPanelTest, PreferencesRaiseAndLowerIt) {
    EXPECT_TRUE(SHSipPreference(Window(), SIP_UP));
    EXPECT_TRUE(IsUp());
    EXPECT_TRUE(SHSipPreference(Window(), SIP_UNCHANGED));
    EXPECT_TRUE(IsUp());
    EXPECT_TRUE(SHSipPreference(Window(), SIP_DOWN));
    EXPECT_TRUE(IsUp()) << "a field may want it up in a moment";
    EXPECT_TRUE(PumpUntil([] { return !IsUp(); }));
    SHSipPreference(Window(), SIP_UP);
    EXPECT_TRUE(SHSipPreference(Window(), SIP_FORCEDOWN));
    EXPECT_FALSE(IsUp());
}

TEST_F(InputPanelTest, AWishToLowerItIsTakenBack) {
    SHSipPreference(Window(), SIP_UP);
    SHSipPreference(Window(), SIP_DOWN);
    SHSipPreference(Window(), SIP_UNCHANGED);
    // A wish made later comes later: when this one has been granted, the one before it would have been.
    static bool passed;
    passed = false;
    SetTimer(Window(), 5, 300, [](HWND window, UINT, UINT_PTR id, DWORD) { passed = KillTimer(window, id); });
    EXPECT_TRUE(PumpUntil([] { return passed; }));
    EXPECT_TRUE(IsUp());
}

TEST_F(InputPanelTest, TheVisibleDesktopEndsWhereThePanelBegins) {
    const SIPINFO down = SipInfo();
    EXPECT_EQ(down.fdwFlags, static_cast<DWORD>(SIPF_OFF | SIPF_DOCKED));
    Raise();
    const SIPINFO up = SipInfo();
    EXPECT_EQ(up.fdwFlags, static_cast<DWORD>(SIPF_ON | SIPF_DOCKED));
    EXPECT_EQ(up.rcVisibleDesktop.bottom, up.rcSipRect.top);
    EXPECT_EQ(down.rcVisibleDesktop.bottom - up.rcSipRect.bottom, Px(26));
    EXPECT_TRUE(EqualRect(&up.rcSipRect, &down.rcSipRect));
}

TEST_F(InputPanelTest, AScreenMadeWhileItIsUpIsAsLargeAsAnyOther) {
    const auto screenSize = [] {
        const SIPINFO info = SipInfo();
        SIZE size{info.rcVisibleDesktop.right, info.rcVisibleDesktop.bottom};
        if (!(info.fdwFlags & SIPF_ON)) size.cy -= Px(26);
        DWORD style = 0;
        SHScreenWindow(&style, &size);
        return size;
    };
    const SIZE down = screenSize();
    Raise();
    const SIZE up = screenSize();
    EXPECT_EQ(up.cx, down.cx);
    EXPECT_EQ(up.cy, down.cy);
}
