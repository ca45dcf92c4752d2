#include "platform/script/vbscript/forms.h"

#include "platform/script/vbscript/opcode_table.h"

namespace ov::vbscript {

namespace {

constexpr bool IsInOrder() noexcept {
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        if (static_cast<std::size_t>(kForms[i].form) != static_cast<std::size_t>(kLastOpcode) + 1 + i) return false;
    }
    return true;
}
static_assert(IsInOrder() && kForms.back().form == kLastForm);

/// The forms of one general instruction, by Placement; the instruction itself where there is none.
using FormsOfOne = std::array<Opcode, 2>;

constexpr auto kFormsOf = [] {
    std::array<FormsOfOne, static_cast<std::size_t>(kLastOpcode) + 1> table{};
    for (std::size_t op = 0; op < table.size(); ++op) {
        table[op].fill(static_cast<Opcode>(op));
    }
    for (const Form& form : kForms) {
        table[static_cast<std::size_t>(form.general)][static_cast<std::size_t>(form.placement)] = form.form;
    }
    return table;
}();

Opcode FormOf(const Instruction& i) noexcept {
    const FormsOfOne& forms = kFormsOf[static_cast<std::size_t>(i.op)];
    if (forms[0] == i.op && forms[1] == i.op) return i.op;
    const std::uint32_t operands[] = {i.a, i.b, i.c};
    const auto& roles = InfoOf(i.op).operands;
    std::size_t last = roles.size() - 1;
    while (roles[last] != OperandRole::Place) {
        --last;
    }
    for (std::size_t k = 0; k < last; ++k) {
        if (Operand{operands[k]}.Kind() != OperandKind::Frame) return i.op;
    }
    switch (Operand{operands[last]}.Kind()) {
        case OperandKind::Frame:
            return forms[static_cast<std::size_t>(Placement::Slots)];
        case OperandKind::Constant:
            return forms[static_cast<std::size_t>(Placement::Constant)];
        default:
            return i.op;
    }
}

}  // namespace

void UseForms(std::span<Instruction> instructions) noexcept {
    for (Instruction& instruction : instructions) {
        instruction.op = FormOf(instruction);
    }
}

}  // namespace ov::vbscript
