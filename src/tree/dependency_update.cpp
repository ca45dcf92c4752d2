#include "tree/dependency_update.h"

#include "scripting/rule_failures.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kWatchedPasses = 100;  // rules that go in circles have been round once by then

}  // namespace

DependencyUpdate::DependencyUpdate() noexcept {
    if (!sOutermost) sOutermost = this;
}

DependencyUpdate::~DependencyUpdate() {
    if (IsOutermost()) sOutermost = nullptr;
}

bool DependencyUpdate::BeginPass() {
    DependencyUpdate& update = *sOutermost;
    if (update.mPasses < GlobalDiagnostics().maxPasses) {
        ++update.mPasses;
        return true;
    }
    update.TellUnsettled();
    return false;
}

bool DependencyUpdate::IsNearBound() const noexcept {
    return mPasses > GlobalDiagnostics().maxPasses - kWatchedPasses;
}

void DependencyUpdate::TellUnsettled() {
    if (mTold) return;
    mTold = true;
    Text changed;
    for (const Text& path : mChanged) {
        changed += (changed.empty() ? u"" : u", ") + path;
    }
    const Text words = u"rules have not settled after " + Text::FromInteger(mPasses) +
                       u" passes; parameters that still change: " + changed;
    TellRuleFailure({Text(), words, Text()});
    LogAlways(u"UpdateDependencies", u"ERROR: " + words);
}

}  // namespace ov
