#include <algorithm>

#include "platform/script/vbscript/compiler.h"

namespace ov::vbscript {

namespace {

Opcode BinaryOpcode(TokenKind op) noexcept {
    switch (op) {
        case TokenKind::Plus:
            return Opcode::Add;
        case TokenKind::Minus:
            return Opcode::Subtract;
        case TokenKind::Star:
            return Opcode::Multiply;
        case TokenKind::Slash:
            return Opcode::Divide;
        case TokenKind::Backslash:
            return Opcode::IntegerDivide;
        case TokenKind::Mod:
            return Opcode::Modulo;
        case TokenKind::Caret:
            return Opcode::Power;
        case TokenKind::Ampersand:
            return Opcode::Concatenate;
        case TokenKind::And:
            return Opcode::And;
        case TokenKind::Or:
            return Opcode::Or;
        case TokenKind::Xor:
            return Opcode::Xor;
        case TokenKind::Eqv:
            return Opcode::Eqv;
        case TokenKind::Imp:
            return Opcode::Imp;
        case TokenKind::Is:
            return Opcode::Is;
        case TokenKind::NotEqual:
            return Opcode::NotEqual;
        case TokenKind::Less:
            return Opcode::Less;
        case TokenKind::LessEqual:
            return Opcode::LessEqual;
        case TokenKind::Greater:
            return Opcode::Greater;
        case TokenKind::GreaterEqual:
            return Opcode::GreaterEqual;
        default:
            return Opcode::Equal;
    }
}

bool IsComparison(Opcode op) noexcept {
    return op >= Opcode::Equal && op <= Opcode::GreaterEqual;
}

Opcode JumpOpcode(Opcode comparison) noexcept {
    const auto distance = static_cast<unsigned>(comparison) - static_cast<unsigned>(Opcode::Equal);
    return static_cast<Opcode>(static_cast<unsigned>(Opcode::JumpUnlessEqual) + distance);
}

const Expression& Unbracketed(const Expression& expression) noexcept {
    const Expression* inner = &expression;
    while (inner->kind == ExpressionKind::Bracketed) {
        inner = inner->left;
    }
    return *inner;
}

}  // namespace

// The operand that holds the value of an expression: a variable or constant itself, or a temporary value at the top.
// The result of an operator goes to `wanted` if there is one.
Operand ProcedureCompiler::Value(const Expression& expression, std::optional<Operand> wanted) {
    switch (expression.kind) {
        case ExpressionKind::Literal: {
            if (expression.op != TokenKind::Literal) return ConstantOperand(LiteralValue(expression, mUnit.literals));
            return LiteralOperand(expression.literal);
        }
        case ExpressionKind::Missing:
            return ConstantOperand(Variant::Missing());
        case ExpressionKind::Bracketed:
            return Value(*expression.left, wanted);
        case ExpressionKind::Name:
            return NameValue(expression);
        case ExpressionKind::Binary:
            return BinaryValue(expression, wanted);
        case ExpressionKind::Unary:
            return UnaryValue(expression, wanted);
        default: {
            const std::uint16_t slot = NewTemp();
            ToTemp(expression, slot);
            return Slot(slot);
        }
    }
}

Operand ProcedureCompiler::NameValue(const Expression& expression) {
    const Meaning meaning = Find(expression.name);
    if (meaning.kind == Meaning::Kind::Variable) return meaning.operand;
    if (meaning.kind == Meaning::Kind::Constant) {
        return ConstantOperand(LiteralValue(*meaning.constant->value, mUnit.literals));
    }
    const std::uint16_t slot = NewTemp();
    ToTemp(expression, slot);
    return Slot(slot);
}

// Evaluates into a slot, which is the topmost one.
void ProcedureCompiler::ToTemp(const Expression& expression, std::uint16_t slot) {
    switch (expression.kind) {
        case ExpressionKind::Name: {
            const Meaning meaning = Find(expression.name);
            switch (meaning.kind) {
                case Meaning::Kind::Open:
                    Emit(Opcode::LoadName, slot, NameIndex(expression.name), 0, kHasLocal, meaning.slot);
                    return;
                case Meaning::Kind::Global:
                    Emit(Opcode::LoadName, slot, NameIndex(expression.name));
                    return;
                case Meaning::Kind::ClassMember:
                    return Call(expression, slot, kBare);
                default:
                    break;
            }
            break;
        }
        case ExpressionKind::Me:
            Emit(Opcode::LoadMe, slot);
            return;
        case ExpressionKind::New:
            Emit(Opcode::New, slot, NameIndex(expression.name));
            return;
        case ExpressionKind::Member:
        case ExpressionKind::WithMember:
            return Call(expression, slot, kBare);
        case ExpressionKind::Call:
            if (ElementValue(expression, slot)) return;
            return Call(expression, slot, 0);
        default:
            break;
    }
    const std::size_t top = mTop;
    const Operand value = Value(expression, Slot(slot));
    mTop = top;
    if (value != Slot(slot)) Emit(Opcode::Move, Slot(slot), value, {}, IsTemp(value) ? kFreeB : std::uint8_t{0});
}

// The value of a variable that is read before something that may change it.
Operand ProcedureCompiler::Protect(Operand operand, const Expression& next) {
    if (operand.Kind() == OperandKind::Constant || IsTemp(operand) || !MayHaveEffects(next)) return operand;
    const bool isOwn = operand.Kind() == OperandKind::Frame && operand.Index() >= mCode->parameters;
    if (isOwn && IsElement(next)) return operand;
    const std::uint16_t slot = NewTemp();
    Emit(Opcode::Move, Slot(slot), operand);
    return Slot(slot);
}

Operand ProcedureCompiler::BinaryValue(const Expression& expression, std::optional<Operand> wanted) {
    // The operators of a chain, which hang to the left, from the innermost on: a chain of any length needs no depth.
    std::vector<const Expression*>& chain = mWork.chain;
    const std::size_t end = chain.size();
    const Expression* first = &expression;
    for (; first->kind == ExpressionKind::Binary; first = first->left) {
        chain.push_back(first);
    }
    const std::size_t base = mTop;
    Operand result = Value(*first);
    while (chain.size() > end) {
        std::vector<const Expression*> run;
        while (chain.size() > end + run.size() && chain[chain.size() - 1 - run.size()]->op == TokenKind::Ampersand) {
            run.push_back(chain[chain.size() - 1 - run.size()]);
        }
        const Expression& step = *chain.back();
        chain.resize(chain.size() - std::max<std::size_t>(run.size(), 1));
        const std::optional<Operand> target = chain.size() == end ? wanted : std::nullopt;
        result = run.size() > 1 ? ConcatenateRun(result, run, target) : BinaryStep(step, result, base, target);
    }
    return result;
}

Operand ProcedureCompiler::BinaryStep(const Expression& link, Operand left, std::size_t base,
                                      std::optional<Operand> wanted) {
    left = Protect(left, *link.right);
    const Operand right = Value(*link.right);
    const Opcode op = BinaryOpcode(link.op);
    std::uint8_t flags =
        IsComparison(op) ? LiteralFlags(*link.left, *link.right, LiteralSide::Number) : std::uint8_t{0};
    if (IsTemp(left)) flags |= kFreeB;
    if (IsTemp(right)) flags |= kFreeC;
    mTop = base;
    const Operand to = wanted ? *wanted : Slot(NewTemp());
    Emit(op, to, left, right, flags);
    return to;
}

// a & b & c ...: one join of all. Where the first is the variable that gets the result, the others are appended to it.
Operand ProcedureCompiler::ConcatenateRun(Operand first, std::span<const Expression* const> run,
                                          std::optional<Operand> wanted) {
    bool hasEffects = false;
    for (const Expression* link : run) {
        hasEffects = hasEffects || MayHaveEffects(*link->right);
    }
    const bool isAppend = wanted && *wanted == first && !hasEffects;
    std::size_t base = mTop;
    if (!isAppend) {
        if (IsTemp(first)) {
            base = first.Index();  // the topmost slot
        } else {
            Emit(Opcode::Move, Slot(NewTemp()), first);
        }
    }
    for (const Expression* link : run) {
        const std::uint16_t slot = NewTemp();
        ToTemp(*link->right, slot);
    }
    const std::size_t count = mTop - base;
    mTop = base;
    if (isAppend) {
        Emit(Opcode::Append, first.bits, static_cast<std::uint32_t>(base), static_cast<std::uint32_t>(count));
        return first;
    }
    const Operand to = wanted ? *wanted : Slot(NewTemp());
    Emit(Opcode::ConcatenateAll, to.bits, static_cast<std::uint32_t>(base), static_cast<std::uint32_t>(count));
    return to;
}

Operand ProcedureCompiler::UnaryValue(const Expression& expression, std::optional<Operand> wanted) {
    if (expression.op != TokenKind::Not && IsSignedNumber(expression)) {
        return ConstantOperand(LiteralValue(expression, mUnit.literals));
    }
    const std::size_t base = mTop;
    const Operand operand = Value(*expression.left);
    mTop = base;
    const Operand to = wanted ? *wanted : Slot(NewTemp());
    Emit(expression.op == TokenKind::Not ? Opcode::Not : Opcode::Negate, to, operand, {},
         IsTemp(operand) ? kFreeB : std::uint8_t{0});
    return to;
}

// The literal that an expression is, or nullptr.
const Variant* ProcedureCompiler::AsLiteral(const Expression& expression) const {
    const Expression& inner = Unbracketed(expression);
    const bool isLiteral = inner.kind == ExpressionKind::Literal && inner.op == TokenKind::Literal;
    return isLiteral ? &mUnit.literals[inner.literal] : nullptr;
}

// True for a literal number with signs before it. For a comparison with a text it is no literal.
bool ProcedureCompiler::IsSignedNumber(const Expression& expression) const {
    const Expression* inner = &expression;
    while (inner->kind == ExpressionKind::Bracketed ||
           (inner->kind == ExpressionKind::Unary && inner->op == TokenKind::Minus)) {
        inner = inner->left;
    }
    const Variant* const literal = AsLiteral(*inner);
    return literal && !literal->IsString();
}

std::uint8_t ProcedureCompiler::LiteralFlags(const Expression& a, const Expression& b, LiteralSide number) const {
    const Variant* const left = AsLiteral(a);
    const Variant* const right = AsLiteral(b);
    const auto isNumber = [](const Variant* literal) { return literal && !literal->IsString(); };
    LiteralSide side = LiteralSide::None;
    if (isNumber(left) || isNumber(right)) {
        side = number;
    } else if (left || right) {
        side = LiteralSide::Text;
    }
    return static_cast<std::uint8_t>(static_cast<unsigned>(side) << kLiteralShift);
}

// Jumps if the condition is not True; the target comes later.
void ProcedureCompiler::JumpUnless(const Expression& condition, Jumps& jumps) {
    const Expression& inner = Unbracketed(condition);
    const std::size_t base = mTop;
    const Opcode op = inner.kind == ExpressionKind::Binary ? BinaryOpcode(inner.op) : Opcode::Is;
    if (!IsComparison(op)) {
        const Operand value = Value(inner);
        mTop = base;
        jumps.push_back(Emit(Opcode::JumpIfFalse, value, {}, {}, IsTemp(value) ? kFreeA : std::uint8_t{0}));
        return;
    }
    const Operand left = Protect(Value(*inner.left), *inner.right);
    const Operand right = Value(*inner.right);
    std::uint8_t flags = LiteralFlags(*inner.left, *inner.right, LiteralSide::Number);
    if (IsTemp(left)) flags |= kFreeB;
    if (IsTemp(right)) flags |= kFreeC;
    mTop = base;
    jumps.push_back(Emit(JumpOpcode(op), left, right, {}, flags));
}

}  // namespace ov::vbscript
