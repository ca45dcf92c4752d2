// The typed collections and the linked list, by themselves.
#include <memory>

#include "platform/script/script_control.h"
#include "tree/linked_list.h"
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

// The keys from first to last, checked backwards as well.
std::string Keys(const CLinkedList& list) {
    std::string keys, back;
    for (const auto* e = list.first(); e; e = e->after()) {
        keys += ToText(e->key).ToUtf8() + (e->data.IsEmpty() ? "" : ToText(e->data).ToUtf8()) + " ";
    }
    for (const auto* e = list.last(); e; e = e->before()) {
        back = ToText(e->key).ToUtf8() + (e->data.IsEmpty() ? "" : ToText(e->data).ToUtf8()) + " " + back;
    }
    EXPECT_EQ(keys, back);
    return keys;
}

TEST(LinkedList, KeepsAnOrder) {
    CLinkedList up, down, free;
    for (const int key : {5, 3, 4}) {
        up.InsertKeyAscending(key);
        down.InsertKeyDescending(key);
    }
    EXPECT_EQ(Keys(up), "3 4 5 ");
    EXPECT_EQ(Keys(down), "5 4 3 ");
    for (const char16_t* data : {u"a", u"b"}) {
        free.InsertKeyAscending(Variant(2))->data = data;
    }
    EXPECT_EQ(Keys(free), "2a 2b ");
    EXPECT_EQ(ToText(free.FindKey(2, nullptr, CLinkedList::Direction::Backward)->data), u"b");
    EXPECT_EQ(free.FindKey(2, free.last()), free.last()) << "the start counts";
    EXPECT_FALSE(free.FindKey(3) || free.FindBiggerKey(2) || free.FindLowerKey(2));
    EXPECT_EQ(up.FindBiggerKey(3, nullptr, CLinkedList::Direction::Backward), up.last());
    EXPECT_EQ(up.FindLowerKey(u"5"), up.FindKey(3.0)) << "keys compare by value";
    up.InsertKeyAfter(u"text");
    EXPECT_THROW(up.FindBiggerKey(Variant(MakeObject<Collection>()->Dispatch())), RuntimeError);
}

TEST(LinkedList, MovesAndRemoves) {
    CLinkedList list;
    auto* one = list.InsertKeyAfter(1);
    auto* two = list.InsertKeyAfter(2);
    list.InsertKeyBefore(0);
    list.InsertKeyAfter(9, one);
    list.InsertKeyBefore(8, two);
    EXPECT_EQ(Keys(list), "0 1 9 8 2 ");
    list.InsertBefore(two);
    list.InsertAfter(one);
    list.InsertAfter(nullptr);
    list.InsertBefore(one, one);
    EXPECT_EQ(Keys(list), "2 0 9 8 1 ");
    list.Remove(nullptr);
    EXPECT_FALSE(list.RemoveKey(7));
    for (const int key : {9, 2, 1, 0, 8}) {
        delete list.RemoveKey(key);
    }
    EXPECT_FALSE(list.first() || list.last());
}

}  // namespace
}  // namespace ov
