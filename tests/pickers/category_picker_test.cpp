// The screen in which an entry's categories are checked, and the device's categories kept.
#include "pickers/category_picker.h"

#include "tests/pickers/picker_stage.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class CategoryPickerTest : public PickerStage {
protected:
    static constexpr int kSelect = 0;
    static constexpr int kAddDelete = 1;

    CategoryPickerTest() {
        DbCats database;
        database.Open(nullptr);
        while (const CEOID category = database.SeekFirst())
            database.DeleteRecord(category);
        for (const wchar_t* name : {L"Work", L"Home", L"Garden"})
            database.Add(name);
    }

    CEOID Category(const wchar_t* name) {
        DbCats database;
        EXPECT_TRUE(database.Open(nullptr));
        return database.FindByName(name);
    }
    void Hold(const wchar_t* name) { held_.Append(DbCItem(kPropCategoryName, name, Category(name))); }
    std::wstring Held() const { return JoinCategories(held_); }

    void Open(const Script& script) {
        EXPECT_EQ(stage_.Run(IDC_CATEGORY_PANEL, IDOK, script,
                             [&] { return CategoryPicker::Run(stage_.Owner().GetHandle(), held_); }),
                  IDOK);
    }
    void OpenEditor(const Script& script) {
        EXPECT_EQ(stage_.Run(IDC_CATEGORY_PANEL, IDOK, script,
                             [&] { return CategoryPicker::RunEditor(stage_.Owner().GetHandle()); }),
                  IDOK);
    }
    HWND List() const { return Item(IDC_CATEGORY_LIST); }
    void Tap(const wchar_t* name) const { TapRow(List(), RowOf(List(), name)); }
    void AddOnPage(const wchar_t* name) const {
        Retype(name);
        Click(IDC_PANEL_ADD);
    }

    TSList<DbCItem> held_;
};

// ---- "Select" ----

TEST_F(CategoryPickerTest, ItIsTitledAndShowsTheCategoriesByName) {
    Open([&] {
        wchar_t title[100] = L"";
        GetWindowTextW(Screen(), title, 100);
        EXPECT_STREQ(title, L"Categories");
        EXPECT_THAT(Rows(List()), ElementsAre(L"Garden", L"Home", L"Work"));
        EXPECT_EQ(GetFocus(), List());
        EXPECT_EQ(TabCtrl_GetItemCount(Item(IDC_PICKER_TABS)), 2);
        ExpectNothingClipped();
    });
}

TEST_F(CategoryPickerTest, TheEntrysCategoriesAreChecked) {
    Hold(L"Work");
    Hold(L"Garden");
    Open([&] { EXPECT_THAT(CheckedRows(List()), ElementsAre(L"Garden", L"Work")); });
    EXPECT_EQ(Held(), L"Work, Garden");
}

TEST_F(CategoryPickerTest, TheOrderOfCheckingIsKept) {
    Open([&] {
        Tap(L"Work");
        Tap(L"Garden");
        Tap(L"Home");
    });
    EXPECT_EQ(Held(), L"Work, Garden, Home");
}

TEST_F(CategoryPickerTest, TappingACheckedCategoryRemovesItAndTappingAgainAppendsIt) {
    Hold(L"Work");
    Hold(L"Home");
    Open([&] {
        Tap(L"Work");
        EXPECT_EQ(Held(), L"Home");
        EXPECT_THAT(CheckedRows(List()), ElementsAre(L"Home"));
        Tap(L"Work");
        EXPECT_EQ(Held(), L"Home, Work");
        EXPECT_THAT(CheckedRows(List()), ElementsAre(L"Home", L"Work"));
    });
}

TEST_F(CategoryPickerTest, WhatIsCheckedKnowsItsRecord) {
    Open([&] { Tap(L"Home"); });
    ASSERT_EQ(held_.GetCount(), 1);
    EXPECT_EQ(held_.begin()->GetOid(), Category(L"Home"));
    EXPECT_EQ(held_.begin()->GetPropID(), kPropCategoryName);
}

TEST_F(CategoryPickerTest, ACategoryThatIsHeldTwiceGoesWhole) {
    Hold(L"Work");
    Hold(L"Work");
    Open([&] { Tap(L"Work"); });
    EXPECT_EQ(Held(), L"");
}

TEST_F(CategoryPickerTest, AHiddenCategoryIsNeverListedAndStaysWithTheEntry) {
    Hold(L"Work");
    Hold(L"Home");
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    ASSERT_TRUE(database.Hide(Category(L"Work")));
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Garden", L"Home"));
        Tap(L"Garden");
        GoToPage(kAddDelete);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home"));
    });
    EXPECT_EQ(Held(), L"Work, Home, Garden");
}

