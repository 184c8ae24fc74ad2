// Dates, times, durations and time zones as files write them.
#include "exchange/times.h"

#include <gtest/gtest.h>

namespace {

using import::DaysFrom;
using import::kDay;
using import::ParseDuration;
using import::ParseTime;
using import::Seconds;

Seconds At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return DaysFrom({year, month, day}) * kDay + hour * 3600 + minute * 60 + second;
}

TEST(ImportTimesTest, DaysAreThoseOfTheCalendar) {
    EXPECT_EQ(DaysFrom({1970, 1, 1}), 0);
    EXPECT_EQ(DaysFrom({2000, 2, 29}), 11016);
    EXPECT_EQ(DaysFrom({2000, 3, 1}), 11017);
    EXPECT_EQ(DaysFrom({1900, 3, 1}) - DaysFrom({1900, 2, 28}), 1);
    for (int64_t day = -200'000; day <= 200'000; day += 97)
        EXPECT_EQ(DaysFrom(import::DayOf(day)), day);
    EXPECT_EQ(import::WeekdayOf(0), 4);  // a Thursday
    EXPECT_EQ(import::WeekdayOf(-5), 6);
    EXPECT_DOUBLE_EQ(import::DateFrom(At(2004, 5, 7, 12)), 38114.5);
}

TEST(ImportTimesTest, TimesAreReadInEveryForm) {
    const struct {
        const char* text;
        Seconds time;
        bool isDate;
        bool isUtc;
    } cases[] = {
        {"20040507", At(2004, 5, 7), true, false},
        {"2004-05-07", At(2004, 5, 7), true, false},
        {"20040507T143000", At(2004, 5, 7, 14, 30), false, false},
        {"20040507T1430", At(2004, 5, 7, 14, 30), false, false},
        {"20040507T143000Z", At(2004, 5, 7, 14, 30), false, true},
        {"2004-05-07T14:30:15Z", At(2004, 5, 7, 14, 30, 15), false, true},
        {"2004-05-07T14:30:15.250Z", At(2004, 5, 7, 14, 30, 15), false, true},
        {"2004-05-07T14:30:00+02:00", At(2004, 5, 7, 12, 30), false, true},
        {"20040507T010000-0330", At(2004, 5, 7, 4, 30), false, true},
        {"20000229", At(2000, 2, 29), true, false},
        {"20040507 ", At(2004, 5, 7), true, false},
    };
    for (const auto& c : cases) {
        const auto time = ParseTime(c.text);
        ASSERT_TRUE(time) << c.text;
        EXPECT_EQ(time->time, c.time) << c.text;
        EXPECT_EQ(time->isDate, c.isDate) << c.text;
        EXPECT_EQ(time->isUtc, c.isUtc) << c.text;
    }
}

TEST(ImportTimesTest, WhatNamesNoTimeIsNone) {
    for (const char* text :
         {"", "2004", "200405", "20041301", "20040230", "20030229", "20040507T", "20040507T9", "20040507T2560",
          "20040507T143000X", "07.05.2004", "5/7/2004", "2004-0507T", "tomorrow", "00000000", "20040507T143000Z1"})
        EXPECT_FALSE(ParseTime(text)) << text;
}

TEST(ImportTimesTest, DurationsAreRead) {
    EXPECT_EQ(ParseDuration("PT15M"), 900);
    EXPECT_EQ(ParseDuration("-PT15M"), -900);
    EXPECT_EQ(ParseDuration("+P1DT2H30M5S"), kDay + 9005);
    EXPECT_EQ(ParseDuration("P2W"), 14 * kDay);
    EXPECT_EQ(ParseDuration("P0D"), 0);
    for (const char* text : {"", "P", "15M", "PT15", "PT15X", "PTM", "P99999999999999999999D", "-"})
        EXPECT_FALSE(ParseDuration(text)) << text;
}

// ---- Time zones, seen from a machine whose clock is an hour ahead of UTC ----

constexpr Seconds kHour = 3600;

