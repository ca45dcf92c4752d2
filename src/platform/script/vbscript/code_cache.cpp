#include "platform/script/vbscript/code_cache.h"

#include <functional>
#include <list>
#include <unordered_map>

#include "platform/automation/text_memo.h"
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
    /// Short cut: hosts evaluate the same Text again and again.
    const Ref<Unit>* FindRecent(const Text& source, bool isExpression) const noexcept {
        return (isExpression ? mRecentExpressions : mRecentStatements).Find(source);
    }
    [[gnu::noinline]] Ref<Unit> Get(const Text& source, bool isExpression) {
        Ref<Unit> unit = Find(source, isExpression);
        (isExpression ? mRecentExpressions : mRecentStatements).Keep(source, unit);
        return unit;
    }

private:
    struct Entry {
        Text source;
        bool isExpression;
        Ref<Unit> unit;
    };

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

    TextMemo<Ref<Unit>> mRecentExpressions;
    TextMemo<Ref<Unit>> mRecentStatements;
    std::list<Entry> mEntries;  // the one used last is the first
    std::unordered_map<Key, std::list<Entry>::iterator, HashKey> mIndex;
    std::size_t mCost = 0;
};

}  // namespace

Ref<Unit> CompiledText(const Text& source, bool isExpression) {
    // Never ended: scripts' objects may outlive everything static.
    static Cache& cache = *new Cache;
    if (const Ref<Unit>* known = cache.FindRecent(source, isExpression)) return *known;
    return cache.Get(source, isExpression);
}

}  // namespace ov::vbscript
