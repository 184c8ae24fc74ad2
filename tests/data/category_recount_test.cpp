// Counts of uses that are wrong are found and mended.
#include "data/category_recount.h"

#include <gmock/gmock.h>
#include <storebatch.h>

#include "data/category_blob.h"
#include "data/db_journal.h"
#include "tests/data/categories_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CategoryRecountTest : public CategoriesTest {
protected:
    CategoryRecountTest() {
        RemoveAll();
        EXPECT_TRUE(journal_.Open(nullptr));
    }

    void WriteBytes(const std::vector<BYTE>& bytes) {
        CEPROPVAL value{};
        value.propid = kPropCategories;
        value.val.blob = {static_cast<DWORD>(bytes.size()), const_cast<BYTE*>(bytes.data())};
        EXPECT_NE(journal_.WriteRecordProps(0, 1, &value), 0u);
    }
    void WriteEntry(const std::vector<CEOID>& ids) { WriteBytes(MakeCategoryBlob(ids)); }

    // What is wrong, as "name: counted, uses".
    std::vector<std::wstring> Wrong() {
        EXPECT_TRUE(FindWrongUseCounts(journal_, categories_, &wrong_));
        std::vector<std::wstring> lines;
        for (const WrongUseCount& count : wrong_)
            lines.push_back(count.name + L": " + std::to_wstring(count.counted) + L", " + std::to_wstring(count.uses));
        return lines;
    }

    DbJournal journal_;
    std::vector<WrongUseCount> wrong_;
};

TEST_F(CategoryRecountTest, WhatTheProgramCountsIsRight) {
    const CEOID chess = Insert(L"Chess"), go = Insert(L"Go");
    Insert(L"Never used");
    WriteEntry({chess, go, chess});
    WriteEntry({chess});
    WriteBytes({});
    ASSERT_TRUE(categories_.ChangeUses(chess, 2) && categories_.ChangeUses(go, 1));
    EXPECT_THAT(Wrong(), IsEmpty());
    EXPECT_EQ(Uses(chess), 2);
}

TEST_F(CategoryRecountTest, WrongCountsAreFoundAndMended) {
    const CEOID many = Insert(L"Too many", {{kPropCategoryJournalUses, 3}});
    const CEOID few = Insert(L"Too few", {{kPropCategoryJournalUses, 1}, {kPropCategoryUsesA, 7}});
    const CEOID none = Insert(L"Not counted");
    const CEOID negative = Insert(L"Negative", {{kPropCategoryJournalUses, -4}});
    const CEOID hidden = Insert(L"Hidden", {{kPropCategoryVisible, 0}});
    WriteEntry({few, none, hidden});
    WriteEntry({few});
    EXPECT_THAT(Wrong(), UnorderedElementsAre(L"Too many: 3, 0", L"Too few: 1, 2", L"Not counted: 0, 1",
                                              L"Negative: -4, 0", L"Hidden: 0, 1"));
    EXPECT_TRUE(MendUseCounts(categories_, wrong_));
    EXPECT_THAT((std::vector{Uses(many), Uses(few), Uses(none), Uses(negative), Uses(hidden)}),
                ElementsAre(0, 2, 1, 0, 1));
    EXPECT_EQ(Number(few, kPropCategoryUsesA), 7);
    EXPECT_EQ(Number(hidden, kPropCategoryVisible), 0);
    EXPECT_THAT(Wrong(), IsEmpty());
}

TEST_F(CategoryRecountTest, IdsOfNoCategoryAndBytesThatAreCutCountNothing) {
    const CEOID chess = Insert(L"Chess");
    WriteEntry({0x7FFFFFF0, 0});
    const std::vector<BYTE> whole = MakeCategoryBlob(std::vector{chess});
    for (size_t size = 0; size < whole.size(); ++size)
        WriteBytes(std::vector<BYTE>(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(size)));
    EXPECT_THAT(Wrong(), IsEmpty());
}

TEST_F(CategoryRecountTest, MoreUsesThanACountHoldsAreTheMostItHolds) {
    const CEOID chess = Insert(L"Chess", {{kPropCategoryJournalUses, 32'767}});
    const CEOID go = Insert(L"Go", {{kPropCategoryJournalUses, 32'767}});
    ASSERT_TRUE(CeBeginBatch());
    for (int i = 0; i < 32'768; ++i)
        WriteEntry(i == 0 ? std::vector{chess, go} : std::vector{chess});
    ASSERT_TRUE(CeCommitBatch());
    EXPECT_THAT(Wrong(), ElementsAre(L"Go: 32767, 1"));
}

TEST_F(CategoryRecountTest, ACategoryThatCannotBeWrittenIsReportedAndTheOthersAreMended) {
    const CEOID one = Insert(L"One", {{kPropCategoryJournalUses, 3}});
    const CEOID two = Insert(L"Two", {{kPropCategoryJournalUses, 3}});
    ASSERT_EQ(Wrong().size(), 2u);
    std::swap(wrong_[0], wrong_[wrong_[0].category == one ? 0 : 1]);
    ASSERT_TRUE(categories_.DeleteRecord(one));
    boxes_.Expect(L"CE Database Error", L"Error: 87(484)\ncedbase");
    EXPECT_FALSE(MendUseCounts(categories_, wrong_));
    EXPECT_EQ(Uses(two), 0);
}

TEST_F(CategoryRecountTest, AJournalThatIsNotOpenIsNotCounted) {
    DbJournal closed;
    EXPECT_FALSE(FindWrongUseCounts(closed, categories_, &wrong_));
}

}  // namespace
