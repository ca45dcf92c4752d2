// A float in a device image. The order of an IEEE single is the caller's alone: "reverseMapping" does not turn it.
#include <array>
#include <bit>
#include <limits>

#include "parameters/bit_conversions.h"
#include "parameters/integer_type.h"
#include "parameters/parameter_float.h"
#include "platform/automation/conversions.h"
#include "platform/conversion/number_bytes.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kBitsOfSingle = 32;
constexpr std::int32_t kBytesOfSingle = 4;
constexpr std::int32_t kDigitsOfSingle = 8;
constexpr std::int32_t kExponent = 0x7F800000;

// What NaN looks like: the text in any order; the bytes with the most significant one where a number has the least
// significant one. Peers expect exactly these.
constexpr std::u16string_view kNaNDigits = u"7FA00000";
constexpr std::array<std::uint8_t, 4> kNaNBytes = {0x7F, 0xA0, 0x00, 0x00};

// @throws RuntimeError 6 beyond a Single
float SingleOf(double number) {
    constexpr auto kMost = static_cast<double>(std::numeric_limits<float>::max());
    return number >= -kMost && number <= kMost ? static_cast<float>(number) : ToSingle(number);
}

// Index of the byte of weight 256^i. Middle endian is taken for little endian.
std::int64_t IndexOf(const FieldPlace& place, std::int32_t i) {
    return std::int64_t{place.index} + (place.order == eByteOrder::eBigEndian ? kBytesOfSingle - 1 - i : i);
}

}  // namespace

bool ParameterFloat::MoveValue(const DeviceImage& image, const ImagePlace& place) {
    FieldPlace field = PlaceField(place, mBitLen, mReverseMapping);
    if (mSign != Sign::Ieee || field.width != kBitsOfSingle) return TransferLong(*this, image, field);
    field.order = place.byteOrder;
    if (auto* const* bytes = std::get_if<ByteArray*>(&image)) return ExportSingle(**bytes, field);
    if (auto* const* text = std::get_if<Text*>(&image)) return ExportSingle(**text, field);
    if (const auto* const* bytes = std::get_if<const ByteArray*>(&image)) return ImportSingle(**bytes, field);
    return ImportSingle(*std::get<const Text*>(image), field);
}

bool ParameterFloat::ExportSingle(ByteArray& target, const FieldPlace& place) {
    std::array<std::uint8_t, 4> bytes = kNaNBytes;
    if (mValueExt != eParameterValueExt::eParamValueExtNaN) Float2Bytes(SingleOf(DeviceNumber()), bytes);
    for (std::int32_t i = 0; i < kBytesOfSingle; ++i) {
        ByteAt(target, IndexOf(place, i)) = bytes[static_cast<std::size_t>(i)];
    }
    return true;
}

bool ParameterFloat::ExportSingle(Text& target, const FieldPlace& place) {
    if (mValueExt == eParameterValueExt::eParamValueExtNaN) {
        WriteDigits(target, place.index, kNaNDigits);
    } else {
        const std::int32_t bits = Float2Long(SingleOf(DeviceNumber()));
        WriteDigits(target, place.index, LongToHexInOrder(bits, place.order, kDigitsOfSingle));
    }
    return true;
}

bool ParameterFloat::ImportSingle(const ByteArray& source, const FieldPlace& place) {
    std::optional<std::int32_t> bits;
    FieldPlace readable = place;
    if (place.order != eByteOrder::eBigEndian) readable.order = eByteOrder::eLittleEndian;
    ImportByteArray(source, bits, readable);
    if (!TakeNaN(*bits, &source)) TakeDeviceNumber(static_cast<double>(std::bit_cast<float>(*bits)));
    return true;
}

bool ParameterFloat::ImportSingle(const Text& source, const FieldPlace& place) {
    const std::u16string operation = OperationName(&source);
    Text digits = ReadDigits(source, place.index, kDigitsOfSingle);
    if (digits.size() < kDigitsOfSingle) {
        if (DebugOutput()) LogWithId(operation + u"(): ERROR: no stream data");
        TakeFault();
        return false;
    }
    if (place.order == eByteOrder::eLittleEndian) ReverseHexBytes(digits);
    const std::int32_t bits = IntegerType<std::int32_t>::PatternOf(digits);
    if (!TakeNaN(bits, &source)) TakeDeviceNumber(static_cast<double>(Long2Float(bits)));
    return true;
}

bool ParameterFloat::TakeNaN(std::int32_t bits, const DeviceImage& image) {
    if ((bits & kExponent) != kExponent) return false;
    if (DebugOutput()) LogWithId(OperationName(image) + Text(u"(): This is an NAN (not-a-number)"));
    WriteState(eParameterValueExt::eParamValueExtNaN);
    return true;
}

// The bits of a negative number are cut to the field by the transfer, so no width is too narrow for it.
std::optional<std::int32_t> ParameterFloat::Pattern() {
    return ToLong(get_realvalue());
}

bool ParameterFloat::TakePattern(std::int32_t pattern) {
    const bool hasSign = mSign == Sign::Signed && mBitLen < kBitsOfSingle;
    let_realvalue(hasSign ? Unsigned2SignedL(pattern, mBitLen) : pattern);
    return true;
}

}  // namespace ov
