/// @file
/// Whole numbers that are held or moved as a Long, between parameter and device image.
#pragma once

#include <optional>

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "parameters/memory_map.h"

namespace ov {

/// What the rules of whole numbers ask of a class that holds or moves them as a Long.
template <class Field>
concept LongField = requires(Field& field, std::int32_t number, const Variant& value) {
    /// The bits to be written; nullopt where the class has none for its width and sign.
    { field.Pattern() } -> std::same_as<std::optional<std::int32_t>>;
    /// Takes the bits that were read. False where the class has no number for them.
    { field.TakePattern(number) } -> std::same_as<bool>;
    field.let_realvalue(value);
    field.TakeImportFault();
    // May have LogNoConversion(operation, width) for a line about a field that Pattern or TakePattern has nothing for,
    // and LogNoBits(image) for one about an import of bits that no byte has.
};

/// The four transfers by the kind of the image. What they raise is a failure of the transfer.
template <LongField Field>
struct LongTransfer {
    Field& field;
    const FieldPlace& place;

    bool operator()(ByteArray* target) const {
        if (place.width <= 0) return false;
        const std::optional<std::int32_t> pattern = field.Pattern();
        // A narrow field names the other operation, on purpose.
        if (!pattern) LogNoConversion(IsNarrow() ? kHexExport : kByteExport);
        return IsNarrow() ? ExportBits(*target, pattern.value_or(0), place)
                          : ExportByteArray(*target, pattern.value_or(0), place);
    }

    bool operator()(Text* target) const {
        const std::optional<std::int32_t> pattern = field.Pattern();
        if (!pattern) LogNoConversion(kHexExport);
        if (IsNarrow()) return ExportBits(*target, pattern.value_or(0), place);
        if (!pattern) return true;  // done, with nothing written
        WriteDigits(*target, place.index, LongToHexInOrder(*pattern, place.order, place.width / kBitsOfDigit));
        return true;
    }

    bool operator()(const ByteArray* source) const {
        if (IsNarrow()) return TakeBits(source);
        std::optional<std::int32_t> pattern;
        if (!ImportByteArray(*source, pattern, place)) {
            field.TakeImportFault();
            return false;
        }
        return !pattern || Take(*pattern, kByteImport);
    }

    bool operator()(const Text* source) const {
        if (IsNarrow()) return TakeBits(source);
        if (place.width > 8 && place.width < 16) return TakeBitString(*source);
        const std::int32_t count = place.width / kBitsOfDigit;
        Text digits = ReadDigits(*source, place.index, count);
        if (digits.size() < static_cast<std::size_t>(count)) {
            field.TakeImportFault();
            return false;
        }
        // Middle endian is taken for big endian.
        if (place.order == eByteOrder::eLittleEndian) ReverseHexBytes(digits);
        return Take(IntegerType<std::int32_t>::PatternOf(digits), kHexImport);
    }

private:
    bool IsNarrow() const noexcept { return place.width < kBitsOfByte; }

    // The one way in that counts bits from the top, knows no order and no sign.
    bool TakeBitString(const Text& source) const {
        try {
            field.let_realvalue(BitStringField(source, place));
            return true;
        } catch (const RuntimeError&) {
            field.TakeImportFault();
            return false;
        }
    }

    template <class Image>
    bool TakeBits(const Image* source) const {
        const std::optional<std::int32_t> pattern = ImportBits(*source, place);
        if (pattern) return Take(*pattern, kHexImport);  // the name is that of a text's import even for an array
        if constexpr (requires { field.LogNoBits(source); }) field.LogNoBits(source);
        return false;
    }

    bool Take(std::int32_t pattern, const char16_t* operation) const {
        if (field.TakePattern(pattern)) return true;
        LogNoConversion(operation);
        field.TakeImportFault();
        return false;
    }

    void LogNoConversion(const char16_t* operation) const {
        if constexpr (requires { field.LogNoConversion(operation, place.width); }) {
            field.LogNoConversion(operation, place.width);
        }
    }
};

template <LongField Field>
LongTransfer(Field&, const FieldPlace&) -> LongTransfer<Field>;

}  // namespace ov
