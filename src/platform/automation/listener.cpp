#include "platform/automation/listener.h"

#include <algorithm>

namespace ov::listener_detail {

bool HasAnyMember(IDispatch* object, const InterfaceInfo& members) {
    return std::ranges::any_of(members.Members(), [object](const Member& member) {
        return object->GetIDsOfNames(Text::FromAscii(member.name)) != kDispIdUnknown;
    });
}

}  // namespace ov::listener_detail
