// The two blocks of the row cache: which hint fills which block, and what is read from the store for it.
#include "list/row_cache.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Entries 1000, 1001, ... at positions 0, 1, ...; writes down every read as its position.
class FakeSource : public RowSource {
public:
    explicit FakeSource(LONG entries) {
        for (LONG i = 0; i < entries; ++i)
            ids.push_back(1000 + static_cast<CEOID>(i));
    }

    bool SeekPosition(LONG position) override {
        ++seeks;
        current = position;
        return IsCurrent();
    }
    bool SeekEntry(CEOID id) override {
        for (current = 0; IsCurrent(); ++current) {
            if (ids[static_cast<size_t>(current)] == id) return true;
        }
        return false;
    }
    bool ReadRow(ListRow& row) override {
        reads.push_back(current);
        row.Clear();
        const CEOID id = ids[static_cast<size_t>(current)];
        if (id == refused) return false;
        row.id = id;
        row.subject = L"subject " + std::to_wstring(id) + suffix;
        return true;
    }
    LONG ReadRows(LONG position, std::span<ListRow> rows) override {
        size_t kept = 0;
        for (SeekPosition(position); IsCurrent() && kept < rows.size(); ++current)
            if (ReadRow(rows[kept])) ++kept;
        return static_cast<LONG>(kept);
    }
    bool IsCurrent() const { return current >= 0 && current < static_cast<LONG>(ids.size()); }

    std::vector<CEOID> ids;
    std::wstring suffix;
    CEOID refused = 0;
    LONG current = -1;
    int seeks = 0;
    std::vector<LONG> reads;
};

class RowCacheTest : public testing::Test {
protected:
    // How many rows were read from the source while `work` ran.
    template <typename Work>
    size_t ReadsOf(Work work) {
        const size_t before = source_.reads.size();
        work();
        return source_.reads.size() - before;
    }
    // Whether the row is had without asking the source.
    bool IsCached(LONG index) {
        const int before = source_.seeks;
        cache_.Fetch(index);
        return source_.seeks == before;
    }

    static constexpr LONG kEntries = 100;
    FakeSource source_{kEntries};
    RowCache cache_{source_};
};

TEST_F(RowCacheTest, ReadsASingleRowWhenNothingIsCached) {
    EXPECT_EQ(cache_.Fetch(42).id, 1042u);
    EXPECT_EQ(cache_.Fetch(42).subject, L"subject 1042");
    EXPECT_THAT(source_.reads, ElementsAre(42, 42));
}

TEST_F(RowCacheTest, AnswersAnEmptyRowForAPositionThatIsNotThere) {
    for (LONG index : {-1L, kEntries, kEntries + 7}) {
        EXPECT_EQ(cache_.Fetch(index).id, 0u) << index;
        EXPECT_TRUE(cache_.Fetch(index).subject.empty()) << index;
    }
    EXPECT_THAT(source_.reads, IsEmpty());
}

TEST_F(RowCacheTest, LeavesARefusedEntryEmpty) {
    source_.refused = 1005;
    EXPECT_EQ(cache_.Fetch(4).id, 1004u);
    EXPECT_EQ(cache_.Fetch(5).id, 0u);
    EXPECT_TRUE(cache_.Fetch(5).subject.empty());
}

TEST_F(RowCacheTest, FillsABlockWithOneSeekAndOneReadARow) {
    cache_.Hint(10, 24, kEntries);
    EXPECT_EQ(source_.seeks, 1);
    EXPECT_EQ(source_.reads.size(), 15u);
    for (LONG i = 10; i <= 24; ++i)
        EXPECT_EQ(cache_.Fetch(i).id, 1000u + static_cast<CEOID>(i));
    EXPECT_EQ(source_.reads.size(), 15u);
}

