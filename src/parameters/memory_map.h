/// @file
/// Fields in device images: where they lie, and the rules of whole numbers that are held in a Long.
///
/// Bits are numbered from the least significant one of a byte. A field of 8 bits or more begins on a whole byte. An
/// image never grows: a byte array is written byte by byte up to the one that it does not have, a text as a whole or
/// not at all.
#pragma once

#include <cstdint>
#include <optional>

#include "parameters/device_image.h"
#include "platform/automation/variant.h"

namespace ov {

/// The place of a field, all defaults applied.
struct FieldPlace {
    std::int32_t index = 0;  ///< of the field's first byte
    std::int32_t bit = 0;    ///< of that byte; below 0 for a start bit below 0
    std::int32_t width = 0;  ///< in bits
    eByteOrder order = eByteOrder::eLittleEndian;
};

/// @p ownWidth stands in for a width of 0; @p reverseMapping turns little and big endian round.
/// @throws RuntimeError 6 for an index beyond a Long
FieldPlace PlaceField(const ImagePlace& place, std::int32_t ownWidth, bool reverseMapping);

constexpr std::int32_t kBitsOfByte = 8;
constexpr std::int32_t kBitsOfDigit = 4;

/// True if @p image is one that is read from.
constexpr bool IsImport(const DeviceImage& image) noexcept {
    return std::holds_alternative<const ByteArray*>(image) || std::holds_alternative<const Text*>(image);
}
/// The operation on @p image as log lines name it, with "(): ERROR: " or the like still to follow.
const char16_t* OperationName(const DeviceImage& image) noexcept;

// The bytes of an image.

/// @throws RuntimeError 9 for an index that the array does not have
std::uint8_t& ByteAt(ByteArray& image, std::int64_t index);
/// The byte, or 0 where there is none. Of a text the number that the two digits are, the last one alone if there is no
/// second one.
std::uint8_t PeekByte(const ByteArray& image, std::int64_t index) noexcept;
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
/// Writes a field of 8, 16, 24 or 32 bits. False, with a log line, for any other width; a byte order that is neither
/// little nor big endian writes nothing, which counts as done. @throws RuntimeError 9
bool ExportByteArray(ByteArray& target, std::int32_t value, const FieldPlace& place);
/// The mirror image; the pattern is without sign below 32 bits. Middle endian leaves @p value untouched.
bool ImportByteArray(const ByteArray& source, std::optional<std::int32_t>& value, const FieldPlace& place);

// Fields of less than 8 bits, which may lie across the border of two bytes.

bool ExportBits(ByteArray& target, std::int32_t pattern, const FieldPlace& place);
bool ExportBits(Text& target, std::int32_t pattern, const FieldPlace& place);
/// Nullopt for a width below 0. Bytes that the image does not have read as 0.
std::optional<std::int32_t> ImportBits(const ByteArray& source, const FieldPlace& place);
std::optional<std::int32_t> ImportBits(const Text& source, const FieldPlace& place);

/// What the rules of whole numbers ask of a class that holds or moves them as a Long.
class LongField {
public:
    /// The bits to be written; nullopt where the class has none for its width and sign.
    virtual std::optional<std::int32_t> Pattern() = 0;
    /// Takes the bits that were read. False where the class has no number for them.
    virtual bool TakePattern(std::int32_t pattern) = 0;
    /// Takes a number as it is.
    virtual void TakeNumber(const Variant& number) = 0;
    /// Takes the state of a failed import.
    virtual void TakeFault() = 0;
    /// Logs that @p operation has no conversion for a field of @p width bits.
    virtual void LogNoConversion(const char16_t* operation, std::int32_t width) = 0;

protected:
    ~LongField() = default;
};

/// One of the four transfers by the rules of whole numbers. What it raises is a failure of the transfer.
bool TransferLong(LongField& field, const DeviceImage& image, const FieldPlace& place);

}  // namespace ov
