// The tool's commands on trees: show, get, set.
#include <gmock/gmock.h>

#include <string>

#include "support/test_database.h"
#include "support/tool.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;
using testing::Row;
using testing::RunTool;
using testing::TestDatabase;

TEST(TreeTool, ShowsReadsAndWrites) {
    const TestDatabase database(
        testing::kTree + Row(1, 1, "name=1;DefaultValue=1;Max=9") + Row(1, 12, "DefaultValue=3;Max='!:P(\"1\") + 2'") +
        Row(1, 13, "editable=0;consistency='!:P() < 5'") + Row(1, 14, "Max=9;consistency='!:P() < 5'") +
        Row(1, 15, "subtype='u8';displayFormat='hex'"));
    const auto run = [&](const std::string& command, const std::string& arguments) {
        return RunTool(command + " " + database.path() + " A " + arguments);
    };
    const std::string tree = run("tree", "--language 9").text;
    EXPECT_THAT(tree, AllOf(HasSubstr("PATH    NAME"), HasSubstr("1/1      Device"), HasSubstr("-2147483648 .. 9")));
    EXPECT_THAT(tree, AllOf(HasSubstr("2/1"), HasSubstr("read-only unknown")));
    EXPECT_THAT(run("tree", "--path 1/2").text, Not(HasSubstr("1/1")));
    EXPECT_THAT(run("tree", "--path 1/1 --json").text,
                AllOf(HasSubstr("\"path\": \"1/1/12\""), HasSubstr("\"max\": \"3\"")));
    EXPECT_EQ(run("get", "1/1/12 1/1/1").text, "1/1/12  3  unknown\n1/1/1   1  unknown\n");
    EXPECT_EQ(run("set", "1/1/1=0 1/1/12=2").text,
              "1/1/1: 1 -> 0\n"
              "1/1/12  reconfigured  3  unknown\n"
              "1/1/12  state         3  unknown inconsistent\n"
              "1/1/1   value         0  modified\n"
              "1/1/12: 3 -> 2\n"
              "1/1/12  state  2  unknown modified\n"
              "1/1/12  value  2  modified\n");

    const std::pair<const char*, const char*> failures[] = {
        {"get 1/1", "'1/1' is no path CHANNEL/GROUP/PARAMETER"},
        {"get 1/1/1x", "no parameter '1x' in 1/1; did you mean '1/1/1'?"},
        {"get 1/1/99999", "no parameter '99999' in 1/1; ids run from 1 to 15"},
        {"get 1/2/1", "no parameter '1' in 1/2, which has none"},
        {"get 7/1/1", "no channel '7'; did you mean '1'?"},
        {"tree --path 1/9", "no group '9' in 1; did you mean '1/1'?"},
        {"tree --path 1/1/1", "is no path CHANNEL or CHANNEL/GROUP"},
        {"tree --language 31", "does not support language 31"},
        {"set 1/1/1", "is no CHANNEL/GROUP/PARAMETER=TEXT"},
        {"set 1/1/1=10", "1/1/1 refuses '10': it is outside the limits -2147483648 .. 9"},
        {"set 1/1/1=ten", "1/1/1 refuses 'ten': it does not read as a value of the parameter"},
        {"set 1/1/13=1", "1/1/13 is not editable"},
        {"set 1/1/15=100", "1/1/15 refuses '100': read in its display form it is outside the limits 0 .. 255"},
        {"set 1/1/14=7", "1/1/14 refuses '7': its rule of consistency is against it"},
    };
    for (const auto& [words, expected] : failures) {
        const std::string command = words;
        const std::size_t blank = command.find(' ');
        const auto outcome = run(command.substr(0, blank), command.substr(blank + 1));
        EXPECT_EQ(outcome.status, 1) << words;
        EXPECT_THAT(outcome.text, MatchesRegex("ovmodel: [^\n]*\n")) << words;
        EXPECT_THAT(outcome.text, HasSubstr(expected)) << words;
    }
}

// One parameter that cannot be shown, or a group that loads in part, hides nothing else.
TEST(TreeTool, ShowsWhatThereIsOfAFaultyDescriptor) {
    const TestDatabase database(testing::kTree + Row(1, 1, "displayFormat='0.0 V';editable=NULL") + Row(1, 2, "Max=7") +
                                Row(1, 3, "kind=NULL") + Row(1, 4));
    const auto run = [&](const std::string& command, const std::string& arguments) {
        return RunTool(command + " " + database.path() + " A " + arguments).text;
    };
    EXPECT_THAT(run("tree", ""),
                AllOf(HasSubstr("(Type mismatch)"), HasSubstr("1/1/2"), HasSubstr("2/1"), Not(HasSubstr("1/1/3"))));
    EXPECT_EQ(run("get", "1/1/1 1/1/2"),
              "1/1/1  (Type mismatch)  read-only unknown\n1/1/2  7                unknown\n");
    EXPECT_THAT(run("tree", "--json"), HasSubstr("\"value\": \"(Type mismatch)\""));
    EXPECT_THAT(run("set", "1/1/2=5"), HasSubstr("1/1/2: 7 -> 5\n"));
}

}  // namespace
}  // namespace ov
