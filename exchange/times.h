// Dates and times as iCalendar and vCard files write them, and the time zones that a calendar brings along.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "exchange/components.h"

namespace import {

// Seconds on a clock since 1 January 1970 there.
using Seconds = int64_t;
constexpr Seconds kDay = 24 * 60 * 60;

struct CalendarDay {
    int year;
    int month;  // 1 to 12
    int day;
};
// Days since 1 January 1970, by the calendar of today.
int64_t DaysFrom(const CalendarDay& day);
CalendarDay DayOf(int64_t days);
// 0 is Sunday.
int WeekdayOf(int64_t days);
int DaysInMonth(int year, int month);

// Days since 30 December 1899, as Pocket Outlook counts.
double DateFrom(Seconds time);

struct WrittenTime {
    Seconds time = 0;
    bool isDate = false;  // without a time of day
    bool isUtc = false;
};
// 20040507, 20040507T1430, 20040507T143000Z, 2004-05-07T14:30:00+02:00. Nullopt for what names no date.
std::optional<WrittenTime> ParseTime(std::string_view text);

// P1DT2H30M, -PT15M, P2W in seconds.
std::optional<Seconds> ParseDuration(std::string_view text);

// What the clock on the wall shows at a time of UTC.
using LocalClock = std::function<Seconds(Seconds)>;
// The one of this machine.
Seconds SystemClock(Seconds utc);

// The time zones of one calendar.
class TimeZones {
public:
    explicit TimeZones(LocalClock clock) : clock_(std::move(clock)) {}

    // Takes a VTIMEZONE. False when it says too little to be of use.
    bool Add(const Component& component);
    bool Has(std::string_view name) const { return zones_.contains(std::string(name)); }

    // What the clock here shows at the time that a line such as DTSTART;TZID=...: names. Dates, and times without a
    // zone or of one that nobody described, are as written.
    std::optional<WrittenTime> LocalTime(const ContentLine& line) const;
    // The same for one of the line's values.
    std::optional<WrittenTime> LocalTime(std::string_view text, std::string_view zone) const;

private:
    // One of a zone's two offsets, and since when it holds in each year.
    struct Observance {
        Seconds start = 0;  // on the clock before
        Seconds offsetBefore = 0;
        Seconds offset = 0;
        std::vector<Seconds> more;  // other starts
        bool yearly = false;
        int month = 0;
        std::optional<int> weekday;  // with `nth`, or `days`
        int nth = 0;                 // 1 the first one of the month, -1 the last
        std::vector<int> days;       // of the month
        std::optional<Seconds> until;

        // The last start at or before a time; nullopt when all are later.
        std::optional<Seconds> LastStart(Seconds time) const;
        std::optional<Seconds> StartIn(int year) const;
    };

    static bool ParseObservance(const Component& part, Observance* observance);
    static void ParseRule(std::string_view rule, Observance* observance);
    static Seconds OffsetAt(const std::vector<Observance>& zone, Seconds time);

    LocalClock clock_;
    std::map<std::string, std::vector<Observance>> zones_;
};

}  // namespace import
