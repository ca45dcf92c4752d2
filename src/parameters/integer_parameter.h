/// @file
/// Whole numbers: width and sign, and the forms in which they read as text.
#pragma once

#include "parameters/display_format.h"
#include "parameters/scaled_parameter.h"
#include "platform/format/format.h"

namespace ov {

/// A whole number held as @p T, std::int32_t or Decimal. The value is always a plain number, never a bit pattern.
template <class T>
class IntegerParameter : public ScaledParameter<T> {
protected:
    using typename Parameter::Purpose;

    IntegerParameter();
    ~IntegerParameter() = default;

    void ReadType() override;
    void ReadDisplayFormat() override;
    T ParseText(const Text& text, Purpose purpose) override { return mForm->parse(*this, text, purpose); }
    Text DisplayText(const T& value, Purpose purpose) override { return mForm->show(*this, value, purpose); }

    std::int32_t mBitLen = 0;
    bool mUnsigned = false;
    bool mReverseMapping = false;  // of the device image

private:
    /// One way to read a user's text and to write a number, chosen when the parameter is configured.
    struct Form {
        T (*parse)(IntegerParameter& self, const Text& text, Purpose purpose);
        Text (*show)(IntegerParameter& self, const T& value, Purpose purpose);
    };
    struct Forms;

    void SetTypeLimits();
    static const Form* FormOf(DisplayKind kind);

    Text ShowPicture(const T& value, Purpose purpose);
    T ParseHex(const Text& text, Purpose purpose);
    Text ShowHex(const T& value, Purpose purpose);
    bool IsItsPattern() const;  // the number has the same bits as its field
    void LogNoHex(Purpose purpose);

    const Form* mForm;
    Picture mPicture;  // of the form that is one
    std::uint8_t mDisplayDigits = 1;
};

extern template class IntegerParameter<std::int32_t>;
extern template class IntegerParameter<Decimal>;

}  // namespace ov
