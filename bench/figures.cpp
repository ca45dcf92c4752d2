#include "figures.h"

#include <iomanip>

namespace ov::bench {

void FigureReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
        const auto limit = run.counters.find("limit");
        for (const auto& [counter, unit] : {std::pair{"ratio", "x"}, std::pair{"bytes", "B"},
                                            std::pair{"allocations", ""}, std::pair{"microseconds", "us"}}) {
            const auto measured = run.counters.find(counter);
            if (measured == run.counters.end()) continue;
            const std::string arguments = run.run_name.args.empty() ? "" : "/" + run.run_name.args;
            mFigures.push_back({run.run_name.function_name + arguments, measured->second.value,
                                limit == run.counters.end() ? std::nullopt : std::optional(limit->second.value), unit});
        }
    }
}

void FigureReporter::Finalize() {
    ConsoleReporter::Finalize();
    std::size_t width = 6;
    for (const Figure& figure : mFigures) {
        width = std::max(width, figure.name.size());
    }
    std::ostream& out = GetOutputStream();
    const int nameWidth = static_cast<int>(width);
    out << '\n'
        << std::left << std::setw(nameWidth) << "figure"
        << "   measured      limit\n";
    for (const Figure& figure : mFigures) {
        const int places = figure.unit == std::string_view("x") ? 2 : 0;
        out << std::left << std::setw(nameWidth) << figure.name << std::right << std::fixed << std::setprecision(places)
            << std::setw(9) << figure.measured << ' ' << figure.unit;
        if (figure.limit) {
            out << std::setw(9) << *figure.limit << ' ' << figure.unit
                << (figure.measured <= *figure.limit ? "  ok" : "  MISSED");
        }
        out << '\n';
    }
}

}  // namespace ov::bench
