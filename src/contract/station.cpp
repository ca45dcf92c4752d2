#include "contract/station.h"

#include <array>

#include "contract/callbacks.h"
#include "contract/collections.h"
#include "contract/module.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& CBase_Station::Members() {
    static constexpr std::array kMembers = {
        get_member<&CBase_Station::get_id>("id"),
        let_member<&CBase_Station::let_id>("id"),
        set_member<&CBase_Station::set_id>("id"),
        get_member<&CBase_Station::get_name>("name"),
        let_member<&CBase_Station::let_name>("name"),
        member<&CBase_Station::AddModule>("AddModule"),
        member<&CBase_Station::RemoveModule>("RemoveModule"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_GuiStation::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_GuiStation::name>("name"),
        member<&IBase_GuiStation::consistent>("consistent"),
        member<&IBase_GuiStation::modified>("modified"),
        member<&IBase_GuiStation::ClearModified>("ClearModified"),
        member<&IBase_GuiStation::unknown>("unknown"),
        member<&IBase_GuiStation::SetUnknown>("SetUnknown"),
        member<&IBase_GuiStation::modules>("modules"),
        member<&IBase_GuiStation::id>("id"),
        member<&IBase_GuiStation::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiStation::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiStation::ClearUnknown>("ClearUnknown"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecStation::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_SpecStation::id>("id"),
        member<&IBase_SpecStation::modules>("modules"),
        member<&IBase_SpecStation::Clone>("Clone"),
        member<&IBase_SpecStation::Compare>("Compare"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
