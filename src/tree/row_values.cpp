#include "tree/row_values.h"

#include "support/diagnostics.h"

namespace ov {

bool HasScriptPrefix(const Text& text) noexcept {
    return text.view().starts_with(u"#:") || text.view().starts_with(u"!:");
}

std::vector<std::u16string_view> SplitCalls(std::u16string_view path, std::size_t most) {
    constexpr std::u16string_view kMark = u"(\"";
    std::vector<std::u16string_view> pieces;
    while (pieces.size() + 1 < most) {
        const std::size_t at = path.find(kMark);
        if (at == std::u16string_view::npos) break;
        pieces.push_back(path.substr(0, at));
        path.remove_prefix(at + kMark.size());
    }
    pieces.push_back(path);
    return pieces;
}

Variant EvaluateOnHost(ScriptHost& host, IDispatch* source, const Variant& id, Text script, bool silent,
                       bool textFallback) {
    Variant result = host.Evaluate(script, silent || textFallback);
    const bool nothing = result.IsNull() || result.IsEmpty();
    if (textFallback) return nothing ? Variant(script) : result;
    if (nothing && !silent && DebugOutput()) {
        LogEntry(source,
                 u"(id " + TextForLog(id) + u") :EvaluateRawScript(" + script + u"): ERROR: result is Null or Empty!");
    }
    return result;
}

}  // namespace ov
