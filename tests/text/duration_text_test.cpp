// A length of time as text: the eight forms, their odd words, and what does not show.
#include "text/duration_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

DateTime Length(int days, int hours, int minutes, int seconds = 0) {
    DateTime length;
    length.AddDays(days);
    length.AddHours(hours);
    length.AddMinutes(minutes);
    length.AddSeconds(seconds);
    return length;
}

std::wstring Text(const DateTime& length) {
    std::wstring text = L"before";
    FormatDuration(length, text);
    return text;
}

struct FormatRow {
    const char* label;
    int days;
    int hours;
    int minutes;
    const wchar_t* text;
};

const FormatRow kFormatRows[] = {
    // days, hours and minutes
    {"all three", 1, 2, 5, L"1 dy 2 hrs 5 mn"},
    {"all three of one", 1, 1, 1, L"1 dy 1 hour 1 mn"},
    {"all three of many", 2, 1, 59, L"2 dys 1 hour 59 mn"},
    {"the longest", 30, 23, 59, L"30 dys 23 hrs 59 mn"},
    // days and minutes
    {"days and minutes", 2, 0, 30, L"2 dys 0 hrs 30 mn"},
    {"24 hours and a minute", 0, 24, 1, L"1 dy 0 hrs 1 mn"},
    // days and hours
    {"49 hours", 0, 49, 0, L"2 days 1 hour"},
    {"one day and one hour", 1, 1, 0, L"1 day 1 hour"},
    {"one day and many hours", 1, 23, 0, L"1 day 23 hrs"},
    {"many days and hours", 12, 2, 0, L"12 days 2 hrs"},
    // days
    {"one day", 1, 0, 0, L"1 day"},
    {"24 hours", 0, 24, 0, L"1 day"},
    {"many days", 30, 0, 0, L"30 days"},
    // hours and minutes
    {"one hour one minute", 0, 1, 1, L"1 hour 1 minute"},
    {"90 minutes", 0, 0, 90, L"1 hour 30 min"},
    {"hours and one minute", 0, 2, 1, L"2 hrs 1 minute"},
    {"hours and minutes", 0, 2, 15, L"2 hrs 15 min"},
    // hours
    {"one hour", 0, 1, 0, L"1 hour"},
    {"hours", 0, 3, 0, L"3 hours"},
    {"the last full hour", 0, 23, 0, L"23 hours"},
    // minutes
    {"one minute", 0, 0, 1, L"1 minute"},
    {"two minutes", 0, 0, 2, L"2 minutes"},
    {"the last minute", 0, 0, 59, L"59 minutes"},
    // nothing
    {"nothing", 0, 0, 0, L"0 minutes"},
    // the wrap at the month's end
    {"31 days are the first of February", 31, 0, 0, L"0 minutes"},
    {"31 days and an hour", 31, 1, 0, L"1 hour"},
    {"32 days and two hours", 32, 2, 0, L"1 day 2 hrs"},
    {"59 days are the first of March", 59, 0, 0, L"0 minutes"},
    {"365 days are a new year", 365, 0, 0, L"0 minutes"},
};

TEST(DurationTextTest, WritesEachForm) {
    for (const FormatRow& row : kFormatRows) {
        EXPECT_EQ(Text(Length(row.days, row.hours, row.minutes)), row.text) << row.label;
    }
}

TEST(DurationTextTest, NeverShowsSeconds) {
    EXPECT_EQ(Text(Length(0, 0, 0, 59)), L"0 minutes");
    EXPECT_EQ(Text(Length(0, 0, 1, 59)), L"1 minute");
    DateTime almost = Length(1, 0, 0);
    almost -= DateTime(1, 0);
    EXPECT_EQ(Text(almost), L"23 hrs 59 min");
}

TEST(DurationTextTest, ShowsALengthBeyondAnyDateAsNone) {
    EXPECT_EQ(Text(DateTime(0, 0x80000000)), L"0 minutes");
    EXPECT_EQ(Text(DateTime(0xFFFFFFFF, 0xFFFFFFFF)), L"0 minutes");
}

TEST(DurationTextTest, FillsABufferLikeAString) {
    for (const FormatRow& row : kFormatRows) {
        wchar_t buffer[kDurationChars];
        FormatDuration(Length(row.days, row.hours, row.minutes), buffer, kDurationChars);
        EXPECT_EQ(std::wstring(buffer), row.text) << row.label;
    }
}

TEST(DurationTextTest, CutsTheTextToTheBuffer) {
    const DateTime length = Length(1, 2, 5);
    const std::wstring full = Text(length);
    for (size_t size = 1; size <= full.size() + 1; ++size) {
        wchar_t buffer[kDurationChars];
        std::fill(std::begin(buffer), std::end(buffer), L'#');
        FormatDuration(length, buffer, static_cast<int>(size));
        EXPECT_EQ(std::wstring(buffer), full.substr(0, size - 1));
        EXPECT_EQ(buffer[size], L'#');
    }
}

}  // namespace
