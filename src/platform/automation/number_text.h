/// @file
/// The one reader of numbers in texts of the current locale, and the writer of their plain text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/automation/number_digits.h"
#include "platform/automation/text.h"

namespace ov {

/// What the reader found in a text.
struct NumberText {
    DecimalDigits digits;       ///< the number's size, if it is not a pattern
    std::uint64_t pattern = 0;  ///< the bits of "&H" and "&O" digits
    bool negative = false;
    bool isPattern = false;
    bool isLongPattern = false;  ///< "&" stands behind the digits: a pattern of 32 bits even if it is short

    /// A pattern counts as unsigned. Nullopt beyond the range.
    std::optional<double> ToDouble() const noexcept;
};

/// Reads the whole of @p text: blanks around; a sign before or behind, or brackets for a negative number; the currency
/// sign before or behind; digits with group separators, a decimal separator and an exponent ("E" or "D"); or "&H" or
/// "&O" and digits of at most 64 bits, with an optional "&" behind. False if it is anything else.
bool ReadNumberText(std::u16string_view text, NumberText& number) noexcept;

/// The text of @p value with @p significant digits and the decimal separator @p point. It is in scientific form
/// ("1.5E-16") where the digits before or behind the point would be more than @p significant.
Text NumberToText(double value, int significant, char16_t point);

}  // namespace ov
