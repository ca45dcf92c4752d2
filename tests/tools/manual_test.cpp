// The manual page and the shell's completion know every command and option that the tool has, and no other.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "support/tool.h"

namespace ov {
namespace {

using testing::Outcome;
using testing::RunShell;
using testing::RunTool;
using Words = std::map<std::string, std::set<std::string>>;  // command ("-" for the tool itself) to its options

Words WordsOfTheTool() {
    Words words;
    std::istringstream lines(RunTool("--completion-words").text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream options(line);
        std::string command, option;
        options >> command;
        words[command];
        while (options >> option) {
            words[command].insert(option.substr(0, option.find('=')));
        }
        words[command].erase("-h");  // told once for all commands
        words[command].erase("--help");
    }
    return words;
}

// The line that begins with the bold name of a command has its options; the options of the tool have lines of their
// own before the commands.
Words WordsOfTheManual() {
    Words words;
    std::ifstream file(OV_MODEL_SOURCE_DIR "/tools/ovmodel/share/ovmodel.1");
    const std::regex commandName(R"(\\fB([a-z]+)\\fR.*)");
    const std::regex option(R"(--?[a-z][-a-z]*)");
    std::string section;
    for (std::string line; std::getline(file, line);) {
        std::smatch match;
        if (line.starts_with(".SH ")) section = line.substr(4);
        std::string command = section == "OPTIONS" && line.starts_with(".B") ? "-" : "";
        if (section == "COMMANDS" && std::regex_match(line, match, commandName)) command = match[1];
        if (command.empty()) continue;
        line = std::regex_replace(line, std::regex(R"(\\f[BIR])"), "");
        line = std::regex_replace(line, std::regex(R"(\\-)"), "-");
        words[command];
        for (std::sregex_iterator at(line.begin(), line.end(), option), end; at != end; ++at) {
            if (at->str() != "-h" && at->str() != "--help") words[command].insert(at->str());
        }
    }
    return words;
}

TEST(ManualTest, HasTheCommandsAndOptionsOfTheTool) {
    const Words tool = WordsOfTheTool();
    const Words manual = WordsOfTheManual();
    const std::string help = RunTool("--help").text;
    EXPECT_GT(tool.size(), 11u);
    for (const auto& [command, options] : tool) {
        EXPECT_TRUE(command == "-" || help.find("\n  " + command + " ") != std::string::npos) << command;
        ASSERT_TRUE(manual.contains(command)) << "ovmodel.1 does not have " << command;
        EXPECT_EQ(manual.at(command), options) << "in ovmodel.1, " << command;
    }
    EXPECT_EQ(manual.size(), tool.size());
}

TEST(CompletionTest, OffersCommandsAndOptions) {
    const struct {
        const char* line;  // the last word is the one to be completed
        const char* offered;
    } cases[] = {
        {"ovmodel ''", "convert get image info pack run set tables text tree types"},
        {"ovmodel --debug --locale de-DE t", "tables text tree types"},
        {"ovmodel --lo", "--locale"},
        {"ovmodel --locale ''", ""},
        {"ovmodel tree db --p", "--path"},
        {"ovmodel --timeout 5 tree --path ''", ""},
        {"ovmodel types --", "--help --json"},
        {"ovmodel types ''", ""},
        {"ovmodel nonsense --", ""},
    };
    for (const auto& each : cases) {
        const Outcome outcome =
            RunShell(OV_MODEL_SOURCE_DIR "/tests/tools/complete.sh " OV_MODEL_TOOL " " + std::string(each.line));
        std::istringstream expected(each.offered);
        for (std::string word; expected >> word;) {
            EXPECT_NE((" " + outcome.text).find(" " + word + " "), std::string::npos)
                << each.line << ": " << outcome.text;
        }
        EXPECT_EQ(outcome.text.empty(), *each.offered == 0) << each.line << ": " << outcome.text;
    }
}

}  // namespace
}  // namespace ov
