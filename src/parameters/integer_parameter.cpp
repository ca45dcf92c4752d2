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

namespace {

constexpr double kDaysTo1970 = 25569;  // from day 0 of a Date
constexpr double kSecondsOfDay = 86400;

}  // namespace

template <class T>
struct IntegerParameter<T>::Forms {
    using P = IntegerParameter;
    static constexpr Form kPlain{&P::ParsePlain, &P::ShowPlain};
    static constexpr Form kPicture{&P::ParsePlain, &P::ShowPicture};
    static constexpr Form kHex{&P::ParseHex, &P::ShowHex};
    static constexpr Form kSeconds{&P::ParseClockSeconds, &P::ShowClockSeconds};
    static constexpr Form kMinutes{&P::ParseClockMinutes, &P::ShowClockMinutes};
    static constexpr Form kTechExpo{&P::ParseTechExpo, &P::ShowTechExpo};
    static constexpr Form kScientific{&P::ParseScientific, &P::ShowScientific};
    static constexpr Form kVersion{&P::ParseVersion, &P::ShowVersion};
    static constexpr Form kUnixTime{&P::ParseUnixTime, &P::ShowUnixTime};
};

template <class T>
IntegerParameter<T>::IntegerParameter() : mForm(&Forms::kPlain) {}

template <class T>
void IntegerParameter<T>::ReadType() {
    const Variant subtype = this->CellOr(u"subtype", Text(IntegerType<T>::kDefaultSubtype));
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
    const Variant column = this->CellOr(u"displayFormat", Variant::Null());
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
T IntegerParameter<T>::ParsePlain(const Text& text, Purpose) {
    return ValueType<T>::From(text);
}

template <class T>
Text IntegerParameter<T>::ShowPlain(const T& value, Purpose) {
    return ToText(value);
}

template <class T>
Text IntegerParameter<T>::ShowPicture(const T& value, Purpose purpose) {
    Text shown = mPicture.Apply(value);
    if (ValueType<T>::From(shown) == value) return shown;  // what does not read at all is the caller's affair
    if (DebugOutput()) {
        this->Log(u"Id '" + TextForLog(this->mId) + u"': " +
                  (purpose == Purpose::Format ? IntegerType<T>::kFormatOperation : u"IBase_GuiParameter_value()") +
                  u": Format " + this->CellText(u"displayFormat") + u"konnte nicht rückkonvertiert werden!");
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

template <class T>
T IntegerParameter<T>::ParseClockSeconds(const Text& text, Purpose) {
    return ParseSeconds<T>(text);
}

template <class T>
Text IntegerParameter<T>::ShowClockSeconds(const T& value, Purpose) {
    return FormatSeconds(value);
}

template <class T>
T IntegerParameter<T>::ParseClockMinutes(const Text& text, Purpose) {
    return ParseMinutes<T>(text);
}

template <class T>
Text IntegerParameter<T>::ShowClockMinutes(const T& value, Purpose) {
    return FormatMinutes(value);
}

template <class T>
T IntegerParameter<T>::ParseTechExpo(const Text& text, Purpose) {
    return ValueType<T>::From(TechExponent2Number(text, this->unit()));
}

template <class T>
Text IntegerParameter<T>::ShowTechExpo(const T& value, Purpose) {
    return Number2TechExponent(ToDouble(value), mDisplayDigits);
}

template <class T>
T IntegerParameter<T>::ParseScientific(const Text& text, Purpose) {
    return ValueType<T>::From(Scientific2Number(text, this->unit()));
}

template <class T>
Text IntegerParameter<T>::ShowScientific(const T& value, Purpose) {
    return Number2Scientific(ToDouble(value));
}

template <class T>
T IntegerParameter<T>::ParseVersion(const Text& text, Purpose) {
    return ValueType<T>::From(Version2Number(text));
}

template <class T>
Text IntegerParameter<T>::ShowVersion(const T& value, Purpose) {
    return Number2Version(ToDouble(value), mDisplayDigits);
}

// Seconds since 1970, in no time zone.
template <class T>
T IntegerParameter<T>::ParseUnixTime(const Text& text, Purpose) {
    const std::optional<Date> date = ReadDate(text);
    if (!date) return T{};  // what is no date is 0, and no fault
    return ToLong((date->days - kDaysTo1970) * kSecondsOfDay);
}

template <class T>
Text IntegerParameter<T>::ShowUnixTime(const T& value, Purpose) {
    static const Picture kPicture(u"yyyy-mm-dd hh:mm:ss");
    return kPicture.Apply(ToDate(kDaysTo1970 + ToDouble(value) / kSecondsOfDay));
}

template class IntegerParameter<std::int32_t>;
template class IntegerParameter<Decimal>;

}  // namespace ov
