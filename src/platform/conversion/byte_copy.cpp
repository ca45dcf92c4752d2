#include "platform/conversion/byte_copy.h"

#include <algorithm>
#include <cstdlib>

namespace ov {

bool Byte2Byte(std::uint8_t& target, std::uint8_t source, int shift, int count) noexcept {
    constexpr int kBits = 8;
    if (count < 0 || shift <= -kBits || shift >= kBits) return false;
    const int copied = std::min(count, kBits - std::abs(shift));
    const unsigned ones = (1u << copied) - 1;
    const unsigned mask = shift >= 0 ? ones << shift : ones;
    const unsigned bits = shift >= 0 ? unsigned{source} << shift : unsigned{source} >> -shift;
    target = static_cast<std::uint8_t>((target & ~mask) | (bits & mask));
    return true;
}

}  // namespace ov
