// Several processes on one store.
#include <storebatch.h>
#include <storefault.h>

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

// However the handle came to the record: it is gone, and so is what its place would be reckoned from.
TEST_F(ProcessTest, StepsFromARecordThatTheOtherDeletedCountFromWhereItStood) {
    struct Way {
        const char* label;
        CEOID (*come)(HANDLE database, CEOID to);
    };
    const Way ways[] = {
        {"by id", [](HANDLE at, CEOID to) { return SeekTo(at, to); }},
        {"by value", [](HANDLE at, CEOID) { return SeekValue(at, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, L"m")); }},
        {"by a greater value",
         [](HANDLE at, CEOID) { return SeekValue(at, CEDB_SEEK_VALUEGREATER, TextValue(kText, L"lz")); }},
        {"by place", [](HANDLE at, CEOID to) { return First(at, static_cast<DWORD>(PlaceOf(at, to))); }},
        {"by steps",
         [](HANDLE at, CEOID to) { return First(at, static_cast<DWORD>(PlaceOf(at, to)) - 1), Step(at, 1); }},
    };
    CeBeginBatch();
    for (long i = 0; i < 400; ++i)  // more than are read at either end
        Add(database, ((i % 2 ? L"a" : L"z") + std::to_wstring(1000 + i)).c_str());
    const CEOID before = Add(database, L"l");
    const CEOID after = Add(database, L"n");
    CeCommitBatch();
    for (const Way& way : ways) {
        for (const int step : {1, -1, 2, -2}) {
            const CEOID record = Add(database, L"m");
            ASSERT_EQ(way.come(database, record), record) << way.label;
            // Records that come and go before it move its place.
            const CEOID first = First(OpenBy(kText));
            ASSERT_EQ(other.Do("delete " + std::to_string(first)), "1");
            ASSERT_NE(other.Do("add l9"), "0");
            ASSERT_EQ(other.Do("delete " + std::to_string(record)), "1");
            const HANDLE fresh = OpenBy(kText);
            const CEOID expected = step > 0 ? after : SeekValue(fresh, CEDB_SEEK_VALUESMALLER, TextValue(kText, L"m"));
            SeekTo(fresh, expected);
            const CEOID further = step == 2 || step == -2 ? Step(fresh, step / 2) : expected;
            EXPECT_EQ(Step(database, step), further) << way.label << ", " << step;
            EXPECT_NE(further, 0u);
        }
    }
    EXPECT_NE(before, 0u);
}

TEST_F(ProcessTest, ARecordThatMovedHereIsLeftFromWhereItStoodLast) {
    const CEOID c = Add(database, L"c");
    ASSERT_EQ(SeekTo(database, records[0]), records[0]);
    ASSERT_NE(Write(database, {TextValue(kText, L"e")}, records[0]), 0u);
    ASSERT_EQ(other.Do("delete " + std::to_string(records[0])), "1");
    EXPECT_EQ(Step(database, 1), records[2]);
    EXPECT_NE(c, 0u);
}

// A write that has returned is seen by the next call of everybody: not a moment later, when the snapshot is old.
TEST_F(ProcessTest, AWriteIsSeenAsSoonAsItReturnsAlsoByWhoReadWhileItWasMade) {
    struct Meanwhile {
        OtherProcess& other;
        std::string count;
    } meanwhile = {other, ""};
    const auto read = [](void* context) {
        auto& it = *static_cast<Meanwhile*>(context);
        it.count = it.other.Do("count");  // takes a snapshot, which the commit makes old
    };
    for (int i = 0; i < 5; ++i) {  // a busy machine may let a snapshot grow too old by itself
        CeAtStep("commit: counted", 1, read, &meanwhile);
        ASSERT_NE(Add(database, L"x"), 0u);
        EXPECT_EQ(meanwhile.count, std::to_string(3 + i));
        EXPECT_EQ(other.Do("count"), std::to_string(4 + i));
    }
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
