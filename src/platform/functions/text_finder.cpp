#include "platform/functions/text_finder.h"

#include <algorithm>

namespace ov::vbscript {

std::size_t TextFinder::Find(std::u16string_view text, std::size_t from) {
    if (text.size() < mWanted.size()) return kNone;
    const std::size_t last = text.size() - mWanted.size();
    for (std::size_t offset = from; offset <= last; ++offset) {
        if (mMode == TextMode::Binary && !mWanted.empty()) {
            // Fast path: runs to the next place that begins like the wanted text.
            constexpr std::size_t kCharactersPerStep = 8;
            const std::size_t next = std::min(text.find(mWanted.front(), offset), last + 1);
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
