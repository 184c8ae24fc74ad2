// The pickers and the quick subjects, opened from the entry editor.
#include "data/category_blob.h"
#include "data/contact_blob.h"
#include "data/db_cats.h"
#include "pickers/contact_source.h"
#include "pickers/quick_subjects.h"
#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/pump.h"

namespace {

class OneContact : public ContactSource {
public:
    OneContact() { OfferContacts(this); }
    ~OneContact() override { OfferContacts(nullptr); }
    int GetCount() override { return 1; }
    OfferedContact Get(int) override { return {L"Abel, Anna", L"Talvern"}; }
};

class EditorPickersTest : public EditorScreen {
protected:
    // Runs the screen that the editor has just been asked to open, and closes it after the script.
    void RunAsked(int marker, const Script& script) {
        stage_.Run(marker, IDOK, script, [] {
            PumpOnce();
            return IDOK;
        });
    }
    // Opens what the field is picked in by the Enter key on its row.
    void Pick(WORD field, int marker, const Script& script) {
        SelectField(field);
        SetFocus(List());
        Press(List(), VK_RETURN);
        RunAsked(marker, script);
    }
    void PickCategories(const Script& script) { Pick(kFieldCategories, IDC_CATEGORY_PANEL, script); }
    // Chooses the first line of the subject's list.
    void EditSubjects(const Script& script) {
        ChooseItem(Editor(), 0);
        RunAsked(IDC_SUBJECT_PANEL, script);
    }
    void Toggle(int list, int row) const {
        const HWND rows = Item(list);
        ListView_SetItemState(rows, row, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
        SendMessageW(rows, WM_KEYDOWN, VK_SPACE, 1);
    }
    HWND PanelItem(int panel, int id) const { return GetDlgItem(Item(panel), id); }
    CEOID Category(const wchar_t* name) {
        DbCats database;
        EXPECT_TRUE(database.Open(nullptr));
        return database.FindByName(name);
    }
    std::vector<CEOID> StoredCategories(CEOID id) {
        const DbJItem field = Stored(id, kPropCategories);
        return ReadCategoryBlob(*field.GetBlob());
    }
    std::vector<std::wstring> Choices() const {
        std::vector<std::wstring> choices;
        for (WPARAM line = 0; line < static_cast<WPARAM>(SendMessageW(Editor(), CB_GETCOUNT, 0, 0)); ++line) {
            wchar_t text[300] = L"";
            SendMessageW(Editor(), CB_GETLBTEXT, line, reinterpret_cast<LPARAM>(text));
            choices.emplace_back(text);
        }
        return choices;
    }
    CEOID AddWith(const std::vector<CEOID>& ids) {
        return AddEntry([&](TSList<DbJItem>& fields) {
            std::vector<BYTE> bytes = MakeCategoryBlob(ids);
            const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
            FindFieldByPropID(fields, kPropCategories)->SetBlob(&blob);
        });
    }

    const std::wstring command_ = L"<Edit Quick Subjects>";
};

// ---- Categories ----

TEST_F(EditorPickersTest, CheckedCategoriesShowInTheRowAndAreSaved) {
    const CEOID id = Edit(0, [&] {
        PickCategories([&] {
            Toggle(IDC_CATEGORY_LIST, 1);
            Toggle(IDC_CATEGORY_LIST, 0);
        });
        DbCats database;
        ASSERT_TRUE(database.Open(nullptr));
        const CEOID first = database.SeekFirst();
        const CEOID second = database.SeekNext();
        EXPECT_EQ(RowText(kFieldCategories), database.GetName(second) + L", " + database.GetName(first));
    });
    ASSERT_NE(id, 0u);
    EXPECT_EQ(StoredCategories(id).size(), 2u);
}

TEST_F(EditorPickersTest, APickerInWhichNothingIsChangedChangesNothing) {
    Edit(0, [&] { PickCategories([] {}); });
    EXPECT_EQ(selection_.Current(), 0u);
    const CEOID gone = 0x00ABCDEF;
    const CEOID id = AddWith({gone, Category(L"Business")});
    Edit(id, [&] {
        PickCategories([&] {
            Toggle(IDC_CATEGORY_LIST, 1);
            Toggle(IDC_CATEGORY_LIST, 1);
        });
        SelectField(kFieldSubject);
        Retype(EditOf(Editor()), L"written");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"written");
    EXPECT_EQ(StoredCategories(id), (std::vector<CEOID>{gone, Category(L"Business")}));
}

TEST_F(EditorPickersTest, ARenamedCategoryRenewsTheRowAndLeavesTheEntryUnwritten) {
    const CEOID business = Category(L"Business");
    const CEOID id = AddWith({business});
    Edit(id, [&] {
        PickCategories([&] {
            DbCats database;
            ASSERT_TRUE(database.Open(nullptr));
            ASSERT_TRUE(database.Rename(business, L"Trade"));
            // The page takes over what is there when something is edited on it.
            SetWindowTextW(PanelItem(IDC_CATEGORY_PANEL, IDC_PANEL_TEXT), L"Another");
            SendMessageW(Screen(), WM_COMMAND, IDC_PANEL_ADD, 0);
        });
        EXPECT_EQ(RowText(kFieldCategories), L"Trade");
    });
    EXPECT_EQ(StoredCategories(id), std::vector<CEOID>{business});
}

TEST_F(EditorPickersTest, WithoutTheCategoriesTheEditorStaysAndTheEntryKeepsItsOwn) {
    const CEOID id = AddWith({Category(L"Business")});
    const std::vector<CEOID> before = StoredCategories(id);
    Edit(id, [&] {
        CeDbase base;
        ASSERT_TRUE(base.Open(kCategoriesDatabase, 0, 0, nullptr));
        ASSERT_TRUE(base.DeleteDatabase(0));
        boxes_.Expect(L"CE Database Error", L"Error: 2(37)\nDbCategories");
        SelectField(kFieldCategories);
        Press(List(), VK_RETURN);
        PumpOnce();
        EXPECT_EQ(RowText(kFieldCategories), L"Business");
    });
    EXPECT_EQ(StoredCategories(id), before);
}

// ---- Contacts ----

TEST_F(EditorPickersTest, CheckedContactsShowInTheRowAndAreSavedBehindThoseOfTheEntry) {
    OneContact source;
    const CEOID id = AddEntry([](TSList<DbJItem>& fields) {
        TSList<DbAItem> contacts;
        contacts.Append(DbAItem(L"Gone, Gil", L"Old"));
        std::vector<BYTE> bytes = MakeContactBlob(contacts);
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        FindFieldByPropID(fields, kPropContacts)->SetBlob(&blob);
    });
    Edit(id, [&] {
        Pick(kFieldContacts, IDC_CONTACT_LIST, [&] { Toggle(IDC_CONTACT_LIST, 1); });
        EXPECT_EQ(RowText(kFieldContacts), L"Gone, Gil; Abel, Anna");
    });
    TSList<DbAItem> stored;
    const DbJItem field = Stored(id, kPropContacts);
    ReadContactBlob(*field.GetBlob(), &stored);
    EXPECT_EQ(JoinContacts(stored), L"Gone, Gil; Abel, Anna");
}

// ---- Quick subjects ----

TEST_F(EditorPickersTest, WithoutSubjectsTheListHoldsOnlyTheCommand) {
    Edit(0, kFieldSubject, [&] { EXPECT_EQ(Choices(), std::vector{command_}); });
}

TEST_F(EditorPickersTest, TheCommandOpensTheSubjectsAndTheListIsFilledAnew) {
    AddQuickSubject(L"One");
    const CEOID id = Edit(0, kFieldSubject, [&] {
        EditSubjects([&] {
            SetWindowTextW(PanelItem(IDC_SUBJECT_PANEL, IDC_PANEL_TEXT), L"Two");
            SendMessageW(PanelItem(IDC_SUBJECT_PANEL, IDC_PANEL_ADD), BM_CLICK, 0, 0);
        });
        EXPECT_EQ(Choices(), (std::vector<std::wstring>{command_, L"One", L"Two"}));
        ChooseItem(Editor(), 2);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Two");
}

TEST_F(EditorPickersTest, ATapThatTellsOfTheCommandTwiceOpensTheSubjectsOnce) {
    Edit(0, kFieldSubject, [&] {
        const HWND combo = Editor();
        SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
        SendMessageW(combo, CB_SETCURSEL, 0, 0);
        for (const int code : {CBN_SELENDOK, CBN_CLOSEUP}) {
            SendMessageW(Screen(), WM_COMMAND, MAKEWPARAM(IDC_EDITOR_FIELD, code), reinterpret_cast<LPARAM>(combo));
        }
        SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
        EditSubjects([] {});
        EXPECT_EQ(TextOf(EditOf(Editor())), L"");
    });
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(EditorPickersTest, TheCommandIsNoSubjectAndNoChange) {
    Edit(0, kFieldSubject, [&] {
        EditSubjects([] {});
        EXPECT_EQ(TextOf(EditOf(Editor())), L"");
    });
    EXPECT_EQ(selection_.Current(), 0u);
}

TEST_F(EditorPickersTest, WhatWasTypedBeforeTheCommandIsKept) {
    const CEOID id = Edit(0, kFieldSubject, [&] {
        Retype(EditOf(Editor()), L"Typed");
        EditSubjects([] {});
        EXPECT_EQ(TextOf(EditOf(Editor())), L"Typed");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}

TEST_F(EditorPickersTest, OkRightAfterTheCommandDoesNotTakeItsText) {
    const CEOID id = Edit(0, kFieldSubject, [&] {
        Retype(EditOf(Editor()), L"Typed");
        ChooseItem(Editor(), 0);
        SetWindowTextW(EditOf(Editor()), command_.c_str());  // as the control does after its notification
        Command(IDOK);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}

TEST_F(EditorPickersTest, ASubjectThatReadsLikeTheCommandIsASubject) {
    AddQuickSubject(command_);
    const CEOID id = Edit(0, kFieldSubject, [&] { ChooseItem(Editor(), 1); });
    EXPECT_EQ(StoredText(id, kPropSubject), command_);
}

TEST_F(EditorPickersTest, ArrowKeysInTheOpenListOnlyPassOverTheCommand) {
    AddQuickSubject(L"One");
    const CEOID id = Edit(0, kFieldSubject, [&] {
        SetFocus(Editor());
        SendMessageW(Editor(), CB_SHOWDROPDOWN, TRUE, 0);
        ChooseItem(Editor(), 0);
        PumpOnce();
        EXPECT_EQ(GetDlgItem(Screen(), IDC_SUBJECT_PANEL), nullptr);
        EXPECT_TRUE(IsWindowEnabled(Screen()));
        ChooseItem(Editor(), 1);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"One");
}

}  // namespace
