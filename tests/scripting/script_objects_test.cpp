// What rules see: P, G, CH, ENV, GETTEXT, CONFCH, CONFG, CONFM and the prelude; and what goes to the log.
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;

class ScriptObjects : public TreeTest {
protected:
    void SetUp() override {
        Load(Row(1, 1, "DefaultValue=1") + Row(1, 2, "DefaultValue=255;displayFormat='hex4';Max=1000") +
             Row(2, 1, "DefaultValue=21") + Row(3, 1, "DefaultValue=31") +
             "INSERT INTO GroupScripts VALUES (1, 'own', '#:P(\"1\") + 1'), (NULL, 'text', 'plain'),"
             "(1, 'own', 'second'), (NULL, 'lost', '');");
    }
    bool IsMarked(const Text& id) { return Parameter(id)->Spec()->scriptAccess(); }
};

TEST_F(ScriptObjects, GiveTheseValues) {
    static_cast<IBase_SpecModule*>(module.get())->Environment()->let_VariableNoEvent(u"v", u"abc");
    const struct {
        const char16_t* script;
        const char* value;
    } cases[] = {
        {u"P(\"1\")", "1"},
        {u"P.val(1) + P.value(\"2\")", "256"},
        {u"P.hVal(\"2\", 4)", "FF00"},
        {u"P.hVal(\"2\", 0) & \"|\"", "|"},
        {u"P.sel(\"1\", 1, \"a\", \"b\")", "a"},
        {u"P.sel(\"1\", 2, \"a\", \"b\")", "b"},
        {u"P.sel(\"1\", 1, \"#:2+2\")", "4"},
        {u"P.sel(\"1\", 1, 7)", "7"},
        {u"P.isIn(\"1\", \"a\", \"1\")", "True"},
        {u"P.isIn(\"1\")", "False"},
        {u"P.sVal(\"1\") = P.Gui(\"1\")", "True"},
        {u"VarType(P.Gui(\"1\"))", "8"},
        {u"P.script(\"own\")", "2"},
        {u"P.script(\"text\")", "plain"},
        {u"G(\"2\")(\"1\")", "21"},
        {u"G(\"2\").parameters.value(\"1\")", "Empty"},
        {u"CH(\"2\")(\"1\")(\"1\")", "31"},
        {u"GETTEXT(1)", "Gerät"},
        {u"ENV.Variable(\"v\")", "abc"},
        {u"ENV.SetVariable(\"v\", 5) & ENV.n(\"v\") & ENV.b(\"v\")", "True5True"},
        {u"ENV.SetVariable(\"v\", \"abc\") & ENV.n(\"v\") & ENV.s(\"v\")", "True0False"},
        {u"ENV.sel(\"v\", \"abc\", \"#:1\")", "#:1"},
        {u"ENV.sel(\"none\", 1, 2, \"rest\")", "rest"},
        {u"ENV.isIn(\"v\", \"ABC\")", "False"},
        {u"ENV.Out(7, \"seen\")", "7"},
        {u"ENV.IsValidIP(\"1.2.3.4\") & ENV.IsValidIP(\"1.2.3\") & ENV.IsValidIP(\"99999.2.3\")", "TrueFalseFalse"},
        {u"ENV.IsValidIP(\"1.2.3.256\") & ENV.IsValidIP(\"a.b.c.d\") & ENV.IsValidIP(\"1.2.3.4.5\")",
         "FalseFalseFalse"},
        {u"ENV.IsValidIP(\"99999.2.3.4\")", "Empty"},
        {u"CONFCH(\"ChannelType\") & CONFCH.value(\"channelid\")", "11"},
        {u"CONFCH.gvalue(\"2\", \"GroupType\")", "2"},
        {u"CONFG(\"editPlugin\")", "ed"},
        {u"CONFG.pvalue(\"2\", \"DefaultValue\")", "255"},
        {u"IsNull(CONFG(\"block3\"))", "True"},
        {u"CONFG.isIn(\"GroupType\", \"7\", \"1\")", "True"},
        {u"CONFG.sel(\"GroupType\", 2, \"a\", 1, \"b\", \"c\")", "b"},
        {u"CONFG.sel(\"GroupType\", 2, \"a\", \"#:1\")", "#:1"},
        {u"CONFM(\"moduletype\")", "A"},
        {u"Max(2, 5) & Min(2, 5) & Iif(1 > 2, 3, 4)", "524"},
        {u"Choose8(9,0,1,2,3,4,5,6,7,99) & Choose8(7,0,1,2,3,4,5,6,7,99)", "997"},
        {u"Choose16(15,0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,-1)", "15"},
        {u"mData", "Empty"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Eval(c.script), c.value) << Text(c.script).ToUtf8();
    }
    EXPECT_TRUE(Channel(u"1")->EvaluateScript(u"IsEmpty(P)").AsBoolean()) << "a channel has no P";
}

