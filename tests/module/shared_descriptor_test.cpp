// What modules on one file share of it, and what must not be seen of that.
#include "descriptor/shared_descriptor.h"
#include "contract/library.h"
#include "descriptor/database_cache.h"
#include "platform/automation/variant_testing.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Row;
using testing::TreeTest;

class SharedDescriptorTest : public TreeTest {
protected:
    ~SharedDescriptorTest() override {
        for (const Ref<Module>& other : mOthers) {
            other->Unload();
        }
        mOthers.clear();
    }
    // A further module on the file that is loaded.
    Module& Another() {
        const Ref<Module>& other = mOthers.emplace_back(MakeObject<Module>());
        other->SetSourcePath(mDatabase->Path());
        EXPECT_TRUE(other->Load(u"A", {}, {}));
        return *other;
    }
    static Ref<IBase_GuiParameter> ParameterOf(Module& module, const Text& id) {
        const auto group = module.Spec()->channels()->get_Item(u"1")->groups()->get_Item(u"1");
        return facet<IBase_GuiParameter>(group->parameters()->get_Item(id));
    }
    static Ref<ICollection> RowOf(const Ref<IBase_GuiParameter>& parameter) {
        return facet<IBase_Internal>(parameter)->dependencies()->get_desc();
    }
    // The columns of a parameter that the tests change.
    static std::string Look(const Ref<IBase_GuiParameter>& parameter) {
        const auto spec = parameter->Spec();
        return ToText(spec->desc(u"DefaultValue", {})).ToUtf8() + " " + ToText(spec->desc(u"Max", {})).ToUtf8() + " " +
               std::to_string(RowOf(parameter)->Count()) + " " + parameter->name().ToUtf8();
    }

    std::vector<Ref<Module>> mOthers;
};

TEST_F(SharedDescriptorTest, NobodySeesWhatIsDoneToAnothersRow) {
    Load(Row(1, 1, "DefaultValue='#:2+3';Max='70';name=1"));
    const auto own = Parameter(u"1");
    const auto others = ParameterOf(Another(), u"1");
    const std::string asRead = Look(others);
    EXPECT_EQ(Look(own), asRead);
    EXPECT_EQ(own->Spec()->desc(u"DefaultValue", {}).AsLong(), 5) << "the static text has given way to its result";

    const auto row = RowOf(own);
    row->Remove(u"Max");
    row->Add(u"8", Text(u"Max"), {}, {});
    row->Add(u"x", Text(u"more"), {}, {});
    const auto groupRow = facet<ICollection>(Group()->desc());
    groupRow->Remove(u"EditPlugin");
    EXPECT_EQ(own->Spec()->desc(u"Max", {}).AsText(), u"8") << "the row is the host's own";
    EXPECT_EQ(Look(others), asRead);
    const auto third = ParameterOf(Another(), u"1");
    EXPECT_EQ(Look(third), asRead);
    EXPECT_EQ(third->group()->EditPlugin(nullptr), u"ed");
    EXPECT_EQ(facet<ICollection>(third->group()->Spec()->desc())->Count(), groupRow->Count() + 1);

    module->Unload();
    EXPECT_EQ(row->Count(), 0) << "an ended tree empties what it gave away";
    EXPECT_EQ(Look(others), asRead);
    EXPECT_EQ(Look(third), asRead);
}

TEST_F(SharedDescriptorTest, EachModuleReadsTheFileOfItsDay) {
    Load(Row(1, 1, "DefaultValue=3;name=1"));
    EXPECT_EQ(Parameter(u"1")->get_value(), u"3");
    EXPECT_EQ(Parameter(u"1")->name(), u"Gerät");
    mDatabase->Run("UPDATE Parameters SET DefaultValue = 4; UPDATE Texts SET Text_7 = 'Neu' WHERE TEXT_IDX = 1;" +
                   Row(1, 2) + Row(2, 1));
    const auto later = ParameterOf(Another(), u"1");
    EXPECT_EQ(later->get_value(), u"4");
    EXPECT_EQ(later->name(), u"Neu");
    EXPECT_EQ(later->group()->parameters()->Count(), 2);
    EXPECT_EQ(Parameter(u"1")->get_value(), u"3");
    EXPECT_EQ(Parameter(u"1")->name(), u"Gerät") << "a language is read once for a module";
    EXPECT_EQ(Group(u"2")->parameters()->Count(), 1) << "a group that is opened later is as it is then";
    EXPECT_EQ(Group()->parameters()->Count(), 1);
}

TEST_F(SharedDescriptorTest, IsHeldUntilItsMemoryIsAskedFor) {
    Load(Row(1, 1, "Max='70'"));
    ASSERT_TRUE(Parameter(u"1"));
    const Ref<Database> db = DatabaseCache(mDatabase->Path());
    const Text query = u"SELECT * FROM [Parameters] WHERE [GroupType] = 1 ORDER BY [order],[ParameterId]";
    const std::shared_ptr<const RowSet> rows = SharedDescriptor::Of(*db).Rows(query);
    EXPECT_GT(rows.use_count(), 1);
    module->Unload();
    EXPECT_EQ(SharedDescriptor::Of(*db).Rows(query), rows) << "for the next module";
    module = nullptr;
    if (DllCanUnloadNow() != 0) GTEST_SKIP() << "an object of another test lives";
    EXPECT_EQ(rows.use_count(), 1);
    EXPECT_NE(SharedDescriptor::Of(*db).Rows(query), rows);
}

// The ring of a parameter with one row is made when it is asked for, whenever that is.
TEST_F(SharedDescriptorTest, RingsAreAsIfTheyHadAlwaysBeenThere) {
    Load(Row(1, 1, "DefaultValue=1") + Row(1, 2, "dependency='!:P(\"1\") = 1';removeOnDependency=-1;DefaultValue=7") +
         Row(1, 3));
    const auto internal = facet<IBase_Internal>(Parameter(u"2"));
    Parameter(u"1")->let_value(u"0");
    EXPECT_EQ(internal->get_configState(), eParameterConfigState::eParameterInvalid);
    const auto ring = internal->dependencies();
    EXPECT_EQ(ring->get_dep(), u"!:P(\"1\") = 1");
    EXPECT_EQ(ring->get_removeOnDep(), u"True");
    EXPECT_EQ(ring->get_idx(), internal->DBindex());
    EXPECT_EQ(ErrorOf([&] { ring->Add(9, u"", false, nullptr); }), 9) << "closed since the load";
    Parameter(u"1")->let_value(u"1");
    EXPECT_EQ(internal->get_configState(), eParameterConfigState::eParameterValid);
    EXPECT_TRUE(SameObject(internal->dependencies().get(), ring.get()));

    const auto untouched = facet<IBase_Internal>(Parameter(u"3"));
    module->Unload();
    EXPECT_EQ(untouched->dependencies()->get_desc()->Count(), 0);
    EXPECT_EQ(untouched->dependencies()->get_idx(), untouched->DBindex());
}

}  // namespace
}  // namespace ov
