/// @file
/// The floating-point number.
#pragma once

#include "contract/default_interfaces.h"
#include "parameters/memory_map.h"
#include "parameters/scaled_parameter.h"
#include "platform/format/format.h"

namespace ov {

/// CBase_ParameterFloat: a number held in a Double. In a device image it is an IEEE 754 single, or a whole number where
/// its subtype tells one.
class ParameterFloat final : public Object<ParameterFloat, Facet<CBase_ParameterFloat>, ScaledParameter<double>>,
                             private LongField {
public:
    static constexpr const char* kClassName = "CBase_ParameterFloat";

    /// The text "QNAN" in state NaN, whatever gain and offset are.
    Variant get_realvalue() override;

private:
    enum class Sign : std::uint8_t { Signed, Unsigned, Ieee };
    enum class Form : std::uint8_t { Plain, TechExpo, Scientific };

    void ReadType() override;
    void ReadDisplayFormat() override;
    void CheckFurther(bool& passes, bool limitsChanged) override;
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

    bool MoveValue(const DeviceImage& image, const ImagePlace& place) override;
    bool ExportSingle(ByteArray& target, const FieldPlace& place);
    bool ExportSingle(Text& target, const FieldPlace& place);
    bool ImportSingle(const ByteArray& source, const FieldPlace& place);
    bool ImportSingle(const Text& source, const FieldPlace& place);
    /// Takes the bits of a single if they are no number; True if they are none.
    bool TakeNaN(std::int32_t bits, const DeviceImage& image);
    std::optional<std::int32_t> Pattern() override;
    bool TakePattern(std::int32_t pattern) override;
    void TakeNumber(const Variant& number) override { let_realvalue(number); }
    void TakeFault() override { WriteState(eParameterValueExt::eParamValueExtErrorSettingValue); }
    void LogNoConversion(const char16_t*, std::int32_t) override {}  // any field has a number here

    Text mDisplayFormatScript;  // as it stands in the row
    Text mDisplayFormat;        // as of the last check
    Picture mPicture;           // of mDisplayFormat
    double mPrecision = 0;      // steps in the range
    std::int32_t mBitLen = 0;
    std::int32_t mRoundDigits = 0;
    Sign mSign = Sign::Ieee;
    Form mForm = Form::Plain;
    std::uint8_t mDisplayDigits = 4;
    bool mRound = false;
    bool mReverseMapping = false;
};

}  // namespace ov
