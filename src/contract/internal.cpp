#include "contract/internal.h"

#include <array>

#include "contract/collections.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IBase_Internal::Members() {
    static constexpr std::array kMembers = {
        get_member<&IBase_Internal::get_configState>("configState"),
        let_member<&IBase_Internal::let_configState>("configState"),
        get_member<&IBase_Internal::get_scriptAccess>("scriptAccess"),
        let_member<&IBase_Internal::let_scriptAccess>("scriptAccess"),
        member<&IBase_Internal::CheckConsistency>("CheckConsistency"),
        member<&IBase_Internal::Config>("Config"),
        member<&IBase_Internal::id>("id"),
        member<&IBase_Internal::DBindex>("DBindex"),
        member<&IBase_Internal::dependencies>("dependencies"),
        member<&IBase_Internal::Unload>("Unload"),
        member<&IBase_Internal::CheckNeedForReConfig>("CheckNeedForReConfig"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_ParamDependency::Members() {
    static constexpr std::array kMembers = {
        get_member<&CBase_ParamDependency::get_idx>("idx"),
        get_member<&CBase_ParamDependency::get_dep>("dep"),
        get_member<&CBase_ParamDependency::get_removeOnDep>("removeOnDep"),
        get_member<&CBase_ParamDependency::get_desc>("desc"),
        member<&CBase_ParamDependency::MoveFirst>("MoveFirst"),
        member<&CBase_ParamDependency::MoveNext>("MoveNext"),
        member<&CBase_ParamDependency::Add>("Add"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
