// What the tool writes: files that are whole or as they were, and standard output.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "support/test_database.h"
#include "support/tool.h"
#include "tree/tree_testing.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using testing::Outcome;
using testing::Row;
using testing::RunShell;
using testing::RunTool;
using ::testing::StartsWith;
using testing::TemporaryFolder;
using testing::TestDatabase;

class Output : public ::testing::Test {
protected:
    void Write(const std::string& name, const std::string& content) {
        std::ofstream(mFolder / name, std::ios::binary) << content;
    }
    std::string Content(const std::string& name) { return RunShell("cat " + (mFolder / name)).text; }
    // The files of the folder, each with a blank behind it.
    std::string Names() { return RunShell("cd " + mFolder.path() + " && ls -A | tr '\\n' ' '").text; }

    TestDatabase mDatabase{testing::kTree + Row(1, 1, "DefaultValue=5")};
    std::string mDevice = mDatabase.path() + " A ";
    TemporaryFolder mFolder;
};

TEST_F(Output, FollowsLinksAndKeepsPermissions) {
    Write("real", "old");
    ASSERT_EQ(chmod((mFolder / "real").c_str(), 0604), 0);
    fs::create_directory(mFolder / "sub");
    fs::create_symlink("../real", mFolder / "sub/link");
    fs::create_symlink("sub/link", mFolder / "link");
    fs::create_symlink("fresh", mFolder / "dangling");
    EXPECT_EQ(RunTool("save " + mDevice + "-o " + (mFolder / "link")).text, "");
    EXPECT_EQ(RunTool("set " + mDevice + "1/1/1=6 --save " + (mFolder / "dangling")).status, 0);
    EXPECT_TRUE(fs::is_symlink(mFolder / "link") && fs::is_symlink(mFolder / "sub/link"));
    EXPECT_THAT(Content("real"), HasSubstr("\"1/1/1\": \"5\""));
    EXPECT_THAT(Content("fresh"), HasSubstr("\"1/1/1\": \"6\""));
    EXPECT_EQ(fs::status(mFolder / "real").permissions(), fs::perms(0604));
    EXPECT_EQ(Names(), "dangling fresh link real sub ");
}

