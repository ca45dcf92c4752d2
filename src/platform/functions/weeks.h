/// @file
/// Weeks of the calendar: which day one begins with, and how a year's weeks count.
#pragma once

#include <span>

#include "platform/automation/variant.h"

namespace ov::vbscript {

inline constexpr int kDaysOfWeek = 7;

/// The optional argument that names a week's first day: 1 is Sunday, the default; 0 is the locale's.
/// @throws RuntimeError 5 for any other number
int FirstDayOfWeekAt(std::span<Variant> arguments, std::size_t index);

/// The optional argument that says which week of a year is its first: the one of January 1 (1, the default), the first
/// with four days of the year (2) or with all seven (3); 0 is the locale's. The result is the least number of days.
/// @throws RuntimeError 5 for any other number
int DaysInFirstWeekAt(std::span<Variant> arguments, std::size_t index);

/// Number of a date's day, counted from 1899-12-30; what a time of midnight the next day rounds up to counts there.
int DayNumber(Date date) noexcept;

/// The day of the week, 1 to 7, in weeks that begin with @p firstDay.
int WeekdayFrom(int firstDay, int dayNumber) noexcept;

/// Day number of the first day of the week that @p dayNumber lies in.
inline int StartOfWeek(int firstDay, int dayNumber) noexcept {
    return dayNumber - WeekdayFrom(firstDay, dayNumber) + 1;
}

/// The week of a date within its year, from 1 on. The first days of a year may lie in the last week of the year before
/// it, its last days in the first week of the next one.
int WeekOfYear(Date date, int firstDay, int daysInFirstWeek) noexcept;

}  // namespace ov::vbscript
