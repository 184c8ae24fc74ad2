// Files that are not, or no longer, a sound store: an error, never a crash, and the file stays as it is.
#include <storebatch.h>
#include <storescan.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/objectstore/store_fixture.h"

namespace {

class DamageTest : public StoreTest {
protected:
    // A store with something in every table, closed, so that all of it is in one file.
    void Fill() {
        const HANDLE database = Make({{kText, 0}, {kNumber, 0}});
        const std::string large(3000, 'x');
        CeBeginBatch();
        for (long i = 0; i < 300; ++i) {
            const std::wstring text = L"text " + std::to_wstring(i);
            Write(database, {TextValue(kText, text.c_str()), NumberValue(kNumber, i),
                             BlobValue(kBlob, large.data(), large.size())});
        }
        CeCommitBatch();
        Reopen();
    }
    std::string Load() const {
        std::ifstream file(std::filesystem::path(StoreFile()), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Save(const std::string& bytes) const {
        std::ofstream file(std::filesystem::path(StoreFile()), std::ios::binary | std::ios::trunc);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    // Opens the test's database; 0 or the error.
    static DWORD TryOpen() {
        CEOID oid = 0;
        const HANDLE handle = CeOpenDatabase(&oid, L"\\Test", kText, 0, nullptr);
        if (handle == INVALID_HANDLE_VALUE) return GetLastError();
        CloseHandle(handle);
        return 0;
    }
    // Uses the store in every way; answers nothing, since all that matters is that it comes back.
    static void UseEverything() {
        CEOID oid = 0;
        const HANDLE handle = CeOpenDatabase(&oid, L"\\Test", kText, 0, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            for (CEOID record = First(handle); record != 0; record = Step(handle, 1))
                Read(handle);
            const CEPROPID ids[] = {kText, kNumber, kBlob};
            const auto visit = [](CEOID, WORD, const CEPROPVAL*, void*) { return TRUE; };
            CeScanRecords(handle, 3, ids, visit, nullptr);
            PlaceOf(handle, Last(handle));
            Add(handle, L"new");
            CeDeleteRecord(handle, First(handle));
            CloseHandle(handle);
        }
        CeCheckObjectStore(nullptr, nullptr);
        CeUnmountObjectStore();
    }
};

TEST_F(DamageTest, AFileThatIsNoStoreIsRefusedAndKept) {
    for (const std::string& bytes :
         {std::string(), std::string("x"), std::string(5000, 'q'), std::string(8192, '\0')}) {
        Save(bytes);
        EXPECT_EQ(TryOpen(), DWORD{ERROR_FILE_CORRUPT}) << bytes.size();
        EXPECT_EQ(CeCreateDatabase(L"x", 0, 0, nullptr), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_CORRUPT});
        EXPECT_EQ(CeFindFirstDatabase(0), INVALID_HANDLE_VALUE);
        EXPECT_FALSE(CeCheckObjectStore(nullptr, nullptr));
        EXPECT_TRUE(Load() == bytes);
    }
}

TEST_F(DamageTest, ACutFileIsRefusedAndKept) {
    Fill();
    const std::string whole = Load();
    ASSERT_GT(whole.size(), 100'000u);
    for (const size_t size :
         {size_t{0}, size_t{1}, size_t{99}, size_t{100}, size_t{4095}, size_t{4096}, size_t{4097}, size_t{8192},
          whole.size() / 2, whole.size() / 2 / 4096 * 4096, whole.size() - 4096, whole.size() - 1}) {
        Save(whole.substr(0, size));
        EXPECT_EQ(TryOpen(), DWORD{ERROR_FILE_CORRUPT}) << size << " of " << whole.size();
        CeUnmountObjectStore();
        EXPECT_TRUE(Load() == whole.substr(0, size));
    }
    Save(whole);
    EXPECT_EQ(TryOpen(), 0u);
    ExpectSound();
}

TEST_F(DamageTest, APageOfRubbishIsFoundByTheCheckAndCrashesNothing) {
    Fill();
    const std::string whole = Load();
    int found = 0;
    int pages = 0;
    for (size_t page = 0; page < whole.size() / 4096; page += 3) {
        std::string bytes = whole;
        for (size_t i = 0; i < 4096; ++i)
            bytes[page * 4096 + i] = static_cast<char>(i * 31 + page);
        Save(bytes);
        ++pages;
        if (!CeCheckObjectStore(nullptr, nullptr)) ++found;
        CeUnmountObjectStore();
        UseEverything();
        for (const wchar_t* end : {L"-wal", L"-shm"})
            DeleteFileW((StoreFile() + end).c_str());
    }
    EXPECT_GT(pages, 50);
    EXPECT_EQ(found, pages);
    Save(whole);
    ExpectSound();
}

TEST_F(DamageTest, AReadOnlyFileCanBeReadAndNotWritten) {
    Fill();
    ASSERT_TRUE(SetFileAttributesW(StoreFile().c_str(), FILE_ATTRIBUTE_READONLY));
    const HANDLE database = OpenBy(kText);
    EXPECT_EQ(Count(Oid()), 300);
    const CEOID record = First(database, 200);
    EXPECT_NE(Read(database).record, 0u);
    const auto refused = [&](bool succeeded) {
        EXPECT_FALSE(succeeded);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_WRITE_PROTECT});
    };
    refused(Add(database, L"x") != 0);
    refused(Write(database, {TextValue(kText, L"x")}, record) != 0);
    refused(CeDeleteRecord(database, record));
    refused(CeCreateDatabase(L"x", 0, 0, nullptr) != 0);
    refused(CeBeginBatch());
    EXPECT_EQ(Count(Oid()), 300);
    ExpectSound();
    Reopen();
    SetFileAttributesW(StoreFile().c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_NE(Add(OpenBy(kText), L"x"), 0u);
}

TEST_F(DamageTest, AFolderInThePlaceOfTheFileIsRefused) {
    std::filesystem::create_directory(StoreFile());
    EXPECT_EQ(TryOpen(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(DamageTest, TheFolderOfTheStoreIsMade) {
    const std::wstring deep = StoreFile() + L".folder\\one\\two\\store.db";
    SetEnvironmentVariableW(L"CE_OBJECT_STORE", deep.c_str());
    EXPECT_NE(CeCreateDatabase(L"x", 0, 0, nullptr), 0u);
    EXPECT_TRUE(std::filesystem::exists(deep));
    EXPECT_TRUE(CeUnmountObjectStore());
}

TEST_F(DamageTest, AStoreInAPathWithForeignLetters) {
    SetEnvironmentVariableW(L"CE_OBJECT_STORE", (StoreFile() + L" \u00e4\u3042.db").c_str());
    EXPECT_NE(CeCreateDatabase(L"x", 0, 0, nullptr), 0u);
    EXPECT_TRUE(std::filesystem::exists(StoreFile() + L" \u00e4\u3042.db"));
    EXPECT_TRUE(CeUnmountObjectStore());
}

TEST_F(DamageTest, ALogWithoutItsStoreIsKeptAside) {
    std::ofstream(std::filesystem::path(StoreFile() + L"-wal")) << "what was not yet in the file";
    EXPECT_NE(CeCreateDatabase(L"x", 0, 0, nullptr), 0u);
    EXPECT_TRUE(std::filesystem::exists(StoreFile() + L"-wal.lost"));
    ExpectSound();
}

TEST_F(DamageTest, AHalfMadeStoreIsMadeAnew) {
    std::ofstream(std::filesystem::path(StoreFile() + L".new")) << "left by a process that was killed";
    EXPECT_NE(CeCreateDatabase(L"x", 0, 0, nullptr), 0u);
    EXPECT_FALSE(std::filesystem::exists(StoreFile() + L".new"));
    ExpectSound();
}

TEST_F(DamageTest, TheStoreOfANewerVersionIsRefused) {
    Fill();
    std::string bytes = Load();
    bytes[63] = 99;  // the last byte of the file's version
    Save(bytes);
    EXPECT_EQ(TryOpen(), DWORD{ERROR_REVISION_MISMATCH});
}

}  // namespace
