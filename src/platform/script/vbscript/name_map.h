/// @file
/// Things under names, in the order in which they came.
#pragma once

#include <bit>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/text.h"

namespace ov::vbscript {

/// Finds values by name without regard to case. @p Key is what a name is kept as (Text, or a view of the source).
/// Small maps are searched in order; a hash index comes with size.
template <class Key, class T>
class NameMap {
public:
    struct Entry {
        Key name;
        std::uint32_t hash;
        T value;
    };

    std::size_t size() const noexcept { return mEntries.size(); }
    auto begin() noexcept { return mEntries.begin(); }
    auto end() noexcept { return mEntries.end(); }
    auto begin() const noexcept { return mEntries.begin(); }
    auto end() const noexcept { return mEntries.end(); }
    Entry& operator[](std::size_t index) noexcept { return mEntries[index]; }
    const Entry& operator[](std::size_t index) const noexcept { return mEntries[index]; }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// The position of @p name, whose HashNoCase is @p hash, or kNone.
    std::size_t IndexOf(std::u16string_view name, std::uint32_t hash) const noexcept {
        if (mIndex.empty()) {
            for (std::size_t i = 0; i < mEntries.size(); ++i) {
                if (Matches(mEntries[i], name, hash)) return i;
            }
            return kNone;
        }
        for (std::size_t at = hash & Mask(); mIndex[at] != 0; at = (at + 1) & Mask()) {
            if (Matches(mEntries[mIndex[at] - 1], name, hash)) return mIndex[at] - 1;
        }
        return kNone;
    }
    T* Find(std::u16string_view name, std::uint32_t hash) noexcept {
        const std::size_t index = IndexOf(name, hash);
        return index == kNone ? nullptr : &mEntries[index].value;
    }
    const T* Find(std::u16string_view name, std::uint32_t hash) const noexcept {
        const std::size_t index = IndexOf(name, hash);
        return index == kNone ? nullptr : &mEntries[index].value;
    }

    /// @pre the name is not there yet
    T& Add(Key name, std::uint32_t hash, T value) {
        mEntries.push_back({std::move(name), hash, std::move(value)});
        if (!mIndex.empty() && mEntries.size() * 2 <= mIndex.size()) {
            Enter(mEntries.size() - 1);
        } else if (mEntries.size() > kSmall) {
            Rebuild();
        }
        return mEntries.back().value;
    }

    void Clear() noexcept {
        mEntries.clear();
        mIndex.clear();
    }
    void Shrink() { mEntries.shrink_to_fit(); }

private:
    static constexpr std::size_t kSmall = 8;

    static bool Matches(const Entry& entry, std::u16string_view name, std::uint32_t hash) noexcept {
        return entry.hash == hash && EqualNoCase(entry.name, name);
    }
    std::size_t Mask() const noexcept { return mIndex.size() - 1; }
    void Enter(std::size_t entry) noexcept {
        std::size_t at = mEntries[entry].hash & Mask();
        while (mIndex[at] != 0) {
            at = (at + 1) & Mask();
        }
        mIndex[at] = static_cast<std::uint32_t>(entry + 1);
    }
    void Rebuild() {
        mIndex.assign(std::bit_ceil(mEntries.size() * 4), 0);
        for (std::size_t i = 0; i < mEntries.size(); ++i) {
            Enter(i);
        }
    }

    std::vector<Entry> mEntries;
    std::vector<std::uint32_t> mIndex;  // hash table of positions plus 1; none for a small map
};

}  // namespace ov::vbscript
