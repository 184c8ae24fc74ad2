// Streams that a broken store might hand out: loading them must end, and end sound.
#include <gmock/gmock.h>

#include <random>

#include "platform/richink/rtf_guard.h"
#include "tests/richink/rich_ink_fixture.h"

namespace {

const std::string kRich =
    R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil\fcharset0 Tahoma;}{\f1\froman Times;}})"
    R"({\colortbl ;\red255\green0\blue0;}{\*\generator Something 1.0;}\viewkind4\uc1\pard\f0\fs18 First line\par )"
    R"(\cf1\b bold \'e9 \u9728?\cf0\b0\tab tabbed {\i nested {\ul deeper}}\par{\pntext\f1 1.\tab})"
    R"(\pard\fi-200\li200 item\par{\pict\wmetafile8\picw100\pich100 010009000003}\par last})";

// A small drawing as rich text carries it.
std::string Drawing() {
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    MoveToEx(dc, 5, 5, nullptr);
    LineTo(dc, 40, 30);
    const POINT curve[] = {{0, 0}, {10, 30}, {20, 5}, {30, 30}};
    Polyline(dc, curve, ARRAYSIZE(curve));
    const HENHMETAFILE picture = CloseEnhMetaFile(dc);
    std::string bytes(GetEnhMetaFileBits(picture, 0, nullptr), '\0');
    GetEnhMetaFileBits(picture, static_cast<UINT>(bytes.size()), reinterpret_cast<BYTE*>(bytes.data()));
    DeleteEnhMetaFile(picture);
    std::string hex;
    for (const char byte : bytes)
        for (const int digit : {byte >> 4 & 15, byte & 15})
            hex += "0123456789abcdef"[digit];
    return "{\\pict\\emfblip\\picw1000\\pich1000\\picwgoal600\\pichgoal600 " + hex + "}";
}

class RichInkDamageTest : public RichInkTest {
protected:
    // Whatever was loaded, the control works on.
    void ExpectAlive() {
        EXPECT_FALSE(IsModified());
        EXPECT_FALSE(CanUndo());
        EXPECT_EQ(Count(EN_CHANGE), 0);
        Save(kRtf);
        Save(kText);
    }
    void ExpectAliveAtTheEnd() {
        LoadText(L"sound");
        Write(L"x");
        EXPECT_EQ(Text(), L"xsound");
    }
};

}  // namespace

// A tab at no place ended the program when the paragraph was written.
TEST_F(RichInkDamageTest, NumbersThatAreMissingDoNoHarm) {
    for (const char* text :
         {"{\\tx a\\par b}", "{\\tx\\sect b}", "{\\tx\\page b}", "\\fs\\sl\\cf\\li a", "{\\colortbl \\red-;}a"}) {
        SCOPED_TRACE(text);
        Load(kRtf, std::string("{\\rtf1\\ansi ") + text + "}");
        ExpectAlive();
    }
    ExpectAliveAtTheEnd();
}

// Fifteen thousand pixels before a tab were without end.
TEST_F(RichInkDamageTest, ATabFarFromTheMarginLoads) {
    Load(kRtf, R"({\rtf1\ansi\pard  \fs255 )" + std::string(170, 'a') + R"(\tab })");
    ExpectAlive();
    for (const int percent : {75, 150, 200, 300})
        Send(EM_SETZOOMPERCENT, 0, percent);
    ExpectAliveAtTheEnd();
}

// The rich edit ends what it writes at a NUL, and the rest was lost.
TEST_F(RichInkDamageTest, TextBehindANulIsKept) {
    Load(kRtf, "{\\rtf1\\ansi\\uc1 a\\u0?b\\'00c}");
    EXPECT_EQ(Text(), L"abc");
    Load(kRtf, Save(kRtf));
    EXPECT_EQ(Text(), L"abc");
}

