// The dialog that searches: what it shows, and what a tap leads to.
#include "find/found_dialog.h"

#include <px.h>
#include <storebatch.h>

#include <utility>

#include "data/value_tables.h"
#include "tests/find/find_screen.h"
#include "tests/support/pump.h"
#include "tests/support/replaced_import.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class FoundDialogTest : public FindScreen {
protected:
    static std::wstring ShortDate(const DateTime& date) {
        std::wstring text;
        date.ShortDate(text);
        return text;
    }

    // Taps a row and does what the script does in the detail view that opens; then it is closed with OK.
    void TapAndView(int row, const Script& script) {
        const HWND list = Item(IDC_FOUND_LIST);
        stage_.Run(IDC_DETAIL_PANEL, IDOK, script, [&] { return Tap(list, row), 0; });
    }
    // Taps a row, in the detail view the subject, and then does what the script does in the editor, which ends with OK.
    void TapAndEdit(int row, const Script& script) {
        const HWND list = Item(IDC_FOUND_LIST);
        SetTimer(nullptr, 0, 10, TapSubject);
        stage_.Run(IDC_EDITOR_TABS, IDOK, script, [&] { return Tap(list, row), 0; });
    }
    int SelectedRow() const { return ListView_GetNextItem(Item(IDC_FOUND_LIST), -1, LVNI_SELECTED | LVNI_FOCUSED); }
    void Rename(CEOID entry, const wchar_t* subject) {
        CEPROPVAL value = {};
        value.propid = kPropSubject;
        value.val.lpwstr = const_cast<wchar_t*>(subject);
        EXPECT_EQ(journal_.WriteRecordProps(entry, 1, &value), entry);
    }

private:
    // Comes back until the detail view stands there.
    static void CALLBACK TapSubject(HWND, UINT, UINT_PTR timer, DWORD) {
        const auto tap = [](HWND window, LPARAM timerId) -> BOOL {
            if (!IsWindowVisible(window) || !GetDlgItem(window, IDC_DETAIL_PANEL)) return TRUE;
            KillTimer(nullptr, static_cast<UINT_PTR>(timerId));
            SendMessageW(window, WM_COMMAND, MAKEWPARAM(IDC_DETAIL_SUBJECT, STN_CLICKED), 0);
            return FALSE;
        };
        EnumThreadWindows(GetCurrentThreadId(), tap, static_cast<LPARAM>(timer));
    }
};

}  // namespace

// ---- What was found ----

TEST_F(FoundDialogTest, ShowsHowManyAndEachEntrysDateAndSubject) {
    AddDays({L"Garden plan", L"Lunch", L"Travel plan"});
    LookForSubject(L"plan");
    EXPECT_EQ(Show([&] {
                  EXPECT_EQ(TextOf(0), L"Found...");
                  EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 2");
                  EXPECT_THAT(Dates(), ElementsAre(ShortDate(At(2001, 5, 7)), ShortDate(At(2001, 5, 9))));
                  EXPECT_THAT(Subjects(), ElementsAre(L"Garden plan", L"Travel plan"));
              }),
              IDOK);
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
}

TEST_F(FoundDialogTest, AnEntryWithoutASubjectHasAnEmptyOne) {
    Add(At(2001, 5, 7), nullptr);
    request_.date = At(2001, 5, 7);
    Show([&] {
        EXPECT_THAT(Dates(), ElementsAre(ShortDate(At(2001, 5, 7))));
        EXPECT_THAT(Subjects(), ElementsAre(L""));
    });
}

TEST_F(FoundDialogTest, ItsColumnsAreDateAndEntry) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        const HWND list = Item(IDC_FOUND_LIST);
        for (const auto& [column, title] : {std::pair{0, L"Date"}, {1, L"Entry"}}) {
            wchar_t text[40] = L"";
            LVCOLUMNW data = {};
            data.mask = LVCF_TEXT;
            data.pszText = text;
            data.cchTextMax = 40;
            ASSERT_TRUE(
                SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&data)));
            EXPECT_STREQ(text, title);
        }
        EXPECT_EQ(ListView_GetColumnWidth(list, 0), Px(60));
        EXPECT_EQ(ListView_GetColumnWidth(list, 1), Px(180));
    });
}

