// Devices made at random whose rules have no memory: after any edits a device is what a fresh one becomes from the same
// values. And nothing of them outlives their unloading.
#include <map>
#include <random>

#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Row;
using testing::TreeTest;

/// Rows of parameters over three groups, 1/1, 1/2 and 2/1. A rule reads parameters of smaller numbers alone, wherever
/// they are, so that all rules settle.
class RandomDevice {
public:
    explicit RandomDevice(unsigned seed) : mRandom(seed) {
        for (int id = 1; id <= kDrivers + kDependants; ++id) {
            rows += id <= kDrivers ? Row(GroupOf(id), id, "Min=0;Max=9;DefaultValue=" + Number(10)) : Dependant(id);
        }
    }
    int Below(int bound) { return static_cast<int>(mRandom() % static_cast<unsigned>(bound)); }

    static constexpr int kDrivers = 6, kDependants = 24;
    static int GroupOf(int id) { return id % 3 + 1; }

    std::string rows;

private:
    std::string Number(int bound) { return std::to_string(Below(bound)); }
    std::string Reading(int reader, int id) const {
        const int from = GroupOf(reader), to = GroupOf(id);
        const std::string parameter = "(\"" + std::to_string(id) + "\")";
        if (from == to) return "P" + parameter;
        const std::string group = to == 2 ? "(\"2\")" : "(\"1\")";
        return from != 3 && to != 3 ? "G" + group + parameter
                                    : (to == 3 ? "CH(\"2\")" : "CH(\"1\")") + group + parameter;
    }
    std::string Sum(int reader) {
        std::string sum =
            "(" + Reading(reader, mReadable[static_cast<std::size_t>(Below(reader - 1)) % mReadable.size()]);
        for (int more = Below(3); more > 0; --more) {
            sum += " + " + Reading(reader, mReadable[mRandom() % mReadable.size()]);
        }
        return sum + ")";
    }
    // One row for each remainder below @p rowCount.
    std::string Alternatives(int id, int modulus, int rowCount) {
        const std::string sum = Sum(id), remove = std::to_string(-Below(2));
        std::string alternatives;
        for (int i = 0; i < rowCount; ++i) {
            alternatives +=
                Row(GroupOf(id), id,
                    "removeOnDependency=" + remove + ";DefaultValue=" + Number(100) + ";dependency='!:" + sum +
                        " Mod " + std::to_string(modulus) + " = " + std::to_string(i) + "'");
        }
        return alternatives;
    }
    std::string Dependant(int id) {
        const int kind = Below(5);
        // What goes and comes keeps its last row meanwhile: that is a memory, so nothing reads it.
        if (kind < 2) return Alternatives(id, 3, 1 + kind);
        std::string made;
        if (kind == 2) made = Alternatives(id, 3, 3);
        if (kind == 3) made = Row(GroupOf(id), id, "DefaultValue=5;Max='!:" + Sum(id) + " Mod 10'");
        if (kind == 4) made = Row(GroupOf(id), id, "DefaultValue=6;realGain='!:1 + " + Sum(id) + " Mod 3'");
        mReadable.push_back(id);
        return made;
    }

    std::minstd_rand mRandom;
    std::vector<int> mReadable = {1, 2, 3, 4, 5, 6};
};

class RandomRules : public TreeTest {
protected:
    static Ref<IBase_GuiParameter> Driver(Module& of, int id) {
        const int group = RandomDevice::GroupOf(id);
        const auto channel = of.Spec()->channels()->get_Item(group == 3 ? u"2" : u"1");
        return channel->groups()
            ->get_Item(group == 2 ? u"2" : u"1")
            ->parameters()
            ->get_Item(Text::FromInteger(id))
            ->Gui();
    }
    static std::string StateOf(Module& of) {
        std::string state;
        for (int id = 1; id <= RandomDevice::kDrivers + RandomDevice::kDependants; ++id) {
            const auto parameter = Driver(of, id);
            const bool inForce = parameter->configState() == eParameterConfigState::eParameterValid;
            state += std::to_string(id) + ": " + std::to_string(static_cast<int>(parameter->configState()));
            if (inForce) {
                state += " " + parameter->get_value().ToUtf8() + " of " + ToText(parameter->Max()).ToUtf8() + " real " +
                         ToText(parameter->Spec()->get_realvalue()).ToUtf8() + (parameter->consistent() ? "" : "?");
            }
            state += "\n";
        }
        return state;
    }
    // By a user, by a script, or by the engine, whose writes wait for the next sweep.
    static void Write(RandomDevice& device, Module& of, int id, int value) {
        const auto parameter = Driver(of, id);
        const Text text = Text::FromInteger(value);
        switch (device.Below(3)) {
            case 0:
                return parameter->let_value(text);
            case 1:
                parameter->group()->Spec()->EvaluateScript(u"P.SetValue(\"" + Text::FromInteger(id) + u"\", " + text +
                                                           u")");
                return;
            default:
                parameter->Spec()->let_value(Variant(value));
                of.UpdateDependencies();
        }
    }
};

TEST_F(RandomRules, LeaveADeviceAsAFreshOneWithItsValues) {
    for (unsigned seed = 1; seed <= 15; ++seed) {
        SCOPED_TRACE(seed);
        RandomDevice device(seed);
        Load(device.rows);
        StateOf(*module);  // opens all
        module->UpdateDependencies();
        std::map<int, int> values;
        for (int round = 0; round < 4; ++round) {
            for (int edit = 0; edit < 8; ++edit) {
                const int id = 1 + device.Below(RandomDevice::kDrivers), value = device.Below(10);
                values[id] = value;
                Write(device, *module, id, value);
            }
            const Ref<Module> fresh = MakeObject<Module>();
            fresh->SetSourcePath(mDatabase->Path());
            ASSERT_TRUE(fresh->Load(u"A", {}, {}));
            for (const auto& [id, value] : values) {
                Driver(*fresh, id)->Spec()->let_value(Variant(value));
            }
            StateOf(*fresh);
            fresh->UpdateDependencies();
            EXPECT_EQ(StateOf(*module), StateOf(*fresh));
            fresh->Unload();
        }
        module->Unload();
        module = nullptr;
        ASSERT_EQ(LivingObjects::Count(), mLiving);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace ov