TEST_F(ScriptObjects, FailInTheLogAlone) {
    const struct {
        const char16_t* script;
        const char* line;
    } cases[] = {
        {u"P(\"99\")",
         "value(99): Error when calling 'mData(99).value':\nObject variable or With block variable not set"},
        {u"P.sVal(99)", "sval(99): Error when calling 'mData(99).sval':"},
        {u"P.hVal(99)", "hVal(99): Error when calling 'mData(99).hVal':"},
        {u"P.Gui(99)", "gui(99): ERROR when calling 'mData(99).value':"},
        {u"P.sel(99)", "sel(99): ERROR when calling 'mData(99).value':"},
        {u"P.sel(1, 2, \"a\")",
         "sel(1): ERROR: aktuellen Wert (1) nicht in Argumentenliste gefunden!\n"
         "additional information: arg(ubound) = a\n"},
        {u"P.isIn(99, 1)", "isIn(99): ERROR when calling 'mData(99).value':"},
        {u"P.isIn(1, Null)", "isIn(1): ERROR when calling 'mData(1).value':\nInvalid use of Null"},
        {u"P.SetValue(99, 1)", "SetValue(99, 1): Error:"},
        {u"P.script(\"none\")", "Script(none): ERROR: could not find script with ID 'none' for group with ID '1'!"},
        {u"G(99)", "parameters(99): ERROR: "},
        {u"CH(99)", "groups(99): ERROR: "},
        {u"ENV.sel(\"x\", 1, 2)", "sel(x): ERROR: aktuellen Wert () nicht in Argumentenliste gefunden!"},
        {u"ENV.Out(7, \"seen\")", "7, seen\n"},
        {u"CONFCH(\"none\")", "value(none): ERROR: Feld mit diesem Namen nicht gefunden"},
        {u"CONFCH.gvalue(99, \"name\")", "gvalue(99, name): ERROR: Feld mit diesem Namen nicht gefunden"},
        {u"CONFG.pvalue(99, \"unit\")", "pvalue(99, unit): ERROR: Feld mit diesem Namen nicht gefunden"},
        {u"CONFG.isIn(\"block3\", 1)", "isIn(block3): ERROR when calling 'mGroup.desc(block3).value':\nInvalid use"},
        {u"CONFM.isIn(\"none\", 1)", "isIn(none): ERROR: Feld mit diesem Namen nicht gefunden"},
        {u"CONFM.sel(\"IDX\", 2, \"a\")", "sel(IDX): ERROR: aktuellen Wert (1) nicht in Argumentenliste gefunden!"},
    };
    for (const auto& c : cases) {
        EXPECT_THAT(Logged([&] { Eval(c.script); }), HasSubstr(c.line)) << Text(c.script).ToUtf8();
    }
    EXPECT_FALSE(Group()->scriptAccess());
}

TEST_F(ScriptObjects, MarkWhatTheyRead) {
    Parameter(u"1");
    EXPECT_FALSE(IsMarked(u"1") || IsMarked(u"2") || Group()->scriptAccess());
    Eval(u"P.SetValue(\"2\", 3) & P(\"99\") & CONFG.pvalue(\"1\", \"kind\")");
    EXPECT_FALSE(IsMarked(u"1") || IsMarked(u"2"));
    EXPECT_EQ(Parameter(u"2")->Spec()->get_value().AsLong(), 3);
    for (const char16_t* script : {u"P(\"1\")", u"P.sVal(\"1\")", u"P.hVal(\"1\",2)", u"P.Gui(\"1\")",
                                   u"P.sel(\"1\", 1, 2)", u"P.isIn(\"1\", 2)"}) {
        facet<IBase_Internal>(Parameter(u"1"))->let_scriptAccess(false);
        Eval(script);
        EXPECT_TRUE(IsMarked(u"1")) << Text(script).ToUtf8();
    }
    EXPECT_FALSE(Group()->scriptAccess() || Channel()->scriptAccess());
    Eval(u"G(\"2\")(\"1\")");
    EXPECT_TRUE(Group(u"2")->scriptAccess());
    EXPECT_FALSE(Channel(u"2")->scriptAccess());
    Eval(u"CH(\"2\")");
    EXPECT_TRUE(Channel(u"2")->scriptAccess());
}

TEST_F(ScriptObjects, GroupScriptsRunOncePerPass) {
    GlobalDiagnostics().debugCountEval = 0;
    EXPECT_EQ(Eval(u"P.script(\"own\") + P.script(\"OWN\")"), "4");
    EXPECT_EQ(GlobalDiagnostics().debugCountEval, 2);
    Parameter(u"1")->let_value(u"5");
    EXPECT_EQ(Eval(u"P.script(\"own\")"), "6") << "a pass drops the results";
    EXPECT_EQ(Eval(u"P.script(\"lost\")"), "Empty") << "reading ended at the second row of one id";
    Load(Row(1, 1) + "DROP TABLE GroupScripts;");
    const std::string lines = Logged([&] { Eval(u"P.script(1) & P.script(1)"); });
    EXPECT_EQ(lines.find("LoadScripts(): ERROR at OpenRecordset()"), lines.rfind("LoadScripts(): ERROR"));
}

TEST_F(ScriptObjects, EnginesAreApart) {
    facet<CBase_Group>(Group())->ExecuteScript(u"x = 5");
    EXPECT_EQ(Eval(u"x"), "5");
    EXPECT_TRUE(Group(u"2")->EvaluateScript(u"x").IsEmpty());
    EXPECT_EQ(Logged([&] {
                  facet<CBase_Group>(Group())->ExecuteScript(u"y = 1 ^^");
              }).find("ExecuteScript(y = 1 ^^): ERROR: "),
              0u);
    EXPECT_EQ(Eval(u"y"), "Empty");
    EXPECT_EQ(Eval(u"x"), "5");
}

}  // namespace
}  // namespace ov
