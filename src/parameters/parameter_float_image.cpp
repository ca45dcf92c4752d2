// A float in a device image. The order of an IEEE single is the caller's alone: "reverseMapping" does not turn it.
#include <bit>
#include <limits>

#include "parameters/long_transfer.h"
#include "parameters/parameter_float.h"
#include "platform/automation/conversions.h"
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
constexpr std::uint32_t kNaNBytes = 0x0000'A07F;

// @throws RuntimeError 6 beyond a Single
float SingleOf(double number) {
    constexpr auto kMost = static_cast<double>(std::numeric_limits<float>::max());
    return number >= -kMost && number <= kMost ? static_cast<float>(number) : ToSingle(number);
}

}  // namespace

template <class Image>
bool ParameterFloat::MoveValue(Image* image, const ImagePlace& place) {
    FieldPlace field = PlaceField(place, mBitLen, mReverseMapping);
    if (mSign != Sign::Ieee || field.width != kBitsOfSingle) return LongTransfer{*this, field}(image);
    field.order = place.byteOrder;
    return MoveSingle(image, field);
}

// In an array middle endian is taken for little endian.
bool ParameterFloat::MoveSingle(ByteArray* target, const FieldPlace& place) {
    const bool isNaN = mValueExt == eParameterValueExt::eParamValueExtNaN;
    const std::uint32_t bits = isNaN ? kNaNBytes : std::bit_cast<std::uint32_t>(SingleOf(DeviceNumber()));
    WritePattern(*target, bits, place.index, kBytesOfSingle, place.order);
    return true;
}

bool ParameterFloat::MoveSingle(Text* target, const FieldPlace& place) {
    if (mValueExt == eParameterValueExt::eParamValueExtNaN) {
        WriteDigits(*target, place.index, kNaNDigits);
    } else {
        const std::int32_t bits = Float2Long(SingleOf(DeviceNumber()));
        WriteDigits(*target, place.index, LongToHexInOrder(bits, place.order, kDigitsOfSingle));
    }
    return true;
}

bool ParameterFloat::MoveSingle(const ByteArray* source, const FieldPlace& place) {
    const auto bits = static_cast<std::int32_t>(ReadPattern(*source, place.index, kBytesOfSingle, place.order));
    TakeSingle(bits, source);
    return true;
}

bool ParameterFloat::MoveSingle(const Text* source, const FieldPlace& place) {
    Text digits = ReadDigits(*source, place.index, kDigitsOfSingle);
    if (digits.size() < kDigitsOfSingle) {
        if (DebugOutput()) LogWithId(Text(kHexImport) + u"(): ERROR: no stream data");
        TakeImportFault();
        return false;
    }
    if (place.order == eByteOrder::eLittleEndian) ReverseHexBytes(digits);
    TakeSingle(IntegerType<std::int32_t>::PatternOf(digits), source);
    return true;
}

// What has all bits of the exponent set, infinity too, is no number.
void ParameterFloat::TakeSingle(std::int32_t bits, const DeviceImage& image) {
    const double number = static_cast<double>(std::bit_cast<float>(bits));
    if ((bits & kExponent) == kExponent) {
        if (DebugOutput()) LogWithId(OperationName(image) + Text(u"(): This is an NAN (not-a-number)"));
        WriteState(eParameterValueExt::eParamValueExtNaN);
    } else if (mRound) {
        let_realvalue(number);
    } else {
        TakeDeviceNumber(number);
    }
}

void ParameterFloat::LogNoBits(const DeviceImage& image) {
    if (DebugOutput()) LogWithId(OperationName(image) + Text(u"(): ERROR: mObjConvertOneByte.Byte2Byte() failed"));
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

template class ImageTransfers<ParameterFloat, ScaledParameter<double>>;

}  // namespace ov
