// The group's faces: what it answers for its parameters, its listeners, comparison.
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/edit_plugin.h"
#include "tree/group.h"

namespace ov {

// Calls `fold` with each parameter whose kind is in the mask, until it answers false.
template <class Fold>
void Group::ForEachOfKind(std::optional<eParameterKind> kind, Fold fold) {
    const Ref<TypedList<IBase_GuiParameter>> parameters = mGuiParameters;
    if (!parameters) return;
    const eParameterKind mask = kind.value_or(eParamKindAllKinds);
    parameters->ForEach([&](IBase_GuiParameter& parameter) {
        const Ref<IBase_SpecParameter> spec = parameter.Spec();
        return !spec || !MatchesKind(spec->kind(), mask) || fold(parameter);
    });
}

Text Group::name() {
    return Services() ? Services()->GetTranslatedText(mNameId) : Text();
}

Ref<IBase_SpecChannel> Group::OwnChannel() {
    return mChannel;
}

Ref<CBase_GuiParameterCollection> Group::GuiParameters() {
    LoadParameters();
    return mGuiParameters;
}

Ref<CBase_SpecParameterCollection> Group::SpecParameters() {
    return LoadParameters() ? Ref<CBase_SpecParameterCollection>(mParameters) : nullptr;
}

Ref<CBase_ScriptingParameters> Group::ScriptParameters() {
    LoadParameters();  // rules also reach what a failed load has left
    return mScriptHost ? mScriptHost->ScriptObject() : nullptr;
}

bool Group::expertOnly() {
    if (!LoadParameters()) return false;
    bool all = true;
    mGuiParameters->ForEach([&](IBase_GuiParameter& parameter) { return all = parameter.expertOnly(); });
    return all;
}

bool Group::consistent(std::optional<eParameterKind> kind) {
    if (!LoadParameters()) return false;
    bool all = true;
    ForEachOfKind(kind, [&](IBase_GuiParameter& parameter) {
        if (parameter.configState() != eParameterConfigState::eParameterValid || parameter.consistent()) return true;
        if (DebugOutput()) {
            LogEntry(Dispatch(),
                     u"IBase_GuiGroup_consistent(): Parameter '" + parameter.name() + u"' ist inkonsistent");
        }
        return all = false;
    });
    return all;
}

bool Group::modified(std::optional<eParameterKind> kind) {
    bool any = false;
    ForEachOfKind(kind, [&](IBase_GuiParameter& parameter) {
        return !(any = parameter.configState() == eParameterConfigState::eParameterValid && parameter.modified());
    });
    return any;
}

bool Group::unknown(std::optional<eParameterKind> kind) {
    bool any = false;
    ForEachOfKind(kind, [&](IBase_GuiParameter& parameter) {
        return !(any = parameter.configState() == eParameterConfigState::eParameterValid && parameter.unknown());
    });
    return any;
}

void Group::ClearModified(std::optional<eParameterKind> kind) {
    ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.ClearModified(), true; });
}

void Group::SetUnknown(std::optional<eParameterKind> kind) {
    ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.SetUnknown(), true; });
}

void Group::ClearUnknown(std::optional<eParameterKind> kind) {
    if (LoadParameters()) {
        ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.ClearUnknown(), true; });
    }
}

void Group::ResetValue(std::optional<eParameterKind> kind) {
    if (LoadParameters()) {
        ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.ResetValue(), true; });
    }
}

void Group::LockDataset(std::optional<eParameterKind> kind) {
    if (LoadParameters()) {
        ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.LockDataset(), true; });
    }
}

void Group::UnlockDataset(std::optional<eParameterKind> kind) {
    if (LoadParameters()) {
        ForEachOfKind(kind, [](IBase_GuiParameter& parameter) { return parameter.UnlockDataset(), true; });
    }
}

Text Group::EditPlugin(Text* args) {
    return EditPluginOf(mDesc.get(), args);
}

void Group::RegisterCallback(IDispatch* cb) {
    Ref<IBase_CallbackParameter> listener = CastListener<IBase_CallbackParameter>(cb);
    if (!listener) Raise(ErrorNumber::TypeMismatch);
    mCallbacks.Add(std::move(listener));
}

bool Group::Compare(IBase_SpecGroup* other, std::optional<eParameterKind> kind) {
    if (!other) return false;
    if (!LoadParameters()) return true;
    bool same = true;
    const Ref<CBase_SpecParameterCollection> theirs = other->parameters();
    ForEachOfKind(kind, [&](IBase_GuiParameter& parameter) {
        const Ref<IBase_SpecParameter> twin = theirs ? theirs->get_Item(ToText(parameter.id())) : nullptr;
        return same = twin && parameter.Spec()->Compare(twin.get());
    });
    return same;
}

// First the group's own listeners, then the blocks in which it stands, then the channel.
template <class Event>
void Group::PassOn(Event event) {
    mCallbacks.Tell(event);
    if (const Ref<TypedList<IBase_GuiBlock>> blocks = mBlocks) {
        blocks->ForEach([&](IBase_GuiBlock& block) {
            if (const auto listener = facet<IBase_CallbackParameter>(&block)) event(*listener);
            return true;
        });
    }
    if (const Ref<Channel> channel = mChannel) event(static_cast<IBase_CallbackParameter&>(*channel));
}

void Group::OnParameterReconfigured(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterReconfigured(p); });
}

void Group::OnParameterStateChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterStateChanged(p); });
}

void Group::OnParameterValueChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterValueChanged(p); });
}

void Group::OnParameterConfigStateChanged(IBase_GuiParameter* p) {
    PassOn([p](IBase_CallbackParameter& listener) { listener.OnParameterConfigStateChanged(p); });
}

}  // namespace ov
