// The module's faces: what it answers for itself and for its channels, its listeners, clones and comparison.
#include "module/module.h"

#include <array>

#include "contract/group.h"
#include "descriptor/parameter_kind.h"
#include "descriptor/row_collection.h"
#include "module/station.h"
#include "platform/automation/conversions.h"
#include "platform/system/file_system.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/dependency_update.h"
#include "tree/row_values.h"

namespace ov {

namespace {

// The ids of a path of three calls such as CH("c").G("g").P("p"), or none; the path is parsed, not run.
std::vector<Text> IdsOfPath(std::u16string_view path) {
    const std::vector<std::u16string_view> pieces = SplitCalls(path, 4);
    std::vector<Text> ids;
    for (std::size_t i = 1; pieces.size() == 4 && i < pieces.size(); ++i) {
        ids.emplace_back(pieces[i].substr(0, pieces[i].find(u'"')));
    }
    return ids;
}

}  // namespace

Ref<IDispatch> Module::desc() {
    mRecord->OpenRows();
    return mDesc ? mDesc->Dispatch() : nullptr;
}

Collection* Module::Row() {
    if (mRecord->RowsAreOpen()) Traces::Leave(Unrepeatable::Object);
    return mDesc.get();
}

Text Module::name() {
    return mNameTextIdx >= 1 ? GetTranslatedText(mNameTextIdx) : mName;
}

Text Module::description() {
    try {
        return mDesc ? GetTranslatedText(ToLong(NullToDefault(mDesc->Get(u"description"), Variant(0)))) : Text();
    } catch (const RuntimeError&) {
        return Text();
    }
}

Text Module::deviceHelpFile() {
    try {
        return mDesc ? GetIndexedFile(ToLong(NullToDefault(mDesc->Get(u"deviceHelpFile"), Variant(0)))) : Text();
    } catch (const RuntimeError&) {
        return Text();
    }
}

bool Module::authentification() {
    try {
        return mDesc && ToBoolean(mDesc->Get(u"authentification"));
    } catch (const RuntimeError&) {
        return false;
    }
}

Ref<Channel> Module::FirstChannel() {
    const Ref<IBase_SpecChannel> first = mSpecChannels ? mSpecChannels->get_first() : nullptr;
    return dynamic_cast<Channel*>(first.get());
}

Ref<CBase_GuiChannelCollection> Module::GuiChannels() {
    return LoadChannels() ? Ref<CBase_GuiChannelCollection>(mGuiChannels) : nullptr;
}

Ref<CBase_SpecChannelCollection> Module::SpecChannels() {
    return LoadChannels() ? Ref<CBase_SpecChannelCollection>(mSpecChannels) : nullptr;
}

Ref<IBase_GuiParameter> Module::mainValue() {
    if (mMainValue) return mMainValue;
    if (!LoadChannels()) return nullptr;
    const Ref<Module> alive = this;
    const Ref<TypedList<IBase_SpecChannel>> channels = mSpecChannels;
    const std::vector<Text> ids = IdsOfPath(mMainValuePath);
    if (ids.size() != 3) return nullptr;
    Ref<IBase_GuiParameter> found;
    try {
        const auto channel = channels->get_Item(ids[0]);
        const auto groups = channel ? channel->groups() : nullptr;  // Nothing where they cannot be loaded
        const auto group = groups ? groups->get_Item(ids[1]) : nullptr;
        const auto parameters = group ? group->parameters() : nullptr;
        const auto parameter = parameters ? parameters->get_Item(ids[2]) : nullptr;
        found = facet<IBase_GuiParameter>(parameter);
    } catch (const RuntimeError&) {
        // A miss is asked again next time.
    }
    if (mSpecChannels == channels) mMainValue = found;  // the rules of a group may have ended the tree
    return found;
}

void Module::RegisterCallback(IDispatch* cb) {
    if (auto listener = CastListener<IBase_CallbackParameter>(cb)) mParameterCallbacks.Add(std::move(listener));
    RegisterModuleCallbackOnly(cb);
}

void Module::RegisterModuleCallbackOnly(IDispatch* cb) {
    if (auto listener = CastListener<IBase_CallbackModule>(cb)) mModuleCallbacks.Add(std::move(listener));
}

void Module::UnregisterCallback(IDispatch* cb) {
    mParameterCallbacks.Remove(cb);
    mModuleCallbacks.Remove(cb);
}

void Module::SetStation(Station* station) {
    mStation = station;
}

Ref<IUnknown> Module::OwnStation() {
    return mStation ? mStation->Dispatch() : nullptr;
}

void Module::PassOn(ParameterEvent event, IBase_GuiParameter* p) {
    const Ref<Module> alive = this;
    TellAll(mParameterCallbacks, event, p);
    if (const Ref<Station> station = mStation) (static_cast<IBase_CallbackParameter&>(*station).*event)(p);
}

void Module::mEnvironment_Changed(const Text& key, const Variant& value) {
    mModuleCallbacks.Tell([&](IBase_CallbackModule& listener) {
        try {
            listener.OnEnvironmentChanged(this, key, value);
        } catch (const RuntimeError& error) {
            EndWithLog(u"mEnvironment_Changed(): Error when calling OnEnvironmentChanged(",
                       key + u", " + TextForLog(value) + u"): " + error.description());
        }
    });
    if (const Ref<Station> station = mStation) station->OnEnvironmentChanged(this, key, value);
}

Text Module::ParameterKindToString(eParameterKind kind) {
    if (!mDB) Raise(ErrorNumber::ObjectVariableNotSet);
    const Ref<Recordset> kinds = mDB->OpenRecordset(u"Kinds", RecordsetType::dbOpenTable);
    kinds->let_Index(u"PrimaryKey");
    kinds->Seek(u"=", std::array{Variant(BitToKind(kind))});
    const Text name = kinds->NoMatch() ? Text() : ToText(NullToDefault(FieldValue(*kinds, u"KindId"), Variant(u"")));
    kinds->Close();
    return name;
}

void Module::CloneTypeInto(Module& clone) {
    clone.SetSourcePath(mSourcePath);
    clone.SetLanguage(mLanguage);
    clone.Load(mModuleType, mId, mName);
}

Ref<IBase_SpecModule> Module::CloneType() {
    const Ref<Module> clone = MakeObject<Module>();
    CloneTypeInto(*clone);
    return clone;
}

Ref<IBase_SpecModule> Module::Clone() {
    const Ref<Module> alive = this;
    const Ref<Module> clone = MakeObject<Module>();
    CloneTypeInto(*clone);
    try {
        mEnvironment->CopyContentsTo(clone->mEnvironment.get());
        clone->RegisterImExport(mImExport.get());
        if (const auto channels = mSpecChannels) CopyValues(*channels, *clone);
        clone->UpdateDependencies();
        return clone;
    } catch (const RuntimeError& error) {
        LogEntry(Dispatch(), u"IBase_SpecModule_Clone: Error: ", error.description());
        clone->Unload();
        return nullptr;
    }
}

bool Module::Compare(IBase_SpecModule* other, std::optional<eParameterKind> kind) {
    if (!other) return false;
    if (!LoadChannels()) return true;
    const Ref<TypedList<IBase_SpecChannel>> channels = mSpecChannels;
    const Ref<CBase_SpecChannelCollection> theirs = other->channels();
    if (!theirs) return true;
    const Ref<IEnumVariant> walk = theirs->NewEnum();
    // A channel that only this module has is not noticed: comparing is not symmetric.
    for (Variant item; walk->Next(item);) {
        const auto channel = facet<IBase_SpecChannel>(item.AsObject());
        const auto own = channels->get_Item(ToText(channel->id()));
        if (!own || !own->Compare(channel.get(), kind)) return false;
    }
    return true;
}

// From the parameters of one group to those of its twin, which stand in their list as they were loaded.
void Module::CopyValues(CBase_SpecParameterCollection& own, CBase_SpecParameterCollection& clone) {
    auto* list = dynamic_cast<TypedList<IBase_SpecParameter>*>(&clone);
    if (!list) return;
    const Ref<Collection> entries = list->Underlying();
    for (std::size_t at = 0; at < entries->size(); ++at) {
        const auto [key, item] = entries->At(at);
        const auto parameter = facet<IBase_SpecParameter>(item->AsObject());
        const auto twin = parameter ? own.get_Item(key) : nullptr;
        if (!twin) continue;
        parameter->let_realvalue(twin->get_realvalue());
        parameter->Gui()->ClearModified();  // a clone does not count as modified
    }
}

// Driven by the tree of the clone, which this builds.
void Module::CopyValues(TypedList<IBase_SpecChannel>& channels, Module& clone) {
    const auto walk = [](auto collection, auto visit) {
        if (!collection) return;
        const Ref<IEnumVariant> elements = collection->NewEnum();
        for (Variant item; elements->Next(item);) {
            visit(item.AsObject());
        }
    };
    walk(clone.SpecChannels(), [&](IDispatch* channelObject) {
        const auto channel = facet<IBase_SpecChannel>(channelObject);
        const auto ownChannel = channels.get_Item(ToText(channel->id()));
        const auto ownGroups = ownChannel ? ownChannel->groups() : nullptr;
        walk(channel->groups(), [&](IDispatch* groupObject) {
            const auto group = facet<IBase_SpecGroup>(groupObject);
            const auto ownGroup = ownGroups ? ownGroups->get_Item(ToText(group->id())) : nullptr;
            const auto ownParameters = ownGroup ? ownGroup->parameters() : nullptr;
            const auto parameters = group->parameters();
            if (parameters && ownParameters) CopyValues(*ownParameters, *parameters);
        });
    });
}

void Module::CheckConsistencyAll() {
    if (const auto channels = mSpecChannels) {
        channels->ForEach([&](IBase_SpecChannel& spec) {
            if (auto* channel = dynamic_cast<Channel*>(&spec)) channel->CheckConsistencyAll();
            return true;
        });
    }
}

void Module::CheckConsistency() {
    CheckConsistencyAll();
}

bool Module::UpdateDependenciesChannels() {
    bool any = false;
    if (const auto channels = mSpecChannels) {
        channels->ForEach([&](IBase_SpecChannel& spec) {
            if (auto* channel = dynamic_cast<Channel*>(&spec)) any = channel->ReconfigurationPass() || any;
            return true;
        });
    }
    return any;
}

void Module::UpdateDependencies() {
    const Ref<Module> alive = this;
    if (SettleAlone(*this, &Module::UpdateDependenciesChannels)) return;
    if (const Ref<Station> station = mStation) station->UpdateDependencies();
}

bool Module::Export(Variant& exportdata, Variant& sourceId) {
    const Ref<ISpec_ImExport> service = mImExport;
    const Ref<Module> alive = this;
    return service && service->DoExport(this, exportdata, sourceId);
}

bool Module::Import(Variant& importdata, Variant& sourceId) {
    const Ref<Module> alive = this;
    // Imported once more as long as rules bring in parameters that an earlier round could not fill.
    DependencyUpdate update;
    do {
        const Ref<ISpec_ImExport> service = mImExport;  // it may go, or take itself off, in a round
        if (!service) Raise(ErrorNumber::ObjectVariableNotSet);
        if (!update.Between([&] { return service->DoImport(this, importdata, sourceId); })) return false;
    } while (update.BeginPass() && UpdateDependenciesChannels());
    return true;
}

}  // namespace ov
