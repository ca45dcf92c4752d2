/// @file
/// The syntax tree. Nodes lie in an arena and refer to the source text and to the lexer's list of literals.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/script/vbscript/token.h"

namespace ov::vbscript {

/// A name as it was written, with its HashNoCase.
struct Identifier {
    std::u16string_view text;
    std::uint32_t hash = 0;
};

enum class ExpressionKind : std::uint8_t {
    Literal,     ///< `op` is Literal, True, False, Null, Empty or Nothing
    Name,        ///< `name`
    Me,          ///<
    Member,      ///< `left`.`name`
    WithMember,  ///< .`name`
    Call,        ///< `left`(`arguments`): a call or an index, which the grammar cannot tell apart
    Unary,       ///< `op` `left`
    Binary,      ///< `left` `op` `right`
    New,         ///< New `name`
    Bracketed,   ///< (`left`)
    Missing,     ///< an argument that was left out
};

struct Expression {
    ExpressionKind kind = ExpressionKind::Missing;
    TokenKind op = TokenKind::End;
    std::uint32_t literal = 0;
    Position position;
    Identifier name;
    Expression* left = nullptr;
    Expression* right = nullptr;
    std::span<Expression*> arguments;
};

struct Statement;
using Block = std::span<Statement*>;

enum class StatementKind : std::uint8_t {
    Assign,   ///< `target` = `value`
    Set,      ///< Set `target` = `value`
    Call,     ///< `target` is what is called
    ReDim,    ///< `items` are Calls of a name with bounds
    Erase,    ///< `items`
    If,       ///< `clauses`; the one without a condition is Else
    Select,   ///< `value`, `clauses` with `items`; the one without items is Else
    For,      ///< `target` = `value` To `limit` Step `step`
    ForEach,  ///< `target` In `value`
    Do,       ///< `value` is the condition, or nullptr
    With,     ///< `value`
    Exit,     ///< `word`: For, Do, Sub, Function or Identifier for Property
    OnError,  ///< `flag` is Resume Next
};

/// One branch of an If or a Select.
struct Clause {
    Expression* condition = nullptr;
    std::span<Expression*> items;
    Block body;
    Position position;
};

struct Statement {
    StatementKind kind = StatementKind::Call;
    TokenKind word = TokenKind::End;
    bool flag = false;   ///< Preserve of ReDim, Resume Next of OnError, condition behind the loop of Do
    bool until = false;  ///< of Do
    Position position;
    Position end;  ///< of the closing words
    Expression* target = nullptr;
    Expression* value = nullptr;
    Expression* limit = nullptr;
    Expression* step = nullptr;
    std::span<Expression*> items;
    std::span<Clause> clauses;
    Block body;
};

/// A variable of Dim, Private or Public.
struct Variable {
    Identifier name;
    bool isPublic = true;
    bool isArray = false;
    std::span<std::int32_t> bounds;  ///< upper bounds; none for an array that ReDim gives them
    Position position;
};

struct Constant {
    Identifier name;
    Expression* value = nullptr;
    Position position;
};

struct Parameter {
    Identifier name;
    bool byValue = false;
    Position position;
};

enum class ProcedureKind : std::uint8_t { Main, Sub, Function, Get, Let, Set };

/// A procedure, or the statements outside all procedures (Main).
struct Procedure {
    ProcedureKind kind = ProcedureKind::Main;
    bool isPublic = true;
    bool isDefault = false;
    bool usesExecute = false;  ///< a text that is compiled at run time may see its variables
    Identifier name;
    Position position;
    std::span<Parameter> parameters;
    std::span<Variable> variables;
    std::span<Constant> constants;
    std::span<Identifier> assigned;     ///< every name that a statement writes to
    std::span<Identifier> passed;       ///< every name that is an argument by itself
    std::span<Identifier> indexed;      ///< every name of which an element is written
    std::span<Identifier> dimensioned;  ///< every name of a ReDim, which declares what nothing else does
    Block body;
    Position end;
};

struct Class {
    Identifier name;
    Position position;
    std::span<Variable> fields;
    std::span<Procedure*> procedures;
};

/// A whole text.
struct Program {
    bool optionExplicit = false;
    Procedure main;
    std::span<Procedure*> procedures;
    std::span<Class*> classes;
    Expression* result = nullptr;  ///< of a text that is one expression
};

}  // namespace ov::vbscript
