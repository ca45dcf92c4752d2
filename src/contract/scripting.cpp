#include "contract/scripting.h"

#include <array>

#include "contract/collections.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& CBase_ScriptingParameters::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_ScriptingParameters::value>("value").AsDefault(),
        member<&CBase_ScriptingParameters::val>("val"),
        member<&CBase_ScriptingParameters::sVal>("sVal"),
        member<&CBase_ScriptingParameters::sel>("sel"),
        member<&CBase_ScriptingParameters::hVal>("hVal"),
        member<&CBase_ScriptingParameters::script>("script"),
        member<&CBase_ScriptingParameters::SetValue>("SetValue"),
        member<&CBase_ScriptingParameters::Gui>("Gui"),
        member<&CBase_ScriptingParameters::isIn>("isIn"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_ScriptingGroups::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_ScriptingGroups::parameters>("parameters").AsDefault(),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_ScriptingChannels::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_ScriptingChannels::groups>("groups").AsDefault(),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_ScriptingTexts::Members() {
    static constexpr std::array kMembers = {
        member<&CBase_ScriptingTexts::text>("text").AsDefault(),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
