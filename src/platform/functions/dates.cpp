#include <array>
#include <cmath>

#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"
#include "platform/functions/weeks.h"
#include "platform/locale/locale.h"
#include "platform/system/clock.h"

namespace ov::vbscript {

namespace {

Date DayOnly(Date date) noexcept {
    return {std::trunc(date.days)};
}

/// The time of day as a Date of day 0; the same Double as TimeSerial makes of it.
Date TimeOnly(Date date) {
    const CalendarTime time = ToCalendar(date);
    return FromCalendar(1899, 12, 30, time.hour, time.minute, time.second);
}

Variant CurrentDate(BuiltinContext&, std::span<Variant>) {
    return DayOnly(Now());
}
Variant CurrentTime(BuiltinContext&, std::span<Variant>) {
    return TimeOnly(Now());
}
Variant CurrentDateAndTime(BuiltinContext&, std::span<Variant>) {
    return Now();
}
Variant Timer(BuiltinContext&, std::span<Variant>) {
    return static_cast<float>(SecondsSinceMidnight());
}

template <int CalendarTime::*Field>
Variant FieldOf(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return static_cast<std::int16_t>(ToCalendar(ToDate(ValueAt(arguments, 0))).*Field);
}

Variant Weekday(BuiltinContext&, std::span<Variant> arguments) {
    const int firstDay = FirstDayOfWeekAt(arguments, 1);
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return static_cast<std::int16_t>(WeekdayFrom(firstDay, DayNumber(ToDate(ValueAt(arguments, 0)))));
}

template <std::size_t N>
Text NameOf(const std::array<std::u16string, N>& names, std::int32_t number) {
    if (number < 1 || number > static_cast<std::int32_t>(N)) Raise(ErrorNumber::InvalidProcedureCall);
    return names[static_cast<std::size_t>(number) - 1];
}

Variant MonthName(BuiltinContext&, std::span<Variant> arguments) {
    const Locale& locale = CurrentLocale();
    return NameOf(BooleanOr(arguments, 1, false) ? locale.monthAbbreviations : locale.monthNames, LongAt(arguments, 0));
}

Variant WeekdayName(BuiltinContext&, std::span<Variant> arguments) {
    const Locale& locale = CurrentLocale();
    const auto& names = BooleanOr(arguments, 1, false) ? locale.dayAbbreviations : locale.dayNames;
    const int firstDay = FirstDayOfWeekAt(arguments, 2);
    const std::int32_t day = LongAt(arguments, 0);
    if (day < 1 || day > kDaysOfWeek) Raise(ErrorNumber::InvalidProcedureCall);
    return NameOf(names, (day + firstDay - 2) % kDaysOfWeek + 1);
}

/// The years 0 to 99 are those of the 20th century, whatever a text's year of two digits would be.
Variant DateSerial(BuiltinContext&, std::span<Variant> arguments) {
    const int year = ToInteger(arguments[0]);
    const int month = ToInteger(arguments[1]);
    const int day = ToInteger(arguments[2]);
    return FromCalendar(year >= 0 && year <= 99 ? year + 1900 : year, month, day);
}

Variant TimeSerial(BuiltinContext&, std::span<Variant> arguments) {
    const int hour = ToInteger(arguments[0]);
    const int minute = ToInteger(arguments[1]);
    return FromCalendar(1899, 12, 30, hour, minute, ToInteger(arguments[2]));
}

/// The date that a value is; text must read as one, a number in a text does not count.
Date StrictDate(const Variant& value) {
    if (!value.IsString()) return ToDate(value);
    const std::optional<Date> date = ReadDate(value.AsText());
    if (!date) Raise(ErrorNumber::TypeMismatch);
    return *date;
}

Variant DateValue(BuiltinContext&, std::span<Variant> arguments) {
    return DayOnly(StrictDate(ValueAt(arguments, 0)));
}

Variant TimeValue(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return TimeOnly(StrictDate(ValueAt(arguments, 0)));
}

constexpr std::array kBuiltins = {
    Builtin{u"Date", 0, 0, &CurrentDate},
    Builtin{u"DateSerial", 3, 3, &DateSerial},
    Builtin{u"DateValue", 1, 1, &DateValue},
    Builtin{u"Day", 1, 1, &FieldOf<&CalendarTime::day>},
    Builtin{u"Hour", 1, 1, &FieldOf<&CalendarTime::hour>},
    Builtin{u"Minute", 1, 1, &FieldOf<&CalendarTime::minute>},
    Builtin{u"Month", 1, 1, &FieldOf<&CalendarTime::month>},
    Builtin{u"MonthName", 1, 2, &MonthName},
    Builtin{u"Now", 0, 0, &CurrentDateAndTime},
    Builtin{u"Second", 1, 1, &FieldOf<&CalendarTime::second>},
    Builtin{u"Time", 0, 0, &CurrentTime},
    Builtin{u"Timer", 0, 0, &Timer},
    Builtin{u"TimeSerial", 3, 3, &TimeSerial},
    Builtin{u"TimeValue", 1, 1, &TimeValue},
    Builtin{u"Weekday", 1, 2, &Weekday},
    Builtin{u"WeekdayName", 1, 3, &WeekdayName},
    Builtin{u"Year", 1, 1, &FieldOf<&CalendarTime::year>},
};

}  // namespace

std::span<const Builtin> DateBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
