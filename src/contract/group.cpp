#include "contract/group.h"

#include <array>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/collections.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& CBase_Group::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_Group::ExecuteScript>("ExecuteScript"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_GuiGroup::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_GuiGroup::name>("name"),
        member<&IBase_GuiGroup::consistent>("consistent"),
        member<&IBase_GuiGroup::modified>("modified"),
        member<&IBase_GuiGroup::ClearModified>("ClearModified"),
        member<&IBase_GuiGroup::unknown>("unknown"),
        member<&IBase_GuiGroup::SetUnknown>("SetUnknown"),
        member<&IBase_GuiGroup::LockDataset>("LockDataset"),
        member<&IBase_GuiGroup::UnlockDataset>("UnlockDataset"),
        member<&IBase_GuiGroup::id>("id"),
        member<&IBase_GuiGroup::expertOnly>("expertOnly"),
        member<&IBase_GuiGroup::blocks>("blocks"),
        member<&IBase_GuiGroup::channel>("channel"),
        member<&IBase_GuiGroup::parameters>("parameters"),
        member<&IBase_GuiGroup::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiGroup::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiGroup::Spec>("Spec"),
        member<&IBase_GuiGroup::EditPlugin>("EditPlugin"),
        member<&IBase_GuiGroup::ClearUnknown>("ClearUnknown"),
        member<&IBase_GuiGroup::ResetValue>("ResetValue"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_SpecGroup::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_SpecGroup::id>("id"),
        member<&IBase_SpecGroup::channel>("channel"),
        member<&IBase_SpecGroup::parameters>("parameters"),
        member<&IBase_SpecGroup::desc>("desc"),
        member<&IBase_SpecGroup::Gui>("Gui"),
        member<&IBase_SpecGroup::Clone>("Clone"),
        member<&IBase_SpecGroup::Compare>("Compare"),
        member<&IBase_SpecGroup::EvaluateScript>("EvaluateScript"),
        member<&IBase_SpecGroup::scriptAccess>("scriptAccess"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IBase_ScriptingGroup::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_ScriptingGroup::parameters>("parameters"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