TEST_F(RowCacheTest, NeverReadsMoreThanABlock) {
    cache_.Hint(0, 59, kEntries);
    EXPECT_EQ(source_.reads.size(), 30u);
    EXPECT_TRUE(IsCached(29));
    EXPECT_FALSE(IsCached(30));
    EXPECT_EQ(cache_.Fetch(45).id, 1045u);
}

// Which block a hint goes to shows in what the next hint for the near block leaves standing.
struct EndCase {
    const char* name;
    LONG from;
    LONG to;
    bool toEndBlock;
};

class RowCacheEndTest : public RowCacheTest, public testing::WithParamInterface<EndCase> {};

TEST_P(RowCacheEndTest, ChoosesTheBlockByLastRowAndSpan) {
    cache_.Hint(GetParam().from, GetParam().to, kEntries);
    cache_.Hint(0, 5, kEntries);  // takes the near block over
    EXPECT_EQ(IsCached(GetParam().from), GetParam().toEndBlock);
    EXPECT_EQ(IsCached(GetParam().to), GetParam().toEndBlock);
    EXPECT_TRUE(IsCached(0));
}

INSTANTIATE_TEST_SUITE_P(Hints, RowCacheEndTest,
                         testing::Values(EndCase{"OneRowAtTheEnd", 99, 99, true},
                                         EndCase{"Spans29AtTheEnd", 71, 99, true},
                                         EndCase{"Spans30AtTheEnd", 70, 99, false},
                                         EndCase{"EndsOneRowBeforeTheLast", 71, 98, false},
                                         EndCase{"EndsBehindTheLast", 72, 100, false}),
                         [](const auto& param) { return std::string(param.param.name); });

TEST_F(RowCacheTest, KeepsTheEndBlockWhileTheFirstRowLiesInIt) {
    cache_.Hint(80, 99, kEntries);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(85, 99, kEntries); }), 0u);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(79, 99, kEntries); }), 21u);
}

TEST_F(RowCacheTest, KeepsTheNearBlockForOneRowBehindIt) {
    cache_.Hint(10, 20, kEntries);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(12, 18, kEntries); }), 0u);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(10, 21, kEntries); }), 0u);
    EXPECT_FALSE(IsCached(21));
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(10, 22, kEntries); }), 13u);
    EXPECT_TRUE(IsCached(22));
}

TEST_F(RowCacheTest, RefillsTheNearBlockWhenTheFirstRowLiesOutsideIt) {
    cache_.Hint(10, 20, kEntries);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(9, 15, kEntries); }), 7u);
    EXPECT_EQ(ReadsOf([&] { cache_.Hint(16, 16, kEntries); }), 1u);
}

TEST_F(RowCacheTest, KeepsBothBlocksWhenJumpingBetweenStartAndEnd) {
    cache_.Hint(0, 14, kEntries);
    cache_.Hint(85, 99, kEntries);
    EXPECT_EQ(ReadsOf([&] {
                  cache_.Hint(0, 14, kEntries);
                  cache_.Hint(85, 99, kEntries);
              }),
              0u);
}

TEST_F(RowCacheTest, SkipsRefusedEntriesWhenFilling) {
    source_.refused = 1011;
    cache_.Hint(10, 12, kEntries);
    EXPECT_EQ(cache_.Fetch(10).id, 1010u);
    EXPECT_EQ(cache_.Fetch(11).id, 1012u);
    EXPECT_EQ(cache_.Fetch(12).id, 1013u);
}

TEST_F(RowCacheTest, StopsFillingBehindTheLastEntry) {
    cache_.Hint(95, 120, kEntries);
    EXPECT_EQ(source_.reads.size(), 5u);
    EXPECT_EQ(cache_.Fetch(99).id, 1099u);
}

TEST_F(RowCacheTest, IgnoresAHintWithoutRows) {
    cache_.Hint(0, -1, 0);
    cache_.Hint(-1, -1, 0);
    cache_.Hint(5, 4, kEntries);
    EXPECT_EQ(source_.seeks, 0);
}

