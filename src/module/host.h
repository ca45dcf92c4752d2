/// @file
/// What a program of this project that hosts the library needs besides the contract.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// Sends the lines of the diagnostics log to the debugger's output from now on, whatever the registry says.
void SwitchDebugOutputOn();

/// The store's words for why @p path cannot be opened, or "" if it can. Opens the file by the rule of the module's own
/// opening, so that a later Load meets it open.
Text ReasonOfFailedOpen(const Text& path);

}  // namespace ov
