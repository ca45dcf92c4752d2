#include "platform/format/text_picture.h"

#include <string>

#include "platform/automation/conversions.h"
#include "platform/locale/locale.h"

namespace ov {

TextSection::TextSection(std::u16string_view picture, std::size_t& at) {
    while (at < picture.size() && picture[at] != u';') {
        if (const auto literal = ReadLiteral(picture, at)) {
            for (const char16_t c : *literal) {
                mItems.push_back({Kind::Literal, c});
            }
            continue;
        }
        const char16_t c = picture[at++];
        switch (c) {
            case u'@':
            case u'&':
                mItems.push_back({c == u'@' ? Kind::CharacterOrBlank : Kind::CharacterOrNothing, c});
                ++mPlaceholders;
                break;
            case u'<':
                mCase = Case::Lower;
                break;
            case u'>':
                mCase = Case::Upper;
                break;
            case u'!':
                mIsLeftAligned = true;
                break;
            default:
                mItems.push_back({Kind::Literal, c});
                break;
        }
    }
}

// A text that is shorter than its placeholders stands at their right end, or with "!" at their left. Of a longer one
// the rest goes to the end of all; but with "!" it is the beginning that is lost. Neither is what the documentation
// leads to expect, and both are what pictures have always met.
Text TextSection::Write(const Text& text) const {
    std::u16string cased;
    std::u16string_view rest = text;
    if (mCase != Case::AsIs) {
        cased = mCase == Case::Lower ? ToLowerCase(rest) : ToUpperCase(rest);
        rest = cased;
    }
    std::size_t blanks = 0;  // placeholders that are passed over before the text begins
    if (rest.size() < mPlaceholders) {
        if (!mIsLeftAligned) blanks = mPlaceholders - rest.size();
    } else if (mIsLeftAligned && mPlaceholders > 0) {
        rest.remove_prefix(rest.size() - mPlaceholders);
    }

    std::u16string out;
    out.reserve(mItems.size() + rest.size());
    for (const Item& item : mItems) {
        if (item.kind == Kind::Literal) {
            out += item.character;
        } else if (blanks > 0 || rest.empty()) {
            if (item.kind == Kind::CharacterOrBlank) out += u' ';
            if (blanks > 0) --blanks;
        } else {
            out += rest.front();
            rest.remove_prefix(1);
        }
    }
    out += rest;
    return out;
}

TextPicture::TextPicture(std::u16string_view picture) {
    constexpr std::size_t kMostSections = 2;
    for (std::size_t at = 0; mSections.size() < kMostSections; ++at) {
        mSections.emplace_back(picture, at);
        if (at >= picture.size()) break;
    }
}

Text TextPicture::Apply(const Variant& value) const {
    const bool hasSecond = mSections.size() > 1;
    if (value.IsNull()) return hasSecond ? mSections.back().Write({}) : Text();
    const Text text = ToText(value);
    const TextSection& section = text.empty() && hasSecond ? mSections.back() : mSections.front();
    return section.Write(text);
}

}  // namespace ov
