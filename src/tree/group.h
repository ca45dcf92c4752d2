/// @file
/// The holder of the parameters of one group.
#pragma once

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "contract/records.h"
#include "parameters/parameter_owner.h"
#include "scripting/script_host.h"
#include "scripting/scripted_tree.h"
#include "tree/event_relay.h"
#include "tree/kind_folds.h"
#include "tree/swept_list.h"
#include "tree/typed_collection.h"

namespace ov {

class Channel;
class Parameter;

/// `channel` and `parameters` have one name and several types in the group's faces; these facets part them.
class GuiGroupFacet : public DatasetFolds<IBase_GuiGroup, IBase_GuiParameter> {
public:
    Ref<IBase_GuiChannel> channel() final { return facet<IBase_GuiChannel>(OwnChannel()); }
    Ref<CBase_GuiParameterCollection> parameters() final { return GuiParameters(); }

protected:
    virtual Ref<IBase_SpecChannel> OwnChannel() = 0;
    virtual Ref<CBase_GuiParameterCollection> GuiParameters() = 0;
};
class SpecGroupFacet : public Facet<IBase_SpecGroup> {
public:
    Ref<IBase_SpecChannel> channel() final { return OwnChannel(); }
    Ref<CBase_SpecParameterCollection> parameters() final { return SpecParameters(); }

protected:
    virtual Ref<IBase_SpecChannel> OwnChannel() = 0;
    virtual Ref<CBase_SpecParameterCollection> SpecParameters() = 0;
};
class ScriptingGroupFacet : public Facet<IBase_ScriptingGroup> {
public:
    Ref<CBase_ScriptingParameters> parameters() final { return ScriptParameters(); }

protected:
    virtual Ref<CBase_ScriptingParameters> ScriptParameters() = 0;
};
/// `ExecuteScript` is asked for by hosts and by parameters in different forms.
class DefaultGroupFacet : public Facet<CBase_Group> {
public:
    Variant ExecuteScript(const Text& script) final {
        RunStatement(script);
        return Variant();
    }

protected:
    virtual void RunStatement(const Text& statement) = 0;
};
class ParameterOwnerFacet : public Facet<ParameterOwner> {
public:
    void ExecuteScript(const Text& statement) final { RunStatement(statement); }

protected:
    virtual void RunStatement(const Text& statement) = 0;
};

/// CBase_Group. Its parameters are loaded at the first operation that needs them; a failed load leaves what was built,
/// and the next one counts it as loaded. Holds its channel, and is held by it: only Unload ends that ring.
class Group final : public Object<Group, DefaultGroupFacet, GuiGroupFacet, SpecGroupFacet, EventRelay,
                                  ScriptingGroupFacet, Facet<ScriptedGroup>, ParameterOwnerFacet> {
public:
    static constexpr const char* kClassName = "CBase_Group";

    Group() = default;
    void OnFinalRelease() noexcept { Unload(); }

    // What channel and blocks use.
    /// @throws RuntimeError for a row that cannot be read
    void Config(Channel* channel, const Ref<const ov::Row>& row);
    bool LoadParameters();
    const Ref<TypedList<IBase_GuiBlock>>& Blocks() const noexcept { return mBlocks; }
    const Variant& Id() const noexcept { return mId; }
    /// The descriptor row. @pre configured
    /// One pass over the rules of all parameters. @returns true if one that scripts have read was reconfigured
    bool ReconfigurationPass();
    void CheckConsistencyAll();
    void Unload() noexcept;
    /// What there is to do in the group; Nothing before its parameters are loaded.
    const Workload* Work() const noexcept { return mSwept ? &mSwept->Work() : nullptr; }
    /// The group stands at @p position of the channel's work.
    void StandBelow(Workload& channel, std::size_t position) noexcept;
    /// Whether that is where it stands: a host may have put the group into other lists as well.
    bool StandsBelow(const Workload& channel, std::size_t position) const noexcept {
        return mChannelWork == &channel && mChannelPosition == position;
    }

    // IBase_GuiGroup
    Text name() override;
    Variant id() override { return mId; }
    bool expertOnly() override;
    Ref<CBase_GuiBlockCollection> blocks() override { return mBlocks; }
    void RegisterCallback(IDispatch* cb) override { AddListener(mCallbacks, cb); }
    void UnregisterCallback(IDispatch* cb) override { mCallbacks.Remove(cb); }
    Ref<IBase_SpecGroup> Spec() override { return this; }
    Text EditPlugin(Text* args) override;

    // IBase_SpecGroup
    Ref<IDispatch> desc() override;
    Ref<IBase_GuiGroup> Gui() override { return this; }
    Ref<IBase_SpecGroup> Clone() override { return nullptr; }  // a module is cloned as a whole
    bool Compare(IBase_SpecGroup* other, std::optional<eParameterKind> kind) override;
    Variant EvaluateScript(const Variant& script) override;
    bool scriptAccess() override { return mScriptAccess; }

    // ScriptedGroup and ParameterOwner
    void UpdateDependencies() override;

    // ScriptedGroup
    Collection* Row() override;
    void MarkScriptAccess() override { mScriptAccess = true; }
    Ref<Collection> GroupScripts() override;
    Ref<Collection> ScriptResultCache() override;
    Variant EvaluateByModelVersion(const Text& text) override;
    Variant EvaluatePickedText(const Text& text) override;

    // ParameterOwner
    RuleRecord* Record() override { return mRecord.get(); }
    bool IsLiteral(const Text& text) override;
    Ref<ModuleServices> Module() override;
    Variant GetParameterDescAsScript(const Text& fieldname, Collection& data, const Variant& id, VarType type) override;
    std::int32_t GetLongFromScript(const Text& text, const Variant& id) override;
    Variant GetDecimalFromScript(const Text& text, const Variant& id) override;
    double GetDoubleFromScript(const Text& text, const Variant& id) override;
    void GetStringValueFromScript(Text& text, const Variant& id) override;
    void ForgetStaticScript(Text& text, const Text& replacement) override;
    Variant EvaluateRawScript(const Text& text, bool silent, bool textFallback) override;
    Variant EvaluateScriptOrLiteral(const Text& text, bool silent) override;

    // Readers as those of ParameterOwner. False on failure; 0; ""
    bool GetBoolFromScript(const Text& text, const Variant& id);
    float GetSingleFromScript(const Text& text, const Variant& id);
    Text GetStringFromScript(const Text& text, const Variant& id);
    /// Null gives @p fallback, text goes through the reader, anything else is converted.
    bool GetBoolFromVariantOrScript(const Variant& value, bool fallback, const Variant& id);

private:
    Ref<IBase_SpecChannel> OwnChannel() override;
    Ref<CBase_GuiParameterCollection> GuiParameters() override;
    Ref<CBase_SpecParameterCollection> SpecParameters() override;
    Ref<CBase_ScriptingParameters> ScriptParameters() override;
    void RunStatement(const Text& statement) override;

    ModuleServices* Services() const noexcept;
    /// True if prefixes tell what is a script; else the shape of a text does.
    bool HasPrefixes() const;
    Variant EvaluateFrom(std::size_t begin, const Text& text, bool silent, bool textFallback);

    void ReadParameters();
    struct ParameterTable;
    bool IsWanted(const ov::Row& row, const ParameterTable& table);
    Ref<IBase_Internal> CreateParameter(const Ref<const ov::Row>& row, const ParameterTable& table);
    void AddAlternative(ov::Parameter& parameter, const Ref<const ov::Row>& row);
    void LoadScripts();

    class RuledParameter;
    void RunRules(RuledParameter& parameter, bool& any);
    bool FindActiveDependency(RuledParameter& parameter, bool checkCurrent);
    bool Holds(RuledParameter& parameter, const Text& rule, const Variant& id);
    void GiveWay(RuledParameter& parameter, bool& any);
    void Reconfigure(RuledParameter& parameter, bool& any);
    void NoteChange(IBase_Internal& parameter);
    template <class Read>
    auto GuardedRead(const char16_t* reader, const Text& text, const Variant& id, Read read) -> decltype(read());
    template <class Number>
    Number FloatFromScript(const Text& text, Number (*convert)(const Variant&));
    bool LoadChildren() override { return LoadParameters(); }
    Ref<TypedList<IBase_GuiParameter>> LoadedChildren() override { return mGuiParameters; }
    bool Concerns(IBase_GuiParameter& parameter, KindMask kind, KindWalk walk) override;
    void NoteInconsistent(IBase_GuiParameter& parameter) override;
    void PassOn(ParameterEvent event, IBase_GuiParameter* p) override;

    Ref<TypedList<IBase_GuiBlock>> mBlocks = MakeObject<TypedList<IBase_GuiBlock>>();
    Ref<Channel> mChannel;
    Ref<GroupScripting> mScriptHost = MakeObject<GroupScripting>();
    Ref<TypedList<IBase_GuiParameter>> mGuiParameters;  // Nothing until loaded; a view of the same list
    Ref<TypedList<IBase_SpecParameter>> mParameters;    // Nothing until loaded: the one test for it
    CallbackList<IBase_CallbackParameter> mCallbacks;
    Variant mId;
    std::int32_t mGroupType = 0;
    std::int32_t mNameId = 0;
    Ref<Collection> mDesc;
    bool mScriptAccess = false;
    std::shared_ptr<RuleRecord> mRecord;
    std::shared_ptr<SweptList<IBase_Internal>> mSwept;  // with mParameters; whoever sweeps keeps it
    Workload* mChannelWork = nullptr;                   // of the record
    std::size_t mChannelPosition = 0;
    Ref<Collection> mScripts;        // Nothing until first needed
    Ref<Collection> mScriptResults;  // dropped at the start and the end of every pass
};

}  // namespace ov
