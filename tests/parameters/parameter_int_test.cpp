#include "parameters/parameter_int.h"

#include <gtest/gtest.h>

#include "parameters/clock_text.h"
#include "parameters/display_format.h"
#include "parameters/parameter_factory.h"
#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::Fields;

class ParameterIntTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) { Take(MakeObject<ParameterInt>(), cells); }
};

TEST_F(ParameterIntTest, WidthAndSignGiveTheLimits) {
    ExpectEach(
        "u8 -> 0..255; U8 -> 0..255; s8 -> -128..127; 8 -> -128..127; u16reverseMapping -> 0..65535; s1 -> -1..0; "
        "u1 -> 0..1; s0 -> -1..0; u -> 0..1; x8 -> -1..0; f32 -> -1..0; u31 -> 0..2147483647; "
        "s32 -> -2147483648..2147483647; u32 -> error 6; s33 -> error 6; s1e9 -> error 6; s1e99 -> error 6; s-3 -> "
        "0..-1",
        [this](const Text& subtype) {
            const auto parameter = MakeObject<ParameterInt>();
            try {
                parameter->Config(group->Dispatch(), Variant(::ov::testing::MakeRow({{u"subtype", subtype}})));
            } catch (const RuntimeError& failure) {
                return "error " + std::to_string(failure.number());
            }
            return Describe(parameter->Min()).substr(5) + ".." + Describe(parameter->Max()).substr(5);
        });
    Make();
    EXPECT_EQ(Describe(gui->Min()), "Long -2147483648") << "a Null is s32";
}

// A case is "subtype|displayFormat|text -> number|shown" of a text that is written; "no" stands for one that is
// refused.
TEST_F(ParameterIntTest, ReadsAndWritesItsForms) {
    group->module->texts[1] = u"V";
    ExpectEach(
        "u8|hex|C8 -> 200|C8; u8|hex|c8 -> 200|C8; s8|hex|C8 -> -56|C8; s8|hex|100 -> no|0; s8|hex| -> no|0; "
        "s8|hex|&HC8 -> no|0; s16|hex4|FF -> 255|00FF; s16|HEX4|FFFF -> -1|FFFF; s32|hex|FFFFFFFF -> -1|FFFFFFFF; "
        "s32|hex|80000000 -> -2147483648|80000000; s32|hex|1FFFFFFFF -> no|0; u31|hex8|7FFFFFFF -> "
        "2147483647|7FFFFFFF; "
        "u16|hex|FFFFFFFF -> no|0; s32|hex9|1 -> 1|00000001; s32|hex300|1 -> 1|1; s32|hexagon|A -> 10|A; "
        "s32|seconds|1:00:00 -> 3600|1:00:00; s32|seconds|359999 -> 359999|99:59:59; "
        "s32|seconds|100:00:00 -> 360000|100:00:00; s32|seconds|1:90 -> 150|0:02:30; s32|seconds|:7 -> 7|0:00:07; "
        "s32|seconds|:1:01 -> 61|0:01:01; s32|seconds|1::1 -> no|0:00:00; s32|seconds|1: -> no|0:00:00; "
        "s32|seconds|600000:00:00 -> no|0:00:00; s32|seconds|-90061 -> -90061|-25:01:01; "
        "s32|seconds|-2147483648 -> -2147483648|-596523:14:08; s32|minutes|90 -> 90|0:01; "
        "s32|minutes|25:01 -> 90060|25:01; s32|minutes|:30 -> no|0:00; s32|techexpo|1.5k -> 1500|1500; "
        "s32|techexpo|15k -> 15000|15k; s32|techexpo2|5 V -> 5|5; s32|techexpo|1.5x -> no|0; s32|techexpo|3G -> no|0; "
        "s32|techexpo|2500m -> 2|2; s32|scientific|1.234E+03 -> 1234|1.23E+03; s32|version|1.2 -> 258|0.0.1.2; "
        "s32|version2|1.2.3 -> 66051|2.3; s32|version|1.x -> no|0.0.0.0; s32|version|200.0.0.0 -> no|0.0.0.0; "
        "s32||2.5 -> 2|2; s32||3.5 -> 4|4; s32||&H80000000 -> -2147483648|-2147483648; s32||1,234 -> 1234|1234; "
        "s32|0.0|5 -> 5|5.0; u16||70000 -> no|0",
        [this](const Text& line) {
            const auto [subtype, form, text] = Fields(line);
            Make({{u"subtype", subtype}, {u"displayFormat", form.empty() ? Variant::Null() : form}, {u"unit", 1}});
            const bool passes = gui->consistent(text);
            const std::string written = NumberWritten(text);
            EXPECT_NE(written.starts_with("no|"), passes) << line.ToUtf8();
            return written;
        });
}

TEST_F(ParameterIntTest, FaultsOfADisplayFormatAreLogged) {
    const std::string line = "(ParamId 7) IBase_Internal_Config(): ERROR: displayFormat = ";
    ExpectEach(
        "hex8 -> ; Hex9 -> 'hex9' would cause trouble and is changed to 'hex8'!; "
        "hex300 -> 'hex300' caused parse Error: Overflow; hexagon -> 'hexagon' caused parse Error: Type mismatch; "
        "version-1 -> 'version-1' caused parse Error: Overflow; secondsx -> ",
        [&](const Text& form) {
            const std::string logged = Logged([&] { Make({{u"displayFormat", form}}); });
            return logged.starts_with(line) ? logged.substr(line.size(), logged.size() - line.size() - 1) : logged;
        });
    constexpr DisplayGrammar kWide{.mostHexDigits = 16, .hasUnixTime = true};
    EXPECT_EQ(ReadDisplayFormat(u"hex20", kWide).digits, 16);
    EXPECT_EQ(ReadDisplayFormat(u"UnixTime", kWide).kind, DisplayKind::UnixTime);
    for (const char16_t* picture : {u"unixtime2", u"seconds4", u"0.0", u""}) {
        EXPECT_EQ(ReadDisplayFormat(picture, kWide).kind, DisplayKind::Picture);
    }
}

