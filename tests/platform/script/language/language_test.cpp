// Runs the scripts beside this file. A script tells with each "' expect: TEXT" what the next Echo prints.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/script/script_control.h"
#include "platform/script/script_host.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

const std::filesystem::path kFolder = OV_MODEL_SOURCE_DIR "/tests/platform/script/language";

std::string Trimmed(std::string text) {
    text.erase(text.find_last_not_of(" \r") + 1);
    return text;
}

std::vector<std::string> Expectations(const std::string& script) {
    constexpr std::string_view kMark = "' expect:";
    std::vector<std::string> expected;
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t at = line.find(kMark);
        if (at == std::string::npos) continue;
        const std::size_t start = std::min(line.size(), at + kMark.size() + 1);
        expected.push_back(Trimmed(line.substr(start)));
    }
    return expected;
}

std::vector<std::string> Scripts() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
        if (entry.path().extension() == ".vbs") names.push_back(entry.path().stem());
    }
    std::ranges::sort(names);
    return names;
}

class LanguageTest : public ::testing::TestWithParam<std::string> {};

TEST_P(LanguageTest, PrintsWhatItExpects) {
    const testing::ScopedLocale english("en-US");
    std::ifstream file(kFolder / (GetParam() + ".vbs"));
    std::stringstream content;
    content << file.rdbuf();
    const auto host = MakeObject<testing::Host>();
    const auto probe = MakeObject<testing::Probe>();
    ScriptControl control(ScriptPolicy::Host);
    control.SetTimeout(60'000);
    control.AddObject(u"Host", host->Dispatch(), true);
    control.AddObject(u"Probe", probe->Dispatch(), false);
    std::string error;
    try {
        control.AddCode(Text::FromUtf8(content.str()));
    } catch (const ScriptError& failure) {
        error = "(" + std::to_string(failure.line()) + ", " + std::to_string(failure.column()) + "): error " +
                std::to_string(failure.number()) + " " + failure.what();
    }
    std::ranges::transform(host->lines, host->lines.begin(), Trimmed);
    EXPECT_EQ(error, "");
    EXPECT_THAT(host->lines, ::testing::ElementsAreArray(Expectations(content.str())));
}

INSTANTIATE_TEST_SUITE_P(Scripts, LanguageTest, ::testing::ValuesIn(Scripts()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace ov
