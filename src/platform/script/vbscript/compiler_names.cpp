#include "platform/script/vbscript/compiler.h"

namespace ov::vbscript {

void ProcedureCompiler::DeclareLocal(const Identifier& name, Local::Kind kind, Position position) {
    if (const Local* known = mLocals.Find(name.text, name.hash)) FailRedefined(known->position, position);
    NewTemps(1);
    mLocals.Add(name.text, name.hash, {kind, static_cast<std::uint16_t>(mTop - 1), nullptr, position});
}

void ProcedureCompiler::DeclareNames() {
    if (mProcedure.kind == ProcedureKind::Main) return;
    for (const Parameter& parameter : mProcedure.parameters) {
        if (parameter.byValue) mCode->byValue.push_back(static_cast<std::uint16_t>(mTop));
        DeclareLocal(parameter.name, Local::Kind::Variable, parameter.position);
    }
    mCode->parameters = static_cast<std::uint16_t>(mTop);
    if (mProcedure.kind == ProcedureKind::Function || mProcedure.kind == ProcedureKind::Get) {
        mCode->hasResult = true;
        mCode->result = static_cast<std::uint16_t>(mTop);
        DeclareLocal(mProcedure.name, Local::Kind::Variable, mProcedure.position);
    }
    for (const Constant& constant : mProcedure.constants) {
        if (const Local* known = mLocals.Find(constant.name.text, constant.name.hash)) {
            FailRedefined(known->position, constant.position);
        }
        mLocals.Add(constant.name.text, constant.name.hash, {Local::Kind::Constant, 0, &constant, constant.position});
    }
    for (const Variable& variable : mProcedure.variables) {
        DeclareLocal(variable.name, Local::Kind::Variable, variable.position);
    }
    DeclareOpenNames();
    mCode->variables = static_cast<std::uint16_t>(mTop);
    const auto noteWritten = [&](std::span<const Identifier> names) {
        for (const Identifier& name : names) {
            const Local* local = mLocals.Find(name.text, name.hash);
            if (!local || local->kind != Local::Kind::Variable || local->slot >= mCode->parameters) continue;
            mCode->written |= std::uint64_t{1} << std::min<std::size_t>(local->slot, Code::kWrittenBits - 1);
        }
    };
    noteWritten(mProcedure.assigned);
    noteWritten(mProcedure.passed);
    noteWritten(mProcedure.indexed);
    if (mProcedure.usesExecute) mCode->written = ~std::uint64_t{0};
}

// Names that were never declared. One that the procedure writes to is a variable of its own unless there is a global
// one; so is one that it only passes to another procedure, which may write to it.
void ProcedureCompiler::DeclareOpenNames() {
    const auto isKnown = [&](const Identifier& name) {
        return mLocals.Find(name.text, name.hash) || (mOwner && mOwner->members.Find(name.text, name.hash)) ||
               mUnit.constants.Find(name.text, name.hash);
    };
    for (const Identifier& name : mUnit.optionExplicit ? mProcedure.dimensioned : mProcedure.assigned) {
        if (isKnown(name)) continue;
        DeclareLocal(name, Local::Kind::Variable, mProcedure.position);
        mCode->open.push_back({static_cast<std::uint16_t>(mTop - 1), NameIndex(name)});
    }
    if (mUnit.optionExplicit) return;
    for (const Identifier& name : mProcedure.passed) {
        if (isKnown(name) || FindConstant(name.text)) continue;
        DeclareLocal(name, Local::Kind::Open, mProcedure.position);
        mCode->open.push_back({static_cast<std::uint16_t>(mTop - 1), NameIndex(name)});
    }
}

ProcedureCompiler::Meaning ProcedureCompiler::Find(const Identifier& name) {
    Meaning meaning;
    if (const Local* local = mLocals.Find(name.text, name.hash)) {
        meaning.kind = local->kind == Local::Kind::Variable ? Meaning::Kind::Variable
                       : local->kind == Local::Kind::Open   ? Meaning::Kind::Open
                                                            : Meaning::Kind::Constant;
        meaning.operand = Slot(local->slot);
        meaning.slot = local->slot;
        meaning.constant = local->constant;
        return meaning;
    }
    if (mOwner) {
        if (const ClassCode::Member* member = mOwner->members.Find(name.text, name.hash)) {
            if (member->field == ClassCode::Member::kNoField) {
                meaning.kind = Meaning::Kind::ClassMember;
            } else {
                meaning.kind = Meaning::Kind::Variable;
                meaning.operand = Operand::Of(OperandKind::Field, member->field);
            }
            return meaning;
        }
    }
    if (const Constant* const* constant = mUnit.constants.Find(name.text, name.hash)) {
        meaning.kind = Meaning::Kind::Constant;
        meaning.constant = *constant;
        return meaning;
    }
    // Outside procedures, and for procedures beside them, variables of the same text are known to be ones.
    if (mUnit.variables.Find(name.text, name.hash) && !mUnit.procedures.Find(name.text, name.hash)) {
        meaning.kind = Meaning::Kind::Variable;
        meaning.operand = NameOperand(name);
    }
    return meaning;
}

bool ProcedureCompiler::IsOwnResult(const Identifier& name) const noexcept {
    if (!mCode->hasResult) return false;
    const Local* local = mLocals.Find(name.text, name.hash);
    return local && local->kind == Local::Kind::Variable && local->slot == mCode->result;
}

std::uint32_t ProcedureCompiler::NameIndex(const Identifier& name) {
    if (const std::uint32_t* known = mNames.Find(name.text, name.hash)) return *known;
    const auto index = static_cast<std::uint32_t>(mCode->names.size());
    mCode->names.push_back(Name::Of(name.text, name.hash));
    return mNames.Add(name.text, name.hash, index);
}

Operand ProcedureCompiler::NameOperand(const Identifier& name) {
    return Operand::Of(OperandKind::Name, NameIndex(name));
}

std::uint32_t ProcedureCompiler::SiteIndex(const Identifier& name) {
    MemberSite& site = mCode->sites.emplace_back();
    site.name = Text(name.text);
    site.hash = name.hash;
    return static_cast<std::uint32_t>(mCode->sites.size() - 1);
}

// True for a function of the language, which changes no variable.
bool ProcedureCompiler::IsPureFunction(const Expression& callee) {
    return callee.kind == ExpressionKind::Name && FindBuiltin(callee.name.text) &&
           !mUnit.procedures.Find(callee.name.text, callee.name.hash) &&
           Find(callee.name).kind == Meaning::Kind::Global;
}

// True if the evaluation may call something that changes a variable.
bool ProcedureCompiler::MayHaveEffects(const Expression& expression) {
    const Expression* at = &expression;
    for (;;) {
        switch (at->kind) {
            case ExpressionKind::Binary:
                if (MayHaveEffects(*at->right)) return true;
                at = at->left;
                break;
            case ExpressionKind::Unary:
            case ExpressionKind::Bracketed:
                at = at->left;
                break;
            case ExpressionKind::Name: {
                const Meaning::Kind kind = Find(at->name).kind;
                return kind != Meaning::Kind::Variable && kind != Meaning::Kind::Constant &&
                       !FindConstant(at->name.text);
            }
            case ExpressionKind::Call:
                if (!IsPureFunction(*at->left)) {
                    // An index into a variable is harmless unless an object's default member is behind it.
                    return true;
                }
                for (const Expression* argument : at->arguments) {
                    if (MayHaveEffects(*argument)) return true;
                }
                return false;
            case ExpressionKind::Literal:
            case ExpressionKind::Me:
            case ExpressionKind::Missing:
                return false;
            default:
                return true;
        }
    }
}

// True for an element of a variable by one index. If an object is there instead, its default member gets a copy of the
// index, so that it cannot change a local variable of this procedure.
bool ProcedureCompiler::IsElement(const Expression& expression) {
    return expression.kind == ExpressionKind::Call && expression.arguments.size() == 1 &&
           VariableOf(*expression.left) && !MayHaveEffects(*expression.arguments[0]);
}

Operand ProcedureCompiler::ConstantOperand(Variant value) {
    mWork.constants.push_back(std::move(value));
    return Operand::Of(OperandKind::Constant, mWork.constants.size() - 1);
}

// The literals of a procedure stand together in the text's list; one from elsewhere is not looked for again.
Operand ProcedureCompiler::LiteralOperand(std::uint32_t literal) {
    if (mWork.literalOperands.empty()) mFirstLiteral = literal;
    if (literal < mFirstLiteral) return ConstantOperand(mUnit.literals[literal]);
    const std::size_t index = literal - mFirstLiteral;
    if (mWork.literalOperands.size() <= index) mWork.literalOperands.resize(index + 1);
    if (mWork.literalOperands[index] == 0) {
        mWork.literalOperands[index] = ConstantOperand(mUnit.literals[literal]).bits + 1;
    }
    return {mWork.literalOperands[index] - 1};
}

}  // namespace ov::vbscript
