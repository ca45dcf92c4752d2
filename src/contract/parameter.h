/// @file
/// The parameter: one typed datum of the device.
///
/// A parameter holds one number (or text) and shows it in two views: the display view, `value`, for users and limits;
/// and the device view, `realvalue`, for device images and saved data; value = realvalue x gain + offset, both from
/// the descriptor. Beside it stands its eParameterValueExt, for what a device can send and a number cannot say. A
/// value whose state is not normal is never consistent.
///
/// Two ways in: the Gui facet takes what a user types, checks it and runs the dependency rules; the Spec facet takes
/// what the device or the engine says, unchecked. The eight classes (Int, Decimal, Float, Enum, EnumS, Select, String,
/// ENVString) share these facets. After the unload of its tree a parameter has lost its row and its group, and only
/// its release is of use. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The parameter for user interfaces: formatted texts, edit hints, limits.
class IBase_GuiParameter : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{C5225AE7-024B-4DD9-A089-07F5AED81591}");
    static constexpr const char* kName = "_IBase_GuiParameter";
    static const InterfaceInfo& Members();

    /// The display view as text in its display format and the locale; "QNAN", "Overflow" or "Internal error" in the
    /// states NaN, out of range and error.
    virtual Text get_value() = 0;
    /// A user's edit. A text that is no value of the class, or fails the limits or the consistency rule, stores nothing
    /// and raises nothing: read back to see. The character 1 in front forces a value through in spite of the checks.
    /// Tells OnParameterValueChanged last, behind the events of parameters that depend on this one; for an equal value
    /// that was unknown, OnParameterStateChanged.
    virtual void let_value(const Text& value) = 0;
    virtual eEditType editType() = 0;  ///< the control that suits an editor
    /// The texts to choose from, a keyed collection; Nothing for a class without a list.
    virtual Ref<ICollection> editValues() = 0;
    /// The answer of the last check; with @p sValue whether that text would be accepted, without storing it. "" is a
    /// text to be tested, not the same as leaving it out.
    virtual bool consistent(const std::optional<Text>& sValue = {}) = 0;
    virtual eParameterConfigState configState() = 0;  ///< whether the parameter is in force
    virtual bool modified() = 0;                      ///< value or state differ from those at the last ClearModified
    virtual void ClearModified() = 0;                 ///< tells OnParameterStateChanged if it was modified
    virtual bool unknown() = 0;                       ///< the value is not known to be the device's; True at first
    virtual void SetUnknown() = 0;                    ///< tells OnParameterStateChanged if it was known
    virtual void LockDataset() = 0;                   ///< tells OnParameterReconfigured if `editable` changed
    virtual void UnlockDataset() = 0;                 ///< ends LockDataset, however often that was called
    virtual Text name() = 0;                          ///< "" once unloaded, as are `description` and `html`
    virtual bool editable() = 0;                      ///< False while locked; a hint, writes are not refused
    virtual Text description() = 0;                   ///< a sentence for users
    virtual Text unit() = 0;  ///< as shown behind the value; perhaps by a rule, asked at each read
    /// Name of the plugin that edits the parameter, "" for none; @p args takes the plugin's arguments, without a mark
    /// "#:" or "!:" and not evaluated.
    virtual Text EditPlugin(Text* args = nullptr) = 0;
    /// Lowest value in the display view, or for texts fewest characters, as of the last check; before it the type's.
    virtual Variant Min() = 0;
    virtual Variant Max() = 0;      ///< highest value or most characters, likewise
    virtual bool expertOnly() = 0;  ///< not for every user
    /// What asks for a login; none if the module itself asks for no login.
    virtual eParameterAuthentification authentification() = 0;
    virtual bool trendVariable() = 0;  ///< worth recording over time
    virtual Text html() = 0;           ///< name of its help file, relative to the database's folder
    /// The number of the parameter's eParameterValueExt as text, such as "0". Not a message for users.
    virtual Text error() = 0;
    virtual Ref<IBase_GuiGroup> group() = 0;  ///< Nothing once unloaded
    virtual Variant id() = 0;                 ///< the parameter's name for rules
    /// Registers a listener, the first to hear of each event. Registered twice, it is told twice.
    virtual void RegisterCallback(IBase_CallbackParameter* cb) = 0;
    virtual void UnregisterCallback(IBase_CallbackParameter* cb) = 0;  ///< takes off every entry of @p cb
    virtual Ref<IBase_SpecParameter> Spec() = 0;                       ///< this object for the engine
    /// @p val in the form in which `value` would show it; with @p asRealValue True @p val is in the device view.
    virtual Text FormatValue(const Variant& val, std::optional<bool> asRealValue = {}) = 0;
    virtual void ClearUnknown() = 0;  ///< tells OnParameterStateChanged if it was unknown
    /// Back to the default of the descriptor, unchecked, as if never written, and known; `modified` compares as before.
    /// Tells OnParameterValueChanged if that changed the value, else what ClearUnknown tells.
    virtual void ResetValue() = 0;
};