TEST_F(CategoryPickerTest, ACategoryWithoutAMarkIsHiddenUntilItIsAdded) {
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    CEPROPVAL name = {};
    name.propid = kPropCategoryName;
    name.val.lpwstr = const_cast<wchar_t*>(L"Bare");
    ASSERT_NE(database.WriteRecordProps(0, 1, &name), 0u);
    Open([&] {
        EXPECT_THAT(Rows(List()), ElementsAre(L"Garden", L"Home", L"Work"));
        GoToPage(kAddDelete);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Work"));
        Retype(L"Bare");
        Click(IDC_PANEL_ADD);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Bare", L"Garden", L"Home", L"Work"));
    });
}

TEST_F(CategoryPickerTest, NamesWithCommasAndSemicolonsAreOneCategoryEach) {
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    database.Add(L"A, B; C");
    Open([&] { Tap(L"A, B; C"); });
    ASSERT_EQ(held_.GetCount(), 1);
    EXPECT_EQ(held_.begin()->GetOid(), Category(L"A, B; C"));
}

TEST_F(CategoryPickerTest, TheSpaceKeyTogglesAndEnterIsOk) {
    Open([&] {
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        EXPECT_EQ(Held(), L"Garden");
        Press(List(), VK_RETURN);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
    Open([&] {
        Press(List(), VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
    EXPECT_EQ(Held(), L"Garden");
}

TEST_F(CategoryPickerTest, TabGoesFromTheListToTheTabsAndBack) {
    Open([&] {
        Press(GetFocus(), VK_TAB);
        EXPECT_EQ(GetFocus(), Item(IDC_PICKER_TABS));
        Press(GetFocus(), VK_TAB);
        EXPECT_EQ(GetFocus(), List());
    });
}

TEST_F(CategoryPickerTest, FiveThousandCategoriesAreOffered) {
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    for (short i = 0; i < 5'000; ++i) {
        const std::wstring name = L"Category " + std::to_wstring(10'000 + i);
        CEPROPVAL values[3] = {};
        values[0].propid = kPropCategoryName;
        values[0].val.lpwstr = const_cast<wchar_t*>(name.c_str());
        values[1].propid = kPropCategoryOrdinal;
        values[1].val.iVal = static_cast<short>(100 + i);
        values[2].propid = kPropCategoryVisible;
        values[2].val.iVal = 1;
        ASSERT_NE(database.WriteRecordProps(0, 3, values), 0u);
    }
    Open([&] {
        EXPECT_EQ(ListView_GetItemCount(List()), 5'003);
        TapRow(List(), 4'999);
        EXPECT_EQ(Held(), RowText(List(), 4'999));
        GoToPage(kAddDelete);
        EXPECT_EQ(SendMessageW(PanelItem(IDC_PANEL_LIST), LB_GETCOUNT, 0, 0), 5'003);
    });
}

TEST_F(CategoryPickerTest, WithoutTheDatabaseItReportsAndDoesNotOpen) {
    {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
    }
    boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
    EXPECT_EQ(CategoryPicker::Run(stage_.Owner().GetHandle(), held_), -1);
}

// ---- "Add/Delete" ----

TEST_F(CategoryPickerTest, AnAddedCategoryShowsOnSelectAtOnceAndUnchecked) {
    Open([&] {
        GoToPage(kAddDelete);
        EXPECT_EQ(GetFocus(), PanelItem(IDC_PANEL_TEXT));
        EXPECT_FALSE(IsWindowVisible(List()));
        ExpectNothingClipped();
        AddOnPage(L"  Boat ");
        EXPECT_THAT(ListTexts(), ElementsAre(L"Boat", L"Garden", L"Home", L"Work"));
        EXPECT_EQ(Text(), L"");
        GoToPage(kSelect);
        EXPECT_THAT(Rows(List()), ElementsAre(L"Boat", L"Garden", L"Home", L"Work"));
        EXPECT_THAT(CheckedRows(List()), IsEmpty());
        Tap(L"Boat");
    });
    EXPECT_EQ(Held(), L"Boat");
    EXPECT_EQ(held_.begin()->GetOid(), Category(L"Boat"));
}

TEST_F(CategoryPickerTest, ANameThatIsTakenSelectsTheCategoryThatHasIt) {
    Open([&] {
        GoToPage(kAddDelete);
        AddOnPage(L"Home");
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Work"));
        EXPECT_EQ(SendMessageW(PanelItem(IDC_PANEL_LIST), LB_GETCURSEL, 0, 0), 1);
        EXPECT_EQ(Text(), L"Home");
    });
}

TEST_F(CategoryPickerTest, BlanksAreNoName) {
    Open([&] {
        GoToPage(kAddDelete);
        EXPECT_FALSE(IsEnabled(IDC_PANEL_ADD));
        Retype(L"   ");
        EXPECT_FALSE(IsEnabled(IDC_PANEL_ADD));
        SelectInList(0);
        Retype(L"  ");
        EXPECT_FALSE(IsEnabled(IDC_PANEL_MODIFY));
        EXPECT_TRUE(IsEnabled(IDC_PANEL_DELETE));
    });
}

TEST_F(CategoryPickerTest, AddingAHiddenNameShowsThatCategoryAgain) {
    const CEOID work = Category(L"Work");
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    ASSERT_TRUE(database.Hide(work));
    Open([&] {
        GoToPage(kAddDelete);
        AddOnPage(L"Work");
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Work"));
    });
    EXPECT_EQ(Category(L"Work"), work);
}

TEST_F(CategoryPickerTest, ARenamedCategoryStaysCheckedUnderItsNewName) {
    Hold(L"Work");
    Hold(L"Home");
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Work");
        EXPECT_EQ(Text(), L"Work");
        Retype(L"Office");
        Click(IDC_PANEL_MODIFY);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Office"));
        GoToPage(kSelect);
        EXPECT_THAT(CheckedRows(List()), ElementsAre(L"Home", L"Office"));
    });
    EXPECT_EQ(Held(), L"Office, Home");
}

TEST_F(CategoryPickerTest, RenamingToATakenNameChangesNothing) {
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Work");
        Retype(L"Home");
        Click(IDC_PANEL_MODIFY);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Work"));
    });
}

TEST_F(CategoryPickerTest, TheLetterCaseOfANameCanBeChanged) {
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Work");
        Retype(L"WORK");
        Click(IDC_PANEL_MODIFY);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"WORK"));
    });
}

TEST_F(CategoryPickerTest, RenamingToAHiddenNameAsksWhetherToShowThatOne) {
    DbCats database;
    ASSERT_TRUE(database.Open(nullptr));
    ASSERT_TRUE(database.Hide(Category(L"Work")));
    boxes_.Expect(L"Category?",
                  L"A category with the name that you have selected already exists but is hidden.\r\n\r\n"
                  L"Would you like to un-hide it?",
                  IDYES);
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Home");
        Retype(L"Work");
        Click(IDC_PANEL_MODIFY);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home", L"Work"));
    });
}

TEST_F(CategoryPickerTest, AnUnusedCategoryIsDeletedAndLeavesTheEntry) {
    Hold(L"Work");
    Hold(L"Home");
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Work");
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home"));
        EXPECT_EQ(Held(), L"Home");
        GoToPage(kSelect);
        EXPECT_THAT(Rows(List()), ElementsAre(L"Garden", L"Home"));
    });
    EXPECT_EQ(Category(L"Work"), 0u);
}

