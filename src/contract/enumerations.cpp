#include "contract/enumerations.h"

#include <array>

namespace ov {

namespace {

template <class E>
constexpr EnumerationConstant Constant(std::u16string_view name, E value) {
    return {name, static_cast<std::int32_t>(value)};
}

constexpr std::array kConstants = {
    Constant(u"standard", eEditType::standard),
    Constant(u"enumeration", eEditType::enumeration),
    Constant(u"MultiLine", eEditType::MultiLine),
    Constant(u"Icon", eEditType::Icon),
    Constant(u"eParameterValid", eParameterConfigState::eParameterValid),
    Constant(u"eParameterDisabled", eParameterConfigState::eParameterDisabled),
    Constant(u"eParameterInvalid", eParameterConfigState::eParameterInvalid),
    Constant(u"eParameterAuthNone", eParameterAuthentification::eParameterAuthNone),
    Constant(u"eParameterAuthWriteOnly", eParameterAuthentification::eParameterAuthWriteOnly),
    Constant(u"eParameterAuthReadWrite", eParameterAuthentification::eParameterAuthReadWrite),
    Constant(u"eParamValueExtNormalValue", eParameterValueExt::eParamValueExtNormalValue),
    Constant(u"eParamValueExtNaN", eParameterValueExt::eParamValueExtNaN),
    Constant(u"eParamValueExtOutOfRange", eParameterValueExt::eParamValueExtOutOfRange),
    Constant(u"eParamValueExtNoEnum", eParameterValueExt::eParamValueExtNoEnum),
    Constant(u"eParamValueExtErrorSettingValue", eParameterValueExt::eParamValueExtErrorSettingValue),
    Constant(u"fdt_classificationId_Ndef", eFdtClassificationId::fdt_classificationId_Ndef),
    Constant(u"fdt_flow", eFdtClassificationId::fdt_flow),
    Constant(u"fdt_level", eFdtClassificationId::fdt_level),
    Constant(u"fdt_pressure", eFdtClassificationId::fdt_pressure),
    Constant(u"fdt_temperature", eFdtClassificationId::fdt_temperature),
    Constant(u"fdt_valve", eFdtClassificationId::fdt_valve),
    Constant(u"fdt_positioner", eFdtClassificationId::fdt_positioner),
    Constant(u"fdt_actuator", eFdtClassificationId::fdt_actuator),
    Constant(u"fdt_nc_rc", eFdtClassificationId::fdt_nc_rc),
    Constant(u"fdt_encoder", eFdtClassificationId::fdt_encoder),
    Constant(u"fdt_speedDrive", eFdtClassificationId::fdt_speedDrive),
    Constant(u"fdt_hmi", eFdtClassificationId::fdt_hmi),
    Constant(u"fdt_analogInput", eFdtClassificationId::fdt_analogInput),
    Constant(u"fdt_analogOutput", eFdtClassificationId::fdt_analogOutput),
    Constant(u"fdt_digitalInput", eFdtClassificationId::fdt_digitalInput),
    Constant(u"fdt_digitalOutput", eFdtClassificationId::fdt_digitalOutput),
    Constant(u"fdt_electrochemicalAnalyser", eFdtClassificationId::fdt_electrochemicalAnalyser),
    Constant(u"fdt_dtmSpecific", eFdtClassificationId::fdt_dtmSpecific),
    Constant(u"eParamKindDtmParam", eParameterKind::eParamKindDtmParam),
    Constant(u"eParamKindDeviceParam", eParameterKind::eParamKindDeviceParam),
    Constant(u"eParamKindCalibration", eParameterKind::eParamKindCalibration),
    Constant(u"eParamKindProcessData", eParameterKind::eParamKindProcessData),
    Constant(u"eParamKindDiagnosis", eParameterKind::eParamKindDiagnosis),
    Constant(u"eParamKindSpecific1", eParameterKind::eParamKindSpecific1),
    Constant(u"eParamKindSpecific2", eParameterKind::eParamKindSpecific2),
    Constant(u"eParamKindSpecific3", eParameterKind::eParamKindSpecific3),
    Constant(u"eParamKindSpecific4", eParameterKind::eParamKindSpecific4),
    Constant(u"eParamKindInternal", eParameterKind::eParamKindInternal),
    Constant(u"eParamKindDeviceIdent", eParameterKind::eParamKindDeviceIdent),
    Constant(u"eParameterDirectionNone", eParameterDirection::eParameterDirectionNone),
    Constant(u"eParameterDirectionRead", eParameterDirection::eParameterDirectionRead),
    Constant(u"eParameterDirectionReadWrite", eParameterDirection::eParameterDirectionReadWrite),
    Constant(u"eParameterDirectionWrite", eParameterDirection::eParameterDirectionWrite),
    Constant(u"eLittleEndian", eByteOrder::eLittleEndian),
    Constant(u"eBigEndian", eByteOrder::eBigEndian),
    Constant(u"eMiddleEndian", eByteOrder::eMiddleEndian),
    Constant(u"eParamKindAllKinds", eParamKindAllKinds),
};

}  // namespace

std::span<const EnumerationConstant> EnumerationConstants() {
    return kConstants;
}

}  // namespace ov
