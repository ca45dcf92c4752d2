#include "platform/automation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/automation/memory_account.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Decodes one character at `at`, which moves behind it; a malformed sequence is one replacement character.
char32_t DecodeUtf8(std::string_view bytes, std::size_t& at) noexcept {
    const auto lead = static_cast<unsigned char>(bytes[at++]);
    if (lead < 0x80) return lead;
    const int following = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (following == 0 || lead >= 0xF5) return kReplacement;
    char32_t c = lead & (0x3Fu >> following);
    for (int i = 0; i < following; ++i) {
        if (at >= bytes.size() || (static_cast<unsigned char>(bytes[at]) & 0xC0) != 0x80) return kReplacement;
        c = (c << 6) | (static_cast<unsigned char>(bytes[at++]) & 0x3Fu);
    }
    const bool overlong = (following == 2 && c < 0x800) || (following == 3 && c < 0x10000);
    const bool surrogate = c >= 0xD800 && c < 0xE000;
    return overlong || surrogate || c > 0x10FFFF ? kReplacement : c;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

}  // namespace

Text::Rep* Text::Allocate(std::size_t length, std::size_t capacity) {
    if (length > kMaxLength) Raise(ErrorNumber::OutOfStringSpace);
    capacity = std::min(capacity, kMaxLength);
    const std::size_t bytes = sizeof(Rep) + capacity * sizeof(char16_t);
    MemoryAccount::Take(bytes);
    void* memory = std::malloc(bytes);
    if (!memory) {
        MemoryAccount::Return(bytes);
        Raise(ErrorNumber::OutOfMemory);
    }
    return new (memory) Rep{1, static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(capacity)};
}

void Text::Free(Rep* rep) noexcept {
    const std::size_t capacity = rep->capacity == 0 ? rep->length + std::size_t{1} : rep->capacity;
    MemoryAccount::Return(sizeof(Rep) + capacity * sizeof(char16_t));
    std::free(rep);
}

Text::Text(std::u16string_view characters) {
    if (characters.empty()) return;
    mRep = Allocate(characters.size(), characters.size());
    std::memcpy(mRep->Characters(), characters.data(), characters.size() * sizeof(char16_t));
}

Text Text::ForOverwrite(std::size_t length, char16_t*& characters) {
    Text text;
    if (length > 0) text.mRep = Allocate(length, length);
    characters = length > 0 ? text.mRep->Characters() : nullptr;
    return text;
}

Text Text::FromBytes(std::span<const std::uint8_t> bytes) {
    char16_t* to = nullptr;
    Text text = ForOverwrite((bytes.size() + 1) / 2, to);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const unsigned high = i + 1 < bytes.size() ? bytes[i + 1] : 0u;
        *to++ = static_cast<char16_t>(bytes[i] | high << 8);
    }
    if (bytes.size() % 2 != 0) {
        --text.mRep->length;
        text.mRep->capacity = 0;
    }
    return text;
}

Text& Text::AppendBytes(const Text& other) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(ByteCount() + other.ByteCount());
    for (const Text* part : {static_cast<const Text*>(this), &other}) {
        for (std::size_t i = 0; i < part->ByteCount(); ++i) {
            bytes.push_back(part->ByteAt(i));
        }
    }
    return *this = FromBytes(bytes);
}

Text Text::FromUtf8(std::string_view bytes) {
    std::u16string wide;
    wide.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const char32_t c = DecodeUtf8(bytes, at);
        if (c < 0x10000) {
            wide += static_cast<char16_t>(c);
        } else {
            wide += static_cast<char16_t>(0xD7C0 + (c >> 10));
            wide += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
        }
    }
    return Text(wide);
}

Text Text::FromAscii(std::string_view characters) {
    char16_t* to = nullptr;
    Text text = ForOverwrite(characters.size(), to);
    std::copy(characters.begin(), characters.end(), to);
    return text;
}

Text Text::Repeat(std::size_t count, char16_t c) {
    char16_t* to = nullptr;
    Text text = ForOverwrite(count, to);
    std::fill_n(to, count, c);
    return text;
}

