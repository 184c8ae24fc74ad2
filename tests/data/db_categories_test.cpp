// The device's categories: what each operation answers, writes and shows.
#include "data/db_categories.h"

#include <gmock/gmock.h>

#include "tests/data/categories_fixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DbCategoriesTest : public CategoriesTest {};

constexpr wchar_t kReportTitle[] = L"CE Database Error";
constexpr wchar_t kQuestion[] =
    L"A category with the name that you have selected already exists but is hidden.\r\n\r\n"
    L"Would you like to un-hide it?";

// ---- Open ----

TEST_F(DbCategoriesTest, OpensByNameAndByOrdinal) {
    const CEOID last = Insert(L"zzz", {{kPropCategoryOrdinal, -7}});
    EXPECT_EQ(categories_.SeekToOidIndex(last), categories_.GetRecordCount() - 1);
    ASSERT_TRUE(categories_.Open(kPropCategoryOrdinal, nullptr));
    EXPECT_EQ(categories_.SeekToOidIndex(last), 0);
}

TEST_F(DbCategoriesTest, OpenClosesWhatWasOpen) {
    ASSERT_TRUE(categories_.Open(kPropCategoryName, nullptr));
    ASSERT_TRUE(categories_.Open(kPropCategoryName, nullptr));
    EXPECT_TRUE(categories_.Close());  // the fixture finds a handle that was left
}

TEST_F(DbCategoriesTest, DestructorCloses) {
    categories_.Close();
    {
        DbCategories categories;
        ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    }
    EXPECT_TRUE(CeUnmountObjectStore());
}

TEST_F(DbCategoriesTest, MissingDatabaseIsReportedNotMadeAndBreaksNothing) {
    DeleteDatabase();
    boxes_.Expect(kReportTitle, L"Error: 2(37)\nDbCategories");
    EXPECT_FALSE(categories_.Open(kPropCategoryName, nullptr));
    EXPECT_EQ(boxes_.Seen().back().icon, UINT{MB_ICONEXCLAMATION});
    EXPECT_EQ(categories_.GetHandle(), nullptr);
    EXPECT_FALSE(categories_.Exists(kCategoriesDatabase));
    // Of a database that is not open everything is answered, and only what always reports does.
    EXPECT_EQ(categories_.FindByName(L"Business"), 0u);
    EXPECT_FALSE(categories_.IsInUse(1));
    EXPECT_FALSE(categories_.IsHidden(1));
    EXPECT_EQ(categories_.CountVisible(), 0);
    EXPECT_FALSE(categories_.AddUse(1));
    EXPECT_FALSE(categories_.ReleaseUse(1));
    EXPECT_EQ(categories_.ResetUses(), 0);
}

TEST_F(DbCategoriesTest, OtherFailuresToOpenAreReportedTwice) {
    CeFailCall("CeOpenDatabase", 1, ERROR_GEN_FAILURE);
    boxes_.Expect(kReportTitle, L"Error: 31(57)\ncedbase");
    boxes_.Expect(kReportTitle, L"Error: 31(37)\nDbCategories");
    EXPECT_FALSE(categories_.Open(kPropCategoryName, nullptr));
}

// ---- FindByName ----

TEST_F(DbCategoriesTest, NamesAreFoundAsTheOrderComparesThem) {
    const CEOID sailing = Insert(L"Sailing"), hidden = Insert(L"Secret", {{kPropCategoryVisible, 0}});
    EXPECT_EQ(categories_.FindByName(L"Sailing"), sailing);
    EXPECT_EQ(categories_.FindByName(L"sAILING"), sailing);
    EXPECT_EQ(categories_.FindByName(L"Secret"), hidden);
    EXPECT_EQ(categories_.FindByName(L"Sailin"), 0u);
    EXPECT_EQ(categories_.FindByName(L"Sailing "), 0u);
    EXPECT_EQ(categories_.FindByName(L""), 0u);
    EXPECT_EQ(categories_.FindByName(nullptr), 0u);
}

TEST_F(DbCategoriesTest, TheFirstOfEqualNamesIsFoundEachTime) {
    const CEOID first = Insert(L"Twice");
    Insert(L"Twice");
    EXPECT_EQ(categories_.FindByName(L"Twice"), first);
    EXPECT_EQ(categories_.FindByName(L"Twice"), first);
}

// ---- Add ----

