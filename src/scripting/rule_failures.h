/// @file
/// Who wants to know which rules fail: tools that check descriptors.
#pragma once

#include <functional>

#include "platform/automation/text.h"

namespace ov {

struct RuleFailure {
    Text script;   ///< as it ran; "" for rules that never settle
    Text reason;   ///< the words of the error, for people
    Text subject;  ///< the name among them that the error is about, or ""
};

/// Told of every script whose failure counts, and of every text that gave no value of the type that its reader wants.
/// Must not throw.
using RuleFailureListener = std::function<void(const RuleFailure& failure)>;

/// Sets the one listener of the process; an empty one ends it.
void ListenToRuleFailures(RuleFailureListener listener);

void TellRuleFailure(const RuleFailure& failure);

}  // namespace ov
