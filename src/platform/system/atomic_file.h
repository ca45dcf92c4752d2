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

/// A file whose content appears whole or not at all: it is written under a temporary name and takes its place at
/// Commit. Without a Commit it goes.
///
/// Symbolic links are followed to their end, so that what they point at is written. A regular file is replaced, and
/// hands on its owner and its permissions. What is no regular file, such as a pipe, a terminal or a device, is never
/// replaced: the content is written to it.
class AtomicFile {
public:
    /// @p mode are the permission bits of a new file; those that the user's mask excludes are left out. Check with
    /// ok().
    AtomicFile(const std::string& target, mode_t mode);
    /// Writes to a file that is open, such as standard output. It stays open.
    explicit AtomicFile(int openFile);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// False, with errno, if the file could not be made.
    bool ok() const noexcept { return static_cast<bool>(mFile); }
    int get() const noexcept { return mFile.get(); }
    /// Where it is written, for those who write by name.
    const std::string& path() const noexcept { return mTemporary; }
    /// Whether there is a regular file that Commit would replace.
    bool WouldReplace() const noexcept { return mWouldReplace; }
    /// Puts the content in its place, and on the disk. @returns false, with errno, if that fails: EEXIST if there is a
    /// file of the name and @p replace is false.
    bool Commit(bool replace) noexcept;

private:
    void MakeTemporary(const std::string& folder, mode_t mode);
    bool Rename(bool replace) noexcept;
    bool CopyToReceiver() noexcept;

    std::string mTarget;
    std::string mTemporary;
    FileDescriptor mFile;
    FileDescriptor mReceiver;  // of a content that replaces nothing
    bool mWouldReplace = false;
};

}  // namespace ov
