/// @file
/// Bits between two bytes.
#pragma once

#include <cstdint>

namespace ov {

/// Copies @p count bits. With @p shift 0 or above bits 0 and up of @p source go to bits @p shift and up of @p target;
/// below 0 bits -@p shift and up of @p source go to bits 0 and up. Other bits of @p target stay, and bits that would
/// lie beyond either byte are left out. @returns false, with nothing copied, for a negative count or a shift beyond 7.
bool Byte2Byte(std::uint8_t& target, std::uint8_t source, int shift, int count) noexcept;

}  // namespace ov
