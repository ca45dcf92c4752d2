// The group's faces: what it answers for its parameters, its listeners, comparison.
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/edit_plugin.h"
#include "tree/group.h"

namespace ov {

Ref<IDispatch> Group::desc() {
    if (mRecord) mRecord->OpenRows();
    return mDesc ? mDesc->Dispatch() : nullptr;
}

Collection* Group::Row() {
    if (mRecord && mRecord->RowsAreOpen()) Traces::Leave(Unrepeatable::Object);
    return mDesc.get();
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

// Questions are about parameters in force alone; commands go to all.
bool Group::Concerns(IBase_GuiParameter& parameter, KindMask kind, KindWalk walk) {
    const Ref<IBase_SpecParameter> spec = parameter.Spec();
    if (spec && !MatchesKind(spec->kind(), kind.value_or(eParamKindAllKinds))) return false;
    return walk == KindWalk::Command || parameter.configState() == eParameterConfigState::eParameterValid;
}

void Group::NoteInconsistent(IBase_GuiParameter& parameter) {
    if (!DebugOutput()) return;
    LogEntry(Dispatch(), u"IBase_GuiGroup_consistent(): Parameter '" + parameter.name() + u"' ist inkonsistent");
}

Text Group::EditPlugin(Text* args) {
    return EditPluginOf(mDesc.get(), args);
}

bool Group::Compare(IBase_SpecGroup* other, std::optional<eParameterKind> kind) {
    if (!other) return false;
    if (!LoadParameters()) return true;
    bool same = true;
    const Ref<TypedList<IBase_SpecParameter>> parameters = mParameters;
    const Ref<CBase_SpecParameterCollection> theirs = other->parameters();
    parameters->ForEach([&](IBase_SpecParameter& parameter) {
        if (!MatchesKind(parameter.kind(), kind.value_or(eParamKindAllKinds))) return true;
        const Ref<IBase_SpecParameter> twin = theirs ? theirs->get_Item(ToText(parameter.id())) : nullptr;
        return same = twin && parameter.Compare(twin.get());
    });
    return same;
}

// First the group's own listeners, then the blocks in which it stands, then the channel.
void Group::PassOn(ParameterEvent event, IBase_GuiParameter* p) {
    const Ref<Group> alive = this;
    TellAll(mCallbacks, event, p);
    if (const Ref<TypedList<IBase_GuiBlock>> blocks = mBlocks) {
        blocks->ForEach([&](IBase_GuiBlock& block) {
            if (const auto listener = facet<IBase_CallbackParameter>(&block)) (listener.get()->*event)(p);
            return true;
        });
    }
    if (const Ref<Channel> channel = mChannel) (static_cast<IBase_CallbackParameter&>(*channel).*event)(p);
}

}  // namespace ov
