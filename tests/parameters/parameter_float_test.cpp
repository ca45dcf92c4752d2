#include "parameters/parameter_float.h"

#include <gtest/gtest.h>

#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::Fields;

class ParameterFloatTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) {
        Take(MakeObject<ParameterFloat>(), cells);
        internal->CheckConsistency();
        events.clear();
    }
};

// A case is "subtype|displayFormat|text -> number|shown" of a text that is written; "no" stands for one that is
// refused.
TEST_F(ParameterFloatTest, ReadsAndWritesItsForms) {
    group->module->texts[1] = u"V";
    ExpectEach(
        "f32||1.2345 -> 1.2345|1.2345; f32||1e-7 -> 0.0000001|0.0000001; f32||abc -> no|0; f32rnd2||1.2345 -> "
        "1.23|1.23; "
        "F32RND2||0.125 -> 0.12|0.12; f32rnd||1.25 -> 1.25|1.25; s16rnd||-1.5 -> -2|-2; u16rnd1||2.75 -> 2|2; "
        "rnd1||2.75 -> 2.8|2.8; f32|techexpo|1.5kV -> 1500|1500; f32|TechExpo2|1500 -> 1500|1.5k; "
        "f32|techexpo|1.5x -> no|0; f32|techexpo|1e300G -> no|0; f32|techexpo|\x01"
        "1e300G -> no|0; f32|scientific|1234 -> 1234|1.23E+03; f32|scientific9|1234 V -> 1234|1.23E+03; "
        "f32|0.00|1.005 -> 1.005|1.01; f32|00|7 -> 7|07; f32precision1000|0.0|12.26 -> 12.26|12.3",
        [this](const Text& line) {
            const auto [subtype, form, text] = Fields(line);
            Make({{u"subtype", subtype}, {u"displayFormat", form.empty() ? Variant::Null() : form}, {u"unit", 1}});
            return NumberWritten(text);
        });
}

TEST_F(ParameterFloatTest, LimitsAreFixedNumbersUntilTheRowTellsOthers) {
    for (const char16_t* subtype : {u"u8", u"f32", u"x"}) {
        Make({{u"subtype", subtype}});
        EXPECT_EQ(Describe(gui->Min()) + " " + Describe(gui->Max()), "Double -2147483648 Double 2147483647");
    }
    group->scripts["top"] = [] { return 99.5; };
    Make({{u"Min", u"0"}, {u"Max", u"#:top"}});
    EXPECT_EQ(Describe(gui->Max()), "Double 99.5");
    EXPECT_TRUE(gui->consistent(u"99.5"));
    EXPECT_FALSE(gui->consistent(u"99.6"));
}

TEST_F(ParameterFloatTest, PrecisionWidensTheLimitsByAStepAndShowsAsManyPlaces) {
    Make({{u"subtype", u"f32precision1000"}, {u"Min", 0}, {u"Max", 100}});
    ExpectEach("100.05 -> 1; 100.1 -> 1; 100.2 -> 0; -0.1 -> 1; -0.11 -> 0",
               [this](const Text& text) { return std::to_string(gui->consistent(text)); });
    spec->let_value(12.25);
    EXPECT_EQ(Shown(), "12.2");
    EXPECT_EQ(gui->FormatValue(50), u"") << "writes the value held, rounded";
    EXPECT_EQ(Describe(spec->get_value()), "Double 12.2");
    Make({{u"subtype", u"f32precision10"}, {u"Min", 0}, {u"Max", 1000}});
    spec->let_value(12.5);
    EXPECT_EQ(Shown(), "12") << "no places";
    Make({{u"subtype", u"f32precision10"}, {u"Min", 5}, {u"Max", 5}});
    spec->let_value(12.6);
    EXPECT_EQ(Shown(), "13") << "no range";
}

TEST_F(ParameterFloatTest, AnIntegerSubtypeRoundsTheDeviceView) {
    Make({{u"subtype", u"s16rnd"}, {u"realGain", 0.1}});
    gui->let_value(u"1.26");
    EXPECT_EQ(Describe(spec->get_value()), "Double 1.3");
    spec->let_value(u"2.34");
    EXPECT_NEAR(ToDouble(spec->get_value()), 2.3, 1e-12);
    spec->let_realvalue(7.5);
    EXPECT_NEAR(ToDouble(spec->get_realvalue()), 8, 1e-12) << "half to even";
    EXPECT_EQ(Logged([&] { spec->let_value(1.7e308); }), "RoundValue: WARNING: round failed, error = Overflow\n");
    EXPECT_EQ(Describe(spec->get_value()), "Double 1.7E+308");
}

TEST_F(ParameterFloatTest, NaNIsAStateThatTheDeviceSees) {
    Make({{u"DefaultValue", u"QNAN"}, {u"Min", 3}, {u"realGain", 2}});
    EXPECT_EQ(Shown() + ToText(spec->get_realvalue()).ToUtf8(), "QNANQNAN");
    EXPECT_EQ(storage->get_realvalueForStorage(), u"QNAN");
    EXPECT_EQ(Describe(spec->get_value()), "Double 3");
    EXPECT_FALSE(gui->consistent());
    EXPECT_FALSE(gui->modified());
    gui->let_value(u"4");
    EXPECT_EQ(Shown() + gui->error().ToUtf8(), "40");
    EXPECT_TRUE(gui->consistent());
    spec->let_value(u"qnan");
    EXPECT_EQ(gui->error(), u"1");
    spec->let_realvalue(u"QNAN");  // no number to scale
    EXPECT_EQ(Shown(), "QNAN");
    group->module->generation = 0;  // whose readers give 0 for it
    Make({{u"DefaultValue", u"QNAN"}, {u"Min", 3}});
    EXPECT_EQ(Shown() + " " + Describe(spec->get_value()), "QNAN Double 3");
}

TEST_F(ParameterFloatTest, ADefaultFallsBackOnTheBeginningOfALimit) {
    ExpectEach("12abc|5 -> 12; abc|5 -> 0; |7 -> 7; | -> 0", [this](const Text& line) {
        const std::size_t bar = line.view().find(u'|');
        Take(MakeObject<ParameterFloat>(),
             {{u"Min", Text(line.view().substr(0, bar))}, {u"Max", Text(line.view().substr(bar + 1))}});
        return ToText(spec->get_value()).ToUtf8();
    });
}

TEST_F(ParameterFloatTest, TheDisplayFormMayBeARule) {
    Text form = u"0.0";
    group->scripts["form"] = [&] { return Variant(form); };
    Make({{u"displayFormat", u"!:form"}, {u"DefaultValue", 1500}});
    EXPECT_EQ(Shown(), "1500.0");
    form = u"TECHEXPO2";
    EXPECT_EQ(Shown(), "1500.0") << "until the next check";
    internal->CheckConsistency();
    EXPECT_EQ(Shown(), "1.5k");
    form = u"techexpo300";
    EXPECT_EQ(Logged([&] { internal->CheckConsistency(); }),
              "(ParamId 7) IBase_Internal_Config(): ERROR: displayFormat = 'techexpo300' caused parse Error: "
              "Overflow\n");
    const ::ov::testing::ScopedLocale german("de-DE");
    form = u"0.00";
    internal->CheckConsistency();
    EXPECT_EQ(Shown(), "1500,00");
    gui->let_value(u"2,5");
    EXPECT_EQ(storage->get_realvalueForStorage(), u"2.5");
}

}  // namespace
}  // namespace ov
