// The pen in the drawing view, by the messages of the mouse, looked at in the picture on the screen.
#include <cmath>
#include <random>

#include "px.h"
#include "tests/richink/rich_ink_fixture.h"

namespace {

using Picture = std::vector<COLORREF>;

class RichInkDrawingTest : public RichInkTest {
protected:
    RichInkDrawingTest() { Send(EM_SETVIEW, VT_DRAWINGVIEW); }

    static LPARAM At(POINT point) { return MAKELPARAM(point.x, point.y); }
    void Stroke(const std::vector<POINT>& points) const {
        Send(WM_LBUTTONDOWN, MK_LBUTTON, At(points.front()));
        for (const POINT& point : points)
            Send(WM_MOUSEMOVE, MK_LBUTTON, At(point));
        Send(WM_LBUTTONUP, 0, At(points.back()));
    }
    void Paint() const { RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW); }
    // The pixels of the region as they are on the screen.
    Picture Pixels(const RECT& region) const {
        Paint();
        Picture pixels;
        const HDC dc = GetDC(Ink());
        for (LONG y = region.top; y < region.bottom; ++y) {
            for (LONG x = region.left; x < region.right; ++x)
                pixels.push_back(GetPixel(dc, x, y));
        }
        ReleaseDC(Ink(), dc);
        return pixels;
    }
    static int Dark(const Picture& pixels) {
        int dark = 0;
        for (const COLORREF pixel : pixels)
            dark += GetRValue(pixel) < 0x60;
        return dark;
    }
    int DarkIn(const RECT& region) const { return Dark(Pixels(region)); }
    bool HasPicture() const { return Save(kRtf).find("\\pict\\emfblip") != std::string::npos; }
    static int Pictures(const std::string& rtf) {
        int count = 0;
        for (size_t at = rtf.find("\\pict"); at != std::string::npos; at = rtf.find("\\pict", at + 1))
            count += rtf.compare(at, 7, "\\picture") != 0 && !isalpha(static_cast<unsigned char>(rtf[at + 5]));
        return count;
    }
    std::wstring PlainText() const {
        const std::string bytes = Save(kText);
        return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t) - 1};
    }
};

const std::vector<POINT> kLine{{20, 60}, {60, 60}, {100, 60}};
constexpr RECT kAroundLine{15, 50, 105, 70};

}  // namespace

TEST_F(RichInkDrawingTest, AStrokeStaysWhereItWasDrawn) {
    Stroke(kLine);
    EXPECT_TRUE(HasPicture());
    EXPECT_GT(DarkIn({20, 58, 100, 62}), 80);
    EXPECT_EQ(DarkIn({0, 80, 200, 200}), 0);
}

TEST_F(RichInkDrawingTest, AStrokeIsAChangeAndOneStepToUndo) {
    LoadText(L"text");
    Forget();
    Stroke(kLine);
    EXPECT_EQ(Count(EN_CHANGE), 1);
    EXPECT_TRUE(IsModified());
    EXPECT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), L"text");
    EXPECT_FALSE(HasPicture());
    EXPECT_FALSE(CanUndo());
    EXPECT_NE(Send(EM_REDOEVENT), 0);
    EXPECT_TRUE(HasPicture());
    EXPECT_GT(DarkIn(kAroundLine), 80);
}

TEST_F(RichInkDrawingTest, ADotIsAStroke) {
    Stroke({{50, 50}});
    EXPECT_TRUE(HasPicture());
    EXPECT_GT(DarkIn({46, 46, 55, 55}), 0);
}

TEST_F(RichInkDrawingTest, StrokesNearEachOtherMakeOnePictureAndAreUndoneOneByOne) {
    Stroke(kLine);
    Stroke({{60, 40}, {60, 80}});
    Stroke({{30, 120}, {90, 120}});
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
    EXPECT_GT(DarkIn({55, 40, 65, 80}), 40);
    EXPECT_GT(DarkIn({30, 115, 90, 125}), 50);
    Send(EM_UNDOEVENT);
    EXPECT_EQ(DarkIn({30, 115, 90, 125}), 0);
    EXPECT_GT(DarkIn({59, 40, 61, 55}), 10);
    Send(EM_UNDOEVENT);
    EXPECT_EQ(DarkIn({55, 40, 65, 56}), 0);
    EXPECT_GT(DarkIn(kAroundLine), 80);
    Send(EM_UNDOEVENT);
    EXPECT_FALSE(HasPicture());
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(Send(EM_REDOEVENT), 0);
    EXPECT_GT(DarkIn({30, 115, 90, 125}), 50);
}

