#include <gtest/gtest.h>

#include "contract/records.h"
#include "descriptor/row_collection.h"
#include "parameters/parameter_int.h"
#include "parameters/parameter_testing.h"
#include "platform/automation/record.h"
#include "platform/automation/variant_testing.h"
#include "support/test_database.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::FakeGroup;
using ::ov::testing::FakeModule;
using ::ov::testing::Fields;
using ::ov::testing::MakeRow;

class ParameterConfigTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) { Take(MakeObject<ParameterInt>(), cells); }
};

TEST_F(ParameterConfigTest, ShowsAllFacesOfOneObject) {
    Make();
    const Ref<IUnknown> faces[] = {facet<CBase_ParameterInt>(gui), gui->Spec(), storage, internal};
    for (const Ref<IUnknown>& face : faces) {
        EXPECT_TRUE(face && SameObject(face.get(), gui.get()));
    }
    EXPECT_TRUE(SameObject(gui->Spec().get(), spec->Gui().get()));
    EXPECT_EQ(CallByName(gui.get(), u"VALUE", CallKind::Get).AsText(), u"0") << "a text on the one face";
    EXPECT_EQ(Describe(CallByName(spec.get(), u"value", CallKind::Get)), "Long 0") << "a number on the other";
    EXPECT_FALSE(spec->Clone());
    EXPECT_EQ(gui->editType(), eEditType::standard);
    EXPECT_FALSE(gui->editValues());
}

TEST_F(ParameterConfigTest, RefusesWhatIsNoRowOrNoGroup) {
    const auto parameter = MakeObject<ParameterInt>();
    const Variant row(MakeRow());
    EXPECT_FALSE(parameter->Config(nullptr, row));
    EXPECT_FALSE(parameter->Config(MakeObject<FakeModule>()->Dispatch(), row));
    for (const Variant& desc : {Variant(), Variant(5), Variant::Nothing(),
                                Variant(MakeObject<FakeModule>()->Dispatch()), BoxRecord(tBaseDescriptorDB{})}) {
        EXPECT_FALSE(parameter->Config(group->Dispatch(), desc));
    }
    EXPECT_EQ(ErrorOf([&] { parameter->editable(); }), 91) << "and there is no row yet";
    EXPECT_TRUE(parameter->Config(group->Dispatch(), row));
}

TEST_F(ParameterConfigTest, TakesARowOfTheDatabaseOnce) {
    const ::ov::testing::TestDatabase file(
        "CREATE TABLE Parameters (idx LONG, ParameterId TEXT, kind LONG, DefaultValue TEXT);"
        "INSERT INTO Parameters VALUES (4, 'x', 11, '5'), (6, 'x', 1, '8')");
    const Ref<Database> db = file.Open();
    const Ref<Recordset> rs = db->OpenRecordset(u"SELECT * FROM Parameters ORDER BY idx");
    Make();
    const auto parameter = MakeObject<ParameterInt>();
    const Variant desc = BoxRecord(tBaseDescriptorDB{db, rs});
    EXPECT_TRUE(parameter->Config(group->Dispatch(), desc)) << "columns that the table lacks read as Null";
    EXPECT_EQ(parameter->DBindex(), 4);
    EXPECT_EQ(Describe(parameter->id()), "String x");
    EXPECT_EQ(parameter->kind(), eParameterKind::eParamKindDeviceIdent);
    EXPECT_TRUE(parameter->unknown() && parameter->consistent({}) && parameter->valid());
    EXPECT_EQ(Told([&] { EXPECT_FALSE(parameter->Config(group->Dispatch(), desc)); }), "") << "the row already held";
    rs->MoveNext();
    EXPECT_EQ(Told([&] { EXPECT_TRUE(parameter->Config(group->Dispatch(), desc)); }), "group:Reconfigured");
    EXPECT_EQ(parameter->DBindex(), 6);
    EXPECT_EQ(Describe(parameter->Spec()->get_value()), "Long 8");
    EXPECT_EQ(parameter->kind(), eParameterKind::eParamKindDeviceIdent) << "identity is the first row's";
    EXPECT_EQ(parameter->dependencies()->get_idx(), 4);
    EXPECT_EQ(Told([&] { EXPECT_TRUE(parameter->Config(group->Dispatch(), Variant(RowToCollection(*rs)))); }),
              "group:Reconfigured")
        << "a row by itself is always taken";
    const auto other = MakeObject<FakeGroup>(events);
    EXPECT_TRUE(parameter->Config(other->Dispatch(), desc)) << "and so is the same row in another group";
}

