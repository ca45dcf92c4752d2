#include "parameters/memory_map.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/conversion/byte_copy.h"
#include "platform/conversion/number_bytes.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int64_t kDigitsOfByte = 2;
constexpr std::u16string_view kWrongWidth = u": ERROR: bitlength>=8 and other than 8, 16, 24: BitLen=";

constexpr std::array kOperationNames = {
    u"IBase_SpecParameter_ExportToByteArrayMapByMemory",
    u"IBase_SpecParameter_ImportFromByteArrayMapByMemory",
    u"IBase_SpecParameter_ExportToHexStringMapByMemory",
    u"IBase_SpecParameter_ImportFromHexStringMapByMemory",
};
constexpr const char16_t* kHexExport = kOperationNames[2];
constexpr const char16_t* kHexImport = kOperationNames[3];

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

// The digit's value, or -1.
int DigitValue(char16_t c) noexcept {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
}

std::array<char16_t, 2> ByteToHex(std::uint8_t byte) noexcept {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    return {kDigits[byte >> kBitsOfDigit], kDigits[byte & 0xF]};
}

bool IsWholeBytes(std::int32_t width) noexcept {
    return width == 8 || width == 16 || width == 24 || width == 32;
}

void LogWrongWidth(std::u16string_view operation, std::int32_t width) {
    if (DebugOutput()) LogEntry(u"Mmapping", Concatenate(operation, kWrongWidth) + Text::FromInteger(width));
}

// The byte that holds the rest of a field: the one before in big endian.
std::int64_t NextByte(const FieldPlace& place) noexcept {
    return std::int64_t{place.index} + (place.order == eByteOrder::eBigEndian ? -1 : 1);
}

bool CrossesByte(const FieldPlace& place) noexcept {
    return std::int64_t{place.bit} + place.width > kBitsOfByte;
}

template <class Image>
std::optional<std::int32_t> ReadBits(const Image& source, const FieldPlace& place) {
    std::uint8_t low = 0;
    const std::uint8_t first = PeekByte(source, place.index);
    if (!CrossesByte(place)) {
        return Byte2Byte(low, first, -place.bit, place.width) ? std::optional(std::int32_t{low}) : std::nullopt;
    }
    const int inFirst = kBitsOfByte - place.bit;
    std::uint8_t high = 0;
    const bool copied = Byte2Byte(low, first, -place.bit, inFirst) &&
                        Byte2Byte(high, PeekByte(source, NextByte(place)), 0, place.width - inFirst);
    return copied ? std::optional((high << inFirst) + low) : std::nullopt;
}

}  // namespace

FieldPlace PlaceField(const ImagePlace& place, std::int32_t ownWidth, bool reverseMapping) {
    eByteOrder order = place.byteOrder;
    if (reverseMapping) {
        if (order == eByteOrder::eBigEndian) {
            order = eByteOrder::eLittleEndian;
        } else if (order == eByteOrder::eLittleEndian) {
            order = eByteOrder::eBigEndian;
        }
    }
    const std::int64_t index = std::int64_t{place.startByte} + place.startBit / kBitsOfByte;
    return {static_cast<std::int32_t>(CheckedLong(index)), place.startBit % kBitsOfByte,
            place.bitlength != 0 ? place.bitlength : ownWidth, order};
}

const char16_t* OperationName(const DeviceImage& image) noexcept {
    return kOperationNames[image.index()];
}

std::uint8_t& ByteAt(ByteArray& image, std::int64_t index) {
    const std::int64_t position = index - image.lower;
    if (position < 0 || position >= static_cast<std::int64_t>(image.bytes.size())) {
        Raise(ErrorNumber::SubscriptOutOfRange);
    }
    return image.bytes[static_cast<std::size_t>(position)];
}

std::uint8_t PeekByte(const ByteArray& image, std::int64_t index) noexcept {
    const std::int64_t position = index - image.lower;
    const bool isThere = position >= 0 && position < static_cast<std::int64_t>(image.bytes.size());
    return isThere ? image.bytes[static_cast<std::size_t>(position)] : std::uint8_t{0};
}

