#include "contract/collections.h"

#include <array>

#include "contract/block.h"
#include "contract/channel.h"
#include "contract/group.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "platform/automation/member.h"

namespace ov {

template <class Element>
const InterfaceInfo& TypedCollection<Element>::Members() {
    static constexpr std::array kMembers = {
        member<&TypedCollection::Add>("Add"),
        member<&TypedCollection::Count>("Count"),
        member<&TypedCollection::Remove>("Remove"),
        get_member<&TypedCollection::get_Item>("Item").AsDefault(),
        set_member<&TypedCollection::set_Item>("Item").AsDefault(),
        member<&TypedCollection::NewEnum>("NewEnum"),
        member<&TypedCollection::Inside>("Inside"),
        member<&TypedCollection::Clear>("Clear"),
        get_member<&TypedCollection::get_first>("first"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

template class TypedCollection<IBase_GuiModule>;
template class TypedCollection<IBase_GuiChannel>;
template class TypedCollection<IBase_GuiBlock>;
template class TypedCollection<IBase_GuiGroup>;
template class TypedCollection<IBase_GuiParameter>;
template class TypedCollection<IBase_SpecModule>;
template class TypedCollection<IBase_SpecChannel>;
template class TypedCollection<IBase_SpecGroup>;
template class TypedCollection<IBase_SpecParameter>;

}  // namespace ov
