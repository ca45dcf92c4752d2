#include "parameters/memory_map.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "parameters/parameter_factory.h"
#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;

ByteArray BytesOf(const std::string& hex, std::int32_t lower = 0) {
    ByteArray image{{}, lower};
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        image.bytes.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return image;
}

std::string HexOf(const std::vector<std::uint8_t>& bytes) {
    std::ostringstream hex;
    for (const int byte : bytes) {
        hex << std::hex << std::uppercase << byte / 16 << byte % 16;
    }
    return hex.str();
}

// A case is "subtype value startByte,bitlength,startBit,byteOrder image", without the value for an import; "-" is an
// empty image. Subtypes with "f" or behind "float:" are a Float's.
class MemoryMapTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const std::string& subtype, Cells cells = {}) {
        const bool isFloat = subtype.starts_with("float:") || subtype.starts_with('f');
        const std::string own = subtype.starts_with("float:") ? subtype.substr(6) : subtype;
        cells.emplace_back(u"subtype", Text::FromUtf8(own));
        Take(MakeParameter(isFloat ? u"FLOAT" : u"INT", Text::FromUtf8(own)), cells);
        internal->CheckConsistency();
    }
    void ReadPlace(const std::string& text) {
        std::istringstream numbers(text);
        char comma = 0;
        int orderNumber = 0;
        numbers >> start >> comma >> bits >> comma >> bit >> comma >> orderNumber;
        order = static_cast<eByteOrder>(orderNumber);
    }
    bool Export(ByteArray& image) { return spec->ExportToByteArrayMapByMemory(image, start, bits, bit, order); }
    bool Export(Text& image) { return spec->ExportToHexStringMapByMemory(image, start, bits, bit, order); }
    bool Import(const ByteArray& image) { return spec->ImportFromByteArrayMapByMemory(image, start, bits, bit, order); }
    bool Import(const Text& image) { return spec->ImportFromHexStringMapByMemory(image, start, bits, bit, order); }

    std::string Exported(const Text& line, bool asText) {
        std::istringstream words(line.ToUtf8());
        std::string subtype, value, place, image;
        words >> subtype >> value >> place >> image;
        if (image == "-") image.clear();
        Make(subtype);
        spec->let_value(Text::FromUtf8(value));
        ReadPlace(place);
        Text text = Text::FromUtf8(image);
        ByteArray bytes = asText ? ByteArray() : BytesOf(image);
        const bool done = asText ? Export(text) : Export(bytes);
        return (done ? "1 " : "0 ") + (asText ? text.ToUtf8() : HexOf(bytes.bytes));
    }
    std::string Imported(const Text& line, bool asText) {
        std::istringstream words(line.ToUtf8());
        std::string subtype, place, image;
        words >> subtype >> place >> image;
        if (image == "-") image.clear();
        Make(subtype);
        spec->let_value(77);
        ReadPlace(place);
        const bool done = asText ? Import(Text::FromUtf8(image)) : Import(BytesOf(image));
        return (done ? "1 " : "0 ") + ToText(spec->get_value()).ToUtf8() + " " + gui->error().ToUtf8();
    }

    std::int32_t start = 0, bits = 0, bit = 0;
    eByteOrder order = eByteOrder::eLittleEndian;
};

