// Values of every type, missing ones, buffers, sizes and limits.
#include <storebatch.h>

#include <cstring>

#include "tests/objectstore/store_fixture.h"

namespace {

class RecordTest : public StoreTest {
protected:
    RecordTest() { database = Make({{kText, 0}}); }
    HANDLE database;
};

TEST_F(RecordTest, KeepsEveryTypeThroughReopening) {
    CEPROPVAL number = {};
    number.propid = kDouble;
    number.val.dblVal = -0.1;
    const CEOID record =
        Write(database, {TextValue(kText, L"text"), NumberValue(kNumber, -70000), NumberValue(kShort, -5),
                         TimeValue(kTime, 0x01C0123456789ABC), BlobValue(kBlob, "a\0b", 3), number,
                         NumberValue(kBool, 1), NumberValue(kWord, 65535), NumberValue(kLong, -1)});
    ASSERT_NE(record, 0u);
    Reopen();
    const ReadResult read = Read(OpenBy(kText), {kText, kNumber, kShort, kTime, kBlob, kDouble, kBool, kWord, kLong});
    ASSERT_EQ(read.record, record);
    EXPECT_EQ(read.Text(0), L"text");
    EXPECT_EQ(read[1].val.lVal, -70000);
    EXPECT_EQ(read[2].val.iVal, -5);
    EXPECT_EQ(read[3].val.filetime.dwHighDateTime, 0x01C01234u);
    EXPECT_EQ(read[3].val.filetime.dwLowDateTime, 0x56789ABCu);
    ASSERT_EQ(read[4].val.blob.dwCount, 3u);
    EXPECT_EQ(std::memcmp(read[4].val.blob.lpb, "a\0b", 3), 0);
    EXPECT_EQ(read[5].val.dblVal, -0.1);
    EXPECT_EQ(read[6].val.boolVal, TRUE);
    EXPECT_EQ(read[7].val.uiVal, 65535);
    EXPECT_EQ(read[8].val.ulVal, 0xFFFFFFFF);
    ExpectSound();
}

TEST_F(RecordTest, KeepsTextThatIsNoProperUnicode) {
    for (const wchar_t* text : {L"\xFEFF marked", L"\xFFFE turned", L"alone \xD800", L"\xDC00\xD800 wrong way", L""}) {
        const CEOID record = Add(database, text);
        EXPECT_EQ(ReadAt(database, record, {kText}).Text(0), text);
        EXPECT_NE(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, text)), 0u);
    }
    ExpectSound();
}

TEST_F(RecordTest, AMissingPropertyIsMarkedAndNoError) {
    const CEOID record = Write(database, {NumberValue(kNumber, 1)});
    const ReadResult read = ReadAt(database, record, {kText, kNumber, kTime, 0x7777001F});
    ASSERT_EQ(read.record, record);
    EXPECT_EQ(read.count, 4);
    EXPECT_EQ(read[0].wFlags, CEDB_PROPNOTFOUND);
    EXPECT_EQ(read[0].propid, kText);
    EXPECT_EQ(read[0].val.lpwstr, nullptr);
    EXPECT_EQ(read[1].wFlags, 0);
    EXPECT_EQ(read[1].val.lVal, 1);
    EXPECT_EQ(read[2].wFlags, CEDB_PROPNOTFOUND);
    EXPECT_EQ(read[3].wFlags, CEDB_PROPNOTFOUND) << "a property that no record ever had";
    EXPECT_EQ(read[3].propid, 0x7777001Fu);
}

TEST_F(RecordTest, AskingForMissingPropertiesOnlyIsNoError) {
    const CEOID record = Write(database, {NumberValue(kNumber, 1)});
    const ReadResult read = ReadAt(database, record, {kText});
    EXPECT_EQ(read.record, record);
    EXPECT_FALSE(read.Has(0));
}

TEST_F(RecordTest, AnotherTypeIsAnotherProperty) {
    Add(database, L"text");
    First(database);
    const ReadResult read = Read(database, {MAKELONG(CEVT_I4, HIWORD(kText))});
    ASSERT_NE(read.record, 0u);
    EXPECT_FALSE(read.Has(0));
}

TEST_F(RecordTest, ReadsAllPropertiesByAscendingId) {
    Write(database, {BlobValue(kBlob, "x", 1), TextValue(kText, L"t"), NumberValue(kShort, 3)});
    Write(database, {TimeValue(kTime, 5)});
    First(database);
    const ReadResult read = Read(database);
    ASSERT_EQ(read.count, 3);
    EXPECT_EQ(read[0].propid, kText);
    EXPECT_EQ(read[1].propid, kShort);
    EXPECT_EQ(read[2].propid, kBlob);
    EXPECT_EQ(read[2].val.blob.dwCount, 1u);
}

