// Databases as wholes: making, opening, describing, enumerating, changing and deleting them.
#include <storebatch.h>

#include <algorithm>

#include "tests/objectstore/store_fixture.h"

namespace {

using DatabaseTest = StoreTest;

TEST_F(DatabaseTest, AFreshStoreHasTheCategories) {
    DatabaseHandle categories(OpenBy(0x4001001F, CEDB_AUTOINCREMENT, nullptr, L"\\Categories Database"));
    CEOIDINFO info = {};
    ASSERT_TRUE(CeOidGetInfo(Oid(), &info));
    EXPECT_EQ(info.wObjType, OBJTYPE_DATABASE);
    EXPECT_EQ(info.infDatabase.dwDbaseType, 0x1Bu);
    EXPECT_EQ(info.infDatabase.wNumSortOrder, 2);
    EXPECT_EQ(info.infDatabase.rgSortSpecs[0].propid, 0x4001001Fu);
    EXPECT_EQ(info.infDatabase.rgSortSpecs[0].dwFlags, DWORD{CEDB_SORT_CASEINSENSITIVE});
    EXPECT_EQ(info.infDatabase.rgSortSpecs[1].propid, 0x40020002u);
    std::vector<std::wstring> names;
    std::vector<int> ordinals;
    for (;;) {
        const ReadResult category =
            Read(categories, {0x4001001F, 0x40020002, 0x40030002, 0x40040002, 0x40050002, 0x40060002, 0x43EF0002});
        if (category.record == 0) break;
        names.push_back(category.Text(0));
        ordinals.push_back(category[1].val.iVal);
        EXPECT_EQ(category[2].val.iVal, 1) << "visible";
        for (size_t i = 3; i < 6; ++i)
            EXPECT_TRUE(category.Has(i) && category[i].val.iVal == 0) << i;
        EXPECT_FALSE(category.Has(6)) << "a program's own count is its own affair";
    }
    EXPECT_GE(names.size(), 3u);
    EXPECT_EQ(names.size(), info.infDatabase.wNumRecords);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const wchar_t* name : {L"Business", L"Holiday", L"Personal"}) {
        EXPECT_TRUE(std::find(names.begin(), names.end(), name) != names.end());
    }
    std::sort(ordinals.begin(), ordinals.end());
    for (size_t i = 0; i < ordinals.size(); ++i)
        EXPECT_EQ(ordinals[i], static_cast<int>(i));
    ExpectSound();
}

TEST_F(DatabaseTest, AStoreIsProvisionedOnce) {
    CEOID oid = 0;
    {
        DatabaseHandle categories(CeOpenDatabase(&oid, L"\\Categories Database", 0, 0, nullptr));
        while (const CEOID record = First(categories))
            ASSERT_TRUE(CeDeleteRecord(categories, record));
    }
    Reopen();
    EXPECT_EQ(Count(oid), 0);
}

TEST_F(DatabaseTest, RefusesANameThatIsTaken) {
    EXPECT_NE(CeCreateDatabase(L"\\Name", 1, 0, nullptr), 0u);
    EXPECT_EQ(CeCreateDatabase(L"\\NAME", 1, 0, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DUP_NAME});
}

TEST_F(DatabaseTest, CutsALongName) {
    const std::wstring name(40, L'n');
    const CEOID oid = CeCreateDatabase(name.c_str(), 1, 0, nullptr);
    CEOIDINFO info = {};
    ASSERT_TRUE(CeOidGetInfo(oid, &info));
    EXPECT_EQ(info.infDatabase.szDbaseName, name.substr(0, 31));
    DatabaseHandle handle(OpenBy(0, 0, nullptr, name.c_str()));
    EXPECT_EQ(Oid(), oid);
    handle.Close();
    EXPECT_EQ(CeCreateDatabase(name.substr(0, 31).c_str(), 1, 0, nullptr), 0u);
}

