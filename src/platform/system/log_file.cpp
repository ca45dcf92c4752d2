#include "platform/system/log_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include "platform/system/atomic_file.h"

namespace ov {

namespace {

int OpenLog(const std::string& path) noexcept {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    return open(path.c_str(), kFlags, 0666);
}

}  // namespace

bool AppendToLog(const std::string& path, std::string_view line, std::uint64_t most) noexcept {
    FileDescriptor file(OpenLog(path));
    struct stat status {};
    if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (status.st_size > 0 && static_cast<std::uint64_t>(status.st_size) + line.size() > most) {
        if (rename(path.c_str(), (path + ".1").c_str()) != 0) return false;
        file.Reset(OpenLog(path));
    }
    return file && WriteAll(file.get(), line);
}

}  // namespace ov
