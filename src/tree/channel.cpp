// Loading, evaluation and the end of a channel.
#include "tree/channel.h"

#include <array>

#include "descriptor/row_collection.h"
#include "descriptor/shared_descriptor.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "tree/block.h"
#include "tree/dependency_update.h"
#include "tree/edit_plugin.h"
#include "tree/group.h"
#include "tree/row_values.h"

namespace ov {

namespace {

// Stands for a main value that was looked up in vain, so that it is not looked up again.
constexpr const char16_t* kInvalid = u"Ungültig";

}  // namespace

void Channel::Config(IBase_SpecModule* module, const Ref<const ov::Row>& row) {
    mModule = module;
    mServices = facet<ModuleServices>(module);
    mRecord = mServices->Record();
    mScriptHost->BindModule(module);
    mDesc = MakeObject<Collection>(row);
    mId = mDesc->Get(u"ChannelId");
    mNameId = LongOr(mDesc->Get(u"name"), 0);
    mChannelType = LongOr(mDesc->Get(u"ChannelType"), 0);
}

bool Channel::LoadGroups() {
    if (mGroups) return true;
    Traces::Leave(Unrepeatable::Load);
    if (GlobalDiagnostics().timing && DebugOutput()) LogEntry(Dispatch(), u"Id '" + ToText(mId) + u"': LoadGroups()");
    try {
        ReadGroups();
        return true;
    } catch (const RuntimeError& error) {
        if (DebugOutput()) LogEntry(Dispatch(), u"LoadGroups(): ONERROR: ", error.description());
        return false;
    }
}

void Channel::ReadGroups() {
    mBlocks = MakeObject<TypedList<IBase_GuiBlock>>();
    mGroups = MakeObject<TypedList<IBase_SpecGroup>>();
    mGuiGroups = MakeObject<TypedList<IBase_GuiGroup>>();
    mGuiGroups->SetUnderlying(mGroups->Underlying());
    mGroups->KeepRecord(mRecord);
    mGuiGroups->KeepRecord(mRecord);
    if (!mModule || !mScriptHost) Raise(ErrorNumber::ObjectVariableNotSet);
    mSwept = std::make_shared<SweptList<IBase_SpecGroup>>(
        mRecord, [](IBase_SpecGroup& spec, Workload& work, std::size_t position) {
            if (auto* group = dynamic_cast<Group*>(&spec)) group->StandBelow(work, position);
        });
    mScriptHost->BindChannel(this);
    const Ref<Database> db = mServices->GetDB();
    if (!db) Raise(ErrorNumber::ObjectVariableNotSet);
    // The rows come in the order that the store gives: the query asks for none.
    const std::shared_ptr<const RowSet> rows = SharedDescriptor::Of(*db).Rows(
        u"SELECT * FROM [Groups] WHERE [ChannelType] = " + Text::FromInteger(mChannelType));
    BlocksByNumber made;
    for (const Ref<const ov::Row>& row : rows->rows) {
        const Ref<Group> group = MakeObject<Group>();
        group->Config(this, row);
        mMadeGroups.emplace_back(group);
        mGroups->Enter(group.get(), ToText(group->Id()));
        PlaceInBlocks(*group, *row, made);
    }
}

void Channel::PlaceInBlocks(Group& group, const ov::Row& row, BlocksByNumber& made) {
    for (const char16_t* column : {u"block1", u"block2", u"block3"}) {
        const Variant& number = CellOf(row, row.Columns()->Find(column));
        if (number.IsNull()) continue;
        const Ref<Block> block = GetOrCreateBlock(ToLong(number), made);
        group.Blocks()->Add(block.get(), ToText(block->Id()));
        block->AddGroup(group);
    }
}

// `made` has the blocks of the channel by their numbers.
Ref<Block> Channel::GetOrCreateBlock(std::int32_t blockIdx, BlocksByNumber& made) {
    if (const auto known = made.find(blockIdx); known != made.end()) return known->second;
    const Ref<Block> created = MakeObject<Block>();
    const Ref<Recordset> rows = mServices->GetDB()->OpenRecordset(u"Blocks", RecordsetType::dbOpenTable);
    rows->let_Index(u"PrimaryKey");
    rows->Seek(u"=", std::array{Variant(blockIdx)});
    created->Config(this, *rows);
    const Text id = ToText(created->Id());
    // A block of the same id goes from the channel: the next group that names its number gets another one.
    if (auto* former = dynamic_cast<Block*>(mBlocks->get_Item(id).get())) made.erase(former->Idx());
    mBlocks->Add(created.get(), id);
    made.emplace(created->Idx(), created);
    rows->Close();
    return created;
}

Ref<IBase_GuiParameter> Channel::mainValue() {
    if (mMainValue || mMainValueText == kInvalid) return mMainValue;
    if (!LoadGroups()) return nullptr;
    const Ref<Channel> alive = this;
    const Ref<IBase_GuiParameter> found = FindMainValue();
    if (mModule) mMainValue = found;  // the rules of its group may have ended the tree
    return found;
}

Ref<IBase_GuiParameter> Channel::FindMainValue() {
    if (!mServices || !mServices->GetDB()) return nullptr;
    const Ref<Recordset> types = mServices->GetDB()->OpenRecordset(u"ChannelTypes", RecordsetType::dbOpenTable);
    types->let_Index(u"PrimaryKey");
    types->Seek(u"=", std::array{Variant(mChannelType)});
    mMainValueText = TextOr(FieldValue(*types, u"mainValue"), u"");
    types->Close();

    const std::vector<std::u16string_view> pieces = SplitCalls(mMainValueText, 3);
    if (pieces.size() != 3) {
        if (!mMainValueText.empty() && DebugOutput()) {
            LogEntry(Dispatch(), u"IBase_GuiChannel_mainValue(" + mMainValueText + u"): ungültiger Wert.");
        }
        mMainValueText = kInvalid;
        return nullptr;
    }
    const Text groupId = pieces[1].substr(0, pieces[1].find(u"\")"));
    const Text parameterId = pieces[2].substr(0, pieces[2].find(u"\")"));
    try {
        const Ref<IBase_SpecGroup> group = mGroups->get_Item(groupId);
        const auto parameters = group ? group->parameters() : nullptr;
        if (auto gui = facet<IBase_GuiParameter>(parameters ? parameters->get_Item(parameterId) : nullptr)) return gui;
    } catch (const RuntimeError&) {
        // Reported like a miss; the next call tries again.
    }
    if (DebugOutput()) {
        LogEntry(Dispatch(), u"IBase_GuiChannel_mainValue(" + mMainValueText + u"): Gruppe " + groupId +
                                 u" oder Parameter " + parameterId + u" nicht gefunden.");
    }
    return nullptr;
}

Variant Channel::Evaluate(const Text& script, bool silent) {
    if (!LoadGroups() || !mServices) return Variant();
    try {
        if (mServices->GetModelVersionIndex() < 1) return EvaluateRawScript(script, silent, false);
        if (!HasScriptPrefix(script) || script.size() <= 2) return script;
        return EvaluateFrom(kScriptPrefix, script, silent, false);
    } catch (const RuntimeError& error) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"Evaluate(" + script + u"): ONERROR: Error " + Text::FromInteger(error.number()) +
                                     u": " + ErrorText(error.number()) + u" (" + error.description() + u")");
        }
        return Variant();
    }
}

