// Rich text without code pages, and streams that went through one.
#include "platform/richink/unicode_rtf.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const char* label;
    std::string rtf;
    std::wstring text;
    std::string wanted;
};

}  // namespace

TEST(AsciiRtfTest, WritesEachUnitOutsideAscii) {
    const Case cases[] = {
        {"no UTF-8", "{\\rtf1 caf\\'e9}", L"caf\u00E9", "{\\rtf1 caf\\'e9}"},
        {"ASCII", "{\\urtf a\\par b}", L"a\r\nb", "{\\rtf1\\ansi\\ansicpg1252\\uc1 a\\par b}"},
        {"a number", "{\\urtf1\\b a}", L"a", "{\\rtf1\\ansi\\ansicpg1252\\uc1\\b a}"},
        {"letters", "{\\urtf \xCE\xA9\xC5\x82}", L"\u03A9\u0142", "{\\rtf1\\ansi\\ansicpg1252\\uc1 \\u937?\\u322?}"},
        {"a pair", "{\\urtf \xF0\x9F\x98\x80}", L"\U0001F600", "{\\rtf1\\ansi\\ansicpg1252\\uc1 \\u-10179?\\u-8704?}"},
        {"half pairs", "{\\urtf a\xEF\xBF\xBD\xEF\xBF\xBD}", L"a\xD83D\uFFFD",
         "{\\rtf1\\ansi\\ansicpg1252\\uc1 a\\u-10179?\\u-3?}"},
        {"half a pair nobody knows", "{\\urtf \xEF\xBF\xBD}", L"a", "{\\rtf1\\ansi\\ansicpg1252\\uc1 \\u-3?}"},
        {"cut", "{\\urtf \xCE", L"", "{\\rtf1\\ansi\\ansicpg1252\\uc1 \\u-3?"},
        {"nothing", "{\\urtf", L"", "{\\rtf1\\ansi\\ansicpg1252\\uc1"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(AsciiRtf(c.rtf, c.text), c.wanted) << c.label;
}

TEST(MendedRtfTest, TakesLettersFromTheTextWhereTheTwoRunSideBySide) {
    const Case cases[] = {
        {"a nearest letter", "{\\rtf1 aOb\\par\r\n}", L"a\u03A9b", "{\\rtf1 a\\u937?b\\par\r\n}"},
        {"a byte", "{\\rtf1 e\\'b4}", L"e\u0301", "{\\rtf1 e\\u769?}"},
        {"a right byte", "{\\rtf1 \\'e9}", L"\u00E9", "{\\rtf1 \\u233?}"},
        {"an exact one", "{\\rtf1 \\u937?O}", L"\u03A9\u03A9", "{\\rtf1 \\u937?\\u937?}"},
        {"an exact one with another fallback", "{\\rtf1 \\u937\\'3fO}", L"\u03A9\u03A9", "{\\rtf1 \\u937\\'3f\\u937?}"},
        {"formats", "{\\rtf1{\\b O}\\b0 O}", L"\u03A9\u03A9", "{\\rtf1{\\b \\u937?}\\b0 \\u937?}"},
        {"signs", "{\\rtf1 \\{\\}\\\\O}", L"{}\\\u03A9", "{\\rtf1 \\{\\}\\\\\\u937?}"},
        {"line ends", "{\\rtf1 a\\par O\\line O\\tab}", L"a\r\n\u03A9\r\n\u03A9\t",
         "{\\rtf1 a\\par \\u937?\\line \\u937?\\tab}"},
        {"a soft line end as a blank", "{\\rtf1 O\\line O}", L"\u03A9 \u03A9", "{\\rtf1 \\u937?\\line \\u937?}"},
        {"a picture", "{\\rtf1 O{\\pict\\emfblip 0102}O}", L"\u03A9\u03A9",
         "{\\rtf1 \\u937?{\\pict\\emfblip 0102}\\u937?}"},
        {"groups without text", "{\\rtf1{\\*\\plainnote 1 O}{\\fonttbl{\\f0 O;}}O}", L"\u03A9",
         "{\\rtf1{\\*\\plainnote 1 O}{\\fonttbl{\\f0 O;}}\\u937?}"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MendedRtf(c.rtf, c.text), c.wanted) << c.label;
}

TEST(MendedRtfTest, LeavesAloneWhatDoesNot) {
    const Case cases[] = {
        {"all ASCII", "{\\rtf1 rich}", L"carried", {}},
        {"too short a text", "{\\rtf1 abO}", L"a\u03A9", {}},
        {"too long a text", "{\\rtf1 abO}", L"ab\u03A9\u03A9", {}},
        {"another letter", "{\\rtf1 abO}", L"ac\u03A9", {}},
        {"a letter for a line end", "{\\rtf1 a\\par}", L"a\u03A9", {}},
        {"a letter for a soft line end", "{\\rtf1 a\\line}", L"a\u03A9", {}},
        {"another exact one", "{\\rtf1 \\u936?O}", L"\u03A9\u03A9", {}},
        {"another text behind", "{\\rtf1 O\\par x}", L"\u03A9", {}},
        {"no text", "{\\rtf1 O}", L"", {}},
        {"half a word", "{\\rtf1 O\\", L"\u03A9\u03A9", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MendedRtf(c.rtf, c.text), c.rtf) << c.label;
}
