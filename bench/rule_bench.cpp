// A user's edit in devices of growing size, and rules beside Lua.
#include <array>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <lua.hpp>

#include "contract/group.h"
#include "contract/parameter.h"
#include "figures.h"
#include "generator.h"
#include "loaded_module.h"
#include "platform/automation/conversions.h"
#include "tree/group.h"

namespace ov::bench {

namespace {

constexpr int kParametersInGroup = 20;

DescriptorShape Shape(int parameters) {
    return {.channels = 1, .groups = parameters / kParametersInGroup, .parameters = kParametersInGroup};
}

// A device with its whole tree, in which a user turns one number to and fro.
class EditedDevice {
public:
    explicit EditedDevice(int parameters) : mModule(GenerateDescriptor(Shape(parameters))) {
        mModule.BuildAll();
        mNumber = mModule.InnerGroup()->parameters()->get_Item(u"2")->Gui();
    }
    std::size_t Edit() {
        mHigh = !mHigh;
        mNumber->let_value(mHigh ? u"7" : u"3");
        return mNumber->get_value().size();
    }

private:
    LoadedModule mModule;
    Ref<IBase_GuiParameter> mNumber;
    bool mHigh = false;
};

// An edit sweeps the rules of its group, so that the rest of the device does not matter.
void UserEdit(benchmark::State& state) {
    EditedDevice subject(static_cast<int>(state.range(0)));
    EditedDevice small(200);
    Compare(
        state, 1.2, [&] { return subject.Edit(); }, [&] { return small.Edit(); });
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(UserEdit)->Arg(200)->Arg(2'000)->Arg(20'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

// The check of the parameter and the sweep of its group, beside reading what the group shows.
void EditWithoutRules(benchmark::State& state) {
    LoadedModule module(GenerateDescriptor({.groups = 1, .mix = ParameterMix::Integers}));
    std::vector<Ref<IBase_GuiParameter>> parameters;
    module.ForEachParameter([&](IBase_SpecParameter& parameter) { parameters.push_back(parameter.Gui()); });
    bool high = false;
    const auto edit = [&] {
        high = !high;
        parameters[1]->let_value(high ? u"7" : u"3");
        return parameters[1]->modified();
    };
    const auto readTexts = [&] {
        std::size_t characters = 0;
        for (const Ref<IBase_GuiParameter>& parameter : parameters) {
            characters += parameter->get_value().size();
        }
        return characters;
    };
    Compare(state, 3, edit, readTexts);
}
BENCHMARK(EditWithoutRules)->UseManualTime();

constexpr int kRuns = 200;
constexpr const char* kLuaRule = "return P('2') == 1 and P('3') > 5";

// A table of values behind a C function, as the smallest host of Lua has it.
class LuaRule {
public:
    LuaRule() {
        luaL_openlibs(mState.get());
        lua_pushcfunction(mState.get(), &Value);
        lua_setglobal(mState.get(), "P");
        luaL_loadstring(mState.get(), kLuaRule);
    }
    bool RunCompiled() {
        lua_pushvalue(mState.get(), 1);
        return Answer();
    }
    bool CompileAndRun() {
        luaL_loadstring(mState.get(), kLuaRule);
        return Answer();
    }

private:
    static int Value(lua_State* state) {
        static constexpr std::array<lua_Integer, 4> kValues = {0, 0, 1, 6};
        lua_pushinteger(state, kValues[static_cast<std::size_t>(luaL_checkstring(state, 1)[0] - '0') % 4]);
        return 1;
    }
    bool Answer() {
        if (lua_pcall(mState.get(), 0, 1, 0) != LUA_OK) throw std::runtime_error(lua_tostring(mState.get(), -1));
        const bool answer = lua_toboolean(mState.get(), -1) != 0;
        lua_pop(mState.get(), 1);
        return answer;
    }

    std::unique_ptr<lua_State, void (*)(lua_State*)> mState{luaL_newstate(), &lua_close};
};

template <class Run>
auto Repeated(Run run) {
    return [run]() mutable {
        int held = 0;
        for (int i = 0; i < kRuns; ++i) {
            held += run() ? 1 : 0;
        }
        return held;
    };
}

void Write(IBase_SpecGroup& group, std::initializer_list<std::pair<const char16_t*, std::int32_t>> values) {
    for (const auto& [id, value] : values) {
        group.parameters()->get_Item(id)->let_value(value);
    }
}

// A rule as the group's reader sees it: text in, answer out. Beside it Lua with the rule compiled beforehand, and
// compiled each time.
void EvaluateRule(benchmark::State& state) {
    LoadedModule module(GenerateDescriptor(Shape(200)));
    const Ref<IBase_SpecGroup> group = module.InnerGroup();
    Write(*group, {{u"2", 1}, {u"3", 6}});
    auto& owner = dynamic_cast<Group&>(*group);
    const Text rule = u"!:P(\"2\") = 1 And P(\"3\") > 5";
    LuaRule lua;
    Compare(state, 3, Repeated([&] { return owner.GetBoolFromScript(rule, Variant()); }),
            Repeated([&] { return lua.RunCompiled(); }),
            AlsoBeside("ratioToCompiling", Repeated([&] { return lua.CompileAndRun(); })));
    state.SetItemsProcessed(state.iterations() * kRuns);
}
BENCHMARK(EvaluateRule)->UseManualTime();

// A pass over a group of which each parameter has one rule, and nothing changes; beside it the rules alone.
void SweepOfRules(benchmark::State& state) {
    constexpr int kRules = 1'000;
    LoadedModule module(
        GenerateDescriptor({.channels = 1, .groups = 1, .parameters = kRules + 2, .mix = ParameterMix::OneRuleEach}));
    const Ref<IBase_SpecGroup> group = module.Group(u"1");
    Write(*group, {{u"1", 1}, {u"2", 60}});
    auto& swept = dynamic_cast<Group&>(*group);
    const Text rule = u"!:P(\"1\") = 1 And P(\"2\") > 50";
    const auto evaluate = [&] {
        int held = 0;
        for (int i = 0; i < kRules; ++i) {
            held += swept.GetBoolFromScript(rule, Variant()) ? 1 : 0;
        }
        return held;
    };
    swept.ReconfigurationPass();  // the parameters that the writes brought in
    Compare(
        state, 2, [&] { return swept.ReconfigurationPass(); }, evaluate);
    state.SetItemsProcessed(state.iterations() * kRules);
}
BENCHMARK(SweepOfRules)->UseManualTime();

}  // namespace

}  // namespace ov::bench
