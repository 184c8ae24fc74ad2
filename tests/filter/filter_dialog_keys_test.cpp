// The filter dialog without a stylus, and with categories of all kinds and numbers.
#include <gmock/gmock.h>
#include <storebatch.h>

#include "filter/filter_caption.h"
#include "tests/filter/filter_screen.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class FilterKeysTest : public FilterScreen {
protected:
    // Sends a key to whatever has the focus and lets the dialog handle it.
    void Press(WPARAM key) {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            if (IsWindow(Screen()) && IsDialogMessageW(Screen(), &message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    std::vector<int> TabStops() {
        std::vector<int> stops;
        for (int i = 0; i < 6; ++i) {
            stops.push_back(GetDlgCtrlID(GetFocus()));
            Press(VK_TAB);
        }
        return stops;
    }
};

TEST_F(FilterKeysTest, TabWalksFromTheDatesToTheCategories) {
    SetRange();
    Open([&] {
        EXPECT_THAT(TabStops(), ElementsAre(kByRange, kStart, kEnd, kCategoriesOnly, kCategories, kByRange));
        Click(kByMonth);
        SetFocus(Item(kByMonth));
        EXPECT_THAT(TabStops(), ElementsAre(kByMonth, kMonths, kCategoriesOnly, kCategories, kByMonth, kMonths));
        Click(kCategoriesOnly);
        SetFocus(Item(kCategoriesOnly));
        EXPECT_THAT(TabStops(), Each(testing::AnyOf(kCategoriesOnly, kCategories)));
    });
}

TEST_F(FilterKeysTest, AListThatGetsTheKeysShowsWhere) {
    Open([&] {
        for (const int list : {kMonths, kCategories}) {
            EXPECT_EQ(ListView_GetNextItem(Item(list), -1, LVNI_FOCUSED), -1);
            SetFocus(Item(list));
            EXPECT_EQ(ListView_GetNextItem(Item(list), -1, LVNI_FOCUSED | LVNI_SELECTED), 0);
        }
        SetFocus(Item(kMonths));
        Press(VK_DOWN);
        SetFocus(Item(kCategories));
        SetFocus(Item(kMonths));  // the place is kept
        EXPECT_EQ(ListView_GetNextItem(Item(kMonths), -1, LVNI_FOCUSED), 1);
    });
    EXPECT_EQ(filter_.months, 0u);  // none of it is an edit
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(FilterKeysTest, AListThatIsDisabledShowsNoRowAsChosen) {
    Open([&] {
        Click(kByMonth);
        SetFocus(Item(kMonths));
        Press(VK_DOWN);
        EXPECT_EQ(ListView_GetNextItem(Item(kMonths), -1, LVNI_SELECTED), 1);
        Click(kByRange);
        EXPECT_EQ(ListView_GetNextItem(Item(kMonths), -1, LVNI_SELECTED), -1);
        Click(kByMonth);
        SetFocus(Item(kMonths));  // the place is kept
        EXPECT_EQ(ListView_GetNextItem(Item(kMonths), -1, LVNI_FOCUSED | LVNI_SELECTED), 1);
    });
    EXPECT_EQ(filter_.months, 0u);
}

TEST_F(FilterKeysTest, EverythingCanBeChosenWithKeysAlone) {
    SetRange();
    EXPECT_EQ(Open([&] {
                  Press(VK_RIGHT);  // the other radio button
                  EXPECT_FALSE(filter_.byRange);
                  Press(VK_TAB);
                  Press(VK_DOWN);
                  Press(VK_SPACE);
                  EXPECT_EQ(filter_.months, 0x0002u);
                  Press(VK_TAB);
                  Press(VK_SPACE);
                  EXPECT_TRUE(filter_.categoriesOnly);
                  Press(VK_TAB);
                  Press(VK_SPACE);
                  EXPECT_EQ(Names().size(), 1u);
                  EXPECT_EQ(Names().front(), Rows(kCategories).front());
                  Press(VK_RETURN);
              }),
              IDOK);
    EXPECT_THAT(commands_, ElementsAre(136));
}

// ---- Categories of all kinds ----

TEST_F(FilterKeysTest, WithoutAnyCategoryTheListIsEmptyAndTheRestWorks) {
    DbCategories database;
    ASSERT_TRUE(database.Open(kPropCategoryName, nullptr));
    while (const CEOID category = database.SeekFirst())
        ASSERT_TRUE(database.DeleteRecord(category));
    AddEntry(At(2001, 5, 7));
    Open([&] {
        EXPECT_THAT(Rows(kCategories), IsEmpty());
        SetFocus(Item(kCategories));
        Press(VK_SPACE);
        Press(VK_DOWN);
        Click(kCategoriesOnly);
        EXPECT_EQ(Status(), L"Categories decide: none is chosen, nothing passes");
        Click(kCategoriesOnly);
        Check(kMonths, 4, true);
        EXPECT_EQ(Status(), L"Months decide: 1 of 1 entries pass");
        Command(115);
        Command(IDOK);
    });
    EXPECT_THAT(commands_, ElementsAre(115, 136));
}

TEST_F(FilterKeysTest, FiveThousandCategoriesAreListedCheckedAndCleared) {
    {
        DbCategories database;
        ASSERT_TRUE(database.Open(kPropCategoryName, nullptr));
        ASSERT_TRUE(CeBeginBatch());
        for (int i = 0; i < 5000; ++i) {
            const std::wstring name = L"Many " + std::to_wstring(10'000 + i);
            CEPROPVAL value{};
            value.propid = kPropCategoryName;
            value.val.lpwstr = const_cast<wchar_t*>(name.c_str());
            const CEOID id = database.WriteRecordProps(0, 1, &value);
            ASSERT_NE(id, 0u);
            filter_.AddCategory(DbCItem(kPropCategoryName, name.c_str(), id));
        }
        ASSERT_TRUE(CeCommitBatch());
    }
    const CEOID last = Category(L"Many 14999");
    AddEntry(At(2001, 5, 7), {last});
    Open([&] {
        EXPECT_GE(Rows(kCategories).size(), 5000u);
        EXPECT_THAT(CheckedRows(kCategories), SizeIs(5000));
        EXPECT_EQ(Status(), L"Categories decide: 1 of 1 entries pass");
        Check(kCategories, RowOf(kCategories, L"Many 14999"), false);
        EXPECT_EQ(Status(), L"Categories decide: 0 of 1 entries pass");
        EXPECT_THAT(Names(), SizeIs(4999));
        Command(115);
        EXPECT_THAT(CheckedRows(kCategories), IsEmpty());
        EXPECT_THAT(Names(), IsEmpty());
    });
}

TEST_F(FilterKeysTest, NamesWithCommasQuotesAndOfAnyLengthAreChosenAsTheyStand) {
    const std::wstring names[] = {L"Home, garden", L"\"Quoted\" & 'so'", L"R&D", L"  blanks  ",
                                  std::wstring(255, L'w')};
    for (const std::wstring& name : names) {
        SCOPED_TRACE(testing::PrintToString(name));
        const CEOID category = Category(name.c_str());
        filter_ = FilterSettings();
        AddEntry(At(2001, 5, 7), {category});
        Open([&] {
            Check(kCategories, RowOf(kCategories, name), true);
            Click(kCategoriesOnly);
        });
        EXPECT_THAT(Names(), ElementsAre(name));
        EXPECT_EQ(FilterCaption(filter_), name);
        EXPECT_TRUE(Match(At(2001, 1, 1), {{category}}));
        Open([&] { EXPECT_THAT(CheckedRows(kCategories), ElementsAre(name)); });
    }
}

}  // namespace
