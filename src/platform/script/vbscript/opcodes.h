/// @file
/// The machine's instructions.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ov::vbscript {

/// What an instruction does with its operands a, b, c and n. "Slot" is the number of a frame slot; "window" is a run of
/// them at a: the arguments of a call, with the callee or object first where there is one; the result replaces the
/// first one. The target of a jump is c.
enum class Opcode : std::uint8_t {
    // Values
    Let,       ///< variable a = b; an object gives its default value
    Set,       ///< variable a = object b
    Move,      ///< slot a = b as it is
    PassRef,   ///< slot a stands for variable b
    PassName,  ///< slot a stands for what global name b is, or for slot n if that is in use
    LoadName,  ///< slot a = the value of global name b, which may be a call, or of slot n if that is in use
    LoadMe,    ///< slot a = Me
    New,       ///< slot a = new object of class b
    Clear,     ///< ends the content of b slots from a on

    // Operators: a = b op c
    Add,
    Subtract,
    Multiply,
    Divide,
    IntegerDivide,
    Modulo,
    Power,
    Concatenate,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
    Is,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    // a = op b
    Negate,
    Not,
    ConcatenateAll,  ///< a = the texts of c slots from b on
    Append,          ///< a = a & the texts of c slots from b on

    // Jumps
    Jump,
    JumpBack,     ///< as Jump, at the end of a loop
    JumpIfFalse,  ///< if a is False or Null
    JumpIfTrue,
    JumpUnlessEqual,  ///< unless a op b
    JumpUnlessNotEqual,
    JumpUnlessLess,
    JumpUnlessLessEqual,
    JumpUnlessGreater,
    JumpUnlessGreaterEqual,
    JumpWhenEqual,
    ForStart,      ///< variable a, control slots b, behind them start, limit and step; jumps behind the loop
    ForNext,       ///< variable a one step on, control slots b; jumps to the body
    ForEachStart,  ///< control slots a from collection b
    ForEachNext,   ///< variable a = next item by control slots b; jumps behind the loop

    // Calls
    CallName,    ///< global name b, or slot n if that is in use, with c arguments in the window
    CallMember,  ///< member b of the object in the window with c arguments
    CallValue,   ///< the value in the window with c arguments: an array's element or an object's default member
    GetElement,  ///< slot a = element c of variable b
    RefElement,  ///< slot a stands for the element of variable b; n indexes in slots c
    PutElement,  ///< element b of variable a = c
    PutIndexed,  ///< element or default member of variable a; slots b: c indexes and the value
    PutMember,   ///< member b of the object in the window; c indexes and the value
    PutBack,     ///< element of variable b = slot a, if the last call wrote it; slots c: the indexes; n: PutBackNumbers

    // Arrays
    ReDim,  ///< variable a gets the c bounds in slots b
    Erase,  ///< variable a

    // Procedures and errors
    With,         ///< slot a must be an object
    Return,       ///< ends the procedure
    Result,       ///< ends an expression text with value a
    OnError,      ///< clears Err; flag: resume next
    RaiseNumber,  ///< raises error a, about name b - 1 unless b is 0

    // Forms: the same as the instructions that they are named for, for operands that lie where forms.h tells.
    LetSlots,
    LetConstant,
    MoveSlots,
    MoveConstant,
    AddSlots,
    AddConstant,
    SubtractSlots,
    SubtractConstant,
    MultiplySlots,
    MultiplyConstant,
    DivideSlots,
    DivideConstant,
    IntegerDivideSlots,
    IntegerDivideConstant,
    ModuloSlots,
    ModuloConstant,
    AndSlots,
    OrSlots,
    EqualSlots,
    EqualConstant,
    NotEqualSlots,
    NotEqualConstant,
    LessSlots,
    LessConstant,
    LessEqualSlots,
    LessEqualConstant,
    GreaterSlots,
    GreaterConstant,
    GreaterEqualSlots,
    GreaterEqualConstant,
    JumpIfFalseSlots,
    JumpUnlessEqualSlots,
    JumpUnlessEqualConstant,
    JumpUnlessNotEqualSlots,
    JumpUnlessNotEqualConstant,
    JumpUnlessLessSlots,
    JumpUnlessLessConstant,
    JumpUnlessLessEqualSlots,
    JumpUnlessLessEqualConstant,
    JumpUnlessGreaterSlots,
    JumpUnlessGreaterConstant,
    JumpUnlessGreaterEqualSlots,
    JumpUnlessGreaterEqualConstant,
    ForNextSlots,
    GetElementSlots,
    PutElementSlots,
};

