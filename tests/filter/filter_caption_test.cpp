// The name of the filter on the "Show" button, and the filter by one category.
#include "filter/filter_caption.h"

#include <gmock/gmock.h>

#include "tests/filter/filter_fixture.h"
#include "tests/support/private_registry.h"
#include "ui/application.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring MonthOfSystem(WORD month) {
    const SYSTEMTIME time = {2001, month, 0, 1, 0, 0, 0, 0};
    wchar_t name[100] = L"";
    GetDateFormatW(LOCALE_SYSTEM_DEFAULT, 0, &time, L"MMMM", name, 100);
    return name;
}

struct CaptionCase {
    BOOL active;
    BOOL categoriesOnly;
    int categories;
    BOOL byRange;
    DWORD months;
    const wchar_t* caption;  // null: the name of the lowest month chosen
};

void PrintTo(const CaptionCase& row, std::ostream* out) {
    *out << "active " << row.active << ", categories only " << row.categoriesOnly << ", " << row.categories
         << " categories, by range " << row.byRange << ", months " << row.months;
}

class CaptionTest : public testing::TestWithParam<CaptionCase> {};

TEST_P(CaptionTest, NamesTheFilter) {
    constexpr const wchar_t* kNames[] = {L"Business", L"R&D", L"Holiday"};
    const CaptionCase& row = GetParam();
    FilterSettings filter;
    filter.active = row.active;
    filter.categoriesOnly = row.categoriesOnly;
    filter.byRange = row.byRange;
    filter.months = row.months;
    for (int i = 0; i < row.categories; ++i)
        filter.AddCategory(DbCItem(kPropCategoryName, kNames[i]));
    const std::wstring expected = row.caption ? row.caption : MonthOfSystem(8);
    EXPECT_EQ(FilterCaption(filter), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CaptionTest,
    testing::Values(CaptionCase{0, 0, 0, 0, 0, L"All"},      //
                    CaptionCase{0, 1, 1, 1, 0x80, L"All"},   //
                    CaptionCase{0, 1, 3, 0, 0xFFF, L"All"},  //
                    CaptionCase{0, 0, 0, 1, 7, L"All"},      //
                    CaptionCase{1, 1, 1, 0, 0, L"Business"}, CaptionCase{1, 1, 1, 1, 0x80, L"Business"},
                    CaptionCase{1, 1, 2, 0, 0, L"Multiple..."}, CaptionCase{1, 1, 3, 1, 0x80, L"Multiple..."},
                    CaptionCase{1, 0, 0, 0, 0x80, nullptr}, CaptionCase{1, 0, 2, 0, 0x80, nullptr},
                    CaptionCase{1, 0, 0, 0, 0x81, L"Months..."}, CaptionCase{1, 0, 1, 0, 0x83, L"Months..."},
                    CaptionCase{1, 0, 0, 0, 0xFFF, L"Months..."}, CaptionCase{1, 0, 0, 1, 0x80, L"Range..."},
                    CaptionCase{1, 0, 2, 1, 0, L"Range..."}, CaptionCase{1, 1, 0, 1, 0x80, L"Range..."},
                    CaptionCase{1, 1, 0, 0, 0x80, L"No Category"}, CaptionCase{1, 0, 0, 0, 0, L"No Month"}));

TEST(MonthNameTest, NamesEveryMonthOfTheYearAndNoOther) {
    for (WORD month = 1; month <= 12; ++month)
        EXPECT_EQ(MonthName(month, LOCALE_SYSTEM_DEFAULT), MonthOfSystem(month));
    EXPECT_EQ(MonthName(0, LOCALE_SYSTEM_DEFAULT), L"");
    EXPECT_EQ(MonthName(13, LOCALE_SYSTEM_DEFAULT), L"");
}

class OneCategoryTest : public FilterTest {
protected:
    PrivateRegistry registry_;
    Application application_{L"Software\\Talvern\\Journal"};
};

TEST_F(OneCategoryTest, ReplacesTheWholeFilter) {
    filter_.byRange = TRUE;
    filter_.rangeStart = filter_.rangeEnd = At(2001, 5, 7);
    filter_.months = 7;
    Choose(L"Business");
    ASSERT_TRUE(FilterByCategory(filter_, Category(L"Holiday")));
    EXPECT_TRUE(filter_.active);
    EXPECT_TRUE(filter_.categoriesOnly);
    EXPECT_FALSE(filter_.byRange);
    EXPECT_EQ(filter_.months, 0u);
    EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
    EXPECT_EQ(filter_.rangeEnd.Ticks(), 0u);
    EXPECT_THAT(Names(), ElementsAre(L"Holiday"));
    EXPECT_EQ(FilterCaption(filter_), L"Holiday");
    EXPECT_TRUE(Match(At(2001, 1, 1), {{Category(L"Holiday")}}));
    EXPECT_FALSE(Match(At(2001, 5, 7), {{Category(L"Business")}}));
}

TEST_F(OneCategoryTest, StoresTheFilterAsClearedAndNoMore) {
    Choose(L"Business");
    ASSERT_TRUE(FilterByCategory(filter_, Category(L"Holiday")));
    EXPECT_EQ(application_.ReadInt(L"Options", L"fActive", -1), 0);
    EXPECT_EQ(application_.ReadInt(L"Options", L"fCnt", -1), 0);
    EXPECT_EQ(application_.ReadInt(L"Options", L"fRange", -1), 1);
}

TEST_F(OneCategoryTest, ACategoryThatIsGoneLeavesTheFilter) {
    const CEOID gone = Category(L"Holiday");
    DeleteCategory(L"Holiday");
    Choose(L"Business");
    EXPECT_FALSE(FilterByCategory(filter_, gone));
    EXPECT_FALSE(FilterByCategory(filter_, 0));
    EXPECT_THAT(Names(), ElementsAre(L"Business"));
}

}  // namespace
