/// @file
/// A list in the making whose memory counts like that of texts and arrays.
#pragma once

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/automation/memory_account.h"

namespace ov::vbscript {

/// A vector that takes its memory from the account as it grows.
template <class T>
class AccountedList {
public:
    /// @throws RuntimeError 7 where the account is exhausted
    void Append(T item) {
        if (mItems.size() == mItems.capacity()) Grow();
        mItems.push_back(std::move(item));
    }
    const std::vector<T>& Items() const noexcept { return mItems; }
    /// The items, no longer accounted.
    std::vector<T> TakeItems() {
        mMemory.Resize(0);
        return std::move(mItems);
    }

private:
    void Grow() {
        constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();  // what an array's bounds can tell
        const std::size_t capacity = std::max<std::size_t>(16, mItems.capacity() * 2);
        if (capacity > kMost) Raise(ErrorNumber::OutOfMemory);
        mMemory.Resize(capacity * sizeof(T));
        mItems.reserve(capacity);
    }

    std::vector<T> mItems;
    MemoryAccount::Share mMemory;
};

}  // namespace ov::vbscript
