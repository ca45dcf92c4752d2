#include "platform/store/store.h"

#include <array>

#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& Field::Members() {
    static constexpr std::array kMembers = {
        get_member<&Field::Value>("Value").AsDefault(),
        get_member<&Field::Name>("Name"),
        get_member<&Field::Required>("Required"),
        get_member<&Field::Properties>("Properties"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& Recordset::Members() {
    static constexpr std::array kMembers = {
        get_member<&Recordset::get_Index>("Index"),
        let_member<&Recordset::let_Index>("Index"),
        member<&Recordset::Seek>("Seek"),
        get_member<&Recordset::NoMatch>("NoMatch"),
        member<&Recordset::MoveFirst>("MoveFirst"),
        member<&Recordset::MoveNext>("MoveNext"),
        get_member<&Recordset::Eof>("EOF"),
        get_member<&Recordset::RecordCount>("RecordCount"),
        member<&Recordset::Close>("Close"),
        member<&Recordset::Clone>("Clone"),
        get_member<&Recordset::Fields>("Fields").AsDefault(),
        get_member<&Recordset::FieldCount>("FieldCount"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& Database::Members() {
    static constexpr std::array kMembers = {
        get_member<&Database::Name>("Name"),
        get_member<&Database::Version>("Version"),
        member<&Database::OpenRecordset>("OpenRecordset"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& Workspace::Members() {
    static constexpr std::array kMembers = {
        get_member<&Workspace::Name>("Name"),
        member<&Workspace::OpenDatabase>("OpenDatabase"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