TEST_F(MemoryMapTest, ExportsToBytes) {
    ExpectEach(
        "u16 4660 0,0,0,0 0000 -> 1 3412; u16 4660 0,0,0,1 0000 -> 1 1234; u16 4660 0,0,0,2 0000 -> 1 0000; "
        "u16 4660 0,0,0,7 0000 -> 1 0000; u8 18 0,0,0,2 00 -> 1 12; s16 -2 0,0,0,1 0000 -> 1 FFFE; "
        "u24 66051 1,0,0,1 00000000 -> 1 00010203; u16reverseMapping 4660 0,0,0,1 0000 -> 1 3412; "
        "u16REVERSEmapping 4660 0,0,0,0 0000 -> 1 1234; u4 10 0,0,4,0 AF -> 1 AF; u4 5 0,0,2,0 00 -> 1 14; "
        "u4 15 0,0,6,0 0000 -> 1 C003; u4 15 1,0,6,1 0000 -> 1 03C0; u4 15 1,0,6,2 000000 -> 1 00C003; "
        "u8 255 3,0,12,0 0000000000 -> 1 00000000FF; u8 255 0,0,4,0 0000 -> 1 FF00; u8 171 0,4,4,0 0000 -> 1 B000; "
        "u4 15 0,0,-3,0 00 -> 1 01; u8 1 1,0,-8,0 0000 -> 1 0100; u12 1 0,0,0,0 0000 -> 0 0000; "
        "s0 0 0,0,0,0 FF -> 0 FF; s8 5 0,-1,0,0 FF -> 0 FF; s32 1 0,40,0,0 0000000000 -> 0 0000000000; "
        "s8 200 0,0,0,0 00 -> 0 00; u8 300 0,0,0,0 00 -> 1 2C; "
        // An image that is too small: what was written before stays.
        "u16 4660 0,0,0,0 00 -> 0 34; u16 4660 0,0,0,1 00 -> 0 00; u4 15 0,0,6,1 00 -> 0 C0; u8 1 0,0,0,0 - -> 0 ; "
        "u8 1 -1,0,0,0 00 -> 0 00; u8 1 2147483647,0,8,0 00 -> 0 00; u24 1 2147483647,0,0,1 00 -> 0 00; "
        "u4 15 -2147483648,0,6,1 00 -> 0 00; "
        // Float: IEEE, and as a whole number.
        "f32 1 0,0,0,1 00000000 -> 1 3F800000; f32 1 0,0,0,0 00000000 -> 1 0000803F; "
        "f32reverseMapping 1 0,0,0,2 00000000 -> 1 0000803F; f32 1 0,0,5,1 00000000 -> 1 3F800000; "
        "f32 QNAN 0,0,0,1 00000000 -> 1 0000A07F; f32 QNAN 0,0,0,0 00000000 -> 1 7FA00000; "
        "f32 1E99 0,0,0,0 00000000 -> 0 00000000; f32 1 0,0,0,0 000000 -> 0 000080; f32 258 0,16,0,1 0000 -> 1 0102; "
        "float:s16 -2.5 0,0,0,1 0000 -> 1 FFFE; float:u16reverseMapping 258 0,0,0,1 0000 -> 1 0201; "
        "f32 QNAN 0,8,0,0 00 -> 0 00; "
        // Decimal: any width up to 64, no field across a byte's border.
        "u64 18446744073709551615 0,0,0,1 0000000000000000 -> 1 FFFFFFFFFFFFFFFF; u40 4660 0,0,0,1 0000000000 -> 1 "
        "0000001234; s40 -2 0,0,0,0 0000000000 -> 1 FEFFFFFFFF; u32 4660 0,12,0,0 0000 -> 1 3400; "
        "u32 4294967295 0,4,6,0 0000 -> 1 C000; u32 2.5 0,4,0,0 00 -> 1 02; u32 3.5 0,4,0,0 00 -> 1 04; "
        "u32 -3 0,4,0,0 00 -> 1 0D; s33 -2.5 0,3,1,0 00 -> 1 0A; u32 -2147483649 0,4,0,0 00 -> 0 00; "
        "u40 4294967302.9 0,4,0,0 00 -> 1 06; u64 18446744073709551616 0,4,0,0 00 -> 0 00; u32 5 0,4,2,0 00 -> 1 14; "
        "u32 1 0,0,0,2 00000000 -> 0 00000000; "
        "u32 -1 0,0,0,0 00000000 -> 0 00000000; u32 1 0,0,0,0 0000 -> 0 0100; u64 1 0,72,0,0 000000000000000000 -> 0 "
        "010000000000000000",
        [this](const Text& line) { return Exported(line, false); });
}

