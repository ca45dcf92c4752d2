#include "platform/script/vbscript/code_cache.h"

#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <unordered_map>

#include "platform/script/vbscript/compiler.h"
#include "platform/script/vbscript/limits.h"

namespace ov::vbscript {

namespace {

/// What identifies a text: its characters and what it was compiled as.
struct Key {
    std::u16string_view source;
    bool isExpression;
    friend bool operator==(const Key&, const Key&) = default;
};

// Not noexcept, which makes the map keep the hashes: it need not look at the texts that it passes then.
struct HashKey {
    std::size_t operator()(const Key& key) const {
        return std::hash<std::u16string_view>()(key.source) ^ (key.isExpression ? 1 : 0);
    }
};

class Cache {
public:
    Ref<Unit> Get(const Text& source, bool isExpression) {
        // Short cut: hosts evaluate the same Text again and again. An entry here keeps its characters alive, so that
        // no other text can be at their place.
        Recent& recent = mRecent[RecentSlot(source, isExpression)];
        if (recent.unit && recent.source.data() == source.data() && recent.source.size() == source.size() &&
            recent.isExpression == isExpression) {
            return recent.unit;
        }
        Ref<Unit> unit = Find(source, isExpression);
        if (source.size() <= kMaxRecentLength) recent = {source, unit, isExpression};
        return unit;
    }

private:
    struct Entry {
        Text source;
        bool isExpression;
        Ref<Unit> unit;
    };
    struct Recent {
        Text source;
        Ref<Unit> unit;
        bool isExpression = false;
    };
    static constexpr std::size_t kRecentSlots = 1024;
    static constexpr std::size_t kMaxRecentLength = 4096;

    static std::size_t RecentSlot(const Text& source, bool isExpression) noexcept {
        const auto address = reinterpret_cast<std::uintptr_t>(source.data());
        return ((address >> 4) ^ (address >> 14) ^ (isExpression ? 1u : 0u)) % kRecentSlots;
    }
    // A rough measure of what an entry holds: code and tables are some times as long as the text.
    static std::size_t Cost(const Text& source) noexcept { return 512 + source.size() * 16; }

    Ref<Unit> Find(const Text& source, bool isExpression) {
        if (const auto known = mIndex.find({source, isExpression}); known != mIndex.end()) {
            mEntries.splice(mEntries.begin(), mEntries, known->second);
            return known->second->unit;
        }
        Ref<Unit> unit = CompileText(source, isExpression);
        const std::size_t cost = Cost(source);
        if (cost > kMaxCachedBytes / 4) return unit;
        mEntries.push_front({source, isExpression, unit});
        mIndex.emplace(Key{mEntries.front().source, isExpression}, mEntries.begin());
        mCost += cost;
        while (mEntries.size() > kMaxCachedUnits || mCost > kMaxCachedBytes) {
            const Entry& oldest = mEntries.back();
            mIndex.erase({oldest.source, oldest.isExpression});
            mCost -= Cost(oldest.source);
            mEntries.pop_back();
        }
        return unit;
    }

    std::array<Recent, kRecentSlots> mRecent;
    std::list<Entry> mEntries;  // the one used last is the first
    std::unordered_map<Key, std::list<Entry>::iterator, HashKey> mIndex;
    std::size_t mCost = 0;
};

}  // namespace

Ref<Unit> CompiledText(const Text& source, bool isExpression) {
    // Never ended: scripts' objects may outlive everything static.
    static Cache& cache = *new Cache;
    return cache.Get(source, isExpression);
}

}  // namespace ov::vbscript
