#include "platform/automation/text.h"
#include "platform/script/vbscript/parser.h"

namespace ov::vbscript {

const Token& Parser::Ahead(std::size_t count) const noexcept {
    return mAt + count < mTokens.size() ? mTokens[mAt + count] : mTokens.back();
}

bool Parser::IsWord(std::u16string_view word) const noexcept {
    return Is(TokenKind::Identifier) && EqualNoCase(Current().text, word);
}

bool Parser::IsEndOfStatement() const noexcept {
    switch (Current().kind) {
        case TokenKind::End:
        case TokenKind::EndOfLine:
        case TokenKind::Colon:
        case TokenKind::Else:  // of an If on one line
            return true;
        case TokenKind::EndWord:
            return Ahead(1).kind == TokenKind::If;
        default:
            return false;
    }
}

bool Parser::Accept(TokenKind kind) noexcept {
    if (!Is(kind)) return false;
    ++mAt;
    return true;
}

bool Parser::AcceptWord(std::u16string_view word) noexcept {
    if (!IsWord(word)) return false;
    ++mAt;
    return true;
}

void Parser::Expect(TokenKind kind, CompileError error) {
    if (!Accept(kind)) FailHere(error);
}

Identifier Parser::ExpectName() {
    if (!Is(TokenKind::Identifier)) FailHere(CompileError::ExpectedIdentifier);
    const Token& token = Current();
    ++mAt;
    return {token.text, token.hash};
}

void Parser::ExpectEndOfStatement() {
    if (!IsEndOfStatement()) FailHere(CompileError::ExpectedEndOfStatement);
}

void Parser::SkipSeparators() noexcept {
    while (Is(TokenKind::EndOfLine) || Is(TokenKind::Colon)) {
        ++mAt;
    }
}

Statement* Parser::NewStatement(StatementKind kind) {
    Statement* statement = mArena.New<Statement>();
    statement->kind = kind;
    statement->position = statement->end = Current().position;
    return statement;
}

void Parser::NoteTarget(const Expression& target) {
    if (target.kind == ExpressionKind::Name) return mScope->assigned.push_back(target.name);
    const Expression* root = &target;
    while (root->kind == ExpressionKind::Call) {
        root = root->left;
    }
    if (root->kind == ExpressionKind::Name) mScope->indexed.push_back(root->name);
}

// Statements up to a word that closes or divides a block, which stays the current token.
Block Parser::ParseBlock() {
    const Level level(*this);
    std::vector<Statement*> list;
    for (;;) {
        SkipSeparators();
        switch (Current().kind) {
            case TokenKind::End:
            case TokenKind::Else:
            case TokenKind::ElseIf:
            case TokenKind::EndWord:
            case TokenKind::Loop:
            case TokenKind::Next:
            case TokenKind::Wend:
            case TokenKind::Case:
                return Keep(list);
            default:
                break;
        }
        ParseStatementInto(list);
        ExpectEndOfStatement();
    }
}

void Parser::ParseStatementInto(std::vector<Statement*>& list) {
    if (Statement* statement = ParseStatement()) list.push_back(statement);
    mStarted = true;
}

// One statement; nullptr for one that only declares something.
Statement* Parser::ParseStatement() {
    switch (Current().kind) {
        case TokenKind::Identifier:
            if (IsWord(u"erase") && Ahead(1).kind == TokenKind::Identifier) return ParseErase();
            return ParseCallOrAssignment();
        case TokenKind::Me:
        case TokenKind::Dot:
            return ParseCallOrAssignment();
        case TokenKind::Call:
            return ParseCall();
        case TokenKind::Const:
            ParseConstants();
            return nullptr;
        case TokenKind::Dim:
            ++mAt;
            ParseVariables(mScope->variables, true);
            return nullptr;
        case TokenKind::Do:
            return ParseDo();
        case TokenKind::Exit:
            return ParseExit();
        case TokenKind::For:
            return ParseFor();
        case TokenKind::If:
            return ParseIf();
        case TokenKind::On:
            return ParseOnError();
        case TokenKind::ReDim:
            return ParseReDim();
        case TokenKind::Select:
            return ParseSelect();
        case TokenKind::Set:
            return ParseSet();
        case TokenKind::Stop:
            ++mAt;  // there is no debugger to stop for
            return nullptr;
        case TokenKind::While:
            return ParseWhile();
        case TokenKind::With:
            return ParseWith();
        case TokenKind::Option:
            FailHere(CompileError::MustBeFirstStatement);
        case TokenKind::Loop:
            FailHere(CompileError::LoopWithoutDo);
        case TokenKind::Next:
            FailHere(CompileError::UnexpectedNext);
        case TokenKind::Literal:
        case TokenKind::Equal:
        case TokenKind::OpenBracket:
            FailHere(CompileError::ExpectedStatement);
        default:
            FailHere(CompileError::Syntax);
    }
}

Statement* Parser::ParseCallOrAssignment() {
    const Position position = Current().position;
    mSpacedCall = nullptr;
    Expression* target = ParsePostfix(nullptr, true);
    if (Is(TokenKind::Equal)) {
        Statement* assign = NewStatement(StatementKind::Assign);
        assign->position = position;
        ++mAt;
        if (target->kind == ExpressionKind::Me) Fail(CompileError::InvalidUseOfMe, position);
        assign->target = target;
        NoteTarget(*target);
        assign->value = ParseExpression();
        return assign;
    }
    return ParseCallArguments(target, position);
}

// A call without the word Call. What looked like its brackets belongs to the first argument if the statement goes on
// behind them: f (a) + b, c. So it does if a blank is before them and members are behind: f (a).b
Statement* Parser::ParseCallArguments(Expression* callee, Position position) {
    Statement* call = NewStatement(StatementKind::Call);
    call->position = position;
    call->target = callee;
    const bool isArgument = mSpacedCall && mSpacedCall != callee;
    if (IsEndOfStatement() && !isArgument) {
        if (callee->kind != ExpressionKind::Call) return call;
        if (callee->arguments.size() > 1) Fail(CompileError::CannotUseBracketsForSub, position);
        for (Expression*& argument : callee->arguments) {
            Expression* bracketed = NewExpression(ExpressionKind::Bracketed, argument->position);
            bracketed->left = argument;
            argument = bracketed;  // f (x) passes a copy
        }
        return call;
    }
    if (isArgument) {
        mAt = mSpacedBracket;
        callee = mSpacedCall->left;
    } else if (callee->kind == ExpressionKind::Call) {
        mAt = mLastBracket;
        callee = callee->left;
    }
    Expression* target = NewExpression(ExpressionKind::Call, position);
    target->left = callee;
    target->arguments = ParseArguments(true);
    ExpectEndOfStatement();
    call->target = target;
    return call;
}

Statement* Parser::ParseCall() {
    Statement* call = NewStatement(StatementKind::Call);
    ++mAt;
    call->target = ParsePostfix(nullptr, false);
    return call;
}

Statement* Parser::ParseSet() {
    Statement* set = NewStatement(StatementKind::Set);
    ++mAt;
    set->target = ParsePostfix(nullptr, false);
    if (set->target->kind == ExpressionKind::Me) Fail(CompileError::InvalidUseOfMe, set->position);
    Expect(TokenKind::Equal, CompileError::ExpectedEqual);
    NoteTarget(*set->target);
    set->value = ParseExpression();
    return set;
}

Statement* Parser::ParseIf() {
    const Level level(*this);
    Statement* statement = NewStatement(StatementKind::If);
    std::vector<Clause> clauses(1);
    clauses.back().position = Current().position;
    ++mAt;
    clauses.back().condition = ParseExpression();
    Expect(TokenKind::Then, CompileError::ExpectedThen);
    std::size_t ahead = 0;
    while (Ahead(ahead).kind == TokenKind::Colon) {
        ++ahead;
    }
    const TokenKind behind = Ahead(ahead).kind;
    if (behind != TokenKind::EndOfLine && behind != TokenKind::End) {
        clauses.back().body = ParseSingleLine();
        if (Accept(TokenKind::Else)) {
            Clause& otherwise = clauses.emplace_back();
            otherwise.position = Current().position;
            otherwise.body = ParseSingleLine();
        }
        if (Is(TokenKind::EndWord) && Ahead(1).kind == TokenKind::If) mAt += 2;
        statement->clauses = Keep(clauses);
        return statement;
    }
    clauses.back().body = ParseBlock();
    while (Is(TokenKind::ElseIf)) {
        Clause& clause = clauses.emplace_back();
        clause.position = Current().position;
        ++mAt;
        clause.condition = ParseExpression();
        Expect(TokenKind::Then, CompileError::ExpectedThen);
        clause.body = ParseBlock();
    }
    if (Is(TokenKind::Else)) {
        Clause& otherwise = clauses.emplace_back();
        otherwise.position = Current().position;
        ++mAt;
        otherwise.body = ParseBlock();
    }
    statement->end = Current().position;
    ParseEnd(TokenKind::If, CompileError::ExpectedIf);
    statement->clauses = Keep(clauses);
    return statement;
}

// The statements of an If on one line: all that its colons join.
Block Parser::ParseSingleLine() {
    std::vector<Statement*> list;
    for (;;) {
        while (Accept(TokenKind::Colon)) {
        }
        if (IsEndOfStatement()) return Keep(list);
        ParseStatementInto(list);
        ExpectEndOfStatement();
    }
}

void Parser::ParseEnd(TokenKind word, CompileError error) {
    Expect(TokenKind::EndWord, CompileError::ExpectedEnd);
    Expect(word, error);
}

Statement* Parser::ParseSelect() {
    Statement* select = NewStatement(StatementKind::Select);
    ++mAt;
    Expect(TokenKind::Case, CompileError::ExpectedCase);
    select->value = ParseExpression();
    ExpectEndOfStatement();
    SkipSeparators();
    std::vector<Clause> clauses;
    while (Is(TokenKind::Case)) {
        Clause& clause = clauses.emplace_back();
        clause.position = Current().position;
        ++mAt;
        const bool isElse = Accept(TokenKind::Else);
        std::vector<Expression*> items;
        while (!isElse) {
            items.push_back(ParseExpression());
            if (!Accept(TokenKind::Comma)) break;
        }
        if (Is(TokenKind::To)) FailHere(CompileError::ExpectedEndOfStatement);
        clause.items = Keep(items);
        clause.body = ParseBlock();
        if (isElse) break;
    }
    select->end = Current().position;
    ParseEnd(TokenKind::Select, CompileError::ExpectedSelect);
    select->clauses = Keep(clauses);
    return select;
}

Statement* Parser::ParseFor() {
    Statement* statement = NewStatement(StatementKind::For);
    ++mAt;
    if (Is(TokenKind::Each)) return ParseForEach(statement);
    statement->target = ParsePostfix(nullptr, false);
    if (statement->target->kind != ExpressionKind::Name) {
        Fail(CompileError::InvalidForVariable, statement->target->position);
    }
    NoteTarget(*statement->target);
    Expect(TokenKind::Equal, CompileError::ExpectedEqual);
    statement->value = ParseExpression();
    Expect(TokenKind::To, CompileError::ExpectedTo);
    statement->limit = ParseExpression();
    if (AcceptWord(u"step")) statement->step = ParseExpression();
    ExpectEndOfStatement();
    ++mScope->forLoops;
    statement->body = ParseBlock();
    --mScope->forLoops;
    statement->end = Current().position;
    Expect(TokenKind::Next, CompileError::ExpectedNext);
    return statement;
}

Statement* Parser::ParseForEach(Statement* statement) {
    ++mAt;
    statement->kind = StatementKind::ForEach;
    statement->target = ParsePostfix(nullptr, false);
    if (statement->target->kind != ExpressionKind::Name) {
        Fail(CompileError::InvalidForVariable, statement->target->position);
    }
    NoteTarget(*statement->target);
    Expect(TokenKind::In, CompileError::ExpectedIn);
    statement->value = ParseExpression();
    ExpectEndOfStatement();
    ++mScope->forLoops;
    statement->body = ParseBlock();
    --mScope->forLoops;
    statement->end = Current().position;
    Expect(TokenKind::Next, CompileError::ExpectedNext);
    return statement;
}

Statement* Parser::ParseDo() {
    Statement* loop = NewStatement(StatementKind::Do);
    ++mAt;
    if (Is(TokenKind::While) || Is(TokenKind::Until)) {
        loop->until = Is(TokenKind::Until);
        ++mAt;
        loop->value = ParseExpression();
        ExpectEndOfStatement();
    } else if (!IsEndOfStatement()) {
        FailHere(CompileError::ExpectedWhileUntilOrEnd);
    }
    ++mScope->loops;
    loop->body = ParseBlock();
    --mScope->loops;
    loop->end = Current().position;
    Expect(TokenKind::Loop, CompileError::ExpectedLoop);
    if (!loop->value && (Is(TokenKind::While) || Is(TokenKind::Until))) {
        loop->until = Is(TokenKind::Until);
        loop->flag = true;
        ++mAt;
        loop->value = ParseExpression();
    }
    return loop;
}

Statement* Parser::ParseWhile() {
    Statement* loop = NewStatement(StatementKind::Do);
    ++mAt;
    loop->word = TokenKind::While;
    loop->value = ParseExpression();
    ExpectEndOfStatement();
    loop->body = ParseBlock();
    loop->end = Current().position;
    Expect(TokenKind::Wend, CompileError::ExpectedWend);
    return loop;
}

Statement* Parser::ParseWith() {
    Statement* with = NewStatement(StatementKind::With);
    ++mAt;
    with->value = ParseExpression();
    ExpectEndOfStatement();
    with->body = ParseBlock();
    with->end = Current().position;
    ParseEnd(TokenKind::With, CompileError::ExpectedWith);
    return with;
}

Statement* Parser::ParseExit() {
    Statement* leave = NewStatement(StatementKind::Exit);
    ++mAt;
    leave->word = Current().kind;
    bool valid = false;
    switch (Current().kind) {
        case TokenKind::Do:
            valid = mScope->loops > 0;
            break;
        case TokenKind::For:
            valid = mScope->forLoops > 0;
            break;
        case TokenKind::Sub:
            valid = mInProcedure && mKind == ProcedureKind::Sub;
            break;
        case TokenKind::Function:
            valid = mInProcedure && mKind == ProcedureKind::Function;
            break;
        default:
            valid = IsWord(u"property") && mInProcedure && mKind >= ProcedureKind::Get;
            break;
    }
    if (!valid) FailHere(CompileError::InvalidExit);
    ++mAt;
    return leave;
}

Statement* Parser::ParseOnError() {
    Statement* statement = NewStatement(StatementKind::OnError);
    ++mAt;
    if (!AcceptWord(u"error")) FailHere(CompileError::Syntax);
    if (Accept(TokenKind::Resume)) {
        Expect(TokenKind::Next, CompileError::ExpectedNext);
        statement->flag = true;
        return statement;
    }
    Expect(TokenKind::GoTo, CompileError::Syntax);
    // Only "On Error GoTo 0": there are no labels.
    const Variant* literal = Is(TokenKind::Literal) ? &mLiterals[Current().literal] : nullptr;
    if (!literal || literal->Type() != VarType::Integer || literal->AsInteger() != 0) FailHere(CompileError::Syntax);
    ++mAt;
    return statement;
}

Statement* Parser::ParseReDim() {
    Statement* statement = NewStatement(StatementKind::ReDim);
    ++mAt;
    statement->flag = IsWord(u"preserve") && Ahead(1).kind == TokenKind::Identifier && AcceptWord(u"preserve");
    std::vector<Expression*> items;
    do {
        Expression* item = ParsePostfix(nullptr, false);
        if (item->kind != ExpressionKind::Call || item->left->kind != ExpressionKind::Name) {
            FailHere(CompileError::ExpectedOpenBracket);
        }
        if (item->arguments.empty()) FailHere(CompileError::ExpectedExpression);
        NoteTarget(*item->left);
        mScope->dimensioned.push_back(item->left->name);
        items.push_back(item);
    } while (Accept(TokenKind::Comma));
    statement->items = Keep(items);
    return statement;
}

Statement* Parser::ParseErase() {
    Statement* statement = NewStatement(StatementKind::Erase);
    ++mAt;
    std::vector<Expression*> items;
    do {
        items.push_back(ParsePostfix(nullptr, false));
        NoteTarget(*items.back());
    } while (Accept(TokenKind::Comma));
    statement->items = Keep(items);
    return statement;
}

}  // namespace ov::vbscript
