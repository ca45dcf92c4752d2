// The station: what it answers over several modules, and that nothing comes back from them.
#include "module/station.h"

#include "contract/library.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::ElementsAre;
using testing::Events;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;

// Hears everything that a station might tell.
class StationWitness final
    : public Object<StationWitness, Facet<IBase_CallbackStation>, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "StationWitness";

    void OnAddModule(IBase_GuiModule*) override { events.push_back("Add"); }
    void OnRemoveModule(IBase_GuiModule*) override { events.push_back("Remove"); }
    void OnParameterReconfigured(IBase_GuiParameter*) override { events.push_back("Reconfigured"); }
    void OnParameterStateChanged(IBase_GuiParameter*) override { events.push_back("State"); }
    void OnParameterValueChanged(IBase_GuiParameter*) override { events.push_back("Value"); }
    void OnParameterConfigStateChanged(IBase_GuiParameter*) override { events.push_back("ConfigState"); }

    Events events;
};

class StationTest : public TreeTest {
protected:
    ~StationTest() override {
        for (const Ref<Module>& loaded : mModules) {
            loaded->Unload();
        }
    }

    // One more module of the type, on the database of the first.
    Ref<Module> LoadModule(const Text& id) {
        const Ref<Module> loaded = MakeObject<Module>();
        loaded->SetSourcePath(mDatabase->Path());
        EXPECT_TRUE(loaded->Load(u"A", id, {}));
        mModules.push_back(loaded);
        return loaded;
    }
    static Ref<IBase_GuiParameter> First(Module& module) {
        return module.Spec()->channels()->get_Item(u"1")->groups()->get_Item(u"1")->parameters()->get_first()->Gui();
    }

    std::vector<Ref<Module>> mModules;
};

TEST_F(StationTest, HoldsModulesByTheirIds) {
    Load(Row(1, 1));
    const auto station = CreateObject<CBase_Station>(u"CBase_Station");
    const auto gui = facet<IBase_GuiStation>(station);
    const auto spec = facet<IBase_SpecStation>(station);
    station->let_name(u"Tank farm");
    station->let_id(Variant(7));
    EXPECT_EQ(gui->name(), u"Tank farm");
    EXPECT_EQ(ToLong(gui->id()) + ToLong(spec->id()), 14);

    const auto a = LoadModule(u"a"), b = LoadModule(u"b"), otherA = LoadModule(u"A");
    EXPECT_TRUE(station->AddModule(a.get()) && station->AddModule(b.get()));
    EXPECT_EQ(Ids(gui->modules()), "a b ");
    EXPECT_TRUE(station->AddModule(otherA.get())) << "takes the place of the one with its id, at the end";
    EXPECT_EQ(Ids(spec->modules()), "b A ");
    EXPECT_FALSE(station->AddModule(nullptr));
    EXPECT_FALSE(a->Gui()->station()) << "a module does not hear of its station";

    const Variant nothing(static_cast<IDispatch*>(nullptr)), stranger(station.get()), gone(a->Dispatch());
    for (const Variant& missing : {Variant(u"c"), Variant(1), nothing, gone}) {
        EXPECT_TRUE(station->RemoveModule(missing)) << "True though there is none";
    }
    EXPECT_FALSE(station->RemoveModule(stranger) || station->RemoveModule(Variant::Null())) << "what raises an error";
    EXPECT_EQ(Ids(gui->modules()), "b A ");
    ASSERT_TRUE(b->Load(u"A", Text(u"5"), {}));
    EXPECT_TRUE(station->RemoveModule(Variant(5))) << "by its id of today, not the one that it was added under";
    EXPECT_TRUE(station->RemoveModule(Variant(facet<IBase_GuiModule>(otherA).get())));
    EXPECT_EQ(Ids(gui->modules()), "");
}

