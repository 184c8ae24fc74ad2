// The detail view as a person and other programs meet it: what it shows, what taps and keys end it with, what happens
// when its entry is changed or deleted elsewhere.
#include "list/detail_view.h"

#include <dateformat.h>

#include <thread>

#include "data/contact_blob.h"
#include "data/db_categories.h"
#include "data/db_cats.h"
#include "tests/list/detail_screen.h"
#include "tests/support/other_program.h"

namespace {

using DetailViewTest = DetailScreen;

std::vector<BYTE> Rtf(const char* text) {
    const std::string rtf = std::string("{\\rtf1\\ansi ") + text + "}";
    return {rtf.begin(), rtf.end()};
}

// ---- What it shows ----

TEST_F(DetailViewTest, ShowsEveryFieldOfTheEntry) {
    const SYSTEMTIME start = {2026, 3, 0, 14, 15, 9, 0, 0};
    const CEOID id = AddEntry([&](auto& fields) {
        FILETIME time;
        SystemTimeToFileTime(&start, &time);
        FindFieldByPropID(fields, kPropStart)->SetFileTime(time);
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Fish & chips");
        FindFieldByPropID(fields, kPropEntryType)->SetShort(14);
        FindFieldByPropID(fields, kPropPriority)->SetShort(2);
        FindFieldByPropID(fields, kPropSensitivity)->SetShort(3);
        DateTime span;
        span.AddMinutes(90);
        FindFieldByPropID(fields, kPropDuration)->SetFileTime(span.ToFileTime());
        FindFieldByPropID(fields, kPropCompany)->SetStrValue(L"Talvern");
        TSList<DbAItem> contacts;
        contacts.Append(DbAItem(L"Fox, Ada", L"Talvern"));
        contacts.Append(DbAItem(L"Lund, Per", L""));
        SetBytes(fields, kPropContacts, MakeContactBlob(contacts));
        SetBytes(fields, kPropBody, Rtf("Two herons."));
    });
    EXPECT_EQ(View(id,
                   [&] {
                       wchar_t date[200];
                       wchar_t clock[200];
                       GetDateFormatW(LOCALE_USER_DEFAULT, 0, &start, L"ddd, MMM d yyyy gg", date, 200);
                       GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &start, nullptr, clock, 200);
                       EXPECT_EQ(Text(IDC_DETAIL_DATE), std::wstring(date) + L" - " + clock);
                       EXPECT_EQ(Text(IDC_DETAIL_SUBJECT), L"Fish & chips");
                       EXPECT_EQ(Text(IDC_DETAIL_TYPE), L"Phone call");
                       EXPECT_EQ(Text(IDC_DETAIL_DURATION), L"1 hour 30 min");
                       EXPECT_EQ(Text(IDC_DETAIL_COMPANY), L"Talvern");
                       EXPECT_EQ(Text(IDC_DETAIL_CONTACTS), L"Fox, Ada; Lund, Per");
                       EXPECT_EQ(Text(IDC_DETAIL_NOTE), L"Two herons.");
                       EXPECT_TRUE(GetWindowLongW(Note(), GWL_STYLE) & ES_READONLY);
                       wchar_t title[50] = L"";
                       GetWindowTextW(Screen(), title, 50);
                       EXPECT_STREQ(title, L"Journal Entry");
                   }),
              1);
}

TEST_F(DetailViewTest, AnEntryWithoutASubjectSaysSo) {
    View(AddSubject(L""), [&] { EXPECT_EQ(Text(IDC_DETAIL_SUBJECT), L"No Subject"); });
}

TEST_F(DetailViewTest, ALongSubjectEndsInDots) {
    View(AddSubject(std::wstring(5000, L'w')), [&] {
        const std::wstring shown = Text(IDC_DETAIL_SUBJECT);
        ASSERT_GT(shown.size(), 10u);
        EXPECT_LT(shown.size(), 240u);
        EXPECT_EQ(shown, std::wstring(shown.size() - 3, L'w') + L"...");
    });
}

TEST_F(DetailViewTest, LinesWithNothingToShowAreHidden) {
    View(AddSubject(L"Plain"), [&] {
        EXPECT_EQ(PanelHeight(), Px(57));
        for (const int id : {IDC_DETAIL_COMPANY, IDC_DETAIL_CONTACTS, IDC_DETAIL_CATEGORIES})
            EXPECT_FALSE(IsShown(id)) << id;
        EXPECT_TRUE(IsShown(IDC_DETAIL_DURATION));
    });
}

