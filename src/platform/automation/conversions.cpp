#include "platform/automation/conversions.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "platform/automation/date_text.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/errors.h"
#include "platform/automation/number_text.h"
#include "platform/automation/rounding.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

constexpr std::int64_t kCurrencyScale = 10'000;

[[noreturn]] void RaiseNoValue(VarType type) {
    switch (type) {
        case VarType::Null:
            Raise(ErrorNumber::InvalidUseOfNull);
        case VarType::Missing:
            Raise(ErrorNumber::NamedArgumentNotFound);
        default:
            Raise(ErrorNumber::TypeMismatch);
    }
}

template <class Integer>
Integer InRange(std::int64_t number) {
    using Limits = std::numeric_limits<Integer>;
    if (number < Limits::min() || number > Limits::max()) Raise(ErrorNumber::Overflow);
    return static_cast<Integer>(number);
}

template <class Integer>
Integer RoundToInteger(double number) {
    using Limits = std::numeric_limits<Integer>;
    const double rounded = RoundHalfEven(number);
    if (!(rounded >= Limits::min() && rounded <= Limits::max())) Raise(ErrorNumber::Overflow);  // NaN, too
    return static_cast<Integer>(rounded);
}

/// @throws RuntimeError 13 if @p text is no number.
void ReadNumberOrRaise(std::u16string_view text, NumberText& number) {
    if (!ReadNumberText(text, number)) Raise(ErrorNumber::TypeMismatch);
}

double ReadDoubleOrRaise(std::u16string_view text) {
    NumberText number;
    ReadNumberOrRaise(text, number);
    const std::optional<double> value = number.ToDouble();
    if (!value) Raise(ErrorNumber::Overflow);
    return *value;
}

Decimal ReadDecimalOrRaise(std::u16string_view text) {
    NumberText number;
    ReadNumberOrRaise(text, number);
    if (number.isPattern) return Decimal::FromUnsigned(number.pattern);
    return Decimal::FromDigits(number.negative, number.digits.Digits(), number.digits.Exponent());
}

template <class Integer>
Integer ReadInteger(std::u16string_view text) {
    NumberText number;
    ReadNumberOrRaise(text, number);
    if (!number.isPattern) {
        const std::optional<double> value = number.ToDouble();
        if (!value) Raise(ErrorNumber::Overflow);
        return RoundToInteger<Integer>(*value);
    }
    if (number.pattern > std::numeric_limits<std::uint32_t>::max()) Raise(ErrorNumber::Overflow);
    if (number.isLongPattern) return InRange<Integer>(static_cast<std::int32_t>(number.pattern));
    if (number.pattern > std::numeric_limits<std::make_unsigned_t<Integer>>::max()) Raise(ErrorNumber::Overflow);
    return static_cast<Integer>(number.pattern);
}

template <class Integer>
Integer ToIntegerType(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty:
            return 0;
        case VarType::Boolean:
            return static_cast<Integer>(value.AsBoolean() ? -1 : 0);
        case VarType::Byte:
            return value.AsByte();
        case VarType::Integer:
            return InRange<Integer>(value.AsInteger());
        case VarType::Long:
            return InRange<Integer>(value.AsLong());
        case VarType::Single:
            return RoundToInteger<Integer>(static_cast<double>(value.AsSingle()));
        case VarType::Double:
            return RoundToInteger<Integer>(value.AsDouble());
        case VarType::Date:
            return RoundToInteger<Integer>(value.AsDate().days);
        case VarType::Currency:
            return InRange<Integer>(DivideHalfEven(value.AsCurrency().scaled, kCurrencyScale));
        case VarType::Decimal:
            return InRange<Integer>(value.AsDecimal().ToInt64());
        case VarType::String:
            return ReadInteger<Integer>(value.AsText());
        case VarType::Object:
            return ToIntegerType<Integer>(DefaultValue(value));
        default:
            RaiseNoValue(value.Type());
    }
}

