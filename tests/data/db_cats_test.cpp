#include "data/db_cats.h"

#include <gmock/gmock.h>

#include <vector>

#include "data/field_ids.h"
#include "tests/support/fresh_store.h"
#include "tests/support/message_boxes.h"

namespace {

using testing::ElementsAre;

class DbCatsTest : public testing::Test {
protected:
    CEOID Add(const wchar_t* name, short visible = 1) {
        CEPROPVAL values[2] = {};
        values[0].propid = kPropCategoryName;
        values[0].val.lpwstr = const_cast<wchar_t*>(name);
        values[1].propid = kPropCategoryVisible;
        values[1].val.iVal = visible;
        return cats_.WriteRecordProps(0, 2, values);
    }
    static CEBLOB Blob(std::vector<BYTE>& bytes) { return {static_cast<DWORD>(bytes.size()), bytes.data()}; }
    static CEBLOB Blob(std::vector<CEOID>& ids) {
        return {static_cast<DWORD>(ids.size() * sizeof(CEOID)), reinterpret_cast<BYTE*>(ids.data())};
    }
    static std::vector<std::wstring> Names(const TSList<DbCItem>& list) {
        std::vector<std::wstring> names;
        for (const DbCItem& item : list)
            names.emplace_back(item.GetStrValue());
        return names;
    }

    FreshStore store_;
    MessageBoxes boxes_;
    DbCats cats_;
};

TEST_F(DbCatsTest, OpensTheDevicesCategoriesSortedByName) {
    ASSERT_TRUE(cats_.Open(nullptr));
    const CEOID last = Add(L"zzz"), first = Add(L"!aa");
    EXPECT_EQ(cats_.SeekToOidIndex(first), 0);
    EXPECT_EQ(cats_.SeekToOidIndex(last), cats_.GetRecordCount() - 1);
}

TEST_F(DbCatsTest, DestructorClosesTheDatabase) {
    {
        DbCats cats;
        ASSERT_TRUE(cats.Open(nullptr));
    }
    EXPECT_TRUE(CeUnmountObjectStore());
}

TEST_F(DbCatsTest, MissingDatabaseIsReportedAndNotMade) {
    {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    EXPECT_FALSE(cats_.Open(nullptr));
    EXPECT_FALSE(cats_.Exists(kCategoriesDatabase));
}

TEST_F(DbCatsTest, NamesAndIdsAreFoundByEachOther) {
    ASSERT_TRUE(cats_.Open(nullptr));
    const CEOID oid = Add(L"Sailing"), hidden = Add(L"Secret", 0);
    EXPECT_EQ(cats_.GetName(oid), L"Sailing");
    EXPECT_EQ(cats_.FindByName(L"Sailing"), oid);
    EXPECT_EQ(cats_.FindByName(L"Secret"), hidden);
    EXPECT_EQ(cats_.FindByName(L"Nothing"), 0u);
    EXPECT_EQ(cats_.GetName(0), L"");
    EXPECT_EQ(cats_.GetName(0x7FFFFFFF), L"");
    EXPECT_EQ(cats_.GetName(cats_.GetOid()), L"");  // no record
}

TEST_F(DbCatsTest, EntrysBytesBecomeItemsInTheirOrder) {
    ASSERT_TRUE(cats_.Open(nullptr));
    std::vector<CEOID> ids = {Add(L"Sailing"), 0x7FFFFFFF, Add(L"Chess"), 0};
    TSList<DbCItem> items;
    cats_.ReadBlob(Blob(ids), &items);
    EXPECT_THAT(Names(items), ElementsAre(L"Sailing", L"Chess"));
    EXPECT_EQ(items.First()->GetOid(), ids[0]);
    EXPECT_TRUE(*items.First() == DbCItem(kPropCategoryName, L"Sailing"));
    EXPECT_EQ(JoinCategories(items), L"Sailing, Chess");
}

TEST_F(DbCatsTest, ItemsBecomeBytesInTheirOrder) {
    ASSERT_TRUE(cats_.Open(nullptr));
    const CEOID sailing = Add(L"Sailing"), chess = Add(L"Chess");
    TSList<DbCItem> items;
    items.Append(DbCItem(kPropCategoryName, L"Chess"));
    items.Append(DbCItem(kPropCategoryName, L"Not there"));
    items.Append(DbCItem(kPropCategoryName, L"Sailing", sailing));
    std::vector<BYTE> bytes = cats_.MakeBlob(items);
    TSList<DbCItem> again;
    cats_.ReadBlob(Blob(bytes), &again);
    EXPECT_THAT(Names(again), ElementsAre(L"Chess", L"Sailing"));
    EXPECT_EQ(again.First()->GetOid(), chess);
}

TEST_F(DbCatsTest, NoBytesAreNoCategoriesAndNoText) {
    ASSERT_TRUE(cats_.Open(nullptr));
    TSList<DbCItem> items;
    cats_.ReadBlob(CEBLOB{0, nullptr}, &items);
    EXPECT_TRUE(items.IsEmpty());
    EXPECT_EQ(JoinCategories(items), L"");
    EXPECT_TRUE(cats_.MakeBlob(items).empty());
}

}  // namespace
