#include <algorithm>

#include "platform/script/vbscript/compiler.h"
#include "platform/script/vbscript/limits.h"

namespace ov::vbscript {

namespace {

constexpr std::uint16_t kUnqualifiedReference = 505;

std::uint16_t Count(std::span<Expression* const> arguments) {
    return static_cast<std::uint16_t>(arguments.size());
}

}  // namespace

// A call or a member whose result goes to `window`, the topmost slot.
void ProcedureCompiler::Call(const Expression& expression, std::uint16_t window, std::uint8_t flags) {
    const bool hasBrackets = expression.kind == ExpressionKind::Call;
    const Expression& callee = hasBrackets ? *expression.left : expression;
    const std::span<Expression* const> arguments = expression.arguments;
    if (!hasBrackets) flags |= kBare;
    if (arguments.size() > kMaxArguments) Fail(CompileError::OutOfMemory, expression.position);
    const Elements elements = PrepareElements(callee, arguments);
    if (elements.empty()) return CallWithin(callee, arguments, window, flags, elements);
    const std::uint16_t inner = NewTemp();
    CallWithin(callee, arguments, inner, flags, elements);
    PutBack(elements);
    if (!(flags & kDiscard)) Emit(Opcode::Move, Slot(window), Slot(inner), {}, kFreeB);
    mTop = window + 1u;
}

void ProcedureCompiler::CallWithin(const Expression& callee, std::span<Expression* const> arguments,
                                   std::uint16_t window, std::uint8_t flags, const Elements& elements) {
    switch (callee.kind) {
        case ExpressionKind::Name: {
            const Meaning meaning = Find(callee.name);
            const bool isRecursion = IsOwnResult(callee.name);
            if (meaning.kind == Meaning::Kind::ClassMember || (isRecursion && mOwner)) {
                Emit(Opcode::LoadMe, window);
                PassArguments(arguments, window + 1u, elements);
                Emit(Opcode::CallMember, window, SiteIndex(callee.name), Count(arguments), flags | kOwn);
            } else if (isRecursion || meaning.kind == Meaning::Kind::Global || meaning.kind == Meaning::Kind::Open) {
                CallName(callee, arguments, window, flags, elements);
            } else {
                CallVariable(callee, meaning, arguments, window, flags, elements);
            }
            break;
        }
        case ExpressionKind::Member:
        case ExpressionKind::WithMember:
            flags |= ObjectToTemp(callee, window);
            PassArguments(arguments, window + 1u, elements);
            Emit(Opcode::CallMember, window, SiteIndex(callee.name), Count(arguments), flags);
            break;
        default:
            ToTemp(callee, window);
            PassArguments(arguments, window + 1u, elements);
            Emit(Opcode::CallValue, window, 0, Count(arguments), flags);
            break;
    }
    mTop = window + 1u;
}

void ProcedureCompiler::CallVariable(const Expression& callee, const Meaning& meaning,
                                     std::span<Expression* const> arguments, std::uint16_t window, std::uint8_t flags,
                                     const Elements& elements) {
    if (meaning.kind == Meaning::Kind::Variable && meaning.operand.Kind() == OperandKind::Name) {
        return CallName(callee, arguments, window, flags, elements);
    }
    Emit(Opcode::Move, Slot(window), NameValue(callee));
    PassArguments(arguments, window + 1u, elements);
    Emit(Opcode::CallValue, window, 0, Count(arguments), flags);
}

void ProcedureCompiler::CallName(const Expression& callee, std::span<Expression* const> arguments, std::uint16_t window,
                                 std::uint8_t flags, const Elements& elements) {
    PassArguments(arguments, window, elements);
    const Local* local = mLocals.Find(callee.name.text, callee.name.hash);
    const bool isOpen = local && local->kind == Local::Kind::Open;
    if (isOpen) flags |= kHasLocal;
    Emit(Opcode::CallName, window, NameIndex(callee.name), Count(arguments), flags,
         isOpen ? local->slot : std::uint16_t{0});
}

// The short way to an element of a one-dimensional array in a variable.
bool ProcedureCompiler::ElementValue(const Expression& expression, std::uint16_t slot) {
    const std::optional<Operand> variable = VariableOf(*expression.left);
    if (!variable || expression.arguments.size() != 1) return false;
    const Expression& index = *expression.arguments[0];
    if (index.kind == ExpressionKind::Missing) return false;
    if (variable->Kind() == OperandKind::Name && IsOwnResult(expression.left->name)) return false;
    const std::size_t top = mTop;
    const Operand at = Value(index, Slot(slot));
    mTop = top;
    Emit(Opcode::GetElement, Slot(slot), *variable, at, IsTemp(at) ? kFreeC : std::uint8_t{0});
    return true;
}

// Arguments that are elements of arrays: they go by reference, by way of a slot that is put back after the call.
ProcedureCompiler::Elements ProcedureCompiler::PrepareElements(const Expression& callee,
                                                               std::span<Expression* const> arguments) {
    Elements elements;
    if (IsPureFunction(callee)) return elements;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Expression& argument = *arguments[i];
        if (argument.kind != ExpressionKind::Call || argument.left->kind != ExpressionKind::Name ||
            argument.arguments.empty()) {
            continue;
        }
        const Identifier& name = argument.left->name;
        const Meaning meaning = Find(name);
        ElementArgument element;
        if (meaning.kind == Meaning::Kind::Variable && !IsOwnResult(name)) {
            element.variable = meaning.operand;
        } else if (meaning.kind == Meaning::Kind::Open) {
            element.variable = Slot(meaning.slot);
        } else if (meaning.kind == Meaning::Kind::Global && !FindBuiltin(name.text) &&
                   !mUnit.procedures.Find(name.text, name.hash)) {
            element.variable = NameOperand(name);
        } else {
            continue;
        }
        element.position = i;
        if (argument.arguments.size() > kMaxIndexes) Fail(CompileError::OutOfMemory, argument.position);
        element.count = Count(argument.arguments);
        element.indexes = static_cast<std::uint16_t>(mTop);
        NewTemps(element.count);
        element.value = NewTemp();
        elements.push_back(element);
    }
    return elements;
}

