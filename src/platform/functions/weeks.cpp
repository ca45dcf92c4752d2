#include "platform/functions/weeks.h"

#include <array>
#include <chrono>

#include "platform/functions/arguments.h"
#include "platform/locale/locale.h"

namespace ov::vbscript {

namespace {

int DaysOfYear(int year) noexcept {
    return std::chrono::year(year).is_leap() ? 366 : 365;
}

/// Day number on which the first week of a year begins; the year begins on @p newYear.
int StartOfFirstWeek(int newYear, int firstDay, int daysInFirstWeek) noexcept {
    const int start = StartOfWeek(firstDay, newYear);
    const int daysOfYear = start + kDaysOfWeek - newYear;
    return daysOfYear >= daysInFirstWeek ? start : start + kDaysOfWeek;
}

}  // namespace

int FirstDayOfWeekAt(std::span<Variant> arguments, std::size_t index) {
    const std::int32_t day = LongOr(arguments, index, 1);
    if (day < 0 || day > kDaysOfWeek) Raise(ErrorNumber::InvalidProcedureCall);
    return day == 0 ? CurrentLocale().firstDayOfWeek : day;
}

int DaysInFirstWeekAt(std::span<Variant> arguments, std::size_t index) {
    constexpr std::array kLeastDays = {1, 4, 7};
    const std::int32_t rule = LongOr(arguments, index, 1);
    if (rule < 0 || rule > 3) Raise(ErrorNumber::InvalidProcedureCall);
    return rule == 0 ? CurrentLocale().daysInFirstWeek : kLeastDays[static_cast<std::size_t>(rule) - 1];
}

int DayNumber(Date date) noexcept {
    const CalendarTime calendar = ToCalendar(date);
    using namespace std::chrono;
    constexpr sys_days kDayZero{December / 30 / 1899};
    const sys_days day = year(calendar.year) / calendar.month / calendar.day;
    return static_cast<int>((day - kDayZero).count());
}

int WeekdayFrom(int firstDay, int dayNumber) noexcept {
    constexpr int kSaturday = 7;  // day 0
    // A multiple of 7 beyond all day numbers keeps the dividend positive.
    constexpr int kShift = 700'000;
    return (dayNumber + kShift + kSaturday - firstDay) % kDaysOfWeek + 1;
}

int WeekOfYear(Date date, int firstDay, int daysInFirstWeek) noexcept {
    const CalendarTime calendar = ToCalendar(date);
    const int day = DayNumber(date);
    const int newYear = day - calendar.dayOfYear + 1;
    int start = StartOfFirstWeek(newYear, firstDay, daysInFirstWeek);
    if (day < start) {
        start = StartOfFirstWeek(newYear - DaysOfYear(calendar.year - 1), firstDay, daysInFirstWeek);
    } else if (daysInFirstWeek > 1) {
        const int next = StartOfFirstWeek(newYear + DaysOfYear(calendar.year), firstDay, daysInFirstWeek);
        if (day >= next) start = next;
    }
    return (day - start) / kDaysOfWeek + 1;
}

}  // namespace ov::vbscript
