/// @file
/// The compiled texts of the process.
#pragma once

#include "platform/automation/text.h"
#include "platform/automation/unknown.h"
#include "platform/script/vbscript/code.h"

namespace ov::vbscript {

/// The compiled form of a text: one expression, or statements. Compiled at most once while it stays in the cache,
/// which is bounded; the texts used longest ago go first. @throws ScriptError
Ref<Unit> CompiledText(const Text& source, bool isExpression);

}  // namespace ov::vbscript
