/// @file
/// Numbers with gain and offset between the display view and the device view.
#pragma once

#include "parameters/typed_parameter.h"

namespace ov {

/// A parameter whose value is a number of type @p T: std::int32_t, double or Decimal. value = realvalue x gain +
/// offset; limits and the value held are in the display view. Each product or quotient is rounded once, at its end.
template <class T>
class ScaledParameter : public TypedParameter<T> {
public:
    Variant Min() override { return mMin; }
    Variant Max() override { return mMax; }
    Variant get_realvalue() override;
    void let_realvalue(const Variant& value) override;
    Text get_realvalueForStorage() override;
    void let_realvalueForStorage(const Text& value) override;
    Variant CheckNeedForReConfig() override;

protected:
    using typename Parameter::Limits;
    using typename Parameter::LoadState;
    using typename Parameter::Scale;

    Scale CurrentScale() const override { return mScale; }
    void RefreshScale() override;
    Limits CurrentLimits() const override { return {mMin, mMax}; }
    void CheckLimits(bool& passes) override;
    bool IsInRange(const T& value) override { return !IsBelowMin(value) && !IsAboveMax(value); }
    T DefaultFromLimits() override;
    T ToDisplayView(const Variant& value, bool isRealValue) override;
    Text RuleText(const T& value) override { return ToInvariantText(Variant(value)); }

    virtual bool IsBelowMin(const T& value) const { return value < mMin; }
    virtual bool IsAboveMax(const T& value) const { return value > mMax; }
    /// What stands in place of a limit's text once it is evaluated; @see Parameter::SettleLimit
    virtual Text SettledMark() const { return Text(); }
    /// The value moved because gain or offset changed.
    virtual void AfterRescale() {}

    bool IsUnscaled() const noexcept { return mScale == Scale{}; }
    double Gain() const noexcept { return mScale.gain; }
    double Offset() const noexcept { return mScale.offset; }
    /// The device view as a T, rounded once. @throws RuntimeError for what is none
    T DeviceNumber() { return IsUnscaled() ? this->mValue : ValueType<T>::From(get_realvalue()); }
    /// The engine's write of a number of the device view that the class accepts as it is; quick where it is there
    /// already. The parameter may be gone behind it.
    void TakeDeviceNumber(const T& number) {
        if (!IsUnscaled() || !this->IsWrittenAs(number)) WriteDeviceNumber(number);
    }
    void WriteDeviceNumber(const T& number);
    /// @p realValue in the display view, not yet rounded. @throws RuntimeError for what is no number
    Variant Scaled(const Variant& realValue) const;

private:
    Scale ReadScale();
    double ReadFactor(RuleColumn column, double fallback);
    void KeepRealValue(const Scale& former);
    T Rescaled(const T& value, const Scale& former) const;

    Scale mScale;  // mRealgain, mRealoffset

protected:
    T mMin{}, mMax{};
};

extern template class ScaledParameter<std::int32_t>;
extern template class ScaledParameter<double>;
extern template class ScaledParameter<Decimal>;

}  // namespace ov
