// The list on the real control over a real store: what it shows, and what it remembers of the selection.
#include "list/entry_list.h"

#include <px.h>
#include <storebatch.h>

#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/pump.h"
#include "tests/support/replaced_import.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr UINT kSelected = LVIS_SELECTED;
constexpr UINT kFocused = LVIS_FOCUSED;
constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;

class EntryListTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return list_.OnNotify(header); };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
    }

    std::vector<int> RowsWith(UINT state) const {
        std::vector<int> rows;
        for (int row = 0; row < list_.GetItemCount(); ++row) {
            if ((list_.GetItemState(row, state) & state) == state) rows.push_back(row);
        }
        return rows;
    }
    std::wstring Cell(int row, int column) const { return list_.GetItemText(row, column); }

    LRESULT Notify(UINT code, NMHDR* header) {
        *header = {list_.GetHandle(), IDC_ENTRY_LIST, code};
        return list_.OnNotify(header);
    }
    void Notify(UINT code) {
        NMHDR header;
        Notify(code, &header);
    }
    void NotifyChange(int row, UINT before, UINT after) {
        NMLISTVIEW change = {};
        change.iItem = row;
        change.uOldState = before;
        change.uNewState = after;
        change.uChanged = LVIF_STATE;
        Notify(LVN_ITEMCHANGED, &change.hdr);
    }
    void NotifyRange(int from, int to, UINT after) {
        NMLVODSTATECHANGE change = {};
        change.iFrom = from;
        change.iTo = to;
        change.uNewState = after;
        Notify(LVN_ODSTATECHANGED, &change.hdr);
    }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
};

// ---- The control ----

TEST_F(EntryListTest, IsAVirtualReportWithoutColumnTitles) {
    EXPECT_EQ(list_.GetId(), 101);
    constexpr DWORD kStyles = LVS_REPORT | LVS_OWNERDATA | LVS_NOCOLUMNHEADER | LVS_SHAREIMAGELISTS;
    EXPECT_EQ(list_.GetStyle() & 0xFFFF, kStyles);
    EXPECT_TRUE(list_.GetStyle() & WS_CHILD);
    EXPECT_EQ(list_.SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE), LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list_.GetColumnCount(), 2);
}

TEST_F(EntryListTest, TheLastColumnTakesWhatTheOthersLeave) {
    for (int entries : {0, 100}) {
        InsertDays(entries);
        list_.RefreshList();
        RECT client;
        list_.GetClientRect(&client);
        EXPECT_EQ(list_.GetColumnWidth(0) + list_.GetColumnWidth(1), client.right) << entries;
    }
}

TEST_F(EntryListTest, TheDateColumnHoldsAWholeDate) {
    const std::wstring date = ShortDate(2000, 12, 28);
    const LRESULT text = list_.SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(date.c_str()));
    EXPECT_GT(list_.GetColumnWidth(0), text);
    EXPECT_GE(list_.GetColumnWidth(0), Px(60));
}

// ---- Rows ----

TEST_F(EntryListTest, AnEmptyStoreGivesAnEmptyList) {
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 0);
    EXPECT_EQ(filter_.passed, 0);
    EXPECT_EQ(selection_.Current(), 0u);
    EXPECT_FALSE(list_.HasCurrent());
}

TEST_F(EntryListTest, ShowsStartAndSubjectInTheStoresOrder) {
    Insert(Day(2003, 11, 2), L"later");
    Insert(Day(2001, 5, 7), L"earlier");
    list_.RefreshList();
    ASSERT_EQ(list_.GetItemCount(), 2);
    EXPECT_EQ(filter_.passed, 2);
    EXPECT_EQ(Cell(0, 0), ShortDate(2001, 5, 7));
    EXPECT_EQ(Cell(0, 1), L"earlier");
    EXPECT_EQ(Cell(1, 0), ShortDate(2003, 11, 2));
    EXPECT_EQ(Cell(1, 1), L"later");
}

TEST_F(EntryListTest, ShowsWhatAnEntryLacksAsEmptyText) {
    CEPROPVAL company = {};
    company.propid = kPropCompany;
    company.val.lpwstr = const_cast<wchar_t*>(L"neither start nor subject");
    ASSERT_NE(journal_.WriteRecordProps(0, 1, &company), 0u);
    list_.RefreshList();
    EXPECT_EQ(Cell(0, 0), L"");
    EXPECT_EQ(Cell(0, 1), L"");
}

