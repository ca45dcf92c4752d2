#include "platform/system/atomic_file.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace ov {

bool FileDescriptor::Close() noexcept {
    const int number = std::exchange(mNumber, -1);
    return number < 0 || close(number) == 0;
}

bool WriteAll(int file, std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

namespace {

using FileStatus = struct stat;

constexpr mode_t kPermissionBits = 0777;
constexpr int kMostLinks = 40;  // as the system itself follows

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.find_last_of('/') + 1);  // with its "/"; "" is the current one
}

struct LinksEnd {
    std::string path;
    bool isOpenFile = false;  // one of a process, as "/dev/stdout" is: it has a place of its own in the file
};

// Where a name leads behind all links; to a file that there need not be. The end of a ring is one of its links.
LinksEnd EndOfLinks(const std::string& path) {
    LinksEnd end{path};
    char next[PATH_MAX];
    for (int links = 0; links < kMostLinks; ++links) {
        const ssize_t length = readlink(end.path.c_str(), next, sizeof next);
        if (length <= 0 || static_cast<std::size_t>(length) == sizeof next) break;
        end.isOpenFile = end.isOpenFile || end.path.starts_with("/proc/") || end.path.starts_with("/dev/fd/");
        const std::string pointed(next, static_cast<std::size_t>(length));
        end.path = pointed.starts_with('/') ? pointed : FolderOf(end.path) + pointed;
    }
    return end;
}

// On the disk too: a file system may have written the name and not yet the content, or not yet the name.
bool Settle(int file) noexcept {
    return fsync(file) == 0 || errno == EINVAL || errno == EROFS;
}

void SettleFolder(const std::string& folder) noexcept {
    const FileDescriptor opened(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened) fsync(opened.get());
}

std::string TemporaryFolder() {
    const char* folder = getenv("TMPDIR");
    return folder && *folder == '/' ? std::string(folder) + "/" : "/tmp/";
}

}  // namespace

AtomicFile::AtomicFile(const std::string& target, mode_t mode) {
    FileStatus former{};
    const bool exists = stat(target.c_str(), &former) == 0;
    if (exists && S_ISDIR(former.st_mode)) {
        errno = EISDIR;
        return;
    }
    const LinksEnd end = EndOfLinks(target);
    if (exists && (!S_ISREG(former.st_mode) || end.isOpenFile)) {
        mReceiver.Reset(open(target.c_str(), O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC));
        if (mReceiver) MakeTemporary(TemporaryFolder(), S_IRUSR | S_IWUSR);
        return;
    }
    mTarget = end.path;
    mWouldReplace = exists;
    MakeTemporary(FolderOf(mTarget), exists ? S_IRUSR | S_IWUSR : mode);
    if (!exists || !mFile) return;
    // Who may not give files away keeps them, with the permissions of the former one.
    static_cast<void>(fchown(mFile.get(), former.st_uid, former.st_gid) != 0 && errno == EPERM);
    if (fchmod(mFile.get(), former.st_mode & kPermissionBits) != 0) mFile.Close();
}

AtomicFile::AtomicFile(int openFile) : mReceiver(fcntl(openFile, F_DUPFD_CLOEXEC, 0)) {
    if (mReceiver) MakeTemporary(TemporaryFolder(), S_IRUSR | S_IWUSR);
}

void AtomicFile::MakeTemporary(const std::string& folder, mode_t mode) {
    const std::string stem = folder + ".ov_model-" + std::to_string(getpid()) + "-";
    for (unsigned attempt = 0; attempt < 10000; ++attempt) {
        const std::string name = stem + std::to_string(attempt) + ".tmp";
        mFile.Reset(open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (mFile) {
            mTemporary = name;
            return;
        }
        if (errno != EEXIST) return;  // else a file that another file of this process, or a crash, has left
    }
}

AtomicFile::~AtomicFile() {
    if (!mTemporary.empty()) unlink(mTemporary.c_str());
}

bool AtomicFile::Commit(bool replace) noexcept {
    if (mReceiver) return CopyToReceiver();
    if (!Settle(mFile.get()) || !mFile.Close() || !Rename(replace)) return false;
    mTemporary.clear();
    SettleFolder(FolderOf(mTarget));
    return true;
}

bool AtomicFile::Rename(bool replace) noexcept {
    if (replace) return rename(mTemporary.c_str(), mTarget.c_str()) == 0;
    if (renameat2(AT_FDCWD, mTemporary.c_str(), AT_FDCWD, mTarget.c_str(), RENAME_NOREPLACE) == 0) return true;
    // Some file systems cannot look and rename in one step.
    if (errno != EINVAL && errno != ENOSYS) return false;
    FileStatus status{};
    if (lstat(mTarget.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return rename(mTemporary.c_str(), mTarget.c_str()) == 0;
}

bool AtomicFile::CopyToReceiver() noexcept {
    char buffer[65536];
    for (off_t at = 0;;) {
        const ssize_t count = pread(mFile.get(), buffer, sizeof buffer, at);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) return true;
        if (!WriteAll(mReceiver.get(), {buffer, static_cast<std::size_t>(count)})) return false;
        at += count;
    }
}

}  // namespace ov
