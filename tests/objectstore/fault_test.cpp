// Calls and disks that fail on demand.
#include <storebatch.h>
#include <storefault.h>
#include <storescan.h>

#include <filesystem>

#include "tests/objectstore/store_fixture.h"

namespace {

using FaultTest = StoreTest;

TEST_F(FaultTest, TheNthCallFailsOnce) {
    const HANDLE database = Make({{kText, 0}});
    CeFailCall("CeWriteRecordProps", 2, ERROR_DISK_FULL);
    EXPECT_NE(Add(database, L"a"), 0u);
    EXPECT_EQ(Add(database, L"b"), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    EXPECT_NE(Add(database, L"c"), 0u);
    EXPECT_EQ(Count(Oid()), 2);
}

struct Named {
    const char* function;
    bool (*call)(HANDLE);
};

TEST_F(FaultTest, EveryCallCanFail) {
    const Named calls[] = {
        {"CeCreateDatabase", [](HANDLE) { return CeCreateDatabase(L"n", 0, 0, nullptr) != 0; }},
        {"CeOpenDatabase",
         [](HANDLE) {
             CEOID oid = 0;
             return CeOpenDatabase(&oid, L"\\Test", 0, 0, nullptr) != INVALID_HANDLE_VALUE;
         }},
        {"CeDeleteDatabase", [](HANDLE) { return CeDeleteDatabase(1) != FALSE; }},
        {"CeSetDatabaseInfo",
         [](HANDLE) {
             CEDBASEINFO info = {};
             return CeSetDatabaseInfo(1, &info) != FALSE;
         }},
        {"CeOidGetInfo",
         [](HANDLE) {
             CEOIDINFO info = {};
             return CeOidGetInfo(1, &info) != FALSE;
         }},
        {"CeFindFirstDatabase", [](HANDLE) { return CeFindFirstDatabase(0) != INVALID_HANDLE_VALUE; }},
        {"CeFindNextDatabase", [](HANDLE handle) { return CeFindNextDatabase(handle) != 0; }},
        {"CloseHandle", [](HANDLE handle) { return CeCloseHandle(handle) != FALSE; }},
        {"CeSeekDatabase", [](HANDLE handle) { return CeSeekDatabase(handle, CEDB_SEEK_BEGINNING, 0, nullptr) != 0; }},
        {"CeReadRecordProps",
         [](HANDLE handle) {
             WORD count = 0;
             LPBYTE buffer = nullptr;
             DWORD size = 0;
             return CeReadRecordProps(handle, CEDB_ALLOWREALLOC, &count, nullptr, &buffer, &size) != 0;
         }},
        {"CeScanRecords",
         [](HANDLE handle) {
             const auto visit = [](CEOID, WORD, const CEPROPVAL*, void*) { return TRUE; };
             return CeScanRecords(handle, 0, nullptr, visit, nullptr) != FALSE;
         }},
        {"CeDeleteRecord", [](HANDLE handle) { return CeDeleteRecord(handle, 1) != FALSE; }},
    };
    const HANDLE database = Make({{kText, 0}});
    for (const Named& named : calls) {
        CeFailCall(named.function, 1, 4711);
        EXPECT_FALSE(named.call(database)) << named.function;
        EXPECT_EQ(GetLastError(), 4711u) << named.function;
    }
}

// One after the other, each write and flush of a piece of work fails, and all after it too, as on a full disk. What was
// answered as written must be there afterwards, what failed must not, and the store must be sound.
class DiskFaultTest : public StoreTest, public testing::WithParamInterface<CeDiskFault> {
protected:
    struct Outcome {
        std::vector<CEOID> written;
        bool changed = false;
        bool deleted = false;
        bool batch = false;
    };

    Outcome Work(HANDLE database, CEOID toChange, CEOID toDelete) {
        const std::string large(9000, 'x');
        Outcome outcome;
        for (const wchar_t* text : {L"new 1", L"new 2"}) {
            const CEOID record = Write(database, {TextValue(kText, text), NumberValue(kNumber, 5),
                                                  BlobValue(kBlob, large.data(), large.size())});
            if (record != 0) {
                outcome.written.push_back(record);
            } else {
                EXPECT_EQ(GetLastError(), GetParam() == kCeDiskFull ? DWORD{ERROR_DISK_FULL} : DWORD{ERROR_IO_DEVICE});
            }
        }
        outcome.changed =
            Write(database, {TextValue(kText, L"changed"), BlobValue(kBlob, large.data(), 5000)}, toChange) != 0;
        outcome.deleted = CeDeleteRecord(database, toDelete);
        if (CeBeginBatch()) {
            for (long i = 0; i < 20; ++i)
                Write(database, {NumberValue(kNumber, 1000), NumberValue(kShort, 1)});
            outcome.batch = CeCommitBatch();
        }
        return outcome;
    }
};

TEST_P(DiskFaultTest, AWriteThatFailsLeavesNothingAndOneThatReturnedStays) {
    DWORD total = 0;
    bool finished = false;
    for (DWORD n = 1; !finished; ++n) {
        ASSERT_LT(n, 500u);
        const std::wstring name = L"run " + std::to_wstring(n);
        HANDLE database = Make({{kText, 0}, {kNumber, 0}}, name.c_str());
        const CEOID toChange = Add(database, L"before");
        const CEOID toDelete = Add(database, L"deleted");
        First(database, 1);
        Reopen();  // the log is empty
        database = OpenBy(kText, 0, nullptr, name.c_str());
        const CEOID oid = Oid();
        CeFailDisk(n, GetParam());
        const Outcome outcome = Work(database, toChange, toDelete);
        total = CeCountDiskWork();
        finished = total < n;  // nothing failed any more
        CeClearFaults();

        for (const bool reopened : {false, true}) {
            if (reopened) {
                Reopen();
                database = OpenBy(kText, 0, nullptr, name.c_str());
            }
            const size_t expected = 2 + outcome.written.size() - (outcome.deleted ? 1 : 0) + (outcome.batch ? 20 : 0);
            EXPECT_EQ(Count(oid), expected) << "fault " << n;
            EXPECT_EQ(Order(database).size(), expected) << "fault " << n;
            for (const CEOID record : outcome.written) {
                const ReadResult read = ReadAt(database, record, {kText, kBlob});
                EXPECT_EQ(read[1].val.blob.dwCount, 9000u) << "fault " << n;
            }
            EXPECT_EQ(ReadAt(database, toChange, {kText}).Text(0), outcome.changed ? L"changed" : L"before");
            EXPECT_EQ(SeekTo(database, toDelete) != 0, !outcome.deleted);
        }
        ExpectSound();
        EXPECT_NE(Add(database, L"after"), 0u) << "the store works again when the disk does";
        CloseHandle(database);
        ASSERT_TRUE(CeDeleteDatabase(oid));
        if (HasFailure()) break;
    }
    EXPECT_GT(total, 15u) << "the work writes and flushes often";
}

TEST_P(DiskFaultTest, AStoreThatCouldNotBeMadeLeavesNoFile) {
    DWORD total = 0;
    bool finished = false;
    for (DWORD n = 1; !finished; ++n) {
        ASSERT_LT(n, 500u);
        CeFailDisk(n, GetParam());
        const bool made = CeCreateDatabase(L"x", 0, 0, nullptr) != 0;
        total = CeCountDiskWork();
        CeClearFaults();
        finished = total < n;
        EXPECT_EQ(made, finished) << "fault " << n;
        if (!finished && std::filesystem::exists(StoreFile())) ExpectSound();
        EXPECT_FALSE(std::filesystem::exists(StoreFile() + L".new"));
        CeUnmountObjectStore();
        if (!finished) std::filesystem::remove(StoreFile());
    }
    EXPECT_GT(total, 10u);
    ExpectSound();
}

TEST_F(FaultTest, AQuestionThatOthersWereInTheWayOfIsAskedAgain) {
    const HANDLE database = Make({{kText, 0}});
    Add(database, L"a");
    for (const DWORD passing : {ERROR_LOCK_VIOLATION, ERROR_ACCESS_DENIED, ERROR_IO_DEVICE}) {
        Add(database, L"b");  // makes every snapshot old
        CeFailCall("snapshot", 1, passing);
        CEOIDINFO info = {};
        EXPECT_TRUE(CeOidGetInfo(Oid(), &info)) << passing;
        EXPECT_NE(info.infDatabase.wNumRecords, 0);
    }
    Add(database, L"c");
    CeFailCall("snapshot", 1, ERROR_LOCK_VIOLATION);
    CeFailCall("snapshot", 2, ERROR_LOCK_VIOLATION);
    CEOIDINFO info = {};
    EXPECT_FALSE(CeOidGetInfo(Oid(), &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_LOCK_VIOLATION});
    EXPECT_EQ(Count(Oid()), 5) << "and the next is answered";
}

// What processes share beside the file takes room, which a full disk has not.
TEST_F(FaultTest, AStoreOnAFullDiskIsReadAndSoundAndSaysSo) {
    const HANDLE made = Make({{kText, 0}});
    const CEOID record = Add(made, L"before");
    DWORD limit = 1;
    ASSERT_TRUE(CeObjectStoreLimit(&limit));
    EXPECT_EQ(limit, 0u);
    Reopen();
    CeFailDisk(1, kCeDiskFull);
    const HANDLE database = OpenBy(kText);
    ASSERT_TRUE(CeObjectStoreLimit(&limit));
    EXPECT_EQ(limit, DWORD{ERROR_DISK_FULL});
    EXPECT_EQ(Read(database, {kText}).Text(0), L"before");
    ExpectSound();
    EXPECT_EQ(Add(database, L"new"), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DISK_FULL});
    EXPECT_FALSE(CeDeleteRecord(database, record));
    EXPECT_EQ(Count(Oid()), 1);
    ExpectSound();
    CeClearFaults();
    EXPECT_NE(Add(database, L"new"), 0u) << "there is room again";
    ASSERT_TRUE(CeObjectStoreLimit(&limit));
    EXPECT_EQ(limit, 0u);
    Reopen();
    EXPECT_EQ(Order(OpenBy(kText)).size(), 2u);
    ExpectSound();
}

TEST_F(FaultTest, TheLimitOfAReadOnlyFileIsTold) {
    Make({});
    Reopen();
    ASSERT_TRUE(SetFileAttributesW(StoreFile().c_str(), FILE_ATTRIBUTE_READONLY));
    DWORD limit = 0;
    ASSERT_TRUE(CeObjectStoreLimit(&limit));
    EXPECT_EQ(limit, DWORD{ERROR_WRITE_PROTECT});
    EXPECT_FALSE(CeObjectStoreLimit(nullptr));
    EXPECT_TRUE(CeUnmountObjectStore());
    SetFileAttributesW(StoreFile().c_str(), FILE_ATTRIBUTE_NORMAL);
}

INSTANTIATE_TEST_SUITE_P(Faults, DiskFaultTest, testing::Values(kCeDiskFull, kCeDiskWriteError),
                         [](const auto& row) { return std::string(row.param == kCeDiskFull ? "Full" : "WriteError"); });

}  // namespace
