#include "parameters/bit_conversions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "parameters/array_bytes.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/rounding.h"
#include "platform/conversion/hex_digits.h"

namespace ov {

namespace {

constexpr std::u16string_view kTooBig = u"value too big!";
constexpr std::u16string_view kFailed = u"Conversion failed!";
constexpr std::u16string_view kNo32Bits = u"32Bit nicht unterstützt!";

constexpr std::int32_t kLongBits = 32;

[[noreturn]] void RaiseConversion(const Text& source, std::u16string_view description) {
    constexpr std::int32_t kConversionError = 42;
    throw RuntimeError(kConversionError, source, description);
}

// "ModuleSignedUnsigned.FUNCTION(ARGUMENT)"
Text SourceOf(std::u16string_view function, const Text& argument) {
    Text source = u"ModuleSignedUnsigned.";
    source += function;
    source += u'(';
    source += argument;
    source += u')';
    return source;
}

[[noreturn]] void RaiseOfWidth(std::u16string_view function, const Variant& value, std::int32_t bitLength,
                               std::u16string_view description) {
    const Text arguments = ToText(value) + u",bitlength=" + Text::FromInteger(bitLength);
    RaiseConversion(SourceOf(function, arguments), description);
}

void CheckByteOrder(eByteOrder order, const char16_t* source) {
    if (order == eByteOrder::eLittleEndian || order == eByteOrder::eBigEndian) return;
    RaiseConversion(source, u"no byteorder other than little-endian or big-endian allowed");
}

// The 64 bits of a number; a fraction is cut off. Nullopt for what no 64 bits are.
std::optional<std::uint64_t> Bits64(const Decimal& number) {
    const Decimal whole = number.Scale() == 0 ? number : number.Fix().Normalized();
    if (whole.High() != 0 || whole.IsNegative()) return std::nullopt;
    return whole.Low();
}

std::uint16_t WordOf(std::uint64_t bits, int index) {
    return static_cast<std::uint16_t>(bits >> (16 * index));
}

// Half of the patterns of a width: 2 to the power bitLength - 1. Exact wherever a Decimal holds it, since a pattern of
// 64 bits must come back as it was.
Decimal HalfRange(std::int32_t bitLength) {
    constexpr std::int32_t kDecimalBits = 96;
    if (bitLength < 1 || bitLength > kDecimalBits) return Decimal::FromDouble(std::ldexp(0.5, bitLength));
    const UInt128 half = UInt128{1} << (bitLength - 1);
    return {false, static_cast<std::uint32_t>(half >> 64), static_cast<std::uint64_t>(half), 0};
}

// The same where whole numbers and widths are of at most 64 bits; 0 for others.
std::uint64_t HalfRange64(const Decimal& number, std::int32_t bitLength) {
    constexpr std::int32_t kBits = 64;
    const bool fits = number.Scale() == 0 && number.High() == 0 && bitLength >= 1 && bitLength <= kBits;
    return fits ? std::uint64_t{1} << (bitLength - 1) : 0;
}

// The same for a Long, whose callers know that it is short.
double HalfRangeL(std::int32_t bitLength) {
    return bitLength >= 1 ? static_cast<double>(std::int64_t{1} << (bitLength - 1)) : std::ldexp(0.5, bitLength);
}

// A number within a Long's range.
std::int32_t LongOf(double number) {
    return static_cast<std::int32_t>(std::nearbyint(number));
}

// The number that some hexadecimal digits are, at most 53 bits. @throws RuntimeError 13 if they are none
Decimal HexDigits(std::u16string_view digits) {
    const std::optional<double> number = ReadNumber(Concatenate(u"&H", digits));
    if (!number) Raise(ErrorNumber::TypeMismatch);
    return static_cast<std::int64_t>(*number);
}

// Sixteen bits at a time, the lowest first. @throws RuntimeError 6 beyond a Decimal
Decimal HexChunks(std::u16string_view digits) {
    constexpr std::size_t kChunk = 4;
    constexpr std::int32_t kChunkRange = 65536;
    Decimal number;
    Decimal weight = 1;
    while (true) {
        const std::size_t start = digits.size() - std::min(kChunk, digits.size());
        number = number + HexDigits(digits.substr(start)) * weight;
        digits = digits.substr(0, start);
        if (digits.empty()) return number;
        weight = weight * Decimal(kChunkRange);
    }
}

}  // namespace

Decimal Hex2Dec(const Text& text, eByteOrder order) {
    constexpr std::size_t kShort = 8;
    CheckByteOrder(order, u"Conversion");
    Text digits = text;
    if (order == eByteOrder::eLittleEndian) ReverseHexBytes(digits);
    try {
        return digits.size() < kShort ? HexDigits(digits) : HexChunks(digits);
    } catch (const RuntimeError&) {
        RaiseConversion(SourceOf(u"Hex2Dec", text), kFailed);
    }
}

// The pieces of an odd length overlap, and the right one is written last: "ABC" becomes "BAB".
void ReverseHexBytes(Text& text) {
    std::u16string digits(text.view());
    for (std::size_t left = 0, end = digits.size(); end > left + 2; left += 2, end -= 2) {
        const std::size_t right = end - 2;
        const std::u16string kept = digits.substr(left, 2);
        digits.replace(left, 2, digits, right, 2);
        digits.replace(right, 2, kept);
    }
    text = digits;
}

Text WordToHex(std::uint16_t word, eByteOrder order) {
    if (order != eByteOrder::eLittleEndian && order != eByteOrder::eBigEndian) return {};
    const auto digit = [&](int place) { return HexDigit(unsigned{word} >> (4 * place)); };
    const std::array<char16_t, 4> big = {digit(3), digit(2), digit(1), digit(0)};
    const std::array<char16_t, 4> little = {digit(1), digit(0), digit(3), digit(2)};
    const auto& chosen = order == eByteOrder::eBigEndian ? big : little;
    return std::u16string_view(chosen.data(), chosen.size());
}

Text Dec2Hex(const Decimal& pattern, eByteOrder order, std::int32_t digits) {
    constexpr int kWords = 4;
    CheckByteOrder(order, u"Dec2ByteArray");  // the source that both functions name
    const std::optional<std::uint64_t> bits = Bits64(pattern);
    if (!bits || digits < 0) RaiseConversion(SourceOf(u"Dec2Hex", ToText(pattern)), kFailed);
    const bool isBig = order == eByteOrder::eBigEndian;
    Text hex;
    for (int i = 0; i < kWords; ++i) {
        hex += WordToHex(WordOf(*bits, isBig ? kWords - 1 - i : i), order);
    }
    const std::size_t kept = std::min(hex.size(), static_cast<std::size_t>(digits));
    return hex.view().substr(isBig ? hex.size() - kept : 0, kept);
}

bool Dec2ByteArray(ByteArray& target, std::int32_t first, std::int32_t count, const Decimal& pattern,
                   eByteOrder order) {
    CheckByteOrder(order, u"Dec2ByteArray");
    try {
        const std::optional<std::uint64_t> bits = Bits64(pattern);
        if (!bits) Raise(ErrorNumber::Overflow);
        WritePattern(target, *bits, first, count, order);
    } catch (const RuntimeError&) {
        RaiseConversion(SourceOf(u"Dec2ByteArray", ToText(pattern)), kFailed);
    }
    return true;
}

Decimal ByteArray2Dec(const ByteArray& source, std::int32_t first, std::int32_t count, eByteOrder order) {
    CheckByteOrder(order, u"Dec2ByteArray");
    try {
        if (count <= kMostBytes) {
            return Decimal::FromUnsigned(ReadPattern(source, first, count, order));
        }
        Decimal pattern;
        const bool isBig = order == eByteOrder::eBigEndian;
        for (std::int32_t i = count; i-- > 0;) {
            const std::uint8_t byte = ByteAt(source, std::int64_t{first} + (isBig ? count - 1 - i : i));
            pattern = pattern * Decimal(256) + Decimal(std::int32_t{byte});
        }
        return pattern;
    } catch (const RuntimeError&) {
        RaiseConversion(SourceOf(u"ByteArray2Dec", {}), kFailed);
    }
}

Decimal Unsigned2Signed(const Decimal& pattern, std::int32_t bitLength) {
    if (const std::uint64_t half = HalfRange64(pattern, bitLength); half != 0 && !pattern.IsNegative()) {
        if (pattern.Low() < half) return pattern;
        const std::uint64_t above = pattern.Low() - half;
        if (above < half) return {true, 0, half - above, 0};
    }
    const Decimal half = HalfRange(bitLength);
    const Decimal top = (half - Decimal(1)) + half;
    if (pattern > top) RaiseOfWidth(u"Unsigned2Signed", pattern, bitLength, kTooBig);
    if (pattern <= half - Decimal(1)) return pattern;
    return -(top - pattern) - Decimal(1);
}

Decimal Signed2Unsigned(const Decimal& value, std::int32_t bitLength) {
    if (const std::uint64_t half = HalfRange64(value, bitLength); half != 0) {
        if (!value.IsNegative() && value.Low() < half) return value;
        if (value.IsNegative() && value.Low() <= half) return Decimal::FromUnsigned(half - value.Low() + half);
    }
    const Decimal half = HalfRange(bitLength);
    if (value >= half) RaiseOfWidth(u"Signed2Unsigned", value, bitLength, kTooBig);
    return value.IsNegative() ? half + half + value : value;
}

namespace detail {

std::int32_t Unsigned2SignedL(std::int32_t pattern, std::int32_t bitLength) {
    if (bitLength >= kLongBits) RaiseOfWidth(u"Unsigned2SignedL", pattern, bitLength, kNo32Bits);
    const double half = HalfRangeL(bitLength);
    if (pattern > 2 * half - 1) RaiseOfWidth(u"Unsigned2SignedL", pattern, bitLength, kTooBig);
    return pattern >= half ? LongOf(pattern - 2 * half) : pattern;
}

std::int32_t Signed2UnsignedL(std::int32_t value, std::int32_t bitLength) {
    if (bitLength >= kLongBits) RaiseOfWidth(u"Signed2UnsignedL", value, bitLength, kNo32Bits);
    const double half = HalfRangeL(bitLength);
    if (value >= half) RaiseOfWidth(u"Signed2UnsignedL", value, bitLength, kTooBig);
    return value < 0 ? LongOf(value + 2 * half) : value;
}

}  // namespace detail

}  // namespace ov
