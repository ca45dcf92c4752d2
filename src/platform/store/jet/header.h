/// @file
/// The first page of a Jet file: which generation it is, its password, its
/// keys.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/automation/text.h"

namespace ov::jet {

enum class Version : std::uint8_t { Jet3, Jet4 };

struct Header {
    Version version = Version::Jet4;
    std::uint32_t pageKey = 0;   ///< of the pages' encoding; 0 for plain pages
    std::uint16_t codePage = 0;  ///< of Jet 3's texts; 0 where it is not told
    Text password;               ///< "" for none
};

/// Bytes of a file's front that tell whether it is a Jet file.
constexpr std::size_t kSignatureBytes = 0x15;

/// The generation that the front of a file tells, or nullopt for a file of
/// another kind or of a later generation.
std::optional<Version> RecognizeVersion(std::span<const std::uint8_t> front) noexcept;

/// @pre RecognizeVersion knows @p file. @throws RuntimeError 3011 if the page
/// is cut off
Header ReadHeader(std::span<const std::uint8_t> file);

constexpr std::size_t PageSize(Version version) noexcept {
    return version == Version::Jet3 ? 2048 : 4096;
}

}  // namespace ov::jet
