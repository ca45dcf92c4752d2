#include <cmath>

#include "platform/automation/conversions.h"
#include "platform/automation/operand_types.h"
#include "platform/automation/operators.h"

namespace ov {

namespace {

using Order = std::weak_ordering;

/// What is no number stands before all numbers and equals itself, so that every pair has an order.
template <class Floating>
Order OrderOf(Floating a, Floating b) noexcept {
    if (a < b) return Order::less;
    if (a > b) return Order::greater;
    if (a == b) return Order::equivalent;
    return std::isnan(b) <=> std::isnan(a);
}

/// True for Empty and the types whose values a Long holds.
bool IsWhole(VarType type) noexcept {
    switch (type) {
        case VarType::Empty:
        case VarType::Boolean:
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return true;
        default:
            return false;
    }
}

/// Sets @p a and @p b beside each other as decimal numbers; if one is beyond their range, as Doubles.
Order CompareAsDecimals(const Variant& a, const Variant& b) {
    constexpr double kBeyond = 7.9e28;
    const auto fits = [](const Variant& value) {
        return value.Type() == VarType::Decimal || std::abs(ToDouble(value)) < kBeyond;
    };
    if (!fits(a) || !fits(b)) return OrderOf(ToDouble(a), ToDouble(b));
    return ToDecimal(a) <=> ToDecimal(b);
}

/// The same with amounts: a Double counts as it is rounded to four places.
Order CompareAsCurrencies(const Variant& a, const Variant& b) {
    constexpr double kBeyond = 922337203685477.0;
    const auto fits = [](const Variant& value) {
        return value.Type() == VarType::Currency || std::abs(ToDouble(value)) < kBeyond;
    };
    if (!fits(a) || !fits(b)) return OrderOf(ToDouble(a), ToDouble(b));
    return ToCurrency(a).scaled <=> ToCurrency(b).scaled;
}

Order CompareNumbers(const Variant& a, const Variant& b) {
    const auto either = [&](VarType type) { return a.Type() == type || b.Type() == type; };
    if (IsWhole(a.Type()) && IsWhole(b.Type())) return ToLong(a) <=> ToLong(b);
    if (either(VarType::Decimal)) return CompareAsDecimals(a, b);
    if (either(VarType::Currency) && !either(VarType::Date)) return CompareAsCurrencies(a, b);
    const double left = ToDouble(a);
    const double right = ToDouble(b);
    // Beside a Single, a Double is rounded to its precision.
    if (either(VarType::Single) && either(VarType::Double)) {
        return OrderOf(static_cast<float>(left), static_cast<float>(right));
    }
    return OrderOf(left, right);
}

Order OrderOfTexts(std::u16string_view a, std::u16string_view b) noexcept {
    return a.compare(b) <=> 0;
}

/// One side is text, the other one neither text nor Null.
Order CompareTextWith(const Variant& text, const Variant& other, LiteralSide literal) {
    if (other.IsEmpty()) return OrderOfTexts(text.AsText(), {});
    switch (literal) {
        case LiteralSide::Number:
            return CompareNumbers(ToDouble(text), other);
        case LiteralSide::Text:
            return OrderOfTexts(text.AsText(), ToText(other));
        case LiteralSide::Case:
            if (const std::optional<double> number = ReadNumber(text.AsText())) return CompareNumbers(*number, other);
            break;
        case LiteralSide::None:
            break;
    }
    return Order::greater;
}

void RequireValue(const Variant& value) {
    if (value.IsArray() || value.Type() == VarType::Error || value.IsMissing()) ToLong(value);
}

}  // namespace

std::optional<std::weak_ordering> Compare(const Variant& a, const Variant& b, LiteralSide literal) {
    // Fast path: whole numbers, then Doubles and texts.
    if (IsCounter(a) && IsCounter(b)) return CounterValue(a) <=> CounterValue(b);
    if (a.Type() == b.Type()) {
        if (a.Type() == VarType::Double) return OrderOf(a.AsDouble(), b.AsDouble());
        if (a.IsString()) return a.AsText() <=> b.AsText();
    }
    if (a.IsNull() || b.IsNull()) return std::nullopt;
    if (a.IsObject() || b.IsObject()) {
        const Variant left = DefaultValue(a);
        return Compare(left, DefaultValue(b), literal);
    }
    RequireValue(a);
    RequireValue(b);
    if (a.IsString()) return CompareTextWith(a, b, literal);
    if (b.IsString()) {
        const Order reversed = CompareTextWith(b, a, literal);
        return std::is_lt(reversed) ? Order::greater : std::is_gt(reversed) ? Order::less : reversed;
    }
    return CompareNumbers(a, b);
}

bool EqualValues(const Variant& a, const Variant& b) {
    const std::optional<std::weak_ordering> order = Compare(a, b);
    return order && std::is_eq(*order);
}

}  // namespace ov