TEST_F(RowCacheTest, HintOnAnEmptyStoreCachesNothing) {
    FakeSource none(0);
    RowCache cache(none);
    cache.Hint(0, 0, 0);
    EXPECT_EQ(cache.Fetch(0).id, 0u);
    EXPECT_THAT(none.reads, IsEmpty());
}

TEST_F(RowCacheTest, ClearDropsBothBlocks) {
    cache_.Hint(0, 9, kEntries);
    cache_.Hint(90, 99, kEntries);
    cache_.Clear();
    EXPECT_FALSE(IsCached(0));
    EXPECT_FALSE(IsCached(99));
}

TEST_F(RowCacheTest, RemovedRowsMoveTheirBlockUp) {
    cache_.Hint(10, 19, kEntries);
    source_.reads.clear();
    cache_.Remove(12);
    EXPECT_EQ(cache_.Fetch(11).id, 1011u);
    EXPECT_EQ(cache_.Fetch(12).id, 1013u);
    EXPECT_EQ(cache_.Fetch(12).subject, L"subject 1013");
    EXPECT_EQ(cache_.Fetch(18).id, 1019u);
    EXPECT_THAT(source_.reads, IsEmpty());
    EXPECT_FALSE(IsCached(19));
}

TEST_F(RowCacheTest, RemovesTheLastRowOfABlock) {
    cache_.Hint(10, 10, kEntries);
    cache_.Remove(10);
    EXPECT_FALSE(IsCached(10));
}

TEST_F(RowCacheTest, RemovesFromTheNearBlockBeforeTheEndBlock) {
    cache_.Hint(85, 99, kEntries);  // end block
    cache_.Hint(80, 90, kEntries);  // near block, overlapping
    cache_.Remove(86);
    EXPECT_EQ(cache_.Fetch(86).id, 1087u);  // moved up in the near block
    EXPECT_EQ(cache_.Fetch(91).id, 1091u);  // the end block stands
    cache_.Remove(95);
    EXPECT_EQ(cache_.Fetch(95).id, 1096u);
}

TEST_F(RowCacheTest, RemovingAnUncachedRowChangesNothing) {
    cache_.Hint(10, 19, kEntries);
    cache_.Remove(9);
    cache_.Remove(20);
    EXPECT_TRUE(IsCached(10));
    EXPECT_TRUE(IsCached(19));
}

TEST_F(RowCacheTest, RefreshReadsACachedEntryAnewInPlace) {
    cache_.Hint(10, 19, kEntries);
    source_.suffix = L" changed";
    EXPECT_EQ(ReadsOf([&] { cache_.Refresh(1013); }), 1u);
    EXPECT_EQ(cache_.Fetch(13).subject, L"subject 1013 changed");
    EXPECT_EQ(cache_.Fetch(12).subject, L"subject 1012");
}

TEST_F(RowCacheTest, RefreshReadsAnEntryAnewInBothBlocks) {
    cache_.Hint(85, 99, kEntries);
    cache_.Hint(80, 90, kEntries);
    source_.suffix = L" changed";
    EXPECT_EQ(ReadsOf([&] { cache_.Refresh(1088); }), 2u);
}

TEST_F(RowCacheTest, RefreshEmptiesTheRowOfAnEntryThatIsGone) {
    cache_.Hint(10, 19, kEntries);
    source_.ids.erase(source_.ids.begin() + 13);
    cache_.Refresh(1013);
    EXPECT_EQ(cache_.Fetch(13).id, 0u);
    EXPECT_TRUE(cache_.Fetch(13).subject.empty());
}

TEST_F(RowCacheTest, RefreshOfAnUncachedEntryDropsEverything) {
    cache_.Hint(10, 19, kEntries);
    cache_.Hint(85, 99, kEntries);
    cache_.Refresh(1050);
    EXPECT_FALSE(IsCached(10));
    EXPECT_FALSE(IsCached(99));
}

}  // namespace
