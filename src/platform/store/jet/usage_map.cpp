#include "platform/store/jet/usage_map.h"

#include "platform/store/jet/data_page.h"

namespace ov::jet {

namespace {

// One bit for each page from `first` on.
void AddPages(const Bytes& bits, std::size_t first, std::vector<std::uint32_t>& pages) {
    for (std::size_t i = 0; i < bits.size(); ++i) {
        for (std::size_t bit = 0; bit < 8; ++bit) {
            if ((bits.U8(i) >> bit & 1) != 0) pages.push_back(static_cast<std::uint32_t>(first + i * 8 + bit));
        }
    }
}

}  // namespace

std::vector<std::uint32_t> ReadUsageMap(PageFile& file, RowPointer at) {
    enum : std::uint8_t { kInline = 0, kOfPages = 1 };
    constexpr std::uint8_t kMapPage = 5;
    constexpr std::size_t kMapPageHead = 4;
    const Bytes map = RowBody(file, at);
    std::vector<std::uint32_t> pages;
    switch (map.U8(0)) {
        case kInline:
            AddPages(map.From(5), map.U32(1), pages);
            return pages;
        case kOfPages: {
            const std::size_t pagesOfOne = (file.PageSize() - kMapPageHead) * 8;
            const std::size_t count = (map.size() - 1) / 4;
            for (std::size_t i = 0; i < count; ++i) {
                const std::uint32_t number = map.U32(1 + 4 * i);
                if (number == 0) continue;  // none of these pages is the table's
                const Bytes part = file.Page(number);
                if (part.U8(0) != kMapPage) Raise(ErrorNumber::ObjectDamaged);
                AddPages(part.From(kMapPageHead), i * pagesOfOne, pages);
            }
            return pages;
        }
        default:
            Raise(ErrorNumber::ObjectDamaged);
    }
}

}  // namespace ov::jet
