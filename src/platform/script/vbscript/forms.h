/// @file
/// Forms of instructions: what loops and rules do most, for operands that lie where they mostly do, so that the machine
/// need not find out where. The compiler writes general instructions; they get their forms when a procedure is
/// complete. A form does what its general instruction does, whatever the operands hold.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/script/vbscript/opcodes.h"

namespace ov::vbscript {

/// Where the places that a form reads and writes lie.
enum class Placement : std::uint8_t {
    Slots,     ///< all in the frame
    Constant,  ///< the last one is a constant, all others lie in the frame
};

struct Form {
    Opcode form;
    Opcode general;
    Placement placement;
};

// In the order of the enumeration.
inline constexpr std::array kForms = {
    Form{Opcode::LetSlots, Opcode::Let, Placement::Slots},
    Form{Opcode::LetConstant, Opcode::Let, Placement::Constant},
    Form{Opcode::MoveSlots, Opcode::Move, Placement::Slots},
    Form{Opcode::MoveConstant, Opcode::Move, Placement::Constant},
    Form{Opcode::AddSlots, Opcode::Add, Placement::Slots},
    Form{Opcode::AddConstant, Opcode::Add, Placement::Constant},
    Form{Opcode::SubtractSlots, Opcode::Subtract, Placement::Slots},
    Form{Opcode::SubtractConstant, Opcode::Subtract, Placement::Constant},
    Form{Opcode::MultiplySlots, Opcode::Multiply, Placement::Slots},
    Form{Opcode::MultiplyConstant, Opcode::Multiply, Placement::Constant},
    Form{Opcode::DivideSlots, Opcode::Divide, Placement::Slots},
    Form{Opcode::DivideConstant, Opcode::Divide, Placement::Constant},
    Form{Opcode::IntegerDivideSlots, Opcode::IntegerDivide, Placement::Slots},
    Form{Opcode::IntegerDivideConstant, Opcode::IntegerDivide, Placement::Constant},
    Form{Opcode::ModuloSlots, Opcode::Modulo, Placement::Slots},
    Form{Opcode::ModuloConstant, Opcode::Modulo, Placement::Constant},
    Form{Opcode::AndSlots, Opcode::And, Placement::Slots},
    Form{Opcode::OrSlots, Opcode::Or, Placement::Slots},
    Form{Opcode::EqualSlots, Opcode::Equal, Placement::Slots},
    Form{Opcode::EqualConstant, Opcode::Equal, Placement::Constant},
    Form{Opcode::NotEqualSlots, Opcode::NotEqual, Placement::Slots},
    Form{Opcode::NotEqualConstant, Opcode::NotEqual, Placement::Constant},
    Form{Opcode::LessSlots, Opcode::Less, Placement::Slots},
    Form{Opcode::LessConstant, Opcode::Less, Placement::Constant},
    Form{Opcode::LessEqualSlots, Opcode::LessEqual, Placement::Slots},
    Form{Opcode::LessEqualConstant, Opcode::LessEqual, Placement::Constant},
    Form{Opcode::GreaterSlots, Opcode::Greater, Placement::Slots},
    Form{Opcode::GreaterConstant, Opcode::Greater, Placement::Constant},
    Form{Opcode::GreaterEqualSlots, Opcode::GreaterEqual, Placement::Slots},
    Form{Opcode::GreaterEqualConstant, Opcode::GreaterEqual, Placement::Constant},
    Form{Opcode::JumpIfFalseSlots, Opcode::JumpIfFalse, Placement::Slots},
    Form{Opcode::JumpUnlessEqualSlots, Opcode::JumpUnlessEqual, Placement::Slots},
    Form{Opcode::JumpUnlessEqualConstant, Opcode::JumpUnlessEqual, Placement::Constant},
    Form{Opcode::JumpUnlessNotEqualSlots, Opcode::JumpUnlessNotEqual, Placement::Slots},
    Form{Opcode::JumpUnlessNotEqualConstant, Opcode::JumpUnlessNotEqual, Placement::Constant},
    Form{Opcode::JumpUnlessLessSlots, Opcode::JumpUnlessLess, Placement::Slots},
    Form{Opcode::JumpUnlessLessConstant, Opcode::JumpUnlessLess, Placement::Constant},
    Form{Opcode::JumpUnlessLessEqualSlots, Opcode::JumpUnlessLessEqual, Placement::Slots},
    Form{Opcode::JumpUnlessLessEqualConstant, Opcode::JumpUnlessLessEqual, Placement::Constant},
    Form{Opcode::JumpUnlessGreaterSlots, Opcode::JumpUnlessGreater, Placement::Slots},
    Form{Opcode::JumpUnlessGreaterConstant, Opcode::JumpUnlessGreater, Placement::Constant},
    Form{Opcode::JumpUnlessGreaterEqualSlots, Opcode::JumpUnlessGreaterEqual, Placement::Slots},
    Form{Opcode::JumpUnlessGreaterEqualConstant, Opcode::JumpUnlessGreaterEqual, Placement::Constant},
    Form{Opcode::ForNextSlots, Opcode::ForNext, Placement::Slots},
    Form{Opcode::GetElementSlots, Opcode::GetElement, Placement::Slots},
    Form{Opcode::PutElementSlots, Opcode::PutElement, Placement::Slots},
};

/// The instruction that a form stands for; any other stands for itself.
constexpr Opcode GeneralOf(Opcode op) noexcept {
    return op <= kLastOpcode ? op
                             : kForms[static_cast<std::size_t>(op) - static_cast<std::size_t>(kLastOpcode) - 1].general;
}

/// Gives the instructions of a complete procedure their forms.
void UseForms(std::span<Instruction> instructions) noexcept;

}  // namespace ov::vbscript
