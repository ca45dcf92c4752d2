/// @file
/// From a syntax tree to instructions.
#pragma once

#include <optional>
#include <vector>

#include "platform/automation/operators.h"
#include "platform/automation/text.h"
#include "platform/automation/unknown.h"
#include "platform/script/vbscript/ast.h"
#include "platform/script/vbscript/code.h"

namespace ov::vbscript {

/// Memory that the procedures have one after the other while they are compiled.
struct Workspace {
    std::vector<Instruction> instructions;
    std::vector<Mark> marks;
    std::vector<Variant> constants;
    std::vector<std::uint32_t> literalOperands;  ///< operand of each literal from the first one on, plus 1
    std::vector<const Expression*> chain;        ///< binary operators of expressions inside each other

    /// For another procedure; what a long one took is given back.
    void Clear() noexcept;
};

/// What all procedures of one text know of each other.
struct UnitScope {
    const std::vector<Variant>& literals;
    Workspace& work;
    bool optionExplicit = false;
    NameMap<std::u16string_view, const Constant*> constants;  ///< outside procedures
    NameMap<std::u16string_view, bool> procedures;
    NameMap<std::u16string_view, bool> variables;  ///< outside procedures: declared or written there
};

/// Compiles a parsed text. @throws ScriptError
Ref<Unit> CompileProgram(const Program& program, const std::vector<Variant>& literals, Workspace& work);
/// Parses and compiles a text: one expression, or statements. @throws ScriptError
Ref<Unit> CompileText(std::u16string_view source, bool isExpression);

/// The value of a literal, with the signs before it. @pre @p expression is one
Variant LiteralValue(const Expression& expression, const std::vector<Variant>& literals);

/// Compiles one procedure, or the statements outside procedures.
class ProcedureCompiler {
public:
    /// @param owner the class that the procedure belongs to, or nullptr
    ProcedureCompiler(const UnitScope& unit, const ClassCode* owner, const Procedure& procedure);

    std::unique_ptr<Code> CompileBody();
    std::unique_ptr<Code> CompileResult(const Expression& result);

private:
    /// A name of the procedure's own.
    struct Local {
        enum class Kind : std::uint8_t {
            Variable,  ///< in a slot
            Open,  ///< in a slot, unless there is a global of the name; never written by this procedure's statements
            Constant,  ///< a literal
        };
        Kind kind = Kind::Variable;
        std::uint16_t slot = 0;
        const Constant* constant = nullptr;
        Position position;  ///< of its declaration
    };
    /// What a name means at its place.
    struct Meaning {
        enum class Kind : std::uint8_t { Variable, Open, Constant, ClassMember, Global };
        Kind kind = Kind::Global;
        Operand operand;  // of a Variable
        const Constant* constant = nullptr;
        std::uint16_t slot = 0;  // of an Open
    };
    /// A forward jump that waits for its target.
    using Jumps = std::vector<std::size_t>;
    struct Loop {
        TokenKind word;
        std::uint16_t top;  // temporary values that live on behind an Exit
        Jumps exits;
    };
    /// An element that is an argument by reference: the variable, its indexes and its value, in slots.
    struct ElementArgument {
        Operand variable;
        std::uint16_t indexes = 0;
        std::uint16_t count = 0;
        std::uint16_t value = 0;
        std::size_t position = 0;
    };

    /// A variable, or with indexes an element of one; the indexes of each pair of brackets are in slots.
    struct Place {
        struct Index {
            std::uint16_t window;
            std::uint8_t count;
        };
        Operand root;
        std::vector<Index> indexes;
    };

    // Names.
    void DeclareNames();
    void DeclareLocal(const Identifier& name, Local::Kind kind, Position position);
    void DeclareOpenNames();
    Meaning Find(const Identifier& name);
    bool IsOwnResult(const Identifier& name) const noexcept;
    std::uint32_t NameIndex(const Identifier& name);
    std::uint32_t SiteIndex(const Identifier& name);
    Operand NameOperand(const Identifier& name);
    bool IsPureFunction(const Expression& callee);
    bool MayHaveEffects(const Expression& expression);
    bool IsElement(const Expression& expression);
    Operand ConstantOperand(Variant value);
    Operand LiteralOperand(std::uint32_t literal);

