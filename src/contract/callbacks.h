/// @file
/// What a host implements: listeners for the events of parameters, modules and stations, and the import and export
/// service.
///
/// A listener may be an object that has the interface, or any late-bound object with at least one of its operations by
/// name; the ones it lacks do nothing. Listeners are told in the order in which they were registered, and the source
/// holds them until they are taken off or the source is unloaded. Arguments by reference are for reading, except those
/// of ISpec_ImExport.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/listener.h"

namespace ov {

/// Hears of changes of parameters. An event goes to the listeners of the parameter, then of its group, of the blocks
/// that hold the group, of the channel, of the module.
///
/// The change is complete when its event is told. What a listener raises ends the round and goes to whoever caused the
/// event, except for writes through IBase_SpecParameter, which log it.
class IBase_CallbackParameter : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{CA0E2627-06C3-4004-85A9-23BEA66D66DF}");
    static constexpr const char* kName = "_IBase_CallbackParameter";
    static const InterfaceInfo& Members();

    /// Limits, gain, offset, unit or `editable` changed, or another row of the descriptor came into force.
    virtual void OnParameterReconfigured(IBase_GuiParameter* p) = 0;
    /// `unknown` or `consistent` changed, or `modified` was cleared, with no new value.
    virtual void OnParameterStateChanged(IBase_GuiParameter* p) = 0;
    /// The value or its eParameterValueExt changed. Parameters that depend on it have told their events before.
    virtual void OnParameterValueChanged(IBase_GuiParameter* p) = 0;
    /// `configState` changed.
    virtual void OnParameterConfigStateChanged(IBase_GuiParameter* p) = 0;
};

/// Hears of changes of a module.
class IBase_CallbackModule : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{AC92C8A8-4D1B-41D7-BB6C-0E6630F0F16C}");
    static constexpr const char* kName = "_IBase_CallbackModule";
    static const InterfaceInfo& Members();

    /// SetLanguage took a language for a loaded type. The first listener that raises an error ends the round, unnoticed
    /// by the caller.
    virtual void OnLanguageChanged(IBase_GuiModule* m) = 0;
    /// The module is about to be unloaded; its tree still stands. Errors are ignored.
    virtual void OnUnload(IBase_GuiModule* m) = 0;
    /// A variable of the module's environment changed. The variable "GET_FROM_BASE" with a text asks the host to write
    /// the variable of that name before it returns. Errors are logged, and the next listener is told.
    virtual void OnEnvironmentChanged(IBase_GuiModule* m, const Text& key, const Variant& value) = 0;
};

/// Listener of a station. Nothing tells these events today.
class IBase_CallbackStation : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{3EFC06FD-99CC-4936-9200-61483B8162E7}");
    static constexpr const char* kName = "_IBase_CallbackStation";
    static const InterfaceInfo& Members();

    virtual void OnAddModule(IBase_GuiModule* m) = 0;     ///< a module came into the station
    virtual void OnRemoveModule(IBase_GuiModule* m) = 0;  ///< a module left the station
};

/// The host's service that moves values between a module and data of the host's own form. The module passes the data
/// through untouched; the service may write both of its arguments, which the caller of the module then sees.
class ISpec_ImExport : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{C50B61FE-F1F1-4623-B4DD-5C5EFE508A0C}");
    static constexpr const char* kName = "_ISpec_ImExport";
    static const InterfaceInfo& Members();

    /// Fills the module from @p importdata. Called again while its writes make dependencies change; False stops that.
    virtual bool DoImport(IBase_SpecModule* module, Variant& importdata, Variant& sourceId) = 0;
    /// Fills @p exportdata from the module.
    virtual bool DoExport(IBase_SpecModule* module, Variant& exportdata, Variant& sourceId) = 0;
    /// One parameter is to be filled again. Nothing calls it today.
    virtual bool DoReImportParameter(IBase_SpecParameter* pModified) = 0;
};

template <>
struct LateListenerOf<IBase_CallbackParameter> {
    static Ref<IBase_CallbackParameter> Adapt(IDispatch* target);
};
template <>
struct LateListenerOf<IBase_CallbackModule> {
    static Ref<IBase_CallbackModule> Adapt(IDispatch* target);
};
template <>
struct LateListenerOf<IBase_CallbackStation> {
    static Ref<IBase_CallbackStation> Adapt(IDispatch* target);
};
template <>
struct LateListenerOf<ISpec_ImExport> {
    static Ref<ISpec_ImExport> Adapt(IDispatch* target);
};

}  // namespace ov
