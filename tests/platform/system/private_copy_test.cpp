#include "platform/system/private_copy.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/automation/errors.h"
#include "support/temporary_folder.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

class PrivateCopy : public ::testing::Test {
protected:
    // A file of a fixed time, so that nothing but the record tells one from another.
    std::string Source(const std::string& name, const std::string& content) {
        std::ofstream(mFolder / name, std::ios::trunc) << content;
        const timespec times[2] = {{0, UTIME_OMIT}, {1'000'000'000, 123'456'789}};
        EXPECT_EQ(utimensat(AT_FDCWD, (mFolder / name).c_str(), times, 0), 0);
        return mFolder / name;
    }
    std::int32_t ErrorOf(const std::string& source) {
        try {
            KeepPrivateCopy(mFolder.path(), "copy", source);
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    }
    struct stat Status(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
        return status;
    }
    std::string Content(const std::string& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TemporaryFolder mFolder;
    const std::string mOwn = mFolder / "Orvane", mCopy = mOwn + "/TempFileCopy/copy",
                      mOrigin = mOwn + "/TempFileOrigin/copy";
};

TEST_F(PrivateCopy, IsMadeAnewUnlessItsRecordIsThatOfTheFile) {
    const std::string first = Source("first", "11");
    EXPECT_EQ(ErrorOf(first), 0);
    EXPECT_EQ(Content(mCopy), "11");
    EXPECT_EQ(Status(mCopy).st_mtim.tv_sec, 1'000'000'000);
    EXPECT_EQ(Status(mCopy).st_mtim.tv_nsec, 123'456'789);
    for (const std::string& folder : {mOwn, mOwn + "/TempFileCopy", mOwn + "/TempFileOrigin"}) {
        EXPECT_EQ(Status(folder).st_mode & 0777, 0700u) << folder;
    }
    const ino_t kept = Status(mCopy).st_ino;
    EXPECT_EQ(ErrorOf(first), 0);
    EXPECT_EQ(Status(mCopy).st_ino, kept);

    EXPECT_EQ(ErrorOf(Source("second", "22")), 0);
    EXPECT_EQ(Content(mCopy), "22") << "same name, size and time";
    const auto plant = [&](const std::string& path) {
        fs::remove(path);
        std::ofstream(path) << "xx";
        fs::last_write_time(path, fs::last_write_time(first));
    };
    fs::remove(mOrigin);
    plant(mCopy);
    EXPECT_EQ(ErrorOf(mFolder / "second"), 0);
    EXPECT_EQ(Content(mCopy), "22") << "a file without a record";
    const std::string other = Source("other", "xx");
    for (const std::string& path : {mCopy, mOrigin}) {
        fs::remove(path);
        fs::create_symlink(other, path);
        EXPECT_EQ(ErrorOf(mFolder / "second"), 0);
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(path))) << path;
        EXPECT_EQ(Content(mCopy), "22");
    }
    EXPECT_EQ(Content(other), "xx") << "no link is followed";
}

TEST_F(PrivateCopy, LiesInFoldersOfItsOwner) {
    const std::string source = Source("source", "1");
    ASSERT_EQ(mkdir(mOwn.c_str(), 0777), 0);
    ASSERT_EQ(chmod(mOwn.c_str(), 0777), 0);
    EXPECT_EQ(ErrorOf(source), 0);
    EXPECT_EQ(Status(mOwn).st_mode & 0777, 0700u);
    fs::rename(mOwn, mFolder / "elsewhere");
    fs::create_directory_symlink("elsewhere", mOwn);
    EXPECT_EQ(ErrorOf(source), 70);
    fs::remove(mOwn);
    if (geteuid() == 0) {
        ASSERT_EQ(mkdir(mOwn.c_str(), 0700), 0);
        ASSERT_EQ(chown(mOwn.c_str(), 1, 1), 0);
        EXPECT_EQ(ErrorOf(source), 70);
    }
    ASSERT_EQ(mkfifo((mFolder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf(mFolder / "pipe"), 53);
}

}  // namespace
}  // namespace ov
