// The dialog that asks: what it starts with, what its buttons do, what OK stores.
#include "find/find_dialog.h"

#include <px.h>

#include "tests/find/find_screen.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FindDialogTest = FindScreen;

constexpr int kDate = IDC_FIND_DATE;
constexpr int kText = IDC_FIND_TEXT;
constexpr int kByDate = IDC_FIND_BY_DATE;
constexpr int kBySubject = IDC_FIND_BY_SUBJECT;
constexpr int kByEntry = IDC_FIND_BY_ENTRY;
constexpr int kTop = IDC_FIND_FROM_TOP;
constexpr int kCurrent = IDC_FIND_FROM_CURRENT;
constexpr int kMatch = IDC_FIND_MATCH_CASE;

}  // namespace

// ---- Start ----

TEST_F(FindDialogTest, StartsByDateFromTheTopMatchingCase) {
    Ask([&] {
        EXPECT_EQ(TextOf(0), L"Find");
        EXPECT_EQ(TextOf(IDC_FIND_BY_GROUP), L" Search by ");
        EXPECT_EQ(TextOf(IDC_FIND_FROM_GROUP), L" Search from ");
        EXPECT_EQ(TextOf(IDC_FIND_CASE_GROUP), L" Case ");
        EXPECT_EQ(TextOf(IDC_FIND_FOR_GROUP), L" Search for");
        EXPECT_EQ(TextOf(kByDate), L"Date");
        EXPECT_EQ(TextOf(kBySubject), L"Subject");
        EXPECT_EQ(TextOf(kByEntry), L"Entry");
        EXPECT_EQ(TextOf(kTop), L"Top");
        EXPECT_EQ(TextOf(kCurrent), L"Current");
        EXPECT_EQ(TextOf(kMatch), L"Match");
        EXPECT_TRUE(IsChecked(kByDate));
        EXPECT_FALSE(IsChecked(kBySubject));
        EXPECT_FALSE(IsChecked(kByEntry));
        EXPECT_TRUE(IsChecked(kTop));
        EXPECT_FALSE(IsChecked(kCurrent));
        EXPECT_TRUE(IsChecked(kMatch));
        EXPECT_TRUE(IsShown(kDate));
        EXPECT_FALSE(IsShown(kText));
        EXPECT_EQ(GetFocus(), Item(kDate));
    });
}

struct StoredChoice {
    int by;
    int from;
    int match;
    int byChecked;
    int fromChecked;
};

class StoredChoicesTest : public FindDialogTest, public testing::WithParamInterface<StoredChoice> {};

TEST_P(StoredChoicesTest, AreShown) {
    const StoredChoice& stored = GetParam();
    Store(L"SearchBy", stored.by);
    Store(L"SearchFrom", stored.from);
    Store(L"MatchCase", stored.match);
    Ask([&] {
        for (const int button : {kByDate, kBySubject, kByEntry})
            EXPECT_EQ(IsChecked(button), button == stored.byChecked) << button;
        for (const int button : {kTop, kCurrent})
            EXPECT_EQ(IsChecked(button), button == stored.fromChecked) << button;
        EXPECT_EQ(IsChecked(kMatch), stored.match != 0);
        EXPECT_EQ(IsShown(kDate), stored.byChecked == kByDate);
        EXPECT_EQ(IsShown(kText), stored.byChecked != kByDate);
    });
    EXPECT_EQ(request_.matchCase != FALSE, stored.match != 0);
}

INSTANTIATE_TEST_SUITE_P(Settings, StoredChoicesTest,
                         testing::Values(StoredChoice{1106, 1047, 1, 1106, 1047},
                                         StoredChoice{1107, 1049, 0, 1107, 1049},
                                         StoredChoice{1108, 1047, 2, 1108, 1047}, StoredChoice{0, 0, -1, 1108, 1049},
                                         StoredChoice{1109, 1048, 0, 1108, 1049}));

TEST_F(FindDialogTest, StartsWithTheHistoryAndNoText) {
    Store(L"Find0", L"plan");
    Store(L"Find1", L"garden");
    Store(L"Find3", L"behind a gap");
    Ask([&] {
        EXPECT_THAT(Lines(), ElementsAre(L"plan", L"garden"));
        EXPECT_EQ(TextOf(kText), L"");
    });
}

TEST_F(FindDialogTest, TheHistoryKeepsItsOrderInTheList) {
    for (const auto& [name, text] : {std::pair{L"Find0", L"b"}, {L"Find1", L"c"}, {L"Find2", L"a"}})
        Store(name, text);
    Ask([&] { EXPECT_THAT(Lines(), ElementsAre(L"b", L"c", L"a")); });
}