Variant Channel::EvaluateRawScript(const Text& script, bool silent, bool textFallback) {
    return EvaluateFrom(0, script, silent, textFallback);
}

Variant Channel::EvaluateFrom(std::size_t begin, const Text& text, bool silent, bool textFallback) {
    const Ref<Channel> alive = this;
    if (!LoadGroups() || !mScriptHost) return Variant();
    const Ref<ChannelScripting> host = mScriptHost;  // a script may unload the tree under itself
    return EvaluateOnHost(*host, Dispatch(), mId, text, begin, silent, textFallback);
}

Variant Channel::EvaluateScript(const Variant& script) {
    if (script.IsNull()) return Variant();
    try {
        return EvaluateRawScript(ToText(script), false, false);
    } catch (const RuntimeError&) {
        if (DebugOutput()) {
            LogEntry(Dispatch(), u"IBase_SpecChannel_EvaluateScript(" + TextForLog(script) +
                                     u"): Fehler beim Versuch der Ausführung!");
        }
        return Variant();
    }
}

Variant Channel::ExecuteScript(const Text& script) {
    if (const Ref<ChannelScripting> host = mScriptHost) host->ExecuteScript(script);
    return Variant();
}

void Channel::UpdateDependencies() {
    const Ref<Channel> alive = this;
    if (SettleAlone(*this, &Channel::ReconfigurationPass)) return;
    if (const Ref<IBase_SpecModule> module = mModule) module->UpdateDependencies();
}

bool Channel::ReconfigurationPass() {
    bool any = false;
    SweepGroups(&Workload::pass, [&](Group& group) { any = group.ReconfigurationPass() || any; });
    return any;
}

void Channel::CheckConsistencyAll() {
    SweepGroups(&Workload::check, [](Group& group) { group.CheckConsistencyAll(); });
}

// A group in which nothing is left to do is passed over until something is.
template <class Visit>
void Channel::SweepGroups(WorkSet Workload::*set, Visit visit) {
    const auto swept = mSwept;  // a visit may have the groups read anew
    if (!swept) return;
    swept->Sweep(mGroups->Underlying(), set, [&](IBase_SpecGroup& spec, std::size_t position) {
        auto* group = dynamic_cast<Group*>(&spec);
        if (!group) return;
        visit(*group);
        const Workload* work = group->Work();
        if (!group->StandsBelow(swept->Work(), position) || (work && (work->*set).HasWork())) return;
        const std::uint64_t evaluations = work ? (work->*set).Evaluations() : 0;
        (swept->Work().*set).SetDone(position, static_cast<std::uint32_t>(evaluations));
    });
}

Ref<IDispatch> Channel::desc() {
    if (mRecord) mRecord->OpenRows();
    return mDesc ? mDesc->Dispatch() : nullptr;
}

Collection* Channel::Row() {
    if (mRecord && mRecord->RowsAreOpen()) Traces::Leave(Unrepeatable::Object);
    return mDesc.get();
}

template <class Fold>
void Channel::ForEachGroup(Fold fold) {
    const Ref<TypedList<IBase_SpecGroup>> groups = mGroups;
    if (!groups) return;
    groups->ForEach([&](IBase_SpecGroup& spec) {
        auto* group = dynamic_cast<Group*>(&spec);
        return !group || fold(*group);
    });
}

void Channel::Unload() noexcept {
    if (!mModule) return;
    mCallbacks.Clear();
    mMainValue = nullptr;
    for (const Ref<IBase_SpecGroup>& made : std::exchange(mMadeGroups, {})) {
        if (auto* group = dynamic_cast<Group*>(made.get())) group->Unload();
    }
    if (mGroups) mGroups->Clear();
    if (mBlocks) {
        mBlocks->ForEach([](IBase_GuiBlock& block) {
            if (auto* own = dynamic_cast<Block*>(&block)) own->Unload();
            return true;
        });
        mBlocks->Clear();
    }
    mScriptHost = nullptr;
    mServices = nullptr;
    mModule = nullptr;
    if (mDesc) mDesc->Clear();
    mMainValueText = Text();
}

}  // namespace ov
