#include "platform/locale/code_page.h"

#include <algorithm>
#include <array>

namespace ov {

namespace {

// The characters of the codes 0x80 to 0x9F; all others are the characters of the same number.
constexpr std::array<char16_t, 32> kUpper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

std::uint8_t ToCodePage(char16_t character) noexcept {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<std::uint8_t>(character);
    const auto at = std::ranges::find(kUpper, character);
    return at != kUpper.end() ? static_cast<std::uint8_t>(0x80 + (at - kUpper.begin())) : std::uint8_t{'?'};
}

char16_t FromCodePage(std::uint8_t code) noexcept {
    return code >= 0x80 && code < 0xA0 ? kUpper[code - 0x80u] : char16_t{code};
}

std::string ToCodePage(std::u16string_view text) {
    std::string bytes(text.size(), '\0');
    std::ranges::transform(text, bytes.begin(), [](char16_t c) { return static_cast<char>(ToCodePage(c)); });
    return bytes;
}

std::u16string FromCodePage(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::ranges::transform(bytes, text.begin(), [](char c) { return FromCodePage(static_cast<std::uint8_t>(c)); });
    return text;
}

}  // namespace ov
