#include "contract/records.h"

#include <array>

#include "platform/automation/record_field.h"
#include "platform/store/store.h"

namespace ov {

const InterfaceInfo& tBaseDescriptorDB::Fields() {
    static constexpr std::array kFields = {field<&tBaseDescriptorDB::db>("db"), field<&tBaseDescriptorDB::rs>("rs")};
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}

const InterfaceInfo& tBaseVersionInformation::Fields() {
    static constexpr std::array kFields = {
        field<&tBaseVersionInformation::name>("name"),
        field<&tBaseVersionInformation::vendor>("vendor"),
        field<&tBaseVersionInformation::version>("version"),
        field<&tBaseVersionInformation::date>("date"),
        field<&tBaseVersionInformation::descriptor>("descriptor"),
    };
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}

const InterfaceInfo& tBaseBusCategory::Fields() {
    static constexpr std::array kFields = {
        field<&tBaseBusCategory::busCategory>("busCategory"),
        field<&tBaseBusCategory::busCategoryName>("busCategoryName"),
        field<&tBaseBusCategory::CommunicationTypeEntry>("CommunicationTypeEntry"),
    };
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}

const InterfaceInfo& tBaseFdtDeviceTypeInfo::Fields() {
    static constexpr std::array kFields = {
        field<&tBaseFdtDeviceTypeInfo::manufacturerId>("manufacturerId"),
        field<&tBaseFdtDeviceTypeInfo::deviceTypeId>("deviceTypeId"),
        field<&tBaseFdtDeviceTypeInfo::subDeviceType>("subDeviceType"),
        field<&tBaseFdtDeviceTypeInfo::deviceTypeInformation>("deviceTypeInformation"),
        field<&tBaseFdtDeviceTypeInfo::classificationId>("classificationId"),
        field<&tBaseFdtDeviceTypeInfo::version>("version"),
        field<&tBaseFdtDeviceTypeInfo::supportedLanguages>("supportedLanguages"),
        field<&tBaseFdtDeviceTypeInfo::busCategories>("busCategories"),
        field<&tBaseFdtDeviceTypeInfo::deviceIcon>("deviceIcon"),
    };
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}

}  // namespace ov
