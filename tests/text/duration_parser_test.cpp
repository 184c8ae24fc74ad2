// Typed durations: numbers, units, fractions, what is skipped, and what no sane person types.
#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

#include "text/duration_text.h"

namespace {

constexpr uint64_t kSecond = DateTime::kTicksPerSecond;
constexpr uint64_t kMinute = DateTime::kTicksPerMinute;
constexpr uint64_t kHour = DateTime::kTicksPerHour;
constexpr uint64_t kDay = DateTime::kTicksPerDay;
constexpr uint64_t kMost = 2147483647;  // what a whole part above it counts as

struct Parsed {
    bool found = false;
    uint64_t ticks = 0;
    std::wstring text;
};

Parsed Parse(std::wstring text) {
    DateTime duration;
    Parsed parsed;
    parsed.found = ParseDuration(text.data(), duration);
    parsed.ticks = duration.Ticks();
    parsed.text = text;
    return parsed;
}

struct ParseRow {
    const char* label;
    const wchar_t* text;
    uint64_t ticks;
};

const ParseRow kParseRows[] = {
    // examples
    {"a bare number counts minutes", L"90", 90 * kMinute},
    {"hours with a fraction", L"1.5h", kHour + 30 * kMinute},
    {"days and hours", L"2d 3h", 2 * kDay + 3 * kHour},
    {"days and hours without a blank", L"2d3h", 2 * kDay + 3 * kHour},
    {"a last bare number counts minutes", L"1h 30", kHour + 30 * kMinute},
    {"a week is a day", L"2w", 2 * kDay},
    {"half a week is three days", L"0.5w", 3 * kDay},
    // units
    {"days", L"3d", 3 * kDay},
    {"hours", L"3h", 3 * kHour},
    {"minutes, never months", L"3m", 3 * kMinute},
    {"seconds", L"3s", 3 * kSecond},
    {"all of them", L"1w 1d 1h 1m 1s", 2 * kDay + kHour + kMinute + kSecond},
    {"in any order", L"1s 1h", kHour + kSecond},
    {"the same twice", L"1h 2h", 3 * kHour},
    {"upper case", L"2D 3H", 2 * kDay + 3 * kHour},
    {"in words", L"2 days 3 hours 4 minutes 5 seconds", 2 * kDay + 3 * kHour + 4 * kMinute + 5 * kSecond},
    // the first of the letters counts, wherever it stands
    {"other letters are skipped", L"5 xyz h", 5 * kHour},
    {"months are minutes", L"2 months", 2 * kMinute},
    {"the first unit letter of a word", L"2 yards", 2 * kDay},
    {"a number in between is passed over", L"5 6 h", 5 * kHour},
    {"a comma is no point", L"1,5h", kHour},
    {"digits after the unit's word", L"1 hour7", kHour + 7 * kMinute},
    {"a letter before the number", L"h 5", 5 * kMinute},
    {"text before the number", L"about 2h", 2 * kHour},
    {"a sign is skipped", L"-5m", 5 * kMinute},
    {"other characters", L"1.5h \x2603 30 \x00FC", 2 * kHour},
    // fractions
    {"of a day", L"1.5d", kDay + 12 * kHour},
    {"of a day without a zero", L".5 days", 12 * kHour},
    {"1.05 days", L"1.05d", kDay + kHour},
    {"1.01 days: less than an hour", L"1.01d", kDay},
    {"of a day, cut to hours", L"0.99d", 23 * kHour},
    {"of an hour, cut to minutes", L"0.99h", 59 * kMinute},
    {"of an hour, less than a minute", L"1.01h", kHour},
    {"of a week, less than a day", L"1.1w", kDay},
    {"of a week", L"1.15w", 2 * kDay},
    {"of a minute: dropped", L"1.9m", kMinute},
    {"of a second: dropped", L"1.9s", kSecond},
    {"without a unit: dropped", L"1.9", kMinute},
    {"a point at the end", L"2.h", 2 * kHour},
    {"a second point ends the number", L"1.5.3h", kHour + 30 * kMinute},
    {"a fraction that is a little less in binary is cut, not rounded", L"1.2h", kHour + 11 * kMinute},
    // nothing of something
    {"zero", L"0", 0},
    {"zero hours", L"0h", 0},
    {"a lone point", L".", 0},
    {"a lone point with a unit", L".h", 0},
    {"two points before the number", L"..5h", 0},
    {"a point, then a number", L". 5h", 0},
    {"a point with a unit, then a number", L".h 5h", 5 * kHour},
    // numbers with an exponent, and hexadecimal ones, are numbers too
    {"an exponent", L"1e1m", 10 * kMinute},
    {"a negative exponent", L"5e-1h", 30 * kMinute},
    {"a d is no exponent", L"1d5m", kDay + 5 * kMinute},
    {"hexadecimal", L"0x10m", 16 * kMinute},
    // beyond what a count holds
    {"the most minutes", L"2147483647", kMost* kMinute},
    {"one minute more", L"2147483648", kMost* kMinute},
    {"the most seconds", L"99999999999999999999s", kMost* kSecond},
    {"infinite", L"1e400", kMost* kMinute},
    {"infinite hours, wrapped", L"1e400h", kMost* kHour},
    {"infinite days, wrapped", L"1e400d", kMost* kDay},
    {"almost nothing", L"1e-400h", 0},
    {"almost nothing, but something", L"1e-300h", 0},
};

TEST(DurationParserTest, ReadsNumbersWithTheirUnits) {
    for (const ParseRow& row : kParseRows) {
        const Parsed parsed = Parse(row.text);
        EXPECT_TRUE(parsed.found) << row.label;
        EXPECT_EQ(parsed.ticks, row.ticks) << row.label;
    }
}

TEST(DurationParserTest, RejectsTextWithoutDigits) {
    for (const wchar_t* text : {L"", L" ", L"abc", L"hdmsw", L"nan", L"inf h", L"-", L"\x0663"}) {
        const Parsed parsed = Parse(text);
        EXPECT_FALSE(parsed.found) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(parsed.ticks, 0u);
        EXPECT_EQ(parsed.text, text);
    }
}

TEST(DurationParserTest, RejectsANullText) {
    DateTime duration(7, 8);
    EXPECT_FALSE(ParseDuration(nullptr, duration));
    EXPECT_EQ(duration, DateTime(7, 8));
}

TEST(DurationParserTest, AddsToWhatIsThere) {
    wchar_t text[] = L"30";
    DateTime duration;
    duration.AddHours(1);
    EXPECT_TRUE(ParseDuration(text, duration));
    EXPECT_EQ(duration.Ticks(), kHour + 30 * kMinute);
}

TEST(DurationParserTest, LeavesWhatIsThereWithoutANumber) {
    wchar_t text[] = L"abc";
    DateTime duration(7, 8);
    EXPECT_FALSE(ParseDuration(text, duration));
    EXPECT_EQ(duration, DateTime(7, 8));
}

TEST(DurationParserTest, PutsTheTextIntoUpperCaseFromTheNumberOn) {
    EXPECT_EQ(Parse(L"about 2d 3h").text, L"about 2D 3H");
    EXPECT_EQ(Parse(L"a.b").text, L"a.B");
    EXPECT_EQ(Parse(L"1h, m\x00FC\x64\x65").text, L"1H, M\x00DC\x44\x45");
    EXPECT_EQ(Parse(L"only words").text, L"only words");
}

struct PresetRow {
    const wchar_t* preset;
    uint64_t ticks;
    const wchar_t* shown;
};

// The texts that the duration field offers, and how each shows once it is chosen.
const PresetRow kPresetRows[] = {
    {L"0 minutes", 0, L"0 minutes"},
    {L"5 minutes", 5 * kMinute, L"5 minutes"},
    {L"10 minutes", 10 * kMinute, L"10 minutes"},
    {L"15 minutes", 15 * kMinute, L"15 minutes"},
    {L"30 minutes", 30 * kMinute, L"30 minutes"},
    {L"1 hour", kHour, L"1 hour"},
    {L"2 hours", 2 * kHour, L"2 hours"},
    {L"3 hours", 3 * kHour, L"3 hours"},
    {L"4 hours", 4 * kHour, L"4 hours"},
    {L"5 hours", 5 * kHour, L"5 hours"},
    {L"6 hours", 6 * kHour, L"6 hours"},
    {L"7 hours", 7 * kHour, L"7 hours"},
    {L"8 hours", 8 * kHour, L"8 hours"},
    {L"9 hours", 9 * kHour, L"9 hours"},
    {L"10 hours", 10 * kHour, L"10 hours"},
    {L"11 hours", 11 * kHour, L"11 hours"},
    {L".5 days", 12 * kHour, L"12 hours"},
    {L"1 day", kDay, L"1 day"},
    {L"2 days", 2 * kDay, L"2 days"},
};

TEST(DurationParserTest, ReadsEveryPreset) {
    for (const PresetRow& row : kPresetRows) {
        const Parsed parsed = Parse(row.preset);
        EXPECT_TRUE(parsed.found);
        EXPECT_EQ(parsed.ticks, row.ticks) << testing::PrintToString(std::wstring(row.preset));
        std::wstring shown;
        FormatDuration(DateTime(static_cast<uint32_t>(row.ticks), static_cast<uint32_t>(row.ticks >> 32)), shown);
        EXPECT_EQ(shown, row.shown);
    }
}

TEST(DurationParserTest, ReadsBackEveryTextOfALengthBelow31Days) {
    for (int minutes = 0; minutes < 31 * 24 * 60; ++minutes) {
        DateTime length;
        length.AddMinutes(minutes);
        std::wstring text;
        FormatDuration(length, text);
        DateTime back;
        ASSERT_TRUE(ParseDuration(text.data(), back)) << minutes;
        ASSERT_EQ(back, length) << testing::PrintToString(text);
    }
}

TEST(DurationParserTest, EndsOnAnyText) {
    constexpr wchar_t kCharacters[] = L"0123456789..  mhdwsMHDWSxeE+-,naif\x00FC\xD83D\xFFFF";
    std::mt19937 random(4);
    for (int i = 0; i < 20'000; ++i) {
        std::wstring text(random() % 40, L' ');
        for (wchar_t& character : text)
            character = kCharacters[random() % (std::size(kCharacters) - 1)];
        const bool numeric = text.find_first_of(L"0123456789.") != std::wstring::npos;
        const Parsed parsed = Parse(text);
        ASSERT_EQ(parsed.found, numeric) << testing::PrintToString(text);
        ASSERT_EQ(parsed.text.size(), text.size());
    }
}

TEST(DurationParserTest, ReadsVeryLongTexts) {
    EXPECT_EQ(Parse(std::wstring(20'000, L'9')).ticks, kMost * kMinute);
    EXPECT_EQ(Parse(std::wstring(20'000, L'0') + L"1h").ticks, kHour);
    EXPECT_EQ(Parse(std::wstring(20'000, L'x') + L"1h").ticks, kHour);
    EXPECT_EQ(Parse(std::wstring(20'000, L'.') + L"1h").ticks, 0u);

    std::wstring many;
    for (int i = 0; i < 5000; ++i)
        many += L"1m ";
    EXPECT_EQ(Parse(many).ticks, 5000 * kMinute);
}

// ---- The text of the duration field ----

TEST(DurationFieldTest, LeavesAnEmptyTextAlone) {
    std::wstring text;
    DateTime duration(7, 8);
    EXPECT_FALSE(ReadDurationField(text, duration));
    EXPECT_EQ(text, L"");
    EXPECT_EQ(duration, DateTime(7, 8));
}

TEST(DurationFieldTest, ReadsTheTextAndWritesItBackInUpperCase) {
    std::wstring text = L"about 1.5h";
    DateTime duration;
    EXPECT_TRUE(ReadDurationField(text, duration));
    EXPECT_EQ(text, L"about 1.5H");
    EXPECT_EQ(duration.Ticks(), kHour + 30 * kMinute);
}

TEST(DurationFieldTest, TellsThatNoNumberWasFound) {
    std::wstring text = L"abc";
    DateTime duration;
    EXPECT_FALSE(ReadDurationField(text, duration));
    EXPECT_EQ(text, L"abc");
    EXPECT_EQ(duration.Ticks(), 0u);
}

TEST(DurationFieldTest, WritesBackWhatStandsBeforeANul) {
    std::wstring text(L"1h\0 2h", 6);
    DateTime duration;
    EXPECT_TRUE(ReadDurationField(text, duration));
    EXPECT_EQ(text, L"1H");
    EXPECT_EQ(duration.Ticks(), kHour);
}

}  // namespace
