// The shell on the sample device: from a file of commands, and at a terminal.
#include <gmock/gmock.h>
#include <poll.h>
#include <pty.h>
#include <stdlib.h>
#include <unistd.h>

#include <fstream>

#include "support/temporary_folder.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using testing::Outcome;
using testing::RunTool;
using testing::TemporaryFolder;

class Shell : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(RunTool("pack " OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql -o " + mDatabase).status, 0);
    }
    Outcome Run(const std::string& commands) {
        std::ofstream(mFolder / "commands") << commands;
        return RunTool("shell --language 9 " + mDatabase + " 'TT200 HART' < " + (mFolder / "commands"));
    }

    TemporaryFolder mFolder;
    std::string mDatabase = mFolder / "tt200.db";
};

TEST_F(Shell, RunsCommandsFromAFile) {
    const std::string saved = mFolder / "saved.json";
    const Outcome outcome = Run(R"(# a remark, and an empty line

get 0/14/1402 1/21/2102
watch 0/14
set 0/14/1402=60
unwatch
set 0/14/1402=70
eval 0/14 P("1402") + 1
eval 0 CONFM("moduletype")
execute 0/14 P.SetValue "1402", 80 : x = 5
eval 0/14 x * P("1402")
save )" + saved + R"(
set 0/14/1402=90
load )" + saved + R"(
get 0/14/1402
language 7
language
get 1/21/2102
image )" OV_MODEL_SOURCE_DIR R"(/examples/tt200/device_image.csv
quit
get no/such/thing
)");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.text, ::testing::MatchesRegex(R"(0/14/1402  50 %  unknown
1/21/2102  .*  unknown
0/14/1402: 50 -> 60
0/14/1402  value  60  modified
0/14/1402: 60 -> 70
71
"TT200 HART"
400
0/14/1402: 80 -> 90
0/14/1402  80 %  modified
7
1/21/2102  .*  unknown
[0-9A-F]+
)"));
}

TEST_F(Shell, FailuresEndNothingButTheStatus) {
    const Outcome outcome = Run(R"(gett 0/14/1402
get 0/14/1499
set 0/14/1402=1000
eval 0/14 P("1402"
eval 0/14 1 / 0
execute 0/14 x = = 1
language 12
image /no/such/map.csv
watch 0/99
unwatch 0/14
log maybe
load /no/such.json
save
quit now
get 0/14/1402)");
    EXPECT_EQ(outcome.status, 1);
    for (const char* words :
         {"did you mean 'get'?\n", "no parameter '1499' in 0/14", "outside the limits 0 .. 100\n", "Expected ')' in ",
          "Division by zero in \"1 / 0\"\n", "Expected expression in ", "does not support language 12\n",
          "'/no/such/map.csv'", "no group '99' in 0", "'0/14' is not watched\n", "'on' or 'off'", "'/no/such.json'",
          "a file to write is wanted", "'now' is too much\n", "0/14/1402  50 %  unknown\n"}) {
        EXPECT_THAT(outcome.text, HasSubstr(words));
    }
    EXPECT_THAT(Run("log on\nget 0/14/1402\neval 0/14 P(\"x\")\nlog off\n").text, HasSubstr("value(x): Error when"));
}

// What a terminal shows until it shows @p last, or nothing for some seconds.
std::string ReadUntil(int terminal, const std::string& last) {
    std::string shown;
    pollfd ready{terminal, POLLIN, 0};
    while (shown.find(last) == std::string::npos && poll(&ready, 1, 10'000) > 0) {
        char buffer[1024];
        const ssize_t count = read(terminal, buffer, sizeof buffer);
        if (count <= 0) break;
        shown.append(buffer, static_cast<std::size_t>(count));
    }
    return shown;
}

TEST_F(Shell, CompletesAndRemembersAtATerminal) {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child < 0) GTEST_SKIP() << "no terminal can be made here";
    if (child == 0) {
        setenv("HOME", mFolder.path().c_str(), 1);
        setenv("TERM", "xterm", 1);
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1);  // libedit never frees the names of added functions
        execl(OV_MODEL_TOOL, "ovmodel", "shell", mDatabase.c_str(), "TT200 HART", nullptr);
        _exit(127);
    }
    const auto type = [terminal](const std::string& keys) {
        ASSERT_EQ(write(terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    };
    EXPECT_THAT(ReadUntil(terminal, "> "), HasSubstr("'help' lists the commands"));
    type("ge\t0/14/14\t");
    EXPECT_THAT(ReadUntil(terminal, "1410"), HasSubstr("get 0/14/14"));
    type("02\n");
    EXPECT_THAT(ReadUntil(terminal, "unknown"), HasSubstr("0/14/1402  50 %"));
    type("\x1b[A\n");  // the line before
    EXPECT_THAT(ReadUntil(terminal, "unknown"), HasSubstr("0/14/1402  50 %"));
    type("quit\n");
    ReadUntil(terminal, "no such text");
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    close(terminal);
    std::ifstream history(mFolder / ".ovmodel_history");
    const std::string kept((std::istreambuf_iterator<char>(history)), {});
    EXPECT_THAT(kept, HasSubstr("quit"));
}

}  // namespace
}  // namespace ov
