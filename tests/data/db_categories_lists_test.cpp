// Lists of categories: from a text of names, from an entry's bytes, and back to bytes.
#include <gmock/gmock.h>

#include <cstring>

#include "tests/data/categories_fixture.h"
#include "tests/support/replaced_import.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class CategoryListsTest : public CategoriesTest {
protected:
    static std::vector<std::pair<CEOID, DWORD>> Items(const CategoryList& list) {
        std::vector<std::pair<CEOID, DWORD>> items;
        for (const CategoryListItem& item : list)
            items.emplace_back(item.id, item.flags);
        return items;
    }
    static CEBLOB Blob(const void* bytes, size_t size) {
        return {static_cast<DWORD>(size), static_cast<BYTE*>(const_cast<void*>(bytes))};
    }

    CategoryList list_;
};

// ---- ParseNames ----

TEST_F(CategoryListsTest, ATextOfTwoNamesMakesBothAndDropsTheBlanksBeforeThem) {
    RemoveAll();
    const CEOID chess = Insert(L"Chess");
    EXPECT_EQ(categories_.ParseNames(L" Chess, Go", &list_, 3), 2);
    const CEOID go = categories_.FindByName(L"Go");
    EXPECT_NE(go, 0u);
    EXPECT_EQ(Name(go), L"Go");
    EXPECT_THAT(Items(list_), ElementsAre(Pair(chess, 3u), Pair(go, 3u)));
    EXPECT_EQ(categories_.GetRecordCount(), 2);
}

TEST_F(CategoryListsTest, ANamedCategoryOfTheListLosesBit10AndNothingElse) {
    const CEOID chess = Insert(L"Chess"), go = Insert(L"Go");
    list_.Append({chess, 0x13});
    list_.Append({go, 0x13});
    EXPECT_EQ(categories_.ParseNames(L"chess", &list_, 0x77), 2);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(chess, 0x03u), Pair(go, 0x13u)));
}

TEST_F(CategoryListsTest, ANewItemKeepsItsFlagsUntilItIsNamedAgain) {
    const CEOID chess = Insert(L"Chess");
    EXPECT_EQ(categories_.ParseNames(L"Chess", &list_, 0x11), 1);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(chess, 0x11u)));
    EXPECT_EQ(categories_.ParseNames(L"Chess,Chess", &list_, 0x11), 1);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(chess, 0x01u)));
}

TEST_F(CategoryListsTest, TextsAreSplitAtCommasOnly) {
    const struct {
        const wchar_t* text;
        std::vector<std::wstring> names;
    } rows[] = {
        {L"", {}},
        {L",", {}},
        {L" , ,,", {}},
        {L"One", {L"One"}},
        {L"One,", {L"One"}},
        {L",One", {L"One"}},
        {L"One,,Two", {L"One", L"Two"}},
        {L"   One two,   Three;four", {L"One two", L"Three;four"}},
        {L"Behind ,Two", {L"Behind ", L"Two"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.text)));
        RemoveAll();
        CategoryList list;
        EXPECT_EQ(categories_.ParseNames(row.text, &list, 0), static_cast<int>(row.names.size()));
        std::vector<std::wstring> names;
        for (const CategoryListItem& item : list)
            names.push_back(Name(item.id));
        EXPECT_EQ(names, row.names);
        EXPECT_EQ(categories_.GetRecordCount(), row.names.size());
    }
}

TEST_F(CategoryListsTest, AHiddenCategoryIsTakenAndStaysHidden) {
    const CEOID hidden = Insert(L"Secret", {{kPropCategoryVisible, 0}});
    EXPECT_EQ(categories_.ParseNames(L"Secret", &list_, 0), 1);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(hidden, 0u)));
    EXPECT_TRUE(categories_.IsHidden(hidden));
}

TEST_F(CategoryListsTest, ANameThatCannotBeMadeIsLeftOut) {
    const CEOID chess = Insert(L"Chess");
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(484)\ncedbase");
    EXPECT_EQ(categories_.ParseNames(L"New,Chess", &list_, 0), 1);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(chess, 0u)));
}

// ---- ListFromIds ----

