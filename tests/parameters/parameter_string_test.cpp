#include "parameters/parameter_string.h"

#include <gtest/gtest.h>

#include "module/environment.h"
#include "parameters/parameter_env_string.h"
#include "parameters/parameter_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;

class ParameterStringTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const char16_t* subtype, Cells cells = {}) {
        cells.emplace_back(u"subtype", subtype);
        Take(MakeObject<ParameterString>(), cells);
    }
    /// The digits of an image of @p bytes bytes "11" after an export of @p width bits, or "no".
    std::string Exported(int bytes, int width) {
        ByteArray array{std::vector<std::uint8_t>(static_cast<std::size_t>(bytes), 0x11), 3};
        Text text = Text::Repeat(static_cast<std::size_t>(2 * bytes), u'1');
        const bool done = spec->ExportToByteArrayMapByMemory(array, 3, width, {}, {});
        EXPECT_EQ(spec->ExportToHexStringMapByMemory(text, 0, width, {}, {}), done);
        std::string digits;
        for (const std::uint8_t byte : array.bytes) {
            constexpr const char* kDigits = "0123456789ABCDEF";
            digits += {kDigits[byte >> 4], kDigits[byte & 15]};
        }
        EXPECT_TRUE(!done || text.ToUtf8() == digits) << "both images by one rule";
        return done ? digits : "no";
    }
    std::string Imported(const char16_t* digits, int width) {
        return spec->ImportFromHexStringMapByMemory(digits, 0, width, {}, {}) ? spec->get_value().AsText().ToUtf8()
                                                                              : "no";
    }
};

TEST_F(ParameterStringTest, NamesOfDevices) {
    Make(u"dcpname");
    const auto checker = facet<CBase_ParameterString>(gui);
    const Text label = Text::Repeat(64, u'a');
    for (const auto& [name, good] : {std::pair<Text, bool>{u"", true},
                                     {u"pump-1", true},
                                     {u"Pump", false},
                                     {u"port-001", false},
                                     {u"port-01a", true},
                                     {u"port-0012", false},
                                     {u"a-", false},
                                     {u"-a", false},
                                     {u"1a", false},
                                     {Text::Repeat(240, u'a'), true},
                                     {Text::Repeat(241, u'a'), false},
                                     {u"a.b.c.d", false},
                                     {u"a.b.c", true},
                                     {u"a.b.c.d.e", true},
                                     {label + u".a", false},
                                     {label, true},
                                     {u"a.-b-.c", true},
                                     {u"a..b", false},
                                     {u"a.1b", false},
                                     {u"a.", false},
                                     {u"ä", false},
                                     {u"a_b", false},
                                     {u"a b", false}}) {
        EXPECT_EQ(checker->DcpNameCheck(name).AsBoolean(), good) << name.ToUtf8();
        EXPECT_EQ(gui->consistent(name), good);
    }
}

TEST_F(ParameterStringTest, SubtypesSayWhatATextMustBe) {
    struct Case {
        const char16_t* subtype;
        const char16_t* good;
        const char16_t* bad;
    };
    for (const Case& c : {Case{u"packedascii", u"tag_1", u"naïve"},
                          {u"hartdate", u"2/28/2026", u"2/30/2026"},
                          {u"version4_4", u"15.0", u"16.1"},
                          {u"version4_4", u"1.2", u"12"},
                          {u"version8_8", u"1.2.x", u"1.256"},
                          {u"version8_8_32", u"255.0", u"1.300"},
                          {u"hexstream", u"aF09", u"aF0"},
                          {u"hexwordstream", u"", u"0g"},
                          {u"hexstream", u"AABB", u"AA:BB"},
                          {u"", u"a\nb", u"a\r\nb"}}) {
        Make(c.subtype, {{u"DefaultValue", c.good}});
        EXPECT_TRUE(internal->CheckConsistency() && gui->consistent(c.good));
        EXPECT_FALSE(gui->consistent(c.bad));
        EXPECT_EQ(Told(c.bad), "A:State group:State A:State group:State") << "refused";
        EXPECT_EQ(Told([&] { gui->let_value(u"\1" + Text(c.bad)); }),
                  "A:State group:State dependencies A:Value group:Value");
    }
    Make(u"packedascii,multiline", {{u"DefaultValue", u"abc"}});
    EXPECT_EQ(Shown() + std::to_string(static_cast<int>(gui->editType())), "ABC3");
    gui->let_value(u"tag 1");
    EXPECT_EQ(Shown(), "TAG 1");
    for (const auto& [subtype, value] : {std::pair{u"version8_8_32", "0.0.0.0"}, {u"version4_4", "0.0"}, {u"", "  "}}) {
        Make(subtype, {{u"Min", u"2"}});
        EXPECT_EQ(Shown(), value);
    }
}

