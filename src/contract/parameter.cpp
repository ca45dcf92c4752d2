#include "contract/parameter.h"

#include <array>

#include "contract/callbacks.h"
#include "contract/collections.h"
#include "contract/group.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IBase_GuiParameter::Members() {
    static constexpr std::array kMembers = {
        get_member<&IBase_GuiParameter::get_value>("value"),
        let_member<&IBase_GuiParameter::let_value>("value"),
        member<&IBase_GuiParameter::editType>("editType"),
        member<&IBase_GuiParameter::editValues>("editValues"),
        member<&IBase_GuiParameter::consistent>("consistent"),
        member<&IBase_GuiParameter::configState>("configState"),
        member<&IBase_GuiParameter::modified>("modified"),
        member<&IBase_GuiParameter::ClearModified>("ClearModified"),
        member<&IBase_GuiParameter::unknown>("unknown"),
        member<&IBase_GuiParameter::SetUnknown>("SetUnknown"),
        member<&IBase_GuiParameter::LockDataset>("LockDataset"),
        member<&IBase_GuiParameter::UnlockDataset>("UnlockDataset"),
        member<&IBase_GuiParameter::name>("name"),
        member<&IBase_GuiParameter::editable>("editable"),
        member<&IBase_GuiParameter::description>("description"),
        member<&IBase_GuiParameter::unit>("unit"),
        member<&IBase_GuiParameter::EditPlugin>("EditPlugin"),
        member<&IBase_GuiParameter::Min>("Min"),
        member<&IBase_GuiParameter::Max>("Max"),
        member<&IBase_GuiParameter::expertOnly>("expertOnly"),
        member<&IBase_GuiParameter::authentification>("authentification"),
        member<&IBase_GuiParameter::trendVariable>("trendVariable"),
        member<&IBase_GuiParameter::html>("html"),
        member<&IBase_GuiParameter::error>("error"),
        member<&IBase_GuiParameter::group>("group"),
        member<&IBase_GuiParameter::id>("id"),
        member<&IBase_GuiParameter::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiParameter::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiParameter::Spec>("Spec"),
        member<&IBase_GuiParameter::FormatValue>("FormatValue"),
        member<&IBase_GuiParameter::ClearUnknown>("ClearUnknown"),
        member<&IBase_GuiParameter::ResetValue>("ResetValue"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecParameter::Members() {
    static constexpr std::array kMembers = {
        get_member<&IBase_SpecParameter::get_value>("value"),
        let_member<&IBase_SpecParameter::let_value>("value"),
        set_member<&IBase_SpecParameter::set_value>("value"),
        get_member<&IBase_SpecParameter::get_realvalue>("realvalue"),
        let_member<&IBase_SpecParameter::let_realvalue>("realvalue"),
        set_member<&IBase_SpecParameter::set_realvalue>("realvalue"),
        get_member<&IBase_SpecParameter::get_tag>("tag"),
        let_member<&IBase_SpecParameter::let_tag>("tag"),
        set_member<&IBase_SpecParameter::set_tag>("tag"),
        member<&IBase_SpecParameter::desc>("desc"),
        member<&IBase_SpecParameter::id>("id"),
        member<&IBase_SpecParameter::kind>("kind"),
        member<&IBase_SpecParameter::valid>("valid"),
        member<&IBase_SpecParameter::direction>("direction"),
        member<&IBase_SpecParameter::group>("group"),
        member<&IBase_SpecParameter::Clone>("Clone"),
        member<&IBase_SpecParameter::Compare>("Compare"),
        member<&IBase_SpecParameter::Gui>("Gui"),
        member<&IBase_SpecParameter::ExportToByteArrayMapByMemory>("ExportToByteArrayMapByMemory"),
        member<&IBase_SpecParameter::ImportFromByteArrayMapByMemory>("ImportFromByteArrayMapByMemory"),
        member<&IBase_SpecParameter::ExportToHexStringMapByMemory>("ExportToHexStringMapByMemory"),
        member<&IBase_SpecParameter::ImportFromHexStringMapByMemory>("ImportFromHexStringMapByMemory"),
        member<&IBase_SpecParameter::scriptAccess>("scriptAccess"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecParameterStorage::Members() {
    static constexpr std::array kMembers = {
        get_member<&IBase_SpecParameterStorage::get_realvalueForStorage>("realvalueForStorage"),
        let_member<&IBase_SpecParameterStorage::let_realvalueForStorage>("realvalueForStorage"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_ParameterString::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_ParameterString::DcpNameCheck>("DcpNameCheck"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
