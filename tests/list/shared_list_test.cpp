// The list over a store that another program changes meanwhile: what it shows before and after the next rebuild.
#include "list/entry_list.h"
#include "tests/list/journal_fixture.h"
#include "tests/list/list_host.h"
#include "tests/support/other_program.h"
#include "tests/support/pump.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SharedListTest : public JournalFixture {
protected:
    void SetUp() override {
        host_.onNotify = [this](NMHDR* header) { return list_.OnNotify(header); };
        ASSERT_TRUE(list_.CreateIn(host_.Handle(), host_.Client()));
        list_.Show();
        ids_ = InsertDays(40);
        list_.RefreshList();
        list_.Update();
    }

    static DWORD OtherProgram(const std::wstring& words) { return RunOtherProgram(L"journal_helper.exe", words); }
    std::wstring Id(size_t row) const { return L" " + std::to_wstring(ids_[row]); }
    std::wstring Subject(int row) const { return list_.GetItemText(row, 1); }
    void Draw() {
        list_.Invalidate();
        list_.Update();
        PumpOnce();
    }
    void Tap(int row) {
        RECT rect = {};
        ASSERT_TRUE(list_.GetItemRect(row, &rect));
        const LPARAM place = MAKELPARAM(rect.left + 20, (rect.top + rect.bottom) / 2);
        list_.PostMessage(WM_LBUTTONUP, 0, place);
        list_.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, place);
        PumpOnce();
    }

    ListHost host_;
    EntryList list_{journal_, selection_, filter_};
    std::vector<CEOID> ids_;
};

TEST_F(SharedListTest, WhatAnotherProgramAddsIsThereAfterARebuild) {
    ASSERT_NE(OtherProgram(L"add Chess"), 0u);
    EXPECT_EQ(list_.GetItemCount(), 40);
    list_.RefreshList();
    ASSERT_EQ(list_.GetItemCount(), 41);
    EXPECT_EQ(Subject(40), L"Chess");
}

TEST_F(SharedListTest, WhatAnotherProgramChangesIsShownAfterARebuild) {
    ASSERT_EQ(OtherProgram(L"rename" + Id(1) + L" Chess"), 1u);
    Draw();
    list_.RefreshList();
    EXPECT_EQ(Subject(1), L"Chess");
}

TEST_F(SharedListTest, TheRowsOfDeletedEntriesMoveUpAtARebuild) {
    ASSERT_EQ(OtherProgram(L"delete" + Id(0)), 1u);
    Draw();
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 39);
    EXPECT_EQ(Subject(0), L"entry 1");
}

TEST_F(SharedListTest, AListWhoseEntriesAllWentIsDrawnScrolledAndSelectedAllTheSame) {
    ASSERT_EQ(OtherProgram(L"empty"), 40u);
    Draw();
    list_.EnsureVisible(39, false);
    Draw();
    EXPECT_EQ(Subject(39), L"");
    list_.SendMessage(WM_KEYDOWN, VK_HOME, 1);
    list_.SendMessage(WM_KEYDOWN, VK_DOWN, 1);
    list_.SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
    list_.RefreshList();
    EXPECT_EQ(list_.GetItemCount(), 0);
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(SharedListTest, ATapOnTheRowOfAnEntryThatIsGoneNamesNoOtherEntry) {
    ASSERT_EQ(OtherProgram(L"delete" + Id(3)), 1u);
    Tap(3);
    // Drawn before, the row still stands for its entry; read anew, for the one that moved up.
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids_[3]));
    list_.RefreshList();
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(SharedListTest, ASelectedEntryThatWentIsForgottenAtARebuild) {
    list_.SelectEntry(ids_[5]);
    ASSERT_EQ(OtherProgram(L"delete" + Id(5)), 1u);
    list_.RefreshList();
    EXPECT_THAT(selection_.Ids(), IsEmpty());
    EXPECT_EQ(list_.GetSelectedCount(), 0);
    EXPECT_FALSE(list_.HasCurrent());
}

TEST_F(SharedListTest, TheSelectionFollowsItsEntryWhenOthersGo) {
    list_.SelectEntry(ids_[5]);
    ASSERT_EQ(OtherProgram(L"delete" + Id(2)), 1u);
    list_.RefreshList();
    EXPECT_THAT(selection_.Ids(), ElementsAre(ids_[5]));
    EXPECT_EQ(list_.GetNextItem(-1, LVNI_SELECTED), 4);
}

TEST_F(SharedListTest, AnEntryThatGoesBetweenCountAndFetchLeavesAnEmptyRowAtTheEnd) {
    list_.DeleteAllItems();
    list_.RefreshList();
    ASSERT_EQ(OtherProgram(L"delete" + Id(39)), 1u);
    EXPECT_EQ(list_.GetItemCount(), 40);
    list_.EnsureVisible(39, false);
    Draw();
    EXPECT_EQ(Subject(38), L"entry 38");
    EXPECT_EQ(Subject(39), L"");
}

}  // namespace