TEST_F(EntryListTest, AnswersTheEntryAsTheRowsParameter) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    NMLVDISPINFOW info = {};
    info.item.mask = LVIF_PARAM;
    info.item.iItem = 2;
    Notify(LVN_GETDISPINFOW, &info.hdr);
    EXPECT_EQ(static_cast<CEOID>(info.item.lParam), ids[2]);
}

TEST_F(EntryListTest, CutsATextToTheCallersBuffer) {
    Insert(Day(2001, 5, 7), L"a long subject");
    list_.RefreshList();
    wchar_t text[7] = L"??????";
    NMLVDISPINFOW info = {};
    info.item.mask = LVIF_TEXT;
    info.item.iSubItem = 1;
    info.item.pszText = text;
    info.item.cchTextMax = 6;
    Notify(LVN_GETDISPINFOW, &info.hdr);
    EXPECT_STREQ(text, L"a lon");
}

TEST_F(EntryListTest, ShowsNothingForARowWhoseEntryIsGone) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    journal_.DeleteRecord(ids[0]);
    EXPECT_EQ(list_.GetItemCount(), 3);
    EXPECT_EQ(Cell(2, 1), L"");
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 2);
}

TEST_F(EntryListTest, ARefreshedRowIsReadAgain) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    ASSERT_EQ(Cell(1, 1), L"entry 1");
    CEPROPVAL subject = {};
    subject.propid = kPropSubject;
    subject.val.lpwstr = const_cast<wchar_t*>(L"changed");
    journal_.WriteRecordProps(ids[1], 1, &subject);
    list_.RefreshRow(ids[1]);
    EXPECT_EQ(Cell(1, 1), L"changed");
}

TEST_F(EntryListTest, HasNoSearchByTyping) {
    InsertDays(3);
    list_.RefreshList();
    NMLVFINDITEMW find = {};
    EXPECT_EQ(Notify(LVN_ODFINDITEMW, &find.hdr), -1);
}

TEST_F(EntryListTest, ShowsTheStoreInItsNewOrder) {
    InsertDays(3);
    list_.RefreshList();
    ASSERT_EQ(Cell(0, 1), L"entry 0");
    const SORTORDERSPEC order = {kPropStart, CEDB_SORT_DESCENDING};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    list_.RefreshList();
    EXPECT_EQ(Cell(0, 1), L"entry 2");
}

// ---- Rebuild and selection ----

TEST_F(EntryListTest, RebuildSelectsWhatIsRememberedAndFocusesTheCurrentEntry) {
    const auto ids = InsertDays(6);
    for (int row : {1, 3, 5})
        selection_.Add(ids[static_cast<size_t>(row)]);
    selection_.SetCurrent(ids[3]);
    list_.RefreshList();
    EXPECT_THAT(RowsWith(kSelected), ElementsAre(1, 3, 5));
    EXPECT_THAT(RowsWith(kFocused), ElementsAre(3));
    EXPECT_EQ(selection_.Current(), ids[3]);
    EXPECT_EQ(selection_.Ids().size(), 3u);
    EXPECT_TRUE(list_.HasCurrent());
}

TEST_F(EntryListTest, RebuildKeepsTheSelectionOnItsEntriesWhenRowsMove) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    list_.SelectEntry(ids[1]);
    Insert(Day(1999, 1, 1), L"before all");
    list_.RefreshList();
    EXPECT_THAT(RowsWith(kBoth), ElementsAre(2));
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[1]));
}

TEST_F(EntryListTest, RebuildWithoutACurrentEntryDeselectsEverything) {
    const auto ids = InsertDays(3);
    selection_.Add(ids[0]);
    selection_.Add(ids[2]);
    list_.RefreshList();
    EXPECT_THAT(RowsWith(kSelected), IsEmpty());
    EXPECT_THAT(RowsWith(kFocused), IsEmpty());
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_FALSE(list_.HasCurrent());
}

TEST_F(EntryListTest, RebuildScrollsTheCurrentEntryIntoView) {
    const auto ids = InsertDays(200);
    selection_.SetCurrent(ids[150]);
    list_.RefreshList();
    EXPECT_LE(list_.GetTopIndex(), 150);
    EXPECT_GE(list_.GetTopIndex() + list_.GetCountPerPage(), 151);
}

