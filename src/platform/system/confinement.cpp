#include "platform/system/confinement.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace ov {

namespace {

namespace fs = std::filesystem;

bool sAreConfined = false;

}  // namespace

void ConfineFiles() noexcept {
    sAreConfined = true;
}

bool FilesAreConfined() noexcept {
    return sAreConfined;
}

bool IsBelowFolder(const std::string& path, const std::string& folder) {
    std::error_code error;
    const fs::path base = fs::canonical(folder.empty() ? "." : folder, error);
    if (error) return false;
    const fs::path real = fs::weakly_canonical(fs::absolute(path, error), error);
    if (error) return false;
    const auto [baseEnd, realAt] = std::ranges::mismatch(base, real);
    return baseEnd == base.end() && realAt != real.end();
}

bool IsOfTheSystem(const std::string& path) {
    static constexpr std::array<std::string_view, 3> kFolders = {"/proc/", "/sys/", "/dev/"};
    return std::ranges::any_of(kFolders, [&](std::string_view folder) { return path.starts_with(folder); });
}

}  // namespace ov
