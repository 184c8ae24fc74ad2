#include "text/date_time.h"

#include <dateformat.h>

#include <cmath>

static_assert(sizeof(FILETIME) == sizeof(uint64_t));

namespace {

constexpr uint64_t Join(uint32_t low, uint32_t high) {
    return (uint64_t{high} << 32) | low;
}

// `count` units as ticks modulo 2^64: in unsigned numbers, so that no count overflows.
constexpr uint64_t Span(int32_t count, uint64_t ticksPerUnit) {
    return static_cast<uint64_t>(int64_t{count}) * ticksPerUnit;
}

bool TicksOf(const SYSTEMTIME& time, uint64_t& ticks) {
    FILETIME file = {};
    if (!SystemTimeToFileTime(&time, &file)) return false;
    ticks = Join(file.dwLowDateTime, file.dwHighDateTime);
    return true;
}

// One of the system's date texts: a picture, or a flag without one. Empty when it cannot be made.
void DateText(const DateTime& value, DWORD flags, const wchar_t* picture, wchar_t* buffer, int size) {
    const SYSTEMTIME time = value.ToSystemTime();
    if (!GetDateFormatW(LOCALE_SYSTEM_DEFAULT, flags, &time, picture, buffer, size)) buffer[0] = L'\0';
}

// Runs one of the texts above into a string, through a buffer of its size.
template <int size>
void IntoString(const DateTime& value, void (DateTime::*make)(wchar_t*, int) const, std::wstring& text) {
    wchar_t buffer[size];
    (value.*make)(buffer, size);
    text = buffer;
}

}  // namespace

DateTime::DateTime(const SYSTEMTIME& time) noexcept {
    Set(time);
}

DateTime::DateTime(uint32_t low, uint32_t high) noexcept : ticks_(Join(low, high)) {}

DateTime::DateTime(const FILETIME& time) noexcept : DateTime(time.dwLowDateTime, time.dwHighDateTime) {}

void DateTime::Set(const SYSTEMTIME& time) noexcept {
    TicksOf(time, ticks_);
}

void DateTime::Set(uint32_t low, uint32_t high) noexcept {
    ticks_ = Join(low, high);
}

void DateTime::Set(const FILETIME& time) noexcept {
    Set(time.dwLowDateTime, time.dwHighDateTime);
}

void DateTime::SetNow() noexcept {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    Set(now);
}

void DateTime::SetSpan(const SYSTEMTIME& time) noexcept {
    ticks_ = time.wHour * kTicksPerHour + time.wMinute * kTicksPerMinute;
}

void DateTime::SetVariantTime(double days) noexcept {
    constexpr int kFirstYear = 1980;
    constexpr int kYearTooLate = 2108;
    SYSTEMTIME time = {};
    // Not every system's own range check stops what is no number at all.
    if (!std::isfinite(days) || !VariantTimeToSystemTime(days, &time)) return;
    if (time.wYear >= kFirstYear && time.wYear < kYearTooLate) Set(time);
}

void DateTime::SetFromPicker(HWND picker) noexcept {
    SYSTEMTIME time = {};
    if (SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID) Set(time);
}

DateTime::Halves DateTime::GetHalves() const noexcept {
    return {static_cast<uint32_t>(ticks_), static_cast<uint32_t>(ticks_ >> 32)};
}

void DateTime::ToSystemTime(SYSTEMTIME& time) const noexcept {
    const FILETIME file = ToFileTime();
    SYSTEMTIME converted;
    if (FileTimeToSystemTime(&file, &converted)) time = converted;
}

SYSTEMTIME DateTime::ToSystemTime() const noexcept {
    SYSTEMTIME time = {};
    ToSystemTime(time);
    return time;
}

FILETIME DateTime::ToFileTime() const noexcept {
    const Halves halves = GetHalves();
    return {halves.low, halves.high};
}

double DateTime::ToVariantTime() const noexcept {
    SYSTEMTIME time = ToSystemTime();
    double days = 0;
    // Fields of 0 would pass as a day of the year 1999.
    return time.wYear != 0 && SystemTimeToVariantTime(&time, &days) ? days : 0;
}

void DateTime::ToPicker(HWND picker, bool valid) const noexcept {
    SYSTEMTIME time = ToSystemTime();
    SendMessageW(picker, DTM_SETSYSTEMTIME, valid ? GDT_VALID : GDT_NONE, reinterpret_cast<LPARAM>(&time));
}

int DateTime::Month() const noexcept {
    return ToSystemTime().wMonth;
}

void DateTime::AddDays(int32_t count) noexcept {
    ticks_ += Span(count, kTicksPerDay);
}

void DateTime::AddHours(int32_t count) noexcept {
    ticks_ += Span(count, kTicksPerHour);
}

void DateTime::AddMinutes(int32_t count) noexcept {
    ticks_ += Span(count, kTicksPerMinute);
}

