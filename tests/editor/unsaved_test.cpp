// What happens to an entry that is gone, cannot be read or cannot be written while it is being edited.
#include <gtest/gtest.h>

#include <storefault.h>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "editor/unsaved_entries.h"
#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/pump.h"

class UnsavedTest : public EditorScreen {
protected:
    ~UnsavedTest() override {
        CeClearFaults();
        TSList<DbJItem> fields;
        while (TakeUnsaved(&fields)) {
        }
    }

    CEOID AddNamed(const wchar_t* subject) {
        return AddEntry(
            [&](TSList<DbJItem>& fields) { FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject); });
    }

    // The write of the next OK finds no room.
    void FillDisk() {
        CeFailCall("CeWriteRecordProps", 1, ERROR_DISK_FULL);
        boxes_.Expect(L"CE Database Error", L"Error: 112(484)\ncedbase");
    }
};

TEST_F(UnsavedTest, ADeletedEntryIsWrittenAnew) {
    const CEOID id = AddNamed(L"Lunch");
    const CEOID after = Edit(id, [&] {
        Retype(EditOf(Editor()), L"Late lunch");
        journal_.DeleteRecord(id);
    });
    ASSERT_NE(after, 0u);
    EXPECT_NE(after, id);
    EXPECT_EQ(journal_.GetRecordCount(), 1);
    EXPECT_EQ(StoredText(after, kPropSubject), L"Late lunch");
}

