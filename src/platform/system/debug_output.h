/// @file
/// The debugger's output: standard error.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// Writes one line to the debugger's output, UTF-8, with a line feed behind it. Never fails.
void WriteDebuggerOutput(const Text& line);

}  // namespace ov
