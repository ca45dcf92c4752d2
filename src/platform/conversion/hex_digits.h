/// @file
/// Hexadecimal digits.
#pragma once

#include <string_view>

namespace ov {

/// The upper-case digit of the lowest four bits of @p value.
constexpr char16_t HexDigit(unsigned value) noexcept {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    return kDigits[value & 0xF];
}

/// The value of a digit of either case; -1 for any other character.
constexpr int HexValue(char16_t c) noexcept {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}

}  // namespace ov
