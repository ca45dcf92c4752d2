#include "platform/script/vbscript/foreseen_errors.h"

#include "platform/automation/number_text.h"
#include "platform/script/vbscript/fast_operators.h"

namespace ov::vbscript {

namespace {

bool IsPlainNumber(const Variant& value) noexcept {
    return fast::IsWhole(value.Type()) || value.Type() == VarType::Double;
}

bool IsWord(const Variant& value) noexcept {
    NumberText number;
    return value.IsString() && !ReadNumberText(value.AsText(), number);
}

bool IsZero(const Variant& value) noexcept {
    return value.Type() == VarType::Double ? value.AsDouble() == 0 : fast::Whole(value) == 0;
}

}  // namespace

std::optional<ErrorNumber> ForeseenError(Opcode op, const Variant& a, const Variant& b) noexcept {
    if (op < Opcode::Add || op > Opcode::Modulo) return std::nullopt;
    if ((IsPlainNumber(a) && IsWord(b)) || (IsWord(a) && IsPlainNumber(b))) {
        // A Double that is no Long may come first.
        const bool isWhole = fast::IsWhole(a.Type()) || a.IsString();
        return isWhole || op < Opcode::IntegerDivide ? std::optional(ErrorNumber::TypeMismatch) : std::nullopt;
    }
    const bool divides = op >= Opcode::Divide && (op == Opcode::Divide || fast::IsWhole(a.Type()));
    if (!divides || !IsPlainNumber(a) || !IsPlainNumber(b) || !IsZero(b)) return std::nullopt;
    return op == Opcode::Divide && IsZero(a) ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero;
}

}  // namespace ov::vbscript
