/// @file
/// Which of a row of steps are still to do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace ov {

/// The steps of one sweep over the members of a list, by their positions. A step is to do until its run has shown that
/// it changes nothing, and again once something that it read has changed. Asking for the next step to do costs the same
/// however many are done.
///
/// A step that is left out counts as the rules that it evaluated last: `Walk::Spared` sums them up.
class WorkSet {
public:
    WorkSet() = default;
    WorkSet(const WorkSet&) = delete;
    WorkSet& operator=(const WorkSet&) = delete;

    /// Makes every one of @p size steps to do.
    void Reset(std::size_t size);
    /// Whatever makes a step of this set to do makes step @p place of @p above so: that of the list of lists.
    void StandBelow(WorkSet* above, std::size_t place) noexcept;

    std::size_t size() const noexcept { return mSize; }
    bool HasWork() const noexcept { return mToDo != 0; }
    bool IsToDo(std::size_t position) const noexcept;
    /// Makes the place in the list above to do, though no step here is.
    void Touch() noexcept {
        if (mAbove) mAbove->SetToDo(mPlace);
    }
    /// Positions beyond the size are those of members that have left the list, and ignored.
    void SetToDo(std::size_t position) noexcept;
    /// @p evaluations is what the step counts as when it is left out.
    void SetDone(std::size_t position, std::uint32_t evaluations);
    /// The evaluations of all steps that are done.
    std::uint64_t Evaluations() const noexcept { return mEvaluations; }

    /// A walk over the steps to do, in their order. It is live: what becomes to do behind the place reached waits for
    /// the next walk, and what becomes so in front of it is met.
    class Walk {
    public:
        explicit Walk(WorkSet& set);
        ~Walk();
        Walk(const Walk&) = delete;
        Walk& operator=(const Walk&) = delete;

        /// The next step to do.
        std::optional<std::size_t> Next() noexcept;
        /// What the steps that were passed over so far count as.
        std::uint64_t Spared() const noexcept;

    private:
        friend class WorkSet;
        WorkSet& mSet;
        std::size_t mCursor = 0;  // steps in front of it have been met or passed over
        std::uint64_t mSpared;    // evaluations of all steps passed over, and of those done behind the cursor
        Walk* mOuter;             // the walk of the same set that was under way before
    };

private:
    static constexpr std::size_t kBits = 64;

    std::uint32_t EvaluationsOf(std::size_t position) const noexcept { return mCounts.empty() ? 0 : mCounts[position]; }
    std::optional<std::size_t> NextToDo(std::size_t from) const noexcept;

    std::vector<std::uint64_t> mBits;    // a bit for each step
    std::vector<std::uint64_t> mWords;   // a bit for each word of mBits that is not 0
    std::vector<std::uint32_t> mCounts;  // made for the first step that counts
    std::size_t mSize = 0;
    std::size_t mToDo = 0;
    std::uint64_t mEvaluations = 0;
    WorkSet* mAbove = nullptr;
    std::size_t mPlace = 0;
    Walk* mWalks = nullptr;
};

}  // namespace ov