TEST_F(ParameterConfigTest, AWrittenValueOutlivesRows) {
    Make({{u"DefaultValue", u"3"}, {u"dependency", u"rule"}, {u"removeOnDependency", true}});
    EXPECT_EQ(internal->dependencies()->get_dep(), u"rule");
    EXPECT_EQ(internal->dependencies()->get_removeOnDep(), u"True");
    EXPECT_EQ(Shown(), "3");
    EXPECT_EQ(Told([&] { Configure({{u"DefaultValue", u"4"}}); }), "A:Reconfigured group:Reconfigured");
    EXPECT_EQ(Shown(), "4") << "never written: the new row's default";
    EXPECT_FALSE(gui->modified());
    gui->let_value(u"9");
    Configure({{u"DefaultValue", u"5"}});
    EXPECT_EQ(Shown(), "9");
    EXPECT_TRUE(gui->modified());
    EXPECT_EQ(Told([&] { gui->ResetValue(); }), "A:Value group:Value");
    EXPECT_EQ(Shown(), "5");
    EXPECT_TRUE(gui->modified()) << "compares with the default of the row before";
    Configure({{u"DefaultValue", u"6"}});
    EXPECT_EQ(Shown(), "6") << "after a reset it counts as never written";
}

TEST_F(ParameterConfigTest, DefaultsComeFromRuleThenLimits) {
    group->scripts["2+2"] = [] { return Variant(4.0); };
    group->scripts["null"] = [] { return Variant::Null(); };
    group->scripts["word"] = [] { return Variant(u"word"); };
    // DefaultValue, Min and Max in short form.
    ExpectEach(
        "$5|$1|$9 -> 5; $2.5|$1|$9 -> 2; $#:2+2|$1|$9 -> 4; $#:gone|$1|$9 -> 0; $#:null|$1|$9 -> 1; N|$1|$9 -> 1; "
        "N|N|$9 -> 9; N|$#:2+2|$9 -> 9; N|$3000000000|L8 -> 8; N|$|N -> 0; $#:word|$1|$9 -> 1 (word); "
        "$3e9|$|$9 -> 9 (3e9)",
        [this](const Text& line) {
            const auto [fallback, min, max] = Fields(line);
            const auto cell = [](const Text& form) { return Value(form.ToUtf8()); };
            std::string logged = Logged([&] {
                Make({{u"DefaultValue", cell(fallback)}, {u"Min", cell(min)}, {u"Max", cell(max)}});
            });
            const std::string before = "(ParamId 7) SetMyValueToDefault(): DefaultValue ";
            const std::string behind = " has wrong format!\n";
            if (logged.starts_with(before) && logged.ends_with(behind)) {
                logged = " " + logged.substr(before.size(), logged.size() - before.size() - behind.size());
            }
            return Shown() + logged;
        });
    group->module->generation = 0;
    group->scripts["1+1"] = [] { return Variant(u"2"); };
    Make({{u"DefaultValue", u"1+1"}});
    EXPECT_EQ(Shown(), "2") << "without prefixes what is no number is a rule";
}