TEST_F(ParameterStringTest, LengthAndRuleAreChecked) {
    group->scripts["\"abc\" <> \"\""] = [] { return Variant(true); };
    group->scripts["\"a\"b\" <> \"\""] = [] { return Variant(false); };
    Make(u"", {{u"Min", u"2"}, {u"Max", u"3"}, {u"consistency", u"!:P() <> \"\""}});
    for (const auto& [text, passes] : {std::pair{u"a", false}, {u"abc", true}, {u"abcd", false}, {u"a\"b", false}}) {
        EXPECT_EQ(gui->consistent(text), passes);
    }
    EXPECT_EQ(spec->Gui()->Max().AsLong(), 32767) << "until the first check";
    gui->let_value(u"abc");
    EXPECT_EQ(Shown() + ToText(gui->Max()).ToUtf8(), "abc3");
    spec->let_value(Variant::Null());
    EXPECT_EQ(Shown() + gui->error().ToUtf8(), "Internal error4");
}

TEST_F(ParameterStringTest, DatesFollowTheLocale) {
    Make(u"hartdate", {{u"DefaultValue", u"2026-02-28"}});
    EXPECT_EQ(Shown(), "2/28/2026");
    EXPECT_EQ(Told(u"02/28/2026"), "A:State group:State") << "the same date";
    EXPECT_EQ(spec->get_value().AsText(), u"2026-02-28");
    EXPECT_EQ(Exported(4, 32), "1C027E11") << "what is behind the date stays";
    EXPECT_EQ(Exported(2, 24), "no");
    EXPECT_EQ(Imported(u"010C64", 24), "12/1/2000");
    const ::ov::testing::ScopedLocale german("de-DE");
    EXPECT_EQ(Imported(u"010C64", 24), "01.12.2000");
    EXPECT_EQ(gui->FormatValue(u"2026-02-28", {}), u"28.02.2026");
}

TEST_F(ParameterStringTest, StreamsMayShowColons) {
    Make(u"hexstream", {{u"displayFormat", u"mac"}, {u"DefaultValue", u"00ab10"}});
    EXPECT_EQ(Shown(), "00:ab:10");
    EXPECT_EQ(gui->FormatValue(u"00ab10", {}), u"00ab10");
    gui->let_value(u"01:02:fe");
    EXPECT_EQ(spec->get_value().AsText(), u"0102fe");
    EXPECT_EQ(Exported(4, 0), "0102FE11");
    EXPECT_EQ(Exported(4, 32), "0102FE00");
    EXPECT_EQ(Imported(u"0A0B", 16), "0A0B");
    Make(u"hexwordstream", {{u"DefaultValue", u"010203"}});
    EXPECT_EQ(Exported(4, 32), "03020100");
    EXPECT_EQ(Imported(u"03020100", 32), "00010203");
    Make(u"", {{u"displayFormat", u"Icon"}, {u"DefaultValue", u"a.png"}});
    EXPECT_EQ(Shown(), "/devices/a.png");
    Make(u"", {{u"displayFormat", u">"}, {u"DefaultValue", u"abc"}});
    EXPECT_EQ(Shown(), "ABC");
}

