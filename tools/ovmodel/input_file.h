/// @file
/// What commands read, other than descriptors.
#pragma once

#include <cstdint>
#include <string>

namespace ovmodel {

inline constexpr std::uint64_t kMebibyte = std::uint64_t{1} << 20;

/// The content of a regular file, or of a file that whoever started the tool has opened for it: "-" is standard input,
/// "/dev/stdin" and "/dev/fd/N" are such files. @throws Failure, for more than @p most bytes too
std::string ReadInput(const std::string& path, std::uint64_t most);

}  // namespace ovmodel
