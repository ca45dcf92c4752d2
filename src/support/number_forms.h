/// @file
/// The engineering, scientific and version forms of numbers, and back.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// Engineering form with an SI letter behind the number and @p digits significant digits: 12346 with 4 is "12.35k".
/// The decimal separator is the locale's.
Text Number2TechExponent(double value, int digits);
/// Reads the engineering form; @p unit and blanks may stand behind it. The letter "T" is written but, on purpose, not
/// read. Failures are logged. @throws RuntimeError 13 with the source "TechExponent2Number" for an unknown letter, and
/// what the number's conversion raises.
double TechExponent2Number(const Text& text, const Text& unit);
/// Two decimals and an exponent with a sign and at least two digits: "1.23E+03"; "0" for 0.
Text Number2Scientific(double value);
/// Reads what a number conversion reads; @p unit and blanks may stand behind it. Failures are logged.
/// @throws RuntimeError of the number's conversion with the source "Scientific2Number".
double Scientific2Number(const Text& text, const Text& unit);
/// Parts between "." from left to right, each times 256 above the next; "" has none and is 0. Parts above 255 carry;
/// more than four parts grow beyond 32 bits. Failures are logged.
/// @throws RuntimeError 6 or 13 for a part that is no 16-bit integer.
double Version2Number(const Text& text);
/// @p parts bytes of @p value from the highest down, with "." between; higher bytes are dropped.
Text Number2Version(double value, int parts);

}  // namespace ov
