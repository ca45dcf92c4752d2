#include "module/interface_names.h"

#include <algorithm>
#include <array>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/collections.h"
#include "contract/default_interfaces.h"
#include "contract/environment.h"
#include "contract/explain.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "contract/station.h"
#include "platform/automation/collection.h"
#include "platform/automation/events.h"

namespace ov {

namespace {

struct Entry {
    std::string_view name;
    Guid iid;
};

template <class... Interfaces>
constexpr auto EntriesOf() {
    return std::array{Entry{Interfaces::kName, Interfaces::kIid}...};
}

constexpr auto kInterfaces = EntriesOf<
    CBase_Module, IBase_GuiModule, IBase_SpecModule, CBase_Unload, CBase_Station, IBase_GuiStation, IBase_SpecStation,
    CBase_Channel, IBase_GuiChannel, IBase_SpecChannel, IBase_ScriptingChannel, CBase_Block, IBase_GuiBlock,
    CBase_Group, IBase_GuiGroup, IBase_SpecGroup, IBase_ScriptingGroup, IBase_GuiParameter, IBase_SpecParameter,
    IBase_SpecParameterStorage, IBase_Internal, CBase_ParamDependency, IBase_CallbackParameter, IBase_CallbackModule,
    IBase_CallbackStation, ISpec_ImExport, CBase_Environment, CBase_EnvironmentEvents, CBase_ScriptingParameters,
    CBase_ScriptingGroups, CBase_ScriptingChannels, CBase_ScriptingTexts, CBase_ChannelScripting, CBase_GroupScripting,
    CBase_ParameterInt, CBase_ParameterFloat, CBase_ParameterDecimal, CBase_ParameterEnum, CBase_ParameterSelect,
    CBase_ParameterEnumS, CBase_ParameterString, CBase_ParameterENVString, CBase_GuiModuleCollection,
    CBase_GuiChannelCollection, CBase_GuiBlockCollection, CBase_GuiGroupCollection, CBase_GuiParameterCollection,
    CBase_SpecModuleCollection, CBase_SpecChannelCollection, CBase_SpecGroupCollection, CBase_SpecParameterCollection,
    IExplain_Parameter, IExplain_Rule, IExplain_Read, ICollection, IEventSource>();

bool SameName(std::u16string_view given, std::string_view name) {
    return EqualNoCase(given, Text::FromAscii(name)) || EqualNoCase(given, Text::FromAscii(name.substr(1)));
}

}  // namespace

const Guid* FindInterface(std::u16string_view name) {
    const auto at =
        std::ranges::find_if(kInterfaces, [name](const Entry& entry) { return SameName(name, entry.name); });
    return at == kInterfaces.end() ? nullptr : &at->iid;
}

}  // namespace ov
