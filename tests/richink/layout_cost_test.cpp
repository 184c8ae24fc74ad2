#include "platform/richink/layout_cost.h"

#include <gtest/gtest.h>

#include "platform/richink/plain_lines.h"

namespace {

std::string Rtf(const std::string& text) {
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs18 " + text + "}";
}

std::string Times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

struct Case {
    const char* label;
    std::string text;
};

// Ten units a line.
size_t Ten(std::wstring_view piece) {
    return std::min<size_t>(piece.size(), 10);
}

std::wstring Lines(std::wstring_view text) {
    bool whole = false;
    const std::wstring lines = PlainLines(text, Ten, 1e9, &whole);
    EXPECT_TRUE(whole);
    return lines;
}

}  // namespace

TEST(LayoutCostTest, LetsNotesOfPeoplePass) {
    const Case cases[] = {
        {"nothing", ""},
        {"a page of words", Times(400, "some words\\par ")},
        {"many paragraphs", Times(300, Times(60, "word ") + "\\par ")},
        {"bold words", Times(2'000, "{\\b bold} and not ")},
        {"a long word", std::string(30'000, 'x')},
        {"a megabyte in one word", std::string(1'000'000, 'x')},
        {"another script", Times(4'000, "\\u20013?\\u25991?") + Times(500, "\\u1488?\\u1489? ")},
        {"drawings", Times(200, "{\\pict\\emfblip 00}\\par ")},
    };
    for (const Case& c : cases)
        EXPECT_LE(LayoutCostOf(Rtf(c.text)), kMostLayout) << c.label;
}

TEST(LayoutCostTest, StopsWhatWouldTakeSeconds) {
    const Case cases[] = {
        {"a megabyte of words", Times(200'000, "word ")},
        {"a megabyte of paragraphs", Times(200'000, "\\par ")},
        {"runs without a blank", Times(15'000, "\\b x\\b0 y")},
        {"characters without width", Times(100'000, "\\u8203?")},
        {"control characters", Times(200'000, "\\'01")},
        {"small pictures", Times(20'000, "{\\pict\\pngblip 89}")},
        {"pairs", Times(50'000, "\\u-10179?\\u-8704?")},
        {"scripts by turns", Times(90'000, "\\u1488?a")},
        {"tabs", Times(180'000, "\\tab ")},
    };
    for (const Case& c : cases)
        EXPECT_GT(LayoutCostOf(Rtf(c.text)), kMostLayout) << c.label;
    std::string fonts;
    for (int i = 0; i < 20'000; ++i)
        fonts += "{\\f" + std::to_string(i) + " F;}";
    EXPECT_GT(LayoutCostOf("{\\rtf1{\\fonttbl" + fonts + "}x}"), kMostLayout);
}

TEST(LayoutCostTest, ReadsTheTextOfRichText) {
    EXPECT_EQ(TextOfRtf(Rtf("a\\par {\\b b}\\tab c\\line \\'e9\\u937?{\\*\\x y}{\\pict 00}\\{")),
              L"a\r\nb\tc\r\n\u00E9\u03A9{");
}

TEST(PlainLinesTest, BreaksBehindBlanks) {
    EXPECT_EQ(Lines(L""), L"");
    EXPECT_EQ(Lines(L"short"), L"short\r");
    EXPECT_EQ(Lines(L"some words in lines"), L"some \rwords in \rlines\r");
    EXPECT_EQ(Lines(L"abcdefghijklmno"), L"abcdefghij\rklmno\r");
    EXPECT_EQ(Lines(L"abcdefghij"), L"abcdefghij\r");
    EXPECT_EQ(Lines(L"a\r\n\r\nb\nc\rd\ve"), L"a\r\rb\rc\rd\re\r");
}

TEST(PlainLinesTest, LeavesOutWhatHasNoShape) {
    EXPECT_EQ(Lines(L"a\u200B\u0001\uFEFFb\tc\u202E"), L"ab\tc\r");
}

TEST(PlainLinesTest, KeepsPairsTogether) {
    EXPECT_EQ(Lines(L"123456789\U0001F600\U0001F600"), L"123456789\r\U0001F600\U0001F600\r");
}

TEST(PlainLinesTest, EndsWhereItWouldCostTooMuch) {
    bool whole = true;
    const std::wstring lines = PlainLines(std::wstring(100'000, L'x'), Ten, 10'000, &whole);
    EXPECT_FALSE(whole);
    EXPECT_GT(lines.size(), 100u);
    EXPECT_LT(lines.size(), 10'000u);
}
