// The journal's count of uses, through all that happens to entries.
#include "data/category_uses.h"

#include <gmock/gmock.h>

#include "data/category_blob.h"
#include "data/db_journal.h"
#include "tests/data/categories_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CategoryUsesTest : public CategoriesTest {
protected:
    CategoryUsesTest() : chess_(Insert(L"Chess")), go_(Insert(L"Go")), hex_(Insert(L"Hex")) {}

    // An entry with these categories, written as the editor does.
    CEOID WriteEntry(DbJournal& journal, const std::vector<CEOID>& ids) {
        TSList<DbJItem> fields;
        journal.Read(0, &fields);
        std::vector<BYTE> bytes = MakeCategoryBlob(ids);
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        FindFieldByPropID(fields, kPropCategories)->SetBlob(&blob);
        return journal.Write(0, &fields);
    }
    std::vector<short> Counts() { return {Uses(chess_), Uses(go_), Uses(hex_)}; }

    CEOID chess_, go_, hex_;
};

TEST_F(CategoryUsesTest, ANewEntryAddsWhatItCarries) {
    EXPECT_TRUE(UpdateCategoryUses({}, std::vector{chess_, hex_}));
    EXPECT_THAT(Counts(), ElementsAre(1, kNone, 1));
}

TEST_F(CategoryUsesTest, ASaveAddsAndReleasesTheDifferenceAlone) {
    ASSERT_TRUE(UpdateCategoryUses({}, std::vector{chess_, go_}));
    EXPECT_TRUE(UpdateCategoryUses(std::vector{chess_, go_}, std::vector{hex_, go_}));
    EXPECT_THAT(Counts(), ElementsAre(0, 1, 1));
}

TEST_F(CategoryUsesTest, ADeletedEntryReleasesWhatItCarried) {
    ASSERT_TRUE(UpdateCategoryUses({}, std::vector{chess_, go_}));
    EXPECT_TRUE(UpdateCategoryUses(std::vector{chess_, go_}, {}));
    EXPECT_THAT(Counts(), ElementsAre(0, 0, kNone));
}

TEST_F(CategoryUsesTest, AnEntryCountsOnceHoweverOftenItNamesACategory) {
    EXPECT_TRUE(UpdateCategoryUses({}, std::vector{chess_, go_, chess_}));
    EXPECT_THAT(Counts(), ElementsAre(1, 1, kNone));
    EXPECT_TRUE(UpdateCategoryUses(std::vector{chess_, go_, chess_}, std::vector{chess_}));
    EXPECT_THAT(Counts(), ElementsAre(1, 0, kNone));
}

TEST_F(CategoryUsesTest, ManyEntriesAreCountedAtOnce) {
    CategoryUses uses;
    for (int i = 0; i < 300; ++i)
        uses.Add(std::vector{chess_, i % 3 ? go_ : hex_});
    uses.Release(std::vector{hex_});
    EXPECT_THAT(Counts(), ElementsAre(kNone, kNone, kNone));
    EXPECT_TRUE(uses.Store());
    EXPECT_THAT(Counts(), ElementsAre(300, 200, 99));
    EXPECT_TRUE(uses.Store());  // forgotten
    EXPECT_THAT(Counts(), ElementsAre(300, 200, 99));
}

TEST_F(CategoryUsesTest, ForgottenChangesAreNotStored) {
    CategoryUses uses;
    uses.Add(std::vector{chess_});
    uses.Forget();
    EXPECT_TRUE(uses.Store());
    EXPECT_THAT(Counts(), ElementsAre(kNone, kNone, kNone));
}

TEST_F(CategoryUsesTest, CategoriesThatAreGoneArePassedOver) {
    EXPECT_TRUE(UpdateCategoryUses(std::vector<CEOID>{0x7FFFFFFE}, std::vector<CEOID>{0x7FFFFFFF, go_}));
    EXPECT_THAT(Counts(), ElementsAre(kNone, 1, kNone));
}

TEST_F(CategoryUsesTest, WithoutTheDatabaseThatIsReportedOnce) {
    DeleteDatabase();
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    EXPECT_FALSE(UpdateCategoryUses({}, std::vector{chess_, go_}));
}

TEST_F(CategoryUsesTest, WithoutAChangeTheDatabaseIsNotAskedFor) {
    DeleteDatabase();
    EXPECT_TRUE(UpdateCategoryUses({}, {}));
    EXPECT_TRUE(UpdateCategoryUses(std::vector{chess_, go_}, std::vector{go_, chess_, chess_}));
}

TEST_F(CategoryUsesTest, AFailedWriteIsReportedAndTheOthersAreCounted) {
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    boxes_.Expect(L"CE Database Error", L"Error: 112(484)\ncedbase");
    EXPECT_FALSE(UpdateCategoryUses({}, std::vector{chess_, go_}));
    EXPECT_THAT(Counts(), ElementsAre(kNone, 1, kNone));
}

TEST_F(CategoryUsesTest, EntriesAreAskedForTheirCategories) {
    DbJournal journal;
    ASSERT_TRUE(journal.Open(nullptr));
    const CEOID with = WriteEntry(journal, {go_, chess_}), without = WriteEntry(journal, {});
    EXPECT_THAT(ReadEntryCategories(journal, with), ElementsAre(go_, chess_));
    EXPECT_THAT(ReadEntryCategories(journal, without), IsEmpty());
    EXPECT_THAT(ReadEntryCategories(journal, 0), IsEmpty());
    EXPECT_THAT(ReadEntryCategories(journal, chess_), IsEmpty());  // no entry
    CEPROPVAL subject{};
    subject.propid = kPropSubject;
    subject.val.lpwstr = const_cast<wchar_t*>(L"bare");
    EXPECT_THAT(ReadEntryCategories(journal, journal.WriteRecordProps(0, 1, &subject)), IsEmpty());
}

}  // namespace