Text Text::FromInteger(std::int64_t value) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return FromAscii({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

std::string Text::ToUtf8() const {
    const std::u16string_view from = view();
    std::string out;
    out.reserve(from.size());
    for (std::size_t i = 0; i < from.size(); ++i) {
        char32_t c = from[i];
        const bool high = c >= 0xD800 && c < 0xDC00;
        if (high && i + 1 < from.size() && from[i + 1] >= 0xDC00 && from[i + 1] < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10) + (from[++i] - 0xDC00u);
        } else if (c >= 0xD800 && c < 0xE000) {
            c = kReplacement;
        }
        AppendUtf8(out, c);
    }
    return out;
}

Text& Text::operator+=(std::u16string_view characters) {
    if (characters.empty()) return *this;
    const std::size_t length = size() + characters.size();
    if (mRep && mRep->references == 1 && length <= mRep->capacity) {
        std::memcpy(mRep->Characters() + mRep->length, characters.data(), characters.size() * sizeof(char16_t));
        mRep->length = static_cast<std::uint32_t>(length);
        return *this;
    }
    Text grown;
    grown.mRep = Allocate(length, std::max(length, size() * 2));
    std::memcpy(grown.mRep->Characters(), data(), size() * sizeof(char16_t));
    std::memcpy(grown.mRep->Characters() + size(), characters.data(), characters.size() * sizeof(char16_t));
    Swap(grown);
    return *this;
}

Text Concatenate(std::u16string_view a, std::u16string_view b) {
    char16_t* to = nullptr;
    Text text = Text::ForOverwrite(a.size() + b.size(), to);
    std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), to));
    return text;
}

Text ReplaceAll(const Text& text, std::u16string_view mark, std::u16string_view content) {
    std::size_t at = text.view().find(mark);
    if (at == std::u16string_view::npos) return text;
    Text result;
    std::u16string_view rest = text;
    for (; at != std::u16string_view::npos; at = rest.find(mark)) {
        result += rest.substr(0, at);
        result += content;
        rest.remove_prefix(at + mark.size());
    }
    result += rest;
    return result;
}

char16_t FoldCase(char16_t c) noexcept {
    if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 0x20) : c;
    return FoldCharacter(c);
}

namespace {

constexpr std::size_t kCharactersInWord = sizeof(std::uint64_t) / sizeof(char16_t);

std::uint64_t WordAt(const char16_t* characters) noexcept {
    std::uint64_t word;
    std::memcpy(&word, characters, sizeof word);
    return word;
}

// Four characters at once, as FoldCase has them. Those of one byte less a bit, which names and ids consist of, by sums
// that carry into a character's bit 7: for letters from "A" on the one, behind "Z" the other.
std::uint64_t FoldWord(std::uint64_t word) noexcept {
    constexpr std::uint64_t kEach = 0x0001'0001'0001'0001;
    if (word & (kEach * 0xFF80)) {
        std::array<char16_t, kCharactersInWord> characters;
        std::memcpy(characters.data(), &word, sizeof word);
        for (char16_t& c : characters) {
            c = FoldCase(c);
        }
        return WordAt(characters.data());
    }
    const std::uint64_t fromA = word + kEach * (0x80 - u'A');
    const std::uint64_t behindZ = word + kEach * (0x80 - u'Z' - 1);
    return word | (((fromA ^ behindZ) & (kEach * 0x80)) >> 2);
}

// The last characters, fewer than a word has, with zeros behind them.
std::uint64_t RestAt(const char16_t* characters, std::size_t count) noexcept {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < count; ++i) {
        word |= std::uint64_t{characters[i]} << (16 * i);
    }
    return word;
}

}  // namespace

bool EqualNoCase(std::u16string_view a, std::u16string_view b) noexcept {
    if (a.size() != b.size()) return false;
    const auto same = [](std::uint64_t x, std::uint64_t y) { return x == y || FoldWord(x) == FoldWord(y); };
    const char16_t* x = a.data();
    const char16_t* y = b.data();
    std::size_t left = a.size();
    for (; left >= kCharactersInWord; left -= kCharactersInWord, x += kCharactersInWord, y += kCharactersInWord) {
        if (!same(WordAt(x), WordAt(y))) return false;
    }
    return same(RestAt(x, left), RestAt(y, left));
}

std::uint32_t HashNoCase(std::u16string_view text) noexcept {
    constexpr std::uint64_t kFactor = 0x9E37'79B9'7F4A'7C15;
    std::uint64_t hash = text.size();
    const auto add = [&hash](std::uint64_t word) {
        hash = (hash ^ FoldWord(word)) * kFactor;
        hash ^= hash >> 32;
    };
    const char16_t* at = text.data();
    std::size_t left = text.size();
    for (; left >= kCharactersInWord; left -= kCharactersInWord, at += kCharactersInWord) {
        add(WordAt(at));
    }
    if (left > 0) add(RestAt(at, left));
    return static_cast<std::uint32_t>(hash);
}

}  // namespace ov