// Nothing that the rich edit writes by itself is taken for damage.
TEST_F(RichInkDamageTest, WhatIsWrittenIsSound) {
    Load(kRtf,
         R"({\rtf1\ansi\deff0{\fonttbl{\f0\fnil\fcharset0 Tahoma;}{\f1\froman\fcharset161 Times;}})"
         R"({\colortbl ;\red255\green0\blue0;\red0\green128\blue255;}\uc1\pard\f0\fs18 plain {\b bold} {\i italic})"
         R"({\ul line} {\uldb two} {\ulwave wave} {\strike strike} {\super up} {\sub down} {\up6 above} {\dn6 below})"
         R"({\cf1\highlight2 red} {\cb2 blue} {\f1\fs40 \u937?} {\v hidden} {\protect kept} {\scaps caps} {\outl line})"
         R"({\lang1031 tongue}\par\pard\li200\fi-100\ri50\sb20\sa30\sl360\slmult1\tx500\tqr\tx900 in\tab and)"
         R"(\tab out\par\pard\qc middle\par\pard\rtlpar\qr right\line end\par})");
    Send(EM_SETSEL, 0, 3);
    for (const DWORD effect : {CFE_BOLD, CFE_ALLCAPS, CFE_SHADOW, CFE_EMBOSS, CFE_REVISED, CFE_LINK}) {
        CHARFORMAT2W format{};
        format.cbSize = sizeof(format);
        format.dwMask = format.dwEffects = effect;
        Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    }
    PARAFORMAT2 list{};
    list.cbSize = sizeof(list);
    list.dwMask = PFM_NUMBERING | PFM_NUMBERINGSTART | PFM_NUMBERINGTAB | PFM_BORDER;
    list.wNumbering = PFN_ARABIC;
    list.wNumberingStart = 2;
    list.wNumberingTab = 300;
    Send(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&list));
    const std::string saved = Save(kRtf);
    EXPECT_THAT(saved, testing::HasSubstr("\\highlight"));
    EXPECT_EQ(SoundRtf(saved), saved);
}

TEST_F(RichInkDamageTest, RichTextCutAtAnyLengthLoadsAsFarAsItGoes) {
    Load(kRtf, kRich);
    const std::wstring whole = Text();
    ASSERT_EQ(whole.substr(0, 10), L"First line");
    for (size_t length = 0; length < kRich.size(); ++length) {
        SCOPED_TRACE(length);
        Load(kRtf, kRich.substr(0, length));
        std::wstring text = Text();
        while (!text.empty() && text.back() == L'\n')
            text.pop_back();
        EXPECT_EQ(whole.substr(0, text.size()), text);
        ExpectAlive();
    }
    ExpectAliveAtTheEnd();
}

TEST_F(RichInkDamageTest, WhatCameBeforeTheCutIsThere) {
    EXPECT_EQ(Load(kRtf, kRich.substr(0, kRich.find("\\tab tabbed"))), 0u);
    EXPECT_EQ(Text().substr(0, 15), L"First line\nbold");
}

TEST_F(RichInkDamageTest, WhatIsNoRichTextLoadsAsNothing) {
    const std::string garbages[] = {"plain text",        "{", "}", "\\rtf1", "{\\rt", "\xFF\xFE{\\rtf1 x}",
                                    std::string(3, '\0')};
    for (const std::string& garbage : garbages) {
        LoadText(L"before");
        EXPECT_EQ(Load(kRtf, garbage), static_cast<DWORD>(ERROR_INVALID_DATA)) << garbage;
        EXPECT_EQ(Text(), L"");
        ExpectAlive();
    }
}

