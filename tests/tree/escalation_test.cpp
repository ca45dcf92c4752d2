// How far a change is swept: exactly as far as scripts have reached in, by the traces that rules leave in the log. And
// what runs inside a sweep: rules, actions and listeners that write, scripts that load groups while a group loads.
#include <algorithm>

#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::ElementsAre;
using testing::Events;
using testing::Row;
using testing::TreeTest;
using testing::Witness;

class Escalation : public TreeTest {
protected:
    Ref<CBase_SpecParameterCollection> Far() { return Channel(u"2")->groups()->get_Item(u"1")->parameters(); }
    void OpenAll() {
        Group(u"2")->parameters();
        Group()->parameters();
        Far();
    }
    // A parameter 90 whose rule leaves the trace @p name each time that its group is swept.
    static std::string Traced(int group, const std::string& name) {
        return Row(group, 90, "dependency='!:ENV.Out(True, \"" + name + "\")'");
    }
    // The traces of one write, in order.
    std::string Swept(const Ref<IBase_GuiParameter>& parameter, const Text& text) {
        std::string lines = Logged([&] { parameter->let_value(text); });
        std::string traces;
        for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
            const std::size_t comma = lines.find(", ", at);
            if (lines.compare(at, comma - at, "True") != 0) ADD_FAILURE() << lines;
            traces += lines.substr(comma + 2, lines.find('\n', at) - comma - 2) + " ";
        }
        return traces;
    }
};

TEST_F(Escalation, GoesByTheMarksAlone) {
    const std::string traced = Row(1, 1, "DefaultValue=1") + Row(2, 1, "DefaultValue=1") + Traced(1, "1/1") +
                               Traced(2, "1/2") + Traced(3, "2/1");
    const struct {
        const char* name;
        std::string rules;
        bool openOthers;
        const char *edit, *editOther;
    } cases[] = {
        {"nothing reaches in", "", true, "1/1 ", "1/2 "},
        {"its own rules do not count", Row(1, 2, "Max='!:P(\"1\")'"), true, "1/1 ", "1/2 "},
        {"a group of the channel", Row(2, 2, "Max='!:G(\"1\")(\"1\")'"), true, "1/1 1/2 ", "1/2 "},
        {"a group of the channel that nobody opened", Row(2, 2, "Max='!:G(\"1\")(\"1\")'"), false, "1/1 ", "1/2 "},
        {"another channel", Row(3, 2, "Max='!:CH(\"1\")(\"1\")(\"1\")'"), true, "1/1 1/2 2/1 ", "1/2 "},
        {"another channel reaches the channel alone",
         Row(3, 2, "Max='!:CH(\"1\")(\"2\")(\"1\")'") + Row(2, 2, "Max='!:G(\"1\")(\"1\")'"), true, "1/1 1/2 2/1 ",
         "1/1 1/2 2/1 "},
        {"a parameter that nobody reads changes its row",
         Row(1, 2, "dependency='!:P(\"1\") = 1'") + Row(1, 2, "dependency='!:P(\"1\") <> 1'"), true, "1/1 ", "1/2 "},
        {"one that a rule reads does",
         Row(1, 2, "dependency='!:P(\"1\") = 1'") + Row(1, 2, "dependency='!:P(\"1\") <> 1'") +
             Row(1, 3, "Max='!:P(\"2\")'"),
         true, "1/1 1/1 ", "1/2 "},
    };
    for (const auto& [name, rules, openOthers, edit, editOther] : cases) {
        SCOPED_TRACE(name);
        Load(traced + rules);
        if (openOthers) OpenAll();
        EXPECT_EQ(Swept(Parameter(u"1"), u"2"), edit);
        EXPECT_EQ(Swept(Parameter(u"1", u"2"), u"2"), editOther);
        EXPECT_EQ(Swept(Parameter(u"1"), u"2"), "") << "an equal value sweeps nothing";
    }
}

// A condition that scripts set off in the middle of other work; afterwards a further sweep must find nothing to do.
class Reentrancy : public Escalation {
protected:
    std::string State() {
        std::string state;
        for (const auto& parameters : {Group()->parameters(), Group(u"2")->parameters(), Far()}) {
            const Ref<IEnumVariant> walk = parameters->NewEnum();
            for (Variant item; walk->Next(item);) {
                const auto gui = facet<IBase_GuiParameter>(item.AsObject());
                state += ToText(gui->id()).ToUtf8() + "=" + gui->get_value().ToUtf8() +
                         (gui->configState() == eParameterConfigState::eParameterValid ? "" : "!") +
                         (gui->consistent() ? " " : "? ");
            }
            state += "| ";
        }
        return state;
    }
    void ExpectSettled() {
        const std::string state = State();
        module->Spec()->UpdateDependencies();
        EXPECT_EQ(State(), state);
    }
};

