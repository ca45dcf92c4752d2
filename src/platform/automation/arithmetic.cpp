#include <cmath>
#include <limits>

#include "platform/automation/conversions.h"
#include "platform/automation/date_text.h"
#include "platform/automation/errors.h"
#include "platform/automation/operand_types.h"
#include "platform/automation/operators.h"
#include "platform/automation/rounding.h"

namespace ov {

namespace {

using BinaryOperator = Variant (*)(const Variant&, const Variant&);

/// Null on either side is the result; objects stand for their default values; the rest is up to @p Combine.
template <BinaryOperator Combine>
Variant CombineValues(const Variant& a, const Variant& b) {
    if (a.IsNull() || b.IsNull()) return Variant::Null();
    if (a.IsObject() || b.IsObject()) {
        const Variant left = DefaultValue(a);  // before that of the right side, which may be a call, too
        return CombineValues<Combine>(left, DefaultValue(b));
    }
    return Combine(a, b);
}

/// A whole number in the first of @p type and the wider types that holds it: Byte, Integer, Long, Double.
Variant Widen(VarType type, std::int64_t number) noexcept {
    if (type == VarType::Byte && number >= 0 && number <= std::numeric_limits<std::uint8_t>::max()) {
        return static_cast<std::uint8_t>(number);
    }
    const auto asInteger = static_cast<std::int16_t>(number);
    if (type != VarType::Long && asInteger == number) return asInteger;
    const auto asLong = static_cast<std::int32_t>(number);
    if (asLong == number) return asLong;
    return static_cast<double>(number);
}

/// @throws RuntimeError 6 if the operation on two finite numbers went beyond the range.
double Checked(double result, double a, double b) {
    if (!std::isfinite(result) && std::isfinite(a) && std::isfinite(b)) Raise(ErrorNumber::Overflow);
    return result;
}

/// A result of Singles, computed as Double: a Single again if it fits.
Variant NarrowToSingle(double result) noexcept {
    const auto single = static_cast<float>(result);
    if (std::isinf(single) && std::isfinite(result)) return result;
    return single;
}

/// A result of Dates, or a Double where it is none.
Variant NarrowToDate(double result) noexcept {
    if (!IsDateNumber(result)) return result;
    return Date{result};
}

struct Plus {
    static std::int64_t Whole(std::int64_t a, std::int64_t b) noexcept { return a + b; }
    static double Floating(double a, double b) noexcept { return a + b; }
    static Int128 Scaled(std::int64_t a, std::int64_t b) noexcept { return Int128{a} + b; }
    static Decimal Exact(const Decimal& a, const Decimal& b) { return a + b; }
};

struct Minus {
    static std::int64_t Whole(std::int64_t a, std::int64_t b) noexcept { return a - b; }
    static double Floating(double a, double b) noexcept { return a - b; }
    static Int128 Scaled(std::int64_t a, std::int64_t b) noexcept { return Int128{a} - b; }
    static Decimal Exact(const Decimal& a, const Decimal& b) { return a - b; }
};

struct Times {
    static std::int64_t Whole(std::int64_t a, std::int64_t b) noexcept { return a * b; }
    static double Floating(double a, double b) noexcept { return a * b; }
    static Int128 Scaled(std::int64_t a, std::int64_t b) noexcept {
        return DivideHalfEven(Int128{a} * b, Int128{10'000});
    }
    static Decimal Exact(const Decimal& a, const Decimal& b) { return a * b; }
};

/// Computes in @p type what both operands convert to.
template <class Operation>
Variant ComputeIn(VarType type, const Variant& a, const Variant& b) {
    switch (type) {
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return Widen(type, Operation::Whole(ToLong(a), ToLong(b)));
        case VarType::Currency: {
            const std::int64_t left = ToCurrency(a).scaled;
            const Int128 scaled = Operation::Scaled(left, ToCurrency(b).scaled);
            if (scaled != static_cast<std::int64_t>(scaled)) Raise(ErrorNumber::Overflow);
            return Currency{static_cast<std::int64_t>(scaled)};
        }
        case VarType::Decimal: {
            const Decimal left = ToDecimal(a);
            return Operation::Exact(left, ToDecimal(b));
        }
        default:
            break;
    }
    const double left = ToDouble(a);
    const double right = ToDouble(b);
    const double result = Checked(Operation::Floating(left, right), left, right);
    if (type == VarType::Single) return NarrowToSingle(result);
    return type == VarType::Date ? NarrowToDate(result) : Variant(result);
}

Variant AddValues(const Variant& a, const Variant& b) {
    if (a.IsString() && b.IsString()) return a.AsText() + b.AsText();
    if (a.IsString() && b.IsEmpty()) return a;
    if (a.IsEmpty() && b.IsString()) return b;
    return ComputeIn<Plus>(SumType(a, b), a, b);
}

Variant SubtractValues(const Variant& a, const Variant& b) {
    const bool bothDates = a.Type() == VarType::Date && b.Type() == VarType::Date;
    return ComputeIn<Minus>(bothDates ? VarType::Double : SumType(a, b), a, b);
}

Variant MultiplyValues(const Variant& a, const Variant& b) {
    return ComputeIn<Times>(ProductType(a, b), a, b);
}

Variant DivideValues(const Variant& a, const Variant& b) {
    const VarType type = QuotientType(a, b);
    if (type == VarType::Decimal) {
        const Decimal dividend = ToDecimal(a);
        const Decimal divisor = ToDecimal(b);
        if (dividend.IsZero() && divisor.IsZero()) Raise(ErrorNumber::Overflow);
        return dividend / divisor;
    }
    const double dividend = ToDouble(a);
    const double divisor = ToDouble(b);
    if (divisor == 0) Raise(dividend == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    const double quotient = Checked(dividend / divisor, dividend, divisor);
    return type == VarType::Single ? NarrowToSingle(quotient) : Variant(quotient);
}

Variant IntegerDivideValues(const Variant& a, const Variant& b) {
    const VarType type = WholeQuotientType(a, b);
    const std::int64_t dividend = ToLong(a);
    const std::int64_t divisor = ToLong(b);
    if (divisor == 0) Raise(ErrorNumber::DivisionByZero);
    Variant quotient = Widen(type, dividend / divisor);
    // The least Long by -1: the result of this operator is never a Double.
    if (quotient.Type() == VarType::Double) Raise(ErrorNumber::Overflow);
    return quotient;
}

Variant ModuloValues(const Variant& a, const Variant& b) {
    const VarType type = WholeQuotientType(a, b);
    const std::int64_t dividend = ToLong(a);
    const std::int64_t divisor = ToLong(b);
    if (divisor == 0) Raise(ErrorNumber::DivisionByZero);
    return Widen(type, dividend % divisor);
}

Variant PowerOfValues(const Variant& a, const Variant& b) {
    const double base = ToDouble(a);
    const double exponent = ToDouble(b);
    const bool noResult = (base < 0 && exponent != std::trunc(exponent)) || (base == 0 && exponent < 0);
    if (noResult) Raise(ErrorNumber::InvalidProcedureCall);
    return Checked(std::pow(base, exponent), base, exponent);
}

/// The common operators: what loops and rules do most goes first, everything else by the tables.
template <class Operation, BinaryOperator Combine>
Variant Compute(const Variant& a, const Variant& b) {
    // Fast path: whole numbers.
    if (IsCounter(a) && IsCounter(b)) {
        const VarType type = a.Type() == b.Type() ? a.Type() : VarType::Long;
        return Widen(type, Operation::Whole(CounterValue(a), CounterValue(b)));
    }
    // Fast path: two Doubles.
    if (a.Type() == VarType::Double && b.Type() == VarType::Double) {
        return Checked(Operation::Floating(a.AsDouble(), b.AsDouble()), a.AsDouble(), b.AsDouble());
    }
    return CombineValues<Combine>(a, b);
}

}  // namespace

Variant Add(const Variant& a, const Variant& b) {
    return Compute<Plus, AddValues>(a, b);
}
Variant Subtract(const Variant& a, const Variant& b) {
    return Compute<Minus, SubtractValues>(a, b);
}
Variant Multiply(const Variant& a, const Variant& b) {
    return Compute<Times, MultiplyValues>(a, b);
}
Variant Divide(const Variant& a, const Variant& b) {
    return CombineValues<DivideValues>(a, b);
}
Variant IntegerDivide(const Variant& a, const Variant& b) {
    return CombineValues<IntegerDivideValues>(a, b);
}
Variant Modulo(const Variant& a, const Variant& b) {
    return CombineValues<ModuloValues>(a, b);
}
Variant Power(const Variant& a, const Variant& b) {
    return CombineValues<PowerOfValues>(a, b);
}

Variant Negate(const Variant& a) {
    switch (a.Type()) {
        case VarType::Null:
            return a;
        case VarType::Object:
            return Negate(DefaultValue(a));
        case VarType::Long:
            return Widen(VarType::Long, -std::int64_t{a.AsLong()});
        case VarType::Single:
            return -a.AsSingle();
        case VarType::Date:
            return NarrowToDate(-a.AsDate().days);
        case VarType::Currency:
            if (a.AsCurrency().scaled == std::numeric_limits<std::int64_t>::min()) Raise(ErrorNumber::Overflow);
            return Currency{-a.AsCurrency().scaled};
        case VarType::Decimal:
            return -a.AsDecimal();
        case VarType::Double:
        case VarType::String:
            return -ToDouble(a);
        default:
            return Widen(VarType::Integer, -std::int64_t{ToLong(a)});
    }
}

Variant Identity(const Variant& a) {
    switch (a.Type()) {
        case VarType::Object:
            return Identity(DefaultValue(a));
        case VarType::String:
            return ToDouble(a);
        case VarType::Empty:
        case VarType::Boolean:
            return static_cast<std::int16_t>(ToLong(a));
        case VarType::Array:
        case VarType::Error:
        case VarType::Missing:
            return ToLong(a);  // raises what such an operand raises
        default:
            return a;
    }
}

Variant Concatenate(const Variant& a, const Variant& b) {
    // Fast path: two texts.
    if (a.IsString() && b.IsString()) return a.AsText() + b.AsText();
    if (a.IsNull() && b.IsNull()) return a;
    const auto textOf = [](const Variant& side) {
        if (side.Type() == VarType::Error) Raise(ErrorNumber::TypeMismatch);
        return side.IsNull() ? Text() : ToText(side);
    };
    const Text left = textOf(a);
    return left + textOf(b);
}

}  // namespace ov
