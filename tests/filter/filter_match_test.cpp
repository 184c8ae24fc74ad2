// Which entries pass.
#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "tests/filter/filter_fixture.h"

namespace {

using testing::ElementsAre;

class FilterMatchTest : public FilterTest {
protected:
    FilterMatchTest() { filter_.active = TRUE; }
    void UseRange(const DateTime& start, const DateTime& end) {
        filter_.byRange = TRUE;
        filter_.rangeStart = start;
        filter_.rangeEnd = end;
    }
};

TEST_F(FilterMatchTest, StartsOffAndLetsEverythingPass) {
    const FilterSettings fresh;
    EXPECT_TRUE(fresh.Match(At(2024, 5, 1).ToFileTime(), CEBLOB{}));
    EXPECT_EQ(fresh.byRange, FALSE);
}

// ---- Range ----

TEST_F(FilterMatchTest, TheRangeTakesItsFirstAndLastDayWhole) {
    // Whatever the time of day that the pickers left in both ends.
    UseRange(At(2024, 2, 28, 17, 30), At(2024, 3, 1, 0, 1));
    EXPECT_FALSE(Match(At(2024, 2, 27, 23, 59, 59, 999)));
    EXPECT_TRUE(Match(At(2024, 2, 28, 0, 0)));
    EXPECT_TRUE(Match(At(2024, 2, 28, 17, 29)));
    EXPECT_TRUE(Match(At(2024, 2, 29, 12, 0)));
    EXPECT_TRUE(Match(At(2024, 3, 1, 0, 0)));
    EXPECT_TRUE(Match(At(2024, 3, 1, 23, 59)));
    EXPECT_TRUE(Match(At(2024, 3, 1, 23, 59, 59, 999)));
    EXPECT_FALSE(Match(At(2024, 3, 2, 0, 0)));
    EXPECT_FALSE(Match(At(2023, 2, 29)));
}

TEST_F(FilterMatchTest, ARangeOfOneDayIsThatDay) {
    UseRange(At(2024, 12, 31, 23, 0), At(2024, 12, 31, 1, 0));
    EXPECT_FALSE(Match(At(2024, 12, 30, 23, 59)));
    EXPECT_TRUE(Match(At(2024, 12, 31, 0, 0)));
    EXPECT_TRUE(Match(At(2024, 12, 31, 23, 59)));
    EXPECT_FALSE(Match(At(2025, 1, 1, 0, 0)));
}

TEST_F(FilterMatchTest, AReversedRangePassesNothing) {
    UseRange(At(2024, 3, 2), At(2024, 3, 1));
    for (const WORD day : {1, 2, 3})
        EXPECT_FALSE(Match(At(2024, 3, day, 12)));
    EXPECT_FALSE(Match(At(2024, 2, 29)));
}

TEST_F(FilterMatchTest, ARangeNeverSetHoldsOnlyTheFirstDayOfAll) {
    UseRange(DateTime(), DateTime());
    EXPECT_TRUE(Match(DateTime()));  // an entry without a start
    EXPECT_FALSE(Match(At(2024, 3, 1)));
}

TEST_F(FilterMatchTest, DaysBefore1900AreDaysToo) {
    UseRange(At(1899, 12, 29), At(1899, 12, 29));
    EXPECT_FALSE(Match(At(1899, 12, 28, 23, 59)));
    EXPECT_TRUE(Match(At(1899, 12, 29, 0, 0)));
    EXPECT_TRUE(Match(At(1899, 12, 29, 23, 59)));
    EXPECT_FALSE(Match(At(1899, 12, 30, 0, 0)));
    EXPECT_FALSE(Match(At(1899, 12, 30, 18, 0)));
}

// The rule in the words of variant time, for any three times at all.
TEST_F(FilterMatchTest, DaysAreTheWholePartOfTheVariantTime) {
    std::mt19937_64 random(7);
    const auto tick = [&random](int kind) -> uint64_t {
        switch (kind % 4) {
            case 0: return random();                                         // anything, no dates too
            case 1: return random() % (3'100'000 * DateTime::kTicksPerDay);  // around the year 9999
            case 2: return At(1899, 12, 28).Ticks() + random() % (4 * DateTime::kTicksPerDay);  // around day 0
            default: return At(2024, 2, 27).Ticks() + random() % (4 * DateTime::kTicksPerDay);
        }
    };
    const auto time = [](uint64_t ticks) {
        return DateTime(static_cast<uint32_t>(ticks), static_cast<uint32_t>(ticks >> 32));
    };
    for (int i = 0; i < 40'000; ++i) {
        const DateTime x = time(tick(i)), s = time(tick(i + i / 4 % 2)), e = time(tick(i + i / 8 % 2));
        UseRange(s, e);
        const double day = std::trunc(x.ToVariantTime());
        const bool expected = day >= std::trunc(s.ToVariantTime()) && !(day > std::trunc(e.ToVariantTime()));
        ASSERT_EQ(Match(x), expected) << x.Ticks() << " in " << s.Ticks() << " to " << e.Ticks();
    }
}

// ---- Months ----

TEST_F(FilterMatchTest, EachMonthHasItsBitInAnyYear) {
    for (WORD month = 1; month <= 12; ++month) {
        for (WORD wanted = 1; wanted <= 12; ++wanted) {
            filter_.months = 1u << (wanted - 1);
            EXPECT_EQ(Match(At(2024, month, 1, 0, 0)), month == wanted);
            EXPECT_EQ(Match(At(1987, month, 28, 23, 59)), month == wanted);
            filter_.months = 0x0FFF & ~filter_.months;
            EXPECT_EQ(Match(At(2024, month, 15)), month != wanted);
        }
    }
}

TEST_F(FilterMatchTest, TheLastMomentOfAMonthIsStillItsOwn) {
    filter_.months = 0x0002;  // February
    EXPECT_FALSE(Match(At(2024, 1, 31, 23, 59, 59, 999)));
    EXPECT_TRUE(Match(At(2024, 2, 1)));
    EXPECT_TRUE(Match(At(2024, 2, 29, 23, 59, 59, 999)));
    EXPECT_FALSE(Match(At(2024, 3, 1)));
}

TEST_F(FilterMatchTest, NoMonthPassesNothing) {
    for (WORD month = 1; month <= 12; ++month)
        EXPECT_FALSE(Match(At(2024, month, 15)));
}

TEST_F(FilterMatchTest, ATimeThatIsNoDateIsInNoMonth) {
    filter_.months = 0x0FFF;
    EXPECT_FALSE(Match(DateTime(0, 0x80000000)));
    EXPECT_FALSE(Match(DateTime(0xFFFFFFFF, 0xFFFFFFFF)));
}

// ---- Categories ----

TEST_F(FilterMatchTest, AnyCommonCategoryPasses) {
    const CEOID chess = Category(L"Chess"), go = Category(L"Go"), hex = Category(L"Hex");
    Choose(L"Chess");
    Choose(L"Hex");
    const DateTime start = At(2024, 1, 1);
    EXPECT_TRUE(Match(start, {{chess}}));
    EXPECT_TRUE(Match(start, {{go, hex}}));
    EXPECT_TRUE(Match(start, {{go, go, 0, chess}}));
    EXPECT_FALSE(Match(start, {{go}}));
    EXPECT_FALSE(Match(start, {{}}));
    EXPECT_FALSE(Match(start, {{0}}));
    EXPECT_FALSE(Match(start, {{0x7FFFFFFF}}));
}

TEST_F(FilterMatchTest, CategoriesOnlyWithoutACategoryPassesNothing) {
    const CEOID chess = Category(L"Chess");
    filter_.categoriesOnly = TRUE;
    filter_.months = 0x0FFF;
    EXPECT_FALSE(Match(At(2024, 1, 1), {{chess}}));
    EXPECT_FALSE(Match(At(2024, 1, 1)));
    UseRange(At(2000, 1, 1), At(2030, 1, 1));
    EXPECT_FALSE(Match(At(2024, 1, 1), {{chess}}));
}

TEST_F(FilterMatchTest, ACategoryDecidesAloneAlsoWithoutCategoriesOnly) {
    const CEOID chess = Category(L"Chess");
    Choose(L"Chess");
    EXPECT_TRUE(Match(At(2024, 1, 1), {{chess}}));  // though no month is wanted
    UseRange(At(2000, 1, 1), At(2001, 1, 1));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{chess}}));  // though it is out of the range
    EXPECT_FALSE(Match(At(2000, 6, 1)));            // though it is in the range
}

