#include "parameters/memory_map.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "platform/automation/conversions.h"
#include "platform/conversion/hex_digits.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int64_t kDigitsOfByte = 2;

std::int64_t CheckedLong(std::int64_t number) {
    using Long = std::numeric_limits<std::int32_t>;
    if (number < Long::min() || number > Long::max()) Raise(ErrorNumber::Overflow);
    return number;
}

// Where in a text a byte begins, from 0; may lie behind its end.
std::size_t StartOfByte(std::int64_t index) {
    const std::int64_t position = CheckedLong(kDigitsOfByte * index + 1);
    if (position < 1) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(position - 1);
}

std::array<char16_t, 2> ByteToHex(std::uint8_t byte) noexcept {
    return {HexDigit(unsigned{byte} >> kBitsOfDigit), HexDigit(byte)};
}

}  // namespace

const char16_t* OperationName(const DeviceImage& image) noexcept {
    constexpr std::array kNames = {kByteExport, kByteImport, kHexExport, kHexImport};
    return kNames[image.index()];
}

std::uint8_t PeekByte(const Text& image, std::int64_t index) noexcept {
    const std::int64_t start = kDigitsOfByte * index;
    if (start < 0 || start >= static_cast<std::int64_t>(image.size())) return 0;
    int byte = 0;
    for (const char16_t c : image.view().substr(static_cast<std::size_t>(start), kDigitsOfByte)) {
        const int digit = HexValue(c);
        if (digit < 0) return 0;
        byte = byte << kBitsOfDigit | digit;
    }
    return static_cast<std::uint8_t>(byte);
}

void WriteDigits(Text& image, std::int64_t index, std::u16string_view digits) {
    const std::size_t start = StartOfByte(index);
    if (start >= image.size() || digits.size() > image.size() - start) Raise(ErrorNumber::InvalidProcedureCall);
    char16_t* characters = nullptr;
    Text written = Text::ForOverwrite(image.size(), characters);
    std::ranges::copy(image.view(), characters);
    std::ranges::copy(digits, characters + start);
    image.Swap(written);
}

Text ReadDigits(const Text& image, std::int64_t index, std::int32_t count) {
    const std::size_t start = StartOfByte(index);
    if (start >= image.size()) return {};
    return image.view().substr(start, static_cast<std::size_t>(std::max(count, 0)));
}

Text LongToHexInOrder(std::int32_t value, eByteOrder order, std::int32_t count) {
    constexpr std::u16string_view kFill = u"0000000";
    if (order != eByteOrder::eLittleEndian && order != eByteOrder::eBigEndian) {
        constexpr std::int32_t kConversionError = 42;
        throw RuntimeError(kConversionError, u"Conversion",
                           u"no byteorder other than little-endian or big-endian allowed");
    }
    Text text = IntegerType<std::int32_t>::DigitsOf(value);
    const auto wanted = static_cast<std::size_t>(std::max(count, 0));
    // Only so many zeros: a field of more than eight digits may stay shorter than it is wide.
    if (text.size() < wanted) text = Concatenate(kFill, text);
    if (text.size() > wanted) text = text.view().substr(text.size() - wanted);
    if (order == eByteOrder::eLittleEndian) ReverseHexBytes(text);
    return text;
}

Currency BitStringField(const Text& image, const FieldPlace& place) {
    const std::int64_t first = CheckedLong(std::int64_t{place.index} * kBitsOfByte + place.bit + 1) - 1;
    if (first < 0) Raise(ErrorNumber::InvalidProcedureCall);
    // A digit left alone at the end counts as the first one of a byte.
    const std::int64_t digits = static_cast<std::int64_t>(image.size());
    const std::int64_t end = std::min((digits + digits % kDigitsOfByte) * kBitsOfDigit, first + place.width);
    std::int32_t number = 0;
    for (std::int64_t i = first; i < end; ++i) {
        const std::int64_t at = i / kBitsOfDigit;
        const int digit = at < digits ? HexValue(image[static_cast<std::size_t>(at)]) : 0;
        const int shift = static_cast<int>(kBitsOfDigit - 1 - i % kBitsOfDigit);
        number = number * 2 + (std::max(digit, 0) >> shift & 1);
    }
    return ToCurrency(number);
}

bool RefuseWidth(std::u16string_view operation, std::int32_t width) {
    if (DebugOutput()) {
        LogEntry(u"Mmapping", Concatenate(operation, u": ERROR: bitlength>=8 and other than 8, 16, 24: BitLen=") +
                                  Text::FromInteger(width));
    }
    return false;
}

bool ExportBits(Text& target, std::int32_t pattern, const FieldPlace& place) {
    const auto put = [](Text& image, std::int64_t index, std::uint8_t bits, int shift, int count) {
        std::uint8_t byte = PeekByte(image, index);
        if (!Byte2Byte(byte, bits, shift, count)) return false;
        const std::array digits = ByteToHex(byte);
        WriteDigits(image, index, {digits.data(), digits.size()});
        return true;
    };
    const auto low = static_cast<std::uint8_t>(pattern);
    if (!place.CrossesByte()) return put(target, place.index, low, place.bit, place.width);
    const int inFirst = kBitsOfByte - place.bit;
    Text written = target;
    put(written, place.index, low, place.bit, inFirst);
    // As many bits as went into the first byte, and not the rest as in a byte array: the text's rule, on purpose.
    const bool copied = put(written, place.NextByte(), static_cast<std::uint8_t>(pattern >> inFirst), 0, inFirst);
    target.Swap(written);
    return copied;
}

}  // namespace ov