TEST_F(RichInkDrawingTest, AStrokeOnTextMakesTheTextGiveWay) {
    LoadText(L"first\r\nsecond\r\nthird");
    POINTL second{};
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&second), 6);
    const LONG y = second.y + 5;
    Stroke({{120, y}, {180, y}});
    EXPECT_GT(DarkIn({120, y - 2, 180, y + 3}), 40);
    EXPECT_EQ(PlainText(), L"first\r\n\r\nsecond\r\nthird");
    Send(EM_UNDOEVENT);
    EXPECT_EQ(PlainText(), L"first\r\nsecond\r\nthird");
}

TEST_F(RichInkDrawingTest, InkSurvivesSavingAndLoading) {
    for (const int zoom : {100, 200}) {
        SCOPED_TRACE(zoom);
        LoadText(L"before");
        Send(EM_SETZOOMPERCENT, 0, zoom);
        Stroke({{20, 80}, {40, 60}, {70, 95}, {110, 70}});
        Stroke({{30, 110}, {120, 112}});
        const RECT region{10, 50, 180, 130};  // beside the caret
        const Picture drawn = Pixels(region);
        ASSERT_GT(Dark(drawn), 100);
        const std::string saved = Save(kRtf);
        Load(kRtf, "");
        EXPECT_EQ(DarkIn(region), 0);
        EXPECT_EQ(Load(kRtf, saved), 0u);
        EXPECT_EQ(Pixels(region), drawn);
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        EXPECT_EQ(Pictures(Save(kRtf)), 1);
        EXPECT_EQ(PlainText(), L"before\r\n");
    }
}

TEST_F(RichInkDrawingTest, ManyRoundsKeepTheSameBytes) {
    LoadText(L"one\r\ntwo");
    Stroke(kLine);
    Load(kRtf, Save(kRtf));
    const std::string first = Save(kRtf);
    for (int round = 0; round < 4; ++round)
        Load(kRtf, Save(kRtf));
    EXPECT_EQ(Save(kRtf), first);
}

TEST_F(RichInkDrawingTest, InkSurvivesTypingAroundIt) {
    LoadText(L"above");
    Stroke(kLine);
    Send(EM_SETVIEW, VT_TYPINGVIEW);
    Send(EM_SETSEL, 0, 0);
    Write(L"typed ");
    Send(EM_SETSEL, -1, -1);
    Send(WM_KEYDOWN, VK_RETURN, 1);
    Send(WM_CHAR, L'\r', 1);
    Write(L"below");
    EXPECT_EQ(PlainText(), L"typed above\r\n\r\nbelow");
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
    EXPECT_GT(DarkIn(kAroundLine), 80);
    const std::string saved = Save(kRtf);
    Load(kRtf, saved);
    EXPECT_EQ(PlainText(), L"typed above\r\n\r\nbelow");
    POINTL below{}, end{};
    const int length = 11 + 1 + 1 + 1 + 5;  // with the picture
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&below), length - 5);
    Send(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&end), length - 1);
    EXPECT_EQ(below.y, end.y);
    EXPECT_LT(below.y, 110);
}

TEST_F(RichInkDrawingTest, TextTypedBehindInkIsOfOrdinarySize) {
    Stroke(kLine);
    Write(L"x");
    SelectAll();
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    Send(EM_SETSEL, 1, 2);
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    EXPECT_STREQ(format.szFaceName, L"Tahoma");
    EXPECT_EQ(format.yHeight, 180);
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
}

