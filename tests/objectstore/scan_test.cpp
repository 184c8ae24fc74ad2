// One pass over all records: the same values as a walk, and nothing a visitor does harms it.
#include <storebatch.h>
#include <storepage.h>

#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <map>

#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"

namespace {

using Visit = std::function<bool(CEOID, WORD, const CEPROPVAL*)>;

BOOL Scan(HANDLE database, const std::vector<CEPROPID>& ids, const Visit& visit) {
    const auto call = [](CEOID record, WORD count, const CEPROPVAL* values, void* context) -> BOOL {
        return (*static_cast<const Visit*>(context))(record, count, values);
    };
    return CeScanRecords(database, static_cast<WORD>(ids.size()), ids.data(), call, const_cast<Visit*>(&visit));
}

// Everything about a value, as text.
std::string Describe(const CEPROPVAL& value) {
    std::string text = std::to_string(value.propid) + "/" + std::to_string(value.wFlags) + ":";
    const auto append = [&](const void* bytes, size_t size) { text.append(static_cast<const char*>(bytes), size); };
    const bool found = (value.wFlags & CEDB_PROPNOTFOUND) == 0;
    if (found && TypeFromPropID(value.propid) == CEVT_LPWSTR) {
        append(value.val.lpwstr, wcslen(value.val.lpwstr) * sizeof(wchar_t));
    } else if (found && TypeFromPropID(value.propid) == CEVT_BLOB) {
        append(value.val.blob.lpb, value.val.blob.dwCount);
    } else {
        append(&value.val, sizeof value.val);
    }
    return text;
}

std::vector<std::string> Describe(const CEPROPVAL* values, WORD count) {
    std::vector<std::string> texts;
    for (WORD i = 0; i < count; ++i)
        texts.push_back(Describe(values[i]));
    return texts;
}

using Content = std::map<CEOID, std::vector<std::string>>;

class ScanTest : public StoreTest {
protected:
    static Content ByScan(HANDLE database, const std::vector<CEPROPID>& ids) {
        Content content;
        EXPECT_TRUE(Scan(database, ids, [&](CEOID record, WORD count, const CEPROPVAL* values) {
            EXPECT_EQ(count, ids.size());
            EXPECT_TRUE(content.emplace(record, Describe(values, count)).second) << "visited twice: " << record;
            return true;
        }));
        return content;
    }
    static Content ByWalk(HANDLE database, const std::vector<CEPROPID>& ids) {
        Content content;
        for (CEOID record = First(database); record != 0; record = Step(database, 1)) {
            const ReadResult read = Read(database, ids);
            content[record] = Describe(&read[0], read.count);
        }
        return content;
    }
    static size_t CountByScan(HANDLE database) {
        size_t seen = 0;
        EXPECT_TRUE(Scan(database, {}, [&](CEOID, WORD, const CEPROPVAL*) { return ++seen, true; }));
        return seen;
    }
};

const std::vector<CEPROPID> kAllKinds = {kText,   kNumber, kShort, kTime, kBlob,
                                         kDouble, kBool,   kWord,  kLong, kOtherText};

// Records of all types, some without some properties, with empty, short and large strings and blobs.
void WriteVaried(HANDLE database, const std::function<CEOID(HANDLE, std::vector<CEPROPVAL>)>& write, long records) {
    for (long i = 0; i < records; ++i) {
        const std::wstring text(static_cast<size_t>(i * 37 % 1500), static_cast<wchar_t>(L'a' + i % 26));
        const std::string blob(static_cast<size_t>(i * 91 % 5000), static_cast<char>(i));
        std::vector<CEPROPVAL> values = {NumberValue(kNumber, i - 50)};
        if (i % 2) values.push_back(TextValue(kText, text.c_str()));
        if (i % 3) values.push_back(BlobValue(kBlob, blob.data(), blob.size()));
        if (i % 5) values.push_back(TimeValue(kTime, static_cast<unsigned long long>(i) << 58));
        if (i % 7) values.push_back(TextValue(kOtherText, text.c_str()));
        values.push_back(NumberValue(kShort, -i));
        values.push_back(NumberValue(kBool, i % 4));
        values.push_back(NumberValue(kWord, 65'000 + i));
        values.push_back(NumberValue(kLong, -i));
        CEPROPVAL real = {};
        real.propid = kDouble;
        real.val.dblVal = -1.5 * static_cast<double>(i);
        values.push_back(real);
        ASSERT_NE(write(database, values), 0u);
    }
}

TEST_F(ScanTest, GivesTheSameValuesAsAWalk) {
    const HANDLE database = Make({{kText, 0}});
    CeBeginBatch();
    WriteVaried(
        database, [](HANDLE handle, std::vector<CEPROPVAL> values) { return Write(handle, std::move(values)); }, 120);
    ASSERT_TRUE(CeCommitBatch());
    for (const auto& ids : {kAllKinds, {kBlob}, {kOtherText, kBlob, kText}, {kTime, kTime}}) {
        const Content walked = ByWalk(database, ids);
        EXPECT_EQ(walked.size(), 120u);
        EXPECT_EQ(ByScan(database, ids), walked);
    }
}

TEST_F(ScanTest, AnEmptyDatabaseHasNothingToVisit) {
    const HANDLE database = Make({{kText, 0}});
    EXPECT_TRUE(Scan(database, {kText}, [](CEOID, WORD, const CEPROPVAL*) { return ADD_FAILURE(), true; }));
}

TEST_F(ScanTest, AMissingPropertyIsZeroAndSaysSo) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID record = Add(database, L"a");
    constexpr CEPROPID kNobodyHas = 0x00770003;
    size_t seen = 0;
    EXPECT_TRUE(Scan(database, {kNobodyHas, kText, kBlob}, [&](CEOID visited, WORD, const CEPROPVAL* values) {
        EXPECT_EQ(visited, record);
        EXPECT_EQ(values[0].propid, kNobodyHas);
        EXPECT_EQ(values[0].wFlags, CEDB_PROPNOTFOUND);
        EXPECT_EQ(values[0].val.lVal, 0);
        EXPECT_EQ(values[1].wFlags, 0);
        EXPECT_STREQ(values[1].val.lpwstr, L"a");
        EXPECT_EQ(values[2].wFlags, CEDB_PROPNOTFOUND);
        EXPECT_EQ(values[2].val.blob.lpb, nullptr);
        return ++seen, true;
    }));
    EXPECT_EQ(seen, 1u);
}

TEST_F(ScanTest, BlobsAreAlignedForNumbers) {
    const HANDLE database = Make({{kText, 0}});
    Write(database, {TextValue(kText, L"odd"), BlobValue(kBlob, "12345678", 8), TextValue(kOtherText, L"")});
    EXPECT_TRUE(Scan(database, {kText, kBlob, kOtherText}, [](CEOID, WORD, const CEPROPVAL* values) {
        EXPECT_EQ(reinterpret_cast<ULONG_PTR>(values[1].val.blob.lpb) % 8, 0u);
        EXPECT_STREQ(values[2].val.lpwstr, L"");
        return true;
    }));
}

TEST_F(ScanTest, WithoutPropertiesItGivesTheRecords) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID a = Add(database, L"a"), b = Add(database, L"b");
    EXPECT_EQ(ByScan(database, {}), (Content{{a, {}}, {b, {}}}));
}

TEST_F(ScanTest, TheVisitorEndsIt) {
    const HANDLE database = Make({{kText, 0}});
    for (int i = 0; i < 10; ++i)
        Add(database, L"a");
    size_t seen = 0;
    EXPECT_TRUE(Scan(database, {kText}, [&](CEOID, WORD, const CEPROPVAL*) { return ++seen < 4; }));
    EXPECT_EQ(seen, 4u);
    EXPECT_NE(Add(database, L"b"), 0u);  // and the store is free again
    EXPECT_EQ(CountByScan(database), 11u);
}

TEST_F(ScanTest, ThePositionStays) {
    const HANDLE database = Make({{kText, 0}});
    for (const wchar_t* text : {L"a", L"b", L"c"})
        Add(database, text);
    const CEOID middle = First(database, 1);
    EXPECT_EQ(CountByScan(database), 3u);
    EXPECT_EQ(Step(database, 0), middle);
    const HANDLE moving = OpenBy(kText, CEDB_AUTOINCREMENT);
    EXPECT_EQ(CountByScan(moving), 3u);
    EXPECT_EQ(Read(moving, {kText}).Text(0), L"a");
}

TEST_F(ScanTest, RefusesWhatItCannotDo) {
    const HANDLE database = Make({{kText, 0}});
    const auto visit = [](CEOID, WORD, const CEPROPVAL*, void*) { return TRUE; };
    const CEPROPID id = kText;
    EXPECT_FALSE(CeScanRecords(database, 1, nullptr, visit, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeScanRecords(database, 1, &id, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeScanRecords(nullptr, 1, &id, visit, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

// ---- What a visitor may do ----

TEST_F(ScanTest, AVisitorMayReadTheStore) {
    const HANDLE database = Make({{kText, 0}});
    std::vector<CEOID> records;
    const std::wstring large(2000, L'x');
    for (const wchar_t* text : {L"a", L"b", L"c"})
        records.push_back(Write(database, {TextValue(kText, text), TextValue(kOtherText, large.c_str())}));
    size_t seen = 0;
    EXPECT_TRUE(Scan(database, {kText, kOtherText}, [&](CEOID record, WORD, const CEPROPVAL* values) {
        EXPECT_EQ(ReadAt(database, record, {kText, kOtherText}).Text(0), values[0].val.lpwstr);
        EXPECT_EQ(values[1].val.lpwstr, large);
        EXPECT_EQ(CountByScan(database), 3u);
        EXPECT_EQ(Count(Oid()), 3);
        return ++seen, true;
    }));
    EXPECT_EQ(seen, 3u);
}

TEST_F(ScanTest, AVisitorMayNotWrite) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID record = Add(database, L"a");
    size_t seen = 0;
    EXPECT_TRUE(Scan(database, {kText}, [&](CEOID, WORD, const CEPROPVAL* values) {
        const auto refused = [](bool result) {
            EXPECT_FALSE(result);
            EXPECT_EQ(GetLastError(), DWORD{ERROR_BUSY});
        };
        refused(Add(database, L"b") != 0);
        refused(Write(database, {TextValue(kText, L"b")}, record) != 0);
        refused(CeDeleteRecord(database, record));
        refused(CeCreateDatabase(L"\\Other", 0, 0, nullptr) != 0);
        CEDBASEINFO info = {};
        refused(CeSetDatabaseInfo(Oid(), &info));
        refused(CeBeginBatch());
        EXPECT_STREQ(values[0].val.lpwstr, L"a");
        return ++seen, true;
    }));
    EXPECT_EQ(seen, 1u);
    EXPECT_EQ(Order(database), std::vector<CEOID>{record});
    EXPECT_NE(Add(database, L"b"), 0u);
    ExpectSound();
}

TEST_F(ScanTest, AVisitorCannotEndABatch) {
    const HANDLE database = Make({{kText, 0}});
    ASSERT_TRUE(CeBeginBatch());
    Add(database, L"a");
    Add(database, L"b");
    size_t seen = 0;
    EXPECT_TRUE(Scan(database, {kText}, [&](CEOID, WORD, const CEPROPVAL*) {
        EXPECT_FALSE(CeCommitBatch());
        EXPECT_EQ(GetLastError(), DWORD{ERROR_BUSY});
        EXPECT_FALSE(CeCancelBatch());
        EXPECT_EQ(GetLastError(), DWORD{ERROR_BUSY});
        EXPECT_EQ(Add(database, L"c"), 0u);
        return ++seen, true;
    }));
    EXPECT_EQ(seen, 2u);  // what the batch has written is there for its own thread
    EXPECT_TRUE(CeCommitBatch());
    Reopen();
    EXPECT_EQ(Count(Oid()), 2);
}

TEST_F(ScanTest, AVisitorMayCloseTheHandleButNotTheStore) {
    Make({{kText, 0}});
    for (const wchar_t* text : {L"a", L"b"})
        Add(OpenBy(kText), text);
    Reopen();
    CEOID oid = 0;
    const HANDLE handle = CeOpenDatabase(&oid, L"\\Test", kText, 0, nullptr);
    size_t seen = 0;
    EXPECT_TRUE(Scan(handle, {kText}, [&](CEOID, WORD, const CEPROPVAL*) {
        CeCloseHandle(handle);
        EXPECT_FALSE(CeUnmountObjectStore());
        EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
        return ++seen, true;
    }));
    EXPECT_EQ(seen, 2u);
    EXPECT_TRUE(CeUnmountObjectStore());
}

// ---- Others, and damage ----

TEST_F(ScanTest, SeesWhatAnotherProcessWroteBefore) {
    const HANDLE database = Make({{kText, 0}});
    Add(database, L"b");
    EXPECT_EQ(CountByScan(database), 1u);
    OtherProcess other;
    EXPECT_EQ(other.Do("open \\Test 1001F"), std::to_string(Oid()));
    const CEOID theirs = std::stoul(other.Do("add a"));
    EXPECT_EQ(ByScan(database, {kText}).count(theirs), 1u);
    EXPECT_EQ(other.Do("delete " + std::to_string(theirs)), "1");
    EXPECT_EQ(CountByScan(database), 1u);
}

TEST_F(ScanTest, WhatAnotherProcessWritesMeanwhileIsSeenAfterwards) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID first = Add(database, L"a");
    const CEOID second = Add(database, L"b");
    OtherProcess other;
    EXPECT_EQ(other.Do("open \\Test 1001F"), std::to_string(Oid()));
    std::vector<CEOID> seen;
    EXPECT_TRUE(Scan(database, {kText}, [&](CEOID record, WORD, const CEPROPVAL*) {
        if (seen.empty()) {
            EXPECT_EQ(other.Do("delete " + std::to_string(second)), "1");
            EXPECT_NE(other.Do("add c"), "0");
        }
        seen.push_back(record);
        EXPECT_EQ(Count(Oid()), 2);  // the calls it makes see the same
        return true;
    }));
    EXPECT_EQ(seen, (std::vector<CEOID>{first, second}));
    const Content after = ByScan(database, {kText});
    EXPECT_EQ(after.size(), 2u);
    EXPECT_EQ(after.count(second), 0u);
}

TEST_F(ScanTest, ALostLargeValueIsDamage) {
    const HANDLE database = Make({{kText, 0}});
    const std::string large(3000, 'x');
    Write(database, {TextValue(kText, L"a"), BlobValue(kBlob, large.data(), large.size())});
    Reopen();
    sqlite3* file = nullptr;
    char path[1024] = {};
    WideCharToMultiByte(CP_UTF8, 0, StoreFile().c_str(), -1, path, sizeof path, nullptr, nullptr);
    ASSERT_EQ(sqlite3_open(path, &file), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(file, "DELETE FROM large", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(file);
    const HANDLE again = OpenBy(kText);
    EXPECT_EQ(CountByScan(again), 1u);  // it was not asked for
    EXPECT_FALSE(Scan(again, {kBlob}, [](CEOID, WORD, const CEPROPVAL*) { return true; }));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_CORRUPT});
    EXPECT_EQ(First(again), Step(again, 0));  // the store goes on
}

// ---- In the handle's order, from a place on ----

class ScanFromTest : public ScanTest {
protected:
    using Ids = std::vector<CEOID>;

    // The records that are visited from the place on, `most` of them.
    static Ids From(HANDLE database, DWORD place, size_t most = 1000) {
        Ids seen;
        EXPECT_TRUE(VisitFrom(database, place, {}, [&](CEOID record, WORD, const CEPROPVAL*) {
            seen.push_back(record);
            return seen.size() < most;
        }));
        return seen;
    }
    static BOOL VisitFrom(HANDLE database, DWORD place, const std::vector<CEPROPID>& ids, const Visit& visit) {
        const auto call = [](CEOID record, WORD count, const CEPROPVAL* values, void* context) -> BOOL {
            return (*static_cast<const Visit*>(context))(record, count, values);
        };
        return CeScanRecordsFrom(database, place, static_cast<WORD>(ids.size()), ids.data(), call,
                                 const_cast<Visit*>(&visit));
    }
    static Ids Walk(HANDLE database) {
        Ids walked;
        for (CEOID record = First(database); record != 0; record = Step(database, 1))
            walked.push_back(record);
        return walked;
    }
};

TEST_F(ScanFromTest, VisitsWhatAWalkFromThatPlaceDoes) {
    const HANDLE database = Make({{kText, 0}});
    for (const wchar_t* text : {L"m", L"c", L"x", L"a", L"q"})
        Add(database, text);
    const Ids walked = Walk(database);
    for (DWORD place = 0; place <= 6; ++place) {
        const auto skipped = static_cast<ptrdiff_t>(std::min<size_t>(place, walked.size()));
        EXPECT_EQ(From(database, place), Ids(walked.begin() + skipped, walked.end())) << place;
    }
    EXPECT_TRUE(From(database, MAXDWORD).empty());
    EXPECT_EQ(From(database, 1, 2), Ids(walked.begin() + 1, walked.begin() + 3));
}

TEST_F(ScanFromTest, GivesTheSameValuesAsAWalk) {
    const HANDLE database = Make({{kText, 0}});
    CeBeginBatch();
    WriteVaried(
        database, [](HANDLE handle, std::vector<CEPROPVAL> values) { return Write(handle, std::move(values)); }, 60);
    ASSERT_TRUE(CeCommitBatch());
    Content seen;
    EXPECT_TRUE(VisitFrom(database, 0, kAllKinds, [&](CEOID record, WORD count, const CEPROPVAL* values) {
        return seen.emplace(record, Describe(values, count)).second;
    }));
    EXPECT_EQ(seen, ByWalk(database, kAllKinds));
}

TEST_F(ScanFromTest, LeavesThePositionAndLetsTheVisitorReadAndNotWrite) {
    const HANDLE database = Make({{kText, 0}});
    const CEOID first = Add(database, L"a");
    const CEOID second = Add(database, L"b");
    ASSERT_EQ(First(database), first);
    Ids inner;
    EXPECT_TRUE(VisitFrom(database, 1, {kText}, [&](CEOID record, WORD, const CEPROPVAL* values) {
        EXPECT_EQ(record, second);
        inner = From(database, 0);
        EXPECT_STREQ(values[0].val.lpwstr, L"b");
        EXPECT_EQ(Add(database, L"c"), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_BUSY});
        return true;
    }));
    EXPECT_EQ(inner, (Ids{first, second}));
    EXPECT_EQ(Step(database, 0), first);
}

TEST_F(ScanFromTest, RefusesBadParameters) {
    const HANDLE database = Make({{kText, 0}});
    const auto visit = [](CEOID, WORD, const CEPROPVAL*, void*) -> BOOL { return TRUE; };
    EXPECT_FALSE(CeScanRecordsFrom(database, 0, 1, nullptr, visit, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeScanRecordsFrom(database, 0, 0, nullptr, nullptr, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeScanRecordsFrom(nullptr, 0, 0, nullptr, visit, nullptr));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

}  // namespace
