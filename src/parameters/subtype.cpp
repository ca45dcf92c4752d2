#include "parameters/subtype.h"

#include "platform/automation/conversions.h"
#include "platform/automation/text_search.h"

namespace ov {

Subtype ReadSubtype(std::u16string_view text, std::u16string_view letters) {
    Subtype subtype;
    const char16_t first = text.empty() ? u'\0' : FoldCase(text.front());
    if (first != 0 && letters.find(first) != std::u16string_view::npos) subtype.letter = first;
    subtype.width = ValPrefix(text.substr(subtype.letter ? 1 : 0));
    subtype.reverseMapping = HoldsNoCase(text, u"reverseMapping");
    return subtype;
}

}  // namespace ov
