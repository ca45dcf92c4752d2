#include <gtest/gtest.h>

#include <limits>

#include "parameters/parameter_int.h"
#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"
#include "support/test_database.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::Events;
using ::ov::testing::Recorder;
using ::ov::testing::TestDatabase;

class ParameterWritesTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) { Take(MakeObject<ParameterInt>(), cells); }
    void Listen(std::string name, Recorder::Reaction reaction = {}) {
        gui->RegisterCallback(MakeObject<Recorder>(std::move(name), events, std::move(reaction)).get());
    }
    void Drop() {
        internal = nullptr;
        gui = nullptr;
        spec = nullptr;
        storage = nullptr;
    }
    template <class Action>
    std::int32_t ErrorIn(Action action) {
        events.clear();
        return ErrorOf(action);
    }
};

TEST_F(ParameterWritesTest, AUsersEditIsCheckedThenTold) {
    Make({{u"subtype", u"u8"}, {u"Max", u"9"}, {u"DefaultValue", u"0"}});
    EXPECT_EQ(Told(u"12"), "A:Reconfigured group:Reconfigured A:State group:State A:State group:State")
        << "refused: the marks go there and back";
    EXPECT_EQ(Shown(), "0");
    EXPECT_TRUE(gui->consistent() && gui->unknown());
    EXPECT_EQ(Told(u"5"), "dependencies A:Value group:Value") << "what depends on it changes before its own event";
    EXPECT_FALSE(gui->unknown());
    EXPECT_EQ(Told(u"5"), "");
    EXPECT_EQ(Told(u"\x01"
                   u"12"),
              "A:State group:State dependencies A:Value group:Value")
        << "forced";
    EXPECT_EQ(Shown(), "12");
    EXPECT_FALSE(gui->consistent());
    EXPECT_EQ(Told(u"13"), "") << "refused, and the held value does not pass either";
    EXPECT_EQ(Shown(), "12");
    gui->SetUnknown();
    for (const char16_t* bad : {u"", u"x", u"5x", u"3e9", u"\x01",
                                u"\x01\x01"
                                u"5"}) {
        EXPECT_EQ(Told(bad), "") << Text(bad).ToUtf8();
    }
    EXPECT_TRUE(gui->unknown()) << "a text that is no number changes no mark";
    EXPECT_EQ(Told(u"12"), "A:State group:State") << "the value held, now known";
    EXPECT_EQ(Told(u"7"), "A:State group:State dependencies A:Value group:Value");
    spec->let_value(u"x");
    EXPECT_EQ(Told(u"0"), "dependencies A:Value group:Value") << "an equal number with a state is a change";
}

TEST_F(ParameterWritesTest, OnlyAcceptedWritesOutliveARow) {
    Make({{u"DefaultValue", u"1"}});
    gui->let_value(u"x");
    Configure({{u"DefaultValue", u"2"}});
    EXPECT_EQ(Shown(), "2");
    gui->let_value(u"2");
    Configure({{u"DefaultValue", u"3"}});
    EXPECT_EQ(Shown(), "2") << "a write of the value held counts";
    EXPECT_EQ(Told([&] { gui->ResetValue(); }), "A:Value group:Value");
    gui->SetUnknown();
    EXPECT_EQ(Told([&] { gui->ResetValue(); }), "A:State group:State") << "at the default only the mark goes";
    gui->let_value(u"3");
    gui->SetUnknown();
    EXPECT_EQ(Told([&] { gui->ResetValue(); }), "A:State group:State");
}

