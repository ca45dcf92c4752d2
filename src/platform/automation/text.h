/// @file
/// Counted UTF-16 text, shared between its holders.
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace ov {

/// A counted text of 16-bit characters; may hold any character, 0 included.
///
/// A text that came from bytes may have a last byte that is no whole character. It counts in ByteCount alone, joins
/// with the bytes of what is appended, and is left out where characters are read.
///
/// A Text is one pointer. Copies share the characters, which nobody changes while they are shared; a text that has
/// one holder grows in place, so building a long text piece by piece is linear. Like every value of the system a text
/// belongs to the host's one thread: the share count is not atomic.
///
/// Memory: throws RuntimeError 14 ("Out of string space") above kMaxLength and RuntimeError 7 ("Out of memory") where
/// the account of memory_account.h is exhausted.
class Text {
public:
    /// Most characters that a text can have.
    static constexpr std::size_t kMaxLength = std::size_t{1} << 30;

    Text() noexcept = default;
    Text(std::u16string_view characters);
    Text(const char16_t* characters) : Text(std::u16string_view(characters)) {}
    Text(const std::u16string& characters) : Text(std::u16string_view(characters)) {}
    Text(const Text& other) noexcept : mRep(other.mRep) {
        if (mRep) ++mRep->references;
    }
    Text(Text&& other) noexcept : mRep(std::exchange(other.mRep, nullptr)) {}
    Text& operator=(const Text& other) noexcept {
        Text(other).Swap(*this);
        return *this;
    }
    Text& operator=(Text&& other) noexcept {
        Text(std::move(other)).Swap(*this);
        return *this;
    }
    ~Text() {
        if (mRep && --mRep->references == 0) Free(mRep);
    }

    /// Text of UTF-8 bytes; each malformed sequence becomes U+FFFD.
    static Text FromUtf8(std::string_view bytes);
    /// Text of 7-bit characters, such as a name or a number that the program wrote itself.
    static Text FromAscii(std::string_view characters);
    /// @p count times the character @p c.
    static Text Repeat(std::size_t count, char16_t c);
    /// A text of @p length characters whose content the caller writes at once through @p characters.
    static Text ForOverwrite(std::size_t length, char16_t*& characters);
    /// A text of bytes, the lower one of each character first.
    static Text FromBytes(std::span<const std::uint8_t> bytes);
    /// The decimal text of an integer.
    static Text FromInteger(std::int64_t value);

    /// The UTF-8 form; an unpaired surrogate becomes U+FFFD.
    std::string ToUtf8() const;

    std::size_t size() const noexcept { return mRep ? mRep->length : 0; }
    bool empty() const noexcept { return size() == 0; }
    const char16_t* data() const noexcept { return mRep ? mRep->Characters() : u""; }
    std::u16string_view view() const noexcept { return {data(), size()}; }
    operator std::u16string_view() const noexcept { return view(); }
    /// @pre index < size()
    char16_t operator[](std::size_t index) const noexcept { return mRep->Characters()[index]; }

    /// Appends in place where nobody else holds the characters. @p characters may be part of this text.
    Text& operator+=(std::u16string_view characters);
    Text& operator+=(char16_t c) { return *this += std::u16string_view(&c, 1); }

    /// The same for a text with its bytes.
    template <std::same_as<Text> T>
    Text& operator+=(const T& other) {
        if (IsOdd() || other.IsOdd()) [[unlikely]]
            return AppendBytes(other);
        return *this += other.view();
    }

    /// True for a text whose last byte is no whole character.
    bool IsOdd() const noexcept { return mRep && mRep->capacity == 0; }

    std::size_t ByteCount() const noexcept { return size() * 2 + (IsOdd() ? 1 : 0); }
    /// @pre offset < ByteCount()
    std::uint8_t ByteAt(std::size_t offset) const noexcept {
        const unsigned character = mRep->Characters()[offset / 2];
        return static_cast<std::uint8_t>(offset % 2 == 0 ? character & 0xFF : character >> 8);
    }

    void Swap(Text& other) noexcept { std::swap(mRep, other.mRep); }

    /// Equal character by character, case included.
    friend bool operator==(const Text& a, const Text& b) noexcept {
        return a.mRep == b.mRep || (a.view() == b.view() && a.LastByte() == b.LastByte());
    }
    friend bool operator==(const Text& a, std::u16string_view b) noexcept { return a.view() == b; }
    friend bool operator==(const Text& a, const char16_t* b) noexcept { return a.view() == b; }
    friend std::strong_ordering operator<=>(const Text& a, const Text& b) noexcept {
        const std::strong_ordering order = a.view().compare(b.view()) <=> 0;
        return order != 0 ? order : a.LastByte() <=> b.LastByte();
    }

private:
    struct Rep {
        std::uint32_t references;
        std::uint32_t length;
        std::uint32_t capacity;  // 0 for a text with an odd count of bytes, so that it never grows in place
        char16_t* Characters() noexcept { return reinterpret_cast<char16_t*>(this + 1); }
    };

    static Rep* Allocate(std::size_t length, std::size_t capacity);
    static void Free(Rep* rep) noexcept;
    int LastByte() const noexcept { return IsOdd() ? mRep->Characters()[mRep->length] : -1; }
    Text& AppendBytes(const Text& other);

    Rep* mRep = nullptr;
};

static_assert(sizeof(Text) == 8);

/// The joined text; one allocation.
Text Concatenate(std::u16string_view a, std::u16string_view b);
inline Text operator+(const Text& a, std::u16string_view b) {
    return Concatenate(a, b);
}
inline Text operator+(const Text& a, const Text& b) {
    if (!a.IsOdd() && !b.IsOdd()) [[likely]]
        return Concatenate(a, b);
    Text joined = a;
    joined += b;
    return joined;
}
inline Text operator+(const Text& a, const char16_t* b) {
    return Concatenate(a, b);
}
inline Text operator+(const char16_t* a, const Text& b) {
    return Concatenate(a, b);
}
inline Text operator+(Text&& a, std::u16string_view b) {
    a += b;
    return std::move(a);
}
inline Text operator+(Text&& a, const Text& b) {
    a += b;
    return std::move(a);
}
inline Text operator+(Text&& a, const char16_t* b) {
    return std::move(a) + std::u16string_view(b);
}

/// @p text with every @p mark replaced by @p content, case included, from left to right.
Text ReplaceAll(const Text& text, std::u16string_view mark, std::u16string_view content);

/// The rule for ids, column names and keys: equal without regard to case (simple case folding, one character by one).
bool EqualNoCase(std::u16string_view a, std::u16string_view b) noexcept;
/// A hash that is equal for texts that are EqualNoCase.
std::uint32_t HashNoCase(std::u16string_view text) noexcept;
/// The folded form of one character, as EqualNoCase compares it.
char16_t FoldCase(char16_t c) noexcept;

}  // namespace ov
