/// @file
/// What is known of each instruction: its name and what its operands are.
#pragma once

#include <array>
#include <string_view>

#include "platform/script/vbscript/opcodes.h"

namespace ov::vbscript {

/// What the number in an operand of an instruction is.
enum class OperandRole : std::uint8_t {
    None,
    Place,   ///< an Operand
    Slot,    ///< the number of a frame slot
    Slots,   ///< the first one of several
    Name,    ///< in Code::names
    NameOf,  ///< the same plus 1; 0 for none
    Member,  ///< in Code::sites
    Target,  ///< of a jump, as a distance
    Count,   ///< how many arguments, indexes, slots or texts
    Number,  ///< of an error
};

struct OpcodeInfo {
    Opcode op;
    std::string_view name;
    std::array<OperandRole, 3> operands;    ///< a, b and c
    std::array<std::string_view, 6> flags;  ///< by bit; "" for one that it does not use
};

/// The entry of an instruction.
const OpcodeInfo& InfoOf(Opcode op) noexcept;

}  // namespace ov::vbscript
