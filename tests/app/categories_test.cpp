// What the main window makes of categories: the stored filter at its start, counts of uses after copy and delete.
#include <gmock/gmock.h>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "filter/registry_filter_store.h"
#include "res/ids.h"
#include "tests/app/app_fixture.h"

namespace {

using testing::ElementsAre;

class MainWindowCategoriesTest : public AppFixture {
protected:
    MainWindowCategoriesTest() : business_(Find(L"Business")), family_(Find(L"Family")) {}

    static CEOID Find(const wchar_t* name) {
        DbCats categories;
        EXPECT_TRUE(categories.Open(nullptr));
        return categories.FindByName(name);
    }
    static short Uses(CEOID category) {
        DbCats categories;
        EXPECT_TRUE(categories.Open(nullptr));
        EXPECT_EQ(categories.SeekToOid(category), category);
        CEPROPID ids[] = {kPropCategoryJournalUses};
        WORD count = 1;
        BYTE* buffer = nullptr;
        EXPECT_NE(categories.ReadRecordProps(&count, ids, &buffer), 0u);
        const CEPROPVAL property = *reinterpret_cast<CEPROPVAL*>(buffer);
        LocalFree(buffer);
        return property.wFlags & CEDB_PROPNOTFOUND ? short{-1} : property.val.iVal;
    }
    void SetCategories(CEOID entry, const std::vector<CEOID>& ids) {
        DbJournal journal;
        ASSERT_TRUE(journal.Open(nullptr));
        std::vector<BYTE> bytes = MakeCategoryBlob(ids);
        CEPROPVAL value = {};
        value.propid = kPropCategories;
        value.val.blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        ASSERT_EQ(journal.WriteRecordProps(entry, 1, &value), entry);
    }

    CEOID business_, family_;
};

TEST_F(MainWindowCategoriesTest, StartsWithTheStoredFilter) {
    const auto ids = Write({L"one", L"two", L"three"});
    SetCategories(ids[1], {family_});
    FilterSettings stored;
    stored.active = TRUE;
    stored.AddCategory(DbCItem(kPropCategoryName, L"Family"));
    RegistryFilterStore values(*app_);
    stored.Save(values);
    ASSERT_TRUE(Start());
    EXPECT_EQ(List().GetItemCount(), 1);
    EXPECT_EQ(filter_.passed, 1);
    EXPECT_TRUE(filter_.HasCategory(DbCItem(kPropCategoryName, L"Family")));
}

TEST_F(MainWindowCategoriesTest, AMissingCategoriesDatabaseIsReportedAndTheListIsThere) {
    Write({L"one", L"two"});
    {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    ASSERT_TRUE(Start());
    EXPECT_THAT(Subjects(), ElementsAre(L"one", L"two"));
}

TEST_F(MainWindowCategoriesTest, CopiesAreCountedAsUses) {
    const auto ids = Write({L"one", L"two", L"three"});
    SetCategories(ids[0], {business_, family_});
    SetCategories(ids[1], {family_});
    ASSERT_TRUE(Start());
    for (const CEOID id : ids)
        List().SelectEntry(id);
    Command(IDM_COPY_ENTRIES);
    EXPECT_EQ(List().GetItemCount(), 6);
    EXPECT_EQ(Uses(business_), 1);
    EXPECT_EQ(Uses(family_), 2);
}

TEST_F(MainWindowCategoriesTest, DeletedEntriesReleaseTheirCategories) {
    const auto ids = Write({L"one", L"two", L"three"});
    for (const CEOID id : ids)
        SetCategories(id, {business_});
    {
        DbCats categories;
        ASSERT_TRUE(categories.Open(nullptr));
        ASSERT_TRUE(categories.ChangeUses(business_, 3));
    }
    ASSERT_TRUE(Start());
    List().SelectEntry(ids[0]);
    List().SelectEntry(ids[2]);
    boxes_.Expect(L"Confirm", L"Delete record?", IDNO);
    Command(IDM_DELETE_ENTRIES);
    EXPECT_EQ(Uses(business_), 3);
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(IDM_DELETE_ENTRIES);
    EXPECT_EQ(Uses(business_), 1);
}

TEST_F(MainWindowCategoriesTest, AnEntryThatIsGoneReleasesNothing) {
    const auto ids = Write({L"one"});
    SetCategories(ids[0], {business_});
    ASSERT_TRUE(Start());
    List().SelectEntry(ids[0]);
    {
        DbJournal other;
        ASSERT_TRUE(other.Open(nullptr));
        ASSERT_TRUE(other.DeleteRecord(ids[0]));
    }
    boxes_.Expect(L"Confirm", L"Delete record?", IDYES);
    Command(IDM_DELETE_ENTRIES);
    EXPECT_EQ(Uses(business_), -1);
}

}  // namespace
