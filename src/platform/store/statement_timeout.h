/// @file
/// How long a query may take.
#pragma once

#include <cstdint>

namespace ov {

/// As long as a script may run.
constexpr std::int32_t kUsualStatementTimeout = 1000;  // milliseconds

/// Milliseconds that one query has from its opening to its last row. A script that it is opened from bounds it, too.
std::int32_t StatementTimeout() noexcept;
/// For all queries of the process from now on. @p milliseconds is above 0.
void SetStatementTimeout(std::int32_t milliseconds) noexcept;

}  // namespace ov
