#include "parameters/parameter_float.h"

#include <cmath>

#include "parameters/display_format.h"
#include "parameters/subtype.h"
#include "platform/automation/conversions.h"
#include "platform/automation/text_search.h"
#include "platform/format/round_to_places.h"
#include "support/diagnostics.h"
#include "support/number_forms.h"

namespace ov {

namespace {

constexpr std::u16string_view kNaN = u"QNAN";
// The limits of the type, whatever the width.
constexpr double kTypeMin = -2147483648.0, kTypeMax = 2147483647.0;

// The text behind @p word; nullopt if the word is not there.
std::optional<Text> TextBehind(const Text& text, std::u16string_view word) {
    const std::size_t at = FindNoCase(text, word);
    if (at == std::u16string_view::npos) return std::nullopt;
    return Text(text.view().substr(at + word.size()));
}

}  // namespace

void ParameterFloat::ReadType() {
    const Text text = ToText(CellOr(RowCell::Subtype, u"f32"));
    const Subtype type = ReadSubtype(text, u"usf");
    mSign = type.letter == u'u' ? Sign::Unsigned : type.letter == u's' ? Sign::Signed : Sign::Ieee;
    mBitLen = ToLong(type.width);
    mReverseMapping = type.reverseMapping;
    const std::optional<Text> digits = TextBehind(text, u"rnd");
    mRound = digits.has_value();
    mRoundDigits = digits ? ToLong(ValPrefix(*digits)) : 0;
    const std::optional<Text> steps = TextBehind(text, u"precision");
    mPrecision = steps ? ValPrefix(*steps) : 0;
    mMin = kTypeMin;
    mMax = kTypeMax;
}

void ParameterFloat::ReadDisplayFormat() {
    mDisplayFormatScript = CellText(RowCell::DisplayFormat);
}

// The form may be a rule, so it is as of the last check.
void ParameterFloat::CheckFurther(bool& /*passes*/, const Terms& /*former*/) {
    Text text = mDisplayFormatScript;
    if (!text.empty()) {
        const Ref<ParameterOwner> owner = Owner();
        Recording recording(mTrace, RuleColumn::DisplayFormat);
        owner->GetStringValueFromScript(text, mId);
        recording.Keep(text);
    }
    const DisplayFormat format = ov::ReadDisplayFormat(text, {.mostHexDigits = 255, .hasUnixTime = false});
    mForm = format.kind == DisplayKind::TechExpo     ? Form::TechExpo
            : format.kind == DisplayKind::Scientific ? Form::Scientific
                                                     : Form::Plain;
    mDisplayDigits = format.digits;
    if (mForm != Form::Plain && !format.complaint.empty() && DebugOutput()) {
        LogWithId(u"IBase_Internal_Config(): ERROR: " + format.complaint);
    }
    if (text == mDisplayFormat) return;
    mTrace.NoteChange();
    mDisplayFormat = text;
    mPicture = Picture(text);
}

double ParameterFloat::Tolerance() const {
    return mPrecision > 0 ? (mMax - mMin) / mPrecision : 0;
}

double ParameterFloat::ParseText(const Text& text, Purpose /*purpose*/) {
    switch (mForm) {
        case Form::TechExpo:
            return TechExponent2Number(text, unit());
        case Form::Scientific:
            return Scientific2Number(text, unit());
        default:
            return ToDouble(text);
    }
}

Text ParameterFloat::DisplayText(const double& value, Purpose purpose) {
    if (mForm == Form::TechExpo) return Number2TechExponent(value, mDisplayDigits);
    if (mForm == Form::Scientific) return Number2Scientific(value);
    if (!mDisplayFormat.empty()) return ShowPicture(value, purpose);
    if (mPrecision <= 0) return ToText(value);
    if (purpose != Purpose::Format) return ToText(RoundToPlaces(value, PlacesOfPrecision()));
    // On purpose: the value held is rounded and written back, and nothing is shown.
    WriteByUser(ToText(RoundToPlaces(mValue, PlacesOfPrecision())));
    return Text();
}

Text ParameterFloat::ShowPicture(double value, Purpose purpose) {
    try {
        return mPicture.Apply(value);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            Log(u"Id '" + TextForLog(mId) +
                (purpose == Purpose::Format ? u"': IBase_GuiParameter_FormatValue(): Format "
                                            : u"': IBase_GuiParameter_value(): Format ") +
                mDisplayFormat + u"konnte nicht rückkonvertiert werden!");
        }
        return ToText(value);
    }
}

std::int32_t ParameterFloat::PlacesOfPrecision() const {
    return mMax > mMin ? ToLong(std::log10(mPrecision / (mMax - mMin))) : 0;
}

double ParameterFloat::Accepted(const double& value) {
    if (!mRound) return value;
    const double rounded = Rounded(value);
    if (std::isfinite(rounded)) return rounded;
    if (DebugOutput()) {
        Log(u"RoundValue: WARNING: round failed, error = " +
            ErrorText(static_cast<std::int32_t>(ErrorNumber::Overflow)));
    }
    return value;
}

double ParameterFloat::Rounded(double value) const {
    // A whole number for the device: what a field of integers can hold.
    if (mSign != Sign::Ieee) {
        value = IsUnscaled() ? std::floor(value) : RoundToPlaces((value - Offset()) / Gain(), 0) * Gain() + Offset();
    }
    return mRoundDigits > 0 ? RoundToPlaces(value, mRoundDigits) : value;
}

void ParameterFloat::SetMyValueToDefault() {
    // Plain in the row it never is a rule, although the readers of texts without prefixes know no such number.
    const Text cell = CellText(RowCell::DefaultValue);
    if (cell == kNaN) {
        Hold(ContentOfDefault(cell));
    } else {
        ScaledParameter<double>::SetMyValueToDefault();
    }
}

ParameterFloat::Content ParameterFloat::ContentOfDefault(const Variant& value) {
    if (value.IsString() && value.AsText() == kNaN) {
        return {DefaultFromLimits(), eParameterValueExt::eParamValueExtNaN};
    }
    return {ToDouble(value)};
}

double ParameterFloat::DefaultFromLimits() {
    const Text min = CellText(RowCell::Min);
    return ValPrefix(min.empty() ? CellText(RowCell::Max) : min);
}

Variant ParameterFloat::get_realvalue() {
    if (mValueExt == eParameterValueExt::eParamValueExtNaN) return Text(kNaN);
    return ScaledParameter<double>::get_realvalue();
}

}  // namespace ov