import::ContentLine Line(const std::string& text){import::ContentLines lines(text);
return *lines.Next();
}  // namespace

class TimeZonesTest : public testing::Test {
protected:
    void Add(const std::string& text) {
        std::vector<import::Component> components;
        std::vector<import::Problem> problems;
        ReadComponents(text, &components, &problems);
        ASSERT_EQ(components.size(), 1u);
        EXPECT_TRUE(zones_.Add(components[0]));
    }
    void AddBerlin() {
        Add("BEGIN:VTIMEZONE\nTZID:Europe/Berlin\n"
            "BEGIN:DAYLIGHT\nTZOFFSETFROM:+0100\nTZOFFSETTO:+0200\nDTSTART:19700329T020000\n"
            "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\nEND:DAYLIGHT\n"
            "BEGIN:STANDARD\nTZOFFSETFROM:+0200\nTZOFFSETTO:+0100\nDTSTART:19701025T030000\n"
            "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\nEND:STANDARD\nEND:VTIMEZONE\n");
    }
    // The hour here, counted from the start of that day.
    void Expect(const char* zone, const char* text, Seconds expected) {
        const auto time = zones_.LocalTime(text, zone);
        ASSERT_TRUE(time) << text;
        EXPECT_EQ(time->time, expected) << text;
    }

    import::TimeZones zones_{[](Seconds utc) { return utc + kHour;
}
}
;
}
;

TEST_F(TimeZonesTest, UtcIsShownByTheClockHere) {
    Expect("", "20040507T143000Z", At(2004, 5, 7, 15, 30));
    Expect("", "20041231T233000Z", At(2005, 1, 1, 0, 30));
}

TEST_F(TimeZonesTest, TimesWithoutAZoneAndDatesAreAsWritten) {
    AddBerlin();
    Expect("", "20040507T143000", At(2004, 5, 7, 14, 30));
    Expect("Europe/Berlin", "20040507", At(2004, 5, 7));
    Expect("Nowhere", "20040507T143000", At(2004, 5, 7, 14, 30));
    EXPECT_FALSE(zones_.Has("Nowhere"));
}

TEST_F(TimeZonesTest, ATimeOfAZoneIsWhatTheClockHereShowsThen) {
    AddBerlin();
    Expect("Europe/Berlin", "20040507T143000", At(2004, 5, 7, 13, 30));   // summer there: two hours ahead
    Expect("Europe/Berlin", "20041207T143000", At(2004, 12, 7, 14, 30));  // winter there: as here
    const auto line = zones_.LocalTime(Line("DTSTART;TZID=\"Europe/Berlin\":20040507T143000"));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->time, At(2004, 5, 7, 13, 30));
}

TEST_F(TimeZonesTest, ChangesComeAtTheirMinute) {
    AddBerlin();
    Expect("Europe/Berlin", "20040328T015900", At(2004, 3, 28, 1, 59));
    Expect("Europe/Berlin", "20040328T030000", At(2004, 3, 28, 2, 0));
    Expect("Europe/Berlin", "20041031T020000", At(2004, 10, 31, 1, 0));
    Expect("Europe/Berlin", "20041031T030000", At(2004, 10, 31, 3, 0));
    Expect("Europe/Berlin", "20240331T030000", At(2024, 3, 31, 2, 0));
}

TEST_F(TimeZonesTest, AZoneOfTheSouthAndOneWithoutSummerAreRead) {
    Add("BEGIN:VTIMEZONE\nTZID:Sydney\n"
        "BEGIN:STANDARD\nTZOFFSETFROM:+1100\nTZOFFSETTO:+1000\nDTSTART:20080406T030000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=4;BYDAY=1SU\nEND:STANDARD\n"
        "BEGIN:DAYLIGHT\nTZOFFSETFROM:+1000\nTZOFFSETTO:+1100\nDTSTART:20081005T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=1SU\nEND:DAYLIGHT\nEND:VTIMEZONE\n");
    Expect("Sydney", "20100115T120000", At(2010, 1, 15, 2));
    Expect("Sydney", "20100715T120000", At(2010, 7, 15, 3));
    Add("BEGIN:VTIMEZONE\nTZID:India\nBEGIN:STANDARD\nTZOFFSETFROM:+0530\nTZOFFSETTO:+0530\n"
        "DTSTART:16010101T000000\nEND:STANDARD\nEND:VTIMEZONE\n");
    Expect("India", "20100715T120000", At(2010, 7, 15, 7, 30));
}

