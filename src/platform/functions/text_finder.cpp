#include "platform/functions/text_finder.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace ov::vbscript {

namespace {

// From the most frequent one on. All other characters count as rarer.
constexpr std::u16string_view kFrequent = u" etaoinsrhldcumfpgwybvkxjqz";

constexpr auto kRareness = [] {
    std::array<std::uint8_t, 128> rareness;
    rareness.fill(static_cast<std::uint8_t>(kFrequent.size()));
    for (std::size_t i = 0; i < kFrequent.size(); ++i) {
        rareness[kFrequent[i]] = static_cast<std::uint8_t>(i);
    }
    return rareness;
}();

std::size_t RarenessOf(char16_t c) noexcept {
    return c < kRareness.size() ? kRareness[c] : kFrequent.size();
}

}  // namespace

std::size_t TextFinder::RarestOf(std::u16string_view wanted) noexcept {
    std::size_t rarest = 0;
    for (std::size_t i = 1; i < wanted.size(); ++i) {
        if (RarenessOf(wanted[i]) > RarenessOf(wanted[rarest])) rarest = i;
    }
    return rarest;
}

// The first place from `from` on where the wanted text's rare character stands; behind `last` if there is none. The C
// library looks for its lower byte, many characters at a time.
std::size_t TextFinder::NextPlace(std::u16string_view text, std::size_t from, std::size_t last) const noexcept {
    static_assert(std::endian::native == std::endian::little);
    const char16_t rare = mWanted[mRarest];
    const auto* const bytes = reinterpret_cast<const char*>(text.data());
    const std::size_t end = (last + mRarest + 1) * sizeof(char16_t);
    for (std::size_t at = (from + mRarest) * sizeof(char16_t); at < end; ++at) {
        const void* const found = std::memchr(bytes + at, rare & 0xFF, end - at);
        if (!found) break;
        at = static_cast<std::size_t>(static_cast<const char*>(found) - bytes);
        const std::size_t place = at / sizeof(char16_t);
        if (at % sizeof(char16_t) == 0 && text[place] == rare) return place - mRarest;
    }
    return last + 1;
}

std::size_t TextFinder::Find(std::u16string_view text, std::size_t from) {
    if (text.size() < mWanted.size()) return kNone;
    const std::size_t last = text.size() - mWanted.size();
    for (std::size_t offset = from; offset <= last; ++offset) {
        if (mMode == TextMode::Binary && !mWanted.empty()) {
            // Fast path: runs to the next place where the rare character stands.
            constexpr std::size_t kCharactersPerStep = 8;
            const std::size_t next = NextPlace(text, offset, last);
            mPace.Step((next - offset) / kCharactersPerStep);
            if (next > last) return kNone;
            offset = next;
        }
        if (StandsAt(text, offset)) return offset;
    }
    return kNone;
}

std::size_t TextFinder::FindLast(std::u16string_view text) {
    if (text.size() < mWanted.size()) return kNone;
    for (std::size_t offset = text.size() - mWanted.size() + 1; offset > 0; --offset) {
        if (StandsAt(text, offset - 1)) return offset - 1;
    }
    return kNone;
}

bool TextFinder::StandsAt(std::u16string_view text, std::size_t offset) {
    std::size_t same = 0;
    if (mMode == TextMode::Binary) {
        while (same < mWanted.size() && text[offset + same] == mWanted[same]) {
            ++same;
        }
    } else {
        while (same < mWanted.size() && FoldCase(text[offset + same]) == FoldCase(mWanted[same])) {
            ++same;
        }
    }
    mPace.Step(same + 1);
    return same == mWanted.size();
}

}  // namespace ov::vbscript
