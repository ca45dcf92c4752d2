/// @file
/// The cache of enumerations that the parameters of a module share.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/automation/dictionary.h"
#include "platform/automation/text_map.h"

namespace ov {

/// One enumeration, filled by the parameter that read it first.
struct CEnumCacheItem {
    /// Value to text number or to the row's text, in the order of the rows.
    Ref<Dictionary> Items = MakeObject<Dictionary>();
    /// Text number of the row that stands for any other value; 0 for none.
    std::int32_t NullTextId = 0;
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
