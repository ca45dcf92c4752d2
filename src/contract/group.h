/// @file
/// The group: it builds and holds the parameters of one row of the descriptor's table of groups and runs their rules
/// in a script engine of its own. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The group's own interface.
class CBase_Group : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{7E5EB669-3150-41B3-B547-256027388063}");
    static constexpr const char* kName = "_CBase_Group";
    static const InterfaceInfo& Members();

    /// Runs statements in the group's script engine. Always answers Empty; a failing script is logged.
    virtual Variant ExecuteScript(const Text& script) = 0;
};

/// The group for user interfaces. The state questions and commands go to its parameters of the kinds asked for.
class IBase_GuiGroup : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{D8C58545-4206-4B9E-A563-3486EC1CC093}");
    static constexpr const char* kName = "_IBase_GuiGroup";
    static const InterfaceInfo& Members();

    virtual Text name() = 0;  ///< "" once unloaded
    /// True unless a parameter whose `configState` is valid says False; parameters that are disabled or invalid do not
    /// count. Loads; False if that fails.
    virtual bool consistent(std::optional<eParameterKind> kind = {}) = 0;
    virtual bool modified(std::optional<eParameterKind> kind = {}) = 0;       ///< of valid parameters, as `consistent`
    virtual void ClearModified(std::optional<eParameterKind> kind = {}) = 0;  ///< takes the values for unmodified
    virtual bool unknown(std::optional<eParameterKind> kind = {}) = 0;        ///< of valid parameters, as `consistent`
    virtual void SetUnknown(std::optional<eParameterKind> kind = {}) = 0;     ///< marks the values as unknown
    virtual void LockDataset(std::optional<eParameterKind> kind = {}) = 0;    ///< makes uneditable; loads
    virtual void UnlockDataset(std::optional<eParameterKind> kind = {}) = 0;  ///< ends LockDataset; loads
    virtual Variant id() = 0;                                                 ///< the group's name for rules
    /// True if every parameter is for experts only, so True without parameters. Loads; False if that fails.
    virtual bool expertOnly() = 0;
    /// The blocks, at most three, in which this group stands; Nothing once unloaded.
    virtual Ref<CBase_GuiBlockCollection> blocks() = 0;
    virtual Ref<IBase_GuiChannel> channel() = 0;  ///< Nothing once unloaded
    /// The parameters in the descriptor's order. Loads; after a failure those that were built.
    virtual Ref<CBase_GuiParameterCollection> parameters() = 0;
    /// Registers a listener for the events of all parameters of the group, which hears after those of the parameter.
    /// Registered twice, it is told twice.
    /// @throws RuntimeError 13 for an object that has none of these events
    virtual void RegisterCallback(IDispatch* cb) = 0;
    virtual void UnregisterCallback(IDispatch* cb) = 0;  ///< takes off every entry of @p cb
    virtual Ref<IBase_SpecGroup> Spec() = 0;             ///< this object for the engine
    /// Name of the plugin that edits the group, "" for none. With a name, @p args takes the plugin's arguments.
    virtual Text EditPlugin(Text* args = nullptr) = 0;
    virtual void ClearUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks the values as known; loads
    virtual void ResetValue(std::optional<eParameterKind> kind = {}) = 0;    ///< sets default values; loads
};

/// The group for the driver engine.
class IBase_SpecGroup : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{320D91F2-F36E-4D56-BCCD-D330541086DF}");
    static constexpr const char* kName = "_IBase_SpecGroup";
    static const InterfaceInfo& Members();

    virtual Variant id() = 0;                      ///< that of the Gui facet
    virtual Ref<IBase_SpecChannel> channel() = 0;  ///< Nothing once unloaded
    /// The list of IBase_GuiGroup::parameters in this view. Loads; Nothing if that fails.
    virtual Ref<CBase_SpecParameterCollection> parameters() = 0;
    /// The group's row of the descriptor, a keyed collection of column name to value.
    virtual Ref<IDispatch> desc() = 0;
    virtual Ref<IBase_GuiGroup> Gui() = 0;     ///< this object for user interfaces
    virtual Ref<IBase_SpecGroup> Clone() = 0;  ///< always Nothing: a module is cloned as a whole
    /// True if all parameters of this group, of the kinds asked for, are in @p other with equal values. What only
    /// @p other has is not noticed. Loads; True if that fails, False for Nothing.
    virtual bool Compare(IBase_SpecGroup* other, std::optional<eParameterKind> kind = {}) = 0;
    /// The value of an expression in the group's script engine; see IBase_SpecChannel::EvaluateScript.
    virtual Variant EvaluateScript(const Variant& script) = 0;
    /// True once a script has reached this group by path (`G`, `CH`): changes here may then matter to other groups.
    /// Stays until the tree is unloaded.
    virtual bool scriptAccess() = 0;
};

/// The group as scripts of other groups reach it.
class IBase_ScriptingGroup : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{B5514B3C-1866-4CC2-9C5D-82CBEE787C58}");
    static constexpr const char* kName = "_IBase_ScriptingGroup";
    static const InterfaceInfo& Members();

    /// The script object `P` of this group. Loads.
    virtual Ref<CBase_ScriptingParameters> parameters() = 0;
};

}  // namespace ov
