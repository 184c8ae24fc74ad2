#include "data/ts_list.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Counts how many of its kind live.
struct Counted {
    explicit Counted(int n) : number(n) { ++alive; }
    Counted(const Counted& other) : number(other.number) { ++alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --alive; }
    bool operator==(const Counted& other) const { return number == other.number; }

    int number;
    static inline int alive = 0;
};

std::vector<int> Walked(TSList<Counted>& list) {
    std::vector<int> numbers;
    for (Counted* item = list.First(); item; item = list.Next())
        numbers.push_back(item->number);
    return numbers;
}

TSList<Counted> Numbers(int count) {
    TSList<Counted> list;
    for (int i = 1; i <= count; ++i)
        list.Append(Counted(i));
    return list;
}

TEST(TSListTest, EmptyListHasNothingToWalk) {
    TSList<Counted> list;
    EXPECT_EQ(list.First(), nullptr);
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Current(), nullptr);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(TSListTest, AppendsAtTheTailAndWalksFromTheHead) {
    TSList<Counted> list = Numbers(3);
    EXPECT_THAT(Walked(list), ElementsAre(1, 2, 3));
    EXPECT_EQ(list.GetCount(), 3);
}

TEST(TSListTest, CursorStaysPastTheEndUntilFirst) {
    TSList<Counted> list = Numbers(1);
    ASSERT_NE(list.First(), nullptr);
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Next(), nullptr);
    ASSERT_NE(list.First(), nullptr);
    EXPECT_EQ(list.Current()->number, 1);
}

TEST(TSListTest, OwnsItsElements) {
    ASSERT_EQ(Counted::alive, 0);
    {
        TSList<Counted> list;
        Counted* taken = list.Append(std::make_unique<Counted>(7));
        EXPECT_EQ(taken->number, 7);
        EXPECT_EQ(Counted::alive, 1);
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(TSListTest, TakesNoNull) {
    TSList<Counted> list;
    EXPECT_EQ(list.Append(std::unique_ptr<Counted>()), nullptr);
    EXPECT_TRUE(list.IsEmpty());
}

TEST(TSListTest, CopyHoldsElementsOfItsOwn) {
    TSList<Counted> list = Numbers(2);
    TSList<Counted> copy = list;
    list.First()->number = 99;
    EXPECT_THAT(Walked(copy), ElementsAre(1, 2));
    EXPECT_THAT(Walked(list), ElementsAre(99, 2));
    copy = list;
    EXPECT_THAT(Walked(copy), ElementsAre(99, 2));
}

TEST(TSListTest, MovedListTakesItsElementsAlong) {
    TSList<Counted> list = Numbers(2);
    const Counted* first = list.First();
    TSList<Counted> moved = std::move(list);
    EXPECT_EQ(moved.First(), first);
    EXPECT_EQ(moved.GetCount(), 2);
}

TEST(TSListTest, RemovesAnywhereAndAppendsAfterwards) {
    struct Case {
        const char* what;
        int removed;
        std::vector<int> left;
    };
    for (const Case& c : {Case{"head", 1, {2, 3, 4}}, Case{"middle", 2, {1, 3, 4}}, Case{"tail", 3, {1, 2, 4}}}) {
        SCOPED_TRACE(c.what);
        TSList<Counted> list = Numbers(3);
        EXPECT_TRUE(list.Remove(list.Find(Counted(c.removed))));
        list.Append(Counted(4));
        EXPECT_EQ(Walked(list), c.left);
        EXPECT_EQ(list.GetCount(), 3);
    }
}

TEST(TSListTest, RemovingTheLastElementLeavesAUsableList) {
    TSList<Counted> list = Numbers(1);
    EXPECT_TRUE(list.Remove(list.First()));
    EXPECT_THAT(Walked(list), IsEmpty());
    list.Append(Counted(5));
    EXPECT_THAT(Walked(list), ElementsAre(5));
}

TEST(TSListTest, RemovingUnderTheCursorGoesOnWithTheNext) {
    TSList<Counted> list = Numbers(3);
    list.First();
    const Counted* second = list.Next();
    EXPECT_TRUE(list.Remove(second));
    ASSERT_NE(list.Next(), nullptr);
    EXPECT_EQ(list.Current()->number, 3);
}

TEST(TSListTest, RemovesOnlyItsOwnElements) {
    TSList<Counted> list = Numbers(2);
    const Counted stranger(1);
    EXPECT_FALSE(list.Remove(&stranger));
    EXPECT_FALSE(list.Remove(nullptr));
    EXPECT_EQ(list.GetCount(), 2);
}

TEST(TSListTest, FindsTheFirstEqualAndLeavesTheCursor) {
    TSList<Counted> list = Numbers(3);
    list.First();
    EXPECT_EQ(list.Find(Counted(3))->number, 3);
    EXPECT_EQ(list.Find(Counted(4)), nullptr);
    EXPECT_EQ(list.Current()->number, 1);
}

TEST(TSListTest, RemoveAllEmptiesTheListAndItsCursor) {
    TSList<Counted> list = Numbers(3);
    list.First();
    list.RemoveAll();
    EXPECT_EQ(list.Current(), nullptr);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(Counted::alive, 0);
}

TEST(TSListTest, LongListIsFreedWithoutDeepRecursion) {
    TSList<int> list;
    for (int i = 0; i < 1'000'000; ++i)
        list.Append(i);
    EXPECT_EQ(list.GetCount(), 1'000'000);
}

}  // namespace
