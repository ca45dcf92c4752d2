/// @file
/// The bounds of a running script: time, memory and the thread's stack.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/automation/memory_account.h"
#include "platform/script/script_control.h"
#include "platform/system/deadline.h"

namespace ov::vbscript {

/// Ends a script whose time is over. On Error Resume Next does not see it.
class ScriptTimeout final : public ScriptError {
public:
    /// The place is added by the innermost procedure that is ended.
    explicit ScriptTimeout(std::int32_t line = 0, std::int32_t column = 0);
};

/// One run of the machine, by the host or by an object that a script called. Runs nest; the outermost one begins the
/// bounds of time and memory.
class RunGuard {
public:
    /// @param timeout milliseconds, 0 for no bound of this run's own
    /// @throws RuntimeError 28 where runs nest too deep
    /// @throws ScriptTimeout where the time of the run around it is over
    explicit RunGuard(std::int32_t timeout);
    ~RunGuard();
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;

    /// True while a script runs.
    static bool IsActive() noexcept { return sDepth != 0; }
    /// True if the running script's time is over.
    static bool IsTimeOver() noexcept { return Deadline::IsOver(); }
    /// @throws ScriptTimeout if it is
    static void CheckTime() {
        if (IsTimeOver()) throw ScriptTimeout();
    }
    /// Counts a step of the compiler, some nanoseconds of work, and checks the time every some thousand of them.
    /// @throws ScriptTimeout
    static void Step() {
        if (++sSteps % kStepsBetweenChecks == 0) CheckTime();
    }

private:
    static constexpr unsigned kStepsBetweenChecks = 4096;
    static inline unsigned sSteps = 0;
    static inline int sDepth = 0;
    static inline const char* sStackStart = nullptr;

    std::optional<MemoryAccount::Limit> mMemory;
    std::optional<Deadline> mDeadline;
};

/// The bounds of a run for whatever scripts run because objects end, unless a run is under way already. Without it each
/// of them would have bounds of its own, and a chain of them might never end.
class EndGuard {
public:
    explicit EndGuard(std::int32_t timeout) {
        if (!RunGuard::IsActive()) mRun.emplace(timeout);
    }

private:
    std::optional<RunGuard> mRun;
};

}  // namespace ov::vbscript
