// The list while a filter hides some of the entries.
#include <algorithm>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "list/entry_list.h"
#include "list/store_rows.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"

namespace {

class FilteredListTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return list_.OnNotify(header); };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
    }

    void SetCategories(CEOID entry, const std::vector<CEOID>& ids) {
        std::vector<BYTE> bytes = MakeCategoryBlob(ids);
        CEPROPVAL value = {};
        value.propid = kPropCategories;
        value.val.blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        ASSERT_EQ(journal_.WriteRecordProps(entry, 1, &value), entry);
    }
    std::wstring Cell(int row, int column) const { return list_.GetItemText(row, column); }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
    CEOID shown_ = 0;
};

TEST_F(FilteredListTest, CountsTheEntriesThatPass) {
    InsertDays(100);  // from 7 May 2001 on
    filter_.active = TRUE;
    filter_.months = 0x0010;
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 25);
    EXPECT_EQ(list_.GetItemCount(), 25);
    filter_.byRange = TRUE;
    filter_.rangeStart = DateTime(Day(2001, 5, 10));
    filter_.rangeEnd = DateTime(Day(2001, 5, 12));
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 3);
    filter_.active = FALSE;
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 100);
}

TEST_F(FilteredListTest, NothingMayPass) {
    InsertDays(5);
    filter_.active = TRUE;
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 0);
    EXPECT_EQ(list_.GetItemCount(), 0);
}

TEST_F(FilteredListTest, AnEntryWithoutStartAndCategoriesIsAskedAsSuch) {
    CEPROPVAL company = {};
    company.propid = kPropCompany;
    company.val.lpwstr = const_cast<wchar_t*>(L"neither start nor categories");
    ASSERT_NE(journal_.WriteRecordProps(0, 1, &company), 0u);
    filter_.active = TRUE;
    filter_.months = 0x0001;  // the first moment of all is in January
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 1);
    filter_.categoriesOnly = TRUE;
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 0);
}

TEST_F(FilteredListTest, ABlockHoldsTheEntriesThatPassFromTheStoresPositionOn) {
    const auto ids = InsertDays(10);
    StoreRows rows(journal_, filter_);
    filter_.active = filter_.byRange = TRUE;
    filter_.rangeStart = DateTime(Day(2001, 5, 9));
    filter_.rangeEnd = DateTime(Day(2001, 5, 10));
    EXPECT_EQ(rows.Count(), 2);
    RowCache cache(rows);
    cache.Hint(0, 1, 5);
    EXPECT_EQ(cache.Fetch(0).id, ids[2]);
    EXPECT_EQ(cache.Fetch(1).id, ids[3]);
    // Outside the blocks a row is the entry at the store's position, or empty when that one does not pass.
    RowCache alone(rows);
    EXPECT_EQ(alone.Fetch(0).id, 0u);
    EXPECT_EQ(alone.Fetch(0).subject, L"");
    EXPECT_EQ(alone.Fetch(3).id, ids[3]);
}

TEST_F(FilteredListTest, RowsBehindTheFirstBlockComeFromTheStoresPositions) {
    InsertDays(200);  // from 7 May 2001 on: June starts at 25, July at 55
    filter_.active = TRUE;
    filter_.months = 0x0020;  // June
    list_.RefreshList();
    ASSERT_EQ(list_.GetItemCount(), 30);
    list_.SendMessage(WM_VSCROLL, SB_TOP);
    list_.Update();
    EXPECT_EQ(Cell(0, 1), L"entry 25");
    list_.EnsureVisible(29, false);
    list_.Update();
    const int top = list_.GetTopIndex();
    ASSERT_GT(top, 0);
    // A block from the store's position `top` on.
    EXPECT_EQ(Cell(top, 1), L"entry " + std::to_wstring(std::max(top, 25)));
}

TEST_F(FilteredListTest, SelectingAnEntryRemembersNoOther) {
    const auto ids = InsertDays(60);
    filter_.active = TRUE;
    filter_.months = 0x0060;  // June and July: entries 25 to 59
    list_.RefreshList();
    list_.Update();
    ASSERT_EQ(Cell(5, 1), L"entry 30");
    list_.SelectEntry(ids[30]);
    EXPECT_EQ(list_.GetFocusedEntry(&shown_), 30);
    EXPECT_THAT(selection_.Ids(), testing::ElementsAre(ids[30]));
    list_.RefreshList();
    EXPECT_THAT(selection_.Ids(), testing::ElementsAre(ids[30]));
    EXPECT_EQ(selection_.Current(), ids[30]);
}

TEST_F(FilteredListTest, ASelectedRowGoesOnShowingItsEntry) {
    const auto ids = InsertDays(60);
    filter_.active = TRUE;
    filter_.months = 0x0060;
    list_.RefreshList();
    list_.SelectEntry(ids[30]);
    for (int i = 0; i < 2; ++i) {
        list_.Invalidate();
        list_.Update();
        EXPECT_EQ(list_.GetFocusedEntry(&shown_), 30);
        EXPECT_EQ(shown_, ids[30]);
        EXPECT_EQ(Cell(30, 1), L"entry 30");
        list_.SendMessage(WM_VSCROLL, SB_LINEUP);
    }
    list_.SendMessage(WM_KEYDOWN, VK_UP, 1);  // the row is its place's again
    list_.Update();
    EXPECT_NE(Cell(30, 1), L"entry 30");
}

// ---- Rows counted among the entries that pass ----

class WholeFilterTest : public FilteredListTest {
protected:
    void Choose(DWORD months) {
        application_.WriteInt(L"Options", L"fWhole", 1);
        filter_.active = TRUE;
        filter_.months = months;
        list_.RefreshList();
    }
};