Currency RoundToCurrency(double number) {
    const double scaled = RoundHalfEven(number * static_cast<double>(kCurrencyScale));
    if (!(scaled >= -0x1p63 && scaled < 0x1p63)) Raise(ErrorNumber::Overflow);
    return {static_cast<std::int64_t>(scaled)};
}

Currency RoundToCurrency(const Decimal& number) {
    return {(number * Decimal(kCurrencyScale)).ToInt64()};
}

Decimal DecimalOf(Currency amount) noexcept {
    const Decimal scaled(amount.scaled);
    return {scaled.IsNegative(), 0, scaled.Low(), 4};
}

Date CheckedDate(double days) {
    if (!IsDateNumber(days)) Raise(ErrorNumber::Overflow);
    return {days};
}

Text DecimalToText(const Decimal& number, char16_t point) {
    std::u16string text = number.ToString();
    const std::size_t at = text.find(u'.');
    if (at != std::u16string::npos) text[at] = point;
    return text;
}

/// The text of what has one that depends on no date form. @throws as the conversions do, RuntimeError 13 for a Date.
Text PlainText(const Variant& value, char16_t point) {
    switch (value.Type()) {
        case VarType::Empty:
            return {};
        case VarType::String:
            return value.AsText();
        case VarType::Boolean:
            return value.AsBoolean() ? u"True" : u"False";
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return Text::FromInteger(ToLong(value));
        case VarType::Single:
            return NumberToText(static_cast<double>(value.AsSingle()), kSingleDigits, point);
        case VarType::Double:
            return NumberToText(value.AsDouble(), kDoubleDigits, point);
        case VarType::Currency:
        case VarType::Decimal:
            return DecimalToText(ToDecimal(value), point);
        default:
            RaiseNoValue(value.Type());
    }
}

}  // namespace

std::uint8_t ToByte(const Variant& value) {
    return ToIntegerType<std::uint8_t>(value);
}
std::int16_t ToInteger(const Variant& value) {
    return ToIntegerType<std::int16_t>(value);
}
std::int32_t ToLong(const Variant& value) {
    return ToIntegerType<std::int32_t>(value);
}

float ToSingle(const Variant& value) {
    if (value.Type() == VarType::Single) return value.AsSingle();
    const double number = ToDouble(value);
    constexpr double kTooGreat = 0x1.ffffffp127;  // the least that would round to infinity
    if (std::isfinite(number) && std::abs(number) >= kTooGreat) Raise(ErrorNumber::Overflow);
    return static_cast<float>(number);
}

double ToDouble(const Variant& value) {
    switch (value.Type()) {
        case VarType::Double:
            return value.AsDouble();
        case VarType::Single:
            return static_cast<double>(value.AsSingle());
        case VarType::Date:
            return value.AsDate().days;
        case VarType::Currency:
            return static_cast<double>(value.AsCurrency().scaled) / static_cast<double>(kCurrencyScale);
        case VarType::Decimal:
            return value.AsDecimal().ToDouble();
        case VarType::String:
            return ReadDoubleOrRaise(value.AsText());
        case VarType::Object:
            return ToDouble(DefaultValue(value));
        default:
            return ToLong(value);
    }
}

Currency ToCurrency(const Variant& value) {
    switch (value.Type()) {
        case VarType::Currency:
            return value.AsCurrency();
        case VarType::Single:
        case VarType::Double:
        case VarType::Date:
            return RoundToCurrency(ToDouble(value));
        case VarType::Decimal:
            return RoundToCurrency(value.AsDecimal());
        case VarType::String:
            return RoundToCurrency(ReadDecimalOrRaise(value.AsText()));
        case VarType::Object:
            return ToCurrency(DefaultValue(value));
        default:
            return {ToLong(value) * kCurrencyScale};
    }
}

