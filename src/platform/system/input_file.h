/// @file
/// Files that somebody else names: read whole, within a bound, and only where reading comes to an end.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/system/atomic_file.h"

namespace ov {

/// Why a file was not read: what() in words that go behind "cannot read NAME: ".
class InputError : public std::runtime_error {
public:
    InputError(int error, const std::string& words) : std::runtime_error(words), mError(error) {}
    /// The system's number; EISDIR for a folder, ENODEV for what else is no regular file, EFBIG for one that is too
    /// large.
    int error() const noexcept { return mError; }

private:
    int mError;
};

/// A regular file that is open for reading. A pipe, a device or a terminal is never waited for.
class InputFile {
public:
    /// @throws InputError
    explicit InputFile(const std::string& path);

    /// Its full path, without links: that of the very file that is open.
    std::string RealPath() const;
    /// The content, if it has at most @p most bytes. @throws InputError
    std::string Read(std::uint64_t most) const;

private:
    std::string mPath;
    FileDescriptor mFile;
};

/// What an open file, such as standard input, has until its end: at most @p most bytes. @throws InputError
std::string ReadOpenFile(int file, std::uint64_t most);

}  // namespace ov
