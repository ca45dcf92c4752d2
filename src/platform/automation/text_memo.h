/// @file
/// A short memory for what was worked out of a text.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/automation/text.h"

namespace ov {

/// Keeps a @p Value for each of the texts that came last, such as the rules of a descriptor, which come again and
/// again. A text is known by the place of its characters, which an entry keeps alive, so that no other text can be
/// there; equal characters elsewhere are another text. Finding one is a few instructions.
template <class Value>
class TextMemo {
public:
    /// What was kept for @p text, or nullptr. Valid until the next Keep.
    const Value* Find(const Text& text) const noexcept {
        if (text.empty()) return nullptr;
        for (const Entry& entry : mSets[SetOf(text)].entries) {
            if (entry.text.data() == text.data()) return &entry.value;
        }
        return nullptr;
    }
    /// Keeps @p value for @p text, unless the text is long, in the place of what came there first.
    void Keep(const Text& text, Value value) {
        if (text.empty() || text.size() > kMaxLength) return;
        auto& entries = mSets[SetOf(text)].entries;
        std::shift_right(entries.begin(), entries.end(), 1);
        entries.front() = {text, std::move(value)};
    }

private:
    struct Entry {
        Text text;
        Value value{};
    };
    /// The entries that a text may be in, on one line of the processor's cache.
    struct alignas(64) Set {
        std::array<Entry, 4> entries;
    };
    static constexpr int kBits = 11;
    static constexpr std::size_t kMaxLength = 1024;

    static std::size_t SetOf(const Text& text) noexcept {
        // Texts that were made one after the other lie at regular distances; a product spreads them.
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(text.data()));
        return static_cast<std::size_t>(((address >> 4) * 0x9E3779B97F4A7C15u) >> (64 - kBits));
    }

    std::array<Set, std::size_t{1} << kBits> mSets;
};

}  // namespace ov
