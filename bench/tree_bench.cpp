// Trees: the first module on a file beside a bare loop over its rows, further modules beside the first, clones,
// language, saved states, the end. Files have no index where a bench does not tell otherwise.
#include <sqlite3.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "figures.h"
#include "generator.h"
#include "heap.h"
#include "loaded_module.h"
#include "sqlite_file.h"

namespace ov::bench {

namespace {

constexpr int kParametersInGroup = 20;
constexpr int kLarge = 200'000, kMiddle = 20'000, kSmall = 2'000;

DescriptorShape Shape(int parameters, bool isIndexed = false) {
    return {.channels = 1,
            .groups = parameters / kParametersInGroup,
            .parameters = kParametersInGroup,
            .isIndexed = isIndexed};
}

// The same rows, by groups in the same order, each value as a text.
std::size_t ReadRows(const std::string& path, int groups) {
    sqlite3* handle = nullptr;
    sqlite3_stmt* query = nullptr;
    const int opened = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
    const std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(handle, &sqlite3_close);
    constexpr const char* kSql = "SELECT * FROM Parameters WHERE GroupType = ? ORDER BY [order], ParameterId";
    if (opened != SQLITE_OK || sqlite3_prepare_v2(handle, kSql, -1, &query, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(handle));
    }
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(query, &sqlite3_finalize);
    std::size_t sum = 0;
    for (int group = 1; group <= groups; ++group) {
        sqlite3_reset(query);
        sqlite3_bind_int(query, 1, group);
        while (sqlite3_step(query) == SQLITE_ROW) {
            for (int column = 0; column < kParameterColumns; ++column) {
                if (sqlite3_column_text16(query, column)) {
                    sum += static_cast<std::size_t>(sqlite3_column_bytes16(query, column));
                }
            }
        }
    }
    return sum;
}

// A device whose file nobody has opened yet.
struct Device {
    explicit Device(int parameters, bool isIndexed = false) : path(GenerateDescriptor(Shape(parameters, isIndexed))) {}

