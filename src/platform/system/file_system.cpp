#include "platform/system/file_system.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>

#include "platform/automation/errors.h"
#include "platform/system/atomic_file.h"
#include "platform/system/input_file.h"

namespace ov::file_system {

namespace {

using Status = struct stat;

constexpr bool IsSeparator(char16_t c) {
    return c == u'/' || c == u'\\';
}

constexpr bool IsDriveLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// Length of the root at the begin of a path, its separator included; 0 if the path is relative.
std::size_t RootLength(std::u16string_view path) {
    if (!path.empty() && IsSeparator(path[0])) return 1;
    return path.size() >= 3 && IsDriveLetter(path[0]) && path[1] == u':' && IsSeparator(path[2]) ? 3 : 0;
}

std::u16string_view WithoutTrailingSeparators(std::u16string_view path) {
    const std::size_t root = RootLength(path);
    while (path.size() > root && IsSeparator(path.back()))
        path.remove_suffix(1);
    return path;
}

// Index behind the last separator of a path that does not end in one.
std::size_t NameStart(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? 0 : separator + 1;
}

std::u16string_view FileName(std::u16string_view path) {
    path = WithoutTrailingSeparators(path);
    return path.substr(NameStart(path));
}

// What the system asked for at `path` is, or nullopt.
std::optional<Status> StatusOf(const std::string& path) {
    // The system's names end at a 0, so a path with one inside would be taken for another one.
    if (path.find('\0') != std::string::npos) return std::nullopt;
    Status status{};
    if (stat(path.c_str(), &status) != 0) return std::nullopt;
    return status;
}

std::string CheckedPath(const Text& path) {
    std::string native = NativePath(path);
    if (native.find('\0') != std::string::npos) Raise(ErrorNumber::PathFileAccessError);
    return native;
}

// Raises the run-time error for errno; `missing` is the one for a file or folder that is not there.
[[noreturn]] void RaiseSystemError(ErrorNumber missing) {
    switch (errno) {
        case ENOENT:
        case ENOTDIR:
            Raise(missing);
        case EACCES:
        case EPERM:
        case EROFS:
            Raise(ErrorNumber::PermissionDenied);
        case EEXIST: {
            constexpr std::int32_t kFileAlreadyExists = 58;
            throw RuntimeError(kFileAlreadyExists);
        }
        default:
            Raise(ErrorNumber::PathFileAccessError);
    }
}

}  // namespace

Text BuildPath(const Text& folder, const Text& name) {
    if (folder.empty()) return name;
    if (name.empty()) return folder;
    std::u16string_view front = folder;
    std::u16string_view back = name;
    while (!front.empty() && IsSeparator(front.back()))
        front.remove_suffix(1);
    while (!back.empty() && IsSeparator(back.front()))
        back.remove_prefix(1);
    // One separator of the two sides stays, the folder's rather than the name's.
    char16_t separator = u'/';
    if (front.size() < folder.size()) {
        separator = folder[front.size()];
    } else if (back.size() < name.size()) {
        separator = name[0];
    }
    Text path(front);
    path += separator;
    path += back;
    return path;
}

Text GetParentFolderName(const Text& path) {
    const std::u16string_view trimmed = WithoutTrailingSeparators(path);
    if (trimmed.size() == RootLength(trimmed)) return {};
    return WithoutTrailingSeparators(trimmed.substr(0, NameStart(trimmed)));
}

Text GetBaseName(const Text& path) {
    const std::u16string_view name = FileName(path);
    return name.substr(0, name.rfind(u'.'));
}

Text GetExtensionName(const Text& path) {
    const std::u16string_view name = FileName(path);
    const std::size_t point = name.rfind(u'.');
    return point == std::u16string_view::npos ? Text() : Text(name.substr(point + 1));
}

bool FileExists(const Text& path) {
    const std::optional<Status> status = StatusOf(NativePath(path));
    return status && S_ISREG(status->st_mode);
}

bool FolderExists(const Text& path) {
    const std::optional<Status> status = StatusOf(NativePath(path));
    return status && S_ISDIR(status->st_mode);
}

bool IsAbsolute(const Text& path) {
    return RootLength(path) > 0;
}

void CreateFolder(const Text& path) {
    const std::string native = CheckedPath(path);
    if (mkdir(native.c_str(), 0777) == 0) return;
    if (errno == EEXIST) {
        if (!FolderExists(path)) Raise(ErrorNumber::PathFileAccessError);
        return;
    }
    RaiseSystemError(ErrorNumber::PathNotFound);
}

std::string ReadFile(const Text& path) {
    try {
        return InputFile(CheckedPath(path)).Read(kMostBytesRead);
    } catch (const InputError& error) {
        errno = error.error();
        RaiseSystemError(ErrorNumber::FileNotFound);
    }
}

void WriteFile(const Text& path, const std::string& bytes, bool append) {
    const int mode = append ? O_APPEND : O_TRUNC;
    FileDescriptor file(open(CheckedPath(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | mode, 0666));
    if (!file || !WriteAll(file.get(), bytes) || !file.Close()) RaiseSystemError(ErrorNumber::PathNotFound);
}

void ReplaceFile(const Text& path, const std::string& bytes) {
    AtomicFile file(CheckedPath(path), 0666);
    if (!file.ok() || !WriteAll(file.get(), bytes) || !file.Commit(true)) RaiseSystemError(ErrorNumber::PathNotFound);
}

std::string NativePath(const Text& path) {
    std::string native = path.ToUtf8();
    if (native.find('\\') == std::string::npos || StatusOf(native)) return native;
    std::ranges::replace(native, '\\', '/');
    return native;
}

}  // namespace ov::file_system
