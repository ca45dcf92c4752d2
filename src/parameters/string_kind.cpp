#include "parameters/string_kind.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/conversion/hex_digits.h"
#include "platform/locale/code_page.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

struct KindWord {
    std::u16string_view word;
    StringKind kind;
};

// The first one that stands in the subtype counts, so the longer of two words comes before its beginning.
constexpr std::array kKindWords = {
    KindWord{u"packedascii", StringKind::PackedAscii},
    KindWord{u"hartdate", StringKind::HartDate},
    KindWord{u"version4_4", StringKind::Version4_4},
    KindWord{u"hexstream", StringKind::HexStream},
    KindWord{u"hexwordstream", StringKind::HexWordStream},
    KindWord{u"version8_8_32", StringKind::Version8_8_32},
    KindWord{u"version8_8", StringKind::Version8_8},
    KindWord{u"dcpname", StringKind::DcpName},
    KindWord{u"ascii0", StringKind::Ascii0},
};

// The first two parts between dots; what stands behind them is not looked at.
std::pair<Text, Text> FirstTwoParts(const Text& text) {
    const std::u16string_view whole = text;
    const std::size_t first = whole.find(u'.');
    if (first == std::u16string_view::npos) Raise(ErrorNumber::SubscriptOutOfRange);
    const std::u16string_view rest = whole.substr(first + 1);
    return {whole.substr(0, first), rest.substr(0, rest.find(u'.'))};
}

}  // namespace

std::optional<StringKind> StringKindOf(std::u16string_view subtype) noexcept {
    const auto* at = std::ranges::find_if(
        kKindWords, [subtype](const KindWord& entry) { return subtype.find(entry.word) != subtype.npos; });
    return at != kKindWords.end() ? std::optional(at->kind) : std::nullopt;
}

VersionNumbers ReadVersion(StringKind kind, const Text& text) {
    const std::int16_t most = kind == StringKind::Version4_4 ? 15 : 255;
    VersionNumbers version;
    auto& [first, second, third, fourth] = version.numbers;
    try {
        const auto parts = FirstTwoParts(text);
        first = ToInteger(parts.first);
        second = ToInteger(parts.second);
    } catch (const RuntimeError&) {
        return version;
    }
    // The numbers three and four are the first two again.
    if (kind == StringKind::Version8_8_32) {
        third = first;
        fourth = second;
    }
    version.valid = true;
    const auto limit = [&](std::int16_t number, std::int16_t& target) {
        if (number >= 0 && number <= most) return;
        target = 0;
        version.valid = false;
    };
    limit(first, first);
    limit(second, second);
    limit(third, third);
    limit(fourth, third);  // a fourth number that is too big stays, and takes the third one away
    return version;
}

bool IsHexStream(std::u16string_view text) noexcept {
    return text.size() % 2 == 0 && std::ranges::all_of(text, [](char16_t c) { return HexValue(c) >= 0; });
}

bool IsPackedAscii(const Text& text) {
    // As the packing has it: a character comes back as itself or as another one.
    constexpr std::uint8_t kFirst = 0x20, kLast = 0x5F;
    return std::ranges::all_of(ToUpperCase(text), [](char16_t c) { return c >= kFirst && c <= kLast; });
}

}  // namespace ov
