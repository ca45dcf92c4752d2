// The tool's commands on files of device values: save, load, compare, and set that starts from one.
#include <gmock/gmock.h>

#include <fstream>
#include <string>

#include "support/temporary_folder.h"
#include "support/test_database.h"
#include "support/tool.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using testing::Outcome;
using testing::Row;
using testing::RunTool;
using testing::TemporaryFolder;
using testing::TestDatabase;

class StateCommands : public ::testing::Test {
protected:
    Outcome Run(const std::string& command, const std::string& arguments) {
        return RunTool(command + " " + mDatabase.path() + " A " + arguments);
    }
    // A file of values whose "values" are @p values.
    std::string File(const std::string& name, const std::string& values) {
        const std::string head = Run("save", "").text;
        std::ofstream(mFolder / name) << head.substr(0, head.find("\"values\"")) << "\"values\": {" << values << "}}";
        return mFolder / name;
    }

    // Parameters 1 and 2 depend on 9, which stands behind them; 3 goes with 9 and has a unit.
    TestDatabase mDatabase{testing::kTree + Row(1, 1, "DefaultValue=10;dependency='!:P(\"9\") = 1'") +
                           Row(1, 1, "DefaultValue=20;dependency='!:P(\"9\") = 2'") +
                           Row(1, 2, "DefaultValue=1;Max='!:P(\"9\") * 10'") +
                           Row(1, 3, "unit=1;dependency='!:P(\"9\") = 1';removeOnDependency=-1") +
                           Row(1, 4, "Type='FLOAT';DefaultValue='0.5';realGain='1'") + Row(1, 9, "DefaultValue=1") +
                           Row(2, 1, "DefaultValue=5;name=1;Max='!:G(\"1\")(\"9\") * 5'") +
                           Row(2, 2, "Type='STRING';DefaultValue='first|second';Max=20")};
    TemporaryFolder mFolder;
};

TEST_F(StateCommands, CarryADeviceThroughFiles) {
    const std::string fresh = mFolder / "fresh.json", edited = mFolder / "edited.json", again = mFolder / "again.json";
    EXPECT_EQ(Run("save", "-o " + fresh).text, "");
    EXPECT_EQ(Run("set", "1/1/9=2 1/1/2=15 1/2/2=other --save " + edited).text,
              "1/1/9: 1 -> 2\n"
              "1/1/1  reconfigured  20  unknown\n"
              "1/1/3  config state  0   removed\n"
              "1/1/2  reconfigured  1   unknown\n"
              "1/2/1  reconfigured  5   unknown\n"
              "1/1/9  value         2   modified\n"
              "1/1/2: 1 -> 15\n"
              "1/1/2  value  15  modified\n"
              "1/2/2: first|second -> other\n"
              "1/2/2  value  other  modified\n");
    EXPECT_EQ(Run("load", fresh).text, "7 of 7 values placed\n");
    const Outcome loaded = Run("load", edited + " --language 9");
    EXPECT_EQ(loaded.status, 0);
    EXPECT_THAT(loaded.text, MatchesRegex("1/1/1 +10 -> 20\n"
                                          "1/1/2 +1 -> 15\n"
                                          "1/1/3 +0 Device -> 0 Device \\(removed\\)\n"
                                          "1/1/9 +1 -> 2\n"
                                          "1/2/2 +first\\|second -> other\n"
                                          "7 of 7 values placed\n"));

    // What rules make of the values is not written: it goes on to follow the rules.
    EXPECT_THAT(Run("set", "--load " + edited + " 1/1/9=1 --save " + again).text,
                AllOf(HasSubstr("1/1/1  reconfigured  10"), HasSubstr("1/1/3  config state  0   unknown"),
                      HasSubstr("1/1/2  state         15  modified inconsistent")));
    const std::pair<std::string, int> comparisons[] = {
        {fresh + " " + edited, 1}, {edited + " " + edited, 0}, {edited + " " + again, 1}, {fresh + " none.json", 2}};
    for (const auto& [files, status] : comparisons) {
        EXPECT_EQ(Run("compare", files).status, status) << files;
    }
    EXPECT_EQ(Run("compare", again + " " + fresh).text, "1/1/2    15 -> 1\n1/2/2    other -> first|second\n");
    EXPECT_THAT(Run("compare", again + " " + fresh + " --json").text,
                AllOf(HasSubstr("\"path\": \"1/2/2\""), HasSubstr("\"a\": \"other\""), HasSubstr("\"b\": \"first")));
}

TEST_F(StateCommands, SayWhatHasNoPlace) {
    const std::string file =
        File("f.json", R"("1/1/77": "1", "1/1/4": "1.50", "1/1/9": "x", "1/2/1": "9", "1/2": "1")");
    const Outcome outcome = Run("load", file);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.text,
                AllOf(HasSubstr("1/1/4         0.5 -> 1.5\n"), HasSubstr("1/2/1  Ger\u00E4t  5 -> 9\n"),
                      HasSubstr("1/1/77  no place  no parameter '77' in 1/1"),
                      HasSubstr("1/1/9   no place  the parameter does not take 'x'\n"),
                      HasSubstr("1/2     no place  '1/2' is no path"), HasSubstr("2 of 5 values placed\n"),
                      HasSubstr("ovmodel: 3 of 5 values of '" + file + "' have no place\n")));
    EXPECT_THAT(Run("load", file + " --json").text, HasSubstr("\"reason\": \"the parameter does not take 'x'\""));
    EXPECT_THAT(Run("load", File("nan.json", R"("1/1/4": "QNAN")")).text, HasSubstr("0.5 -> QNAN\n"));
    EXPECT_THAT(Run("compare", file + " " + file).text, HasSubstr("no place for 1/1/77: no parameter '77' in 1/1"));

    std::ofstream(mFolder / "text.json") << "no JSON";
    std::ofstream(mFolder / "other.json") << R"({"type": "A", "values": {}})";
    std::ofstream(mFolder / "newer.json") << R"({"content": "OV_Model device values", "version": 2})";
    std::ofstream(mFolder / "empty.json") << R"({"content": "OV_Model device values", "version": 1})";
    std::ofstream(mFolder / "type.json")
        << R"({"content": "OV_Model device values", "version": 1, "type": "B", "values": {}})";
    const std::pair<std::string, const char*> failures[] = {
        {mFolder / "none.json", "cannot read"},
        {mFolder.path(), "cannot read"},
        {mFolder / "text.json", "is no JSON"},
        {mFolder / "other.json", "is no file of device values"},
        {mFolder / "newer.json", "a form of another version"},
        {mFolder / "empty.json", "has no values"},
        {mFolder / "type.json", "the values are of another device: its type is \"B\", not \"A\""},
        {File("number.json", R"("1/1/9": 1)"), "the value of 1/1/9 is no text"},
    };
    for (const auto& [path, expected] : failures) {
        const Outcome failure = Run("load", path);
        EXPECT_EQ(failure.status, 1) << path;
        EXPECT_THAT(failure.text, AllOf(MatchesRegex("ovmodel: [^\n]*\n"), HasSubstr(expected))) << path;
        EXPECT_EQ(Run("set", "1/1/9=1 --load " + path).status, 1) << path;
    }
    EXPECT_EQ(Run("save", "-o /no/such/folder/x.json").text,
              "ovmodel: cannot write '/no/such/folder/x.json': No such file or directory\n");
}

}  // namespace
}  // namespace ov
