// Whatever is typed or pasted is kept, and shown from its beginning.
#include <gtest/gtest.h>

#include <aygshell.h>
#include <px.h>

#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/pump.h"

class TypedTextTest : public EditorScreen {
protected:
    CEOID AddNamed(const std::wstring& subject) {
        return AddEntry(
            [&](TSList<DbJItem>& fields) { FindFieldByPropID(fields, kPropSubject)->SetStrValue(subject.c_str()); });
    }
    // Puts a text into an edit as the clipboard does.
    static void Paste(HWND edit, const std::wstring& text) {
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Where the edit's first character stands; far to the left of the edit when its end is shown.
    static int StartOfText(HWND edit) { return static_cast<short>(LOWORD(SendMessageW(edit, EM_POSFROMCHAR, 0, 0))); }
    void Rotate() const {
        SetWindowPos(Screen(), nullptr, 0, 0, 420, 300, SWP_NOMOVE | SWP_NOZORDER);
        SendMessageW(Screen(), WM_SETTINGCHANGE, SPI_SETSIPINFO, 0);
    }
    bool IsFocusIn(HWND editor) const { return GetFocus() == editor || IsChild(editor, GetFocus()); }
};

TEST_F(TypedTextTest, ALongSubjectOpensAtItsBeginningWithAllSelected) {
    const std::wstring subject(300, L'x');
    const CEOID id = Edit(AddNamed(subject), [&] {
        const HWND edit = EditOf(Editor());
        EXPECT_GE(StartOfText(edit), 0);
        DWORD first = 9, last = 9;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
        EXPECT_EQ(first, 0u);
        EXPECT_EQ(last, 300u);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), subject);
}

TEST_F(TypedTextTest, ALongCompanyOpensAtItsBeginning) {
    Edit(0, kFieldCompany, [&] {
        Paste(Editor(), std::wstring(300, L'x'));
        SelectField(kFieldPriority);
        SelectField(kFieldCompany);
        SetFocus(List());
        Press(List(), VK_RETURN);
        EXPECT_GE(StartOfText(Editor()), 0);
    });
}

TEST_F(TypedTextTest, TenThousandCharactersArePastedAndKept) {
    const std::wstring text(10'000, L'y');
    const CEOID id = Edit(0, [&] {
        Paste(EditOf(Editor()), text);
        SelectField(kFieldCompany);
        Paste(Editor(), text);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), text);
    EXPECT_EQ(StoredText(id, kPropCompany), text);
}

TEST_F(TypedTextTest, SurrogatePairsAreKeptAndNotCutInTheRow) {
    std::wstring text;
    for (int i = 0; i < 125; ++i)
        text += L"\xD83D\xDE00";
    text.insert(0, L"a");  // the row's last character would be half a pair
    const CEOID id = Edit(AddNamed(text), [&] {
        const std::wstring row = RowText(kFieldSubject);
        ASSERT_FALSE(row.empty());
        EXPECT_FALSE(IS_HIGH_SURROGATE(row.back()));
        Paste(EditOf(Editor()), text);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), text);
}

TEST_F(TypedTextTest, TextFromRightToLeftIsKept) {
    const std::wstring text = L"\x05E9\x05DC\x05D5\x05DD \x05E2\x05D5\x05DC\x05DD";
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), text);
        SelectField(kFieldCompany);
        EXPECT_EQ(RowText(kFieldSubject), text);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), text);
}

// ---- A date that is being typed ----

// The picker waits for a second digit and tells nobody before.
TEST_F(TypedTextTest, TypedDigitsOfADateAreTakenHoweverTheRowIsLeft) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"OK", [&] { Command(IDOK); }},
        {"closing", [&] { SendMessageW(Screen(), WM_CLOSE, 0, 0); }},
        {"the Note page", [&] { GoToNote(); }},
        {"another row", [&] { SelectField(kFieldCompany); }},
        {"the program's end", [&] { EntryEditor::FinishOpen(); }},
    };
    for (const auto& [label, leave] : ways) {
        const CEOID id = AddEntry([](TSList<DbJItem>& fields) {
            const SYSTEMTIME start = {2026, 3, 0, 14, 15, 9, 0, 0};
            FindFieldByPropID(fields, kPropStart)->SetFileTime(DateTime(start).ToFileTime());
        });
        Edit(id, kFieldStart, [&, way = leave] {
            ASSERT_EQ(GetFocus(), Editor());
            Press(Editor(), VK_RIGHT);  // to a part of the date: the month or the day
            Type(Editor(), L"7");
            way();
        });
        const SYSTEMTIME start = DateTime(Stored(id, kPropStart).GetFileTime()).ToSystemTime();
        EXPECT_TRUE((start.wMonth == 7 && start.wDay == 14) || (start.wMonth == 3 && start.wDay == 7)) << label;
        EXPECT_EQ(start.wHour, 15) << label;
    }
}

