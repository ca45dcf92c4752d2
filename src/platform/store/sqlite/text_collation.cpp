#include "platform/store/sqlite/text_collation.h"

#include <algorithm>
#include <string_view>

#include "platform/automation/text.h"
#include "platform/locale/locale.h"

namespace ov::sqlite {

namespace {

std::u16string_view TextOf(const void* text, int bytes) noexcept {
    return {static_cast<const char16_t*>(text), static_cast<std::size_t>(bytes) / sizeof(char16_t)};
}

// Equal are those alone that differ in case alone; a dictionary has more that are level.
int Compare(void*, int sizeA, const void* bytesA, int sizeB, const void* bytesB) noexcept {
    const std::u16string_view a = TextOf(bytesA, sizeA);
    const std::u16string_view b = TextOf(bytesB, sizeB);
    if (EqualNoCase(a, b)) return 0;
    const int order = CompareTextsNeutral(a, b);
    if (order != 0) return order;
    const auto fold = [](char16_t c) { return FoldCase(c); };
    return std::ranges::lexicographical_compare(a, b, {}, fold, fold) ? -1 : 1;
}

}  // namespace

int AddTextCollation(sqlite3* db) noexcept {
    return sqlite3_create_collation_v2(db, kTextCollation, SQLITE_UTF16_ALIGNED, nullptr, &Compare, nullptr);
}

}  // namespace ov::sqlite
