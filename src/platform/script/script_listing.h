/// @file
/// What a script becomes, without running it.
#pragma once

#include <string>

#include "platform/automation/text.h"

namespace ov {

/// Compiles a script's statements. @throws ScriptError if it does not compile
void CheckScript(const Text& script);

/// The compiled code of a script's statements, procedures and classes for people to read, UTF-8.
/// @throws ScriptError if it does not compile
std::string ListingOf(const Text& script);

}  // namespace ov