TEST_F(RichInkDrawingTest, TextBehindInkBeginsALineOfItsOwn) {
    LoadText(L"above");
    Stroke(kLine);
    const std::wstring before = PlainText();
    Send(EM_SETSEL, -1, -1);
    Write(L"below");
    EXPECT_EQ(PlainText(), before + L"\r\nbelow");
    EXPECT_GT(DarkIn(kAroundLine), 80);
    while (CanUndo() && PlainText() != before)
        Send(EM_UNDOEVENT);
    EXPECT_TRUE(HasPicture());
    for (const wchar_t* text : {L"put", L"\r\nput"}) {
        Send(EM_SETSEL, -1, -1);
        Replace(text);
        EXPECT_EQ(PlainText(), before + L"\r\nput");
        Send(EM_UNDOEVENT);
        EXPECT_EQ(PlainText(), before);
    }
    Send(EM_SETSEL, 0, 0);
    Write(L"x");
    EXPECT_EQ(PlainText(), L"x" + before);
}

TEST_F(RichInkDrawingTest, TextBehindInkAtTheLimitIsRefusedWhole) {
    Stroke(kLine);
    const int length = static_cast<int>(Send(WM_GETTEXTLENGTH));
    Send(EM_SETLIMITTEXT, static_cast<WPARAM>(length + 1));
    Send(EM_SETSEL, -1, -1);
    Forget();
    Write(L"x");
    EXPECT_EQ(PlainText(), L"");
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    EXPECT_EQ(Count(EN_CHANGE), 0);
}

TEST_F(RichInkDrawingTest, TypingOverSelectedInkIsOfOrdinarySize) {
    Stroke(kLine);
    SelectAll();
    Write(L"x");
    EXPECT_EQ(PlainText(), L"x");
    EXPECT_FALSE(HasPicture());
    Send(EM_SETSEL, 0, 1);
    CHARFORMAT2W format{};
    format.cbSize = sizeof(format);
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    EXPECT_EQ(format.yHeight, 180);
}

TEST_F(RichInkDrawingTest, DeletedInkComesBackByUndo) {
    Stroke(kLine);
    SelectAll();
    Send(WM_CLEAR);
    EXPECT_FALSE(HasPicture());
    EXPECT_EQ(DarkIn(kAroundLine), 0);
    Send(EM_UNDOEVENT);
    EXPECT_TRUE(HasPicture());
    Send(EM_SETSEL, 1, 1);
    EXPECT_GT(DarkIn(kAroundLine), 80);
}

TEST_F(RichInkDrawingTest, InkIsCutAndPastedWithItsText) {
    LoadText(L"text");
    Stroke(kLine);
    SelectAll();
    Send(WM_CUT);
    EXPECT_EQ(PlainText(), L"");
    EXPECT_NE(Send(EM_CANPASTE), 0);
    Send(WM_PASTE);
    EXPECT_TRUE(HasPicture());
    EXPECT_EQ(PlainText().substr(0, 4), L"text");
    Send(EM_UNDOEVENT);
    EXPECT_FALSE(HasPicture());
}

TEST_F(RichInkDrawingTest, InkAloneIsNotAnEmptyNote) {
    Stroke(kLine);
    EXPECT_GT(Send(WM_GETTEXTLENGTH), 0);
    EXPECT_EQ(PlainText(), L"");
}

TEST_F(RichInkDrawingTest, AStrokeWhoseMouseIsTakenIsKept) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, At({20, 60}));
    Send(WM_MOUSEMOVE, MK_LBUTTON, At({100, 60}));
    EXPECT_EQ(GetCapture(), Ink());
    ReleaseCapture();
    EXPECT_TRUE(HasPicture());
    Send(WM_MOUSEMOVE, MK_LBUTTON, At({100, 150}));
    EXPECT_EQ(DarkIn({90, 80, 110, 150}), 0);
}

TEST_F(RichInkDrawingTest, AStrokeDuringWhichTheViewOrTheSizeChangesIsKept) {
    for (const int what : {0, 1, 2}) {
        SCOPED_TRACE(what);
        Load(kRtf, "");
        Send(EM_SETVIEW, VT_DRAWINGVIEW);
        Send(WM_LBUTTONDOWN, MK_LBUTTON, At({20, 60}));
        Send(WM_MOUSEMOVE, MK_LBUTTON, At({100, 60}));
        if (what == 0) Send(EM_SETVIEW, VT_TYPINGVIEW);
        if (what == 1) MoveWindow(Ink(), 0, 0, 200, 200, TRUE);
        if (what == 2) {
            EXPECT_TRUE(IsModified());
        }
        EXPECT_TRUE(HasPicture());
        EXPECT_EQ(GetCapture(), nullptr);
        EXPECT_GT(DarkIn(kAroundLine), 80);
    }
}