TEST_F(EntryListTest, ReselectsManyEntries) {
    const auto ids = InsertDays(300);
    for (const CEOID id : ids)
        selection_.Add(id);
    selection_.SetCurrent(ids[1]);
    list_.RefreshList();
    EXPECT_EQ(RowsWith(kSelected).size(), ids.size());
    EXPECT_EQ(selection_.Ids().size(), ids.size());
    EXPECT_THAT(RowsWith(kFocused), ElementsAre(1));
}

TEST_F(EntryListTest, ReselectsThousandsOfEntries) {
    ASSERT_TRUE(CeBeginBatch());
    const auto ids = InsertDays(3000);
    ASSERT_TRUE(CeCommitBatch());
    for (const CEOID id : ids)
        selection_.Add(id);
    selection_.SetCurrent(ids[2000]);
    list_.RefreshList();
    EXPECT_EQ(list_.GetSelectedCount(), 3000);
    EXPECT_THAT(selection_.Ids(), ElementsAreArray(ids));
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_FOCUSED), 2000);
    list_.SelectEntry(0);
    EXPECT_EQ(list_.GetSelectedCount(), 0);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
}

TEST_F(EntryListTest, RebuildStaysWhereTheListWasScrolledTo) {
    const auto ids = InsertDays(100);
    list_.RefreshList();
    list_.EnsureVisible(60, false);
    const int top = list_.GetTopIndex();
    ASSERT_GT(top, 0);
    list_.RefreshList();
    EXPECT_EQ(list_.GetTopIndex(), top);
    journal_.DeleteRecord(ids[60]);
    selection_.SetCurrent(ids[top + 1]);  // in view already
    list_.RefreshList();
    EXPECT_EQ(list_.GetTopIndex(), top);
    list_.ShowTop();
    selection_.Clear();
    list_.RefreshList();
    EXPECT_EQ(list_.GetTopIndex(), 0);
}

TEST_F(EntryListTest, RebuildWithFewerRowsEndsAtTheLast) {
    const auto ids = InsertDays(60);
    list_.RefreshList();
    list_.EnsureVisible(59, false);
    for (size_t i = 40; i < ids.size(); ++i)
        journal_.DeleteRecord(ids[i]);
    list_.RefreshList();
    EXPECT_EQ(list_.GetTopIndex(), 40 - list_.GetCountPerPage());
    for (size_t i = 0; i < 40; ++i)
        journal_.DeleteRecord(ids[i]);
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 0);
}

TEST_F(EntryListTest, RebuildAnnouncesTheEmptyingAndThenEachSelectedRow) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    selection_.Add(ids[1]);
    selection_.SetCurrent(ids[1]);
    host_.notified.clear();
    list_.RefreshList();
    std::vector<UINT> changes;
    for (UINT code : host_.notified) {
        if (code == LVN_DELETEALLITEMS || code == LVN_ITEMCHANGED || code == LVN_ODSTATECHANGED)
            changes.push_back(code);
    }
    EXPECT_THAT(changes, ElementsAre(LVN_DELETEALLITEMS, LVN_ITEMCHANGED));
}

TEST_F(EntryListTest, SelectEntryMakesItCurrent) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    list_.SelectEntry(ids[1]);
    EXPECT_THAT(RowsWith(kBoth), ElementsAre(1));
    EXPECT_EQ(selection_.Current(), ids[1]);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[1]));
    EXPECT_TRUE(list_.HasCurrent());
}

TEST_F(EntryListTest, ARebuildWithNothingSelectedTouchesNoRow) {
    InsertDays(3);
    static int asked;
    asked = 0;
    static WNDPROC replaced;
    replaced = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        list_.GetHandle(), GWLP_WNDPROC,
        reinterpret_cast<LONG_PTR>(+[](HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) -> LRESULT {
            if (message == LVM_SETITEMSTATE) ++asked;
            return CallWindowProcW(replaced, hwnd, message, wparam, lparam);
        })));
    list_.RefreshList();
    EXPECT_EQ(asked, 0);
    list_.SetItemState(1, kFocused, kFocused);  // focused and not selected
    selection_.SetCurrent(0);
    list_.SelectEntry(0);
    EXPECT_EQ(asked, 2);
    EXPECT_THAT(RowsWith(kFocused), IsEmpty());
    SetWindowLongPtrW(list_.GetHandle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(replaced));
}

