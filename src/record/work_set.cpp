#include "record/work_set.h"

#include <algorithm>
#include <bit>

namespace ov {

namespace {

// The first bit that is set at or behind `from`, or `size`.
std::size_t NextBit(const std::vector<std::uint64_t>& words, std::size_t from) noexcept {
    constexpr std::size_t kBits = 64;
    for (std::size_t word = from / kBits; word < words.size(); ++word) {
        std::uint64_t bits = words[word];
        if (word == from / kBits) bits &= ~std::uint64_t{0} << from % kBits;
        if (bits) return word * kBits + static_cast<std::size_t>(std::countr_zero(bits));
    }
    return words.size() * kBits;
}

}  // namespace

void WorkSet::Reset(std::size_t size) {
    // What was passed over stays counted; what lies in front of a walk is met by it.
    for (Walk* walk = mWalks; walk; walk = walk->mOuter) {
        walk->mSpared = walk->Spared();
    }
    mCounts.clear();
    mBits.assign((size + kBits - 1) / kBits, ~std::uint64_t{0});
    if (size % kBits != 0) mBits.back() >>= kBits - size % kBits;
    mWords.assign((mBits.size() + kBits - 1) / kBits, 0);
    for (std::size_t word = 0; word < mBits.size(); ++word) {
        mWords[word / kBits] |= std::uint64_t{1} << word % kBits;
    }
    mSize = mToDo = size;
    mEvaluations = 0;
    if (mAbove && size > 0) mAbove->SetToDo(mPlace);
}

void WorkSet::StandBelow(WorkSet* above, std::size_t place) noexcept {
    mAbove = above;
    mPlace = place;
    if (above && HasWork()) above->SetToDo(place);
}

bool WorkSet::IsToDo(std::size_t position) const noexcept {
    return position < mSize && (mBits[position / kBits] >> position % kBits & 1) != 0;
}

void WorkSet::SetToDo(std::size_t position) noexcept {
    if (position >= mSize) return;
    std::uint64_t& word = mBits[position / kBits];
    const std::uint64_t bit = std::uint64_t{1} << position % kBits;
    if (word & bit) return;
    word |= bit;
    mWords[position / kBits / kBits] |= std::uint64_t{1} << position / kBits % kBits;
    ++mToDo;
    if (const std::uint32_t evaluations = EvaluationsOf(position)) {
        mEvaluations -= evaluations;
        for (Walk* walk = mWalks; walk; walk = walk->mOuter) {
            if (position >= walk->mCursor) walk->mSpared -= evaluations;
        }
    }
    if (mAbove) mAbove->SetToDo(mPlace);
}

void WorkSet::SetDone(std::size_t position, std::uint32_t evaluations) {
    if (position >= mSize) return;
    SetToDo(position);  // takes back what it counted as
    if (evaluations != 0 && mCounts.empty()) mCounts.resize(mSize);
    std::uint64_t& word = mBits[position / kBits];
    word &= ~(std::uint64_t{1} << position % kBits);
    if (word == 0) mWords[position / kBits / kBits] &= ~(std::uint64_t{1} << position / kBits % kBits);
    --mToDo;
    if (!mCounts.empty()) mCounts[position] = evaluations;
    if (evaluations == 0) return;
    mEvaluations += evaluations;
    for (Walk* walk = mWalks; walk; walk = walk->mOuter) {
        if (position >= walk->mCursor) walk->mSpared += evaluations;
    }
}

std::optional<std::size_t> WorkSet::NextToDo(std::size_t from) const noexcept {
    if (mToDo == 0 || from >= mSize) return std::nullopt;
    const std::size_t here = from / kBits;
    if (const std::uint64_t bits = mBits[here] & ~std::uint64_t{0} << from % kBits) {
        return here * kBits + static_cast<std::size_t>(std::countr_zero(bits));
    }
    const std::size_t word = NextBit(mWords, here + 1);
    if (word >= mBits.size()) return std::nullopt;
    return word * kBits + static_cast<std::size_t>(std::countr_zero(mBits[word]));
}

WorkSet::Walk::Walk(WorkSet& set) : mSet(set), mSpared(set.mEvaluations), mOuter(set.mWalks) {
    set.mWalks = this;
}

WorkSet::Walk::~Walk() {
    mSet.mWalks = mOuter;
}

std::optional<std::size_t> WorkSet::Walk::Next() noexcept {
    const std::optional<std::size_t> next = mSet.NextToDo(mCursor);
    mCursor = next ? *next + 1 : mSet.size();
    return next;
}

std::uint64_t WorkSet::Walk::Spared() const noexcept {
    std::uint64_t ahead = 0;
    for (std::size_t position = mCursor; !mSet.mCounts.empty() && position < mSet.mSize; ++position) {
        if (!mSet.IsToDo(position)) ahead += mSet.mCounts[position];
    }
    return mSpared - ahead;
}

}  // namespace ov