TEST_F(RichInkDrawingTest, TheStrokeIsSeenWhileItIsDrawn) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, At({20, 60}));
    Send(WM_MOUSEMOVE, MK_LBUTTON, At({100, 60}));
    EXPECT_GT(DarkIn(kAroundLine), 80);
    EXPECT_EQ(Count(EN_CHANGE), 0);
    Send(WM_LBUTTONUP, 0, At({100, 60}));
    EXPECT_EQ(Count(EN_CHANGE), 1);
}

TEST_F(RichInkDrawingTest, AReadOnlyControlShowsInkAndTakesNone) {
    Stroke(kLine);
    const std::string saved = Save(kRtf);
    Load(kRtf, "");
    Send(EM_SETREADONLY, TRUE);
    Load(kRtf, saved);
    EXPECT_GT(DarkIn(kAroundLine), 80);
    Stroke({{20, 150}, {100, 150}});
    EXPECT_EQ(DarkIn({20, 140, 100, 160}), 0);
    EXPECT_FALSE(IsModified());
}

TEST_F(RichInkDrawingTest, InkIsEnlargedWithTheText) {
    Stroke({{20, 20}, {80, 20}});
    Send(EM_SETZOOMPERCENT, 0, 200);
    EXPECT_EQ(DarkIn({20, 10, 80, 30}), 0);
    EXPECT_GT(DarkIn({40, 34, 162, 48}), 200);
}

TEST_F(RichInkDrawingTest, InkWiderThanTheWindowIsShownAsWideAsTheWindow) {
    Stroke({{20, 60}, {200, 60}, {200, 90}});
    const Picture before = Pixels({0, 0, 240, 200});
    const std::string saved = Save(kRtf);
    Send(EM_SETZOOMPERCENT, 0, 300);
    RECT client{};
    GetClientRect(Ink(), &client);
    const LONG right = client.right;
    EXPECT_GT(DarkIn({right / 2, 0, right, client.bottom}), 80);
    EXPECT_GT(DarkIn({right * 8 / 10, 0, right, client.bottom}), 20);  // the stroke down its right side
    // A stroke on it stays where it was drawn.
    Stroke({{30, 20}, {100, 20}});
    EXPECT_GT(DarkIn({30, 16, 100, 24}), 40);
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
    Send(EM_UNDOEVENT);
    EXPECT_EQ(Save(kRtf), saved);
    Send(EM_SETZOOMPERCENT, 0, 100);
    Send(EM_SETSEL, 0, 0);
    EXPECT_EQ(Dark(Pixels({0, 0, 240, 200})), Dark(before));
}

TEST_F(RichInkDrawingTest, TheTypingViewDrawsNothing) {
    Send(EM_SETVIEW, VT_TYPINGVIEW);
    Stroke(kLine);
    EXPECT_FALSE(HasPicture());
    EXPECT_FALSE(IsModified());
}

TEST_F(RichInkDrawingTest, ThePageIsRuledUnlessToldOtherwise) {
    const auto lines = [&] {
        int count = 0;
        for (const COLORREF pixel : Pixels({100, 0, 101, 200}))
            count += pixel != RGB(0xFF, 0xFC, 0xE6);
        return count;
    };
    EXPECT_GT(lines(), 100 / Px(20));
    Send(EM_SETPAGESTYLE, PS_NONE);
    EXPECT_EQ(lines(), 0);
}

TEST_F(RichInkDrawingTest, APictureOfAnotherProgramIsKeptAsItIs) {
    const std::string picture = "{\\pict\\pngblip\\picwgoal600\\pichgoal600 89504e47}";
    Load(kRtf, "{\\rtf1 before\\par " + picture + "\\par after}");
    EXPECT_NE(Save(kRtf).find(picture), std::string::npos);
    EXPECT_EQ(PlainText(), L"before\r\n\r\nafter");
}

