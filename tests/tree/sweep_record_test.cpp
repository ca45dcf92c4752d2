// Random devices in two modules side by side, one of which sweeps every rule: whatever hosts, rules and listeners do,
// both tell the same events, write the same lines, count the same evaluations and come to the same state.
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "platform/locale/locale.h"
#include "platform/system/deadline.h"
#include "tree/swept_list.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Row;
using testing::TreeTest;

/// Text and choices by one seed.
class Dice {
public:
    explicit Dice(unsigned seed) : mRandom(seed) {}
    int Below(int bound) { return static_cast<int>(mRandom() % static_cast<unsigned>(bound)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <std::size_t N>
    std::string Of(const std::array<const char*, N>& choices) {
        return choices[mRandom() % N];
    }
    std::string Number(int bound) { return std::to_string(Below(bound)); }

private:
    std::minstd_rand mRandom;
};

constexpr int kParameters = 18;

int GroupOf(int id) {
    return id % 3 + 1;
}

/// The rows of a device: every parameter may read every other one, so that rules go in circles, fail, and write.
class RandomDevice {
public:
    explicit RandomDevice(Dice& dice) : mDice(dice) {
        for (int id = 1; id <= kParameters; ++id) {
            const int rows = mDice.OneIn(3) ? 1 + mDice.Below(3) : 1;
            const bool rules = rows > 1 || mDice.OneIn(4);
            for (int row = 0; row < rows; ++row) {
                mRows += Row(GroupOf(id), id, Columns(id, rules, row == rows - 1));
            }
        }
        mIsScript = true;
        for (int script = 1; script <= 3; ++script) {
            mRows += "INSERT INTO GroupScripts VALUES (" + (mDice.OneIn(2) ? "NULL" : mDice.Number(4)) + ", 's" +
                     std::to_string(script) + "', '!:" + Rule(1) + "');";
        }
        mRows += "INSERT INTO Texts (TEXT_IDX, Text_7, Text_9) VALUES (101, '!:P.sVal(\"" + mDice.Number(kParameters) +
                 "\")', 'm'), (102, 'bar', '#:\"u\" & P(\"" + mDice.Number(kParameters) + "\")');";
    }
    const std::string& Rows() const { return mRows; }

private:
    std::string Id() { return "\"" + std::to_string(1 + mDice.Below(kParameters)) + "\""; }
    // Ids of other groups are mostly not there, which is a line in the log each time.
    std::string Object() {
        switch (mDice.Below(8)) {
            case 0:
                return "G(\"" + std::to_string(1 + mDice.Below(2)) + "\")";
            case 1:
                return "CH(\"" + std::to_string(1 + mDice.Below(2)) + "\")(\"1\")";
            default:
                return "P";
        }
    }
    std::string IdOf(int reader) {
        if (mDice.OneIn(12)) return Id();
        const int place = mDice.Below(kParameters / 3);
        return "\"" + std::to_string(place * 3 + (GroupOf(reader) - 1 == 0 ? 3 : GroupOf(reader) - 1)) + "\"";
    }
    std::string Read(int reader) {
        switch (mDice.Below(20)) {
            case 0:
                return "P.isIn(" + IdOf(reader) + ", 1, 2, 3)";
            case 1:
                return "P.sel(" + IdOf(reader) + ", 1, 5, 2, 6, 7)";
            case 2:
                return "Len(P.sVal(" + IdOf(reader) + "))";
            case 3:
                return "Len(P.hVal(" + IdOf(reader) + ", 4))";
            case 4:
                return "ENV.n(\"k" + mDice.Number(2) + "\")";
            case 5:
                if (mIsScript) return "1";  // scripts that call each other in a circle end by their depth or their time
                return "P.script(\"s" + std::to_string(1 + mDice.Below(3)) + "\")";
            case 6:
                return "CONFG.pvalue(" + IdOf(reader) + ", \"order\")";
            case 7:
                return mDice.OneIn(2) ? "x" : "Len(GETTEXT(102))";
            case 8:
                return mDice.OneIn(3) ? "Int(Rnd * 3)" : "CONFCH(\"ChannelType\")";
            default:
                return Object() + "(" + IdOf(reader) + ")";
        }
    }
    std::string Rule(int reader) {
        std::string rule = Read(reader);
        for (int more = mDice.Below(3); more > 0; --more) {
            rule = mDice.OneIn(3) ? "Iif(" + Read(reader) + " > 4, " + rule + ", " + Read(reader) + ")"
                                  : "(" + rule + " + " + Read(reader) + ")";
        }
        // One that writes is enough: each write is a sweep within the sweep.
        if (!mWrites && mDice.OneIn(25)) {
            mWrites = true;
            rule = "P.SetValue(" + IdOf(reader) + ", " + mDice.Number(10) + ")";
        }
        if (mDice.OneIn(40)) rule = "ENV.SetVariable(\"k0\", " + rule + ")";
        if (mDice.OneIn(50)) rule = "ENV.Out(" + rule + ", \"t\")";
        return rule;
    }
    std::string Live(int reader, const std::string& tail) {
        return (mDice.OneIn(8) ? "'#:(" : "'!:(") + Rule(reader) + ")" + tail + "'";
    }
    std::string Columns(int id, bool rules, bool last) {
        std::string columns = "Min=0;Max=" + (mDice.OneIn(4) ? Live(id, " + 9") : "99");
        columns += ";DefaultValue=" + (mDice.OneIn(6) ? Live(id, " Mod 9") : mDice.Number(10));
        if (mDice.OneIn(6)) columns += ";realGain=" + Live(id, " Mod 3 + 1");
        if (mDice.OneIn(8)) columns += ";realOffset=" + Live(id, " Mod 3");
        if (mDice.OneIn(6)) columns += ";consistency='!:P() < " + Rule(id) + " + 20'";
        if (mDice.OneIn(6)) columns += ";unit=" + std::to_string(101 + mDice.Below(2));
        if (mDice.OneIn(6)) columns += std::string(";Type=") + mDice.Of(std::array{"'FLOAT'", "'STRING'"});
        if (mDice.OneIn(10)) columns += ";displayFormat='0.0'";
        if (mDice.OneIn(10)) columns += ";actionOnChange='a'";
        columns += ";removeOnDependency=" + std::to_string(-mDice.Below(2));
        if (rules && !(last && mDice.OneIn(2))) {
            columns += ";dependency='!:(" + Rule(id) + ") Mod " + std::to_string(2 + mDice.Below(2)) + " = " +
                       mDice.Number(2) + "'";
        }
        return columns;
    }

    Dice& mDice;
    bool mWrites = false;
    bool mIsScript = false;
    std::string mRows =
        "CREATE TABLE Actions (ActionID TEXT, value TEXT, actionScript TEXT);"
        "INSERT INTO Actions VALUES ('a', NULL, 'P.SetValue \"4\", P() Mod 7');";
};

/// What goes to the standard error meanwhile, without the addresses of objects.
class Lines {
public:
    explicit Lines(bool shown) : mFile(::memfd_create("lines", 0)), mFormer(::dup(STDERR_FILENO)) {
        if (shown) ::dup2(mFile, STDERR_FILENO);
    }
    ~Lines() {
        ::dup2(mFormer, STDERR_FILENO);
        ::close(mFormer);
        ::close(mFile);
    }
    std::string Take() {
        std::string text(static_cast<std::size_t>(::lseek(mFile, 0, SEEK_CUR)), '\0');
        const ::ssize_t size = ::pread(mFile, text.data(), text.size(), 0);
        EXPECT_EQ(static_cast<std::size_t>(size), text.size());
        if (::ftruncate(mFile, 0) == 0) ::lseek(mFile, 0, SEEK_SET);
        std::string lines;
        std::size_t from = 0;
        for (std::size_t at = text.find("::("); at != std::string::npos; at = text.find("::(", from)) {
            lines.append(text, from, at - from);
            from = text.find(')', at) + 1;
        }
        return lines.append(text, from);
    }

private:
    int mFile, mFormer;
};

/// Milliseconds that one operation may take. Rules that write run sweeps within sweeps, which a descriptor can make
/// endless: they end by the time of a script, and so not at the same place on both sides. A device where that happens
/// is given up.
std::int32_t Patience() {
    static const char* const wanted = std::getenv("OV_MODEL_SWEEP_PATIENCE");
    return wanted ? std::atoi(wanted) : 5000;
}

/// One of the two modules, with what it has told.
class Side {
public:
    Side(const Text& path, bool full) : mFull(full) {
        const Watch watch(*this);
        GlobalDiagnostics().fullSweep = mFull;
        mModule = MakeObject<Module>();
        mModule->SetSourcePath(path);
        mModule->Load(u"A", {}, {});
        mWitness = MakeObject<testing::Witness>(
            "", mEvents, [this](IBase_GuiParameter* p, const std::string& event) { React(*p, event); });
        mModule->RegisterCallback(mWitness->Dispatch());
    }
    ~Side() { mModule->Unload(); }

    /// What @p action makes visible: events, errors and the number of evaluations.
    template <class Action>
    std::string Told(Action action) {
        GlobalDiagnostics().fullSweep = mFull;
        GlobalDiagnostics().debugCountEval = 0;
        mEvents.clear();
        std::string told;
        const Watch watch(*this);
        try {
            action(*this);
        } catch (const RuntimeError& error) {
            told += "error " + std::to_string(error.number()) + " ";
        }
        for (const std::string& event : mEvents) {
            told += event + " ";
        }
        return told + "evaluations " + std::to_string(GlobalDiagnostics().debugCountEval);
    }
    Ref<IBase_SpecChannel> Channel(int group) {
        return Known(Known(mModule->Spec()->channels())->get_Item(group == 3 ? u"2" : u"1"));
    }
    Ref<IBase_SpecGroup> Group(int group) {
        return Known(Known(Channel(group)->groups())->get_Item(group == 2 ? u"2" : u"1"));
    }
    Ref<IBase_SpecParameter> Parameter(int id) {
        const auto parameters = Group(GroupOf(id))->parameters();
        const auto parameter = parameters ? parameters->get_Item(Text::FromInteger(id)) : nullptr;
        if (!parameter && !mTaken) Raise(ErrorNumber::ObjectVariableNotSet);  // its group could not be loaded whole
        return parameter ? parameter : mTaken;
    }
    Module& Root() { return *mModule; }
    /// Whether something took so long that a rule may have run out of time.
    bool IsGivenUp() const { return mIsGivenUp; }

    std::string State() {
        const Watch watch(*this);
        std::string state;
        if (!mModule->Spec()->channels()) return state;
        for (int group = 1; group <= 3; ++group) {
            state += "group " + std::to_string(Group(group)->scriptAccess()) +
                     std::to_string(Channel(group)->scriptAccess());
            const auto parameters = Group(group)->parameters();
            if (!parameters) continue;
            const Ref<IEnumVariant> walk = parameters->NewEnum();
            for (Variant item; walk->Next(item);) {
                state += "\n" + StateOf(*facet<IBase_SpecParameter>(item.AsObject()));
            }
        }
        return state;
    }
    /// The listener's reaction to the next event: 0 none, 1 raise, 2 write, 3 read and sweep, 4 load another type.
    int reaction = 0;
    Ref<IBase_SpecParameter> mTaken;  ///< out of the list for some time
    std::uint64_t LeftOut() { return mModule->Record()->StepsLeftOut(); }

private:
    // What a part of the tree that could not be loaded lacks is an error of the host's.
    template <class T>
    static Ref<T> Known(Ref<T> object) {
        if (!object) Raise(ErrorNumber::ObjectVariableNotSet);
        return object;
    }
    // Bounds what is done while it lives.
    class Watch {
    public:
        explicit Watch(Side& side) : mSide(side) {}
        ~Watch() { mSide.mIsGivenUp |= Deadline::IsOver(); }

    private:
        Side& mSide;
        Deadline mDeadline{Patience()};
    };

    static std::string StateOf(IBase_SpecParameter& spec) {
        const Ref<IBase_GuiParameter> gui = spec.Gui();
        const auto internal = facet<IBase_Internal>(&spec);
        return ToText(spec.id()).ToUtf8() + " row " + std::to_string(internal->DBindex()) + "/" +
               std::to_string(internal->dependencies()->get_idx()) + " state " +
               std::to_string(static_cast<int>(gui->configState())) + " value " + ToText(spec.get_value()).ToUtf8() +
               "^" + gui->error().ToUtf8() + " shown " + gui->get_value().ToUtf8() + " of " +
               ToText(gui->Min()).ToUtf8() + ".." + ToText(gui->Max()).ToUtf8() + " real " +
               ToText(spec.get_realvalue()).ToUtf8() + gui->unit().ToUtf8() +
               (gui->consistent({}) ? "" : " inconsistent") + (gui->modified() ? " modified" : "") +
               (gui->unknown() ? " unknown" : "") + (spec.scriptAccess() ? " read" : "");
    }
    void React(IBase_GuiParameter& p, const std::string&) {
        if (Deadline::IsOver()) Raise(ErrorNumber::InvalidPropertyValue);
        switch (std::exchange(reaction, 0)) {
            case 1:
                Raise(ErrorNumber::InvalidPropertyValue);
            case 2:
                Parameter(2)->let_value(Variant(static_cast<std::int32_t>(mEvents.size() % 7)));
                break;
            case 3:
                p.consistent(u"3");
                if (const auto group = p.group()) group->Spec()->EvaluateScript(u"P(\"1\") + P(\"2\")");
                mModule->UpdateDependencies();
                break;
            case 4:
                mModule->Load(u"A", {}, {});
                break;
            default:
                break;
        }
    }

    bool mFull;
    Ref<Module> mModule;
    testing::Events mEvents;
    Ref<testing::Witness> mWitness;
    bool mIsGivenUp = false;
};

/// One thing that a host does, to whichever side.
std::function<void(Side&)> RandomAction(Dice& dice) {
    const int id = 1 + dice.Below(kParameters), group = GroupOf(id), number = dice.Below(14);
    const Text text = Text::FromInteger(number);
    const auto internal = [id](Side& side) { return facet<IBase_Internal>(side.Parameter(id)); };
    switch (dice.Below(34)) {
        case 0:
            return [=](Side& side) { side.Parameter(id)->let_value(Variant(number)); };
        case 1:
            return [=](Side& side) { side.Parameter(id)->let_realvalue(Variant(number)); };
        case 2:
            return [=](Side& side) { side.Parameter(id)->Gui()->let_value(u"\x01" + text); };
        case 3:
            return [=](Side& side) { side.Parameter(id)->Gui()->ResetValue(); };
        case 4:
            return [=](Side& side) {
                side.Root().Environment()->let_Variable(u"K" + Text::FromInteger(number % 2), Variant(number));
            };
        case 5:
            return [=](Side& side) { side.Root().SetLanguage(number % 2 ? 7 : 9); };
        case 6:
            return [=](Side& side) {
                side.Group(group)->EvaluateScript(u"P.SetValue(\"" + Text::FromInteger(id) + u"\", " + text + u")");
            };
        case 7:
            return [=](Side& side) {
                if (number == 0) side.Group(group)->Gui()->Spec();
                facet<CBase_Group>(side.Group(group))
                    ->ExecuteScript(number < 3 ? u"x = " + text : u"P.SetValue \"3\", " + text);
            };
        case 8:
            return [=](Side& side) { side.Root().UpdateDependencies(); };
        case 9:
            return [=](Side& side) { side.Channel(group)->UpdateDependencies(); };
        case 10:
            return [=](Side& side) { side.Channel(group)->CheckConsistency(); };
        case 11:
            return [=](Side& side) { internal(side)->let_scriptAccess(false); };
        case 12:
            return [=](Side& side) { internal(side)->let_configState(static_cast<eParameterConfigState>(number % 3)); };
        case 13:
            return [=](Side& side) { internal(side)->dependencies()->MoveNext(); };
        case 14:
            return [=](Side& side) {
                if (number > 1) return;
                const auto row = facet<ICollection>(internal(side)->dependencies()->get_desc());
                row->Remove(Variant(u"Max"));
                row->Add(Variant(text), u"Max", {}, {});
            };
        case 15:
            return [=](Side& side) {
                const auto list = side.Group(group)->parameters();
                if (!list) Raise(ErrorNumber::ObjectVariableNotSet);
                if (side.mTaken) {
                    list->Add(side.mTaken.get(), ToText(side.mTaken->id()));
                    side.mTaken = nullptr;
                } else if (number < 4) {
                    side.mTaken = side.Parameter(id);
                    list->Remove(Text::FromInteger(id));
                } else {
                    list->Add(side.Parameter(id).get(), Text::FromInteger(id));  // to the end
                }
            };
        case 16:
            return [=](Side& side) { side.reaction = 1 + number % 3; };
        case 17:
            return [=](Side& side) {
                if (number == 0) side.reaction = 4;
            };
        case 18:
            return [=](Side& side) { side.Parameter(id)->Gui()->consistent(text); };
        case 19:
            return [=](Side& side) {
                Text image = u"0000";
                side.Parameter(id)->ExportToHexStringMapByMemory(image, 0, 8, 0, {});
                side.Parameter(id)->ImportFromHexStringMapByMemory(u"0" + Text::FromInteger(number % 10) + u"00", 0, 8,
                                                                   0, {});
            };
        case 20:
            return [=](Side& side) { side.Parameter(id)->let_value(Variant(u"no number")); };
        case 21:
            return [=](Side& side) {
                if (number == 0) side.Group(group)->desc();
            };
        case 22:
            return [=](Side& side) { internal(side)->CheckConsistency(); };
        case 23:
            return [=](Side& side) { side.Root().Gui()->ResetValue({}); };
        default:
            return [=](Side& side) { side.Parameter(id)->Gui()->let_value(text); };
    }
}

long Operations() {
    const char* wanted = std::getenv("OV_MODEL_SWEEP_OPERATIONS");
    return wanted ? std::atol(wanted) : 600;
}

class SweepRecord : public TreeTest {};

TEST_F(SweepRecord, LeavesOutNothingThatAFullSweepWouldShow) {
    constexpr int kOfDevice = 200;
    const char* first = std::getenv("OV_MODEL_SWEEP_SEED");
    const auto firstSeed = first ? static_cast<unsigned>(std::atol(first)) : 1u;
    std::uint64_t leftOut = 0;
    long compared = 0, givenUp = 0;
    const std::string locales[] = {"en-US", "de-DE"};
    for (long done = 0, seed = firstSeed; done < Operations() && !HasFailure(); done += kOfDevice, ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        GlobalDiagnostics() = {
            .debugToOutput = seed % 4 == 0 || SweepVerification::isOn, .initialised = true, .maxPasses = 6};
        Dice dice(static_cast<unsigned>(seed) * 7919u);
        const testing::TestDatabase database(testing::kTree + RandomDevice(dice).Rows());
        const bool showLines = GlobalDiagnostics().debugToOutput;
        Lines lines(!SweepVerification::isOn);
        Side full(database.Path(), true), spare(database.Path(), false);
        lines.Take();
        for (int i = 0; i < kOfDevice && !HasFailure(); ++i) {
            if (dice.OneIn(60)) SetCurrentLocale(locales[dice.Below(2)]);
            const auto action = RandomAction(dice);
            const std::string toldByFull = full.Told(action), linesOfFull = showLines ? lines.Take() : "";
            const std::string toldBySpare = spare.Told(action), linesOfSpare = showLines ? lines.Take() : "";
            if (full.IsGivenUp() || spare.IsGivenUp()) break;
            ++compared;
            ASSERT_EQ(toldByFull, toldBySpare) << "operation " << i;
            ASSERT_EQ(linesOfFull, linesOfSpare) << "operation " << i;
            if (i % 4 == 3) {
                const std::string stateOfFull = full.State(), stateOfSpare = spare.State();
                if (full.IsGivenUp() || spare.IsGivenUp()) continue;
                ASSERT_EQ(stateOfFull, stateOfSpare) << "operation " << i;
            }
            lines.Take();
        }
        leftOut += spare.LeftOut();
        if (full.IsGivenUp() || spare.IsGivenUp()) ++givenUp;
        SetCurrentLocale("en-US");
    }
    EXPECT_GT(leftOut, static_cast<std::uint64_t>(compared));
    EXPECT_GT(compared, Operations() / 2);
    RecordProperty("operations", std::to_string(compared));
    RecordProperty("stepsLeftOut", std::to_string(leftOut));
    std::printf("%ld operations compared, %llu steps left out, %ld devices given up\n", compared,
                static_cast<unsigned long long>(leftOut), givenUp);
}

}  // namespace
}  // namespace ov