TEST_F(ParameterStringTest, TextsLieInImages) {
    struct Case {
        const char16_t* subtype;
        const char16_t* value;
        int bytes, width;
        const char* image;
    };
    for (const Case& c : {Case{u"", u"abc", 5, 32, "6162632011"},
                          {u"ascii0", u"abc", 5, 32, "6162630011"},
                          {u"dcpname", u"abc", 3, 16, "616211"},
                          {u"", u"a€", 3, 0, "618011"},
                          {u"", u"abc", 2, 24, "no"},
                          {u"", u"abc", 4, 12, "no"},
                          {u"version4_4", u"3.12", 2, 0, "3C11"},
                          {u"version8_8", u"3.12", 2, 16, "030C"},
                          {u"version8_8", u"3.12", 3, 24, "no"},
                          {u"version8_8_32", u"3.12.9.9", 4, 0, "030C030C"},
                          {u"packedascii", u"ABCD", 4, 24, "0420C411"}}) {
        Make(c.subtype, {{u"DefaultValue", c.value}});
        EXPECT_EQ(Exported(c.bytes, c.width), c.image);
    }
    Make(u"version8_8_32");
    EXPECT_EQ(Imported(u"01020304", 32), "4.3.2.1") << "the other way round than it goes out";
    Make(u"");
    EXPECT_EQ(Imported(u"4100094220", 40), "A \tB");
    EXPECT_EQ(Imported(u"0141", 16), "_A");
    EXPECT_EQ(Imported(u"414243", 0), "AB") << "all but the last byte";
    EXPECT_EQ(Imported(u"", 0), "");
    EXPECT_EQ(Imported(u"41", 16), "no");
    Make(u"version8_8");
    EXPECT_EQ(Logged([&] { EXPECT_EQ(Imported(u"010203", 24), "no"); }),
              "(ParamId 7) IBase_SpecParameter_ImportFromHexStringMapByMemory(): WARNING: nicht unterstützte Bitlänge "
              "(24) für subtype 'version4_4'!\n");
    EXPECT_EQ(Shown(), "Internal error");
    EXPECT_EQ(Logged([&] { EXPECT_EQ(Exported(3, 24), "no"); }).substr(0, 137),
              "(ParamId 7) IBase_SpecParameter_ExportToByteArrayMapByMemory(): nicht unterstützte Bitlänge (24) für "
              "subtype 'version8_8r'!\n(ParamId 7");
}

TEST_F(ParameterStringTest, PackedTextsComeBack) {
    Text alphabet;
    for (char16_t c = 0x20; c < 0x60; ++c) {
        alphabet += c;
    }
    Make(u"packedascii");
    for (std::size_t length = 0; length < alphabet.size(); ++length) {
        // From the end, so that no text ends in the blank.
        const Text text = alphabet.view().substr(alphabet.size() - length);
        gui->let_value(text);
        ByteArray image{std::vector<std::uint8_t>(48)};
        ASSERT_TRUE(spec->ExportToByteArrayMapByMemory(image, 0, 384, {}, {}));
        spec->let_value(u"?");
        ASSERT_TRUE(spec->ImportFromByteArrayMapByMemory(image, 0, 384, {}, {}));
        EXPECT_EQ(spec->get_value().AsText(), text);
    }
    for (std::uint32_t c = 0; c < 0x10000; c += c < 0x300 ? 1 : 97) {
        const bool letter = c >= 'a' && c <= 'z';
        const Text text = Text::Repeat(1, static_cast<char16_t>(c));
        // One character asks for the value held, and two more have a letter of the alphabet as upper case.
        if (c == 0x1B || c == 0x131 || c == 0x17F) continue;
        EXPECT_EQ(gui->consistent(text), (c >= 0x20 && c < 0x60) || letter) << c;
    }
}

TEST_F(ParameterStringTest, AnEnvironmentStringIsAskedOfTheHost) {
    Take(MakeObject<ParameterENVString>(), {{u"subtype", u"USER"}, {u"displayFormat", u"<"}});
    const ByteArray nothing;
    EXPECT_FALSE(spec->ImportFromByteArrayMapByMemory(nothing, {}, {}, {}, {})) << "no environment";
    const auto environment = MakeObject<Environment>();
    group->module->environment = environment;
    environment->let_Variable(u"USER", u"Ada");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Told([&] { EXPECT_TRUE(spec->ImportFromHexStringMapByMemory(u"", {}, {}, {}, {})); }),
              "A:Value group:Value");
    EXPECT_EQ(ToText(environment->get_Variable(u"GET_FROM_BASE")), u"USER");
    EXPECT_EQ(Shown(), "ada");
    EXPECT_EQ(spec->get_value().AsText(), u"Ada");
    Text image = u"00";
    EXPECT_TRUE(spec->ExportToHexStringMapByMemory(image, {}, {}, {}, {}));
    EXPECT_EQ(image, u"00");
}

}  // namespace
}  // namespace ov