TEST_F(RichInkDrawingTest, InkIsCopiedBetweenNotesAndAsTextToOtherPrograms) {
    LoadText(L"above");
    Stroke(kLine);
    SelectAll();
    Send(WM_COPY);
    ASSERT_TRUE(OpenClipboard(nullptr));
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    ASSERT_NE(data, nullptr);
    const std::wstring text = static_cast<const wchar_t*>(GlobalLock(data));
    GlobalUnlock(data);
    CloseClipboard();
    EXPECT_EQ(text.substr(0, 7), L"above\r\n");
    EXPECT_EQ(text.find(L'\u200B'), std::wstring::npos);
    EXPECT_TRUE(HasPicture());
    Load(kRtf, "");
    EXPECT_FALSE(HasPicture());
    Send(WM_PASTE);
    Send(WM_PASTE);
    EXPECT_EQ(Pictures(Save(kRtf)), 2);
}

TEST_F(RichInkDrawingTest, AStrokeAtTheLimitIsRefusedAndTold) {
    LoadText(L"text");
    Send(EM_SETLIMITTEXT, 5);
    Forget();
    Stroke({{20, 120}, {100, 120}});
    EXPECT_FALSE(HasPicture());
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    EXPECT_EQ(Count(EN_CHANGE), 0);
    EXPECT_FALSE(IsModified());
    EXPECT_FALSE(CanUndo());
}

TEST_F(RichInkDrawingTest, ANoteOfFiveMegabytesOfInkAndTextLoadsIsShownAndKept) {
    std::vector<POINT> scribble;
    for (LONG i = 0; i < 600; ++i)
        scribble.push_back({10 + i * 37 % 200, 60 + i * 53 % 100});
    Stroke(scribble);
    const std::string saved = Save(kRtf);
    const size_t first = saved.find("{\\pict");
    const std::string picture = saved.substr(first, saved.find('}', first) + 1 - first);
    std::string stream = "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 ";
    int pictures = 0;
    while (stream.size() < 5'000'000) {
        for (int line = 0; line < 20; ++line)
            stream += "All work and no play makes a dull journal indeed.\\par ";
        stream += picture + "\\par ";
        ++pictures;
    }
    EXPECT_EQ(Load(kRtf, stream + "}"), 0u);
    Paint();
    EXPECT_FALSE(IsModified());
    EXPECT_EQ(Pictures(Save(kRtf)), pictures);
}

TEST_F(RichInkDrawingTest, AnInkedStreamWithChangedBytesLoadsAndIsDrawn) {
    LoadText(L"text");
    Stroke({{20, 60}, {60, 90}, {100, 60}});
    const std::string whole = Save(kRtf);
    std::mt19937 random(7);
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = whole;
        for (unsigned change = 0; change < 1 + random() % 4; ++change) {
            const size_t at = 6 + random() % (damaged.size() - 6);
            damaged[at] = round % 2 ? "0123456789abcdef"[random() % 16] : static_cast<char>(random());
        }
        Load(kRtf, damaged);
        Paint();
        EXPECT_FALSE(IsModified());
        Load(kRtf, Save(kRtf));
    }
    EXPECT_EQ(Load(kRtf, whole), 0u);
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
}

TEST_F(RichInkDrawingTest, AnInkedStreamCutAtEveryByteLoads) {
    LoadText(L"text");
    Stroke({{50, 60}});
    const std::string whole = Save(kRtf);
    for (size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        Load(kRtf, whole.substr(0, length));
        Paint();
        EXPECT_FALSE(IsModified());
        EXPECT_TRUE(std::wstring(L"text\r\n").starts_with(PlainText()));
    }
}

TEST_F(RichInkDrawingTest, AnInkedStreamCutAtAnyLengthLoads) {
    LoadText(L"some text before the ink");
    for (int i = 0; i < 8; ++i)
        Stroke({{20 + i * 10, 60}, {30 + i * 10, 90}, {25 + i * 10, 110}, {40 + i * 10, 80}});
    const std::string whole = Save(kRtf);
    for (int part = 0; part <= 200; ++part) {
        SCOPED_TRACE(part);
        Load(kRtf, whole.substr(0, whole.size() * part / 200));
        Paint();
        EXPECT_FALSE(IsModified());
        EXPECT_LE(Pictures(Save(kRtf)), 1);
        const std::wstring text = PlainText();
        EXPECT_TRUE(std::wstring(L"some text before the ink\r\n").starts_with(text));
    }
    EXPECT_EQ(Load(kRtf, whole), 0u);
    EXPECT_EQ(Pictures(Save(kRtf)), 1);
}
