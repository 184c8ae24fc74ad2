#include "tools/journal_tool/lifelike.h"

#include <gtest/gtest.h>

#include <set>

#include "data/value_tables.h"

namespace {

TEST(LifelikeTest, EntriesHaveTheirSizesAndSpread) {
    std::set<short> types, priorities, sensitivities;
    std::set<std::wstring> categories;
    std::set<WORD> years;
    for (int number = 0; number < 2000; ++number) {
        SCOPED_TRACE(number);
        const NewEntry entry = MakeLifelikeEntry(number);
        EXPECT_EQ(entry.subject.size(), 60u);
        EXPECT_EQ(entry.body.size(), 600u);
        types.insert(entry.type);
        priorities.insert(entry.priority);
        sensitivities.insert(entry.sensitivity);
        categories.insert(entry.categories.begin(), entry.categories.end());
        SYSTEMTIME time{};
        ASSERT_TRUE(FileTimeToSystemTime(&entry.start, &time));
        years.insert(time.wYear);
    }
    EXPECT_EQ(types.size(), EntryTypes().size());
    EXPECT_EQ(priorities.size(), Priorities().size());
    EXPECT_EQ(sensitivities.size(), Sensitivities().size());
    EXPECT_EQ(categories.size(), 12u);
    EXPECT_EQ(years.size(), 10u);
    EXPECT_EQ(*years.begin(), 2015);
}

TEST(LifelikeTest, SameNumberIsTheSameEntry) {
    const NewEntry one = MakeLifelikeEntry(77), again = MakeLifelikeEntry(77), other = MakeLifelikeEntry(78);
    EXPECT_EQ(one.subject, again.subject);
    EXPECT_EQ(one.body, again.body);
    EXPECT_NE(one.body, other.body);
    // Written down once, so that a change of the generator is noticed: figures of benchmarks hang on it.
    EXPECT_EQ(MakeLifelikeEntry(0).subject, L"Lunch with Maria Jensen about a second opinion before summer");
}

}  // namespace
