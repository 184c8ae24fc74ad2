// What the main window's commands do to the store and the list.
#include <gmock/gmock.h>

#include "data/entry_identity.h"
#include "res/ids.h"
#include "tests/app/app_fixture.h"
#include "tests/app/fake_export.h"
#include "tests/app/fake_find.h"
#include "tests/app/fake_options.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CommandsTest : public AppFixture {
protected:
    void SetUp() override {
        ids_ = Write({L"cherry", L"Apple", L"banana"});
        ASSERT_TRUE(Start());
    }

    void Select(std::initializer_list<size_t> entries) {
        for (const size_t entry : entries)
            List().SelectEntry(ids_[entry]);
    }

    std::vector<CEOID> ids_;
};

// ---- Editing ----

class NewEntryTest : public CommandsTest, public testing::WithParamInterface<WORD> {};

TEST_P(NewEntryTest, OpensTheEditorOnNoEntryAndSelectsWhatItWrote) {
    List().SelectEntry(ids_[0]);
    FakeEditor::edit = [&](CEOID) { return Write({L"new"})[0]; };
    Command(GetParam());
    EXPECT_THAT(FakeEditor::opened, ElementsAre(0u));
    EXPECT_THAT(Subjects(), ElementsAre(L"cherry", L"Apple", L"banana", L"new"));
    EXPECT_EQ(List().GetItemState(3, LVIS_SELECTED | LVIS_FOCUSED), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
}

INSTANTIATE_TEST_SUITE_P(Commands, NewEntryTest, testing::Values(WORD{10}, WORD{3001}));

TEST_F(CommandsTest, AnEntryJustWrittenIsSelectedAlone) {
    FakeEditor::edit = [&](CEOID) { return Write({L"new"})[0]; };
    for (int i = 0; i < 3; ++i)
        Command(10);
    EXPECT_EQ(List().GetSelectedCount(), 1);
    EXPECT_THAT(selection_.Ids(), ElementsAre(selection_.Current()));
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(106);
    EXPECT_EQ(Subjects().size(), ids_.size() + 2);
}

TEST_F(CommandsTest, ANewEntryThatWasNotWrittenLeavesNothingSelected) {
    List().SelectEntry(ids_[0]);
    Command(10);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(List().GetNextItem(-1, LVNI_SELECTED), -1);
}

TEST_F(CommandsTest, EditOpensTheEditorOnTheCurrentEntry) {
    List().SelectEntry(ids_[1]);
    Command(40008);
    EXPECT_THAT(FakeEditor::opened, ElementsAre(ids_[1]));
    EXPECT_THAT(FakeEditor::fields, ElementsAre(0));
    EXPECT_EQ(selection_.Current(), ids_[1]);
}

TEST_F(CommandsTest, EditAndShowDoNothingWithoutACurrentEntry) {
    Command(40008);
    Command(122);
    EXPECT_THAT(FakeEditor::opened, IsEmpty());
    EXPECT_THAT(FakeDetail::shown, IsEmpty());
}

// ---- Showing ----

TEST_F(CommandsTest, ShowOpensTheDetailViewAndOkLeadsBack) {
    List().SelectEntry(ids_[1]);
    Command(122);
    EXPECT_THAT(FakeDetail::shown, ElementsAre(ids_[1]));
    EXPECT_THAT(FakeEditor::opened, IsEmpty());
    EXPECT_EQ(selection_.Current(), ids_[1]);
}

TEST_F(CommandsTest, AFieldTappedInTheDetailViewIsEditedOnce) {
    List().SelectEntry(ids_[1]);
    FakeDetail::view = [] { return 109; };
    FakeEditor::edit = [&](CEOID id) { return Write({L"written meanwhile"}), id; };
    Command(122);
    EXPECT_THAT(FakeEditor::opened, ElementsAre(ids_[1]));
    EXPECT_THAT(FakeEditor::fields, ElementsAre(109));
    EXPECT_EQ(Subjects().size(), 4u);
    FakeEditor::edit = nullptr;
    Command(40008);
    EXPECT_THAT(FakeEditor::fields, ElementsAre(109, 0));
}

TEST_F(CommandsTest, AViewThatCannotBeMadeLeavesTheEditor) {
    List().SelectEntry(ids_[1]);
    FakeDetail::view = [] { return -1; };
    Command(122);
    EXPECT_THAT(FakeEditor::fields, ElementsAre(0));
}

TEST_F(CommandsTest, TheSecondHalfOfADoubleTapTurnsTheViewIntoTheEditor) {
    List().SelectEntry(ids_[1]);
    FakeDetail::view = [&] { return Command(40008), 1; };
    Command(122);
    EXPECT_TRUE(FakeDetail::ended);
    EXPECT_THAT(FakeEditor::opened, ElementsAre(ids_[1]));
    EXPECT_THAT(FakeEditor::fields, ElementsAre(0));
}

TEST_F(CommandsTest, AProgramClosedUnderTheViewOpensNoEditor) {
    List().SelectEntry(ids_[1]);
    FakeDetail::view = [&] { return window_->SendMessage(WM_CLOSE), 0; };
    Command(122);
    EXPECT_THAT(FakeEditor::opened, IsEmpty());
}

// ---- Find ----

TEST_F(CommandsTest, FindAsksAndThenShowsWhatTheSameRequestFinds) {
    FakeFind::meanwhile = [&] { Write({L"written meanwhile"}); };
    Command(40003);
    ASSERT_EQ(FakeFind::asked.size(), 1u);
    EXPECT_EQ(FakeFind::shown, FakeFind::asked);
    EXPECT_EQ(Subjects().size(), 4u);
    Command(40003);
    EXPECT_EQ(FakeFind::asked[1], FakeFind::asked[0]);
}

TEST_F(CommandsTest, FindLeftWithoutAQuestionShowsNothing) {
    for (const INT_PTR result : {INT_PTR{IDCANCEL}, INT_PTR{-1}}) {
        FakeFind::ask = [&] { return result; };
        Command(40003);
    }
    EXPECT_EQ(FakeFind::asked.size(), 2u);
    EXPECT_THAT(FakeFind::shown, IsEmpty());
}

TEST_F(CommandsTest, TheEntryOpenedFromWhatWasFoundIsSelectedInTheList) {
    FakeFind::meanwhile = [&] {
        selection_.Clear();
        selection_.Add(ids_[2]);
        selection_.SetCurrent(ids_[2]);
    };
    List().SelectEntry(ids_[0]);
    Command(40003);
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids_[2]));
    EXPECT_EQ(List().GetNextItem(-1, LVNI_SELECTED | LVNI_FOCUSED), 2);
    EXPECT_EQ(List().GetSelectedCount(), 1);
}

