// How a group takes its row, makes its parameters, and ends.
#include "descriptor/row_collection.h"
#include "descriptor/shared_descriptor.h"
#include "parameters/parameter.h"
#include "parameters/parameter_factory.h"
#include "parameters/row_form.h"
#include "platform/automation/operators.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/row_values.h"

namespace ov {

void Group::Config(Channel* channel, const Ref<const ov::Row>& row) {
    mChannel = channel;
    if (const Ref<IBase_SpecModule> module = static_cast<IBase_SpecChannel*>(channel)->module()) {
        mScriptHost->BindModule(module.get());
    }
    mRecord = channel->Record();
    mDesc = MakeObject<Collection>(row);
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

// Where the table has what the group reads of its parameters' rows.
struct Group::ParameterTable {
    explicit ParameterTable(const ColumnNames& columns)
        : filter(columns.Find(u"enable")),
          id(columns.Find(u"parameterID")),
          type(columns.Find(u"Type")),
          subtype(columns.Find(u"subtype")) {
        if (!filter) filter = columns.Find(u"staticDependency");
    }
    std::optional<std::size_t> filter, id, type, subtype;
};

void Group::ReadParameters() {
    mGuiParameters = MakeObject<TypedList<IBase_GuiParameter>>();
    mParameters = MakeObject<TypedList<IBase_SpecParameter>>();
    mParameters->SetUnderlying(mGuiParameters->Underlying());
    mGuiParameters->KeepRecord(mRecord);
    mParameters->KeepRecord(mRecord);
    mSwept = std::make_shared<SweptList<IBase_Internal>>(
        mRecord, [](IBase_Internal& parameter, Workload& work, std::size_t position) {
            if (ov::Parameter* own = ov::Parameter::Of(parameter)) own->Trace().StandAt(&work, position);
        });
    if (mChannelWork) mSwept->Work().StandBelow(mChannelWork, mChannelPosition);
    const Ref<ModuleServices> module = Module();
    const Ref<Database> db = module ? module->GetDB() : nullptr;
    if (!db || !mScriptHost) Raise(ErrorNumber::ObjectVariableNotSet);
    mScriptHost->BindGroup(this);
    const std::shared_ptr<const RowSet> rows =
        SharedDescriptor::Of(*db).Rows(u"SELECT * FROM [Parameters] WHERE [GroupType] = " +
                                       Text::FromInteger(mGroupType) + u" ORDER BY [order],[ParameterId]");
    const ParameterTable table(*rows->columns);
    Ref<IBase_Internal> alive;
    ov::Parameter* parameter = nullptr;
    Variant lastId;
    bool first = true;
    for (const Ref<const ov::Row>& row : rows->rows) {
        const bool wanted = IsWanted(*row, table);
        if (!mChannel) Raise(ErrorNumber::ObjectVariableNotSet);  // a rule has ended the tree
        if (!wanted) continue;
        const Variant& id = CellOf(*row, table.id);
        if (first || !EqualValues(id, lastId)) {
            if (parameter) parameter->BeginRing();
            first = false;
            lastId = id;
            alive = CreateParameter(row, table);
            parameter = static_cast<ov::Parameter*>(alive.get());
            if (parameter) {
                mParameters->Enter(parameter, ParameterKey(*row, *table.id));
                mSwept->NoteGrowth();
            }
        } else if (parameter) {
            AddAlternative(*parameter, row);
        }
    }
    if (parameter) parameter->BeginRing();
    CheckConsistencyAll();
    if (ReconfigurationPass()) UpdateDependencies();
}

bool Group::IsWanted(const ov::Row& row, const ParameterTable& table) {
    return !table.filter || GetBoolFromVariantOrScript(row[*table.filter], true, CellOf(row, table.id));
}

// A parameter of our own classes, or Nothing.
Ref<IBase_Internal> Group::CreateParameter(const Ref<const ov::Row>& row, const ParameterTable& table) {
    const Text type = TextOr(CellOf(*row, table.type), u"");
    Ref<IBase_Internal> parameter = MakeParameter(type, CellOf(*row, table.subtype));
    if (!parameter) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"(ParamId " + TextForLog(mId) + u") CreateParameter(): Error: Parameter of Type '" +
                                     type + u"' could not be loaded");
        }
        return nullptr;
    }
    static_cast<ov::Parameter&>(*parameter).TakeRow(this, MakeObject<Collection>(row));
    if (!mChannel) {
        parameter->Unload();  // its rules have ended the tree, which did not know it yet
        Raise(ErrorNumber::ObjectVariableNotSet);
    }
    return parameter;
}

void Group::AddAlternative(ov::Parameter& parameter, const Ref<const ov::Row>& row) {
    const Ref<Collection> values = MakeObject<Collection>(row);
    const Variant& remove = values->Get(u"removeOnDependency");
    parameter.Ring().Add(ToLong(values->Get(u"idx")), TextOr(values->Get(u"dependency"), u""),
                         !remove.IsNull() && ToBoolean(remove), values.get());
}

void Group::LoadScripts() {
    if (mScripts) return;
    mScripts = MakeObject<Collection>();
    std::shared_ptr<const RowSet> rows;
    try {
        if (!Services() || !Services()->GetDB()) Raise(ErrorNumber::ObjectVariableNotSet);
        rows = SharedDescriptor::Of(*Services()->GetDB())
                   .Rows(u"SELECT * FROM [GroupScripts] WHERE [GroupType] = " + Text::FromInteger(mGroupType) +
                         u" OR [GroupType] IS NULL");
    } catch (const RuntimeError& error) {
        // A database without the table is allowed, and not asked again.
        LogEntry(Dispatch(), u"LoadScripts(): ERROR at OpenRecordset(): ", error.description());
        return;
    }
    try {
        const std::optional<std::size_t> script = rows->columns->Find(u"script"), id = rows->columns->Find(u"ScriptId");
        for (const Ref<const ov::Row>& row : rows->rows) {
            const Text text = ToText(CellOf(*row, script));
            if (!mScripts->TryAdd(ToText(CellOf(*row, id)), text)) {
                Raise(ErrorNumber::KeyAlreadyAssociated);  // the first one stays, and the reading ends
            }
        }
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