// ---- The screen turns ----

TEST_F(TypedTextTest, TurningTheScreenKeepsAnOpenEditorAndItsFocus) {
    for (const WORD field : {kFieldSubject, kFieldDuration, kFieldCompany}) {
        const CEOID id = Edit(0, field, [&] {
            const HWND edit = field == kFieldCompany ? Editor() : EditOf(Editor());
            Retype(edit, L"90");
            Rotate();
            EXPECT_EQ(TextOf(Editor()), L"90");
            EXPECT_TRUE(IsWindowVisible(Editor())) << field;
            EXPECT_TRUE(IsFocusIn(Editor())) << field;
        });
        EXPECT_NE(id, 0u) << field;
    }
}

TEST_F(TypedTextTest, TurningTheScreenKeepsTheNote) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        Paste(Body(), L"Dear diary");
        Rotate();
        EXPECT_EQ(TextOf(Body()), L"Dear diary");
        RECT body = {};
        GetWindowRect(Body(), &body);
        RECT tabs = {};
        GetWindowRect(Item(IDC_EDITOR_TABS), &tabs);
        EXPECT_EQ(body.bottom, tabs.top);
    });
    EXPECT_EQ(StoredBody(id), L"Dear diary");
}

TEST_F(TypedTextTest, OnALowScreenTheRowThatIsEditedStaysInView) {
    Edit(0, kFieldCompany, [&] {
        SetWindowPos(Screen(), nullptr, 0, 0, Px(300), Px(190), SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_TRUE(IsWindowVisible(Editor()));
        EXPECT_EQ(GetFocus(), Editor());
    });
}

// ---- The rows are scrolled ----

class ScrolledRowTest : public TypedTextTest {
protected:
    // So low that the rows need a scroll bar.
    void Lower() const { SetWindowPos(Screen(), nullptr, 0, 0, Px(300), Px(190), SWP_NOMOVE | SWP_NOZORDER); }
    void Scroll(WORD how) const { SendMessageW(List(), WM_VSCROLL, how, 0); }
    // Whether the open editor stands within its row.
    bool IsInItsRow() const {
        RECT row = {};
        ListView_GetItemRect(List(), SelectedRow(), &row, LVIR_BOUNDS);
        MapWindowPoints(List(), nullptr, reinterpret_cast<POINT*>(&row), 2);
        RECT editor = {};
        GetWindowRect(Editor(), &editor);
        return IsWindowVisible(Editor()) && editor.top >= row.top && editor.bottom <= row.bottom;
    }
};

TEST_F(ScrolledRowTest, ScrolledAwayByTheBarItGivesTheKeysToTheListAndKeepsWhatWasTyped) {
    const CEOID id = Edit(0, [&] {
        Lower();
        Retype(EditOf(Editor()), L"Typed");
        Scroll(SB_PAGEDOWN);
        EXPECT_FALSE(IsWindowVisible(Editor()));
        EXPECT_EQ(GetFocus(), List());
        Scroll(SB_PAGEUP);
        EXPECT_TRUE(IsInItsRow());
        EXPECT_EQ(TextOf(Editor()), L"Typed");
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}

TEST_F(ScrolledRowTest, TheEditorFollowsItsRow) {
    Edit(0, kFieldStart, [&] {
        Lower();
        ASSERT_TRUE(IsInItsRow());
        Scroll(SB_LINEDOWN);
        EXPECT_GT(ListView_GetTopIndex(List()), 0);
        EXPECT_TRUE(IsInItsRow());
    });
}

TEST_F(ScrolledRowTest, TheWheelScrollsTheRowsFromAnOpenEditor) {
    const CEOID id = Edit(0, kFieldCompany, [&] {
        Lower();
        const int top = ListView_GetTopIndex(List());
        ASSERT_GT(top, 0);
        Retype(Editor(), L"Talvern");
        SendMessageW(Editor(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
        EXPECT_LT(ListView_GetTopIndex(List()), top);
        EXPECT_TRUE(!IsWindowVisible(Editor()) || IsInItsRow());
        SendMessageW(Editor(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA), 0);
    });
    EXPECT_EQ(StoredText(id, kPropCompany), L"Talvern");
}

TEST_F(ScrolledRowTest, TheWheelChangesNoValue) {
    WriteOption(L"scount", 1);
    application_.WriteString(L"Options", L"subj0", L"Quick");
    for (const WORD field : {kFieldSubject, kFieldEntryType, kFieldStart, kFieldDuration}) {
        std::wstring before;
        Edit(0, field, [&] {
            before = TextOf(Editor());
            for (const short delta : {short{WHEEL_DELTA}, short{-WHEEL_DELTA}, short{-WHEEL_DELTA}})
                SendMessageW(GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
            EXPECT_EQ(TextOf(Editor()), before) << field;
        });
    }
}

TEST_F(ScrolledRowTest, WhoGoesThroughTheRowsByKeysHasEachEditorInItsRow) {
    Edit(0, [&] {
        Lower();
        SetFocus(List());
        for (int row = 1; row <= 6; ++row) {
            Press(List(), VK_DOWN);
            PumpOnce();
            ASSERT_EQ(SelectedRow(), row);
            EXPECT_TRUE(IsInItsRow()) << row;
        }
        EXPECT_GT(ListView_GetTopIndex(List()), 0);
    });
}

// ---- Settings that somebody else wrote ----

TEST_F(TypedTextTest, GarbageForTheZoomOpensTheNearestZoomThereIs) {
    for (const auto& [stored, zoom] : {std::pair{0, 75}, {-1, 75}, {74, 75}, {301, 300}, {0x7FFFFFFF, 300}}) {
        WriteOption(L"iZoom", stored);
        Edit(0, [&, want = zoom] {
            GoToNote();
            EXPECT_EQ(SendMessageW(Body(), EM_GETZOOMPERCENT, 0, 0), want);
            EXPECT_TRUE(IsZoomChecked(0));
        });
    }
}

TEST_F(TypedTextTest, GarbageForTheViewOpensTheTypingView) {
    for (const int stored : {-1, 1, 2, 4, 0x7FFFFFFF}) {
        WriteOption(L"iView", stored);
        Edit(0, [&] {
            GoToNote();
            EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 0);
            EXPECT_FALSE(SendMessageW(SHFindMenuBar(Screen()), TB_ISBUTTONCHECKED, IDM_VIEW_MODE, 0));
        });
    }
}

TEST_F(TypedTextTest, TextsForZoomAndViewAreTakenForMissingWithoutAWord) {
    application_.WriteString(L"Options", L"iZoom", L"garbage");
    application_.WriteString(L"Options", L"iView", L"garbage");
    Edit(0, [&] {
        GoToNote();
        EXPECT_EQ(SendMessageW(Body(), EM_GETZOOMPERCENT, 0, 0), 100);
        EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 0);
        EXPECT_TRUE(IsZoomChecked(1));
        GoToEntry();
        EXPECT_TRUE(boxes_.Seen().empty());
    });
}

// ---- Pages ----

TEST_F(TypedTextTest, BodyCommandsOnTheEntryPageDoNothing) {
    EXPECT_EQ(Edit(0,
                   [&] {
                       Command(IDM_TIME_STAMP);
                       Command(IDM_ZOOM_200);
                       EXPECT_EQ(TextOf(Body()), L"");
                   }),
              0u);
    EXPECT_EQ(ReadOption(L"iZoom", -1), -1);
}

TEST_F(TypedTextTest, WhoWalksAlongTheTabsStaysThere) {
    Edit(0, [&] {
        SetFocus(Item(IDC_EDITOR_TABS));
        Press(Item(IDC_EDITOR_TABS), VK_RIGHT);
        EXPECT_TRUE(IsWindowVisible(Body()));
        EXPECT_EQ(GetFocus(), Item(IDC_EDITOR_TABS));
        Press(Item(IDC_EDITOR_TABS), VK_LEFT);
        EXPECT_TRUE(IsWindowVisible(List()));
        EXPECT_EQ(GetFocus(), Item(IDC_EDITOR_TABS));
    });
}

TEST_F(TypedTextTest, TabLeavesTheNote) {
    Edit(0, [&] {
        GoToNote();
        MSG key = {};
        key.hwnd = Body();
        key.message = WM_KEYDOWN;
        key.wParam = VK_TAB;
        IsDialogMessageW(Screen(), &key);
        EXPECT_EQ(GetFocus(), Item(IDC_EDITOR_TABS));
        EXPECT_EQ(TextOf(Body()), L"");
    });
}
