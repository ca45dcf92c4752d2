/// @file
/// The floating-point number.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/image_transfers.h"
#include "parameters/memory_map.h"
#include "parameters/scaled_parameter.h"
#include "platform/format/format.h"

namespace ov {

/// CBase_ParameterFloat: a number held in a Double. In a device image it is an IEEE 754 single, or a whole number where
/// its subtype tells one.
class ParameterFloat final : public Object<ParameterFloat, Facet<CBase_ParameterFloat>,
                                           ImageTransfers<ParameterFloat, ScaledParameter<double>>> {
public:
    static constexpr const char* kClassName = "CBase_ParameterFloat";

    /// The text "QNAN" in state NaN, whatever gain and offset are.
    Variant get_realvalue() override;

    template <class Image>
    bool MoveValue(Image* image, const ImagePlace& place);

    // Its ways as a LongField, where it is no IEEE single.
    std::optional<std::int32_t> Pattern();
    bool TakePattern(std::int32_t pattern);
    void LogNoBits(const DeviceImage& image);

private:
    enum class Sign : std::uint8_t { Signed, Unsigned, Ieee };
    enum class Form : std::uint8_t { Plain, TechExpo, Scientific };

    void ReadType() override;
    void ReadDisplayFormat() override;
    void CheckFurther(bool& passes, const Terms& former) override;
    bool IsBelowMin(const double& value) const override { return value < mMin - Tolerance(); }
    bool IsAboveMax(const double& value) const override { return value > mMax + Tolerance(); }
    double Tolerance() const;

    double ParseText(const Text& text, Purpose purpose) override;
    Text DisplayText(const double& value, Purpose purpose) override;
    Text ShowPicture(double value, Purpose purpose);
    std::int32_t PlacesOfPrecision() const;
    double Accepted(const double& value) override;
    double Rounded(double value) const;
    void SetMyValueToDefault() override;
    Content ContentOfDefault(const Variant& value) override;
    double DefaultFromLimits() override;

    bool MoveSingle(ByteArray* target, const FieldPlace& place);
    bool MoveSingle(Text* target, const FieldPlace& place);
    bool MoveSingle(const ByteArray* source, const FieldPlace& place);
    bool MoveSingle(const Text* source, const FieldPlace& place);
    void TakeSingle(std::int32_t bits, const DeviceImage& image);

    std::int32_t mBitLen = 0;
    Sign mSign = Sign::Ieee;
    bool mRound = false;
    bool mReverseMapping = false;
    Form mForm = Form::Plain;
    std::int32_t mRoundDigits = 0;
    std::uint8_t mDisplayDigits = 4;
    double mPrecision = 0;      // steps in the range
    Text mDisplayFormatScript;  // as it stands in the row
    Text mDisplayFormat;        // as of the last check
    Picture mPicture;           // of mDisplayFormat
};

extern template class ImageTransfers<ParameterFloat, ScaledParameter<double>>;

}  // namespace ov
