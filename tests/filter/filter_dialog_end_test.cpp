// The filter dialog: Clear, OK and Cancel, what they tell its owner, and how many entries pass meanwhile.
#include "tests/filter/filter_screen.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using FilterDialogTest = FilterScreen;

// ---- Clear ----

TEST_F(FilterDialogTest, ClearUnchecksEverythingAndTellsTheOwner) {
    ResetOnClear();
    filter_.byRange = FALSE;
    filter_.categoriesOnly = TRUE;
    filter_.months = 0x0FFF;
    Choose(L"Business");
    Choose(L"Holiday");
    Open([&] {
        Command(115);
        EXPECT_THAT(commands_, ElementsAre(115));
        EXPECT_TRUE(IsChecked(kByRange));
        EXPECT_FALSE(IsChecked(kByMonth));
        EXPECT_FALSE(IsChecked(kCategoriesOnly));
        EXPECT_THAT(CheckedRows(kMonths), IsEmpty());
        EXPECT_THAT(CheckedRows(kCategories), IsEmpty());
        EXPECT_TRUE(IsEnabled(kByRange));
        EXPECT_TRUE(IsEnabled(kStart));
        EXPECT_FALSE(IsEnabled(kMonths));
    });
    EXPECT_FALSE(filter_.active);
    EXPECT_TRUE(filter_.byRange);
    EXPECT_FALSE(filter_.categoriesOnly);
    EXPECT_EQ(filter_.months, 0u);
    EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(FilterDialogTest, ClearShowsTheStoredRangeOfBefore) {
    ResetOnClear();
    SetRange();
    Open([&] {
        const SYSTEMTIME other = At(2003, 1, 1).ToSystemTime();  // shown, but not told
        SendMessageW(Item(kStart), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&other));
        Command(115);
        EXPECT_EQ(Picked(kStart), At(2001, 5, 7, 13, 30));
        EXPECT_EQ(Picked(kEnd), At(2001, 5, 9, 8, 15));
    });
}

TEST_F(FilterDialogTest, EverythingIsDoneBeforeClearTellsTheOwner) {
    filter_.categoriesOnly = TRUE;
    filter_.months = 0x0FFF;
    Choose(L"Business");
    onCommand_ = [&](WORD id) {
        ASSERT_EQ(id, 115);
        EXPECT_TRUE(filter_.active);
        EXPECT_TRUE(filter_.byRange);
        EXPECT_FALSE(filter_.categoriesOnly);
        EXPECT_EQ(filter_.months, 0u);
        EXPECT_THAT(Names(), IsEmpty());
    };
    Open([&] { Command(115); });
    EXPECT_EQ(commands_.size(), 1u);
}

TEST_F(FilterDialogTest, AnEditAfterClearTurnsTheFilterOnAgain) {
    ResetOnClear();
    Open([&] {
        Command(115);
        EXPECT_FALSE(filter_.active);
        Check(kMonths, 0, true);
        EXPECT_TRUE(filter_.active);
        EXPECT_EQ(filter_.months, 1u);
    });
}

// ---- The end ----

TEST_F(FilterDialogTest, OkWithoutAnEditLeavesTheFilterOnAndSends136) {
    onCommand_ = [&](WORD) { EXPECT_TRUE(IsWindowVisible(Screen())); };
    EXPECT_EQ(Open([&] { Command(IDOK); }), IDOK);
    EXPECT_TRUE(filter_.active);
    EXPECT_THAT(commands_, ElementsAre(136));
}

TEST_F(FilterDialogTest, OkAfterClearSends136Too) {
    ResetOnClear();
    Open([&] {
        Command(115);
        Command(IDOK);
    });
    EXPECT_THAT(commands_, ElementsAre(115, 136));
    EXPECT_FALSE(filter_.active);
}

TEST_F(FilterDialogTest, CancelKeepsTheEditsAndSendsNothing) {
    EXPECT_EQ(Open([&] {
                  Check(kMonths, 2, true);
                  Command(IDCANCEL);
              }),
              IDCANCEL);
    EXPECT_THAT(commands_, IsEmpty());
    EXPECT_EQ(filter_.months, 0x0004u);
    EXPECT_TRUE(filter_.active);
}

TEST_F(FilterDialogTest, TheCloseBoxCancels) {
    EXPECT_EQ(Open([&] { SendMessageW(Screen(), WM_CLOSE, 0, 0); }), IDCANCEL);
    EXPECT_THAT(commands_, IsEmpty());
}

