#include "parameters/string_image.h"

#include <algorithm>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/conversion/hex_digits.h"
#include "platform/conversion/packed_ascii.h"
#include "platform/format/format.h"
#include "platform/locale/code_page.h"

namespace ov {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kDateBytes = 3;
constexpr int kFirstYear = 1900;  // of the byte of a date

Bytes PackedBytes(const Text& value, std::size_t size) {
    const std::string characters = ToCodePage(value);
    Bytes packed(size);
    PackAscii({reinterpret_cast<const std::uint8_t*>(characters.data()), characters.size()}, packed);
    return packed;
}

Text PackedCharacters(std::span<const std::uint8_t> packed) {
    Bytes characters(UnpackedSize(packed.size()));
    characters.resize(UnpackAscii(packed, characters));
    return BytesToCharacters(characters);
}

Bytes DateBytes(const Text& value) {
    const CalendarTime date = ToCalendar(ToDate(value));
    return {static_cast<std::uint8_t>(date.day), static_cast<std::uint8_t>(date.month),
            static_cast<std::uint8_t>(std::clamp(date.year - kFirstYear, 0, 255))};
}

Text DateText(std::span<const std::uint8_t> bytes) {
    return Format(FromCalendar(kFirstYear + bytes[2], bytes[1], bytes[0]), u"Short Date");
}

Bytes VersionBytes(StringKind kind, const Text& value) {
    const auto& numbers = ReadVersion(kind, value).numbers;
    if (std::ranges::any_of(numbers, [](std::int16_t number) { return number < 0 || number > 255; })) {
        Raise(ErrorNumber::Overflow);
    }
    const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(numbers[at]); };
    switch (kind) {
        case StringKind::Version4_4:
            return {static_cast<std::uint8_t>(byte(0) << 4 | (byte(1) & 0x0F))};
        case StringKind::Version8_8:
            return {byte(0), byte(1)};
        default:
            return {byte(0), byte(1), byte(2), byte(3)};
    }
}

Text JoinedNumbers(std::span<const std::uint8_t> numbers) {
    Text text;
    for (const std::uint8_t number : numbers) {
        if (!text.empty()) text += u'.';
        text += Text::FromInteger(number);
    }
    return text;
}

Text VersionText(StringKind kind, std::span<const std::uint8_t> bytes) {
    switch (kind) {
        case StringKind::Version4_4:
            return JoinedNumbers(
                Bytes{static_cast<std::uint8_t>(bytes[0] >> 4), static_cast<std::uint8_t>(bytes[0] & 0x0F)});
        case StringKind::Version8_8:
            return JoinedNumbers(bytes.first(2));
        default:
            // The other way round than the export writes them, which devices rely on.
            return JoinedNumbers(Bytes{bytes[3], bytes[2], bytes[1], bytes[0]});
    }
}

std::uint8_t DigitOf(char16_t c) {
    const int value = HexValue(c);
    if (value < 0) Raise(ErrorNumber::TypeMismatch);
    return static_cast<std::uint8_t>(value);
}

// Pairs of digits; a last digit by itself is a byte too.
Bytes StreamBytes(const Text& value, std::size_t size, bool lastFirst) {
    Bytes bytes;
    bytes.reserve(value.size() / 2 + 1);
    for (std::size_t at = 0; at < value.size(); at += 2) {
        const std::uint8_t high = DigitOf(value[at]);
        bytes.push_back(at + 1 < value.size() ? static_cast<std::uint8_t>(high << 4 | DigitOf(value[at + 1])) : high);
    }
    if (lastFirst) std::ranges::reverse(bytes);
    bytes.resize(size);
    return bytes;
}

Text StreamText(std::span<const std::uint8_t> bytes, bool lastFirst) {
    char16_t* to = nullptr;
    Text text = Text::ForOverwrite(bytes.size() * 2, to);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const std::uint8_t byte = bytes[lastFirst ? bytes.size() - 1 - at : at];
        *to++ = HexDigit(byte >> 4u);
        *to++ = HexDigit(byte);
    }
    return text;
}