TEST_F(DbCategoriesTest, AddWritesTheSevenPropertiesInTheirOrder) {
    RemoveAll();
    ASSERT_TRUE(categories_.Add(L"Chess"));
    ASSERT_NE(categories_.SeekFirst(), 0u);
    WORD count = 0;
    RecordBuffer record;
    ASSERT_NE(categories_.ReadRecordProps(&count, nullptr, record.Put()), 0u);
    ASSERT_EQ(count, 7);
    EXPECT_EQ(record[0].propid, 0x4001001Fu);
    EXPECT_STREQ(record[0].val.lpwstr, L"Chess");
    const std::pair<CEPROPID, short> numbers[] = {{0x40020002, 0}, {0x40030002, 1}, {0x40040002, 0},
                                                  {0x40050002, 0}, {0x40060002, 0}, {0x43EF0002, 0}};
    for (size_t i = 0; i < std::size(numbers); ++i) {
        EXPECT_EQ(record[i + 1].propid, numbers[i].first);
        EXPECT_EQ(record[i + 1].val.iVal, numbers[i].second);
    }
}

// Notes down what is written.
class NotingCategories : public DbCategories {
public:
    CEOID WriteRecordProps(CEOID record, WORD count, CEPROPVAL* values) override {
        for (WORD i = 0; i < count; ++i)
            written.push_back(values[i].propid);
        records.push_back(record);
        return DbCategories::WriteRecordProps(record, count, values);
    }
    CEOID SeekToOid(CEOID record) override {
        busy.push_back(busy_);
        return DbCategories::SeekToOid(record);
    }
    CEOID ReadRecordProps(WORD* count, CEPROPID* ids, BYTE** buffer) override {
        busy.push_back(busy_);
        if (failReads) return 0;
        return DbCategories::ReadRecordProps(count, ids, buffer);
    }
    DWORD Busy() const { return busy_; }

    std::vector<CEPROPID> written;
    std::vector<CEOID> records;
    std::vector<DWORD> busy;
    bool failReads = false;
};

TEST_F(DbCategoriesTest, AddWritesOneNewRecordInOneCall) {
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    ASSERT_TRUE(categories.Add(L"Chess"));
    EXPECT_THAT(categories.records, ElementsAre(0u));
    EXPECT_THAT(categories.written,
                ElementsAre(0x4001001Fu, 0x40020002u, 0x40030002u, 0x40040002u, 0x40050002u, 0x40060002u, 0x43EF0002u));
}

TEST_F(DbCategoriesTest, AddingAVisibleNameWritesNothing) {
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    Insert(L"Chess", {{kPropCategoryVisible, 1}});
    EXPECT_FALSE(categories.Add(L"Chess"));
    EXPECT_FALSE(categories.Add(L"CHESS"));
    EXPECT_THAT(categories.written, IsEmpty());
}

TEST_F(DbCategoriesTest, AddingAHiddenNameShowsItAgainAndWritesNothingElse) {
    const CEOID hidden =
        Insert(L"Chess", {{kPropCategoryVisible, 0}, {kPropCategoryOrdinal, 77}, {kPropCategoryUsesB, 3}});
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    EXPECT_TRUE(categories.Add(L"Chess"));
    EXPECT_THAT(categories.written, ElementsAre(kPropCategoryVisible));
    EXPECT_THAT(categories.records, ElementsAre(hidden));
    EXPECT_EQ(Number(hidden, kPropCategoryVisible), 1);
    EXPECT_EQ(Number(hidden, kPropCategoryOrdinal), 77);
    EXPECT_EQ(categories_.FindByName(L"Chess"), hidden);
}