Decimal ToDecimal(const Variant& value) {
    switch (value.Type()) {
        case VarType::Decimal:
            return value.AsDecimal();
        case VarType::Single:
            return Decimal::FromSingle(value.AsSingle());
        case VarType::Double:
            return Decimal::FromDouble(value.AsDouble());
        case VarType::Date:
            return Decimal::FromDouble(value.AsDate().days);
        case VarType::Currency:
            return DecimalOf(value.AsCurrency());
        case VarType::String:
            return ReadDecimalOrRaise(value.AsText());
        case VarType::Object:
            return ToDecimal(DefaultValue(value));
        default:
            return ToLong(value);
    }
}

Date ToDate(const Variant& value) {
    switch (value.Type()) {
        case VarType::Date:
            return value.AsDate();
        case VarType::String: {
            const std::optional<Date> date = ReadDate(value.AsText());
            return date ? *date : CheckedDate(ReadDoubleOrRaise(value.AsText()));
        }
        case VarType::Object:
            return ToDate(DefaultValue(value));
        default:
            return CheckedDate(ToDouble(value));
    }
}

bool ToBoolean(const Variant& value) {
    switch (value.Type()) {
        case VarType::Boolean:
            return value.AsBoolean();
        case VarType::String:
            if (EqualNoCase(value.AsText(), u"True")) return true;
            if (EqualNoCase(value.AsText(), u"False")) return false;
            return ReadDoubleOrRaise(value.AsText()) != 0;
        case VarType::Decimal:
            return !value.AsDecimal().IsZero();
        case VarType::Object:
            return ToBoolean(DefaultValue(value));
        default:
            return ToDouble(value) != 0;
    }
}

Text ToText(const Variant& value) {
    switch (value.Type()) {
        case VarType::Date:
            return DateToText(value.AsDate());
        case VarType::Error:
            return u"Error " + Text::FromInteger(value.AsError().code);
        case VarType::Object:
            return ToText(DefaultValue(value));
        default:
            return PlainText(value, CurrentLocale().decimal);
    }
}

Text ToInvariantText(double value) {
    return NumberToText(value, kDoubleDigits, u'.');
}

Text ToInvariantText(const Variant& value) {
    return value.IsObject() ? ToInvariantText(DefaultValue(value)) : PlainText(value, u'.');
}

Variant ConvertTo(VarType type, const Variant& value) {
    switch (type) {
        case VarType::Empty:
            return value;
        case VarType::Boolean:
            return ToBoolean(value);
        case VarType::Byte:
            return ToByte(value);
        case VarType::Integer:
            return ToInteger(value);
        case VarType::Long:
            return ToLong(value);
        case VarType::Single:
            return ToSingle(value);
        case VarType::Double:
            return ToDouble(value);
        case VarType::Currency:
            return ToCurrency(value);
        case VarType::Date:
            return ToDate(value);
        case VarType::Decimal:
            return ToDecimal(value);
        case VarType::String:
            return ToText(value);
        case VarType::Object:
            if (value.IsObject()) return value;
            [[fallthrough]];
        default:
            Raise(ErrorNumber::TypeMismatch);
    }
}

bool IsNumeric(const Variant& value) {
    switch (value.Type()) {
        case VarType::Empty:
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Single:
        case VarType::Double:
        case VarType::Currency:
        case VarType::Decimal:
            return true;
        case VarType::String:
            return ReadNumber(value.AsText()).has_value();
        default:
            return false;
    }
}

bool IsDate(const Variant& value) {
    return value.Type() == VarType::Date || (value.IsString() && ReadDate(value.AsText()).has_value());
}

Variant DefaultValue(const Variant& value) {
    // An object that is its own default value would have none ever.
    constexpr int kMostObjects = 64;
    Variant current = value;
    for (int i = 0; current.IsObject(); ++i) {
        if (current.IsNothing()) Raise(ErrorNumber::ObjectVariableNotSet);
        if (i == kMostObjects) Raise(ErrorNumber::NoSuchMember);
        Arguments none;
        current = current.AsObject()->Invoke(kDispIdValue, CallKind::Call, none);
    }
    return current;
}

}  // namespace ov
