// What builds the tree and what does not, and what stands after a descriptor that fails half way.
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::Row;
using testing::TreeTest;

class LazyLoading : public TreeTest {
protected:
    std::string Loads(const std::function<void()>& action) { return Logged(action, true); }
    IBase_GuiModule& Gui() { return *static_cast<IBase_GuiModule*>(module.get()); }
};

TEST_F(LazyLoading, WhatCannotHaveChangedIsNotLoadedToAsk) {
    Load(Row(1, 1) + Row(2, 1) + Row(3, 1), 0);
    const auto cheap = [](auto& node) {
        EXPECT_FALSE(node.modified({}));
        EXPECT_FALSE(node.unknown({}));
        node.ClearModified({});
        node.SetUnknown({});
        EXPECT_NE(ToText(node.id()), u"x");
    };
    EXPECT_THAT(Loads([&] { cheap(Gui()); }), IsEmpty());
    EXPECT_THAT(Loads([&] { cheap(*Channel()->Gui()); }), IsEmpty());
    EXPECT_EQ(Loads([&] { cheap(*Group()->Gui()); }), "Id '1': LoadGroups()\n");
    EXPECT_THAT(Loads([&] {
                    Channel()->UpdateDependencies();
                    Channel()->CheckConsistency();
                    Text arguments;
                    EXPECT_EQ(Group()->Gui()->EditPlugin(&arguments), u"ed");
                    EXPECT_EQ(arguments, u"args");
                    arguments = u"kept";
                    EXPECT_EQ(Group(u"2")->Gui()->EditPlugin(&arguments), u"");
                    EXPECT_EQ(Channel()->Gui()->EditPlugin(&arguments), u"");  // the table has no such column
                    EXPECT_EQ(arguments, u"kept");
                }),
                IsEmpty());
    EXPECT_EQ(Loads([&] { Parameter(u"1"); }), "Id '1': LoadParameters():\n");
    EXPECT_TRUE(Gui().unknown({}));
    EXPECT_THAT(Loads([&] { Gui().ResetValue({}); }),
                AllOf(HasSubstr("Id '2': LoadParameters()"), HasSubstr("Id '2': LoadGroups()")));
    EXPECT_FALSE(Gui().unknown({}));
}

TEST_F(LazyLoading, EachOfTheseBuildsWhatItNeeds) {
    const std::pair<const char*, void (*)(IBase_GuiChannel&)> operations[] = {
        {"consistent", [](IBase_GuiChannel& c) { c.consistent({}); }},
        {"ClearUnknown", [](IBase_GuiChannel& c) { c.ClearUnknown({}); }},
        {"ResetValue", [](IBase_GuiChannel& c) { c.ResetValue({}); }},
        {"LockDataset", [](IBase_GuiChannel& c) { c.LockDataset({}); }},
        {"UnlockDataset", [](IBase_GuiChannel& c) { c.UnlockDataset({}); }},
    };
    for (const auto& [name, run] : operations) {
        Load(Row(1, 1) + Row(2, 1), 0);
        EXPECT_EQ(Loads([&] { run(*Channel()->Gui()); }),
                  "Id '1': LoadGroups()\nId '1': LoadParameters():\nId '2': LoadParameters():\n")
            << name;
    }
    Load(Row(1, 1), 0);
    EXPECT_EQ(Loads([&] { Channel()->Gui()->blocks(); }), "Id '1': LoadGroups()\n");
    EXPECT_EQ(Loads([&] { Group()->EvaluateScript(u"1"); }), "Id '1': LoadParameters():\n");
    EXPECT_EQ(Loads([&] { Channel(u"2")->EvaluateScript(u"1"); }), "Id '2': LoadGroups()\n");
}

TEST_F(LazyLoading, ANodeWithoutRowsIsWhole) {
    Load("DELETE FROM [Groups] WHERE ChannelType = 2");
    const auto channel = Channel(u"2")->Gui();
    EXPECT_TRUE(channel->consistent());
    EXPECT_FALSE(channel->modified() || channel->unknown());
    EXPECT_EQ(channel->blocks()->Count(), 0);
    const auto group = Group()->Gui();
    EXPECT_EQ(group->parameters()->Count(), 0);
    EXPECT_TRUE(group->consistent() && group->expertOnly());
    EXPECT_FALSE(group->modified());
}

