/// @file
/// The value of a parameter, and the two ways of writing it.
#pragma once

#include "parameters/parameter.h"

namespace ov {

/// A parameter whose value is a @p T: std::int32_t, double, Decimal or Text.
template <class T>
class TypedParameter : public Parameter {
public:
    bool consistent(const std::optional<Text>& sValue) override;
    bool modified() override { return !(mValue == mSavedValue) || mValueExt != mSavedValueExt; }
    void ResetValue() override;
    Text FormatValue(const Variant& val, std::optional<bool> asRealValue) override;
    Variant get_realvalue() override { return mValue; }
    void let_realvalue(const Variant& value) override { WriteByEngine(value); }
    bool Compare(IBase_SpecParameter* other) override;
    Text get_realvalueForStorage() override { return ToText(get_realvalue()); }
    void let_realvalueForStorage(const Text& value) override { let_realvalue(value); }

protected:
    /// A value with its state.
    struct Content {
        T value{};
        eParameterValueExt state = eParameterValueExt::eParamValueExtNormalValue;
        friend bool operator==(const Content&, const Content&) = default;
    };

    // What a class says of its values.
    /// The value that a user's text is. @throws RuntimeError for a text that is none
    virtual T ParseText(const Text& text, Purpose purpose) = 0;
    /// The text of a value in the display form. @throws RuntimeError where the form cannot show it
    virtual Text DisplayText(const T& value, Purpose purpose) = 0;
    /// What the engine's value is to this class; what does not convert is 0 with a state. Never raises.
    virtual Content ConvertFromEngine(const Variant& value);
    /// A value given for display, in the display view. @throws RuntimeError if it does not convert
    virtual T ToDisplayView(const Variant& value, bool isRealValue);
    /// What is stored of a value that was written.
    virtual T Accepted(const T& value) { return value; }
    virtual bool IsSameValue(const T& a, const T& b) { return a == b; }
    virtual bool IsInRange(const T& value) = 0;
    /// What `consistent` tests behind the rule.
    virtual bool IsWellFormed(const T& /*value*/) { return true; }
    /// What the descriptor's default is to this class. @throws RuntimeError for one of the wrong form
    virtual Content ContentOfDefault(const Variant& value) { return {ValueType<T>::From(value)}; }
    virtual T DefaultFromLimits() = 0;
    /// The value as a rule reads it.
    virtual Text RuleText(const T& value) = 0;

    // What a class does behind a write.
    virtual void AfterEqualUserWrite() {}
    virtual void AfterUserWrite(const Content& /*former*/) {}
    virtual void AfterEngineWrite(const Content& /*former*/) {}

    Content Held() const { return {mValue, mValueExt}; }
    void Hold(const Content& content) {
        mValue = content.value;
        mValueExt = content.state;
        mTrace.NoteChange();
    }
    /// `EvaluateConsistency`: the rule of the descriptor for @p candidate, which scripts see as the value meanwhile.
    bool EvaluateConsistency(const T& candidate);

    Variant EngineValue() override {
        mTrace.NoteRead();
        return mValue;
    }
    /// Whether the engine's write of @p value, accepted as it is, would change nothing.
    bool IsWrittenAs(const T& value) const {
        return mValue == value && mValueExt == eParameterValueExt::eParamValueExtNormalValue && !mUnknown &&
               mLoadState == LoadState::Written;
    }
    /// The engine's write of a value that the class accepts as it is.
    void WriteAccepted(const T& value);
    void WriteByUser(const Text& text) override;
    void WriteByEngine(const Variant& value) override;
    void SetMyValueToDefault() override;
    void SaveValue() override {
        mSavedValue = mValue;
        mSavedValueExt = mValueExt;
    }
    Text DisplayedValue() override { return DisplayText(mValue, Purpose::Show); }
    Text ValueText() override { return ToText(mValue); }
    bool PassesRule() override { return EvaluateConsistency(mValue); }

    T mSavedValue{};
    T mValue{};  // in the display view

private:
    void StoreFromEngine(const Content& content);
    template <class Written>
    void StoreOrLog(const Content& content, const Written& written);
};

extern template class TypedParameter<std::int32_t>;
extern template class TypedParameter<Text>;
extern template class TypedParameter<double>;
extern template class TypedParameter<Decimal>;

}  // namespace ov
