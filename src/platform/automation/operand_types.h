/// @file
/// Which type the result of an operator has: the promotion rules of the rule language, in one place.
#pragma once

#include "platform/automation/variant.h"

namespace ov {

// Each function gives the type of the result before any widening, and so the type in which the operator computes.
// Operands are values: neither Null nor an object. @throws RuntimeError 13 for an array or an error code, 448 for
// Missing.

/// Of "+" and "-". Two Strings under "+" and the difference of two Dates are the operators' own affair.
VarType SumType(const Variant& a, const Variant& b);
/// Of "*".
VarType ProductType(const Variant& a, const Variant& b);
/// Of "/": Double, or Single or Decimal.
VarType QuotientType(const Variant& a, const Variant& b);
/// Of "\" and "Mod": Byte, Integer or Long.
VarType WholeQuotientType(const Variant& a, const Variant& b);
/// Of the logical operators: Boolean, Byte, Integer or Long.
VarType BitwiseType(const Variant& a, const Variant& b);

/// True for the two types that a script's counters and whole literals have.
inline bool IsCounter(const Variant& value) noexcept {
    return value.Type() == VarType::Integer || value.Type() == VarType::Long;
}
/// @pre IsCounter(value)
inline std::int32_t CounterValue(const Variant& value) noexcept {
    return value.Type() == VarType::Integer ? value.AsInteger() : value.AsLong();
}

}  // namespace ov
