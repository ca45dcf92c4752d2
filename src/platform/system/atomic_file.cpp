#include "platform/system/atomic_file.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>
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

AtomicFile::AtomicFile(const std::string& target, mode_t mode) : mTarget(target) {
    std::error_code error;
    const std::filesystem::path real = std::filesystem::canonical(target, error);
    if (!error) mTarget = real.string();                                          // else there is no such file yet
    const std::string folder = mTarget.substr(0, mTarget.find_last_of('/') + 1);  // with its "/"; "" is the current one
    const std::string stem = folder + ".ov_model-" + std::to_string(getpid()) + "-";
    for (unsigned attempt = 0; attempt < 10000; ++attempt) {
        const std::string name = stem + std::to_string(attempt) + ".tmp";
        mFile.Reset(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
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
    if (!mFile.Close()) return false;
    int failed = 0;
    if (replace) {
        failed = rename(mTemporary.c_str(), mTarget.c_str());
    } else {
        failed = renameat2(AT_FDCWD, mTemporary.c_str(), AT_FDCWD, mTarget.c_str(), RENAME_NOREPLACE);
        // Some file systems cannot look and rename in one step.
        if (failed != 0 && (errno == EINVAL || errno == ENOSYS)) {
            struct stat status {};
            if (lstat(mTarget.c_str(), &status) == 0) {
                errno = EEXIST;
                return false;
            }
            failed = rename(mTemporary.c_str(), mTarget.c_str());
        }
    }
    if (failed != 0) return false;
    mTemporary.clear();
    return true;
}

}  // namespace ov
