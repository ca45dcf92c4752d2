// How a group takes its row, makes its parameters, and ends.
#include "descriptor/row_collection.h"
#include "parameters/parameter.h"
#include "parameters/parameter_factory.h"
#include "platform/automation/operators.h"
#include "platform/automation/record.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/row_values.h"

namespace ov {

void Group::Config(Channel* channel, const tBaseDescriptorDB& desc) {
    mChannel = channel;
    if (const Ref<IBase_SpecModule> module = static_cast<IBase_SpecChannel*>(channel)->module()) {
        mScriptHost->BindModule(module.get());
    }
    mRecord = channel->Record();
    mDesc = RowToCollection(*desc.rs);
    mGroupType = ToLong(mDesc->Get(u"GroupType"));
    mId = mDesc->Get(u"groupId");
    mNameId = LongOr(mDesc->Get(u"name"), 0);
}

bool Group::LoadParameters() {
    if (mParameters) return true;
    const Ref<Group> alive = this;
    Traces::Leave(Unrepeatable::Load);
    if (GlobalDiagnostics().timing && DebugOutput()) {
        LogEntry(Dispatch(), u"Id '" + TextForLog(mId) + u"': LoadParameters():");
    }
    try {
        ReadParameters();
    } catch (const RuntimeError& error) {
        if (DebugOutput()) LogEntry(Dispatch(), u"LoadParameters(): Error: ", error.description());
        return false;
    }
    return true;
}

void Group::ReadParameters() {
    mGuiParameters = MakeObject<TypedList<IBase_GuiParameter>>();
    mParameters = MakeObject<TypedList<IBase_SpecParameter>>();
    mParameters->SetUnderlying(mGuiParameters->Underlying());
    mGuiParameters->KeepRecord(mRecord);
    mParameters->KeepRecord(mRecord);
    mSwept.emplace(mRecord, [](IBase_Internal& parameter, Workload& work, std::size_t position) {
        if (auto* own = dynamic_cast<ov::Parameter*>(&parameter)) own->Trace().StandAt(&work, position);
    });
    if (mChannelWork) mSwept->Work().StandBelow(mChannelWork, mChannelPosition);
    tBaseDescriptorDB desc;
    if (const Ref<ModuleServices> module = Module()) desc.db = module->GetDB();
    if (!desc.db || !mScriptHost) Raise(ErrorNumber::ObjectVariableNotSet);
    mScriptHost->BindGroup(this);
    desc.rs = desc.db->OpenRecordset(u"SELECT * FROM [Parameters] WHERE [GroupType] = " +
                                         Text::FromInteger(mGroupType) + u" ORDER BY [order],[ParameterId]",
                                     RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly);
    std::optional<std::u16string_view> filter;
    for (const std::u16string_view column : {u"staticDependency", u"enable"}) {
        if (FieldExists(*desc.rs, column)) filter = column;
    }
    Ref<IBase_Internal> parameter;
    Variant lastId;
    bool first = true;
    for (; !desc.rs->Eof(); desc.rs->MoveNext()) {
        const bool wanted = IsWanted(*desc.rs, filter);
        if (!mChannel) Raise(ErrorNumber::ObjectVariableNotSet);  // a rule has ended the tree
        if (!wanted) continue;
        const Variant id = FieldValue(*desc.rs, u"parameterID");
        if (first || !EqualValues(id, lastId)) {
            if (parameter) parameter->dependencies()->MoveFirst();
            first = false;
            lastId = id;
            parameter = CreateParameter(desc);
            if (const auto spec = facet<IBase_SpecParameter>(parameter)) {
                mParameters->Enter(spec.get(), ToText(parameter->id()));
                mSwept->NoteGrowth();
            }
        } else if (parameter) {
            AddAlternative(*parameter, *desc.rs);
        }
    }
    if (parameter) parameter->dependencies()->MoveFirst();
    desc.rs->Close();
    CheckConsistencyAll();
    if (ReconfigurationPass()) UpdateDependencies();
}

bool Group::IsWanted(Recordset& row, const std::optional<std::u16string_view>& filter) {
    return !filter || GetBoolFromVariantOrScript(FieldValue(row, *filter), true, FieldValue(row, u"parameterID"));
}

Ref<IBase_Internal> Group::CreateParameter(const tBaseDescriptorDB& descriptor) {
    const Text type = TextOr(FieldValue(*descriptor.rs, u"Type"), u"");
    Ref<IBase_Internal> parameter = MakeParameter(type, FieldValue(*descriptor.rs, u"subtype"));
    if (!parameter) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"(ParamId " + TextForLog(mId) + u") CreateParameter(): Error: Parameter of Type '" +
                                     type + u"' could not be loaded");
        }
        return nullptr;
    }
    parameter->Config(static_cast<IBase_GuiGroup*>(this), BoxRecord(descriptor));
    if (!mChannel) {
        parameter->Unload();  // its rules have ended the tree, which did not know it yet
        Raise(ErrorNumber::ObjectVariableNotSet);
    }
    return parameter;
}

