/// @file
/// `ModuleSignedUnsigned`: numbers, bit patterns, hexadecimal texts and byte arrays made of each other.
///
/// A pattern is the unsigned reading of a field's bits, a signed value their two's complement at a width in bits.
/// Widths above 32 bits need a Decimal; the functions that end in L take a Long and widths below 32.
///
/// Failures are RuntimeErrors with number 42 whose source names the function and its argument. A byte order other than
/// little or big endian has the description "no byteorder other than little-endian or big-endian allowed", a value
/// beyond its width "value too big!", all else "Conversion failed!".
#pragma once

#include <cstdint>

#include "contract/enumerations.h"
#include "platform/automation/array.h"
#include "platform/automation/decimal.h"
#include "platform/automation/text.h"

namespace ov {

/// The pattern whose hexadecimal digits, without prefix, are @p text.
Decimal Hex2Dec(const Text& text, eByteOrder order);
/// Turns the pairs of digits of @p text end for end. Only an even length makes sense.
void ReverseHexBytes(Text& text);
/// Four digits; the empty text for an order that is neither little nor big endian.
Text WordToHex(std::uint16_t word, eByteOrder order);
/// The hexadecimal digits of @p pattern, 64 bits at most, in upper case: all 16 with leading zeros, cut to @p digits at
/// the most significant end. Never longer than 16 digits.
Text Dec2Hex(const Decimal& pattern, eByteOrder order, std::int32_t digits);

/// Writes the @p count lowest bytes of @p pattern, 64 bits at most, to @p target from index @p first on. True. An index
/// beyond the array fails after the bytes before it have been written.
bool Dec2ByteArray(ByteArray& target, std::int32_t first, std::int32_t count, const Decimal& pattern, eByteOrder order);
/// The pattern of @p count bytes from index @p first on.
Decimal ByteArray2Dec(const ByteArray& source, std::int32_t first, std::int32_t count, eByteOrder order);

/// @throws RuntimeError 42 for a pattern of more than @p bitLength bits
Decimal Unsigned2Signed(const Decimal& pattern, std::int32_t bitLength);
/// @throws RuntimeError 42 for a value above the signed range; one below it is not refused
Decimal Signed2Unsigned(const Decimal& value, std::int32_t bitLength);

namespace detail {

// In full, for the widths and numbers that the functions below leave to them.
std::int32_t Unsigned2SignedL(std::int32_t pattern, std::int32_t bitLength);
std::int32_t Signed2UnsignedL(std::int32_t value, std::int32_t bitLength);

constexpr bool IsShort(std::int32_t bitLength) noexcept {
    return bitLength >= 1 && bitLength < 32;
}

}  // namespace detail

/// The same, and RuntimeError 42 "32Bit nicht unterstützt!" for widths of 32 bits or more.
inline std::int32_t Unsigned2SignedL(std::int32_t pattern, std::int32_t bitLength) {
    if (detail::IsShort(bitLength)) {
        const std::int64_t half = std::int64_t{1} << (bitLength - 1);
        if (pattern < half) return pattern;
        if (pattern < 2 * half) return static_cast<std::int32_t>(pattern - 2 * half);
    }
    return detail::Unsigned2SignedL(pattern, bitLength);
}
inline std::int32_t Signed2UnsignedL(std::int32_t value, std::int32_t bitLength) {
    if (detail::IsShort(bitLength)) {
        const std::int64_t half = std::int64_t{1} << (bitLength - 1);
        if (value < half) return static_cast<std::int32_t>(value < 0 ? value + 2 * half : value);
    }
    return detail::Signed2UnsignedL(value, bitLength);
}

}  // namespace ov