TEST_F(FindDialogTest, SelectsTheLastTextInTheHistory) {
    Store(L"Find0", L"plan");
    Store(L"Find1", L"garden");
    Store(L"Last", L"garden");
    Ask([&] {
        EXPECT_EQ(TextOf(kText), L"garden");
        EXPECT_EQ(SendMessageW(Item(kText), CB_GETCURSEL, 0, 0), 1);
    });
}

TEST_F(FindDialogTest, ALastTextThatIsNotInTheHistorySelectsNothing) {
    Store(L"Find0", L"plan");
    Store(L"Last", L"garden");
    Ask([&] { EXPECT_EQ(TextOf(kText), L""); });
}

TEST_F(FindDialogTest, TheRequestsOwnTextComesBeforeTheLast) {
    Store(L"Find0", L"plan");
    Store(L"Last", L"plan");
    request_.text = L"letter";
    Ask([&] { EXPECT_EQ(TextOf(kText), L"letter"); });
}

TEST_F(FindDialogTest, ShowsTodayAtFirstAndThenTheDateOfTheRequest) {
    DateTime today;
    today.SetNow();
    Ask([&] { EXPECT_LT(Picked().Difference(today), static_cast<int64_t>(DateTime::kTicksPerHour)); });
    request_.date = At(2001, 5, 7, 9, 30);
    Ask([&] { EXPECT_EQ(Picked(), At(2001, 5, 7, 9, 30)); });
}