TEST_F(MemoryMapTest, ExportsToHex) {
    ExpectEach(
        "s8 -1 1,0,0,0 0000 -> 1 00FF; u16 4660 0,0,0,0 0000 -> 1 3412; u16 4660 0,0,0,1 0000 -> 1 1234; "
        "u16 4660 0,0,0,2 0000 -> 0 0000; u16reverseMapping 4660 0,0,0,0 0000 -> 1 1234; u12 2748 0,0,0,1 0000 -> 1 "
        "ABC0; u12 2748 0,0,0,1 abcd -> 1 ABCd; u12 2748 1,0,0,1 00000 -> 1 00ABC; s32 4660 0,40,0,1 000000000000 -> 1 "
        "000000123400; s32 -1 0,40,0,1 0000000000 -> 1 00FFFFFFFF; u4 5 0,0,2,0 00 -> 1 14; u4 5 0,0,2,0 zz -> 1 14; "
        "u4 10 0,0,4,0 af -> 1 AF; u4 15 0,0,6,0 0000 -> 1 C003; u4 15 1,0,6,1 0000 -> 1 03C0; "
        // Across the border as many bits as went before it, more or fewer than the rest.
        "u7 127 0,0,2,0 0000 -> 1 FC01; u8 255 0,3,6,0 0000 -> 1 C003; u7 64 0,0,7,0 0000 -> 1 0000; "
        // Texts that end too early stay as they are.
        "u16 4660 0,0,0,1 00 -> 0 00; u16 4660 1,0,0,1 0000 -> 0 0000; u8 1 1,0,0,0 000 -> 0 000; u4 15 0,0,6,0 00 -> "
        "0 00; u4 1 0,0,0,0 - -> 0 ; u8 1 -1,0,0,0 00 -> 0 00; u8 1 2147483647,0,0,0 00 -> 0 00; "
        "f32 1 0,0,0,1 00000000 -> 1 3F800000; f32 1 0,0,0,0 00000000 -> 1 0000803F; f32 QNAN 0,0,0,2 00000000 -> 1 "
        "7FA00000; f32 1 0,0,0,2 00000000 -> 0 00000000; f32reverseMapping 1 0,0,0,1 00000000 -> 1 3F800000; "
        "float:s16 -2 0,0,0,1 0000 -> 1 FFFE; u64 18446744073709551615 0,0,0,0 0000000000000000 -> 1 FFFFFFFFFFFFFFFF; "
        "s40 -2 0,0,0,0 0000000000 -> 1 FEFFFFFFFF; u32 4660 0,12,0,1 0000 -> 1 2340; u32 1 0,0,0,2 00000000 -> 0 "
        "00000000; u32 15 0,4,6,0 0000 -> 1 C003; u32 -1.5 0,4,6,0 0000 -> 1 8003",
        [this](const Text& line) { return Exported(line, true); });
}

// The result, the number and the state; 77 was there before.
TEST_F(MemoryMapTest, ImportsFromBytes) {
    ExpectEach(
        "u16 0,0,0,0 3412 -> 1 4660 0; u16 0,0,0,1 3412 -> 1 13330 0; u16 0,0,0,2 3412 -> 1 77 0; s8 0,0,0,0 FF -> 1 "
        "-1 0; s32 0,0,0,0 FEFFFFFF -> 1 -2 0; s16 0,8,0,0 FF -> 1 255 0; s8 0,16,0,0 FFFF -> 0 77 0; u4 0,0,6,0 C003 "
        "-> 1 15 0; u4 1,0,6,1 03C0 -> 1 15 0; u4 0,0,6,1 C003 -> 1 3 0; s4 0,0,4,0 80 -> 1 -8 0; u8 0,0,3,0 AB -> 1 "
        "171 0; u4 5,0,0,0 FF -> 1 0 0; u4 0,0,6,0 C0 -> 1 3 0; u8 0,-2,0,0 FF -> 0 77 0; u8 0,12,0,0 FFFF -> 0 77 4; "
        "u8 0,40,0,0 FFFFFFFFFF -> 0 77 4; u16 0,0,0,0 34 -> 0 77 0; u8 -1,0,0,0 00 -> 0 77 0; u8 "
        "2147483647,0,8,0 00 -> 0 77 0; u4 0,0,-3,0 01 -> 1 8 0; u8 0,0,0,0 - -> 0 77 0; "
        "f32 0,0,0,1 3F800000 -> 1 1 0; f32 0,0,0,2 0000803F -> 1 1 0; f32 0,0,0,1 7FA00000 -> 1 77 1; "
        "f32 0,0,0,0 0000807F -> 1 77 1; f32reverseMapping 0,0,0,1 3F800000 -> 1 1 0; f32 0,0,0,1 3F8000 -> 0 77 0; "
        "float:s16 0,0,0,1 FFFE -> 1 -2 0; float:u16 0,0,0,1 FFFE -> 1 65534 0; "
        "u64 0,0,0,1 FFFFFFFFFFFFFFFF -> 1 18446744073709551615 0; s40 0,0,0,0 FEFFFFFFFF -> 1 -2 0; "
        "u32 0,4,6,0 C003 -> 1 3 0; s33 0,4,0,0 FF -> 1 15 0; u32 0,12,0,0 FFFF -> 0 77 4; u32 0,72,0,0 "
        "000000000000000000 -> 0 77 4; u32 0,0,0,2 00000000 -> 0 77 0; u32 0,0,0,0 000000 -> 0 77 0",
        [this](const Text& line) { return Imported(line, false); });
}

