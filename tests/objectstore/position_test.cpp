// The current-record position: where it is after every operation.
#include "tests/objectstore/store_fixture.h"

namespace {

class PositionTest : public StoreTest {
protected:
    PositionTest() {
        database = Make({{kText, 0}});
        for (const wchar_t* text : {L"ant", L"bee", L"cow", L"dog"})
            records.push_back(Add(database, text));
    }

    // The text of the current record, or the error that reading it gave.
    std::wstring Current(HANDLE handle) {
        const ReadResult result = Read(handle, {kText});
        return result.record ? result.Text(0) : std::to_wstring(result.error);
    }
    std::wstring Current() { return Current(database); }

    HANDLE database;
    std::vector<CEOID> records;
};

const std::wstring kAtEnd = L"259";
const std::wstring kOnDeleted = L"1018";

TEST_F(PositionTest, AHandleOpensOnTheFirstRecordOfItsOrder) {
    EXPECT_EQ(Current(OpenBy(kText)), L"ant");
    EXPECT_EQ(Current(OpenBy(0)), L"ant");
}

TEST_F(PositionTest, AHandleOnAnEmptyDatabaseStandsAtTheEnd) {
    const HANDLE empty = Make({{kText, 0}}, L"empty");
    EXPECT_EQ(Current(empty), kAtEnd);
    EXPECT_EQ(Step(empty, 0), 0u);
    EXPECT_EQ(First(empty), 0u);
    EXPECT_EQ(Last(empty), 0u);
}

TEST_F(PositionTest, ReadingLeavesThePosition) {
    First(database, 1);
    EXPECT_EQ(Current(), L"bee");
    EXPECT_EQ(Current(), L"bee");
}

TEST_F(PositionTest, ReadingMovesOnWithAutoIncrement) {
    const HANDLE moving = OpenBy(kText, CEDB_AUTOINCREMENT);
    for (const wchar_t* text : {L"ant", L"bee", L"cow", L"dog"})
        EXPECT_EQ(Current(moving), text);
    EXPECT_EQ(Current(moving), kAtEnd);
    EXPECT_EQ(Current(moving), kAtEnd);
    EXPECT_EQ(Step(moving, -1), records[3]);
}

TEST_F(PositionTest, SeekByIdStandsOnTheRecord) {
    EXPECT_EQ(SeekTo(database, records[2]), records[2]);
    EXPECT_EQ(Current(), L"cow");
}

TEST_F(PositionTest, SeekByUnknownIdStandsAtTheEnd) {
    for (const CEOID none : {CEOID{0}, CEOID{4'000'000'000}, Oid()}) {
        SeekTo(database, records[1]);
        EXPECT_EQ(SeekTo(database, none), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_ITEMS});
        EXPECT_EQ(Current(), kAtEnd);
        EXPECT_EQ(Step(database, 1), 0u);
    }
}

TEST_F(PositionTest, ARecordOfAnotherDatabaseIsUnknown) {
    const HANDLE other = Make({}, L"other");
    EXPECT_EQ(SeekTo(other, records[0]), 0u);
    EXPECT_EQ(Write(other, {TextValue(kText, L"x")}, records[0]), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeDeleteRecord(other, records[0]));
}

TEST_F(PositionTest, CountsFromBothEnds) {
    for (DWORD n = 0; n < 4; ++n) {
        EXPECT_EQ(First(database, n), records[n]);
        EXPECT_EQ(Last(database, n), records[3 - n]);
        EXPECT_EQ(Last(database, static_cast<DWORD>(-static_cast<int>(n))), records[3 - n]);
    }
}

TEST_F(PositionTest, SeeksPastEitherEndStandAtTheEnd) {
    const auto fails = [&](CEOID result) {
        EXPECT_EQ(result, 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_ITEMS});
        EXPECT_EQ(Current(), kAtEnd);
        First(database, 1);
    };
    fails(First(database, 4));
    fails(First(database, 0xFFFFFFFF));
    fails(Last(database, 4));
    fails(Step(database, 3));
    fails(Step(database, -2));
    fails(Step(database, INT_MAX));
    fails(Step(database, INT_MIN));
}

TEST_F(PositionTest, StepsCountFromTheEndAfterAFailedSeek) {
    First(database, 99);
    EXPECT_EQ(Step(database, 0), 0u);
    EXPECT_EQ(Step(database, 1), 0u);
    EXPECT_EQ(Step(database, -1), records[3]);
    First(database, 99);
    EXPECT_EQ(Step(database, -4), records[0]);
    First(database, 99);
    EXPECT_EQ(Step(database, -5), 0u);
}

TEST_F(PositionTest, StepsGoBothWays) {
    First(database, 1);
    EXPECT_EQ(Step(database, 0), records[1]);
    EXPECT_EQ(Step(database, 2), records[3]);
    EXPECT_EQ(Step(database, -3), records[0]);
}

TEST_F(PositionTest, SeeksTellThePlace) {
    for (int n = 0; n < 4; ++n)
        EXPECT_EQ(PlaceOf(database, records[static_cast<size_t>(n)]), n);
    DWORD index = 99;
    CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 2, &index);
    EXPECT_EQ(index, 2u);
    CeSeekDatabase(database, CEDB_SEEK_CURRENT, 1, &index);
    EXPECT_EQ(index, 3u);
    CeSeekDatabase(database, CEDB_SEEK_END, 3, &index);
    EXPECT_EQ(index, 0u);
    CEPROPVAL cow = TextValue(kText, L"cow");
    CeSeekDatabase(database, CEDB_SEEK_VALUEFIRSTEQUAL, reinterpret_cast<DWORD_PTR>(&cow), &index);
    EXPECT_EQ(index, 2u);
}

