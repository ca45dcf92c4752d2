/// @file
/// The classes of characters that the readers of numbers and dates know.
#pragma once

namespace ov {

constexpr bool IsDigit(char16_t c) noexcept {
    return c >= u'0' && c <= u'9';
}

/// Blank, tab, line ends, and the blanks that do not break.
constexpr bool IsBlank(char16_t c) noexcept {
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u00A0' || c == u'\u202F';
}

}  // namespace ov