TEST_F(CommandsTest, AProgramClosedUnderFindShowsNothingMore) {
    FakeFind::ask = [&] { return window_->SendMessage(WM_CLOSE), IDOK; };
    Command(40003);
    EXPECT_THAT(FakeFind::shown, IsEmpty());
}

TEST_F(CommandsTest, AProgramClosedUnderWhatWasFoundIsGone) {
    FakeFind::meanwhile = [&] { window_->SendMessage(WM_CLOSE); };
    Command(40003);
    EXPECT_EQ(FakeFind::shown.size(), 1u);
    EXPECT_FALSE(window_->IsWindow());
}

// ---- Export ----

class ExportCommandTest : public CommandsTest, public testing::WithParamInterface<WORD> {};

TEST_P(ExportCommandTest, OpensTheExportOnTheSelectionAndTheFilter) {
    FakeExport::opened.clear();
    Select({2, 0});
    Command(GetParam());
    ASSERT_EQ(FakeExport::opened.size(), 1u);
    EXPECT_EQ(FakeExport::opened[0].selected, selection_.Ids());
    EXPECT_EQ(FakeExport::opened[0].filter, &filter_);
}

INSTANTIATE_TEST_SUITE_P(Commands, ExportCommandTest, testing::Values(WORD{40016}, WORD{107}));

TEST_F(CommandsTest, ARefreshNotificationRebuildsAndThenHandlesTheCommand) {
    Write({L"late"});
    List().SelectEntry(ids_[1]);
    Command(IDM_SHOW, 0x466);
    EXPECT_EQ(Subjects().size(), 4u);
    Write({L"later"});
    Command(40008, 0x466);
    EXPECT_EQ(Subjects().size(), 5u);
    EXPECT_THAT(FakeEditor::opened, ElementsAre(ids_[1]));
}

// ---- Sorting ----

struct SortCase {
    WORD field;
    CEPROPID key;
    bool caseInsensitive;
};

class SortTest : public CommandsTest, public testing::WithParamInterface<SortCase> {
protected:
    SORTORDERSPEC Order() {
        SORTORDERSPEC orders[CEDB_MAXSORTORDER] = {};
        journal_.GetSortOrders(orders);
        return orders[0];
    }
};

TEST_P(SortTest, SetsTheKeyAndKeepsTheDirection) {
    const DWORD fold = GetParam().caseInsensitive ? CEDB_SORT_CASEINSENSITIVE : 0;
    Command(GetParam().field, 0x467);
    EXPECT_EQ(Order().propid, GetParam().key);
    EXPECT_EQ(Order().dwFlags, fold);
    Command(1, 0x469);
    EXPECT_EQ(Order().propid, GetParam().key);
    EXPECT_EQ(Order().dwFlags, fold | CEDB_SORT_DESCENDING);
    Command(GetParam().field, 0x467);
    EXPECT_EQ(Order().dwFlags, fold | CEDB_SORT_DESCENDING);
    Command(0, 0x469);
    EXPECT_EQ(Order().dwFlags, fold);
    EXPECT_EQ(app_->BusyCount(), 0);
    EXPECT_EQ(Subjects().size(), 3u);
}

