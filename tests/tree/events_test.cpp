// The order in which the tree tells what one write of a user changed, at every level.
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::ElementsAre;
using testing::Events;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;
using testing::Witness;

class TreeEvents : public TreeTest {
protected:
    void Listen(IDispatch* at, const std::string& place, Witness::Reaction reaction = {}) {
        const Ref<Witness> witness = MakeObject<Witness>(place, events, std::move(reaction));
        if (auto gui = facet<IBase_GuiParameter>(at)) return gui->RegisterCallback(witness.get());
        std::array<Variant, 1> arguments{Variant(witness->Dispatch())};
        Arguments call{arguments};
        at->Invoke(at->GetIDsOfNames(u"RegisterCallback"), CallKind::Call, call);
    }
    void ListenEverywhere() {
        Listen(static_cast<IBase_GuiModule*>(module.get()), "module");
        Listen(Channel()->Gui().get(), "channel");
        for (const char16_t* block : {u"10", u"20"}) {
            Listen(Channel()->Gui()->blocks()->get_Item(block).get(), "block" + Text(block).ToUtf8());
        }
        Listen(Group()->Gui().get(), "group");
        Listen(Group(u"2")->Gui().get(), "other group");
    }
    // Only what listeners in one place heard, without the place.
    Events At(const std::string& place) {
        Events heard;
        for (const std::string& event : events) {
            if (event.starts_with(place + ":")) heard.push_back(event.substr(place.size() + 1));
        }
        return heard;
    }
    Events events;
};

TEST_F(TreeEvents, GoUpFromTheParameterByItsBlocksPastTheChannelToTheModule) {
    Load(Row(1, 1, "DefaultValue=1") + Row(2, 1, "DefaultValue=1"));
    ListenEverywhere();
    Listen(Parameter(u"1").get(), "parameter");
    Parameter(u"1")->let_value(u"5");
    EXPECT_THAT(events, ElementsAre("parameter:1.Value", "group:1.Value", "block10:1.Value", "channel:1.Value",
                                    "module:1.Value"));
    events.clear();
    Parameter(u"1", u"2")->ClearUnknown();
    EXPECT_THAT(events, ElementsAre("other group:1.State", "block10:1.State", "block20:1.State", "channel:1.State",
                                    "module:1.State"))
        << "the channel hears it once, however many blocks hold the group";
}

TEST_F(TreeEvents, OfDependantsComeBeforeTheWriteItself) {
    Load(Row(1, 1, "DefaultValue=1") + Row(1, 2, "DefaultValue=3;Max='!:P(\"1\") + 2'") +
         Row(1, 3, "dependency='!:P(\"1\") = 1';removeOnDependency=-1") +
         Row(1, 4, "DefaultValue=10;dependency='!:P(\"1\") = 1'") + Row(1, 4, "DefaultValue=20"));
    ListenEverywhere();
    Parameter(u"1");
    EXPECT_THAT(At("group"), ElementsAre("2.Reconfigured")) << "a rule gave it its limit while it was loaded";
    events.clear();
    Parameter(u"1")->let_value(u"0");
    const Events all = At("channel");
    EXPECT_THAT(all, ElementsAre("3.ConfigState", "4.Reconfigured", "2.Reconfigured", "2.State", "1.Value"));
    EXPECT_EQ(At("group"), all);
    EXPECT_EQ(At("block10"), all);
    EXPECT_EQ(At("module"), all);
    EXPECT_EQ(Parameter(u"3")->configState(), eParameterConfigState::eParameterInvalid);
    EXPECT_EQ(Parameter(u"4")->get_value(), u"20");
    EXPECT_FALSE(Parameter(u"2")->consistent());
    EXPECT_FALSE(Group()->Gui()->consistent());

    events.clear();
    Parameter(u"1")->let_value(u"1");
    EXPECT_EQ(Parameter(u"3")->configState(), eParameterConfigState::eParameterValid);
    EXPECT_EQ(Parameter(u"4")->get_value(), u"20") << "a row without a rule stays in force once it is";
    EXPECT_TRUE(Group()->Gui()->consistent());
}

TEST_F(TreeEvents, AListenerMayWriteOtherParameters) {
    Load(Row(1, 1) + Row(1, 2) + Row(2, 1));
    ListenEverywhere();
    Listen(Parameter(u"1").get(), "writer", [&](IBase_GuiParameter* p, const std::string&) {
        Parameter(u"2")->let_value(p->get_value());
        Parameter(u"1", u"2")->let_value(p->get_value());
    });
    Parameter(u"1")->let_value(u"7");
    EXPECT_THAT(At("module"), ElementsAre("2.Value", "1.Value", "1.Value"));
    EXPECT_EQ(Parameter(u"2")->get_value(), u"7");
    EXPECT_EQ(Parameter(u"1", u"2")->get_value(), u"7");
}