TEST_F(RecordTest, ReadsARecordWithoutProperties) {
    const CEOID record = Write(database, {NumberValue(kNumber, 1)});
    ASSERT_EQ(Write(database, {Missing(kNumber)}, record), record);
    First(database);
    const ReadResult read = Read(database);
    EXPECT_EQ(read.record, record);
    EXPECT_EQ(read.count, 0);
}

TEST_F(RecordTest, WritingKeepsWhatIsNotNamed) {
    const CEOID record = Write(database, {TextValue(kText, L"t"), NumberValue(kNumber, 1)});
    EXPECT_EQ(Write(database, {NumberValue(kNumber, 2)}, record), record);
    First(database);
    const ReadResult read = Read(database, {kText, kNumber});
    EXPECT_EQ(read.Text(0), L"t");
    EXPECT_EQ(read[1].val.lVal, 2);
    EXPECT_EQ(Count(Oid()), 1);
}

TEST_F(RecordTest, TakesAPropertyAway) {
    const std::wstring large(2000, L'x');
    for (const wchar_t* text : {L"t", large.c_str()}) {
        const CEOID record = Write(database, {TextValue(kOtherText, text), NumberValue(kNumber, 1)});
        EXPECT_EQ(Write(database, {Missing(kOtherText), Missing(kTime)}, record), record);
        const ReadResult read = ReadAt(database, record, {kOtherText, kNumber});
        EXPECT_FALSE(read.Has(0));
        EXPECT_TRUE(read.Has(1));
    }
    ExpectSound();
}

TEST_F(RecordTest, TheLastOfTwoValuesOfOnePropertyCounts) {
    Write(database, {NumberValue(kNumber, 1), NumberValue(kNumber, 2)});
    First(database);
    EXPECT_EQ(Read(database, {kNumber})[0].val.lVal, 2);
}

TEST_F(RecordTest, ReadsOnePropertyTwice) {
    Write(database, {NumberValue(kNumber, 1)});
    First(database);
    const ReadResult read = Read(database, {kNumber, kNumber});
    EXPECT_EQ(read[0].val.lVal, 1);
    EXPECT_EQ(read[1].val.lVal, 1);
}