TEST_F(WholeFilterTest, EachRowIsTheNextEntryThatPasses) {
    const auto ids = InsertDays(200);  // from 7 May 2001 on: June starts at 25
    Choose(0x0020);
    ASSERT_EQ(list_.GetItemCount(), 30);
    for (int row = 0; row < 30; ++row)
        EXPECT_EQ(Cell(row, 1), L"entry " + std::to_wstring(25 + row));
    list_.SelectEntry(ids[54]);
    EXPECT_EQ(list_.GetFocusedEntry(&shown_), 29);
    EXPECT_EQ(shown_, ids[54]);
    list_.SelectEntry(ids[55]);  // does not pass
    EXPECT_EQ(list_.GetFocusedEntry(&shown_), -1);
    EXPECT_EQ(selection_.Current(), 0u);
    EXPECT_EQ(list_.GetSelectedCount(), 0);
}

TEST_F(WholeFilterTest, FollowsTheSortOrder) {
    InsertDays(200);
    Choose(0x0020);
    const SORTORDERSPEC order = {kPropStart, CEDB_SORT_DESCENDING};
    ASSERT_TRUE(journal_.SetSortOrder(&order, 1));
    list_.RefreshList();
    EXPECT_EQ(Cell(0, 1), L"entry 54");
    EXPECT_EQ(Cell(29, 1), L"entry 25");
}

TEST_F(WholeFilterTest, AnEntryThatIsGoneLeavesItsRowEmptyUntilTheNextRebuild) {
    const auto ids = InsertDays(60);
    Choose(0x0020);
    {
        DbJournal other;
        ASSERT_TRUE(other.Open(nullptr));
        ASSERT_TRUE(other.DeleteRecord(ids[26]));
        ASSERT_TRUE(other.DeleteRecord(ids[0]));
        other.Close();
    }
    EXPECT_EQ(Cell(0, 1), L"entry 25");
    EXPECT_EQ(Cell(1, 1), L"");
    EXPECT_EQ(Cell(2, 1), L"entry 27");
    list_.RefreshList();
    EXPECT_EQ(Cell(1, 1), L"entry 27");
}

TEST_F(WholeFilterTest, IsTurnedOffAgainByTheNextRebuild) {
    InsertDays(60);
    Choose(0x0040);  // July: from 55 on
    EXPECT_EQ(Cell(4, 1), L"entry 59");
    application_.WriteInt(L"Options", L"fWhole", 0);
    list_.RefreshList();
    EXPECT_EQ(Cell(4, 1), L"");  // the store's own position 4
    filter_.active = FALSE;
    list_.RefreshList();
    EXPECT_EQ(Cell(4, 1), L"entry 4");
}

// The filter asks for the first, second or third of the entry's three categories.
class CutCategoriesTest : public FilteredListTest, public testing::WithParamInterface<size_t> {};

TEST_P(CutCategoriesTest, AreReadAsFarAsTheyGo) {
    const CEOID entry = InsertDays(1)[0];
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    const wchar_t* const names[] = {L"Business", L"Family", L"Holiday"};
    std::vector<CEOID> carried;
    for (const wchar_t* name : names)
        carried.push_back(categories.FindByName(name));
    const std::vector<BYTE> whole = MakeCategoryBlob(carried);
    filter_.active = filter_.categoriesOnly = TRUE;
    filter_.AddCategory(DbCItem(kPropCategoryName, names[GetParam()]));
    for (size_t length = 0; length <= whole.size(); ++length) {
        std::vector<BYTE> bytes(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(length));
        bytes.reserve(1);  // an empty one has an address too
        CEPROPVAL value = {};
        value.propid = kPropCategories;
        value.val.blob = {static_cast<DWORD>(length), bytes.data()};
        ASSERT_EQ(journal_.WriteRecordProps(entry, 1, &value), entry);
        list_.RefreshList();
        EXPECT_EQ(list_.GetItemCount(), length / sizeof(CEOID) > GetParam() ? 1 : 0) << length;
        EXPECT_EQ(Cell(0, 1), list_.GetItemCount() > 0 ? L"entry 0" : L"") << length;
    }
}

INSTANTIATE_TEST_SUITE_P(Categories, CutCategoriesTest, testing::Values(0u, 1u, 2u));

TEST_F(FilteredListTest, CategoriesAreLookedUpAnewAtEachRebuild) {
    const auto ids = InsertDays(3);
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    const CEOID business = categories.FindByName(L"Business"), family = categories.FindByName(L"Family");
    SetCategories(ids[1], {family, business});
    SetCategories(ids[2], {family});
    filter_.active = TRUE;
    filter_.AddCategory(DbCItem(kPropCategoryName, L"Business"));  // its id not known yet
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 1);
    ASSERT_TRUE(categories.Remove(business));
    ASSERT_TRUE(categories.Rename(family, L"Business"));
    list_.RefreshList();
    EXPECT_EQ(filter_.passed, 2);
}

TEST_F(FilteredListTest, AnEntryThatIsGoneBetweenCountAndFetchLeavesAnEmptyRow) {
    const auto ids = InsertDays(3);
    filter_.active = TRUE;
    filter_.months = 0x0FFF;
    list_.RefreshList();
    ASSERT_EQ(list_.GetItemCount(), 3);
    {
        DbJournal other;
        ASSERT_TRUE(other.Open(nullptr));
        for (const CEOID id : ids)
            ASSERT_TRUE(other.DeleteRecord(id));
    }
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(Cell(row, 0), L"");
        EXPECT_EQ(Cell(row, 1), L"");
    }
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 0);
}

}  // namespace
