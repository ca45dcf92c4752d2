#include "parameters/bit_conversions.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

#include "platform/automation/errors.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

constexpr eByteOrder kLittle = eByteOrder::eLittleEndian;
constexpr eByteOrder kBig = eByteOrder::eBigEndian;
constexpr eByteOrder kMiddle = eByteOrder::eMiddleEndian;
constexpr std::int32_t kMinLong = std::numeric_limits<std::int32_t>::min();

Decimal Whole(std::uint64_t value) {
    return Decimal::FromUnsigned(value);
}

// "number|source|description" of what is raised, or "none".
std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return std::to_string(error.number()) + "|" + error.source().ToUtf8() + "|" + error.description().ToUtf8();
    }
    return "none";
}

constexpr const char* kNoOrder = "no byteorder other than little-endian or big-endian allowed";

TEST(BitConversions, ReadHexadecimalPatterns) {
    const struct {
        const char16_t* text;
        eByteOrder order;
        Decimal pattern;
    } cases[] = {{u"FFFFFFFFFFFFFFFF", kBig, Whole(~std::uint64_t{0})},
                 {u"34120000", kLittle, Whole(4660)},
                 {u"0", kBig, Whole(0)},
                 {u"FFFF", kBig, Whole(65535)},  // never a negative number
                 {u"abcdef", kBig, Whole(0xABCDEF)},
                 {u"1234567", kBig, Whole(0x1234567)},
                 {u"80000000", kBig, Whole(0x80000000)},
                 {u"123456789", kBig, Whole(0x123456789)},
                 {u"3412", kLittle, Whole(0x1234)},
                 {u"EFCDAB8967452301", kLittle, Whole(0x0123456789ABCDEF)},
                 {u"FFFFFFFFFFFFFFFFFFFFFFFF", kBig, Decimal(false, 0xFFFFFFFF, ~std::uint64_t{0}, 0)}};
    for (const auto& [text, order, pattern] : cases) {
        EXPECT_EQ(Hex2Dec(text, order), pattern) << Text(text).ToUtf8();
    }
    for (const char16_t* text : {u"", u"12G4", u"-1", u"0000x000", u"1FFFFFFFFFFFFFFFFFFFFFFFF", u"12 4"}) {
        EXPECT_EQ(ErrorOf([&] { Hex2Dec(text, kBig); }),
                  "42|ModuleSignedUnsigned.Hex2Dec(" + Text(text).ToUtf8() + ")|Conversion failed!");
    }
    EXPECT_EQ(ErrorOf([] { Hex2Dec(u"xy12", kLittle); }), "42|ModuleSignedUnsigned.Hex2Dec(xy12)|Conversion failed!");
    EXPECT_EQ(ErrorOf([] { Hex2Dec(u"12", kMiddle); }), std::string("42|Conversion|") + kNoOrder);
}

TEST(BitConversions, ReverseHexBytesTurnsPairs) {
    const struct {
        const char16_t* text;
        const char16_t* reversed;
    } cases[] = {{u"", u""},
                 {u"A", u"A"},
                 {u"AB", u"AB"},
                 {u"1234", u"3412"},
                 {u"123456", u"563412"},
                 {u"ABC", u"BAB"},
                 {u"12345678", u"78563412"},
                 {u"ABCDE", u"DECAB"}};
    for (const auto& [text, reversed] : cases) {
        Text turned = text;
        ReverseHexBytes(turned);
        EXPECT_EQ(turned.ToUtf8(), Text(reversed).ToUtf8());
    }
    const Text kept = u"1234";
    Text turned = kept;
    ReverseHexBytes(turned);
    EXPECT_EQ(kept, u"1234");
}

