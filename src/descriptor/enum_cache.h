/// @file
/// The cache of enumerations that the parameters of a module share.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/automation/collection.h"
#include "platform/automation/dictionary.h"
#include "platform/automation/text_map.h"

namespace ov {

/// One enumeration, filled by the parameter that read it first.
struct CEnumCacheItem {
    /// Value to text number or to the row's text, in the order of the rows.
    Ref<Dictionary> Items = MakeObject<Dictionary>();
    /// Text number of the row that stands for any other value; 0 for none.
    std::int32_t NullTextId = 0;

    /// The list that the latest reader made of the items, for the next one that would make the same.
    struct List {
        std::int32_t language = 0;
        std::int32_t firstText = 0;    ///< number of the first text, which tells whether the texts are still the same
        Text limits;                   ///< that chose among the items
        Ref<const Row> texts, values;  ///< the texts under the values' keys, the values under their texts
        explicit operator bool() const noexcept { return static_cast<bool>(texts); }
    } Latest;
};

/// Enumerations by the key that their readers make of them. Not tied to the language.
class EnumCache {
public:
    /// The item under @p key, without regard to case, or nullptr.
    std::shared_ptr<CEnumCacheItem> Get(const Text& key) const;
    /// @throws RuntimeError 457 if @p key is taken; the old item stays.
    void Set(const Text& key, const std::shared_ptr<CEnumCacheItem>& item);
    void Clear() { mItems.clear(); }

private:
    TextMap<std::shared_ptr<CEnumCacheItem>> mItems;
};

}  // namespace ov
