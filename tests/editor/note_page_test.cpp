// The "Note" page: the body, its commands, stamps, zoom and view.
#include <gtest/gtest.h>

#include <aygshell.h>
#include <richink.h>

#include "editor/note_body.h"
#include "res/ids.h"
#include "tests/editor/editor_screen.h"
#include "tests/support/letters.h"
#include "text/date_time.h"

namespace {

std::string Rtf(const std::string& text) {
    return "{\\rtf1\\ansi " + text + "}";
}

}  // namespace

class NotePageTest : public EditorScreen {
protected:
    CEOID AddBody(const std::string& stream) {
        return AddEntry([&](TSList<DbJItem>& fields) {
            std::vector<BYTE> bytes(stream.begin(), stream.end());
            const CEBLOB blob = {static_cast<DWORD>(bytes.size()), bytes.data()};
            FindFieldByPropID(fields, kPropBody)->SetBlob(&blob);
        });
    }
    std::string StoredStream(CEOID id) {
        const DbJItem body = Stored(id, kPropBody);
        return std::string(reinterpret_cast<const char*>(body.GetBlob()->lpb), body.GetBlob()->dwCount);
    }
    std::wstring BodyText() const { return TextOf(Body()); }
    void TypeBody(const std::wstring& text) const {
        SendMessageW(Body(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
};

TEST_F(NotePageTest, ShowsTheBodyAndTheRowItsText) {
    Edit(AddBody(Rtf("Dear\\par diary")), [&] {
        EXPECT_EQ(RowText(kFieldBody), L"Dear diary");
        GoToNote();
        EXPECT_TRUE(IsWindowVisible(Body()));
        EXPECT_EQ(BodyText(), L"Dear\r\ndiary");
    });
}

TEST_F(NotePageTest, LookingChangesNothing) {
    const std::string stream = Rtf("Dear diary");
    const CEOID id = AddBody(stream);
    Edit(id, [&] {
        GoToNote();
        GoToEntry();
        GoToNote();
    });
    EXPECT_EQ(StoredStream(id), stream);
}

TEST_F(NotePageTest, OkOnALookedAtNoteWritesNothing) {
    const CEOID id = AddBody(Rtf("Dear diary"));
    Edit(id, [&] {
        GoToNote();
        journal_.DeleteRecord(id);  // a write would bring it back
    });
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(NotePageTest, WhatIsTypedAndUndoneIsNoChange) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        TypeBody(L"Dear diary");
    });
    Edit(id, [&] {
        GoToNote();
        TypeBody(L"My ");
        EXPECT_EQ(BodyText(), L"My Dear diary");
        Command(IDM_UNDO);
        EXPECT_EQ(BodyText(), L"Dear diary");
        journal_.DeleteRecord(id);
    });
    EXPECT_EQ(journal_.GetRecordCount(), 0);
}

TEST_F(NotePageTest, AChangeOfPagesLeavesWhatCanBeUndone) {
    Edit(AddBody(Rtf("diary")), [&] {
        GoToNote();
        TypeBody(L"Dear ");
        GoToEntry();
        GoToNote();
        EXPECT_EQ(BodyText(), L"Dear diary");
        Command(IDM_UNDO);
        EXPECT_EQ(BodyText(), L"diary");
    });
}

TEST_F(NotePageTest, AStrokeThatIsStillBeingDrawnIsSaved) {
    WriteOption(L"iView", VT_DRAWINGVIEW);
    for (const bool changesPage : {false, true}) {
        const CEOID id = Edit(0, [&] {
            GoToNote();
            SendMessageW(Body(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 60));
            SendMessageW(Body(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 80));
            if (changesPage) GoToEntry();
        });
        ASSERT_NE(id, 0u);
        EXPECT_NE(StoredStream(id).find("\\pict"), std::string::npos);
    }
}

TEST_F(NotePageTest, WhatIsWrittenIsSavedFromTheNotePage) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        TypeBody(L"Dear diary");
    });
    ASSERT_NE(id, 0u);
    EXPECT_EQ(StoredBody(id), L"Dear diary");
}

TEST_F(NotePageTest, WhatIsWrittenIsSavedFromTheEntryPage) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        TypeBody(L"Dear diary");
        GoToEntry();
        EXPECT_EQ(RowText(kFieldBody), L"Dear diary");
    });
    EXPECT_EQ(StoredBody(id), L"Dear diary");
}