TEST_F(RichInkDamageTest, DeepNestingAndStrayBracesLoad) {
    const std::string deep(5'000, '{');
    Load(kRtf, "{\\rtf1 before " + deep + "inside" + std::string(5'000, '}') + " after}");
    EXPECT_NE(Text().find(L"before"), std::wstring::npos);
    EXPECT_NE(Text().find(L"after"), std::wstring::npos);
    Load(kRtf, "{\\rtf1 before " + deep);
    Load(kRtf, "{\\rtf1 a}}}}}}{{{{");
    EXPECT_EQ(Text(), L"a");
    ExpectAlive();
    ExpectAliveAtTheEnd();
}

TEST_F(RichInkDamageTest, OddWordsLoad) {
    for (const char* words : {"\\bin999999999 x",
                              "\\bin-1 x",
                              "\\bin5 {{{{{x",
                              "\\u99999999999999999999?x",
                              "\\u-70000?x",
                              "\\'zzx",
                              "\\fs99999999999999x",
                              "\\fs0 x",
                              "\\fs-20 x",
                              "\\f999999 x",
                              "\\cf999999 x",
                              "\\tx999999999 x",
                              "\\uc999 x",
                              "\\li-999999999 x",
                              "\\fi999999999\\li-999999999\\ri999999999 x",
                              "\\cell x",
                              "\\row x",
                              "\\trowd\\cell\\cell x",
                              "\\trowd\\cellx100\\intbl a\\cell x",
                              "\\trowd\\cellx100\\cellx50\\cellx-5\\intbl\\row\\row x",
                              "\\intbl\\itap9 x\\nestcell\\nestrow",
                              "{\\pict x}",
                              "{\\pict\\pngblip 89504",
                              "{\\pict\\emfblip zz}",
                              "{\\pict\\wmetafile8\\picw999999999\\pich-1 00}",
                              "{\\object\\objemb{\\*\\objdata 0105}}",
                              "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt x}}",
                              "{\\field x",
                              "{\\fonttbl x}",
                              "{\\fonttbl{\\f0 ;}}x",
                              "{\\colortbl",
                              "{\\stylesheet{\\s1 x;}}",
                              "{\\info{\\title x}}x",
                              "\\pard\\pard\\plain\\plain x",
                              "\\upr{x}{\\*\\ud{y}}",
                              "{\\*\\unknown {\\*\\deeper x}}",
                              "\\ansicpg99999 \\'80x",
                              "\\pntext x{\\pn\\pnlvl99999}",
                              "\\par\\par\\line\\page\\sect x"}) {
        SCOPED_TRACE(words);
        Load(kRtf, std::string("{\\rtf1 ") + words + "}");
        ExpectAlive();
        Load(kRtf, std::string("{\\rtf1 ") + words);
        ExpectAlive();
    }
    ExpectAliveAtTheEnd();
}

// A fixed seed: the same damage every time.
TEST_F(RichInkDamageTest, ChangedBytesLoad) {
    std::mt19937 random(20260704);
    for (int round = 0; round < 600; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = kRich;
        for (unsigned change = 0; change < 1 + random() % 8; ++change) {
            const size_t at = 5 + random() % (damaged.size() - 5);
            switch (random() % 4) {
                case 0: damaged[at] = static_cast<char>(random()); break;
                case 1: damaged.erase(at, random() % 20); break;
                case 2: damaged.insert(at, std::string(1 + random() % 5, "{}\\ 0"[random() % 5])); break;
                default: damaged.insert(at, damaged.substr(5 + random() % (damaged.size() - 5), random() % 40));
            }
        }
        Load(kRtf, damaged);
        ExpectAlive();
    }
    ExpectAliveAtTheEnd();
}

TEST_F(RichInkDamageTest, ADrawingLoadsAndIsSavedAgain) {
    EXPECT_EQ(Load(kRtf, "{\\rtf1 before " + Drawing() + " after}"), 0u);
    EXPECT_NE(Save(kRtf).find("\\pict"), std::string::npos);
    ExpectAlive();
}

TEST_F(RichInkDamageTest, ADrawingWithChangedBytesLoadsAndIsDrawn) {
    std::mt19937 random(5);
    const std::string whole = "{\\rtf1 before " + Drawing() + " after}";
    const size_t first = whole.find("600 ") + 4;
    const size_t digits = whole.find('}') - first;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = whole;
        for (unsigned change = 0; change < 1 + random() % 4; ++change)
            damaged[first + random() % digits] = "0123456789abcdef"[random() % 16];
        Load(kRtf, damaged);
        RedrawWindow(Ink(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        ExpectAlive();
    }
    ExpectAliveAtTheEnd();
}

TEST_F(RichInkDamageTest, ADrawingCutAtAnyLengthLoads) {
    const std::string whole = "{\\rtf1 before " + Drawing() + " after}";
    for (size_t length = 10; length < whole.size(); length += 7) {
        Load(kRtf, whole.substr(0, length));
        EXPECT_EQ(Text().substr(0, 3), L"bef") << length << " " << whole.substr(0, length).c_str();
        ExpectAlive();
    }
}

TEST_F(RichInkDamageTest, UnicodeTextOfAnyBytesLoads) {
    for (const std::string& bytes :
         {std::string("a"), std::string("a\0b", 3), std::string("\0\0\0\0", 4), std::string("a\0\0\0b\0", 6),
          std::string("\x00\xD8", 2), std::string("\x00\xDC\x00\xD8", 4),
          std::string("\xFF\xFE"
                      "a\0",
                      4),
          std::string("\r\0\r\0\n\0\n\0", 8)}) {
        EXPECT_EQ(Load(kText, bytes), 0u);
        ExpectAlive();
    }
    EXPECT_EQ(Load(kText, std::string("a\0\0\0b\0c", 7)), 0u);
    EXPECT_EQ(Text(), L"ab");
    ExpectAliveAtTheEnd();
}

TEST_F(RichInkDamageTest, AHugeStreamLoads) {
    std::string huge = "{\\rtf1 ";
    for (int i = 0; i < 2'000; ++i)
        huge += "A line of some length, with words in it.\\par\r\n";
    EXPECT_EQ(Load(kRtf, huge), 0u);
    EXPECT_EQ(Text().substr(0, 6), L"A line");
    ExpectAlive();
}
