#include "scripting/scripting_tree_objects.h"

#include "contract/channel.h"
#include "contract/group.h"
#include "scripting/argument_list.h"
#include "scripting/scripted_tree.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

// The facet @p T of an element; what is missing fails like a call on Nothing.
template <class T, class Element>
Ref<T> Needed(const Ref<Element>& element) {
    Ref<T> found = facet<T>(element);
    if (!found) Raise(ErrorNumber::ObjectVariableNotSet);
    return found;
}

template <class Self>
void LogFailedStep(Self& self, std::u16string_view member, const Variant& id, const RuntimeError& error) {
    if (!DebugOutput()) return;
    LogEntry(self.Dispatch(), Text(member) + u"(" + TextForLog(id) + u"): ERROR: ", ErrorDetail(error));
}

}  // namespace

Ref<CBase_ScriptingParameters> ScriptingGroups::parameters(const Variant& id) {
    try {
        const Ref<IBase_SpecGroup> group = mData ? mData->get_Item(ToText(id)) : nullptr;
        Ref<CBase_ScriptingParameters> parameters = Needed<IBase_ScriptingGroup>(group)->parameters();
        Needed<ScriptedGroup>(group)->MarkScriptAccess();
        return parameters;
    } catch (const RuntimeError& error) {
        LogFailedStep(*this, u"parameters", id, error);
        return nullptr;
    }
}

Ref<CBase_ScriptingGroups> ScriptingChannels::groups(const Variant& id) {
    try {
        const Ref<IBase_SpecChannel> channel = mData ? mData->get_Item(ToText(id)) : nullptr;
        Ref<CBase_ScriptingGroups> groups = Needed<IBase_ScriptingChannel>(channel)->groups();
        Needed<ScriptedChannel>(channel)->MarkScriptAccess();
        return groups;
    } catch (const RuntimeError& error) {
        LogFailedStep(*this, u"groups", id, error);
        return nullptr;
    }
}

}  // namespace ov
