/// @file
/// Counts of seconds as texts of a clock, and of a calendar. The mark between the parts is the locale's time separator;
/// ":" reads as well.
#pragma once

#include "platform/automation/decimal.h"
#include "platform/automation/text.h"

namespace ov {

/// "25:01:01" in English; hours are not wrapped. A negative count has the sign before the hours if these are not 0.
Text FormatSeconds(const Decimal& seconds);
/// The same without the seconds, which are dropped.
Text FormatMinutes(const Decimal& seconds);

/// Reads hh:mm:ss, mm:ss, :ss or a bare number of seconds, as a value of type @p T (std::int32_t, Decimal). Parts are
/// numbers of any size. @throws RuntimeError 13 for what is no number, 6 where a step leaves the type
template <class T>
T ParseSeconds(const Text& text);
/// Reads hh:mm, or a bare number, which is of seconds as the value is. @throws the same
template <class T>
T ParseMinutes(const Text& text);

/// "1970-01-02 00:00:00" in English: @p seconds since 1970, in no time zone.
Text FormatUnixTime(double seconds);
/// The same from a text that reads as a date; 0 for any other. @throws RuntimeError 6 beyond a Long
std::int32_t ParseUnixTime(const Text& text);

extern template std::int32_t ParseSeconds(const Text&);
extern template std::int32_t ParseMinutes(const Text&);
extern template Decimal ParseSeconds(const Text&);
extern template Decimal ParseMinutes(const Text&);

}  // namespace ov
