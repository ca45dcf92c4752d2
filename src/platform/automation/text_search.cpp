#include "platform/automation/text_search.h"

#include "platform/automation/text.h"

namespace ov {

std::size_t FindNoCase(std::u16string_view text, std::u16string_view part) noexcept {
    for (std::size_t at = 0; at + part.size() <= text.size(); ++at) {
        if (EqualNoCase(text.substr(at, part.size()), part)) return at;
    }
    return std::u16string_view::npos;
}

}  // namespace ov
