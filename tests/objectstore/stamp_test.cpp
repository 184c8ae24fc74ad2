// The time of a record's last change, which the store keeps by itself.
#include <storebatch.h>
#include <storestamp.h>

#include "tests/objectstore/store_fixture.h"

namespace {

unsigned long long Now() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return static_cast<unsigned long long>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
}

class StampTest : public StoreTest {
protected:
    StampTest() { database_ = Make({{kText, 0}}); }

    // The record's time, 0 for none.
    unsigned long long StampOf(CEOID record) {
        const ReadResult read = ReadAt(database_, record, {kTime});
        if (!read.Has(0)) return 0;
        const FILETIME time = read[0].val.filetime;
        return static_cast<unsigned long long>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    }

    HANDLE database_;
};

TEST_F(StampTest, EveryWriteSetsTheTime) {
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    const auto before = Now();
    const CEOID record = Add(database_, L"one");
    const auto written = StampOf(record);
    EXPECT_GE(written, before);
    EXPECT_LE(written, Now());
    ASSERT_EQ(Write(database_, {TimeValue(kTime, 5)}, record), record);  // it says itself when
    EXPECT_EQ(StampOf(record), 5u);
    Write(database_, {NumberValue(kNumber, 1)}, record);
    EXPECT_GE(StampOf(record), before);
    ExpectSound();
}

TEST_F(StampTest, AWriteThatSaysThereIsNoTimeLeavesTheRecordWithoutOne) {
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    const CEOID record = Write(database_, {NumberValue(kNumber, 1), Missing(kTime)});
    EXPECT_EQ(StampOf(record), 0u);
}

TEST_F(StampTest, RecordsWrittenEarlierLackItUntilTheyAreWritten) {
    const CEOID record = Add(database_, L"early");
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    EXPECT_EQ(StampOf(record), 0u);
    Write(database_, {NumberValue(kNumber, 1)}, record);
    EXPECT_NE(StampOf(record), 0u);
}

TEST_F(StampTest, TheChoiceStaysWithTheDatabaseAndWithNoOther) {
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    Reopen();
    database_ = OpenBy(kText);
    EXPECT_NE(StampOf(Add(database_, L"after")), 0u);
    database_ = Make({{kText, 0}}, L"\\Other");
    EXPECT_EQ(StampOf(Add(database_, L"other")), 0u);
}

TEST_F(StampTest, ZeroEndsIt) {
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    ASSERT_TRUE(CeSetDatabaseStamp(database_, 0));
    EXPECT_EQ(StampOf(Add(database_, L"after")), 0u);
    Reopen();
    database_ = OpenBy(kText);
    EXPECT_EQ(StampOf(Add(database_, L"later")), 0u);
}

TEST_F(StampTest, TakesNoPropertyButATimeAndNoForeignHandle) {
    EXPECT_FALSE(CeSetDatabaseStamp(database_, kNumber));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeSetDatabaseStamp(INVALID_HANDLE_VALUE, kTime));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(StampTest, ABatchThatIsCancelledTakesTheChoiceBack) {
    ASSERT_TRUE(CeBeginBatch());
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    ASSERT_TRUE(CeCancelBatch());
    EXPECT_EQ(StampOf(Add(database_, L"after")), 0u);
}

TEST_F(StampTest, ADatabaseSortedByTheTimeFollowsEachWrite) {
    database_ = Make({{kTime, 0}}, L"\\Timed");
    ASSERT_TRUE(CeSetDatabaseStamp(database_, kTime));
    const CEOID first = Add(database_, L"first");
    const CEOID second = Write(database_, {TextValue(kText, L"second"), TimeValue(kTime, 5)});
    EXPECT_EQ(Order(database_), (std::vector<CEOID>{second, first}));
    Write(database_, {NumberValue(kNumber, 1)}, second);
    EXPECT_EQ(Order(database_), (std::vector<CEOID>{first, second}));
    ExpectSound();
}

}  // namespace
