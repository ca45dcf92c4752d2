// Loading a type: what stands after it, what a failure leaves, and how a module ends.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "module/module.h"
#include "module/unload_pointer.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "support/small_descriptor.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::kSmallDescriptor;
using testing::TestDatabase;

class ModuleLoad : public ::testing::Test {
protected:
    Ref<Module> On(const TestDatabase& database) {
        Ref<Module> module = MakeObject<Module>();
        module->SetSourcePath(database.Path());
        return module;
    }
    // The texts of the lines that `action` logs, without their source, joined by "|".
    template <class Action>
    std::string Logged(Action action) {
        const Diagnostics former = std::exchange(GlobalDiagnostics(), {.debugToOutput = true, .initialised = true});
        ::testing::internal::CaptureStderr();
        action();
        std::istringstream lines(::testing::internal::GetCapturedStderr());
        GlobalDiagnostics() = former;
        std::string joined;
        for (std::string line; std::getline(lines, line);) {
            joined += (joined.empty() ? "" : "|") + line.substr(line.find(": ") + 2);
        }
        return joined;
    }
    Ref<Module> Loaded(const TestDatabase& database, const Text& type = u"A") {
        Ref<Module> module = On(database);
        EXPECT_TRUE(module->Load(type, Text(u"id-1"), {}));
        return module;
    }
};

TEST_F(ModuleLoad, FillsTheDeviceTypeRecord) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    const tBaseFdtDeviceTypeInfo info = module->fdtDeviceTypeInformation();
    EXPECT_EQ(info.manufacturerId, 77);
    EXPECT_EQ(info.deviceTypeId, 10);
    EXPECT_EQ(info.subDeviceType, u"x");
    EXPECT_EQ(info.classificationId, eFdtClassificationId::fdt_temperature);
    EXPECT_EQ(info.deviceTypeInformation, u"plain");
    EXPECT_EQ(info.version.version, u"3.4");
    EXPECT_EQ(info.version.name, u"n");
    EXPECT_EQ(info.supportedLanguages, (std::vector<Text>{u"&H0407", u"&H0809"}));
    ASSERT_EQ(info.busCategories.size(), 2u);  // the row without a category is passed over
    EXPECT_EQ(info.busCategories[0].busCategoryName, u"Bus one");
    EXPECT_EQ(info.busCategories[0].CommunicationTypeEntry, u"required");
    EXPECT_EQ(info.busCategories[1].busCategoryName, u"{BBBB}");
    EXPECT_EQ(ToText(module->id()), u"id-1");
    EXPECT_TRUE(module->authentification());
    EXPECT_TRUE(module->image().view().ends_with(u"/a.png"));
    EXPECT_TRUE(module->deviceHelpFile().view().ends_with(u"/hilfe.htm"));
    EXPECT_EQ(ToText(facet<ICollection>(module->desc())->Item(u"MODULETYPE")), u"A");
}

TEST_F(ModuleLoad, TakesDefaultsForNulls) {
    const TestDatabase database(kSmallDescriptor);
    const tBaseFdtDeviceTypeInfo info = Loaded(database, u"B")->fdtDeviceTypeInformation();
    EXPECT_EQ(info.manufacturerId, 0);
    EXPECT_EQ(info.classificationId, eFdtClassificationId::fdt_dtmSpecific);
    EXPECT_EQ(info.version.name, u"Orvane Dtm '11'/'x'");
    EXPECT_EQ(info.deviceTypeInformation, u"");
}

TEST_F(ModuleLoad, ReadsClassificationsByTheirLeadingNumber) {
    for (const auto& [stored, expected] : {std::pair{"'3x'", 3}, {"'x'", 17}, {"''", 17}, {"' 5'", 5}, {"'0'", 0}}) {
        const TestDatabase database(kSmallDescriptor + "UPDATE ModuleTypes SET FDTclassificationId = " + stored);
        EXPECT_EQ(static_cast<int>(Loaded(database)->fdtDeviceTypeInformation().classificationId), expected) << stored;
    }
}

TEST_F(ModuleLoad, ReadsTypeInformationFromAFileBesideTheDatabase) {
    const TestDatabase database(kSmallDescriptor +
                                "UPDATE ModuleTypes SET fdtDeviceTypeInformation = 'file:\\\\.\\info-of-test.xml'");
    EXPECT_EQ(Loaded(database)->fdtDeviceTypeInformation().deviceTypeInformation, u"");  // missing: no failure
    std::ofstream(database.folder() / "info-of-test.xml", std::ios::binary) << "<a>\xE4</a>\r\n";
    EXPECT_EQ(Loaded(database)->fdtDeviceTypeInformation().deviceTypeInformation, u"<a>ä</a>\r\n");
}

