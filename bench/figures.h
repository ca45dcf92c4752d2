/// @file
/// What a bench reports: a figure beside its limit.
///
/// A speed is a ratio to a peer that does the same work, timed in the same run, so that it means the same on any
/// machine: user counter "ratio". A size is a number of bytes: user counter "bytes". A count is "allocations", a
/// difference of times "microseconds". The limit is the counter "limit".
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace ov::bench {

/// A second peer, whose ratio is shown under the name @p counter and has no limit.
template <class Run>
struct AlsoBeside {
    const char* counter;
    Run run;
    double fastest = std::numeric_limits<double>::infinity();
};
template <class Run>
AlsoBeside(const char*, Run) -> AlsoBeside<Run>;

/// Seconds that @p run takes. The end of what it returns is not counted.
template <class Run>
double SecondsOf(Run& run) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    auto result = run();
    benchmark::DoNotOptimize(result);
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Times @p subject and its peers by turns and reports how the fastest turns of each compare, since what disturbs a
/// turn only makes it slower. Registered with UseManualTime; the time shown is the subject's. A figure that only
/// informs has no limit.
template <class Subject, class Peer, class... Others>
void Compare(benchmark::State& state, std::optional<double> limit, Subject subject, Peer peer,
             AlsoBeside<Others>... others) {
    double subjectFastest = std::numeric_limits<double>::infinity();
    double peerFastest = subjectFastest;
    for (auto _ : state) {
        peerFastest = std::min(peerFastest, SecondsOf(peer));
        const double seconds = SecondsOf(subject);
        subjectFastest = std::min(subjectFastest, seconds);
        ((others.fastest = std::min(others.fastest, SecondsOf(others.run))), ...);
        state.SetIterationTime(seconds);
    }
    state.counters["ratio"] = subjectFastest / peerFastest;
    if (limit) state.counters["limit"] = *limit;
    ((state.counters[others.counter] = subjectFastest / others.fastest), ...);
}

/// Shows the benches on the console and, at the end, a table of all figures and whether they keep their limits.
class FigureReporter : public benchmark::ConsoleReporter {
public:
    FigureReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    struct Figure {
        std::string name;
        double measured;
        std::optional<double> limit;
        const char* unit;
    };

    std::vector<Figure> mFigures;
};

}  // namespace ov::bench
