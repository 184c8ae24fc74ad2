// DateTime's value: conversions, arithmetic, comparisons. Its texts are in date_text_test.cpp.
#include "text/date_time.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <random>
#include <type_traits>

namespace {

constexpr int32_t kMostCount = std::numeric_limits<int32_t>::max();
constexpr int32_t kLeastCount = std::numeric_limits<int32_t>::min();
// The first value that is no FILETIME any more.
const DateTime kNoDate(0, 0x80000000);

DateTime FromTicks(uint64_t ticks) {
    return DateTime(static_cast<uint32_t>(ticks), static_cast<uint32_t>(ticks >> 32));
}

SYSTEMTIME At(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0, WORD millisecond = 0) {
    return {year, month, 0, day, hour, minute, second, millisecond};
}

// What the system itself makes of the fields.
uint64_t SystemTicks(const SYSTEMTIME& time) {
    FILETIME file = {};
    EXPECT_TRUE(SystemTimeToFileTime(&time, &file));
    return (uint64_t{file.dwHighDateTime} << 32) | file.dwLowDateTime;
}

TEST(DateTimeTest, StartsAtZeroTicks) {
    EXPECT_EQ(DateTime().Ticks(), 0u);
}

TEST(DateTimeTest, IsTheTicksAndOneVirtualDestructor) {
    EXPECT_TRUE(std::has_virtual_destructor_v<DateTime>);
    EXPECT_EQ(sizeof(DateTime), sizeof(void*) + sizeof(uint64_t));

    struct Derived : DateTime {
        explicit Derived(bool& destroyed) : destroyed_(destroyed) {}
        Derived(const Derived&) = delete;
        Derived& operator=(const Derived&) = delete;
        ~Derived() override { destroyed_ = true; }
        bool& destroyed_;
    };
    bool destroyed = false;
    std::unique_ptr<DateTime>(std::make_unique<Derived>(destroyed)).reset();
    EXPECT_TRUE(destroyed);
}

TEST(DateTimeTest, CountsItsUnitsInTicksOf100Nanoseconds) {
    EXPECT_EQ(DateTime::kTicksPerSecond, 10'000'000u);
    EXPECT_EQ(DateTime::kTicksPerMinute, 600'000'000u);
    EXPECT_EQ(DateTime::kTicksPerHour, 36'000'000'000u);
    EXPECT_EQ(DateTime::kTicksPerDay, 864'000'000'000u);
}

// ---- Conversions ----

TEST(DateTimeTest, ZeroIsTheFirstOfJanuary1601) {
    const SYSTEMTIME time = DateTime().ToSystemTime();
    EXPECT_EQ(time.wYear, 1601);
    EXPECT_EQ(time.wMonth, 1);
    EXPECT_EQ(time.wDay, 1);
    EXPECT_EQ(time.wHour, 0);
    EXPECT_EQ(time.wMinute, 0);
    EXPECT_EQ(time.wDayOfWeek, 1);  // a Monday
}

TEST(DateTimeTest, TakesTheFieldsOfASystemTime) {
    const SYSTEMTIME time = At(2001, 5, 7, 13, 45, 30, 250);
    EXPECT_EQ(DateTime(time).Ticks(), SystemTicks(time));
    DateTime set(1, 2);
    set.Set(time);
    EXPECT_EQ(set.Ticks(), SystemTicks(time));
}

TEST(DateTimeTest, StaysAsItWasWhenTheFieldsNameNoDate) {
    for (const SYSTEMTIME& wrong :
         {At(2001, 1, 32), At(2001, 13, 1), At(2001, 0, 1), At(1600, 1, 1), At(2001, 1, 1, 24)}) {
        DateTime value(7, 8);
        value.Set(wrong);
        EXPECT_EQ(value, DateTime(7, 8)) << wrong.wYear << '-' << wrong.wMonth << '-' << wrong.wDay;
        EXPECT_EQ(DateTime(wrong).Ticks(), 0u);
    }
}

TEST(DateTimeTest, StoresBothHalves) {
    DateTime value(0x89ABCDEF, 0x01234567);
    EXPECT_EQ(value.Ticks(), 0x0123456789ABCDEFu);
    value.Set(0xFFFFFFFF, 0x00000001);
    EXPECT_EQ(value.Ticks(), 0x00000001FFFFFFFFu);
    EXPECT_EQ(value.GetHalves().low, 0xFFFFFFFFu);
    EXPECT_EQ(value.GetHalves().high, 1u);
}

TEST(DateTimeTest, PassesAFileTimeThroughUnchanged) {
    for (const FILETIME& file : {FILETIME{0, 0}, FILETIME{0xFFFFFFFF, 0}, FILETIME{1, 0x80000000},
                                 FILETIME{0xFFFFFFFF, 0xFFFFFFFF}, FILETIME{0xD53E8000, 0x019DB1DE}}) {
        DateTime set;
        set.Set(file);
        for (const DateTime& value : {DateTime(file), set}) {
            EXPECT_EQ(value.ToFileTime().dwLowDateTime, file.dwLowDateTime);
            EXPECT_EQ(value.ToFileTime().dwHighDateTime, file.dwHighDateTime);
        }
    }
}

TEST(DateTimeTest, NowIsTheLocalTime) {
    SYSTEMTIME before = {};
    SYSTEMTIME after = {};
    DateTime now;
    GetLocalTime(&before);
    now.SetNow();
    GetLocalTime(&after);
    EXPECT_GE(now, DateTime(before));
    EXPECT_LE(now, DateTime(after));
}

TEST(DateTimeTest, LeavesTheSystemTimeAsItWasWhenItNamesNoDate) {
    SYSTEMTIME time = At(2001, 5, 7, 13, 45);
    kNoDate.ToSystemTime(time);
    EXPECT_EQ(time.wYear, 2001);
    EXPECT_EQ(time.wMinute, 45);
    EXPECT_EQ(kNoDate.ToSystemTime().wYear, 0);
}

TEST(DateTimeTest, TellsTheMonth) {
    for (WORD month = 1; month <= 12; ++month)
        EXPECT_EQ(DateTime(At(2004, month, 29)).Month(), month);
    EXPECT_EQ(DateTime().Month(), 1);
    EXPECT_EQ(kNoDate.Month(), 0);
}

TEST(DateTimeTest, SpanTakesHoursAndMinutesOnly) {
    DateTime value(At(2001, 5, 7));
    value.SetSpan(At(2001, 5, 7, 2, 15, 59, 999));
    EXPECT_EQ(value.Ticks(), 2 * DateTime::kTicksPerHour + 15 * DateTime::kTicksPerMinute);
    value.SetSpan(At(2001, 5, 7));
    EXPECT_EQ(value.Ticks(), 0u);
    value.SetSpan(At(1999, 12, 31, 23, 59));
    EXPECT_EQ(value.Ticks(), DateTime::kTicksPerDay - DateTime::kTicksPerMinute);
}

TEST(DateTimeTest, SpanNeedsNoValidDate) {
    DateTime value;
    value.SetSpan(At(0, 0, 0, 65535, 65535));
    EXPECT_EQ(value.Ticks(), 65535 * (DateTime::kTicksPerHour + DateTime::kTicksPerMinute));
}

struct VariantRow {
    const char* label;
    SYSTEMTIME time;
    double days;
};

const VariantRow kVariantRows[] = {
    {"the day it counts from", At(1899, 12, 30), 0},
    {"the day before, at six", At(1899, 12, 29, 6), -1.25},
    {"a day after noon", At(2001, 5, 7, 18), 37018.75},
    {"the first year that is taken back", At(1980, 1, 1), 29221},
    {"the last day that is taken back", At(2107, 12, 31), 75971},
};

TEST(DateTimeTest, TellsVariantTime) {
    for (const VariantRow& row : kVariantRows) {
        EXPECT_DOUBLE_EQ(DateTime(row.time).ToVariantTime(), row.days) << row.label;
    }
    EXPECT_EQ(kNoDate.ToVariantTime(), 0);
}

struct VariantTakenRow {
    const char* label;
    double days;
    bool taken;
    SYSTEMTIME time;
};

const VariantTakenRow kVariantTakenRows[] = {
    {"the first moment of 1980", 29221, true, At(1980, 1, 1)},
    {"a minute before 1980", 29221 - 1.0 / 1440, false, {}},
    {"the last minute of 2107", 75972 - 1.0 / 1440, true, At(2107, 12, 31, 23, 59)},
    {"the first moment of 2108", 75972, false, {}},
    {"in between", 37018.75, true, At(2001, 5, 7, 18)},
    {"the day it counts from", 0, false, {}},
    {"before it", -40000.5, false, {}},
    {"far beyond any date", 1e300, false, {}},
    {"far before any date", -1e300, false, {}},
    {"beyond a long", 4294967296.0 * 40000, false, {}},
    {"infinite", std::numeric_limits<double>::infinity(), false, {}},
    {"no number", std::numeric_limits<double>::quiet_NaN(), false, {}},
};

TEST(DateTimeTest, TakesVariantTimesOf1980To2107Only) {
    for (const VariantTakenRow& row : kVariantTakenRows) {
        DateTime value(7, 8);
        value.SetVariantTime(row.days);
        EXPECT_EQ(value, row.taken ? DateTime(row.time) : DateTime(7, 8)) << row.label;
    }
}

TEST(DateTimeTest, ComesBackFromVariantTimeToTheSecond) {
    std::mt19937 random(1);
    const uint64_t first = SystemTicks(At(1980, 1, 1));
    const uint64_t seconds = (SystemTicks(At(2108, 1, 1)) - first) / DateTime::kTicksPerSecond;
    for (int i = 0; i < 2000; ++i) {
        const uint64_t second = (uint64_t{random()} << 1 | (random() & 1)) % seconds;
        const DateTime value = FromTicks(first + second * DateTime::kTicksPerSecond);
        DateTime back;
        back.SetVariantTime(value.ToVariantTime());
        ASSERT_EQ(back, value) << value.Ticks();
    }
}

TEST(DateTimeTest, ComesBackFromSystemTimeToTheMillisecond) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 2000; ++i) {
        const uint64_t ticks = random() >> 1;
        const uint64_t milliseconds = ticks - ticks % 10'000;
        ASSERT_EQ(DateTime(FromTicks(ticks).ToSystemTime()).Ticks(), milliseconds) << ticks;
    }
}

// ---- Arithmetic ----

struct StepRow {
    const char* label;
    void (*step)(DateTime&, int32_t);
    uint64_t unit;  // ticks that one adds
    bool back;
};

const StepRow kStepRows[] = {
    {"add days", [](DateTime& value, int32_t n) { value.AddDays(n); }, 864'000'000'000, false},
    {"add hours", [](DateTime& value, int32_t n) { value.AddHours(n); }, 36'000'000'000, false},
    {"add minutes", [](DateTime& value, int32_t n) { value.AddMinutes(n); }, 600'000'000, false},
    {"add seconds", [](DateTime& value, int32_t n) { value.AddSeconds(n); }, 10'000'000, false},
    {"add four hours", [](DateTime& value, int32_t n) { value.AddFourHours(n); }, 144'000'000'000, false},
    {"subtract days", [](DateTime& value, int32_t n) { value.SubtractDays(n); }, 864'000'000'000, true},
};

TEST(DateTimeTest, AddsSignedCountsOfEachUnit) {
    const uint64_t start = SystemTicks(At(2001, 5, 7, 12));
    for (const StepRow& row : kStepRows) {
        for (const int32_t count : {0, 1, -1, 2, 31, -365, 65536, -65537, kMostCount, kLeastCount}) {
            DateTime value = FromTicks(start);
            row.step(value, count);
            const uint64_t span = static_cast<uint64_t>(int64_t{count}) * row.unit;
            EXPECT_EQ(value.Ticks(), row.back ? start - span : start + span) << row.label << ' ' << count;
        }
    }
}

TEST(DateTimeTest, AddingACountAndItsNegativeChangesNothing) {
    const DateTime start(At(2001, 5, 7, 12));
    for (const StepRow& row : kStepRows) {
        for (const int32_t count : {1, 59, 100'000, kMostCount}) {
            DateTime value = start;
            row.step(value, count);
            EXPECT_NE(value, start) << row.label;
            row.step(value, -count);
            EXPECT_EQ(value, start) << row.label << ' ' << count;
        }
    }
}

TEST(DateTimeTest, SubtractingDaysUndoesAddingThem) {
    DateTime value(At(2000, 2, 28));
    value.AddDays(1);
    EXPECT_EQ(value, At(2000, 2, 29));
    value.AddDays(1);
    EXPECT_EQ(value, At(2000, 3, 1));
    value.SubtractDays(2);
    EXPECT_EQ(value, At(2000, 2, 28));
}

TEST(DateTimeTest, WrapsBelowZero) {
    DateTime value;
    value.AddSeconds(-1);
    EXPECT_EQ(value.Ticks(), 0 - DateTime::kTicksPerSecond);
    value.AddSeconds(1);
    EXPECT_EQ(value.Ticks(), 0u);
}

struct FixedStepRow {
    const char* label;
    void (DateTime::*step)() noexcept;
    int64_t ticks;
};

const FixedStepRow kFixedStepRows[] = {
    {"forward ten minutes", &DateTime::StepForwardTenMinutes, 6'000'000'000},
    {"forward one minute", &DateTime::StepForwardMinute, 600'000'000},
    {"forward six seconds", &DateTime::StepForwardSixSeconds, 60'000'000},
    {"back one hour", &DateTime::StepBackHour, -36'000'000'000},
    {"back one minute", &DateTime::StepBackMinute, -600'000'000},
    {"back one second", &DateTime::StepBackSecond, -10'000'000},
};

TEST(DateTimeTest, StepsByFixedAmounts) {
    const DateTime start(At(2001, 5, 7, 12));
    for (const FixedStepRow& row : kFixedStepRows) {
        DateTime value = start;
        (value.*row.step)();
        EXPECT_EQ(value.Difference(start), row.ticks) << row.label;
    }
}

TEST(DateTimeTest, AddsAndSubtractsAnotherValue) {
    const DateTime start(At(2001, 5, 7, 12));
    DateTime span;
    span.AddMinutes(90);
    DateTime value = start;
    value += span;
    EXPECT_EQ(value, At(2001, 5, 7, 13, 30));
    EXPECT_EQ(start + span, value);
    value -= span;
    EXPECT_EQ(value, start);
}

TEST(DateTimeTest, AdditionAndSubtractionUndoEachOther) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 2000; ++i) {
        const DateTime one = FromTicks(random());
        const DateTime other = FromTicks(random());
        DateTime value = one;
        value += other;
        ASSERT_EQ(value, one + other);
        ASSERT_EQ(value, other + one);
        value -= other;
        ASSERT_EQ(value, one);
        ASSERT_EQ(static_cast<uint64_t>(one.Difference(other)), one.Ticks() - other.Ticks());
        ASSERT_EQ(FromTicks(static_cast<uint64_t>(one.Difference(other))) + other, one);
    }
}

TEST(DateTimeTest, DifferenceIsSigned) {
    const DateTime early(At(2001, 5, 7));
    const DateTime late(At(2001, 5, 8));
    EXPECT_EQ(late.Difference(early), int64_t{DateTime::kTicksPerDay});
    EXPECT_EQ(early.Difference(late), -int64_t{DateTime::kTicksPerDay});
    EXPECT_EQ(early.Difference(early), 0);
}

// ---- Comparisons ----

struct OrderRow {
    const char* label;
    uint64_t less;
    uint64_t greater;
};

const OrderRow kOrderRows[] = {
    {"zero and one", 0, 1},
    {"zero and the highest bit, which is no sign", 0, 0x8000000000000000},
    {"around the highest bit", 0x7FFFFFFFFFFFFFFF, 0x8000000000000000},
    {"zero and all bits", 0, 0xFFFFFFFFFFFFFFFF},
    {"a low half with its highest bit", 0x000000007FFFFFFF, 0x0000000080000000},
    {"the high half before the low one", 0x00000000FFFFFFFF, 0x0000000100000000},
    {"equal high halves", 0x0123456700000001, 0x0123456700000002},
};

TEST(DateTimeTest, ComparesUnsignedWithValuesAndHalves) {
    for (const OrderRow& row : kOrderRows) {
        const DateTime less = FromTicks(row.less);
        const DateTime greater = FromTicks(row.greater);
        const auto check = [&row, &less](const auto& other) {
            EXPECT_TRUE(less < other) << row.label;
            EXPECT_TRUE(less <= other) << row.label;
            EXPECT_TRUE(less != other) << row.label;
            EXPECT_FALSE(less == other) << row.label;
            EXPECT_FALSE(less > other) << row.label;
            EXPECT_FALSE(less >= other) << row.label;
            EXPECT_TRUE(other > less) << row.label;
            EXPECT_TRUE(other >= less) << row.label;
            EXPECT_FALSE(other < less) << row.label;
            EXPECT_FALSE(other <= less) << row.label;
        };
        check(greater);
        check(greater.GetHalves());
        for (const DateTime& value : {less, greater}) {
            const auto same = [&row, &value](const auto& other) {
                EXPECT_TRUE(value == other) << row.label;
                EXPECT_TRUE(value <= other) << row.label;
                EXPECT_TRUE(value >= other) << row.label;
                EXPECT_FALSE(value != other) << row.label;
                EXPECT_FALSE(value < other) << row.label;
                EXPECT_FALSE(value > other) << row.label;
            };
            same(DateTime(value));
            same(value.GetHalves());
        }
    }
}

TEST(DateTimeTest, EqualsASystemTimeOfTheSameMoment) {
    const DateTime value(At(2001, 5, 7, 13, 45));
    EXPECT_TRUE(value == At(2001, 5, 7, 13, 45));
    EXPECT_FALSE(value != At(2001, 5, 7, 13, 45));
    EXPECT_TRUE(value != At(2001, 5, 7, 13, 45, 0, 1));
    EXPECT_FALSE(value == At(2001, 5, 7, 13, 46));
}

TEST(DateTimeTest, EqualsNoSystemTimeThatNamesNoDate) {
    EXPECT_FALSE(DateTime() == At(2001, 1, 32));
    EXPECT_TRUE(DateTime() != At(2001, 1, 32));
    EXPECT_FALSE(DateTime() == SYSTEMTIME());
}

}  // namespace
