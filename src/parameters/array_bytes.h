/// @file
/// The bytes of an array, and numbers that lie in whole ones of them.
#pragma once

#include <cstdint>

#include "contract/enumerations.h"
#include "platform/automation/array.h"
#include "platform/automation/errors.h"
#include "platform/conversion/number_bytes.h"

namespace ov {

constexpr std::int32_t kBitsOfByte = 8;
constexpr std::int32_t kMostBytes = 8;  ///< of a number

/// @throws RuntimeError 9 for an index that the array does not have
template <class Bytes>
auto& ByteAt(Bytes& image, std::int64_t index) {
    const auto position = static_cast<std::uint64_t>(index - image.lower);
    if (position >= image.bytes.size()) Raise(ErrorNumber::SubscriptOutOfRange);
    return image.bytes[position];
}
/// The byte, or 0 where there is none.
inline std::uint8_t PeekByte(const ByteArray& image, std::int64_t index) noexcept {
    const auto position = static_cast<std::uint64_t>(index - image.lower);
    return position < image.bytes.size() ? image.bytes[position] : std::uint8_t{0};
}

// Fields of @p count whole bytes in an array, from index @p first on. Every order but big endian is little endian.

/// Writes the lowest bits of @p pattern, the least significant byte first, at whichever end it stands, and up to the
/// one that is not there or is beyond the eighth. @throws RuntimeError 9 there
void WriteByByte(ByteArray& target, std::uint64_t pattern, std::int32_t first, std::int32_t count, eByteOrder order);
inline void WritePattern(ByteArray& target, std::uint64_t pattern, std::int32_t first, std::int32_t count,
                         eByteOrder order) {
    const auto position = static_cast<std::uint64_t>(std::int64_t{first} - target.lower);
    const auto size = static_cast<std::size_t>(count);
    if (size - 1 >= kMostBytes || position >= target.bytes.size() || size > target.bytes.size() - position) {
        WriteByByte(target, pattern, first, count, order);
    } else {
        if (order == eByteOrder::eBigEndian) pattern = ReverseBytes(pattern, size);
        Long2Bytes(pattern, {target.bytes.data() + position, size});
    }
}
/// @pre count <= kMostBytes @throws RuntimeError 9 unless the array has all bytes
inline std::uint64_t ReadPattern(const ByteArray& source, std::int32_t first, std::int32_t count, eByteOrder order) {
    if (count <= 0) return 0;
    const auto position = static_cast<std::uint64_t>(std::int64_t{first} - source.lower);
    const auto size = static_cast<std::size_t>(count);
    if (position >= source.bytes.size() || size > source.bytes.size() - position) {
        Raise(ErrorNumber::SubscriptOutOfRange);
    }
    const std::uint64_t pattern = Bytes2Long({source.bytes.data() + position, size});
    return order == eByteOrder::eBigEndian ? ReverseBytes(pattern, size) : pattern;
}

}  // namespace ov
