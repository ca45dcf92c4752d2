#include "ovmodel/host/interface_names.h"

#include <algorithm>
#include <array>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/collections.h"
#include "contract/default_interfaces.h"
#include "contract/environment.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "contract/station.h"
#include "platform/automation/collection.h"

namespace ovmodel {

namespace {

struct Entry {
    std::string_view name;
    ov::Guid iid;
};

template <class... Interfaces>
constexpr auto EntriesOf() {
    return std::array{Entry{Interfaces::kName, Interfaces::kIid}...};
}

constexpr auto kInterfaces =
    EntriesOf<ov::CBase_Module, ov::IBase_GuiModule, ov::IBase_SpecModule, ov::CBase_Unload, ov::CBase_Station,
              ov::IBase_GuiStation, ov::IBase_SpecStation, ov::CBase_Channel, ov::IBase_GuiChannel,
              ov::IBase_SpecChannel, ov::IBase_ScriptingChannel, ov::CBase_Block, ov::IBase_GuiBlock, ov::CBase_Group,
              ov::IBase_GuiGroup, ov::IBase_SpecGroup, ov::IBase_ScriptingGroup, ov::IBase_GuiParameter,
              ov::IBase_SpecParameter, ov::IBase_SpecParameterStorage, ov::IBase_Internal, ov::CBase_ParamDependency,
              ov::IBase_CallbackParameter, ov::IBase_CallbackModule, ov::IBase_CallbackStation, ov::ISpec_ImExport,
              ov::CBase_Environment, ov::CBase_EnvironmentEvents, ov::CBase_ScriptingParameters,
              ov::CBase_ScriptingGroups, ov::CBase_ScriptingChannels, ov::CBase_ScriptingTexts,
              ov::CBase_ChannelScripting, ov::CBase_GroupScripting, ov::CBase_ParameterInt, ov::CBase_ParameterFloat,
              ov::CBase_ParameterDecimal, ov::CBase_ParameterEnum, ov::CBase_ParameterSelect, ov::CBase_ParameterEnumS,
              ov::CBase_ParameterString, ov::CBase_ParameterENVString, ov::CBase_GuiModuleCollection,
              ov::CBase_GuiChannelCollection, ov::CBase_GuiBlockCollection, ov::CBase_GuiGroupCollection,
              ov::CBase_GuiParameterCollection, ov::CBase_SpecModuleCollection, ov::CBase_SpecChannelCollection,
              ov::CBase_SpecGroupCollection, ov::CBase_SpecParameterCollection, ov::ICollection>();

bool SameName(std::u16string_view given, std::string_view name) {
    return ov::EqualNoCase(given, ov::Text::FromAscii(name)) ||
           ov::EqualNoCase(given, ov::Text::FromAscii(name.substr(1)));
}

}  // namespace

const ov::Guid* FindInterface(std::u16string_view name) {
    const auto at =
        std::ranges::find_if(kInterfaces, [name](const Entry& entry) { return SameName(name, entry.name); });
    return at == kInterfaces.end() ? nullptr : &at->iid;
}

}  // namespace ovmodel