TEST(BitConversions, WriteHexadecimalPatterns) {
    EXPECT_EQ(WordToHex(0x1A, kBig), u"001A");
    EXPECT_EQ(WordToHex(0xFEDC, kLittle), u"DCFE");
    EXPECT_EQ(WordToHex(1, kMiddle), u"");
    const struct {
        Decimal pattern;
        eByteOrder order;
        std::int32_t digits;
        const char16_t* text;
    } cases[] = {
        {4660, kBig, 4, u"1234"},
        {4660, kLittle, 4, u"3412"},
        {4660, kBig, 3, u"234"},
        {4660, kLittle, 8, u"34120000"},
        {0, kBig, 1, u"0"},
        {0, kBig, 0, u""},
        {Whole(0x0123456789ABCDEF), kBig, 16, u"0123456789ABCDEF"},
        {Whole(0x0123456789ABCDEF), kLittle, 99, u"EFCDAB8967452301"},
        {Whole(~std::uint64_t{0}), kBig, 16, u"FFFFFFFFFFFFFFFF"},
        {Decimal(false, 0, 2559, 1), kBig, 2, u"FF"},  // 255.9
    };
    for (const auto& [pattern, order, digits, text] : cases) {
        EXPECT_EQ(Dec2Hex(pattern, order, digits), text) << Text(text).ToUtf8();
    }
    EXPECT_EQ(ErrorOf([] { Dec2Hex(Decimal(false, 1, 0, 0), kBig, 16); }),
              "42|ModuleSignedUnsigned.Dec2Hex(18446744073709551616)|Conversion failed!");
    EXPECT_EQ(ErrorOf([] { Dec2Hex(-1, kBig, 16); }), "42|ModuleSignedUnsigned.Dec2Hex(-1)|Conversion failed!");
    EXPECT_EQ(ErrorOf([] { Dec2Hex(1, kMiddle, 16); }), std::string("42|Dec2ByteArray|") + kNoOrder);
}

// Widths up to 64 bits are those of the images' test.
TEST(BitConversions, ReadUpTo96BitsOfAnArray) {
    EXPECT_EQ(ByteArray2Dec({std::vector<std::uint8_t>(12, 0xFF)}, 0, 12, kLittle),
              Decimal(false, 0xFFFFFFFF, ~std::uint64_t{0}, 0));
    ByteArray bytes{{9, 8, 7, 6, 5, 4, 3, 2, 1}, -4};
    EXPECT_EQ(ByteArray2Dec(bytes, -4, 9, kLittle), Decimal(false, 1, 0x0203040506070809, 0));
    EXPECT_EQ(ByteArray2Dec(bytes, 77, 0, kBig), Decimal());
    EXPECT_TRUE(Dec2ByteArray(bytes, 77, 0, 1, kBig));
}

TEST(BitConversions, FailAtTheArraysEnd) {
    const std::string failed = "42|ModuleSignedUnsigned.Dec2ByteArray(66051)|Conversion failed!";
    ByteArray array{{0xEE, 0xEE}, 0};
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(array, 0, 3, 66051, kLittle); }), failed);
    EXPECT_EQ(array.bytes, (std::vector<std::uint8_t>{3, 2}));  // written before the end was met
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(array, -1, 1, 66051, kBig); }), failed);
    ByteArray wide{std::vector<std::uint8_t>(9), 0};
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(wide, 0, 9, 66051, kLittle); }), failed);
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(array, kMax, kMax, 66051, kBig); }), failed);
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(array, 0, 1, -7, kBig); }),
              "42|ModuleSignedUnsigned.Dec2ByteArray(-7)|Conversion failed!");
    EXPECT_EQ(ErrorOf([&] { Dec2ByteArray(array, 0, 1, 1, kMiddle); }), std::string("42|Dec2ByteArray|") + kNoOrder);

    const std::string unread = "42|ModuleSignedUnsigned.ByteArray2Dec()|Conversion failed!";
    EXPECT_EQ(ErrorOf([&] { ByteArray2Dec(array, 1, 2, kBig); }), unread);
    EXPECT_EQ(ErrorOf([&] { ByteArray2Dec({}, 0, 1, kLittle); }), unread);
    EXPECT_EQ(ErrorOf([&] { ByteArray2Dec({std::vector<std::uint8_t>(13, 1)}, 0, 13, kLittle); }), unread);
    EXPECT_EQ(ErrorOf([&] { ByteArray2Dec(array, 0, 1, kMiddle); }), std::string("42|Dec2ByteArray|") + kNoOrder);
}