TEST_F(FilterMatchTest, ACategoryTakenBackDecidesNothingAnyMore) {
    const CEOID chess = Category(L"Chess"), go = Category(L"Go");
    Choose(L"Chess");
    Choose(L"Go");
    EXPECT_TRUE(filter_.HasCategory(DbCItem(kPropCategoryName, L"Go")));
    EXPECT_TRUE(filter_.RemoveCategory(DbCItem(kPropCategoryName, L"Go")));
    EXPECT_FALSE(filter_.HasCategory(DbCItem(kPropCategoryName, L"Go")));
    EXPECT_FALSE(filter_.RemoveCategory(DbCItem(kPropCategoryName, L"Go")));
    EXPECT_FALSE(Match(At(2024, 1, 1), {{go}}));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{chess}}));
    EXPECT_TRUE(filter_.RemoveCategory(DbCItem(kPropCategoryName, L"Chess")));
    filter_.months = 1;
    EXPECT_TRUE(Match(At(2024, 1, 1)));  // the months count again
}

TEST_F(FilterMatchTest, BytesCutAtEveryLengthAreReadAsFarAsTheyAreSound) {
    const CEOID chess = Category(L"Chess");
    Choose(L"Chess");
    const CEOID ids[] = {0x01020304, chess, 0x0A0B0C0D};
    for (size_t size = 0; size <= sizeof ids; ++size) {
        std::vector<BYTE> bytes(reinterpret_cast<const BYTE*>(ids), reinterpret_cast<const BYTE*>(ids) + size);
        const CEBLOB blob = {static_cast<DWORD>(size), bytes.data()};
        EXPECT_EQ(filter_.Match(At(2024, 1, 1).ToFileTime(), blob), size >= 8) << size;
    }
    EXPECT_FALSE(filter_.Match(At(2024, 1, 1).ToFileTime(), CEBLOB{8, nullptr}));
    // Ids that begin anywhere in memory.
    std::vector<BYTE> odd(1 + sizeof ids);
    std::copy_n(reinterpret_cast<const BYTE*>(ids), sizeof ids, odd.data() + 1);
    EXPECT_TRUE(filter_.Match(At(2024, 1, 1).ToFileTime(), CEBLOB{sizeof ids, odd.data() + 1}));
}

