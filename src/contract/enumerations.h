/// @file
/// The enumerations of the object model. Values are part of the contract: they are stored and passed as numbers.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace ov {

/// The control that suits an editor of a parameter.
enum class eEditType : std::int32_t {
    standard = 1,     ///< one line of text
    enumeration = 2,  ///< a choice from `editValues`
    MultiLine = 3,    ///< several lines of text
    Icon = 4,         ///< a picture; the value is the path of its file
};

/// Whether a row of the descriptor is in force for a parameter.
enum class eParameterConfigState : std::int32_t {
    eParameterValid = 0,     ///< in force
    eParameterDisabled = 1,  ///< not in force for now; to be shown greyed
    eParameterInvalid = 2,   ///< not in force for now; not to be shown
};

/// What of a parameter asks for a login.
enum class eParameterAuthentification : std::int32_t {
    eParameterAuthNone = 0,
    eParameterAuthWriteOnly = 1,  ///< writing
    eParameterAuthReadWrite = 2,  ///< reading and writing
};

/// The state of a value beside its number. Above 0 the value is never consistent.
enum class eParameterValueExt : std::int32_t {
    eParamValueExtNormalValue = 0,        ///< the number counts
    eParamValueExtNaN = 1,                ///< not a number; shown as "QNAN"
    eParamValueExtOutOfRange = 2,         ///< a write that overflowed the value's type
    eParamValueExtNoEnum = 3,             ///< a number that the list does not have
    eParamValueExtErrorSettingValue = 4,  ///< a write or import that failed otherwise
};

/// What a device type measures or moves, by the classification of the FDT standard.
enum class eFdtClassificationId : std::int32_t {
    fdt_classificationId_Ndef = 0,  ///< not defined
    fdt_flow = 1,
    fdt_level = 2,
    fdt_pressure = 3,
    fdt_temperature = 4,
    fdt_valve = 5,
    fdt_positioner = 6,
    fdt_actuator = 7,
    fdt_nc_rc = 8,  ///< numeric or robot control
    fdt_encoder = 9,
    fdt_speedDrive = 10,
    fdt_hmi = 11,  ///< human machine interface
    fdt_analogInput = 12,
    fdt_analogOutput = 13,
    fdt_digitalInput = 14,
    fdt_digitalOutput = 15,
    fdt_electrochemicalAnalyser = 16,
    fdt_dtmSpecific = 17,  ///< also what a descriptor that says nothing gives
};

/// What a parameter is for. Each value is one bit, so that an argument of this type can name several kinds; a parameter
/// has one.
enum class eParameterKind : std::int32_t {
    eParamKindDtmParam = 1,     ///< of the driver itself
    eParamKindDeviceParam = 2,  ///< stored in the device
    eParamKindCalibration = 4,
    eParamKindProcessData = 8,
    eParamKindDiagnosis = 16,
    eParamKindSpecific1 = 32,  ///< for the use of the device family, as are the three below
    eParamKindSpecific2 = 64,
    eParamKindSpecific3 = 128,
    eParamKindSpecific4 = 256,
    eParamKindInternal = 512,
    eParamKindDeviceIdent = 1024,  ///< identifies the device
};

/// How the device's copy of a parameter is accessed.
enum class eParameterDirection : std::int32_t {
    eParameterDirectionNone = 1,
    eParameterDirectionRead = 2,
    eParameterDirectionReadWrite = 3,  ///< what a descriptor that says nothing gives
    eParameterDirectionWrite = 4,
};

/// The order of a number's bytes in a device image.
enum class eByteOrder : std::int32_t {
    eLittleEndian = 0,  ///< least significant byte first; what is meant by leaving it out
    eBigEndian = 1,     ///< most significant byte first
    eMiddleEndian = 2,  ///< known by name only
};

/// All kinds at once; what an optional kind that is left out means.
inline constexpr eParameterKind eParamKindAllKinds = static_cast<eParameterKind>(2047);

/// The set of kinds that are in @p a or in @p b.
constexpr eParameterKind operator|(eParameterKind a, eParameterKind b) noexcept {
    return static_cast<eParameterKind>(static_cast<std::int32_t>(a) | static_cast<std::int32_t>(b));
}
/// True if a parameter of kind @p kind is in the set @p mask.
constexpr bool MatchesKind(eParameterKind kind, eParameterKind mask) noexcept {
    return (static_cast<std::int32_t>(kind) & static_cast<std::int32_t>(mask)) > 0;
}

/// One named value of an enumeration.
struct EnumerationConstant {
    std::u16string_view name;
    std::int32_t value;
};
/// Every named value of every enumeration, for hosts that know them by name.
std::span<const EnumerationConstant> EnumerationConstants();

}  // namespace ov
