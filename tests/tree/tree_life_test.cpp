// One object under all its facets; comparison; and the end of a tree that others still hold parts of.
#include "tree/tree_testing.h"

namespace ov {
namespace {

using testing::Events;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;
using testing::Witness;

const std::string kRows = Row(1, 1, "DefaultValue=1") + Row(1, 2, "Max='!:P(\"1\")'") + Row(2, 1) + Row(3, 1);

class TreeLife : public TreeTest {
protected:
    void LoadAll() { EXPECT_TRUE(static_cast<IBase_GuiModule*>(module.get())->consistent({})); }
};

TEST_F(TreeLife, FacetsOfOneObjectAreOneObject) {
    Load(kRows);
    const auto parameter = Parameter(u"1");
    EXPECT_TRUE(SameObject(parameter.get(), parameter->Spec().get()));
    EXPECT_TRUE(SameObject(parameter->group().get(), Group().get()));
    EXPECT_TRUE(SameObject(parameter->group()->channel().get(), Channel().get()));
    EXPECT_TRUE(SameObject(Channel()->module().get(), module->Dispatch()));
    EXPECT_TRUE(SameObject(Channel()->Gui()->module().get(), module->Dispatch()));
    EXPECT_EQ(Channel()->Gui()->Spec(), Channel());
    EXPECT_EQ(Group()->Gui()->Spec(), Group());
    EXPECT_EQ(parameter->Spec()->Gui(), parameter);
    EXPECT_EQ(Group()->Gui()->parameters()->get_Item(u"1"), parameter) << "two views of one list";
    EXPECT_FALSE(Channel()->Clone() || Group()->Clone());
    EXPECT_EQ(Group()->Gui()->name(), u"Gerät");
    EXPECT_EQ(Group(u"2")->Gui()->name(), u"");
    ASSERT_TRUE(module->SetLanguage(9));
    EXPECT_EQ(Channel()->Gui()->name(), u"Device");
}

TEST_F(TreeLife, ComparisonLooksFromOneSide) {
    Load(kRows);
    const auto other = static_cast<IBase_SpecModule*>(module.get())->CloneType();
    const auto theirs = other->channels()->get_Item(u"1");
    EXPECT_TRUE(Channel()->Compare(Channel().get(), {}));
    EXPECT_TRUE(Channel()->Compare(theirs.get(), {}));
    EXPECT_FALSE(Channel()->Compare(nullptr, {}) || Group()->Compare(nullptr, {}));
    Parameter(u"1")->let_value(u"0");
    EXPECT_FALSE(Channel()->Compare(theirs.get(), {}));
    EXPECT_TRUE(Channel()->Compare(theirs.get(), static_cast<eParameterKind>(8))) << "no parameter of that kind";
    Parameter(u"1")->let_value(u"1");
    theirs->groups()->Remove(u"2");
    EXPECT_FALSE(Channel()->Compare(theirs.get(), {}));
    EXPECT_TRUE(theirs->Compare(Channel().get(), {}));
    facet<CBase_Module>(other)->Unload();
}

TEST_F(TreeLife, AnUnloadedTreeAnswersFromNothing) {
    Load(kRows);
    LoadAll();
    const auto channel = Channel();
    const auto group = Group();
    const auto block = channel->Gui()->blocks()->get_Item(u"10");
    const auto parameter = Parameter(u"1");
    for (int i = 0; i < 2; ++i) {
        module->Unload();
        EXPECT_FALSE(channel->module() || group->channel() || block->channel() || parameter->group());
        EXPECT_FALSE(group->Gui()->blocks());
        EXPECT_EQ(channel->Gui()->name().size() + group->Gui()->name().size() + block->name().size(), 0u);
        EXPECT_EQ(channel->groups()->Count() + block->groups()->Count() + group->parameters()->Count(), 0);
        EXPECT_TRUE(group->EvaluateScript(u"1").IsEmpty());
        EXPECT_TRUE(channel->EvaluateScript(u"1").IsEmpty());
        EXPECT_TRUE(channel->Gui()->consistent());
        EXPECT_FALSE(channel->Gui()->mainValue());
        channel->UpdateDependencies();
        Text arguments;
        EXPECT_EQ(group->Gui()->EditPlugin(&arguments), u"");
        facet<CBase_Group>(group)->ExecuteScript(u"x = 1");
    }
}

// What was never loaded has nothing to load from either.
TEST_F(TreeLife, AnUnloadedShellStaysEmpty) {
    Load(kRows);
    const auto channel = Channel(u"2");
    module->Unload();
    EXPECT_FALSE(channel->groups());
    EXPECT_EQ(channel->groups()->Count(), 0);
}

TEST_F(TreeLife, NothingOutlivesWhoeverHoldsOn) {
    Events events;
    const struct {
        const char* what;
        std::function<Ref<IDispatch>()> take;
    } holders[] = {
        {"channel", [&] { return Ref<IDispatch>(Channel().get()); }},
        {"group", [&] { return Ref<IDispatch>(Group().get()); }},
        {"block", [&] { return Ref<IDispatch>(Channel()->Gui()->blocks()->get_first().get()); }},
        {"parameter", [&] { return Ref<IDispatch>(Parameter(u"1").get()); }},
        {"list", [&] { return Ref<IDispatch>(Group()->parameters().get()); }},
        {"script's parameters",
         [&] { return Ref<IDispatch>(facet<IBase_ScriptingGroup>(Group())->parameters().get()); }},
        {"script's groups", [&] { return Ref<IDispatch>(facet<IBase_ScriptingChannel>(Channel())->groups().get()); }},
    };
    for (const auto& holder : holders) {
        SCOPED_TRACE(holder.what);
        Load(kRows);
        LoadAll();
        const Ref<Witness> listener = MakeObject<Witness>("l", events);
        listener->held = holder.take();
        Parameter(u"1")->RegisterCallback(listener.get());
        Group()->Gui()->RegisterCallback(listener->Dispatch());
        Channel()->Gui()->RegisterCallback(listener->Dispatch());
        Channel()->Gui()->blocks()->get_first()->RegisterCallback(listener->Dispatch());
        facet<CBase_Group>(Group())->ExecuteScript(u"Set kept = CH(\"1\")(\"2\") : Set me = P : Set other = CH");
        module->Unload();
        module = nullptr;
        EXPECT_GT(LivingObjects::Count(), mLiving) << "the listener and what it holds";
        listener->held = nullptr;
        EXPECT_EQ(LivingObjects::Count(), mLiving + 1);
    }
}

TEST_F(TreeLife, ReplacedObjectsEndWithTheTree) {
    Load(kRows + "UPDATE [Groups] SET groupId = 1;UPDATE Channels SET ChannelId = 1;" + Row(1, 1, "[order]=9"));
    LoadAll();
    EXPECT_EQ(Channel()->groups()->Count(), 1);
}

// At each event that one write can set off, from each level, and in the middle of the load of the parameters.
TEST_F(TreeLife, AListenerMayUnloadTheTreeUnderItself) {
    const std::string rule = "dependency='!:P(\"1\") = 1'";
    const std::pair<const char*, std::string> dependants[] = {
        {"1.Value", ""},
        {"2.Reconfigured", Row(1, 2, "Max='!:P(\"1\") + 7'")},
        {"2.ConfigState", Row(1, 2, rule)},
        {"2.Reconfigured", Row(1, 2, rule) + Row(1, 2, "DefaultValue=2")},
        {"2.Reconfigured", Row(1, 2, "realGain='!:P(\"1\") + 1'")},
    };
    Events events;
    const auto unload = [&](IBase_GuiParameter*, const std::string&) { module->Unload(); };
    const auto listen = [&](const std::string& level) {
        const Ref<Witness> witness = MakeObject<Witness>(level, events, unload);
        if (level == "group") Group()->Gui()->RegisterCallback(witness->Dispatch());
        if (level == "block") Channel()->Gui()->blocks()->get_first()->RegisterCallback(witness->Dispatch());
        if (level == "channel") Channel()->Gui()->RegisterCallback(witness->Dispatch());
        if (level == "module") static_cast<IBase_GuiModule*>(module.get())->RegisterCallback(witness->Dispatch());
    };
    for (const std::string level : {"group", "block", "channel", "module"}) {
        for (const auto& [event, rows] : dependants) {
            Load(Row(1, 1, "DefaultValue=1") + rows + Row(1, 3));
            const auto parameter = Parameter(u"1");
            events.clear();
            listen(level);
            try {
                parameter->let_value(u"0");
            } catch (const RuntimeError& error) {
                EXPECT_EQ(error.number(), 91) << "the write that goes on finds no group any more";
            }
            ASSERT_FALSE(events.empty()) << level << event;
            EXPECT_EQ(events.front(), level + ":" + event);
        }
        Load(kRows);
        listen(level);
        const auto group = Group();
        EXPECT_EQ(group->parameters()->Count(), 0);
    }
}

TEST_F(TreeLife, AFreshLoadIsAFreshTree) {
    Load(kRows);
    const auto old = Parameter(u"1");
    ASSERT_TRUE(module->Load(u"A", {}, {}));
    EXPECT_FALSE(old->group());
    EXPECT_NE(Parameter(u"1"), old);
}

}  // namespace
}  // namespace ov
