/// @file
/// Fields in device images: where they lie, and how their bits are written and read.
///
/// Bits are numbered from the least significant one of a byte. A field of 8 bits or more begins on a whole byte. An
/// image never grows: a byte array is written byte by byte up to the one that it does not have, a text as a whole or
/// not at all.
#pragma once

#include <cstdint>
#include <optional>

#include "parameters/array_bytes.h"
#include "parameters/device_image.h"
#include "platform/automation/errors.h"
#include "platform/automation/variant.h"
#include "platform/conversion/byte_copy.h"

namespace ov {

constexpr std::int32_t kBitsOfDigit = 4;

/// The place of a field, all defaults applied.
struct FieldPlace {
    std::int32_t index = 0;  ///< of the field's first byte
    std::int32_t bit = 0;    ///< of that byte; below 0 for a start bit below 0
    std::int32_t width = 0;  ///< in bits
    eByteOrder order = eByteOrder::eLittleEndian;

    bool IsBig() const noexcept { return order == eByteOrder::eBigEndian; }
    /// Whether a field of less than 8 bits goes on in another byte.
    bool CrossesByte() const noexcept { return std::int64_t{bit} + width > kBitsOfByte; }
    /// The byte that holds the rest of such a field: the one before in big endian.
    std::int64_t NextByte() const noexcept { return std::int64_t{index} + (IsBig() ? -1 : 1); }
};

/// Little for big endian and the other way round.
constexpr eByteOrder Reversed(eByteOrder order) noexcept {
    if (order == eByteOrder::eBigEndian) return eByteOrder::eLittleEndian;
    return order == eByteOrder::eLittleEndian ? eByteOrder::eBigEndian : order;
}

/// @p ownWidth stands in for a width of 0; @p reverseMapping turns little and big endian round.
/// @throws RuntimeError 6 for an index beyond a Long
inline FieldPlace PlaceField(const ImagePlace& place, std::int32_t ownWidth, bool reverseMapping) {
    const std::int64_t index = std::int64_t{place.startByte} + place.startBit / kBitsOfByte;
    if (index != static_cast<std::int32_t>(index)) Raise(ErrorNumber::Overflow);
    return {static_cast<std::int32_t>(index), place.startBit % kBitsOfByte,
            place.bitlength != 0 ? place.bitlength : ownWidth,
            reverseMapping ? Reversed(place.byteOrder) : place.byteOrder};
}

/// True if @p image is one that is read from.
constexpr bool IsImport(const DeviceImage& image) noexcept {
    return std::holds_alternative<const ByteArray*>(image) || std::holds_alternative<const Text*>(image);
}

// The four transfers as log lines name them.
constexpr const char16_t* kByteExport = u"IBase_SpecParameter_ExportToByteArrayMapByMemory";
constexpr const char16_t* kByteImport = u"IBase_SpecParameter_ImportFromByteArrayMapByMemory";
constexpr const char16_t* kHexExport = u"IBase_SpecParameter_ExportToHexStringMapByMemory";
constexpr const char16_t* kHexImport = u"IBase_SpecParameter_ImportFromHexStringMapByMemory";
/// The operation on @p image as log lines name it, with "(): ERROR: " or the like still to follow.
const char16_t* OperationName(const DeviceImage& image) noexcept;

// The digits of a text.

/// The number that the two digits of a byte are, the last one alone if there is no second one; 0 where there is none.
std::uint8_t PeekByte(const Text& image, std::int64_t index) noexcept;
/// Writes upper-case digits from byte @p index on. @throws RuntimeError 5 if they would not all lie in the text, 6 for
/// a position beyond a Long
void WriteDigits(Text& image, std::int64_t index, std::u16string_view digits);
/// The @p count digits from byte @p index on, fewer at the end of the text. @throws RuntimeError 5, 6 as above
Text ReadDigits(const Text& image, std::int64_t index, std::int32_t count);

// The routines of `Mmapping`.

/// The digits of a Long in upper case: filled to @p count with at most seven zeros, cut to it at the left. An order
/// that is neither little nor big endian is RuntimeError 42 of source "Conversion".
Text LongToHexInOrder(std::int32_t value, eByteOrder order, std::int32_t count);
/// The bits of @p place in the text as a number, the first one being the highest of its first byte, whatever the order.
/// @throws RuntimeError 5 for a place before the text, 6 for one beyond a Long
Currency BitStringField(const Text& image, const FieldPlace& place);

/// Leaves the log line about a field of whole bytes that is neither of 8, 16, 24 nor 32 bits. False.
bool RefuseWidth(std::u16string_view operation, std::int32_t width);
/// Whether a Long moves to or from whole bytes at all: one that has more than one does in no order but big and little.
inline bool HasOrder(const FieldPlace& place) noexcept {
    return place.IsBig() || place.order == eByteOrder::eLittleEndian || place.width == kBitsOfByte;
}
constexpr bool IsWidthOfLong(std::int32_t width) noexcept {
    return width % kBitsOfByte == 0 && width >= kBitsOfByte && width <= 4 * kBitsOfByte;
}
/// Writes a field of 8, 16, 24 or 32 bits. False, with a log line, for any other width; a byte order that is neither
/// little nor big endian writes nothing, which counts as done. @throws RuntimeError 9
inline bool ExportByteArray(ByteArray& target, std::int32_t value, const FieldPlace& place) {
    if (!IsWidthOfLong(place.width)) return RefuseWidth(u"ExportByteArray", place.width);
    if (!HasOrder(place)) return true;
    WritePattern(target, static_cast<std::uint32_t>(value), place.index, place.width / kBitsOfByte, place.order);
    return true;
}
/// The mirror image; the pattern is without sign below 32 bits. Middle endian leaves @p value untouched.
inline bool ImportByteArray(const ByteArray& source, std::optional<std::int32_t>& value, const FieldPlace& place) {
    if (!IsWidthOfLong(place.width)) {
        return RefuseWidth(u"IBase_SpecParameter_ImportFromByteArrayMapByMemory()", place.width);
    }
    if (!HasOrder(place)) return true;
    value = static_cast<std::int32_t>(ReadPattern(source, place.index, place.width / kBitsOfByte, place.order));
    return true;
}

// Fields of less than 8 bits, which may lie across the border of two bytes.

inline bool ExportBits(ByteArray& target, std::int32_t pattern, const FieldPlace& place) {
    if (place.width <= 0) return false;
    std::uint8_t& first = ByteAt(target, place.index);
    if (place.bit < 0) return Byte2Byte(first, static_cast<std::uint8_t>(pattern), place.bit, place.width);
    const unsigned mask = ((1U << place.width) - 1) << place.bit;
    const unsigned bits = static_cast<unsigned>(pattern) << place.bit & mask;
    first = static_cast<std::uint8_t>((first & ~mask) | bits);
    if (place.CrossesByte()) {
        std::uint8_t& next = ByteAt(target, place.NextByte());
        next = static_cast<std::uint8_t>((next & ~(mask >> kBitsOfByte)) | bits >> kBitsOfByte);
    }
    return true;
}
bool ExportBits(Text& target, std::int32_t pattern, const FieldPlace& place);
/// Nullopt for a width below 0. Bytes that the image does not have read as 0. @p Image is an array or a text.
template <class Image>
std::optional<std::int32_t> ImportBits(const Image& source, const FieldPlace& place) {
    if (place.width < 0) return std::nullopt;
    unsigned bits = PeekByte(source, place.index);
    if (place.bit < 0) {
        std::uint8_t low = 0;
        Byte2Byte(low, static_cast<std::uint8_t>(bits), -place.bit, place.width);
        return low;
    }
    if (place.CrossesByte()) bits |= static_cast<unsigned>(PeekByte(source, place.NextByte())) << kBitsOfByte;
    return static_cast<std::int32_t>(bits >> place.bit & ((1U << place.width) - 1));
}

}  // namespace ov
