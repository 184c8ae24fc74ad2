// The filter dialog: what it shows and what each edit does to the settings.
#include <aygshell.h>

#include "tests/filter/filter_screen.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FilterDialogTest = FilterScreen;

// ---- Start ----

TEST_F(FilterDialogTest, HasItsTitleItsTextsAndOneCommand) {
    Open([&] {
        wchar_t title[100] = L"";
        GetWindowTextW(Screen(), title, 100);
        EXPECT_STREQ(title, L"Journal Filter...");
        EXPECT_EQ(TextOf(1012), L"On Date Range");
        EXPECT_EQ(TextOf(1013), L"On Month(s)");
        EXPECT_EQ(TextOf(1023), L"Categories Only");
        EXPECT_EQ(TextOf(IDC_FILTER_START_LABEL), L"Start:");
        EXPECT_EQ(TextOf(IDC_FILTER_END_LABEL), L"End:");
        EXPECT_EQ(TextOf(IDC_FILTER_CATEGORIES_LABEL), L"Categories");
        const HWND bar = SHFindMenuBar(Screen());
        ASSERT_NE(bar, nullptr);
        EXPECT_EQ(SendMessageW(bar, TB_GETSTATE, 115, 0), TBSTATE_ENABLED);
        wchar_t text[100] = L"";
        SendMessageW(bar, TB_GETBUTTONTEXTW, 115, reinterpret_cast<LPARAM>(text));
        EXPECT_STREQ(text, L"Clear");
    });
}

TEST_F(FilterDialogTest, ListsTheTwelveMonthsAndChecksThoseOfTheMask) {
    filter_.months = 0x0802;
    Open([&] {
        const std::vector<std::wstring> rows = Rows(kMonths);
        ASSERT_EQ(rows.size(), 12u);
        for (WORD month = 1; month <= 12; ++month)
            EXPECT_EQ(rows[month - 1], MonthOfUser(month));
        EXPECT_THAT(CheckedRows(kMonths), ElementsAre(MonthOfUser(2), MonthOfUser(12)));
    });
    EXPECT_EQ(filter_.months, 0x0802u);
}

TEST_F(FilterDialogTest, ListsEveryCategoryAndChecksTheChosenOnes) {
    Category(L"Aardvark");
    Category(L"Zebra");
    {
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        ASSERT_TRUE(database.Hide(database.FindByName(L"Zebra")));
    }
    Choose(L"Zebra");
    Choose(L"Business");
    filter_.AddCategory(DbCItem(kPropCategoryName, L"gone"));
    Open([&] {
        const std::vector<std::wstring> rows = Rows(kCategories);
        ASSERT_GE(rows.size(), 4u);
        EXPECT_EQ(rows.front(), L"Aardvark");
        EXPECT_EQ(rows.back(), L"Zebra");
        EXPECT_THAT(CheckedRows(kCategories), ElementsAre(L"Business", L"Zebra"));
    });
    // Filling the list is no edit.
    EXPECT_THAT(Names(), ElementsAre(L"Zebra", L"Business", L"gone"));
}

TEST_F(FilterDialogTest, EndsAtOnceWithoutACategoriesDatabase) {
    DeleteCategoriesDatabase();
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    EXPECT_EQ(OpenInVain(), -1);
    EXPECT_FALSE(filter_.active);
    EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
    EXPECT_THAT(commands_, IsEmpty());
}

TEST_F(FilterDialogTest, OpensOnNowWhenTheRangeWasNeverSet) {
    DateTime before;
    before.SetNow();
    Open([&] {
        DateTime after;
        after.SetNow();
        EXPECT_GE(filter_.rangeStart, before);
        EXPECT_LE(filter_.rangeStart, after);
        EXPECT_EQ(Picked(kStart).Ticks() / DateTime::kTicksPerDay, filter_.rangeStart.Ticks() / DateTime::kTicksPerDay);
        EXPECT_GE(filter_.rangeEnd, before);
        EXPECT_LE(filter_.rangeEnd, after);
    });
}

TEST_F(FilterDialogTest, ShowsTheStoredRange) {
    SetRange();
    Open([&] {
        EXPECT_EQ(Picked(kStart), At(2001, 5, 7, 13, 30));
        EXPECT_EQ(Picked(kEnd), At(2001, 5, 9, 8, 15));
    });
    EXPECT_EQ(filter_.rangeStart, At(2001, 5, 7, 13, 30));
    EXPECT_EQ(filter_.rangeEnd, At(2001, 5, 9, 8, 15));
}

