/// @file
/// Plain number formatting: a number of decimals, grouping, brackets and a leading digit, in the current locale.
#pragma once

#include "platform/automation/variant.h"

namespace ov {

/// How FormatNumber writes a number.
struct NumberStyle {
    int decimals = 2;          ///< decimal places, 0 to 99
    bool leadingDigit = true;  ///< "0" before the point of a fraction
    bool brackets = false;     ///< negative numbers in brackets
    bool grouping = true;      ///< group separators
};

/// The number with @p style, halves rounded away from zero, as the rule language's FormatNumber writes it. What is
/// rounded are the decimal digits of the number's text (15 for a Double, 7 for a Single), so 2.675 is "2.68". A result
/// of 0 has no sign. NaN and infinity are the plain text of the value.
/// @throws RuntimeError 13 for what is no number, 94 for Null, 5 for a count of decimals out of range.
Text FormatNumber(const Variant& number, const NumberStyle& style = {});

/// The named format "Scientific": "1.23E+03", always with two decimals, halves rounded away from zero as above.
Text FormatScientific(double number);

}  // namespace ov