TEST_F(DbCategoriesTest, AddTakesTheLowestFreeOrdinal) {
    const struct {
        const char* label;
        std::vector<short> taken;
        short expected;
    } rows[] = {
        {"none", {}, 0},           {"a gap", {0, 1, 3}, 2},          {"no gap", {0, 1, 2, 3, 4}, 5},
        {"not from 0", {1, 2}, 0}, {"twice the same", {0, 0, 1}, 2}, {"negative ones", {-1, -5, 0}, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        RemoveAll();
        for (const short ordinal : row.taken)
            Insert(L"other", {{kPropCategoryOrdinal, ordinal}});
        Insert(L"without ordinal");
        ASSERT_TRUE(categories_.Add(L"new"));
        EXPECT_EQ(Number(categories_.FindByName(L"new"), kPropCategoryOrdinal), row.expected);
    }
}

TEST_F(DbCategoriesTest, WithoutAnOrderByOrdinalTheOrdinalIsZero) {
    DeleteDatabase();
    SORTORDERSPEC byName = {kPropCategoryName, CEDB_SORT_CASEINSENSITIVE};
    CeDbase base;
    ASSERT_TRUE(base.Create(kCategoriesDatabase, 0x1B, 1, &byName));
    ASSERT_TRUE(categories_.Open(kPropCategoryName, nullptr));
    ASSERT_TRUE(categories_.Add(L"one"));
    ASSERT_TRUE(categories_.Add(L"two"));
    EXPECT_EQ(Number(categories_.FindByName(L"two"), kPropCategoryOrdinal), 0);
}

TEST_F(DbCategoriesTest, AFailedAddIsReportedAndAnsweredFalse) {
    CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
    boxes_.Expect(kReportTitle, L"Error: 112(484)\ncedbase");
    EXPECT_FALSE(categories_.Add(L"Chess"));
    EXPECT_EQ(categories_.FindByName(L"Chess"), 0u);
}

// ---- Rename ----

TEST_F(DbCategoriesTest, RenameWritesTheNameAlone) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryOrdinal, 9}});
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    EXPECT_TRUE(categories.Rename(id, L"Go"));
    EXPECT_THAT(categories.written, ElementsAre(kPropCategoryName));
    EXPECT_THAT(categories.records, ElementsAre(id));
    EXPECT_EQ(categories_.FindByName(L"Go"), id);
    EXPECT_EQ(categories_.FindByName(L"Chess"), 0u);
    EXPECT_EQ(Number(id, kPropCategoryOrdinal), 9);
}

TEST_F(DbCategoriesTest, RenamingToAVisibleNameIsNotStopped) {
    const CEOID id = Insert(L"Chess");
    Insert(L"Go", {{kPropCategoryVisible, 1}});
    EXPECT_TRUE(categories_.Rename(id, L"Go"));
    EXPECT_EQ(Name(id), L"Go");
}

TEST_F(DbCategoriesTest, RenamingToAHiddenNameAsksAndYesShowsThatOneAgain) {
    const CEOID id = Insert(L"Chess"), hidden = Insert(L"Go", {{kPropCategoryVisible, 0}});
    boxes_.Expect(L"Category?", kQuestion, IDYES);
    EXPECT_TRUE(categories_.Rename(id, L"go"));
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, UINT{MB_ICONQUESTION});
    EXPECT_EQ(boxes_.Seen()[0].buttons, UINT{MB_YESNO});
    EXPECT_FALSE(categories_.IsHidden(hidden));
    EXPECT_EQ(Name(id), L"Chess");
}

TEST_F(DbCategoriesTest, RenamingToAHiddenNameAsksAndNoLeavesAllAsItWas) {
    const CEOID id = Insert(L"Chess"), hidden = Insert(L"Go", {{kPropCategoryVisible, 0}});
    boxes_.Expect(L"Category?", kQuestion, IDNO);
    EXPECT_TRUE(categories_.Rename(id, L"Go"));
    EXPECT_TRUE(categories_.IsHidden(hidden));
    EXPECT_EQ(Name(id), L"Chess");
}

TEST_F(DbCategoriesTest, RenamingWhatIsGoneIsReportedAndMakesNothing) {
    const CEOID id = Insert(L"Chess");
    ASSERT_TRUE(categories_.DeleteRecord(id));
    const WORD count = categories_.GetRecordCount();
    boxes_.Expect(kReportTitle, L"Error: 87(484)\ncedbase");
    EXPECT_FALSE(categories_.Rename(id, L"Go"));
    EXPECT_FALSE(categories_.Rename(0, L"Go"));
    EXPECT_EQ(categories_.GetRecordCount(), count);
}

// ---- Remove and IsInUse ----

TEST_F(DbCategoriesTest, RemovingAnUnusedCategoryDeletesIt) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryOrdinal, 5}, {kPropCategoryVisible, 1}, {kPropCategoryUsesA, 0}});
    EXPECT_TRUE(categories_.Remove(id));
    EXPECT_EQ(categories_.SeekToOid(id), 0u);
}

TEST_F(DbCategoriesTest, RemovingAUsedCategoryOnlyHidesIt) {
    for (const CEPROPID uses : {kPropCategoryUsesA, kPropCategoryUsesB, kPropCategoryUsesC, kPropCategoryJournalUses,
                                MakePropID(0x4777, CEVT_I2)}) {
        SCOPED_TRACE(uses);
        const CEOID id = Insert(L"Chess", {{kPropCategoryVisible, 1}, {uses, 1}});
        EXPECT_TRUE(categories_.Remove(id));
        EXPECT_TRUE(categories_.IsHidden(id));
        EXPECT_EQ(Number(id, uses), 1);
    }
}

