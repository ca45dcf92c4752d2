#include "platform/system/log_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "support/temporary_folder.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

std::string Content(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(LogFile, GrowsToItsBoundAndKeepsOneOlderFile) {
    const TemporaryFolder folder;
    const std::string log = folder / "log";
    for (const char* line : {"one\n", "two\n", "three\n", "four\n", "longer than the bound\n", "six\n"}) {
        EXPECT_TRUE(AppendToLog(log, line, 10));
    }
    EXPECT_EQ(Content(log), "six\n");
    EXPECT_EQ(Content(log + ".1"), "longer than the bound\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

TEST(LogFile, IsNoLinkAndNoPipe) {
    const TemporaryFolder folder;
    std::ofstream(folder / "victim") << "as it was";
    fs::create_symlink("victim", folder / "link");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"link", "pipe", "."}) {
        EXPECT_FALSE(AppendToLog(folder / name, "line\n", 10)) << name;
    }
    EXPECT_EQ(Content(folder / "victim"), "as it was");
}

}  // namespace
}  // namespace ov
