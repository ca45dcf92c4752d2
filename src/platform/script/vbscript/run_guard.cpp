#include "platform/script/vbscript/run_guard.h"

#include <time.h>

#include <algorithm>

#include "platform/script/vbscript/limits.h"

namespace ov::vbscript {

namespace {

// The number of the run time's "User interrupt occurred".
constexpr std::int32_t kInterrupted = 18;

/// Milliseconds of a clock that only goes forward. The coarse one is exact to a few of them and costs next to nothing.
std::int64_t Milliseconds() noexcept {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace

ScriptTimeout::ScriptTimeout(std::int32_t line, std::int32_t column)
    : ScriptError(RuntimeError(kInterrupted, u"Microsoft VBScript runtime error", u"Script execution timed out"), false,
                  line, column) {}

RunGuard::RunGuard(std::int32_t timeout) : mOuterDeadline(sDeadline) {
    const char* here = static_cast<const char*>(__builtin_frame_address(0));
    if (sDepth == 0) {
        sStackStart = here;
        mMemory.emplace(kMaxMemory);
    } else if (sDepth >= kMaxNestedRuns || static_cast<std::size_t>(sStackStart - here) > kMaxNativeStack) {
        Raise(ErrorNumber::OutOfStackSpace);
    }
    ++sDepth;
    if (timeout > 0) {
        const std::int64_t deadline = Milliseconds() + timeout;
        sDeadline = sDeadline == 0 ? deadline : std::min(sDeadline, deadline);
    }
}

RunGuard::~RunGuard() {
    --sDepth;
    sDeadline = mOuterDeadline;
}

bool RunGuard::IsTimeOver() noexcept {
    return sDeadline != 0 && Milliseconds() > sDeadline;
}

}  // namespace ov::vbscript
