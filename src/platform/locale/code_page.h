/// @file
/// The single-byte code page, Windows-1252: the 8-bit code of a character, wherever it has one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ov {

/// The code of @p character, or '?' if the page lacks it.
std::uint8_t ToCodePage(char16_t character) noexcept;
/// The character of @p code; the five codes without one map to the control character of the same number.
char16_t FromCodePage(std::uint8_t code) noexcept;
std::string ToCodePage(std::u16string_view text);
std::u16string FromCodePage(std::string_view bytes);

}  // namespace ov