TEST_F(MemoryMapTest, ImportsFromHex) {
    ExpectEach(
        "u12 0,12,4,0 ABCD -> 1 3021 0; s12 0,0,0,1 FFF -> 1 4095 0; u15 0,0,0,0 F -> 1 240 0; u12 3,0,0,0 ABCD -> 1 0 "
        "0; u12 0,0,4,0 zzCD -> 1 205 0; u12 -1,0,0,0 ABCD -> 0 77 4; u12 2147483647,0,0,0 ABCD -> 0 77 4; "
        "u16 0,0,0,0 3412 -> 1 4660 0; u16 0,0,0,1 3412 -> 1 13330 0; u16 0,0,0,2 3412 -> 1 13330 0; "
        "s8 1,0,0,0 00fF -> 1 -1 0; u16 0,0,0,0 341 -> 0 77 4; u16 9,0,0,0 3412 -> 0 77 4; u16 0,0,0,1 34x2 -> 0 77 0; "
        "s32 0,0,0,1 FFFFFFFE -> 1 -2 0; s32 0,40,0,1 0000001234 -> 1 4660 0; s32 0,40,0,1 FF00001234 -> 0 77 0; "
        "u31 0,20,0,1 12345 -> 1 74565 0; u4 0,0,6,0 C003 -> 1 15 0; u4 1,0,6,1 03c0 -> 1 15 0; u4 0,0,0,0 A -> 1 10 "
        "0; u4 0,0,0,0 xF -> 1 0 0; u4 -9,0,0,0 FF -> 1 0 0; u16 -1,0,0,0 3412 -> 0 77 0; "
        "f32 0,0,0,1 3F800000 -> 1 1 0; f32 0,0,0,0 0000803F -> 1 1 0; f32 0,0,0,2 3F800000 -> 1 1 0; "
        "f32 0,0,0,1 7FA00000 -> 1 77 1; f32 0,0,0,1 3F80000 -> 0 77 4; f32 0,0,0,1 3F80000x -> 0 77 0; "
        "u64 0,0,0,0 FEFFFFFFFFFFFFFF -> 1 18446744073709551614 0; s40 0,0,0,1 FFFFFFFFFE -> 1 -2 0; "
        "u32 0,12,0,1 ABCD -> 1 2748 0; u32 0,0,0,2 00000000 -> 0 77 0; u32 0,0,0,1 0000 -> 0 77 4; u32 0,4,6,0 C003 "
        "-> 1 15 0",
        [this](const Text& line) { return Imported(line, true); });
}

TEST_F(MemoryMapTest, WhatIsLeftOutIsZeroAndTheBoundsAreTheArraysOwn) {
    Make("u16");
    spec->let_value(4660);
    ByteArray image{std::vector<std::uint8_t>(3), -1};
    EXPECT_TRUE(spec->ExportToByteArrayMapByMemory(image, {}, {}, {}, {}));
    EXPECT_EQ(HexOf(image.bytes), "003412");
    EXPECT_FALSE(spec->ExportToByteArrayMapByMemory(image, -2, {}, {}, {}));
    EXPECT_TRUE(spec->ImportFromByteArrayMapByMemory(image, -1, {}, {}, {}));
    EXPECT_EQ(Describe(spec->get_value()), "Long 13312");
}

// No index is in an array of two dimensions, and no end.
TEST_F(MemoryMapTest, AnArrayOfTwoDimensionsIsNoImage) {
    constexpr std::array kBounds = {ArrayBound{0, 4}, ArrayBound{0, 4}};
    for (const auto& [type, subtype] : {std::pair{u"INT", u"u16"},
                                        {u"INT", u"u40"},
                                        {u"FLOAT", u"f32"},
                                        {u"ENUM", u""},
                                        {u"STRING", u""},
                                        {u"ENUMSTR", u""}}) {
        Take(MakeParameter(type, subtype), {{u"subtype", subtype}});
        for (const VarType element : {VarType::Byte, VarType::Empty}) {
            for (const auto* operation : {u"ImportFromByteArrayMapByMemory", u"ExportToByteArrayMapByMemory"}) {
                std::array<Variant, 1> image{Array(element, kBounds)};
                Arguments arguments{image};
                IDispatch& object = *spec;
                EXPECT_EQ(Describe(object.Invoke(object.GetIDsOfNames(operation), CallKind::Call, arguments)), "False");
                EXPECT_EQ(image[0].AsArray().Rank(), 2u) << Text(type).ToUtf8();
            }
        }
    }
}

