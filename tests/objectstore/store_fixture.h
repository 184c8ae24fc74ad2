// A store of the test's own, in a folder that goes with it, and short ways to use it.
#pragma once

#include <gtest/gtest.h>
#include <windbase.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

// Properties for tests, of every type.
constexpr CEPROPID kText = 0x0001001F;
constexpr CEPROPID kNumber = 0x00020003;
constexpr CEPROPID kShort = 0x00030002;
constexpr CEPROPID kTime = 0x00040040;
constexpr CEPROPID kBlob = 0x00050041;
constexpr CEPROPID kDouble = 0x00060005;
constexpr CEPROPID kBool = 0x0007000B;
constexpr CEPROPID kWord = 0x00080012;
constexpr CEPROPID kLong = 0x00090013;
constexpr CEPROPID kOtherText = 0x000A001F;

CEPROPVAL TextValue(CEPROPID property, const wchar_t* text);
CEPROPVAL NumberValue(CEPROPID property, long number);  // I2, I4, UI2, UI4, BOOL
CEPROPVAL TimeValue(CEPROPID property, unsigned long long ticks);
CEPROPVAL BlobValue(CEPROPID property, const void* data, size_t size);
CEPROPVAL Missing(CEPROPID property);  // takes the property away

// What CeReadRecordProps gave, freed at the end.
struct ReadResult {
    CEOID record = 0;
    DWORD error = 0;
    WORD count = 0;
    DWORD size = 0;
    LPBYTE buffer = nullptr;

    ReadResult() = default;
    ReadResult(ReadResult&& other) noexcept;
    ReadResult& operator=(ReadResult&&) = delete;
    ~ReadResult() { LocalFree(buffer); }
    // A failed read has nothing to look at; the test ends there.
    const CEPROPVAL& operator[](size_t i) const {
        if (record == 0) throw std::runtime_error("nothing was read: error " + std::to_string(error));
        return reinterpret_cast<const CEPROPVAL*>(buffer)[i];
    }
    bool Has(size_t i) const { return ((*this)[i].wFlags & CEDB_PROPNOTFOUND) == 0; }
    std::wstring Text(size_t i) const { return Has(i) ? (*this)[i].val.lpwstr : L"(none)"; }
};

class StoreTest : public testing::Test {
protected:
    StoreTest();
    ~StoreTest() override;

    const std::wstring& StoreFile() const { return file_; }

    // Makes a database and opens it by its first sort order.
    HANDLE Make(std::vector<SORTORDERSPEC> orders, const wchar_t* name = L"\\Test");
    HANDLE OpenBy(CEPROPID sort, DWORD flags = 0, HWND notify = nullptr, const wchar_t* name = L"\\Test");
    CEOID Oid() const { return oid_; }

    // Checks the whole store, with each problem as a failure of the test.
    static void ExpectSound();
    // Closes the store's file and opens it again: what isn't in the file is forgotten.
    void Reopen();

    static CEOID Write(HANDLE database, std::vector<CEPROPVAL> values, CEOID record = 0);
    static CEOID Add(HANDLE database, const wchar_t* text) { return Write(database, {TextValue(kText, text)}); }
    static CEOID Add(HANDLE database, long number) { return Write(database, {NumberValue(kNumber, number)}); }
    static ReadResult Read(HANDLE database, std::vector<CEPROPID> ids = {});
    // Reads a certain record.
    static ReadResult ReadAt(HANDLE database, CEOID record, std::vector<CEPROPID> ids = {}) {
        EXPECT_EQ(SeekTo(database, record), record);
        return Read(database, std::move(ids));
    }

    static CEOID SeekTo(HANDLE database, CEOID record) {
        return CeSeekDatabase(database, CEDB_SEEK_CEOID, record, nullptr);
    }
    static CEOID First(HANDLE database, DWORD n = 0) {
        return CeSeekDatabase(database, CEDB_SEEK_BEGINNING, n, nullptr);
    }
    static CEOID Last(HANDLE database, DWORD n = 0) { return CeSeekDatabase(database, CEDB_SEEK_END, n, nullptr); }
    static CEOID Step(HANDLE database, int n) {
        return CeSeekDatabase(database, CEDB_SEEK_CURRENT, static_cast<DWORD_PTR>(static_cast<LONG_PTR>(n)), nullptr);
    }
    static CEOID SeekValue(HANDLE database, DWORD kind, CEPROPVAL value) {
        return CeSeekDatabase(database, kind, reinterpret_cast<DWORD_PTR>(&value), nullptr);
    }
    // The place of a record in the handle's order, -1 when it isn't there.
    static int PlaceOf(HANDLE database, CEOID record);
    // All records in the handle's order.
    static std::vector<CEOID> Order(HANDLE database);
    static WORD Count(CEOID database);

private:
    TempFolder folder_;
    std::wstring file_;
    CEOID oid_ = 0;
    std::vector<HANDLE> handles_;
};

// Closes a handle at the end of a scope.
class DatabaseHandle {
public:
    explicit DatabaseHandle(HANDLE handle) : handle_(handle) {}
    ~DatabaseHandle() { Close(); }
    DatabaseHandle(const DatabaseHandle&) = delete;
    DatabaseHandle& operator=(const DatabaseHandle&) = delete;
    operator HANDLE() const { return handle_; }
    void Close() {
        if (handle_ != INVALID_HANDLE_VALUE) CeCloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};