TEST_F(FilterMatchTest, RenamedDeletedAndNewCategoriesCountFromTheNextRebuild) {
    const CEOID chess = Category(L"Chess"), go = Category(L"Go");
    Choose(L"Chess");
    RenameCategory(L"Chess", L"Draughts");
    filter_.RefreshCategories();
    EXPECT_FALSE(Match(At(2024, 1, 1), {{chess}}));  // no category has the name
    RenameCategory(L"Go", L"Chess");
    filter_.RefreshCategories();
    EXPECT_TRUE(Match(At(2024, 1, 1), {{go}}));
    DeleteCategory(L"Chess");
    filter_.RefreshCategories();
    EXPECT_FALSE(Match(At(2024, 1, 1), {{go}}));
    const CEOID again = Category(L"Chess");
    filter_.RefreshCategories();
    EXPECT_TRUE(Match(At(2024, 1, 1), {{again}}));
    EXPECT_THAT(Names(), ElementsAre(L"Chess"));
}

TEST_F(FilterMatchTest, ARebuildWithoutTheCategoriesSaysNothingAndChangesNothing) {
    const CEOID chess = Category(L"Chess");
    Choose(L"Chess");
    DeleteCategoriesDatabase();
    filter_.RefreshCategories();
    EXPECT_TRUE(Match(At(2024, 1, 1), {{chess}}));
    EXPECT_TRUE(boxes_.Seen().empty());
}

