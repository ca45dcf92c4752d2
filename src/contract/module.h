/// @file
/// The module: one device, described by one row of a descriptor's table of module types. It is the root of the tree
/// and owns the language, the paths, the caches of texts and the environment.
///
/// The usual order of a host: create `CBase_Module`, SetSourcePath, SetLanguage if wanted, Load, work through Gui and
/// Spec, Unload. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "contract/records.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The module as the host drives it: load and unload, language, paths, the catalogue of module types.
///
/// Paths may be used before Load; the database is opened when it is first needed and shared by all modules of the
/// process that name it by the same text. It stays open to the end of the process.
class CBase_Module : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{DE897C62-00D5-4F0D-A52E-D425C47FB7C7}");
    static constexpr const char* kName = "_CBase_Module";
    static const InterfaceInfo& Members();

    /// The open descriptor database, Nothing before its first use and after Unload.
    virtual Ref<Database> get_mDB() = 0;
    /// Lends the module an open database in place of the one that its source path names.
    virtual void set_mDB(Database* value) = 0;
    /// The folder "bin" beside the library's own folder if there is one, else the library's own folder.
    virtual Text GetDllPath() = 0;
    /// A String: the descriptor's version and that of the database engine. "-" without a source path or a readable
    /// database. Opens the database; the answer is kept until the source path changes.
    virtual Variant GetDBVersion() = 0;
    virtual Ref<IBase_GuiModule> Gui() = 0;    ///< this object for user interfaces
    virtual Ref<IBase_SpecModule> Spec() = 0;  ///< this object for the engine
    /// A new guard that holds this module and unloads it when the guard's own last reference goes.
    virtual Ref<CBase_Unload> GetUnloadPointer() = 0;
    /// GetModuleType2 without a required bus category.
    virtual Variant GetModuleType(std::optional<std::int32_t> deviceTypeId = {}, Text* subDeviceType = nullptr) = 0;
    /// Sets the language by its id, of which the low 10 bits (the primary language) count; 7, German, at first. With a
    /// type loaded the answer is False, and nothing changes, for a language that the type does not support; otherwise
    /// OnLanguageChanged is told, even for the language that was set before.
    virtual bool SetLanguage(std::int32_t languageId) = 0;
    /// The primary language id, 0 to 1023.
    virtual std::int32_t GetLanguage() = 0;
    /// Names the database file; always True. Another path than before ends the tree; the present one does nothing.
    /// A path that begins with "." starts at the library's own folder.
    virtual bool SetSourcePath(const Text& sourcepath) = 0;
    /// The path as it was set; made absolute by the first opening.
    virtual Text GetSourcePath() = 0;
    /// The names of all enabled module types in table order, without keys; Nothing if the database cannot be read.
    virtual Ref<ICollection> Types() = 0;
    /// Makes the module a device of type @p moduletype (exact, case included) and replaces a tree that stands.
    /// @p moduleid is the host's name for it; @p modulename, if given and not "", its display name in every language.
    /// A language that the type does not support becomes 7. Builds no channel yet.
    /// @returns False if the database or the type is missing or its row is faulty; the module is then unusable until
    ///     the next Load
    virtual bool Load(const Text& moduletype, const std::optional<Text>& moduleid = {},
                      const std::optional<Text>& modulename = {}) = 0;
    /// Tells OnUnload, then takes the tree down and forgets all listeners. Paths, language and environment stay, so
    /// that the module can be loaded again. A second call does nothing.
    virtual void Unload() = 0;
    /// The module types for a device found on a bus: Empty if none fits, else a String with one name.
    ///
    /// @p deviceTypeId: -1, as when left out, is any. @p subDeviceType must fit exactly; with "{}" behind it all types
    /// that fit are answered, joined by "{}", and the two characters are cut off the caller's text.
    /// @p requiredBusCategory: "" for any, else a category that the type must mark as required, in any case.
    /// -1 with "" asks for the loaded type's name, "" if there is none. Needs a source path and no loaded type.
    virtual Variant GetModuleType2(std::optional<std::int32_t> deviceTypeId = {}, Text* subDeviceType = nullptr,
                                   const std::optional<Text>& requiredBusCategory = {}) = 0;
    /// The folder of the database, "" without a source path.
    virtual Text GetDBPath() = 0;
    /// The format generation of the descriptor: 0 if it names none. From 1 on rules carry the marks "#:" and "!:".
    virtual std::int32_t GetModelVersionIndex() = 0;
    /// Registers a listener for the module's events alone; one that has none of them is passed over in silence.
    virtual void RegisterModuleCallbackOnly(IDispatch* cb) = 0;
    /// Full path of the translated file number @p index of the descriptor, "" if there is none.
    virtual Text GetIndexedFile(std::int32_t index) = 0;
};