TEST_F(NotePageTest, SwitchingPagesKeepsTheText) {
    Edit(0, [&] {
        GoToNote();
        TypeBody(L"one");
        GoToEntry();
        GoToNote();
        EXPECT_EQ(BodyText(), L"one");
    });
}

TEST_F(NotePageTest, SwitchingPagesTakesWhatAnEditorHolds) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Typed");
        GoToNote();
        EXPECT_EQ(Editor(), nullptr);
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}

TEST_F(NotePageTest, AnEmptiedBodyIsClearedInTheEntry) {
    const CEOID id = AddBody(Rtf("Dear diary"));
    Edit(id, [&] {
        GoToNote();
        Command(IDM_SELECT_ALL);
        SendMessageW(Body(), WM_CLEAR, 0, 0);
        ASSERT_EQ(BodyText(), L"");
    });
    EXPECT_EQ(StoredStream(id), "");
}

TEST_F(NotePageTest, ABodyThatIsNoRichTextIsLeftAlone) {
    const std::string garbage = "\x01\x02 no rich text at all {{{{";
    const CEOID id = AddBody(garbage);
    Edit(id, [&] {
        EXPECT_EQ(RowText(kFieldBody), L"None");
        Retype(EditOf(Editor()), L"Subject");
        GoToNote();
    });
    EXPECT_EQ(StoredStream(id), garbage);
    EXPECT_EQ(StoredText(id, kPropSubject), L"Subject");
}

TEST_F(NotePageTest, ABodyCutAtAnyLengthOpens) {
    const std::string whole = Rtf("{\\b bold} and \\u233? more\\par end");
    for (size_t length = 1; length < whole.size(); length += 3) {
        const CEOID id = AddBody(whole.substr(0, length));
        Edit(id, [&] { GoToNote(); });
        EXPECT_EQ(StoredStream(id), whole.substr(0, length));
    }
}

TEST_F(NotePageTest, ABodyOfFiveMegabytesOpensAndIsKept) {
    std::string text;
    while (text.size() < 5'000'000)
        text += "All work and no play makes a dull journal indeed.\\par ";
    const CEOID id = AddBody(Rtf(text));
    Edit(id, [&] { GoToNote(); });
    EXPECT_EQ(StoredStream(id).size(), Rtf(text).size());
}

// ---- Stamps ----

TEST_F(NotePageTest, ATimeStampInAnEmptyBodyHasNoLineBreak) {
    Edit(0, [&] {
        GoToNote();
        const std::wstring before = TimeStamp();
        Command(IDM_TIME_STAMP);
        EXPECT_TRUE(BodyText() == before + L" - " || BodyText() == TimeStamp() + L" - ");
        EXPECT_EQ(GetFocus(), Body());
    });
}

TEST_F(NotePageTest, ATimeStampStartsANewLineAtTheEndWhereverTheCaretIs) {
    Edit(AddBody(Rtf("Dear diary")), [&] {
        GoToNote();
        SendMessageW(Body(), EM_SETSEL, 0, 4);
        const std::wstring before = TimeStamp();
        Command(IDM_TIME_STAMP);
        const std::wstring head = L"Dear diary\r\n";
        EXPECT_TRUE(BodyText() == head + before + L" - " || BodyText() == head + TimeStamp() + L" - ");
    });
}

TEST_F(NotePageTest, ADateStampCarriesDateAndTime) {
    Edit(0, [&] {
        GoToNote();
        const std::wstring before = DateTimeStamp();
        Command(IDM_DATE_STAMP);
        EXPECT_TRUE(BodyText() == before + L" - " || BodyText() == DateTimeStamp() + L" - ");
    });
}

TEST_F(NotePageTest, AStampCanBeUndoneAndRedone) {
    Edit(0, [&] {
        GoToNote();
        Command(IDM_TIME_STAMP);
        const std::wstring stamped = BodyText();
        Command(IDM_UNDO);
        EXPECT_EQ(BodyText(), L"");
        Command(IDM_REDO);
        EXPECT_EQ(BodyText(), stamped);
    });
}

TEST_F(NotePageTest, AStampIsSaved) {
    const CEOID id = Edit(0, [&] {
        GoToNote();
        Command(IDM_TIME_STAMP);
    });
    EXPECT_NE(StoredBody(id).find(L" - "), std::wstring::npos);
}