// The parts of an image are in the device view; an import counts as a write by the engine.
TEST_F(MemoryMapTest, AnImportIsAWriteByTheEngine) {
    const ByteArray image = BytesOf("FF");
    Make("s8", {{u"realGain", 0.5}, {u"realOffset", 10}, {u"Max", 5}});
    EXPECT_EQ(Told([&] { Import(image); }), "A:Value group:Value");
    EXPECT_EQ(Describe(spec->get_value()), "Long 10") << "9.5, half to even, beyond the limit";
    gui->SetUnknown();
    EXPECT_EQ(Told([&] { Import(image); }), "A:State group:State");
    ByteArray written = BytesOf("00");
    spec->let_value(7);
    EXPECT_TRUE(Export(written));
    EXPECT_EQ(HexOf(written.bytes), "FA") << "-6";
    EXPECT_EQ(Told([&] {
                  bits = 12;
                  Import(image);
              }),
              "A:Value group:Value")
        << "the state";
    // A listener may let go of the parameter while it is told of an import.
    bits = 0;
    const auto last = ::ov::MakeObject<::ov::testing::Recorder>("B", events, [this](const std::string&) {
        internal->Unload();
        internal = nullptr, gui = nullptr, storage = nullptr;
    });
    gui->RegisterCallback(last.get());
    IBase_SpecParameter* dying = spec.Detach();
    dying->Release();
    EXPECT_TRUE(dying->ImportFromByteArrayMapByMemory(image, {}, {}, {}, {}));
}

TEST_F(MemoryMapTest, Logs) {
    const ByteArray one = BytesOf("00");
    ByteArray target = one;
    Text text = u"00";
    const std::string import = "IBase_SpecParameter_ImportFromByteArrayMapByMemory(): ";
    const std::string hexImport = "IBase_SpecParameter_ImportFromHexStringMapByMemory(): ";
    const std::string wrongWidth = "ERROR: bitlength>=8 and other than 8, 16, 24: BitLen=12\n";
    Make("u16");
    EXPECT_EQ(Logged([&] { Import(one); }),
              "(ParamId 7) " + import + "ERROR: Aktion nicht möglich (Subscript out of range)\n");
    EXPECT_EQ(Logged([&] { Import(Text(u"00x0")); }),
              "(ParamId 7) " + hexImport + "ERROR: Aktion nicht möglich (Type mismatch)\n");
    EXPECT_EQ(Logged([&] { Export(target); }) + Logged([&] { Export(text); }), "") << "exports fail silently";
    bits = 12;
    EXPECT_EQ(Logged([&] { Import(one); }), import + wrongWidth);
    EXPECT_EQ(Logged([&] { Export(target); }), "ExportByteArray: " + wrongWidth);
    Make("u32");
    EXPECT_EQ(Logged([&] { Import(one); }),
              import + "ERROR: bitlength>=8 and other than 8, 16, 24, 32, 40, 48, 56, 64: BitLen=12\n");
    Make("f32");
    bits = 0;
    order = eByteOrder::eBigEndian;
    EXPECT_EQ(Logged([&] { Import(BytesOf("7F800000")); }),
              "(ParamId 7) " + import + "This is an NAN (not-a-number)\n");
    EXPECT_EQ(Logged([&] { Import(Text(u"FF800000")); }),
              "(ParamId 7) " + hexImport + "This is an NAN (not-a-number)\n");
    EXPECT_EQ(Logged([&] { Import(Text(u"FF80")); }), "(ParamId 7) " + hexImport + "ERROR: no stream data\n");
    bits = -2;
    const std::string noBits = "ERROR: mObjConvertOneByte.Byte2Byte() failed\n";
    EXPECT_EQ(Logged([&] { Import(one); }), "(ParamId 7) " + import + noBits);
    EXPECT_EQ(Logged([&] { Import(text); }), "(ParamId 7) " + hexImport + noBits);

    // A signed width that no row of the class has, left by a configuration that failed half way.
    Make("s8");
    EXPECT_EQ(ErrorOf([&] { Configure({{u"subtype", u"s40"}}); }), 6);
    const std::string noConversion = "conversion not possible with BitLen=";
    const std::string hexExport = "IBase_SpecParameter_ExportToHexStringMapByMemory(): ERROR: ";
    bits = 8;
    EXPECT_EQ(Logged([&] { EXPECT_TRUE(Export(target)); }),
              "IBase_SpecParameter_ExportToByteArrayMapByMemory(): ERROR: " + noConversion + "8 and subtype=signed\n");
    EXPECT_EQ(Logged([&] { EXPECT_TRUE(Export(text)); }), hexExport + noConversion + "8 and subtype=signed\n");
    EXPECT_EQ(Logged([&] { EXPECT_FALSE(Import(one)); }), import + "ERROR: " + noConversion + "8 and subtype=signed\n");
    EXPECT_EQ(gui->error(), u"4");
    bits = 4;
    EXPECT_EQ(Logged([&] { EXPECT_TRUE(Export(target)); }), hexExport + noConversion + "4 and subtype=signed\n");
    EXPECT_EQ(Logged([&] { EXPECT_FALSE(Import(one)); }),
              hexImport + "ERROR: " + noConversion + "4 and subtype=signed\n");
}

