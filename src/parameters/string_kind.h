/// @file
/// The subtypes of texts: what a text must be, and the numbers that it holds.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/automation/text.h"

namespace ov {

/// The values are those of the field `mSubtypeKind`.
enum class StringKind : std::uint8_t {
    Plain = 0,          ///< filled with blanks in the device image
    PackedAscii = 1,    ///< HART packed ASCII, held in upper case
    HartDate = 2,       ///< a date
    Version4_4 = 3,     ///< two numbers of four bits
    HexStream = 4,      ///< bytes in hexadecimal digits
    Version8_8 = 5,     ///< two numbers of a byte
    HexWordStream = 6,  ///< as HexStream, the last byte first in the device image
    DcpName = 7,        ///< a PROFINET device name
    Version8_8_32 = 8,  ///< four numbers of a byte
    Ascii0 = 9,         ///< filled with zero bytes in the device image
};

/// The kind that the column `subtype` names, or nullopt. Words count with their case, wherever they stand.
std::optional<StringKind> StringKindOf(std::u16string_view subtype) noexcept;

/// The numbers of a version, and whether the text is one.
struct VersionNumbers {
    std::array<std::int16_t, 4> numbers{};
    bool valid = false;
};
/// Reads "1.2". @pre kind is one of the versions
VersionNumbers ReadVersion(StringKind kind, const Text& text);

/// Whether @p text is whole bytes in hexadecimal digits; "" is.
bool IsHexStream(std::u16string_view text) noexcept;

/// Whether the characters of @p text, in upper case, all have a packed form.
bool IsPackedAscii(const Text& text);

}  // namespace ov