TEST_F(DbCategoriesTest, OnlyCountsAboveZeroAreUses) {
    const struct {
        const char* label;
        Numbers numbers;
        bool inUse;
    } rows[] = {
        {"its own numbers", {{kPropCategoryOrdinal, 5}, {kPropCategoryVisible, 1}}, false},
        {"no use", {{kPropCategoryUsesA, 0}, {kPropCategoryJournalUses, 0}}, false},
        {"less than none", {{kPropCategoryUsesA, -1}}, false},
        {"one", {{kPropCategoryUsesA, 0}, {kPropCategoryUsesC, 1}}, true},
        {"the most", {{kPropCategoryJournalUses, 32767}}, true},
        {"an unknown program's", {{MakePropID(0x1234, CEVT_I2), 2}}, true},
        {"an unsigned one", {{MakePropID(0x1234, CEVT_UI2), -1}}, true},
        {"its own ordinal, unsigned", {{MakePropID(0x4002, CEVT_UI2), 7}}, false},
        {"a wider number", {{MakePropID(0x1234, CEVT_I4), 7}}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(categories_.IsInUse(Insert(L"Chess", row.numbers)), row.inUse);
    }
    EXPECT_FALSE(categories_.IsInUse(0));
    EXPECT_FALSE(categories_.IsInUse(0x7FFFFFFF));
}

TEST_F(DbCategoriesTest, IsBusyWhileItLooksForUses) {
    const CEOID id = Insert(L"Chess");
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    EXPECT_FALSE(categories.IsInUse(id));
    EXPECT_THAT(categories.busy, ElementsAre(1u, 1u));
    EXPECT_EQ(categories.Busy(), 0u);
    EXPECT_FALSE(categories.IsInUse(0));
    EXPECT_EQ(categories.Busy(), 0u);
}

TEST_F(DbCategoriesTest, WhatCannotBeReadIsNotDeleted) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryUsesA, 1}});
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    categories.failReads = true;
    EXPECT_FALSE(categories.Remove(id));
    EXPECT_EQ(Name(id), L"Chess");
}

TEST_F(DbCategoriesTest, RemovingWhatIsGoneIsReported) {
    boxes_.Expect(kReportTitle, L"Error: 87(326)\ncedbase");
    EXPECT_FALSE(categories_.Remove(0x7FFFFFFF));
}

// ---- Hidden and visible ----

TEST_F(DbCategoriesTest, HideAndUnhideWriteTheMarkAlone) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryVisible, 1}, {kPropCategoryOrdinal, 4}});
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    EXPECT_TRUE(categories.Hide(id));
    EXPECT_TRUE(categories_.IsHidden(id));
    EXPECT_TRUE(categories.Unhide(id));
    EXPECT_FALSE(categories_.IsHidden(id));
    EXPECT_THAT(categories.written, ElementsAre(kPropCategoryVisible, kPropCategoryVisible));
    EXPECT_EQ(Number(id, kPropCategoryOrdinal), 4);
}

TEST_F(DbCategoriesTest, HidingNoCategoryMakesNone) {
    const WORD count = categories_.GetRecordCount();
    EXPECT_FALSE(categories_.Hide(0));
    EXPECT_FALSE(categories_.Unhide(0));
    boxes_.Expect(kReportTitle, L"Error: 87(484)\ncedbase");
    EXPECT_FALSE(categories_.Hide(0x7FFFFFFF));
    EXPECT_EQ(categories_.GetRecordCount(), count);
}

TEST_F(DbCategoriesTest, WithoutTheMarkACategoryIsHidden) {
    EXPECT_TRUE(categories_.IsHidden(Insert(L"Chess")));
    EXPECT_FALSE(categories_.IsHidden(Insert(L"Go", {{kPropCategoryVisible, 7}})));
    EXPECT_FALSE(categories_.IsHidden(0));
    EXPECT_FALSE(categories_.IsHidden(0x7FFFFFFF));
}

TEST_F(DbCategoriesTest, CountsWhatIsVisible) {
    RemoveAll();
    EXPECT_EQ(categories_.CountVisible(), 0);
    Insert(L"a", {{kPropCategoryVisible, 1}});
    Insert(L"b", {{kPropCategoryVisible, 0}});
    Insert(L"c", {{kPropCategoryVisible, -1}});
    Insert(L"d");
    Insert(nullptr, {{kPropCategoryVisible, 1}});
    Insert(nullptr, {{kPropCategoryVisible, 0}});
    EXPECT_EQ(categories_.CountVisible(), 3);
}

