/// @file
/// The types that a parameter's value can have.
#pragma once

#include <cstdint>

#include "parameters/parameter_owner.h"
#include "platform/automation/conversions.h"

namespace ov {

/// How a value of type @p T is asked of a rule and made of other values.
template <class T>
struct ValueType;

template <>
struct ValueType<std::int32_t> {
    static constexpr VarType kType = VarType::Long;
    static std::int32_t From(const Variant& value) { return ToLong(value); }
    static std::int32_t FromScript(ParameterOwner& owner, const Text& text, const Variant& id) {
        return owner.GetLongFromScript(text, id);
    }
};

template <>
struct ValueType<double> {
    static constexpr VarType kType = VarType::Double;
    static double From(const Variant& value) { return ToDouble(value); }
    static double FromScript(ParameterOwner& owner, const Text& text, const Variant& id) {
        return owner.GetDoubleFromScript(text, id);
    }
};

template <>
struct ValueType<Decimal> {
    static constexpr VarType kType = VarType::Decimal;
    static Decimal From(const Variant& value) { return ToDecimal(value); }
    static Decimal FromScript(ParameterOwner& owner, const Text& text, const Variant& id) {
        return ToDecimal(owner.GetDecimalFromScript(text, id));
    }
};

template <>
struct ValueType<Text> {
    static constexpr VarType kType = VarType::String;
    static Text From(const Variant& value) { return ToText(value); }
};

}  // namespace ov
