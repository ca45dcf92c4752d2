/// @file
/// Who wants to know which rules fail: tools that check descriptors.
#pragma once

#include <functional>

#include "platform/automation/text.h"

namespace ov {

/// Told of every script whose failure counts, as it ran, and of every text that gave no value of the type that its
/// reader wants; each with the words of the error. Rules that never settle come with "" for the script. Must not throw.
using RuleFailureListener = std::function<void(const Text& script, const Text& reason)>;

/// Sets the one listener of the process; an empty one ends it.
void ListenToRuleFailures(RuleFailureListener listener);

void TellRuleFailure(const Text& script, const Text& reason);

}  // namespace ov
