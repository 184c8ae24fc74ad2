// The "Entry" page: rows, the editors in them, and what OK writes.
#include <gtest/gtest.h>

#include "data/contact_blob.h"
#include "data/db_cats.h"
#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/pump.h"
#include "text/date_time.h"

namespace {

SYSTEMTIME Time(WORD year, WORD month, WORD day, WORD hour, WORD minute) {
    SYSTEMTIME time = {};
    time.wYear = year;
    time.wMonth = month;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    return time;
}

std::wstring DateAndTimeOf(const DateTime& time) {
    std::wstring text;
    time.DateAndTime(text);
    return text;
}

}  // namespace

class EntryFieldsTest : public EditorScreen {
protected:
    CEOID AddLunch() {
        return AddEntry([](TSList<DbJItem>& fields) {
            FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Lunch");
            FindFieldByPropID(fields, kPropStart)->SetFileTime(DateTime(Time(2025, 11, 2, 12, 30)).ToFileTime());
            FindFieldByPropID(fields, kPropEntryType)->SetShort(5);
            FindFieldByPropID(fields, kPropPriority)->SetShort(1);
            FindFieldByPropID(fields, kPropSensitivity)->SetShort(0);
        });
    }
};

// ---- What the form shows ----

TEST_F(EntryFieldsTest, ANewEntryHasItsDefaults) {
    DateTime before;
    before.SetNow();
    Edit(0, [&] {
        EXPECT_EQ(RowText(kFieldEntryType), L"Note");
        EXPECT_EQ(RowText(kFieldPriority), L"Normal");
        EXPECT_EQ(RowText(kFieldSensitivity), L"Normal");
        EXPECT_EQ(RowText(kFieldDuration), L"0 minutes");
        DateTime after;
        after.SetNow();
        EXPECT_TRUE(RowText(kFieldStart) == DateAndTimeOf(before) || RowText(kFieldStart) == DateAndTimeOf(after));
    });
}

TEST_F(EntryFieldsTest, EmptyValuesShowTheirDefaultTexts) {
    Edit(0, [&] {
        EXPECT_EQ(RowText(kFieldSubject), L"No Subject");
        EXPECT_EQ(RowText(kFieldCompany), L"None");
        EXPECT_EQ(RowText(kFieldContacts), L"None");
        EXPECT_EQ(RowText(kFieldCategories), L"None");
        EXPECT_EQ(RowText(kFieldBody), L"None");
    });
}

TEST_F(EntryFieldsTest, TheWindowIsTitled) {
    Edit(0, [&] { EXPECT_EQ(TextOf(Screen()), L"Journal Entry"); });
}

TEST_F(EntryFieldsTest, EveryFieldHasARowWithItsLabel) {
    Edit(0, [&] {
        const wchar_t* labels[] = {L"Subject",     L"Entry Type", L"Start",    L"Duration",   L"Priority",
                                   L"Sensitivity", L"Company",    L"Contacts", L"Categories", L"Note"};
        ASSERT_EQ(ListView_GetItemCount(List()), 10);
        for (int row = 0; row < 10; ++row) {
            wchar_t text[100] = {};
            ListView_GetItemText(List(), row, 0, text, 100);
            EXPECT_STREQ(text, labels[row]);
        }
    });
}

TEST_F(EntryFieldsTest, CategoriesAndContactsAreJoined) {
    DbCats categories;
    ASSERT_TRUE(categories.Open(nullptr));
    const CEOID business = categories.FindByName(L"Business");
    const CEOID personal = categories.FindByName(L"Personal");
    categories.Close();
    ASSERT_NE(business, 0u);
    ASSERT_NE(personal, 0u);
    const CEOID id = AddEntry([&](TSList<DbJItem>& fields) {
        CEOID ids[] = {personal, business};
        CEBLOB blob = {sizeof ids, reinterpret_cast<BYTE*>(ids)};
        FindFieldByPropID(fields, kPropCategories)->SetBlob(&blob);
        TSList<DbAItem> contacts;
        contacts.Append(DbAItem(L"Fox, Ada", L"Talvern"));
        contacts.Append(DbAItem(L"Lund, Per", L""));
        std::vector<BYTE> bytes = MakeContactBlob(contacts);
        blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
        FindFieldByPropID(fields, kPropContacts)->SetBlob(&blob);
    });
    Edit(id, [&] {
        EXPECT_EQ(RowText(kFieldCategories), L"Personal, Business");
        EXPECT_EQ(RowText(kFieldContacts), L"Fox, Ada; Lund, Per");
    });
}

