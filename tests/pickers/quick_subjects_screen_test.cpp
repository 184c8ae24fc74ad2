// The screen in which the quick subjects are kept.
#include "pickers/quick_subjects_screen.h"

#include "pickers/quick_subjects.h"
#include "tests/pickers/picker_stage.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class QuickSubjectsScreenTest : public PickerStage {
protected:
    void Open(const Script& script) {
        EXPECT_EQ(stage_.Run(IDC_SUBJECT_PANEL, IDOK, script,
                             [&] { return QuickSubjectsScreen::Run(stage_.Owner().GetHandle()); }),
                  IDOK);
    }
    void Store(const std::vector<std::wstring>& subjects) {
        for (const std::wstring& subject : subjects)
            AddQuickSubject(subject);
    }
    void DoNotAsk() { application_.WriteInt(L"Options", L"ConfirmDelete", 0); }
};

TEST_F(QuickSubjectsScreenTest, ItIsTitledAndShowsTheSubjectsUnsorted) {
    Store({L"Zebra", L"apple", L"", L"apple"});
    Open([&] {
        wchar_t title[100] = L"";
        GetWindowTextW(Screen(), title, 100);
        EXPECT_STREQ(title, L"Journal Subjects...");
        EXPECT_THAT(ListTexts(), ElementsAre(L"Zebra", L"apple", L"", L"apple"));
        EXPECT_EQ(GetFocus(), PanelItem(IDC_PANEL_TEXT));
        ExpectNothingClipped();
    });
}

TEST_F(QuickSubjectsScreenTest, WithoutSubjectsTheListIsEmptyAndNothingCanBeChanged) {
    Open([&] {
        EXPECT_THAT(ListTexts(), IsEmpty());
        EXPECT_TRUE(IsEnabled(IDC_PANEL_ADD));
        EXPECT_FALSE(IsEnabled(IDC_PANEL_MODIFY));
        EXPECT_FALSE(IsEnabled(IDC_PANEL_DELETE));
    });
}

TEST_F(QuickSubjectsScreenTest, AddStoresTheTextAndEmptiesTheEdit) {
    Open([&] {
        Retype(L"Stand-up");
        Click(IDC_PANEL_ADD);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Stand-up"));
        EXPECT_EQ(Text(), L"");
        EXPECT_EQ(GetFocus(), PanelItem(IDC_PANEL_TEXT));
    });
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"Stand-up"));
}

TEST_F(QuickSubjectsScreenTest, AnEmptyAndADoubledTextAreAddedUnchanged) {
    Store({L"twice"});
    Open([&] {
        Click(IDC_PANEL_ADD);
        Retype(L"twice");
        Click(IDC_PANEL_ADD);
        EXPECT_THAT(ListTexts(), ElementsAre(L"twice", L"", L"twice"));
    });
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"twice", L"", L"twice"));
}

TEST_F(QuickSubjectsScreenTest, NoMoreCanBeTypedThanIsKept) {
    Open([&] {
        Retype(std::wstring(150, L'x'));
        EXPECT_EQ(Text(), std::wstring(99, L'x'));
    });
}

TEST_F(QuickSubjectsScreenTest, SelectingASubjectCopiesItIntoTheEdit) {
    Store({L"One", L"Two"});
    Open([&] {
        SelectInList(1);
        EXPECT_EQ(Text(), L"Two");
        EXPECT_TRUE(IsEnabled(IDC_PANEL_MODIFY));
        EXPECT_TRUE(IsEnabled(IDC_PANEL_DELETE));
    });
}

TEST_F(QuickSubjectsScreenTest, ModifyReplacesTheSelectedSubjectInItsPlace) {
    Store({L"twice", L"twice", L"Three"});
    Open([&] {
        SelectInList(1);
        Retype(L"Two");
        Click(IDC_PANEL_MODIFY);
        EXPECT_THAT(ListTexts(), ElementsAre(L"twice", L"Two", L"Three"));
        EXPECT_EQ(Text(), L"");
        EXPECT_FALSE(IsEnabled(IDC_PANEL_MODIFY));
    });
    EXPECT_THAT(QuickSubjects(), ElementsAre(L"twice", L"Two", L"Three"));
}

TEST_F(QuickSubjectsScreenTest, DeleteAsksAndAnythingButYesKeepsTheSubject) {
    Store({L"One", L"Two"});
    boxes_.Expect(L"Confirm", L"Delete?", IDNO);
    boxes_.Expect(L"Confirm", L"Delete?", IDYES);
    Open([&] {
        SelectInList(0);
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"One", L"Two"));
        EXPECT_EQ(Text(), L"One");
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Two"));
        EXPECT_EQ(Text(), L"");
        EXPECT_EQ(GetFocus(), PanelItem(IDC_PANEL_TEXT));
        EXPECT_FALSE(IsEnabled(IDC_PANEL_DELETE));
    });
    ASSERT_EQ(boxes_.Seen().size(), 2u);
    EXPECT_EQ(boxes_.Seen()[0].buttons, static_cast<UINT>(MB_YESNO));
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
}