class EndKeyTest : public FilterDialogTest, public testing::WithParamInterface<std::pair<WPARAM, int>> {};

TEST_P(EndKeyTest, EndsTheDialog) {
    EXPECT_EQ(Open([&] {
                  PostMessageW(GetFocus(), WM_KEYDOWN, GetParam().first, 1);
                  MSG message;
                  for (int i = 0; i < 1000 && IsWindow(Screen()) && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
                       ++i) {
                      if (!IsDialogMessageW(Screen(), &message)) DispatchMessageW(&message);
                  }
              }),
              GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Keys, EndKeyTest,
                         testing::Values(std::pair<WPARAM, int>{VK_RETURN, IDOK},
                                         std::pair<WPARAM, int>{VK_ESCAPE, IDCANCEL}));

// ---- How many pass ----

TEST_F(FilterDialogTest, SaysHowManyEntriesPassOfHowMany) {
    filter_.byRange = FALSE;
    filter_.months = 0x0010;
    const CEOID business = Category(L"Business");
    for (WORD month = 1; month <= 12; ++month)
        AddEntry(At(2001, month, 3), month % 3 == 0 ? std::vector{business} : std::vector<CEOID>{});
    ResetOnClear();
    Open([&] {
        EXPECT_EQ(Status(), L"Months decide: 1 of 12 entries pass");
        Check(kMonths, 0, true);
        EXPECT_EQ(Status(), L"Months decide: 2 of 12 entries pass");
        Check(kCategories, RowOf(kCategories, L"Business"), true);
        EXPECT_EQ(Status(), L"Categories decide: 4 of 12 entries pass");
        Command(115);
        EXPECT_EQ(Status(), L"12 of 12 entries pass");
        Click(kByMonth);
        EXPECT_EQ(Status(), L"Months decide: none is chosen, nothing passes");
    });
}

TEST_F(FilterDialogTest, AnEmptyStoreHasNothingThatPasses) {
    SetRange();
    Open([&] { EXPECT_EQ(Status(), L"Dates decide: 0 of 0 entries pass"); });
}

TEST_F(FilterDialogTest, SaysWhyNothingCanPass) {
    AddEntry(At(2001, 5, 8));
    SetRange();
    Open([&] {
        EXPECT_EQ(Status(), L"Dates decide: 1 of 1 entries pass");
        Pick(kEnd, At(2001, 5, 6));
        EXPECT_EQ(Status(), L"Dates decide: end before start, nothing passes");
        Click(kCategoriesOnly);
        EXPECT_EQ(Status(), L"Categories decide: none is chosen, nothing passes");
    });
}

TEST_F(FilterDialogTest, NamesACategoryThatIsGoneAndStillDecides) {
    AddEntry(At(2001, 5, 8), {Category(L"Holiday")});
    Choose(L"Holiday");
    Choose(L"Chess");
    DeleteCategory(L"Chess");
    Open([&] { EXPECT_EQ(Status(), L"Categories decide: 1 of 1 entries pass, \"Chess\" is gone"); });
}

// ---- What is shown counts ----

TEST_F(FilterDialogTest, AnEndThatWasNeverSetIsTheDayItShows) {
    Open([&] {
        Click(kByRange);
        EXPECT_NE(filter_.rangeEnd.Ticks(), 0u);
        EXPECT_EQ(Picked(kEnd).ToSystemTime().wDay, filter_.rangeEnd.ToSystemTime().wDay);
    });
}

TEST_F(FilterDialogTest, TheDaysShownAfterClearCountAsSoonAsTheRangeIsChosen) {
    ResetOnClear();
    SetRange();
    AddEntry(At(2001, 5, 8));
    Open([&] {
        Command(115);
        ASSERT_EQ(filter_.rangeStart.Ticks(), 0u);
        Click(kByRange);
        EXPECT_EQ(filter_.rangeStart, At(2001, 5, 7, 13, 30));
        EXPECT_EQ(filter_.rangeEnd, At(2001, 5, 9, 8, 15));
        EXPECT_EQ(Status(), L"Dates decide: 1 of 1 entries pass");
    });
}

TEST_F(FilterDialogTest, ACategoryThatChangedItsLetterCaseIsChecked) {
    Choose(L"Chess");
    RenameCategory(L"Chess", L"CHESS");
    Open([&] {
        EXPECT_THAT(CheckedRows(kCategories), ElementsAre(L"CHESS"));
        Check(kCategories, RowOf(kCategories, L"CHESS"), false);
        EXPECT_THAT(Names(), IsEmpty());
    });
}

}  // namespace