TEST_F(FoundDialogTest, TheCountStandsAboveAndTheListFillsTheRest) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        RECT client = {};
        GetClientRect(Screen(), &client);
        RECT count = {};
        RECT list = {};
        GetWindowRect(Item(IDC_FOUND_COUNT), &count);
        GetWindowRect(Item(IDC_FOUND_LIST), &list);
        MapWindowPoints(nullptr, Screen(), reinterpret_cast<POINT*>(&count), 2);
        MapWindowPoints(nullptr, Screen(), reinterpret_cast<POINT*>(&list), 2);
        EXPECT_EQ(count.top, 0);
        EXPECT_EQ(count.bottom, Px(20));
        EXPECT_EQ(count.right, client.right);
        EXPECT_EQ(list.top, Px(20));
        EXPECT_EQ(list.left, 0);
        EXPECT_EQ(list.right, client.right);
        EXPECT_EQ(list.bottom, client.bottom - Px(26));
    });
}

TEST_F(FoundDialogTest, SaysWhenNothingIsFoundAndShowsNothing) {
    AddDays({L"Lunch"});
    LookForSubject(L"plan");
    boxes_.Expect(L"Quillon Journal", L"No Records Found");
    EXPECT_EQ(ShowInVain(), IDOK);
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
}

TEST_F(FoundDialogTest, NotesOfOtherProgramsAreFoundByTheirText) {
    Add(At(2001, 5, 7), L"own", Note(L"Two herons"));
    Add(At(2001, 5, 8), L"foreign", ForeignNote(L"Three herons, café"));
    Add(At(2001, 5, 9), L"no note", "no rich text");
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"herons";
    Show([&] { EXPECT_THAT(Subjects(), ElementsAre(L"own", L"foreign")); });
    request_.text = L"CAFÉ";
    request_.matchCase = FALSE;
    Show([&] { EXPECT_THAT(Subjects(), ElementsAre(L"foreign")); });
}

TEST_F(FoundDialogTest, ThousandsAreShown) {
    ASSERT_TRUE(CeBeginBatch());
    for (int i = 0; i < 3'000; ++i)
        Add(At(2001, 5, 7), L"plan");
    ASSERT_TRUE(CeCommitBatch());
    LookForSubject(L"plan");
    Show([&] {
        EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 3000");
        EXPECT_EQ(ListView_GetItemCount(Item(IDC_FOUND_LIST)), 3000);
    });
}

TEST_F(FoundDialogTest, ASearchFromTheCurrentEntryStartsBehindIt) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b", L"plan c"});
    selection_.SetCurrent(ids[0]);
    LookForSubject(L"plan");
    request_.searchFrom = SearchFrom::kCurrent;
    Show([&] { EXPECT_THAT(Subjects(), ElementsAre(L"plan b", L"plan c")); });
    selection_.SetCurrent(ids[2]);
    boxes_.Expect(L"Quillon Journal", L"No Records Found");
    ShowInVain();
}

// ---- Taps ----

TEST_F(FoundDialogTest, ATapShowsTheEntryAndOkLeadsBack) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b"});
    LookForSubject(L"plan");
    selection_.Add(ids[0]);
    selection_.SetCurrent(ids[0]);
    Show([&] {
        TapAndView(1, [&] { EXPECT_EQ(selection_.Current(), ids[1]); });
        EXPECT_THAT(Subjects(), ElementsAre(L"plan a", L"plan b"));
        EXPECT_EQ(SelectedRow(), 1);
    });
    EXPECT_EQ(selection_.Current(), ids[1]);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[1]));
}

TEST_F(FoundDialogTest, ATapBesideTheRowsDoesNothing) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        NMITEMACTIVATE tap = {};
        tap.hdr = {Item(IDC_FOUND_LIST), IDC_FOUND_LIST, static_cast<UINT>(NM_CLICK)};
        for (const int row : {-1, 1}) {
            tap.iItem = row;
            SendMessageW(Screen(), WM_NOTIFY, IDC_FOUND_LIST, reinterpret_cast<LPARAM>(&tap));
        }
    });
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(FoundDialogTest, AnEditedEntryIsLookedForAgain) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b", L"plan c"});
    LookForSubject(L"plan");
    Show([&] {
        TapAndEdit(1, [&] {
            EXPECT_EQ(selection_.Current(), ids[1]);
            Rename(ids[1], L"lunch");
            Rename(ids[2], L"plan d");
        });
        EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 2");
        EXPECT_THAT(Subjects(), ElementsAre(L"plan a", L"plan d"));
        EXPECT_EQ(SelectedRow(), 1);
    });
    EXPECT_EQ(selection_.Current(), ids[1]);
}

TEST_F(FoundDialogTest, ASearchFromTheCurrentEntryIsRunAgainFromWhereItBegan) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b", L"plan c"});
    selection_.SetCurrent(ids[0]);
    LookForSubject(L"plan");
    request_.searchFrom = SearchFrom::kCurrent;
    Show([&] {
        TapAndEdit(1, [&] { Rename(ids[2], L"plan z"); });
        EXPECT_THAT(Subjects(), ElementsAre(L"plan b", L"plan z"));
    });
}