std::uint8_t PeekByte(const Text& image, std::int64_t index) noexcept {
    const std::int64_t start = kDigitsOfByte * index;
    if (start < 0 || start >= static_cast<std::int64_t>(image.size())) return 0;
    int byte = 0;
    for (const char16_t c : image.view().substr(static_cast<std::size_t>(start), kDigitsOfByte)) {
        const int digit = DigitValue(c);
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
        const int digit = at < digits ? DigitValue(image[static_cast<std::size_t>(at)]) : 0;
        const int shift = static_cast<int>(kBitsOfDigit - 1 - i % kBitsOfDigit);
        number = number * 2 + (std::max(digit, 0) >> shift & 1);
    }
    return ToCurrency(number);
}

bool ExportByteArray(ByteArray& target, std::int32_t value, const FieldPlace& place) {
    if (!IsWholeBytes(place.width)) {
        LogWrongWidth(u"ExportByteArray", place.width);
        return false;
    }
    const std::int32_t count = place.width / kBitsOfByte;
    const bool isBig = place.order == eByteOrder::eBigEndian;
    if (count > 1 && !isBig && place.order != eByteOrder::eLittleEndian) return true;
    auto rest = static_cast<std::uint32_t>(value);
    const std::int64_t position = std::int64_t{place.index} - target.lower;
    if (position >= 0 && position + count <= static_cast<std::int64_t>(target.bytes.size())) {
        std::uint8_t* bytes = target.bytes.data() + position;
        for (std::int32_t i = 0; i < count; ++i, rest >>= kBitsOfByte) {
            bytes[isBig ? count - 1 - i : i] = static_cast<std::uint8_t>(rest);
        }
        return true;
    }
    // Up to the one that is not there. The least significant byte is the first one to be written, at whichever end it
    // stands.
    for (std::int32_t i = 0; i < count; ++i) {
        ByteAt(target, std::int64_t{place.index} + (isBig ? count - 1 - i : i)) = static_cast<std::uint8_t>(rest);
        rest >>= kBitsOfByte;
    }
    return true;
}

bool ImportByteArray(const ByteArray& source, std::optional<std::int32_t>& value, const FieldPlace& place) {
    if (!IsWholeBytes(place.width)) {
        LogWrongWidth(u"IBase_SpecParameter_ImportFromByteArrayMapByMemory()", place.width);
        return false;
    }
    const std::int32_t count = place.width / kBitsOfByte;
    const bool isBig = place.order == eByteOrder::eBigEndian;
    if (count > 1 && !isBig && place.order != eByteOrder::eLittleEndian) return true;
    const std::int64_t position = std::int64_t{place.index} - source.lower;
    if (position < 0 || position + count > static_cast<std::int64_t>(source.bytes.size())) {
        Raise(ErrorNumber::SubscriptOutOfRange);
    }
    const std::uint8_t* bytes = source.bytes.data() + position;
    std::uint32_t pattern = 0;
    for (std::int32_t i = 0; i < count; ++i) {
        pattern = pattern << kBitsOfByte | bytes[isBig ? i : count - 1 - i];
    }
    value = static_cast<std::int32_t>(pattern);
    return true;
}

bool ExportBits(ByteArray& target, std::int32_t pattern, const FieldPlace& place) {
    if (place.width <= 0) return false;
    const auto low = static_cast<std::uint8_t>(pattern);
    if (!CrossesByte(place)) return Byte2Byte(ByteAt(target, place.index), low, place.bit, place.width);
    const int inFirst = kBitsOfByte - place.bit;
    Byte2Byte(ByteAt(target, place.index), low, place.bit, inFirst);
    return Byte2Byte(ByteAt(target, NextByte(place)), static_cast<std::uint8_t>(pattern >> inFirst), 0,
                     place.width - inFirst);
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
    if (!CrossesByte(place)) return put(target, place.index, low, place.bit, place.width);
    const int inFirst = kBitsOfByte - place.bit;
    Text written = target;
    put(written, place.index, low, place.bit, inFirst);
    // As many bits as went into the first byte, and not the rest as in a byte array: the text's rule, on purpose.
    const bool copied = put(written, NextByte(place), static_cast<std::uint8_t>(pattern >> inFirst), 0, inFirst);
    target.Swap(written);
    return copied;
}

