#include "platform/store/jet/long_values.h"

#include <algorithm>

#include "platform/store/jet/data_page.h"

namespace ov::jet {

Bytes LongValues::Read(const Bytes& stored) {
    constexpr std::size_t kHeadSize = 12;
    constexpr std::uint32_t kInline = 0x80000000;
    constexpr std::uint32_t kOnePage = 0x40000000;
    constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
    const std::uint32_t head = stored.U32(0);
    const std::size_t length = head & kLengthMask;
    if ((head & kInline) != 0) return stored.Part(kHeadSize, length);
    const RowPointer at = RowPointer::FromNumber(stored.U32(4));
    if ((head & kOnePage) != 0) {
        const Bytes value = DataPage(mFile, at.page).RowAt(at.row).body.Part(0, length);
        mFile.Take(value.size());
        return value;
    }
    return ReadChain(at, length);
}

// Each part begins with a pointer to the next one. Parts are accounted for as
// they come, so a chain in a circle ends.
Bytes LongValues::ReadChain(RowPointer at, std::size_t length) {
    constexpr std::size_t kPointerSize = 4;
    mWhole.clear();
    while (mWhole.size() < length) {
        const Bytes part = DataPage(mFile, at.page).RowAt(at.row).body;
        at = RowPointer::FromNumber(part.U32(0));
        mFile.Take(part.size());
        const std::size_t wanted = std::min(part.size() - kPointerSize, length - mWhole.size());
        mWhole.insert(mWhole.end(), part.data() + kPointerSize, part.data() + kPointerSize + wanted);
    }
    return Bytes(mWhole);
}

}  // namespace ov::jet
