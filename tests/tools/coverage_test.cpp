// --coverage: what the tool tells of the rules that ran.
#include <gmock/gmock.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "support/temporary_folder.h"
#include "support/test_database.h"
#include "support/tool.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using Json = nlohmann::json;
using testing::Outcome;
using testing::Row;
using testing::RunShell;
using testing::RunTool;
using testing::TemporaryFolder;
using testing::TestDatabase;

class Coverage : public ::testing::Test {
protected:
    const Json& Rule(int row, const std::string& column) {
        for (const Json& rule : mType["rules"]) {
            if (rule["row"] == row && rule["column"] == column) return rule;
        }
        static const Json none;
        return none;
    }
    void Read(const std::string& file) {
        std::ifstream stream(file);
        const Json json = Json::parse(stream, nullptr, false);
        ASSERT_TRUE(json.is_object() && json["types"].size() == 1) << json;
        mType = json["types"][0];
    }
    bool HasBeenInForce(int row) {
        for (const Json& each : mType["rows"]) {
            if (each["row"] == row) return each["inForce"];
        }
        return false;
    }

    TestDatabase mDatabase{testing::kTree + Row(1, 1, "DefaultValue=10;dependency='!:P(\"9\") = 1'") +
                           Row(1, 1, "DefaultValue=20;dependency='!:P(\"9\") = 2'") +
                           Row(1, 1, "DefaultValue=30;Min='!:P(\"9\")'") +
                           Row(1, 2, "Max='!:P(\"9\") * 10';DefaultValue='#:1 + 1'") +
                           Row(1, 3, "dependency='!:1 / 0 = 1'") + Row(1, 9, "DefaultValue=1;consistency='!:P() < 5'") +
                           Row(2, 1, "enable='#:False';Max='!:P(\"1\")'") + Row(3, 1, "Max='!:7'")};
    TemporaryFolder mFolder;
    std::string mDevice = mDatabase.path() + " A ";
    std::string mFile = mFolder / "c.json";
    Json mType;
};

TEST_F(Coverage, TellsWhatRanAndWhatIsLeft) {
    EXPECT_EQ(RunTool("set " + mDevice + "1/1/9=2 --coverage " + mFile).status, 0);
    Read(mFile);
    EXPECT_EQ(mType["type"], "A");
    EXPECT_EQ(Rule(1, "dependency")["text"], "!:P(\"9\") = 1");
    EXPECT_EQ(Rule(1, "dependency")["paths"], Json({"1/1/1"}));
    EXPECT_GT(Rule(1, "dependency")["true"], 0);
    EXPECT_GT(Rule(1, "dependency")["false"], 0);
    EXPECT_GT(Rule(2, "dependency")["true"], 0);
    EXPECT_EQ(Rule(2, "dependency")["false"], 0);
    EXPECT_EQ(Rule(3, "Min")["runs"], 0) << "the row was never in force";
    EXPECT_GT(Rule(4, "Max")["runs"], 0);
    EXPECT_FALSE(Rule(4, "Max").contains("true")) << "a limit is no condition";
    EXPECT_EQ(Rule(4, "DefaultValue")["text"], "#:1 + 1") << "in the living row its result has taken its place";
    EXPECT_EQ(Rule(5, "dependency")["failed"], Rule(5, "dependency")["runs"]);
    EXPECT_GT(Rule(6, "consistency")["true"], 0);
    EXPECT_TRUE(Rule(7, "Max").is_null()) << "the row is not enabled";
    EXPECT_EQ(HasBeenInForce(1), true);
    EXPECT_EQ(HasBeenInForce(2), true);
    EXPECT_EQ(HasBeenInForce(3), false);
    EXPECT_EQ(HasBeenInForce(5), false);
    EXPECT_EQ(mType["totals"], Json::parse(R"({"rules": 8, "ran": 7, "failed": 1, "conditions": 4, "trueAndFalse": 1,
                                               "rows": 4, "inForce": 2})"));

    const std::string text = mFolder / "c.txt";
    const std::string commands = "printf '%s\\n' 'set 1/1/9=3' 'set 1/1/9=7' 'get 1/1/77' quit | ";
    EXPECT_EQ(RunShell(commands + OV_MODEL_TOOL " shell " + mDevice + "--coverage " + text).status, 1);
    EXPECT_THAT(RunShell("cat " + text).text,
                AllOf(HasSubstr("\n  rows that came into force            2 of 4 (50 %)\n"),
                      ContainsRegex("\nfails  .*Parameters \\[5\\]  dependency    !:1 / 0 = 1  +1/1/3\n"),
                      ContainsRegex("\nnever True  .*Parameters \\[2\\]  dependency"),
                      ContainsRegex("\n  +[0-9]+ +[1-9]+ +[1-9]+ +0 +Parameters \\[6\\]  consistency"),
                      ContainsRegex("\nnever in force  +Parameters \\[2\\]  +1/1/1\n")));
}

TEST_F(Coverage, OfAScriptIsWrittenWhateverItsEnd) {
    const std::string script = mFolder / "s.vbs";
    const auto run = [&](const std::string& code) {
        std::ofstream(script) << code;
        return RunTool("run --coverage " + mFile + " " + script + " " + mDatabase.path());
    };
    const std::string load =
        "Set m = CreateObject(\"OV_Model.CBase_Module\")\nm.SetSourcePath WScript.Arguments(0)\n"
        "m.Load \"A\"\nSet g = m.Spec.channels(\"1\").groups(\"1\").Gui.parameters\nm.Unload\n";
    EXPECT_EQ(run(load + "WScript.Quit 7").status, 7);
    Read(mFile);
    EXPECT_GT(Rule(1, "dependency")["true"], 0);
    EXPECT_EQ(Rule(8, "Max")["runs"], 0) << "nobody opened the group";
    EXPECT_EQ(run(load + "Err.Raise 5").status, 1);
    Read(mFile);
    EXPECT_GT(Rule(4, "Max")["runs"], 0);

    EXPECT_EQ(std::remove(mFile.c_str()), 0);
    const Outcome without = run("WScript.Echo 1");
    EXPECT_EQ(without.status, 1);
    EXPECT_THAT(without.text, MatchesRegex("1\novmodel: no device was loaded, [^\n]*\n"));
    EXPECT_FALSE(std::ifstream(mFile).good());
    for (const char* command : {"set ", "shell "}) {
        const std::string edit = command == std::string("set ") ? "1/1/9=2" : "";
        const Outcome failed = RunTool(command + mDevice + edit + " --coverage /no/such/c.txt </dev/null");
        EXPECT_EQ(failed.status, 1);
        EXPECT_THAT(failed.text, MatchesRegex("ovmodel: cannot write '/no/such/c.txt': [^\n]*\n"));
    }
}

}  // namespace
}  // namespace ov