void DateTime::AddSeconds(int32_t count) noexcept {
    ticks_ += Span(count, kTicksPerSecond);
}

void DateTime::SubtractDays(int32_t count) noexcept {
    ticks_ -= Span(count, kTicksPerDay);
}

void DateTime::AddFourHours(int32_t count) noexcept {
    ticks_ += Span(count, 4 * kTicksPerHour);
}

DateTime& DateTime::operator+=(const DateTime& other) noexcept {
    ticks_ += other.ticks_;
    return *this;
}

DateTime& DateTime::operator-=(const DateTime& other) noexcept {
    ticks_ -= other.ticks_;
    return *this;
}

DateTime DateTime::operator+(const DateTime& other) const noexcept {
    DateTime sum(*this);
    sum += other;
    return sum;
}

int64_t DateTime::Difference(const DateTime& other) const noexcept {
    return static_cast<int64_t>(ticks_ - other.ticks_);
}

void DateTime::StepForwardTenMinutes() noexcept {
    ticks_ += 10 * kTicksPerMinute;
}

void DateTime::StepForwardMinute() noexcept {
    ticks_ += kTicksPerMinute;
}

void DateTime::StepForwardSixSeconds() noexcept {
    ticks_ += 6 * kTicksPerSecond;
}

void DateTime::StepBackHour() noexcept {
    ticks_ -= kTicksPerHour;
}

void DateTime::StepBackMinute() noexcept {
    ticks_ -= kTicksPerMinute;
}

void DateTime::StepBackSecond() noexcept {
    ticks_ -= kTicksPerSecond;
}

bool DateTime::operator==(const Halves& other) const noexcept {
    return ticks_ == Join(other.low, other.high);
}

std::strong_ordering DateTime::operator<=>(const Halves& other) const noexcept {
    return ticks_ <=> Join(other.low, other.high);
}

bool DateTime::operator==(const SYSTEMTIME& other) const noexcept {
    uint64_t ticks = 0;
    return TicksOf(other, ticks) && ticks_ == ticks;
}

void DateTime::WeekdayName(wchar_t* buffer, int size) const {
    DateText(*this, 0, L"dddd", buffer, size);
}

void DateTime::ShortWeekdayName(wchar_t* buffer, int size) const {
    DateText(*this, 0, L"ddd", buffer, size);
}

void DateTime::MonthName(wchar_t* buffer, int size) const {
    DateText(*this, 0, L"MMMM", buffer, size);
}

void DateTime::ShortMonthName(wchar_t* buffer, int size) const {
    DateText(*this, 0, L"MMM", buffer, size);
}

void DateTime::LongDate(wchar_t* buffer, int size) const {
    DateText(*this, DATE_LONGDATE, nullptr, buffer, size);
}

void DateTime::ShortDate(wchar_t* buffer, int size) const {
    DateText(*this, DATE_SHORTDATE, nullptr, buffer, size);
}

void DateTime::Time(wchar_t* buffer, int size) const {
    const SYSTEMTIME time = ToSystemTime();
    const bool namesDate = time.wYear != 0;  // midnight of no day would still have a text
    if (!namesDate || !GetTimeFormatW(LOCALE_SYSTEM_DEFAULT, TIME_NOSECONDS, &time, nullptr, buffer, size)) {
        buffer[0] = L'\0';
    }
}

void DateTime::DateAndTime(wchar_t* buffer, int size) const {
    std::wstring text;
    DateAndTime(text);
    if (text.size() >= static_cast<size_t>(size)) text.clear();
    text.copy(buffer, text.size());
    buffer[text.size()] = L'\0';
}

void DateTime::WeekdayName(std::wstring& text) const {
    IntoString<kDateChars>(*this, &DateTime::WeekdayName, text);
}

void DateTime::ShortWeekdayName(std::wstring& text) const {
    IntoString<kDateChars>(*this, &DateTime::ShortWeekdayName, text);
}

void DateTime::MonthName(std::wstring& text) const {
    IntoString<kDateChars>(*this, &DateTime::MonthName, text);
}

void DateTime::ShortMonthName(std::wstring& text) const {
    IntoString<kDateChars>(*this, &DateTime::ShortMonthName, text);
}

void DateTime::LongDate(std::wstring& text) const {
    IntoString<kDateChars>(*this, &DateTime::LongDate, text);
}

void DateTime::ShortDate(std::wstring& text) const {
    IntoString<kShortChars>(*this, &DateTime::ShortDate, text);
}

void DateTime::Time(std::wstring& text) const {
    IntoString<kShortChars>(*this, &DateTime::Time, text);
}

void DateTime::DateAndTime(std::wstring& text) const {
    std::wstring time;
    ShortDate(text);
    Time(time);
    if (!text.empty() && !time.empty()) text += L' ' + time;
}