    std::unique_ptr<LoadedModule> First() const { return std::make_unique<LoadedModule>(FreshName(path)); }
    std::unique_ptr<LoadedModule> FirstTree() const {
        std::unique_ptr<LoadedModule> module = First();
        module->BuildAll();
        return module;
    }
    std::string path;
};

// Load, the whole tree with its rules, and its end, by the first module that opens the file.
void BuildTree(benchmark::State& state) {
    const auto parameters = static_cast<int>(state.range(0));
    const Device device(parameters, state.range(1) != 0);
    const Device indexed(parameters, true);
    Compare(
        state, 1.5, [&] { return LoadedModule(FreshName(device.path)).BuildAll(); },
        [&] { return ReadRows(indexed.path, parameters / kParametersInGroup); });
    state.SetItemsProcessed(state.iterations() * parameters);
}
BENCHMARK(BuildTree)
    ->ArgNames({"", "indexed"})
    ->ArgsProduct({{kMiddle, kLarge}, {0, 1}})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

// Times a run on a large device beside as many on a middle one as have as many parameters.
template <class Prepare, class Run>
void CompareSizes(benchmark::State& state, double limit, Prepare prepare, Run run) {
    const Device large(kLarge), middle(kMiddle);
    constexpr int kTimes = kLarge / kMiddle;
    double largeFastest = std::numeric_limits<double>::infinity(), middleFastest = largeFastest;
    for (auto _ : state) {
        double seconds = 0;
        for (int i = 0; i < kTimes; ++i) {
            auto subject = prepare(middle);
            const auto once = [&] { return run(subject); };
            seconds += SecondsOf(once);
        }
        middleFastest = std::min(middleFastest, seconds);
        auto subject = prepare(large);
        const auto once = [&] { return run(subject); };
        seconds = SecondsOf(once);
        largeFastest = std::min(largeFastest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = largeFastest / middleFastest;
    state.counters["limit"] = limit;
}

void BuildPerParameter(benchmark::State& state) {
    CompareSizes(
        state, 1.2, [](const Device& device) { return device.First(); },
        [](const std::unique_ptr<LoadedModule>& module) { return module->BuildAll(); });
}
BENCHMARK(BuildPerParameter)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

void UnloadPerParameter(benchmark::State& state) {
    CompareSizes(
        state, 1.3, [](const Device& device) { return device.FirstTree(); },
        [](std::unique_ptr<LoadedModule>& module) {
            module = nullptr;
            return 0;
        });
}
BENCHMARK(UnloadPerParameter)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

// What a user waits for, one group of a device that nobody has opened yet, beside the whole tree.
void FirstScreen(benchmark::State& state) {
    const Device device(kMiddle);
    Compare(
        state, 0.3, [&] { return device.First()->Group(u"5")->parameters()->Count(); },
        [&] { return device.First()->BuildAll(); });
}
BENCHMARK(FirstScreen)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// The second module of a type beside the first.
void SecondModule(benchmark::State& state) {
    const Device device(kMiddle);
    std::string path;
    std::unique_ptr<LoadedModule> first, second;
    const auto build = [&](std::unique_ptr<LoadedModule>& module) {
        module = std::make_unique<LoadedModule>(path);
        return module->BuildAll();
    };
    Compare(
        state, 0.25, [&] { return build(second); },
        [&] {
            first = nullptr;
            second = nullptr;
            path = FreshName(device.path);
            return build(first);
        });
    state.SetItemsProcessed(state.iterations() * kMiddle);
}
BENCHMARK(SecondModule)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

// The hundredth one beside the second.
void HundredthModule(benchmark::State& state) {
    constexpr int kModules = 100;
    const Device device(kSmall);
    std::vector<std::unique_ptr<LoadedModule>> modules;
    double second = 0, last = 0;
    for (auto _ : state) {
        modules.clear();
        const std::string path = FreshName(device.path);
        for (int i = 0; i < kModules; ++i) {
            const auto build = [&] {
                modules.push_back(std::make_unique<LoadedModule>(path));
                return modules.back()->BuildAll();
            };
            const double seconds = SecondsOf(build);
            if (i > 0 && i <= kModules / 10) second += seconds;
            if (i >= kModules - kModules / 10) last += seconds;
        }
        state.SetIterationTime(last);
    }
    state.counters["ratio"] = last / second;
    state.counters["limit"] = 1.3;
}
BENCHMARK(HundredthModule)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

void CloneTree(benchmark::State& state) {
    const Device device(kMiddle);
    const std::string path = FreshName(device.path);
    LoadedModule living(path);
    living.BuildAll();
    Ref<IBase_SpecModule> clone;
    std::unique_ptr<LoadedModule> second;
    const auto endClone = [&] {
        if (const auto module = facet<CBase_Module>(std::exchange(clone, nullptr))) module->Unload();
    };
    Compare(
        state, 1.5,
        [&] {
            clone = living->Clone();
            return clone.get();
        },
        [&] {
            endClone();
            second = nullptr;
            second = std::make_unique<LoadedModule>(path);
            return second->BuildAll();
        });
    endClone();
}
BENCHMARK(CloneTree)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

// What the parameters of one group take, each with its place in the lists; of the first module its row as well.
void LiveParameter(benchmark::State& state) {
    constexpr int kParameters = 1000;
    std::size_t bytes = 0;
    const std::string path =
        GenerateDescriptor({.groups = 2, .parameters = kParameters, .mix = ParameterMix::Integers});
    for (auto _ : state) {
        std::vector<std::unique_ptr<LoadedModule>> modules;
        for (int i = 0; i <= state.range(0); ++i) {
            LoadedModule& module = *modules.emplace_back(std::make_unique<LoadedModule>(path));
            module.Group(u"1")->parameters();  // texts and statements that all of them share
            const Ref<IBase_SpecGroup> group = module.Group(u"2");
            const std::size_t before = BytesInUse();
            if (group->parameters()->Count() != kParameters) return state.SkipWithError("parameters are missing");
            bytes = BytesInUse() - before;
        }
    }
    state.counters["bytes"] = static_cast<double>(bytes) / kParameters;
    state.counters["limit"] = state.range(0) == 0 ? 1300 : 450;
}
BENCHMARK(LiveParameter)->ArgName("modules before")->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

// All that a screen shows of a device: names, units, values.
std::size_t ReadAll(LoadedModule& module) {
    std::size_t characters = 0;
    module.ForEachParameter([&](IBase_SpecParameter& parameter) {
        const Ref<IBase_GuiParameter> gui = parameter.Gui();
        characters += gui->name().size() + gui->unit().size() + gui->get_value().size();
    });
    return characters;
}

// The first look at a device after a change of the language, beside a look without one.
void LanguageChange(benchmark::State& state) {
    LoadedModule module(FreshName(Device(kMiddle).path));
    module.BuildAll();
    bool english = false;
    Compare(
        state, 2.0,
        [&] {
            english = !english;
            module->SetLanguage(english ? 9 : 7);
            return ReadAll(module);
        },
        [&] { return ReadAll(module); });
}
BENCHMARK(LanguageChange)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

// The texts of all values, and those written back, beside the look of a screen.
void StateSavedAndLoaded(benchmark::State& state) {
    LoadedModule module(FreshName(Device(kMiddle).path));
    module.BuildAll();
    std::vector<Ref<IBase_SpecParameterStorage>> parameters;
    module.ForEachParameter(
        [&](IBase_SpecParameter& parameter) { parameters.push_back(facet<IBase_SpecParameterStorage>(&parameter)); });
    Compare(
        state, 3.0,
        [&] {
            std::vector<Text> saved;
            saved.reserve(parameters.size());
            for (const auto& parameter : parameters) {
                saved.push_back(parameter->get_realvalueForStorage());
            }
            for (std::size_t i = 0; i < parameters.size(); ++i) {
                parameters[i]->let_realvalueForStorage(saved[i]);
            }
            return saved.size();
        },
        [&] { return ReadAll(module); });
}
BENCHMARK(StateSavedAndLoaded)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

}  // namespace ov::bench