char16_t CharacterOf(std::uint8_t code) noexcept {
    if (code == 0) return u' ';
    const bool control = code < 32 && code != 9 && code != 10 && code != 13;
    return control ? u'_' : FromCodePage(code);
}

}  // namespace

std::vector<std::uint8_t> CharacterBytes(std::u16string_view text, std::size_t size, std::uint8_t filler) {
    Bytes bytes(size, filler);
    std::ranges::transform(text.substr(0, size), bytes.begin(), [](char16_t c) { return ToCodePage(c); });
    return bytes;
}

Text BytesToCharacters(std::span<const std::uint8_t> bytes) {
    char16_t* to = nullptr;
    const Text text = Text::ForOverwrite(bytes.size(), to);
    std::ranges::transform(bytes, to, CharacterOf);
    return text.view().substr(0, text.view().find_last_not_of(u' ') + 1);
}

std::int32_t StringImageWidth(StringKind kind, const Text& value) {
    const auto size = static_cast<std::int32_t>(std::min<std::size_t>(value.size(), 0x0FFFFFFF));
    switch (kind) {
        case StringKind::HartDate:
            return 24;
        case StringKind::Version4_4:
            return 8;
        case StringKind::Version8_8:
            return 16;
        case StringKind::Version8_8_32:
            return 32;
        case StringKind::HexStream:
        case StringKind::HexWordStream:
            return 4 * size;
        default:
            return 8 * size;
    }
}

bool IsStringImageWidth(StringKind kind, std::int32_t width) noexcept {
    switch (kind) {
        case StringKind::HartDate:
            return width >= 24;
        case StringKind::Version8_8:
            return width == 16;
        case StringKind::Version8_8_32:
            return width == 32;
        case StringKind::Version4_4:
        case StringKind::HexStream:
        case StringKind::HexWordStream:
            return width >= 8;
        default:
            return true;
    }
}

const char16_t* WidthComplaint(StringKind kind) noexcept {
    switch (kind) {
        case StringKind::HartDate:
            return u"HartDate";
        case StringKind::Version8_8:
        case StringKind::Version8_8_32:
            return u"version8_8r";
        default:
            return u"version4_4";
    }
}

std::size_t StringImageSize(StringKind kind, std::size_t size) noexcept {
    switch (kind) {
        case StringKind::HartDate:
            return kDateBytes;
        case StringKind::Version4_4:
            return 1;
        default:
            return size;
    }
}

std::vector<std::uint8_t> StringToImage(StringKind kind, const Text& value, std::size_t size) {
    switch (kind) {
        case StringKind::PackedAscii:
            return PackedBytes(value, size);
        case StringKind::HartDate:
            return DateBytes(value);
        case StringKind::Version4_4:
        case StringKind::Version8_8:
        case StringKind::Version8_8_32:
            return VersionBytes(kind, value);
        case StringKind::HexStream:
        case StringKind::HexWordStream:
            return StreamBytes(value, size, kind == StringKind::HexWordStream);
        case StringKind::Plain:
            return CharacterBytes(value, size, ' ');
        default:
            return CharacterBytes(value, size, 0);
    }
}

Text StringFromImage(StringKind kind, std::span<const std::uint8_t> bytes) {
    switch (kind) {
        case StringKind::PackedAscii:
            return PackedCharacters(bytes);
        case StringKind::HartDate:
            return DateText(bytes);
        case StringKind::Version4_4:
        case StringKind::Version8_8:
        case StringKind::Version8_8_32:
            return VersionText(kind, bytes);
        case StringKind::HexStream:
        case StringKind::HexWordStream:
            return StreamText(bytes, kind == StringKind::HexWordStream);
        default:
            return BytesToCharacters(bytes);
    }
}

}  // namespace ov