TEST_F(FilterDialogTest, OpeningTurnsTheFilterOn) {
    Open([&] { EXPECT_TRUE(filter_.active); });
    EXPECT_TRUE(filter_.active);
}

struct ModeCase {
    BOOL byRange;
    BOOL categoriesOnly;
};

class ModeTest : public FilterDialogTest, public testing::WithParamInterface<ModeCase> {};

TEST_P(ModeTest, ShowsItAndEnablesWhatCounts) {
    const auto [byRange, categoriesOnly] = GetParam();
    filter_.byRange = byRange;
    filter_.categoriesOnly = categoriesOnly;
    filter_.months = 4;
    Open([&, range = byRange, only = categoriesOnly] {
        EXPECT_EQ(IsChecked(kByRange), range != 0);
        EXPECT_EQ(IsChecked(kByMonth), range == 0);
        EXPECT_EQ(IsChecked(kCategoriesOnly), only != 0);
        EXPECT_EQ(IsEnabled(kByRange), !only);
        EXPECT_EQ(IsEnabled(kByMonth), !only);
        EXPECT_EQ(IsEnabled(kStart), !only && range);
        EXPECT_EQ(IsEnabled(kEnd), !only && range);
        EXPECT_EQ(IsEnabled(kMonths), !only && !range);
        EXPECT_TRUE(IsEnabled(kCategories));
        EXPECT_TRUE(IsEnabled(kCategoriesOnly));
        EXPECT_EQ(GetFocus(), Item(only ? kCategoriesOnly : range ? kByRange : kByMonth));
    });
    EXPECT_EQ(filter_.byRange, byRange);
    EXPECT_EQ(filter_.categoriesOnly, categoriesOnly);
    EXPECT_EQ(filter_.months, 4u);
}

INSTANTIATE_TEST_SUITE_P(Modes, ModeTest,
                         testing::Values(ModeCase{TRUE, FALSE}, ModeCase{FALSE, FALSE}, ModeCase{TRUE, TRUE},
                                         ModeCase{FALSE, TRUE}));

// ---- Edits ----

TEST_F(FilterDialogTest, TheRadioButtonsChooseBetweenRangeAndMonths) {
    filter_.byRange = TRUE;
    Open([&] {
        filter_.active = FALSE;
        Click(kByMonth);
        EXPECT_FALSE(filter_.byRange);
        EXPECT_TRUE(filter_.active);
        EXPECT_FALSE(IsEnabled(kStart));
        EXPECT_FALSE(IsEnabled(kEnd));
        EXPECT_TRUE(IsEnabled(kMonths));
        filter_.active = FALSE;
        Click(kByRange);
        EXPECT_TRUE(filter_.byRange);
        EXPECT_TRUE(filter_.active);
        EXPECT_TRUE(IsEnabled(kStart));
        EXPECT_TRUE(IsEnabled(kEnd));
        EXPECT_FALSE(IsEnabled(kMonths));
    });
}

TEST_F(FilterDialogTest, CategoriesOnlyDisablesTheDates) {
    Open([&] {
        filter_.active = FALSE;
        Click(kCategoriesOnly);
        EXPECT_TRUE(filter_.categoriesOnly);
        EXPECT_TRUE(filter_.active);
        for (const int id : {kByRange, kByMonth, kStart, kEnd, kMonths})
            EXPECT_FALSE(IsEnabled(id)) << id;
        filter_.active = FALSE;
        Click(kCategoriesOnly);
        EXPECT_FALSE(filter_.categoriesOnly);
        EXPECT_TRUE(filter_.active);
        EXPECT_TRUE(IsEnabled(kByRange));
        EXPECT_TRUE(IsEnabled(kByMonth));
        EXPECT_FALSE(IsEnabled(kStart));
        EXPECT_TRUE(IsEnabled(kMonths));
    });
}

TEST_F(FilterDialogTest, AStartAfterTheEndTakesTheEndAlong) {
    SetRange();
    Open([&] {
        filter_.active = FALSE;
        Pick(kStart, At(2001, 6, 1, 10));
        EXPECT_EQ(filter_.rangeStart, At(2001, 6, 1, 10));
        EXPECT_EQ(filter_.rangeEnd, At(2001, 6, 1, 10));
        EXPECT_EQ(Picked(kEnd), At(2001, 6, 1, 10));
        EXPECT_TRUE(filter_.active);
    });
}