TEST_F(EntryListTest, SelectEntryOfNoEntryDeselectsEveryRow) {
    const auto ids = InsertDays(3);
    journal_.DeleteRecord(ids[2]);
    for (const CEOID nobody : {CEOID{0}, ids[2]}) {
        list_.RefreshList();
        list_.SelectEntry(ids[0]);
        list_.SelectEntry(ids[1]);
        ASSERT_THAT(RowsWith(kSelected), ElementsAre(0, 1));
        list_.SelectEntry(nobody);
        EXPECT_THAT(RowsWith(kSelected), IsEmpty()) << nobody;
        EXPECT_THAT(RowsWith(kFocused), IsEmpty()) << nobody;
        EXPECT_EQ(selection_.Current(), 0u) << nobody;
        EXPECT_FALSE(list_.HasCurrent()) << nobody;
    }
}

TEST_F(EntryListTest, FocusedEntryIsTheFirstFocusedAndSelectedRow) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    CEOID id = 77;
    EXPECT_EQ(list_.GetFocusedEntry(&id), -1);
    EXPECT_EQ(id, 0u);
    list_.SelectEntry(ids[2]);
    EXPECT_EQ(list_.GetFocusedEntry(&id), 2);
    EXPECT_EQ(id, ids[2]);
}

TEST_F(EntryListTest, ClearSelectionLeavesTheRowsAsTheyAre) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    list_.SelectEntry(ids[2]);
    list_.ClearSelection();
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
    EXPECT_FALSE(list_.HasCurrent());
    EXPECT_THAT(RowsWith(kSelected), ElementsAre(2));
}

// ---- A store that does not answer ----

BOOL WINAPI FailToScan(HANDLE, WORD, const CEPROPID*, CeScanVisitor, void*) {
    SetLastError(ERROR_BUSY);
    return FALSE;
}

TEST_F(EntryListTest, AListThatCannotBeCountedKeepsItsRowsAndTriesAgain) {
    const auto ids = InsertDays(40);
    filter_.active = TRUE;
    filter_.months = 0x0FFF;
    list_.RefreshList();
    list_.SelectEntry(ids[3]);
    Insert(Day(2030, 1, 1), L"one more");
    {
        const ReplacedImport scan(nullptr, "CeScanRecords", FailToScan);
        list_.RefreshList();
        EXPECT_EQ(list_.GetItemCount(), 40);
        EXPECT_EQ(Cell(2, 1), L"entry 2");
        EXPECT_THAT(RowsWith(kBoth), ElementsAre(3));
        EXPECT_THAT(selection_.Ids(), ElementsAre(ids[3]));
    }
    EXPECT_TRUE(PumpUntil([&] { return list_.GetItemCount() == 41; }));
    EXPECT_THAT(RowsWith(kBoth), ElementsAre(3));
}

TEST_F(EntryListTest, AJournalThatWasLeftClosedIsOpenedAgain) {
    InsertDays(5);
    list_.RefreshList();
    journal_.Close();
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 5);
    EXPECT_EQ(Cell(4, 1), L"entry 4");
}

// ---- Selection tracking ----

TEST_F(EntryListTest, FollowsTheControlsOwnChanges) {
    const auto ids = InsertDays(4);
    list_.RefreshList();
    list_.SetItemState(1, kBoth, kBoth);
    list_.SetItemState(3, kBoth, kBoth);
    EXPECT_THAT(selection_.Ids(), testing::UnorderedElementsAre(ids[1], ids[3]));
    EXPECT_EQ(selection_.Current(), ids[3]);
    list_.SetItemState(1, 0, kSelected);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[3]));
    EXPECT_EQ(selection_.Current(), ids[3]);
    list_.SetItemState(-1, 0, kSelected);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
}

struct ChangeCase {
    const char* name;
    UINT before;
    UINT after;
    bool remembered;  // afterwards; row 1 was remembered and current before
    bool current;
};

class EntryListChangeTest : public EntryListTest, public testing::WithParamInterface<ChangeCase> {};

