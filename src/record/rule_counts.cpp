#include "record/rule_counts.h"

namespace ov {

namespace {

RuleCountsOf& Source() {
    static RuleCountsOf source;
    return source;
}

}  // namespace

void RuleCounts::NoteRun(Place place, const Variant& result, bool failed) {
    RuleCount& count = mRules[place];
    ++count.runs;
    if (failed) {
        ++count.failures;
    } else if (result.Type() == VarType::Boolean) {
        ++(result.AsBoolean() ? count.trues : count.falses);
    }
}

void CountRules(RuleCountsOf source) {
    Source() = std::move(source);
}

std::shared_ptr<RuleCounts> CountsForTree(const Text& descriptor, const Text& type) {
    return Source() ? Source()(descriptor, type) : nullptr;
}

}  // namespace ov
