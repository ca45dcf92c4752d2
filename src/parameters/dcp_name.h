/// @file
/// Names of PROFINET devices.
#pragma once

#include <string_view>

namespace ov {

/// Whether @p name may be the name of a device: lower-case letters, digits, "-" and ".", up to 240 of them. Parts
/// between dots have up to 63 and begin with no digit; a name without dots has no such limit. Names of exactly four
/// parts read as addresses and are refused, and so are the names of ports. "" is the name of a device without one.
bool IsDcpName(std::u16string_view name) noexcept;

}  // namespace ov