TEST(BitConversions, RefuseLongsBeyondTheWidth) {
    EXPECT_EQ(Unsigned2SignedL(-5, 8), -5) << "no pattern, and let through";
    EXPECT_EQ(Signed2UnsignedL(-200, 8), 56) << "below the range, and let through";
    EXPECT_EQ(Unsigned2SignedL(0, 0) + Signed2UnsignedL(kMinLong, 31), 0);
    EXPECT_EQ(Signed2UnsignedL(-1, kMinLong), -1);
    const std::string source = "42|ModuleSignedUnsigned.";
    EXPECT_EQ(ErrorOf([] { Unsigned2SignedL(256, 8); }), source + "Unsigned2SignedL(256,bitlength=8)|value too big!");
    EXPECT_EQ(ErrorOf([] { Unsigned2SignedL(-3, 32); }),
              source + "Unsigned2SignedL(-3,bitlength=32)|32Bit nicht unterstützt!");
    EXPECT_EQ(ErrorOf([] { Unsigned2SignedL(1, kMinLong); }),
              source + "Unsigned2SignedL(1,bitlength=-2147483648)|value too big!");
    EXPECT_EQ(ErrorOf([] { Signed2UnsignedL(128, 8); }), source + "Signed2UnsignedL(128,bitlength=8)|value too big!");
    EXPECT_EQ(ErrorOf([] { Signed2UnsignedL(0, 32); }),
              source + "Signed2UnsignedL(0,bitlength=32)|32Bit nicht unterstützt!");
}

TEST(BitConversions, ConvertExactlyAtEveryWidth) {
    for (std::int32_t bits = 1; bits <= 64; ++bits) {
        const std::uint64_t half = std::uint64_t{1} << (bits - 1);
        const std::uint64_t top = half - 1 + half;
        const Decimal least = -Whole(half);
        EXPECT_EQ(Unsigned2Signed(Whole(top), bits), Decimal(-1)) << bits;
        EXPECT_EQ(Unsigned2Signed(Whole(half), bits), least) << bits;
        EXPECT_EQ(Unsigned2Signed(Whole(half - 1), bits), Whole(half - 1)) << bits;
        EXPECT_EQ(Signed2Unsigned(-1, bits), Whole(top)) << bits;
        EXPECT_EQ(Signed2Unsigned(least, bits), Whole(half)) << bits;
        EXPECT_EQ(Signed2Unsigned(Whole(half - 1), bits), Whole(half - 1)) << bits;
        EXPECT_NE(ErrorOf([&] { Unsigned2Signed(Whole(top) + Decimal(1), bits); }), "none") << bits;
        EXPECT_NE(ErrorOf([&] { Signed2Unsigned(Whole(half), bits); }), "none") << bits;
        if (bits > 31) continue;
        const auto most = static_cast<std::int32_t>(half - 1);
        EXPECT_EQ(Unsigned2SignedL(static_cast<std::int32_t>(top), bits), -1) << bits;
        EXPECT_EQ(Unsigned2SignedL(most + 1, bits), -most - 1) << bits;
        EXPECT_EQ(Unsigned2SignedL(most, bits), most) << bits;
        EXPECT_EQ(Signed2UnsignedL(-1, bits), static_cast<std::int32_t>(top)) << bits;
        EXPECT_EQ(Signed2UnsignedL(-most - 1, bits), most + 1) << bits;
        EXPECT_EQ(Signed2UnsignedL(most, bits), most) << bits;
    }
    EXPECT_EQ(Signed2Unsigned(-200, 8), Decimal(56));
    EXPECT_EQ(Unsigned2Signed(-5, 8), Decimal(-5));
    EXPECT_EQ(ErrorOf([] { Unsigned2Signed(256, 8); }),
              "42|ModuleSignedUnsigned.Unsigned2Signed(256,bitlength=8)|value too big!");
    EXPECT_EQ(ErrorOf([] { Signed2Unsigned(128, 8); }),
              "42|ModuleSignedUnsigned.Signed2Unsigned(128,bitlength=8)|value too big!");
    EXPECT_EQ(ErrorOf([] { Unsigned2Signed(1, 200); }), "6||Overflow");
    EXPECT_EQ(Unsigned2Signed(-1, kMinLong), Decimal(-1));
}

}  // namespace
}  // namespace ov
