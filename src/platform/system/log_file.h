/// @file
/// Files that only grow, and not without end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ov {

/// Appends @p line to the file @p path. A file that would grow beyond @p most bytes becomes `PATH.1`, in the place of
/// an earlier one, and a new one begins. A link is not followed, and what is no regular file is left alone.
/// @returns false if nothing was written
bool AppendToLog(const std::string& path, std::string_view line, std::uint64_t most) noexcept;

}  // namespace ov