TEST_F(RecordTest, RefusesValuesThatAreNone) {
    const auto refused = [&](std::vector<CEPROPVAL> values) {
        EXPECT_EQ(Write(database, values), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    };
    refused({});
    refused({TextValue(kText, nullptr)});
    refused({BlobValue(kBlob, nullptr, 5)});
    refused({NumberValue(0x00010063, 1)});
    refused({NumberValue(kNumber, 1), NumberValue(0, 1)});
    refused({BlobValue(kBlob, "x", CEDB_MAXPROPDATASIZE + 1)});
    EXPECT_EQ(CeWriteRecordProps(database, 0, 1, nullptr), 0u);
    EXPECT_EQ(CeWriteRecordProps(INVALID_HANDLE_VALUE, 0, 1, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(Count(Oid()), 0);
}

TEST_F(RecordTest, KeepsValuesOfEverySizeAroundTheLimits) {
    for (const size_t size : {0, 1, 1023, 1024, 1025, 4096, 65'471, 65'536, 1'000'000}) {
        std::string data(size, 'x');
        for (size_t i = 0; i < size; i += 7)
            data[i] = static_cast<char>(i);
        const CEOID record = Write(database, {BlobValue(kBlob, data.data(), size)});
        const ReadResult read = ReadAt(database, record, {kBlob, kText});
        ASSERT_EQ(read[0].val.blob.dwCount, size);
        EXPECT_EQ(std::memcmp(read[0].val.blob.lpb, data.data(), size), 0);
    }
    ExpectSound();
}

TEST_F(RecordTest, KeepsTheLargestValue) {
    const std::string data(CEDB_MAXPROPDATASIZE, 'y');
    ASSERT_NE(Write(database, {BlobValue(kBlob, data.data(), data.size())}), 0u) << GetLastError();
    First(database);
    const ReadResult read = Read(database, {kBlob});
    ASSERT_EQ(read[0].val.blob.dwCount, data.size());
    EXPECT_EQ(std::memcmp(read[0].val.blob.lpb, data.data(), data.size()), 0);
}

TEST_F(RecordTest, KeepsALongSortedText) {
    const std::wstring text(20'000, L'q');
    const CEOID record = Add(database, text.c_str());
    Add(database, L"r");
    EXPECT_EQ(First(database), record);
    EXPECT_EQ(Read(database, {kText}).Text(0), text);
    EXPECT_EQ(SeekValue(database, CEDB_SEEK_VALUEFIRSTEQUAL, TextValue(kText, text.c_str())), record);
    ExpectSound();
}

TEST_F(RecordTest, SeveralLargeValuesOfARecordComeTogether) {
    const std::string a(5000, 'a');
    const std::string b(6000, 'b');
    const std::wstring c(7000, L'c');
    constexpr CEPROPID kOtherBlob = 0x000B0041;
    const CEOID record = Write(database, {BlobValue(kBlob, a.data(), a.size()),
                                          BlobValue(kOtherBlob, b.data(), b.size()), TextValue(kOtherText, c.c_str())});
    for (const bool changed : {false, true}) {
        if (changed) Write(database, {BlobValue(kBlob, b.data(), b.size())}, record);
        First(database);
        const ReadResult read = Read(database, {kBlob, kOtherBlob, kOtherText});
        EXPECT_EQ(std::string(reinterpret_cast<char*>(read[0].val.blob.lpb), read[0].val.blob.dwCount),
                  changed ? b : a);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(read[1].val.blob.lpb), read[1].val.blob.dwCount), b);
        EXPECT_EQ(read.Text(2), c);
    }
    ExpectSound();
    CeDeleteRecord(database, record);
    ExpectSound();
}

TEST_F(RecordTest, TheBufferOfTheCallerIsUsedWhenItFits) {
    Add(database, L"text");
    First(database);
    BYTE own[200];
    LPBYTE buffer = own;
    DWORD size = sizeof own;
    WORD count = 1;
    EXPECT_NE(CeReadRecordProps(database, 0, &count, &kText, &buffer, &size), 0u);
    EXPECT_EQ(buffer, own);
    EXPECT_LE(size, sizeof own);
    EXPECT_STREQ(reinterpret_cast<CEPROPVAL*>(own)->val.lpwstr, L"text");
}

TEST_F(RecordTest, ATooSmallBufferIsToldWithTheSizeNeeded) {
    Add(database, L"text");
    First(database);
    BYTE own[200];
    LPBYTE buffer = own;
    DWORD size = 10;
    WORD count = 1;
    EXPECT_EQ(CeReadRecordProps(database, 0, &count, &kText, &buffer, &size), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_GT(size, 10u);
    EXPECT_NE(CeReadRecordProps(database, 0, &count, &kText, &buffer, &size), 0u);
}

TEST_F(RecordTest, AnAllocatedBufferGrowsAsNeeded) {
    Add(database, L"text");
    First(database);
    const std::string large(100'000, 'z');
    Write(database, {BlobValue(kBlob, large.data(), large.size())});
    LPBYTE buffer = nullptr;
    DWORD size = 12345;  // says nothing while there is no buffer
    WORD count = 1;
    EXPECT_NE(CeReadRecordProps(database, CEDB_ALLOWREALLOC, &count, &kText, &buffer, &size), 0u);
    Step(database, 1);
    EXPECT_NE(CeReadRecordProps(database, CEDB_ALLOWREALLOC, &count, &kBlob, &buffer, &size), 0u);
    EXPECT_EQ(reinterpret_cast<CEPROPVAL*>(buffer)->val.blob.dwCount, large.size());
    EXPECT_EQ(LocalFree(buffer), nullptr);
}

TEST_F(RecordTest, IdsAreNeverUsedAgain) {
    const CEOID first = Add(database, L"a");
    CeDeleteRecord(database, first);
    Reopen();
    const HANDLE again = OpenBy(kText);
    const CEOID second = Add(again, L"b");
    EXPECT_GT(second, first);
    CEOIDINFO info = {};
    EXPECT_FALSE(CeOidGetInfo(first, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_TRUE(CeOidGetInfo(second, &info));
    EXPECT_EQ(info.wObjType, OBJTYPE_RECORD);
    EXPECT_EQ(info.infRecord.oidParent, Oid());
    EXPECT_NE(CeCreateDatabase(L"later", 0, 0, nullptr), second);
}

TEST_F(RecordTest, AFullDatabaseRefusesOneMore) {
    ASSERT_TRUE(CeBeginBatch());
    for (int i = 0; i < CEDB_MAXNUMRECORDS; ++i)
        ASSERT_NE(Add(database, static_cast<long>(i)), 0u) << i;
    ASSERT_TRUE(CeCommitBatch());
    EXPECT_EQ(Count(Oid()), 0xFFFF);
    EXPECT_EQ(Add(database, 1L), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    const CEOID last = Last(database);
    EXPECT_EQ(PlaceOf(database, last), 0xFFFE);
    EXPECT_EQ(Write(database, {NumberValue(kNumber, -1)}, last), last) << "changing one is still possible";
    EXPECT_TRUE(CeDeleteRecord(database, last));
    EXPECT_NE(Add(database, 1L), 0u);
    ExpectSound();
}

}  // namespace
