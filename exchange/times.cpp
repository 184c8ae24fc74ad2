#include "exchange/times.h"

#include <win.h>

#include <algorithm>

namespace import {
namespace {

constexpr Seconds kEpochAsFileTime = 11'644'473'600;
constexpr int64_t kTicksPerSecond = 10'000'000;

// Reads numbers and signs from the front of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text) : left_(text) {}

    // Exactly so many digits.
    std::optional<int> Digits(size_t count) {
        if (left_.size() < count) return std::nullopt;
        int number = 0;
        for (size_t i = 0; i < count; ++i) {
            if (left_[i] < '0' || left_[i] > '9') return std::nullopt;
            number = number * 10 + (left_[i] - '0');
        }
        left_.remove_prefix(count);
        return number;
    }
    // As many as there are, one at least.
    std::optional<int64_t> Number() {
        const size_t count = std::min(left_.find_first_not_of("0123456789"), left_.size());
        if (count == 0 || count > 9) return std::nullopt;
        return Digits(count);
    }
    bool Take(char c) {
        if (left_.empty() || left_[0] != c) return false;
        left_.remove_prefix(1);
        return true;
    }
    bool AtEnd() const { return left_.empty(); }

private:
    std::string_view left_;
};

// Hours and minutes, perhaps seconds, perhaps with colons.
std::optional<Seconds> ScanClock(Scanner& scanner) {
    const auto hours = scanner.Digits(2);
    scanner.Take(':');
    const auto minutes = scanner.Digits(2);
    if (!hours || !minutes) return std::nullopt;
    scanner.Take(':');
    const int seconds = scanner.Digits(2).value_or(0);
    if (*hours > 24 || *minutes > 59 || seconds > 60) return std::nullopt;
    return *hours * 3600 + *minutes * 60 + seconds;
}

std::optional<Seconds> ScanOffset(Scanner& scanner) {
    const bool negative = scanner.Take('-');
    if (!negative && !scanner.Take('+')) return std::nullopt;
    const auto hours = scanner.Digits(2);
    if (!hours) return std::nullopt;
    scanner.Take(':');
    const Seconds offset = *hours * 3600 + scanner.Digits(2).value_or(0) * 60;
    return negative ? -offset : offset;
}

std::optional<Seconds> ParseOffset(const ContentLine* line) {
    if (!line) return std::nullopt;
    Scanner scanner(line->value);
    return ScanOffset(scanner);
}

std::optional<int> WeekdayNamed(std::string_view name) {
    constexpr std::string_view kNames = "SUMOTUWETHFRSA";
    const size_t at = kNames.find(name);
    if (name.size() != 2 || at == kNames.npos || at % 2) return std::nullopt;
    return static_cast<int>(at / 2);
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (size_t begin = 0; begin <= text.size();) {
        const size_t end = std::min(text.find(separator, begin), text.size());
        parts.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

int ToNumber(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    Scanner scanner(text);
    const int number = static_cast<int>(scanner.Number().value_or(0));
    return negative ? -number : number;
}

}  // namespace

// ---- The calendar ----

// Years are counted from March, so that the day that may be missing comes last.
int64_t DaysFrom(const CalendarDay& day) {
    const int64_t year = day.month <= 2 ? day.year - 1 : day.year;
    const int64_t era = (year >= 0 ? year : year - 399) / 400;
    const int64_t yearOfEra = year - era * 400;
    const int64_t dayOfYear = (153 * (day.month + (day.month > 2 ? -3 : 9)) + 2) / 5 + day.day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

CalendarDay DayOf(int64_t days) {
    days += 719468;
    const int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const int64_t dayOfEra = days - era * 146097;
    const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int64_t month = (5 * dayOfYear + 2) / 153;
    const int calendarMonth = static_cast<int>(month < 10 ? month + 3 : month - 9);
    return {static_cast<int>(yearOfEra + era * 400 + (calendarMonth <= 2 ? 1 : 0)), calendarMonth,
            static_cast<int>(dayOfYear - (153 * month + 2) / 5 + 1)};
}

int WeekdayOf(int64_t days) {
    return static_cast<int>(((days + 4) % 7 + 7) % 7);
}

int DaysInMonth(int year, int month) {
    const CalendarDay next = month == 12 ? CalendarDay{year + 1, 1, 1} : CalendarDay{year, month + 1, 1};
    return static_cast<int>(DaysFrom(next) - DaysFrom({year, month, 1}));
}

double DateFrom(Seconds time) {
    constexpr double kDaysTo1970 = 25569;
    return kDaysTo1970 + static_cast<double>(time) / static_cast<double>(kDay);
}

Seconds SystemClock(Seconds utc) {
    const int64_t ticks = (utc + kEpochAsFileTime) * kTicksPerSecond;
    const FILETIME time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME system = {};
    SYSTEMTIME local = {};
    FILETIME shown = {};
    if (!FileTimeToSystemTime(&time, &system) || !SystemTimeToTzSpecificLocalTime(nullptr, &system, &local) ||
        !SystemTimeToFileTime(&local, &shown)) {
        return utc;
    }
    return static_cast<int64_t>(uint64_t{shown.dwHighDateTime} << 32 | shown.dwLowDateTime) / kTicksPerSecond -
           kEpochAsFileTime;
}

// ---- Texts ----

std::optional<WrittenTime> ParseTime(std::string_view text) {
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    Scanner scanner(text);
    const auto year = scanner.Digits(4);
    const bool dashes = scanner.Take('-');
    const auto month = scanner.Digits(2);
    if (dashes && !scanner.Take('-')) return std::nullopt;
    const auto day = scanner.Digits(2);
    if (!year || !month || !day || *year < 1601 || *month < 1 || *month > 12) return std::nullopt;
    if (*day < 1 || *day > DaysInMonth(*year, *month)) return std::nullopt;
    WrittenTime written;
    written.time = DaysFrom({*year, *month, *day}) * kDay;
    if (scanner.AtEnd()) {
        written.isDate = true;
        return written;
    }
    if (!scanner.Take('T') && !scanner.Take('t') && !scanner.Take(' ')) return std::nullopt;
    const auto clock = ScanClock(scanner);
    if (!clock) return std::nullopt;
    written.time += *clock;
    if (scanner.Take('.')) scanner.Number();  // parts of a second
    if (scanner.Take('Z') || scanner.Take('z')) {
        written.isUtc = true;
    } else if (const auto offset = ScanOffset(scanner)) {
        written.time -= *offset;
        written.isUtc = true;
    }
    return scanner.AtEnd() ? std::optional(written) : std::nullopt;
}

std::optional<Seconds> ParseDuration(std::string_view text) {
    Scanner scanner(text);
    const bool negative = scanner.Take('-');
    if (!negative) scanner.Take('+');
    if (!scanner.Take('P') || scanner.AtEnd()) return std::nullopt;
    Seconds length = 0;
    while (!scanner.AtEnd()) {
        if (scanner.Take('T')) continue;
        const auto number = scanner.Number();
        if (!number) return std::nullopt;
        if (scanner.Take('W')) {
            length += *number * 7 * kDay;
        } else if (scanner.Take('D')) {
            length += *number * kDay;
        } else if (scanner.Take('H')) {
            length += *number * 3600;
        } else if (scanner.Take('M')) {
            length += *number * 60;
        } else if (scanner.Take('S')) {
            length += *number;
        } else {
            return std::nullopt;
        }
    }
    return negative ? -length : length;
}

// ---- Time zones ----

bool TimeZones::Add(const Component& component) {
    const ContentLine* name = component.Find("TZID");
    std::vector<Observance> zone;
    for (const Component& part : component.parts) {
        Observance observance;
        if (ParseObservance(part, &observance)) zone.push_back(std::move(observance));
    }
    if (!name || name->value.empty() || zone.empty()) return false;
    zones_[name->value] = std::move(zone);
    return true;
}

bool TimeZones::ParseObservance(const Component& part, Observance* observance) {
    if (part.name != "STANDARD" && part.name != "DAYLIGHT") return false;
    const ContentLine* start = part.Find("DTSTART");
    const auto time = start ? ParseTime(start->value) : std::nullopt;
    const auto before = ParseOffset(part.Find("TZOFFSETFROM"));
    const auto offset = ParseOffset(part.Find("TZOFFSETTO"));
    if (!time || !offset) return false;
    observance->start = time->time;
    observance->offset = *offset;
    observance->offsetBefore = before.value_or(*offset);
    for (const ContentLine& line : part.lines) {
        if (line.name == "RRULE") ParseRule(line.value, observance);
        if (line.name != "RDATE") continue;
        for (const std::string_view text : Split(line.value, ','))
            if (const auto more = ParseTime(text)) observance->more.push_back(more->time);
    }
    return true;
}

void TimeZones::ParseRule(std::string_view rule, Observance* observance) {
    const CalendarDay start = DayOf((observance->start - (observance->start % kDay + kDay) % kDay) / kDay);
    observance->month = start.month;
    for (const std::string_view part : Split(rule, ';')) {
        const size_t equals = std::min(part.find('='), part.size());
        const std::string name = ToUpper(part.substr(0, equals));
        const std::string value = ToUpper(part.substr(std::min(equals + 1, part.size())));
        if (name == "FREQ") observance->yearly = value == "YEARLY";
        if (name == "BYMONTH") observance->month = ToNumber(value);
        if (name == "BYMONTHDAY") {
            for (const std::string_view day : Split(value, ','))
                observance->days.push_back(ToNumber(day));
        }
        if (name == "BYDAY" && value.size() >= 2) {
            observance->weekday = WeekdayNamed(std::string_view(value).substr(value.size() - 2));
            observance->nth = ToNumber(std::string_view(value).substr(0, value.size() - 2));
        }
        if (name == "UNTIL") {
            if (const auto until = ParseTime(value)) {
                observance->until = until->isUtc ? until->time + observance->offsetBefore : until->time;
            }
        }
    }
    if (observance->month < 1 || observance->month > 12) observance->yearly = false;
}

std::optional<Seconds> TimeZones::Observance::StartIn(int year) const {
    const Seconds clock = (start % kDay + kDay) % kDay;
    const int last = DaysInMonth(year, month);
    const int64_t first = DaysFrom({year, month, 1});
    std::vector<int> fitting;
    for (int day = 1; day <= last; ++day) {
        const bool rightDay = days.empty() || std::find(days.begin(), days.end(), day) != days.end() ||
                              std::find(days.begin(), days.end(), day - last - 1) != days.end();
        if (rightDay && (!weekday || WeekdayOf(first + day - 1) == *weekday)) fitting.push_back(day);
    }
    if (!weekday && days.empty()) {
        const CalendarDay day = DayOf((start - clock) / kDay);
        fitting = {std::min(day.day, last)};
    }
    if (fitting.empty()) return std::nullopt;
    const int count = static_cast<int>(fitting.size());
    const int index = nth > 0 ? nth - 1 : nth < 0 ? count + nth : 0;
    if (index < 0 || index >= count) return std::nullopt;
    return (first + fitting[static_cast<size_t>(index)] - 1) * kDay + clock;
}

std::optional<Seconds> TimeZones::Observance::LastStart(Seconds time) const {
    std::optional<Seconds> last;
    const auto consider = [&](Seconds candidate) {
        if (candidate <= time && (!last || candidate > *last)) last = candidate;
    };
    consider(start);
    for (const Seconds candidate : more)
        consider(candidate);
    if (!yearly) return last;
    int year = DayOf((time - (time % kDay + kDay) % kDay) / kDay).year;
    if (until) year = std::min(year, DayOf((*until - (*until % kDay + kDay) % kDay) / kDay).year);
    for (const int candidate : {year, year - 1}) {
        const auto begin = StartIn(candidate);
        if (begin && *begin >= start && (!until || *begin <= *until)) consider(*begin);
    }
    return last;
}

Seconds TimeZones::OffsetAt(const std::vector<Observance>& zone, Seconds time) {
    const Observance* holds = nullptr;
    const Observance* first = &zone[0];
    Seconds since = 0;
    for (const Observance& observance : zone) {
        if (observance.start < first->start) first = &observance;
        const auto start = observance.LastStart(time);
        if (!start || (holds && *start < since)) continue;
        holds = &observance;
        since = *start;
    }
    return holds ? holds->offset : first->offsetBefore;
}

std::optional<WrittenTime> TimeZones::LocalTime(const ContentLine& line) const {
    return LocalTime(line.value, line.Get("TZID"));
}

std::optional<WrittenTime> TimeZones::LocalTime(std::string_view text, std::string_view zone) const {
    std::optional<WrittenTime> written = ParseTime(text);
    if (!written || written->isDate) return written;
    const auto known = zones_.find(std::string(zone));
    if (written->isUtc) {
        written->time = clock_(written->time);
    } else if (known != zones_.end()) {
        written->time = clock_(written->time - OffsetAt(known->second, written->time));
    }
    written->isUtc = false;
    return written;
}

}  // namespace import