TEST_F(ModuleLoad, FailsWithoutRaising) {
    struct Case {
        const char* what;
        const char* sql;
        const char16_t* type;
    };
    const Case cases[] = {
        {"unknown type", "", u"C"},
        {"another case", "", u"a"},
        {"disabled type", "", u"Off"},
        {"no version row", "DELETE FROM Versions", u"A"},
        {"no languages", "DELETE FROM SupportedLanguages", u"A"},
        {"no good language", "UPDATE SupportedLanguages SET LangId = 'q' || LangId", u"A"},
        {"missing table", "DROP TABLE BusCategories", u"A"},
        {"missing type table", "DROP TABLE ModuleTypes", u"A"},
        {"missing column", "ALTER TABLE ModuleTypes DROP COLUMN mainValue", u"A"},
        {"text for a number", "UPDATE ModuleTypes SET FDTdeviceTypeId = 'many'", u"A"},
        {"too many categories",
         "WITH RECURSIVE n(i) AS (VALUES(1) UNION ALL SELECT i + 1 FROM n WHERE i < 20) "
         "INSERT INTO BusCategories SELECT 1, 1, NULL FROM n",
         u"A"},
    };
    for (const Case& c : cases) {
        const TestDatabase database(kSmallDescriptor + c.sql);
        EXPECT_FALSE(On(database)->Load(c.type, {}, {})) << c.what;
    }
    EXPECT_FALSE(MakeObject<Module>()->Load(u"A", {}, {}));
    const Ref<Module> missing = MakeObject<Module>();
    missing->SetSourcePath(u"/no/such/file.db");
    EXPECT_FALSE(missing->Load(u"A", {}, {}));
}

TEST_F(ModuleLoad, LogsWhyItFailed) {
    const std::string type = "Load(): ERROR when loading type: ", half = "LoadChannels(): Error: ";
    const std::pair<const char*, std::string> cases[] = {
        {"UPDATE ModuleTypes SET enable = 0", type},
        {"DROP TABLE ModuleTypes",
         "Load(): ERROR: Could not open Recordset 'ModuleTypes': The database engine cannot find the input table or "
         "query 'ModuleTypes'."},
        {"UPDATE ModuleTypes SET defaultName = 'x'", type + "Type mismatch"},
        {"DELETE FROM Versions", half + "No current record.|" + type + "No current record."},
    };
    for (const auto& [sql, expected] : cases) {
        const TestDatabase database(kSmallDescriptor + sql);
        const Ref<Module> module = On(database);
        EXPECT_EQ(Logged([&] { module->Load(u"A", {}, {}); }), expected) << sql;
    }
}

TEST_F(ModuleLoad, LanguagesAreHexadecimalNumbersThatFitALong) {
    const TestDatabase database(kSmallDescriptor +
                                "INSERT INTO SupportedLanguages VALUES ('FFFFFFFF'), ('FFFFFFFFF'), ('zz'), ('')");
    const Ref<Module> module = Loaded(database);
    EXPECT_EQ(module->fdtDeviceTypeInformation().supportedLanguages,
              (std::vector<Text>{u"&H0407", u"&H0809", u"&HFFFFFFFF"}));
    EXPECT_FALSE(module->SetLanguage(5));
}

TEST_F(ModuleLoad, KeepsTheFormerTypeWhereTheDatabaseIsGoneAndDropsItWhereTheTypeIsUnknown) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    EXPECT_FALSE(module->Load(u"C", {}, {}));
    EXPECT_EQ(ToText(module->GetModuleType({}, nullptr)), u"");
    EXPECT_EQ(ToText(module->desc() ? facet<ICollection>(module->desc())->Item(u"moduletype") : Variant()), u"A");
    EXPECT_TRUE(module->Load(u"B", {}, {}));
    EXPECT_EQ(ToText(module->GetModuleType({}, nullptr)), u"B");
}

TEST_F(ModuleLoad, OldDatabasesOfferAllTypes) {
    const TestDatabase database(kSmallDescriptor + "ALTER TABLE ModuleTypes DROP COLUMN enable");
    const Ref<Module> module = On(database);
    EXPECT_EQ(module->Types()->Count(), 3);
    EXPECT_TRUE(module->Load(u"Off", {}, {}));
}