TEST_F(TreeEvents, AListenerThatFailsEndsTheRoundAndTheWriterIsTold) {
    Load(Row(1, 1));
    ListenEverywhere();
    Listen(Group()->Gui().get(), "failing",
           [](IBase_GuiParameter*, const std::string&) { Raise(ErrorNumber::TypeMismatch); });
    EXPECT_THROW(Parameter(u"1")->let_value(u"7"), RuntimeError);
    EXPECT_THAT(events, ElementsAre("group:1.Value", "failing:1.Value"));
    EXPECT_EQ(Parameter(u"1")->get_value(), u"7") << "the value stands";
}

TEST_F(TreeEvents, ARingOfListenersIsAnError) {
    Load(Row(1, 1));
    const Ref<IBase_GuiChannel> channel = Channel()->Gui();
    channel->RegisterCallback(channel.get());
    channel->RegisterCallback(Group()->Gui().get());
    EXPECT_THROW(Parameter(u"1")->ClearUnknown(), RuntimeError);
    EXPECT_THROW(Parameter(u"1")->let_value(u"5"), RuntimeError);
    EXPECT_EQ(Parameter(u"1")->get_value(), u"5") << "as with any listener that fails";
}

TEST_F(TreeEvents, AListenerIsToldAsOftenAsItRegisteredAndLeavesAltogether) {
    Load(Row(1, 1));
    const Ref<Witness> twice = MakeObject<Witness>("twice", events);
    const Ref<IBase_GuiChannel> channel = Channel()->Gui();
    channel->RegisterCallback(twice->Dispatch());
    channel->RegisterCallback(twice->Dispatch());
    Parameter(u"1")->let_value(u"1");
    EXPECT_EQ(events.size(), 2u);
    channel->UnregisterCallback(twice->Dispatch());
    Parameter(u"1")->let_value(u"2");
    EXPECT_EQ(events.size(), 2u);
    EXPECT_THROW(channel->RegisterCallback(Group()->parameters().get()), RuntimeError) << "no listener";
    EXPECT_THROW(Group()->Gui()->RegisterCallback(nullptr), RuntimeError);
}

TEST_F(TreeEvents, AScopeGrowsOnceAScriptReachesIn) {
    Load(Row(1, 1, "DefaultValue=1") + Row(2, 1, "DefaultValue=5;Max='!:G(\"1\")(\"1\")'") +
         Row(3, 1, "DefaultValue=5;Max='!:CH(\"1\")(\"1\")(\"1\")'"));
    const auto far = facet<IBase_GuiParameter>(Channel(u"2")->groups()->get_Item(u"1")->parameters()->get_Item(u"1"));
    EXPECT_TRUE(Group()->scriptAccess() && Channel()->scriptAccess());
    const auto near = Parameter(u"1", u"2");
    EXPECT_FALSE(Group(u"2")->scriptAccess());
    EXPECT_FALSE(near->consistent() || far->consistent());
    Parameter(u"1")->let_value(u"9");
    EXPECT_TRUE(near->consistent());
    EXPECT_TRUE(far->consistent());
    Parameter(u"1")->let_value(u"2");
    EXPECT_FALSE(near->consistent() || far->consistent());
}

TEST_F(TreeEvents, RulesThatReadEachOtherSettle) {
    Load(Row(1, 1, "DefaultValue=1;dependency='!:P(\"2\") < 5'") + Row(1, 1, "DefaultValue=100") +
         Row(1, 2, "DefaultValue=0") + Row(1, 3, "DefaultValue=1;dependency='!:P(\"1\") = 1'") +
         Row(1, 3, "DefaultValue=2") + Row(1, 4, "dependency='!:P(\"3\") = 1'"));
    EXPECT_TRUE(facet<IBase_SpecParameter>(Parameter(u"1"))->scriptAccess());
    EXPECT_FALSE(facet<IBase_SpecParameter>(Parameter(u"4"))->scriptAccess());
    Parameter(u"2")->let_value(u"6");
    EXPECT_EQ(Parameter(u"1")->get_value(), u"100");
    EXPECT_EQ(Parameter(u"3")->get_value(), u"2");
    EXPECT_EQ(Parameter(u"4")->configState(), eParameterConfigState::eParameterDisabled);
}

}  // namespace
}  // namespace ov