TEST_F(ParameterWritesTest, TheEngineWritesAnything) {
    const auto write = [this](const Variant& written) {
        Make({{u"DefaultValue", 1}, {u"Max", u"3"}});
        EXPECT_EQ(Told([&] { spec->let_value(written); }), "A:Value group:Value");
        EXPECT_TRUE(gui->consistent() && gui->modified()) << "unchecked";
        EXPECT_EQ(Told([&] { spec->set_value(written); }), "");
        gui->SetUnknown();
        EXPECT_EQ(Told([&] { spec->let_value(written); }), "A:State group:State");
        return Describe(spec->get_value()) + "|" + gui->error().ToUtf8() + "|" + Shown();
    };
    ExpectEach(
        "L5 -> Long 5|0|5; D2.5 -> Long 2|0|2; D3.5 -> Long 4|0|4; $-7 -> Long -7|0|-7; "
        "$&HFFFFFFFF -> Long -1|0|-1; B1 -> Long -1|0|-1; E -> Long 0|0|0; D3e9 -> Long 0|2|Overflow; "
        "$3000000000 -> Long 0|2|Overflow; $abc -> Long 0|1|QNAN; $ -> Long 0|1|QNAN; N -> Long 0|1|QNAN",
        [&](const Text& form) { return write(Value(form.ToUtf8())); });
    EXPECT_EQ(write(std::numeric_limits<double>::infinity()), "Long 0|2|Overflow");
    EXPECT_EQ(write(Variant::Nothing()), "Long 0|1|QNAN");
}

TEST_F(ParameterWritesTest, RealvalueIsTheDeviceView) {
    Make({{u"realGain", u"0.5"}, {u"realOffset", u"3"}});
    spec->let_realvalue(u"9");
    EXPECT_EQ(Shown(), "9") << "no scale before the first check";
    EXPECT_EQ(Describe(spec->get_realvalue()), "Long 9");
    internal->CheckConsistency();
    EXPECT_EQ(Shown(), "8") << "9 x 0.5 + 3, half to even";
    EXPECT_EQ(Describe(spec->get_realvalue()), "Double 10");
    EXPECT_EQ(Told([&] { spec->set_realvalue(u"13"); }), "A:Value group:Value");
    EXPECT_EQ(Shown(), "10") << "9.5, rounded once and half to even";
    EXPECT_EQ(Logged([&] { spec->let_realvalue(u"QNAN"); }),
              "(ParamId 7) Property Let IBase_SpecParameter_realvalue(QNAN): ERROR: Aktion nicht möglich (Type "
              "mismatch)\n");
    EXPECT_EQ(Shown(), "10") << "a scaled text is no value, and changes nothing";
    EXPECT_EQ(gui->FormatValue(4, true) + u" " + gui->FormatValue(4, false) + u" " + gui->FormatValue(4), u"5 4 4");
    EXPECT_EQ(Logged([&] { EXPECT_EQ(gui->FormatValue(u"x", true), u""); }),
              "(ParamId 7) Function IBase_GuiParameter_FormatValue(x): ERROR: Aktion nicht möglich\n");
    spec->let_value(8);
    EXPECT_EQ(storage->get_realvalueForStorage(), u"10");
    spec->let_value(4);
    spec->let_realvalue(1e300);
    EXPECT_EQ(Shown(), "Overflow");
}

// As a failed import says it.
TEST_F(ParameterWritesTest, AStateMayComeWithoutANumber) {
    const auto parameter = MakeObject<ParameterInt>();
    Take(parameter, {{u"DefaultValue", 4}});
    const auto state = [&] { parameter->TakeImportFault(); };
    EXPECT_EQ(Told(state), "A:Value group:Value");
    EXPECT_EQ(Shown(), "Internal error");
    EXPECT_EQ(Describe(spec->get_value()), "Long 4");
    Configure({{u"DefaultValue", 5}});
    EXPECT_EQ(Describe(spec->get_value()), "Long 4") << "it counts as a write";
    gui->SetUnknown();
    EXPECT_EQ(Told(state), "A:State group:State");
    EXPECT_EQ(Told(state), "");
    gui->SetUnknown();
    Listen("B", [](const std::string&) { Raise(ErrorNumber::InvalidProcedureCall); });
    EXPECT_EQ(Logged(state), "(ParamId 7) Property Let Property_valueExt(4): ERROR: Aktion nicht möglich\n");
}

