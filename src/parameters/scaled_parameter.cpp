#include "parameters/scaled_parameter.h"

#include <array>
#include <utility>

#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "platform/locale/locale.h"
#include "support/diagnostics.h"

namespace ov {

template <class T>
double ScaledParameter<T>::ReadFactor(RuleColumn column, double fallback) {
    const Variant value = this->EvaluatedCell(column, VarType::Double);
    try {
        return value.IsNull() ? fallback : ToDouble(value);
    } catch (const RuntimeError&) {
        return 0;  // as from a rule that failed: a check never ends at a factor
    }
}

template <class T>
typename ScaledParameter<T>::Scale ScaledParameter<T>::ReadScale() {
    Scale scale{ReadFactor(RuleColumn::RealGain, 1), ReadFactor(RuleColumn::RealOffset, 0)};
    if (scale.gain == 0) {
        if (DebugOutput()) {
            this->LogWithId(
                u"IBase_Internal_Config(): ERROR: mRealgain = 0 would possibly cause division-by-zero error and is "
                u"changed to 1!");
        }
        scale.gain = 1;
    }
    return scale;
}

template <class T>
Variant ScaledParameter<T>::CheckNeedForReConfig() {
    if (this->Knows(&Parameter::RowFacts::hasFixedScale)) return false;
    const Ref<IBase_GuiParameter> alive = this->KeptAlive();
    return ReadScale() != mScale;
}

template <class T>
void ScaledParameter<T>::RefreshScale() {
    if (this->Knows(&Parameter::RowFacts::hasFixedScale)) return;
    const Ref<Collection> row = this->mData;
    // Asked before the reading: behind a rule the row may be another one.
    const bool isFixed = this->IsFixedCell(RowCell::RealGain) && this->IsFixedCell(RowCell::RealOffset);
    const Scale scale = ReadScale();
    if (this->mData != row) return;  // the new row has a scale of its own
    // A gain of 0 is no fixed one: it is told of each time.
    this->mFacts.hasFixedScale = isFixed && ReadFactor(RuleColumn::RealGain, 1) != 0;
    // A check within the rule may have moved the value already, so it is in the scale of this moment.
    const Scale former = std::exchange(mScale, scale);
    if (mScale != former) this->mTrace.NoteChange();
    if (mScale != former && this->mLoadState == LoadState::Written) KeepRealValue(former);
}

template <class T>
void ScaledParameter<T>::KeepRealValue(const Scale& former) {
    try {
        const T value = Rescaled(this->mValue, former);
        // Equal values stay equal, whatever the rounding: a change of scale modifies nothing.
        const T saved = this->mValue == this->mSavedValue ? value : Rescaled(this->mSavedValue, former);
        this->mValue = value;
        this->mSavedValue = saved;
        this->mTrace.NoteChange();
        AfterRescale();
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) this->LogWithId(u"Private Sub KeepRealValue(): ONERROR: " + failure.description());
    }
}

template <class T>
T ScaledParameter<T>::Rescaled(const T& value, const Scale& former) const {
    return ValueType<T>::From(Scaled(Divide(Subtract(value, former.offset), former.gain)));
}

template <class T>
Variant ScaledParameter<T>::Scaled(const Variant& realValue) const {
    return Add(Multiply(realValue, mScale.gain), mScale.offset);
}

template <class T>
void ScaledParameter<T>::CheckLimits(bool& passes) {
    if (this->SettleLimit(RuleColumn::Min, this->mMinScript, mMin, SettledMark()) && IsBelowMin(this->mValue)) {
        this->Refuse(passes, u"Value (" + this->ValueText() + u") is lower than Minimum (" + ToText(mMin) + u") ",
                     RuleColumn::Min);
    }
    if (this->SettleLimit(RuleColumn::Max, this->mMaxScript, mMax, SettledMark()) && IsAboveMax(this->mValue)) {
        this->Refuse(passes, u"Value (" + this->ValueText() + u") is bigger than Maximum (" + ToText(mMax) + u") ",
                     RuleColumn::Max);
    }
}

template <class T>
T ScaledParameter<T>::DefaultFromLimits() {
    // As they stand in the row: a rule is no number.
    for (const char16_t* column : std::array{u"Min", u"Max"}) {
        const Variant limit = this->CellOr(column, Text());
        if (!IsNumeric(limit)) continue;
        try {
            return ValueType<T>::From(limit);
        } catch (const RuntimeError&) {
            continue;  // beyond the type
        }
    }
    return T{};
}

template <class T>
T ScaledParameter<T>::ToDisplayView(const Variant& value, bool isRealValue) {
    return ValueType<T>::From(isRealValue && !IsUnscaled() ? Scaled(value) : value);
}

template <class T>
Variant ScaledParameter<T>::get_realvalue() {
    if (IsUnscaled()) return this->mValue;
    return Divide(Subtract(this->mValue, mScale.offset), mScale.gain);
}

template <class T>
void ScaledParameter<T>::let_realvalue(const Variant& value) {
    if (IsUnscaled()) {
        this->WriteByEngine(value);  // as it is, so that text such as "QNAN" keeps its meaning
        return;
    }
    const Ref<IBase_GuiParameter> alive = this->KeptAlive();
    Variant scaled;
    try {
        scaled = Scaled(value);
    } catch (const RuntimeError& failure) {
        if (DebugOutput()) {
            this->LogWithId(u"Property Let IBase_SpecParameter_realvalue(" + TextForLog(value) +
                            u"): ERROR: Aktion nicht möglich (" + failure.description() + u")");
        }
        return;
    }
    this->WriteByEngine(scaled);
}

template <class T>
void ScaledParameter<T>::WriteDeviceNumber(const T& number) {
    if (IsUnscaled()) {
        this->WriteAccepted(number);
    } else {
        let_realvalue(number);
    }
}

template <class T>
Text ScaledParameter<T>::get_realvalueForStorage() {
    return ToInvariantText(get_realvalue());
}

template <class T>
void ScaledParameter<T>::let_realvalueForStorage(const Text& value) {
    const char16_t point = CurrentLocale().decimal;
    Text text = value;
    if (point != u'.') {
        if (value.view().find(u'.') == std::u16string_view::npos) {
            text = ReplaceAll(value, {&point, 1}, u".");
        } else if (DebugOutput()) {
            // The text that is written in this locale is warned of as well.
            this->Log(u"Let IBase_SpecParameterStorage_realvalueForStorage(" + value +
                      u"): WARNING: string value is not correctly formatted!");
        }
    }
    let_realvalue(ValPrefix(text));
}

template class ScaledParameter<std::int32_t>;
template class ScaledParameter<double>;
template class ScaledParameter<Decimal>;

}  // namespace ov
