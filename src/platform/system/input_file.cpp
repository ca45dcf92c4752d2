#include "platform/system/input_file.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace ov {

namespace {

constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;

[[noreturn]] void FailBy(int error) {
    throw InputError(error, strerror(error));
}

std::string InWords(std::uint64_t bytes) {
    return bytes % kMebibyte == 0 ? std::to_string(bytes / kMebibyte) + " MiB" : std::to_string(bytes) + " bytes";
}

}  // namespace

std::string ReadOpenFile(int file, std::uint64_t most) {
    std::string content;
    std::string buffer(std::size_t{64} * 1024, '\0');
    for (;;) {
        const ssize_t count = read(file, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailBy(errno);
        if (count == 0) return content;
        // The size that was told before may have grown meanwhile, and some files tell none.
        if (content.size() + static_cast<std::size_t>(count) > most) {
            throw InputError(EFBIG, "it is larger than " + InWords(most));
        }
        content.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

InputFile::InputFile(const std::string& path)
    : mPath(path), mFile(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
    if (!mFile) FailBy(errno);
    struct stat status {};
    if (fstat(mFile.get(), &status) != 0) FailBy(errno);
    if (S_ISDIR(status.st_mode)) throw InputError(EISDIR, "it is a folder");
    if (!S_ISREG(status.st_mode)) throw InputError(ENODEV, "it is no regular file");
}

std::string InputFile::RealPath() const {
    std::error_code error;
    const std::filesystem::path own = "/proc/self/fd/" + std::to_string(mFile.get());
    std::filesystem::path real = std::filesystem::read_symlink(own, error);
    if (error) real = std::filesystem::canonical(mPath, error);
    return error ? mPath : real.string();
}

std::string InputFile::Read(std::uint64_t most) const {
    struct stat status {};
    if (fstat(mFile.get(), &status) != 0) FailBy(errno);
    if (static_cast<std::uint64_t>(status.st_size) > most) {
        throw InputError(EFBIG, "it is larger than " + InWords(most));
    }
    return ReadOpenFile(mFile.get(), most);
}

}  // namespace ov