    // Instructions.
    std::size_t Emit(Opcode op, std::uint32_t a = 0, std::uint32_t b = 0, std::uint32_t c = 0, std::uint8_t flags = 0,
                     std::uint16_t n = 0);
    std::size_t Emit(Opcode op, Operand a, Operand b = {}, Operand c = {}, std::uint8_t flags = 0) {
        return Emit(op, a.bits, b.bits, c.bits, flags);
    }
    void JumpTo(std::size_t jump, std::size_t target);
    void LandHere(const Jumps& jumps);
    std::uint32_t Here() const noexcept { return static_cast<std::uint32_t>(mWork.instructions.size()); }
    void PutMark(Position position);
    void PutPosition(Position position);
    void PutMark(Position position, bool resumes);
    std::uint16_t NewTemp();
    void NewTemps(std::size_t count);
    bool IsTemp(Operand operand) const noexcept {
        return operand.Kind() == OperandKind::Frame && operand.Index() >= mCode->variables;
    }
    static Operand Slot(std::uint16_t slot) noexcept { return Operand::Of(OperandKind::Frame, slot); }

    // Expressions.
    Operand Value(const Expression& expression, std::optional<Operand> wanted = std::nullopt);
    Operand Protect(Operand operand, const Expression& next);
    Operand BinaryValue(const Expression& expression, std::optional<Operand> wanted);
    Operand BinaryStep(const Expression& link, Operand left, std::size_t base, std::optional<Operand> wanted);
    Operand ConcatenateRun(Operand first, std::span<const Expression* const> run, std::optional<Operand> wanted);
    Operand UnaryValue(const Expression& expression, std::optional<Operand> wanted);
    Operand NameValue(const Expression& expression);
    void ToTemp(const Expression& expression, std::uint16_t slot);
    std::uint8_t LiteralFlags(const Expression& a, const Expression& b, LiteralSide number) const;
    const Variant* AsLiteral(const Expression& expression) const;
    bool IsSignedNumber(const Expression& expression) const;
    void JumpUnless(const Expression& condition, Jumps& jumps);
    void ReleaseTo(std::uint16_t top) noexcept { mTop = top; }

    // Calls.
    using Elements = std::vector<ElementArgument>;
    void Call(const Expression& expression, std::uint16_t window, std::uint8_t flags);
    void CallWithin(const Expression& callee, std::span<Expression* const> arguments, std::uint16_t window,
                    std::uint8_t flags, const Elements& elements);
    void CallVariable(const Expression& callee, const Meaning& meaning, std::span<Expression* const> arguments,
                      std::uint16_t window, std::uint8_t flags, const Elements& elements);
    void CallName(const Expression& callee, std::span<Expression* const> arguments, std::uint16_t window,
                  std::uint8_t flags, const Elements& elements);
    bool ElementValue(const Expression& expression, std::uint16_t slot);
    Elements PrepareElements(const Expression& callee, std::span<Expression* const> arguments);
    void PassArguments(std::span<Expression* const> arguments, std::size_t first, const Elements& elements);
    void PassArgument(const Expression& argument, std::uint16_t slot);
    void PassElement(const Expression& argument, const ElementArgument& element, std::uint16_t slot);
    void PutBack(const Elements& elements);
    std::uint8_t ObjectToTemp(const Expression& member, std::uint16_t slot);

    // Assignments.
    void Assign(const Expression& target, const Expression& value, bool isSet);
    void AssignName(const Expression& target, const Expression& value, bool isSet);
    void AssignVariable(Operand variable, const Expression& value, bool isSet);
    void AssignIndexed(const Expression& target, const Expression& value, bool isSet);
    void AssignMember(const Expression& member, std::span<Expression* const> indexes, const Expression& value,
                      bool isSet);
    Place PreparePlace(const Expression& expression);
    Operand FindPlace(const Place& place);
    void ToNewTemp(const Expression& expression, bool mayBeObject);
    std::optional<Operand> VariableOf(const Expression& expression);

    // Statements.
    void Statements(Block block);
    void CompileStatement(const Statement& statement);
    Operand Target(const Expression& target, CompileError otherwise);
    void If(const Statement& statement);
    void Select(const Statement& statement);
    void For(const Statement& statement);
    void ForEach(const Statement& statement);
    void Do(const Statement& statement);
    void With(const Statement& statement);
    void Exit(const Statement& statement);
    void ReDim(const Statement& statement);
    void Erase(const Statement& statement);
    void DimensionArrays();
    void Finish();

    const UnitScope& mUnit;
    Workspace& mWork;
    const ClassCode* mOwner;
    const Procedure& mProcedure;
    std::unique_ptr<Code> mCode;
    NameMap<std::u16string_view, Local> mLocals;
    NameMap<std::u16string_view, std::uint32_t> mNames;
    std::uint32_t mFirstLiteral = 0;
    std::vector<Loop> mLoops;  // the innermost last
    std::vector<std::uint16_t> mWith;
    std::size_t mTop = 0;
};

}  // namespace ov::vbscript
