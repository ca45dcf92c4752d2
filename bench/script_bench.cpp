// The rule language beside Lua 5.4: the same work in one process.
#include <array>
#include <lua.hpp>
#include <memory>
#include <string>
#include <vector>

#include "figures.h"
#include "heap.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "platform/script/script_control.h"

namespace ov::bench {

namespace {

class Lua {
public:
    Lua() : mState(luaL_newstate()) { luaL_openlibs(mState); }
    Lua(const Lua&) = delete;
    Lua& operator=(const Lua&) = delete;
    ~Lua() { lua_close(mState); }

    lua_State* State() const noexcept { return mState; }
    /// Loads and runs a chunk.
    void Run(const char* chunk) {
        if (luaL_dostring(mState, chunk) != LUA_OK) throw std::runtime_error(lua_tostring(mState, -1));
    }
    /// The number that a global function without arguments gives.
    double Call(const char* function) {
        lua_getglobal(mState, function);
        return CallTop();
    }
    /// The same for a function that Reference gave.
    double Call(int reference) {
        lua_rawgeti(mState, LUA_REGISTRYINDEX, reference);
        return CallTop();
    }
    double LoadAndCall(const char* chunk) {
        luaL_loadstring(mState, chunk);
        return CallTop();
    }
    int Reference(const char* chunk) {
        luaL_loadstring(mState, chunk);
        return luaL_ref(mState, LUA_REGISTRYINDEX);
    }

private:
    double CallTop() {
        if (lua_pcall(mState, 0, 1, 0) != LUA_OK) throw std::runtime_error(lua_tostring(mState, -1));
        const double result = lua_isboolean(mState, -1) ? lua_toboolean(mState, -1) : lua_tonumber(mState, -1);
        lua_pop(mState, 1);
        return result;
    }