TEST_F(EntryFieldsTest, TheFirstRowIsSelectedWhenNoFieldIsAskedFor) {
    Edit(AddLunch(), [&] { EXPECT_EQ(SelectedRow(), 0); });
}

TEST_F(EntryFieldsTest, TheFieldAskedForIsSelectedAndOpen) {
    Edit(AddLunch(), kFieldDuration, [&] {
        EXPECT_EQ(SelectedRow(), 3);
        ASSERT_NE(Editor(), nullptr);
        EXPECT_TRUE(GetFocus() == Editor() || IsChild(Editor(), GetFocus()));
    });
}

TEST_F(EntryFieldsTest, AnUnknownFieldSelectsTheFirstRow) {
    Edit(AddLunch(), 106, [&] { EXPECT_EQ(SelectedRow(), 0); });
}

TEST_F(EntryFieldsTest, AskedForTheBodyTheNotePageOpens) {
    Edit(AddLunch(), kFieldBody, [&] {
        EXPECT_TRUE(IsWindowVisible(Body()));
        EXPECT_FALSE(IsWindowVisible(List()));
        EXPECT_EQ(GetFocus(), Body());
    });
}

TEST_F(EntryFieldsTest, ColumnsAreAThirdAndTwoThirds) {
    Edit(0, [&] {
        RECT client = {};
        GetClientRect(List(), &client);
        EXPECT_EQ(ListView_GetColumnWidth(List(), 0), client.right / 3);
        EXPECT_EQ(ListView_GetColumnWidth(List(), 1), client.right / 3 * 2);
    });
}

// ---- What OK writes ----