TEST_F(DetailViewTest, AllThreeLinesMakeItsHeaderAsHighAsItGets) {
    DbCategories database;
    ASSERT_TRUE(database.Open(kPropCategoryName, nullptr));
    ASSERT_TRUE(database.Add(L"Travel"));
    ASSERT_TRUE(database.Add(L"Work"));
    database.Close();
    const CEOID id = AddEntry([&](auto& fields) {
        FindFieldByPropID(fields, kPropCompany)->SetStrValue(L"Talvern");
        TSList<DbAItem> contacts;
        contacts.Append(DbAItem(L"Ada", L""));
        SetBytes(fields, kPropContacts, MakeContactBlob(contacts));
        TSList<DbCItem> categories;
        categories.Append(DbCItem(kPropCategoryName, L"Work"));
        categories.Append(DbCItem(kPropCategoryName, L"Travel"));
        DbCats cats;
        ASSERT_TRUE(cats.Open(nullptr));
        SetBytes(fields, kPropCategories, cats.MakeBlob(categories));
        cats.Close();
    });
    View(id, [&] {
        EXPECT_EQ(PanelHeight(), Px(114));
        EXPECT_EQ(Text(IDC_DETAIL_CATEGORIES), L"Work, Travel");
        EXPECT_TRUE(IsShown(IDC_DETAIL_COMPANY) && IsShown(IDC_DETAIL_CONTACTS) && IsShown(IDC_DETAIL_CATEGORIES));
    });
}

TEST_F(DetailViewTest, TheNoteFillsTheRestBelowTheHeader) {
    View(AddSubject(L"Plain"), [&] {
        RECT client;
        GetClientRect(Screen(), &client);
        const RECT panel = Place(Panel());
        EXPECT_EQ(panel.left, -1);
        EXPECT_EQ(panel.top, -1);
        EXPECT_EQ(panel.right, client.right + 1);
        EXPECT_EQ(Place(Note()).top, panel.bottom + Px(1));
        EXPECT_EQ(Place(Note()).right, client.right);
        const LONG bottom = Place(Note()).bottom;
        SetWindowPos(Screen(), nullptr, 0, 0, 300, 250, SWP_NOMOVE | SWP_NOZORDER);
        PumpOnce();
        GetClientRect(Screen(), &client);
        EXPECT_EQ(Place(Panel()).right, client.right + 1);
        EXPECT_EQ(Place(Note()).right, client.right);
        EXPECT_NE(Place(Note()).bottom, bottom);
        EXPECT_LE(Place(Note()).bottom, client.bottom);
    });
}

TEST_F(DetailViewTest, ADateLineWiderThanItsPlaceIsWrittenNarrowerSoThatTheTimeIsSeen) {
    const SYSTEMTIME start = {2026, 3, 0, 14, 15, 9, 0, 0};
    const CEOID id = AddEntry(
        [&](auto& fields) { FindFieldByPropID(fields, kPropStart)->SetFileTime(DateTime(start).ToFileTime()); });
    View(id, [&] {
        const auto width = [&] {
            const HDC dc = GetDC(Item(IDC_DETAIL_DATE));
            const auto font = reinterpret_cast<HFONT>(SendMessageW(Item(IDC_DETAIL_DATE), WM_GETFONT, 0, 0));
            const HGDIOBJ before = SelectObject(dc, font);
            const std::wstring text = Text(IDC_DETAIL_DATE);
            SIZE size = {};
            GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
            SelectObject(dc, before);
            ReleaseDC(Item(IDC_DETAIL_DATE), dc);
            return static_cast<int>(size.cx);
        };
        const auto room = [&] {
            const RECT place = Place(Item(IDC_DETAIL_DATE));
            return static_cast<int>(place.right - place.left);
        };
        const std::wstring whole = Text(IDC_DETAIL_DATE);
        const int full = width();
        ASSERT_LE(full, room());
        SetWindowPos(Screen(), nullptr, 0, 0, full * 4 / 5 + Px(31) + Px(8), 250, SWP_NOMOVE | SWP_NOZORDER);
        PumpOnce();
        ASSERT_LT(room(), full);
        EXPECT_LE(width(), room());
        EXPECT_EQ(Text(IDC_DETAIL_DATE), whole);
        SetWindowPos(Screen(), nullptr, 0, 0, 300, 250, SWP_NOMOVE | SWP_NOZORDER);
        PumpOnce();
        EXPECT_EQ(width(), full);
    });
}

// ---- Damage ----

