// The typed readers of descriptor texts: what is a script, on which engine it runs, and what a failure gives.
#include "platform/automation/operators.h"
#include "scripting/rule_failures.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/row_values.h"

namespace ov {

namespace {

// The text of a float that holds no number.
constexpr const char16_t* kNoNumber = u"QNAN";

// The mark of a script where texts have no prefixes.
bool HoldsCall(const Text& text) {
    return text.view().find(u"(\"") != std::u16string_view::npos;
}

bool IsLive(const Text& text) {
    return text.view().starts_with(u"!:");
}

}  // namespace

ModuleServices* Group::Services() const noexcept {
    return mChannel ? mChannel->Services() : nullptr;
}

Ref<ModuleServices> Group::Module() {
    return Services();
}

bool Group::HasPrefixes() const {
    return Services() && Services()->GetModelVersionIndex() >= 1;
}

bool Group::IsLiteral(const Text& text) {
    return HasPrefixes() && !HasScriptPrefix(text);
}

Variant Group::EvaluateRawScript(const Text& text, bool silent, bool textFallback) {
    return EvaluateFrom(0, text, silent, textFallback);
}

Variant Group::EvaluateFrom(std::size_t begin, const Text& text, bool silent, bool textFallback) {
    const Ref<Group> alive = this;
    if (!LoadParameters() || !mScriptHost) return Variant();
    const Ref<GroupScripting> host = mScriptHost;  // a script may unload the tree under itself
    return EvaluateOnHost(*host, Dispatch(), mId, text, begin, silent, textFallback);
}

Variant Group::EvaluateScriptOrLiteral(const Text& text, bool silent) {
    return HasScriptPrefix(text) ? EvaluateFrom(kScriptPrefix, text, silent, false) : Variant(text);
}

Variant Group::EvaluateByModelVersion(const Text& text) {
    return HasPrefixes() ? EvaluateScriptOrLiteral(text, false) : EvaluateRawScript(text, false, false);
}

Variant Group::EvaluatePickedText(const Text& text) {
    return HasPrefixes() ? EvaluateScriptOrLiteral(text, false) : Variant(text);
}

Variant Group::EvaluateScript(const Variant& script) {
    if (script.IsNull()) return Variant();
    try {
        return EvaluateRawScript(ToText(script), false, false);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"IBase_SpecGroup_EvaluateScript(" + TextForLog(script) +
                                     u"): Fehler beim Versuch der Ausführung!");
        }
        return Variant();
    }
}

void Group::RunStatement(const Text& statement) {
    if (const Ref<GroupScripting> host = mScriptHost) host->ExecuteScript(statement);
}

template <class Read>
auto Group::GuardedRead(const char16_t* reader, const Text& text, const Variant& id, Read read) -> decltype(read()) {
    try {
        return read();
    } catch (const RuntimeError& error) {
        TellRuleFailure({text, Text::FromUtf8(error.what()), error.subject()});
        LogEntry(Dispatch(),
                 Text(reader) + u"('" + text + u"')(ParamId " + TextForLog(id) + u") could not be processed!");
        return {};
    }
}

Variant Group::GetParameterDescAsScript(const Text& fieldname, Collection& data, const Variant& id, VarType type) {
    Variant cell;
    try {
        cell = data.Get(fieldname);
        if (!cell.IsString()) return cell;
        const Text text = cell.AsText();
        if (HasPrefixes()) {
            if (HasScriptPrefix(text)) {
                Variant result = EvaluateFrom(kScriptPrefix, text, false, false);
                if (!IsLive(text)) {
                    // Evaluated once: the result takes the cell's place for good.
                    data.RemoveKey(fieldname);
                    data.TryAdd(fieldname, result);
                }
                return result;
            }
            const bool number = type == VarType::Single || type == VarType::Double;
            return number && text != kNoNumber ? Variant(ValPrefix(text)) : cell;
        }
        switch (type) {
            case VarType::Long:
                return GetLongFromScript(text, id);
            case VarType::Single:
                return GetSingleFromScript(text, id);
            case VarType::Double:
                return GetDoubleFromScript(text, id);
            case VarType::String:
                return GetStringFromScript(text, id);
            case VarType::Decimal:
                return GetDecimalFromScript(text, id);
            default:
                LogEntry(Dispatch(), u"GetParameterDescAsScript(): WARNING: unsupported vartype '" +
                                         Text::FromInteger(static_cast<std::int64_t>(type)) + u"'");
                [[fallthrough]];
            case VarType::Empty:
                return EvaluateRawScript(text, false, false);
        }
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"GetParameterDescAsScript(" + fieldname + u", PID = " + TextForLog(id) +
                                 u"): ONERROR: while evaluating skript (" + TextForLog(cell) + u"): " +
                                 error.description());
        return cell;
    }
}

