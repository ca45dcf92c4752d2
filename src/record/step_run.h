/// @file
/// The run of one step of a sweep.
#pragma once

#include "record/rule_trace.h"
#include "support/diagnostics.h"

namespace ov {

/// Watches a step of a pass or a check, and takes it for done if it left no trace. A step that ends by an error stays
/// to do.
class StepRun {
public:
    /// @p trace outlives the run, whatever the step does to its parameter.
    StepRun(RuleTrace& trace, WorkSet Workload::*set) noexcept
        : mTrace(trace), mSet(set), mTraces(Traces::Count()), mEvaluations(GlobalDiagnostics().debugCountEval) {}
    ~StepRun() {
        if (!mIsDone && mTrace.Work()) (mTrace.Work()->*mSet).SetToDo(mTrace.Position());
    }
    StepRun(const StepRun&) = delete;
    StepRun& operator=(const StepRun&) = delete;

    /// The step has come to its end.
    void End() {
        if (!mTrace.Work() || !mTrace.MayRest() || Traces::Count() != mTraces) return;
        const std::int32_t evaluations = GlobalDiagnostics().debugCountEval - mEvaluations;
        (mTrace.Work()->*mSet).SetDone(mTrace.Position(), static_cast<std::uint32_t>(evaluations));
        mIsDone = true;
    }

private:
    RuleTrace& mTrace;
    WorkSet Workload::*mSet;
    std::uint64_t mTraces;
    std::int32_t mEvaluations;
    bool mIsDone = false;
};

}  // namespace ov
