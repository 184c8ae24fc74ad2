// The "Show" button's menu: the categories that entries use, and what choosing one does.
#include <storebatch.h>

#include "data/db_cats.h"
#include "list/button_bar.h"
#include "res/ids.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Item {
    UINT id;
    std::wstring text;
    bool checked;
    bool operator==(const Item&) const = default;
};

void PrintTo(const Item& item, std::ostream* out) {
    *out << item.id << (item.checked ? " checked" : "");
}

const Item kSeparator = {0, L"", false};
const Item kAll = {115, L"All", false};
const Item kMore = {121, L"More...", false};

std::vector<Item> ItemsOf(HMENU menu) {
    std::vector<Item> items;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[100] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        const bool separator = (state & MF_SEPARATOR) != 0;
        EXPECT_TRUE(separator || (state & MF_GRAYED) == 0);
        items.push_back({GetMenuItemID(menu, i), text, (state & MF_CHECKED) != 0});
    }
    return items;
}

class ShowMenuTest : public JournalFixture {
protected:
    void SetUp() override { ASSERT_TRUE(bar_.CreateIn(host_.Handle(), host_.Client().right)); }

    // Makes a category when there is none, and gives it that count of uses.
    CEOID Use(const std::wstring& name, short uses = 1) {
        DbCats categories;
        EXPECT_TRUE(categories.Open(nullptr));
        categories.Add(name.c_str());
        const CEOID id = categories.FindByName(name.c_str());
        CEPROPVAL count = {};
        count.propid = kPropCategoryJournalUses;
        count.val.iVal = uses;
        EXPECT_EQ(categories.WriteRecordProps(id, 1, &count), id);
        return id;
    }
    void Choose(const wchar_t* name) { filter_.AddCategory(DbCItem(kPropCategoryName, name)); }
    std::vector<Item> Items() const { return ItemsOf(bar_.MakeShowMenu().get()); }
    std::wstring Caption() const { return bar_.GetButtonText(112); }

    ListHost host_;
    ButtonBar bar_{journal_, filter_};
};

TEST_F(ShowMenuTest, WithNoCategoryInUseHoldsAllAndMore) {
    Use(L"Business", 0);
    EXPECT_THAT(Items(), ElementsAre(kAll, kSeparator, kMore));
}

TEST_F(ShowMenuTest, ListsTheUsedCategoriesInTheirOrder) {
    Use(L"Holiday", 3);
    Use(L"Business", 1);
    Use(L"Family", 0);
    EXPECT_THAT(Items(), ElementsAre(Item{700, L"Business", false}, Item{701, L"Holiday", false}, kSeparator, kAll,
                                     kSeparator, kMore));
}

TEST_F(ShowMenuTest, ListsUsedCategoriesThatAreHidden) {
    const CEOID hidden = Use(L"Aardvark");
    {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        ASSERT_TRUE(categories.Hide(hidden));
    }
    EXPECT_EQ(Items().front(), (Item{700, L"Aardvark", false}));
}

TEST_F(ShowMenuTest, ListsTheFirstEight) {
    for (const wchar_t c : std::wstring(L"abcdefghij"))
        Use(std::wstring(L"0") + c);
    const std::vector<Item> items = Items();
    ASSERT_EQ(items.size(), 12u);
    EXPECT_EQ(items[0], (Item{700, L"0a", false}));
    EXPECT_EQ(items[7], (Item{707, L"0h", false}));
    EXPECT_EQ(items[8], kSeparator);
}

TEST_F(ShowMenuTest, WithoutAnyCategoryHoldsAllAndMore) {
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    while (const CEOID id = categories.SeekFirst())
        ASSERT_TRUE(categories.DeleteRecord(id));
    EXPECT_THAT(Items(), ElementsAre(kAll, kSeparator, kMore));
}

TEST_F(ShowMenuTest, OfFiveThousandCategoriesListsTheFirstEightThatAreUsed) {
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    ASSERT_TRUE(CeBeginBatch());
    for (int i = 0; i < 5000; ++i) {
        wchar_t name[20];
        wsprintfW(name, L"0 %04d", i);
        CEPROPVAL values[2] = {};
        values[0].propid = kPropCategoryName;
        values[0].val.lpwstr = name;
        values[1].propid = kPropCategoryJournalUses;
        values[1].val.iVal = i >= 4500 ? 1 : 0;
        ASSERT_NE(categories.WriteRecordProps(0, 2, values), 0u);
    }
    ASSERT_TRUE(CeCommitBatch());
    const std::vector<Item> items = Items();
    ASSERT_EQ(items.size(), 12u);
    EXPECT_EQ(items[0], (Item{700, L"0 4500", false}));
    EXPECT_EQ(items[7], (Item{707, L"0 4507", false}));
}

