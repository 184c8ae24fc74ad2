// What of the filter is stored, in which order, and what is made of what was stored.
#include <gmock/gmock.h>

#include <map>

#include "filter/filter_store.h"
#include "tests/filter/filter_fixture.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

// Keeps values in memory and notes down in which order they are read, written and deleted.
class NotingStore : public FilterStore {
public:
    int32_t ReadNumber(const std::wstring& name) const override {
        log.push_back(L"read " + name);
        const auto found = numbers.find(name);
        return found == numbers.end() ? 0 : found->second;
    }
    std::wstring ReadText(const std::wstring& name) const override {
        log.push_back(L"read " + name);
        const auto found = texts.find(name);
        return found == texts.end() ? L"" : found->second;
    }
    void WriteNumber(const std::wstring& name, int32_t value) override {
        log.push_back(name + L"=" + std::to_wstring(value));
        numbers[name] = value;
    }
    void WriteText(const std::wstring& name, const std::wstring& text) override {
        log.push_back(name + L"=" + text);
        texts[name] = text;
    }
    void Delete(const std::wstring& name) override {
        log.push_back(L"delete " + name);
        texts.erase(name);
    }

    std::map<std::wstring, int32_t> numbers;
    std::map<std::wstring, std::wstring> texts;
    mutable std::vector<std::wstring> log;
};

class FilterStorageTest : public FilterTest {
protected:
    void Fill() {
        filter_.passed = 77;
        filter_.rangeStart = DateTime(0x11111111, 0x01C01111);
        filter_.rangeEnd = DateTime(0xFFFFFFFE, 0x01C02222);
        filter_.months = 0x0804;
        filter_.active = TRUE;
        filter_.categoriesOnly = TRUE;
        filter_.byRange = TRUE;
        Choose(L"Chess");
        Choose(L"Go");
    }

    NotingStore values_;
};

// ---- Save ----

TEST_F(FilterStorageTest, SaveWritesEveryValueInItsOrder) {
    Fill();
    filter_.Save(values_);
    EXPECT_THAT(values_.log,
                ElementsAre(L"fLStart=286331153", L"fHStart=29364497", L"fLEnd=-2", L"fHEnd=29368866", L"fActive=1",
                            L"fMonths=2052", L"fRange=1", L"fCatsOnly=1", L"fCnt=2", L"flt0=Chess", L"flt1=Go"));
}

TEST_F(FilterStorageTest, SaveOfAFreshFilterWritesZerosAndNoName) {
    filter_.Save(values_);
    EXPECT_THAT(values_.log, ElementsAre(L"fLStart=0", L"fHStart=0", L"fLEnd=0", L"fHEnd=0", L"fActive=0", L"fMonths=0",
                                         L"fRange=0", L"fCatsOnly=0", L"fCnt=0"));
}

TEST_F(FilterStorageTest, SaveLeavesNamesBehindTheCountAlone) {
    values_.texts = {{L"flt0", L"old"}, {L"flt1", L"old"}};
    filter_.Save(values_);
    EXPECT_EQ(values_.texts.size(), 2u);
}

// ---- Reset ----

TEST_F(FilterStorageTest, ResetDeletesTheStoredNamesThenWritesTheCountAndSaves) {
    Fill();
    values_.numbers[L"fCnt"] = 3;  // what is stored counts, not what is chosen now
    filter_.Reset(values_);
    EXPECT_THAT(values_.log, ElementsAre(L"read fCnt", L"delete flt0", L"delete flt1", L"delete flt2", L"fCnt=0",
                                         L"fLStart=0", L"fHStart=0", L"fLEnd=0", L"fHEnd=0", L"fActive=0", L"fMonths=0",
                                         L"fRange=1", L"fCatsOnly=0", L"fCnt=0"));
}

TEST_F(FilterStorageTest, ResetClearsEveryFieldButTheCountOfTheList) {
    Fill();
    filter_.Reset(values_);
    EXPECT_EQ(filter_.active, FALSE);
    EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
    EXPECT_EQ(filter_.rangeEnd.Ticks(), 0u);
    EXPECT_EQ(filter_.byRange, TRUE);
    EXPECT_EQ(filter_.months, 0u);
    EXPECT_EQ(filter_.categoriesOnly, FALSE);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(filter_.passed, 77);
    filter_.active = filter_.categoriesOnly = TRUE;
    EXPECT_FALSE(Match(At(2024, 1, 1), {{Category(L"Chess")}}));
}

TEST_F(FilterStorageTest, ResetWithoutAStoredCountDeletesNothing) {
    filter_.Reset(values_);
    EXPECT_THAT(values_.texts, IsEmpty());
    EXPECT_EQ(values_.log[1], L"fCnt=0");
}

// ---- Load ----

TEST_F(FilterStorageTest, LoadReadsEveryValueInItsOrder) {
    values_.numbers[L"fCnt"] = 2;
    filter_.Load(values_);
    EXPECT_THAT(values_.log,
                ElementsAre(L"read fActive", L"read fMonths", L"read fRange", L"read fCatsOnly", L"read fLStart",
                            L"read fHStart", L"read fLEnd", L"read fHEnd", L"read fCnt", L"read flt0", L"read flt1"));
}

