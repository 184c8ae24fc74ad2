// What happens to an entry that is gone, cannot be read or cannot be written while it is being edited.
#include <gtest/gtest.h>

#include <storefault.h>

#include <filesystem>
#include <fstream>

#include "data/category_blob.h"
#include "data/db_cats.h"
#include "editor/unsaved_entries.h"
#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/pump.h"

class UnsavedTest : public EditorScreen {
protected:
    ~UnsavedTest() override { CeClearFaults(); }

    CEOID AddNamed(const wchar_t* subject) {
        return AddEntry(
            [&](TSList<DbJItem>& fields) { FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject); });
    }

    std::wstring UnsavedFile() const { return store_.File() + L".unsaved"; }

    // What the journal keeps is read anew from its file, as the next start does.
    void StartAnew() const {
        const std::wstring path = store_.File();
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", (path + L".other").c_str());
        TSList<DbJItem> fields;
        EXPECT_FALSE(ReadUnsaved(&fields));
        SetEnvironmentVariableW(L"CE_OBJECT_STORE", path.c_str());
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

TEST_F(UnsavedTest, WhatCouldNotBeWrittenIsThereAtTheNextStart) {
    FillDisk();
    Edit(0, [&] {
        Retype(EditOf(Editor()), L"First");
        GoToNote();
        SendMessageW(Body(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Dear diary"));
    });
    StartAnew();
    EXPECT_NE(GetFileAttributesW(UnsavedFile().c_str()), INVALID_FILE_ATTRIBUTES);
    FillDisk();  // once more: it stays
    Edit(0, [&] { EXPECT_EQ(RowText(kFieldBody), L"Dear diary"); });
    StartAnew();
    const CEOID id = Edit(0, [] {});
    EXPECT_EQ(StoredText(id, kPropSubject), L"First");
    EXPECT_EQ(StoredBody(id), L"Dear diary");
    EXPECT_EQ(GetFileAttributesW(UnsavedFile().c_str()), INVALID_FILE_ATTRIBUTES);
    StartAnew();
    EXPECT_EQ(Edit(0, [] {}), 0u);
}

TEST_F(UnsavedTest, WhatIsGoneOnWithStaysInTheFileUntilItIsStored) {
    FillDisk();
    Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    Edit(0, [&] {
        StartAnew();  // as if the program were killed here
        TSList<DbJItem> fields;
        EXPECT_TRUE(ReadUnsaved(&fields));
    });
    TSList<DbJItem> fields;
    EXPECT_FALSE(ReadUnsaved(&fields));
}

TEST_F(UnsavedTest, AnotherEntryThatIsStoredForgetsNothing) {
    FillDisk();
    Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    const CEOID id = AddNamed(L"Lunch");
    Edit(id, [&] { Retype(EditOf(Editor()), L"Late lunch"); });
    TSList<DbJItem> fields;
    EXPECT_TRUE(ReadUnsaved(&fields));
}

TEST_F(UnsavedTest, ClosingAsksAndTellsWhetherItIsKept) {
    EXPECT_TRUE(MayCloseUnsaved(stage_.Owner()));  // nothing to ask for
    EXPECT_FALSE(WantsUnsaved(stage_.Owner()));
    FillDisk();
    Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    const std::wstring kept = L"Not stored: First\nThe next start offers it again.\nClose all the same?";
    boxes_.Expect(L"Quillon Journal", kept, IDNO);
    EXPECT_FALSE(MayCloseUnsaved(stage_.Owner()));
    boxes_.Expect(L"Quillon Journal", kept, IDYES);
    EXPECT_TRUE(MayCloseUnsaved(stage_.Owner()));
    boxes_.Expect(L"Quillon Journal", L"Not stored: First\nGo on with it now?", IDYES);
    EXPECT_TRUE(WantsUnsaved(stage_.Owner()));
}

TEST_F(UnsavedTest, WithoutRoomForItsFileTheUserIsTold) {
    CreateDirectoryW((UnsavedFile() + L".new").c_str(), nullptr);  // in the way of the file
    FillDisk();
    Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    boxes_.Expect(L"Quillon Journal",
                  L"Not stored: First\nThere is no room to keep it: it will be lost.\nClose all the same?", IDNO);
    EXPECT_FALSE(MayCloseUnsaved(stage_.Owner()));
    RemoveDirectoryW((UnsavedFile() + L".new").c_str());
    boxes_.Expect(L"Quillon Journal", L"Not stored: First\nThe next start offers it again.\nClose all the same?", IDNO);
    EXPECT_FALSE(MayCloseUnsaved(stage_.Owner()));  // tried once more
    StartAnew();
    TSList<DbJItem> fields;
    EXPECT_TRUE(ReadUnsaved(&fields));
}

TEST_F(UnsavedTest, ManyAndLongSubjectsFitABox) {
    for (const wchar_t* subject : {L"", L"Lunch", L"0123456789012345678901234567890123456789x", L"d", L"e"}) {
        TSList<DbJItem> fields;
        journal_.Initialize(&fields);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject);
        KeepUnsaved(fields);
    }
    boxes_.Expect(L"Quillon Journal",
                  L"Not stored: No Subject; Lunch; 0123456789012345678901234567890123456789...; ...\n"
                  L"Go on with it now?",
                  IDNO);
    EXPECT_FALSE(WantsUnsaved(stage_.Owner()));
}

TEST_F(UnsavedTest, ADamagedFileIsSetAsideAndItsSoundEntriesAreOffered) {
    for (const wchar_t* subject : {L"First", L"Second"}) {
        TSList<DbJItem> kept;
        journal_.Initialize(&kept);
        FindFieldByPropID(kept, kPropSubject)->SetStrValue(subject);
        KeepUnsaved(kept);
    }
    std::fstream file(std::filesystem::path(UnsavedFile()), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(30);  // in the first entry
    file.put('\x7F');
    file.close();
    StartAnew();
    TSList<DbJItem> fields;
    ASSERT_TRUE(ReadUnsaved(&fields));
    EXPECT_EQ(std::wstring(FindFieldByPropID(fields, kPropSubject)->GetStrValue()), L"Second");
    EXPECT_NE(GetFileAttributesW((UnsavedFile() + L".damaged").c_str()), INVALID_FILE_ATTRIBUTES);
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
