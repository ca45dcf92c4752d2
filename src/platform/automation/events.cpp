#include "platform/automation/events.h"

#include <array>

#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& IEventSource::Members() {
    static constexpr std::array kMembers = {member<&IEventSource::Advise>("Advise"),
                                            member<&IEventSource::Unadvise>("Unadvise")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
