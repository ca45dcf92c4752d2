// Code of others - listeners, the host's service, ends of listeners and of scripts' objects - that acts on the module
// in the middle of everything which runs it: nothing falls over, nothing is left, and the next load is good.
#include <random>

#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Row;
using testing::TestDatabase;
using testing::TreeTest;

/// A device whose rules write the environment wherever rules run, so that listeners hear of every step.
std::string Device() {
    const auto told = [](const std::string& result) {
        return "'!:ENV.SetVariable(\"r\", ENV.Variable(\"r\") & \"x\") * 0 + (" + result + ")'";
    };
    const std::string flips = "dependency='!:P(\"1\") < 5'";
    return testing::kTree +
           "CREATE TABLE Actions (ActionID TEXT, value TEXT, actionScript TEXT);"
           "INSERT INTO Actions VALUES ('A', NULL, 'ENV.SetVariable \"a\", ENV.Variable(\"a\") & \"x\"');"
           "ALTER TABLE Parameters ADD COLUMN enumSelect TEXT;"
           "UPDATE ModuleTypes SET mainValue = 'CH(\"1\").G(\"1\").P(\"1\")', fdtDeviceTypeInformation = "
           "'#:ENV.SetVariable(\"i\", ENV.Variable(\"i\") & \"x\")';" +
           Row(1, 1, "DefaultValue=1;actionOnChange='A';enable=" + told("1")) + Row(1, 2, "Max=" + told("P(\"1\")")) +
           Row(1, 3, flips + ";consistency=" + told("1")) + Row(1, 4, flips) + Row(1, 4, "DefaultValue=2") +
           Row(1, 5, "Type='FLOAT';realGain=" + told("P(\"1\") + 1")) +
           Row(1, 6, "subtype='u48';Min=" + told("G(\"2\")(\"1\")")) + Row(1, 7, "Type='ENVIROMENT';subtype='user'") +
           Row(1, 8, "dependency='!:P(\"4\") = 2'") + Row(2, 1, "Max=" + told("CH(\"2\")(\"1\")(\"1\") + 1000")) +
           Row(3, 1, "enable=" + told("1"));
}

class ForeignCode : public TreeTest {
protected:
    ~ForeignCode() override {
        if (module) module->Unload();  // while the outsiders' list stands
    }
    // Hears everything, serves imports, and tells the test of it; its end is an event as well.
    class Outsider final
        : public Object<Outsider, Facet<IBase_CallbackParameter>, Facet<IBase_CallbackModule>, Facet<ISpec_ImExport>> {
    public:
        static constexpr const char* kClassName = "Outsider";

        explicit Outsider(ForeignCode& test) : mTest(test) { mTest.mOutsiders.push_back(this); }
        ~Outsider() {
            std::erase(mTest.mOutsiders, this);
            mTest.Happens();
        }
        void OnParameterReconfigured(IBase_GuiParameter*) override { mTest.Happens(); }
        void OnParameterStateChanged(IBase_GuiParameter*) override { mTest.Happens(); }
        void OnParameterValueChanged(IBase_GuiParameter*) override { mTest.Happens(); }
        void OnParameterConfigStateChanged(IBase_GuiParameter*) override { mTest.Happens(); }
        void OnLanguageChanged(IBase_GuiModule*) override { mTest.Happens(); }
        void OnUnload(IBase_GuiModule*) override { mTest.Happens(); }
        void OnEnvironmentChanged(IBase_GuiModule*, const Text&, const Variant&) override { mTest.Happens(); }
        bool DoImport(IBase_SpecModule*, Variant&, Variant&) override {
            mTest.Happens();
            mTest.WriteByEngine();  // sweeps nothing by itself: a further round is due
            return true;
        }
        bool DoExport(IBase_SpecModule*, Variant&, Variant&) override { return mTest.Happens(), true; }
        bool DoReImportParameter(IBase_SpecParameter*) override { return true; }

    private:
        ForeignCode& mTest;
    };

    struct Step {
        const char* name;
        void (ForeignCode::*run)();
    };

