// The one value for points in time and for lengths of time.
#pragma once

#include <win.h>

#include <compare>
#include <cstdint>
#include <string>

// Ticks of 100 nanoseconds since 1 January 1601 00:00, laid out as a FILETIME; local time, never UTC. A length of time
// is the same type holding its number of ticks, so that no time at all is the value 0.
//
// 1. Arithmetic wraps modulo 2^64 and so never fails; counts are signed, a negative one goes the other way.
// 2. Comparisons are unsigned: nothing is less than 0 ticks, and a length that went below 0 compares as a very long
// one.
// 3. Conversions report nothing. Ticks of 2^63 and more name no date: what is asked for stays as it was, texts are
// empty.
class DateTime {
public:
    static constexpr uint64_t kTicksPerSecond = 10'000'000;
    static constexpr uint64_t kTicksPerMinute = 600'000'000;
    static constexpr uint64_t kTicksPerHour = 36'000'000'000;
    static constexpr uint64_t kTicksPerDay = 864'000'000'000;

    // Characters that a buffer for the text needs, with its terminating NUL.
    static constexpr int kDateChars = 120;         // names of days and months, the long date
    static constexpr int kShortChars = 60;         // the short date, the time
    static constexpr int kDateAndTimeChars = 121;  // the short date, a space and the time

    // The raw value as it is stored in two 32-bit settings.
    struct Halves {
        uint32_t low = 0;
        uint32_t high = 0;
    };

    // 0 ticks.
    DateTime() noexcept = default;
    // The local time `time`; 0 ticks when its fields name no date. (The system decides: Wine takes 30 February for a
    // day of March.)
    explicit DateTime(const SYSTEMTIME& time) noexcept;
    DateTime(uint32_t low, uint32_t high) noexcept;
    explicit DateTime(const FILETIME& time) noexcept;

    DateTime(const DateTime&) noexcept = default;
    DateTime& operator=(const DateTime&) noexcept = default;
    // The only virtual operation.
    virtual ~DateTime() = default;

    // ---- From and to other kinds of time ----

    // Takes the local time `time`; unchanged when its fields name no date.
    void Set(const SYSTEMTIME& time) noexcept;
    void Set(uint32_t low, uint32_t high) noexcept;
    void Set(const FILETIME& time) noexcept;
    // Takes the clock's local time, to the millisecond.
    void SetNow() noexcept;
    // Becomes a length: hours and minutes of `time`, whatever its date, seconds and milliseconds.
    void SetSpan(const SYSTEMTIME& time) noexcept;
    // Takes days since 30 December 1899 with the time of day as fraction. Unchanged when `days` names no date or its
    // year is not within 1980 to 2107.
    void SetVariantTime(double days) noexcept;
    // Takes what the date-time picker shows. Unchanged when it shows no date.
    void SetFromPicker(HWND picker) noexcept;

    uint64_t Ticks() const noexcept { return ticks_; }
    Halves GetHalves() const noexcept;
    // Leaves `time` as it was when the value names no date.
    void ToSystemTime(SYSTEMTIME& time) const noexcept;
    // The same, with all fields 0 when the value names no date.
    SYSTEMTIME ToSystemTime() const noexcept;
    FILETIME ToFileTime() const noexcept;
    // Days since 30 December 1899; 0 when the value names no date. Milliseconds are lost.
    double ToVariantTime() const noexcept;
    // Puts the value into the date-time picker; with `valid` false the picker shows no date (it needs DTS_SHOWNONE).
    void ToPicker(HWND picker, bool valid = true) const noexcept;
    // 1 to 12; 0 when the value names no date.
    int Month() const noexcept;

    // ---- Arithmetic ----

    void AddDays(int32_t count) noexcept;
    void AddHours(int32_t count) noexcept;
    void AddMinutes(int32_t count) noexcept;
    void AddSeconds(int32_t count) noexcept;
    void SubtractDays(int32_t count) noexcept;
    // Units of four hours.
    void AddFourHours(int32_t count) noexcept;

    DateTime& operator+=(const DateTime& other) noexcept;
    DateTime& operator-=(const DateTime& other) noexcept;
    DateTime operator+(const DateTime& other) const noexcept;
    // Ticks from `other` to this value; negative when this one is earlier.
    int64_t Difference(const DateTime& other) const noexcept;

    // Fixed steps. Forward and back do not match in size, and six seconds is six: kept on purpose.
    void StepForwardTenMinutes() noexcept;
    void StepForwardMinute() noexcept;
    void StepForwardSixSeconds() noexcept;
    void StepBackHour() noexcept;
    void StepBackMinute() noexcept;
    void StepBackSecond() noexcept;

    // ---- Comparison, of unsigned ticks (the other four operators follow from these two) ----

    bool operator==(const DateTime& other) const noexcept { return ticks_ == other.ticks_; }
    std::strong_ordering operator<=>(const DateTime& other) const noexcept { return ticks_ <=> other.ticks_; }
    bool operator==(const Halves& other) const noexcept;
    std::strong_ordering operator<=>(const Halves& other) const noexcept;
    // Fields that name no date equal nothing.
    bool operator==(const SYSTEMTIME& other) const noexcept;

    // ---- Texts, in the forms of LOCALE_SYSTEM_DEFAULT ----
    //
    // Each replaces what the buffer or the string holds. `size` counts the buffer's characters and is at least 1; what
    // does not fit, or a value that names no date, gives an empty text.

    void WeekdayName(wchar_t* buffer, int size) const;       // "Monday"
    void ShortWeekdayName(wchar_t* buffer, int size) const;  // "Mon"
    void MonthName(wchar_t* buffer, int size) const;         // "January"
    void ShortMonthName(wchar_t* buffer, int size) const;    // "Jan"
    void LongDate(wchar_t* buffer, int size) const;
    void ShortDate(wchar_t* buffer, int size) const;
    void Time(wchar_t* buffer, int size) const;         // hours and minutes
    void DateAndTime(wchar_t* buffer, int size) const;  // short date, one space, time

    void WeekdayName(std::wstring& text) const;
    void ShortWeekdayName(std::wstring& text) const;
    void MonthName(std::wstring& text) const;
    void ShortMonthName(std::wstring& text) const;
    void LongDate(std::wstring& text) const;
    void ShortDate(std::wstring& text) const;
    void Time(std::wstring& text) const;
    void DateAndTime(std::wstring& text) const;

private:
    uint64_t ticks_ = 0;
};
