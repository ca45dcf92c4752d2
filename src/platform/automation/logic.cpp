#include "platform/automation/conversions.h"
#include "platform/automation/operand_types.h"
#include "platform/automation/operators.h"

namespace ov {

namespace {

/// The result @p bits in one of the types that BitwiseType gives.
Variant Bits(VarType type, std::int32_t bits) noexcept {
    switch (type) {
        case VarType::Boolean:
            return bits != 0;
        case VarType::Byte:
            return static_cast<std::uint8_t>(bits);
        case VarType::Integer:
            return static_cast<std::int16_t>(bits);
        default:
            return bits;
    }
}

/// @p a in the type in which the logical operators see it.
Variant AsBits(const Variant& a) {
    return Bits(BitwiseType(a, a), ToLong(a));
}

template <class Operation>
Variant Combine(const Variant& a, const Variant& b, Operation operation) {
    // Fast path: results of comparisons.
    if (a.Type() == VarType::Boolean && b.Type() == VarType::Boolean) {
        return (operation(a.AsBoolean() ? -1 : 0, b.AsBoolean() ? -1 : 0) & 1) != 0;
    }
    const VarType type = BitwiseType(a, b);
    return Bits(type, operation(ToLong(a), ToLong(b)));
}

// What decides a logical operator although its other side is Null: the operand if it is zero, or if it is not, in the
// type in which the operator sees it. Else the result is Null.

Variant IfZero(const Variant& operand) {
    if (operand.IsNull()) return operand;
    return ToLong(operand) == 0 ? AsBits(operand) : Variant::Null();
}

Variant IfNotZero(const Variant& operand) {
    if (operand.IsNull()) return operand;
    return ToLong(operand) != 0 ? AsBits(operand) : Variant::Null();
}

using BinaryOperator = Variant (*)(const Variant&, const Variant&);

/// The operator on the default values of objects.
Variant OnDefaultValues(BinaryOperator operation, const Variant& a, const Variant& b) {
    const Variant left = DefaultValue(a);
    return operation(left, DefaultValue(b));
}

}  // namespace

Variant Not(const Variant& a) {
    if (a.IsNull()) return a;
    if (a.IsObject()) return Not(DefaultValue(a));
    return Bits(BitwiseType(a, a), ~ToLong(a));
}

Variant And(const Variant& a, const Variant& b) {
    if (a.IsObject() || b.IsObject()) return OnDefaultValues(And, a, b);
    if (a.IsNull()) return IfZero(b);
    if (b.IsNull()) return IfZero(a);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return x & y; });
}

Variant Or(const Variant& a, const Variant& b) {
    if (a.IsObject() || b.IsObject()) return OnDefaultValues(Or, a, b);
    if (a.IsNull()) return IfNotZero(b);
    if (b.IsNull()) return IfNotZero(a);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return x | y; });
}

Variant Xor(const Variant& a, const Variant& b) {
    if (a.IsNull() || b.IsNull()) return Variant::Null();
    if (a.IsObject() || b.IsObject()) return OnDefaultValues(Xor, a, b);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return x ^ y; });
}

Variant Eqv(const Variant& a, const Variant& b) {
    if (a.IsNull() || b.IsNull()) return Variant::Null();
    if (a.IsObject() || b.IsObject()) return OnDefaultValues(Eqv, a, b);
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return ~(x ^ y); });
}

Variant Imp(const Variant& a, const Variant& b) {
    if (a.IsObject() || b.IsObject()) return OnDefaultValues(Imp, a, b);
    if (a.IsNull()) return IfNotZero(b);
    if (b.IsNull()) return Not(IfZero(a));
    return Combine(a, b, [](std::int32_t x, std::int32_t y) { return ~x | y; });
}

}  // namespace ov