TEST_F(PositionTest, AFailedSeekLeavesTheCallersIndex) {
    DWORD index = 99;
    EXPECT_EQ(CeSeekDatabase(database, CEDB_SEEK_BEGINNING, 4, &index), 0u);
    EXPECT_EQ(index, 99u);
}

TEST_F(PositionTest, AWrongSeekIsRefusedAndLeavesThePosition) {
    First(database, 1);
    for (const DWORD kind : {0u, 3u, 0x100u, 0xFFFFFFFFu}) {
        EXPECT_EQ(CeSeekDatabase(database, kind, 0, nullptr), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    }
    EXPECT_EQ(CeSeekDatabase(INVALID_HANDLE_VALUE, CEDB_SEEK_BEGINNING, 0, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(Current(), L"bee");
}

TEST_F(PositionTest, WritingANewRecordLeavesThePosition) {
    First(database, 1);
    Add(database, L"aardvark");
    EXPECT_EQ(Current(), L"bee");
    EXPECT_EQ(PlaceOf(database, records[1]), 2);
}

TEST_F(PositionTest, TheCurrentRecordStaysCurrentWhereverItMoves) {
    First(database);
    Write(database, {TextValue(kText, L"zebra")}, records[0]);
    EXPECT_EQ(Current(), L"zebra");
    EXPECT_EQ(Step(database, -1), records[3]);
}

TEST_F(PositionTest, ReadingADeletedRecordIsTold) {
    First(database, 1);
    EXPECT_TRUE(CeDeleteRecord(database, records[1]));
    EXPECT_EQ(Current(), kOnDeleted);
    EXPECT_EQ(Current(), kOnDeleted);
}

TEST_F(PositionTest, StepsFromADeletedRecordCountFromItsPlace) {
    const auto standOnDeleted = [&](const wchar_t* text) {
        const CEOID record = Add(database, text);
        SeekTo(database, record);
        CeDeleteRecord(database, record);
    };
    standOnDeleted(L"bull");
    EXPECT_EQ(Step(database, 1), records[2]);
    standOnDeleted(L"bull");
    EXPECT_EQ(Step(database, 2), records[3]);
    standOnDeleted(L"bull");
    EXPECT_EQ(Step(database, -1), records[1]);
    standOnDeleted(L"bull");
    EXPECT_EQ(Step(database, 0), 0u);
    EXPECT_EQ(Current(), kAtEnd);
    standOnDeleted(L"zoo");
    EXPECT_EQ(Step(database, 1), 0u);
    standOnDeleted(L"zoo");
    EXPECT_EQ(Step(database, -1), records[3]);
    standOnDeleted(L"aa");
    EXPECT_EQ(Step(database, -1), 0u);
}

TEST_F(PositionTest, AGapKeepsItsPlaceThroughOtherChanges) {
    First(database, 2);
    CeDeleteRecord(database, records[2]);
    Add(database, L"alpaca");
    CeDeleteRecord(database, records[1]);
    EXPECT_EQ(Step(database, 1), records[3]);
}

TEST_F(PositionTest, AnAutoIncrementHandleMovesOnFromADeletedRecord) {
    const HANDLE moving = OpenBy(kText, CEDB_AUTOINCREMENT);
    First(moving, 1);
    CeDeleteRecord(database, records[1]);
    EXPECT_EQ(Current(moving), L"cow");
    SeekTo(moving, records[3]);
    CeDeleteRecord(moving, records[3]);
    EXPECT_EQ(Current(moving), kAtEnd);
}

TEST_F(PositionTest, DeletingAnotherRecordLeavesThePosition) {
    First(database, 2);
    CeDeleteRecord(database, records[0]);
    EXPECT_EQ(Current(), L"cow");
    EXPECT_EQ(PlaceOf(database, records[2]), 1);
}

TEST_F(PositionTest, AFailedDeleteLeavesThePosition) {
    First(database, 2);
    EXPECT_FALSE(CeDeleteRecord(database, 0));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeDeleteRecord(database, Oid()));
    EXPECT_EQ(Current(), L"cow");
}

TEST_F(PositionTest, EachHandleHasAPositionOfItsOwn) {
    const HANDLE other = OpenBy(kText);
    First(database, 3);
    First(other, 1);
    EXPECT_EQ(Current(), L"dog");
    EXPECT_EQ(Current(other), L"bee");
    CeDeleteRecord(other, records[3]);
    EXPECT_EQ(Current(), kOnDeleted);
    EXPECT_EQ(Current(other), L"bee");
}

TEST_F(PositionTest, AFailedReadLeavesThePosition) {
    First(database, 1);
    WORD count = 1;
    DWORD size = 0;
    LPBYTE buffer = nullptr;
    EXPECT_EQ(CeReadRecordProps(database, CEDB_ALLOWREALLOC, nullptr, nullptr, &buffer, &size), 0u);
    EXPECT_EQ(CeReadRecordProps(database, 0x80, &count, nullptr, &buffer, &size), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(Current(), L"bee");
}

}  // namespace
