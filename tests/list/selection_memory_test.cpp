// What the selection memory keeps, in which order, and when it has a current entry.
#include "list/selection_memory.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SelectionMemoryTest, StartsEmpty) {
    SelectionMemory memory;
    EXPECT_THAT(memory.Ids(), IsEmpty());
    EXPECT_EQ(memory.Current(), 0u);
}

TEST(SelectionMemoryTest, KeepsTheOrderOfAdding) {
    SelectionMemory memory;
    for (CEOID id : {7u, 3u, 5u})
        EXPECT_TRUE(memory.Add(id));
    EXPECT_THAT(memory.Ids(), ElementsAre(7, 3, 5));
}

TEST(SelectionMemoryTest, RemembersNoIdTwice) {
    SelectionMemory memory;
    memory.Add(7);
    memory.Add(3);
    EXPECT_FALSE(memory.Add(7));
    EXPECT_THAT(memory.Ids(), ElementsAre(7, 3));
}

TEST(SelectionMemoryTest, DoesNotRememberAnEmptyRow) {
    SelectionMemory memory;
    EXPECT_FALSE(memory.Add(0));
    EXPECT_THAT(memory.Ids(), IsEmpty());
}

TEST(SelectionMemoryTest, RemovingTheCurrentEntryLeavesNone) {
    SelectionMemory memory;
    memory.Add(7);
    memory.Add(3);
    memory.SetCurrent(7);
    EXPECT_TRUE(memory.Remove(7));
    EXPECT_EQ(memory.Current(), 0u);
    EXPECT_THAT(memory.Ids(), ElementsAre(3));
    EXPECT_FALSE(memory.Contains(7));
}

TEST(SelectionMemoryTest, RemovingAnotherEntryKeepsTheCurrentOne) {
    SelectionMemory memory;
    memory.Add(7);
    memory.Add(3);
    memory.SetCurrent(7);
    EXPECT_TRUE(memory.Remove(3));
    EXPECT_FALSE(memory.Remove(99));
    EXPECT_EQ(memory.Current(), 7u);
}

TEST(SelectionMemoryTest, ACurrentEntryNeedNotBeSelected) {
    SelectionMemory memory;
    memory.SetCurrent(9);
    EXPECT_FALSE(memory.Contains(9));
    EXPECT_FALSE(memory.Remove(9));
    EXPECT_EQ(memory.Current(), 0u);
}

TEST(SelectionMemoryTest, ClearForgetsTheCurrentEntryToo) {
    SelectionMemory memory;
    memory.Add(7);
    memory.SetCurrent(7);
    memory.Clear();
    EXPECT_THAT(memory.Ids(), IsEmpty());
    EXPECT_EQ(memory.Current(), 0u);
    EXPECT_TRUE(memory.Add(7));
}

TEST(SelectionMemoryTest, SelectsOneEntryAlone) {
    SelectionMemory memory;
    memory.Add(7);
    memory.Add(8);
    memory.SetCurrent(7);
    memory.SelectOnly(9);
    EXPECT_THAT(memory.Ids(), testing::ElementsAre(9u));
    EXPECT_EQ(memory.Current(), 9u);
    memory.SelectOnly(0);
    EXPECT_THAT(memory.Ids(), IsEmpty());
    EXPECT_EQ(memory.Current(), 0u);
}

TEST(SelectionMemoryTest, TakesTheWholeStore) {
    SelectionMemory memory;
    constexpr CEOID kAll = 65'535;
    for (CEOID id = 1; id <= kAll; ++id)
        ASSERT_TRUE(memory.Add(id));
    EXPECT_EQ(memory.Ids().size(), kAll);
    EXPECT_FALSE(memory.Add(kAll));
    EXPECT_TRUE(memory.Remove(1));
    EXPECT_EQ(memory.Ids().front(), 2u);
}

}  // namespace