// Evaluates arguments into the slots from `first` on, of which the window's own is there already.
void ProcedureCompiler::PassArguments(std::span<Expression* const> arguments, std::size_t first,
                                      const Elements& elements) {
    auto element = elements.begin();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (first + i >= mTop) NewTemp();
        const auto slot = static_cast<std::uint16_t>(first + i);
        if (element != elements.end() && element->position == i) {
            PassElement(*arguments[i], *element++, slot);
        } else {
            PassArgument(*arguments[i], slot);
        }
    }
}

void ProcedureCompiler::PassArgument(const Expression& argument, std::uint16_t slot) {
    if (argument.kind != ExpressionKind::Name) return ToTemp(argument, slot);
    const Meaning meaning = Find(argument.name);
    switch (meaning.kind) {
        case Meaning::Kind::Variable:
            Emit(Opcode::PassRef, Slot(slot), meaning.operand);
            return;
        case Meaning::Kind::Open:
            Emit(Opcode::PassName, slot, NameIndex(argument.name), 0, kHasLocal, meaning.slot);
            return;
        case Meaning::Kind::Global:
            Emit(Opcode::PassName, slot, NameIndex(argument.name));
            return;
        default:
            return ToTemp(argument, slot);
    }
}

void ProcedureCompiler::PassElement(const Expression& argument, const ElementArgument& element, std::uint16_t slot) {
    const std::size_t top = mTop;
    for (std::size_t i = 0; i < element.count; ++i) {
        const auto index = static_cast<std::uint16_t>(element.indexes + i);
        const Operand value = Value(*argument.arguments[i], Slot(index));
        if (value != Slot(index)) {
            Emit(Opcode::Move, Slot(index), value, {}, IsTemp(value) ? kFreeB : std::uint8_t{0});
        }
        mTop = top;
    }
    if (element.count == 1 && element.variable.Kind() != OperandKind::Name) {
        Emit(Opcode::GetElement, Slot(element.value), element.variable, Slot(element.indexes));
    } else {
        const std::uint16_t window = NewTemp();
        const bool isName = element.variable.Kind() == OperandKind::Name;
        if (!isName) Emit(Opcode::Move, Slot(window), element.variable);
        for (std::size_t i = 0; i < element.count; ++i) {
            const std::uint16_t to = i == 0 && isName ? window : NewTemp();
            Emit(Opcode::Move, Slot(to), Slot(static_cast<std::uint16_t>(element.indexes + i)));
        }
        if (isName) {
            Emit(Opcode::CallName, window, element.variable.Index(), element.count);
        } else {
            Emit(Opcode::CallValue, window, 0, element.count);
        }
        Emit(Opcode::Move, Slot(element.value), Slot(window), {}, kFreeB);
        mTop = top;
    }
    Emit(Opcode::PassRef, Slot(slot), Slot(element.value));
}

void ProcedureCompiler::PutBack(const Elements& elements) {
    constexpr std::size_t kLast = Code::kWrittenBits - 1;  // stands for all behind it
    for (const ElementArgument& element : elements) {
        const PutBackNumbers numbers{static_cast<std::uint8_t>(element.count),
                                     static_cast<std::uint8_t>(std::min(element.position, kLast))};
        Emit(Opcode::PutBack, element.value, element.variable.bits, element.indexes, 0, numbers.Pack());
    }
}

// Evaluates the object before a member; gives the flags of the member's instruction.
std::uint8_t ProcedureCompiler::ObjectToTemp(const Expression& member, std::uint16_t slot) {
    if (member.kind == ExpressionKind::WithMember) {
        if (mWith.empty()) {
            Emit(Opcode::RaiseNumber, kUnqualifiedReference, NameIndex(member.name) + 1);
            return kWith;
        }
        Emit(Opcode::Move, Slot(slot), Slot(mWith.back()));
        return kWith;
    }
    ToTemp(*member.left, slot);
    return member.left->kind == ExpressionKind::Me ? kOwn : std::uint8_t{0};
}

}  // namespace ov::vbscript
