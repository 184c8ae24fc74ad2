// The texts of dates and times. The system's own forms are asked for once more, so that any locale passes.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "text/date_time.h"

namespace {

const DateTime kNoDate(0, 0x80000000);

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0) {
    return {year, month, 0, day, hour, minute, second, 0};
}

std::wstring SystemDate(const DateTime& value, DWORD flags, const wchar_t* picture) {
    const SYSTEMTIME time = value.ToSystemTime();
    wchar_t buffer[256] = {};
    EXPECT_NE(GetDateFormatW(LOCALE_SYSTEM_DEFAULT, flags, &time, picture, buffer, 256), 0);
    return buffer;
}

std::wstring SystemTime(const DateTime& value) {
    const SYSTEMTIME time = value.ToSystemTime();
    wchar_t buffer[256] = {};
    EXPECT_NE(GetTimeFormatW(LOCALE_SYSTEM_DEFAULT, TIME_NOSECONDS, &time, nullptr, buffer, 256), 0);
    return buffer;
}

struct TextRow {
    const char* label;
    void (DateTime::*intoBuffer)(wchar_t*, int) const;
    void (DateTime::*intoString)(std::wstring&) const;
    int size;
    std::wstring (*expected)(const DateTime&);
};

const TextRow kTextRows[] = {
    {"weekday", &DateTime::WeekdayName, &DateTime::WeekdayName, DateTime::kDateChars,
     [](const DateTime& value) { return SystemDate(value, 0, L"dddd"); }},
    {"short weekday", &DateTime::ShortWeekdayName, &DateTime::ShortWeekdayName, DateTime::kDateChars,
     [](const DateTime& value) { return SystemDate(value, 0, L"ddd"); }},
    {"month", &DateTime::MonthName, &DateTime::MonthName, DateTime::kDateChars,
     [](const DateTime& value) { return SystemDate(value, 0, L"MMMM"); }},
    {"short month", &DateTime::ShortMonthName, &DateTime::ShortMonthName, DateTime::kDateChars,
     [](const DateTime& value) { return SystemDate(value, 0, L"MMM"); }},
    {"long date", &DateTime::LongDate, &DateTime::LongDate, DateTime::kDateChars,
     [](const DateTime& value) { return SystemDate(value, DATE_LONGDATE, nullptr); }},
    {"short date", &DateTime::ShortDate, &DateTime::ShortDate, DateTime::kShortChars,
     [](const DateTime& value) { return SystemDate(value, DATE_SHORTDATE, nullptr); }},
    {"time", &DateTime::Time, &DateTime::Time, DateTime::kShortChars, SystemTime},
    {"date and time", &DateTime::DateAndTime, &DateTime::DateAndTime, DateTime::kDateAndTimeChars,
     [](const DateTime& value) { return SystemDate(value, DATE_SHORTDATE, nullptr) + L" " + SystemTime(value); }},
};

const SYSTEMTIME kMoments[] = {At(2001, 5, 7, 13, 45, 59), At(1601, 1, 1), At(2004, 2, 29, 0, 5),
                               At(9999, 12, 31, 23, 59)};

TEST(DateTextTest, ReplacesTheStringWithTheSystemsForm) {
    for (const TextRow& row : kTextRows) {
        for (const SYSTEMTIME& moment : kMoments) {
            std::wstring text = L"what stood there before, at some length";
            (DateTime(moment).*row.intoString)(text);
            EXPECT_EQ(text, row.expected(DateTime(moment))) << row.label;
            EXPECT_FALSE(text.empty()) << row.label;
        }
    }
}

TEST(DateTextTest, FillsABufferOfTheNamedSize) {
    for (const TextRow& row : kTextRows) {
        for (const SYSTEMTIME& moment : kMoments) {
            wchar_t buffer[256];
            std::fill(std::begin(buffer), std::end(buffer), L'#');
            (DateTime(moment).*row.intoBuffer)(buffer, row.size);
            EXPECT_EQ(std::wstring(buffer), row.expected(DateTime(moment))) << row.label;
            EXPECT_EQ(buffer[row.size], L'#') << row.label;
        }
    }
}

TEST(DateTextTest, GivesAnEmptyTextWhenTheBufferIsTooSmall) {
    const DateTime value(At(2001, 9, 26, 12, 45));  // a Wednesday in September
    for (const TextRow& row : kTextRows) {
        const int full = static_cast<int>(row.expected(value).size());
        for (const int size : {1, 2, full}) {
            if (size > full) continue;
            wchar_t buffer[256];
            std::fill(std::begin(buffer), std::end(buffer), L'#');
            (value.*row.intoBuffer)(buffer, size);
            EXPECT_EQ(buffer[0], L'\0') << row.label << ' ' << size;
            EXPECT_EQ(buffer[size], L'#') << row.label << ' ' << size;
        }
        wchar_t buffer[256];
        (value.*row.intoBuffer)(buffer, full + 1);
        EXPECT_EQ(std::wstring(buffer), row.expected(value)) << row.label;
    }
}

TEST(DateTextTest, GivesAnEmptyTextWhenTheValueNamesNoDate) {
    for (const TextRow& row : kTextRows) {
        std::wstring text = L"before";
        (kNoDate.*row.intoString)(text);
        EXPECT_EQ(text, L"") << row.label;
        wchar_t buffer[256] = L"before";
        (kNoDate.*row.intoBuffer)(buffer, row.size);
        EXPECT_EQ(std::wstring(buffer), L"") << row.label;
    }
}

TEST(DateTextTest, TheTimeShowsNoSeconds) {
    std::wstring with;
    std::wstring without;
    DateTime(At(2001, 5, 7, 13, 45, 59)).Time(with);
    DateTime(At(2001, 5, 7, 13, 45)).Time(without);
    EXPECT_EQ(with, without);
    DateTime(At(2001, 5, 7, 13, 46)).Time(without);
    EXPECT_NE(with, without);
}

TEST(DateTextTest, NamesSevenDaysAndTwelveMonths) {
    std::set<std::wstring> days;
    std::set<std::wstring> months;
    std::wstring text;
    DateTime value(At(2001, 1, 1));
    for (int day = 0; day < 365; ++day, value.AddDays(1)) {
        value.WeekdayName(text);
        days.insert(text);
        value.MonthName(text);
        months.insert(text);
    }
    EXPECT_EQ(days.size(), 7u);
    EXPECT_EQ(months.size(), 12u);
}

TEST(DateTextTest, ReadsInEnglishWhereTheSystemIsEnglish) {
    if (LANGIDFROMLCID(GetSystemDefaultLCID()) != MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)) {
        GTEST_SKIP() << "the system's language is another; the rows above hold for it";
    }
    const DateTime value(At(2001, 5, 7, 13, 45));
    std::wstring text;
    value.WeekdayName(text);
    EXPECT_EQ(text, L"Monday");
    value.ShortWeekdayName(text);
    EXPECT_EQ(text, L"Mon");
    value.MonthName(text);
    EXPECT_EQ(text, L"May");
    DateTime(At(2001, 9, 7)).ShortMonthName(text);
    EXPECT_EQ(text, L"Sep");
}

}  // namespace
