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

bool HoldsWord(std::u16string_view text, std::u16string_view word) noexcept {
    for (; text.size() >= word.size(); text.remove_prefix(1)) {
        if (EqualNoCase(text.substr(0, word.size()), word)) return true;
    }
    return false;
}

}  // namespace ov
