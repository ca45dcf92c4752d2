#include "parameters/parameter_decimal.h"

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "platform/conversion/byte_copy.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kWidest = 64;

// The lowest bits of a pattern, which is all that a narrow field takes.
std::int32_t LowBits(const Decimal& pattern) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(pattern.Fix().Normalized().Low()));
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
        return TakeFault();
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
    if (digits.size() < static_cast<std::size_t>(count)) return TakeFault();
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

bool ParameterDecimal::TakeFault() {
    WriteState(eParameterValueExt::eParamValueExtErrorSettingValue);
    return false;
}

template class ImageTransfers<ParameterDecimal, IntegerParameter<Decimal>>;

}  // namespace ov