INSTANTIATE_TEST_SUITE_P(Fields, SortTest,
                         testing::Values(SortCase{101, 0x00650040, false}, SortCase{102, 0x0066001F, true},
                                         SortCase{103, 0x00650040, false}, SortCase{104, 0x00680041, false},
                                         SortCase{105, 0x00690002, false}, SortCase{106, 0x00650040, false},
                                         SortCase{107, 0x006B0002, false}, SortCase{108, 0x006C0002, false},
                                         SortCase{109, 0x006D0040, false}, SortCase{110, 0x006E0041, false},
                                         SortCase{111, 0x006F001F, true}, SortCase{112, 0x00650040, false},
                                         SortCase{0, 0x00650040, false}));

TEST_F(CommandsTest, TheListShowsTheNewOrderWithTheSameEntrySelected) {
    List().SelectEntry(ids_[0]);
    Command(102, 0x467);
    EXPECT_THAT(Subjects(), ElementsAre(L"Apple", L"banana", L"cherry"));
    EXPECT_EQ(List().GetNextItem(-1, LVNI_SELECTED), 2);
    Command(1, 0x469);
    EXPECT_THAT(Subjects(), ElementsAre(L"cherry", L"banana", L"Apple"));
    EXPECT_EQ(List().GetNextItem(-1, LVNI_SELECTED), 0);
    Command(103, 0x467);
    EXPECT_THAT(Subjects(), ElementsAre(L"banana", L"Apple", L"cherry"));
}

// ---- Copy ----

TEST_F(CommandsTest, CopyAddsAnEntryForEachSelectedOne) {
    Select({0, 1, 2});
    Command(105);
    EXPECT_THAT(Subjects(), UnorderedElementsAre(L"cherry", L"cherry", L"Apple", L"Apple", L"banana", L"banana"));
}

TEST_F(CommandsTest, ACopyHasEveryPropertyOfItsEntry) {
    Select({1});
    Command(105);
    std::vector<std::wstring> companies;
    for (CEOID id = journal_.SeekFirst(); id != 0; id = journal_.SeekNext()) {
        TSList<DbJItem> fields;
        ASSERT_EQ(journal_.Read(id, &fields), id);
        if (std::wstring(FindFieldByID(fields, kFieldSubject)->GetStrValue()) != L"Apple") continue;
        companies.push_back(FindFieldByID(fields, kFieldCompany)->GetStrValue());
    }
    EXPECT_THAT(companies, ElementsAre(L"Talvern", L"Talvern"));
}

TEST_F(CommandsTest, ACopyIsAnotherEntryWithoutTheUidOfTheFirst) {
    const std::wstring uid = NeedUid(journal_, ids_[1]);
    ASSERT_NE(uid, L"");
    Select({1});
    Command(105);
    std::vector<std::wstring> uids;
    for (CEOID id = journal_.SeekFirst(); id != 0; id = journal_.SeekNext()) {
        uids.push_back(FindUid(journal_, id));
        journal_.SeekToOid(id);
    }
    EXPECT_THAT(uids, UnorderedElementsAre(uid, L"", L"", L""));
}

TEST_F(CommandsTest, CopySkipsAnEntryThatIsGone) {
    Select({0, 1});
    journal_.DeleteRecord(ids_[0]);
    Command(105);
    EXPECT_THAT(Subjects(), UnorderedElementsAre(L"Apple", L"Apple", L"banana"));
}

TEST_F(CommandsTest, CopyOfNothingAddsNothing) {
    Command(105);
    EXPECT_EQ(Subjects().size(), 3u);
}

// ---- Delete ----

TEST_F(CommandsTest, DeleteAsksAndThenRemovesTheSelectedEntries) {
    Select({0, 2});
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(106);
    EXPECT_THAT(Subjects(), ElementsAre(L"Apple"));
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
    EXPECT_FALSE(List().HasCurrent());
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_YESNO));
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
    EXPECT_EQ(boxes_.Seen()[0].owner, window_->GetHandle());
}

TEST_F(CommandsTest, DeleteAnsweredNoChangesNothing) {
    Select({0, 2});
    boxes_.Expect(L"Confirm", L"Delete record?", IDNO);
    Command(106);
    EXPECT_EQ(Subjects().size(), 3u);
    EXPECT_THAT(selection_.Ids(), UnorderedElementsAre(ids_[0], ids_[2]));
    EXPECT_EQ(selection_.Current(), ids_[2]);
    EXPECT_FALSE(List().HasCurrent());
}