std::optional<std::int32_t> ImportBits(const ByteArray& source, const FieldPlace& place) {
    return ReadBits(source, place);
}

std::optional<std::int32_t> ImportBits(const Text& source, const FieldPlace& place) {
    return ReadBits(source, place);
}

namespace {

// The four transfers by the kind of the image.
struct LongTransfer {
    LongField& field;
    const FieldPlace& place;

    bool IsNarrow() const { return place.width < kBitsOfByte; }

    bool operator()(ByteArray* target) {
        if (place.width <= 0) return false;
        std::optional<std::int32_t> pattern = field.Pattern();
        // A narrow field names the other operation, on purpose.
        if (!pattern) field.LogNoConversion(IsNarrow() ? kHexExport : kOperationNames[0], place.width);
        return IsNarrow() ? ExportBits(*target, pattern.value_or(0), place)
                          : ExportByteArray(*target, pattern.value_or(0), place);
    }

    bool operator()(Text* target) {
        const std::optional<std::int32_t> pattern = field.Pattern();
        if (!pattern) field.LogNoConversion(kHexExport, place.width);
        if (IsNarrow()) return ExportBits(*target, pattern.value_or(0), place);
        if (!pattern) return true;  // done, with nothing written
        WriteDigits(*target, place.index, LongToHexInOrder(*pattern, place.order, place.width / kBitsOfDigit));
        return true;
    }

    bool operator()(const ByteArray* source) {
        std::optional<std::int32_t> pattern;
        if (IsNarrow()) {
            pattern = ImportBits(*source, place);
            // A narrow field names the other operation here, too.
            return pattern && Take(*pattern, kHexImport);
        }
        if (!ImportByteArray(*source, pattern, place)) {
            field.TakeFault();
            return false;
        }
        return !pattern || Take(*pattern, kOperationNames[1]);
    }

    bool operator()(const Text* source) {
        if (IsNarrow()) {
            const std::optional<std::int32_t> pattern = ImportBits(*source, place);
            return pattern && Take(*pattern, kHexImport);
        }
        if (place.width > 8 && place.width < 16) return TakeBitString(*source);
        const std::int32_t count = place.width / kBitsOfDigit;
        Text digits = ReadDigits(*source, place.index, count);
        if (digits.size() < static_cast<std::size_t>(count)) {
            field.TakeFault();
            return false;
        }
        // Middle endian is taken for big endian.
        if (place.order == eByteOrder::eLittleEndian) ReverseHexBytes(digits);
        return Take(IntegerType<std::int32_t>::PatternOf(digits), kHexImport);
    }

    // The one way in that counts bits from the top, knows no order and no sign.
    bool TakeBitString(const Text& source) {
        try {
            field.TakeNumber(BitStringField(source, place));
            return true;
        } catch (const RuntimeError&) {
            field.TakeFault();
            return false;
        }
    }

    bool Take(std::int32_t pattern, const char16_t* operation) {
        if (field.TakePattern(pattern)) return true;
        field.LogNoConversion(operation, place.width);
        field.TakeFault();
        return false;
    }
};

}  // namespace

bool TransferLong(LongField& field, const DeviceImage& image, const FieldPlace& place) {
    LongTransfer transfer{field, place};
    if (auto* const* target = std::get_if<ByteArray*>(&image)) return transfer(*target);
    if (const auto* const* source = std::get_if<const ByteArray*>(&image)) return transfer(*source);
    if (auto* const* target = std::get_if<Text*>(&image)) return transfer(*target);
    return transfer(std::get<const Text*>(image));
}

}  // namespace ov
