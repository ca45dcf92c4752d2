#include "platform/conversion/packed_ascii.h"

#include <algorithm>

namespace ov {

namespace {

constexpr std::size_t kGroupCharacters = 4;
constexpr std::size_t kGroupBytes = 3;
constexpr int kCharacterBits = 6;
constexpr unsigned kCharacterMask = 0x3F;

// The highest of the six bits, and the one above it that a character has where this is clear: "A" is 0x41, "1" is 0x31.
constexpr unsigned kTopBit = 0x20;
constexpr unsigned kBitAbove = 0x40;

}  // namespace

void PackAscii(std::span<const std::uint8_t> text, std::span<std::uint8_t> packed) noexcept {
    std::size_t from = 0;
    for (std::size_t to = 0; to < packed.size(); to += kGroupBytes) {
        std::uint32_t group = 0;
        for (std::size_t i = 0; i < kGroupCharacters; ++i, ++from) {
            const unsigned character = from < text.size() ? text[from] : ' ';
            group = group << kCharacterBits | (character & kCharacterMask);
        }
        const std::size_t count = std::min(kGroupBytes, packed.size() - to);
        for (std::size_t i = 0; i < count; ++i) {
            packed[to + i] = static_cast<std::uint8_t>(group >> (8 * (kGroupBytes - 1 - i)));
        }
    }
}

std::size_t UnpackAscii(std::span<const std::uint8_t> packed, std::span<std::uint8_t> text) noexcept {
    const std::size_t count = std::min(UnpackedSize(packed.size()), text.size());
    std::uint32_t bits = 0;
    int available = 0;
    std::size_t from = 0;
    for (std::size_t to = 0; to < count; ++to) {
        if (available < kCharacterBits) {
            bits = bits << 8 | packed[from++];
            available += 8;
        }
        available -= kCharacterBits;
        unsigned character = bits >> available & kCharacterMask;
        if ((character & kTopBit) == 0) character |= kBitAbove;
        text[to] = static_cast<std::uint8_t>(character);
    }
    return count;
}

}  // namespace ov
