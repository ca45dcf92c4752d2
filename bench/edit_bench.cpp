// A user's edit in a group that others read: it costs what it changes, however large the device is.
#include <sqlite3.h>

#include <stdexcept>
#include <string>

#include "contract/group.h"
#include "contract/parameter.h"
#include "figures.h"
#include "generator.h"
#include "module/module.h"
#include "support/diagnostics.h"

namespace ov::bench {

namespace {

constexpr int kParametersInGroup = 20;

/// Whose parameters the last rule of each group reads.
enum class Neighbours { OfTheChannel, OfAnotherChannel };

// In each group parameters 2 to 4 are there as long as parameter 1 is not 7, and 6 to 19 read parameter 5. Parameter 20
// reads parameter 1 of the next group, so that no edit stays in its group.
std::string SharedDescriptor(int parameters, Neighbours neighbours) {
    const int groups = parameters / kParametersInGroup / 2;
    const std::string path = GenerateDescriptor(
        {.channels = 2, .groups = groups, .parameters = kParametersInGroup, .mix = ParameterMix::Integers});
    const std::string group = "((GroupType % " + std::to_string(groups) + ") + 1)";
    const std::string channel = "((GroupType - 1) / " + std::to_string(groups) + ")";
    const std::string neighbour = neighbours == Neighbours::OfTheChannel
                                      ? "'!:G(\"' || " + group + " || '\")"
                                      : "'!:CH(\"' || (1 - " + channel + ") || '\")(\"' || " + group + " || '\")";
    const std::string sql =
        "UPDATE Parameters SET dependency = '!:P(\"1\") <> 7' WHERE ParameterId IN (2, 3, 4);"
        "UPDATE Parameters SET dependency = '!:P(\"5\") < 5000' WHERE ParameterId BETWEEN 6 AND 19;"
        "UPDATE Parameters SET dependency = " +
        neighbour + "(\"1\") < 5000' WHERE ParameterId = 20;";
    sqlite3* db = nullptr;
    const bool done = sqlite3_open(path.c_str(), &db) == SQLITE_OK &&
                      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    if (!done) throw std::runtime_error("the rules of a descriptor cannot be written");
    return path;
}

/// A device with its whole tree, in which a user turns numbers to and fro.
class SharedDevice {
public:
    SharedDevice(int parameters, Neighbours neighbours) {
        mModule->SetSourcePath(Text::FromUtf8(SharedDescriptor(parameters, neighbours)));
        if (!mModule->Load(kGeneratedModuleType, {}, {})) throw std::runtime_error("a generated type does not load");
        OpenAllGroups();
        mModule->UpdateDependencies();
        const auto parameter = [&](const char16_t* id) {
            const auto channel = mModule->Spec()->channels()->get_first();
            return channel->groups()->get_Item(u"2")->parameters()->get_Item(id)->Gui();
        };
        mRead = parameter(u"1");
        mUnread = parameter(u"19");
        mShown = parameter(u"2");
        for (int i = 0; i < 4; ++i) {
            EditOfThree();
        }
    }
    SharedDevice(const SharedDevice&) = delete;
    SharedDevice& operator=(const SharedDevice&) = delete;
    ~SharedDevice() { mModule->Unload(); }

    // Three parameters go or come.
    bool EditOfThree() {
        mHigh = !mHigh;
        mRead->let_value(mHigh ? u"7" : u"3");
        const bool there = mShown->configState() == eParameterConfigState::eParameterValid;
        if (there == mHigh) throw std::runtime_error("an edit has not changed what it should");
        return there;
    }
    // Nobody reads the number.
    bool BareEdit() {
        mHigher = !mHigher;
        mUnread->let_value(mHigher ? u"7" : u"3");
        return mUnread->modified();
    }
    bool Sweep() {
        mModule->UpdateDependencies();
        return true;
    }

private:
    // A group that was never opened takes no part in sweeps.
    void OpenAllGroups() {
        for (const char16_t* channel : {u"0", u"1"}) {
            const Ref<IEnumVariant> groups = mModule->Spec()->channels()->get_Item(channel)->groups()->NewEnum();
            for (Variant group; groups->Next(group);) {
                facet<IBase_SpecGroup>(group.AsObject())->parameters();
            }
        }
    }

    Ref<Module> mModule = MakeObject<Module>();
    Ref<IBase_GuiParameter> mRead, mUnread, mShown;
    bool mHigh = false, mHigher = false;
};

void CompareSizes(benchmark::State& state, Neighbours neighbours) {
    SharedDevice subject(static_cast<int>(state.range(0)), neighbours);
    SharedDevice small(200, neighbours);
    Compare(
        state, 1.2, [&] { return subject.EditOfThree(); }, [&] { return small.EditOfThree(); });
}

// The same edit in devices of growing size.
void SharedEdit(benchmark::State& state) {
    CompareSizes(state, Neighbours::OfTheChannel);
}
BENCHMARK(SharedEdit)->Arg(200)->Arg(2'000)->Arg(20'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void SharedEditAcrossChannels(benchmark::State& state) {
    CompareSizes(state, Neighbours::OfAnotherChannel);
}
BENCHMARK(SharedEditAcrossChannels)->Arg(200)->Arg(2'000)->Arg(20'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

// What three parameters that go or come add to an edit.
void EditOfThree(benchmark::State& state) {
    SharedDevice device(20'000, Neighbours::OfAnotherChannel);
    double edit = 1, bare = 1;
    const auto editOfThree = [&] { return device.EditOfThree(); };
    const auto bareEdit = [&] { return device.BareEdit(); };
    for (auto _ : state) {
        const double seconds = SecondsOf(editOfThree);
        edit = std::min(edit, seconds);
        bare = std::min(bare, SecondsOf(bareEdit));
        state.SetIterationTime(seconds);
    }
    state.counters["microseconds"] = (edit - bare) * 1e6;
    state.counters["bare"] = bare * 1e6;
    state.counters["limit"] = 40;
}
BENCHMARK(EditOfThree)->UseManualTime()->Unit(benchmark::kMicrosecond);

// A sweep over a device in which nothing is to do, beside the one that runs all rules.
void IdleSweep(benchmark::State& state) {
    SharedDevice idle(2'000, Neighbours::OfTheChannel), swept(2'000, Neighbours::OfTheChannel);
    const auto full = [&] {
        GlobalDiagnostics().fullSweep = true;
        swept.Sweep();
        GlobalDiagnostics().fullSweep = false;
        return true;
    };
    Compare(
        state, 0.01, [&] { return idle.Sweep(); }, full);
}
BENCHMARK(IdleSweep)->Iterations(200)->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace ov::bench
