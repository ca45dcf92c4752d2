#include <algorithm>

#include "platform/automation/conversions.h"
#include "platform/automation/text.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/name_map.h"
#include "platform/script/vbscript/parser.h"

namespace ov::vbscript {

namespace {

bool SameName(const Identifier& a, const Identifier& b) noexcept {
    return a.hash == b.hash && EqualNoCase(a.text, b.text);
}

}  // namespace

Program Parser::ParseProgram() {
    Program program;
    Scope scope;
    mScope = &scope;
    std::vector<Statement*> body;
    for (SkipSeparators(); !Is(TokenKind::End); SkipSeparators()) {
        if (!ParseTopLevelDeclaration()) ParseStatementInto(body);
        if (!Is(TokenKind::EndOfLine) && !Is(TokenKind::Colon) && !Is(TokenKind::End)) {
            FailHere(CompileError::ExpectedEndOfStatement);
        }
    }
    program.main.body = Keep(body);
    program.main.end = Current().position;
    FinishScope(program.main, scope);
    program.optionExplicit = mOptionExplicit;
    program.procedures = Keep(mProcedures);
    program.classes = Keep(mClasses);
    return program;
}

Program Parser::ParseExpressionText() {
    Program program;
    Scope scope;
    mScope = &scope;
    SkipSeparators();
    program.result = ParseExpression();
    SkipSeparators();
    if (!Is(TokenKind::End)) FailHere(CompileError::ExpectedEndOfStatement);
    FinishScope(program.main, scope);
    return program;
}

void Parser::FinishScope(Procedure& procedure, Scope& scope) {
    procedure.variables = Keep(scope.variables);
    procedure.constants = Keep(scope.constants);
    procedure.assigned = Keep(scope.assigned);
    procedure.passed = Keep(scope.passed);
    procedure.indexed = Keep(scope.indexed);
    procedure.dimensioned = Keep(scope.dimensioned);
    procedure.usesExecute = scope.usesExecute;
}

// Option Explicit, a procedure, a class, or variables with a word for their visibility. False if it is none of them.
bool Parser::ParseTopLevelDeclaration() {
    switch (Current().kind) {
        case TokenKind::Option:
            ParseOption();
            return true;
        case TokenKind::Sub:
        case TokenKind::Function:
            mStarted = true;
            mProcedures.push_back(ParseProcedure(true, false));
            return true;
        case TokenKind::Class:
            mStarted = true;
            mClasses.push_back(ParseClass());
            return true;
        case TokenKind::Public:
        case TokenKind::Private:
            break;
        default:
            if (IsWord(u"property") && (Ahead(1).kind == TokenKind::Get || Ahead(1).kind == TokenKind::Let ||
                                        Ahead(1).kind == TokenKind::Set)) {
                FailHere(CompileError::MustBeInsideClass);
            }
            return false;
    }
    mStarted = true;
    const bool isPublic = Is(TokenKind::Public);
    ++mAt;
    if (IsWord(u"default") && (Ahead(1).kind == TokenKind::Sub || Ahead(1).kind == TokenKind::Function)) ++mAt;
    if (Is(TokenKind::Sub) || Is(TokenKind::Function)) {
        mProcedures.push_back(ParseProcedure(isPublic, false));
    } else if (Is(TokenKind::Const)) {
        ParseConstants();
    } else if (IsWord(u"property") && Ahead(1).IsReservedWord()) {
        FailHere(CompileError::MustBeInsideClass);
    } else {
        ParseVariables(mScope->variables, isPublic);
    }
    return true;
}

void Parser::ParseOption() {
    if (mStarted || mOptionExplicit) FailHere(CompileError::MustBeFirstStatement);
    ++mAt;
    if (!AcceptWord(u"explicit")) FailHere(CompileError::Syntax);
    mOptionExplicit = true;
}

void Parser::ParseVariables(std::vector<Variable>& list, bool isPublic) {
    do {
        Variable variable;
        variable.position = Current().position;
        variable.isPublic = isPublic;
        variable.name = ExpectName();
        if (Accept(TokenKind::OpenBracket)) {
            variable.isArray = true;
            variable.bounds = ParseBounds();
        }
        list.push_back(variable);
    } while (Accept(TokenKind::Comma));
}

std::span<std::int32_t> Parser::ParseBounds() {
    std::vector<std::int32_t> bounds;
    while (!Is(TokenKind::CloseBracket)) {
        const Variant* literal = Is(TokenKind::Literal) ? &mLiterals[Current().literal] : nullptr;
        const bool isWhole = literal && (literal->Type() == VarType::Integer || literal->Type() == VarType::Long);
        if (!isWhole || ToLong(*literal) < 0) FailHere(CompileError::ExpectedIntegerConstant);
        bounds.push_back(ToLong(*literal));
        ++mAt;
        if (!Accept(TokenKind::Comma)) break;
    }
    Expect(TokenKind::CloseBracket, CompileError::ExpectedCloseBracket);
    return Keep(bounds);
}

void Parser::ParseConstants() {
    ++mAt;
    do {
        Constant constant;
        constant.position = Current().position;
        constant.name = ExpectName();
        Expect(TokenKind::Equal, CompileError::ExpectedEqual);
        const Position position = Current().position;
        if (IsEndOfStatement()) FailHere(CompileError::ExpectedLiteralConstant);
        constant.value = ParseExpression();
        const Expression* literal = constant.value;
        while (literal->kind == ExpressionKind::Unary || literal->kind == ExpressionKind::Bracketed) {
            literal = literal->left;
        }
        if (literal->kind != ExpressionKind::Literal || literal->op == TokenKind::Nothing) {
            Fail(CompileError::ExpectedLiteralConstant, position);
        }
        mScope->constants.push_back(constant);
    } while (Accept(TokenKind::Comma));
    if (!IsEndOfStatement()) FailHere(CompileError::ExpectedEndOfStatement);
}

// At Sub, Function or Property.
Procedure* Parser::ParseProcedure(bool isPublic, bool isDefault) {
    Procedure* procedure = mArena.New<Procedure>();
    procedure->isPublic = isPublic;
    procedure->isDefault = isDefault;
    const TokenKind word = Current().kind;
    ++mAt;
    if (word == TokenKind::Sub) {
        procedure->kind = ProcedureKind::Sub;
    } else if (word == TokenKind::Function) {
        procedure->kind = ProcedureKind::Function;
    } else {
        ParsePropertyKind(*procedure);
    }
    procedure->position = Current().position;
    procedure->name = ExpectName();
    if (Is(TokenKind::CloseBracket)) FailHere(CompileError::ExpectedOpenBracket);
    if (Accept(TokenKind::OpenBracket)) procedure->parameters = ParseParameters();
    CheckProperty(*procedure, procedure->position);
    ParseBody(*procedure);
    procedure->end = Current().position;
    Expect(TokenKind::EndWord, CompileError::ExpectedEnd);
    if (word == TokenKind::Sub) {
        Expect(TokenKind::Sub, CompileError::ExpectedSub);
    } else if (word == TokenKind::Function) {
        Expect(TokenKind::Function, CompileError::ExpectedFunction);
    } else if (!AcceptWord(u"property")) {
        FailHere(CompileError::ExpectedProperty);
    }
    return procedure;
}

void Parser::ParsePropertyKind(Procedure& procedure) {
    switch (Current().kind) {
        case TokenKind::Get:
            procedure.kind = ProcedureKind::Get;
            break;
        case TokenKind::Let:
            procedure.kind = ProcedureKind::Let;
            break;
        case TokenKind::Set:
            procedure.kind = ProcedureKind::Set;
            break;
        default:
            FailHere(CompileError::ExpectedPropertyKind);
    }
    if (procedure.isDefault && procedure.kind != ProcedureKind::Get) FailHere(CompileError::DefaultOnlyOnGet);
    ++mAt;
}

void Parser::CheckProperty(const Procedure& procedure, Position position) const {
    const bool takesValue = procedure.kind == ProcedureKind::Let || procedure.kind == ProcedureKind::Set;
    if (takesValue && procedure.parameters.empty()) Fail(CompileError::PropertyNeedsArgument, position);
}

std::span<Parameter> Parser::ParseParameters() {
    std::vector<Parameter> parameters;
    while (!Is(TokenKind::CloseBracket)) {
        Parameter parameter;
        parameter.byValue = Accept(TokenKind::ByVal);
        if (!parameter.byValue) Accept(TokenKind::ByRef);
        parameter.position = Current().position;
        parameter.name = ExpectName();
        if (Accept(TokenKind::OpenBracket)) Expect(TokenKind::CloseBracket, CompileError::ExpectedCloseBracket);
        if (parameters.size() >= kMaxParameters) Fail(CompileError::OutOfMemory, parameter.position);
        for (const Parameter& other : parameters) {
            if (SameName(other.name, parameter.name)) Fail(CompileError::NameRedefined, parameter.position);
        }
        parameters.push_back(parameter);
        if (!Accept(TokenKind::Comma)) break;
    }
    Expect(TokenKind::CloseBracket, CompileError::ExpectedCloseBracket);
    return Keep(parameters);
}

void Parser::ParseBody(Procedure& procedure) {
    Scope scope;
    Scope* outer = std::exchange(mScope, &scope);
    const ProcedureKind outerKind = std::exchange(mKind, procedure.kind);
    const int outerLineIfs = std::exchange(mLineIfs, 0);
    mInProcedure = true;
    procedure.body = ParseBlock();
    mInProcedure = false;
    mLineIfs = outerLineIfs;
    mKind = outerKind;
    mScope = outer;
    FinishScope(procedure, scope);
}

Class* Parser::ParseClass() {
    Class* parsed = mArena.New<Class>();
    ++mAt;
    parsed->position = Current().position;
    parsed->name = ExpectName();
    if (!Is(TokenKind::EndOfLine) && !Is(TokenKind::Colon)) FailHere(CompileError::ExpectedEndOfStatement);
    std::vector<Variable> fields;
    std::vector<Procedure*> procedures;
    for (SkipSeparators(); !Is(TokenKind::EndWord); SkipSeparators()) {
        if (Is(TokenKind::End)) FailHere(CompileError::ExpectedEnd);
        ParseClassMember(fields, procedures);
        ExpectEndOfStatement();
    }
    ParseEnd(TokenKind::Class, CompileError::ExpectedClass);
    parsed->fields = Keep(fields);
    parsed->procedures = Keep(procedures);
    CheckClass(*parsed);
    return parsed;
}

void Parser::ParseClassMember(std::vector<Variable>& fields, std::vector<Procedure*>& procedures) {
    if (Accept(TokenKind::Dim)) return ParseVariables(fields, true);
    const bool hasVisibility = Is(TokenKind::Public) || Is(TokenKind::Private);
    const bool isPublic = !Is(TokenKind::Private);
    if (hasVisibility) ++mAt;
    const Position position = Current().position;
    const auto isProcedure = [&](const Token& token) {
        return token.kind == TokenKind::Sub || token.kind == TokenKind::Function ||
               (token.kind == TokenKind::Identifier && EqualNoCase(token.text, u"property"));
    };
    bool isDefault = false;
    if (IsWord(u"default") && (!hasVisibility || isProcedure(Ahead(1)) || Ahead(1).kind == TokenKind::Identifier)) {
        if (!hasVisibility || !isPublic) Fail(CompileError::DefaultMustBePublic, position);
        if (!isProcedure(Ahead(1))) Fail(CompileError::DefaultOnlyOnProcedure, position);
        isDefault = true;
        ++mAt;
    }
    const bool isProperty =
        IsWord(u"property") && (!hasVisibility || Ahead(1).IsReservedWord() || Ahead(1).kind == TokenKind::Identifier);
    if (Is(TokenKind::Sub) || Is(TokenKind::Function) || isProperty) {
        procedures.push_back(ParseProcedure(isPublic, isDefault));
    } else if (hasVisibility) {
        ParseVariables(fields, isPublic);
    } else {
        FailHere(CompileError::Syntax);
    }
}

void Parser::CheckClass(const Class& parsed) const {
    // Under each name a field, or a procedure, or the first of a property's procedures.
    struct Member {
        const Procedure* procedure;
        Position position;
    };
    NameMap<std::u16string_view, Member> members;
    for (const Variable& field : parsed.fields) {
        if (const Member* known = members.Find(field.name.text, field.name.hash)) {
            FailRedefined(known->position, field.position);
        }
        members.Add(field.name.text, field.name.hash, {nullptr, field.position});
    }
    NameMap<std::u16string_view, unsigned> kinds;
    bool hasDefault = false;
    for (const Procedure* procedure : parsed.procedures) {
        const Identifier& name = procedure->name;
        const unsigned kind = procedure->kind <= ProcedureKind::Get ? 1u : 1u << static_cast<unsigned>(procedure->kind);
        if (const Member* known = members.Find(name.text, name.hash)) {
            if (!known->procedure) FailRedefined(known->position, procedure->position);
            CheckSameProperty(*known->procedure, *procedure);
            unsigned& knownKinds = *kinds.Find(name.text, name.hash);
            if (knownKinds & kind) Fail(CompileError::NameRedefined, procedure->position);
            knownKinds |= kind;
        } else {
            members.Add(name.text, name.hash, {procedure, procedure->position});
            kinds.Add(name.text, name.hash, kind);
        }
        if (procedure->isDefault && std::exchange(hasDefault, true)) {
            Fail(CompileError::MultipleDefaults, procedure->position);
        }
        const bool isLifetime = procedure->kind == ProcedureKind::Sub && (EqualNoCase(name.text, u"Class_Initialize") ||
                                                                          EqualNoCase(name.text, u"Class_Terminate"));
        if (isLifetime && !procedure->parameters.empty()) {
            Fail(CompileError::InitializeHasArguments, procedure->position);
        }
    }
}

// Two members of one name have to be procedures of one property, with the same indexes; a Sub or a Function may stand
// in the place of Property Get.
void Parser::CheckSameProperty(const Procedure& known, const Procedure& other) const {
    const auto isProperty = [](const Procedure& procedure) { return procedure.kind >= ProcedureKind::Get; };
    const auto isRead = [](const Procedure& procedure) { return procedure.kind <= ProcedureKind::Get; };
    if (isRead(known) && isRead(other)) Fail(CompileError::NameRedefined, other.position);
    if (!isProperty(known) || !isProperty(other)) return;
    const auto indexes = [](const Procedure& property) {
        return property.parameters.size() - (property.kind == ProcedureKind::Get ? 0 : 1);
    };
    if (indexes(known) != indexes(other)) Fail(CompileError::InconsistentArguments, other.position);
}

}  // namespace ov::vbscript