// The plain model: bit i of a field is bit (bit + i) of the bytes from the index on, which count upwards in little
// endian; in big endian a narrow field's count downwards, a wide one's downwards from its end.
struct Field {
    std::size_t index;
    std::size_t bit;
    std::size_t width;
    bool isBig;

    std::size_t ByteOf(std::size_t i) const {
        const std::size_t step = (bit + i) / 8;
        if (!isBig) return index + step;
        return width < 8 ? index - step : index + width / 8 - 1 - step;
    }
    void Put(std::vector<std::uint8_t>& image, std::uint64_t pattern) const {
        for (std::size_t i = 0; i < width; ++i) {
            const unsigned mask = 1U << ((bit + i) % 8);
            std::uint8_t& byte = image[ByteOf(i)];
            byte = static_cast<std::uint8_t>(pattern >> i & 1 ? byte | mask : byte & ~mask);
        }
    }
};

TEST_F(MemoryMapTest, RegularFieldsFollowThePlainModel) {
    std::mt19937_64 random(20261124);
    const auto below = [&random](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    for (int round = 0; round < 3000; ++round) {
        const bool isWide = below(2) == 0;
        const bool isSigned = below(2) == 0;
        const std::size_t width = isWide ? 8 * (1 + below(8)) : 1 + below(7);
        if (isWide && width > 32 && width < 40) continue;
        Make((isSigned ? "s" : "u") + std::to_string(width) + (below(2) ? "" : "reverseMapping"));
        const bool isReverse = ToText(spec->desc(u"subtype", false)).view().ends_with(u"Mapping");
        Field field{8, isWide ? 0 : below(8), width, below(2) == 0};
        order = field.isBig != isReverse ? eByteOrder::eBigEndian : eByteOrder::eLittleEndian;
        const std::int32_t lower = static_cast<std::int32_t>(below(7)) - 3;
        bit = static_cast<std::int32_t>(field.bit + 8 * below(3));
        start = lower + static_cast<std::int32_t>(field.index) - bit / 8;

        const std::uint64_t pattern = width == 64 ? random() : random() & ((std::uint64_t{1} << width) - 1);
        Decimal value = Decimal::FromUnsigned(pattern);
        if (isSigned && pattern >> (width - 1)) {
            value = value - (width == 64 ? Decimal(false, 1, 0, 0) : Decimal(std::int64_t{1} << width));
        }
        spec->let_value(value);

        ByteArray image{std::vector<std::uint8_t>(24), lower};
        for (std::uint8_t& byte : image.bytes) {
            byte = static_cast<std::uint8_t>(random());
        }
        std::vector<std::uint8_t> expected = image.bytes;
        field.Put(expected, pattern);
        Text hex = Text::FromUtf8(HexOf(image.bytes));

        SCOPED_TRACE(::testing::Message() << "width " << width << " signed " << isSigned << " big " << field.isBig
                                          << " bit " << bit << " pattern " << pattern);
        ASSERT_TRUE(Export(image));
        ASSERT_EQ(HexOf(image.bytes), HexOf(expected));
        spec->let_value(0);
        ASSERT_TRUE(Import(image));
        ASSERT_EQ(Describe(ToDecimal(spec->get_value())), Describe(value));

        // In a text the same, but for the one count of bits that it has its own way with; its first byte is 0.
        start -= lower;
        const bool crosses = !isWide && field.bit + width > 8;
        if (!crosses) {
            ASSERT_TRUE(Export(hex));
            ASSERT_EQ(hex.ToUtf8(), HexOf(expected));
        }
        spec->let_value(0);
        ASSERT_TRUE(Import(Text::FromUtf8(HexOf(expected))));
        ASSERT_EQ(Describe(ToDecimal(spec->get_value())), Describe(value));
    }
}

}  // namespace
}  // namespace ov
