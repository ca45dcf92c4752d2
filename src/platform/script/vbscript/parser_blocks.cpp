// Statements with blocks in them: If, Select Case, loops and With.
#include "platform/script/vbscript/parser.h"

namespace ov::vbscript {

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
            case TokenKind::Wend:
            case TokenKind::Case:
                return Keep(list);
            case TokenKind::Loop:
                if (mScope->loops > 0 || mScope->whiles > 0) return Keep(list);
                break;
            case TokenKind::Next:
                if (mScope->forLoops > 0) return Keep(list);
                break;
            default:
                break;
        }
        ParseStatementInto(list);
        ExpectEndOfStatement();
    }
}

Statement* Parser::ParseIf() {
    const Level level(*this);
    Statement* statement = NewStatement(StatementKind::If);
    std::vector<Clause> clauses(1);
    clauses.back().position = Current().position;
    ++mAt;
    clauses.back().condition = ParseExpression();
    Expect(TokenKind::Then, CompileError::ExpectedThen);
    if (!Is(TokenKind::EndOfLine) && !Is(TokenKind::End)) {
        ParseLineIf(clauses);
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

// Behind Then of an If on one line, which a colon alone makes it, too.
void Parser::ParseLineIf(std::vector<Clause>& clauses) {
    ++mLineIfs;
    clauses.back().body = ParseSingleLine();
    if (Accept(TokenKind::Else)) {
        Clause& otherwise = clauses.emplace_back();
        otherwise.position = Current().position;
        otherwise.body = ParseSingleLine();
    }
    --mLineIfs;
    if (Is(TokenKind::EndWord) && Ahead(1).kind == TokenKind::If) mAt += 2;
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
    ++mScope->whiles;
    loop->body = ParseBlock();
    --mScope->whiles;
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

}  // namespace ov::vbscript
