/// @file
/// The node between a module and its groups.
#pragma once

#include <unordered_map>
#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/parameter.h"
#include "contract/records.h"
#include "descriptor/module_services.h"
#include "scripting/script_host.h"
#include "scripting/scripted_tree.h"
#include "tree/event_relay.h"
#include "tree/kind_folds.h"
#include "tree/swept_list.h"
#include "tree/typed_collection.h"

namespace ov {

/// `module` and `groups` have one name and several types in the channel's faces; these facets part them.
class GuiChannelFacet : public DatasetFolds<IBase_GuiChannel, IBase_GuiGroup> {
public:
    Ref<IBase_GuiModule> module() final { return facet<IBase_GuiModule>(OwnModule()); }

protected:
    virtual const Ref<IBase_SpecModule>& OwnModule() = 0;
};
class SpecChannelFacet : public Facet<IBase_SpecChannel> {
public:
    Ref<IBase_SpecModule> module() final { return OwnModule(); }
    Ref<CBase_SpecGroupCollection> groups() final { return SpecGroups(); }

protected:
    virtual const Ref<IBase_SpecModule>& OwnModule() = 0;
    virtual Ref<CBase_SpecGroupCollection> SpecGroups() = 0;
};
class ScriptingChannelFacet : public Facet<IBase_ScriptingChannel> {
public:
    Ref<CBase_ScriptingGroups> groups() final { return ScriptGroups(); }

protected:
    virtual Ref<CBase_ScriptingGroups> ScriptGroups() = 0;
};

/// CBase_Channel. Its groups and blocks are loaded at the first operation that needs them; a failed load leaves what
/// was built, and the next one counts it as loaded. Holds its module, and is held by it: only Unload ends that ring.
class Channel final : public Object<Channel, Facet<CBase_Channel>, SpecChannelFacet, EventRelay, GuiChannelFacet,
                                    ScriptingChannelFacet, Facet<ScriptedChannel>> {
public:
    static constexpr const char* kClassName = "CBase_Channel";

    Channel() = default;
    void OnFinalRelease() noexcept { Unload(); }

    // What module and groups use.
    /// Takes @p row of the table Channels. @throws RuntimeError for a cell of the wrong kind
    void Config(IBase_SpecModule* module, const Ref<const ov::Row>& row);
    bool LoadGroups();
    /// The value of a text that may be a script, by the generation of the descriptor; Empty for one that fails.
    Variant Evaluate(const Text& script, bool silent);
    /// The value of a script without prefix; with @p textFallback a text that gives nothing stands for itself.
    Variant EvaluateRawScript(const Text& script, bool silent, bool textFallback);
    Variant EvaluateFrom(std::size_t begin, const Text& text, bool silent, bool textFallback);
    const Variant& Id() const noexcept { return mId; }
    ModuleServices* Services() noexcept { return mServices.get(); }
    /// One pass over all loaded groups. @returns true if a parameter that scripts have read was reconfigured
    bool ReconfigurationPass();
    void CheckConsistencyAll();
    const std::shared_ptr<RuleRecord>& Record() const noexcept { return mRecord; }
    /// Tears down groups and blocks and lets the module go; harmless the second time.
    void Unload() noexcept;

    // CBase_Channel
    Variant ExecuteScript(const Text& script) override;

    // IBase_GuiChannel
    Text name() override;
    Variant id() override { return mId; }
    Ref<IBase_GuiParameter> mainValue() override;
    Ref<CBase_GuiBlockCollection> blocks() override;
    void RegisterCallback(IDispatch* cb) override { AddListener(mCallbacks, cb); }
    void UnregisterCallback(IDispatch* cb) override { mCallbacks.Remove(cb); }
    Ref<IBase_SpecChannel> Spec() override { return this; }
    Text EditPlugin(Text* args) override;

    // IBase_SpecChannel
    Ref<IDispatch> desc() override;
    Ref<IBase_GuiChannel> Gui() override { return this; }
    Ref<IBase_SpecChannel> Clone() override { return nullptr; }  // a module is cloned as a whole
    bool Compare(IBase_SpecChannel* other, std::optional<eParameterKind> kind) override;
    Variant EvaluateScript(const Variant& script) override;
    bool scriptAccess() override { return mScriptAccess; }
    void CheckConsistency() override { CheckConsistencyAll(); }
    void UpdateDependencies() override;

    // ScriptedChannel
    Collection* Row() override;
    void MarkScriptAccess() override { mScriptAccess = true; }

private:
    const Ref<IBase_SpecModule>& OwnModule() override { return mModule; }
    Ref<CBase_SpecGroupCollection> SpecGroups() override;
    Ref<CBase_ScriptingGroups> ScriptGroups() override;
    void ReadGroups();
    using BlocksByNumber = std::unordered_map<std::int32_t, Ref<class Block>>;
    void PlaceInBlocks(class Group& group, const ov::Row& row, BlocksByNumber& made);
    Ref<Block> GetOrCreateBlock(std::int32_t blockIdx, BlocksByNumber& made);
    Ref<IBase_GuiParameter> FindMainValue();
    bool LoadChildren() override { return LoadGroups(); }
    Ref<TypedList<IBase_GuiGroup>> LoadedChildren() override { return mGuiGroups; }
    void PassOn(ParameterEvent event, IBase_GuiParameter* p) override;
    template <class Fold>
    void ForEachGroup(Fold fold);
    template <class Visit>
    void SweepGroups(WorkSet Workload::*set, Visit visit);

    Ref<IBase_SpecModule> mModule;
    Ref<ModuleServices> mServices;
    Variant mId;
    std::int32_t mNameId = 0;
    Ref<ChannelScripting> mScriptHost = MakeObject<ChannelScripting>();
    std::int32_t mChannelType = 0;
    Ref<Collection> mDesc;
    Ref<TypedList<IBase_GuiBlock>> mBlocks;     // Nothing until the groups are loaded
    Ref<TypedList<IBase_SpecGroup>> mGroups;    // Nothing until then: the one test for it
    Ref<TypedList<IBase_GuiGroup>> mGuiGroups;  // a view of the same list
    // All groups that were made: hosts may clear the lists, and a group of the same id takes another one's place there.
    std::vector<Ref<IBase_SpecGroup>> mMadeGroups;
    CallbackList<IBase_CallbackParameter> mCallbacks;
    bool mScriptAccess = false;
    std::shared_ptr<RuleRecord> mRecord;
    std::shared_ptr<SweptList<IBase_SpecGroup>> mSwept;  // with mGroups; whoever sweeps keeps it
    Ref<IBase_GuiParameter> mMainValue;
    Text mMainValueText;
};

}  // namespace ov
