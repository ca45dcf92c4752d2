/// @file
/// The machine's instructions.
#pragma once

#include <cstdint>

namespace ov::vbscript {

/// What an instruction does with its operands a, b and c. "Window" is a run of frame slots at a: the arguments of a
/// call, with the callee or object first where there is one; the result replaces the first slot. "Word" is the
/// instruction slot behind, which holds more operands.
enum class Opcode : std::uint8_t {
    // Values
    Let,       ///< variable a = b; an object gives its default value
    Set,       ///< variable a = object b
    Move,      ///< slot a = b as it is
    PassRef,   ///< slot a stands for variable b
    PassName,  ///< slot a stands for what global name b is; word: a local variable if it is nothing
    LoadName,  ///< slot a = the value of global name b, which may be a call; word: as of PassName
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
    Identity,
    Not,
    ConcatenateAll,  ///< a = the texts of c slots from b on
    Append,          ///< a = a & the texts of c slots from b on

    // Jumps; the target is in b and c, or in the word
    Jump,
    JumpBack,     ///< as Jump, at the end of a loop
    JumpIfFalse,  ///< if a is False or Null
    JumpIfTrue,
    JumpUnlessEqual,  ///< unless a op b; word: target
    JumpUnlessNotEqual,
    JumpUnlessLess,
    JumpUnlessLessEqual,
    JumpUnlessGreater,
    JumpUnlessGreaterEqual,
    JumpWhenEqual,
    ForStart,      ///< variable a, control slots b, behind them start, limit and step; word: target behind the loop
    ForNext,       ///< variable a one step on, control slots b; word: target of the body
    ForEachStart,  ///< control slots a from collection b
    ForEachNext,   ///< variable a = next item by control slots b; word: target behind the loop

    // Calls
    CallName,    ///< global name b with c arguments in the window; word: a local variable
    CallMember,  ///< member b of the object in the window with c arguments
    CallValue,   ///< the value in the window with c arguments: an array's element or an object's default member
    GetElement,  ///< slot a = element c of variable b
    RefElement,  ///< slot a stands for the element of variable b; window of indexes at c, their number in the flags
    PutElement,  ///< element b of variable a = c
    PutIndexed,  ///< element or default member of variable a; window b of c indexes and the value
    PutMember,   ///< member b of the object in the window; c indexes and the value
    PutBack,  ///< element of variable b = slot a, if the last call wrote it; word: window, number of indexes, argument

    // Arrays
    ReDim,  ///< variable a gets the bounds in window b, c of them
    Erase,  ///< variable a

    // Procedures and errors
    With,         ///< slot a must be an object
    Return,       ///< ends the procedure
    Result,       ///< ends an expression text with value a
    OnError,      ///< clears Err; flag: resume next
    RaiseNumber,  ///< raises error a

    Word,  ///< more operands of the instruction before
};

// Flags. The meaning of a bit depends on the instruction.
inline constexpr std::uint8_t kFreeB = 1;  ///< operators: b is a temporary value that ends here
inline constexpr std::uint8_t kFreeC = 2;
inline constexpr std::uint8_t kLiteralShift = 2;  ///< comparisons: two bits of LiteralSide
inline constexpr std::uint8_t kFreeA = 16;        ///< jumps: a is temporary

inline constexpr std::uint8_t kDiscard = 1;   ///< calls: the result is not wanted
inline constexpr std::uint8_t kHasLocal = 2;  ///< names: a word with a local variable is behind
inline constexpr std::uint8_t kOwn = 4;       ///< members: private ones too
inline constexpr std::uint8_t kWith = 8;      ///< members: the object is that of With
inline constexpr std::uint8_t kBare = 32;     ///< calls: no brackets were written

inline constexpr std::uint8_t kIsSet = 1;      ///< puts
inline constexpr std::uint8_t kFreeValue = 2;  ///< PutElement: the value is temporary
inline constexpr std::uint8_t kFreeIndex = 4;

inline constexpr std::uint8_t kPreserve = 1;  ///< ReDim
inline constexpr std::uint8_t kFixed = 2;     ///< ReDim: bounds of a declaration

inline constexpr std::uint8_t kResume = 1;  ///< OnError

/// Where an operand lies: the two upper bits of its number.
enum class OperandKind : std::uint8_t { Frame, Constant, Name, Field };

/// A place that an instruction reads or writes.
struct Operand {
    static constexpr unsigned kIndexBits = 14;
    static constexpr std::uint16_t kMaxIndex = (1u << kIndexBits) - 1;

    std::uint16_t bits = 0;

    static constexpr Operand Of(OperandKind kind, std::size_t index) noexcept {
        return {static_cast<std::uint16_t>((static_cast<unsigned>(kind) << kIndexBits) | index)};
    }
    constexpr OperandKind Kind() const noexcept { return static_cast<OperandKind>(bits >> kIndexBits); }
    constexpr std::uint16_t Index() const noexcept { return bits & kMaxIndex; }
    friend constexpr bool operator==(Operand, Operand) noexcept = default;
};

/// One instruction: 8 bytes.
struct Instruction {
    Opcode op;
    std::uint8_t flags = 0;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    std::uint16_t c = 0;

    constexpr std::uint32_t Target() const noexcept { return b | (std::uint32_t{c} << 16); }
    constexpr void SetTarget(std::uint32_t target) noexcept {
        b = static_cast<std::uint16_t>(target);
        c = static_cast<std::uint16_t>(target >> 16);
    }
};
static_assert(sizeof(Instruction) == 8);

}  // namespace ov::vbscript
