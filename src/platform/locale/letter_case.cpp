#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include "platform/locale/locale.h"

namespace ov {

namespace {

// Maps every character of a text by `map`, but where the result would take another number of 16-bit units.
template <class Map>
std::u16string MapCharacters(std::u16string_view text, Map map) {
    std::u16string result(text);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (U16_IS_LEAD(text[at]) && at + 1 < text.size() && U16_IS_TRAIL(text[at + 1])) {
            const UChar32 mapped = map(U16_GET_SUPPLEMENTARY(text[at], text[at + 1]));
            if (mapped > 0xFFFF) {
                result[at] = static_cast<char16_t>(U16_LEAD(mapped));
                result[at + 1] = static_cast<char16_t>(U16_TRAIL(mapped));
            }
            ++at;
        } else {
            const UChar32 mapped = map(text[at]);
            if (mapped <= 0xFFFF) result[at] = static_cast<char16_t>(mapped);
        }
    }
    return result;
}

}  // namespace

std::u16string ToUpperCase(std::u16string_view text) {
    return MapCharacters(text, [](UChar32 c) { return c >= 'a' && c <= 'z' ? c - 32 : c < 0x80 ? c : u_toupper(c); });
}

std::u16string ToLowerCase(std::u16string_view text) {
    return MapCharacters(text, [](UChar32 c) { return c >= 'A' && c <= 'Z' ? c + 32 : c < 0x80 ? c : u_tolower(c); });
}

char16_t FoldCharacter(char16_t c) noexcept {
    const UChar32 folded = u_foldCase(c, U_FOLD_CASE_DEFAULT);
    return folded <= 0xFFFF ? static_cast<char16_t>(folded) : c;
}

}  // namespace ov
