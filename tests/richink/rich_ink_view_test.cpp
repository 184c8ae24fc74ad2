#include "tests/richink/rich_ink_fixture.h"

using RichInkViewTest = RichInkTest;

TEST_F(RichInkViewTest, ZoomIsHeldBetween75And300Percent) {
    EXPECT_EQ(Send(EM_GETZOOMPERCENT), 100);
    for (const auto& [asked, got] :
         {std::pair{75, 75}, {125, 125}, {300, 300}, {74, 75}, {0, 75}, {301, 300}, {-5, 75}, {0x7FFFFFFF, 300}}) {
        Send(EM_SETZOOMPERCENT, 0, asked);
        EXPECT_EQ(Send(EM_GETZOOMPERCENT), got) << asked;
    }
}

TEST_F(RichInkViewTest, ZoomEnlargesTheTextOfEveryLine) {
    LoadText(L"WWWWWW\r\nWWWWWW");
    const auto width = [&] {
        POINTL first{}, second{};
        Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&first), 3);
        Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&second), 7 + 3);
        EXPECT_EQ(first.x, second.x);
        EXPECT_LT(first.y, second.y);
        return first.x;
    };
    const auto paint = [&] { RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW); };
    paint();
    const LONG before = width();
    Send(EM_SETZOOMPERCENT, 0, 200);
    paint();
    EXPECT_GT(width(), before * 3 / 2);
    Send(EM_SETZOOMPERCENT, 0, 100);
    paint();
    EXPECT_EQ(width(), before);
}

TEST_F(RichInkViewTest, ZoomEnlargesTypedText) {
    const auto width = [&](int at) {
        POINTL place{};
        Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), at);
        return place.x;
    };
    const auto paint = [&] { RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW); };
    Write(L"Anna");
    Send(WM_KEYDOWN, VK_RETURN, 1);
    Send(WM_CHAR, L'\r', 1);
    Write(L"Anna");
    paint();
    const LONG before = width(4);
    for (int percent : {200, 100, 300, 75, 100}) {
        Send(EM_SETZOOMPERCENT, 0, percent);
        paint();
        EXPECT_NEAR(width(4), before * percent / 100, before / 5) << percent;
        EXPECT_NEAR(width(9), before * percent / 100, before / 5) << percent;
    }
}

TEST_F(RichInkViewTest, ZoomEnlargesTextTypedLaterAndTextBroughtBack) {
    const auto width = [&] {
        POINTL place{};
        Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), 4);
        return place.x;
    };
    const auto paint = [&] { RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW); };
    Write(L"Anna");
    paint();
    const LONG before = width();
    SelectAll();
    Send(WM_CLEAR);
    Send(EM_SETZOOMPERCENT, 0, 200);
    paint();
    Write(L"Anna");
    EXPECT_NEAR(width(), before * 2, before / 4);
    while (CanUndo())
        Send(EM_UNDOEVENT);
    while (CanRedo() && Text() != L"Anna")
        Send(EM_REDOEVENT);
    paint();
    EXPECT_EQ(Text(), L"Anna");
    EXPECT_NEAR(width(), before * 2, before / 4);
}

TEST_F(RichInkViewTest, ZoomKeepsFormatsSelectionAndWhatCanBeUndone) {
    Load(kRtf, R"({\rtf1{\fonttbl{\f0 Tahoma;}{\f1 Courier New;}}\f0 plain {\b bold} {\f1\fs40 large}})");
    Replace(L"typed ");
    Send(EM_SETSEL, 2, 4);
    const std::string before = Save(kRtf);
    Send(EM_SETZOOMPERCENT, 0, 200);
    EXPECT_EQ(Save(kRtf), before);
    DWORD start = 0, end = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 2u);
    EXPECT_EQ(end, 4u);
    EXPECT_TRUE(IsModified());
    EXPECT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), L"plain bold large");
    EXPECT_FALSE(CanUndo());
}

TEST_F(RichInkViewTest, ZoomAndViewAreNoChange) {
    LoadText(L"text");
    Forget();
    Send(EM_SETZOOMPERCENT, 0, 200);
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    EXPECT_FALSE(IsModified());
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(Count(EN_CHANGE), 0);
}

TEST_F(RichInkViewTest, LoadingKeepsZoomAndView) {
    Send(EM_SETZOOMPERCENT, 0, 150);
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    Load(kRtf, "{\\rtf1\\viewscale300 x}");
    EXPECT_EQ(Send(EM_GETZOOMPERCENT), 150);
    EXPECT_EQ(Send(EM_GETVIEW), 3);
}

