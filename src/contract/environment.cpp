#include "contract/environment.h"

#include <array>

#include "contract/collections.h"
#include "platform/automation/member.h"

namespace ov {

const InterfaceInfo& CBase_Environment::Members() {
    static constexpr std::array kMembers = {
        let_member<&CBase_Environment::let_Variable>("Variable"),
        get_member<&CBase_Environment::get_Variable>("Variable"),
        member<&CBase_Environment::CopyContentsTo>("CopyContentsTo"),
        let_member<&CBase_Environment::let_VariableNoEvent>("VariableNoEvent"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& CBase_EnvironmentEvents::Members() {
    static constexpr std::array kMembers = {member<&CBase_EnvironmentEvents::Changed>("Changed")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

class LateEnvironmentEvents final : public LateListener<CBase_EnvironmentEvents> {
public:
    using LateListener::LateListener;
    void Changed(const Text& key, const Variant& value) override { Send(0, key, value); }
};

}  // namespace

Ref<CBase_EnvironmentEvents> LateListenerOf<CBase_EnvironmentEvents>::Adapt(IDispatch* target) {
    return Ref<CBase_EnvironmentEvents>::Adopt(new LateEnvironmentEvents(target));
}

}  // namespace ov