void Group::AddAlternative(IBase_Internal& parameter, Recordset& row) {
    const Ref<Collection> values = RowToCollection(row);
    const Variant& remove = values->Get(u"removeOnDependency");
    parameter.dependencies()->Add(ToLong(values->Get(u"idx")), TextOr(values->Get(u"dependency"), u""),
                                  !remove.IsNull() && ToBoolean(remove), values.get());
}

void Group::LoadScripts() {
    if (mScripts) return;
    mScripts = MakeObject<Collection>();
    Ref<Recordset> rows;
    try {
        if (!Services() || !Services()->GetDB()) Raise(ErrorNumber::ObjectVariableNotSet);
        rows = Services()->GetDB()->OpenRecordset(u"SELECT * FROM [GroupScripts] WHERE [GroupType] = " +
                                                      Text::FromInteger(mGroupType) + u" OR [GroupType] IS NULL",
                                                  RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly);
    } catch (const RuntimeError& error) {
        // A database without the table is allowed, and not asked again.
        LogEntry(Dispatch(), u"LoadScripts(): ERROR at OpenRecordset(): ", error.description());
        return;
    }
    try {
        for (; !rows->Eof(); rows->MoveNext()) {
            const Text script = ToText(FieldValue(*rows, u"script"));
            if (!mScripts->TryAdd(ToText(FieldValue(*rows, u"ScriptId")), script)) {
                Raise(ErrorNumber::KeyAlreadyAssociated);  // the first one stays, and the reading ends
            }
        }
        rows->Close();
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"LoadScripts(): ONERROR: Error " + Text::FromInteger(error.number()) + u": " +
                                 ErrorText(error.number()) + u" (" + error.description() + u")");
    }
}

Ref<Collection> Group::GroupScripts() {
    LoadScripts();
    return mScripts;
}

Ref<Collection> Group::ScriptResultCache() {
    if (!mScriptResults) {
        mScriptResults = MakeObject<Collection>();
        if (mSwept) mSwept->Work().pass.Touch();  // the next pass over the channel drops them
    }
    return mScriptResults;
}

void Group::Unload() noexcept {
    if (!mChannel) return;
    mCallbacks.Clear();
    if (const Ref<TypedList<IBase_SpecParameter>> parameters = mParameters) {
        parameters->ForEach([](IBase_SpecParameter& parameter) {
            if (const auto internal = facet<IBase_Internal>(&parameter)) internal->Unload();
            return true;
        });
        parameters->Clear();
    }
    mScriptHost = nullptr;
    mScripts = nullptr;
    mScriptResults = nullptr;
    if (mBlocks) mBlocks->Clear();
    mBlocks = nullptr;
    mChannel = nullptr;
    if (mDesc) mDesc->Clear();
}

}  // namespace ov
