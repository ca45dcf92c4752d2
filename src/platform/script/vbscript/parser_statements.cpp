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
            return true;
        case TokenKind::Else:
            return mLineIfs > 0;
        case TokenKind::EndWord:
            return IsEndOfProcedure() || (mLineIfs > 0 && Ahead(1).kind == TokenKind::If);
        default:
            return false;
    }
}

// At End: the words that close a procedure or a class may stand behind a statement on its line.
bool Parser::IsEndOfProcedure() const noexcept {
    const Token& word = Ahead(1);
    return word.kind == TokenKind::Sub || word.kind == TokenKind::Function || word.kind == TokenKind::Class ||
           (word.kind == TokenKind::Identifier && EqualNoCase(word.text, u"property"));
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
        case TokenKind::Sub:
        case TokenKind::Function:
        case TokenKind::Public:
        case TokenKind::Private:
            // Within a block of the statements outside procedures it is as global as beside it.
            if (mInProcedure) FailHere(CompileError::Syntax);
            ParseTopLevelDeclaration();
            return nullptr;
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

// A call without the word Call. What looked like its brackets belongs to the first argument if an operator or a comma
// is behind them: f (a) + b, c. So do members behind brackets with a blank before: f (a).b + c. Without an operator
// they are those of what the call gives: f (a).b c. A new object is an argument always: f (New C).b
Statement* Parser::ParseCallArguments(Expression* callee, Position position) {
    Statement* call = NewStatement(StatementKind::Call);
    call->position = position;
    call->target = callee;
    const bool isNew = mSpacedCall && mSpacedCall != callee && mTokens[mSpacedBracket + 1].kind == TokenKind::New;
    if (IsEndOfStatement() && !isNew) {
        if (callee->kind != ExpressionKind::Call) return call;
        if (callee->arguments.size() > 1) Fail(CompileError::CannotUseBracketsForSub, position);
        for (Expression*& argument : callee->arguments) {
            Expression* bracketed = NewExpression(ExpressionKind::Bracketed, argument->position);
            bracketed->left = argument;
            argument = bracketed;  // f (x) passes a copy
        }
        return call;
    }
    const bool isCall = callee->kind == ExpressionKind::Call;
    if (isCall && !isNew && (!mSpacedCall || mTokens[mLastBracket].blankBefore)) {
        mAt = mLastBracket;
        callee = callee->left;
    } else if (isNew || (mSpacedCall && (isCall || Is(TokenKind::Comma) || IsBinaryOperator(Current().kind)))) {
        mAt = mSpacedBracket;
        callee = mSpacedCall->left;
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
    call->target = Is(TokenKind::OpenBracket) ? ParsePrimary() : ParsePostfix(nullptr, false);
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
