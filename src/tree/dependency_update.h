/// @file
/// The frame of an update of dependencies: how a node of the tree settles, and what ends rules that never do.
#pragma once

#include <cstdint>
#include <set>
#include <utility>

#include "platform/automation/text.h"

namespace ov {

/// One update, with all updates that its scripts set off meanwhile: those join it. Its passes are bounded by
/// Diagnostics::maxPasses. Past the bound it ends as if settled, and one line in the log names the parameters that
/// still changed.
class DependencyUpdate {
public:
    /// Begins an update, or joins the one under way.
    DependencyUpdate() noexcept;
    ~DependencyUpdate();
    DependencyUpdate(const DependencyUpdate&) = delete;
    DependencyUpdate& operator=(const DependencyUpdate&) = delete;

    /// Counts a pass in. False if the bound is reached: there must be no further pass.
    bool BeginPass();
    bool IsOutermost() const noexcept { return sOutermost == this; }

    /// Lets the host work between two passes: unless the update has joined another one, what the host writes are
    /// updates of their own.
    template <class Work>
    auto Between(Work work) {
        if (!IsOutermost()) return work();
        struct Resume {
            DependencyUpdate* update = std::exchange(sOutermost, nullptr);
            ~Resume() { sOutermost = update; }
        } const resume;
        return work();
    }

    /// Tells the update under way, if any, that a parameter has changed its row or its state. @p path is called for
    /// its name where that may be wanted.
    template <class Path>
    static void NoteChange(Path path) {
        if (sOutermost && sOutermost->IsNearBound()) sOutermost->mChanged.insert(path());
    }

private:
    bool IsNearBound() const noexcept;
    void TellUnsettled();

    static inline DependencyUpdate* sOutermost = nullptr;

    std::int32_t mPasses = 0;
    bool mTold = false;
    std::set<Text> mChanged;  // in the last passes before the bound
};

/// Sweeps @p node with @p pass until one changes nothing that scripts have read, then checks its parameters. False if a
/// script from outside has reached the node: then the sweep is up to the node above.
template <class Node>
bool SettleAlone(Node& node, bool (Node::*pass)()) {
    DependencyUpdate update;
    while (!node.scriptAccess()) {
        const bool mayPass = update.BeginPass();
        if (mayPass && (node.*pass)()) continue;
        // Past the bound nothing more runs but the outermost update's check: a rule of consistency may write as well.
        if (mayPass || update.IsOutermost()) node.CheckConsistencyAll();
        return true;
    }
    return false;
}

}  // namespace ov