std::int32_t Group::GetLongFromScript(const Text& text, const Variant& id) {
    return GuardedRead(u"GetLongFromScript", text, id, [&] {
        if (HasPrefixes()) return ToLong(EvaluateScriptOrLiteral(text, false));
        if (IsNumeric(text)) return ToLong(text);
        return ToLong(NullToDefault(EvaluateRawScript(text, false, false), Variant(0)));
    });
}

bool Group::GetBoolFromScript(const Text& text, const Variant& id) {
    return GuardedRead(u"GetBoolFromScript", text, id, [&] {
        if (HasPrefixes()) return ToBoolean(EvaluateScriptOrLiteral(text, false));
        if (IsNumeric(text) || EqualNoCase(text, u"True") || EqualNoCase(text, u"False")) return ToBoolean(text);
        return ToBoolean(NullToDefault(EvaluateRawScript(text, false, false), Variant(false)));
    });
}

Variant Group::GetDecimalFromScript(const Text& text, const Variant& id) {
    return GuardedRead(u"GetDecimalFromScript", text, id, [&] {
        if (HasPrefixes()) return Variant(ToDecimal(EvaluateScriptOrLiteral(text, false)));
        if (IsNumeric(text)) return Variant(ToDecimal(text));
        return Variant(ToDecimal(NullToDefault(EvaluateRawScript(text, false, false), Variant(0))));
    });
}

template <class Number>
Number Group::FloatFromScript(const Text& text, Number (*convert)(const Variant&)) {
    if (HasPrefixes()) {
        if (HasScriptPrefix(text)) return convert(EvaluateFrom(kScriptPrefix, text, false, false));
        // The text of no number is no number: the failure is what its readers look for.
        return text == kNoNumber ? convert(text) : convert(ValPrefix(text));
    }
    if (IsNumeric(text)) return convert(ValPrefix(text));
    if (text == kNoNumber) return convert(text);
    return convert(NullToDefault(EvaluateRawScript(text, false, false), Variant(0)));
}

float Group::GetSingleFromScript(const Text& text, const Variant& id) {
    return GuardedRead(u"GetSingleFromScript", text, id, [&] { return FloatFromScript<float>(text, ToSingle); });
}

double Group::GetDoubleFromScript(const Text& text, const Variant& id) {
    return GuardedRead(u"GetDoubleFromScript", text, id, [&] { return FloatFromScript<double>(text, ToDouble); });
}

void Group::GetStringValueFromScript(Text& text, const Variant& id) {
    text = GuardedRead(u"GetStringValueFromScript", text, id, [&]() -> Text {
        if (HasPrefixes()) return HasScriptPrefix(text) ? ToText(EvaluateScriptOrLiteral(text, false)) : text;
        if (HoldsCall(text)) return ToText(EvaluateRawScript(text, true, false));
        const bool quoted = text.size() > 1 && text[0] == u'"' && text[text.size() - 1] == u'"';
        return quoted ? Text(text.view().substr(1, text.size() - 2)) : text;
    });
}

Text Group::GetStringFromScript(const Text& text, const Variant& id) {
    Text copy = text;
    GetStringValueFromScript(copy, id);
    return copy;
}

bool Group::GetBoolFromVariantOrScript(const Variant& value, bool fallback, const Variant& id) {
    if (value.IsNull()) return fallback;
    if (value.IsString()) return GetBoolFromScript(value.AsText(), id);
    return GuardedRead(u"GetBoolFromVariantOrScript", TextForLog(value), id, [&] { return ToBoolean(value); });
}

void Group::ForgetStaticScript(Text& text, const Text& replacement) {
    const bool stays = HasPrefixes() ? IsLive(text) : HoldsCall(text);
    if (!stays) text = replacement;
}

}  // namespace ov
