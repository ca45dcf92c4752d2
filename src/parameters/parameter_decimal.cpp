#include "parameters/parameter_decimal.h"

#include <limits>
#include <span>
#include <vector>

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "platform/automation/conversions.h"
#include "platform/conversion/byte_copy.h"
#include "platform/conversion/number_bytes.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kWidest = 64;

// The lowest bits of a pattern, which is all that a narrow field takes: of a Long as it rounds, of what is beyond it
// the whole part's. @throws RuntimeError 6 below a Long, 42 beyond 64 bits
std::int32_t LowBits(const Decimal& pattern) {
    if (pattern <= Decimal(std::numeric_limits<std::int32_t>::max())) return ToLong(pattern);
    ByteArray bytes{std::vector<std::uint8_t>(kMostBytes)};
    Dec2ByteArray(bytes, 0, kMostBytes, pattern, eByteOrder::eLittleEndian);
    return static_cast<std::int32_t>(Bytes2Long(std::span(bytes.bytes).first(sizeof(std::int32_t))));
}

}  // namespace

bool ParameterDecimal::Move(ByteArray& target, const FieldPlace& place) {
    if (place.width <= 0) return false;
    const Decimal pattern = Pattern();
    if (place.width >= kBitsOfByte) {
        return Dec2ByteArray(target, place.index, place.width / kBitsOfByte, pattern, place.order);
    }
    // Within the one byte: unlike an Int's, these bits do not go on in the next.
    return Byte2Byte(ByteAt(target, place.index), static_cast<std::uint8_t>(LowBits(pattern)), place.bit, place.width);
}

bool ParameterDecimal::Move(Text& target, const FieldPlace& place) {
    const Decimal pattern = Pattern();
    if (place.width < kBitsOfByte) return ExportBits(target, LowBits(pattern), place);
    WriteDigits(target, place.index, Dec2Hex(pattern, place.order, place.width / kBitsOfDigit));
    return true;
}

bool ParameterDecimal::Move(const ByteArray& source, const FieldPlace& place) {
    if (place.width < kBitsOfByte) {
        std::uint8_t bits = 0;
        return Byte2Byte(bits, PeekByte(source, place.index), -place.bit, place.width) && TakePattern(Decimal(bits));
    }
    if (place.width > kWidest || place.width % kBitsOfByte != 0) {
        if (DebugOutput()) {
            Log(OperationName(&source) +
                (u"(): ERROR: bitlength>=8 and other than 8, 16, 24, 32, 40, 48, 56, 64: BitLen=" +
                 Text::FromInteger(place.width)));
        }
        TakeImportFault();
        return false;
    }
    return TakePattern(ByteArray2Dec(source, place.index, place.width / kBitsOfByte, place.order));
}

bool ParameterDecimal::Move(const Text& source, const FieldPlace& place) {
    if (place.width < kBitsOfByte) {
        const std::optional<std::int32_t> bits = ImportBits(source, place);
        return bits && TakePattern(Decimal(*bits));
    }
    const std::int32_t count = place.width / kBitsOfDigit;
    const Text digits = ReadDigits(source, place.index, count);
    if (digits.size() < static_cast<std::size_t>(count)) {
        TakeImportFault();
        return false;
    }
    return TakePattern(Hex2Dec(digits, place.order));
}

Decimal ParameterDecimal::Pattern() {
    const Decimal number = DeviceNumber();
    return mUnsigned ? number : Signed2Unsigned(number, mBitLen);
}

bool ParameterDecimal::TakePattern(const Decimal& pattern) {
    TakeDeviceNumber(mUnsigned ? pattern : Unsigned2Signed(pattern, mBitLen));
    return true;
}

template class ImageTransfers<ParameterDecimal, IntegerParameter<Decimal>>;

}  // namespace ov