TEST_F(FoundDialogTest, WhenNothingIsLeftThatIsSaidAndTheScreenEnds) {
    const std::vector<CEOID> ids = AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        boxes_.Expect(L"Quillon Journal", L"No Records Found");
        TapAndEdit(0, [&] { Rename(ids[0], L"lunch"); });
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
}

TEST_F(FoundDialogTest, AnEntryThatIsGoneIsLeftOutAtTheNextTap) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b"});
    LookForSubject(L"plan");
    Show([&] {
        DeleteElsewhere(ids[0]);
        Tap(Item(IDC_FOUND_LIST), 0);
        EXPECT_THAT(Subjects(), ElementsAre(L"plan b"));
        EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 1");
    });
    EXPECT_EQ(selection_.Current(), 0u);
}

// ---- Keyboard ----

TEST_F(FoundDialogTest, StartsOnTheFirstRow) {
    AddDays({L"plan a", L"plan b"});
    LookForSubject(L"plan");
    Show([&] {
        EXPECT_EQ(GetFocus(), Item(IDC_FOUND_LIST));
        EXPECT_EQ(SelectedRow(), 0);
    });
}

TEST_F(FoundDialogTest, ReturnAndSpaceOpenTheSelectedRow) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b"});
    LookForSubject(L"plan");
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_SPACE}}) {
        Show([&] {
            Press(Screen(), VK_DOWN);
            bool viewed = false;
            const HWND screen = Screen();
            stage_.Run(
                IDC_DETAIL_PANEL, IDOK, [&] { viewed = true; }, [&] { return Press(screen, key), 0; });
            EXPECT_TRUE(viewed);
        });
        EXPECT_EQ(selection_.Current(), ids[1]);
    }
}

TEST_F(FoundDialogTest, F3GoesOnFromRowToRow) {
    const std::vector<CEOID> ids = AddDays({L"plan a", L"plan b", L"plan c"});
    LookForSubject(L"plan");
    Show([&] {
        const HWND screen = Screen();
        for (const CEOID entry : ids) {
            bool viewed = false;
            stage_.Run(
                IDC_DETAIL_PANEL, IDOK, [&] { viewed = true; }, [&] { return Press(screen, VK_F3), 0; });
            EXPECT_TRUE(viewed);
            EXPECT_EQ(selection_.Current(), entry);
        }
        Press(screen, VK_F3);  // there is none behind the last
        EXPECT_EQ(SelectedRow(), 2);
    });
    EXPECT_EQ(selection_.Current(), ids[2]);
}

TEST_F(FoundDialogTest, TheFirstMatchInANoteIsSelectedAndInSight) {
    std::string note = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}";
    for (int i = 0; i < 200; ++i)
        note += "a line\\par ";
    note += "Two \\u1046?herons\\par and more \\u1046?herons\\par}";
    Add(At(2001, 5, 7), L"long", note);
    request_.searchBy = SearchBy::kEntry;
    request_.text = L"\x0436HERONS";
    request_.matchCase = FALSE;
    Show([&] {
        TapAndView(0, [&] {
            const HWND control = Item(IDC_DETAIL_NOTE);
            wchar_t selected[100] = L"";
            CHARRANGE range = {};
            SendMessageW(control, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
            EXPECT_EQ(range.cpMax - range.cpMin, 7);
            SendMessageW(control, EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(selected));
            EXPECT_STREQ(selected, L"\x0416herons");
            EXPECT_EQ(SendMessageW(control, EM_EXLINEFROMCHAR, 0, range.cpMin), 200);
            const LRESULT top = SendMessageW(control, EM_GETFIRSTVISIBLELINE, 0, 0);
            EXPECT_GT(top, 100);
            EXPECT_LE(top, 200);
        });
    });
}

TEST_F(FoundDialogTest, ASearchInSubjectsSelectsNothingInTheNote) {
    Add(At(2001, 5, 7), L"herons", Note(L"Two herons"));
    LookForSubject(L"herons");
    Show([&] {
        TapAndView(0, [&] {
            CHARRANGE range = {};
            SendMessageW(Item(IDC_DETAIL_NOTE), EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
            EXPECT_EQ(range.cpMax, range.cpMin);
        });
    });
}

TEST_F(FoundDialogTest, EscapeAndTheCloseBoxEndIt) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    EXPECT_EQ(Show([&] { Press(Screen(), VK_ESCAPE); }), IDOK);
    EXPECT_EQ(Show([&] { SendMessageW(Screen(), WM_CLOSE, 0, 0); }), IDOK);
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(FoundDialogTest, OpenedTwiceItComesToTheFront) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] { EXPECT_EQ(ShowInVain(), -1); });
}