TEST_F(LazyLoading, KindsSelectParameters) {
    Load(Row(1, 1, "kind=4;Max='!:-1'") + Row(1, 2));
    const auto group = Group()->Gui();
    Parameter(u"2")->let_value(u"5");
    Parameter(u"2")->ClearUnknown();
    const std::string lines = Logged([&] {
        EXPECT_TRUE(group->consistent(static_cast<eParameterKind>(2)));
        EXPECT_TRUE(group->modified(static_cast<eParameterKind>(2)));
        EXPECT_FALSE(group->modified(static_cast<eParameterKind>(8)));
        EXPECT_TRUE(group->unknown(static_cast<eParameterKind>(10)));
        EXPECT_FALSE(group->unknown(static_cast<eParameterKind>(4)));
    });
    EXPECT_THAT(lines, IsEmpty());
    EXPECT_THAT(Logged([&] { EXPECT_FALSE(group->consistent()); }), HasSubstr("ist inkonsistent"));
}

struct Fault {
    const char* what;
    std::string sql;
    const char* channels;  // ids of the channels, of the groups and of the parameters that stand
    const char* groups;
    const char* parameters;
    const char* log;
};

void PrintTo(const Fault& fault, std::ostream* stream) {
    *stream << fault.what;
}

class DescriptorFault : public TreeTest, public ::testing::WithParamInterface<Fault> {};

// A failed load is told once and leaves what was built; the next one takes that for the whole.
TEST_P(DescriptorFault, LeavesWhatWasBuilt) {
    const Fault& fault = GetParam();
    const std::string lines = Logged([&] {
        Load(Row(1, 1) + Row(1, 2) + Row(1, 3) + fault.sql);
        if (!Channel()) return;
        Channel()->groups();
        if (Group()) Group()->parameters();
    });
    EXPECT_THAT(lines, HasSubstr(fault.log));
    EXPECT_EQ(Ids(module->Spec()->channels()), fault.channels);
    EXPECT_EQ(Channel() ? Ids(Channel()->groups()) : "", fault.groups);
    EXPECT_EQ(Channel() && Group() ? Ids(Group()->parameters()) : "", fault.parameters);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DescriptorFault,
    ::testing::Values(
        Fault{"no table of channels", "DROP TABLE Channels", "", "", "", "LoadChannels(): Error: "},
        Fault{"a column that is missing", "ALTER TABLE Channels DROP COLUMN ChannelType", "", "", "",
              "LoadChannels(): Error: "},
        Fault{"a text for a number", "UPDATE Channels SET ChannelType = 'x' WHERE ChannelId = 2", "1 ", "1 2 ",
              "1 2 3 ", "LoadChannels(): Error: Type mismatch"},
        Fault{"a channel without a type", "UPDATE Channels SET ChannelType = NULL, name = NULL", "1 2 ", "", "", ""},
        Fault{"no table of groups", "DROP TABLE [Groups]", "1 2 ", "", "", "LoadGroups(): ONERROR: "},
        Fault{"a group without type", "UPDATE [Groups] SET GroupType = NULL WHERE groupId = 2", "1 2 ", "1 ", "1 2 3 ",
              "LoadGroups(): ONERROR: Invalid use of Null"},
        Fault{"a block that is missing", "UPDATE [Groups] SET block1 = 7", "1 2 ", "1 ", "1 2 3 ",
              "LoadGroups(): ONERROR: No current record"},
        Fault{"two groups of one id", "UPDATE [Groups] SET groupId = 1, block2 = NULL", "1 2 ", "1 ", "", ""},
        Fault{"no table of parameters", "DROP TABLE Parameters", "1 2 ", "1 2 ", "", "LoadParameters(): Error: "},
        Fault{"a column of parameters that is missing", "ALTER TABLE Parameters DROP COLUMN Type", "1 2 ", "1 2 ", "",
              "LoadParameters(): Error: "},
        Fault{"an unknown word", "UPDATE Parameters SET Type = 'int' WHERE ParameterId = 2", "1 2 ", "1 2 ", "1 3 ",
              "(ParamId 1) CreateParameter(): Error: Parameter of Type 'int' could not be loaded\n"},
        Fault{"no word", "ALTER TABLE Parameters RENAME COLUMN Type TO T; ALTER TABLE Parameters ADD COLUMN Type TEXT",
              "1 2 ", "1 2 ", "", "Parameter of Type '' could not be loaded\n"},
        Fault{"a kind that is no number", "UPDATE Parameters SET kind = 'x' WHERE ParameterId = 2", "1 2 ", "1 2 ",
              "1 ", "LoadParameters(): Error: Type mismatch"},
        Fault{"a filter that fails", "UPDATE Parameters SET enable = '#:P(' WHERE ParameterId = 2", "1 2 ", "1 2 ",
              "1 3 ", "Evaluate(P(): ERROR: "},
        Fault{"a filter that looks back",
              "UPDATE Parameters SET enable = '#:P(\"1\") = 0 And IsEmpty(P(\"3\"))' "
              "WHERE ParameterId = 2",
              "1 2 ", "1 2 ", "1 2 3 ", "value(3): Error when calling 'mData(3).value':"}),
    [](const auto& test) {
        std::string name = test.param.what;
        std::erase_if(name, [](char c) { return c == ' '; });
        return name;
    });

