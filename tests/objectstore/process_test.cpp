// Several processes on one store.
#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"

namespace {

class ProcessTest : public StoreTest {
protected:
    ProcessTest() {
        database = Make({{kText, 0}});
        for (const wchar_t* text : {L"b", L"d", L"f"})
            records.push_back(Add(database, text));
        First(database, 1);
        EXPECT_EQ(other.Do("open \\Test 1001F"), std::to_string(Oid()));
    }
    std::string Text(CEOID record) { return other.Do("text " + std::to_string(record)); }
    HANDLE database;
    std::vector<CEOID> records;
    OtherProcess other;
};

CEOID ToOid(const std::string& text) {
    return std::stoul(text);
}

TEST_F(ProcessTest, EachSeesWhatTheOtherWrote) {
    EXPECT_EQ(other.Do("count"), "3");
    const CEOID theirs = ToOid(other.Do("add c"));
    ASSERT_NE(theirs, 0u);
    EXPECT_EQ(Count(Oid()), 4);
    EXPECT_EQ(PlaceOf(database, theirs), 1);
    EXPECT_EQ(ReadAt(database, theirs, {kText}).Text(0), L"c");
    const CEOID ours = Add(database, L"a");
    EXPECT_GT(ours, theirs);
    EXPECT_EQ(other.Do("place " + std::to_string(ours)), "0");
    EXPECT_EQ(Text(ours), "a");
}

TEST_F(ProcessTest, AChangeOfTheOtherMovesTheRecordHere) {
    EXPECT_EQ(PlaceOf(database, records[0]), 0);
    EXPECT_EQ(ToOid(other.Do("set " + std::to_string(records[0]) + " z")), records[0]);
    EXPECT_EQ(PlaceOf(database, records[0]), 2);
    EXPECT_EQ(Order(database), (std::vector<CEOID>{records[1], records[2], records[0]}));
}

TEST_F(ProcessTest, ARecordThatTheOtherDeletesIsTold) {
    CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 1, nullptr);
    EXPECT_EQ(other.Do("delete " + std::to_string(records[1])), "1");
    EXPECT_EQ(Read(database).error, DWORD{ERROR_KEY_DELETED});
    EXPECT_EQ(Step(database, 1), records[2]);
}

TEST_F(ProcessTest, AWalkStepsOverARecordThatTheOtherDeletes) {
    const HANDLE moving = OpenBy(kText, CEDB_AUTOINCREMENT);
    EXPECT_EQ(Read(moving, {kText}).Text(0), L"b");
    EXPECT_EQ(other.Do("delete " + std::to_string(records[1])), "1");
    EXPECT_EQ(Read(moving, {kText}).Text(0), L"f");
}

TEST_F(ProcessTest, ManyWritesOfBothKeepTheOrdersEqual) {
    for (int i = 0; i < 40; ++i) {
        const std::wstring text = L"m" + std::to_wstring(i * 7 % 40);
        ASSERT_NE(Add(database, text.c_str()), 0u);
        ASSERT_NE(other.Do("add m" + std::to_string(i * 11 % 40)), "0");
        PlaceOf(database, records[1]);
    }
    const std::vector<CEOID> ours = Order(database);
    ASSERT_EQ(ours.size(), 83u);
    for (size_t place = 0; place < ours.size(); place += 9) {
        EXPECT_EQ(other.Do("place " + std::to_string(ours[place])), std::to_string(place));
    }
    ExpectSound();
}

TEST_F(ProcessTest, ADatabaseThatTheOtherHasOpenKeepsItsOrdersAndItself) {
    CEDBASEINFO info = {};
    info.dwFlags = CEDB_VALIDSORTSPEC;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0] = {kNumber, 0};
    const CEOID oid = Oid();
    Reopen();
    EXPECT_FALSE(CeSetDatabaseInfo(oid, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeDeleteDatabase(oid));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(other.Do("close"), "1");
    EXPECT_TRUE(CeSetDatabaseInfo(oid, &info));
    EXPECT_EQ(other.Do("open \\Test 1001F"), "error 87") << "the other knows the new orders";
    EXPECT_TRUE(CeDeleteDatabase(oid));
    EXPECT_EQ(other.Do("open \\Test 20003"), "error 2");
}

TEST_F(ProcessTest, AProcessThatWasKilledHoldsNothingOpen) {
    other.Kill();
    const CEOID oid = Oid();
    Reopen();
    EXPECT_TRUE(CeDeleteDatabase(oid));
}

TEST_F(ProcessTest, ABatchOfTheOtherIsSeenAtItsEndOnly) {
    EXPECT_EQ(other.Do("begin"), "1");
    EXPECT_NE(other.Do("add x"), "0");
    EXPECT_EQ(Count(Oid()), 3);
    EXPECT_EQ(other.Do("commit"), "1");
    EXPECT_EQ(Count(Oid()), 4);
}

TEST_F(ProcessTest, ABatchThatIsKilledLeavesNothing) {
    EXPECT_EQ(other.Do("begin"), "1");
    for (int i = 0; i < 50; ++i)
        EXPECT_NE(other.Do("add x"), "0");
    other.Kill();
    EXPECT_EQ(Count(Oid()), 3);
    EXPECT_NE(Add(database, L"y"), 0u) << "the lock went with it";
    ExpectSound();
}

}  // namespace