TEST_F(ModuleLoad, NamesFollowTheLanguageUnlessTheHostGaveOne) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    EXPECT_EQ(module->name(), u"Gerät");
    EXPECT_TRUE(module->SetLanguage(0x0409));  // the primary language counts, so 0809 supports it
    EXPECT_EQ(module->GetLanguage(), 9);
    EXPECT_EQ(module->name(), u"Device");
    EXPECT_EQ(module->description(), u"Beschreibung");  // a gap falls back
    EXPECT_FALSE(module->SetLanguage(12));
    EXPECT_EQ(module->GetLanguage(), 9);
    EXPECT_TRUE(module->Load(u"A", {}, Text(u"TI 4711")));
    EXPECT_EQ(module->name(), u"TI 4711");
    EXPECT_EQ(module->GetLanguage(), 9);
}

TEST_F(ModuleLoad, LanguagesThatTheTypeLacksFallBackAtLoad) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = On(database);
    EXPECT_TRUE(module->SetLanguage(0x040C));
    EXPECT_EQ(module->GetLanguage(), 12);
    EXPECT_TRUE(module->Load(u"A", {}, {}));
    EXPECT_EQ(module->GetLanguage(), 7);
}

TEST_F(ModuleLoad, TellsTheVersionOfTheDatabase) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = On(database);
    EXPECT_THAT(ToText(module->GetDBVersion()).ToUtf8(), ::testing::MatchesRegex("1\\.2 \\(MS JET: 3\\..*\\)"));
    EXPECT_EQ(module->GetModelVersionIndex(), 1);
    EXPECT_EQ(ToText(MakeObject<Module>()->GetDBVersion()), u"-");

    const TestDatabase bare(kSmallDescriptor + "DELETE FROM DatabaseProperties");
    EXPECT_TRUE(ToText(On(bare)->GetDBVersion()).view().starts_with(u"- (MS JET: "));
    EXPECT_EQ(On(bare)->GetModelVersionIndex(), 0);
    const TestDatabase bad(kSmallDescriptor + "UPDATE DatabaseProperties SET Value = 'new' WHERE Name LIKE 'Model%'");
    EXPECT_EQ(On(bad)->GetModelVersionIndex(), 0);

    const Ref<Module> missing = MakeObject<Module>();
    missing->SetSourcePath(u"/no/such/file.db");
    EXPECT_EQ(ToText(missing->GetDBVersion()), u"-");
    missing->SetSourcePath(database.Path());  // another path asks anew
    EXPECT_EQ(missing->GetModelVersionIndex(), 1);
}

TEST_F(ModuleLoad, AnotherPathDropsTheType) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    module->SetSourcePath(database.Path());
    EXPECT_EQ(ToText(module->GetModuleType({}, nullptr)), u"A");
    EXPECT_NE(module->GetDBPath(), u"");
    module->SetSourcePath(u"elsewhere.db");
    EXPECT_EQ(ToText(module->GetModuleType({}, nullptr)), u"");
    EXPECT_EQ(module->GetDBPath(), u"");
    EXPECT_FALSE(module->get_mDB());
}

TEST_F(ModuleLoad, ModulesOfOnePathShareTheDatabase) {
    const TestDatabase database(kSmallDescriptor);
    EXPECT_EQ(Loaded(database)->get_mDB(), Loaded(database, u"B")->get_mDB());
}

TEST_F(ModuleLoad, UnloadCanBeRepeatedAndFollowedByALoad) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    const Ref<ICollection> row = facet<ICollection>(module->desc());
    module->Unload();
    module->Unload();
    EXPECT_EQ(row->Count(), 0);
    EXPECT_EQ(ToText(module->id()), u"");
    EXPECT_EQ(module->GetSourcePath(), database.Path());
    EXPECT_TRUE(module->Load(u"A", {}, {}));
}

// Counts the calls that it gets; `failing` makes each of them an error.
class Listener final : public Object<Listener, Facet<IBase_CallbackModule>, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "Listener";
    void OnLanguageChanged(IBase_GuiModule*) override { Note(u"language"); }
    void OnUnload(IBase_GuiModule*) override { Note(u"unload"); }
    void OnEnvironmentChanged(IBase_GuiModule*, const Text& key, const Variant& value) override {
        Note(key + u"=" + ToText(value));
    }
    void OnParameterReconfigured(IBase_GuiParameter*) override { Note(u"reconfigured"); }
    void OnParameterStateChanged(IBase_GuiParameter*) override { Note(u"state"); }
    void OnParameterValueChanged(IBase_GuiParameter*) override { Note(u"value"); }
    void OnParameterConfigStateChanged(IBase_GuiParameter*) override { Note(u"config"); }

    std::vector<Text> heard;
    bool failing = false;

private:
    void Note(const Text& what) {
        heard.push_back(what);
        if (failing) Raise(ErrorNumber::InternalError);
    }
};

