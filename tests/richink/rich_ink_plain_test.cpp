// Notes that would take too long to lay out: shown as plain text, and kept as they are.
#include "tests/richink/rich_ink_fixture.h"

namespace {

std::string Times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

std::string Costly(const std::string& text) {
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 " + text + Times(30'000, "\\b x\\b0 y") + "}";
}

class RichInkPlainTest : public RichInkTest {
protected:
    bool IsPlain() const { return Text().starts_with(L"[Shown as plain text"); }
    LONG Style() const { return GetWindowLongW(Ink(), GWL_STYLE); }
};

}  // namespace

TEST_F(RichInkPlainTest, IsShownAndGivenBackByteForByte) {
    const std::string stream = Costly("first words \\u937? {\\pict\\pngblip 8950}");
    EXPECT_EQ(Load(kRtf, stream), 0u);
    EXPECT_TRUE(IsPlain());
    EXPECT_NE(Text().find(L"first words \u03A9"), std::wstring::npos);
    EXPECT_FALSE(IsModified());
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(Save(kRtf), stream);
    const std::string bytes = Save(kText);
    EXPECT_EQ(bytes.size() / sizeof(wchar_t), 13u + 60'000u + 1 + 1);  // the text, without notice or breaks, and a NUL
    EXPECT_EQ(bytes.substr(0, 4), std::string("f\0i\0", 4));
}

TEST_F(RichInkPlainTest, CannotBeChanged) {
    const std::string stream = Costly("a");
    Load(kRtf, stream);
    const std::wstring shown = Text();
    Forget();
    PutOnClipboard(L"clip");
    Write(L"x\b\r");
    Replace(L"y");
    SelectAll();
    Send(WM_CUT);
    Send(WM_CLEAR);
    Send(WM_PASTE);
    Send(WM_KEYDOWN, VK_DELETE, 1);
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 60));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(90, 70));
    EXPECT_EQ(Text(), shown);
    EXPECT_FALSE(IsModified());
    EXPECT_EQ(Count(EN_CHANGE), 0);
    EXPECT_EQ(Save(kRtf), stream);
}

TEST_F(RichInkPlainTest, TheNextNoteIsAsEver) {
    Load(kRtf, Costly("a"));
    EXPECT_NE(Style() & ES_READONLY, 0);
    Load(kRtf, "{\\rtf1 next}");
    EXPECT_EQ(Style() & ES_READONLY, 0);
    Write(L"x");
    EXPECT_EQ(Text(), L"xnext");
    Load(kRtf, Costly("a"));
    Send(EM_CLEARALL);
    EXPECT_EQ(Text(), L"");
    Write(L"x");
    EXPECT_EQ(Text(), L"x");
}

TEST_F(RichInkPlainTest, AReadOnlyControlStaysOne) {
    Send(EM_SETREADONLY, TRUE);
    Load(kRtf, Costly("a"));
    Load(kRtf, "{\\rtf1 next}");
    EXPECT_NE(Style() & ES_READONLY, 0);
    Load(kRtf, Costly("a"));
    Send(EM_SETREADONLY, FALSE);
    EXPECT_NE(Style() & ES_READONLY, 0);
    Load(kRtf, "{\\rtf1 next}");
    EXPECT_EQ(Style() & ES_READONLY, 0);
}

TEST_F(RichInkPlainTest, FillsTheWindowWhenThatGrows) {
    Load(kRtf, Costly(Times(100, "some words ")));
    const LRESULT narrow = Send(EM_GETLINECOUNT);
    MoveWindow(Ink(), 0, 0, 480, 240, FALSE);
    const LRESULT wide = Send(EM_GETLINECOUNT);
    EXPECT_LT(wide, narrow * 2 / 3);
    Send(EM_SETZOOMPERCENT, 0, 200);
    EXPECT_GT(Send(EM_GETLINECOUNT), wide * 3 / 2);
}

TEST_F(RichInkPlainTest, HiddenItTellsItsTextWithoutShowingIt) {
    ShowWindow(Parent(), SW_HIDE);
    const std::string stream = Costly("hidden ");
    Load(kRtf, stream);
    EXPECT_EQ(Save(kText).substr(0, 4), std::string("h\0i\0", 4));
    EXPECT_EQ(Save(kRtf), stream);
    ShowWindow(Parent(), SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsPlain());
}

// Each took seconds to hours, or the program's end.
TEST_F(RichInkPlainTest, NotesThatHungOpen) {
    const std::string picts = Times(30'000, "{\\pict");
    for (const std::string& text :
         {picts, picts + std::string(30'000, '}'), Times(10'000, "{\\pict ff}"), Times(30'000, "\\u8203?"),
          Times(30'000, "\\u8205?"), Times(30'000, "\\'01"), Times(10'000, "\\u-10179?\\u-8704?"),
          Times(5'000, "\\u1488?a"), Times(10'000, "{\\pict\\pngblip 8950}"),
          "\\trowd" + Times(500, "\\cellx10") + "\\intbl " + Times(500, "a\\cell ") + "\\row "}) {
        SCOPED_TRACE(text.substr(0, 40));
        EXPECT_EQ(Load(kRtf, "{\\rtf1{\\fonttbl{\\f0 Tahoma;}}\\f0 before " + text + "}"), 0u);
        RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_NE(Text().find(L"before"), std::wstring::npos);
    }
}

TEST_F(RichInkPlainTest, ALongTextIsShownInLines) {
    EXPECT_EQ(Load(kRtf, "{\\rtf1{\\fonttbl{\\f0 Tahoma;}}\\f0 " + Times(30'000, "word ") + "}"), 0u);
    EXPECT_TRUE(IsPlain());
    EXPECT_GT(Send(EM_GETLINECOUNT), 1'000);
}