TEST_F(CategoryPickerTest, AUsedCategoryIsHiddenAndStaysWithTheEntry) {
    Hold(L"Work");
    {
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        ASSERT_TRUE(database.AddUse(Category(L"Work")));
    }
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(L"Work");
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Garden", L"Home"));
    });
    EXPECT_EQ(Held(), L"Work");
    EXPECT_NE(Category(L"Work"), 0u);
}

TEST_F(CategoryPickerTest, TabReachesThePanelAndTheTabs) {
    Open([&] {
        GoToPage(kAddDelete);
        SelectInList(0);
        SetFocus(PanelItem(IDC_PANEL_TEXT));
        for (const int id :
             {IDC_PANEL_LIST, IDC_PANEL_ADD, IDC_PANEL_MODIFY, IDC_PANEL_DELETE, IDC_PICKER_TABS, IDC_PANEL_TEXT}) {
            Press(GetFocus(), VK_TAB);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), id);
        }
    });
}

TEST_F(CategoryPickerTest, ForEditingOnlyThePanelStandsAlone) {
    OpenEditor([&] {
        EXPECT_EQ(GetDlgItem(Screen(), IDC_CATEGORY_LIST), nullptr);
        EXPECT_EQ(GetDlgItem(Screen(), IDC_PICKER_TABS), nullptr);
        EXPECT_EQ(GetFocus(), PanelItem(IDC_PANEL_TEXT));
        AddOnPage(L"Boat");
        EXPECT_THAT(ListTexts(), Contains(L"Boat"));
        SelectInList(L"Garden");
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), Not(Contains(L"Garden")));
        ExpectNothingClipped();
    });
}

}  // namespace