TEST_F(StationTest, AnswersForItsModules) {
    Load(Row(1, 1, "Max=9") + Row(1, 2, "kind=3"));
    const auto station = MakeObject<Station>();
    EXPECT_TRUE(station->consistent({}));
    EXPECT_FALSE(station->modified({}) || station->unknown({}));
    const auto a = LoadModule(u"a"), b = LoadModule(u"b");
    station->AddModule(a.get());
    station->AddModule(b.get());

    First(*a)->let_value(u"5");
    First(*b)->let_value(u"\u000111");  // forced past its limit
    const struct {
        std::optional<eParameterKind> kind;
        bool consistent, modified;
    } cases[] = {{{}, false, true},
                 {eParameterKind::eParamKindDeviceParam, false, true},
                 {eParameterKind::eParamKindCalibration, true, false}};
    for (const auto& [kind, consistent, modified] : cases) {
        EXPECT_EQ(station->consistent(kind), consistent);
        EXPECT_EQ(station->modified(kind), modified);
        EXPECT_TRUE(kind == eParameterKind::eParamKindDeviceParam || station->unknown(kind));
    }
    station->ClearModified({});
    station->ClearUnknown({});
    EXPECT_FALSE(station->modified({}) || station->unknown({}));
    station->SetUnknown(eParameterKind::eParamKindCalibration);
    EXPECT_TRUE(a->unknown({}) && b->unknown({}) && !First(*a)->unknown());

    EXPECT_FALSE(station->Clone());
    EXPECT_FALSE(station->Compare(nullptr, {}));
    const auto other = MakeObject<Station>();
    EXPECT_TRUE(station->Compare(other.get(), {}));
    other->AddModule(LoadModule(u"c").get());
    EXPECT_TRUE(station->Compare(other.get(), {})) << "a module that is not here is passed over";
    const auto twin = LoadModule(u"b");
    other->AddModule(twin.get());
    EXPECT_FALSE(station->Compare(other.get(), {}));
    EXPECT_TRUE(station->Compare(other.get(), eParameterKind::eParamKindCalibration));
    First(*twin)->let_value(u"\u000111");
    EXPECT_TRUE(station->Compare(other.get(), {}));
}

TEST_F(StationTest, HearsNothingOfItsModulesUnlessTheyAreToldOfIt) {
    Load(Row(1, 1));
    const auto station = MakeObject<Station>();
    const Ref<StationWitness> witness = MakeObject<StationWitness>();
    station->RegisterCallback(witness->Dispatch());
    station->RegisterCallback(MakeObject<Collection>()->Dispatch());  // no listener at all: passed over
    const auto a = LoadModule(u"a");
    station->AddModule(a.get());
    First(*a)->let_value(u"5");
    station->RemoveModule(Variant(u"a"));
    EXPECT_THAT(witness->events, IsEmpty());

    a->SetStation(station.get());
    EXPECT_EQ(a->Spec()->station()->id().IsEmpty(), true);
    First(*a)->let_value(u"6");
    EXPECT_THAT(witness->events, ElementsAre("Value"));
    station->UnregisterCallback(witness->Dispatch());
    First(*a)->let_value(u"7");
    EXPECT_EQ(witness->events.size(), 1u);
    a->Unload();
    EXPECT_FALSE(a->Gui()->station());
}

TEST_F(StationTest, SweepsAllModulesForOneThatIsMarked) {
    Load(Row(1, 1, "DefaultValue=0") + Row(1, 2, "dependency='!:ENV.Variable(\"on\") = 1'"));
    const auto station = MakeObject<Station>();
    const auto a = LoadModule(u"a"), b = LoadModule(u"b");
    const auto dependant = [](Module& of) {
        return of.Spec()->channels()->get_Item(u"1")->groups()->get_Item(u"1")->parameters()->get_Item(u"2");
    };
    station->AddModule(a.get());
    station->AddModule(b.get());
    EXPECT_FALSE(dependant(*a)->valid() || dependant(*b)->valid());
    b->Environment()->let_Variable(u"on", Variant(1));
    a->SetStation(station.get());
    a->Spec()->UpdateDependencies();
    EXPECT_FALSE(dependant(*b)->valid()) << "a module that is not marked settles by itself";
    a->SetScriptAccess(true);
    a->Spec()->UpdateDependencies();
    EXPECT_TRUE(dependant(*b)->valid());
    EXPECT_FALSE(dependant(*a)->valid());
}

}  // namespace
}  // namespace ov
