#include "tests/objectstore/store_fixture.h"

#include <storebatch.h>
#include <storefault.h>

CEPROPVAL TextValue(CEPROPID property, const wchar_t* text) {
    CEPROPVAL value = {};
    value.propid = property;
    value.val.lpwstr = const_cast<LPWSTR>(text);
    return value;
}

CEPROPVAL NumberValue(CEPROPID property, long number) {
    CEPROPVAL value = {};
    value.propid = property;
    switch (TypeFromPropID(property)) {
        case CEVT_I2: value.val.iVal = static_cast<short>(number); break;
        case CEVT_UI2: value.val.uiVal = static_cast<USHORT>(number); break;
        case CEVT_UI4: value.val.ulVal = static_cast<ULONG>(number); break;
        case CEVT_BOOL: value.val.boolVal = number; break;
        default: value.val.lVal = number; break;
    }
    return value;
}

CEPROPVAL TimeValue(CEPROPID property, unsigned long long ticks) {
    CEPROPVAL value = {};
    value.propid = property;
    value.val.filetime = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    return value;
}

CEPROPVAL BlobValue(CEPROPID property, const void* data, size_t size) {
    CEPROPVAL value = {};
    value.propid = property;
    value.val.blob = {static_cast<DWORD>(size), static_cast<LPBYTE>(const_cast<void*>(data))};
    return value;
}

CEPROPVAL Missing(CEPROPID property) {
    CEPROPVAL value = {};
    value.propid = property;
    value.wFlags = CEDB_PROPDELETE;
    return value;
}

ReadResult::ReadResult(ReadResult&& other) noexcept
    : record(other.record), error(other.error), count(other.count), size(other.size), buffer(other.buffer) {
    other.buffer = nullptr;
}

StoreTest::StoreTest() : file_(folder_.File(L"store.db")) {
    EXPECT_TRUE(CeUnmountObjectStore());
    SetEnvironmentVariableW(L"CE_OBJECT_STORE", file_.c_str());
}

StoreTest::~StoreTest() {
    CeClearFaults();
    for (const HANDLE handle : handles_)
        CeCloseHandle(handle);
    EXPECT_TRUE(CeUnmountObjectStore()) << "a handle was left open";
}

HANDLE StoreTest::Make(std::vector<SORTORDERSPEC> orders, const wchar_t* name) {
    oid_ = CeCreateDatabase(name, 77, static_cast<WORD>(orders.size()), orders.data());
    EXPECT_NE(oid_, 0u) << "error " << GetLastError();
    return OpenBy(orders.empty() ? 0 : orders[0].propid, 0, nullptr, name);
}

HANDLE StoreTest::OpenBy(CEPROPID sort, DWORD flags, HWND notify, const wchar_t* name) {
    CEOID oid = 0;
    const HANDLE handle = CeOpenDatabase(&oid, name, sort, flags, notify);
    EXPECT_NE(handle, INVALID_HANDLE_VALUE) << "error " << GetLastError();
    if (handle != INVALID_HANDLE_VALUE) handles_.push_back(handle);
    oid_ = oid;
    return handle;
}

void StoreTest::ExpectSound() {
    const auto report = [](LPCWSTR problem, void*) { ADD_FAILURE() << testing::PrintToString(std::wstring(problem)); };
    EXPECT_TRUE(CeCheckObjectStore(report, nullptr)) << "error " << GetLastError();
}

void StoreTest::Reopen() {
    for (const HANDLE handle : handles_)
        CeCloseHandle(handle);
    handles_.clear();
    EXPECT_TRUE(CeUnmountObjectStore());
}

CEOID StoreTest::Write(HANDLE database, std::vector<CEPROPVAL> values, CEOID record) {
    return CeWriteRecordProps(database, record, static_cast<WORD>(values.size()), values.data());
}

ReadResult StoreTest::Read(HANDLE database, std::vector<CEPROPID> ids) {
    ReadResult result;
    result.count = static_cast<WORD>(ids.size());
    result.record = CeReadRecordProps(database, CEDB_ALLOWREALLOC, &result.count, ids.empty() ? nullptr : ids.data(),
                                      &result.buffer, &result.size);
    if (result.record == 0) result.error = GetLastError();
    return result;
}

int StoreTest::PlaceOf(HANDLE database, CEOID record) {
    DWORD index = static_cast<DWORD>(-1);
    CeSeekDatabase(database, CEDB_SEEK_CEOID, record, &index);
    return static_cast<int>(index);
}

std::vector<CEOID> StoreTest::Order(HANDLE database) {
    std::vector<CEOID> records;
    for (CEOID record = First(database); record != 0; record = Step(database, 1))
        records.push_back(record);
    return records;
}

WORD StoreTest::Count(CEOID database) {
    CEOIDINFO info = {};
    EXPECT_TRUE(CeOidGetInfo(database, &info));
    return info.infDatabase.wNumRecords;
}
