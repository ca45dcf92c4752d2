// The typed collections, by themselves.
#include <memory>

#include "platform/script/script_control.h"
#include "tree/tree_testing.h"
#include "tree/typed_collection.h"

namespace ov {
namespace {

using testing::Row;
using testing::TreeTest;

class Collections : public TreeTest {
protected:
    using Specs = TypedList<IBase_SpecParameter>;
    using Guis = TypedList<IBase_GuiParameter>;
    void SetUp() override { Load(Row(1, 1) + Row(1, 2) + Row(1, 3)); }
    Ref<IBase_SpecParameter> Spec(const Text& id) { return Parameter(id)->Spec(); }
};

TEST_F(Collections, ForgiveWhatIsMissing) {
    const auto list = MakeObject<Specs>();
    EXPECT_FALSE(list->get_Item(u"x") || list->get_first() || list->Inside(u"x"));
    list->Remove(u"x");
    list->Clear();
    EXPECT_EQ(list->Count(), 0);
}

TEST_F(Collections, TheLastWriterOfAKeyWinsAndStandsLast) {
    const auto list = MakeObject<Specs>();
    EXPECT_EQ(list->Add(Spec(u"1").get(), u"a"), Spec(u"1"));
    list->Add(Spec(u"2").get(), u"b");
    list->set_Item(u"A", Spec(u"3").get());
    EXPECT_EQ(Ids(Ref<CBase_SpecParameterCollection>(list)), "2 3 ");
    EXPECT_EQ(list->get_Item(u"a"), Spec(u"3"));
    EXPECT_EQ(list->get_first(), Spec(u"2"));
    list->Remove(u"B");
    EXPECT_TRUE(list->Inside(u"a") && !list->Inside(u"b"));
}

TEST_F(Collections, TwoViewsShowOneListEachInItsOwnWay) {
    const auto specs = MakeObject<Specs>();
    const auto guis = MakeObject<Guis>();
    specs->SetUnderlying(guis->Underlying());
    specs->Add(Spec(u"1").get(), u"1");
    guis->Add(Parameter(u"2").get(), u"2");
    EXPECT_EQ(guis->get_Item(u"1"), Parameter(u"1"));
    EXPECT_EQ(specs->get_Item(u"2"), Spec(u"2"));
    EXPECT_EQ(specs->Count(), 2);
    guis->Underlying()->TryAdd(u"3", Variant(MakeObject<Collection>()->Dispatch()));
    EXPECT_TRUE(guis->Inside(u"3") && specs->Inside(u"3"));
    EXPECT_FALSE(guis->get_Item(u"3")) << "what has no such face is Nothing";

    // A client that calls by name finds the members of the view that it walks.
    ScriptControl engine;
    engine.SetLanguage(u"VBScript");
    engine.AddObject(u"guis", guis->Dispatch(), false);
    engine.AddObject(u"specs", specs->Dispatch(), false);
    guis->Remove(u"3");
    engine.ExecuteStatement(u"For Each p In guis : s = s & p.editable & \" \" : Next");
    engine.ExecuteStatement(u"For Each p In specs : s = s & p.valid & \" \" : Next");
    EXPECT_EQ(ToText(engine.Eval(u"s")), u"True True True True ");
}

}  // namespace
}  // namespace ov
