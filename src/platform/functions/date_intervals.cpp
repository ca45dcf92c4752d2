#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/automation/date_text.h"
#include "platform/automation/rounding.h"
#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"
#include "platform/functions/weeks.h"

namespace ov::vbscript {

namespace {

constexpr int kMonthsOfYear = 12;
constexpr int kMonthsOfQuarter = 3;
constexpr std::int64_t kSecondsOfMinute = 60;
constexpr std::int64_t kSecondsOfHour = 3600;
constexpr std::int64_t kSecondsOfDay = 86400;

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

Interval IntervalAt(std::span<Variant> arguments, std::size_t index) {
    constexpr std::array<std::u16string_view, 10> kNames = {u"yyyy", u"q",  u"m", u"y", u"d",
                                                            u"w",    u"ww", u"h", u"n", u"s"};
    const Text name = TextAt(arguments, index);
    const auto at = std::ranges::find_if(kNames, [&](std::u16string_view known) { return EqualNoCase(known, name); });
    if (at == kNames.end()) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<Interval>(at - kNames.begin());
}

/// Seconds since the start of day 0, so that days before it and the times in them are in their natural order.
std::int64_t SecondsOf(Date date) noexcept {
    const CalendarTime time = ToCalendar(date);
    return DayNumber(date) * kSecondsOfDay + time.hour * kSecondsOfHour + time.minute * kSecondsOfMinute + time.second;
}

std::int64_t FloorDivide(std::int64_t number, std::int64_t divisor) noexcept {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

/// @p day with the time of day of @p date. @throws RuntimeError 5 outside the years 100 to 9999
Date WithTimeOf(Date date, double day) {
    if (!(day >= kFirstDay && day <= kLastDay)) Raise(ErrorNumber::InvalidProcedureCall);
    const double time = std::abs(date.days - std::trunc(date.days));
    return {day < 0 ? day - time : day + time};
}

/// The day of the month stays, or is the last one of a shorter month.
Date AddMonths(Date date, double count) {
    constexpr double kBeyondAllYears = 10'000.0 * kMonthsOfYear;
    if (!(std::abs(count) <= kBeyondAllYears)) Raise(ErrorNumber::InvalidProcedureCall);
    const CalendarTime time = ToCalendar(Date{std::trunc(date.days)});
    const int month = time.month + static_cast<int>(count);
    const double first = FromCalendar(time.year, month, 1).days;
    // The last month of all has no following one.
    const double days = first > kLastDay - 31 ? 31 : FromCalendar(time.year, month + 1, 1).days - first;
    return WithTimeOf(date, first + std::min<double>(time.day, days) - 1);
}

Date AddSeconds(Date date, double count) {
    constexpr double kBeyondAllYears = 10'000.0 * 366 * kSecondsOfDay;
    if (!(std::abs(count) <= kBeyondAllYears)) Raise(ErrorNumber::InvalidProcedureCall);
    const std::int64_t seconds = SecondsOf(date) + static_cast<std::int64_t>(count);
    const std::int64_t day = FloorDivide(seconds, kSecondsOfDay);
    const auto time = static_cast<double>(seconds - day * kSecondsOfDay);
    return WithTimeOf(Date{time / static_cast<double>(kSecondsOfDay)}, static_cast<double>(day));
}

Variant DateAdd(BuiltinContext&, std::span<Variant> arguments) {
    const Interval interval = IntervalAt(arguments, 0);
    const double count = RoundHalfEven(ToDouble(arguments[1]));
    if (IsNullAt(arguments, 2)) return Variant::Null();
    const Date date = ToDate(ValueAt(arguments, 2));
    switch (interval) {
        case Interval::Year:
            return AddMonths(date, count * kMonthsOfYear);
        case Interval::Quarter:
            return AddMonths(date, count * kMonthsOfQuarter);
        case Interval::Month:
            return AddMonths(date, count);
        case Interval::DayOfYear:
        case Interval::Day:
        case Interval::Weekday:
            return WithTimeOf(date, std::trunc(date.days) + count);
        case Interval::Week:
            return WithTimeOf(date, std::trunc(date.days) + count * kDaysOfWeek);
        case Interval::Hour:
            return AddSeconds(date, count * kSecondsOfHour);
        case Interval::Minute:
            return AddSeconds(date, count * kSecondsOfMinute);
        case Interval::Second:
            break;
    }
    return AddSeconds(date, count);
}

/// How many boundaries of the interval lie between two dates.
std::int64_t CountBoundaries(Interval interval, Date from, Date to, int firstDay) {
    const auto difference = [&](auto numberOf) {
        return static_cast<std::int64_t>(numberOf(to)) - static_cast<std::int64_t>(numberOf(from));
    };
    const auto secondsBy = [&](std::int64_t unit) {
        return difference([unit](Date date) { return FloorDivide(SecondsOf(date), unit); });
    };
    const auto monthsBy = [&](int unit) {
        return difference([unit](Date date) {
            const CalendarTime time = ToCalendar(date);
            return (time.year * kMonthsOfYear + time.month - 1) / unit;
        });
    };
    switch (interval) {
        case Interval::Year:
            return monthsBy(kMonthsOfYear);
        case Interval::Quarter:
            return monthsBy(kMonthsOfQuarter);
        case Interval::Month:
            return monthsBy(1);
        case Interval::DayOfYear:
        case Interval::Day:
            return difference(DayNumber);
        case Interval::Weekday:  // whole weeks, whatever day one begins with
            return difference(DayNumber) / kDaysOfWeek;
        case Interval::Week:
            return difference([&](Date date) { return StartOfWeek(firstDay, DayNumber(date)); }) / kDaysOfWeek;
        case Interval::Hour:
            return secondsBy(kSecondsOfHour);
        case Interval::Minute:
            return secondsBy(kSecondsOfMinute);
        case Interval::Second:
            break;
    }
    return secondsBy(1);
}

Variant DateDiff(BuiltinContext&, std::span<Variant> arguments) {
    const Interval interval = IntervalAt(arguments, 0);
    const int firstDay = FirstDayOfWeekAt(arguments, 3);
    static_cast<void>(DaysInFirstWeekAt(arguments, 4));  // checked only: no count depends on it
    if (IsNullAt(arguments, 1) || IsNullAt(arguments, 2)) return Variant::Null();
    const Date from = ToDate(ValueAt(arguments, 1));
    const std::int64_t count = CountBoundaries(interval, from, ToDate(ValueAt(arguments, 2)), firstDay);
    if (count != static_cast<std::int32_t>(count)) Raise(ErrorNumber::Overflow);
    return static_cast<std::int32_t>(count);
}

int PartOf(Interval interval, Date date, int firstDay, int daysInFirstWeek) noexcept {
    const CalendarTime time = ToCalendar(date);
    switch (interval) {
        case Interval::Year:
            return time.year;
        case Interval::Quarter:
            return (time.month - 1) / kMonthsOfQuarter + 1;
        case Interval::Month:
            return time.month;
        case Interval::DayOfYear:
            return time.dayOfYear;
        case Interval::Day:
            return time.day;
        case Interval::Weekday:
            return WeekdayFrom(firstDay, DayNumber(date));
        case Interval::Week:
            return WeekOfYear(date, firstDay, daysInFirstWeek);
        case Interval::Hour:
            return time.hour;
        case Interval::Minute:
            return time.minute;
        case Interval::Second:
            break;
    }
    return time.second;
}

Variant DatePart(BuiltinContext&, std::span<Variant> arguments) {
    const Interval interval = IntervalAt(arguments, 0);
    const int firstDay = FirstDayOfWeekAt(arguments, 2);
    const int daysInFirstWeek = DaysInFirstWeekAt(arguments, 3);
    if (IsNullAt(arguments, 1)) return Variant::Null();
    return static_cast<std::int16_t>(PartOf(interval, ToDate(ValueAt(arguments, 1)), firstDay, daysInFirstWeek));
}

constexpr std::array kBuiltins = {
    Builtin{u"DateAdd", 3, 3, &DateAdd},
    Builtin{u"DateDiff", 3, 5, &DateDiff},
    Builtin{u"DatePart", 2, 4, &DatePart},
};

}  // namespace

std::span<const Builtin> IntervalBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
