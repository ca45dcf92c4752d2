#include "contract/channel.h"

#include <array>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/collections.h"
#include "contract/group.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& CBase_Channel::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_Channel::ExecuteScript>("ExecuteScript"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_GuiChannel::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_GuiChannel::name>("name"),
        member<&IBase_GuiChannel::consistent>("consistent"),
        member<&IBase_GuiChannel::modified>("modified"),
        member<&IBase_GuiChannel::ClearModified>("ClearModified"),
        member<&IBase_GuiChannel::unknown>("unknown"),
        member<&IBase_GuiChannel::SetUnknown>("SetUnknown"),
        member<&IBase_GuiChannel::LockDataset>("LockDataset"),
        member<&IBase_GuiChannel::UnlockDataset>("UnlockDataset"),
        member<&IBase_GuiChannel::id>("id"),
        member<&IBase_GuiChannel::mainValue>("mainValue"),
        member<&IBase_GuiChannel::module>("module"),
        member<&IBase_GuiChannel::blocks>("blocks"),
        member<&IBase_GuiChannel::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiChannel::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiChannel::Spec>("Spec"),
        member<&IBase_GuiChannel::EditPlugin>("EditPlugin"),
        member<&IBase_GuiChannel::ClearUnknown>("ClearUnknown"),
        member<&IBase_GuiChannel::ResetValue>("ResetValue"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecChannel::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_SpecChannel::id>("id"),
        member<&IBase_SpecChannel::module>("module"),
        member<&IBase_SpecChannel::groups>("groups"),
        member<&IBase_SpecChannel::desc>("desc"),
        member<&IBase_SpecChannel::Gui>("Gui"),
        member<&IBase_SpecChannel::Clone>("Clone"),
        member<&IBase_SpecChannel::Compare>("Compare"),
        member<&IBase_SpecChannel::EvaluateScript>("EvaluateScript"),
        member<&IBase_SpecChannel::scriptAccess>("scriptAccess"),
        member<&IBase_SpecChannel::CheckConsistency>("CheckConsistency"),
        member<&IBase_SpecChannel::UpdateDependencies>("UpdateDependencies"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_ScriptingChannel::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_ScriptingChannel::groups>("groups"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
