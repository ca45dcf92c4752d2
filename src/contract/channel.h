/// @file
/// The channel: the node between a module and its groups, one row of the descriptor's table of channels. Channels are
/// built with the module's tree, their groups and blocks when they are first needed. What holds for all interfaces
/// stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The channel's own interface.
class CBase_Channel : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{84963A3F-5626-44EE-A7B2-9DEFC7440311}");
    static constexpr const char* kName = "_CBase_Channel";
    static const InterfaceInfo& Members();

    /// Runs statements in the channel's script engine. Always answers Empty; a failing script is logged.
    virtual Variant ExecuteScript(const Text& script) = 0;
};

/// The channel for user interfaces. The state questions and commands go to its groups.
class IBase_GuiChannel : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{EEC10663-CD36-409E-B13F-0AA94D8D2AF7}");
    static constexpr const char* kName = "_IBase_GuiChannel";
    static const InterfaceInfo& Members();

    virtual Text name() = 0;  ///< "" once unloaded
    /// True unless a group says False. Loads; False if that fails.
    virtual bool consistent(std::optional<eParameterKind> kind = {}) = 0;
    virtual bool modified(std::optional<eParameterKind> kind = {}) = 0;       ///< True if a group is modified
    virtual void ClearModified(std::optional<eParameterKind> kind = {}) = 0;  ///< takes the values for unmodified
    virtual bool unknown(std::optional<eParameterKind> kind = {}) = 0;        ///< True if a group has unknown values
    virtual void SetUnknown(std::optional<eParameterKind> kind = {}) = 0;     ///< marks the values as unknown
    virtual void LockDataset(std::optional<eParameterKind> kind = {}) = 0;    ///< makes uneditable; loads
    virtual void UnlockDataset(std::optional<eParameterKind> kind = {}) = 0;  ///< ends LockDataset; loads
    virtual Variant id() = 0;                                                 ///< the channel's name for rules
    /// The parameter that stands for the whole channel. Loads; Nothing if the descriptor names none or one that is not
    /// there.
    virtual Ref<IBase_GuiParameter> mainValue() = 0;
    virtual Ref<IBase_GuiModule> module() = 0;  ///< Nothing once unloaded
    /// The blocks in the order in which groups first named them. Loads; Nothing if that fails.
    virtual Ref<CBase_GuiBlockCollection> blocks() = 0;
    /// Registers a listener for the events of all parameters of the channel, which hears after those of parameter,
    /// group and blocks. Registered twice, it is told twice.
    /// @throws RuntimeError 13 for an object that has none of these events
    virtual void RegisterCallback(IDispatch* cb) = 0;
    virtual void UnregisterCallback(IDispatch* cb) = 0;  ///< takes off every entry of @p cb
    virtual Ref<IBase_SpecChannel> Spec() = 0;           ///< this object for the engine
    /// Name of the plugin that edits the channel, "" for none. With a name, @p args takes the plugin's arguments.
    virtual Text EditPlugin(Text* args = nullptr) = 0;
    virtual void ClearUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks the values as known; loads
    virtual void ResetValue(std::optional<eParameterKind> kind = {}) = 0;    ///< sets default values; loads
};

/// The channel for the driver engine.
class IBase_SpecChannel : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{FF2B2388-C447-495A-82A0-91B47CF9D45E}");
    static constexpr const char* kName = "_IBase_SpecChannel";
    static const InterfaceInfo& Members();

    virtual Variant id() = 0;                    ///< that of the Gui facet
    virtual Ref<IBase_SpecModule> module() = 0;  ///< Nothing once unloaded
    /// The groups. Loads; Nothing if that fails.
    virtual Ref<CBase_SpecGroupCollection> groups() = 0;
    /// The channel's row of the descriptor, a keyed collection of column name to value.
    virtual Ref<IDispatch> desc() = 0;
    virtual Ref<IBase_GuiChannel> Gui() = 0;     ///< this object for user interfaces
    virtual Ref<IBase_SpecChannel> Clone() = 0;  ///< always Nothing: a module is cloned as a whole
    /// True if all groups of this channel are in @p other with equal values. What only @p other has is not noticed.
    /// Loads; True if that fails, False for Nothing.
    virtual bool Compare(IBase_SpecChannel* other, std::optional<eParameterKind> kind = {}) = 0;
    /// The value of an expression in the channel's script engine: the text is a script whatever its marks, so "#:" and
    /// "!:" are not for here. Loads. Empty for Null and for a script that fails.
    virtual Variant EvaluateScript(const Variant& script) = 0;
    /// True once a script has reached this channel by path (`CH`): changes here may then matter to other channels.
    /// Stays until the tree is unloaded.
    virtual bool scriptAccess() = 0;
    /// Checks every parameter that is loaded anew.
    virtual void CheckConsistency() = 0;
    /// Reconfigures parameters by their dependency rules until nothing changes, then checks consistency; with
    /// `scriptAccess` over the whole module.
    virtual void UpdateDependencies() = 0;
};

/// The channel as scripts of other channels reach it.
class IBase_ScriptingChannel : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{8B261F73-FDAB-44B8-8380-68FB04EB325B}");
    static constexpr const char* kName = "_IBase_ScriptingChannel";
    static const InterfaceInfo& Members();

    /// The script object `G` of this channel. Loads.
    virtual Ref<CBase_ScriptingGroups> groups() = 0;
};

}  // namespace ov
