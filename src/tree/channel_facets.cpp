// The channel's faces: what it answers for its groups, its listeners, comparison.
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/edit_plugin.h"
#include "tree/group.h"

namespace ov {

Text Channel::name() {
    return mServices ? mServices->GetTranslatedText(mNameId) : Text();
}

Ref<CBase_GuiBlockCollection> Channel::blocks() {
    return LoadGroups() ? Ref<CBase_GuiBlockCollection>(mBlocks) : nullptr;
}

Ref<CBase_SpecGroupCollection> Channel::SpecGroups() {
    return LoadGroups() ? Ref<CBase_SpecGroupCollection>(mGroups) : nullptr;
}

Ref<CBase_ScriptingGroups> Channel::ScriptGroups() {
    LoadGroups();  // rules also reach what a failed load has left
    return mScriptHost ? mScriptHost->ScriptObject() : nullptr;
}

Text Channel::EditPlugin(Text* args) {
    return EditPluginOf(mDesc.get(), args);
}

bool Channel::Compare(IBase_SpecChannel* other, std::optional<eParameterKind> kind) {
    if (!other) return false;
    if (!LoadGroups()) return true;
    bool same = true;
    const Ref<TypedList<IBase_SpecGroup>> groups = mGroups;
    const Ref<CBase_SpecGroupCollection> theirs = other->groups();
    groups->ForEach([&](IBase_SpecGroup& group) {
        const Ref<IBase_SpecGroup> twin = theirs ? theirs->get_Item(ToText(group.id())) : nullptr;
        return same = twin && group.Compare(twin.get(), kind);
    });
    return same;
}

void Channel::PassOn(ParameterEvent event, IBase_GuiParameter* p) {
    const Ref<Channel> alive = this;
    TellAll(mCallbacks, event, p);
    if (const auto module = facet<IBase_CallbackParameter>(mModule)) (module.get()->*event)(p);
}

}  // namespace ov
