/// @file
/// Numbers as their bytes and bit patterns. The first byte is the least significant one.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace ov {

namespace detail {

static_assert(std::endian::native == std::endian::little, "words lie in memory as their bytes do in an image");

template <class Word>
void StoreWord(std::uint8_t* to, std::uint64_t bits) noexcept {
    const auto word = static_cast<Word>(bits);
    std::memcpy(to, &word, sizeof(word));
}
template <class Word>
std::uint64_t LoadWord(const std::uint8_t* from) noexcept {
    Word word;
    std::memcpy(&word, from, sizeof(word));
    return word;
}

}  // namespace detail

/// Writes as many of the lowest bytes of @p pattern as @p bytes has room for, 8 at most.
inline void Long2Bytes(std::uint64_t pattern, std::span<std::uint8_t> bytes) noexcept {
    std::uint8_t* const to = bytes.data();
    const std::size_t count = bytes.size();
    // Two words that overlap fit any count between their size and its double.
    if (count >= 4) {
        detail::StoreWord<std::uint32_t>(to, pattern);
        detail::StoreWord<std::uint32_t>(to + count - 4, pattern >> (8 * (count - 4)));
    } else if (count >= 2) {
        detail::StoreWord<std::uint16_t>(to, pattern);
        to[count - 1] = static_cast<std::uint8_t>(pattern >> (8 * (count - 1)));
    } else if (count == 1) {
        *to = static_cast<std::uint8_t>(pattern);
    }
}

/// The number of at most 8 bytes, without sign.
inline std::uint64_t Bytes2Long(std::span<const std::uint8_t> bytes) noexcept {
    const std::uint8_t* const from = bytes.data();
    const std::size_t count = bytes.size();
    if (count >= 4)
        return detail::LoadWord<std::uint32_t>(from) | detail::LoadWord<std::uint32_t>(from + count - 4)
                                                           << (8 * (count - 4));
    if (count >= 2) return detail::LoadWord<std::uint16_t>(from) | std::uint64_t{from[count - 1]} << (8 * (count - 1));
    return count == 1 ? *from : 0;
}

/// The @p count lowest bytes of @p pattern end for end. @pre count is 1 to 8
inline std::uint64_t ReverseBytes(std::uint64_t pattern, std::size_t count) noexcept {
    return __builtin_bswap64(pattern) >> (8 * (8 - count));
}

/// The bits of an IEEE 754 single.
inline std::int32_t Float2Long(float value) noexcept {
    return std::bit_cast<std::int32_t>(value);
}

}  // namespace ov
