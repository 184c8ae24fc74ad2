// The categories among others: a second program that changes them meanwhile, databases of any size, odd records.
#include <gmock/gmock.h>
#include <storebatch.h>

#include "tests/data/categories_fixture.h"
#include "tests/support/other_program.h"
#include "tests/support/pump.h"

namespace {

class SharedCategoriesTest : public CategoriesTest {
protected:
    // Lets another process do one thing (see categories_helper.cpp); answers its result.
    static DWORD OtherProgram(const std::wstring& what) { return RunOtherProgram(L"categories_helper.exe", what); }
    static DWORD OtherProgram(const std::wstring& verb, CEOID category, const std::wstring& rest = {}) {
        return OtherProgram(verb + L" " + std::to_wstring(category) + (rest.empty() ? L"" : L" " + rest));
    }
};

TEST_F(SharedCategoriesTest, WhatAnotherProgramAddsIsFoundAndTaken) {
    const CEOID id = OtherProgram(L"add Chess");
    ASSERT_NE(id, 0u);
    EXPECT_EQ(categories_.FindByName(L"Chess"), id);
    EXPECT_FALSE(categories_.Add(L"Chess"));
}

TEST_F(SharedCategoriesTest, WhatIsAddedHereAnotherProgramFinds) {
    ASSERT_TRUE(categories_.Add(L"Chess"));
    EXPECT_EQ(OtherProgram(L"is", categories_.FindByName(L"Chess"), L"Chess"), 1u);
}

TEST_F(SharedCategoriesTest, ACategoryThatAnotherProgramUsesIsOnlyHidden) {
    ASSERT_TRUE(categories_.Add(L"Chess"));
    const CEOID id = categories_.FindByName(L"Chess");
    EXPECT_FALSE(categories_.IsInUse(id));
    ASSERT_EQ(OtherProgram(L"use", id, L"2"), id);
    EXPECT_TRUE(categories_.IsInUse(id));
    EXPECT_TRUE(categories_.Remove(id));
    EXPECT_TRUE(categories_.IsHidden(id));
    ASSERT_EQ(OtherProgram(L"use", id, L"0"), id);
    EXPECT_TRUE(categories_.Remove(id));
    EXPECT_EQ(categories_.FindByName(L"Chess"), 0u);
}

TEST_F(SharedCategoriesTest, CountsOfBothProgramsStandSideBySide) {
    ASSERT_TRUE(categories_.Add(L"Chess"));
    const CEOID id = categories_.FindByName(L"Chess");
    ASSERT_TRUE(categories_.AddUse(id));
    ASSERT_EQ(OtherProgram(L"use", id, L"9"), id);
    ASSERT_TRUE(categories_.AddUse(id));
    EXPECT_EQ(Uses(id), 2);
    EXPECT_EQ(Number(id, kPropCategoryUsesB), 9);
}

TEST_F(SharedCategoriesTest, WhatAnotherProgramHidAddShowsAgain) {
    ASSERT_TRUE(categories_.Add(L"Chess"));
    const CEOID id = categories_.FindByName(L"Chess");
    ASSERT_EQ(OtherProgram(L"hide", id), id);
    EXPECT_TRUE(categories_.IsHidden(id));
    EXPECT_TRUE(categories_.Add(L"Chess"));
    EXPECT_FALSE(categories_.IsHidden(id));
}

TEST_F(SharedCategoriesTest, WhatAnotherProgramDeletedIsGoneAndBreaksNothing) {
    ASSERT_TRUE(categories_.Add(L"Chess"));
    const CEOID id = categories_.FindByName(L"Chess");
    ASSERT_EQ(OtherProgram(L"delete", id), 1u);
    EXPECT_EQ(categories_.FindByName(L"Chess"), 0u);
    EXPECT_FALSE(categories_.IsHidden(id));
    EXPECT_FALSE(categories_.IsInUse(id));
    EXPECT_FALSE(categories_.AddUse(id));
    boxes_.Expect(L"CE Database Error", L"Error: 87(326)\ncedbase");
    EXPECT_FALSE(categories_.Remove(id));
}

LRESULT CALLBACK CountMessages(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == DB_CEOID_RECORD_DELETED || message == DB_CEOID_CREATED)
        SetWindowLongPtrW(window, GWLP_USERDATA, GetWindowLongPtrW(window, GWLP_USERDATA) + 1);
    return DefWindowProcW(window, message, wparam, lparam);
}