struct DamageCase {
    const char* label;
    CEPROPID propid;
    std::vector<BYTE> bytes;
};

class DamagedEntryTest : public DetailScreen, public testing::WithParamInterface<DamageCase> {};

TEST_P(DamagedEntryTest, IsShownAsFarAsItIsSound) {
    const CEOID id = AddEntry([&](auto& fields) {
        FindFieldByPropID(fields, kPropSubject)->SetStrValue(L"Still here");
        SetBytes(fields, GetParam().propid, GetParam().bytes);
    });
    EXPECT_EQ(View(id,
                   [&] {
                       EXPECT_EQ(Text(IDC_DETAIL_SUBJECT), L"Still here");
                       EXPECT_EQ(PanelHeight(), Px(57));
                       EXPECT_EQ(Text(IDC_DETAIL_NOTE), L"");
                   }),
              1);
}

INSTANTIATE_TEST_SUITE_P(All, DamagedEntryTest,
                         testing::Values(DamageCase{"HalfACategory", kPropCategories, {1, 0}},
                                         DamageCase{"NoSuchCategory", kPropCategories, {9, 9, 9, 9}},
                                         DamageCase{"HalfAContact", kPropContacts, {'A', 0, 'd'}},
                                         DamageCase{"NoRichText", kPropBody, {1, 2, 3, 0xFF}},
                                         DamageCase{"TruncatedRichText", kPropBody, {'{', '\\', 'r', 't', 'f'}}),
                         [](const auto& row) { return row.param.label; });

TEST_F(DetailViewTest, ValuesOutsideTheirTablesShowNothing) {
    for (const short value : {short{-1}, short{-2}, short{19}, short{32767}}) {
        const CEOID id = AddEntry([&](auto& fields) {
            for (const CEPROPID propid : {kPropEntryType, kPropPriority, kPropSensitivity})
                FindFieldByPropID(fields, propid)->SetShort(value);
        });
        View(id, [&] {
            EXPECT_EQ(Text(IDC_DETAIL_TYPE), L"");
            UpdateWindow(Screen());
        });
    }
}

TEST_F(DetailViewTest, ATimeThatIsNoDateShowsNoDate) {
    const CEOID id = AddEntry([](auto& fields) {
        FindFieldByPropID(fields, kPropStart)->SetFileTime({~DWORD{}, ~DWORD{}});
    });
    View(id, [&] { EXPECT_EQ(Text(IDC_DETAIL_DATE), L""); });
}

TEST_F(DetailViewTest, AnEntryWithoutAStartShowsNoDate) {
    const CEOID id = AddEntry([](auto& fields) { FindFieldByPropID(fields, kPropStart)->SetFileTime({}); });
    View(id, [&] { EXPECT_EQ(Text(IDC_DETAIL_DATE), L""); });
}

// ---- Looks ----

// What a field asks the header for before it is drawn.
HBRUSH BackgroundOf(HWND panel, HWND field, COLORREF* text) {
    const HDC dc = GetDC(field);
    const auto brush = reinterpret_cast<HBRUSH>(
        SendMessageW(panel, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(field)));
    *text = GetTextColor(dc);
    ReleaseDC(field, dc);
    return brush;
}

TEST_F(DetailViewTest, TheDateIsBlueOnWhite) {
    View(AddSubject(L"Plain"), [&] {
        COLORREF text = 0;
        EXPECT_EQ(BackgroundOf(Panel(), Item(IDC_DETAIL_DATE), &text), GetStockObject(WHITE_BRUSH));
        EXPECT_EQ(text, COLORREF{0x00FF0000});
    });
}

TEST_F(DetailViewTest, TheFieldThatHasTheKeysIsHighlighted) {
    View(AddSubject(L"Plain"), [&] {
        COLORREF text = 0;
        SetFocus(Item(IDC_DETAIL_DATE));
        EXPECT_EQ(BackgroundOf(Panel(), Item(IDC_DETAIL_DATE), &text), GetSysColorBrush(COLOR_HIGHLIGHT));
        EXPECT_EQ(text, GetSysColor(COLOR_HIGHLIGHTTEXT));
        EXPECT_EQ(BackgroundOf(Panel(), Item(IDC_DETAIL_SUBJECT), &text), GetStockObject(WHITE_BRUSH));
    });
}

// ---- Taps and keys ----

struct TapCase {
    const char* label;
    int control;
    INT_PTR field;
};

