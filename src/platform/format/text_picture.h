/// @file
/// Pictures of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/automation/text.h"
#include "platform/format/picture_form.h"

namespace ov {

/// One section of a text picture, such as "!@@@-&&".
class TextSection {
public:
    /// Reads a section at @p at, which moves to the ";" behind it or to the end.
    TextSection(std::u16string_view picture, std::size_t& at);

    Text Write(const Text& text) const;

private:
    enum class Kind : std::uint8_t { Literal, CharacterOrBlank, CharacterOrNothing };
    enum class Case : std::uint8_t { AsIs, Lower, Upper };
    struct Item {
        Kind kind;
        char16_t character;  // of a Literal
    };

    std::vector<Item> mItems;
    std::size_t mPlaceholders = 0;
    Case mCase = Case::AsIs;
    bool mIsLeftAligned = false;
};

class TextPicture final : public PictureForm {
public:
    explicit TextPicture(std::u16string_view picture);
    Text Apply(const Variant& value) const override;

private:
    std::vector<TextSection> mSections;  // 1 or 2
};

}  // namespace ov
