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

}  // namespace
