/// @file
/// Compiled code as text, for people who ask what a script becomes.
#pragma once

#include <string>

#include "platform/script/vbscript/code.h"

namespace ov::vbscript {

/// The instructions of a text's statements, procedures and classes, UTF-8. Each line has the place of the statement
/// where one begins, the number of the instruction, and its operands: variables by name, temporary values as t1, t2,
/// constants as the language writes them.
std::string Disassembled(const Unit& unit);

}  // namespace ov::vbscript
