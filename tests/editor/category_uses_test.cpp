// Counts of uses after a save in the editor.
#include "data/category_blob.h"
#include "data/db_cats.h"
#include "tests/editor/editor_screen.h"

namespace {

class EditorUsesTest : public EditorScreen {
protected:
    EditorUsesTest() {
        EXPECT_TRUE(categories_.Open(nullptr));
        business_ = categories_.FindByName(L"Business");
        family_ = categories_.FindByName(L"Family");
        for (const CEOID category : {business_, family_})
            EXPECT_TRUE(categories_.ChangeUses(category, 5));
    }
    CEOID AddWith(const std::vector<CEOID>& ids) {
        return AddEntry([&](TSList<DbJItem>& fields) {
            std::vector<BYTE> bytes = MakeCategoryBlob(ids);
            const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
            FindFieldByPropID(fields, kPropCategories)->SetBlob(&blob);
        });
    }
    void ChangeSubject() {
        SelectField(kFieldSubject);
        Retype(EditOf(Editor()), L"changed");
    }
    short Uses(CEOID category) {
        EXPECT_EQ(categories_.SeekToOid(category), category);
        CEPROPID ids[] = {kPropCategoryJournalUses};
        WORD count = 1;
        BYTE* buffer = nullptr;
        EXPECT_NE(categories_.ReadRecordProps(&count, ids, &buffer), 0u);
        const short uses = reinterpret_cast<CEPROPVAL*>(buffer)->val.iVal;
        LocalFree(buffer);
        return uses;
    }

    DbCats categories_;
    CEOID business_ = 0, family_ = 0;
};

TEST_F(EditorUsesTest, ASaveThatLeavesTheCategoriesLeavesTheCounts) {
    const CEOID id = AddWith({business_});
    Edit(id, [&] { ChangeSubject(); });
    EXPECT_EQ(StoredText(id, kPropSubject), L"changed");
    EXPECT_EQ(Uses(business_), 5);
}

// The categories that the store held are what the entry no longer carries, also when they were changed meanwhile.
TEST_F(EditorUsesTest, ASaveAddsAndReleasesTheDifferenceToWhatWasStored) {
    const CEOID id = AddWith({business_});
    Edit(id, [&] {
        std::vector<BYTE> bytes = MakeCategoryBlob(std::vector{family_});
        CEPROPVAL value = {};
        value.propid = kPropCategories;
        value.val.blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        ASSERT_EQ(journal_.WriteRecordProps(id, 1, &value), id);
        ChangeSubject();
    });
    EXPECT_EQ(Uses(business_), 6);
    EXPECT_EQ(Uses(family_), 4);
}

TEST_F(EditorUsesTest, ANewEntryWithoutCategoriesLeavesTheCounts) {
    EXPECT_NE(Edit(0, [&] { ChangeSubject(); }), 0u);
    EXPECT_EQ(Uses(business_), 5);
    EXPECT_EQ(Uses(family_), 5);
}

}  // namespace
