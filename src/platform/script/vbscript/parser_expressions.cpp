#include "platform/automation/text.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/parser.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr int kNoOperator = 0;
constexpr int kComparison = 7;

/// How tightly a binary operator binds; all group from the left.
int PrecedenceOf(TokenKind kind) noexcept {
    switch (kind) {
        case TokenKind::Imp:
            return 1;
        case TokenKind::Eqv:
            return 2;
        case TokenKind::Xor:
            return 3;
        case TokenKind::Or:
            return 4;
        case TokenKind::And:
            return 5;
        // Not stands here: looser than a comparison.
        case TokenKind::Equal:
        case TokenKind::NotEqual:
        case TokenKind::Less:
        case TokenKind::LessEqual:
        case TokenKind::Greater:
        case TokenKind::GreaterEqual:
        case TokenKind::Is:
            return kComparison;
        case TokenKind::Ampersand:
            return 8;
        case TokenKind::Plus:
        case TokenKind::Minus:
            return 9;
        case TokenKind::Mod:
            return 10;
        case TokenKind::Backslash:
            return 11;
        case TokenKind::Star:
        case TokenKind::Slash:
            return 12;
        case TokenKind::Caret:
            return 13;
        default:
            return kNoOperator;
    }
}

/// True for the functions that compile a text which may use the variables of the procedure around the call.
bool SeesVariables(std::u16string_view name) noexcept {
    return EqualNoCase(name, u"execute") || EqualNoCase(name, u"eval");
}

}  // namespace

Parser::Level::Level(Parser& parser) : mParser(parser) {
    if (mParser.mNesting >= kMaxNesting) mParser.FailHere(CompileError::OutOfMemory);
    ++mParser.mNesting;
}

Expression* Parser::NewExpression(ExpressionKind kind, Position position) {
    RunGuard::Step();
    Expression* expression = mArena.New<Expression>();
    expression->kind = kind;
    expression->position = position;
    return expression;
}

Expression* Parser::ParseExpression() {
    return ParseBinary(1);
}

bool Parser::IsBinaryOperator(TokenKind kind) noexcept {
    return PrecedenceOf(kind) != kNoOperator;
}

Expression* Parser::ParseBinary(int lowest) {
    Expression* left = ParseOperand();
    for (;;) {
        const TokenKind op = Current().kind;
        const int precedence = PrecedenceOf(op);
        if (precedence < lowest || precedence == kNoOperator) return left;
        Expression* binary = NewExpression(ExpressionKind::Binary, Current().position);
        ++mAt;
        binary->op = op;
        binary->left = left;
        binary->right = ParseBinary(precedence + 1);
        left = binary;
    }
}

Expression* Parser::ParseOperand() {
    const TokenKind op = Current().kind;
    if (op != TokenKind::Not && op != TokenKind::Minus && op != TokenKind::Plus) return ParsePrimary();
    const Level level(*this);
    // A plus does nothing, like brackets.
    const ExpressionKind kind = op == TokenKind::Plus ? ExpressionKind::Bracketed : ExpressionKind::Unary;
    Expression* unary = NewExpression(kind, Current().position);
    ++mAt;
    unary->op = op;
    // A sign binds even tighter than "^": -2 ^ 2 is 4.
    unary->left = op == TokenKind::Not ? ParseBinary(kComparison) : ParseOperand();
    return unary;
}

Expression* Parser::ParsePrimary() {
    const Token& token = Current();
    switch (token.kind) {
        case TokenKind::Literal:
        case TokenKind::True:
        case TokenKind::False:
        case TokenKind::Null:
        case TokenKind::Empty:
        case TokenKind::Nothing: {
            Expression* literal = NewExpression(ExpressionKind::Literal, token.position);
            literal->op = token.kind;
            literal->literal = token.literal;
            ++mAt;
            return literal;
        }
        case TokenKind::OpenBracket: {
            const Level level(*this);
            Expression* bracketed = NewExpression(ExpressionKind::Bracketed, token.position);
            ++mAt;
            bracketed->left = ParseExpression();
            Expect(TokenKind::CloseBracket, CompileError::ExpectedCloseBracket);
            return ParsePostfix(bracketed, false);
        }
        case TokenKind::New: {
            Expression* created = NewExpression(ExpressionKind::New, token.position);
            ++mAt;
            created->name = ExpectName();
            return created;
        }
        case TokenKind::Identifier:
        case TokenKind::Me:
        case TokenKind::Dot:
            return ParsePostfix(nullptr, false);
        default:
            FailHere(CompileError::ExpectedExpression);
    }
}

// A name with members and brackets behind it. In a statement, a dot behind a name and a blank begins the first
// argument.
Expression* Parser::ParsePostfix(Expression* first, bool isStatement) {
    Expression* expression = first;
    const Position start = Current().position;
    if (!expression) {
        if (Accept(TokenKind::Me)) {
            expression = NewExpression(ExpressionKind::Me, start);
        } else if (Accept(TokenKind::Dot)) {
            expression = NewExpression(ExpressionKind::WithMember, start);
            expression->name = ExpectName();
        } else {
            expression = NewExpression(ExpressionKind::Name, start);
            expression->name = ExpectName();
            if (SeesVariables(expression->name.text)) mScope->usesExecute = true;
        }
    }
    for (int links = 0;; ++links) {
        const Token& token = Current();
        const bool beginsArgument = isStatement && token.blankBefore && expression->kind != ExpressionKind::Call;
        const bool isMember = token.kind == TokenKind::Dot && !beginsArgument;
        if (!isMember && token.kind != TokenKind::OpenBracket) return expression;
        if (links >= kMaxNesting) FailHere(CompileError::OutOfMemory);
        Expression* outer =
            NewExpression(isMember ? ExpressionKind::Member : ExpressionKind::Call, expression->position);
        outer->left = expression;
        const std::size_t bracket = mAt++;
        if (isMember) {
            outer->name = ExpectName();
        } else {
            const Level level(*this);
            outer->arguments = ParseArguments(false);
            Expect(TokenKind::CloseBracket, CompileError::ExpectedCloseBracket);
            mLastBracket = bracket;
            if (isStatement && token.blankBefore && !mSpacedCall) {
                mSpacedCall = outer;
                mSpacedBracket = bracket;
            }
        }
        expression = outer;
    }
}

// Arguments up to the closing bracket, or to the end of the statement.
std::span<Expression*> Parser::ParseArguments(bool isStatement) {
    const std::size_t mark = mArgumentStack.size();
    const auto atEnd = [&] { return isStatement ? IsEndOfStatement() : Is(TokenKind::CloseBracket); };
    while (!atEnd() || mArgumentStack.size() > mark) {
        Expression* argument = Is(TokenKind::Comma) || atEnd()
                                   ? NewExpression(ExpressionKind::Missing, Current().position)
                                   : ParseExpression();
        NotePassed(*argument);
        mArgumentStack.push_back(argument);
        if (!Accept(TokenKind::Comma)) break;
    }
    const std::span<Expression*> arguments = mArena.Copy(std::span<Expression* const>(mArgumentStack).subspan(mark));
    mArgumentStack.resize(mark);
    return arguments;
}

void Parser::NotePassed(const Expression& argument) {
    if (argument.kind == ExpressionKind::Name) mScope->passed.push_back(argument.name);
}

}  // namespace ov::vbscript
