#include "platform/script/vbscript/compiler.h"
#include "platform/script/vbscript/limits.h"

namespace ov::vbscript {

namespace {

constexpr std::uint16_t kIllegalAssignment = 501;

}  // namespace

// The variable that a name is, if it is one for certain.
std::optional<Operand> ProcedureCompiler::VariableOf(const Expression& expression) {
    if (expression.kind != ExpressionKind::Name || IsOwnResult(expression.name)) return std::nullopt;
    const Meaning meaning = Find(expression.name);
    if (meaning.kind != Meaning::Kind::Variable || meaning.operand.Kind() == OperandKind::Name) return std::nullopt;
    return meaning.operand;
}

void ProcedureCompiler::Assign(const Expression& target, const Expression& value, bool isSet) {
    switch (target.kind) {
        case ExpressionKind::Name:
            return AssignName(target, value, isSet);
        case ExpressionKind::Member:
        case ExpressionKind::WithMember:
            return AssignMember(target, {}, value, isSet);
        case ExpressionKind::Call: {
            const Expression& callee = *target.left;
            const bool isMember =
                callee.kind == ExpressionKind::Member || callee.kind == ExpressionKind::WithMember ||
                (callee.kind == ExpressionKind::Name && Find(callee.name).kind == Meaning::Kind::ClassMember);
            if (isMember) return AssignMember(callee, target.arguments, value, isSet);
            return AssignIndexed(target, value, isSet);
        }
        default:
            Fail(CompileError::Syntax, target.position);
    }
}

void ProcedureCompiler::AssignName(const Expression& target, const Expression& value, bool isSet) {
    const Meaning meaning = Find(target.name);
    switch (meaning.kind) {
        case Meaning::Kind::Variable:
            return AssignVariable(meaning.operand, value, isSet);
        case Meaning::Kind::Open:  // which no statement writes to by its bare name
        case Meaning::Kind::Global:
            return AssignVariable(NameOperand(target.name), value, isSet);
        case Meaning::Kind::ClassMember:
            return AssignMember(target, {}, value, isSet);
        case Meaning::Kind::Constant: {
            const std::size_t base = mTop;
            Value(value);
            mTop = base;
            Emit(Opcode::RaiseNumber, kIllegalAssignment, NameIndex(target.name) + 1);
            return;
        }
    }
}

void ProcedureCompiler::AssignVariable(Operand variable, const Expression& value, bool isSet) {
    const std::size_t base = mTop;
    const Operand from = isSet ? Value(value) : Value(value, variable);
    mTop = base;
    // What an operator gives is in its place already; an operator's result is no object, so Set has to fail.
    if (from == variable && (value.kind == ExpressionKind::Binary || value.kind == ExpressionKind::Unary) && !isSet) {
        return;
    }
    Emit(isSet ? Opcode::Set : Opcode::Let, variable, from, {}, IsTemp(from) ? kFreeB : std::uint8_t{0});
}

void ProcedureCompiler::AssignIndexed(const Expression& target, const Expression& value, bool isSet) {
    const std::size_t base = mTop;
    const std::uint8_t flags = isSet ? kIsSet : std::uint8_t{0};
    const std::span<Expression* const> indexes = target.arguments;
    if (indexes.size() > kMaxIndexes) Fail(CompileError::OutOfMemory, target.position);
    const std::optional<Operand> variable = VariableOf(*target.left);
    if (variable && indexes.size() == 1 && indexes[0]->kind != ExpressionKind::Missing) {
        const Operand index = Protect(Value(*indexes[0]), value);
        const Operand from = Value(value);
        std::uint8_t all = flags;
        if (IsTemp(index)) all |= kFreeIndex;
        if (IsTemp(from)) all |= kFreeValue;
        Emit(Opcode::PutElement, *variable, index, from, all);
        mTop = base;
        return;
    }
    // Everything is evaluated before a place in an array is looked for, since that may move meanwhile.
    const Place place = PreparePlace(*target.left);
    const auto window = static_cast<std::uint16_t>(mTop);
    const bool isVariable = place.indexes.empty();
    for (const Expression* index : indexes) {
        ToNewTemp(*index, isVariable);
    }
    ToNewTemp(value, isVariable || isSet);
    const Operand at = FindPlace(place);
    Emit(Opcode::PutIndexed, at.bits, window, static_cast<std::uint32_t>(indexes.size()), flags);
    if (IsTemp(at)) Emit(Opcode::Clear, at.Index(), 1);
    mTop = base;
}

// What stands before the last brackets of an assignment's target: a variable, an element of a variable, or what a call
// gives. Evaluates what there is to evaluate.
ProcedureCompiler::Place ProcedureCompiler::PreparePlace(const Expression& expression) {
    std::vector<const Expression*> brackets;
    const Expression* root = &expression;
    for (; root->kind == ExpressionKind::Call && !root->arguments.empty(); root = root->left) {
        brackets.push_back(root);
    }
    const bool isName = root->kind == ExpressionKind::Name && !IsOwnResult(root->name);
    const Meaning meaning = isName ? Find(root->name) : Meaning();
    Place place;
    if (!isName || meaning.kind == Meaning::Kind::ClassMember || meaning.kind == Meaning::Kind::Constant) {
        place.root = Slot(NewTemp());
        ToTemp(expression, static_cast<std::uint16_t>(place.root.Index()));
        return place;
    }
    if (meaning.kind == Meaning::Kind::Variable) {
        place.root = meaning.operand;
    } else if (meaning.kind == Meaning::Kind::Open) {
        place.root = Slot(NewTemp());
        Emit(Opcode::PassName, place.root.Index(), NameIndex(root->name), 0, kHasLocal, meaning.slot);
    } else {
        place.root = NameOperand(root->name);
    }
    for (auto bracket = brackets.rbegin(); bracket != brackets.rend(); ++bracket) {
        const std::span<Expression*> arguments = (*bracket)->arguments;
        if (arguments.size() > kMaxIndexes) Fail(CompileError::OutOfMemory, expression.position);
        place.indexes.push_back({static_cast<std::uint16_t>(mTop), static_cast<std::uint8_t>(arguments.size())});
        for (const Expression* index : arguments) {
            ToNewTemp(*index, bracket == brackets.rbegin());
        }
    }
    return place;
}

// Evaluates into a new slot. An object stays one if it may: behind a step to an element it is its default value, since
// no script may run before the element is used.
void ProcedureCompiler::ToNewTemp(const Expression& expression, bool mayBeObject) {
    const std::uint16_t slot = NewTemp();
    ToTemp(expression, slot);
    const bool isPlain = expression.kind == ExpressionKind::Literal || expression.kind == ExpressionKind::Binary ||
                         expression.kind == ExpressionKind::Unary;
    if (!mayBeObject && !isPlain) Emit(Opcode::Let, Slot(slot), Slot(slot));
}

// Finds the place; it is to be used at once.
Operand ProcedureCompiler::FindPlace(const Place& place) {
    Operand at = place.root;
    for (const Place::Index& index : place.indexes) {
        const std::uint16_t element = NewTemp();
        Emit(Opcode::RefElement, element, at.bits, index.window, 0, index.count);
        if (IsTemp(at)) Emit(Opcode::Clear, at.Index(), 1);
        at = Slot(element);
    }
    return at;
}

// A member of an object, or one of Me by its name alone.
void ProcedureCompiler::AssignMember(const Expression& member, std::span<Expression* const> indexes,
                                     const Expression& value, bool isSet) {
    const std::size_t base = mTop;
    if (indexes.size() > kMaxIndexes) Fail(CompileError::OutOfMemory, member.position);
    const std::uint16_t window = NewTemp();
    std::uint8_t flags = isSet ? kIsSet : std::uint8_t{0};
    if (member.kind == ExpressionKind::Name) {
        Emit(Opcode::LoadMe, window);
        flags |= kOwn;
    } else {
        flags |= ObjectToTemp(member, window);
    }
    for (const Expression* index : indexes) {
        ToTemp(*index, NewTemp());
    }
    ToTemp(value, NewTemp());
    Emit(Opcode::PutMember, window, SiteIndex(member.name), static_cast<std::uint32_t>(indexes.size()), flags);
    mTop = base;
}

}  // namespace ov::vbscript
