/// @file
/// Bits between two bytes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace ov {

/// Copies @p count bits. With @p shift 0 or above bits 0 and up of @p source go to bits @p shift and up of @p target;
/// below 0 bits -@p shift and up of @p source go to bits 0 and up. Other bits of @p target stay, and bits that would
/// lie beyond either byte are left out. @returns false, with nothing copied, for a negative count or a shift beyond 7.
inline bool Byte2Byte(std::uint8_t& target, std::uint8_t source, int shift, int count) noexcept {
    constexpr int kBits = 8;
    if (count < 0 || shift <= -kBits || shift >= kBits) return false;
    const int copied = std::min(count, kBits - std::abs(shift));
    const unsigned ones = (1u << copied) - 1;
    const unsigned mask = shift >= 0 ? ones << shift : ones;
    const unsigned bits = shift >= 0 ? unsigned{source} << shift : unsigned{source} >> -shift;
    target = static_cast<std::uint8_t>((target & ~mask) | (bits & mask));
    return true;
}

}  // namespace ov
