// Copies of the whole store, and the store out of one: with others at work, out of damaged files, and killed on the
// way.
#include <gmock/gmock.h>
#include <storebackup.h>
#include <storebatch.h>
#include <storefault.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "tests/objectstore/other_process.h"
#include "tests/objectstore/store_fixture.h"

namespace {

namespace fs = std::filesystem;

class BackupTest : public StoreTest {
protected:
    ~BackupTest() override { CeClearFaults(); }

    std::wstring Copy() const { return files_.File(L"copy.db"); }
    static std::string Bytes(const std::wstring& path) {
        std::ifstream file(fs::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    static void WriteBytes(const std::wstring& path, const std::string& bytes) {
        std::ofstream(fs::path(path), std::ios::binary) << bytes;
    }

    static HANDLE Open() {
        CEOID oid = 0;
        return CeOpenDatabase(&oid, L"\\Test", kText, 0, nullptr);
    }
    // A store whose records have texts that begin so.
    void Fill(const std::wstring& text, int records) {
        if (DatabaseHandle(Open()) == INVALID_HANDLE_VALUE) {
            SORTORDERSPEC order = {kText, 0};
            ASSERT_NE(CeCreateDatabase(L"\\Test", 77, 1, &order), 0u);
        }
        const DatabaseHandle database(Open());
        for (int i = 0; i < records; ++i)
            Write(database, {TextValue(kText, (text + std::to_wstring(i)).c_str()),
                             BlobValue(kBlob, std::string(3000, 'b').data(), 3000)});
    }
    // What the store holds now: the first text and the number of records.
    std::wstring Content() {
        const DatabaseHandle database(Open());
        if (First(database) == 0) return L"empty";
        const std::wstring text = Read(database, {kText}).Text(0);
        return text + L" " + std::to_wstring(Order(database).size());
    }
    static DWORD Restore(const std::wstring& file, std::wstring* kept = nullptr) {
        wchar_t name[MAX_PATH] = L"?";
        SetLastError(0);
        const BOOL done = CeRestoreObjectStore(file.c_str(), name, MAX_PATH);
        if (kept) *kept = name;
        return done ? 0 : GetLastError();
    }
    static DWORD BackUp(const std::wstring& file) {
        SetLastError(0);
        return CeBackupObjectStore(file.c_str()) ? 0 : GetLastError();
    }
    // A store with other contents, as a file alone.
    void MakeCopyOfOther() {
        Fill(L"other ", 40);
        EXPECT_EQ(BackUp(Copy()), 0u);
        DeleteStore();
    }
    void DeleteStore() {
        EXPECT_TRUE(CeUnmountObjectStore());
        for (const wchar_t* end : {L"", L"-wal", L"-shm"})
            DeleteFileW((StoreFile() + end).c_str());
    }
    // One more record, in the log of a process that was killed. Nobody has the store open afterwards.
    void AddAndKill() {
        ASSERT_TRUE(CeUnmountObjectStore());
        OtherProcess other;
        other.Do("open \\Test 1001F");
        other.Do("add zz last");
        other.Kill();
        ASSERT_GT(fs::file_size(StoreFile() + L"-wal"), 0u);
    }
    // What stands beside the store, its own files apart.
    std::vector<std::wstring> Beside() const {
        std::vector<std::wstring> names;
        const fs::path store(StoreFile());
        for (const auto& file : fs::directory_iterator(store.parent_path())) {
            const std::wstring name = file.path().filename().wstring();
            const std::wstring own = store.filename().wstring();
            if (name != own && name != own + L"-wal" && name != own + L"-shm") names.push_back(name);
        }
        return names;
    }

    TempFolder files_;
};

// ---- Backup ----

TEST_F(BackupTest, ACopyIsOneFileThatIsAStore) {
    Fill(L"mine ", 30);
    ASSERT_EQ(BackUp(Copy()), 0u);
    EXPECT_EQ(std::distance(fs::directory_iterator(files_.Path()), {}), 1);
    EXPECT_EQ(Content(), L"mine 0 30") << "the store itself stays in use";
    ASSERT_TRUE(CeUnmountObjectStore());
    SetEnvironmentVariableW(L"CE_OBJECT_STORE", Copy().c_str());
    ExpectSound();
    EXPECT_EQ(Content(), L"mine 0 30");
    ASSERT_TRUE(CeUnmountObjectStore());
    SetEnvironmentVariableW(L"CE_OBJECT_STORE", StoreFile().c_str());
}

TEST_F(BackupTest, AnOlderCopyIsReplacedAndAnyOtherFileIsNot) {
    Fill(L"mine ", 3);
    ASSERT_EQ(BackUp(Copy()), 0u);
    const std::string first = Bytes(Copy());
    Fill(L"more ", 300);
    ASSERT_EQ(BackUp(Copy()), 0u);
    EXPECT_GT(Bytes(Copy()).size(), first.size());

    const std::wstring letter = files_.File(L"letter.txt");
    WriteBytes(letter, "Dear Ada");
    EXPECT_EQ(BackUp(letter), static_cast<DWORD>(ERROR_FILE_EXISTS));
    EXPECT_EQ(Bytes(letter), "Dear Ada");
    EXPECT_EQ(BackUp(files_.Path().wstring()), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(BackUp(StoreFile()), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(BackUp(L""), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(BackUp(files_.File(L"no folder\\copy.db")), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(Content(), L"mine 0 303");
}

TEST_F(BackupTest, WhatAnotherProcessWritesMeanwhileIsInWholeOrNotAtAll) {
    Fill(L"mine ", 300);
    OtherProcess other;
    other.Do("open \\Test 1001F");
    other.Send("write 1");
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(other.ReadLine());
    for (int round = 0; round < 5; ++round) {
        ASSERT_EQ(BackUp(Copy()), 0u) << round;  // which checks every record and index of the copy
        for (int i = 0; i < 20; ++i)
            ASSERT_TRUE(other.ReadLine()) << "the other goes on";
    }
    other.Kill();
    EXPECT_EQ(Restore(Copy()), 0u);
    ExpectSound();
}

TEST_F(BackupTest, ABatchKeepsItFromBeginning) {
    Fill(L"mine ", 1);
    ASSERT_TRUE(CeBeginBatch());
    EXPECT_EQ(BackUp(Copy()), static_cast<DWORD>(ERROR_BUSY));
    ASSERT_TRUE(CeCancelBatch());
    EXPECT_FALSE(fs::exists(Copy()));
}

TEST_F(BackupTest, ADiskThatFailsAtAnyMomentLeavesTheOlderCopy) {
    Fill(L"mine ", 20);
    ASSERT_EQ(BackUp(Copy()), 0u);
    const std::string before = Bytes(Copy());
    Fill(L"more ", 20);
    DWORD nth = 1;
    for (;; ++nth) {
        ASSERT_LT(nth, 500u);
        CeFailDisk(nth, kCeDiskFull);
        const DWORD error = BackUp(Copy());
        CeClearFaults();
        if (error == 0) break;
        EXPECT_EQ(error, static_cast<DWORD>(ERROR_DISK_FULL)) << nth;
        EXPECT_EQ(Bytes(Copy()), before) << nth;
        EXPECT_EQ(std::distance(fs::directory_iterator(files_.Path()), {}), 1) << nth;
    }
    EXPECT_GT(nth, 5u);
    EXPECT_NE(Bytes(Copy()), before);
}

// ---- Restore ----

TEST_F(BackupTest, TheStoreIsTheCopyAndTheOldOneIsKeptBesideIt) {
    MakeCopyOfOther();
    Fill(L"mine ", 25);
    const std::string copy = Bytes(Copy());
    std::wstring kept;
    ASSERT_EQ(Restore(Copy(), &kept), 0u);
    EXPECT_EQ(Content(), L"other 0 40");
    ExpectSound();
    EXPECT_EQ(Bytes(Copy()), copy) << "the file stays as it is";
    EXPECT_TRUE(std::regex_search(kept, std::wregex(LR"(-20\d\d-\d\d-\d\d-\d{6}\.db$)")))
        << testing::PrintToString(kept);
    EXPECT_THAT(Beside(), testing::ElementsAre(fs::path(kept).filename().wstring()));
    ASSERT_EQ(Restore(kept), 0u);
    EXPECT_EQ(Content(), L"mine 0 25");
}

TEST_F(BackupTest, WithoutAStoreTheCopyIsTheFirst) {
    MakeCopyOfOther();
    std::wstring kept;
    ASSERT_EQ(Restore(Copy(), &kept), 0u);
    EXPECT_EQ(kept, L"");
    EXPECT_EQ(Content(), L"other 0 40");
}

TEST_F(BackupTest, TwoInOneSecondKeepBothOldStores) {
    MakeCopyOfOther();
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(Restore(Copy()), 0u);
    EXPECT_EQ(Beside().size(), 2u);
}

TEST_F(BackupTest, WhileAnyProcessUsesTheStoreItIsRefused) {
    MakeCopyOfOther();
    Fill(L"mine ", 5);
    {
        const DatabaseHandle database(Open());
        EXPECT_EQ(Restore(Copy()), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    }
    OtherProcess other;
    other.Do("open \\Test 1001F");
    EXPECT_EQ(Restore(Copy()), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    EXPECT_EQ(Content(), L"mine 0 5");
    EXPECT_EQ(Beside().size(), 0u);
    ASSERT_TRUE(CeUnmountObjectStore());
    other.Do("close");  // it has the file still, with no database open
    const DWORD error = Restore(Copy());
    if (error != 0) {
        EXPECT_EQ(Content(), L"mine 0 5") << error;
        EXPECT_EQ(Beside().size(), 0u);
    }
    other.Quit();
    ASSERT_EQ(Restore(Copy()), 0u);
    EXPECT_EQ(Content(), L"other 0 40");
    ExpectSound();
}

TEST_F(BackupTest, TheLogOfAKilledProcessIsKeptWithTheOldStoreAndOutOfTheNew) {
    MakeCopyOfOther();
    Fill(L"mine ", 5);
    AddAndKill();
    std::wstring kept;
    ASSERT_EQ(Restore(Copy(), &kept), 0u);
    EXPECT_EQ(Content(), L"other 0 40");
    ExpectSound();
    ASSERT_EQ(Restore(kept), 0u);
    EXPECT_EQ(Content(), L"mine 0 6");
    ExpectSound();
}

TEST_F(BackupTest, ATruncatedFileIsRefusedAtAnyLength) {
    MakeCopyOfOther();
    Fill(L"mine ", 5);
    ASSERT_TRUE(CeUnmountObjectStore());
    const std::string whole = Bytes(Copy());
    const std::wstring cut = files_.File(L"cut.db");
    std::vector<size_t> lengths = {0, 1, 15, 16, 71, 72, 99, 100, 511, 4095, whole.size() - 1};
    for (size_t length = 4096; length < whole.size(); length += 4096)
        lengths.push_back(length);
    for (size_t length = 777; length < whole.size(); length += 31'337)
        lengths.push_back(length);
    for (const size_t length : lengths) {
        WriteBytes(cut, whole.substr(0, length));
        EXPECT_EQ(Restore(cut), static_cast<DWORD>(ERROR_FILE_CORRUPT)) << length;
        EXPECT_EQ(Bytes(cut).size(), length);
    }
    EXPECT_GT(lengths.size(), 30u);
    EXPECT_EQ(Content(), L"mine 0 5");
    EXPECT_EQ(Beside().size(), 0u);
}

TEST_F(BackupTest, ForeignAndUnreadableFilesAreRefused) {
    Fill(L"mine ", 5);
    ASSERT_TRUE(CeUnmountObjectStore());
    const std::wstring file = files_.File(L"file");
    WriteBytes(file, "Dear Ada, this is a letter." + std::string(8192 - 27, ' '));
    EXPECT_EQ(Restore(file), static_cast<DWORD>(ERROR_FILE_CORRUPT));
    std::string other = Bytes(StoreFile());
    other[68] = 'X';  // some other program's database
    WriteBytes(file, other);
    EXPECT_EQ(Restore(file), static_cast<DWORD>(ERROR_FILE_CORRUPT));
    other = Bytes(StoreFile());
    other[63] = 99;  // user_version
    WriteBytes(file, other);
    EXPECT_EQ(Restore(file), static_cast<DWORD>(ERROR_REVISION_MISMATCH));
    other = Bytes(StoreFile());
    other.replace(other.size() / 2, 4096, 4096, '\x55');
    WriteBytes(file, other);
    EXPECT_EQ(Restore(file), static_cast<DWORD>(ERROR_FILE_CORRUPT));
    EXPECT_EQ(Restore(files_.File(L"missing.db")), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(Restore(StoreFile()), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_NE(Restore(files_.Path().wstring()), 0u);
    EXPECT_EQ(Content(), L"mine 0 5");
    EXPECT_EQ(Beside().size(), 0u);
}

TEST_F(BackupTest, ADamagedStoreIsReplacedAndKeptAsItIs) {
    MakeCopyOfOther();
    Fill(L"mine ", 5);
    ASSERT_TRUE(CeUnmountObjectStore());
    const std::string damaged = Bytes(StoreFile()).substr(0, 5000);
    WriteBytes(StoreFile(), damaged);
    std::wstring kept;
    ASSERT_EQ(Restore(Copy(), &kept), 0u);
    EXPECT_EQ(Content(), L"other 0 40");
    EXPECT_EQ(Bytes(kept), damaged);
}

TEST_F(BackupTest, KilledAtAnyStepOrDiskWriteItLeavesTheOldStoreOrTheNewOneWhole) {
    MakeCopyOfOther();
    Fill(L"mine ", 25);
    const std::wstring copy = Copy();
    const std::string line(copy.begin(), copy.end());
    int records = 25, olds = 0, news = 0;
    const auto killed = [&](const std::string& step) {
        AddAndKill();  // so that there is a log to be put into the old store
        const std::wstring mine = L"mine 0 " + std::to_wstring(++records);
        {
            OtherProcess other;
            other.Do("kill " + step);
            other.Send("restore " + line);
            const auto answer = other.ReadLine();
            ASSERT_TRUE(!answer || *answer == "1") << step << ": " << *answer;
            if (answer) other.Quit();
        }
        const std::wstring content = Content();
        EXPECT_TRUE(content == mine || content == L"other 0 40") << step;
        (content == mine ? olds : news) += 1;
        ExpectSound();
        if (content == mine) return;
        // Back to the old one, which the restore kept; the newest has all records.
        ASSERT_TRUE(CeUnmountObjectStore());
        std::vector<std::wstring> names = Beside();
        std::sort(names.begin(), names.end());
        ASSERT_FALSE(names.empty());
        const fs::path folder = fs::path(StoreFile()).parent_path();
        for (const std::wstring& name : names) {
            if (Content() == mine) break;
            if (name.find(L"-20") != std::wstring::npos) Restore((folder / name).wstring());
        }
        ASSERT_EQ(Content(), mine) << step;
    };
    for (const char* step : {"restore: copied", "restore: checked", "restore: log", "restore: kept", "restore: ready"})
        killed(step);
    EXPECT_EQ(news, 0);
    killed("restore: done");
    EXPECT_EQ(news, 1);
    EXPECT_EQ(olds, 5);
    int writes = 0;
    for (; writes < 500 && news == 1 && !HasFatalFailure(); ++writes)
        killed("disk " + std::to_string(writes + 1));
    EXPECT_GT(writes, 3);
    EXPECT_EQ(news, 2) << "the last restore came to its end";
    // What was left behind is no longer there after a restore that ends.
    ASSERT_EQ(Restore(Copy()), 0u);
    for (const std::wstring& name : Beside())
        EXPECT_NE(name.find(L"-20"), std::wstring::npos) << std::string(name.begin(), name.end());
}

TEST_F(BackupTest, ADiskThatFailsAtAnyMomentLeavesTheOldStore) {
    MakeCopyOfOther();
    Fill(L"mine ", 25);
    DWORD nth = 1;
    for (;; ++nth) {
        ASSERT_LT(nth, 500u);
        AddAndKill();
        CeFailDisk(nth, kCeDiskWriteError);
        const DWORD error = Restore(Copy());
        CeClearFaults();
        if (error == 0) break;
        EXPECT_EQ(Content(), L"mine 0 " + std::to_wstring(25 + nth)) << nth;
        EXPECT_EQ(Beside().size(), 0u) << nth;
    }
    EXPECT_GT(nth, 3u);
    EXPECT_EQ(Content(), L"other 0 40");
    for (const char* step : {"restore: copied", "restore: checked", "restore: log"}) {
        CeFailCall(step, 1, ERROR_DISK_FULL);
        const size_t beside = Beside().size();
        EXPECT_EQ(Restore(Copy()), static_cast<DWORD>(ERROR_DISK_FULL)) << step;
        EXPECT_EQ(Beside().size(), beside) << step;
        EXPECT_EQ(Content(), L"other 0 40") << step;
    }
}

}  // namespace