TEST_F(QuickSubjectsScreenTest, DeleteDoesNotAskWhenTheOptionsSayNo) {
    DoNotAsk();
    Store({L"One"});
    Open([&] {
        SelectInList(0);
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), IsEmpty());
    });
}

TEST_F(QuickSubjectsScreenTest, AConfirmDeleteOfAnotherTypeAsks) {
    application_.WriteString(L"Options", L"ConfirmDelete", L"0");
    Store({L"One"});
    boxes_.Expect(L"Confirm", L"Delete?", IDNO);
    Open([&] {
        SelectInList(0);
        Click(IDC_PANEL_DELETE);
    });
}

TEST_F(QuickSubjectsScreenTest, OfTwoEqualSubjectsTheFirstIsDeletedWhicheverIsSelected) {
    DoNotAsk();
    Store({L"twice", L"x", L"twice"});
    Open([&] {
        SelectInList(2);
        Click(IDC_PANEL_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"x", L"twice"));
    });
}

TEST_F(QuickSubjectsScreenTest, TheDeleteKeyDeletesInTheListAndNotInTheEdit) {
    DoNotAsk();
    Store({L"One", L"Two"});
    Open([&] {
        SelectInList(0);
        Press(PanelItem(IDC_PANEL_TEXT), VK_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"One", L"Two"));
        SelectInList(0);
        SetFocus(PanelItem(IDC_PANEL_LIST));
        Press(PanelItem(IDC_PANEL_LIST), VK_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Two"));
        Press(PanelItem(IDC_PANEL_LIST), VK_DELETE);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Two"));
    });
}

TEST_F(QuickSubjectsScreenTest, ReturnAddsWhatWasTypedAndIsOkOtherwise) {
    Open([&] {
        Retype(L"Typed");
        Press(PanelItem(IDC_PANEL_TEXT), VK_RETURN);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Typed"));
        EXPECT_TRUE(IsWindowVisible(Screen()));
        Press(PanelItem(IDC_PANEL_TEXT), VK_RETURN);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
}

TEST_F(QuickSubjectsScreenTest, ReturnModifiesWhenASubjectIsSelected) {
    Store({L"One"});
    Open([&] {
        SelectInList(0);
        Retype(L"Eins");
        Press(PanelItem(IDC_PANEL_TEXT), VK_RETURN);
        EXPECT_THAT(ListTexts(), ElementsAre(L"Eins"));
    });
}

// A text that nobody typed has been put there with the row.
TEST_F(QuickSubjectsScreenTest, ReturnOnASelectedSubjectAsItStandsIsOk) {
    Store({L"One"});
    Open([&] {
        SelectInList(0);
        Press(PanelItem(IDC_PANEL_TEXT), VK_RETURN);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
}

TEST_F(QuickSubjectsScreenTest, EscapeAndTheCloseBoxAreOk) {
    Open([&] {
        Press(PanelItem(IDC_PANEL_TEXT), VK_ESCAPE);
        EXPECT_FALSE(IsWindowVisible(Screen()));
    });
    Open([&] { SendMessageW(Screen(), WM_CLOSE, 0, 0); });
}

TEST_F(QuickSubjectsScreenTest, TabReachesEveryControlInOrder) {
    Store({L"One"});
    Open([&] {
        SelectInList(0);
        SetFocus(PanelItem(IDC_PANEL_TEXT));
        for (const int id : {IDC_PANEL_LIST, IDC_PANEL_ADD, IDC_PANEL_MODIFY, IDC_PANEL_DELETE, IDC_PANEL_TEXT}) {
            Press(GetFocus(), VK_TAB);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), id);
        }
    });
}

TEST_F(QuickSubjectsScreenTest, ThePanelFollowsTheWindow) {
    Open([&] {
        RECT before;
        RECT after;
        GetWindowRect(PanelItem(IDC_PANEL_LIST), &before);
        SetWindowPos(Screen(), nullptr, 0, 0, 700, 800, SWP_NOMOVE | SWP_NOZORDER);
        GetWindowRect(PanelItem(IDC_PANEL_LIST), &after);
        EXPECT_GT(after.right - after.left, before.right - before.left);
        EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
        ExpectNothingClipped();
    });
}

}  // namespace