TEST_F(ParameterConfigTest, UnitFollowsRuleAndLanguage) {
    group->module->texts = {{3, u"#:u"}, {4, u"!:u"}, {5, u"bar"}};
    group->scripts["u"] = [] { return Variant(u"mA"); };
    Make({{u"unit", 3}});
    EXPECT_EQ(gui->unit(), u"mA");
    EXPECT_EQ(gui->unit(), u"mA");
    EXPECT_EQ(group->evaluated.size(), 1u) << "a static rule runs once";
    group->module->texts[3] = u"#:t";
    group->module->language = 9;
    group->scripts["t"] = [] { return Variant(u"mille"); };
    EXPECT_EQ(gui->unit(), u"mille");
    Configure({{u"unit", 4}});
    gui->unit();
    EXPECT_EQ(gui->unit(), u"mA");
    EXPECT_EQ(group->evaluated.size(), 4u) << "a live rule runs at each read";
    Configure({{u"unit", 5}});
    EXPECT_EQ(gui->unit(), u"bar");
    Configure();
    EXPECT_EQ(gui->unit(), u"bar") << "a row without unit leaves the last one";
}

TEST_F(ParameterConfigTest, AnswersFromItsRow) {
    Make({{u"name", 1},
          {u"description", 2},
          {u"html", 3},
          {u"EditPlugin", u"Curve"},
          {u"editPluginArguments", u"#:a,b"},
          {u"expertOnly", u"True"},
          {u"trendvariable", 1},
          {u"direction", 4}});
    Text arguments;
    EXPECT_EQ(gui->EditPlugin(&arguments), u"Curve");
    EXPECT_EQ(arguments, u"a,b");
    group->module->generation = 0;
    EXPECT_EQ(gui->EditPlugin(), u"Curve");
    gui->EditPlugin(&arguments);
    EXPECT_EQ(arguments, u"#:a,b") << "marks are of the newer generation";
    EXPECT_EQ(gui->name() + u", " + gui->description() + u", " + gui->html(), u"text 1, text 2, file 3");
    EXPECT_TRUE(gui->expertOnly() && gui->trendVariable() && gui->editable());
    EXPECT_EQ(spec->direction(), eParameterDirection::eParameterDirectionWrite);
    Make({{u"editable", Variant::Null()}});
    EXPECT_EQ(spec->direction(), eParameterDirection::eParameterDirectionReadWrite);
    EXPECT_EQ(gui->name() + gui->html() + gui->EditPlugin(&arguments), u"");
    EXPECT_EQ(arguments, u"");
    EXPECT_EQ(ErrorOf([&] { gui->trendVariable(); }), 13) << "a Null is no Boolean";
    EXPECT_EQ(ErrorOf([&] { gui->editable(); }), 94);
    EXPECT_EQ(ErrorOf([&] { gui->authentification(); }), 94);
    Make({{u"authentification", 2}});
    EXPECT_EQ(gui->authentification(), eParameterAuthentification::eParameterAuthReadWrite);
    group->module->asksForLogin = false;
    EXPECT_EQ(gui->authentification(), eParameterAuthentification::eParameterAuthNone);
}

TEST_F(ParameterConfigTest, DescGivesCellsAndRules) {
    Make({{u"EditPlugin", u"#:x"}});
    group->scripts["x"] = [] { return Variant(5); };
    EXPECT_EQ(Describe(spec->desc(u"editplugin")), "String #:x");
    EXPECT_EQ(Describe(spec->desc(u"EditPlugin", true)), "Long 5");
    EXPECT_EQ(Describe(spec->desc(u"EditPlugin")), "Long 5") << "a static rule leaves its result in the row";
    EXPECT_THAT(
        Logged([&] { EXPECT_TRUE(spec->desc(u"nope").IsEmpty()); }),
        ::testing::MatchesRegex("Parameter '7 '\\.IBase_SpecParameter_desc\\(nope,False\\): ERROR getting value "
                                "\\(\\) from Collection: Invalid procedure call or argument, ObjPtr=[0-9]+, "
                                "ObjPtr\\(Me\\)=[0-9]+\n"));
}

