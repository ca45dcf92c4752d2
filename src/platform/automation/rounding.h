/// @file
/// Rounding to even and the 128-bit integers that exact steps need.
#pragma once

#include <cmath>
#include <cstdint>

namespace ov {

__extension__ typedef __int128 Int128;
__extension__ typedef unsigned __int128 UInt128;

/// The nearest whole number, halves to the even one.
inline double RoundHalfEven(double value) noexcept {
    return std::nearbyint(value);
}

/// @p dividend / @p divisor, rounded to the nearest integer, halves to the even one. @pre divisor > 0
template <class Integer>
constexpr Integer DivideHalfEven(Integer dividend, Integer divisor) noexcept {
    const Integer quotient = dividend / divisor;
    const Integer rest = dividend % divisor;
    const Integer size = rest < 0 ? -rest : rest;
    const Integer missing = divisor - size;
    if (size < missing || (size == missing && quotient % 2 == 0)) return quotient;
    return dividend < 0 ? quotient - 1 : quotient + 1;
}

}  // namespace ov