TEST_F(UnsavedTest, ADeletedEntryThatWasNotChangedStaysDeleted) {
    const CEOID id = AddNamed(L"Lunch");
    Edit(id, [&] { journal_.DeleteRecord(id); });
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(UnsavedTest, AnEntryChangedByAnotherGetsWhatTheFormHolds) {
    const CEOID id = AddNamed(L"Lunch");
    Edit(id, [&] {
        TSList<DbJItem> fields;
        journal_.Read(id, &fields);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Theirs");
        journal_.Write(id, &fields);
        Retype(EditOf(Editor()), L"Mine");
    });
    EXPECT_EQ(journal_.GetRecordCount(), 1);
    EXPECT_EQ(StoredText(id, kPropSubject), L"Mine");
}

TEST_F(UnsavedTest, AnEntryThatCouldNotBeReadIsNotReplaced) {
    const CEOID id = AddNamed(L"Lunch");
    CeFailCall("CeReadRecordProps", 1, ERROR_IO_DEVICE);
    boxes_.Expect(L"CE Database Error", L"Error: 1117(541)\ncedbase");
    const CEOID after = Edit(id, [&] {
        EXPECT_EQ(RowText(kFieldSubject), L"No Subject");
        Retype(EditOf(Editor()), L"Typed");
    });
    EXPECT_NE(after, id);
    EXPECT_EQ(StoredText(after, kPropSubject), L"Typed");
    EXPECT_EQ(StoredText(id, kPropSubject), L"Lunch");
}

TEST_F(UnsavedTest, AFailedWriteLeavesNoEntryCurrentAndCloses) {
    const CEOID id = AddNamed(L"Lunch");
    FillDisk();
    EXPECT_EQ(Edit(id, [&] { Retype(EditOf(Editor()), L"Late lunch"); }), 0u);
    EXPECT_EQ(StoredText(id, kPropSubject), L"Lunch");
}

TEST_F(UnsavedTest, OkTappedAgainBehindTheErrorBoxWritesOnce) {
    FillDisk();
    Edit(0, [&] {
        Retype(EditOf(Editor()), L"First");
        PostMessageW(Screen(), WM_COMMAND, IDOK, 0);
        Command(IDOK);
    });
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(UnsavedTest, TheNextNewEntryStartsWithWhatCouldNotBeWritten) {
    FillDisk();
    ASSERT_EQ(Edit(0,
                   [&] {
                       Retype(EditOf(Editor()), L"First");
                       SelectField(kFieldPriority);
                       ChooseItem(Editor(), 2);
                       GoToNote();
                       SendMessageW(Body(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Dear diary"));
                   }),
              0u);
    const CEOID id = Edit(0, [&] {
        EXPECT_EQ(RowText(kFieldSubject), L"First");
        EXPECT_EQ(RowText(kFieldPriority), L"High");
        EXPECT_EQ(RowText(kFieldBody), L"Dear diary");
    });
    ASSERT_NE(id, 0u);  // saved although nothing was touched
    EXPECT_EQ(StoredText(id, kPropSubject), L"First");
    EXPECT_EQ(StoredBody(id), L"Dear diary");
    Edit(0, [&] { EXPECT_EQ(RowText(kFieldSubject), L"No Subject"); });
}

TEST_F(UnsavedTest, TwoFailedWritesAreBothKept) {
    const CEOID ids[] = {AddNamed(L"a"), AddNamed(L"b")};
    FillDisk();
    Edit(ids[0], [&] { Retype(EditOf(Editor()), L"First"); });
    FillDisk();
    Edit(ids[1], [&] { Retype(EditOf(Editor()), L"Second"); });
    const CEOID first = Edit(0, [] {});
    const CEOID second = Edit(0, [] {});
    EXPECT_EQ(StoredText(first, kPropSubject), L"First");
    EXPECT_EQ(StoredText(second, kPropSubject), L"Second");
    EXPECT_EQ(Edit(0, [] {}), 0u);
}

TEST_F(UnsavedTest, APocketOutlookItemDoesNotGetIt) {
    FillDisk();
    Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    PimData item;
    item.subject = L"Review";
    const CEOID id = EditItem(item, [] {});
    EXPECT_EQ(StoredText(id, kPropSubject), L"Review");
}

TEST_F(UnsavedTest, ACategoryThatIsGoneStaysInAnEntryWhoseCategoriesWereNotEdited) {
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    std::vector<CEOID> ids = {categories.FindByName(L"Business"), 4711};
    std::vector<BYTE> bytes = MakeCategoryBlob(ids);
    const CEOID id = AddEntry([&](TSList<DbJItem>& fields) {
        const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        FindFieldByPropID(fields, kPropCategories)->SetBlob(&blob);
    });
    Edit(id, [&] {
        EXPECT_EQ(RowText(kFieldCategories), L"Business");
        Retype(EditOf(Editor()), L"Typed");
    });
    EXPECT_EQ(ReadCategoryBlob(*Stored(id, kPropCategories).GetBlob()), ids);
}

// ---- Ends that are no OK ----

TEST_F(UnsavedTest, TheProgramsEndWritesWhatIsTyped) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Typed");
        EntryEditor::FinishOpen();
        EXPECT_EQ(journal_.GetRecordCount(), 1);
        journal_.Close();
    });
    ASSERT_TRUE(journal_.Open(nullptr));
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}

TEST_F(UnsavedTest, TheProgramsEndWritesTheBody) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        SendMessageW(Body(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Dear diary"));
        EntryEditor::FinishOpen();
    });
    EXPECT_EQ(StoredBody(id), L"Dear diary");
}

TEST_F(UnsavedTest, LoggingOffWritesWhatIsTyped) {
    Edit(0, [&] {
        Retype(EditOf(Editor()), L"Typed");
        SendMessageW(Screen(), WM_ENDSESSION, FALSE, 0);
        EXPECT_EQ(journal_.GetRecordCount(), 0);
        SendMessageW(Screen(), WM_ENDSESSION, TRUE, 0);
        EXPECT_EQ(journal_.GetRecordCount(), 1);
    });
}

TEST_F(UnsavedTest, WithoutAnEditorThereIsNothingToFinish) {
    EntryEditor::FinishOpen();
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(UnsavedTest, ASecondEditorIsRefusedAndTheFirstKeepsWhatIsTyped) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Typed");
        CEOID other = 1;
        EXPECT_EQ(EntryEditor::Run(stage_.Owner(), journal_, PimData(), other), -1);
        EXPECT_EQ(EntryEditor::Run(stage_.Owner(), journal_, selection_, 0), -1);
        EXPECT_EQ(TextOf(Editor()), L"Typed");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}