inline constexpr Opcode kLastOpcode = Opcode::RaiseNumber;  ///< that is no form
inline constexpr Opcode kLastForm = Opcode::PutElementSlots;

/// True for one operand, b or that of a jump.
constexpr bool IsUnary(Opcode op) noexcept {
    return op == Opcode::Negate || op == Opcode::Not || op == Opcode::JumpIfFalse || op == Opcode::JumpIfTrue;
}
/// True for what computes or compares its operands.
constexpr bool IsOperator(Opcode op) noexcept {
    return (op >= Opcode::Add && op <= Opcode::Not) || (op >= Opcode::JumpIfFalse && op <= Opcode::JumpWhenEqual);
}

// Flags. The meaning of a bit depends on the instruction.
inline constexpr std::uint8_t kFreeB = 1;  ///< operators: b is a temporary value that ends here
inline constexpr std::uint8_t kFreeC = 2;
inline constexpr std::uint8_t kLiteralShift = 2;  ///< comparisons: two bits of LiteralSide
inline constexpr std::uint8_t kFreeA = 16;        ///< jumps: a is temporary

inline constexpr std::uint8_t kDiscard = 1;   ///< calls: the result is not wanted
inline constexpr std::uint8_t kHasLocal = 2;  ///< names: n is a local variable
inline constexpr std::uint8_t kOwn = 4;       ///< members: private ones too
inline constexpr std::uint8_t kWith = 8;      ///< members: the object is that of With
inline constexpr std::uint8_t kBare = 32;     ///< calls: no brackets were written

inline constexpr std::uint8_t kIsSet = 1;      ///< puts
inline constexpr std::uint8_t kFreeValue = 2;  ///< PutElement: the value is temporary
inline constexpr std::uint8_t kFreeIndex = 4;

inline constexpr std::uint8_t kPreserve = 1;  ///< ReDim
inline constexpr std::uint8_t kFixed = 2;     ///< ReDim: bounds of a declaration

inline constexpr std::uint8_t kResume = 1;  ///< OnError

/// The two numbers in n of PutBack.
struct PutBackNumbers {
    std::uint8_t indexes;   ///< their count
    std::uint8_t argument;  ///< its bit of Code::written

    constexpr std::uint16_t Pack() const noexcept { return static_cast<std::uint16_t>(indexes | (argument << 8)); }
    static constexpr PutBackNumbers Unpack(std::uint16_t n) noexcept {
        return {static_cast<std::uint8_t>(n), static_cast<std::uint8_t>(n >> 8)};
    }
};

/// Where an operand lies.
enum class OperandKind : std::uint8_t { Frame, Constant, Name, Field };

/// A place that an instruction reads or writes: the offset of a slot in bytes, with its kind in the lowest bits.
struct Operand {
    static constexpr std::uint32_t kSlotSize = 16;
    static constexpr std::uint32_t kKindMask = 3;
    static constexpr std::size_t kMaxIndex = 0x0FFFFFFF;

    std::uint32_t bits = 0;

    static constexpr Operand Of(OperandKind kind, std::size_t index) noexcept {
        return {static_cast<std::uint32_t>(index) * kSlotSize + static_cast<std::uint32_t>(kind)};
    }
    constexpr OperandKind Kind() const noexcept { return static_cast<OperandKind>(bits & kKindMask); }
    constexpr std::uint32_t Index() const noexcept { return bits / kSlotSize; }
    friend constexpr bool operator==(Operand, Operand) noexcept = default;
};

/// One instruction.
struct Instruction {
    Opcode op;
    std::uint8_t flags = 0;
    std::uint16_t n = 0;
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::uint32_t c = 0;

    /// Where a jump goes, counted from this instruction.
    constexpr std::int32_t Distance() const noexcept { return static_cast<std::int32_t>(c); }
};
static_assert(sizeof(Instruction) == 16);

}  // namespace ov::vbscript