TEST_F(RichInkViewTest, TheViewIsTypingWritingOrDrawing) {
    EXPECT_EQ(Send(EM_GETVIEW), 0);
    for (const int view : {3, 2, 0}) {
        Send(EM_SETVIEW, view);
        EXPECT_EQ(Send(EM_GETVIEW), view);
    }
    for (const int view : {1, 4, -1}) {
        Send(EM_SETVIEW, view);
        EXPECT_EQ(Send(EM_GETVIEW), 0);
    }
}

TEST_F(RichInkViewTest, TheDrawingViewLosesNothing) {
    Load(kRtf, "{\\rtf1 plain \\b bold}");
    const std::string before = Save(kRtf);
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    EXPECT_EQ(Save(kRtf), before);
    Write(L"x");
    EXPECT_EQ(Text(), L"xplain bold");
    Send(EM_SETVIEW, VT_TYPINGVIEW);
    EXPECT_EQ(Text(), L"xplain bold");
}

TEST_F(RichInkViewTest, AttributesSetWhatTheirMaskNames) {
    VIEWATTRIBUTES attributes{VIEWATTRIBUTES_ZOOM, VT_DRAWINGVIEW, 200, 0, 0, FALSE};
    Send(EM_SETVIEWATTRIBUTES, 0, reinterpret_cast<LPARAM>(&attributes));
    EXPECT_EQ(Send(EM_GETZOOMPERCENT), 200);
    EXPECT_EQ(Send(EM_GETVIEW), 0);
    attributes.mask = VIEWATTRIBUTES_VIEW | VIEWATTRIBUTES_PAGESTYLE | VIEWATTRIBUTES_INKLAYER;
    attributes.uZoom = 75;
    attributes.uPageStyle = PS_GRIDLINES;
    attributes.uInkLayer = VL_DRAWINGINK;
    Send(EM_SETVIEWATTRIBUTES, 0, reinterpret_cast<LPARAM>(&attributes));
    EXPECT_EQ(Send(EM_GETZOOMPERCENT), 200);
    EXPECT_EQ(Send(EM_GETVIEW), 3);
    EXPECT_EQ(Send(EM_GETPAGESTYLE), PS_GRIDLINES);
    EXPECT_EQ(Send(EM_SETINKLAYER, VL_SMARTINK), VL_DRAWINGINK);
    Send(EM_SETVIEWATTRIBUTES, 0, 0);
}

TEST_F(RichInkViewTest, UndoAndRedoStepBackAndForth) {
    EXPECT_EQ(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Send(EM_REDOEVENT), 0);
    Replace(L"abc");
    EXPECT_TRUE(CanUndo());
    EXPECT_FALSE(CanRedo());
    EXPECT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), L"");
    EXPECT_TRUE(CanRedo());
    EXPECT_NE(Send(EM_REDOEVENT), 0);
    EXPECT_EQ(Text(), L"abc");
}

TEST_F(RichInkViewTest, UndoIsAChange) {
    Replace(L"abc");
    Send(EM_SETMODIFY, FALSE);
    Forget();
    Send(EM_UNDOEVENT);
    EXPECT_GE(Count(EN_CHANGE), 1);
    EXPECT_TRUE(IsModified());
}

TEST_F(RichInkViewTest, TextOnTheClipboardCanBePasted) {
    PutOnClipboard(L"text");
    EXPECT_NE(Send(EM_CANPASTE), 0);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(Send(EM_CANPASTE), 0);
}

TEST_F(RichInkViewTest, NumbersThatMeanSomethingElseToTheRichEditDoNotReachIt) {
    LoadText(L"some text");
    for (UINT message = WM_USER + 101; message < WM_USER + 400; ++message) {
        if (message == EM_CLEARALL) continue;
        Send(message, 1, 0);
    }
    EXPECT_EQ(Text(), L"some text");
    LoadText(L"more");
    Write(L"x");
    EXPECT_EQ(Text(), L"xmore");
}

TEST_F(RichInkViewTest, KeepsReturnForItselfInADialog) {
    EXPECT_NE(GetWindowLongW(Ink(), GWL_STYLE) & ES_MULTILINE, 0);
    EXPECT_NE(GetWindowLongW(Ink(), GWL_STYLE) & ES_WANTRETURN, 0);
    MSG key{};
    key.hwnd = Ink();
    key.message = WM_KEYDOWN;
    key.wParam = VK_RETURN;
    if (!IsDialogMessageW(Parent(), &key)) DispatchMessageW(&key);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(Text(), L"\n");
}
