#include "platform/conversion/number_bytes.h"

#include <bit>
#include <cmath>

#include "platform/automation/errors.h"

namespace ov {

void Long2Bytes(std::int32_t value, FourBytes bytes) noexcept {
    auto rest = static_cast<std::uint32_t>(value);
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(rest);
        rest >>= 8;
    }
}

std::int32_t Bytes2Long(ConstFourBytes bytes) noexcept {
    std::uint32_t value = 0;
    for (int shift = 0; const std::uint8_t byte : bytes) {
        value |= std::uint32_t{byte} << shift;
        shift += 8;
    }
    return static_cast<std::int32_t>(value);
}

void Float2Bytes(float value, FourBytes bytes) noexcept {
    Long2Bytes(Float2Long(value), bytes);
}

float Bytes2Float(ConstFourBytes bytes) noexcept {
    return std::bit_cast<float>(Bytes2Long(bytes));
}

std::int32_t Float2Long(float value) noexcept {
    return std::bit_cast<std::int32_t>(value);
}

float Long2Float(std::int32_t bits) {
    const auto value = std::bit_cast<float>(bits);
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    return value;
}

}  // namespace ov
