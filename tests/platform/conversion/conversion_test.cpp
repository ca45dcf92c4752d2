#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/conversion/byte_copy.h"
#include "platform/conversion/number_bytes.h"
#include "platform/conversion/packed_ascii.h"

namespace ov {
namespace {

TEST(Byte2Byte, CopiesBitsEitherWay) {
    const struct {
        std::uint8_t target, source;
        int shift, count;
        std::uint8_t result;
        bool done = true;
    } cases[] = {{0xAF, 10, 4, 4, 0xAF},    // the high nibble is replaced
                 {0x00, 5, 2, 4, 0x14},     // bits 2 to 5
                 {0x00, 15, 6, 2, 0xC0},    // the lower part of a field across two bytes
                 {0x00, 3, 0, 2, 0x03},     // and its upper part
                 {0xFF, 0x00, 3, 2, 0xE7},  // bits around stay
                 {0x00, 0xFF, 0, 8, 0xFF},
                 {0x00, 0xC0, -6, 2, 0x03},  // down from bit 6
                 {0xF0, 0xA5, -4, 4, 0xFA},
                 {0xFF, 0x3C, -2, 3, 0xFF},
                 {0xFF, 0x00, -7, 1, 0xFE},
                 {0x00, 0xFF, 5, 8, 0xE0},  // clipped at the top
                 {0x00, 0xFF, -5, 8, 0x07},
                 {0x5A, 0xFF, 0, 0, 0x5A},
                 {0x00, 0xFF, 0, std::numeric_limits<int>::max(), 0xFF},
                 {0x5A, 0xFF, 8, 1, 0x5A, false},
                 {0x5A, 0xFF, -8, 1, 0x5A, false},
                 {0x5A, 0xFF, 0, -1, 0x5A, false},
                 {0x5A, 0xFF, std::numeric_limits<int>::min(), 1, 0x5A, false}};
    for (const auto& [target, source, shift, count, result, done] : cases) {
        std::uint8_t byte = target;
        EXPECT_EQ(Byte2Byte(byte, source, shift, count), done) << shift << ", " << count;
        EXPECT_EQ(byte, result) << shift << ", " << count;
    }
}

TEST(NumberBytes, PutTheLowestByteFirst) {
    constexpr std::uint64_t kPattern = 0xF8E7D6C5B4A39281;
    for (std::size_t count = 0; count <= 8; ++count) {
        std::array<std::uint8_t, 10> bytes{};
        Long2Bytes(kPattern, std::span(bytes).subspan(1, count));
        std::uint64_t number = 0, reversed = 0;
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_EQ(bytes[1 + i], static_cast<std::uint8_t>(kPattern >> (8 * i))) << count;
            number |= std::uint64_t{bytes[1 + i]} << (8 * i);
            reversed = reversed << 8 | bytes[1 + i];
        }
        EXPECT_EQ(bytes[0] + bytes[1 + count], 0) << count;
        EXPECT_EQ(Bytes2Long(std::span(bytes).subspan(1, count)), number);
        EXPECT_EQ(count > 0 ? ReverseBytes(kPattern, count) : 0, reversed);
    }
    EXPECT_EQ(Float2Long(1.0f), 0x3F800000);
    EXPECT_EQ(Float2Long(-0.0f), std::numeric_limits<std::int32_t>::min());
}

std::vector<std::uint8_t> BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

std::vector<std::uint8_t> Packed(std::string_view text, std::size_t size) {
    std::vector<std::uint8_t> packed(size, 0xEE);
    PackAscii(BytesOf(text), packed);
    return packed;
}

std::string Unpacked(const std::vector<std::uint8_t>& packed, std::size_t room = 100) {
    std::vector<std::uint8_t> text(room);
    text.resize(UnpackAscii(packed, text));
    return {text.begin(), text.end()};
}

TEST(PackedAscii, PacksSixBitsForACharacter) {
    using Bytes = std::vector<std::uint8_t>;
    EXPECT_EQ(Packed("PRAXIS", 6), (Bytes{0x41, 0x20, 0x58, 0x25, 0x38, 0x20}));
    EXPECT_EQ(Unpacked({0x41, 0x20, 0x58, 0x25, 0x38, 0x20}), "PRAXIS  ");
    EXPECT_EQ(Packed("A", 1), (Bytes{0x06}));  // the next character's bits are a blank's
    EXPECT_EQ(Packed("ABCDE", 3), Packed("ABCD", 3));
    EXPECT_EQ(Packed("", 3), (Bytes{0x82, 0x08, 0x20}));
    EXPECT_EQ(Packed("ABCD", 0), Bytes{});
    EXPECT_EQ(Unpacked({}), "");
    // One byte of a group holds one whole character, two bytes two.
    EXPECT_EQ(Unpacked(Packed("TAG-", 1)), "T");
    EXPECT_EQ(Unpacked(Packed("TAG-01", 5)), "TAG-01");
    EXPECT_EQ(Unpacked(Packed("TAG-01", 5), 3), "TAG");
}

TEST(PackedAscii, KeepsItsSixtyFourCharactersAndNoOther) {
    for (int code = 0; code < 256; ++code) {
        const std::string text(3, static_cast<char>(code));
        const bool isKept = code >= 0x20 && code < 0x60;
        EXPECT_EQ(Unpacked(Packed(text, 3), 3) == text, isKept) << code;
    }
    for (std::size_t characters = 0; characters < 20; ++characters) {
        const std::string text(characters, '_');
        EXPECT_EQ(Unpacked(Packed(text, PackedSize(characters))).substr(0, characters), text);
        EXPECT_GE(UnpackedSize(PackedSize(characters)), characters);
    }
}

}  // namespace
}  // namespace ov