    // What an outsider does.
    void Unload() { module->Unload(); }
    void TakeOtherPath() { module->SetSourcePath(mOther.Path()); }
    void Reload() { module->Load(u"A", {}, {}); }
    void Release() {
        if (!module->get_mDB()) module->SetSourcePath(u"");  // Unload does nothing without a database
        mPointer = nullptr;
        module = nullptr;
    }
    void Unregister() {
        const Ref<Module> unregistered = module;
        for (const Ref<Outsider>& outsider : std::vector<Ref<Outsider>>(mOutsiders.begin(), mOutsiders.end())) {
            unregistered->UnregisterCallback(outsider->Dispatch());
            if (mParameter) mParameter->UnregisterCallback(outsider.get());
        }
        unregistered->RegisterImExport(nullptr);
    }
    void TakeDatabaseAway() { module->set_mDB(nullptr); }
    void ClearCollections() {
        const auto channels = module->Spec()->channels();
        const auto channel = channels ? channels->get_Item(u"1") : nullptr;
        const auto groups = channel ? channel->groups() : nullptr;
        const auto group = groups ? groups->get_Item(u"1") : nullptr;
        const auto parameters = group ? group->parameters() : nullptr;
        if (parameters) parameters->Clear();
        if (groups) groups->Clear();
        if (channels) channels->Clear();
    }
    void Ask() {
        const Ref<IBase_GuiModule> asked = module;
        asked->channels();
        asked->mainValue();
        asked->consistent({});
    }
    void Register() { module->RegisterCallback(MakeObject<Outsider>(*this)->Dispatch()); }
    void Write() {
        if (mParameter) mParameter->let_value(mParameter->get_value() == u"1" ? u"7" : u"1");
    }
    static constexpr Step kActions[] = {
        {"unload", &ForeignCode::Unload},          {"other path", &ForeignCode::TakeOtherPath},
        {"reload", &ForeignCode::Reload},          {"release", &ForeignCode::Release},
        {"unregister", &ForeignCode::Unregister},  {"no database", &ForeignCode::TakeDatabaseAway},
        {"clear", &ForeignCode::ClearCollections}, {"ask", &ForeignCode::Ask},
        {"register", &ForeignCode::Register},      {"write", &ForeignCode::Write},
    };

    // What a host does, in the middle of which events come.
    void SetLanguage() { module->SetLanguage(module->GetLanguage() == 9 ? 7 : 9); }
    void WriteEnvironment() {
        const auto environment = module->Environment();
        environment->let_Variable(u"k", Variant(ToText(environment->get_Variable(u"k")) + u"x"));
    }
    void Import() {
        Variant data, source;
        module->Import(data, source);
    }
    void Export() {
        Variant data, source;
        module->Export(data, source);
    }
    void WriteByEngine() {
        if (mParameter) mParameter->Spec()->let_value(Variant(ToText(mParameter->get_value()) == u"1" ? 7 : 1));
    }
    void ImportImage() {
        const auto group = mParameter ? facet<IBase_SpecGroup>(mParameter->group()) : nullptr;
        const auto parameters = group ? group->parameters() : nullptr;
        if (!parameters) return;
        const Text digits = mParameter->get_value() == u"1" ? u"0007000700070007" : u"0001000100010001";
        for (const char16_t* id : {u"1", u"5", u"6"}) {
            if (const auto parameter = parameters->get_Item(id)) {
                parameter->ImportFromHexStringMapByMemory(digits, 0, 32, 0, eByteOrder::eBigEndian);
            }
        }
    }
    void Reset() {
        const Ref<IBase_GuiModule> asked = module;
        asked->SetUnknown({});
        asked->ResetValue({});
    }
    void UpdateRules() { module->Spec()->UpdateDependencies(); }
    void CloneAndCompare() {
        const auto clone = module->Spec()->Clone();
        if (clone && module) module->Spec()->Compare(clone.get(), {});
        if (const auto whole = facet<CBase_Module>(clone)) whole->Unload();
    }
    static constexpr Step kOccasions[] = {
        {"load", &ForeignCode::Reload},
        {"unload", &ForeignCode::Unload},
        {"build", &ForeignCode::Ask},
        {"other path", &ForeignCode::TakeOtherPath},
        {"language", &ForeignCode::SetLanguage},
        {"environment", &ForeignCode::WriteEnvironment},
        {"import", &ForeignCode::Import},
        {"export", &ForeignCode::Export},
        {"user's edit", &ForeignCode::Write},
        {"engine's edit", &ForeignCode::WriteByEngine},
        {"image", &ForeignCode::ImportImage},
        {"reset", &ForeignCode::Reset},
        {"update", &ForeignCode::UpdateRules},
        {"clone", &ForeignCode::CloneAndCompare},
    };