TEST_F(DatabaseTest, RefusesSortOrdersThatAreNone) {
    const auto refused = [](WORD count, std::vector<SORTORDERSPEC> specs) {
        EXPECT_EQ(CeCreateDatabase(L"x", 1, count, specs.empty() ? nullptr : specs.data()), 0u);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    };
    refused(1, {});
    refused(5, {{kText, 0}, {kNumber, 0}, {kTime, 0}, {kBlob, 0}, {kShort, 0}});
    refused(2, {{kText, 0}, {kText, CEDB_SORT_DESCENDING}});
    refused(1, {{0, 0}});
    refused(1, {{kText, 0x200}});
    EXPECT_EQ(CeCreateDatabase(nullptr, 1, 0, nullptr), 0u);
    EXPECT_EQ(CeCreateDatabase(L"", 1, 0, nullptr), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(DatabaseTest, EmptySortOrdersBehindOthersCountForNone) {
    const SORTORDERSPEC specs[3] = {{kText, 0}, {0, 0}, {0, 0}};
    CEOIDINFO info = {};
    ASSERT_TRUE(CeOidGetInfo(CeCreateDatabase(L"x", 1, 3, specs), &info));
    EXPECT_EQ(info.infDatabase.wNumSortOrder, 1);
}

TEST_F(DatabaseTest, OpensByNameInAnyCaseOrById) {
    const CEOID made = CeCreateDatabase(L"\\Some", 1, 0, nullptr);
    DatabaseHandle byName(OpenBy(0, 0, nullptr, L"\\sOME"));
    EXPECT_EQ(Oid(), made);
    CEOID oid = made;
    DatabaseHandle byId(CeOpenDatabase(&oid, nullptr, 0, 0, nullptr));
    EXPECT_NE(static_cast<HANDLE>(byId), INVALID_HANDLE_VALUE);
}

TEST_F(DatabaseTest, TellsWhyItCannotOpen) {
    const CEOID made = CeCreateDatabase(L"some", 1, 0, nullptr);
    const auto refused = [](CEOID oid, LPCWSTR name, CEPROPID sort, DWORD flags, DWORD error) {
        EXPECT_EQ(CeOpenDatabase(&oid, name, sort, flags, nullptr), INVALID_HANDLE_VALUE);
        EXPECT_EQ(GetLastError(), error);
    };
    refused(0, L"none", 0, 0, ERROR_FILE_NOT_FOUND);
    refused(0, nullptr, 0, 0, ERROR_INVALID_PARAMETER);
    refused(made + 1000, nullptr, 0, 0, ERROR_INVALID_PARAMETER);
    refused(0, L"some", kText, 0, ERROR_INVALID_PARAMETER);
    refused(0, L"some", 0, 2, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CeOpenDatabase(nullptr, L"some", 0, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(DatabaseTest, ClosesAHandleOnce) {
    CEOID oid = CeCreateDatabase(L"some", 1, 0, nullptr);
    const HANDLE handle = CeOpenDatabase(&oid, nullptr, 0, 0, nullptr);
    EXPECT_TRUE(CloseHandle(handle));
    EXPECT_FALSE(CloseHandle(handle));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_EQ(First(handle), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(DatabaseTest, ClosesHandlesOfTheSystemToo) {
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    EXPECT_TRUE(CloseHandle(event));
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_FAILED);
}

TEST_F(DatabaseTest, DescribesADatabase) {
    const SORTORDERSPEC specs[] = {{kText, CEDB_SORT_CASEINSENSITIVE}, {kTime, CEDB_SORT_DESCENDING}};
    CEOID oid = CeCreateDatabase(L"\\Described", 0x1234, 2, specs);
    DatabaseHandle handle(CeOpenDatabase(&oid, nullptr, kText, 0, nullptr));
    Add(handle, L"one");
    CEOIDINFO info = {};
    ASSERT_TRUE(CeOidGetInfo(oid, &info));
    EXPECT_EQ(info.wObjType, OBJTYPE_DATABASE);
    const CEDBASEINFO& database = info.infDatabase;
    EXPECT_STREQ(database.szDbaseName, L"\\Described");
    EXPECT_EQ(database.dwDbaseType, 0x1234u);
    EXPECT_EQ(database.wNumRecords, 1);
    ASSERT_EQ(database.wNumSortOrder, 2);
    EXPECT_EQ(database.rgSortSpecs[0].propid, kText);
    EXPECT_EQ(database.rgSortSpecs[0].dwFlags, DWORD{CEDB_SORT_CASEINSENSITIVE});
    EXPECT_EQ(database.rgSortSpecs[1].propid, kTime);
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    EXPECT_NE(database.ftLastModified.dwHighDateTime, 0u);
    EXPECT_LE(CompareFileTime(&database.ftLastModified, &now), 0);
    EXPECT_FALSE(CeOidGetInfo(0, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_FALSE(CeOidGetInfo(oid, nullptr));
}

TEST_F(DatabaseTest, EnumeratesByType) {
    const CEOID a = CeCreateDatabase(L"a", 5, 0, nullptr);
    const CEOID b = CeCreateDatabase(L"b", 6, 0, nullptr);
    const CEOID c = CeCreateDatabase(L"c", 5, 0, nullptr);
    const auto all = [](DWORD type) {
        std::vector<CEOID> found;
        const HANDLE enumeration = CeFindFirstDatabase(type);
        while (const CEOID oid = CeFindNextDatabase(enumeration))
            found.push_back(oid);
        EXPECT_EQ(GetLastError(), DWORD{ERROR_NO_MORE_ITEMS});
        EXPECT_TRUE(CloseHandle(enumeration));
        return found;
    };
    EXPECT_EQ(all(5), (std::vector<CEOID>{a, c}));
    EXPECT_EQ(all(6), (std::vector<CEOID>{b}));
    EXPECT_EQ(all(99), std::vector<CEOID>{});
    EXPECT_EQ(all(0).size(), 4u) << "the categories are there too";
    EXPECT_EQ(CeFindNextDatabase(INVALID_HANDLE_VALUE), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(DatabaseTest, AnEnumerationTellsThatADatabaseWasDeleted) {
    CeCreateDatabase(L"a", 5, 0, nullptr);
    const CEOID b = CeCreateDatabase(L"b", 5, 0, nullptr);
    const HANDLE enumeration = CeFindFirstDatabase(5);
    EXPECT_NE(CeFindNextDatabase(enumeration), 0u);
    EXPECT_TRUE(CeDeleteDatabase(b));
    EXPECT_EQ(CeFindNextDatabase(enumeration), 0u);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_KEY_DELETED});
    CloseHandle(enumeration);
}

TEST_F(DatabaseTest, DeletesADatabaseThatNobodyHasOpen) {
    DatabaseHandle handle(Make({{kText, 0}}));
    const CEOID oid = Oid();
    const std::string large(5000, 'x');
    const CEOID record = Write(handle, {BlobValue(kBlob, large.data(), large.size()), TextValue(kText, L"t")});
    EXPECT_FALSE(CeDeleteDatabase(oid));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    handle.Close();
    EXPECT_TRUE(CeDeleteDatabase(oid));
    CEOIDINFO info = {};
    EXPECT_FALSE(CeOidGetInfo(oid, &info));
    EXPECT_FALSE(CeOidGetInfo(record, &info)) << "its records go with it";
    EXPECT_FALSE(CeDeleteDatabase(oid));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    ExpectSound();
}

TEST_F(DatabaseTest, ChangesNameTypeAndTime) {
    const CEOID oid = CeCreateDatabase(L"before", 1, 0, nullptr);
    CeCreateDatabase(L"other", 1, 0, nullptr);
    CEDBASEINFO info = {};
    info.dwFlags = CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDMODTIME;
    wcscpy(info.szDbaseName, L"after");
    info.dwDbaseType = 9;
    info.ftLastModified = {1, 2};
    info.wNumRecords = 77;
    ASSERT_TRUE(CeSetDatabaseInfo(oid, &info));
    CEOIDINFO now = {};
    CeOidGetInfo(oid, &now);
    EXPECT_STREQ(now.infDatabase.szDbaseName, L"after");
    EXPECT_EQ(now.infDatabase.dwDbaseType, 9u);
    EXPECT_EQ(now.infDatabase.ftLastModified.dwHighDateTime, 2u);
    EXPECT_EQ(now.infDatabase.wNumRecords, 0) << "the count is the store's own";
    wcscpy(info.szDbaseName, L"OTHER");
    EXPECT_FALSE(CeSetDatabaseInfo(oid, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_DUP_NAME});
    EXPECT_FALSE(CeSetDatabaseInfo(oid + 1000, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_FALSE(CeSetDatabaseInfo(oid, nullptr));
}

TEST_F(DatabaseTest, ChangesItsSortOrdersOnceNobodyHasItOpen) {
    DatabaseHandle handle(Make({{kText, 0}}));
    const CEOID oid = Oid();
    const CEOID a = Write(handle, {TextValue(kText, L"a"), NumberValue(kNumber, 2)});
    const CEOID b = Write(handle, {TextValue(kText, L"b"), NumberValue(kNumber, 1)});
    CEDBASEINFO info = {};
    info.dwFlags = CEDB_VALIDSORTSPEC;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0] = {kNumber, 0};
    EXPECT_FALSE(CeSetDatabaseInfo(oid, &info));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    handle.Close();
    ASSERT_TRUE(CeSetDatabaseInfo(oid, &info));
    DatabaseHandle sorted(OpenBy(kNumber));
    EXPECT_EQ(Order(sorted), (std::vector<CEOID>{b, a}));
    CEOID again = oid;
    EXPECT_EQ(CeOpenDatabase(&again, nullptr, kText, 0, nullptr), INVALID_HANDLE_VALUE) << "the old order is gone";
    ExpectSound();
}

TEST_F(DatabaseTest, ALargeValueMayBecomeASortKey) {
    DatabaseHandle handle(Make({}));
    const CEOID oid = Oid();
    const std::string b(5000, 'b');
    const std::string a(6000, 'a');
    const CEOID second = Write(handle, {BlobValue(kBlob, b.data(), b.size())});
    const CEOID first = Write(handle, {BlobValue(kBlob, a.data(), a.size())});
    const CEOID third = Write(handle, {BlobValue(kBlob, "c", 1)});
    handle.Close();
    CEDBASEINFO info = {};
    info.dwFlags = CEDB_VALIDSORTSPEC;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0] = {kBlob, 0};
    ASSERT_TRUE(CeSetDatabaseInfo(oid, &info));
    DatabaseHandle sorted(OpenBy(kBlob));
    EXPECT_EQ(Order(sorted), (std::vector<CEOID>{first, second, third}));
    EXPECT_EQ(ReadAt(sorted, first, {kBlob})[0].val.blob.dwCount, 6000u);
    ExpectSound();
    sorted.Close();
    info.wNumSortOrder = 0;
    ASSERT_TRUE(CeSetDatabaseInfo(oid, &info));
    ExpectSound();
}

TEST_F(DatabaseTest, UnmountingWaitsForTheLastHandle) {
    const HANDLE handle = Make({});
    EXPECT_FALSE(CeUnmountObjectStore());
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    CloseHandle(handle);
    EXPECT_TRUE(CeUnmountObjectStore());
}

}  // namespace
