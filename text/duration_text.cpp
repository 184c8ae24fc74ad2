#include "text/duration_text.h"

#include <cmath>
#include <cwchar>
#include <limits>

namespace {

constexpr wchar_t kNumberStart[] = L"0123456789.";
constexpr wchar_t kUnits[] = L"MHDWS";

// A floating number above what a count holds has no defined conversion: it saturates. The number read is never
// negative.
int32_t Count(double number) {
    constexpr int32_t kMost = std::numeric_limits<int32_t>::max();
    return number < kMost ? static_cast<int32_t>(number) : kMost;
}

std::wstring Number(int number) {
    return std::to_wstring(number);
}

void AddUnit(wchar_t unit, double number, DateTime& duration) {
    double whole = 0;
    const double fraction = std::modf(number, &whole);

    switch (unit) {
        case L'D':
            duration.AddDays(Count(whole));
            duration.AddHours(Count(fraction * 24));
            break;
        case L'H':
            duration.AddHours(Count(whole));
            duration.AddMinutes(Count(fraction * 60));
            break;
        case L'M': duration.AddMinutes(Count(whole)); break;
        case L'S': duration.AddSeconds(Count(whole)); break;
        case L'W':
            duration.AddDays(Count(whole));
            duration.AddDays(Count(fraction * 7));
            break;
        default: break;
    }
}

}  // namespace

void FormatDuration(const DateTime& duration, wchar_t* buffer, int size) {
    std::wstring text;
    FormatDuration(duration, text);
    buffer[text.copy(buffer, static_cast<size_t>(size) - 1)] = L'\0';
}

void FormatDuration(const DateTime& duration, std::wstring& text) {
    SYSTEMTIME time = {};
    time.wDay = 1;  // no days, should the length name no date
    duration.ToSystemTime(time);
    const int days = time.wDay - 1;
    const int hours = time.wHour;
    const int minutes = time.wMinute;

    // The words differ with what stands beside them.
    const wchar_t* const day = days == 1 ? L" day" : L" days";
    const wchar_t* const dayWithMinutes = days == 1 ? L" dy " : L" dys ";
    const wchar_t* const hour = hours == 1 ? L" hour" : L" hrs";

    if (days > 0 && minutes > 0) {
        text = Number(days) + dayWithMinutes + Number(hours) + hour + L' ' + Number(minutes) + L" mn";
    } else if (days > 0 && hours > 0) {
        text = Number(days) + day + L' ' + Number(hours) + hour;
    } else if (days > 0) {
        text = Number(days) + day;
    } else if (hours > 0 && minutes > 0) {
        text = Number(hours) + hour + L' ' + Number(minutes) + (minutes == 1 ? L" minute" : L" min");
    } else if (hours > 0) {
        text = Number(hours) + (hours == 1 ? L" hour" : L" hours");
    } else {
        text = Number(minutes) + (minutes == 1 ? L" minute" : L" minutes");
    }
}

bool ParseDuration(wchar_t* text, DateTime& duration) {
    if (!text) return false;
    wchar_t* start = std::wcspbrk(text, kNumberStart);
    if (!start) return false;
    CharUpperW(start);

    while (start) {
        wchar_t* end = nullptr;
        const double number = std::wcstod(start, &end);
        const wchar_t* const unit = std::wcspbrk(end, kUnits);
        AddUnit(unit ? *unit : L'M', number, duration);
        start = unit ? std::wcspbrk(end + (unit - end), kNumberStart) : nullptr;
    }
    return true;
}

bool ReadDurationField(std::wstring& text, DateTime& duration) {
    if (text.empty()) return false;
    std::wstring copy = text;
    const bool found = ParseDuration(copy.data(), duration);
    text = copy.c_str();
    return found;
}