class DetailTapTest : public DetailScreen, public testing::WithParamInterface<TapCase> {
protected:
    CEOID Full() {
        return AddEntry([](auto& fields) {
            FindFieldByPropID(fields, kPropCompany)->SetStrValue(L"Talvern");
            SetBytes(fields, kPropBody, Rtf("Two herons."));
        });
    }
};

TEST_P(DetailTapTest, EndsTheViewWithItsField) {
    EXPECT_EQ(View(Full(), [&] { Tap(Item(GetParam().control)); }), GetParam().field);
    WNDCLASSW unused = {};
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"ZC_DETAIL", &unused));
}

TEST_P(DetailTapTest, ReturnDoesTheSame) {
    EXPECT_EQ(View(Full(),
                   [&] {
                       SetFocus(Item(GetParam().control));
                       Press(Item(GetParam().control), VK_RETURN);
                   }),
              GetParam().field);
}

TEST_P(DetailTapTest, ItsControlIsReachedByTheTabKey) {
    View(Full(), [&] {
        if (!IsShown(GetParam().control)) return;
        const HWND first = GetFocus();
        HWND now = first;
        bool reached = false;
        for (int step = 0; step < 20 && !reached; ++step) {
            reached = now == Item(GetParam().control);
            now = GetNextDlgTabItem(Screen(), now, FALSE);
        }
        EXPECT_TRUE(reached);
    });
}

INSTANTIATE_TEST_SUITE_P(All, DetailTapTest,
                         testing::Values(TapCase{"Subject", 124, 102}, TapCase{"Date", 125, 101},
                                         TapCase{"Duration", 126, 109}, TapCase{"Categories", 127, 104},
                                         TapCase{"Contacts", 128, 110}, TapCase{"Type", 130, 105},
                                         TapCase{"Priority", 131, 107}, TapCase{"Sensitivity", 132, 108},
                                         TapCase{"Company", 133, 111}, TapCase{"Note", 135, 103}),
                         [](const auto& row) { return row.param.label; });

TEST_F(DetailViewTest, OtherCommandsAreIgnored) {
    EXPECT_EQ(View(AddSubject(L"Plain"),
                   [&] {
                       for (const WORD id : {WORD{129}, WORD{134}, WORD{136}, WORD{40008}, WORD{123}})
                           SendMessageW(Screen(), WM_COMMAND, id, 0);
                       Tap(Panel(), 1, 1);
                       EXPECT_TRUE(IsWindowVisible(Screen()));
                   }),
              1);
}

TEST_F(DetailViewTest, WhatTheNoteTellsBesidesTapsIsIgnored) {
    EXPECT_EQ(View(AddSubject(L"Plain"),
                   [&] {
                       for (const WORD code : {WORD{EN_CHANGE}, WORD{EN_SETFOCUS}, WORD{EN_KILLFOCUS}})
                           SendMessageW(Screen(), WM_COMMAND, MAKEWPARAM(IDC_DETAIL_NOTE, code), 0);
                       EXPECT_TRUE(IsWindowVisible(Screen()));
                   }),
              1);
}