TEST_F(Reentrancy, ActionsWriteWhileTheirWriterIsBeingWritten) {
    Load(
        "CREATE TABLE Actions (ActionID TEXT, value TEXT, actionScript TEXT);"
        "INSERT INTO Actions VALUES ('A', NULL, 'P.SetValue \"2\", P() + 1: G(\"2\").SetValue \"1\", P() + 2'),"
        "('B', NULL, 'If P(\"3\") < 20 Then P.SetValue \"3\", P(\"3\") + P()');" +
        Row(1, 1, "actionOnChange='A'") + Row(1, 2, "actionOnChange='B'") + Row(1, 3) +
        Row(1, 4, "DefaultValue=1;dependency='!:P(\"3\") < 10'") +
        Row(1, 4, "DefaultValue=2;dependency='!:P(\"3\") >= 10'") + Row(2, 1) +
        Row(2, 2, "dependency='!:P(\"1\") > 5'") + Row(3, 1, "Max='!:CH(\"1\")(\"1\")(\"3\") - 6'"));
    OpenAll();
    Parameter(u"1")->let_value(u"4");
    EXPECT_EQ(State(), "1=4 2=5 3=5 4=1 | 1=6 2=0 | 1=0? | ");
    Parameter(u"1")->let_value(u"6");
    EXPECT_EQ(State(), "1=6 2=7 3=12 4=2 | 1=8 2=0 | 1=0 | ");
    ExpectSettled();
}

TEST_F(Reentrancy, ListenersWriteInTheMiddleOfASweep) {
    Load(Row(1, 1, "DefaultValue=0") + Row(1, 2, "DefaultValue=1;dependency='!:P(\"1\") = 0'") +
         Row(1, 2, "DefaultValue=2;dependency='!:P(\"1\") <> 0'") + Row(1, 3, "Max=99") +
         Row(1, 4, "dependency='!:P(\"3\") = 0'") + Row(1, 5, "Max='!:G(\"2\")(\"1\")'") + Row(2, 1) +
         Row(2, 2, "dependency='!:G(\"1\")(\"2\") = 2';removeOnDependency=-1") + Row(3, 1));
    OpenAll();
    Events events;
    // The sweep reconfigures 2, whose listener writes parameters in front of it, behind it, and elsewhere.
    const Ref<Witness> writer = MakeObject<Witness>("w", events, [&](IBase_GuiParameter* p, const std::string& event) {
        if (event != "Reconfigured") return;
        Parameter(u"3")->let_value(p->get_value());
        Parameter(u"1", u"2")->let_value(p->get_value());
        Far()->get_Item(u"1")->Gui()->let_value(p->get_value());
        if (p->get_value() == u"2") Parameter(u"1")->let_value(u"0");  // and takes the sweep's cause back
    });
    Parameter(u"2")->RegisterCallback(writer.get());
    Parameter(u"1")->let_value(u"7");
    EXPECT_EQ(State(), "1=0 2=1 3=1 4=0! 5=0 | 1=1 2=0! | 1=1 | ");
    ExpectSettled();
}

TEST_F(Reentrancy, ScriptsLoadGroupsWhileAGroupLoads) {
    // Each group reads the others while it is half there; what it missed comes with the next sweep.
    const std::string rows =
        Row(1, 1, "DefaultValue=3;Max='!:G(\"2\")(\"1\") + CH(\"2\")(\"1\")(\"1\")'") +
        Row(1, 2, "enable='!:IsEmpty(G(\"2\")(\"7\"))'") +
        Row(1, 3, "DefaultValue='!:CH(\"2\")(\"1\")(\"1\") * 2';dependency='!:G(\"2\")(\"2\") = 2'") +
        Row(2, 1, "DefaultValue='!:G(\"1\")(\"1\") + 1';Max=9") +
        Row(2, 2, "DefaultValue=2;dependency='!:CH(\"2\")(\"1\")(\"1\") > 1';removeOnDependency=-1") +
        Row(3, 1, "DefaultValue=5;Max='!:CH(\"1\")(\"1\")(\"1\") + CH(\"1\")(\"2\")(\"1\")'");
    for (const char* first : {"1/1", "1/2", "2/1"}) {
        Load(rows, 1);
        const std::string path = first;
        Channel(Text::FromUtf8(path.substr(0, 1)))->groups()->get_Item(Text::FromUtf8(path.substr(2)))->parameters();
        module->Spec()->UpdateDependencies();
        ExpectSettled();
        EXPECT_EQ(State(), "1=3 2=0 3=10 | 1=4 2=2 | 1=5 | ") << "whichever group is opened first: " << first;
        EXPECT_TRUE(Group()->scriptAccess() && Group(u"2")->scriptAccess() && Channel(u"2")->scriptAccess());
    }
}

}  // namespace
}  // namespace ov