/// The module for user interfaces. The state questions and commands go to its channels in their order.
class IBase_GuiModule : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{2890C394-BA4B-425D-8F4E-1337086DECB8}");
    static constexpr const char* kName = "_IBase_GuiModule";
    static const InterfaceInfo& Members();

    /// The name given to Load, else the type's default name in the module's language.
    virtual Text name() = 0;
    /// True unless a channel says False, so True without channels. Loads; False if that fails.
    virtual bool consistent(std::optional<eParameterKind> kind = {}) = 0;
    /// Full path of the type's picture, "" if it has none.
    virtual Text image() = 0;
    /// True if a channel is modified.
    virtual bool modified(std::optional<eParameterKind> kind = {}) = 0;
    /// The id given to Load, a String.
    virtual Variant id() = 0;
    /// Takes the present values for unmodified.
    virtual void ClearModified(std::optional<eParameterKind> kind = {}) = 0;
    /// True if a channel has a value that is not known to be the device's.
    virtual bool unknown(std::optional<eParameterKind> kind = {}) = 0;
    virtual void SetUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks the values as unknown
    /// Makes parameters uneditable. Loads.
    virtual void LockDataset(std::optional<eParameterKind> kind = {}) = 0;
    virtual void UnlockDataset(std::optional<eParameterKind> kind = {}) = 0;  ///< ends LockDataset; loads
    /// The channels. Loads; Nothing if that fails.
    virtual Ref<CBase_GuiChannelCollection> channels() = 0;
    /// Always Nothing: a station does not tell its modules of itself.
    virtual Ref<IBase_GuiStation> station() = 0;
    /// The parameter that stands for the device as a whole. Loads; Nothing if the type names none or one that is not
    /// there.
    virtual Ref<IBase_GuiParameter> mainValue() = 0;
    /// Full path of the help file in the module's language, "" if there is none.
    virtual Text deviceHelpFile() = 0;
    virtual Text description() = 0;  ///< of the type
    /// True if the device asks for a login before protected parameters may be written.
    virtual bool authentification() = 0;
    /// Registers @p cb for the parameter events of the whole tree and for the module's events, as far as it has them;
    /// an object that has neither is passed over in silence. Registered twice, it is told twice.
    virtual void RegisterCallback(IDispatch* cb) = 0;
    /// Takes @p cb off both lists, however often it stands there.
    virtual void UnregisterCallback(IDispatch* cb) = 0;
    virtual Ref<IBase_SpecModule> Spec() = 0;                                ///< this object for the engine
    virtual Ref<CBase_Module> Base() = 0;                                    ///< this object for its host
    virtual void ClearUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks the values as known; loads
    /// Sets parameters to their default values. Loads.
    virtual void ResetValue(std::optional<eParameterKind> kind = {}) = 0;
};

/// The module for the driver engine.
class IBase_SpecModule : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{11852F1C-F258-4391-B24A-BA660A785FAB}");
    static constexpr const char* kName = "_IBase_SpecModule";
    static const InterfaceInfo& Members();

    /// The id given to Load, a String.
    virtual Variant id() = 0;
    /// The channels. Loads; Nothing if that fails.
    virtual Ref<CBase_SpecChannelCollection> channels() = 0;
    /// Always Nothing, as in IBase_GuiModule.
    virtual Ref<IBase_SpecStation> station() = 0;
    /// A new module of the same type, id, name, language, environment and import service. If this module has a tree,
    /// the clone has one with the same device values, none of them modified. Nothing if the copying fails.
    virtual Ref<IBase_SpecModule> Clone() = 0;
    /// True if all channels of @p other are here with equal values. What only this module has is not noticed. Loads;
    /// True if that fails, False for Nothing.
    virtual bool Compare(IBase_SpecModule* other, std::optional<eParameterKind> kind = {}) = 0;
    /// Checks every parameter that is loaded anew, to the last one. The answers are told by events and by `consistent`.
    virtual void CheckConsistency() = 0;
    /// Reconfigures parameters by their dependency rules until nothing changes, then checks consistency. Rules that
    /// never settle end after 10,000 passes, or as many as the registry value "MaxPasses" says, with a line in the log.
    virtual void UpdateDependencies() = 0;
    /// Sets the host's import and export service, in place of the one before; Nothing takes it off.
    virtual void RegisterImExport(ISpec_ImExport* cb) = 0;
    /// Calls DoImport of the service, and again after every round that made dependencies change, since these may have
    /// brought in parameters that the round could not fill. False once the service says False.
    /// @throws RuntimeError 91 without a service (Export only says False then), and what the service raises
    virtual bool Import(Variant& importdata, Variant& sourceId) = 0;
    /// Calls DoExport of the service once and answers what it says. False without a service.
    virtual bool Export(Variant& exportdata, Variant& sourceId) = 0;
    /// The type's row of the descriptor, a keyed collection of column name to value.
    virtual Ref<IDispatch> desc() = 0;
    virtual Ref<IBase_GuiModule> Gui() = 0;  ///< this object for user interfaces
    virtual Ref<CBase_Module> Base() = 0;    ///< this object for its host
    /// A copy of the type's record; an empty one before Load.
    virtual tBaseFdtDeviceTypeInfo fdtDeviceTypeInformation() = 0;
    /// The module's store of values from the host. Lives as long as the module, through Unload and Load.
    virtual Ref<CBase_Environment> Environment() = 0;
    /// The descriptor's word for one kind. "" for a mask of several kinds or none.
    virtual Text ParameterKindToString(eParameterKind kind) = 0;
    virtual void Unload() = 0;  ///< CBase_Module::Unload
    /// A new module of the same type, id, name and language, without values, environment and import service.
    virtual Ref<IBase_SpecModule> CloneType() = 0;
    /// Always False: no rule reaches a module from outside.
    virtual bool scriptAccess() = 0;
};

/// A guard of a module for hosts that cannot tell when their last use of the tree ends: releasing the guard unloads
/// the module, even if facets of it are still held. Those answer from an empty module then.
class CBase_Unload : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{A3B470D9-4F7A-49B3-9AA6-296DFA23BF32}");
    static constexpr const char* kName = "_CBase_Unload";
    static const InterfaceInfo& Members();

    /// The module; Nothing for a guard that was created by itself.
    virtual Ref<IDispatch> get_o() = 0;
};

}  // namespace ov