TEST_F(TimeZonesTest, RulesThatEndedAndOthersThatBeganHoldInTheirYears) {
    Add("BEGIN:VTIMEZONE\nTZID:New York\n"
        "BEGIN:DAYLIGHT\nTZOFFSETFROM:-0500\nTZOFFSETTO:-0400\nDTSTART:19870405T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=4;BYDAY=1SU;UNTIL=20060402T070000Z\nEND:DAYLIGHT\n"
        "BEGIN:DAYLIGHT\nTZOFFSETFROM:-0500\nTZOFFSETTO:-0400\nDTSTART:20070311T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU\nEND:DAYLIGHT\n"
        "BEGIN:STANDARD\nTZOFFSETFROM:-0400\nTZOFFSETTO:-0500\nDTSTART:19671029T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU;UNTIL=20061029T060000Z\nEND:STANDARD\n"
        "BEGIN:STANDARD\nTZOFFSETFROM:-0400\nTZOFFSETTO:-0500\nDTSTART:20071104T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU\nEND:STANDARD\nEND:VTIMEZONE\n");
    Expect("New York", "20060320T120000", At(2006, 3, 20, 18));  // not yet summer under the old rule
    Expect("New York", "20060410T120000", At(2006, 4, 10, 17));
    Expect("New York", "20070320T120000", At(2007, 3, 20, 17));  // summer under the new one
    Expect("New York", "20071101T120000", At(2007, 11, 1, 17));
    Expect("New York", "20071105T120000", At(2007, 11, 5, 18));
    Expect("New York", "20350701T120000", At(2035, 7, 1, 17));
}

TEST_F(TimeZonesTest, RulesByDayOfTheMonthAndByDatesAreRead) {
    Add("BEGIN:VTIMEZONE\nTZID:Days\n"
        "BEGIN:DAYLIGHT\nTZOFFSETFROM:+0000\nTZOFFSETTO:+0100\nDTSTART:20000312T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=SU;BYMONTH=3\nEND:DAYLIGHT\n"
        "BEGIN:STANDARD\nTZOFFSETFROM:+0100\nTZOFFSETTO:+0000\nDTSTART:20001105T020000\n"
        "RDATE:20011104T020000,20021103T020000\nEND:STANDARD\nEND:VTIMEZONE\n");
    Expect("Days", "20010311T030000", At(2001, 3, 11, 3));
    Expect("Days", "20010310T120000", At(2001, 3, 10, 13));
    Expect("Days", "20021104T120000", At(2002, 11, 4, 13));
}

TEST_F(TimeZonesTest, BeforeAllChangesTheOldestOffsetHolds) {
    AddBerlin();
    Expect("Europe/Berlin", "19600701T120000", At(1960, 7, 1, 12));
}

TEST_F(TimeZonesTest, AZoneThatSaysTooLittleIsNone) {
    for (const char* text : {"BEGIN:VTIMEZONE\nTZID:X\nEND:VTIMEZONE\n",
                             "BEGIN:VTIMEZONE\nTZID:X\nBEGIN:STANDARD\nDTSTART:20000101T000000\nEND:STANDARD\n"
                             "END:VTIMEZONE\n",
                             "BEGIN:VTIMEZONE\nBEGIN:STANDARD\nDTSTART:20000101T000000\nTZOFFSETTO:+0100\n"
                             "END:STANDARD\nEND:VTIMEZONE\n"}) {
        std::vector<import::Component> components;
        std::vector<import::Problem> problems;
        import::ReadComponents(text, &components, &problems);
        EXPECT_FALSE(zones_.Add(components.at(0))) << text;
    }
}

}  // namespace