TEST_P(EntryListChangeTest, TracksOneRow) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    selection_.Add(ids[1]);
    selection_.SetCurrent(ids[1]);
    NotifyChange(1, GetParam().before, GetParam().after);
    EXPECT_EQ(selection_.Contains(ids[1]), GetParam().remembered);
    EXPECT_EQ(selection_.Current() == ids[1], GetParam().current);
    EXPECT_LE(selection_.Ids().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(States, EntryListChangeTest,
                         testing::Values(ChangeCase{"Deselected", kSelected, 0, false, false},
                                         ChangeCase{"LosesFocusOnly", kBoth, kSelected, true, false},
                                         ChangeCase{"DeselectedButFocused", kBoth, kFocused, false, true},
                                         ChangeCase{"LosesBoth", kBoth, 0, false, false},
                                         ChangeCase{"SelectedAgain", 0, kSelected, true, true},
                                         ChangeCase{"GetsBoth", 0, kBoth, true, true},
                                         ChangeCase{"OtherState", LVIS_CUT, LVIS_DROPHILITED, true, true}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_F(EntryListTest, EverythingDeselectedForgetsAll) {
    const auto ids = InsertDays(3);
    list_.RefreshList();
    list_.SelectEntry(ids[0]);
    NotifyChange(-1, 0, 0);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[0]));
    NotifyChange(-1, kSelected, 0);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(EntryListTest, EverythingSelectedRemembersAll) {
    const auto ids = InsertDays(40);
    list_.RefreshList();
    list_.SetItemState(-1, kSelected, kSelected);
    EXPECT_THAT(selection_.Ids(), ElementsAreArray(ids));
}

TEST_F(EntryListTest, ARangeReplacesWhatWasRemembered) {
    const auto ids = InsertDays(6);
    list_.RefreshList();
    list_.SelectEntry(ids[0]);
    NotifyRange(2, 4, kSelected);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[2], ids[3], ids[4]));
    EXPECT_EQ(selection_.Current(), 0u);
    NotifyRange(1, 2, kBoth);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[1], ids[2]));
    EXPECT_EQ(selection_.Current(), ids[2]);
    NotifyRange(0, 5, 0);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
}

TEST_F(EntryListTest, ARowWithoutEntryIsNotRemembered) {
    const auto ids = InsertDays(2);
    list_.RefreshList();
    journal_.DeleteRecord(ids[0]);
    NotifyRange(0, 1, kSelected);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids[1]));
}

// ---- Taps ----

TEST_F(EntryListTest, ATapOpensAndADoubleTapEditsTheCurrentEntry) {
    const auto ids = InsertDays(2);
    list_.RefreshList();
    list_.SelectEntry(ids[1]);
    Notify(NM_CLICK);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{122, 0}));
    host_.commands.clear();
    Notify(NM_DBLCLK);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{40008, 0}));
}

TEST_F(EntryListTest, ReturnOpensTheCurrentEntry) {
    const auto ids = InsertDays(2);
    list_.RefreshList();
    list_.SelectEntry(ids[1]);
    list_.SendMessage(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{122, 0}));
}

TEST_F(EntryListTest, TapsWithoutACurrentEntrySendNothing) {
    InsertDays(2);
    list_.RefreshList();
    for (UINT code : {NM_CLICK, NM_DBLCLK, NM_RETURN})
        Notify(code);
    EXPECT_THAT(host_.commands, IsEmpty());
}

// ---- Column titles ----

TEST_F(EntryListTest, AClickOnATitleTurnsTheSortOrderRound) {
    InsertDays(3);
    list_.RefreshList();
    for (const DWORD flags : {DWORD{CEDB_SORT_DESCENDING}, DWORD{0}}) {
        NMHEADERW click = {};
        click.hdr = {list_.GetHeader(), 0, HDN_ITEMCLICKW};
        click.iItem = 0;
        list_.OnNotify(&click.hdr);
        EXPECT_EQ(SortOrder().propid, kPropStart);
        EXPECT_EQ(SortOrder().dwFlags, flags);
        EXPECT_EQ(Cell(0, 1), flags != 0 ? L"entry 2" : L"entry 0");
        EXPECT_EQ(application_.BusyCount(), 0);
    }
}

}  // namespace