TEST_F(ParameterWritesTest, StoredTextIsTheSameInEveryLocale) {
    for (const auto& [locale, cases] : {std::pair("en-US", "12.5 -> Long 12; 12,5 -> Long 12; 1e5x -> Long 100000"),
                                        std::pair("de-DE",
                                                  "13,5 -> Long 14; 13.5 -> Long 14 warned; "
                                                  "1.234,5 -> Long 1 warned; QNAN -> Long 0")}) {
        const ::ov::testing::ScopedLocale scoped(locale);
        ExpectEach(cases, [this](const Text& text) {
            Make();
            const std::string logged = Logged([&] { storage->let_realvalueForStorage(text); });
            const std::string warning = "Let IBase_SpecParameterStorage_realvalueForStorage(" + text.ToUtf8() +
                                        "): WARNING: string value is not correctly formatted!\n";
            return Describe(spec->get_value()) + (logged == warning ? " warned" : logged);
        });
    }
    const ::ov::testing::ScopedLocale german("de-DE");
    Make({{u"realGain", u"8000"}});
    internal->CheckConsistency();
    spec->let_value(-12345);
    EXPECT_EQ(storage->get_realvalueForStorage(), u"-1.543125");
}

TEST_F(ParameterWritesTest, ListenersComeAndGo) {
    Make();
    const auto twice = MakeObject<Recorder>("B", events);
    gui->RegisterCallback(twice.get());
    Listen("C");
    gui->RegisterCallback(twice.get());
    EXPECT_EQ(Told([&] { gui->ClearUnknown(); }), "A:State B:State C:State B:State group:State");
    gui->UnregisterCallback(twice.get());
    EXPECT_EQ(Told([&] { gui->SetUnknown(); }), "A:State C:State group:State");
    const auto once = std::make_shared<Ref<IBase_CallbackParameter>>();
    *once =
        MakeObject<Recorder>("D", events, [this, once](const std::string&) { gui->UnregisterCallback(once->get()); });
    gui->RegisterCallback(once->get());
    gui->RegisterCallback(once->get());
    *once = nullptr;  // the list alone holds it now; nothing is taken off by Nothing
    EXPECT_EQ(Told([&] { gui->ClearUnknown(); }), "A:State C:State D:State D:State group:State");
    gui->RegisterCallback(nullptr);
    EXPECT_EQ(Told([&] { gui->ClearUnknown(); }), "");
}

TEST_F(ParameterWritesTest, AFailingListenerEndsTheRound) {
    Make();
    Listen("B", [](const std::string&) { Raise(ErrorNumber::InvalidProcedureCall); });
    Listen("C");
    EXPECT_EQ(ErrorIn([&] { gui->let_value(u"5"); }), 5);
    EXPECT_EQ(events, (Events{"dependencies", "A:Value", "B:Value"}));
    EXPECT_EQ(Shown(), "5") << "nothing is rolled back";
    EXPECT_EQ(ErrorIn([&] { gui->ClearModified(); }), 5);
    EXPECT_FALSE(gui->modified());
    EXPECT_EQ(Logged([&] { EXPECT_EQ(ErrorIn([&] { spec->let_value(6); }), 0); }),
              "(ParamId 7) Property Let IBase_SpecParameter_value(6): ONERROR: Aktion nicht möglich (Invalid procedure "
              "call or argument)\n");
    EXPECT_EQ(events, (Events{"A:Value", "B:Value"}));
    EXPECT_EQ(Shown(), "6");
}

TEST_F(ParameterWritesTest, ListenersMayWriteAgain) {
    Make();
    Listen("B", [this](const std::string&) {
        if (Shown() == "5") gui->let_value(u"6");
    });
    EXPECT_EQ(Told(u"5"), "dependencies A:Value B:Value dependencies A:Value B:Value group:Value group:Value");
    EXPECT_EQ(Shown(), "6");
    // The sweep runs in the middle of the edit, and may write the parameter as well.
    group->onUpdate = [this] { spec->let_value(8); };
    EXPECT_EQ(Told(u"7"), "dependencies A:Value B:Value group:Value A:Value B:Value group:Value");
    EXPECT_EQ(Shown(), "8");
}

