/// @file
/// What a script says, read without running it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/automation/variant.h"

namespace ov {

/// One step of a chain: ".member", the brackets behind it, or both.
struct ScriptStep {
    Text member;  ///< "" for brackets alone
    /// A literal is its value; any other expression is nullopt.
    std::vector<std::optional<Variant>> arguments;
    bool isCall = false;  ///< has arguments or empty brackets
};

/// A name and what is reached through it: `CH("1")("2").value("3")`.
struct ScriptChain {
    Text name;
    std::vector<ScriptStep> steps;
    std::int32_t line = 0;    ///< of the name, from 1 on
    std::int32_t column = 0;  ///< the same
};

enum class ScriptForm { Expression, Statements };

/// All chains of a script, those in arguments too, in the order of the text. A name that stands alone is one.
/// @throws ScriptError for a text that does not compile
std::vector<ScriptChain> OutlineOf(const Text& script, ScriptForm form);

}  // namespace ov
