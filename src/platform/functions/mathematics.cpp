#include <algorithm>
#include <array>
#include <cmath>

#include "platform/automation/operators.h"
#include "platform/automation/rounding.h"
#include "platform/format/round_to_places.h"
#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"

namespace ov::vbscript {

namespace {

constexpr std::int64_t kCurrencyScale = 10'000;

/// A function of one Double. @throws RuntimeError 6 where the result is beyond the range
template <auto Function>
Variant OfDouble(BuiltinContext&, std::span<Variant> arguments) {
    const double number = ToDouble(arguments[0]);
    const double result = Function(number);
    if (!std::isfinite(result) && std::isfinite(number)) Raise(ErrorNumber::Overflow);
    return result;
}

double SquareRoot(double number) {
    if (number < 0) Raise(ErrorNumber::InvalidProcedureCall);
    return std::sqrt(number);
}

double NaturalLogarithm(double number) {
    if (number <= 0) Raise(ErrorNumber::InvalidProcedureCall);
    return std::log(number);
}

/// A number in its own type; text is a Double, Empty and a Boolean are an Integer. Null stays Null.
Variant NumberAt(std::span<Variant> arguments, std::size_t index) {
    return Identity(ValueAt(arguments, index));
}

/// -1, 0 or 1; 0 for what is no number.
int SignOf(const Variant& number) {
    const double size = ToDouble(number);
    return (size > 0 ? 1 : 0) - (size < 0 ? 1 : 0);
}

Variant Abs(BuiltinContext&, std::span<Variant> arguments) {
    const Variant number = NumberAt(arguments, 0);
    if (number.IsNull()) return number;
    if (number.Type() == VarType::Double) return std::abs(number.AsDouble());  // of -0, too
    return SignOf(number) < 0 ? Negate(number) : number;
}

Variant Sgn(BuiltinContext&, std::span<Variant> arguments) {
    const Variant number = NumberAt(arguments, 0);
    return static_cast<std::int16_t>(SignOf(number));
}

/// The whole part by @p Whole, which is floor or trunc, in the number's own type.
template <double (*Whole)(double), Decimal (*WholeDecimal)(const Decimal&)>
Variant WholePart(BuiltinContext&, std::span<Variant> arguments) {
    const Variant number = NumberAt(arguments, 0);
    switch (number.Type()) {
        case VarType::Single:
            return static_cast<float>(Whole(static_cast<double>(number.AsSingle())));
        case VarType::Double:
            return Whole(number.AsDouble());
        case VarType::Date:
            return ToDate(Variant(Whole(number.AsDate().days)));
        case VarType::Currency:
            return ToCurrency(Variant(WholeDecimal(ToDecimal(number))));
        case VarType::Decimal:
            return WholeDecimal(number.AsDecimal());
        default:
            return number;
    }
}

double FloorOf(double number) {
    return std::floor(number);
}
double TruncatedOf(double number) {
    return std::trunc(number);
}
Decimal DecimalFloorOf(const Decimal& number) {
    return number.Floor();
}
Decimal DecimalTruncatedOf(const Decimal& number) {
    return number.Fix();
}

Currency RoundCurrency(Currency amount, int places) {
    std::int64_t unit = kCurrencyScale;
    for (int place = 0; place < places && unit > 1; ++place) {
        unit /= 10;
    }
    const Int128 rounded = Int128{DivideHalfEven(amount.scaled, unit)} * unit;
    if (rounded != static_cast<std::int64_t>(rounded)) Raise(ErrorNumber::Overflow);
    return {static_cast<std::int64_t>(rounded)};
}

Variant Round(BuiltinContext&, std::span<Variant> arguments) {
    const Variant number = NumberAt(arguments, 0);
    const std::int32_t places = LongOr(arguments, 1, 0);
    if (places < 0) Raise(ErrorNumber::InvalidProcedureCall);
    switch (number.Type()) {
        case VarType::Single:
            return static_cast<float>(RoundToPlaces(static_cast<double>(number.AsSingle()), places));
        case VarType::Double:
            return RoundToPlaces(number.AsDouble(), places);
        case VarType::Date:
            return ToDate(Variant(RoundToPlaces(number.AsDate().days, places)));
        case VarType::Currency:
            return RoundCurrency(number.AsCurrency(), places);
        case VarType::Decimal:
            return number.AsDecimal().Round(std::min(places, Decimal::kMaxScale));
        default:
            return number;
    }
}

constexpr std::array kBuiltins = {
    Builtin{u"Abs", 1, 1, &Abs},
    Builtin{u"Atn", 1, 1, &OfDouble<[](double x) { return std::atan(x); }>},
    Builtin{u"Cos", 1, 1, &OfDouble<[](double x) { return std::cos(x); }>},
    Builtin{u"Exp", 1, 1, &OfDouble<[](double x) { return std::exp(x); }>},
    Builtin{u"Fix", 1, 1, &WholePart<&TruncatedOf, &DecimalTruncatedOf>},
    Builtin{u"Int", 1, 1, &WholePart<&FloorOf, &DecimalFloorOf>},
    Builtin{u"Log", 1, 1, &OfDouble<&NaturalLogarithm>},
    Builtin{u"Round", 1, 2, &Round},
    Builtin{u"Sgn", 1, 1, &Sgn},
    Builtin{u"Sin", 1, 1, &OfDouble<[](double x) { return std::sin(x); }>},
    Builtin{u"Sqr", 1, 1, &OfDouble<&SquareRoot>},
    Builtin{u"Tan", 1, 1, &OfDouble<[](double x) { return std::tan(x); }>},
};

}  // namespace

std::span<const Builtin> MathematicsBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