TEST_F(CategoryListsTest, IdsAreAppendedInTheirOrderWithoutZeros) {
    list_.Append({7, 1});
    const CEOID ids[] = {30, 0, 10, 10, 0x7FFFFFFF};
    EXPECT_EQ(DbCategories::ListFromIds(Blob(ids, sizeof ids), &list_, 0x10), 5);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(7u, 1u), Pair(30u, 0x10u), Pair(10u, 0x10u), Pair(10u, 0x10u),
                                          Pair(0x7FFFFFFFu, 0x10u)));
}

TEST_F(CategoryListsTest, BytesCutAtEveryLengthGiveTheWholeIdsBeforeTheCut) {
    const CEOID ids[] = {0x01020304, 0x05060708, 0x090A0B0C};
    for (size_t size = 0; size <= sizeof ids; ++size) {
        SCOPED_TRACE(size);
        // Exactly as many bytes as are said, so that a read past them is one past the block.
        const std::vector<BYTE> bytes(reinterpret_cast<const BYTE*>(ids), reinterpret_cast<const BYTE*>(ids) + size);
        CategoryList list;
        list.Append({7, 0});
        const int expected = size < 4 ? 0 : 1 + static_cast<int>(size / 4);
        EXPECT_EQ(DbCategories::ListFromIds(Blob(bytes.data(), bytes.size()), &list, 0), expected);
        EXPECT_EQ(list.GetCount(), 1 + static_cast<int>(size / 4));
    }
}

TEST_F(CategoryListsTest, NoBytesLeaveTheListAlone) {
    list_.Append({7, 1});
    EXPECT_EQ(DbCategories::ListFromIds({}, &list_, 0), 0);
    EXPECT_THAT(Items(list_), ElementsAre(Pair(7u, 1u)));
}

// ---- IdsFromList ----

TEST_F(CategoryListsTest, AListBecomesABufferOfItsIds) {
    list_.Append({30, 1});
    list_.Append({10, 0x10});
    CEBLOB ids = {};
    EXPECT_EQ(DbCategories::IdsFromList(list_, &ids), 2);
    const CEOID expected[] = {30, 10};
    ASSERT_EQ(ids.dwCount, sizeof expected);
    EXPECT_EQ(std::memcmp(ids.lpb, expected, sizeof expected), 0);
    EXPECT_GE(LocalSize(ids.lpb), sizeof expected);
    EXPECT_EQ(LocalFree(ids.lpb), nullptr);
}

TEST_F(CategoryListsTest, AnEmptyListBecomesNoBuffer) {
    CEBLOB ids = {5, reinterpret_cast<BYTE*>(1)};
    EXPECT_EQ(DbCategories::IdsFromList(list_, &ids), 0);
    EXPECT_EQ(ids.dwCount, 0u);
    EXPECT_EQ(ids.lpb, nullptr);
}

UINT askedFlags;
SIZE_T askedSize;

HLOCAL WINAPI NoMemory(UINT flags, SIZE_T size) {
    askedFlags = flags;
    askedSize = size;
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

TEST_F(CategoryListsTest, ShortOfMemoryTheSystemSaysSoAndThereIsNoBuffer) {
    list_.Append({30, 1});
    list_.Append({10, 1});
    boxes_.Expect(L"Out of Memory", L"There is not enough memory to complete this operation.");
    CEBLOB ids = {5, reinterpret_cast<BYTE*>(1)};
    {
        const ReplacedImport failing(L"ORVANE.DLL", "LocalAlloc", NoMemory);
        EXPECT_EQ(DbCategories::IdsFromList(list_, &ids), 0);
    }
    EXPECT_EQ(askedFlags, UINT{LPTR});
    EXPECT_EQ(askedSize, 8u);
    EXPECT_EQ(ids.dwCount, 0u);
    EXPECT_EQ(ids.lpb, nullptr);
}

TEST_F(CategoryListsTest, ListsOfEveryLengthComeBackAsTheyWere) {
    for (const int length : {1, 2, 3, 255, 256, 5000}) {
        CategoryList list, again;
        for (int i = 1; i <= length; ++i)
            list.Append({static_cast<CEOID>(i * 3), 4});
        CEBLOB ids = {};
        EXPECT_EQ(DbCategories::IdsFromList(list, &ids), length);
        EXPECT_EQ(DbCategories::ListFromIds(ids, &again, 4), length);
        EXPECT_EQ(Items(again), Items(list));
        LocalFree(ids.lpb);
    }
}

}  // namespace
