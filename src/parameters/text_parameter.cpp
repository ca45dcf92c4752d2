#include "parameters/text_parameter.h"

#include "platform/automation/conversions.h"

namespace ov {

namespace {

constexpr const char16_t* kSettled = u"#";  // a limit that is evaluated; without a limit's text there is no limit

}  // namespace

void TextParameter::ReadType() {
    mMinSize = 0;
    mMaxSize = 32767;
}

void TextParameter::CheckLimits(bool& passes) {
    if (SettleLimit(RuleColumn::Min, mMinScript, mMinSize, kSettled) && IsShort(mValue)) {
        Refuse(passes, u"Value (" + mValue + u") is shorter than Minimum Size (" + Text::FromInteger(mMinSize) + u") ",
               RuleColumn::Min);
    }
    if (SettleLimit(RuleColumn::Max, mMaxScript, mMaxSize, kSettled) && IsLong(mValue)) {
        Refuse(passes, u"Value (" + mValue + u") is longer than Maximum (" + Text::FromInteger(mMaxSize) + u") ",
               RuleColumn::Max);
    }
}

bool TextParameter::IsInRange(const Text& value) {
    return (mMinScript.empty() || !IsShort(value)) && (mMaxScript.empty() || !IsLong(value));
}

TextParameter::Content TextParameter::ConvertFromEngine(const Variant& value) {
    try {
        return {Accepted(ToText(value))};
    } catch (const RuntimeError& failure) {
        using enum eParameterValueExt;
        const bool overflow = failure.number() == static_cast<std::int32_t>(ErrorNumber::Overflow);
        return {Text(), overflow ? eParamValueExtOutOfRange : eParamValueExtErrorSettingValue};
    }
}

Text TextParameter::DefaultFromLimits() {
    const Variant min = CellOr(RowCell::Min, Text());
    if (!IsNumeric(min) || min.IsEmpty()) return Text();
    try {
        const std::int32_t count = ToLong(min);
        return count > 0 ? Text::Repeat(static_cast<std::size_t>(count), u' ') : Text();
    } catch (const RuntimeError&) {
        return Text();  // beyond what a text holds
    }
}

}  // namespace ov
