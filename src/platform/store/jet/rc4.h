/// @file
/// The stream cipher of Jet files.
#pragma once

#include <cstdint>
#include <span>

namespace ov::jet {

/// Encodes or decodes @p bytes in place with RC4; the key is the four bytes of
/// @p key, lowest first.
void ApplyRc4(std::uint32_t key, std::span<std::uint8_t> bytes) noexcept;

}  // namespace ov::jet