TEST_F(ParameterIntTest, AHexFormMayFailToShow) {
    Make({{u"subtype", u"s8"}, {u"displayFormat", u"hex"}});
    spec->let_value(200);
    EXPECT_EQ(ErrorOf([&] { gui->get_value(); }), 42) << "more than the width holds";
    EXPECT_EQ(gui->FormatValue(200), u"");
    EXPECT_EQ(gui->FormatValue(-56), u"C8");
    // A width that no row of the class has, left by a configuration that failed half way.
    EXPECT_EQ(ErrorOf([&] { Configure({{u"subtype", u"s40"}}); }), 6);
    const std::string line = "(): ERROR: conversion not possible with BitLen=40 and subtype=signed\n";
    EXPECT_EQ(Logged([&] {
                  EXPECT_EQ(Shown(), "0");
                  EXPECT_TRUE(gui->consistent(u"1"));
                  EXPECT_EQ(gui->FormatValue(1), u"0");
                  EXPECT_EQ(Told(u"1"), "dependencies A:Value group:Value");
              }),
              "Get IBase_GuiParameter_value" + line + "IBase_GuiParameter_consistent" + line +
                  "IBase_GuiParameter_FormatValue" + line + "Let IBase_GuiParameter_value" + line);
    EXPECT_EQ(Describe(spec->get_value()), "Long 0");
}

TEST_F(ParameterIntTest, APictureMustReadBack) {
    Make({{u"displayFormat", u"0.0 V"}, {u"DefaultValue", 5}});
    EXPECT_EQ(ErrorOf([&] { gui->get_value(); }), 13) << "what does not read at all goes to the caller";
    EXPECT_EQ(Logged([&] { EXPECT_EQ(gui->FormatValue(5), u""); }),
              "(ParamId 7) Function IBase_GuiParameter_FormatValue(5): ERROR: Aktion nicht möglich\n");
    Make({{u"displayFormat", u"0.0E+00"}, {u"DefaultValue", 1234}});
    EXPECT_EQ(Logged([&] { EXPECT_EQ(Shown(), "1234"); }),
              "Id '7': IBase_GuiParameter_value(): Format 0.0E+00konnte nicht rückkonvertiert werden!\n");
    EXPECT_EQ(Logged([&] { EXPECT_EQ(gui->FormatValue(1250), u"1250"); }),
              "Id '7': IBase_GuiParameter_FormatValue(): Format 0.0E+00konnte nicht rückkonvertiert werden!\n");
    EXPECT_EQ(gui->FormatValue(1200), u"1.2E+03");
    Make({{u"displayFormat", u""}, {u"DefaultValue", 1234}});
    EXPECT_EQ(Shown(), "1234");
    const ::ov::testing::ScopedLocale german("de-DE");
    Make({{u"displayFormat", u"0.0"}, {u"DefaultValue", 5}});
    EXPECT_EQ(Shown(), "5,0");
    gui->let_value(u"6,5");
    EXPECT_EQ(Shown(), "6,0");
    gui->let_value(u"1.234");
    EXPECT_EQ(Describe(spec->get_value()), "Long 1234");
}

TEST_F(ParameterIntTest, CountsOfSecondsMayBeAnyNumber) {
    EXPECT_EQ(FormatSeconds(Decimal::Parse(u"36000000000000000000001").value()), u"10000000000000000000:00:01");
    EXPECT_EQ(FormatSeconds(-1), u"0:00:01") << "hours alone have a sign";
    EXPECT_EQ(FormatMinutes(86400), u"24:00");
    const ::ov::testing::ScopedLocale finnish("fi-FI");
    Make({{u"displayFormat", u"seconds"}});
    ExpectEach("1.02.03 -> 1.02.03; 1:02:03 -> 1.02.03; 1:02.03 -> 1.02.03; .5 -> 0.00.05; 1.90 -> 0.02.30",
               [this](const Text& text) {
                   gui->let_value(text);
                   return Shown();
               });
    Make({{u"displayFormat", u"minutes"}, {u"DefaultValue", 90060}});
    EXPECT_EQ(Shown(), "25.01");
    EXPECT_TRUE(gui->consistent(u"25.01"));
}

TEST(ParameterFactoryTest, ChoosesByWordAndWidth) {
    const auto made = [](const Text& type, const Variant& subtype) {
        const Ref<IBase_Internal> parameter = MakeParameter(type, subtype);
        return parameter ? parameter->ClassName().ToUtf8() : "none";
    };
    ExpectEach(
        "s32 -> Int; S33 -> Decimal; u31 -> Int; U32 -> Decimal; 32 -> Int; 64 -> Decimal; x64 -> Int;  -> Int; "
        "u64reverseMapping -> Decimal",
        [&](const Text& subtype) { return made(u"INT", subtype).substr(std::size("CBase_Parameter") - 1); });
    EXPECT_EQ(made(u"FLOAT", u"u8"), "CBase_ParameterFloat");
    EXPECT_EQ(made(u"INT", Variant::Null()), "CBase_ParameterInt");
    EXPECT_EQ(made(u"HEX", u"u64"), "CBase_ParameterInt") << "its width is not looked at";
    EXPECT_EQ(made(u"int", u"s8") + made(u"", u"s8"), "nonenone");
}

}  // namespace
}  // namespace ov