TEST_F(FindDialogTest, AHistoryThatCannotBeReadIsToldOnceAndTheDialogGoesOn) {
    Store(L"Find0", std::wstring(10'000, L'x').c_str());
    Store(L"SearchBy", kBySubject);
    boxes_.Expect(L"Error", MessageBoxes::SystemText(ERROR_MORE_DATA));
    EXPECT_EQ(Ask([&] {
                  EXPECT_THAT(Lines(), IsEmpty());
                  Type(L"plan");
                  Command(IDOK);
              }),
              IDOK);
    EXPECT_THAT(History(), ElementsAre(L"plan"));
}

TEST_F(FindDialogTest, SettingsOfAnotherTypeAreTakenForMissing) {
    Store(L"SearchBy", L"1107");
    Store(L"MatchCase", L"0");
    Store(L"Find0", 42);
    Ask([&] {
        EXPECT_TRUE(IsChecked(kByDate));
        EXPECT_TRUE(IsChecked(kMatch));
        EXPECT_THAT(Lines(), IsEmpty());
    });
}

// ---- Choices ----

TEST_F(FindDialogTest, TheModeDecidesWhetherADateOrATextIsAskedFor) {
    Ask([&] {
        for (const int mode : {kBySubject, kByDate, kByEntry, kByDate}) {
            Click(mode);
            EXPECT_EQ(IsShown(kDate), mode == kByDate);
            EXPECT_EQ(IsShown(kText), mode != kByDate);
        }
    });
}

TEST_F(FindDialogTest, DateAndTextStandInOnePlace) {
    Ask([&] {
        RECT date = {};
        RECT text = {};
        GetWindowRect(Item(kDate), &date);
        Click(kByEntry);
        GetWindowRect(Item(kText), &text);
        EXPECT_EQ(text.left, date.left);
        EXPECT_EQ(text.top, date.top);
        EXPECT_EQ(text.right, date.right);
        EXPECT_EQ(text.bottom, date.bottom);
    });
}

TEST_F(FindDialogTest, TheTextsListEndsSeventyPixelsBelowThePicker) {
    for (const wchar_t* name : {L"Find0", L"Find1", L"Find2", L"Find3", L"Find4", L"Find5", L"Find6", L"Find7"})
        Store(name, name);
    Ask([&] {
        Click(kBySubject);
        SendMessageW(Item(kText), CB_SHOWDROPDOWN, TRUE, 0);
        COMBOBOXINFO parts = {};
        parts.cbSize = sizeof parts;
        ASSERT_TRUE(GetComboBoxInfo(Item(kText), &parts));
        RECT date = {};
        RECT list = {};
        GetWindowRect(Item(kDate), &date);
        GetWindowRect(parts.hwndList, &list);
        EXPECT_LE(list.bottom, date.bottom + Px(70 + 10));  // the list's frame
        EXPECT_GT(list.bottom, date.bottom + Px(70 - 18));  // whole lines
        EXPECT_NE(GetWindowLongW(parts.hwndList, GWL_STYLE) & WS_VSCROLL, 0);
        SendMessageW(Item(kText), CB_SHOWDROPDOWN, FALSE, 0);
    });
}

TEST_F(FindDialogTest, MatchIsTakenAtOnceAlsoWhenTheUserLeaves) {
    EXPECT_EQ(Ask([&] {
                  Click(kMatch);
                  EXPECT_FALSE(request_.matchCase);
                  Click(kMatch);
                  EXPECT_TRUE(request_.matchCase);
                  Click(kMatch);
              }),
              IDCANCEL);
    EXPECT_FALSE(request_.matchCase);
    EXPECT_EQ(Stored(L"MatchCase"), -1);
}

// ---- OK ----

TEST_F(FindDialogTest, OkStoresTheChoices) {
    EXPECT_EQ(Ask([&] {
                  Click(kByEntry);
                  Click(kCurrent);
                  Click(kMatch);
                  Type(L"plan");
                  Command(IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored(L"SearchBy"), 1108);
    EXPECT_EQ(Stored(L"SearchFrom"), 1049);
    EXPECT_EQ(Stored(L"MatchCase"), 0);
    EXPECT_EQ(request_.searchBy, SearchBy::kEntry);
    EXPECT_EQ(request_.searchFrom, SearchFrom::kCurrent);
    EXPECT_FALSE(request_.matchCase);
    EXPECT_EQ(request_.text, L"plan");
}

TEST_F(FindDialogTest, OkTakesTheDateAndLeavesTextAndHistoryAlone) {
    Store(L"Find0", L"plan");
    request_.text = L"letter";
    EXPECT_EQ(Ask([&] {
                  Pick(At(2003, 2, 1));
                  Command(IDOK);
              }),
              IDOK);
    EXPECT_EQ(Stored(L"SearchBy"), 1106);
    EXPECT_EQ(request_.date, At(2003, 2, 1));
    EXPECT_EQ(request_.text, L"letter");
    EXPECT_THAT(History(), ElementsAre(L"plan"));
}

TEST_F(FindDialogTest, OkLeavesTheDateAloneWhenATextIsLookedFor) {
    request_.date = At(2001, 5, 7);
    Ask([&] {
        Pick(At(2003, 2, 1));
        Click(kBySubject);
        Type(L"plan");
        Command(IDOK);
    });
    EXPECT_EQ(request_.date, At(2001, 5, 7));
}

TEST_F(FindDialogTest, ATextOfTheHistoryMovesToItsFront) {
    for (const auto& [name, text] : {std::pair{L"Find0", L"a"}, {L"Find1", L"b"}, {L"Find2", L"c"}})
        Store(name, text);
    Ask([&] {
        Click(kBySubject);
        Type(L"b");
        Command(IDOK);
    });
    EXPECT_THAT(History(), ElementsAre(L"b", L"a", L"c"));
}

TEST_F(FindDialogTest, AnEleventhTextPushesTheOldestOut) {
    for (int place = 0; place < 10; ++place)
        Store((L"Find" + std::to_wstring(place)).c_str(), std::to_wstring(place).c_str());
    Ask([&] {
        Click(kByEntry);
        Type(L"new");
        Command(IDOK);
    });
    EXPECT_THAT(History(), ElementsAre(L"new", L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8"));
}

TEST_F(FindDialogTest, AnEmptyTextClearsTheRequestsAndLeavesTheHistoryAlone) {
    Store(L"Find0", L"plan");
    for (const int mode : {kBySubject, kByEntry}) {
        request_.text = L"letter";
        EXPECT_EQ(Ask([&] {
                      Click(mode);
                      Type(L"");
                      Command(IDOK);
                  }),
                  IDOK);
        EXPECT_EQ(request_.text, L"");
        EXPECT_THAT(History(), ElementsAre(L"plan"));
    }
}

TEST_F(FindDialogTest, ATextIsNoLongerThanTheHistoryCanTellAgain) {
    Ask([&] {
        Click(kBySubject);
        SetFocus(Item(kText));
        SendMessageW(GetFocus(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
        for (int i = 0; i < 200; ++i)
            SendMessageW(GetFocus(), WM_CHAR, L'x', 1);
        Command(IDOK);
    });
    EXPECT_EQ(request_.text, std::wstring(155, L'x'));
    EXPECT_THAT(History(), ElementsAre(request_.text));
}

TEST_F(FindDialogTest, TheLastTextIsNeverWritten) {
    Ask([&] {
        Click(kBySubject);
        Type(L"plan");
        Command(IDOK);
    });
    EXPECT_FALSE(application_.HasValue(L"Options", L"Last"));
}

// ---- Leaving ----

TEST_F(FindDialogTest, LeavingStoresNothing) {
    request_.text = L"letter";
    request_.date = At(2001, 5, 7);
    for (const bool byCloseBox : {false, true}) {
        EXPECT_EQ(Ask([&] {
                      Pick(At(2003, 2, 1));
                      Click(kBySubject);
                      Click(kCurrent);
                      Type(L"plan");
                      byCloseBox ? SendMessageW(Screen(), WM_CLOSE, 0, 0) : (Press(Screen(), VK_ESCAPE), 0);
                  }),
                  IDCANCEL);
    }
    EXPECT_EQ(Stored(L"SearchBy"), -1);
    EXPECT_EQ(Stored(L"SearchFrom"), -1);
    EXPECT_THAT(History(), IsEmpty());
    EXPECT_EQ(request_.searchBy, SearchBy::kDate);
    EXPECT_EQ(request_.searchFrom, SearchFrom::kTop);
    EXPECT_EQ(request_.date, At(2001, 5, 7));
    EXPECT_EQ(request_.text, L"letter");
}

TEST_F(FindDialogTest, ReturnIsOk) {
    EXPECT_EQ(Ask([&] { Press(Screen(), VK_RETURN); }), IDOK);
}

TEST_F(FindDialogTest, ItsOwnerDestroyedUnderItEndsIt) {
    stage_.Run(
        kMatch, IDCANCEL, [&] { stage_.Owner().Destroy(); }, [&] { return FindDialog::Run(stage_.Owner(), request_); });
    EXPECT_EQ(Stored(L"SearchBy"), -1);
}

TEST_F(FindDialogTest, OpenedTwiceItComesToTheFront) {
    Ask([&] { EXPECT_EQ(FindDialog::Run(stage_.Owner(), request_), -1); });
}

// ---- Keyboard ----

TEST_F(FindDialogTest, TabReachesEveryControlThatIsShown) {
    Store(L"SearchBy", kBySubject);
    Ask([&] {
        const HWND edit = GetFocus();
        EXPECT_EQ(GetParent(edit), Item(kText));
        std::vector<int> reached;
        for (int i = 0; i < 4; ++i) {
            const HWND next = GetNextDlgTabItem(Screen(), GetFocus(), FALSE);
            SetFocus(next);
            reached.push_back(GetParent(GetFocus()) == Item(kText) ? kText : GetDlgCtrlID(GetFocus()));
        }
        EXPECT_THAT(reached, ElementsAre(kBySubject, kTop, kMatch, kText));
        EXPECT_TRUE(IsChecked(kBySubject));
        EXPECT_TRUE(IsChecked(kTop));
    });
}

TEST_F(FindDialogTest, WhatIsAskedForHasAName) {
    Ask([&] {
        for (const int control : {kDate, kText}) {
            wchar_t name[40] = L"";
            GetWindowTextW(GetWindow(Item(control), GW_HWNDPREV), name, 40);
            EXPECT_STREQ(name, L"Search for") << control;
        }
    });
}

TEST_F(FindDialogTest, EveryControlLiesInTheScreen) {
    Ask([&] {
        RECT client = {};
        GetClientRect(Screen(), &client);
        for (const int id : {IDC_FIND_BY_GROUP, kByDate, kBySubject, kByEntry, IDC_FIND_FROM_GROUP, kTop, kCurrent,
                             IDC_FIND_CASE_GROUP, kMatch, IDC_FIND_FOR_GROUP, kDate, kText}) {
            RECT place = {};
            GetWindowRect(Item(id), &place);
            MapWindowPoints(nullptr, Screen(), reinterpret_cast<POINT*>(&place), 2);
            EXPECT_GE(place.left, 0) << id;
            EXPECT_LE(place.right, client.right) << id;
            EXPECT_LE(place.bottom, client.bottom - Px(26)) << id;
            EXPECT_LT(place.left, place.right) << id;
        }
    });
}

TEST_F(FindDialogTest, ButtonsHaveRoomForTheirWords) {
    Ask([&] {
        for (const int id : {kByDate, kBySubject, kByEntry, kTop, kCurrent, kMatch}) {
            const HDC dc = GetDC(Item(id));
            SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(Item(id), WM_GETFONT, 0, 0)));
            SIZE words = {};
            const std::wstring text = TextOf(id);
            GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &words);
            ReleaseDC(Item(id), dc);
            RECT room = {};
            GetClientRect(Item(id), &room);
            EXPECT_LE(words.cx + Px(16), room.right) << id;
            EXPECT_LE(words.cy, room.bottom) << id;
        }
    });
}
