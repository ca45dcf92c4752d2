/// @file
/// What the kinds of pictures have in common.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/automation/text.h"
#include "platform/automation/variant.h"

namespace ov {

/// A picture in the form in which it is applied. It knows no locale before that.
class PictureForm {
public:
    PictureForm() = default;
    PictureForm(const PictureForm&) = delete;
    PictureForm& operator=(const PictureForm&) = delete;
    virtual ~PictureForm() = default;
    /// @pre value is no object
    virtual Text Apply(const Variant& value) const = 0;
};

/// The characters that an escape ("\" and a character) or a quoted text at @p at stands for; @p at moves behind it.
/// Nullopt, with @p at as it was, for anything else. A quote that is not closed goes to the end.
inline std::optional<std::u16string_view> ReadLiteral(std::u16string_view picture, std::size_t& at) noexcept {
    const char16_t mark = picture[at];
    if (mark != u'\\' && mark != u'"') return std::nullopt;
    const std::u16string_view rest = picture.substr(at + 1);
    const std::u16string_view literal = rest.substr(0, mark == u'"' ? rest.find(u'"') : 1);
    at += 1 + literal.size();
    if (mark == u'"' && at < picture.size()) ++at;
    return literal;
}

}  // namespace ov