TEST_F(SharedCategoriesTest, TheNotifyWindowHearsOfAnotherProgramsChange) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountMessages));
    ASSERT_TRUE(categories_.Open(kPropCategoryName, window));
    ASSERT_NE(OtherProgram(L"add Chess"), 0u);
    EXPECT_TRUE(PumpUntil([window] { return GetWindowLongPtrW(window, GWLP_USERDATA) > 0; }));
    categories_.Close();
    DestroyWindow(window);
}

// ---- Sizes ----

TEST_F(SharedCategoriesTest, AnEmptyDatabaseAnswersEverything) {
    RemoveAll();
    EXPECT_EQ(categories_.CountVisible(), 0);
    EXPECT_EQ(categories_.ResetUses(), 0);
    EXPECT_EQ(categories_.FindByName(L"Chess"), 0u);
    ASSERT_TRUE(categories_.Add(L"Chess"));
    EXPECT_EQ(Number(categories_.FindByName(L"Chess"), kPropCategoryOrdinal), 0);
    EXPECT_EQ(categories_.CountVisible(), 1);
}

TEST_F(SharedCategoriesTest, FiveThousandCategoriesAreManaged) {
    RemoveAll();
    ASSERT_TRUE(CeBeginBatch());
    for (int i = 0; i < 5000; ++i) {
        const std::wstring name = L"Category " + std::to_wstring(i);
        const short ordinal = static_cast<short>(i < 4321 ? i : i + 1);  // one gap
        Insert(name.c_str(), {{kPropCategoryOrdinal, ordinal},
                              {kPropCategoryVisible, static_cast<short>(i % 5 != 0)},
                              {kPropCategoryJournalUses, 1}});
    }
    ASSERT_TRUE(CeCommitBatch());
    EXPECT_EQ(categories_.CountVisible(), 4000);
    EXPECT_NE(categories_.FindByName(L"category 4999"), 0u);
    ASSERT_TRUE(categories_.Add(L"One more"));
    EXPECT_EQ(Number(categories_.FindByName(L"One more"), kPropCategoryOrdinal), 4321);
    ASSERT_TRUE(CeBeginBatch());
    EXPECT_EQ(categories_.ResetUses(), 5001);
    ASSERT_TRUE(CeCommitBatch());
    EXPECT_EQ(Uses(categories_.FindByName(L"Category 77")), 0);
}

// ---- Odd records ----

TEST_F(SharedCategoriesTest, RecordsWithoutNameOrMarkOrWithWrongOrdinalsBreakNothing) {
    RemoveAll();
    const CEOID nameless = Insert(nullptr, {{kPropCategoryOrdinal, 0}});
    const CEOID bare = Insert(L"Bare");
    Insert(L"Twin", {{kPropCategoryOrdinal, 1}, {kPropCategoryVisible, 1}});
    Insert(L"Twin", {{kPropCategoryOrdinal, 1}, {kPropCategoryVisible, 1}});
    Insert(L"Low", {{kPropCategoryOrdinal, -32768}, {kPropCategoryVisible, 1}});
    Insert(L"", {{kPropCategoryOrdinal, 32767}, {kPropCategoryVisible, 1}});
    EXPECT_EQ(categories_.CountVisible(), 4);
    EXPECT_TRUE(categories_.IsHidden(bare));
    EXPECT_EQ(categories_.FindByName(L"Bare"), bare);
    ASSERT_TRUE(categories_.Add(L"New"));
    EXPECT_EQ(Number(categories_.FindByName(L"New"), kPropCategoryOrdinal), 2);
    EXPECT_TRUE(categories_.AddUse(nameless));
    EXPECT_EQ(Uses(nameless), 1);
    EXPECT_TRUE(categories_.Rename(nameless, L"Named"));
    EXPECT_EQ(categories_.FindByName(L"Named"), nameless);
    EXPECT_TRUE(categories_.Add(L"Bare"));  // shown again
    EXPECT_EQ(categories_.FindByName(L"Bare"), bare);
    EXPECT_FALSE(categories_.IsHidden(bare));
    EXPECT_TRUE(categories_.Remove(bare));
}

}  // namespace