TEST_F(ModuleLoad, TellsListenersInOrderAndSurvivesFailingOnes) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    const Ref<Listener> first = MakeObject<Listener>();
    const Ref<Listener> second = MakeObject<Listener>();
    module->RegisterCallback(first->Dispatch());
    module->RegisterModuleCallbackOnly(second->Dispatch());
    module->RegisterCallback(module->Environment().get());  // no listener: nothing happens
    EXPECT_TRUE(module->SetLanguage(9));
    module->Environment()->let_Variable(u"k", Variant(5));
    first->failing = true;
    module->Environment()->let_Variable(u"k", Variant(6));  // the next listener gets its call
    EXPECT_TRUE(module->SetLanguage(7));                    // here it does not, and the language changes all the same
    EXPECT_EQ(module->GetLanguage(), 7);
    EXPECT_THROW(module->OnParameterValueChanged(nullptr), RuntimeError);
    module->Unload();
    EXPECT_EQ(first->heard, (std::vector<Text>{u"language", u"k=5", u"k=6", u"language", u"value", u"unload"}));
    EXPECT_EQ(second->heard, (std::vector<Text>{u"language", u"k=5", u"k=6", u"unload"}));
    module->Environment()->let_Variable(u"k", Variant(7));
    EXPECT_EQ(second->heard.size(), 4u);
}

TEST_F(ModuleLoad, FailingListenersOfValuesWithoutTextAreNoErrorEither) {
    const Ref<Module> module = MakeObject<Module>();
    const Ref<Listener> listener = MakeObject<Listener>();
    module->RegisterCallback(listener->Dispatch());
    EXPECT_EQ(Logged([&] { module->Environment()->let_Variable(u"k", Variant(Array::OfBytes({1}))); }),
              "mEnvironment_Changed(): Error when calling OnEnvironmentChanged(k, ): Type mismatch");
}

TEST_F(ModuleLoad, UnregisteringTakesEveryEntryOff) {
    const Ref<Module> module = MakeObject<Module>();
    const Ref<Listener> listener = MakeObject<Listener>();
    module->RegisterCallback(listener->Dispatch());
    module->RegisterCallback(listener->Dispatch());
    module->Environment()->let_Variable(u"k", Variant(1));
    EXPECT_EQ(listener->heard.size(), 2u);
    module->UnregisterCallback(listener->Dispatch());
    module->Environment()->let_Variable(u"k", Variant(2));
    EXPECT_EQ(listener->heard.size(), 2u);
}

TEST_F(ModuleLoad, UnloadPointerUnloadsWhoeverStillHoldsTheModule) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    const Ref<IBase_GuiModule> gui = module->Gui();
    Ref<CBase_Unload> pointer = module->GetUnloadPointer();
    EXPECT_TRUE(SameObject(pointer->get_o().get(), gui.get()));
    pointer = nullptr;
    EXPECT_FALSE(module->get_mDB());
    EXPECT_EQ(gui->name(), u"");
}

TEST_F(ModuleLoad, ClonesCarryTypeNameLanguageAndEnvironment) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    module->SetLanguage(9);
    module->Environment()->let_Variable(u"user", Variant(u"me"));
    const Ref<IBase_SpecModule> clone = module->Clone();
    EXPECT_EQ(ToText(clone->id()), u"id-1");
    EXPECT_EQ(clone->Gui()->name(), u"Device");
    EXPECT_EQ(ToText(clone->Environment()->get_Variable(u"USER")), u"me");
    EXPECT_TRUE(module->CloneType()->Environment()->get_Variable(u"user").IsEmpty());
    EXPECT_TRUE(module->Compare(clone.get(), {}));
    EXPECT_FALSE(module->Compare(nullptr, {}));
}

TEST_F(ModuleLoad, KindsAreNamedByTheDatabase) {
    const TestDatabase database(kSmallDescriptor);
    const Ref<Module> module = Loaded(database);
    EXPECT_EQ(module->ParameterKindToString(eParameterKind::eParamKindDeviceParam), u"Device");
    EXPECT_EQ(module->ParameterKindToString(eParameterKind::eParamKindInternal), u"");
    EXPECT_EQ(module->ParameterKindToString(eParamKindAllKinds), u"");
}

TEST_F(ModuleLoad, LeavesNoLivingObject) {
    const TestDatabase database(kSmallDescriptor);
    { const Ref<Module> warm = Loaded(database); }  // the open database and its recordsets stay
    const std::size_t before = LivingObjects::Count();
    {
        const Ref<Module> module = Loaded(database);
        module->Gui()->channels();
        module->RegisterCallback(MakeObject<Listener>()->Dispatch());
        const Ref<CBase_Unload> pointer = module->GetUnloadPointer();
        module->Clone();
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

}  // namespace
}  // namespace ov
