#include "scripting/scripting_parameters.h"

#include "contract/group.h"
#include "contract/internal.h"
#include "platform/automation/collection.h"
#include "record/recording.h"
#include "scripting/argument_list.h"
#include "scripting/scripted_tree.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

Ref<ScriptedGroup> ScriptedGroupOf(IBase_SpecParameter& parameter) {
    Ref<ScriptedGroup> group = facet<ScriptedGroup>(parameter.group());
    if (!group) Raise(ErrorNumber::ObjectVariableNotSet);
    return group;
}

Ref<IBase_GuiParameter> GuiOf(IBase_SpecParameter& parameter) {
    Ref<IBase_GuiParameter> gui = parameter.Gui();
    if (!gui) Raise(ErrorNumber::ObjectVariableNotSet);
    return gui;
}

/// Notices a parameter that does not tell of its reads: one that a host has put into the tree.
class WatchedRead {
public:
    ~WatchedRead() {
        if (Recording::IsUnderWay() && Recording::ReadsNoted() == mBefore) Traces::Leave(Unrepeatable::Object);
    }

private:
    std::uint64_t mBefore = Recording::ReadsNoted();
};

void MarkAsRead(IBase_SpecParameter& parameter) {
    if (parameter.scriptAccess()) return;
    if (const auto internal = facet<IBase_Internal>(&parameter)) internal->let_scriptAccess(true);
}

// The mark goes with the read: a parameter whose value cannot be read is not marked.
Variant ReadAndMark(IBase_SpecParameter& parameter) {
    Variant value = parameter.get_value();
    MarkAsRead(parameter);
    return value;
}

}  // namespace

Ref<IBase_SpecParameter> ScriptingParameters::Parameter(const Variant& id) {
    Ref<IBase_SpecParameter> parameter = mData ? mData->get_Item(id.IsString() ? id.AsText() : ToText(id)) : nullptr;
    if (!parameter) Raise(ErrorNumber::ObjectVariableNotSet);
    return parameter;
}

template <class Result, class Read>
Result ScriptingParameters::Guarded(const Variant& id, std::u16string_view message, std::u16string_view property,
                                    Read read) {
    try {
        const Ref<IBase_SpecParameter> parameter = Parameter(id);
        const WatchedRead watched;
        return read(*parameter);
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            const Text shown = TextForLog(id);
            const std::size_t place = message.find(u'(') + 1;
            LogEntry(Dispatch(),
                     message.substr(0, place) + shown + message.substr(place) + u" when calling 'mData(" + shown +
                         u")." + property + u"':\r\n",
                     ErrorDetail(error));
        }
        return Result();
    }
}

Variant ScriptingParameters::value(const Variant& id) {
    return Guarded<Variant>(id, u"value(): Error", u"value", ReadAndMark);
}

Text ScriptingParameters::sVal(const Variant& id) {
    return Guarded<Text>(id, u"sval(): Error", u"sval", [](IBase_SpecParameter& parameter) {
        Text text = GuiOf(parameter)->get_value();
        MarkAsRead(parameter);
        return text;
    });
}

Variant ScriptingParameters::Gui(const Variant& id) {
    return Guarded<Variant>(id, u"gui(): ERROR", u"value", [](IBase_SpecParameter& parameter) {
        Variant text = GuiOf(parameter)->get_value();
        MarkAsRead(parameter);
        return text;
    });
}

Text ScriptingParameters::hVal(const Variant& id, std::optional<std::int16_t> chars,
                               std::optional<eByteOrder> byteOrder) {
    return Guarded<Text>(id, u"hVal(): Error", u"hVal", [&](IBase_SpecParameter& parameter) {
        const std::int32_t digits = chars.value_or(0);
        if (digits < 0) Raise(ErrorNumber::InvalidProcedureCall);
        Text target = Text::Repeat(static_cast<std::size_t>(digits), u'0');
        parameter.ExportToHexStringMapByMemory(target, 0, digits * 4, 0, byteOrder.value_or(eByteOrder::eLittleEndian));
        MarkAsRead(parameter);
        return target;
    });
}

Variant ScriptingParameters::sel(const Variant& id, std::span<const Variant> arguments) {
    return Guarded<Variant>(id, u"sel(): ERROR", u"value", [&](IBase_SpecParameter& parameter) {
        const std::optional<Variant> picked = Select(arguments, [&] { return ReadAndMark(parameter); });
        if (!picked) {
            if (DebugOutput()) {
                LogEntry(Dispatch(), u"sel(" + TextForLog(id) + u"): ERROR: aktuellen Wert (" +
                                         TextForLog(parameter.get_value()) + u") nicht in Argumentenliste gefunden!");
                LogEntry(Dispatch(), u"additional information: arg(ubound) = ",
                         arguments.empty() ? Text() : TextForLog(arguments.back()));
            }
            return Variant();
        }
        // From generation 1 on a picked text may be a script itself.
        return picked->IsString() ? ScriptedGroupOf(parameter)->EvaluatePickedText(picked->AsText()) : *picked;
    });
}

bool ScriptingParameters::isIn(const Variant& id, std::span<const Variant> arguments) {
    return Guarded<bool>(id, u"isIn(): ERROR", u"value", [&](IBase_SpecParameter& parameter) {
        return IsInList(arguments, [&] { return ReadAndMark(parameter); });
    });
}

bool ScriptingParameters::SetValue(const Variant& id, const Variant& value) {
    Traces::Leave(Unrepeatable::Statement);
    try {
        const Ref<IBase_SpecParameter> parameter = Parameter(id);
        {
            const RuleWrite write;
            parameter->let_value(value);
        }
        ScriptedGroupOf(*parameter)->UpdateDependencies();
        return true;
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"SetValue(" + TextForLog(id) + u", " + TextForLog(value) + u"): Error:",
                     ErrorDetail(error));
        }
        return false;
    }
}

Variant ScriptingParameters::script(const Variant& id) {
    Traces::Leave(Unrepeatable::GroupScript);
    try {
        const Ref<IBase_SpecParameter> first = mData ? mData->get_first() : nullptr;
        if (!first) Raise(ErrorNumber::ObjectVariableNotSet);
        const Ref<ScriptedGroup> group = ScriptedGroupOf(*first);
        const Text key = ToText(id);
        if (const Variant* known = group->ScriptResultCache()->Find(key)) return *known;
        const Ref<Collection> scripts = group->GroupScripts();
        const Variant* script = scripts->Find(key);
        if (!script) {
            LogEntry(Dispatch(), u"Script(" + key + u"): ERROR: could not find script with ID '" + key +
                                     u"' for group with ID '" + TextForLog(first->group()->id()) + u"'!");
            return Variant();
        }
        const Variant result = group->EvaluateByModelVersion(script->AsText());
        // Asked for anew: a pass that ran meanwhile has dropped the cache.
        group->ScriptResultCache()->TryAdd(key, result);
        return result;
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"Script(" + TextForLog(id) + u"): ONERROR: Error " + Text::FromInteger(error.number()) +
                                 u": " + ErrorText(error.number()) + u" (" + error.description() + u")");
        return Variant();
    }
}

}  // namespace ov
