/// @file
/// HART packed ASCII: the 64 characters from blank to "_" in six bits each, four of them in three bytes, the first one
/// in the highest bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ov {

/// Whole characters that some packed bytes hold; three bytes hold four.
constexpr std::size_t UnpackedSize(std::size_t bytes) noexcept {
    return bytes / 3 * 4 + bytes % 3;
}
/// Bytes that some characters take, the last one filled up.
constexpr std::size_t PackedSize(std::size_t characters) noexcept {
    return characters / 4 * 3 + characters % 4;
}

/// Fills @p packed with the characters of @p text, which are 8-bit codes. Where @p text is too short blanks follow;
/// what is too long for @p packed is left out. Of a character beyond the 64 the two highest bits are lost, so that it
/// comes back as another one.
void PackAscii(std::span<const std::uint8_t> text, std::span<std::uint8_t> packed) noexcept;

/// The characters of @p packed, as many as are whole and @p text has room for. @returns their count.
std::size_t UnpackAscii(std::span<const std::uint8_t> packed, std::span<std::uint8_t> text) noexcept;

}  // namespace ov
