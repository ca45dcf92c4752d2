#include "parameters/array_bytes.h"

namespace ov {

void WriteByByte(ByteArray& target, std::uint64_t pattern, std::int32_t first, std::int32_t count, eByteOrder order) {
    const bool isBig = order == eByteOrder::eBigEndian;
    for (std::int32_t i = 0; i < count; ++i) {
        if (i == kMostBytes) Raise(ErrorNumber::SubscriptOutOfRange);
        const std::int64_t index = std::int64_t{first} + (isBig ? std::int64_t{count} - 1 - i : i);
        ByteAt(target, index) = static_cast<std::uint8_t>(pattern >> (kBitsOfByte * i));
    }
}

}  // namespace ov
