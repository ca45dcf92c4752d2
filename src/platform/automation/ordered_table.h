/// @file
/// The table under the keyed collection and the dictionary: entries in order, found by key.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/automation/memory_account.h"

namespace ov {

/// Entries in the order in which they were added, with a hash index over those that have a key. Adding, finding and
/// removing at either end are constant on average; so is removing in the middle, but the next access by position pays
/// for all removals before it once.
///
/// @tparam Entry has `std::uint32_t hash` and `bool keyed`, and is cheap to move.
template <class Entry>
class OrderedTable {
public:
    std::size_t size() const noexcept { return mSize; }

    /// The entry whose key has @p hash and for which @p equal(entry) holds, or nullptr. Valid until the next change.
    template <class Equal>
    Entry* Find(std::uint32_t hash, Equal equal) noexcept {
        if (mIndex.empty()) return nullptr;
        for (std::size_t at = hash & Mask(); mIndex[at] != kFree; at = (at + 1) & Mask()) {
            Slot& slot = mSlots[mIndex[at]];
            if (slot.live && slot.entry.keyed && slot.entry.hash == hash && equal(std::as_const(slot.entry))) {
                return &slot.entry;
            }
        }
        return nullptr;
    }

    Entry& Append(Entry entry) {
        if (mSlots.size() + 1 > mIndex.size() / 2) Rebuild(FreeIndex(mSize + 1));
        mSlots.push_back({std::move(entry), true});
        ++mSize;
        ++mChanges;
        Enter(mSlots.size() - 1);
        return mSlots.back().entry;
    }

    void InsertBefore(Entry* neighbour, Entry entry) { InsertAt(SlotOf(neighbour), std::move(entry)); }
    void InsertBehind(Entry* neighbour, Entry entry) { InsertAt(SlotOf(neighbour) + 1, std::move(entry)); }

    /// Takes an entry out of the table and hands it over, so that its end can run any code.
    Entry Remove(Entry* entry) {
        const std::size_t at = SlotOf(entry);
        Entry taken = std::move(mSlots[at].entry);
        mSlots[at].live = false;
        --mSize;
        ++mChanges;
        while (mFirst < mSlots.size() && !mSlots[mFirst].live) {
            ++mFirst;
        }
        return taken;
    }

    /// Takes all entries out and hands them over. Walks start over.
    auto TakeAll() noexcept {
        for (std::size_t* cursor : mCursors) {
            *cursor = 0;
        }
        mIndex.clear();
        ++mChanges;
        mSize = 0;
        mFirst = 0;
        return std::exchange(mSlots, {});
    }

    /// @pre position < size(). Valid until the next change.
    Entry& At(std::size_t position) {
        if (mSize != mSlots.size() - mFirst) Compact();
        return mSlots[mFirst + position].entry;
    }

    /// A step of a walk: the first entry at or behind @p cursor, which moves behind it; nullptr at the end. A cursor
    /// starts at 0.
    Entry* Next(std::size_t& cursor) noexcept {
        for (cursor = std::max(cursor, mFirst); cursor < mSlots.size();) {
            Slot& slot = mSlots[cursor++];
            if (slot.live) return &slot.entry;
        }
        return nullptr;
    }

    /// Keeps @p cursor at its place while entries come and go, until Unwatch: every entry that stays is met once, and
    /// one that is added if it stands at or behind the place reached.
    void Watch(std::size_t& cursor) { mCursors.push_back(&cursor); }
    void Unwatch(std::size_t& cursor) noexcept { std::erase(mCursors, &cursor); }

    /// Changes whenever entries come, go or move.
    std::uint32_t Changes() const noexcept { return mChanges; }

    /// Makes room for @p count entries in all; adding them cannot fail then.
    void Reserve(std::size_t count) {
        mSlots.reserve(count);
        if (mIndex.size() < count * 2) Rebuild(FreeIndex(count));
    }

private:
    struct Slot {
        Entry entry;
        bool live;
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    std::size_t Mask() const noexcept { return mIndex.size() - 1; }
    std::size_t SlotOf(const Entry* entry) const noexcept {
        const auto* slot = reinterpret_cast<const Slot*>(entry);  // the entry is the slot's first member
        return static_cast<std::size_t>(slot - mSlots.data());
    }
    void Enter(std::size_t slot) {
        if (!mSlots[slot].entry.keyed) return;
        std::size_t at = mSlots[slot].entry.hash & Mask();
        while (mIndex[at] != kFree) {
            at = (at + 1) & Mask();
        }
        mIndex[at] = static_cast<std::uint32_t>(slot);
    }
    void InsertAt(std::size_t slot, Entry entry) {
        std::vector<std::uint32_t> index = FreeIndex(mSize + 1);
        mSlots.insert(mSlots.begin() + static_cast<std::ptrdiff_t>(slot), Slot{std::move(entry), true});
        ++mSize;
        for (std::size_t* cursor : mCursors) {
            if (*cursor > slot) ++*cursor;
        }
        Rebuild(std::move(index));
    }
    void Compact() {
        if (mSize != mSlots.size()) Rebuild(FreeIndex(mSize));
    }
    // An index with room for `count` entries. Made before a change, since the memory for it, and for the half as many
    // entries that can come before the next one, may not be had.
    std::vector<std::uint32_t> FreeIndex(std::size_t count) {
        const std::size_t size = std::bit_ceil(std::max<std::size_t>(count * 4, 8));
        mShare.Resize(size * (sizeof(std::uint32_t) + sizeof(Slot) / 2));
        return std::vector<std::uint32_t>(size, kFree);
    }
    // Closes the gaps and enters all entries in `index`.
    void Rebuild(std::vector<std::uint32_t> index) noexcept {
        ++mChanges;
        for (std::size_t* cursor : mCursors) {
            const auto end = mSlots.begin() + static_cast<std::ptrdiff_t>(std::min(*cursor, mSlots.size()));
            *cursor -= static_cast<std::size_t>(
                std::count_if(mSlots.begin(), end, [](const Slot& slot) { return !slot.live; }));
        }
        std::erase_if(mSlots, [](const Slot& slot) { return !slot.live; });
        mFirst = 0;
        mIndex = std::move(index);
        for (std::size_t slot = 0; slot < mSlots.size(); ++slot) {
            Enter(slot);
        }
    }

    std::vector<Slot> mSlots;
    std::vector<std::uint32_t> mIndex;   // hash table of slot numbers
    std::vector<std::size_t*> mCursors;  // of the walks under way
    std::size_t mSize = 0;
    std::size_t mFirst = 0;  // slots before it are gaps
    std::uint32_t mChanges = 0;
    MemoryAccount::Share mShare;
};

}  // namespace ov
