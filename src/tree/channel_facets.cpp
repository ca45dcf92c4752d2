// The channel's faces: what it answers for its groups, its listeners, comparison.
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/edit_plugin.h"
#include "tree/group.h"

namespace ov {

namespace {

using Groups = TypedList<IBase_SpecGroup>;

// Calls `fold` with each group's Gui face until it answers false; no groups, nothing to do.
template <class Fold>
void ForEachGui(const Ref<Groups>& groups, Fold fold) {
    if (!groups) return;
    groups->ForEach([&](IBase_SpecGroup& group) {
        const Ref<IBase_GuiGroup> gui = group.Gui();
        return !gui || fold(*gui);
    });
}

}  // namespace

Text Channel::name() {
    return mServices ? mServices->GetTranslatedText(mNameId) : Text();
}

bool Channel::consistent(std::optional<eParameterKind> kind) {
    bool all = LoadGroups();
    if (all) ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return all = group.consistent(kind); });
    return all;
}

bool Channel::modified(std::optional<eParameterKind> kind) {
    bool any = false;
    ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return !(any = group.modified(kind)); });
    return any;
}

bool Channel::unknown(std::optional<eParameterKind> kind) {
    bool any = false;
    ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return !(any = group.unknown(kind)); });
    return any;
}

void Channel::ClearModified(std::optional<eParameterKind> kind) {
    ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.ClearModified(kind), true; });
}

void Channel::SetUnknown(std::optional<eParameterKind> kind) {
    ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.SetUnknown(kind), true; });
}

void Channel::ClearUnknown(std::optional<eParameterKind> kind) {
    if (LoadGroups()) ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.ClearUnknown(kind), true; });
}

void Channel::ResetValue(std::optional<eParameterKind> kind) {
    if (LoadGroups()) ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.ResetValue(kind), true; });
}

void Channel::LockDataset(std::optional<eParameterKind> kind) {
    if (LoadGroups()) ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.LockDataset(kind), true; });
}

void Channel::UnlockDataset(std::optional<eParameterKind> kind) {
    if (LoadGroups()) ForEachGui(mGroups, [&](IBase_GuiGroup& group) { return group.UnlockDataset(kind), true; });
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

void Channel::RegisterCallback(IDispatch* cb) {
    Ref<IBase_CallbackParameter> listener = CastListener<IBase_CallbackParameter>(cb);
    if (!listener) Raise(ErrorNumber::TypeMismatch);
    mCallbacks.Add(std::move(listener));
}

bool Channel::Compare(IBase_SpecChannel* other, std::optional<eParameterKind> kind) {
    if (!other) return false;
    if (!LoadGroups()) return true;
    bool same = true;
    const Ref<CBase_SpecGroupCollection> theirs = other->groups();
    mGroups->ForEach([&](IBase_SpecGroup& group) {
        const Ref<IBase_SpecGroup> twin = theirs ? theirs->get_Item(ToText(group.id())) : nullptr;
        return same = twin && group.Compare(twin.get(), kind);
    });
    return same;
}

template <class Event>
void Channel::PassOn(Event event) {
    mCallbacks.Tell(event);
    if (const auto module = facet<IBase_CallbackParameter>(mModule)) event(*module);
}

void Channel::OnParameterReconfigured(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterReconfigured(p); });
}

void Channel::OnParameterStateChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterStateChanged(p); });
}

void Channel::OnParameterValueChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterValueChanged(p); });
}

void Channel::OnParameterConfigStateChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterConfigStateChanged(p); });
}

}  // namespace ov
