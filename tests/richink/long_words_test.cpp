// Words that fill many lines: an encoded picture pasted as text, a long paragraph of a script that needs no blanks.
#include "platform/richink/long_words.h"

#include "tests/richink/rich_ink_fixture.h"

namespace {

struct Case {
    const char* label;
    std::string rtf;
    size_t characters;
};

const std::string kLong(2'500, 'x');

class RichInkLongWordTest : public RichInkTest {
protected:
    static std::string Rtf(const std::string& text) {
        return "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 " + text + "}";
    }
    LRESULT Lines() const { return Send(EM_GETLINECOUNT); }
};

}  // namespace

TEST(LongWordsTest, AreFoundBetweenWhatIsLaidOutApart) {
    const std::wstring word(kLongWord, L'x');
    EXPECT_TRUE(LongWordsOf(L"").empty());
    EXPECT_TRUE(LongWordsOf(std::wstring(kLongWord - 1, L'x')).empty());
    for (const wchar_t apart : {L'.', L'7', L'\t', L'\r', L'\n'}) {
        const std::vector<LongWord> words = LongWordsOf(std::wstring(L"a") + apart + word + apart + L"b" + word);
        ASSERT_EQ(words.size(), 2u);
        EXPECT_EQ(words[0].first, 2);
        EXPECT_EQ(words[0].Length(), static_cast<LONG>(kLongWord));
        EXPECT_EQ(words[1].first, 2 + static_cast<LONG>(kLongWord) + 1);
        EXPECT_EQ(words[1].Length(), static_cast<LONG>(kLongWord) + 1);
    }
    EXPECT_EQ(LongWordCharacters(std::wstring_view(word + L"." + word)), 2 * kLongWord);
}

TEST(LongWordsTest, MayBeWordsWithBlanks) {
    const auto many = [](const wchar_t* piece) {
        std::wstring text;
        while (text.size() < kLongWord)
            text += piece;
        return text;
    };
    for (const wchar_t* piece : {L"lorem ipsum ", L"x", L"za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ",
                                 L"\u4E2D\u6587", L"12345 67890 ", L"-- "})
        EXPECT_EQ(LongWordCharacters(std::wstring_view(many(piece))), many(piece).size())
            << testing::PrintToString(piece);
    for (const wchar_t* piece : {L"it is so. ", L"room 12 ", L"ab1", L"line\r\n"})
        EXPECT_EQ(LongWordCharacters(std::wstring_view(many(piece))), 0u) << testing::PrintToString(piece);
}

TEST(LongWordsTest, AreFoundInRichText) {
    std::string ideographs, bytes, words;
    for (int i = 0; i < 2'500; ++i) {
        ideographs += "\\u20013?";
        bytes += "\\'e9";
        words += "{\\b word.}\\i0  ";
    }
    const Case cases[] = {
        {"nothing", "{\\rtf1 }", 0},
        {"words", "{\\rtf1 " + words + "}", 0},
        {"a long word", "{\\rtf1 " + kLong + "}", 2'500},
        {"two", "{\\rtf1 " + kLong + ".1." + kLong + "}", 5'000},
        {"words with blanks", "{\\rtf1 " + kLong + " a " + kLong + "}", 5'003},
        {"two in two paragraphs", "{\\rtf1 " + kLong + "\\par " + kLong + "}", 5'000},
        {"one in parts", "{\\rtf1 " + kLong + "{\\b " + kLong + "}\r\n" + kLong + "}", 7'500},
        {"one of bytes", "{\\rtf1 " + bytes + "}", 2'500},
        {"half an escape at the end", "{\\rtf1 " + kLong + "\\'e", 2'500},
        {"half a word at the end", "{\\rtf1 " + kLong + "\\", 2'500},
    };
    for (const Case& c : cases)
        EXPECT_EQ(LongWordCharacters(std::string_view(c.rtf)), c.characters) << c.label;
    EXPECT_GE(LongWordCharacters(std::string_view("{\\rtf1 " + ideographs + "}")), 2'500u);
}

TEST_F(RichInkLongWordTest, IsWrappedAndKept) {
    for (const size_t length : {3'000u, 20'000u}) {
        const std::string stream = Rtf("before " + std::string(length, 'x') + " behind\\par last");
        Load(kRtf, stream);
        EXPECT_GT(Lines(), static_cast<LRESULT>(length / 100));
        EXPECT_EQ(Text(), L"before " + std::wstring(length, L'x') + L" behind\nlast");
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        EXPECT_EQ(Count(EN_CHANGE), 0);
        DWORD caret = 1;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&caret));
        EXPECT_EQ(caret, 0u);
        const std::string saved = Save(kRtf);
        EXPECT_LT(saved.size(), 2 * length + 500);  // the text twice, and no formats in it
        Load(kRtf, saved);
        EXPECT_EQ(Save(kRtf), saved);
    }
}

TEST_F(RichInkLongWordTest, IsEditedWithoutLongWaits) {
    Load(kRtf, Rtf(std::string(20'000, 'x')));
    for (int i = 0; i < 20; ++i) {
        Send(EM_SETSEL, i * 1'000, i * 1'000);
        Write(L"y");
    }
    std::wstring text = Text();
    EXPECT_EQ(text.size(), 20'020u);
    std::erase(text, L'y');
    EXPECT_EQ(text.size(), 20'000u);
    while (CanUndo())
        ASSERT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), std::wstring(20'000, L'x'));
}

TEST_F(RichInkLongWordTest, IsPastedAsOneStepToUndo) {
    Write(L"a");
    PutOnClipboard(std::wstring(20'000, L'x'));
    Forget();
    Send(WM_PASTE);
    EXPECT_EQ(Text(), L"a" + std::wstring(20'000, L'x'));
    EXPECT_EQ(Count(EN_CHANGE), 1);
    EXPECT_TRUE(IsModified());
    EXPECT_GT(Lines(), 200);
    Send(EM_SETMODIFY, FALSE);
    EXPECT_NE(Send(EM_UNDOEVENT), 0);
    EXPECT_EQ(Text(), L"a");
    EXPECT_NE(Send(EM_REDOEVENT), 0);
    EXPECT_EQ(Text().size(), 20'001u);
    Write(L"b");
    EXPECT_EQ(Text().back(), L'b');
}

// Words between which nothing parts the runs: each is as long as its paragraph.
TEST_F(RichInkLongWordTest, MayBeAParagraphOfPlainWords) {
    std::wstring words;
    while (words.size() < 10'000)
        words += L"lorem ipsum ";
    PutOnClipboard(words);
    Send(WM_PASTE);
    EXPECT_EQ(Text(), words);
    EXPECT_GT(Lines(), 100);
    for (int i = 0; i < 5; ++i)
        Write(L"a ");
    EXPECT_EQ(Text(), words + L"a a a a a ");
    const std::string saved = Save(kRtf);
    EXPECT_LT(saved.size(), 2 * words.size() + 500);
    Load(kRtf, saved);
    EXPECT_EQ(Save(kRtf), saved);
}

TEST_F(RichInkLongWordTest, IsPastedUpToTheLimit) {
    PutOnClipboard(std::wstring(40'000, L'x'));
    Send(WM_PASTE);
    EXPECT_EQ(Text().size(), 32'767u);
    EXPECT_EQ(Count(EN_MAXTEXT), 1);
    EXPECT_GT(Lines(), 200);
}

TEST_F(RichInkLongWordTest, IsCutAndPastedWithInk) {
    Load(kRtf, Rtf(std::string(5'000, 'x')));
    Send(EM_SETVIEW, VT_DRAWINGVIEW);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 60));
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 70));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(90, 70));
    const std::string saved = Save(kRtf);
    EXPECT_NE(saved.find("\\pict"), std::string::npos);
    SelectAll();
    Send(WM_CUT);
    EXPECT_EQ(Text(), L"");
    Send(WM_PASTE);
    EXPECT_GT(Lines(), 50);
    EXPECT_NE(Save(kRtf).find("\\pict"), std::string::npos);
}

TEST_F(RichInkLongWordTest, PastWhatAnybodyReadsIsKeptAndTheNextNoteWraps) {
    Load(kRtf, Rtf(std::string(300'000, 'x') + "\\par last"));
    EXPECT_EQ(Text().size(), 300'005u);
    EXPECT_NE(Save(kText).find("l"), std::string::npos);
    Load(kRtf, Rtf(std::string(1'000, 'x')));
    EXPECT_GT(Lines(), 5);
}

TEST_F(RichInkLongWordTest, OfMegabytesLoads) {
    const std::string word(2'000'000, 'x');
    EXPECT_EQ(Load(kRtf, Rtf(word)), 0u);
    EXPECT_EQ(Send(WM_GETTEXTLENGTH), 2'000'000);
    RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}
