#include "ui/rich_ink.h"

#include <gtest/gtest.h>

#include "tests/ui/test_windows.h"

namespace {

class RichInkTest : public testing::Test {
protected:
    RichInkTest() {
        InitRichInkDLL();
        ink_.CreateIn(parent_.Handle(), 77, WS_VISIBLE | WS_VSCROLL | ES_MULTILINE, {0, 0, 200, 120});
    }

    static std::vector<BYTE> Bytes(const std::string& text) { return {text.begin(), text.end()}; }

    RecordingWindow parent_;
    RichInk ink_;
};

}  // namespace

TEST_F(RichInkTest, StreamsRichTextInAndPlainTextOut) {
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, Bytes("{\\rtf1\\ansi Phone \\b call\\b0 }")));
    EXPECT_EQ(ink_.StreamOutText(), L"Phone call");
    EXPECT_FALSE(ink_.IsModified());
}

TEST_F(RichInkTest, RichTextComesBackThroughItsStream) {
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, Bytes("{\\rtf1\\ansi one\\par two}")));
    const std::vector<BYTE> saved = ink_.StreamOut(SF_RTF);
    EXPECT_FALSE(saved.empty());
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, {}));
    EXPECT_EQ(ink_.StreamOutText(), L"");
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, saved));
    EXPECT_EQ(ink_.StreamOutText(), L"one\r\ntwo");
}

TEST_F(RichInkTest, AStreamOfManyPiecesArrivesWhole) {
    // The control asks for a few thousand bytes at a time.
    // In lines: the layout of one long line takes seconds.
    std::string stream = "{\\rtf1\\ansi first";
    std::wstring text = L"first";
    for (int i = 0; i < 1'500; ++i) {
        stream += "\\par line";
        text += L"\r\nline";
    }
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, Bytes(stream + "}")));
    EXPECT_EQ(ink_.StreamOutText(), text);
}

TEST_F(RichInkTest, WhatIsNoRichTextIsRefused) {
    ASSERT_TRUE(ink_.StreamIn(SF_RTF, Bytes("{\\rtf1\\ansi before}")));
    EXPECT_FALSE(ink_.StreamIn(SF_RTF, Bytes("plain")));
    EXPECT_EQ(ink_.StreamOutText(), L"");
}

TEST_F(RichInkTest, EditsAndTakesEditsBack) {
    EXPECT_FALSE(ink_.CanUndo());
    ink_.ReplaceSelection(L"Hello", true);
    EXPECT_TRUE(ink_.IsModified());
    EXPECT_TRUE(ink_.CanUndo());
    ink_.Undo();
    EXPECT_EQ(ink_.StreamOutText(), L"");
    EXPECT_TRUE(ink_.CanRedo());
    ink_.Redo();
    EXPECT_EQ(ink_.StreamOutText(), L"Hello");
    EXPECT_FALSE(ink_.CanRedo());
    ink_.SetModified(false);
    EXPECT_FALSE(ink_.IsModified());
}

TEST_F(RichInkTest, SelectsCutsAndPastes) {
    ink_.ReplaceSelection(L"one two", true);
    ink_.SetSelection(0, 4);
    int first = -1;
    int last = -1;
    ink_.GetSelection(&first, &last);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(last, 4);
    ink_.Cut();
    EXPECT_EQ(ink_.StreamOutText(), L"two");
    ink_.SetSelection(3, 3);
    EXPECT_TRUE(ink_.CanPaste());
    ink_.Paste();
    EXPECT_EQ(ink_.StreamOutText(), L"twoone ");
    ink_.SetSelection(0, 3);
    ink_.Copy();
    ink_.ReplaceSelection(L"", true);
    ink_.Paste();
    EXPECT_EQ(ink_.StreamOutText(), L"twoone ");
}

TEST_F(RichInkTest, ZoomAndViewAreKept) {
    EXPECT_EQ(ink_.GetView(), static_cast<UINT>(VT_TYPINGVIEW));
    ink_.SetView(VT_DRAWINGVIEW);
    EXPECT_EQ(ink_.GetView(), static_cast<UINT>(VT_DRAWINGVIEW));
    ink_.SetZoom(150);
    EXPECT_EQ(ink_.GetZoom(), 150);
    ink_.SetZoom(20);
    EXPECT_EQ(ink_.GetZoom(), 75);
}

TEST_F(RichInkTest, AReadOnlyControlTakesNoTyping) {
    ink_.SetReadOnly(true);
    ink_.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(ink_.StreamOutText(), L"");
    ink_.SetReadOnly(false);
    ink_.SendMessage(WM_CHAR, L'a');
    EXPECT_EQ(ink_.StreamOutText(), L"a");
}
