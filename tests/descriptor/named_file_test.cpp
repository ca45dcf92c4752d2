#include "descriptor/named_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "support/small_descriptor.h"
#include "support/temporary_folder.h"
#include "support/test_database.h"
#include "support/tool.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::RunShell;
using testing::TemporaryFolder;
using testing::TestDatabase;

TEST(NamedFile, IsReadIfItIsRegularAndSmallAndNotOfTheSystem) {
    const TemporaryFolder folder;
    const Text here = Text::FromUtf8(folder.path());
    std::ofstream(folder / "good") << "content";
    fs::create_symlink("good", folder / "link");
    fs::create_symlink("/proc/self/status", folder / "process");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::ofstream(folder / "large");
    fs::resize_file(folder / "large", (16u << 20) + 1);
    EXPECT_EQ(LoadStringFromFile(folder.Of("good"), here), u"content");
    EXPECT_EQ(LoadStringFromFile(folder.Of("link"), here), u"content");
    for (const char* name : {"process", "pipe", "large", "none", "."}) {
        EXPECT_EQ(LoadStringFromFile(folder.Of(name), here), u"") << name;
    }
    EXPECT_EQ(LoadStringFromFile(u"/proc/version", here), u"");
}

TEST(NamedFile, LiesBelowTheDescriptorUnderConfinement) {
    const TemporaryFolder outside;
    std::ofstream(outside / "secret.xml") << "the secret";
    const TestDatabase database(testing::kSmallDescriptor);
    fs::create_directory(database.folder() / "below");
    std::ofstream(database.folder() / "below/good.xml") << "the good";
    fs::create_symlink(outside.path(), database.folder() / "out");
    std::ofstream(database.folder() / "r.ini") << "[SOFTWARE\\Orvane\\Controls]\nConfineFiles=1\n";
    const auto info = [&](const std::string& name, const char* before, const char* option) {
        database.Run("UPDATE ModuleTypes SET fdtDeviceTypeInformation = 'file:\\\\" + name +
                     "', ModuleImage = 'out/x.png'");
        return RunShell("cd " + database.folder().path() + " && " + before + " " OV_MODEL_TOOL " " + option +
                        " info device.db A --json")
            .text;
    };
    const std::string registry = "OV_MODEL_REGISTRY=" + (database.folder() / "r.ini");
    for (const std::string& name :
         {outside / "secret.xml", std::string(".\\out\\secret.xml"), std::string("./below/../out/secret.xml")}) {
        EXPECT_THAT(info(name, "", ""), HasSubstr("the secret")) << name;
        EXPECT_THAT(info(name, "", "--confined"), Not(HasSubstr("the secret"))) << name;
        EXPECT_THAT(info(name, registry.c_str(), ""), Not(HasSubstr("the secret"))) << name;
    }
    const std::string inside = info(".\\below\\good.xml", "", "--confined");
    EXPECT_THAT(inside, HasSubstr("the good"));
    EXPECT_THAT(inside, Not(HasSubstr("x.png"))) << "no path leads out either";
    EXPECT_THAT(info("x", "", ""), HasSubstr("x.png"));
}

}  // namespace
}  // namespace ov
