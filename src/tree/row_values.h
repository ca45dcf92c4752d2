/// @file
/// Small readings of descriptor cells and texts that channels, groups and blocks share.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/automation/conversions.h"
#include "scripting/script_host.h"

namespace ov {

/// A cell as Long, or @p fallback for Null. @throws RuntimeError 13 for a text that is no number
inline std::int32_t LongOr(const Variant& cell, std::int32_t fallback) {
    return cell.IsNull() ? fallback : ToLong(cell);
}

/// A cell as text, or @p fallback for Null.
inline Text TextOr(const Variant& cell, const Text& fallback) {
    return cell.IsNull() ? fallback : ToText(cell);
}

/// True if a text begins with "#:" or "!:".
bool HasScriptPrefix(const Text& text) noexcept;

/// Length of the prefix of a script.
inline constexpr std::size_t kScriptPrefix = 2;

/// The pieces of a path of calls between the marks `("`, at most @p most; the last one runs to the end.
std::vector<std::u16string_view> SplitCalls(std::u16string_view path, std::size_t most);

/// `EvaluateRawScript` on a host: an owner's share of it. The script is @p text from @p begin on, without the marks
/// "^^" that descriptor texts may carry. @p source and @p id are the owner's, for the log.
Variant EvaluateOnHost(ScriptHost& host, IDispatch* source, const Variant& id, const Text& text, std::size_t begin,
                       bool silent, bool textFallback);

}  // namespace ov