TEST_F(ParameterConfigTest, MarksTellOnlyWhenTheyChange) {
    Make();
    const auto flip = [this](void (IBase_GuiParameter::*action)()) { return Told([&] { (gui.get()->*action)(); }); };
    EXPECT_EQ(flip(&IBase_GuiParameter::SetUnknown), "") << "unknown from the start";
    EXPECT_EQ(flip(&IBase_GuiParameter::ClearUnknown), "A:State group:State");
    EXPECT_EQ(flip(&IBase_GuiParameter::ClearUnknown), "");
    EXPECT_EQ(flip(&IBase_GuiParameter::SetUnknown), "A:State group:State");
    EXPECT_EQ(flip(&IBase_GuiParameter::LockDataset), "A:Reconfigured group:Reconfigured");
    EXPECT_EQ(flip(&IBase_GuiParameter::LockDataset), "");
    EXPECT_FALSE(gui->editable());
    EXPECT_EQ(flip(&IBase_GuiParameter::UnlockDataset), "A:Reconfigured group:Reconfigured");
    EXPECT_EQ(flip(&IBase_GuiParameter::ClearModified), "");
    gui->let_value(u"5");
    EXPECT_EQ(flip(&IBase_GuiParameter::ClearModified), "A:State group:State");
    EXPECT_FALSE(gui->modified());
    Configure({{u"editable", false}});
    EXPECT_EQ(flip(&IBase_GuiParameter::LockDataset), "") << "was not editable anyhow";
    const auto configure = [this](eParameterConfigState state) {
        return Told([&] { internal->let_configState(state); });
    };
    EXPECT_EQ(configure(eParameterConfigState::eParameterValid), "");
    EXPECT_EQ(configure(eParameterConfigState::eParameterDisabled), "A:ConfigState group:ConfigState");
    EXPECT_FALSE(spec->valid());
    EXPECT_EQ(gui->configState(), eParameterConfigState::eParameterDisabled);
    internal->let_scriptAccess(true);
    EXPECT_TRUE(internal->get_scriptAccess() && spec->scriptAccess());
    spec->let_tag(u"mine");
    EXPECT_EQ(Describe(spec->get_tag()), "String mine");
}

TEST_F(ParameterConfigTest, AnUnloadedParameterIsHarmless) {
    Make({{u"name", 1}, {u"consistency", u"#:rule"}, {u"actionOnChange", u"act"}, {u"realGain", u"2"}});
    group->scripts["rule"] = [] { return Variant(true); };
    internal->CheckConsistency();
    gui->let_value(u"5");
    spec->let_tag(1);
    internal->Unload();
    events.clear();
    EXPECT_EQ(gui->name() + gui->html() + gui->description() + gui->unit(), u"");
    EXPECT_TRUE(spec->get_tag().IsEmpty() && spec->desc(u"name").IsEmpty());
    EXPECT_FALSE(gui->group());
    EXPECT_FALSE(spec->group());
    EXPECT_EQ(internal->dependencies()->get_desc()->Count(), 0) << "the row is emptied for all its holders";
    EXPECT_EQ(Shown(), "5");
    EXPECT_TRUE(gui->consistent(u"6"));
    spec->let_value(7);
    EXPECT_EQ(Describe(spec->get_value()), "Long 7");
    const std::function<void()> failing[] = {
        [&] { gui->editable(); },           [&] { gui->let_value(u"8"); },
        [&] { gui->ResetValue(); },         [&] { gui->LockDataset(); },
        [&] { spec->desc(u"name", true); }, [&] { internal->CheckConsistency(); },
        [&] { gui->EditPlugin(); },         [&] { internal->CheckNeedForReConfig(); }};
    for (const auto& action : failing) {
        EXPECT_EQ(ErrorOf(action), 91);
    }
    EXPECT_EQ(events, ::ov::testing::Events{}) << "nobody listens any more";
    internal->Unload();
    EXPECT_TRUE(Configure({{u"DefaultValue", u"1"}})) << "and it can take a row again";
    EXPECT_EQ(gui->name(), u"");
}

}  // namespace
}  // namespace ov
