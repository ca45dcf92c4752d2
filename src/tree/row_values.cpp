#include "tree/row_values.h"

#include "platform/automation/text_memo.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

// The script in a text. The engine knows a script best that comes as the same Text each time.
Text ScriptIn(const Text& text, std::size_t begin) {
    using Memo = TextMemo<Text>;
    static Memo& whole = *new Memo;
    static Memo& behindPrefix = *new Memo;
    Memo& known = begin == 0 ? whole : behindPrefix;
    if (const Text* script = known.Find(text)) return *script;
    Text script = ReplaceAll(begin == 0 ? text : Text(text.view().substr(begin)), u"^^", {});
    known.Keep(text, script);
    return script;
}

}  // namespace

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

Variant EvaluateOnHost(ScriptHost& host, IDispatch* source, const Variant& id, const Text& text, std::size_t begin,
                       bool silent, bool textFallback) {
    const Text script = ScriptIn(text, begin);
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
