#include "platform/system/deadline.h"

#include <time.h>

#include <algorithm>

namespace ov {

namespace {

/// Milliseconds of a clock that only goes forward. The coarse one is exact to a few of them and costs next to nothing.
std::int64_t Milliseconds() noexcept {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace

Deadline::Deadline(std::int32_t milliseconds) noexcept {
    if (milliseconds <= 0) return;
    const std::int64_t end = Milliseconds() + milliseconds;
    sEnd = sEnd == 0 ? end : std::min(sEnd, end);
}

bool Deadline::IsOver() noexcept {
    return sEnd != 0 && Milliseconds() > sEnd;
}

}  // namespace ov
