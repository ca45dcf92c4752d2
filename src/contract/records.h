/// @file
/// The records of the object model, passed by value. By name a record is an object with its fields as members, a copy;
/// the fields can be read and not written.
#pragma once

#include <vector>

#include "contract/enumerations.h"
#include "platform/automation/interface_info.h"
#include "platform/automation/text.h"
#include "platform/automation/unknown.h"

namespace ov {

class Database;
class Recordset;

/// An open database and a recordset on the row that an object is to take; handed from parent to child while the tree
/// is configured.
struct tBaseDescriptorDB {
    static constexpr const char* kRecordName = "tBaseDescriptorDB";
    static const InterfaceInfo& Fields();

    Ref<Database> db;   ///< the descriptor database
    Ref<Recordset> rs;  ///< its current row is the one that counts; the receiver copies it at once
};

/// The version of a device type description.
struct tBaseVersionInformation {
    static constexpr const char* kRecordName = "tBaseVersionInformation";
    static const InterfaceInfo& Fields();

    Text name;        ///< of the device type; made from its numbers where the descriptor has none
    Text vendor;      ///< who made the description
    Text version;     ///< of the description, in its maker's form
    Text date;        ///< of the version, as written in the descriptor
    Text descriptor;  ///< free text on the version
};

/// A bus protocol of a device type.
struct tBaseBusCategory {
    static constexpr const char* kRecordName = "tBaseBusCategory";
    static const InterfaceInfo& Fields();

    Text busCategory;             ///< the identifier, with braces as stored
    Text busCategoryName;         ///< for people
    Text CommunicationTypeEntry;  ///< "required", or how else the type uses the bus
};

/// What a frame application wants to know of a device type.
struct tBaseFdtDeviceTypeInfo {
    static constexpr const char* kRecordName = "tBaseFdtDeviceTypeInfo";
    static const InterfaceInfo& Fields();

    std::int32_t manufacturerId = 0;  ///< 0 if the descriptor names none
    std::int32_t deviceTypeId = 0;    ///< as the bus reports it; 0 if the descriptor names none
    Text subDeviceType;               ///< tells types with one deviceTypeId apart
    Text deviceTypeInformation;       ///< a document for the frame application, read from a file where one is named
    eFdtClassificationId classificationId = eFdtClassificationId::fdt_classificationId_Ndef;  ///< what it measures
    tBaseVersionInformation version;                                                          ///< of the description
    std::vector<Text> supportedLanguages;         ///< "&H" and hexadecimal digits; by name an array from 1 on
    std::vector<tBaseBusCategory> busCategories;  ///< by name an array from 1 on, never allocated if there is none
    Text deviceIcon;                              ///< as written in the descriptor
};

}  // namespace ov
