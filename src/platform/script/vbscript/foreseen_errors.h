/// @file
/// Errors of operators that are sure before anything is computed. A machine that goes on behind an error in any case
/// asks first, since an exception costs it a hundred times the operator.
#pragma once

#include <optional>

#include "platform/automation/errors.h"
#include "platform/automation/variant.h"
#include "platform/script/vbscript/opcodes.h"

namespace ov::vbscript {

/// The error that operator @p op raises for the operands; none where it has a result, or the error is not so simple.
std::optional<ErrorNumber> ForeseenError(Opcode op, const Variant& a, const Variant& b) noexcept;

}  // namespace ov::vbscript
