// The options screen: its rows, what a tap on each does, and what is stored when it is left.
#include "app/options_screen.h"

#include <aygshell.h>
#include <gmock/gmock.h>
#include <px.h>

#include "res/ids.h"
#include "tests/support/message_boxes.h"
#include "tests/support/modal_stage.h"
#include "tests/support/pad_visits.h"
#include "tests/support/private_registry.h"
#include "tests/support/pump.h"
#include "tests/support/replaced_import.h"
#include "ui/application.h"

namespace {

using testing::ElementsAre;

enum Row { kPassword, kConfirm, kSubjects, kCategories };

class OptionsScreenTest : public testing::Test {
protected:
    OptionsScreenTest() {
        application_.InitInstance(GetModuleHandleW(nullptr), SW_SHOW);
        application_.InitCommonControls();
    }

    // Opens the screen, runs the script, and leaves it without OK when the script has not ended it.
    INT_PTR Open(const ModalStage::Script& script) {
        return stage_.Run(IDC_OPTIONS_LIST, IDCANCEL, script,
                          [this] { return OptionsScreen::Run(stage_.Owner(), launchers_); });
    }

    // ---- What a script does ----
    HWND List() const { return GetDlgItem(stage_.Screen(), IDC_OPTIONS_LIST); }
    HWND Choices() const { return GetDlgItem(stage_.Screen(), IDC_OPTIONS_CHOICES); }
    void Ok() const { SendMessageW(stage_.Screen(), WM_COMMAND, IDOK, 0); }
    std::wstring Cell(int row, int column) const {
        wchar_t text[300] = L"";
        ListView_GetItemText(List(), row, column, text, 300);
        return text;
    }
    std::vector<std::wstring> Values() const { return {Cell(0, 1), Cell(1, 1), Cell(2, 1), Cell(3, 1)}; }
    int ColumnWidth(int column) const { return static_cast<int>(SendMessageW(List(), LVM_GETCOLUMNWIDTH, column, 0)); }
    // Taps the row at so many device pixels from the left edge of the list.
    void TapAt(int row, int x) const {
        RECT place = {LVIR_BOUNDS, 0, 0, 0};
        SendMessageW(List(), LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
        Tap(x, (place.top + place.bottom) / 2);
    }
    void Tap(int x, int y) const {
        const LPARAM at = MAKELPARAM(x, y);
        PostMessageW(List(), WM_LBUTTONUP, 0, at);  // the list waits for it in a loop of its own
        SendMessageW(List(), WM_LBUTTONDOWN, MK_LBUTTON, at);
        PumpOnce();
    }
    void TapValue(int row) const { TapAt(row, ColumnWidth(0) + Px(20)); }
    void TapLabel(int row) const { TapAt(row, Px(10)); }
    void Choose(const wchar_t* text) const {
        const auto index =
            SendMessageW(Choices(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
        ASSERT_GE(index, 0);
        SendMessageW(Choices(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
    std::wstring Chosen() const {
        wchar_t text[100] = L"";
        GetWindowTextW(Choices(), text, 100);
        return text;
    }
    void Press(WPARAM key) const {
        SendMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        PumpOnce();
    }

    void TurnLockOn(const wchar_t* digits) {
        application_.WriteString(L"Options", L"vacc", digits);
        application_.WriteInt(L"Options", L"pwActive", 1);
    }
    std::wstring Setting(const wchar_t* name) {
        std::wstring text;
        application_.ReadString(L"Options", name, L"<none>", text);
        return text;
    }

    MessageBoxes boxes_;
    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
    ModalStage stage_;
    PadVisits pads_;
    std::vector<std::wstring> launched_;
    OptionLaunchers launchers_{[this](HWND owner) { Launched(L"subjects", owner); },
                               [this](HWND owner) { Launched(L"categories", owner); }};

private:
    void Launched(const wchar_t* what, HWND owner) {
        EXPECT_EQ(owner, stage_.Screen());
        launched_.push_back(what);
    }
};

// ---- Opening ----

TEST_F(OptionsScreenTest, ShowsFourRowsWithTheirDefaults) {
    EXPECT_EQ(Open([&] {
                  wchar_t title[100] = L"";
                  GetWindowTextW(stage_.Screen(), title, 100);
                  EXPECT_STREQ(title, L"Options");
                  ASSERT_EQ(SendMessageW(List(), LVM_GETITEMCOUNT, 0, 0), 4);
                  EXPECT_EQ(Cell(0, 0), L"Password");
                  EXPECT_EQ(Cell(1, 0), L"Confirm Deletes");
                  EXPECT_EQ(Cell(2, 0), L"Subjects");
                  EXPECT_EQ(Cell(3, 0), L"Categories");
                  EXPECT_THAT(Values(),
                              ElementsAre(L"<Disabled>", L"Yes", L"<Edit Quick Subjects>", L"<Edit Categories>"));
              }),
              0);
}

TEST_F(OptionsScreenTest, ReadsEveryRowFromTheSettingOfItsLabel) {
    application_.WriteString(L"Options", L"Password", L"secret");
    application_.WriteString(L"Options", L"Confirm Deletes", L"No");
    application_.WriteString(L"Options", L"Subjects", L"mine");
    application_.WriteString(L"Options", L"Categories", L"yours");
    Open([&] { EXPECT_THAT(Values(), ElementsAre(L"<Disabled>", L"No", L"mine", L"yours")); });
}

TEST_F(OptionsScreenTest, HidesThePasswordBehindStarsWhileItIsOn) {
    TurnLockOn(L"12");
    Open([&] { EXPECT_EQ(Cell(kPassword, 1), L"********"); });
}

TEST_F(OptionsScreenTest, HasTwoUntitledColumnsOfAThirdAndTwoThirds) {
    Open([&] {
        for (int column = 0; column < 2; ++column) {
            wchar_t title[20] = L"?";
            LVCOLUMNW data = {};
            data.mask = LVCF_TEXT;
            data.pszText = title;
            data.cchTextMax = 20;
            SendMessageW(List(), LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data));
            EXPECT_STREQ(title, L"");
        }
        RECT client;
        GetClientRect(List(), &client);
        EXPECT_EQ(ColumnWidth(0), client.right / 3);
        EXPECT_EQ(ColumnWidth(1), client.right / 3 * 2);
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(List(), WM_GETFONT, 0, 0)), sizeof font, &font);
        EXPECT_STREQ(font.lfFaceName, L"Tahoma");
    });
}

int RefuseToOpen(DbOptions*, HWND) {
    return 0;
}

TEST_F(OptionsScreenTest, EndsAtOnceWhenTheLibrarysOptionsCannotBeHad) {
    const ReplacedImport closed(nullptr, "_ZN9DbOptions4OpenEP6HWND__", RefuseToOpen);
    EXPECT_EQ(OptionsScreen::Run(stage_.Owner(), launchers_), -1);
}

// What of the texts drawn did not fit the place they were drawn in.
std::vector<std::wstring> cut;
int drawn = 0;

int WINAPI DrawAndNoteWhatIsCut(HDC dc, LPCWSTR text, int length, LPRECT place, UINT format) {
    RECT needed = *place;
    const auto real = reinterpret_cast<decltype(&::DrawTextW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "DrawTextW")));
    const UINT measure = format & ~static_cast<UINT>(DT_END_ELLIPSIS);
    real(dc, text, length, &needed, measure | DT_CALCRECT);
    ++drawn;
    if (needed.right > place->right) cut.emplace_back(text, static_cast<size_t>(length));
    return 1;
}

TEST_F(OptionsScreenTest, NothingIsCutOnTheSmallestScreen) {
    Open([&] {
        cut.clear();
        drawn = 0;
        const ReplacedImport draw(nullptr, "DrawTextW", DrawAndNoteWhatIsCut);
        RedrawWindow(List(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    });
    EXPECT_EQ(drawn, 8);
    EXPECT_THAT(cut, ElementsAre());
}

// ---- Tapping ----

TEST_F(OptionsScreenTest, TheLabelColumnDoesNothing) {
    Open([&] {
        for (int row = 0; row < 4; ++row) {
            TapLabel(row);
            EXPECT_EQ(Choices(), nullptr);
        }
    });
    EXPECT_TRUE(launched_.empty());
    EXPECT_EQ(pads_.Seen(), 0);
}

TEST_F(OptionsScreenTest, ATapCountsOnlyRightOfTheFirstColumnAndFourPixels) {
    Open([&] {
        TapAt(kSubjects, ColumnWidth(0) + Px(4));
        EXPECT_TRUE(launched_.empty());
        TapAt(kSubjects, ColumnWidth(0) + Px(4) + 1);
        EXPECT_THAT(launched_, ElementsAre(L"subjects"));
    });
}

TEST_F(OptionsScreenTest, BelowTheRowsATapDoesNothing) {
    Open([&] {
        RECT client;
        GetClientRect(List(), &client);
        Tap(ColumnWidth(0) + Px(20), client.bottom - 2);
        EXPECT_EQ(Choices(), nullptr);
    });
    EXPECT_TRUE(launched_.empty());
}

TEST_F(OptionsScreenTest, TheLaunchersOpenTheirScreensOverThisOne) {
    Open([&] {
        TapValue(kCategories);
        TapValue(kSubjects);
    });
    EXPECT_THAT(launched_, ElementsAre(L"categories", L"subjects"));
}

TEST_F(OptionsScreenTest, ConfirmDeletesOpensADropDownOverItsCellWithTheLibrarysChoices) {
    Open([&] {
        TapValue(kConfirm);
        ASSERT_NE(Choices(), nullptr);
        EXPECT_TRUE(IsWindowVisible(Choices()));
        EXPECT_EQ(GetFocus(), Choices());
        ASSERT_EQ(SendMessageW(Choices(), CB_GETCOUNT, 0, 0), 2);
        EXPECT_EQ(Chosen(), L"Yes");
        RECT cell = {LVIR_BOUNDS, 1, 0, 0};
        SendMessageW(List(), LVM_GETSUBITEMRECT, kConfirm, reinterpret_cast<LPARAM>(&cell));
        MapWindowPoints(List(), nullptr, reinterpret_cast<POINT*>(&cell), 2);
        RECT place;
        GetWindowRect(Choices(), &place);
        EXPECT_EQ(place.left, cell.left);
        EXPECT_EQ(place.right, cell.right);
        EXPECT_GE(place.top, cell.top);
        EXPECT_LE(place.bottom, cell.bottom);
    });
}

TEST_F(OptionsScreenTest, AChoiceIsTakenBeforeAnotherRowOpens) {
    Open([&] {
        TapValue(kConfirm);
        Choose(L"No");
        EXPECT_EQ(Cell(kConfirm, 1), L"Yes");
        launchers_.subjects = [&](HWND) {
            launched_.push_back(Cell(kConfirm, 1));
            EXPECT_EQ(Choices(), nullptr);
        };
        TapValue(kSubjects);
        EXPECT_EQ(Cell(kConfirm, 1), L"No");
    });
    EXPECT_THAT(launched_, ElementsAre(L"No"));
}

TEST_F(OptionsScreenTest, ATapAnywhereInTheListTakesTheChoice) {
    Open([&] {
        TapValue(kConfirm);
        Choose(L"No");
        TapLabel(kPassword);
        EXPECT_EQ(Cell(kConfirm, 1), L"No");
        EXPECT_EQ(Choices(), nullptr);
        EXPECT_EQ(GetFocus(), List());
    });
}

TEST_F(OptionsScreenTest, AForeignValueStaysUntilSomethingIsChosen) {
    application_.WriteString(L"Options", L"Confirm Deletes", L"perhaps");
    Open([&] {
        TapValue(kConfirm);
        EXPECT_EQ(Chosen(), L"");
        TapLabel(kConfirm);
        EXPECT_EQ(Cell(kConfirm, 1), L"perhaps");
        TapValue(kConfirm);
        Choose(L"Yes");
        TapLabel(kConfirm);
        EXPECT_EQ(Cell(kConfirm, 1), L"Yes");
    });
}

// ---- The password row ----

TEST_F(OptionsScreenTest, ThePasswordIsSetWhenThereIsNone) {
    Open([&] {
        pads_.ExpectDigits(L"42");
        pads_.ExpectDigits(L"42");
        boxes_.Expect(L"Journal Password", L"Password Active");
        TapValue(kPassword);
        EXPECT_EQ(Cell(kPassword, 1), L"********");
    });
    EXPECT_EQ(Setting(L"vacc"), L"42");  // at once, without OK
}

TEST_F(OptionsScreenTest, APasswordEnteredInconsistentlyLeavesItDisabled) {
    Open([&] {
        pads_.ExpectDigits(L"42");
        pads_.ExpectDigits(L"43");
        boxes_.Expect(L"Password NOT Set", L"Inconsistently Entered Passwords. Password NOT Active");
        TapValue(kPassword);
        EXPECT_EQ(Cell(kPassword, 1), L"<Disabled>");
    });
}

TEST_F(OptionsScreenTest, ThePasswordIsClearedAfterTheRightDigitsAndAYes) {
    TurnLockOn(L"42");
    Open([&] {
        pads_.ExpectDigits(L"42");
        boxes_.Expect(L"Journal Password", L"Clear Password?", IDYES);
        TapValue(kPassword);
        EXPECT_EQ(Cell(kPassword, 1), L"<Disabled>");
        ASSERT_EQ(boxes_.Seen().size(), 1u);
        EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
        EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_YESNO));
        EXPECT_EQ(boxes_.Seen()[0].owner, stage_.Screen());
    });
    EXPECT_EQ(application_.ReadInt(L"Options", L"pwActive", -1), 0);
    EXPECT_EQ(Setting(L"vacc"), L"<none>");
}

TEST_F(OptionsScreenTest, ANoLeavesThePasswordOn) {
    TurnLockOn(L"42");
    Open([&] {
        pads_.ExpectDigits(L"42");
        boxes_.Expect(L"Journal Password", L"Clear Password?", IDNO);
        TapValue(kPassword);
        EXPECT_EQ(Cell(kPassword, 1), L"********");
    });
    EXPECT_EQ(Setting(L"vacc"), L"42");
}

TEST_F(OptionsScreenTest, WrongDigitsChangeNothing) {
    TurnLockOn(L"42");
    Open([&] {
        pads_.ExpectDigits(L"24");
        boxes_.Expect(L"Quillon Journal", L"Incorrect Password!\nAccess Denied");
        TapValue(kPassword);
        EXPECT_EQ(Cell(kPassword, 1), L"********");
        EXPECT_TRUE(IsWindowEnabled(stage_.Screen()));
    });
    EXPECT_EQ(Setting(L"vacc"), L"42");
}

// ---- Closing ----

TEST_F(OptionsScreenTest, OkStoresConfirmDeletesAloneAndTheOpenChoiceWithIt) {
    EXPECT_EQ(Open([&] {
                  TapValue(kConfirm);
                  Choose(L"No");
                  Ok();
              }),
              0);
    EXPECT_EQ(Setting(L"Confirm Deletes"), L"No");
    for (const wchar_t* name : {L"Password", L"Subjects", L"Categories", L"pwActive", L"vacc", L"ConfirmDelete"})
        EXPECT_FALSE(application_.HasValue(L"Options", name)) << name;
}

TEST_F(OptionsScreenTest, OkStoresTheDefaultWhenNothingWasChanged) {
    Open([&] { Ok(); });
    EXPECT_EQ(Setting(L"Confirm Deletes"), L"Yes");
}

TEST_F(OptionsScreenTest, LeavingInAnyOtherWayStoresNothing) {
    EXPECT_EQ(Open([&] {
                  TapValue(kConfirm);
                  Choose(L"No");
                  TapLabel(kConfirm);
                  SendMessageW(stage_.Screen(), WM_SYSCOMMAND, SC_CLOSE, 0);
              }),
              0);
    EXPECT_EQ(Setting(L"Confirm Deletes"), L"<none>");
}

// ---- Scrolling and size ----

TEST_F(OptionsScreenTest, AnOpenDropDownFollowsItsCellAndHidesWhenItsRowScrollsAway) {
    Open([&] {
        TapValue(kConfirm);
        RECT before;
        GetWindowRect(Choices(), &before);
        // Room for two rows.
        RECT row = {LVIR_BOUNDS, 0, 0, 0};
        SendMessageW(List(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
        const int height = row.bottom - row.top;
        RECT frame = {0, 0, Px(240), 2 * height + Px(4) + Px(kMenuBarHeight)};
        AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(stage_.Screen(), GWL_STYLE)), FALSE, 0);
        SetWindowPos(stage_.Screen(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                     SWP_NOMOVE | SWP_NOZORDER);
        ASSERT_TRUE(IsWindowVisible(Choices()));
        const auto scroll = [&](WORD how) { SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(how, 0), 0); };
        scroll(SB_LINEDOWN);
        RECT moved;
        GetWindowRect(Choices(), &moved);
        EXPECT_EQ(moved.top, before.top - height);
        EXPECT_TRUE(IsWindowVisible(Choices()));
        scroll(SB_LINEDOWN);
        EXPECT_FALSE(IsWindowVisible(Choices()));
        scroll(SB_LINEUP);
        scroll(SB_LINEUP);
        EXPECT_TRUE(IsWindowVisible(Choices()));
    });
}

TEST_F(OptionsScreenTest, TheListFillsTheScreenAboveTheMenuBar) {
    Open([&] {
        RECT client;
        GetClientRect(stage_.Screen(), &client);
        RECT list;
        GetWindowRect(List(), &list);
        MapWindowPoints(nullptr, stage_.Screen(), reinterpret_cast<POINT*>(&list), 2);
        EXPECT_EQ(list.left, 0);
        EXPECT_EQ(list.top, 0);
        EXPECT_EQ(list.right, client.right);
        EXPECT_EQ(list.bottom, client.bottom - SHMenuBarHeight(stage_.Screen()));
    });
}

// ---- Keyboard and screen readers ----

TEST_F(OptionsScreenTest, SpaceAndF2ActOnTheSelectedRow) {
    Open([&] {
        EXPECT_EQ(GetFocus(), List());
        Press(VK_DOWN);
        Press(VK_SPACE);
        ASSERT_NE(Choices(), nullptr);
        SetFocus(List());
        Press(VK_DOWN);
        Press(VK_F2);
    });
    EXPECT_THAT(launched_, ElementsAre(L"subjects"));
}

TEST_F(OptionsScreenTest, TheDropDownIsReachedByTabAndNamedAfterItsRow) {
    Open([&] {
        TapValue(kConfirm);
        EXPECT_EQ(GetNextDlgTabItem(stage_.Screen(), List(), TRUE), Choices());
        wchar_t name[100] = L"";
        GetWindowTextW(GetWindow(Choices(), GW_HWNDPREV), name, 100);
        EXPECT_STREQ(name, L"Confirm Deletes");
        GetWindowTextW(GetWindow(List(), GW_HWNDPREV), name, 100);
        EXPECT_STREQ(name, L"Options");
    });
}

}  // namespace
