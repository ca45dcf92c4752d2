/// @file
/// From tokens to a syntax tree.
#pragma once

#include <vector>

#include "platform/automation/variant.h"
#include "platform/script/vbscript/arena.h"
#include "platform/script/vbscript/ast.h"
#include "platform/script/vbscript/token.h"

namespace ov::vbscript {

/// Parses one text. Errors are ScriptErrors with the place of the token that is wrong.
class Parser {
public:
    Parser(Arena& arena, const std::vector<Token>& tokens, const std::vector<Variant>& literals)
        : mArena(arena), mTokens(tokens), mLiterals(literals) {}

    Program ParseProgram();
    /// A text that is one expression.
    Program ParseExpressionText();

private:
    /// What is collected for the procedure that is being parsed.
    struct Scope {
        std::vector<Variable> variables;
        std::vector<Constant> constants;
        std::vector<Identifier> assigned;
        std::vector<Identifier> passed;
        std::vector<Identifier> indexed;
        std::vector<Identifier> dimensioned;
        bool usesExecute = false;
        int loops = 0;     // Do loops around the current statement
        int forLoops = 0;  // For loops around it
        int whiles = 0;    // While loops around it
    };
    /// Counts a level of nesting while it lives.
    class Level {
    public:
        explicit Level(Parser& parser);
        ~Level() { --mParser.mNesting; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Parser& mParser;
    };

    // Tokens.
    const Token& Current() const noexcept { return mTokens[mAt]; }
    const Token& Ahead(std::size_t count) const noexcept;
    bool Is(TokenKind kind) const noexcept { return Current().kind == kind; }
    bool IsWord(std::u16string_view word) const noexcept;
    bool IsEndOfStatement() const noexcept;
    bool IsEndOfProcedure() const noexcept;
    bool Accept(TokenKind kind) noexcept;
    bool AcceptWord(std::u16string_view word) noexcept;
    void Expect(TokenKind kind, CompileError error);
    Identifier ExpectName();
    void ExpectEndOfStatement();
    void SkipSeparators() noexcept;
    [[noreturn]] void FailHere(CompileError error) const { Fail(error, Current().position); }

    // Expressions.
    Expression* ParseExpression();
    static bool IsBinaryOperator(TokenKind kind) noexcept;
    Expression* ParseBinary(int lowest);
    Expression* ParseOperand();
    Expression* ParsePrimary();
    Expression* ParsePostfix(Expression* first, bool isStatement);
    std::span<Expression*> ParseArguments(bool isStatement);
    Expression* NewExpression(ExpressionKind kind, Position position);
    void NotePassed(const Expression& argument);

    // Statements.
    Block ParseBlock();
    void ParseStatementInto(std::vector<Statement*>& list);
    Statement* ParseStatement();
    Statement* ParseCallOrAssignment();
    Statement* ParseCallArguments(Expression* callee, Position position);
    Statement* ParseCall();
    Statement* ParseSet();
    Statement* ParseIf();
    void ParseLineIf(std::vector<Clause>& clauses);
    Block ParseSingleLine();
    Statement* ParseSelect();
    Statement* ParseFor();
    Statement* ParseForEach(Statement* statement);
    Statement* ParseDo();
    Statement* ParseWhile();
    Statement* ParseWith();
    Statement* ParseExit();
    Statement* ParseOnError();
    Statement* ParseReDim();
    Statement* ParseErase();
    void ParseEnd(TokenKind word, CompileError error);
    Statement* NewStatement(StatementKind kind);
    void NoteTarget(const Expression& target);

    // Declarations.
    void ParseVariables(std::vector<Variable>& list, bool isPublic);
    std::span<std::int32_t> ParseBounds();
    void ParseConstants();
    bool ParseTopLevelDeclaration();
    void ParseOption();
    Procedure* ParseProcedure(bool isPublic, bool isDefault);
    std::span<Parameter> ParseParameters();
    void ParsePropertyKind(Procedure& procedure);
    void CheckProperty(const Procedure& procedure, Position position) const;
    void ParseBody(Procedure& procedure);
    void FinishScope(Procedure& procedure, Scope& scope);
    Class* ParseClass();
    void ParseClassMember(std::vector<Variable>& fields, std::vector<Procedure*>& procedures);
    void CheckClass(const Class& parsed) const;
    void CheckSameProperty(const Procedure& known, const Procedure& other) const;

    template <class T>
    std::span<T> Keep(const std::vector<T>& items) {
        return mArena.Copy(std::span<const T>(items));
    }

    Arena& mArena;
    const std::vector<Token>& mTokens;
    const std::vector<Variant>& mLiterals;
    std::size_t mAt = 0;
    std::size_t mLastBracket = 0;       // token of the last "(" that ParsePostfix read as a call
    std::size_t mSpacedBracket = 0;     // token of the first "(" behind a blank in a statement's callee
    Expression* mSpacedCall = nullptr;  // and what it makes, or nullptr
    int mNesting = 0;
    int mLineIfs = 0;  // Ifs on one line around the current statement
    Scope* mScope = nullptr;
    bool mInProcedure = false;
    ProcedureKind mKind = ProcedureKind::Main;
    bool mOptionExplicit = false;
    bool mStarted = false;  // a statement other than Option was met
    std::vector<Expression*> mArgumentStack;
    std::vector<Procedure*> mProcedures;
    std::vector<Class*> mClasses;
};

}  // namespace ov::vbscript
