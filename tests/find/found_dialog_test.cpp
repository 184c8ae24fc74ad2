// The dialog that searches: what it shows, and what a tap leads to.
#include "find/found_dialog.h"

#include <px.h>
#include <storebatch.h>

#include "data/value_tables.h"
#include "tests/find/find_screen.h"
#include "tests/support/pump.h"

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
        EXPECT_GE(ListView_GetColumnWidth(list, 0), Px(60));
        RECT client = {};
        GetClientRect(list, &client);
        EXPECT_EQ(ListView_GetColumnWidth(list, 0) + ListView_GetColumnWidth(list, 1), client.right);
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

// Owner of the screen that does something when it is painted, as a search lets it.
class LongSearchTest : public FoundDialogTest {
protected:
    // Notes whose text takes long to read, so that the windows are let paint in between.
    void AddSlowNotes(int count) {
        for (int i = 0; i < count; ++i)
            Add(At(2001, 5, 7), L"plan", ForeignNote(std::wstring(4'000, L'x') + L"herons"));
        request_.searchBy = SearchBy::kEntry;
        request_.text = L"herons";
    }
    // Posted to this thread's queue of paints: done at the owner's next one.
    void WhenPainted(const std::function<void()>& work) {
        work_ = work;
        SetWindowSubclass(stage_.Owner().GetHandle(), Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        InvalidateRect(stage_.Owner().GetHandle(), nullptr, TRUE);
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR,
                                      DWORD_PTR test) {
        const LRESULT result = DefSubclassProc(window, message, wparam, lparam);
        if (message == WM_PAINT) {
            RemoveWindowSubclass(window, Procedure, 1);
            reinterpret_cast<LongSearchTest*>(test)->work_();
        }
        return result;
    }

    std::function<void()> work_;
};

HWND FindFound() {
    return FindWindowW(nullptr, L"Found...");
}

}  // namespace

TEST_F(LongSearchTest, KeepsTheWindowsPaintingUnderTheWaitCursor) {
    AddSlowNotes(10);
    int busy = -1;
    bool shown = true;
    WhenPainted([&] {
        busy = Application::Current()->BusyCount();
        shown = IsWindowVisible(FindFound()) != FALSE;
    });
    Show([&] { EXPECT_EQ(TextOf(IDC_FOUND_COUNT), L" Found: 10"); });
    EXPECT_EQ(busy, 1);
    EXPECT_FALSE(shown);
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
}

TEST_F(LongSearchTest, ClosedMeanwhileItEndsWithoutAWord) {
    AddSlowNotes(10);
    WhenPainted([&] { SendMessageW(FindFound(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(ShowInVain(), IDOK);
    EXPECT_EQ(Application::Current()->BusyCount(), 0);
    EXPECT_THAT(request_.results, IsEmpty());
}

TEST_F(LongSearchTest, TheJournalClosedMeanwhileEndsIt) {
    AddSlowNotes(10);
    WhenPainted([&] {
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
