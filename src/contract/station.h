/// @file
/// The station: a plain container of modules with an id and a name. It holds its modules and they do not know of it,
/// so no event of a module comes through it. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The station as the host drives it.
class CBase_Station : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{A21E2184-CB9E-4F18-A9A8-936D0529A0BE}");
    static constexpr const char* kName = "_CBase_Station";
    static const InterfaceInfo& Members();

    /// Any value of the host's; Empty at first.
    virtual Variant get_id() = 0;
    virtual void let_id(const Variant& value) = 0;
    virtual void set_id(const Variant& value) = 0;
    /// Any text of the host's.
    virtual Text get_name() = 0;
    virtual void let_name(const Text& value) = 0;
    /// Adds a module at the end under the text of its id; a module of that id that stood there goes. False for
    /// Nothing.
    virtual bool AddModule(CBase_Module* module) = 0;
    /// Removes every entry that is the object @p other or, if that is none, has it as its id. True even if there was
    /// nothing to remove. The module itself is not unloaded.
    virtual bool RemoveModule(const Variant& other) = 0;
};

/// The station for user interfaces. The state questions and commands go to its modules in their order.
class IBase_GuiStation : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{FEA3EC16-B853-450E-9BD5-6FC421E1AA82}");
    static constexpr const char* kName = "_IBase_GuiStation";
    static const InterfaceInfo& Members();

    virtual Text name() = 0;  ///< that of CBase_Station
    /// True unless a module says False, so True without modules. Loads their trees.
    virtual bool consistent(std::optional<eParameterKind> kind = {}) = 0;
    virtual bool modified(std::optional<eParameterKind> kind = {}) = 0;       ///< True if a module is modified
    virtual void ClearModified(std::optional<eParameterKind> kind = {}) = 0;  ///< takes all values for unmodified
    virtual bool unknown(std::optional<eParameterKind> kind = {}) = 0;        ///< True if a module has unknown values
    virtual void SetUnknown(std::optional<eParameterKind> kind = {}) = 0;     ///< marks all values as unknown
    virtual Ref<CBase_GuiModuleCollection> modules() = 0;                     ///< never Nothing
    virtual Variant id() = 0;                                                 ///< that of CBase_Station
    /// Registers @p cb as IBase_CallbackStation and as IBase_CallbackParameter, as far as it is one. Neither is told
    /// anything today.
    virtual void RegisterCallback(IDispatch* cb) = 0;
    virtual void UnregisterCallback(IDispatch* cb) = 0;                      ///< takes @p cb off both lists
    virtual void ClearUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks all values as known; loads
};

/// The station for the driver engine.
class IBase_SpecStation : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{F886F26C-4F08-48D4-AFAB-E1571CD0E499}");
    static constexpr const char* kName = "_IBase_SpecStation";
    static const InterfaceInfo& Members();

    virtual Variant id() = 0;                               ///< that of CBase_Station
    virtual Ref<CBase_SpecModuleCollection> modules() = 0;  ///< the list of IBase_GuiStation::modules in this view
    virtual Ref<IBase_SpecStation> Clone() = 0;             ///< always Nothing
    /// True if every module of @p other that is here too, by its id, is equal. Modules that are missing here are
    /// passed over.
    virtual bool Compare(IBase_SpecStation* other, std::optional<eParameterKind> kind = {}) = 0;
};

}  // namespace ov
