#include <algorithm>

#include "platform/script/vbscript/compiler.h"

namespace ov::vbscript {

void ProcedureCompiler::Statements(Block block) {
    for (const Statement* statement : block) {
        PutMark(statement->position);
        CompileStatement(*statement);
    }
}

void ProcedureCompiler::CompileStatement(const Statement& statement) {
    switch (statement.kind) {
        case StatementKind::Assign:
            return Assign(*statement.target, *statement.value, false);
        case StatementKind::Set:
            return Assign(*statement.target, *statement.value, true);
        case StatementKind::Call: {
            const std::uint16_t window = NewTemp();
            if (statement.target->kind == ExpressionKind::Me) Fail(CompileError::Syntax, statement.position);
            Call(*statement.target, window, kDiscard);
            ReleaseTo(window);
            return;
        }
        case StatementKind::ReDim:
            return ReDim(statement);
        case StatementKind::Erase:
            return Erase(statement);
        case StatementKind::If:
            return If(statement);
        case StatementKind::Select:
            return Select(statement);
        case StatementKind::For:
            return For(statement);
        case StatementKind::ForEach:
            return ForEach(statement);
        case StatementKind::Do:
            return Do(statement);
        case StatementKind::With:
            return With(statement);
        case StatementKind::Exit:
            return Exit(statement);
        case StatementKind::OnError:
            Emit(Opcode::OnError, 0, 0, 0, statement.flag ? kResume : std::uint8_t{0});
            return;
    }
}

void ProcedureCompiler::If(const Statement& statement) {
    Jumps ends;
    for (const Clause& clause : statement.clauses) {
        Jumps next;
        if (clause.condition) {
            PutMark(clause.position);
            JumpUnless(*clause.condition, next);
        }
        Statements(clause.body);
        if (&clause != &statement.clauses.back()) {
            PutMark(clause.position);  // an error in the last statement goes on behind the If
            ends.push_back(Emit(Opcode::Jump));
        }
        LandHere(next);
    }
    LandHere(ends);
    PutMark(statement.end);
}

void ProcedureCompiler::Select(const Statement& statement) {
    const std::size_t base = mTop;
    const std::size_t mark = mWork.marks.size() - 1;
    Operand subject = Value(*statement.value);
    if (!IsTemp(subject) && subject.Kind() != OperandKind::Constant) {
        const Operand copy = Slot(NewTemp());
        Emit(Opcode::Move, copy, subject);
        subject = copy;
    }
    const bool hasCode = Here() > mWork.marks[mark].pc;
    Jumps ends;
    for (const Clause& clause : statement.clauses) {
        Jumps bodies, next;
        // An error in an item enters the body behind it, as one in the condition of If does.
        for (Expression* const& item : clause.items) {
            PutPosition(item->position);
            const std::size_t top = mTop;
            const Operand value = Value(*item);
            std::uint8_t flags = LiteralFlags(*statement.value, *item, LiteralSide::Case);
            if (IsTemp(value)) flags |= kFreeC;
            mTop = top;
            const bool isLast = &item == &clause.items.back();
            (isLast ? next : bodies)
                .push_back(Emit(isLast ? Opcode::JumpUnlessEqual : Opcode::JumpWhenEqual, subject, value, {}, flags));
        }
        LandHere(bodies);
        Statements(clause.body);
        if (&clause != &statement.clauses.back()) {
            PutMark(clause.position);
            ends.push_back(Emit(Opcode::Jump));
        }
        LandHere(next);
    }
    LandHere(ends);
    if (hasCode) mWork.marks[mark].otherwise = Here();  // an error in the subject runs no Case
    PutMark(statement.end);
    if (IsTemp(subject)) Emit(Opcode::Clear, subject.Index(), 1);
    mTop = base;
    PutMark(statement.end);
}

// The variable that a statement writes to by its bare name. Such a name is never an open one.
Operand ProcedureCompiler::Target(const Expression& target, CompileError otherwise) {
    const Meaning meaning = Find(target.name);
    if (meaning.kind == Meaning::Kind::Variable) return meaning.operand;
    if (meaning.kind != Meaning::Kind::Global) Fail(otherwise, target.position);
    return NameOperand(target.name);
}

void ProcedureCompiler::For(const Statement& statement) {
    const std::size_t base = mTop;
    const Operand variable = Target(*statement.target, CompileError::InvalidForVariable);
    // Two slots control the loop; empty ones tell ForNext that the start failed. Behind them come, for the start alone,
    // the three values.
    const auto control = static_cast<std::uint16_t>(mTop);
    NewTemps(2);
    const std::size_t afterControl = mTop;
    Emit(Opcode::Clear, control, 2);
    ToTemp(*statement.value, NewTemp());
    ToTemp(*statement.limit, NewTemp());
    if (statement.step) {
        ToTemp(*statement.step, NewTemp());
    } else {
        Emit(Opcode::Move, Slot(NewTemp()), ConstantOperand(Variant(std::int16_t{1})));
    }
    mTop = afterControl;
    Jumps exits{Emit(Opcode::ForStart, variable, Slot(control))};
    const std::uint32_t body = Here();
    mLoops.push_back({TokenKind::For, static_cast<std::uint16_t>(mTop), {}});
    Statements(statement.body);
    PutMark(statement.end);
    JumpTo(Emit(Opcode::ForNext, variable, Slot(control)), body);
    exits.insert(exits.end(), mLoops.back().exits.begin(), mLoops.back().exits.end());
    mLoops.pop_back();
    LandHere(exits);
    mTop = base;
    PutMark(statement.end);
}

void ProcedureCompiler::ForEach(const Statement& statement) {
    const std::size_t base = mTop;
    const Operand variable = Target(*statement.target, CompileError::InvalidForVariable);
    const auto control = static_cast<std::uint16_t>(mTop);
    NewTemps(2);
    Emit(Opcode::Clear, control, 2);
    const std::size_t afterControl = mTop;
    const Operand collection = Value(*statement.value);
    mTop = afterControl;
    Emit(Opcode::ForEachStart, control, collection.bits, 0, IsTemp(collection) ? kFreeB : std::uint8_t{0});
    const std::size_t noItem = Emit(Opcode::ForEachNext, variable, Slot(control));
    const std::uint32_t body = Here();
    mLoops.push_back({TokenKind::For, static_cast<std::uint16_t>(mTop), {}});
    Statements(statement.body);
    PutMark(statement.end);
    const std::size_t exit = Emit(Opcode::ForEachNext, variable, Slot(control));
    const std::size_t back = Emit(Opcode::JumpBack);
    JumpTo(back, body);
    JumpTo(noItem, Here());
    JumpTo(exit, Here());
    LandHere(mLoops.back().exits);
    mLoops.pop_back();
    PutMark(statement.end);
    Emit(Opcode::Clear, control, 2);
    mTop = base;
    PutMark(statement.end);
}

void ProcedureCompiler::Do(const Statement& statement) {
    const bool isWhileWend = statement.word == TokenKind::While;
    const std::uint32_t start = Here();
    Jumps exits;
    const auto condition = [&] {
        if (!statement.until) return JumpUnless(*statement.value, exits);
        const std::size_t base = mTop;
        const Operand value = Value(*statement.value);
        mTop = base;
        exits.push_back(Emit(Opcode::JumpIfTrue, value, {}, {}, IsTemp(value) ? kFreeA : std::uint8_t{0}));
    };
    if (statement.value && !statement.flag) {
        PutMark(statement.position);
        condition();
    }
    if (!isWhileWend) mLoops.push_back({TokenKind::Do, static_cast<std::uint16_t>(mTop), {}});
    Statements(statement.body);
    PutMark(statement.end);
    // An error in a condition behind the loop leaves it: the jump back is a part of the same statement.
    if (statement.value && statement.flag) condition();
    const std::size_t back = Emit(Opcode::JumpBack);
    JumpTo(back, start);
    if (!isWhileWend) {
        exits.insert(exits.end(), mLoops.back().exits.begin(), mLoops.back().exits.end());
        mLoops.pop_back();
    }
    LandHere(exits);
    PutMark(statement.end);
}

void ProcedureCompiler::With(const Statement& statement) {
    const std::size_t base = mTop;
    const std::uint16_t slot = NewTemp();
    ToTemp(*statement.value, slot);
    Emit(Opcode::With, slot);
    mWith.push_back(slot);
    Statements(statement.body);
    mWith.pop_back();
    PutMark(statement.end);
    Emit(Opcode::Clear, slot, 1);
    mTop = base;
    PutMark(statement.end);
}

void ProcedureCompiler::Exit(const Statement& statement) {
    if (statement.word != TokenKind::For && statement.word != TokenKind::Do) {
        Emit(Opcode::Return);
        return;
    }
    for (auto loop = mLoops.rbegin(); loop != mLoops.rend(); ++loop) {
        if (loop->word != statement.word) continue;
        // The objects of inner With and For Each blocks end here.
        if (mTop > loop->top) Emit(Opcode::Clear, loop->top, static_cast<std::uint32_t>(mTop - loop->top));
        loop->exits.push_back(Emit(Opcode::Jump));
        return;
    }
}

void ProcedureCompiler::ReDim(const Statement& statement) {
    for (const Expression* item : statement.items) {
        const std::size_t base = mTop;
        PutMark(item->position);
        const Operand variable = Target(*item->left, CompileError::NameRedefined);
        const auto window = static_cast<std::uint16_t>(mTop);
        for (const Expression* bound : item->arguments) {
            ToTemp(*bound, NewTemp());
        }
        Emit(Opcode::ReDim, variable.bits, window, static_cast<std::uint32_t>(item->arguments.size()),
             statement.flag ? kPreserve : std::uint8_t{0});
        mTop = base;
    }
}

void ProcedureCompiler::Erase(const Statement& statement) {
    for (const Expression* item : statement.items) {
        const std::size_t base = mTop;
        PutMark(item->position);
        const Operand variable = FindPlace(PreparePlace(*item));
        Emit(Opcode::Erase, variable.bits);
        if (IsTemp(variable)) Emit(Opcode::Clear, variable.Index(), 1);
        mTop = base;
    }
}

// Arrays with bounds in their declaration have their elements from the procedure's beginning on.
void ProcedureCompiler::DimensionArrays() {
    if (mProcedure.kind == ProcedureKind::Main) return;
    for (const Variable& variable : mProcedure.variables) {
        if (!variable.isArray) continue;
        const Operand slot = Slot(mLocals.Find(variable.name.text, variable.name.hash)->slot);
        const std::size_t base = mTop;
        PutMark(variable.position);
        const auto window = static_cast<std::uint16_t>(mTop);
        for (const std::int32_t upper : variable.bounds) {
            Emit(Opcode::Move, Slot(NewTemp()), ConstantOperand(Variant(upper)));
        }
        Emit(Opcode::ReDim, slot.bits, window, static_cast<std::uint32_t>(variable.bounds.size()), kFixed);
        mTop = base;
    }
}

}  // namespace ov::vbscript