// ---- While it is at work ----

namespace {

HWND FindFound() {
    return FindWindowW(nullptr, L"Found...");
}

// The clock is the test's: each look at it finds a tenth of a second gone, so that every search takes its time.
class LongSearchTest : public FoundDialogTest {
protected:
    LongSearchTest() { work_ = {}; }

    // Notes of other programs: the search looks at the clock before each.
    void AddForeignNotes(int count) {
        for (int i = 0; i < count; ++i)
            Add(At(2001, 5, 7), L"plan", ForeignNote(L"Three herons"));
        request_.searchBy = SearchBy::kEntry;
        request_.text = L"herons";
    }
    // Done in the midst of the search, once it has shown its screen.
    static void WhenShown(const std::function<void()>& work) { work_ = work; }

private:
    static DWORD WINAPI Clock() {
        if (work_ && IsWindowVisible(FindFound())) std::exchange(work_, {})();
        return clock_ += 100;
    }

    static inline std::function<void()> work_;
    static inline DWORD clock_ = 0;
    const ReplacedImport import_{nullptr, "GetTickCount", Clock};
};

}  // namespace

TEST_F(LongSearchTest, ShowsItselfAndHowManyWereFoundSoFarUnderTheWaitCursor) {
    for (int i = 0; i < 20; ++i)
        Add(At(2001, 5, 7), L"own", Note(L"Two herons"));
    AddForeignNotes(3);
    int busy = -1;
    bool shown = false;
    wchar_t count[40] = L"";
    WhenShown([&] {
        busy = Application::Current()->BusyCount();
        shown = true;
        EXPECT_FALSE(GetUpdateRect(FindFound(), nullptr, FALSE)) << "it is painted";
        GetDlgItemTextW(FindFound(), IDC_FOUND_COUNT, count, 40);
    });
    Show([&] { EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 23"); });
    EXPECT_EQ(busy, 1);
    EXPECT_TRUE(shown);
    EXPECT_STREQ(count, L" Found: 16");
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
}

// Escape as the keyboard brings it, the close box, and OK on the bar.
TEST_F(LongSearchTest, LeftMeanwhileItEndsWithoutAWord) {
    AddForeignNotes(10);
    const auto escape = [] { PostMessageW(GetDlgItem(FindFound(), IDC_FOUND_LIST), WM_KEYDOWN, VK_ESCAPE, 1); };
    const auto close = [] { PostMessageW(FindFound(), WM_SYSCOMMAND, SC_CLOSE, 0); };
    const auto ok = [] { PostMessageW(FindFound(), WM_COMMAND, IDOK, 0); };
    for (const std::function<void()>& leave :
         {std::function<void()>(escape), std::function<void()>(close), std::function<void()>(ok)}) {
        WhenShown(leave);
        EXPECT_EQ(ShowInVain(), IDOK);
        EXPECT_EQ(Application::Current()->BusyCount(), 0);
        EXPECT_THAT(request_.results, IsEmpty());
    }
}

// While it is run again the rows are those of before; they open nothing.
TEST_F(LongSearchTest, TapsAndKeysMeanwhileOpenNothing) {
    AddForeignNotes(3);
    WhenShown([&] {
        const HWND list = GetDlgItem(FindFound(), IDC_FOUND_LIST);
        for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_F3}})
            PostMessageW(list, WM_KEYDOWN, key, 1);
        PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 30));
        PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(20, 30));
    });
    Show([&] { EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 3"); });
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(LongSearchTest, ClosedMeanwhileItEndsWithoutAWord) {
    AddForeignNotes(10);
    WhenShown([&] { SendMessageW(FindFound(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(ShowInVain(), IDOK);
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
    EXPECT_THAT(request_.results, IsEmpty());
}

TEST_F(LongSearchTest, TheJournalClosedMeanwhileEndsIt) {
    AddForeignNotes(10);
    WhenShown([&] {
        journal_.Close();
        stage_.Owner().Destroy();
    });
    ShowInVain();
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
    EXPECT_THAT(request_.results, IsEmpty());
}

TEST_F(FoundDialogTest, TheJournalClosedUnderTheDetailViewEndsBoth) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        TapAndView(0, [&] {
            journal_.Close();
            stage_.Owner().Destroy();
        });
    });
}

TEST_F(FoundDialogTest, TheJournalClosedUnderTheEditorEndsAll) {
    AddDays({L"plan"});
    LookForSubject(L"plan");
    Show([&] {
        TapAndEdit(0, [&] {
            journal_.Close();
            stage_.Owner().Destroy();
        });
    });
}
