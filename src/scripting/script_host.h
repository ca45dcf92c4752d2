/// @file
/// The script hosts: one engine for each channel and each group, with the objects that its scripts see.
///
/// A host holds no policy: whether a text is a script at all, and what to do with a result, is its callers' affair. It
/// forms a reference cycle with its owner, which the owner's Unload breaks by letting the host go.
#pragma once

#include <memory>

#include "contract/default_interfaces.h"
#include "platform/script/script_control.h"
#include "record/rule_record.h"
#include "scripting/scripting_environment.h"
#include "scripting/scripting_parameters.h"
#include "scripting/scripting_rows.h"
#include "scripting/scripting_tree_objects.h"

namespace ov {

/// What both hosts have in common. The engine is made with the host, before the owner knows its place in the tree; the
/// objects are empty shells until they are bound.
class ScriptHost {
public:
    /// Binds `CH`, `ENV`, `CONFM` and `GETTEXT`. Called once, by the owner's configuration.
    void BindModule(IBase_SpecModule* module);
    /// The value of an expression. A failure gives Empty and, unless @p silent, a line in the log. Counts in
    /// debugCountEval.
    Variant Evaluate(const Text& script, bool silent);
    /// Runs statements; a failure leaves a line in the log.
    void ExecuteScript(const Text& statement);

protected:
    ScriptHost();
    ~ScriptHost();

    void Publish(const char16_t* name, IDispatch* object);
    void AddPrelude();
    /// The host as the source of log lines.
    virtual IDispatch* Source() = 0;

    Ref<ScriptingEnvironment> mScriptEnvironment = MakeObject<ScriptingEnvironment>();
    Ref<ScriptingGroups> mScriptGroups = MakeObject<ScriptingGroups>();
    Ref<ScriptingChannels> mScriptChannels = MakeObject<ScriptingChannels>();
    Ref<ScriptingRow<IBase_SpecChannel>> mConfCh = MakeObject<ScriptingRow<IBase_SpecChannel>>();
    Ref<ScriptingRow<IBase_SpecModule>> mConfM = MakeObject<ScriptingRow<IBase_SpecModule>>();
    Ref<ScriptingTexts> mScriptTexts = MakeObject<ScriptingTexts>();

private:
    void NoteDefinitions();
    void LogFailure(std::u16string_view call, const Text& script, const RuntimeError& error);

    ScriptControl mScriptControl;
    std::uint64_t mDefinitions = 0;     // of the host itself, its objects and prelude
    bool mHoldsState = false;           // scripts have defined something that later ones can find
    std::weak_ptr<RuleRecord> mRecord;  // of the tree
};

/// CBase_ChannelScripting: scripts of a channel see no `P` and no `CONFG`.
class ChannelScripting final : public Object<ChannelScripting, Facet<CBase_ChannelScripting>>, public ScriptHost {
public:
    static constexpr const char* kClassName = "CBase_ChannelScripting";

    ChannelScripting();

    /// Binds `G` and `CONFCH`, while the channel's group collection is still empty.
    void BindChannel(IBase_SpecChannel* channel);
    /// What `CH(id)` gives.
    Ref<CBase_ScriptingGroups> ScriptObject() { return mScriptGroups; }

private:
    IDispatch* Source() override { return Dispatch(); }
};

/// CBase_GroupScripting.
class GroupScripting final : public Object<GroupScripting, Facet<CBase_GroupScripting>>, public ScriptHost {
public:
    static constexpr const char* kClassName = "CBase_GroupScripting";

    GroupScripting();

    /// Binds `P`, `G`, `CONFCH` and `CONFG`, while the group's parameter collection is still empty: a script that runs
    /// during loading sees the parameters loaded so far.
    void BindGroup(IBase_SpecGroup* group);
    /// What `G(id)` gives.
    Ref<CBase_ScriptingParameters> ScriptObject() { return mScriptParameters; }

private:
    IDispatch* Source() override { return Dispatch(); }

    Ref<ScriptingParameters> mScriptParameters = MakeObject<ScriptingParameters>();
    Ref<ScriptingRow<IBase_SpecGroup>> mConfG = MakeObject<ScriptingRow<IBase_SpecGroup>>();
};

}  // namespace ov
