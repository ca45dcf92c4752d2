#include "platform/system/private_copy.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

#include "platform/automation/errors.h"
#include "platform/system/atomic_file.h"
#include "platform/system/input_file.h"

namespace ov {

namespace {

using Status = struct stat;

constexpr mode_t kOwnerAlone = 0700;
constexpr const char* kOriginFolder = "TempFileOrigin";

[[noreturn]] void FailBy(int error) {
    const bool isDenied = error == EACCES || error == EPERM || error == EROFS;
    const bool isMissing = error == ENOENT || error == ENOTDIR;
    Raise(isDenied    ? ErrorNumber::PermissionDenied
          : isMissing ? ErrorNumber::PathNotFound
                      : ErrorNumber::PathFileAccessError);
}

int OpenFolder(int above, const char* name) {
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const int folder = openat(above, name, kFlags);
    if (folder >= 0 || errno != ENOENT) return folder;
    if (mkdirat(above, name, kOwnerAlone) != 0 && errno != EEXIST) return -1;
    return openat(above, name, kFlags);
}

/// A folder that its owner alone can change.
class PrivateFolder {
public:
    PrivateFolder(int above, const char* name) : mFolder(OpenFolder(above, name)) {
        if (!mFolder) FailBy(errno == ELOOP || errno == ENOTDIR ? EPERM : errno);
        Status status{};
        if (fstat(get(), &status) != 0) FailBy(errno);
        if (status.st_uid != geteuid()) FailBy(EPERM);
        if ((status.st_mode & 0777) != kOwnerAlone && fchmod(get(), kOwnerAlone) != 0) FailBy(errno);
    }
    int get() const { return mFolder.get(); }

private:
    FileDescriptor mFolder;
};

std::string FullPath(const std::string& path) {
    const std::unique_ptr<char, decltype(&free)> real(realpath(path.c_str(), nullptr), &free);
    return real ? real.get() : path;
}

// Of a file as it is now, in one text.
std::string OriginOf(const std::string& path, const Status& status) {
    return FullPath(path) + '\0' + std::to_string(status.st_dev) + ' ' + std::to_string(status.st_ino) + ' ' +
           std::to_string(status.st_size) + ' ' + std::to_string(status.st_mtim.tv_sec) + ' ' +
           std::to_string(status.st_mtim.tv_nsec) + '\n';
}

// A regular file of the folder that is no link; closed if there is none.
int OpenOwn(int folder, const std::string& name, Status& status) {
    const int file = openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return -1;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1) return file;
    close(file);
    return -1;
}

// The record tells of the file, the time of the copy.
bool IsCopy(int copies, int origins, const std::string& name, const std::string& origin, const Status& source) {
    Status copy{}, record{};
    const FileDescriptor copied(OpenOwn(copies, name, copy));
    const FileDescriptor recorded(OpenOwn(origins, name, record));
    if (!copied || !recorded || copy.st_mtim.tv_sec != source.st_mtim.tv_sec ||
        copy.st_mtim.tv_nsec != source.st_mtim.tv_nsec) {
        return false;
    }
    try {
        return ReadOpenFile(recorded.get(), origin.size()) == origin;
    } catch (const InputError&) {
        return false;
    }
}

/// A new file of a folder, which takes its name there when it is whole. What had the name is replaced, and not
/// followed.
class NewFile {
public:
    NewFile(int folder, std::string name)
        : mFolder(folder),
          mName(std::move(name)),
          mTemporary("." + mName + "." + std::to_string(getpid())),
          mFile(Make(folder, mTemporary)) {
        if (!mFile) FailBy(errno);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (!mIsDone) unlinkat(mFolder, mTemporary.c_str(), 0);
    }
    int get() const { return mFile.get(); }
    void Finish() {
        if (fsync(get()) != 0 || !mFile.Close() || renameat(mFolder, mTemporary.c_str(), mFolder, mName.c_str()) != 0) {
            FailBy(errno);
        }
        mIsDone = true;
        fsync(mFolder);
    }

private:
    static int Make(int folder, const std::string& name) {
        constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        const int file = openat(folder, name.c_str(), kFlags, 0600);
        if (file >= 0 || errno != EEXIST) return file;
        unlinkat(folder, name.c_str(), 0);  // a crash of a process of this number has left it
        return openat(folder, name.c_str(), kFlags, 0600);
    }

    int mFolder;
    std::string mName, mTemporary;
    FileDescriptor mFile;
    bool mIsDone = false;
};

void CopyContent(int from, int to) {
    char buffer[65536];
    for (;;) {
        const ssize_t count = read(from, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailBy(errno);
        if (count == 0) return;
        if (!WriteAll(to, {buffer, static_cast<std::size_t>(count)})) FailBy(errno);
    }
}

}  // namespace

void KeepPrivateCopy(const std::string& folder, const std::string& name, const std::string& source) {
    const FileDescriptor input(open(source.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    Status status{};
    if (!input || fstat(input.get(), &status) != 0 || !S_ISREG(status.st_mode)) Raise(ErrorNumber::FileNotFound);
    const FileDescriptor base(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!base) FailBy(errno);
    const PrivateFolder own(base.get(), kOwnFolder), copies(own.get(), kCopyFolder), origins(own.get(), kOriginFolder);
    const std::string origin = OriginOf(source, status);
    if (IsCopy(copies.get(), origins.get(), name, origin, status)) return;
    // The record goes first and comes last: a copy that is not whole never has one.
    unlinkat(origins.get(), name.c_str(), 0);
    NewFile copy(copies.get(), name);
    CopyContent(input.get(), copy.get());
    const timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
    if (futimens(copy.get(), times) != 0) FailBy(errno);
    copy.Finish();
    NewFile record(origins.get(), name);
    if (!WriteAll(record.get(), origin)) FailBy(errno);
    record.Finish();
}

}  // namespace ov
