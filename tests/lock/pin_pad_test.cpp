// The PIN pad by itself: what it shows, and what its keys do.
#include "lock/pin_pad.h"

#include "tests/lock/lock_fixture.h"
#include "tests/support/pump.h"
#include "ui/edit.h"

namespace {

class PinPadTest : public LockFixture {
protected:
    // Runs the pad with that script; answers what it ended with.
    bool Open(WORD mode, PadVisits::Script script) {
        pads_.Expect(std::move(script));
        entry_ = L"untouched";
        return PinPad::Run(owner_, mode, entry_);
    }
    std::wstring Display() const { return pads_.TextOf(IDC_PIN_DISPLAY); }
    WCHAR Mask() const {
        return static_cast<WCHAR>(SendMessageW(pads_.Item(IDC_PIN_DISPLAY), EM_GETPASSWORDCHAR, 0, 0));
    }
    LOGFONTW FontOf(int id) const {
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(pads_.Item(id), WM_GETFONT, 0, 0)), sizeof font, &font);
        return font;
    }
    // A key pressed in the control that has the focus, through the dialog's own message loop.
    void Press(WPARAM key) const {
        const HWND focus = GetFocus();
        PostMessageW(focus, WM_KEYDOWN, key, 1);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (IsDialogMessageW(pads_.Pad(), &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    void Type(const std::wstring& characters) const {
        for (const wchar_t character : characters) {
            MSG message = {};
            message.hwnd = GetFocus();
            message.message = WM_CHAR;
            message.wParam = character;
            if (!IsDialogMessageW(pads_.Pad(), &message)) DispatchMessageW(&message);
        }
    }

    std::wstring entry_;
};

TEST_F(PinPadTest, HasItsTitleAndItsKeys) {
    Open(PinPad::kUnlock, [&] {
        wchar_t title[100] = L"";
        GetWindowTextW(pads_.Pad(), title, 100);
        EXPECT_STREQ(title, L"Journal Password");
        for (int digit = 1; digit <= 9; ++digit)
            EXPECT_EQ(pads_.TextOf(100 + digit), std::to_wstring(digit));
        EXPECT_EQ(pads_.TextOf(110), L"0");
        EXPECT_EQ(pads_.TextOf(111), L"C");
        EXPECT_EQ(pads_.TextOf(1019), L"");
        EXPECT_NE(GetWindowLongW(pads_.Item(1018), GWL_STYLE) & SS_CENTER, 0);
        const LONG display = GetWindowLongW(pads_.Item(1019), GWL_STYLE);
        EXPECT_NE(display & ES_READONLY, 0);
        EXPECT_NE(display & ES_CENTER, 0);
    });
}

struct ModeRow {
    const char* label;
    WORD mode;
    const wchar_t* heading;
    wchar_t mask;
};

class PinPadModeTest : public PinPadTest, public testing::WithParamInterface<ModeRow> {};

TEST_P(PinPadModeTest, TheModeDecidesHeadingAndMask) {
    Open(GetParam().mode, [&] {
        EXPECT_EQ(pads_.TextOf(1018), GetParam().heading);
        EXPECT_EQ(Mask(), GetParam().mask);
    });
}

INSTANTIATE_TEST_SUITE_P(Modes, PinPadModeTest,
                         testing::Values(ModeRow{"new_password", 0x0001, L"New Password", 0},
                                         ModeRow{"again", 0x0010, L"Re-Enter Password", 0},
                                         ModeRow{"unlock", 0x0100, L"Enter Password", L'X'},
                                         ModeRow{"new_goes_first", 0x0111, L"New Password", 0},
                                         ModeRow{"again_goes_second", 0x0110, L"Re-Enter Password", 0},
                                         ModeRow{"no_bit", 0, L"Enter Password", L'X'}),
                         [](const auto& row) { return row.param.label; });

TEST_F(PinPadTest, DigitsAndDisplayAreBoldAndLargerThanTheHeading) {
    Open(PinPad::kNew, [&] {
        for (int id = 101; id <= 111; ++id) {
            EXPECT_EQ(FontOf(id).lfHeight, -Px(15)) << id;
            EXPECT_EQ(FontOf(id).lfWeight, 700) << id;
        }
        EXPECT_EQ(FontOf(1019).lfHeight, -Px(15));
        EXPECT_EQ(FontOf(1019).lfWeight, 700);
        EXPECT_EQ(FontOf(1018).lfHeight, -Px(11));
        EXPECT_EQ(FontOf(1018).lfWeight, 700);
    });
}

TEST_F(PinPadTest, TheHeadingAloneIsBlueOnATransparentBackground) {
    Open(PinPad::kNew, [&] {
        const HDC dc = GetDC(pads_.Pad());
        const COLORREF before = SetTextColor(dc, RGB(1, 2, 3));
        const auto ask = [&](int id) {
            return SendMessageW(pads_.Pad(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                reinterpret_cast<LPARAM>(pads_.Item(id)));
        };
        EXPECT_NE(ask(1018), 0);
        EXPECT_EQ(GetTextColor(dc), RGB(0, 0, 255));
        EXPECT_EQ(GetBkMode(dc), TRANSPARENT);
        SetTextColor(dc, before);
        ask(1019);
        EXPECT_NE(GetTextColor(dc), RGB(0, 0, 255));
        ReleaseDC(pads_.Pad(), dc);
    });
}

TEST_F(PinPadTest, EachDigitIsAppendedAndShown) {
    EXPECT_TRUE(Open(PinPad::kNew, [&] {
        pads_.Tap(L"5");
        EXPECT_EQ(Display(), L"5");
        pads_.Tap(L"123467890");
        EXPECT_EQ(Display(), L"5123467890");
        pads_.Ok();
    }));
    EXPECT_EQ(entry_, L"5123467890");
}

TEST_F(PinPadTest, ADigitIsAppendedWhereverTheCaretStands) {
    Open(PinPad::kNew, [&] {
        pads_.Tap(L"12");
        SendMessageW(pads_.Item(1019), EM_SETSEL, 0, 0);
        pads_.Tap(L"3");
        EXPECT_EQ(Display(), L"123");
    });
}

TEST_F(PinPadTest, ClearEmptiesEntryAndDisplay) {
    EXPECT_TRUE(Open(PinPad::kNew, [&] {
        pads_.Tap(L"123C");
        EXPECT_EQ(Display(), L"");
        pads_.Tap(L"45");
        EXPECT_EQ(Display(), L"45");
    }));
    EXPECT_EQ(entry_, L"45");
}

TEST_F(PinPadTest, OkAfterClearReturnsNothing) {
    EXPECT_TRUE(Open(PinPad::kUnlock, [&] { pads_.Tap(L"123C"); }));
    EXPECT_EQ(entry_, L"");
}

TEST_F(PinPadTest, MoreDigitsThanTheDisplayShowsAreAppendedAllTheSame) {
    const std::wstring many(60, L'7');
    EXPECT_TRUE(Open(PinPad::kUnlock, [&] {
        pads_.Tap(many);
        EXPECT_EQ(Display(), many);
    }));
    EXPECT_EQ(entry_, many);
}

TEST_F(PinPadTest, OfThirtyDigitsTheLastAreInView) {
    EXPECT_TRUE(Open(PinPad::kUnlock, [&] {
        const HWND display = pads_.Item(IDC_PIN_DISPLAY);
        RECT room = {};
        SendMessageW(display, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
        const auto placeOf = [display](size_t digit) {
            return static_cast<short>(LOWORD(SendMessageW(display, EM_POSFROMCHAR, digit, 0)));
        };
        std::wstring digits;
        for (int i = 0; i < 30; ++i) {
            digits += static_cast<wchar_t>(L'0' + i % 10);
            pads_.Tap(digits.substr(digits.size() - 1));
            EXPECT_EQ(Display(), digits);
            EXPECT_GE(placeOf(digits.size() - 1), room.left) << digits.size();
            EXPECT_LT(placeOf(digits.size() - 1), room.right) << digits.size();
        }
        EXPECT_LT(placeOf(0), room.left) << "not all of them can be seen";
    }));
}

TEST_F(PinPadTest, TheCloseBoxAndEscapeAreOkWithWhatWasEntered) {
    EXPECT_TRUE(Open(PinPad::kUnlock, [&] {
        pads_.Tap(L"12");
        SendMessageW(pads_.Pad(), WM_SYSCOMMAND, SC_CLOSE, 0);
    }));
    EXPECT_EQ(entry_, L"12");
}

TEST_F(PinPadTest, GoesSilentlyWithItsOwner) {
    EXPECT_FALSE(Open(PinPad::kUnlock, [&] {
        pads_.Tap(L"12");
        owner_.Destroy();
    }));
    EXPECT_EQ(entry_, L"untouched");
}

// ---- Keyboard ----

TEST_F(PinPadTest, StartsInTheDisplayWithEveryKeyReachableByTab) {
    Open(PinPad::kUnlock, [&] {
        EXPECT_EQ(GetFocus(), pads_.Item(1019));
        std::vector<int> order;
        HWND at = pads_.Item(1019);
        do {
            order.push_back(GetDlgCtrlID(at));
            at = GetNextDlgTabItem(pads_.Pad(), at, FALSE);
        } while (at != pads_.Item(1019) && order.size() < 20);
        EXPECT_EQ(order, (std::vector<int>{1019, 101, 102, 103, 104, 105, 106, 107, 108, 109, 111, 110}));
    });
}

TEST_F(PinPadTest, DigitsAreTypedWhicheverControlHasTheFocus) {
    Open(PinPad::kNew, [&] {
        Type(L"10");
        SetFocus(pads_.Item(105));
        Type(L"29");
        EXPECT_EQ(Display(), L"1029");
    });
}

TEST_F(PinPadTest, BackspaceTakesTheLastDigitBackAndCClears) {
    Open(PinPad::kNew, [&] {
        Type(L"\b12\b");
        EXPECT_EQ(Display(), L"1");
        Type(L"34c");
        EXPECT_EQ(Display(), L"");
        Type(L"5C6");
        EXPECT_EQ(Display(), L"6");
    });
}

TEST_F(PinPadTest, OtherCharactersAreNotTaken) {
    Open(PinPad::kNew, [&] {
        Type(L"1a-+. \t/:\x0661");
        EXPECT_EQ(Display(), L"1");
    });
}

TEST_F(PinPadTest, ReturnIsOkEvenOnAKey) {
    EXPECT_TRUE(Open(PinPad::kUnlock, [&] {
        Type(L"12");
        SetFocus(pads_.Item(105));
        Press(VK_RETURN);
        EXPECT_FALSE(IsWindowVisible(pads_.Pad()));
    }));
    EXPECT_EQ(entry_, L"12");
}

TEST_F(PinPadTest, TheHeadingNamesTheDisplayForScreenReaders) {
    Open(PinPad::kUnlock, [&] { EXPECT_EQ(GetWindow(pads_.Item(1019), GW_HWNDPREV), pads_.Item(1018)); });
}

// ---- Size ----

TEST_F(PinPadTest, FollowsItsSizeAboveTheMenuBar) {
    Open(PinPad::kUnlock, [&] {
        RECT frame;
        GetWindowRect(pads_.Pad(), &frame);
        SetWindowPos(pads_.Pad(), nullptr, 0, 0, frame.right - frame.left + Px(120), frame.bottom - frame.top - Px(30),
                     SWP_NOMOVE | SWP_NOZORDER);
        RECT client;
        GetClientRect(pads_.Pad(), &client);
        RECT zero;
        GetWindowRect(pads_.Item(110), &zero);
        MapWindowPoints(nullptr, pads_.Pad(), reinterpret_cast<POINT*>(&zero), 2);
        EXPECT_LE(zero.bottom, client.bottom - SHMenuBarHeight(pads_.Pad()));
        RECT heading;
        GetWindowRect(pads_.Item(1018), &heading);
        EXPECT_EQ(heading.right - heading.left, client.right);
    });
}

TEST_F(PinPadTest, OverAHiddenOwnerItStandsInTheTaskbar) {
    Open(PinPad::kUnlock, [&] { EXPECT_EQ(GetWindowLongW(pads_.Pad(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0); });
    owner_.Hide();
    Open(PinPad::kUnlock, [&] { EXPECT_NE(GetWindowLongW(pads_.Pad(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0); });
    EXPECT_FALSE(owner_.IsVisible());
}

}  // namespace
