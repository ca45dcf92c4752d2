#include "platform/system/file_system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <functional>

#include "platform/automation/errors.h"
#include "support/temporary_folder.h"

namespace ov::file_system {
namespace {

using ::ov::testing::TemporaryFolder;
namespace fs = std::filesystem;

// Number of the run-time error that `action` raises; 0 if it does not.
std::int32_t ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

std::size_t FilesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()));
}

TEST(FileSystem, TakesPathsApart) {
    const struct {
        const char16_t *path, *parent, *base, *extension;
        bool absolute;
    } cases[] = {
        {u"", u"", u"", u"", false},
        {u"a", u"", u"a", u"", false},
        {u"a/b.mdb", u"a", u"b", u"mdb", false},
        {u"a\\b\\c.tar.gz", u"a\\b", u"c.tar", u"gz", false},
        {u"a\\b/c.", u"a\\b", u"c", u"", false},
        {u"a.b/c", u"a.b", u"c", u"", false},
        {u"a/b.c/", u"a", u"b", u"c", false},
        {u"a//b\\\\", u"a", u"b", u"", false},
        {u"/a", u"/", u"a", u"", true},
        {u"/", u"", u"", u"", true},
        {u"\\\\server\\share", u"\\\\server", u"share", u"", true},
        {u"C:\\a.b", u"C:\\", u"a", u"b", true},
        {u"c:/", u"", u"", u"", true},
        {u"C:a", u"", u"C:a", u"", false},
        {u".profile", u"", u"", u"profile", false},
    };
    for (const auto& [path, parent, base, extension, absolute] : cases) {
        SCOPED_TRACE(Text(path).ToUtf8());
        EXPECT_EQ(GetParentFolderName(path).ToUtf8(), Text(parent).ToUtf8());
        EXPECT_EQ(GetBaseName(path).ToUtf8(), Text(base).ToUtf8());
        EXPECT_EQ(GetExtensionName(path).ToUtf8(), Text(extension).ToUtf8());
        EXPECT_EQ(IsAbsolute(path), absolute);
    }
}

TEST(FileSystem, BuildsPathsWithOneSeparator) {
    const struct {
        const char16_t *folder, *name, *path;
    } cases[] = {
        {u"a", u"b", u"a/b"},         {u"", u"b", u"b"},          {u"a", u"", u"a"},       {u"", u"", u""},
        {u"a\\", u"b", u"a\\b"},      {u"a", u"\\b", u"a\\b"},    {u"a/", u"\\b", u"a/b"}, {u"/", u"b", u"/b"},
        {u"C:\\x", u"y", u"C:\\x/y"}, {u"a//", u"//b/", u"a/b/"}, {u"a", u"/", u"a/"},
    };
    for (const auto& [folder, name, path] : cases)
        EXPECT_EQ(BuildPath(folder, name).ToUtf8(), Text(path).ToUtf8());
}

TEST(FileSystem, ReadsBackslashesAsSeparatorsUnlessAFileHasThem) {
    const TemporaryFolder folder;
    CreateFolder(folder.Of("sub"));
    WriteFile(folder.Of("sub\\ä.txt"), "inside", false);
    EXPECT_TRUE(fs::exists(folder / "sub/ä.txt"));
    EXPECT_TRUE(FileExists(folder.Of("sub\\ä.txt")));
    EXPECT_FALSE(FileExists(folder.Of("sub\\")));
    EXPECT_TRUE(FolderExists(folder.Of("sub\\")));
    std::ofstream(folder / "sub\\ä.txt") << "of the very name";
    EXPECT_EQ(ReadFile(folder.Of("sub\\ä.txt")), "of the very name");
    EXPECT_EQ(ReadFile(folder.Of("sub/ä.txt")), "inside");
}

TEST(FileSystem, WritesAndAppends) {
    const TemporaryFolder folder;
    const Text path = folder.Of("file");
    WriteFile(path, "one", true);
    WriteFile(path, std::string("\0two", 4), true);
    EXPECT_EQ(ReadFile(path), std::string("one\0two", 7));
    WriteFile(path, "3", false);
    EXPECT_EQ(ReadFile(path), "3");
    const std::string large(300'000, 'x');
    WriteFile(path, large, false);
    EXPECT_EQ(ReadFile(path), large);
}

TEST(FileSystem, FailuresHaveTheirNumbersAndChangeNothing) {
    const TemporaryFolder folder;
    const Text file = folder.Of("file");
    const Text here = Text::FromUtf8(folder.path());
    const Text missing = folder.Of("missing");
    const Text below = folder.Of("file/below");
    const Text nowhere = folder.Of("no/where");
    const Text withZero = file + std::u16string_view(u"\0x", 2);
    WriteFile(file, "content", false);
    WriteFile(folder.Of("other"), "other", false);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    WriteFile(folder.Of("large"), "", false);
    fs::resize_file(folder / "large", kMostBytesRead + 1);
    const struct {
        const char* what;
        std::int32_t number;
        std::function<void()> action;
    } cases[] = {
        {"read of nothing", 53, [&] { ReadFile(missing); }},
        {"read below a file", 53, [&] { ReadFile(below); }},
        {"read of a folder", 75, [&] { ReadFile(here); }},
        {"read of a name with a zero", 75, [&] { ReadFile(withZero); }},
        {"read of a pipe", 75, [&] { ReadFile(folder.Of("pipe")); }},
        {"read of a device", 75, [&] { ReadFile(u"/dev/zero"); }},
        {"read of a large file", 75, [&] { ReadFile(folder.Of("large")); }},
        {"write into no folder", 76, [&] { WriteFile(nowhere, "x", true); }},
        {"write below a file", 76, [&] { WriteFile(below, "x", false); }},
        {"write to a folder", 75, [&] { WriteFile(here, "x", false); }},
        {"write to no name", 76, [&] { WriteFile(Text(), "x", false); }},
        {"replacing in no folder", 76, [&] { ReplaceFile(nowhere, "x"); }},
        {"folder in no folder", 76, [&] { CreateFolder(nowhere); }},
        {"folder below a file", 76, [&] { CreateFolder(below); }},
        {"folder on a file", 75, [&] { CreateFolder(file); }},
        {"folder on a folder", 0, [&] { CreateFolder(here); }},
    };
    const std::size_t before = FilesIn(folder);
    for (const auto& [what, number, action] : cases) {
        EXPECT_EQ(ErrorOf(action), number) << what;
    }
    EXPECT_EQ(FilesIn(folder), before);
    EXPECT_EQ(ReadFile(folder.Of("other")), "other");
    EXPECT_FALSE(FileExists(withZero));
}

TEST(FileSystem, ReplacingKeepsThePermissions) {
    const TemporaryFolder folder;
    ReplaceFile(folder.Of("file"), "one");
    fs::permissions(folder / "file", fs::perms(0640));
    ReplaceFile(folder.Of("file"), "two");
    EXPECT_EQ(ReadFile(folder.Of("file")), "two");
    EXPECT_EQ(fs::status(folder / "file").permissions(), fs::perms(0640));
    EXPECT_EQ(FilesIn(folder), 1u);
}

}  // namespace
}  // namespace ov::file_system
