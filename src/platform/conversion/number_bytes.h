/// @file
/// Numbers as their bytes and bit patterns. The first byte is the least significant one.
#pragma once

#include <cstdint>
#include <span>

namespace ov {

using FourBytes = std::span<std::uint8_t, 4>;
using ConstFourBytes = std::span<const std::uint8_t, 4>;

/// Two's complement.
void Long2Bytes(std::int32_t value, FourBytes bytes) noexcept;
std::int32_t Bytes2Long(ConstFourBytes bytes) noexcept;

/// IEEE 754 single, any pattern.
void Float2Bytes(float value, FourBytes bytes) noexcept;
float Bytes2Float(ConstFourBytes bytes) noexcept;

std::int32_t Float2Long(float value) noexcept;
/// @throws RuntimeError 6 for the patterns of NaN and infinity
float Long2Float(std::int32_t bits);

}  // namespace ov
