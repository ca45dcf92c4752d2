#include "parameters/integer_parameter.h"

#include <cmath>

#include "parameters/clock_text.h"
#include "parameters/integer_type.h"
#include "parameters/subtype.h"
#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "support/diagnostics.h"
#include "support/number_forms.h"

namespace ov {

// The ways by the kind of the display format. Those with a unit behind the number take it off when they read.
template <class T>
struct IntegerParameter<T>::Forms {
    using P = IntegerParameter;

    static T ParsePlain(P&, const Text& text, Purpose) { return ValueType<T>::From(text); }

    static constexpr Form kPlain{ParsePlain, [](P&, const T& value, Purpose) { return ToText(value); }};
    static constexpr Form kPicture{ParsePlain,
                                   [](P& self, const T& value, Purpose p) { return self.ShowPicture(value, p); }};
    static constexpr Form kHex{[](P& self, const Text& text, Purpose p) { return self.ParseHex(text, p); },
                               [](P& self, const T& value, Purpose p) { return self.ShowHex(value, p); }};
    static constexpr Form kSeconds{[](P&, const Text& text, Purpose) { return ParseSeconds<T>(text); },
                                   [](P&, const T& value, Purpose) { return FormatSeconds(value); }};
    static constexpr Form kMinutes{[](P&, const Text& text, Purpose) { return ParseMinutes<T>(text); },
                                   [](P&, const T& value, Purpose) { return FormatMinutes(value); }};
    static constexpr Form kTechExpo{
        [](P& self, const Text& text, Purpose) { return ValueType<T>::From(TechExponent2Number(text, self.unit())); },
        [](P& self, const T& value, Purpose) { return Number2TechExponent(ToDouble(value), self.mDisplayDigits); }};
    static constexpr Form kScientific{
        [](P& self, const Text& text, Purpose) { return ValueType<T>::From(Scientific2Number(text, self.unit())); },
        [](P&, const T& value, Purpose) { return Number2Scientific(ToDouble(value)); }};
    static constexpr Form kVersion{
        [](P&, const Text& text, Purpose) { return ValueType<T>::From(Version2Number(text)); },
        [](P& self, const T& value, Purpose) { return Number2Version(ToDouble(value), self.mDisplayDigits); }};
    static constexpr Form kUnixTime{[](P&, const Text& text, Purpose) { return T(ParseUnixTime(text)); },
                                    [](P&, const T& value, Purpose) { return FormatUnixTime(ToDouble(value)); }};
};

template <class T>
IntegerParameter<T>::IntegerParameter() : mForm(&Forms::kPlain) {}

template <class T>
void IntegerParameter<T>::ReadType() {
    const Variant subtype = this->CellOr(RowCell::Subtype, Text(IntegerType<T>::kDefaultSubtype));
    const Subtype type = ReadSubtype(ToText(subtype), u"us");
    mUnsigned = type.letter == u'u';
    mBitLen = ToLong(type.width);
    mReverseMapping = type.reverseMapping;
    SetTypeLimits();
}

template <class T>
void IntegerParameter<T>::SetTypeLimits() {
    // In this order no step leaves the type before the limit itself does. Width 0, from a subtype that says none, has
    // the limits of width 1.
    const double quarter = std::pow(2.0, mBitLen - 2.0);
    const T half = ValueType<T>::From((quarter - 1) + (quarter - 1) + 1);
    if (mUnsigned) {
        this->mMin = T{};
        this->mMax = ValueType<T>::From(Add(Multiply(2, half), 1));
    } else {
        this->mMin = ValueType<T>::From(Subtract(Negate(half), 1));
        this->mMax = half;
    }
}

template <class T>
void IntegerParameter<T>::ReadDisplayFormat() {
    mForm = &Forms::kPlain;
    const Variant column = this->CellOr(RowCell::DisplayFormat, Variant::Null());
    if (column.IsNull()) return;
    const DisplayFormat format = ov::ReadDisplayFormat(ToText(column), IntegerType<T>::kDisplay);
    if (!format.complaint.empty() && DebugOutput()) {
        this->LogWithId(u"IBase_Internal_Config(): ERROR: " + format.complaint);
    }
    mForm = FormOf(format.kind);
    mDisplayDigits = format.digits;
    mPicture = format.kind == DisplayKind::Picture ? Picture(ToText(column)) : Picture();
}

template <class T>
const typename IntegerParameter<T>::Form* IntegerParameter<T>::FormOf(DisplayKind kind) {
    switch (kind) {
        case DisplayKind::Hex:
            return &Forms::kHex;
        case DisplayKind::Seconds:
            return &Forms::kSeconds;
        case DisplayKind::Minutes:
            return &Forms::kMinutes;
        case DisplayKind::TechExpo:
            return &Forms::kTechExpo;
        case DisplayKind::Scientific:
            return &Forms::kScientific;
        case DisplayKind::Version:
            return &Forms::kVersion;
        case DisplayKind::UnixTime:
            return &Forms::kUnixTime;
        default:
            return &Forms::kPicture;
    }
}

template <class T>
Text IntegerParameter<T>::ShowPicture(const T& value, Purpose purpose) {
    Text shown = mPicture.Apply(value);
    if (ValueType<T>::From(shown) == value) return shown;  // what does not read at all is the caller's affair
    if (DebugOutput()) {
        this->Log(u"Id '" + TextForLog(this->mId) + u"': " +
                  (purpose == Purpose::Format ? IntegerType<T>::kFormatOperation : u"IBase_GuiParameter_value()") +
                  u": Format " + this->CellText(RowCell::DisplayFormat) + u"konnte nicht rückkonvertiert werden!");
    }
    return ToText(value);
}

template <class T>
T IntegerParameter<T>::ParseHex(const Text& text, Purpose purpose) {
    if (IsItsPattern()) return IntegerType<T>::PatternOf(text);
    if (mBitLen < IntegerType<T>::kWidestPattern) {
        return IntegerType<T>::ToSigned(IntegerType<T>::PatternOf(text), mBitLen);
    }
    LogNoHex(purpose);
    return T{};  // and a write goes on with it
}

template <class T>
Text IntegerParameter<T>::ShowHex(const T& value, Purpose purpose) {
    Text digits;
    if (IsItsPattern()) {
        digits = IntegerType<T>::DigitsOf(value);
    } else if (mBitLen < IntegerType<T>::kWidestPattern) {
        digits = IntegerType<T>::DigitsOf(IntegerType<T>::ToPattern(value, mBitLen));
    } else {
        LogNoHex(purpose);
    }
    const std::size_t missing = digits.size() < mDisplayDigits ? mDisplayDigits - digits.size() : 0;
    return Text::Repeat(missing, u'0') + digits;
}

template <class T>
bool IntegerParameter<T>::IsItsPattern() const {
    return mUnsigned || mBitLen == IntegerType<T>::kWidestPattern;
}

template <class T>
void IntegerParameter<T>::LogNoHex(Purpose purpose) {
    if (!DebugOutput()) return;
    const auto operation = [purpose] {
        switch (purpose) {
            case Purpose::Show:
                return u"Get IBase_GuiParameter_value";
            case Purpose::Write:
                return u"Let IBase_GuiParameter_value";
            case Purpose::Test:
                return u"IBase_GuiParameter_consistent";
            default:
                return u"IBase_GuiParameter_FormatValue";
        }
    };
    this->Log(operation() + (u"(): ERROR: conversion not possible with BitLen=" + Text::FromInteger(mBitLen)) +
              u" and subtype=" + (mUnsigned ? u"unsigned" : u"signed"));
}

template class IntegerParameter<std::int32_t>;
template class IntegerParameter<Decimal>;

}  // namespace ov
