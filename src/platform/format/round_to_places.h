/// @file
/// Rounding of a Double to decimal places.
#pragma once

namespace ov {

/// @p value rounded to @p places decimal places, halves to even: 0.125 with 2 is 0.12. The half is looked for in the
/// Double product of @p value and the power of ten, so 2.675 with 2, whose product is 267.5, is 2.68. Numbers that have
/// no such places, NaN and infinity stay as they are. Negative @p places count as 0.
double RoundToPlaces(double value, int places) noexcept;

}  // namespace ov
