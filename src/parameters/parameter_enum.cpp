#include "parameters/parameter_enum.h"

#include "parameters/integer_type.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"

namespace ov {

void ParameterEnum::ReadType() {
    ListedNumber::ReadType();
    const Text type = CellText(u"Type");
    mEnumKind = type == u"SELECT" ? Kind::Select : type == u"ACTION" ? Kind::Action : Kind::Enumeration;
}

void ParameterEnum::ReadNewList(ModuleServices&) {
    ReloadCollections();
    if (MayBeUnlisted()) return;
    CloseLimits();
    for (std::size_t at = 0; at < mList.ValueCount(); ++at) {
        WidenLimits(ToLong(mList.ValueAt(at)));
    }
}

void ParameterEnum::CheckFurther(bool& passes, const Terms& former) {
    EnumerationParameter::CheckFurther(passes, former);
    if (CurrentLimits() != former.limits) ReloadCollections();
}

void ParameterEnum::AfterUserWrite(const Content& former) {
    RunActionOnChange();
    if (mEnumKind == Kind::Action) PutBack(former);
}

// The engine's writes run the action of a push button alone.
void ParameterEnum::AfterEngineWrite(const Content& former) {
    if (mEnumKind != Kind::Action) return;
    RunActionOnChange();
    PutBack(former);
}

void ParameterEnum::PutBack(const Content& former) {
    Hold(former);
    if (const Ref<ParameterOwner> owner = mGroup) owner->UpdateDependencies();
    Notify(kValueChanged);
}

bool ParameterEnum::IsReversed() const {
    constexpr std::u16string_view kMark = u"_reverse";
    const std::u16string_view subtype = mSubtype;
    return subtype.size() >= kMark.size() && EqualNoCase(subtype.substr(subtype.size() - kMark.size()), kMark);
}

Text ParameterEnum::EnumerationQuery() const {
    return u"SELECT * FROM [Enums] WHERE enumSubType = '" + mSubtype + u"' ORDER BY [value]";
}

Text ParameterEnum::OfferedLimits() const {
    return Text::FromInteger(mMin) + u" " + Text::FromInteger(mMax);
}

Text ParameterEnum::UnlistedText(const std::int32_t& value) const {
    return FormatUnlistedValue(mDisplayFormat, KeyOf(value), IntegerType<std::int32_t>::DigitsOf(value));
}

Text ParameterEnum::WrongDefault(const Variant& value, const RuntimeError& failure) const {
    return u"SetMyValueToDefault: Default-Value '" + TextForLog(value) + u"' ist kein Long: " +
           Text::FromInteger(failure.number());
}

Text ParameterEnum::ActionFault(const RuntimeError& failure) const {
    return failure.description() + u" (" + TextForLog(mId) + u")";
}

}  // namespace ov