TEST_F(FilterDialogTest, AStartBeforeTheEndLeavesTheEnd) {
    SetRange();
    Open([&] {
        Pick(kStart, At(2001, 5, 8, 23));
        EXPECT_EQ(filter_.rangeStart, At(2001, 5, 8, 23));
        EXPECT_EQ(filter_.rangeEnd, At(2001, 5, 9, 8, 15));
        EXPECT_EQ(Picked(kEnd), At(2001, 5, 9, 8, 15));
    });
}

TEST_F(FilterDialogTest, AnEndBeforeTheStartIsAllowed) {
    SetRange();
    Open([&] {
        filter_.active = FALSE;
        Pick(kEnd, At(2001, 4, 1));
        EXPECT_EQ(filter_.rangeStart, At(2001, 5, 7, 13, 30));
        EXPECT_EQ(filter_.rangeEnd, At(2001, 4, 1));
        EXPECT_EQ(Picked(kStart), At(2001, 5, 7, 13, 30));
        EXPECT_TRUE(filter_.active);
    });
}

TEST_F(FilterDialogTest, ChangingTheStartReadsBothPickers) {
    SetRange();
    Open([&] {
        const SYSTEMTIME end = At(2001, 7, 1).ToSystemTime();  // shown, but not told
        SendMessageW(Item(kEnd), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&end));
        Pick(kStart, At(2001, 6, 1));
        EXPECT_EQ(filter_.rangeEnd, At(2001, 7, 1));
    });
}

TEST_F(FilterDialogTest, CheckingAMonthSetsItsBit) {
    filter_.months = 0x0001;
    Open([&] {
        filter_.active = FALSE;
        Check(kMonths, 11, true);
        EXPECT_EQ(filter_.months, 0x0801u);
        EXPECT_TRUE(filter_.active);
        filter_.active = FALSE;
        Check(kMonths, 0, false);
        EXPECT_EQ(filter_.months, 0x0800u);
        EXPECT_TRUE(filter_.active);
    });
}

TEST_F(FilterDialogTest, SelectingARowIsNoEdit) {
    filter_.months = 0x0001;
    Open([&] {
        filter_.active = FALSE;
        ListView_SetItemState(Item(kMonths), 3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        ListView_SetItemState(Item(kCategories), 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        EXPECT_FALSE(filter_.active);
        EXPECT_EQ(filter_.months, 0x0001u);
        EXPECT_THAT(Names(), IsEmpty());
    });
}

TEST_F(FilterDialogTest, CheckingACategoryAddsItAndUncheckingRemovesIt) {
    Choose(L"Holiday");
    Open([&] {
        filter_.active = FALSE;
        Check(kCategories, RowOf(kCategories, L"Business"), true);
        EXPECT_THAT(Names(), ElementsAre(L"Holiday", L"Business"));
        EXPECT_TRUE(filter_.active);
        EXPECT_TRUE(Match(At(2001, 1, 1), {{Category(L"Business")}}));
        filter_.active = FALSE;
        Check(kCategories, RowOf(kCategories, L"Holiday"), false);
        EXPECT_THAT(Names(), ElementsAre(L"Business"));
        EXPECT_TRUE(filter_.active);
    });
}

TEST_F(FilterDialogTest, UncheckingACategoryThatIsChosenTwiceRemovesItWhole) {
    Choose(L"Holiday");
    Choose(L"Holiday");
    Open([&] { Check(kCategories, RowOf(kCategories, L"Holiday"), false); });
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(FilterDialogTest, ATapOnALabelTogglesItsBox) {
    Open([&] {
        TapRow(kMonths, 4);
        EXPECT_EQ(filter_.months, 0x0010u);
        const int row = RowOf(kCategories, L"Business");
        TapRow(kCategories, row);
        EXPECT_THAT(Names(), ElementsAre(L"Business"));
        TapRow(kCategories, row);
        EXPECT_THAT(Names(), IsEmpty());
    });
}

TEST_F(FilterDialogTest, ATapOnTheBoxTogglesItOnce) {
    Open([&] {
        TapRow(kMonths, 4, true);
        EXPECT_EQ(filter_.months, 0x0010u);
        TapRow(kMonths, 4, true);
        EXPECT_EQ(filter_.months, 0u);
    });
}

TEST_F(FilterDialogTest, TheSpaceKeyTogglesTheFocusedRow) {
    Open([&] {
        SetFocus(Item(kMonths));
        ListView_SetItemState(Item(kMonths), 2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        SendMessageW(Item(kMonths), WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_EQ(filter_.months, 0x0004u);
    });
}

}  // namespace
