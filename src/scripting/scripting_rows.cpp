#include "scripting/scripting_rows.h"

#include <array>

#include "contract/parameter.h"
#include "descriptor/module_services.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"
#include "scripting/argument_list.h"
#include "scripting/scripted_tree.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

template <class Holder>
Variant FieldFrom(IDispatch& source, const Text& name) {
    const Ref<Holder> holder = facet<Holder>(&source);
    Collection* const row = holder ? holder->Row() : nullptr;
    if (!row) Raise(ErrorNumber::ObjectVariableNotSet);
    return row->Item(Variant(name));
}

Variant FieldOf(IBase_SpecChannel& channel, const Text& name) {
    return FieldFrom<ScriptedChannel>(channel, name);
}

Variant FieldOf(IBase_SpecGroup& group, const Text& name) {
    return FieldFrom<ScriptedGroup>(group, name);
}

Variant FieldOf(IBase_SpecModule& module, const Text& name) {
    return FieldFrom<ModuleServices>(module, name);
}

template <class T>
T& Needed(const Ref<T>& object) {
    if (!object) Raise(ErrorNumber::ObjectVariableNotSet);
    return *object;
}

Variant ChildField(IBase_SpecChannel& channel, const Text& groupId, const Text& name) {
    return FieldOf(Needed(Needed(channel.groups()).get_Item(groupId)), name);
}

Variant ChildField(IBase_SpecGroup& group, const Text& parameterId, const Text& name) {
    return Needed(Needed(group.parameters()).get_Item(parameterId)).desc(name);
}

Variant ChildField(IBase_SpecModule&, const Text&, const Text&) {
    Raise(ErrorNumber::NoSuchMember);
}

}  // namespace

template <class Source>
const InterfaceInfo& IScriptingRow<Source>::Members() {
    static constexpr std::array kMembers = {
        member<&IScriptingRow::value>("value").AsDefault(),
        member<&IScriptingRow::isIn>("isIn"),
        member<&IScriptingRow::sel>("sel"),
        member<&IScriptingRow::ChildValue>(RowIdentity<Source>::kChildMember),
    };
    constexpr std::size_t kCount = kMembers.size() - (*RowIdentity<Source>::kChildMember ? 0 : 1);
    static const InterfaceInfo info(kIid, kName, std::span(kMembers).first(kCount));
    return info;
}

template <class Source>
Variant ScriptingRow<Source>::FieldOf(const Text& name) {
    return ov::FieldOf(Needed(mSource), name);
}

template <class Source>
void ScriptingRow<Source>::LogMissingField(const Text& call) {
    if (DebugOutput()) LogEntry(this->Dispatch(), call, u"): ERROR: Feld mit diesem Namen nicht gefunden");
}

template <class Source>
std::optional<Variant> ScriptingRow<Source>::Field(std::u16string_view call, const Text& name) {
    try {
        return FieldOf(name);
    } catch (const RuntimeError&) {
        LogMissingField(Text(call) + name);
        return std::nullopt;
    }
}

template <class Source>
Variant ScriptingRow<Source>::value(const Text& name) {
    return Field(u"value(", name).value_or(Variant());
}

template <class Source>
Variant ScriptingRow<Source>::ChildValue(const Text& id, const Text& name) {
    try {
        return ChildField(Needed(mSource), id, name);
    } catch (const RuntimeError&) {
        LogMissingField(Text::FromAscii(RowIdentity<Source>::kChildMember) + u"(" + id + u", " + name);
        return Variant();
    }
}

template <class Source>
bool ScriptingRow<Source>::isIn(const Text& name, std::span<const Variant> arguments) {
    const std::optional<Variant> field = Field(u"isIn(", name);
    if (!field) return false;
    try {
        return IsInList(arguments, [&] { return *field; });
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(this->Dispatch(),
                     u"isIn(" + name + u"): ERROR when calling '" + RowIdentity<Source>::kHolder + u".desc(" + name +
                         u").value':\r\n",
                     ErrorDetail(error));
        }
        return false;
    }
}

template <class Source>
Variant ScriptingRow<Source>::sel(const Text& name, std::span<const Variant> arguments) {
    const std::optional<Variant> field = Field(u"sel(", name);
    if (!field) return Variant();
    try {
        if (const std::optional<Variant> picked = Select(arguments, [&] { return *field; })) return *picked;
        if (DebugOutput()) {
            LogEntry(this->Dispatch(), u"sel(" + name + u"): ERROR: aktuellen Wert (" + TextForLog(*field) +
                                           u") nicht in Argumentenliste gefunden!");
        }
    } catch (const RuntimeError& error) {
        if (DebugOutput()) LogEntry(this->Dispatch(), u"sel(" + name + u"): ERROR:\r\n", ErrorDetail(error));
    }
    return Variant();
}

template class IScriptingRow<IBase_SpecChannel>;
template class IScriptingRow<IBase_SpecGroup>;
template class IScriptingRow<IBase_SpecModule>;
template class ScriptingRow<IBase_SpecChannel>;
template class ScriptingRow<IBase_SpecGroup>;
template class ScriptingRow<IBase_SpecModule>;

}  // namespace ov
