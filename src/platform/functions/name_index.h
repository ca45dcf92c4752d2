/// @file
/// Lookup in a table of entries that have a name.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/automation/text.h"

namespace ov::vbscript {

/// Finds entries of a fixed table by their member `name`, without regard to case. The entries must outlive the index.
template <class Entry>
class NameIndex {
public:
    explicit NameIndex(std::size_t capacity) : mSlots(std::bit_ceil(capacity * 2 + 1)) {}

    /// @pre fewer entries than the capacity
    void Enter(const Entry& entry) { mSlots[FreeOrEqual(entry.name)] = &entry; }
    const Entry* Find(std::u16string_view name) const noexcept { return mSlots[FreeOrEqual(name)]; }

private:
    std::size_t FreeOrEqual(std::u16string_view name) const noexcept {
        const std::size_t mask = mSlots.size() - 1;
        std::size_t slot = HashNoCase(name) & mask;
        while (mSlots[slot] && !EqualNoCase(mSlots[slot]->name, name)) {
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    std::vector<const Entry*> mSlots;
};

}  // namespace ov::vbscript