TEST_F(ShowMenuTest, AnItemCarriesItsCategory) {
    Use(L"Business");
    const CEOID holiday = Use(L"Holiday");
    const UniqueMenu menu = bar_.MakeShowMenu();
    MENUITEMINFOW item = {};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_DATA;
    ASSERT_TRUE(GetMenuItemInfoW(menu.get(), 701, FALSE, &item));
    EXPECT_EQ(item.dwItemData, holiday);
}

TEST_F(ShowMenuTest, AnAmpersandInANameIsSeen) {
    Use(L"A&B");
    EXPECT_EQ(Items().front().text, L"A&&B");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), 700);
    EXPECT_EQ(Caption(), L"A&B");
}

TEST_F(ShowMenuTest, WithoutACategoriesDatabaseHoldsAllAndMore) {
    CeDbase base;
    ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
    ASSERT_TRUE(base.DeleteDatabase(0));
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    EXPECT_THAT(Items(), ElementsAre(kAll, kSeparator, kMore));
}

struct CheckCase {
    BOOL byRange;
    BOOL categoriesOnly;
    bool checked;
};

class ShowCheckTest : public ShowMenuTest, public testing::WithParamInterface<CheckCase> {};

TEST_P(ShowCheckTest, ChecksWhatTheFilterHolds) {
    Use(L"Business");
    Use(L"Holiday");
    Choose(L"Holiday");
    filter_.byRange = GetParam().byRange;
    filter_.categoriesOnly = GetParam().categoriesOnly;
    const std::vector<Item> items = Items();
    EXPECT_FALSE(items[0].checked);
    EXPECT_EQ(items[1].checked, GetParam().checked);
}

INSTANTIATE_TEST_SUITE_P(Filters, ShowCheckTest,
                         testing::Values(CheckCase{FALSE, FALSE, true}, CheckCase{FALSE, TRUE, true},
                                         CheckCase{TRUE, TRUE, true}, CheckCase{TRUE, FALSE, false}));

TEST_F(ShowMenuTest, ChoosingACategoryFiltersByItAndRebuilds) {
    Use(L"Business");
    const CEOID holiday = Use(L"Holiday");
    bar_.SetButtonText(112, L"Show");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), 701);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{701, 0}, ListHost::Command{112, 0x466}));
    EXPECT_EQ(Caption(), L"Holiday");
    EXPECT_TRUE(filter_.active);
    EXPECT_TRUE(filter_.categoriesOnly);
    EXPECT_FALSE(filter_.byRange);
    ASSERT_EQ(filter_.Categories().GetCount(), 1);
    EXPECT_EQ(filter_.Categories().begin()->GetOid(), holiday);
    EXPECT_EQ(Items()[1], (Item{701, L"Holiday", true}));
}

TEST_F(ShowMenuTest, ACategoryThatWentWhileTheMenuWasOpenChangesNothing) {
    const CEOID business = Use(L"Business");
    const UniqueMenu menu = bar_.MakeShowMenu();
    {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        ASSERT_TRUE(categories.DeleteRecord(business));
    }
    bar_.OnShowChoice(menu.get(), 700);
    EXPECT_FALSE(filter_.active);
    EXPECT_EQ(Caption(), L"All");
}

class OtherChoiceTest : public ShowMenuTest, public testing::WithParamInterface<int> {};

TEST_P(OtherChoiceTest, IsSentAndRebuildsOnlyBesideCategories) {
    const auto id = static_cast<WORD>(GetParam());
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), id);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{id, 0}));
    host_.commands.clear();
    Use(L"Business");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), id);
    EXPECT_THAT(host_.commands, ElementsAre(ListHost::Command{id, 0}, ListHost::Command{112, 0x466}));
    EXPECT_FALSE(filter_.active);
}

INSTANTIATE_TEST_SUITE_P(Choices, OtherChoiceTest, testing::Values(115, 121));

TEST_F(ShowMenuTest, ChoosingNothingPutsTheFiltersNameBack) {
    Use(L"Business");
    Choose(L"Business");
    filter_.active = filter_.categoriesOnly = TRUE;
    bar_.SetButtonText(112, L"Show");
    bar_.OnShowChoice(bar_.MakeShowMenu().get(), 0);
    EXPECT_THAT(host_.commands, IsEmpty());
    EXPECT_EQ(Caption(), L"Business");
}

}  // namespace
