// The tool as its users meet it: on the sample descriptor, and with wrong arguments.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/temporary_folder.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using testing::Outcome;
using testing::RunTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;

class Tool : public ::testing::Test {
protected:
    std::string Sample() {
        const std::string target = mFolder / "tt200.db";
        if (!std::filesystem::exists(target)) {
            EXPECT_EQ(RunTool("pack " OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql -o " + target).status, 0);
        }
        return target;
    }
    // What every failure has in common: one line, and no status of success.
    void ExpectFailure(const std::string& arguments, const std::string& words) {
        const Outcome outcome = RunTool(arguments);
        EXPECT_NE(outcome.status, 0) << arguments;
        EXPECT_THAT(outcome.text, MatchesRegex("ovmodel: [^\n]*\n")) << arguments;
        EXPECT_THAT(outcome.text, HasSubstr(words)) << arguments;
    }
    TemporaryFolder mFolder;
};

TEST_F(Tool, ShowsTheSample) {
    EXPECT_EQ(RunTool("types " + Sample()).text, "TT200 HART\nTT200 PROFINET\nTT200 HART SIL\n");
    EXPECT_EQ(RunTool("text " + Sample() + " 2101").text, "7  Sensortyp\n9  Sensor type\n");
    EXPECT_EQ(RunTool("text " + Sample() + " 2101 --language 9").text, "Sensor type\n");
    const std::string info = RunTool("info " + Sample() + " 'TT200 PROFINET' --language 9 --json").text;
    EXPECT_THAT(info, StartsWith("{\n"));
    EXPECT_THAT(info, HasSubstr("\"subDeviceType\": \"TT200-P\""));
    EXPECT_THAT(info, HasSubstr("\"CommunicationTypeEntry\": \"required\""));
    EXPECT_THAT(RunTool("types " + Sample() + " --json").text, HasSubstr("\"TT200 HART SIL\""));
    for (const char* command : {"", "types", "info", "text", "pack"}) {
        EXPECT_EQ(RunTool(std::string(command) + " --help").status, 0);
    }
}

TEST_F(Tool, SaysWhatIsWrong) {
    ExpectFailure("", "subcommand");
    ExpectFailure("frobnicate", "frobnicate");
    ExpectFailure("types", "DB is required");
    ExpectFailure("types " + (mFolder / "none.db"), "Could not find file");
    ExpectFailure("types " OV_MODEL_SOURCE_DIR "/README.md", "Unrecognized database format");
    ExpectFailure("types " + mFolder.path(), "");
    ExpectFailure("info " + Sample() + " 'TT200 HARD'", "did you mean 'TT200 HART'?");
    ExpectFailure("info " + Sample() + " Pump", "it has: TT200 HART, ");
    ExpectFailure("info " + Sample() + " 'TT200 Prototype'", "no module type");
    ExpectFailure("info " + Sample() + " 'TT200 HART' --language 12", "does not support language 12");
    ExpectFailure("text " + Sample() + " 999999", "no text 999999");
    ExpectFailure("text " + Sample() + " many", "many");
    ExpectFailure("--locale xx-YY types " + Sample(), "no locale 'xx-YY'");
}

TEST_F(Tool, PacksWholeFilesOrNone) {
    const std::string sql = mFolder / "d.sql";
    const std::string target = mFolder / "d.db";
    const auto write = [&](const std::string& text) { std::ofstream(sql, std::ios::trunc) << text; };
    write("-- a remark\nCREATE TABLE T (a);\nINSERT INTO\n  Missing VALUES (1);\n");
    ExpectFailure("pack " + sql + " -o " + target, "d.sql:3: no such table: Missing in \"INSERT INTO\"");
    write("CREATE TABLE T (a);\n/* x\n */ SELECT\n  wrong syntax here;");
    ExpectFailure("pack " + sql + " -o " + target, "d.sql:");
    write("BEGIN; CREATE TABLE T (a);");
    ExpectFailure("pack " + sql + " -o " + target, "not committed");
    write("-- nothing\n");
    ExpectFailure("pack " + sql + " -o " + target, "makes no table");
    ExpectFailure("pack " + (mFolder / "none.sql") + " -o " + target, "cannot read");
    ExpectFailure("pack " + sql + " -o /no/such/folder/d.db", "cannot write '/no/such/folder/d.db'");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(mFolder.path()), {}), 1);  // the SQL text alone

    write("CREATE TABLE T (a TEXT); INSERT INTO T VALUES ('; -- no end')");
    EXPECT_EQ(RunTool("pack " + sql + " -o " + target).status, 0);
    ExpectFailure("types " + target, "no table 'ModuleTypes'");
    ExpectFailure("pack " + sql + " -o " + target, "--force");
    EXPECT_EQ(RunTool("pack " + sql + " -o " + target + " --force").status, 0);
}

}  // namespace
}  // namespace ov
