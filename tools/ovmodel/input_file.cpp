#include "ovmodel/input_file.h"

#include <unistd.h>

#include <charconv>
#include <optional>
#include <string_view>

#include "ovmodel/command.h"
#include "platform/system/input_file.h"

namespace ovmodel {

namespace {

// The number of an open file that a path stands for.
std::optional<int> OpenFileOf(const std::string& path) {
    constexpr std::string_view kOpenFiles = "/dev/fd/";
    if (path == "-" || path == "/dev/stdin") return STDIN_FILENO;
    if (!path.starts_with(kOpenFiles)) return std::nullopt;
    int number = 0;
    const char* const end = path.data() + path.size();
    const auto [stop, error] = std::from_chars(path.data() + kOpenFiles.size(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string ReadInput(const std::string& path, std::uint64_t most) {
    try {
        const std::optional<int> file = OpenFileOf(path);
        return file ? ov::ReadOpenFile(*file, most) : ov::InputFile(path).Read(most);
    } catch (const ov::InputError& error) {
        throw Failure("cannot read '" + path + "': " + error.what());
    }
}

}  // namespace ovmodel
