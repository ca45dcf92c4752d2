#include "scripting/scripting_environment.h"

#include <algorithm>
#include <array>

#include "platform/automation/member.h"
#include "platform/automation/unrepeatable.h"
#include "scripting/argument_list.h"
#include "support/diagnostics.h"

namespace ov {

const InterfaceInfo& IScriptingEnvironment::Members() {
    static constexpr std::array kMembers = {
        member<&IScriptingEnvironment::Variable>("Variable"),
        member<&IScriptingEnvironment::SetVariable>("SetVariable"),
        member<&IScriptingEnvironment::sel>("sel"),
        member<&IScriptingEnvironment::isIn>("isIn"),
        member<&IScriptingEnvironment::Out>("Out"),
        member<&IScriptingEnvironment::IsValidIP>("IsValidIP"),
        member<&IScriptingEnvironment::b>("b"),
        member<&IScriptingEnvironment::s>("s"),
        member<&IScriptingEnvironment::n>("n"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

Variant ScriptingEnvironment::Variable(const Text& key) {
    return mEnvironment ? mEnvironment->get_Variable(key) : Variant();
}

bool ScriptingEnvironment::SetVariable(const Text& key, const Variant& value) {
    Traces::Leave(Unrepeatable::Statement);
    try {
        if (mEnvironment) mEnvironment->let_Variable(key, value);
        return true;
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"SetVariable(" + key + u", " + TextForLog(value) + u"): Error:", ErrorDetail(error));
        }
        return false;
    }
}

Variant ScriptingEnvironment::sel(const Text& key, std::span<const Variant> arguments) {
    try {
        const Variant value = Variable(key);
        if (value.IsEmpty() && arguments.size() % 2 == 1) return arguments.back();
        if (const std::optional<Variant> picked = Select(arguments, [&] { return value; })) return *picked;
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"sel(" + key + u"): ERROR: aktuellen Wert (" + TextForLog(value) +
                                     u") nicht in Argumentenliste gefunden!");
        }
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"sel(" + key + u"): ERROR when calling 'mEnvironment(" + key + u")':\r\n",
                     ErrorDetail(error));
        }
    }
    return Variant();
}

bool ScriptingEnvironment::isIn(const Text& key, std::span<const Variant> arguments) {
    try {
        const Variant value = Variable(key);
        return IsInList(arguments, [&] { return value; });
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(Dispatch(),
                     u"isIn(" + key + u"): ERROR when calling 'mEnvironment.Variable(" + key + u").value':\r\n",
                     ErrorDetail(error));
        }
        return false;
    }
}

Variant ScriptingEnvironment::Out(const Variant& value, const Text& text) {
    LogEntry(Dispatch(), TextForLog(value) + u", " + text);
    return value;
}

bool ScriptingEnvironment::IsValidIP(const Text& text) {
    if (text.size() < 7 || std::ranges::count(text.view(), u'.') != 3) return false;
    std::u16string_view rest = text;
    for (int piece = 0; piece < 4; ++piece) {
        const std::size_t dot = rest.find(u'.');
        const Variant number(rest.substr(0, dot));
        if (!IsNumeric(number)) return false;
        const std::int16_t value = ToInteger(number);
        if (value < 0 || value > 255) return false;
        rest.remove_prefix(dot == std::u16string_view::npos ? rest.size() : dot + 1);
    }
    return true;
}

Variant ScriptingEnvironment::b(const Text& key) {
    try {
        return Variant(ToBoolean(Variable(key)));
    } catch (const RuntimeError&) {
        return Variant(false);
    }
}

Variant ScriptingEnvironment::s(const Text& key) {
    // Gives a Boolean on purpose; only a missing environment is a text.
    return mEnvironment ? b(key) : Variant(u"");
}

Variant ScriptingEnvironment::n(const Text& key) {
    try {
        return Variant(mEnvironment ? ToInteger(Variable(key)) : std::int16_t{0});
    } catch (const RuntimeError&) {
        return Variant(std::int16_t{0});
    }
}

}  // namespace ov