TEST_F(Output, WritesToWhatIsNoRegularFile) {
    ASSERT_EQ(mkfifo((mFolder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", mFolder / "link");
    for (const char* command : {"save ", "graph --format dot ", "unpack --force "}) {
        const std::string device = command == std::string("unpack --force ") ? mDatabase.path() + " " : mDevice;
        const Outcome read = RunShell("timeout 20 cat " + (mFolder / "pipe") + " & timeout 20 " OV_MODEL_TOOL " " +
                                      command + device + "-o " + (mFolder / "link") + "; wait");
        EXPECT_GT(read.text.size(), 100u) << command;
        EXPECT_EQ(Names(), "link pipe ") << command;
        EXPECT_TRUE(fs::is_fifo(mFolder / "pipe") && fs::is_symlink(mFolder / "link")) << command;
    }
    EXPECT_EQ(RunTool("save " + mDevice + "-o -").text, RunTool("save " + mDevice).text);
    EXPECT_EQ(RunTool("save " + mDevice + "-o /dev/stdout").text, RunTool("save " + mDevice).text);
    EXPECT_THAT(RunTool("set " + mDevice + "1/1/1=6 --coverage -").text, StartsWith("1/1/1: 5 -> 6\n1/1/1  value"));
    EXPECT_EQ(RunTool("unpack " + mDatabase.path() + " -o - | " OV_MODEL_TOOL " pack - -o - | head -c 15").text,
              "SQLite format 3");
    EXPECT_EQ(RunTool("unpack " + mDatabase.path() + " -o " + mFolder.path() + " --force").text,
              "ovmodel: '" + mFolder.path() + "' is a folder\n");
}

TEST_F(Output, ReplacesAnEarlierResultButNoDatabase) {
    const std::string before = RunShell("cksum < " + mDatabase.path()).text;
    for (const std::string& command :
         {"save " + mDevice + "-o ", "graph " + mDevice + "--format json -o ", "set " + mDevice + "1/1/1=6 --save ",
          "set " + mDevice + "1/1/1=6 --coverage "}) {
        const Outcome refused = RunTool(command + mDatabase.path());
        EXPECT_EQ(refused.status, 1) << command;
        EXPECT_THAT(refused.text, EndsWith("is a database, and is not replaced by another kind of file\n")) << command;
        Write("earlier", "earlier");
        EXPECT_EQ(RunTool(command + (mFolder / "earlier")).status, 0);
        EXPECT_GT(fs::file_size(mFolder / "earlier"), 10u) << command;
    }
    EXPECT_EQ(RunShell("cksum < " + mDatabase.path()).text, before);
    for (const char* command : {"pack ", "unpack "}) {
        Write("earlier", "earlier");
        EXPECT_THAT(RunTool(command + mDatabase.path() + " -o " + (mFolder / "earlier")).text,
                    AllOf(MatchesRegex("ovmodel: [^\n]*\n")));
        EXPECT_EQ(Content("earlier"), "earlier");
    }
    EXPECT_EQ(RunTool("pack /proc/self/mem -o " + (mFolder / "new.db")).status, 1) << "a text that reads half way";
    EXPECT_EQ(Names(), "earlier ");
}

// A file that may not grow takes nothing, as a full disk.
TEST_F(Output, FailsWhereStandardOutputDoes) {
    Write("map.csv", "path,startByte,bitLength,startBit,byteOrder\n1/1/1,0,8,0,little\n");
    Write("s.vbs", "Do\nWScript.Echo String(9999, \"x\")\nLoop");
    RunTool("save " + mDevice + "-o " + (mFolder / "state.json"));
    const std::string state = mFolder / "state.json", map = mFolder / "map.csv";
    const std::vector<std::string> commands = {"types " + mDatabase.path(),
                                               "info " + mDevice,
                                               "tree " + mDevice,
                                               "get " + mDevice + "1/1/1",
                                               "set " + mDevice + "1/1/1=6",
                                               "explain " + mDevice + "1/1/1",
                                               "graph " + mDevice + "--format dot",
                                               "save " + mDevice,
                                               "save " + mDevice + "-o -",
                                               "load " + mDevice + state + " --json",
                                               "image " + mDevice + map,
                                               "compare " + mDevice + state + " " + state + " --json",
                                               "check " + mDatabase.path(),
                                               "diff " + mDatabase.path() + " " + mDatabase.path() + " --json",
                                               "tables " + mDatabase.path(),
                                               "text " + mDatabase.path() + " 1",
                                               "unpack " + mDatabase.path(),
                                               "shell " + mDevice + "<<< tree",
                                               "run " + (mFolder / "s.vbs"),
                                               "--help",
                                               "--version",
                                               "tree --help"};
    for (const std::string& command : commands) {
        const Outcome outcome = RunShell("bash -c 'ulimit -f 0; timeout 20 " OV_MODEL_TOOL " " + command + " 2>&1 > " +
                                         (mFolder / "out") + "'");
        EXPECT_EQ(outcome.status, 2) << command;
        EXPECT_EQ(outcome.text, "ovmodel: cannot write to standard output: File too large\n") << command;
    }
    RunShell("{ timeout 20 " OV_MODEL_TOOL " run " + (mFolder / "s.vbs") + " 2> " + (mFolder / "err") +
             "; echo $? >> " + (mFolder / "err") + "; } | head -c 1");
    EXPECT_EQ(Content("err"), "ovmodel: cannot write to standard output: Broken pipe\n2\n");
}

TEST_F(Output, OfAScriptIsThereWhenTheProcessDies) {
    Write("s.vbs", "WScript.Echo \"first\"\nWScript.StdOut.Write \"second\"\nDo\nLoop");
    RunShell("(timeout -s KILL 2 " OV_MODEL_TOOL " run " + (mFolder / "s.vbs") + " > " + (mFolder / "out") + ")");
    EXPECT_EQ(Content("out"), "first\nsecond");
}

}  // namespace
}  // namespace ov
