#include "parameters/subtype.h"

#include "platform/automation/conversions.h"

namespace ov {

Subtype ReadSubtype(std::u16string_view text, std::u16string_view letters) {
    Subtype subtype;
    const char16_t first = text.empty() ? u'\0' : FoldCase(text.front());
    if (first != 0 && letters.find(first) != std::u16string_view::npos) subtype.letter = first;
    subtype.width = ValPrefix(text.substr(subtype.letter ? 1 : 0));
    subtype.reverseMapping = HoldsWord(text, u"reverseMapping");
    return subtype;
}

std::size_t FindWord(std::u16string_view text, std::u16string_view word) noexcept {
    for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
        if (EqualNoCase(text.substr(at, word.size()), word)) return at;
    }
    return std::u16string_view::npos;
}

bool HoldsWord(std::u16string_view text, std::u16string_view word) noexcept {
    return FindWord(text, word) != std::u16string_view::npos;
}

}  // namespace ov
