#include <array>

#include "platform/automation/dispatch.h"
#include "platform/functions/arguments.h"
#include "platform/functions/themes.h"

namespace ov::vbscript {

namespace {

/// An argument as a value if it is one or its object has one; an object without a default value stays.
const Variant& InspectedAt(std::span<Variant> arguments, std::size_t index) {
    const Variant& value = arguments[index];
    if (!value.IsObject() || value.IsNothing()) return value;
    try {
        return ValueAt(arguments, index);
    } catch (const RuntimeError& error) {
        switch (static_cast<ErrorNumber>(error.number())) {
            case ErrorNumber::NoSuchMember:
            case ErrorNumber::ArgumentNotOptional:
            case ErrorNumber::WrongArgumentCount:
            case ErrorNumber::ObjectVariableNotSet:
                return value;
            default:
                throw;
        }
    }
}

Variant IsArray(BuiltinContext&, std::span<Variant> arguments) {
    return arguments[0].IsArray();
}
Variant IsObject(BuiltinContext&, std::span<Variant> arguments) {
    return arguments[0].IsObject();
}
Variant IsEmpty(BuiltinContext&, std::span<Variant> arguments) {
    return InspectedAt(arguments, 0).IsEmpty();
}
Variant IsNull(BuiltinContext&, std::span<Variant> arguments) {
    return InspectedAt(arguments, 0).IsNull();
}
Variant IsDateValue(BuiltinContext&, std::span<Variant> arguments) {
    return IsDate(InspectedAt(arguments, 0));
}
Variant IsNumericValue(BuiltinContext&, std::span<Variant> arguments) {
    return IsNumeric(InspectedAt(arguments, 0));
}

/// The number of a type as scripts see it.
std::int16_t TypeNumber(VarType type) noexcept {
    return static_cast<std::int16_t>(type == VarType::Missing ? VarType::Error : type);
}

Variant VarTypeOf(BuiltinContext&, std::span<Variant> arguments) {
    constexpr std::int16_t kVariant = 12;
    const Variant& value = InspectedAt(arguments, 0);
    if (!value.IsArray()) return TypeNumber(value.Type());
    const VarType element = value.AsArray().ElementType();
    const std::int16_t number = element == VarType::Empty ? kVariant : TypeNumber(element);
    return static_cast<std::int16_t>(TypeNumber(VarType::Array) + number);
}

Variant TypeName(BuiltinContext&, std::span<Variant> arguments) {
    return TypeNameOf(arguments[0]);
}

std::u16string_view NameOf(VarType type) noexcept {
    switch (type) {
        case VarType::Empty:
            return u"Empty";
        case VarType::Null:
            return u"Null";
        case VarType::Integer:
            return u"Integer";
        case VarType::Long:
            return u"Long";
        case VarType::Single:
            return u"Single";
        case VarType::Double:
            return u"Double";
        case VarType::Currency:
            return u"Currency";
        case VarType::Date:
            return u"Date";
        case VarType::String:
            return u"String";
        case VarType::Object:
            return u"Object";
        case VarType::Boolean:
            return u"Boolean";
        case VarType::Decimal:
            return u"Decimal";
        case VarType::Byte:
            return u"Byte";
        default:
            return u"Error";
    }
}

constexpr std::array kBuiltins = {
    Builtin{u"IsArray", 1, 1, &IsArray},          Builtin{u"IsDate", 1, 1, &IsDateValue},
    Builtin{u"IsEmpty", 1, 1, &IsEmpty},          Builtin{u"IsNull", 1, 1, &IsNull},
    Builtin{u"IsNumeric", 1, 1, &IsNumericValue}, Builtin{u"IsObject", 1, 1, &IsObject},
    Builtin{u"TypeName", 1, 1, &TypeName},        Builtin{u"VarType", 1, 1, &VarTypeOf},
};

}  // namespace

std::span<const Builtin> InspectionBuiltins() noexcept {
    return kBuiltins;
}

Text TypeNameOf(const Variant& value) {
    if (value.IsNothing()) return u"Nothing";
    if (value.IsObject()) return value.AsObject()->ClassName();
    if (!value.IsArray()) return NameOf(value.Type());
    const VarType element = value.AsArray().ElementType();
    return Text(element == VarType::Empty ? u"Variant" : NameOf(element)) + u"()";
}

}  // namespace ov::vbscript
