#include "descriptor/enum_cache.h"

#include "platform/automation/errors.h"

namespace ov {

std::shared_ptr<CEnumCacheItem> EnumCache::Get(const Text& key) const {
    const auto at = mItems.find(key);
    return at == mItems.end() ? nullptr : at->second;
}

void EnumCache::Set(const Text& key, const std::shared_ptr<CEnumCacheItem>& item) {
    if (!mItems.try_emplace(key, item).second) Raise(ErrorNumber::KeyAlreadyAssociated);
}

}  // namespace ov