TEST_F(FilterMatchTest, FiveThousandCategoriesMayBeChosen) {
    for (int i = 1; i <= 5000; ++i)
        filter_.AddCategory(DbCItem(kPropCategoryName, (L"c" + std::to_wstring(i)).c_str(), static_cast<CEOID>(i * 2)));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{2}}));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{1, 10'000}}));
    EXPECT_FALSE(Match(At(2024, 1, 1), {{1, 10'002}}));
}

// ---- All of it ----

// The rule with categories as items of names, in the order in which it is told.
bool Passes(const FilterSettings& filter, const DateTime& start, TSList<DbCItem>& entry) {
    if (!filter.active) return true;
    if (!filter.categoriesOnly && filter.Categories().IsEmpty()) {
        if (!filter.byRange) return (filter.months >> (start.Month() - 1) & 1) != 0;
        const double x = std::floor(start.ToVariantTime());
        return x >= std::floor(filter.rangeStart.ToVariantTime()) && !(x > std::floor(filter.rangeEnd.ToVariantTime()));
    }
    for (const DbCItem& item : entry)
        if (filter.Categories().Find(item)) return true;
    return false;
}

TEST_F(FilterMatchTest, EveryCombinationDecidesAsTold) {
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    ASSERT_TRUE(database.Add(L"Chess") && database.Add(L"Go") && database.Add(L"Gone"));
    const CEOID chess = database.FindByName(L"Chess"), go = database.FindByName(L"Go"),
                gone = database.FindByName(L"Gone");
    ASSERT_TRUE(database.DeleteRecord(gone));

    const std::vector<std::vector<const wchar_t*>> lists = {{}, {L"Chess"}, {L"Gone"}, {L"Go", L"Chess"}};
    const std::vector<std::vector<CEOID>> entries = {{}, {chess}, {go}, {gone}, {gone, go, chess}};
    const std::pair<DateTime, DateTime> ranges[] = {{DateTime(), DateTime()},
                                                    {At(2024, 3, 1), At(2024, 3, 31, 8)},
                                                    {At(2024, 3, 31), At(2024, 3, 1)},
                                                    {At(2024, 3, 31, 23, 59), At(2024, 3, 31)}};
    const DateTime starts[] = {DateTime(),         At(2024, 2, 29, 23, 59), At(2024, 3, 1),
                               At(2024, 3, 31, 8), At(2024, 3, 31, 23, 59), At(2024, 4, 1)};
    int passed = 0, cases = 0;
    for (const auto& list : lists) {
        FilterSettings filter;
        for (const wchar_t* name : list)
            filter.AddCategory(DbCItem(kPropCategoryName, name));
        filter.active = TRUE;
        filter.RefreshCategories();
        for (const auto& ids : entries) {
            const Packed packed(ids);
            TSList<DbCItem> items;
            database.ReadBlob(packed, &items);
            for (int bits = 0; bits < 8; ++bits) {
                filter.active = bits & 1;
                filter.categoriesOnly = bits >> 1 & 1;
                filter.byRange = bits >> 2;
                for (const auto& [begin, end] : ranges) {
                    filter.rangeStart = begin;
                    filter.rangeEnd = end;
                    for (const DWORD months : {0x0000u, 0x0004u, 0x0FFBu, 0x0FFFu}) {
                        filter.months = months;
                        for (const DateTime& start : starts) {
                            const bool expected = Passes(filter, start, items);
                            ASSERT_EQ(filter.Match(start.ToFileTime(), packed), expected)
                                << "list of " << list.size() << ", bits " << bits << ", months " << months
                                << ", entry of " << ids.size() << " at " << start.Ticks();
                            ++cases;
                            passed += expected;
                        }
                    }
                }
            }
        }
    }
    EXPECT_EQ(cases, 4 * 5 * 8 * 4 * 4 * 6);
    EXPECT_GT(passed, cases / 4);
    EXPECT_LT(passed, cases);
}

}  // namespace
