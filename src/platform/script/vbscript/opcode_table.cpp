#include "platform/script/vbscript/opcode_table.h"

#include <algorithm>

namespace ov::vbscript {

namespace {

using enum OperandRole;
using Flags = std::array<std::string_view, 6>;

constexpr Flags kNoFlags = {};
constexpr Flags kFrees = {"free b", "free c"};
constexpr Flags kTests = {"free b", "free c", "literal number", "literal text", "free a"};
constexpr Flags kCalls = {"discard", "or local n", "own", "of With", "", "bare"};
constexpr Flags kPuts = {"Set", "free value", "free index"};
constexpr Flags kMemberPuts = {"Set", "", "own", "of With"};
constexpr Flags kDims = {"Preserve", "fixed"};
constexpr Flags kHandlers = {"Resume Next"};

constexpr std::array<OperandRole, 3> kNone = {};
constexpr std::array kUnary = {Place, Place, None};
constexpr std::array kBinary = {Place, Place, Place};
constexpr std::array kJump = {None, None, Target};
constexpr std::array kJumpOn = {Place, None, Target};
constexpr std::array kJumpOnTwo = {Place, Place, Target};

// In the order of the enumeration.
constexpr std::array kOpcodes = {
    OpcodeInfo{Opcode::Let, "Let", kUnary, kFrees},
    OpcodeInfo{Opcode::Set, "Set", kUnary, kFrees},
    OpcodeInfo{Opcode::Move, "Move", kUnary, kFrees},
    OpcodeInfo{Opcode::PassRef, "PassRef", kUnary, kNoFlags},
    OpcodeInfo{Opcode::PassName, "PassName", {Slot, Name, None}, kCalls},
    OpcodeInfo{Opcode::LoadName, "LoadName", {Slot, Name, None}, kCalls},
    OpcodeInfo{Opcode::LoadMe, "LoadMe", {Slot, None, None}, kNoFlags},
    OpcodeInfo{Opcode::New, "New", {Slot, Name, None}, kNoFlags},
    OpcodeInfo{Opcode::Clear, "Clear", {Slots, Count, None}, kNoFlags},
    OpcodeInfo{Opcode::Add, "Add", kBinary, kFrees},
    OpcodeInfo{Opcode::Subtract, "Subtract", kBinary, kFrees},
    OpcodeInfo{Opcode::Multiply, "Multiply", kBinary, kFrees},
    OpcodeInfo{Opcode::Divide, "Divide", kBinary, kFrees},
    OpcodeInfo{Opcode::IntegerDivide, "IntegerDivide", kBinary, kFrees},
    OpcodeInfo{Opcode::Modulo, "Modulo", kBinary, kFrees},
    OpcodeInfo{Opcode::Power, "Power", kBinary, kFrees},
    OpcodeInfo{Opcode::Concatenate, "Concatenate", kBinary, kFrees},
    OpcodeInfo{Opcode::And, "And", kBinary, kFrees},
    OpcodeInfo{Opcode::Or, "Or", kBinary, kFrees},
    OpcodeInfo{Opcode::Xor, "Xor", kBinary, kFrees},
    OpcodeInfo{Opcode::Eqv, "Eqv", kBinary, kFrees},
    OpcodeInfo{Opcode::Imp, "Imp", kBinary, kFrees},
    OpcodeInfo{Opcode::Is, "Is", kBinary, kFrees},
    OpcodeInfo{Opcode::Equal, "Equal", kBinary, kTests},
    OpcodeInfo{Opcode::NotEqual, "NotEqual", kBinary, kTests},
    OpcodeInfo{Opcode::Less, "Less", kBinary, kTests},
    OpcodeInfo{Opcode::LessEqual, "LessEqual", kBinary, kTests},
    OpcodeInfo{Opcode::Greater, "Greater", kBinary, kTests},
    OpcodeInfo{Opcode::GreaterEqual, "GreaterEqual", kBinary, kTests},
    OpcodeInfo{Opcode::Negate, "Negate", kUnary, kFrees},
    OpcodeInfo{Opcode::Not, "Not", kUnary, kFrees},
    OpcodeInfo{Opcode::ConcatenateAll, "ConcatenateAll", {Place, Slots, Count}, kNoFlags},
    OpcodeInfo{Opcode::Append, "Append", {Place, Slots, Count}, kNoFlags},
    OpcodeInfo{Opcode::Jump, "Jump", kJump, kNoFlags},
    OpcodeInfo{Opcode::JumpBack, "JumpBack", kJump, kNoFlags},
    OpcodeInfo{Opcode::JumpIfFalse, "JumpIfFalse", kJumpOn, kTests},
    OpcodeInfo{Opcode::JumpIfTrue, "JumpIfTrue", kJumpOn, kTests},
    OpcodeInfo{Opcode::JumpUnlessEqual, "JumpUnlessEqual", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpUnlessNotEqual, "JumpUnlessNotEqual", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpUnlessLess, "JumpUnlessLess", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpUnlessLessEqual, "JumpUnlessLessEqual", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpUnlessGreater, "JumpUnlessGreater", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpUnlessGreaterEqual, "JumpUnlessGreaterEqual", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::JumpWhenEqual, "JumpWhenEqual", kJumpOnTwo, kTests},
    OpcodeInfo{Opcode::ForStart, "ForStart", kJumpOnTwo, kNoFlags},
    OpcodeInfo{Opcode::ForNext, "ForNext", kJumpOnTwo, kNoFlags},
    OpcodeInfo{Opcode::ForEachStart, "ForEachStart", {Slots, Place, None}, kFrees},
    OpcodeInfo{Opcode::ForEachNext, "ForEachNext", kJumpOnTwo, kNoFlags},
    OpcodeInfo{Opcode::CallName, "CallName", {Slots, Name, Count}, kCalls},
    OpcodeInfo{Opcode::CallMember, "CallMember", {Slots, Member, Count}, kCalls},
    OpcodeInfo{Opcode::CallValue, "CallValue", {Slots, None, Count}, kCalls},
    OpcodeInfo{Opcode::GetElement, "GetElement", kBinary, kFrees},
    OpcodeInfo{Opcode::RefElement, "RefElement", {Slot, Place, Slots}, kNoFlags},
    OpcodeInfo{Opcode::PutElement, "PutElement", kBinary, kPuts},
    OpcodeInfo{Opcode::PutIndexed, "PutIndexed", {Place, Slots, Count}, kPuts},
    OpcodeInfo{Opcode::PutMember, "PutMember", {Slots, Member, Count}, kMemberPuts},
    OpcodeInfo{Opcode::PutBack, "PutBack", {Slot, Place, Slots}, kNoFlags},
    OpcodeInfo{Opcode::ReDim, "ReDim", {Place, Slots, Count}, kDims},
    OpcodeInfo{Opcode::Erase, "Erase", {Place, None, None}, kNoFlags},
    OpcodeInfo{Opcode::With, "With", {Slot, None, None}, kNoFlags},
    OpcodeInfo{Opcode::Return, "Return", kNone, kNoFlags},
    OpcodeInfo{Opcode::Result, "Result", {Place, None, None}, kTests},
    OpcodeInfo{Opcode::OnError, "OnError", kNone, kHandlers},
    OpcodeInfo{Opcode::RaiseNumber, "RaiseNumber", {Number, NameOf, None}, kNoFlags},
};

constexpr bool IsInOrder() noexcept {
    for (std::size_t i = 0; i < kOpcodes.size(); ++i) {
        if (static_cast<std::size_t>(kOpcodes[i].op) != i) return false;
    }
    return true;
}
static_assert(IsInOrder() && kOpcodes.back().op == kLastOpcode);

}  // namespace

const OpcodeInfo& InfoOf(Opcode op) noexcept {
    return kOpcodes[static_cast<std::size_t>(op)];
}

}  // namespace ov::vbscript