// As many as a note takes; the control's own tests have them all.
TEST_F(NotePageTest, LettersSurviveFiveTimesOpeningChangingAndOk) {
    const std::wstring letters = AllLetters(64, L"\r\n").substr(0, 30'000) + L"e\u0301 \U0001F600";
    CEOID id = Edit(0, [&] {
        GoToNote();
        TypeBody(letters);
    });
    for (int time = 0; time < 5; ++time) {
        id = Edit(id, [&] {
            GoToNote();
            TypeBody(L"x");
        });
    }
    EXPECT_TRUE(StoredBody(id) == L"xxxxx" + letters);
}

// ---- Commands ----

TEST_F(NotePageTest, CutCopyAndPasteWorkOnTheSelection) {
    Edit(AddBody(Rtf("Dear diary")), [&] {
        GoToNote();
        SendMessageW(Body(), EM_SETSEL, 0, 5);
        Command(IDM_CUT);
        EXPECT_EQ(BodyText(), L"diary");
        SendMessageW(Body(), EM_SETSEL, 5, 5);
        Command(IDM_PASTE);
        EXPECT_EQ(BodyText(), L"diaryDear ");
        Command(IDM_SELECT_ALL);
        DWORD first = 9, last = 0;
        SendMessageW(Body(), EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
        EXPECT_EQ(first, 0u);
        EXPECT_GE(last, 10u);
        EXPECT_EQ(GetFocus(), Body());
    });
}

TEST_F(NotePageTest, UndoAndRedoWithNothingToDoDoNothing) {
    const std::string stream = Rtf("Dear diary");
    const CEOID id = AddBody(stream);
    Edit(id, [&] {
        GoToNote();
        Command(IDM_UNDO);
        Command(IDM_REDO);
        Command(IDM_CUT);
        EXPECT_EQ(BodyText(), L"Dear diary");
    });
    EXPECT_EQ(StoredStream(id), stream);
}

TEST_F(NotePageTest, TheEditMenuOffersWhatCanBeDone) {
    Edit(0, [&] {
        GoToNote();
        const HMENU menu = SHGetSubMenu(SHFindMenuBar(Screen()), IDM_EDIT_MENU);
        ASSERT_NE(menu, nullptr);
        const auto offered = [&](UINT command) {
            SendMessageW(Screen(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
            return (GetMenuState(menu, command, MF_BYCOMMAND) & MF_GRAYED) == 0;
        };
        EXPECT_FALSE(offered(IDM_UNDO));
        EXPECT_FALSE(offered(IDM_REDO));
        EXPECT_FALSE(offered(IDM_CUT));
        EXPECT_FALSE(offered(IDM_SELECT_ALL));
        TypeBody(L"text");
        EXPECT_TRUE(offered(IDM_UNDO));
        EXPECT_TRUE(offered(IDM_SELECT_ALL));
        Command(IDM_SELECT_ALL);
        EXPECT_TRUE(offered(IDM_CUT));
        EXPECT_TRUE(offered(IDM_COPY));
        Command(IDM_COPY);
        EXPECT_TRUE(offered(IDM_PASTE));
    });
}

TEST_F(NotePageTest, AtTheLimitSaysSoAndKeepsTheText) {
    boxes_.Expect(L"Maximum Reached", L"You have reached the limit of characters permitted for this Entry.");
    Edit(0, [&] {
        GoToNote();
        SendMessageW(Body(), EM_SETLIMITTEXT, 4, 0);
        Type(Body(), L"abcd");
        Type(Body(), L"e");
        EXPECT_EQ(BodyText(), L"abcd");
    });
    ASSERT_EQ(boxes_.Seen().size(), 1u);
    EXPECT_EQ(boxes_.Seen()[0].icon, static_cast<UINT>(MB_ICONEXCLAMATION));
}

// ---- Zoom and view ----

struct ZoomCase {
    const char* label;
    int stored;  // -1: nothing
    int zoom;
    int item;
};

class ZoomTest : public NotePageTest, public testing::WithParamInterface<ZoomCase> {};

TEST_P(ZoomTest, OpensAsStored) {
    if (GetParam().stored >= 0) WriteOption(L"iZoom", GetParam().stored);
    Edit(0, [&] {
        GoToNote();
        EXPECT_EQ(SendMessageW(Body(), EM_GETZOOMPERCENT, 0, 0), GetParam().zoom);
        for (int item = 0; item < 5; ++item)
            EXPECT_EQ(IsZoomChecked(item), item == GetParam().item) << item;
    });
}

INSTANTIATE_TEST_SUITE_P(All, ZoomTest,
                         testing::Values(ZoomCase{"Nothing", -1, 100, 1}, ZoomCase{"Smallest", 75, 75, 0},
                                         ZoomCase{"Plain", 100, 100, 1}, ZoomCase{"OddOne", 125, 125, 0},
                                         ZoomCase{"Half", 150, 150, 2}, ZoomCase{"Double", 200, 200, 3},
                                         ZoomCase{"Largest", 300, 300, 4}),
                         [](const auto& row) { return row.param.label; });

TEST_F(NotePageTest, AZoomCommandIsAppliedCheckedAndStored) {
    Edit(0, [&] {
        GoToNote();
        Command(IDM_ZOOM_200);
        EXPECT_EQ(SendMessageW(Body(), EM_GETZOOMPERCENT, 0, 0), 200);
        EXPECT_TRUE(IsZoomChecked(3));
        EXPECT_FALSE(IsZoomChecked(1));
        Command(IDM_ZOOM_75);
        EXPECT_TRUE(IsZoomChecked(0));
        EXPECT_FALSE(IsZoomChecked(3));
    });
    EXPECT_EQ(ReadOption(L"iZoom", 0), 75);
}

TEST_F(NotePageTest, ZoomingIsNoChange) {
    EXPECT_EQ(Edit(0,
                   [&] {
                       GoToNote();
                       Command(IDM_ZOOM_150);
                   }),
              0u);
}

TEST_F(NotePageTest, TheStoredViewIsAppliedAndShownByTheButton) {
    WriteOption(L"iView", 3);
    Edit(0, [&] {
        GoToNote();
        EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 3);
        EXPECT_TRUE(SendMessageW(SHFindMenuBar(Screen()), TB_ISBUTTONCHECKED, IDM_VIEW_MODE, 0));
    });
}

TEST_F(NotePageTest, TheViewButtonChangesAndStoresTheView) {
    Edit(0, [&] {
        GoToNote();
        const HWND bar = SHFindMenuBar(Screen());
        EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 0);
        SendMessageW(bar, TB_CHECKBUTTON, IDM_VIEW_MODE, TRUE);
        Command(IDM_VIEW_MODE);
        EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 3);
        EXPECT_EQ(ReadOption(L"iView", 0), 3);
        SendMessageW(bar, TB_CHECKBUTTON, IDM_VIEW_MODE, FALSE);
        Command(IDM_VIEW_MODE);
        EXPECT_EQ(SendMessageW(Body(), EM_GETVIEW, 0, 0), 0);
    });
    EXPECT_EQ(ReadOption(L"iView", 3), 0);
}

TEST_F(NotePageTest, EachPageHasItsMenuBar) {
    Edit(0, [&] {
        EXPECT_EQ(SHGetSubMenu(SHFindMenuBar(Screen()), IDM_EDIT_MENU), nullptr);
        GoToNote();
        EXPECT_NE(SHGetSubMenu(SHFindMenuBar(Screen()), IDM_EDIT_MENU), nullptr);
        GoToEntry();
        EXPECT_EQ(SHGetSubMenu(SHFindMenuBar(Screen()), IDM_EDIT_MENU), nullptr);
    });
}

TEST_F(NotePageTest, ResizingKeepsTheTabStripAtTheBottomAndWhatWasTyped) {
    const CEOID id = Edit(0, [&] {
        Retype(EditOf(Editor()), L"Typed");
        SetWindowPos(Screen(), nullptr, 0, 0, 420, 300, SWP_NOMOVE | SWP_NOZORDER);
        RECT tabs = {};
        GetWindowRect(Item(IDC_EDITOR_TABS), &tabs);
        RECT bar = {};
        GetWindowRect(SHFindMenuBar(Screen()), &bar);
        EXPECT_EQ(tabs.bottom, bar.top);
        EXPECT_TRUE(IsWindowVisible(Editor()));
    });
    EXPECT_EQ(StoredText(id, kPropSubject), L"Typed");
}
