#include "platform/store/statement_timeout.h"

namespace ov {

namespace {

std::int32_t gTimeout = kUsualStatementTimeout;

}  // namespace

std::int32_t StatementTimeout() noexcept {
    return gTimeout;
}

void SetStatementTimeout(std::int32_t milliseconds) noexcept {
    gTimeout = milliseconds;
}

}  // namespace ov
