#include "contract/explain.h"

#include <array>

#include "contract/collections.h"
#include "contract/parameter.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IExplain_Read::Members() {
    static constexpr std::array kMembers = {
        member<&IExplain_Read::path>("path"),           member<&IExplain_Read::name>("name"),
        member<&IExplain_Read::value>("value"),         member<&IExplain_Read::shown>("shown"),
        member<&IExplain_Read::parameter>("parameter"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IExplain_Rule::Members() {
    static constexpr std::array kMembers = {
        member<&IExplain_Rule::path>("path"),
        member<&IExplain_Rule::column>("column"),
        member<&IExplain_Rule::row>("row"),
        member<&IExplain_Rule::text>("text"),
        member<&IExplain_Rule::isInForce>("isInForce"),
        member<&IExplain_Rule::hasRun>("hasRun"),
        member<&IExplain_Rule::result>("result"),
        member<&IExplain_Rule::volatility>("volatility"),
        member<&IExplain_Rule::reads>("reads"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IExplain_Parameter::Members() {
    static constexpr std::array kMembers = {
        member<&IExplain_Parameter::path>("path"),         member<&IExplain_Parameter::writtenBy>("writtenBy"),
        member<&IExplain_Parameter::rules>("rules"),       member<&IExplain_Parameter::readers>("readers"),
        member<&IExplain_Parameter::refusal>("refusal"),   member<&IExplain_Parameter::refusedBy>("refusedBy"),
        member<&IExplain_Parameter::remedies>("remedies"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