TEST_F(DetailViewTest, DraggingOverTheNoteIsNoTap) {
    EXPECT_EQ(View(AddSubject(L"Plain"),
                   [&] {
                       SendMessageW(Note(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
                       SendMessageW(Note(), WM_LBUTTONUP, 0, MAKELPARAM(60, 5));
                       EXPECT_TRUE(IsWindowVisible(Screen()));
                   }),
              1);
}

TEST_F(DetailViewTest, EscapeClosesIt) {
    EXPECT_EQ(View(AddSubject(L"Plain"), [&] { Press(GetFocus(), VK_ESCAPE); }), 1);
}

TEST_F(DetailViewTest, TheSecondTapOfADoubleTapEndsItForTheEditor) {
    EXPECT_FALSE(DetailView::EndToEdit());
    EXPECT_EQ(View(AddSubject(L"Plain"), [&] { EXPECT_TRUE(DetailView::EndToEdit()); }), 0);
    EXPECT_FALSE(DetailView::EndToEdit());
}

TEST_F(DetailViewTest, IconsSayWhatTheyMean) {
    const CEOID id = AddEntry([](auto& fields) {
        FindFieldByPropID(fields, kPropPriority)->SetShort(2);
        FindFieldByPropID(fields, kPropSensitivity)->SetShort(1);
    });
    View(id, [&] {
        EXPECT_EQ(Text(IDC_DETAIL_PRIORITY), L"Priority: High");
        EXPECT_EQ(Text(IDC_DETAIL_SENSITIVITY), L"Sensitivity: Personal");
    });
}

// ---- What others do to the entry ----

class DetailNotificationTest : public DetailScreen {
protected:
    // Does something to the journal in another thread, as another program would.
    static void Elsewhere(const std::function<void(DbJournal&)>& act) {
        std::thread([&] {
            DbJournal journal;
            EXPECT_TRUE(journal.Open(nullptr));
            act(journal);
            journal.Close();
        }).join();
    }
    static void ChangeSubject(CEOID id, const wchar_t* subject) {
        Elsewhere([&](DbJournal& journal) {
            TSList<DbJItem> fields;
            EXPECT_EQ(journal.Read(id, &fields), id);
            FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject);
            EXPECT_EQ(journal.Write(id, &fields), id);
        });
    }
};

TEST_F(DetailNotificationTest, AChangedEntryIsShownAnew) {
    const CEOID id = AddSubject(L"Before");
    View(id, [&] {
        ChangeSubject(id, L"After");
        EXPECT_TRUE(PumpUntil([&] { return Text(IDC_DETAIL_SUBJECT) == L"After"; }));
        ChangeSubject(id, L"");
        EXPECT_TRUE(PumpUntil([&] { return Text(IDC_DETAIL_SUBJECT) == L"No Subject"; }));
    });
}

TEST_F(DetailNotificationTest, WhatAnotherProgramChangesIsShownAnew) {
    const CEOID id = AddSubject(L"Before");
    View(id, [&] {
        ASSERT_EQ(RunOtherProgram(L"journal_helper.exe", L"rename " + std::to_wstring(id) + L" After"), 1u);
        EXPECT_TRUE(PumpUntil([&] { return Text(IDC_DETAIL_SUBJECT) == L"After"; }));
    });
}

TEST_F(DetailNotificationTest, WhatAnotherProgramDeletesClosesTheView) {
    const CEOID id = AddSubject(L"Doomed");
    boxes_.Expect(L"Quillon Journal", L"");
    EXPECT_EQ(View(id,
                   [&] {
                       const std::wstring words = L"delete " + std::to_wstring(id);
                       ASSERT_EQ(RunOtherProgram(L"journal_helper.exe", words), 1u);
                       EXPECT_TRUE(PumpUntil([&] { return !IsWindowVisible(Screen()); }));
                   }),
              1);
}

TEST_F(DetailNotificationTest, ADeletedEntryClosesTheViewAfterAnEmptyBox) {
    const CEOID id = AddSubject(L"Doomed");
    boxes_.Expect(L"Quillon Journal", L"");
    EXPECT_EQ(View(id,
                   [&] {
                       Elsewhere([&](DbJournal& journal) { EXPECT_TRUE(journal.DeleteRecord(id)); });
                       EXPECT_TRUE(PumpUntil([&] { return !IsWindowVisible(Screen()); }));
                   }),
              1);
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONINFORMATION));
}

TEST_F(DetailNotificationTest, WhatHappensToOtherEntriesAndDatabasesIsIgnored) {
    const CEOID other = AddSubject(L"Other");
    const CEOID id = AddSubject(L"Shown");
    View(id, [&] {
        Elsewhere([&](DbJournal& journal) { EXPECT_TRUE(journal.DeleteRecord(other)); });
        const CEOID database = journal_.GetOid();
        SendMessageW(Screen(), DB_CEOID_RECORD_DELETED, other, static_cast<LPARAM>(database));
        SendMessageW(Screen(), DB_CEOID_RECORD_DELETED, id, static_cast<LPARAM>(database + 1));
        SetWindowTextW(Item(IDC_DETAIL_SUBJECT), L"Untouched");
        SendMessageW(Screen(), DB_CEOID_CHANGED, other, static_cast<LPARAM>(database));
        SendMessageW(Screen(), DB_CEOID_CHANGED, id, static_cast<LPARAM>(database + 1));
        PumpOnce();
        EXPECT_EQ(Text(IDC_DETAIL_SUBJECT), L"Untouched");
        EXPECT_TRUE(IsWindowVisible(Screen()));
    });
}

TEST_F(DetailNotificationTest, AnEntryThatIsGoneAlreadyShowsEmptyFields) {
    const CEOID id = AddSubject(L"Gone");
    ASSERT_TRUE(journal_.DeleteRecord(id));
    EXPECT_EQ(View(id, [&] { EXPECT_EQ(Text(IDC_DETAIL_SUBJECT), L"No Subject"); }), 1);
}

}  // namespace
