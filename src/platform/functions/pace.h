/// @file
/// Time checks of functions that can run long.
#pragma once

#include <cstddef>

#include "platform/functions/builtin.h"

namespace ov::vbscript {

/// Counts the steps of a function and has the script's time checked every some thousand of them. A step is some
/// nanoseconds of work.
class Pace {
public:
    explicit Pace(BuiltinContext& context) noexcept : mContext(context) {}

    void Step(std::size_t steps = 1) {
        mSteps += steps;
        if (mSteps >= kStepsBetweenChecks) Check();
    }

private:
    static constexpr std::size_t kStepsBetweenChecks = 4096;

    void Check() {
        mSteps = 0;
        mContext.CheckTime();
    }

    BuiltinContext& mContext;
    std::size_t mSteps = 0;
};

}  // namespace ov::vbscript
