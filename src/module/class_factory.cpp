#include "module/class_factory.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "module/environment.h"
#include "module/module.h"
#include "module/station.h"
#include "module/unload_pointer.h"
#include "parameters/param_dependency.h"
#include "parameters/parameter_decimal.h"
#include "parameters/parameter_enum.h"
#include "parameters/parameter_enum_s.h"
#include "parameters/parameter_env_string.h"
#include "parameters/parameter_float.h"
#include "parameters/parameter_int.h"
#include "parameters/parameter_select.h"
#include "parameters/parameter_string.h"
#include "tree/block.h"
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/typed_collection.h"

namespace ov {

namespace {

struct Maker {
    std::string_view name;
    IDispatch* (*make)();
};

template <class T>
constexpr Maker MakerOf() {
    return {T::kClassName, []() -> IDispatch* { return MakeObject<T>().Detach()->Dispatch(); }};
}

constexpr std::array kMakers = {
    MakerOf<Module>(),
    MakerOf<Station>(),
    MakerOf<Environment>(),
    MakerOf<UnloadPointer>(),
    MakerOf<Channel>(),
    MakerOf<Group>(),
    MakerOf<Block>(),
    MakerOf<ParameterInt>(),
    MakerOf<ParameterEnum>(),
    MakerOf<ParameterSelect>(),
    MakerOf<ParameterEnumS>(),
    MakerOf<ParameterString>(),
    MakerOf<ParameterENVString>(),
    MakerOf<ParameterFloat>(),
    MakerOf<ParameterDecimal>(),
    MakerOf<ParamDependency>(),
    MakerOf<ChannelScripting>(),
    MakerOf<GroupScripting>(),
    MakerOf<ScriptingParameters>(),
    MakerOf<ScriptingGroups>(),
    MakerOf<ScriptingChannels>(),
    MakerOf<ScriptingTexts>(),
    MakerOf<TypedList<IBase_GuiModule>>(),
    MakerOf<TypedList<IBase_GuiChannel>>(),
    MakerOf<TypedList<IBase_GuiBlock>>(),
    MakerOf<TypedList<IBase_GuiGroup>>(),
    MakerOf<TypedList<IBase_GuiParameter>>(),
    MakerOf<TypedList<IBase_SpecModule>>(),
    MakerOf<TypedList<IBase_SpecChannel>>(),
    MakerOf<TypedList<IBase_SpecGroup>>(),
    MakerOf<TypedList<IBase_SpecParameter>>(),
};

}  // namespace

Ref<IDispatch> MakeObjectOfClass(const ClassDescription& description) {
    const auto at = std::ranges::find(kMakers, description.name, &Maker::name);
    if (at == kMakers.end()) Raise(ErrorNumber::InternalError);  // a class that the table above lacks
    return Ref<IDispatch>::Adopt(at->make());
}

}  // namespace ov
