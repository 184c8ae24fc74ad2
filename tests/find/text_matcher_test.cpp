// Whether one text contains another.
#include "find/text_matcher.h"

#include <gtest/gtest.h>
#include <win.h>

#include <string>

namespace {

bool Contains(std::wstring_view text, std::wstring_view wanted, bool matchCase = false) {
    return TextMatcher(wanted, matchCase).IsIn(text);
}

}  // namespace

TEST(TextMatcherTest, FindsATextAtTheBeginningInTheMiddleAndAtTheEnd) {
    for (const bool matchCase : {false, true}) {
        EXPECT_TRUE(Contains(L"garden plan", L"garden", matchCase));
        EXPECT_TRUE(Contains(L"garden plan", L"en pl", matchCase));
        EXPECT_TRUE(Contains(L"garden plan", L"plan", matchCase));
        EXPECT_TRUE(Contains(L"garden plan", L"garden plan", matchCase));
        EXPECT_FALSE(Contains(L"garden plan", L"garden plans", matchCase));
        EXPECT_FALSE(Contains(L"garden plan", L"plant", matchCase));
        EXPECT_FALSE(Contains(L"", L"plan", matchCase));
    }
}

TEST(TextMatcherTest, GoesBackToTheSecondLetterOfABeginningThatDidNotGoOn) {
    for (const bool matchCase : {false, true})
        EXPECT_TRUE(Contains(L"aaab", L"aab", matchCase));
}

TEST(TextMatcherTest, NoTextIsContainedInEveryText) {
    for (const bool matchCase : {false, true}) {
        EXPECT_TRUE(Contains(L"", L"", matchCase));
        EXPECT_TRUE(Contains(L"plan", L"", matchCase));
    }
}

TEST(TextMatcherTest, LooksPastANulInTheText) {
    const std::wstring text(L"one\0two", 7);
    for (const bool matchCase : {false, true})
        EXPECT_TRUE(Contains(text, L"two", matchCase));
}

TEST(TextMatcherTest, MatchingCaseTellsLettersApart) {
    EXPECT_TRUE(Contains(L"Garden", L"Gard", true));
    EXPECT_FALSE(Contains(L"Garden", L"gard", true));
    EXPECT_FALSE(Contains(L"Café", L"CAFÉ", true));
}

struct Letters {
    const wchar_t* lower;
    const wchar_t* upper;
};

class CapitalsTest : public testing::TestWithParam<Letters> {};

TEST_P(CapitalsTest, AreFoundInEitherCase) {
    const auto& [lower, upper] = GetParam();
    const auto within = [](const wchar_t* text) { return L"x " + std::wstring(text) + L" y"; };
    EXPECT_TRUE(Contains(within(lower), upper));
    EXPECT_TRUE(Contains(within(upper), lower));
    EXPECT_TRUE(Contains(within(lower), lower));
    EXPECT_TRUE(Contains(within(upper), upper));
    EXPECT_FALSE(Contains(within(lower), upper, true));
}

INSTANTIATE_TEST_SUITE_P(Alphabets, CapitalsTest,
                         testing::Values(Letters{L"abcxyz", L"ABCXYZ"}, Letters{L"é", L"É"}, Letters{L"äöü", L"ÄÖÜ"},
                                         Letters{L"àâçèêëîïôùûœ", L"ÀÂÇÈÊËÎÏÔÙÛŒ"}, Letters{L"ÿ", L"Ÿ"},
                                         Letters{L"ñåøæþð", L"ÑÅØÆÞÐ"}, Letters{L"čšžřůął", L"ČŠŽŘŮĄŁ"},
                                         Letters{L"жёщэю", L"ЖЁЩЭЮ"}, Letters{L"їєґ", L"ЇЄҐ"},
                                         Letters{L"αβγδσω", L"ΑΒΓΔΣΩ"}, Letters{L"άέήίόύώ", L"ΆΈΉΊΌΎΏ"},
                                         Letters{L"աբգ", L"ԱԲԳ"}, Letters{L"ạếộ", L"ẠẾỘ"},
                                         Letters{L"ａｂｃ", L"ＡＢＣ"}));

TEST(TextMatcherTest, TheGreekSigmaOfAWordsEndIsASigma) {
    EXPECT_TRUE(Contains(L"ο δρόμος", L"ΔΡΌΜΟΣ"));
    EXPECT_TRUE(Contains(L"Ο ΔΡΌΜΟΣ", L"δρόμος"));
}

TEST(TextMatcherTest, TheSharpSStays) {
    EXPECT_TRUE(Contains(L"Hauptstraße", L"STRAßE"));
    EXPECT_FALSE(Contains(L"Hauptstraße", L"STRASSE"));
    EXPECT_FALSE(Contains(L"STRASSE", L"straße"));
}

TEST(TextMatcherTest, AccentsAreLettersOfTheirOwn) {
    EXPECT_FALSE(Contains(L"Café", L"cafe"));
    EXPECT_FALSE(Contains(L"Й", L"И"));
}

TEST(TextMatcherTest, LettersWithoutCaseAreFound) {
    EXPECT_TRUE(Contains(L"会议在三点", L"三点"));
    EXPECT_TRUE(Contains(L"note \U0001F33B here", L"\U0001F33B HERE"));
}

// The system's upper case is the rule: no letter of any alphabet may be taken another way.
TEST(TextMatcherTest, EveryLetterHasTheSystemsCapital) {
    int wrong = 0;
    for (unsigned code = 1; code <= 0xFFFF; ++code) {
        const wchar_t letter = static_cast<wchar_t>(code);
        wchar_t capital = letter;
        CharUpperBuffW(&capital, 1);
        if (letter == L'ς') continue;  // see above
        if (!Contains(std::wstring(1, letter), std::wstring(1, capital))) ++wrong;
        if (capital != letter && Contains(std::wstring(1, letter), std::wstring(1, capital), true)) ++wrong;
    }
    EXPECT_EQ(wrong, 0);
}
