/// @file
/// How much of a device's rules has been tried: for whoever exercises a device and wants to know what is left.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "platform/automation/text.h"
#include "platform/automation/variant.h"
#include "record/rule_column.h"

namespace ov {

/// How often one rule has run, and what it came to. A rule whose failure counts as False is a failure here.
struct RuleCount {
    std::uint64_t runs = 0, trues = 0, falses = 0, failures = 0;
};

/// The counts of all rules of one module type, which its trees share. A rule is known by its place in the table
/// Parameters, so one that several groups have counts once.
class RuleCounts {
public:
    /// The key `idx` of a row, and a column.
    using Place = std::pair<std::int32_t, RuleColumn>;

    void NoteRun(Place place, const Variant& result, bool failed);
    /// A parameter has this row of its ring, and its rule holds.
    void NoteInForce(std::int32_t row) { mInForce.insert(row); }

    const std::map<Place, RuleCount>& Rules() const noexcept { return mRules; }
    const std::set<std::int32_t>& RowsInForce() const noexcept { return mInForce; }

private:
    std::map<Place, RuleCount> mRules;
    std::set<std::int32_t> mInForce;
};

/// Gives the counts for a module type of a descriptor, by its path; Nothing if they are not wanted.
using RuleCountsOf = std::function<std::shared_ptr<RuleCounts>(const Text& descriptor, const Text& type)>;

/// Counts the rules of all trees that are loaded from now on. An empty function ends that: nothing is counted then, and
/// counting costs nothing.
void CountRules(RuleCountsOf source);

/// What a tree that is being loaded counts into.
std::shared_ptr<RuleCounts> CountsForTree(const Text& descriptor, const Text& type);

}  // namespace ov