TEST_F(ParameterWritesTest, ListenersMayEndTheParameter) {
    Make({{u"Max", u"9"}});
    Listen("B", [this](const std::string& event) {
        if (event == "State") internal->Unload();
    });
    EXPECT_EQ(Told(u"\x01"
                   u"10"),
              "A:Reconfigured B:Reconfigured group:Reconfigured A:State B:State");
    EXPECT_EQ(Shown(), "10");
    for (void (*act)(IBase_GuiParameter&) : std::initializer_list<void (*)(IBase_GuiParameter&)>{
             [](IBase_GuiParameter& p) { p.let_value(u"5"); }, [](IBase_GuiParameter& p) { p.Spec()->let_value(5); },
             [](IBase_GuiParameter& p) { p.ClearUnknown(); }, [](IBase_GuiParameter& p) { p.LockDataset(); }}) {
        Make();
        // The last reference goes inside the parameter's own event.
        Listen("B", [this](const std::string&) { Drop(); });
        act(*gui);
        EXPECT_FALSE(gui);
    }
}

TEST_F(ParameterWritesTest, ComparesValueAndState) {
    Make();
    const auto other = MakeObject<ParameterInt>();
    other->Config(group->Dispatch(), Variant(::ov::testing::MakeRow({{u"DefaultValue", 5}})));
    EXPECT_FALSE(spec->Compare(nullptr));
    EXPECT_FALSE(spec->Compare(other->Spec().get()));
    spec->let_value(5);
    EXPECT_TRUE(spec->Compare(other->Spec().get()));
    spec->let_value(u"x");
    other->Spec()->let_value(0);
    EXPECT_FALSE(spec->Compare(other->Spec().get())) << "0 on both sides, but one has a state";
    other->Spec()->let_value(u"y");
    EXPECT_TRUE(spec->Compare(other->Spec().get()));
}

TEST_F(ParameterWritesTest, ActionsRunBehindTheEvents) {
    const TestDatabase file(
        "CREATE TABLE Actions (ActionID TEXT, value TEXT, actionScript TEXT);"
        "INSERT INTO Actions VALUES ('act', '1', 'one P() P()'), ('act', '2', NULL), ('act', NULL, 'other P()'),"
        "('twice', '1', 'first'), ('twice', '1', 'second'), ('twice', '2', ''), ('silent', NULL, NULL)");
    group->module->db = file.Open();
    Make({{u"actionOnChange", u"act"}});
    EXPECT_EQ(Told(u"1"), "dependencies A:Value group:Value run one 1 1");
    EXPECT_EQ(Told(u"1"), "run one 1 1") << "also for the value held";
    EXPECT_EQ(Told(u"2"), "dependencies A:Value group:Value run other 2") << "a row without script is none";
    EXPECT_EQ(Told([&] { spec->let_value(-3); }), "A:Value group:Value run other -3");
    EXPECT_EQ(Told([&] { spec->let_value(-3); }), "");
    EXPECT_EQ(Told([&] { gui->ResetValue(); }), "A:Value group:Value") << "a reset runs none";
    Make({{u"actionOnChange", u"twice"}});
    EXPECT_EQ(Logged([&] { EXPECT_EQ(Told(u"1"), "dependencies A:Value group:Value run first"); }),
              "Id '7': LoadActionTable(): ERROR adding ACTION-item for value '1' (actionScript=second): This key is "
              "already associated with an element of this collection\n");
    EXPECT_EQ(Told(u"2"), "dependencies A:Value group:Value") << "an empty script is none";
    for (const char16_t* key : {u"silent", u"unheard of", u""}) {
        Make({{u"actionOnChange", key}});
        EXPECT_EQ(Logged([&] { EXPECT_EQ(Told(u"1"), "dependencies A:Value group:Value"); }), "");
    }
    Make({{u"actionOnChange", u"o'clock"}});
    EXPECT_THAT(Logged([&] { EXPECT_EQ(Told(u"1"), "dependencies A:Value group:Value"); }),
                ::testing::StartsWith("LoadActionTable(): ONERROR: Error 3075: Syntax error in query expression. ("));
    group->module->db = nullptr;
    EXPECT_EQ(
        Logged([&] { Told(u"3"); }),
        "LoadActionTable(): ONERROR: Error 91: Object variable or With block variable not set (Object variable or "
        "With block variable not set)\n");
}

}  // namespace
}  // namespace ov
