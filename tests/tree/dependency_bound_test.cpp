// Rules that never settle: every loop of an update ends at the bound, says so once, and leaves a usable device.
#include "platform/system/file_system.h"
#include "support/scoped_settings.h"
#include "support/temporary_folder.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Events;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using testing::Row;
using testing::TreeTest;
using testing::Witness;

class DependencyBound : public TreeTest {
protected:
    DependencyBound() { GlobalDiagnostics().maxPasses = kBound; }

    // Two parameters that each take the row that the other one's row rules out. @p near and @p far are how scripts
    // reach the first from the second's group and the second from the first's.
    static std::string Flipping(int group, const std::string& near, const std::string& far, int otherGroup) {
        const std::string quotedNear = Quoted(near), quotedFar = Quoted(far);
        return Row(group, 1, "DefaultValue=0;dependency='!:" + quotedFar + " = 1'") +
               Row(group, 1, "DefaultValue=1;dependency='!:" + quotedFar + " = 0'") +
               Row(otherGroup, 2, "DefaultValue=0;dependency='!:" + quotedNear + " = 0'") +
               Row(otherGroup, 2, "DefaultValue=1;dependency='!:" + quotedNear + " = 1'");
    }
    static std::string Quoted(std::string text) { return ReplaceAll(Text::FromUtf8(text), u"'", u"''").ToUtf8(); }
    std::string Told(const std::function<void()>& action) {
        ::testing::internal::CaptureStderr();
        action();
        return ::testing::internal::GetCapturedStderr();
    }
    Ref<IBase_SpecParameter> Far(const Text& id) {
        return Channel(u"2")->groups()->get_Item(u"1")->parameters()->get_Item(id);
    }

    static constexpr std::int32_t kBound = 40;
    Events events;
};

TEST_F(DependencyBound, HoldsInGroupsChannelsAndModules) {
    const struct {
        const char* name;
        std::string rules;
        const char* line;
    } cases[] = {
        {"group", Flipping(1, "P(\"1\")", "P(\"2\")", 1), "1/1/1, 1/1/2"},
        {"channel", Flipping(1, "G(\"1\")(\"1\")", "G(\"2\")(\"2\")", 2), "1/1/1, 1/2/2"},
        {"module", Flipping(1, "CH(\"1\")(\"1\")(\"1\")", "CH(\"2\")(\"1\")(\"2\")", 3), "1/1/1, 2/1/2"},
    };
    for (const auto& [name, rules, line] : cases) {
        SCOPED_TRACE(name);
        Load(rules + Row(1, 9, "DefaultValue=5"));
        const std::string expected =
            "OV_Model::UpdateDependencies: ERROR: rules have not settled after 40 passes; "
            "parameters that still change: " +
            std::string(line) + "\n";
        Told([&] {
            Group()->parameters();
            Group(u"2")->parameters();
            Channel(u"2")->groups()->get_Item(u"1")->parameters();
        });
        const Ref<Witness> witness = MakeObject<Witness>("", events);
        Parameter(u"1")->RegisterCallback(witness.get());
        EXPECT_EQ(Told([&] { Parameter(u"9")->let_value(u"6"); }), expected);
        EXPECT_EQ(events.size(), 40u) << "one change in each pass";
        events.clear();
        EXPECT_EQ(Told([&] { module->Spec()->UpdateDependencies(); }), expected) << "each update has passes of its own";
        EXPECT_EQ(Parameter(u"9")->get_value(), u"6");
        EXPECT_TRUE(module->Gui()->consistent({})) << "the check has run";
        events.clear();
    }
}

TEST_F(DependencyBound, IsSharedByTheUpdatesThatScriptsSetOff) {
    // Without a shared bound each level of nesting would begin two more, as deep as scripts may nest.
    Load(Row(1, 1, "dependency='!:P.SetValue(\"3\", P(\"3\") + 1)'") +
         Row(1, 2, "dependency='!:P.SetValue(\"3\", P(\"3\") + 1)'") +
         Row(1, 3, "DefaultValue=0;consistency='!:P.SetValue(\"4\", P(\"4\") + 1)'") + Row(1, 4, "DefaultValue=0"));
    EXPECT_THAT(Told([&] { Group()->parameters(); }), HasSubstr("after 40 passes"));
    const Variant before = facet<IBase_SpecParameter>(Parameter(u"3"))->get_value();
    EXPECT_THAT(Told([&] { Parameter(u"4")->let_value(u"-1"); }),
                MatchesRegex("OV_Model::UpdateDependencies: ERROR: [^\n]*\n"));
    const std::int32_t writes = ToLong(facet<IBase_SpecParameter>(Parameter(u"3"))->get_value()) - ToLong(before);
    EXPECT_GT(writes, 1);
    EXPECT_LE(writes, 2 * kBound);
}

// Writes a parameter back and forth, so that its dependants change with every import.
class Importer final : public Object<Importer, Facet<ISpec_ImExport>> {
public:
    static constexpr const char* kClassName = "Importer";

    bool DoImport(IBase_SpecModule* module, Variant&, Variant&) override {
        const auto parameters = module->channels()->get_Item(u"1")->groups()->get_Item(u"1")->parameters();
        for (int i = 0; i < 100; ++i) {
            parameters->get_Item(u"9")->Gui()->let_value(Text::FromInteger(i));
        }
        parameters->get_Item(u"1")->let_value(Variant(++rounds % 2));
        return true;
    }
    bool DoExport(IBase_SpecModule*, Variant&, Variant&) override { return false; }
    bool DoReImportParameter(IBase_SpecParameter*) override { return false; }

    int rounds = 0;
};

TEST_F(DependencyBound, EndsImportsButLeavesTheServiceItsOwnUpdates) {
    Load(Row(1, 1, "DefaultValue=0") + Row(1, 2, "DefaultValue=1;dependency='!:P(\"1\") = 0'") +
         Row(1, 2, "DefaultValue=2;dependency='!:P(\"1\") = 1'") + Row(1, 3, "dependency='!:P(\"2\") = 1'") +
         Row(1, 9));
    Group()->parameters();
    const Ref<Importer> importer = MakeObject<Importer>();
    module->RegisterImExport(importer.get());
    Variant data, source;
    EXPECT_THAT(Told([&] { EXPECT_TRUE(module->Import(data, source)); }), HasSubstr("still change: 1/1/2, 1/1/3\n"));
    EXPECT_EQ(importer->rounds, kBound + 1);
}

TEST(PassBound, ComesFromTheRegistry) {
    const testing::TemporaryFolder folder;
    const testing::ScopedVariable registry{"OV_MODEL_REGISTRY", folder / "registry.ini"};
    const Diagnostics former = GlobalDiagnostics();
    for (const auto& [entry, passes] : {std::pair{"", 10'000},
                                        {"MaxPasses=25", 25},
                                        {"MaxPasses=\"7\"", 7},
                                        {"MaxPasses=0", 10'000},
                                        {"MaxPasses=-5", 10'000},
                                        {"MaxPasses=many", 10'000},
                                        {"MaxPasses=99999999999", 10'000}}) {
        file_system::WriteFile(folder.Of("registry.ini"), "[SOFTWARE\\Orvane\\Controls]\n" + std::string(entry), false);
        GlobalDiagnostics() = {};
        InitDebug(DebugMode::FromRegistry);
        EXPECT_EQ(GlobalDiagnostics().maxPasses, passes) << entry;
    }
    GlobalDiagnostics() = former;
}

}  // namespace
}  // namespace ov