// ---- Counting uses ----

TEST_F(DbCategoriesTest, UsesAreCountedFromWhateverIsThere) {
    const struct {
        const char* label;
        Numbers before;
        int change;
        short after;
    } rows[] = {
        {"first use", {}, 1, 1},
        {"one more", {{kPropCategoryJournalUses, 4}}, 1, 5},
        {"one less", {{kPropCategoryJournalUses, 4}}, -1, 3},
        {"the last", {{kPropCategoryJournalUses, 1}}, -1, 0},
        {"less than none", {{kPropCategoryJournalUses, 0}}, -1, 0},
        {"released before it was ever used", {}, -1, 0},
        {"many", {{kPropCategoryJournalUses, 4}}, 1000, 1004},
        {"many less than there are", {{kPropCategoryJournalUses, 4}}, -1000, 0},
        {"a damaged count", {{kPropCategoryJournalUses, -3}}, 1, 1},
        {"a damaged count released", {{kPropCategoryJournalUses, -3}}, -1, 0},
        {"up to the most", {{kPropCategoryJournalUses, 32766}}, 1, 32767},
        {"more than the most", {{kPropCategoryJournalUses, 32767}}, 1, 32767},
        {"far more than the most", {}, 100'000, 32767},
        {"one less than the most", {{kPropCategoryJournalUses, 32767}}, -1, 32766},
        {"many less than the most", {{kPropCategoryJournalUses, 32767}}, -32768, 0},
        {"below the most", {{kPropCategoryJournalUses, 32766}}, -1, 32765},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        const CEOID id = Insert(L"Chess", row.before);
        const BOOL changed = row.change == 1    ? categories_.AddUse(id)
                             : row.change == -1 ? categories_.ReleaseUse(id)
                                                : categories_.ChangeUses(id, row.change);
        EXPECT_TRUE(changed);
        EXPECT_EQ(Uses(id), row.after);
    }
}

TEST_F(DbCategoriesTest, ReleasingAtZeroWritesZeroAgain) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryJournalUses, 0}});
    NotingCategories categories;
    ASSERT_TRUE(categories.Open(kPropCategoryName, nullptr));
    EXPECT_TRUE(categories.ReleaseUse(id));
    EXPECT_THAT(categories.written, ElementsAre(kPropCategoryJournalUses));
}

TEST_F(DbCategoriesTest, CountingLeavesOtherProgramsCountsAlone) {
    const CEOID id = Insert(L"Chess", {{kPropCategoryUsesA, 3}, {kPropCategoryUsesB, 0}});
    EXPECT_TRUE(categories_.AddUse(id));
    EXPECT_EQ(Number(id, kPropCategoryUsesA), 3);
    EXPECT_EQ(Number(id, kPropCategoryUsesB), 0);
    EXPECT_EQ(Number(id, kPropCategoryUsesC), kNone);
}

TEST_F(DbCategoriesTest, UsesOfNoCategoryAreNotCounted) {
    const WORD count = categories_.GetRecordCount();
    EXPECT_FALSE(categories_.AddUse(0));
    EXPECT_FALSE(categories_.ReleaseUse(0));
    EXPECT_FALSE(categories_.AddUse(0x7FFFFFFF));
    EXPECT_FALSE(categories_.AddUse(categories_.GetOid()));  // no record
    EXPECT_EQ(categories_.GetRecordCount(), count);
}

TEST_F(DbCategoriesTest, ResetTakesBackTheJournalsCountsWhereThereAreAny) {
    RemoveAll();
    const CEOID used = Insert(L"b", {{kPropCategoryJournalUses, 9}, {kPropCategoryUsesA, 2}});
    const CEOID unused = Insert(L"a", {{kPropCategoryJournalUses, 0}});
    const CEOID never = Insert(L"c", {{kPropCategoryUsesA, 5}});
    const CEOID nameless = Insert(nullptr, {{kPropCategoryJournalUses, 1}});
    EXPECT_EQ(categories_.ResetUses(), 3);
    EXPECT_EQ(Uses(used), 0);
    EXPECT_EQ(Uses(unused), 0);
    EXPECT_EQ(Uses(never), kNone);
    EXPECT_EQ(Uses(nameless), 0);
    EXPECT_EQ(Number(used, kPropCategoryUsesA), 2);
    EXPECT_EQ(Number(never, kPropCategoryUsesA), 5);
}

}  // namespace