TEST_F(FilterStorageTest, WhatWasSavedIsLoaded) {
    Fill();
    filter_.Save(values_);
    FilterSettings loaded;
    loaded.passed = 5;
    loaded.AddCategory(DbCItem(kPropCategoryName, L"from before"));
    loaded.Load(values_);
    EXPECT_EQ(loaded.passed, 0);
    EXPECT_EQ(loaded.rangeStart, filter_.rangeStart);
    EXPECT_EQ(loaded.rangeEnd, filter_.rangeEnd);
    EXPECT_EQ(loaded.months, 0x0804u);
    EXPECT_EQ(loaded.active, TRUE);
    EXPECT_EQ(loaded.categoriesOnly, TRUE);
    EXPECT_EQ(loaded.byRange, TRUE);
    ASSERT_EQ(loaded.Categories().GetCount(), 2);
    std::vector<CEOID> ids;
    for (const DbCItem& category : loaded.Categories()) {
        EXPECT_EQ(category.GetPropID(), kPropCategoryName);
        ids.push_back(category.GetOid());
    }
    EXPECT_THAT(ids, ElementsAre(Category(L"Chess"), Category(L"Go")));
    EXPECT_TRUE(loaded.Match(At(2024, 1, 1).ToFileTime(), Packed({Category(L"Go")})));
}

TEST_F(FilterStorageTest, AFirstStartHasMonthsModeThoughAResetHasRangeMode) {
    filter_.Load(values_);
    EXPECT_EQ(filter_.active, FALSE);
    EXPECT_EQ(filter_.byRange, FALSE);
    EXPECT_EQ(filter_.months, 0u);
    EXPECT_EQ(filter_.rangeStart.Ticks(), 0u);
    EXPECT_THAT(Names(), IsEmpty());
    filter_.Reset(values_);
    filter_.Load(values_);
    EXPECT_EQ(filter_.byRange, TRUE);
}

TEST_F(FilterStorageTest, ANameThatIsNoCategoryAnyMoreIsLoadedAndMatchesNothing) {
    Fill();
    filter_.Save(values_);
    const CEOID chess = Category(L"Chess"), go = Category(L"Go");
    DeleteCategory(L"Chess");
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAre(L"Chess", L"Go"));
    EXPECT_FALSE(Match(At(2024, 1, 1), {{chess}}));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{go}}));
}

TEST_F(FilterStorageTest, MissingNamesAreEmptyAndMatchNothing) {
    // A category without a name, which another program may have left.
    CEOID nameless;
    {
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        CEPROPVAL name{};
        name.propid = kPropCategoryName;
        name.val.lpwstr = const_cast<wchar_t*>(L"");
        nameless = database.WriteRecordProps(0, 1, &name);
    }
    values_.numbers = {{L"fActive", 1}, {L"fCnt", 2}};
    values_.texts = {{L"flt1", L"Business"}};
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAre(L"", L"Business"));
    EXPECT_FALSE(Match(At(2024, 1, 1), {{nameless}}));
    EXPECT_TRUE(Match(At(2024, 1, 1), {{Category(L"Business")}}));
}

TEST_F(FilterStorageTest, AMissingDatabaseIsReportedAndTheNamesAreTaken) {
    Fill();
    filter_.Save(values_);
    DeleteCategoriesDatabase();
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAre(L"Chess", L"Go"));
    EXPECT_EQ(filter_.active, TRUE);
    EXPECT_FALSE(Match(At(2024, 1, 1), {{1, 2, 3}}));
}

TEST_F(FilterStorageTest, AMissingDatabaseIsReportedAlsoWithoutAnyName) {
    DeleteCategoriesDatabase();
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    filter_.Load(values_);
    EXPECT_TRUE(Match(At(2024, 1, 1)));
}

TEST_F(FilterStorageTest, DamagedNumbersAreHeldWithinTheirBounds) {
    values_.numbers = {{L"fActive", -7}, {L"fMonths", -1}, {L"fRange", 2}, {L"fCatsOnly", 256}};
    filter_.Load(values_);
    EXPECT_EQ(filter_.active, TRUE);
    EXPECT_EQ(filter_.months, 0x0FFFu);
    EXPECT_EQ(filter_.byRange, TRUE);
    EXPECT_EQ(filter_.categoriesOnly, TRUE);
}

TEST_F(FilterStorageTest, AnImpossibleCountIsNone) {
    for (const int32_t count : {-1, INT32_MIN, 65'536, INT32_MAX}) {
        SCOPED_TRACE(count);
        values_.numbers[L"fCnt"] = count;
        values_.log.clear();
        filter_.Load(values_);
        EXPECT_THAT(Names(), IsEmpty());
        filter_.Reset(values_);
        EXPECT_EQ(values_.numbers[L"fCnt"], 0);
        EXPECT_LT(values_.log.size(), 30u);
    }
}

TEST_F(FilterStorageTest, ACountThatNoNamesStandBehindIsNotReadOut) {
    values_.numbers[L"fCnt"] = 65'535;
    values_.texts[L"flt0"] = L"Chess";
    values_.texts[L"flt1"] = L"Go";
    values_.texts[L"flt3"] = L"Cards";
    values_.log.clear();
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAre(L"Chess", L"Go"));
    filter_.Reset(values_);
    EXPECT_EQ(values_.numbers[L"fCnt"], 0);
    EXPECT_LT(values_.log.size(), 60u);
}

TEST_F(FilterStorageTest, ALongListComesBackInItsOrder) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 5000; ++i) {
        names.push_back(L"Category " + std::to_wstring(i * 7 % 5000));
        filter_.AddCategory(DbCItem(kPropCategoryName, names.back().c_str()));
    }
    filter_.Save(values_);
    filter_.Load(values_);
    EXPECT_THAT(Names(), ElementsAreArray(names));
}

}  // namespace