/// The parameter for the driver engine: raw values, comparison, device images.
///
/// A device image is an array of bytes or a text of two hexadecimal digits a byte, as long as the device's memory; it
/// never grows. The four transfers have these arguments in common, 0 for what is left out:
/// - `startByte`: the array's own index of the field's first byte; of a text, bytes are counted from 0;
/// - `bitlength`: width of the field, 0 for the parameter's own; of a text on import the rest of the image, less the
///   byte at its upper bound;
/// - `startBit`: offset in bits from there, bit 0 the least significant; whole bytes in it move `startByte`. Fields
///   of 8 bits and more begin at a whole byte all the same;
/// - `byteOrder`: of numbers; `eMiddleEndian` is none that an array of bytes can have, which stays as it is.
///
/// They answer False, and raise nothing, for a field that lies outside the image or a width that the class cannot
/// transfer; bytes that were written before the failure stay. An import of less than 8 bits takes what lies outside
/// for 0. Imports write as let_realvalue does; a failed one may leave the state `eParamValueExtErrorSettingValue`. An
/// ENVString has no place in an image: its exports do nothing and answer True, its imports ask the host for the value
/// through the module's environment.
class IBase_SpecParameter : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{08F18256-6983-44BB-9BD9-7D07C72CE0A6}");
    static constexpr const char* kName = "_IBase_SpecParameter";
    static const InterfaceInfo& Members();

    /// The display view in the class's own type.
    virtual Variant get_value() = 0;
    /// Stores a value without limits, consistency rule and dependency rules. What does not convert stores 0 and the
    /// state out of range, error or, for text that is no number, NaN. Tells OnParameterValueChanged if value or state
    /// changed, else OnParameterStateChanged if it was unknown; it is known afterwards. Errors of listeners are logged.
    virtual void let_value(const Variant& value) = 0;
    virtual void set_value(const Variant& value) = 0;  ///< the same as let_value
    /// The device view: of the value's own type with gain 1 and offset 0, else Double.
    virtual Variant get_realvalue() = 0;
    virtual void let_realvalue(const Variant& value) = 0;  ///< as let_value, in the device view
    virtual void set_realvalue(const Variant& value) = 0;  ///< the same as let_realvalue
    /// A place for anything of the host's; Empty at first and once unloaded.
    virtual Variant get_tag() = 0;
    virtual void let_tag(const Variant& value) = 0;
    virtual void set_tag(const Variant& value) = 0;
    /// A column of the parameter's row: as it is stored, or, with @p asScript True, with a rule in it evaluated. Empty
    /// for a missing column.
    virtual Variant desc(const Text& fieldname, std::optional<bool> asScript = {}) = 0;
    virtual Variant id() = 0;                      ///< that of the Gui facet
    virtual eParameterKind kind() = 0;             ///< one kind
    virtual bool valid() = 0;                      ///< True if `configState` is valid
    virtual eParameterDirection direction() = 0;   ///< whether the device's copy is read or written
    virtual Ref<IBase_SpecGroup> group() = 0;      ///< Nothing once unloaded
    virtual Ref<IBase_SpecParameter> Clone() = 0;  ///< always Nothing: a module is cloned as a whole
    /// True if @p other has the same value and state.
    virtual bool Compare(IBase_SpecParameter* other) = 0;
    virtual Ref<IBase_GuiParameter> Gui() = 0;  ///< this object for user interfaces
    /// Puts the device view into an array of bytes. Bits outside the field stay.
    virtual bool ExportToByteArrayMapByMemory(ByteArray& target, std::optional<std::int32_t> startByte = {},
                                              std::optional<std::int32_t> bitlength = {},
                                              std::optional<std::int32_t> startBit = {},
                                              std::optional<eByteOrder> byteOrder = {}) = 0;
    /// Takes the device view from an array of bytes.
    virtual bool ImportFromByteArrayMapByMemory(const ByteArray& source, std::optional<std::int32_t> startByte = {},
                                                std::optional<std::int32_t> bitlength = {},
                                                std::optional<std::int32_t> startBit = {},
                                                std::optional<eByteOrder> byteOrder = {}) = 0;
    /// Puts the device view into a hexadecimal text.
    virtual bool ExportToHexStringMapByMemory(Text& target, std::optional<std::int32_t> startByte = {},
                                              std::optional<std::int32_t> bitlength = {},
                                              std::optional<std::int32_t> startBit = {},
                                              std::optional<eByteOrder> byteOrder = {}) = 0;
    /// Takes the device view from a hexadecimal text. Fields of 9 to 15 bits are counted from the most significant bit
    /// of the first byte and have neither sign nor byte order.
    virtual bool ImportFromHexStringMapByMemory(const Text& source, std::optional<std::int32_t> startByte = {},
                                                std::optional<std::int32_t> bitlength = {},
                                                std::optional<std::int32_t> startBit = {},
                                                std::optional<eByteOrder> byteOrder = {}) = 0;
    virtual bool scriptAccess() = 0;  ///< True once a script has read this parameter
};

/// The parameter's value as a text for files, the same in every locale.
class IBase_SpecParameterStorage : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{76F4FEEA-B4C3-4B85-85B1-814B3FA6CB5B}");
    static constexpr const char* kName = "_IBase_SpecParameterStorage";
    static const InterfaceInfo& Members();

    /// The device view, numbers with "." as decimal point; texts unchanged.
    virtual Text get_realvalueForStorage() = 0;
    /// Reads it back as let_realvalue does; of a number as much as can be read, 0 if nothing can. The locale's decimal
    /// character is taken too, where the text has no ".".
    virtual void let_realvalueForStorage(const Text& value) = 0;
};

/// What a text parameter has of its own.
class CBase_ParameterString : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{BD92CD77-26CF-433E-B1BD-DCB6E75B7DA2}");
    static constexpr const char* kName = "_CBase_ParameterString";
    static const InterfaceInfo& Members();

    /// A Boolean: whether @p dcpName may be the name of a PROFINET device. "" may; exactly four parts between dots may
    /// not, as they would read as an address.
    virtual Variant DcpNameCheck(const Text& dcpName) = 0;
};

}  // namespace ov
