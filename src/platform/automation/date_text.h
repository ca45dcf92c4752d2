/// @file
/// The text of dates in the current locale. The reader is ReadDate of conversions.h.
#pragma once

#include "platform/automation/text.h"
#include "platform/automation/variant.h"

namespace ov {

/// Day numbers of 0100-01-01 and 9999-12-31, the first and the last day that a Date can name.
inline constexpr int kFirstDay = -657434;
inline constexpr int kLastDay = 2958465;

/// True for a finite number whose day lies in the years 100 to 9999.
constexpr bool IsDateNumber(double days) noexcept {
    return days > kFirstDay - 1.0 && days < kLastDay + 1.0;
}

/// Short date form and long time form of the locale; less a time of midnight, and for day 0 less the date.
Text DateToText(Date date);

}  // namespace ov