    /// A host with a loaded device, all of it built or only its root, and outsiders on every level.
    void Begin(bool built) {
        module = MakeObject<Module>();
        module->SetSourcePath(mFirst.Path());
        Register();
        ASSERT_TRUE(module->Load(u"A", {}, {}));
        mPointer = module->GetUnloadPointer();
        module->RegisterImExport(MakeObject<Outsider>(*this).get());
        if (!built) return;
        mParameter = Parameter(u"1");
        ASSERT_TRUE(mParameter);
        for (const Ref<Outsider>& outsider : {MakeObject<Outsider>(*this), MakeObject<Outsider>(*this)}) {
            mParameter->RegisterCallback(outsider.get());
            Group()->Gui()->RegisterCallback(outsider->Dispatch());
            Channel()->Gui()->RegisterCallback(outsider->Dispatch());
            Channel()->Gui()->blocks()->get_first()->RegisterCallback(outsider->Dispatch());
            mParameter->Spec()->let_tag(Variant(MakeObject<Outsider>(*this)->Dispatch()));
        }
        facet<CBase_Group>(Group())->ExecuteScript(
            u"Class Last\nSub Class_Terminate\nENV.SetVariable \"t\", ENV.Variable(\"t\") & \"x\"\nEnd Sub\nEnd Class\n"
            u"Set kept = New Last");
    }
    /// Nobody acts any more: the module, or a fresh one, loads a whole tree; then all of it goes.
    void End() {
        mReaction = {};
        if (!module) module = MakeObject<Module>();
        module->SetSourcePath(mFirst.Path());
        ASSERT_TRUE(module->Load(u"A", {}, {}));
        ASSERT_TRUE(Channel());
        mParameter = Parameter(u"1");
        ASSERT_TRUE(mParameter);
        mParameter->let_value(u"4");
        EXPECT_EQ(mParameter->get_value(), u"4");
        EXPECT_TRUE(static_cast<IBase_GuiModule&>(*module).mainValue() == mParameter);
        module->Unload();
        mParameter = nullptr;
        mPointer = nullptr;
        module = nullptr;
        EXPECT_EQ(LivingObjects::Count(), mLiving);
    }
    void Do(const Step& step) {
        if (!module) return;
        try {
            (this->*step.run)();
        } catch (const RuntimeError&) {
            // What a host is told is tested elsewhere.
        }
    }
    void Happens() {
        ++mEvents;
        if (mReaction) mReaction();
    }

    TestDatabase mFirst{Device()}, mOther{Device()};
    Ref<CBase_Unload> mPointer;
    Ref<IBase_GuiParameter> mParameter;
    std::vector<Outsider*> mOutsiders;
    std::function<void()> mReaction;
    int mEvents = 0;
};

TEST_F(ForeignCode, MayDoAnythingAtAnyEvent) {
    for (const Step& occasion : kOccasions) {
        int events = 0;
        for (std::size_t i = 0; i < 2 * std::size(kActions); ++i) {
            const Step& action = kActions[i / 2];
            // At the first event, at the second, and so on until there are no more.
            bool acted = true;
            for (int at = 0; acted && !HasFailure(); ++at) {
                SCOPED_TRACE(std::string(action.name) + " at event " + std::to_string(at) + " of " + occasion.name);
                Begin(i % 2 == 0);
                acted = false;
                mEvents = 0;
                mReaction = [&] {
                    if (acted || mEvents <= at) return;
                    acted = true;
                    Do(action);
                };
                Do(occasion);
                End();
                events += acted;
            }
        }
        EXPECT_GT(events, 0) << occasion.name << " told nothing";
    }
}

TEST_F(ForeignCode, MakesALoadFailThatLosesItsDatabase) {
    for (const bool otherPath : {true, false}) {
        Begin(false);
        mReaction = [&] { otherPath ? TakeOtherPath() : TakeDatabaseAway(); };
        const std::string reason = "Object variable or With block variable not set\n";
        EXPECT_THAT(
            Logged([&] { EXPECT_FALSE(module->Load(u"A", {}, {})); }),
            ::testing::EndsWith("LoadChannels(): Error: " + reason + "Load(): ERROR when loading type: " + reason));
        End();
    }
}

TEST_F(ForeignCode, EndsAnImportWhoseServiceHasGone) {
    Begin(true);
    mReaction = [&] { module->RegisterImExport(nullptr); };
    Variant data, source;
    try {
        module->Import(data, source);
        ADD_FAILURE() << "a further round was due";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 91);
    }
    End();
}

TEST_F(ForeignCode, SeesTheOldTreeWhileItGoesAndIsNotKeptBeyond) {
    Begin(true);
    auto old = module->Spec()->channels();
    int asked = 0;
    mReaction = [&] {
        ++asked;
        EXPECT_EQ(module->Spec()->channels(), old);
    };
    mParameter->Spec()->let_tag(Variant(MakeObject<Outsider>(*this)->Dispatch()));
    module->Unload();
    EXPECT_GT(asked, 0);
    mReaction = {};
    old = nullptr;
    End();

    Begin(true);
    int left = 3;
    mReaction = [&] {
        if (left-- > 0) Register();
    };
    module->Unload();
    mEvents = 0;
    mReaction = {};
    WriteEnvironment();
    EXPECT_EQ(mEvents, 0);
    End();
}

TEST_F(ForeignCode, MayDoAnythingInAnyOrder) {
    for (unsigned seed = 0; seed < 300 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const auto oneOf = [&](const auto& steps) { return steps[random() % std::size(steps)]; };
        Begin(seed % 4 != 0);
        int depth = 0;
        mReaction = [&] {
            if (depth >= 3 || random() % 3 != 0) return;
            ++depth;
            Do(oneOf(kActions));
            --depth;
        };
        for (int i = 0; i < 6; ++i) {
            Do(oneOf(kOccasions));
        }
        End();
    }
}

}  // namespace
}  // namespace ov
