#include "parameters/parameter_int.h"

#include "parameters/long_transfer.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kBitsOfLong = 32;

}  // namespace

template <class Image>
bool ParameterInt::MoveValue(Image* image, const ImagePlace& place) {
    const FieldPlace field = PlaceField(place, mBitLen, mReverseMapping);
    return LongTransfer{*this, field}(image);
}

// Sign is the subtype's affair: it goes by the width told there, however wide the field is.
std::optional<std::int32_t> ParameterInt::Pattern() {
    const std::int32_t number = DeviceNumber();
    if (mUnsigned || mBitLen == kBitsOfLong) return number;
    if (mBitLen > kBitsOfLong) return std::nullopt;
    return Signed2UnsignedL(number, mBitLen);
}

bool ParameterInt::TakePattern(std::int32_t pattern) {
    const bool isItsNumber = mUnsigned || mBitLen == kBitsOfLong;
    if (!isItsNumber && mBitLen > kBitsOfLong) return false;
    TakeDeviceNumber(isItsNumber ? pattern : Unsigned2SignedL(pattern, mBitLen));
    return true;
}

void ParameterInt::LogNoConversion(const char16_t* operation, std::int32_t width) {
    if (!DebugOutput()) return;
    Log(operation + (u"(): ERROR: conversion not possible with BitLen=" + Text::FromInteger(width)) + u" and subtype=" +
        (mUnsigned ? u"unsigned" : u"signed"));
}

template class ImageTransfers<ParameterInt, IntegerParameter<std::int32_t>>;

}  // namespace ov