TEST_F(LazyLoading, ARuleReachesWhatAFailedLoadHasLeft) {
    Load(Row(1, 1) + Row(2, 1, "DefaultValue=7") + Row(2, 2, "kind=NULL") + Row(3, 1, "DefaultValue=8") +
         "INSERT INTO [Groups] (ChannelType, groupId) VALUES (2, 9);");
    EXPECT_EQ(Eval(u"G(\"2\")(\"1\")"), "7");
    EXPECT_EQ(Eval(u"CH(\"2\")(\"1\")(\"1\")"), "8");
}

TEST_F(LazyLoading, RowsOfOneIdThatAreNeighboursMakeOneParameter) {
    Load(Row(1, 1, "DefaultValue=1") + Row(1, 2, "DefaultValue=2") + Row(1, 2, "enable='False';DefaultValue=3") +
         Row(1, 2, "DefaultValue=4") + Row(1, 1, "[order]=9;DefaultValue=5"));
    EXPECT_EQ(Ids(Group()->parameters()), "2 1 ") << "the later one takes the place of the earlier and moves";
    EXPECT_EQ(Parameter(u"1")->get_value(), u"5");
    const auto ring = facet<IBase_Internal>(Parameter(u"2"))->dependencies();
    const std::int32_t first = ring->get_idx();
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), first + 2) << "the filtered row is no alternative";
    ring->MoveNext();
    EXPECT_EQ(ring->get_idx(), first);
}

TEST_F(LazyLoading, TheMainValueIsLookedUpUntilItsTextIsSenseless) {
    Load(Row(1, 1) + Row(3, 1));
    const auto channel = Channel()->Gui();
    EXPECT_EQ(channel->mainValue(), Parameter(u"1"));
    const auto ask = [&](const Text& id) { return Logged([&] { EXPECT_FALSE(Channel(id)->Gui()->mainValue()); }); };
    EXPECT_THAT(ask(u"2"), IsEmpty());
    const std::string senseless = "UPDATE ChannelTypes SET mainValue = 'abc'";
    Load(senseless);
    EXPECT_EQ(ask(u"1"), "IBase_GuiChannel_mainValue(abc): ungültiger Wert.\n");
    EXPECT_THAT(ask(u"1"), IsEmpty());
    Load("UPDATE ChannelTypes SET mainValue = 'G(\"7\").P(\"2\")'");
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ask(u"1"),
                  "IBase_GuiChannel_mainValue(G(\"7\").P(\"2\")): Gruppe 7 oder Parameter 2 nicht gefunden.\n");
    }
    Load("DROP TABLE [Groups]; UPDATE ModuleTypes SET mainValue = 'CH(\"1\").G(\"1\").P(\"1\")'");
    EXPECT_FALSE(Gui().mainValue());
    EXPECT_FALSE(channel->mainValue()) << "of a module that is gone";
}

TEST_F(LazyLoading, BlocksShowTheirGroupsByPosition) {
    Load();
    const auto blocks = Channel()->Gui()->blocks();
    EXPECT_EQ(Ids(blocks), "10 20 ");
    EXPECT_EQ(Ids(blocks->get_Item(u"10")->groups()), "2 1 ");
    EXPECT_EQ(Ids(blocks->get_Item(u"20")->groups()), "2 ");
    EXPECT_EQ(Ids(Group(u"2")->Gui()->blocks()), "10 20 ");
    EXPECT_EQ(blocks->get_Item(u"10")->name(), u"Gerät");
    EXPECT_EQ(blocks->get_Item(u"20")->name(), u"");
    EXPECT_EQ(blocks->get_Item(u"20")->channel(), Channel()->Gui());
    EXPECT_EQ(blocks->get_first()->groups()->get_first(), Group(u"2")->Gui());
    // Group 1 makes block 5, group 2 block 6 of the same id, which takes its place; so group 3 makes another block 5.
    Load(
        "UPDATE Blocks SET BlockId = 10; UPDATE [Groups] SET block1 = NULL, block2 = 6 WHERE groupId = 2;"
        "INSERT INTO [Groups] SELECT 1, 9, 3, NULL, 5, 1, NULL, NULL, NULL, NULL, NULL, NULL");
    EXPECT_EQ(Ids(Channel()->Gui()->blocks()), "10 ");
    EXPECT_EQ(Ids(Channel()->Gui()->blocks()->get_first()->groups()), "3 ");
    EXPECT_EQ(Ids(Group()->Gui()->blocks()->get_first()->groups()), "1 ");
}

}  // namespace
}  // namespace ov
