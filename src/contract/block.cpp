#include "contract/block.h"

#include <array>

#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/collections.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IBase_GuiBlock::Members() {
    static constexpr std::array kMembers = {
        member<&IBase_GuiBlock::name>("name"),
        member<&IBase_GuiBlock::consistent>("consistent"),
        member<&IBase_GuiBlock::modified>("modified"),
        member<&IBase_GuiBlock::ClearModified>("ClearModified"),
        member<&IBase_GuiBlock::unknown>("unknown"),
        member<&IBase_GuiBlock::SetUnknown>("SetUnknown"),
        member<&IBase_GuiBlock::LockDataset>("LockDataset"),
        member<&IBase_GuiBlock::UnlockDataset>("UnlockDataset"),
        member<&IBase_GuiBlock::id>("id"),
        member<&IBase_GuiBlock::channel>("channel"),
        member<&IBase_GuiBlock::groups>("groups"),
        member<&IBase_GuiBlock::RegisterCallback>("RegisterCallback"),
        member<&IBase_GuiBlock::UnregisterCallback>("UnregisterCallback"),
        member<&IBase_GuiBlock::ClearUnknown>("ClearUnknown"),
        member<&IBase_GuiBlock::ResetValue>("ResetValue"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
