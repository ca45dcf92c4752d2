#include "parameters/typed_parameter.h"

#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr char16_t kForce = 1;                       // in front of a user's text: past the checks
constexpr std::u16string_view kValueHeld = u"\x1b";  // the text that asks `consistent` for the value held

}  // namespace

template <class T>
bool TypedParameter<T>::consistent(const std::optional<Text>& sValue) {
    if (!sValue || *sValue == kValueHeld) return mConsistent;
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    T candidate;
    try {
        candidate = ParseText(*sValue, Purpose::Test);
    } catch (const RuntimeError&) {
        return false;
    }
    return IsInRange(candidate) && EvaluateConsistency(candidate) && IsWellFormed(candidate);
}

template <class T>
bool TypedParameter<T>::EvaluateConsistency(const T& candidate) {
    const Text rule = ConsistencyRule();
    if (rule.empty()) return true;
    const Text script = ReplaceAll(rule, u"P()", RuleText(candidate));
    if (candidate == mValue) {
        Recording recording(mTrace, RuleColumn::Consistency);
        return recording.Keep(EvaluateRule(script));
    }
    // On trial the value is no change, unless something ran meanwhile that may have taken it for one.
    struct Trial {
        TypedParameter& parameter;
        Content former = parameter.Held();
        std::uint64_t traces = Traces::Count();
        ValueOnTrial onTrial{};
        ~Trial() {
            parameter.mValue = former.value;
            parameter.mValueExt = former.state;
            if (Traces::Count() != traces) parameter.mTrace.NoteChange();
        }
    } const trial{*this};
    mValue = candidate;
    mValueExt = eParameterValueExt::eParamValueExtNormalValue;
    return EvaluateRule(script);
}

template <class T>
void TypedParameter<T>::WriteByUser(const Text& text) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    const bool forced = !text.empty() && text[0] == kForce;
    Content written;
    try {
        written.value = ParseText(forced ? Text(text.view().substr(1)) : text, Purpose::Write);
    } catch (const RuntimeError& failure) {
        mErrorText = failure.description();
        mTrace.NoteRefusal(mErrorText, {});
        return;
    }
    MarkWritten();
    if (mValueExt == written.state && IsSameValue(written.value, mValue)) {
        ClearUnknown();
        AfterEqualUserWrite();
        return;
    }

    const Content former = Held();
    written.value = Accepted(written.value);
    Hold(written);
    if (!CheckConsistency() && !forced) {
        mTrace.NoteRefusal(mErrorText, mRefusedBy);
        Hold(former);
        CheckConsistency();  // limits, marks and events follow the value that is back
        return;
    }
    mWriter = Writer::User;
    mTrace.NoteAccepted();
    // What depends on this parameter changes before its own event.
    if (const Ref<ParameterOwner> owner = mGroup) owner->UpdateDependencies();
    mUnknown = false;
    Notify(kValueChanged);
    AfterUserWrite(former);
}

template <class T>
typename TypedParameter<T>::Content TypedParameter<T>::ConvertFromEngine(const Variant& value) {
    Content content;
    try {
        content.value = Accepted(ValueType<T>::From(value));
    } catch (const RuntimeError& failure) {
        using enum eParameterValueExt;
        content.state = failure.number() == static_cast<std::int32_t>(ErrorNumber::Overflow) ? eParamValueExtOutOfRange
                        : IsNumeric(value) ? eParamValueExtErrorSettingValue
                                           : eParamValueExtNaN;
    }
    return content;
}

template <class T>
void TypedParameter<T>::WriteByEngine(const Variant& value) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    StoreOrLog(ConvertFromEngine(value), value);
}

template <class T>
void TypedParameter<T>::WriteAccepted(const T& value) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    StoreOrLog({value}, value);
}

template <class T>
template <class Written>
void TypedParameter<T>::StoreOrLog(const Content& content, const Written& written) {
    try {
        StoreFromEngine(content);
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) {
            LogWithId(u"Property Let IBase_SpecParameter_value(" + TextForLog(written) +
                      u"): ONERROR: Aktion nicht möglich (" + failure.description() + u")");
        }
    }
}

template <class T>
void TypedParameter<T>::StoreFromEngine(const Content& content) {
    MarkWritten();
    const Content former = Held();
    if (content == former) {
        ClearUnknown();
        return;
    }
    mUnknown = false;
    mWriter = RuleWrite::IsUnderWay() ? Writer::Rule : Writer::Engine;
    Hold(content);
    Notify(kValueChanged);
    AfterEngineWrite(former);
}

template <class T>
void TypedParameter<T>::SetMyValueToDefault() {
    mWriter = Writer::Default;
    Variant value;
    try {
        value = EvaluatedCell(RuleColumn::DefaultValue, ValueType<T>::kType);
        Hold(value.IsNull() ? Content{DefaultFromLimits()} : ContentOfDefault(value));
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogWithId(u"SetMyValueToDefault(): DefaultValue (" + TextForLog(value) + u") has wrong format!");
        }
        Hold({DefaultFromLimits()});
    }
}

template <class T>
void TypedParameter<T>::ResetValue() {
    if (mLoadState != LoadState::Written) {
        ClearUnknown();
        return;
    }
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    const Content former = Held();
    SetMyValueToDefault();
    mLoadState = LoadState::HoldsDefault;
    if (Held() == former) {
        ClearUnknown();
        return;
    }
    mUnknown = false;
    Notify(kValueChanged);
}

template <class T>
bool TypedParameter<T>::Compare(IBase_SpecParameter* other) {
    const Ref<IBase_GuiParameter> gui = other ? other->Gui() : nullptr;
    if (!gui) return false;
    const double state = ValPrefix(gui->error().view().substr(0, 1));
    return state == static_cast<double>(mValueExt) && EqualValues(mValue, other->get_value());
}

template <class T>
T TypedParameter<T>::ToDisplayView(const Variant& value, bool /*isRealValue*/) {
    return ValueType<T>::From(value);
}

template <class T>
Text TypedParameter<T>::FormatValue(const Variant& val, std::optional<bool> asRealValue) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    try {
        return DisplayText(ToDisplayView(val, asRealValue.value_or(false)), Purpose::Format);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogWithId(u"Function IBase_GuiParameter_FormatValue(" + TextForLog(val) +
                      u"): ERROR: Aktion nicht möglich");
        }
        return Text();
    }
}

template class TypedParameter<std::int32_t>;
template class TypedParameter<Text>;
template class TypedParameter<double>;
template class TypedParameter<Decimal>;

}  // namespace ov
