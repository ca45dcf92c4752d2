/// @file
/// Texts as the bytes of a device image.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "parameters/string_kind.h"
#include "platform/automation/text.h"

namespace ov {

/// Characters as codes of the code page, cut or filled to @p size bytes.
std::vector<std::uint8_t> CharacterBytes(std::u16string_view text, std::size_t size, std::uint8_t filler);
/// The characters of some codes, less trailing blanks: 0 is a blank, other control codes but tab, line feed and
/// carriage return are "_".
Text BytesToCharacters(std::span<const std::uint8_t> bytes);

/// The width of the field in bits where the caller names none.
std::int32_t StringImageWidth(StringKind kind, const Text& value);
/// Whether a field of @p width bits, a multiple of 8, can hold the kind.
bool IsStringImageWidth(StringKind kind, std::int32_t width) noexcept;
/// The word in the log line about a width that the kind cannot have, which is another kind's for some.
const char16_t* WidthComplaint(StringKind kind) noexcept;

/// The bytes that an export writes, @p size of them unless the kind has a size of its own.
/// @throws RuntimeError for a text that is not of the kind
std::vector<std::uint8_t> StringToImage(StringKind kind, const Text& value, std::size_t size);
/// The text that the bytes of a field are; characters without trailing blanks. Days and months beyond the calendar's
/// carry. @pre bytes has as many as the kind needs
Text StringFromImage(StringKind kind, std::span<const std::uint8_t> bytes);
/// Bytes that an export writes into a field of @p size bytes.
std::size_t StringImageSize(StringKind kind, std::size_t size) noexcept;

}  // namespace ov
