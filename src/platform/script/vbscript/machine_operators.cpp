#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "platform/script/vbscript/fast_operators.h"
#include "platform/script/vbscript/foreseen_errors.h"
#include "platform/script/vbscript/forms.h"
#include "platform/script/vbscript/machine.h"

namespace ov::vbscript {

namespace {

Variant Compute(Opcode op, const Variant& a, const Variant& b) {
    switch (op) {
        case Opcode::Add:
            return Add(a, b);
        case Opcode::Subtract:
            return Subtract(a, b);
        case Opcode::Multiply:
            return Multiply(a, b);
        case Opcode::Divide:
            return Divide(a, b);
        case Opcode::IntegerDivide:
            return IntegerDivide(a, b);
        case Opcode::Modulo:
            return Modulo(a, b);
        case Opcode::Power:
            return Power(a, b);
        case Opcode::And:
            return And(a, b);
        case Opcode::Or:
            return Or(a, b);
        case Opcode::Xor:
            return Xor(a, b);
        case Opcode::Eqv:
            return Eqv(a, b);
        case Opcode::Imp:
            return Imp(a, b);
        case Opcode::Is:
            if (!a.IsObject() || !b.IsObject()) Raise(ErrorNumber::ObjectRequired);
            return SameObject(a.AsObject(), b.AsObject());
        case Opcode::Negate:
            return Negate(a);
        default:
            return Not(a);
    }
}

bool Holds(Opcode comparison, std::weak_ordering order) noexcept {
    switch (comparison) {
        case Opcode::Equal:
            return order == 0;
        case Opcode::NotEqual:
            return order != 0;
        case Opcode::Less:
            return order < 0;
        case Opcode::LessEqual:
            return order <= 0;
        case Opcode::Greater:
            return order > 0;
        default:
            return order >= 0;
    }
}

LiteralSide LiteralSideOf(const Instruction& i) noexcept {
    return static_cast<LiteralSide>((i.flags >> kLiteralShift) & 3u);
}

/// The text of an operand of "&".
Text TextOf(const Variant& value) {
    if (value.IsString()) return value.AsText();
    if (value.IsNull()) return Text();
    if (value.Type() == VarType::Error) Raise(ErrorNumber::TypeMismatch);
    return ToText(value);
}

}  // namespace

// An operator by all the rules. Temporary operands end here, so that objects among them do.
void Machine::Operate(const Instruction& i) {
    const Opcode op = GeneralOf(i.op);
    Slot& a = At(i.b);
    Slot& b = IsUnary(op) ? a : At(i.c);
    if (GoesOn() && !a.IsName() && !b.IsName()) {
        if (const auto error = ForeseenError(op, Read(a), Read(b))) return Fail(*error);
    }
    // Two names that are calls would share the place of their values.
    Variant result = a.IsName() ? Compute(op, Variant(Read(a)), Read(b)) : Compute(op, Read(a), Read(b));
    if (i.flags & kFreeB) a.Clear();
    if (i.flags & kFreeC) b.Clear();
    Write(At(i.a), std::move(result));
}

void Machine::Compare(const Instruction& i) {
    Slot& a = At(i.b);
    Slot& b = At(i.c);
    Slot& to = At(i.a);
    std::optional<std::weak_ordering> order;
    if (fast::IsWhole(a.Type()) && fast::IsWhole(b.Type())) {
        order = fast::Whole(a.value) <=> fast::Whole(b.value);
    } else {
        ChargeFor(a);
        order = a.IsName() ? ov::Compare(Variant(Read(a)), Read(b), LiteralSideOf(i))
                           : ov::Compare(Read(a), Read(b), LiteralSideOf(i));
        if (i.flags & kFreeB) a.Clear();
        if (i.flags & kFreeC) b.Clear();
    }
    if (!order) return Write(to, Variant::Null());
    const bool holds = Holds(GeneralOf(i.op), *order);
    if (to.IsValue() && fast::TakesBoolean(to.value)) return to.Put(holds);
    Write(to, Variant(holds));
}

// The comparison of a jump, whose operands are a and b; Null is not True.
bool Machine::Test(const Instruction& i) {
    Slot& a = At(i.a);
    Slot& b = At(i.b);
    ChargeFor(a);
    const std::optional<std::weak_ordering> order = a.IsName()
                                                        ? ov::Compare(Variant(Read(a)), Read(b), LiteralSideOf(i))
                                                        : ov::Compare(Read(a), Read(b), LiteralSideOf(i));
    if (i.flags & kFreeB) a.Clear();
    if (i.flags & kFreeC) b.Clear();
    if (!order) return false;
    const Opcode op = GeneralOf(i.op);
    const auto distance = static_cast<unsigned>(op) - static_cast<unsigned>(Opcode::JumpUnlessEqual);
    const Opcode comparison = op == Opcode::JumpWhenEqual
                                  ? Opcode::Equal
                                  : static_cast<Opcode>(static_cast<unsigned>(Opcode::Equal) + distance);
    return Holds(comparison, *order);
}

bool Machine::IsTrue(const Instruction& i) {
    Slot& slot = At(i.a);
    if (slot.Type() == VarType::Boolean) return slot.value.AsBoolean();
    const Variant& value = Read(slot);
    if (value.IsNull()) return false;
    const bool result = ToBoolean(value);
    if (i.flags & kFreeA) slot.Clear();
    return result;
}

void Machine::Concatenate(const Instruction& i) {
    Slot& a = At(i.b);
    Slot& b = At(i.c);
    ChargeFor(b);
    if (i.a == i.b) {  // s = s & x grows in place
        Variant& variable = VariableOf(a);
        if (variable.IsString()) {
            const Variant& addition = Read(b);
            if (addition.IsString()) {
                const Text kept = addition.AsText();
                variable.AsText() += kept;
            } else {
                const Text text = TextOf(addition);
                if (!variable.IsString()) return Operate(i);
                variable.AsText() += text;
            }
            if (i.flags & kFreeC) b.Clear();
            return;
        }
    }
    ChargeFor(a);
    Variant result = a.IsName() ? ov::Concatenate(Variant(Read(a)), Read(b)) : ov::Concatenate(Read(a), Read(b));
    if (i.flags & kFreeB) a.Clear();
    if (i.flags & kFreeC) b.Clear();
    Write(At(i.a), std::move(result));
}

void Machine::ConcatenateAll(const Instruction& i) {
    Slot* const parts = mTop->slots + i.b;
    bool allNull = true;
    Text joined;
    for (std::size_t k = 0; k < i.c; ++k) {
        const Variant& part = parts[k].value;
        allNull = allNull && part.IsNull();
        joined += TextOf(part);
    }
    ClearSlots(parts, i.c);
    Charge(joined.size() * sizeof(char16_t));
    Write(At(i.a), allNull ? Variant::Null() : Variant(std::move(joined)));
}

void Machine::Append(const Instruction& i) {
    Slot* const parts = mTop->slots + i.b;
    Variant& variable = VariableOf(At(i.a));
    bool allNull = variable.IsNull();
    Text joined;
    for (std::size_t k = 0; k < i.c; ++k) {
        const Variant& part = parts[k].value;
        allNull = allNull && part.IsNull();
        joined += TextOf(part);
    }
    ClearSlots(parts, i.c);
    Charge(joined.size() * sizeof(char16_t));
    if (variable.IsString()) {
        variable.AsText() += joined;
    } else {
        Store(variable, allNull ? Variant::Null() : Variant(TextOf(variable) + joined));
    }
}

}  // namespace ov::vbscript