TEST_F(EntryFieldsTest, OkWithoutAChangeWritesNothing) {
    const CEOID id = AddLunch();
    Edit(id, [&] {
        // Somebody else changes the entry meanwhile: a write would take that back.
        TSList<DbJItem> fields;
        journal_.Read(id, &fields);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Dinner");
        journal_.Write(id, &fields);
        for (const WORD field : {kFieldSubject, kFieldEntryType, kFieldStart, kFieldDuration, kFieldPriority,
                                 kFieldSensitivity, kFieldCompany, kFieldContacts, kFieldCategories}) {
            SelectField(field);
        }
        GoToNote();
        GoToEntry();
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Dinner");
}

TEST_F(EntryFieldsTest, AListThatIsOpenedAndLeftWithEscapeIsNoChange) {
    for (const WORD field : {kFieldPriority, kFieldEntryType, kFieldSensitivity, kFieldSubject, kFieldDuration}) {
        const CEOID id = AddLunch();
        Edit(id, field, [&] {
            SendMessageW(Editor(), CB_SHOWDROPDOWN, TRUE, 0);
            Press(Editor(), VK_ESCAPE);
            EXPECT_EQ(SendMessageW(Editor(), CB_GETDROPPEDSTATE, 0, 0), 0);
            journal_.DeleteRecord(id);  // a write would bring it back
        });
        EXPECT_EQ(journal_.GetRecordCount(), 0) << field;
    }
}

TEST_F(EntryFieldsTest, AValueThatIsWhatItWasIsNoChange) {
    const CEOID id = AddEntry([](TSList<DbJItem>& fields) {
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Lunch");
        FindFieldByPropID(fields, kPropStart)->SetFileTime(DateTime(Time(2025, 11, 2, 12, 30)).ToFileTime());
        FindFieldByPropID(fields, kPropPriority)->SetShort(1);
        DateTime span;
        span.AddDays(32);  // the text tells one day of them
        FindFieldByPropID(fields, kPropDuration)->SetFileTime(span.ToFileTime());
    });
    Edit(id, [&] {
        Retype(EditOf(Editor()), L"Dinner");
        SelectField(kFieldPriority);
        EXPECT_EQ(RowText(kFieldSubject), L"Dinner");
        ChooseItem(Editor(), 2);
        ChooseItem(Editor(), 1);
        SelectField(kFieldSubject);
        Retype(EditOf(Editor()), L"Lunch");
        SelectField(kFieldStart);
        PickTime(Editor(), Time(2026, 1, 31, 0, 0));
        PickTime(Editor(), Time(2025, 11, 2, 0, 0));
        SelectField(kFieldDuration);
        Retype(EditOf(Editor()), L"1 da");
        Type(EditOf(Editor()), L"y");
        SelectField(kFieldCompany);
        Retype(Editor(), L"Talvern");
        Retype(Editor(), L"");
        journal_.DeleteRecord(id);  // a write would bring it back
    });
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(EntryFieldsTest, ANewEntryWithoutAChangeIsNotWritten) {
    EXPECT_EQ(Edit(0, [] {}), 0u);
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(EntryFieldsTest, ANewEntryIsWrittenWithItsDefaultsAndBecomesCurrent) {
    const CEOID id = Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    ASSERT_NE(id, 0u);
    EXPECT_EQ(StoredText(id, kPropSubject), L"First");
    EXPECT_EQ(StoredShort(id, kPropEntryType), 13);
    EXPECT_EQ(StoredShort(id, kPropPriority), 1);
    EXPECT_EQ(StoredShort(id, kPropSensitivity), 0);
    EXPECT_NE(DateTime(Stored(id, kPropStart).GetFileTime()), DateTime());
}

TEST_F(EntryFieldsTest, AWrittenEntryIsSelectedAlone) {
    selection_.Add(AddLunch());
    const CEOID id = Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    EXPECT_EQ(selection_.Ids(), std::vector<CEOID>{id});
}

TEST_F(EntryFieldsTest, AWrittenEntryIsFlagged) {
    const CEOID id = Edit(0, [&] { Retype(EditOf(Editor()), L"First"); });
    journal_.SeekToOid(id);
    CEPROPID wanted = kPropRecordFlags;
    WORD count = 1;
    BYTE* buffer = nullptr;
    ASSERT_EQ(journal_.ReadRecordProps(&count, &wanted, &buffer), id);
    EXPECT_EQ(reinterpret_cast<CEPROPVAL*>(buffer)->val.ulVal, 3u);
    LocalFree(buffer);
}

TEST_F(EntryFieldsTest, AnExistingEntryKeepsItsIdAndOtherValues) {
    const CEOID id = AddLunch();
    EXPECT_EQ(Edit(id, [&] { Retype(EditOf(Editor()), L"Late lunch"); }), id);
    EXPECT_EQ(journal_.GetRecordCount(), 1);
    EXPECT_EQ(StoredText(id, kPropSubject), L"Late lunch");
    EXPECT_EQ(StoredShort(id, kPropEntryType), 5);
    EXPECT_EQ(DateTime(Stored(id, kPropStart).GetFileTime()), DateTime(Time(2025, 11, 2, 12, 30)));
}

TEST_F(EntryFieldsTest, ClosingIsOk) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Kept");
        SendMessageW(Screen(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Kept");
}

TEST_F(EntryFieldsTest, EscapeIsOk) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Kept");
        MSG escape = {};
        escape.hwnd = EditOf(Editor());
        escape.message = WM_KEYDOWN;
        escape.wParam = VK_ESCAPE;
        IsDialogMessageW(Screen(), &escape);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Kept");
}

// ---- Editors ----

TEST_F(EntryFieldsTest, AnotherRowTakesWhatWasTyped) {
    const CEOID id = Edit(AddLunch(), [&] {
        Retype(EditOf(Editor()), L"Typed");
        SelectField(kFieldCompany);
        EXPECT_EQ(RowText(kFieldSubject), L"Typed");
        Retype(Editor(), L"Talvern");
        SelectField(kFieldPriority);
        EXPECT_EQ(RowText(kFieldCompany), L"Talvern");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
    EXPECT_EQ(StoredText(id, kPropCompany), L"Talvern");
}

TEST_F(EntryFieldsTest, AClearedTextShowsItsDefaultText) {
    const CEOID id = Edit(AddLunch(), [&] {
        Retype(EditOf(Editor()), L"");
        SelectField(kFieldCompany);
        EXPECT_EQ(RowText(kFieldSubject), L"No Subject");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"");
}

TEST_F(EntryFieldsTest, ACodedFieldIsTakenWhenChosen) {
    const CEOID id = Edit(AddLunch(), kFieldPriority, [&] {
        ChooseItem(Editor(), 2);
        EXPECT_EQ(RowText(kFieldPriority), L"High");
        SelectField(kFieldSensitivity);
        ChooseItem(Editor(), 3);
        SelectField(kFieldEntryType);
        ChooseItem(Editor(), 14);
    });
    EXPECT_EQ(StoredShort(id, kPropPriority), 2);
    EXPECT_EQ(StoredShort(id, kPropSensitivity), 3);
    EXPECT_EQ(StoredShort(id, kPropEntryType), 14);
}

TEST_F(EntryFieldsTest, AListIsMovedThroughByKeys) {
    const CEOID id = Edit(AddLunch(), kFieldPriority, [&] { Press(Editor(), VK_DOWN); });
    EXPECT_EQ(StoredShort(id, kPropPriority), 2);
}

TEST_F(EntryFieldsTest, ATypedDurationIsParsed) {
    const CEOID id = Edit(AddLunch(), kFieldDuration, [&] {
        Retype(EditOf(Editor()), L"1.5h");
        SelectField(kFieldSubject);
        EXPECT_EQ(RowText(kFieldDuration), L"1 hour 30 min");
    });
    DateTime expected;
    expected.AddMinutes(90);
    EXPECT_EQ(DateTime(Stored(id, kPropDuration).GetFileTime()), expected);
}

TEST_F(EntryFieldsTest, AChosenDurationIsTakenAtOnce) {
    const CEOID id = Edit(AddLunch(), kFieldDuration, [&] {
        ChooseItem(Editor(), 16);
        EXPECT_EQ(TextOf(Editor()), L".5 days");
        EXPECT_EQ(RowText(kFieldDuration), L"12 hours");
    });
    DateTime expected;
    expected.AddHours(12);
    EXPECT_EQ(DateTime(Stored(id, kPropDuration).GetFileTime()), expected);
}

TEST_F(EntryFieldsTest, ADurationWithoutNumbersChangesNothing) {
    const CEOID id = Edit(AddLunch(), kFieldDuration, [&] {
        Retype(EditOf(Editor()), L"1h");
        SelectField(kFieldSubject);
        SelectField(kFieldDuration);
        Retype(EditOf(Editor()), L"long");
        SelectField(kFieldSubject);
        EXPECT_EQ(RowText(kFieldDuration), L"1 hour");
    });
    DateTime expected;
    expected.AddHours(1);
    EXPECT_EQ(DateTime(Stored(id, kPropDuration).GetFileTime()), expected);
}

TEST_F(EntryFieldsTest, ADateAndATimeArePicked) {
    const CEOID id = Edit(AddLunch(), kFieldStart, [&] {
        SYSTEMTIME shown = {};
        DateTime_GetSystemtime(TimeEditor(), &shown);
        EXPECT_EQ(shown.wHour, 12);
        EXPECT_EQ(shown.wMinute, 30);
        PickTime(Editor(), Time(2026, 1, 31, 0, 0));
        PickTime(TimeEditor(), Time(1999, 9, 9, 17, 45));
        SelectField(kFieldSubject);
        EXPECT_EQ(RowText(kFieldStart), DateAndTimeOf(DateTime(Time(2026, 1, 31, 17, 45))));
    });
    EXPECT_EQ(DateTime(Stored(id, kPropStart).GetFileTime()), DateTime(Time(2026, 1, 31, 17, 45)));
}

TEST_F(EntryFieldsTest, TheSubjectsListOffersTheQuickSubjects) {
    WriteOption(L"scount", 2);
    application_.WriteString(L"Options", L"subj0", L"Stand-up");
    application_.WriteString(L"Options", L"subj1", std::wstring(120, L'x'));
    const CEOID id = Edit(AddLunch(), [&] {
        ASSERT_EQ(SendMessageW(Editor(), CB_GETCOUNT, 0, 0), 3);
        wchar_t first[100] = L"";
        SendMessageW(Editor(), CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(first));
        EXPECT_STREQ(first, L"<Edit Quick Subjects>");
        EXPECT_EQ(SendMessageW(Editor(), CB_GETLBTEXTLEN, 2, 0), 99);
        ChooseItem(Editor(), 1);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Stand-up");
}

TEST_F(EntryFieldsTest, OkTakesWhatAnOpenEditorHolds) {
    const CEOID id = Edit(AddLunch(), kFieldCompany, [&] { Retype(Editor(), L"Talvern"); });
    EXPECT_EQ(StoredText(id, kPropCompany), L"Talvern");
}

TEST_F(EntryFieldsTest, AnEditorForAPickerStaysClosed) {
    Edit(AddLunch(), kFieldCategories, [&] {
        EXPECT_EQ(SelectedRow(), 8);
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_TRUE(IsWindowVisible(List()));
    });
}

// ---- Keys ----

TEST_F(EntryFieldsTest, WhatIsTypedWhileARowIsHighlightedGoesIntoItsEditor) {
    const CEOID id = Edit(AddLunch(), kFieldCompany, [&] {
        for (const wchar_t* text : {L"Talvern", L"O\u015bka"}) {
            SetFocus(List());
            for (const wchar_t* c = text; *c; ++c)
                PostMessageW(c == text ? List() : GetFocus(), WM_CHAR, static_cast<WPARAM>(*c), 1), PumpOnce();
            EXPECT_EQ(TextOf(Editor()), text);
            EXPECT_EQ(GetFocus(), Editor());
            EXPECT_EQ(SelectedRow(), 6);
        }
        Press(Editor(), VK_RETURN);
        ASSERT_EQ(Editor(), nullptr);
        Type(List(), L"X");  // an editor that was closed opens again
        PumpOnce();
        EXPECT_EQ(TextOf(Editor()), L"X");
        SelectField(kFieldPriority);
        SetFocus(List());
        Type(List(), L"h");
        PumpOnce();
        EXPECT_EQ(RowText(kFieldPriority), L"High");
        SelectField(kFieldSubject);
        SetFocus(List());
        Type(List(), L"Su");  // two keys at once
        PumpOnce();
        EXPECT_EQ(TextOf(Editor()), L"Su");
    });
    EXPECT_EQ(StoredText(id, kPropCompany), L"X");
    EXPECT_EQ(StoredText(id, kPropSubject), L"Su");
}

TEST_F(EntryFieldsTest, WhatIsTypedOnTheNotesRowGoesIntoTheNote) {
    Edit(AddLunch(), [&] {
        SelectField(kFieldBody);
        SetFocus(List());
        Type(List(), L"D");
        PumpOnce();
        EXPECT_TRUE(IsWindowVisible(Body()));
        EXPECT_EQ(TextOf(Body()), L"D");
    });
}

TEST_F(EntryFieldsTest, AKeyThatIsNoLetterTypesNothing) {
    const CEOID id = AddLunch();
    Edit(id, kFieldCompany, [&] {
        SetFocus(List());
        for (const wchar_t c : {L'\r', L'\x1b', L'\x03', L'\b'})
            SendMessageW(List(), WM_CHAR, c, 1);
        PumpOnce();
        EXPECT_EQ(GetFocus(), List());
        EXPECT_EQ(TextOf(Editor()), L"");
    });
}

TEST_F(EntryFieldsTest, ReturnTakesTheValueAndGoesBackToTheList) {
    const CEOID id = Edit(AddLunch(), kFieldCompany, [&] {
        Retype(Editor(), L"Talvern");
        Press(Editor(), VK_RETURN);
        EXPECT_EQ(RowText(kFieldCompany), L"Talvern");
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(GetFocus(), List());
        Press(List(), VK_RETURN);
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(GetFocus(), Editor());
    });
    EXPECT_EQ(StoredText(id, kPropCompany), L"Talvern");
}

TEST_F(EntryFieldsTest, ATapOnTheSelectedRowOpensItsEditorAgain) {
    Edit(AddLunch(), kFieldCompany, [&] {
        Press(Editor(), VK_RETURN);
        ASSERT_EQ(Editor(), nullptr);
        NMITEMACTIVATE tap = {};
        tap.hdr = {List(), IDC_EDITOR_FIELDS, static_cast<UINT>(NM_CLICK)};
        SendMessageW(Screen(), WM_NOTIFY, IDC_EDITOR_FIELDS, reinterpret_cast<LPARAM>(&tap));
        PumpOnce();
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(GetFocus(), Editor());
    });
}

TEST_F(EntryFieldsTest, ReturnInAnEditorDoesNotCloseTheScreen) {
    Edit(AddLunch(), kFieldCompany, [&] {
        MSG key = {};
        key.hwnd = Editor();
        key.message = WM_KEYDOWN;
        key.wParam = VK_RETURN;
        IsDialogMessageW(Screen(), &key);
        EXPECT_TRUE(IsWindow(Screen()));
        EXPECT_EQ(GetFocus(), List());
    });
}

TEST_F(EntryFieldsTest, UpAndDownInALineMoveBetweenRows) {
    Edit(AddLunch(), kFieldCompany, [&] {
        Press(Editor(), VK_DOWN);
        EXPECT_EQ(SelectedRow(), 7);
        EXPECT_EQ(GetFocus(), List());
        Press(List(), VK_UP);
        EXPECT_EQ(SelectedRow(), 6);
    });
}

TEST_F(EntryFieldsTest, TabGoesFromEditorToListToTabStrip) {
    Edit(AddLunch(), kFieldCompany, [&] {
        EXPECT_EQ(GetNextDlgTabItem(Screen(), Editor(), FALSE), List());
        EXPECT_EQ(GetNextDlgTabItem(Screen(), List(), FALSE), Item(IDC_EDITOR_TABS));
        EXPECT_EQ(GetNextDlgTabItem(Screen(), Item(IDC_EDITOR_TABS), FALSE), Editor());
    });
}

TEST_F(EntryFieldsTest, TheEditorIsNamedByItsFieldForScreenReaders) {
    Edit(AddLunch(), kFieldCompany, [&] {
        EXPECT_EQ(TextOf(GetWindow(Editor(), GW_HWNDPREV)), L"Company");
        EXPECT_EQ(TextOf(GetWindow(List(), GW_HWNDPREV)), L"Journal Entry");
        EXPECT_EQ(TextOf(GetWindow(Body(), GW_HWNDPREV)), L"Note");
    });
}

// ---- Pocket Outlook ----

TEST_F(EntryFieldsTest, APocketOutlookItemIsSavedUntouched) {
    PimData item;
    item.subject = L"Review";
    item.company = L"Talvern";
    item.start = DateTime(Time(2026, 5, 6, 7, 8));
    const CEOID id = EditItem(item, [&] {
        EXPECT_EQ(SelectedRow(), 0);
        EXPECT_EQ(RowText(kFieldSubject), L"Review");
    });
    ASSERT_NE(id, 0u);
    EXPECT_EQ(StoredText(id, kPropSubject), L"Review");
    EXPECT_EQ(StoredText(id, kPropCompany), L"Talvern");
    EXPECT_EQ(DateTime(Stored(id, kPropStart).GetFileTime()), item.start);
    EXPECT_EQ(StoredShort(id, kPropEntryType), 13);
}
