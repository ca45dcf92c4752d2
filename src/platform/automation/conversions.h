/// @file
/// Conversions between the types of a Variant. They have one meaning throughout the system.
///
/// Numbers convert with halves rounded to even and a range check after the rounding (RuntimeError 6). Text is read as
/// a number of the current locale by one reader: blanks around, a sign before or behind, brackets for a negative, the
/// currency sign, group separators, an exponent, and "&H" or "&O" digits. These are a bit pattern as wide as the type
/// asked for: "&HFFFF" is the Integer -1 and the Long 65535; types that are no integers read it unsigned. Other text
/// is RuntimeError 13. Empty is 0 or ""; Null is RuntimeError 94; an object gives its default member's value (438
/// without one, 91 for Nothing); an array or an error code is RuntimeError 13; Missing is 448.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/variant.h"

namespace ov {

/// True is 255.
std::uint8_t ToByte(const Variant& value);
std::int16_t ToInteger(const Variant& value);
std::int32_t ToLong(const Variant& value);
float ToSingle(const Variant& value);
double ToDouble(const Variant& value);
Currency ToCurrency(const Variant& value);
Decimal ToDecimal(const Variant& value);
/// Text is read as a date, or a time, or both, in the locale's and in the ISO order, else as a number of days.
/// RuntimeError 6 outside the years 100 to 9999.
Date ToDate(const Variant& value);
/// A number is False for 0 and else True; "True" and "False" in any case; other text as a number.
bool ToBoolean(const Variant& value);
/// Text of a number in the locale: 15 significant digits for a Double, 7 for a Single, and in the form "1E+15",
/// "1.5E-16" where more digits than that would stand before or behind the point; a date in its short form, less a time
/// of midnight; "True" and "False"; an error code as "Error 13".
Text ToText(const Variant& value);

/// The decimal digits of a Double as ToText writes them, but with "." whatever the locale.
Text ToInvariantText(double value);
/// The same for any number; text, Empty and Booleans as ToText writes them. @throws RuntimeError 94 for Null, 13 for
/// what is no number, dates included.
Text ToInvariantText(const Variant& value);

/// Converts to the type named: one of the types of a single value, Boolean and String included. Empty gives the value
/// itself, Object takes objects only. @throws what the conversion raises, RuntimeError 13 for a type that is none of
/// these.
Variant ConvertTo(VarType type, const Variant& value);

/// The longest numeric prefix of @p text with "." as decimal point, blanks ignored wherever they stand; "&H" and "&O"
/// digits read as a literal of the rule language, so "&HFFFF" is -1 and "&HFFFF&" is 65535. Never fails: "12abc" is
/// 12, "abc" is 0, "1e999" the greatest Double.
double ValPrefix(std::u16string_view text);

/// @p value, or @p fallback if @p value is Null.
inline const Variant& NullToDefault(const Variant& value, const Variant& fallback) noexcept {
    return value.IsNull() ? fallback : value;
}

/// True for Empty, numbers, Booleans and for text that the number reader takes; False for all else, dates included.
bool IsNumeric(const Variant& value);
/// True for dates and for text that reads as one; False for all else.
bool IsDate(const Variant& value);

/// The number that the whole of @p text is, as ToDouble reads it, or nullopt.
std::optional<double> ReadNumber(std::u16string_view text);
/// The date that @p text is in the current locale, or nullopt.
std::optional<Date> ReadDate(std::u16string_view text);

/// The value of the default member of an object, repeated while that is an object with one; any other value as it is.
/// @throws RuntimeError 438 where an object has none, 91 for Nothing.
Variant DefaultValue(const Variant& value);

/// A calendar day and time of day.
struct CalendarTime {
    int year = 1899;
    int month = 12;  ///< 1 to 12
    int day = 30;    ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 1;    ///< 1 is Sunday
    int dayOfYear = 1;  ///< from 1
};
/// Rounds to the nearest second.
CalendarTime ToCalendar(Date date) noexcept;
/// Month, day and time may lie outside their range and carry over. @throws RuntimeError 5 outside the years 100 to
/// 9999.
Date FromCalendar(int year, int month, int day, double hours = 0, double minutes = 0, double seconds = 0);

}  // namespace ov