TEST_F(CommandsTest, DeleteOfNothingDoesNotAsk) {
    Command(106);
    EXPECT_EQ(Subjects().size(), 3u);
}

struct ConfirmCase {
    const wchar_t* stored;
    bool asks;
};

class ConfirmDeletesTest : public CommandsTest, public testing::WithParamInterface<ConfirmCase> {};

TEST_P(ConfirmDeletesTest, OnlyYesAsks) {
    app_->WriteString(L"Options", L"Confirm Deletes", GetParam().stored);
    Select({1});
    if (GetParam().asks) boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(106);
    EXPECT_THAT(Subjects(), ElementsAre(L"cherry", L"banana"));
}

INSTANTIATE_TEST_SUITE_P(Values, ConfirmDeletesTest,
                         testing::Values(ConfirmCase{L"Yes", true}, ConfirmCase{L"yes", true},
                                         ConfirmCase{L"YES", true}, ConfirmCase{L"No", false}, ConfirmCase{L"", false},
                                         ConfirmCase{L"Yes ", false}));

struct OddConfirmCase {
    const char* name;
    DWORD type;
    std::vector<BYTE> bytes;
    bool asks;
    bool reported;  // it is longer than any text that is read
};

class OddConfirmDeletesTest : public CommandsTest, public testing::WithParamInterface<OddConfirmCase> {};

// What is no text is as good as missing, and then it asks.
TEST_P(OddConfirmDeletesTest, AsksUnlessATextSaysOtherwise) {
    app_->WriteString(L"Options", L"Confirm Deletes", L"No");
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Talvern\\Journal\\Options", 0, KEY_SET_VALUE, &key),
              ERROR_SUCCESS);
    const std::vector<BYTE>& bytes = GetParam().bytes;
    ASSERT_EQ(
        RegSetValueExW(key, L"Confirm Deletes", 0, GetParam().type, bytes.data(), static_cast<DWORD>(bytes.size())),
        ERROR_SUCCESS);
    RegCloseKey(key);
    Select({1});
    if (GetParam().reported) boxes_.Expect(L"Error", MessageBoxes::SystemText(ERROR_MORE_DATA));
    if (GetParam().asks) boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(106);
    EXPECT_THAT(Subjects(), ElementsAre(L"cherry", L"banana"));
}

INSTANTIATE_TEST_SUITE_P(Values, OddConfirmDeletesTest,
                         testing::Values(OddConfirmCase{"Number", REG_DWORD, {1, 0, 0, 0}, true, false},
                                         OddConfirmCase{"Bytes", REG_BINARY, {'N', 0, 'o', 0, 0, 0}, true, false},
                                         OddConfirmCase{"YesWithoutEnd", REG_SZ, {'Y', 0, 'e', 0, 's', 0}, true, false},
                                         OddConfirmCase{"CutInACharacter", REG_SZ, {'Y', 0, 'e', 0, 's'}, false, false},
                                         OddConfirmCase{"Nothing", REG_SZ, {}, false, false},
                                         OddConfirmCase{"TooLong", REG_SZ, std::vector<BYTE>(100'000, 'Y'), true,
                                                        true}),
                         [](const auto& param) { return std::string(param.param.name); });

// ---- Options ----

TEST_F(CommandsTest, OptionsOpensItsScreenAndRefreshesTheList) {
    FakeOptions::opened = 0;
    FakeOptions::meanwhile = [this] { Write({L"one"}); };
    Command(IDM_OPTIONS);
    FakeOptions::meanwhile = nullptr;
    EXPECT_EQ(FakeOptions::opened, 1);
    EXPECT_THAT(Subjects(), testing::Contains(L"one"));
}

TEST_F(CommandsTest, AProgramClosedUnderTheOptionsEndsWithoutAWord) {
    FakeOptions::meanwhile = [this] { window_->SendMessage(WM_CLOSE); };
    Command(IDM_OPTIONS);
    FakeOptions::meanwhile = nullptr;
    EXPECT_FALSE(window_->IsWindow());
}

TEST_F(CommandsTest, AProgramClosedWhileItAsksDeletesNothing) {
    List().SelectEntry(ids_[0]);
    const auto close = [](HWND, UINT, UINT_PTR timer, DWORD) {
        const HWND box = FindWindowW(L"#32770", L"Confirm");
        if (box == nullptr || !IsWindowVisible(box)) return;
        KillTimer(nullptr, timer);
        SendMessageW(GetWindow(box, GW_OWNER), WM_CLOSE, 0, 0);
    };
    boxes_.Expect(L"Confirm", L"Delete record?", 0);
    SetTimer(nullptr, 0, 10, close);
    Command(106);
    EXPECT_FALSE(window_->IsWindow());
    ASSERT_TRUE(journal_.Open(nullptr));
    EXPECT_EQ(journal_.GetRecordCount(), 3);
}

}  // namespace
