/// @file
/// `--coverage FILE`: which rules ran while a command worked, and what they came to.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "ovmodel/command.h"
#include "ovmodel/output_file.h"

namespace ovmodel {

/// Counts the rules of all devices that are loaded while it lives, and writes what it knows to a file: JSON if its name
/// ends in ".json", else text.
class RuleCoverage {
public:
    /// Does nothing for a @p file of "". @throws Failure if the file cannot be written
    explicit RuleCoverage(std::string file);
    RuleCoverage(const RuleCoverage&) = delete;
    RuleCoverage& operator=(const RuleCoverage&) = delete;
    ~RuleCoverage();

    /// @throws Failure if no device was loaded, and if the file cannot be written
    void Write();

    /// Adds the option to a command.
    static CLI::Option* AddOption(CLI::App& command, std::string& file);

private:
    using Type = std::pair<std::string, std::string>;  // descriptor and name

    std::string mFile;
    std::optional<OutputFile> mOutput;
    std::map<Type, std::shared_ptr<ov::RuleCounts>> mTypes;
};

/// Does @p work under a coverage. What ran before a failure is written as well.
template <class Work>
auto WithCoverage(const std::string& file, Work work) {
    RuleCoverage coverage(file);
    const auto result = [&] {
        try {
            return work();
        } catch (const std::exception&) {
            try {
                coverage.Write();
            } catch (const Failure&) {
                // The failure of the work itself is the one to tell.
            }
            throw;
        }
    }();
    coverage.Write();
    return result;
}

}  // namespace ovmodel
