#include "platform/store/sqlite/text_pool.h"

#include <algorithm>

namespace ov::sqlite {

const Text& TextPool::Find(std::string_view characters) {
    std::uint64_t hash = characters.size();
    for (const char c : characters) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    }
    Text& text = mTexts[static_cast<std::size_t>((hash * 0x9E3779B97F4A7C15u) >> (64 - kBits))];
    const bool isIt = text.size() == characters.size() &&
                      std::equal(characters.begin(), characters.end(), text.data(),
                                 [](char a, char16_t b) { return static_cast<char16_t>(a) == b; });
    if (!isIt) text = Text::FromAscii(characters);
    return text;
}

}  // namespace ov::sqlite