    lua_State* mState;
};

/// Times function `Work` of a script beside function `work` of a Lua chunk.
void CompareFunctions(benchmark::State& state, double limit, const char16_t* script, const char* chunk) {
    ScriptControl control;
    control.AddCode(script);
    Lua lua;
    lua.Run(chunk);
    const auto work = [&] {
        Arguments none;
        return control.CallProcedure(u"Work", none);
    };
    const auto luaWork = [&] { return lua.Call("work"); };
    Compare(state, limit, work, luaWork);
}

void NumericLoop(benchmark::State& state) {
    CompareFunctions(state, 1,
                     u"Function Work\n"
                     u"  Dim s, i\n"
                     u"  s = 0.5\n"
                     u"  For i = 1 To 200000\n"
                     u"    If i Mod 3 = 0 Then s = s + i * 2 Else s = s - i\n"
                     u"  Next\n"
                     u"  Work = s\n"
                     u"End Function\n",
                     "function work()\n"
                     "  local s = 0.5\n"
                     "  for i = 1, 200000 do\n"
                     "    if i % 3 == 0 then s = s + i * 2 else s = s - i end\n"
                     "  end\n"
                     "  return s\n"
                     "end\n");
}
BENCHMARK(NumericLoop)->UseManualTime();

void DoubleLoop(benchmark::State& state) {
    CompareFunctions(state, 1,
                     u"Function Work\n"
                     u"  Dim s, x, i\n"
                     u"  s = 0.5: x = 1.25\n"
                     u"  For i = 1 To 200000\n"
                     u"    x = x * 0.999 + 0.25\n"
                     u"    If x > 100.5 Then s = s - x Else s = s + x / 3.5\n"
                     u"  Next\n"
                     u"  Work = s\n"
                     u"End Function\n",
                     "function work()\n"
                     "  local s, x = 0.5, 1.25\n"
                     "  for i = 1, 200000 do\n"
                     "    x = x * 0.999 + 0.25\n"
                     "    if x > 100.5 then s = s - x else s = s + x / 3.5 end\n"
                     "  end\n"
                     "  return s\n"
                     "end\n");
}
BENCHMARK(DoubleLoop)->UseManualTime();

void FunctionCalls(benchmark::State& state) {
    CompareFunctions(state, 1,
                     u"Function Add(a, b): Add = a + b: End Function\n"
                     u"Function Work\n"
                     u"  Dim s, i: s = 0\n"
                     u"  For i = 1 To 100000: s = Add(s, 2): Next\n"
                     u"  Work = s\n"
                     u"End Function\n",
                     "function add(a, b) return a + b end\n"
                     "function work()\n"
                     "  local s = 0\n"
                     "  for i = 1, 100000 do s = add(s, 2) end\n"
                     "  return s\n"
                     "end\n");
}
BENCHMARK(FunctionCalls)->UseManualTime();

void TextBuilding(benchmark::State& state) {
    CompareFunctions(state, 1,
                     u"Function Work\n"
                     u"  Dim s, i, n: n = 0\n"
                     u"  For i = 1 To 20000\n"
                     u"    s = s & \"item \" & i & \"=\" & \"value\" & \";\"\n"
                     u"    If i Mod 50 = 0 Then n = n + Len(s): s = \"\"\n"
                     u"  Next\n"
                     u"  Work = n\n"
                     u"End Function\n",
                     "function work()\n"
                     "  local s, n = '', 0\n"
                     "  for i = 1, 20000 do\n"
                     "    s = s .. 'item ' .. i .. '=' .. 'value' .. ';'\n"
                     "    if i % 50 == 0 then n = n + #s; s = '' end\n"
                     "  end\n"
                     "  return n\n"
                     "end\n");
}
BENCHMARK(TextBuilding)->UseManualTime();

void TextSearching(benchmark::State& state) {
    CompareFunctions(state, 1,
                     u"Dim t, k\n"
                     u"For k = 1 To 100: t = t & \"sensor \" & k & \" of the upper range; \": Next\n"
                     u"Function Work\n"
                     u"  Dim n, i, p: n = 0\n"
                     u"  For i = 1 To 200\n"
                     u"    p = InStr(t, \"sensor 77 of\")\n"
                     u"    n = n + p + Len(Mid(t, p, 12))\n"
                     u"    If InStr(p, t, \"lower range\") > 0 Then n = n + 1\n"
                     u"  Next\n"
                     u"  Work = n\n"
                     u"End Function\n",
                     "t = ''\n"
                     "for k = 1, 100 do t = t .. 'sensor ' .. k .. ' of the upper range; ' end\n"
                     "function work()\n"
                     "  local n = 0\n"
                     "  for i = 1, 200 do\n"
                     "    local p = string.find(t, 'sensor 77 of', 1, true)\n"
                     "    n = n + p + #string.sub(t, p, p + 11)\n"
                     "    if string.find(t, 'lower range', p, true) then n = n + 1 end\n"
                     "  end\n"
                     "  return n\n"
                     "end\n");
}
BENCHMARK(TextSearching)->UseManualTime();

void ArraySums(benchmark::State& state) {
    CompareFunctions(state, 1.1,
                     u"Function Work\n"
                     u"  Dim a(1000), s, i, k\n"
                     u"  For i = 0 To 1000: a(i) = i * 2: Next\n"
                     u"  s = 0\n"
                     u"  For k = 1 To 100\n"
                     u"    For i = 0 To 1000: s = s + a(i): Next\n"
                     u"  Next\n"
                     u"  Work = s\n"
                     u"End Function\n",
                     "function work()\n"
                     "  local a, s = {}, 0\n"
                     "  for i = 0, 1000 do a[i] = i * 2 end\n"
                     "  for k = 1, 100 do\n"
                     "    for i = 0, 1000 do s = s + a[i] end\n"
                     "  end\n"
                     "  return s\n"
                     "end\n");
}
BENCHMARK(ArraySums)->UseManualTime();

// Errors that a script passes over, each looked at and cleared, beside protected calls that fail.
void PassedErrors(benchmark::State& state) {
    CompareFunctions(state, 3,
                     u"Function Work\n"
                     u"  Dim i, n, x, zero, a(3): n = 0: zero = 0\n"
                     u"  On Error Resume Next\n"
                     u"  For i = 1 To 1000\n"
                     u"    x = i \\ zero\n"
                     u"    If Err.Number <> 0 Then n = n + 1: Err.Clear\n"
                     u"    x = \"text\" + i\n"
                     u"    If Err.Number <> 0 Then n = n + 1: Err.Clear\n"
                     u"    x = a(i + 3)\n"
                     u"    If Err.Number <> 0 Then n = n + 1: Err.Clear\n"
                     u"    Err.Raise 1000\n"
                     u"    If Err.Number <> 0 Then n = n + 1: Err.Clear\n"
                     u"  Next\n"
                     u"  Work = n\n"
                     u"End Function\n",
                     "function work()\n"
                     "  local n = 0\n"
                     "  for i = 1, 4000 do\n"
                     "    if not pcall(error, 'text') then n = n + 1 end\n"
                     "  end\n"
                     "  return n\n"
                     "end\n");
}
BENCHMARK(PassedErrors)->UseManualTime();

/// What the rules call "P": parameters by id.
class IParameters : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{0B1F3C77-3B1C-4D8B-9A51-2C7E4E0A9F10}");
    static constexpr const char* kName = "IParameters";
    static const InterfaceInfo& Members() {
        static constexpr std::array kMembers = {member<&IParameters::value>("value").AsDefault()};
        static const InterfaceInfo info(kIid, kName, kMembers);
        return info;
    }

