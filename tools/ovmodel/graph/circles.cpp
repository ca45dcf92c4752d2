#include "ovmodel/graph/circles.h"

#include <algorithm>
#include <limits>

namespace ovmodel {

namespace {

constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

/// Tarjan's walk, with a list of its own in place of calls: a way may be as long as the device has parameters.
class Walk {
public:
    Walk(std::size_t nodes, const std::vector<std::pair<std::size_t, std::size_t>>& edges)
        : mNext(nodes), mNumber(nodes, kNone), mLow(nodes, 0), mComponent(nodes, kNone) {
        for (const auto& [from, to] : edges) {
            mNext[from].push_back(to);
        }
    }

    std::vector<std::size_t> Run() {
        for (std::size_t node = 0; node < mNext.size(); ++node) {
            if (mNumber[node] == kNone) WalkFrom(node);
        }
        return std::move(mComponent);
    }

private:
    struct Step {
        std::size_t node;
        std::size_t edge = 0;  // the next one to go
    };

    void WalkFrom(std::size_t start) {
        Enter(start);
        while (!mWay.empty()) {
            const std::size_t node = mWay.back().node;
            if (mWay.back().edge == mNext[node].size()) {
                Leave(node);
                continue;
            }
            const std::size_t next = mNext[node][mWay.back().edge++];
            if (mNumber[next] == kNone) {
                Enter(next);
            } else if (mComponent[next] == kNone) {
                mLow[node] = std::min(mLow[node], mNumber[next]);
            }
        }
    }

    void Enter(std::size_t node) {
        mNumber[node] = mLow[node] = mCount++;
        mOpen.push_back(node);
        mWay.push_back({node});
    }

    void Leave(std::size_t node) {
        mWay.pop_back();
        if (!mWay.empty()) {
            std::size_t& low = mLow[mWay.back().node];
            low = std::min(low, mLow[node]);
        }
        if (mLow[node] != mNumber[node]) return;
        std::size_t member = kNone;
        do {
            member = mOpen.back();
            mOpen.pop_back();
            mComponent[member] = mComponents;
        } while (member != node);
        ++mComponents;
    }

    std::vector<std::vector<std::size_t>> mNext;
    std::vector<std::size_t> mNumber;     // in the order of entering
    std::vector<std::size_t> mLow;        // the first one that can be reached among those that are open
    std::vector<std::size_t> mComponent;  // kNone while open
    std::vector<std::size_t> mOpen;
    std::vector<Step> mWay;
    std::size_t mCount = 0, mComponents = 0;
};

}  // namespace

std::vector<std::size_t> ComponentsOf(std::size_t nodes,
                                      const std::vector<std::pair<std::size_t, std::size_t>>& edges) {
    return Walk(nodes, edges).Run();
}

}  // namespace ovmodel
