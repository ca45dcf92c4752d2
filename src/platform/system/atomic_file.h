/// @file
/// A file that appears under its name whole, or not at all.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace ov {

/// Owns an open file of the system; closes it at its end.
class FileDescriptor {
public:
    explicit FileDescriptor(int number = -1) noexcept : mNumber(number) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Close(); }

    int get() const noexcept { return mNumber; }
    explicit operator bool() const noexcept { return mNumber >= 0; }
    void Reset(int number) noexcept {
        Close();
        mNumber = number;
    }
    /// False, with errno, if the system could not write what it still held.
    bool Close() noexcept;

private:
    int mNumber;
};

/// Writes all of @p bytes. @returns false, with errno, if that fails.
bool WriteAll(int file, std::string_view bytes) noexcept;

/// A file under a temporary name in the folder of its target, which it replaces at Commit. Without a Commit it goes.
///
/// A target that is a symbolic link is followed, so that what it points at is replaced.
class AtomicFile {
public:
    /// @p mode are the permission bits; those that the user's mask excludes are left out. Check with ok().
    AtomicFile(const std::string& target, mode_t mode);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// False, with errno, if the file could not be made.
    bool ok() const noexcept { return static_cast<bool>(mFile); }
    int get() const noexcept { return mFile.get(); }
    /// Gives the file its name. @returns false, with errno, if that fails: EEXIST if there is a file of the name and
    /// @p replace is false.
    bool Commit(bool replace) noexcept;

private:
    std::string mTarget;
    std::string mTemporary;
    FileDescriptor mFile;
};

}  // namespace ov