    virtual Variant value(const Text& id) = 0;
};

class Parameters final : public Object<Parameters, Facet<IParameters>> {
public:
    static constexpr const char* kClassName = "Parameters";
    Variant value(const Text& id) override { return Variant(static_cast<std::int32_t>(id[0] - u'1')); }
};

int LuaParameter(lua_State* state) {
    lua_pushinteger(state, luaL_checkstring(state, 1)[0] - '1');
    return 1;
}

constexpr int kEvaluations = 1000;

template <class Evaluate>
auto Repeated(Evaluate evaluate) {
    return [evaluate] {
        for (int i = 0; i < kEvaluations; ++i) {
            auto result = evaluate();
            benchmark::DoNotOptimize(result);
        }
        return 0;
    };
}

// A short expression, seen before, through the control.
void CachedEval(benchmark::State& state) {
    ScriptControl control;
    control.SetTimeout(1000);
    control.ExecuteStatement(u"x = 3");
    const Text expression(u"x * 2 + 1 > 5");
    Lua lua;
    lua.Run("x = 3");
    const int precompiled = lua.Reference("return x * 2 + 1 > 5");
    Compare(state, 1, Repeated([&] { return control.Eval(expression); }),
            Repeated([&] { return lua.Call(precompiled); }));
}
BENCHMARK(CachedEval)->UseManualTime();

// The same with calls of a published object.
void CachedRule(benchmark::State& state) {
    const Ref<Parameters> parameters = MakeObject<Parameters>();
    ScriptControl control;
    control.SetTimeout(1000);
    control.AddObject(u"P", parameters->Dispatch(), false);
    const Text rule(u"P(\"2\") = 1 And P(\"3\") > 5");
    Lua lua;
    lua_register(lua.State(), "P", LuaParameter);
    const int precompiled = lua.Reference("return P('2') == 1 and P('3') > 5");
    Compare(state, 1, Repeated([&] { return control.Eval(rule); }), Repeated([&] { return lua.Call(precompiled); }));
}
BENCHMARK(CachedRule)->UseManualTime();

// A short expression that was never seen: compiled and run.
void FirstEval(benchmark::State& state) {
    ScriptControl control;
    control.SetTimeout(1000);
    control.ExecuteStatement(u"x = 3");
    Lua lua;
    lua.Run("x = 3");
    std::vector<Text> expressions(kEvaluations);
    std::vector<std::string> chunks(kEvaluations);
    static int number = 0;  // goes on, since the bench may be run again and the process remembers texts
    const auto prepare = [&] {
        for (std::size_t i = 0; i < expressions.size(); ++i) {
            const std::string expression = "x * 2 + " + std::to_string(++number) + " > 5";
            expressions[i] = Text::FromAscii(expression);
            chunks[i] = "return " + expression;
        }
    };
    const auto evaluate = [&] {
        int held = 0;
        for (const Text& expression : expressions) {
            held += control.Eval(expression).AsBoolean();
        }
        return held;
    };
    const auto load = [&] {
        double held = 0;
        for (const std::string& chunk : chunks) {
            held += lua.LoadAndCall(chunk.c_str());
        }
        return held;
    };
    double fastest = std::numeric_limits<double>::infinity();
    double luaFastest = fastest;
    for (auto _ : state) {
        prepare();
        luaFastest = std::min(luaFastest, SecondsOf(load));
        const double seconds = SecondsOf(evaluate);
        fastest = std::min(fastest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = fastest / luaFastest;
    state.counters["limit"] = 1.2;
}
BENCHMARK(FirstEval)->UseManualTime();

/// About a megabyte of procedures; no two texts are equal.
Text LongScript() {
    static int number = 0;
    std::string text = "' " + std::to_string(++number) + "\n";
    for (int i = 0; text.size() < 1'000'000; ++i) {
        const std::string n = std::to_string(i);
        text += "Function Rule" + n + "(value, limit)\n  Dim total, k\n  total = 0\n  ' the sum up to a limit\n" +
                "  For k = 1 To limit\n    If value(k) > " + n + " And total < 1000 Then\n" +
                "      total = total + value(k) * 2 - k \\ 3\n    ElseIf Len(name" + n + ") = 0 Then\n      Rule" + n +
                " = \"item \" & k & \": \" & total\n      Exit Function\n    End If\n  Next\n  Rule" + n + " = P(\"" +
                n + "\").value + total / 1.5\nEnd Function\n";
    }
    return Text::FromAscii(text);
}

// A long script, beside ten million characters in a second.
void CompileSpeed(benchmark::State& state) {
    double ratio = std::numeric_limits<double>::infinity();
    for (auto _ : state) {
        const Text script = LongScript();
        ScriptControl control;
        const auto compile = [&] {
            control.AddCode(script);
            return 0;
        };
        const double seconds = SecondsOf(compile);
        ratio = std::min(ratio, seconds * 10e6 / static_cast<double>(script.size()));
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = ratio;
    state.counters["limit"] = 1;
}
BENCHMARK(CompileSpeed)->UseManualTime()->Iterations(8);

/// The texts that every rule engine gets.
const std::vector<Text>& Prelude() {
    static const std::vector<Text> texts = [] {
        const auto choose = [](const char16_t* head, int count) {
            std::u16string text = head;
            for (int i = 0; i < count; ++i) {
                const std::u16string number(Text::FromInteger(i).view());
                text += u"case " + number + u": Choose" + (count == 8 ? u"8" : u"16") + u"=a" + number + u" \r\n";
            }
            return Text(text + u"case else: Choose" + (count == 8 ? u"8" : u"16") +
                        u"=e \r\nEnd select \r\nEnd Function");
        };
        return std::vector<Text>{
            u"Function Max(a, b) \r\n  If a > b Then \r\n    Max = a \r\n  Else \r\n    Max = b \r\n  End If \r\n"
            u"End Function \r\n",
            u"Function Min(a, b) \r\n  If a < b Then \r\n    Min = a \r\n  Else \r\n    Min = b \r\n  End If \r\n"
            u"End Function \r\n",
            u"Function Iif(sw, a, b) \r\n  If sw Then \r\n    Iif = a \r\n  Else \r\n    Iif = b \r\n  End If \r\n"
            u"End Function \r\n",
            choose(u"Function Choose8(idx,a0,a1,a2,a3,a4,a5,a6,a7,e) \r\nselect case idx \r\n", 8),
            choose(u"Function Choose16(idx,a0,a1,a2,a3,a4,a5,a6,a7,a8,a9,a10,a11,a12,a13,a14,a15,e) \r\n"
                   u"select case idx \r\n",
                   16),
        };
    }();
    return texts;
}

std::unique_ptr<ScriptControl> RuleEngine(IDispatch* object) {
    static const std::array<Text, 8> names = {u"ENV", u"P", u"G", u"CH", u"CONFCH", u"CONFG", u"CONFM", u"GETTEXT"};
    auto control = std::make_unique<ScriptControl>();
    control->SetLanguage(u"VBScript");
    control->Reset();
    control->SetTimeout(1000);
    for (const Text& name : names) {
        control->AddObject(name, object, false);
    }
    for (const Text& text : Prelude()) {
        control->AddCode(text);
    }
    return control;
}

void EngineCreation(benchmark::State& state) {
    const Ref<Parameters> parameters = MakeObject<Parameters>();
    const auto create = [&] {
        std::vector<std::unique_ptr<ScriptControl>> engines;
        for (int i = 0; i < 100; ++i) {
            engines.push_back(RuleEngine(parameters->Dispatch()));
        }
        return engines;
    };
    const auto luaCreate = [] {
        std::vector<std::unique_ptr<Lua>> states;
        for (int i = 0; i < 100; ++i) {
            states.push_back(std::make_unique<Lua>());
        }
        return states;
    };
    Compare(state, 0.1, create, luaCreate);
}
BENCHMARK(EngineCreation)->UseManualTime();

// 10,000 engines that no rule has used yet.
void EngineMemory(benchmark::State& state) {
    const Ref<Parameters> parameters = MakeObject<Parameters>();
    RuleEngine(parameters->Dispatch());
    for (auto _ : state) {
        const std::size_t before = BytesInUse();
        std::vector<std::unique_ptr<ScriptControl>> engines;
        for (int i = 0; i < 10'000; ++i) {
            engines.push_back(RuleEngine(parameters->Dispatch()));
        }
        state.counters["bytes"] = static_cast<double>(BytesInUse() - before);
    }
    state.counters["limit"] = 10e6;
}
BENCHMARK(EngineMemory)->Iterations(1);

}  // namespace

}  // namespace ov::bench
