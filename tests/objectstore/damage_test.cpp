// Files that are not, or no longer, a sound store: an error, never a crash, and the file stays as it is.
#include <sqlite3.h>
#include <storebatch.h>
#include <storescan.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/objectstore/store_fixture.h"

namespace {

class DamageTest : public StoreTest {
protected:
    std::string Utf8Name() const { return std::filesystem::path(StoreFile()).string(); }
    // Stands for the store's own function: these tests change no order of strings but to be wrong.
    static void SortKey(sqlite3_context* context, int, sqlite3_value** arguments) {
        sqlite3_result_value(context, arguments[0]);
    }
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
    // Changes the store behind its back, as a tool of somebody else's could.
    void Change(const std::string& sql) const {
        sqlite3* file = nullptr;
        ASSERT_EQ(sqlite3_open_v2(Utf8Name().c_str(), &file, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
        sqlite3_create_function(file, "sort_key", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, SortKey, nullptr,
                                nullptr);
        EXPECT_EQ(sqlite3_exec(file, (sql + ";").c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(file) << ": " << sql.substr(0, 200);
        sqlite3_close(file);
    }
    // The id of the database that Fill makes.
    CEOID TestDatabase() const {
        sqlite3* file = nullptr;
        sqlite3_open_v2(Utf8Name().c_str(), &file, SQLITE_OPEN_READWRITE, nullptr);
        CEOID oid = 0;
        const auto take = [](void* context, int, char** values, char**) {
            return *static_cast<CEOID*>(context) = std::stoul(values[0]), 0;
        };
        sqlite3_exec(file, "SELECT max(oid) FROM database", take, &oid, nullptr);
        sqlite3_close(file);
        return oid;
    }
    // How many the check tells.
    static int Problems() {
        int problems = 0;
        EXPECT_FALSE(CeCheckObjectStore([](LPCWSTR, void* context) { ++*static_cast<int*>(context); }, &problems));
        return problems;
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

// Every count, length and id that the file can lie about, and what that would do to who believed it.
TEST_F(DamageTest, AListOfDatabasesThatSaysWhatCannotBeIsRefusedAndTold) {
    Fill();
    const std::string whole = Load();
    std::string manyOrders;
    for (int i = 1; i <= 200; ++i)
        manyOrders += std::to_string((i << 16) | CEVT_I4) + ":0 ";
    const std::string lies[] = {
        "UPDATE database SET orders='" + manyOrders + "'",
        "UPDATE database SET orders='65567:0 65567:1 '",
        "UPDATE database SET orders='65567:0 rubbish'",
        "UPDATE database SET orders='65567;0 '",
        "UPDATE database SET orders='65567:64 '",
        "UPDATE database SET orders='65536:0 '",
        "UPDATE database SET orders='" + std::string(100'000, ' ') + "'",
        "UPDATE database SET name=zeroblob(8000)",
        "UPDATE database SET name=CAST(replace(hex(zeroblob(2000)),'0','a') AS BLOB)",
        "UPDATE database SET name=x''",
        "UPDATE database SET name=x'410042'",
        "UPDATE database SET name=x'41004200000043004400'",
        "UPDATE database SET type=-1",
        "UPDATE database SET type='contacts'",
        "UPDATE database SET flags=4294967296",
        "UPDATE database SET oid=oid+4294967296; UPDATE counter SET oid=oid+4294967296 WHERE oid>0",
        "UPDATE counter SET value=-1 WHERE oid>0",
        "UPDATE counter SET value=65536 WHERE oid>0",
        "UPDATE counter SET value=1e300 WHERE oid>0",
        "UPDATE counter SET changes=9223372036854775807 WHERE oid>0",
        "UPDATE counter SET modified='now' WHERE oid>0",
        "UPDATE property SET property=property+4294967296",
        "UPDATE property SET property=property*2+99",
        "UPDATE property SET outside=7",
        "ALTER TABLE database RENAME TO other; CREATE VIEW database AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
        "SELECT i+1 FROM n) SELECT i AS oid, x'4100' AS name, 0 AS type, '' AS orders, 0 AS flags FROM n",
    };
    for (const std::string& lie : lies) {
        Save(whole);
        Change(lie);
        EXPECT_EQ(TryOpen(), DWORD{ERROR_FILE_CORRUPT}) << lie.substr(0, 100);
        CEOIDINFO info = {};
        EXPECT_FALSE(CeOidGetInfo(1, &info));
        EXPECT_GT(Problems(), 0) << lie.substr(0, 100);
        EXPECT_TRUE(CeUnmountObjectStore());
        UseEverything();
    }
    Save(whole);
    ExpectSound();
}

// What is wrong with one record leaves the others readable, where it can.
TEST_F(DamageTest, RecordsThatSayWhatCannotBeHarmNobody) {
    Fill();
    const std::string whole = Load();
    const char* const lies[] = {
        "UPDATE T SET p0001001F=x'410042' WHERE oid=(SELECT min(oid) FROM T)",  // half a letter at the end
        "UPDATE T SET p0001001F=7 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET p0001001F='text' WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET p00020003=x'4100420043004400450046' WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET p00020003=1.5 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET p00050041=-1 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET p00050041=9.75 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET oid=4294967296 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE T SET oid=-5 WHERE oid=(SELECT min(oid) FROM T)",
        "UPDATE counter SET value=0 WHERE oid>0",
        "UPDATE counter SET value=1 WHERE oid>0",
        "UPDATE counter SET value=65535 WHERE oid>0",
        "UPDATE counter SET value=-7 WHERE oid=0",
        "UPDATE counter SET value=3 WHERE oid=0",
        "UPDATE counter SET value='much' WHERE oid=0",
        "DELETE FROM large",
    };
    for (std::string lie : lies) {
        Save(whole);
        for (size_t at = lie.find(" T "); at != lie.npos; at = lie.find(" T "))
            lie.replace(at, 3, " r" + std::to_string(TestDatabase()) + " ");
        if (const size_t at = lie.find(" T)"); at != lie.npos)
            lie.replace(at, 2, " r" + std::to_string(TestDatabase()));
        Change(lie);
        EXPECT_GT(Problems(), 0) << lie;
        EXPECT_TRUE(CeUnmountObjectStore());
        UseEverything();
    }
    Save(whole);
    ExpectSound();
}

TEST_F(DamageTest, AValueOfAnotherKindIsTakenForNone) {
    Fill();
    const std::string table = "r" + std::to_string(TestDatabase());
    Change("UPDATE " + table + " SET p00020003=x'41', p0001001F=x'410042' WHERE oid=(SELECT min(oid) FROM " + table +
           ")");
    const HANDLE database = OpenBy(0);
    const ReadResult read = Read(database, {kText, kNumber, kBlob});
    EXPECT_EQ(read.Text(0), L"A") << "half a letter is left out";
    EXPECT_FALSE(read.Has(1));
    EXPECT_TRUE(read.Has(2));
}

TEST_F(DamageTest, AnOrderThatHoldsARecordMoreThanTheTableIsTold) {
    Fill();
    const std::string table = "r" + std::to_string(TestDatabase());
    // The index of an order goes on holding a record that the table loses while it is away.
    Change(
        "CREATE TABLE kept AS SELECT name, tbl_name, rootpage, sql FROM sqlite_schema WHERE type='index' AND "
        "tbl_name='" +
        table + "';PRAGMA writable_schema=1;DELETE FROM sqlite_schema WHERE type='index' AND tbl_name='" + table + "'");
    Change("DELETE FROM " + table + " WHERE oid=(SELECT min(oid)+3 FROM " + table +
           ");PRAGMA writable_schema=1;INSERT INTO sqlite_schema SELECT 'index',name,tbl_name,rootpage,sql FROM kept");
    Change("DROP TABLE kept");
    EXPECT_GT(Problems(), 0);
    const HANDLE moving = OpenBy(kNumber, CEDB_AUTOINCREMENT);
    int read = 0;
    while (Read(moving, {kNumber}).record != 0)
        ASSERT_LT(++read, 1000);
    EXPECT_EQ(Read(moving, {kNumber}).error, DWORD{ERROR_FILE_CORRUPT});
}

TEST_F(DamageTest, APathThatIsTooLongIsRefusedAndNotForgotten) {
    for (const size_t length : {size_t{1'100}, size_t{4'000}, size_t{32'000}}) {
        const std::wstring path = StoreFile() + L"." + std::wstring(length, L'x');
        ASSERT_TRUE(SetEnvironmentVariableW(L"CE_OBJECT_STORE", path.c_str()));
        EXPECT_EQ(CeFindFirstDatabase(0), INVALID_HANDLE_VALUE) << "not some other store";
        EXPECT_NE(GetLastError(), 0u);
        EXPECT_TRUE(CeUnmountObjectStore());
    }
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
