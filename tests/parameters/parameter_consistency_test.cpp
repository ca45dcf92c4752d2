#include <gtest/gtest.h>

#include "parameters/parameter_int.h"
#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::Events;

class ParameterConsistencyTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) { Take(MakeObject<ParameterInt>(), cells); }
    std::string Check(bool passes) {
        return Told([&] { EXPECT_EQ(internal->CheckConsistency(), passes); });
    }
    std::string Limits() {
        return ToText(gui->Min()).ToUtf8() + ".." + ToText(gui->Max()).ToUtf8() + (gui->consistent() ? "" : " no");
    }
};

constexpr const char* kReconfigured = "A:Reconfigured group:Reconfigured";
constexpr const char* kState = "A:State group:State";

TEST_F(ParameterConsistencyTest, LimitsAreThoseOfTheTypeUntilTheCheck) {
    group->scripts["low"] = [] { return Variant(2); };
    group->scripts["high"] = [] { return Variant(u"8"); };
    Make({{u"subtype", u"u8"}, {u"Min", u"#:low"}, {u"Max", u"!:high"}, {u"DefaultValue", u"9"}});
    EXPECT_EQ(Limits(), "0..255");
    EXPECT_EQ(Check(false), std::string(kReconfigured) + " " + kState) << "the reconfiguration first";
    EXPECT_EQ(Limits(), "2..8 no");
    EXPECT_EQ(Check(false), "") << "nothing changed";
    EXPECT_EQ(group->evaluated, (Events{"low", "high", "high"})) << "static once, live at each check";
    group->scripts["high"] = [] { return Variant(9); };
    EXPECT_EQ(Check(true), std::string(kReconfigured) + " " + kState);
    group->scripts.erase("high");
    EXPECT_EQ(Check(false), std::string(kReconfigured) + " " + kState) << "a failing rule is 0";
    EXPECT_EQ(Limits(), "2..0 no");
    Make({{u"subtype", u"u8"}, {u"Max", 300}, {u"DefaultValue", 300}});
    EXPECT_EQ(Check(true), kReconfigured) << "a limit beyond the type is taken as it is";
    Make({{u"subtype", u"u8"}, {u"DefaultValue", 256}});
    EXPECT_EQ(Check(false), kState) << "without a column the type's limit holds";
    Make({{u"subtype", u"s8"}, {u"unit", 1}});
    EXPECT_EQ(Check(true), kReconfigured) << "the unit counts too";
    EXPECT_EQ(Check(true), "");
}

// What the check knows of a row ends when somebody changes the row.
TEST_F(ParameterConsistencyTest, TheRowMayChangeUnderTheParameter) {
    const Ref<Collection> row = ::ov::testing::MakeRow({{u"realGain", u"2"}});
    Make();
    EXPECT_TRUE(internal->Config(group->Dispatch(), Variant(row)));
    EXPECT_EQ(Check(true) + Check(true), kReconfigured);
    EXPECT_EQ(Describe(internal->CheckNeedForReConfig()), "False");
    for (const auto& [column, value] : {std::pair(u"realGain", u"4"), std::pair(u"consistency", u"!:no")}) {
        row->RemoveKey(column);
        row->TryAdd(column, value);
    }
    EXPECT_EQ(Describe(internal->CheckNeedForReConfig()), "True");
    EXPECT_EQ(Check(false), std::string(kReconfigured) + " " + kState);
}

// A rule may let the parameter take another row. What it answers then counts no more, neither as scale, limit or unit
// nor as what is known of the row.
TEST_F(ParameterConsistencyTest, ARuleMayBringAnotherRow) {
    Cells row = {{u"subtype", u"u8"}, {u"realGain", u"4"}, {u"Min", u"1"}, {u"Max", u"90"}, {u"unit", 1}};
    for (const bool checks : {true, false}) {
        for (const auto* column : {u"realGain", u"realOffset", u"Min", u"Max", u"unit"}) {
            bool isTaken = false;
            group->scripts["swap"] = [&] {
                if (!std::exchange(isTaken, true)) {
                    EXPECT_TRUE(Configure(row));
                    if (checks) internal->CheckConsistency();
                }
                return Variant(2);
            };
            group->module->texts[9] = u"#:swap";
            const Variant rule = column == Text(u"unit") ? Variant(9) : Variant(u"#:swap");
            Make({{column, rule}, {u"DefaultValue", u"3"}});
            gui->let_value(u"10");
            EXPECT_TRUE(isTaken);
            internal->CheckConsistency();
            EXPECT_EQ(Limits() + " " + gui->unit().ToUtf8() + " " + Describe(spec->get_realvalue()),
                      "1..90 text 1 Double 10")
                << Text(column).ToUtf8();
            EXPECT_EQ(Shown(), "40");
            EXPECT_EQ(Check(true), "");
        }
    }
}

// Rules may check their own parameter; each of the checks tells what is not as it was at its begin.
TEST_F(ParameterConsistencyTest, WhatANestedCheckMovesIsToldByBoth) {
    double high = 5, gain = 1;
    bool isNested = false;
    group->scripts["high"] = [&] { return Variant(high); };
    group->scripts["gain"] = [&] { return Variant(gain); };
    group->scripts["rule"] = [&] {
        if (std::exchange(isNested, true)) return Variant(true);
        high = 9;
        gain = 2;
        internal->CheckConsistency();
        return Variant(true);
    };
    Make({{u"Max", u"!:high"}, {u"realGain", u"!:gain"}, {u"consistency", u"#:rule"}, {u"DefaultValue", u"3"}});
    EXPECT_EQ(Check(true), std::string(kReconfigured) + " " + kReconfigured);
    EXPECT_EQ(Check(true), "");
    isNested = false;
    high = 5;
    EXPECT_EQ(Check(true), std::string(kReconfigured)) << "the outer check saw 5, and ends with 9 as it began";
}

TEST_F(ParameterConsistencyTest, AChangeOfScaleKeepsTheDeviceView) {
    double gain = 1, offset = 0;
    group->scripts["gain"] = [&] { return Variant(gain); };
    group->scripts["offset"] = [&] { return Variant(offset); };
    Make({{u"realGain", u"!:gain"}, {u"realOffset", u"!:offset"}, {u"DefaultValue", u"10"}});
    EXPECT_EQ(Describe(internal->CheckNeedForReConfig()), "False");
    gain = 2;
    EXPECT_EQ(Describe(internal->CheckNeedForReConfig()), "True");
    EXPECT_EQ(Check(true), kReconfigured);
    EXPECT_EQ(Shown(), "10") << "never written: the next row brings its default";
    EXPECT_EQ(Describe(spec->get_realvalue()), "Double 5");
    gain = 1;
    internal->CheckConsistency();
    gui->let_value(u"11");
    gui->ClearModified();
    gain = 2;
    offset = 0.5;
    EXPECT_EQ(Check(true), kReconfigured);
    EXPECT_EQ(Shown(), "22") << "22.5, half to even";
    EXPECT_FALSE(gui->modified());
    gui->let_value(u"3");
    gain = 4;
    internal->CheckConsistency();
    EXPECT_EQ(Shown(), "6") << "5.5, half to even";
    EXPECT_TRUE(gui->modified());
    gain = 1e10;
    EXPECT_EQ(Logged([&] { Check(true); }), "(ParamId 7) Private Sub KeepRealValue(): ONERROR: Overflow\n");
    EXPECT_EQ(Shown(), "6");
    Configure();
    EXPECT_EQ(Check(true), kReconfigured) << "Null is 1 and 0";
}

TEST_F(ParameterConsistencyTest, AGainOfZeroIsOne) {
    const char* line =
        "(ParamId 7) IBase_Internal_Config(): ERROR: mRealgain = 0 would possibly cause division-by-zero error and is "
        "changed to 1!\n";
    group->scripts["zero"] = [] { return Variant(0); };
    group->scripts["word"] = [] { return Variant(u"word"); };
    for (const char16_t* gain : {u"!:zero", u"!:gone", u"!:word", u"0"}) {
        Make({{u"realGain", gain}, {u"realOffset", u"!:word"}});
        EXPECT_EQ(Logged([&] { EXPECT_EQ(Check(true), ""); }), line);
        EXPECT_EQ(Logged([&] { Check(true); }), line) << "at each check";
        EXPECT_EQ(Describe(internal->CheckNeedForReConfig()), "False");
    }
}

TEST_F(ParameterConsistencyTest, TheRuleSeesTheCandidate) {
    std::string seen;
    group->scripts["-5 > P(\"7\") Or -5 = 1"] = [&] {
        seen = Describe(spec->get_value()) + "/" + gui->error().ToUtf8();
        return Variant(u"True");
    };
    Make({{u"consistency", u"#:P() > P(\"7\") Or P() = 1"}, {u"DefaultValue", u"3"}});
    EXPECT_TRUE(gui->consistent(u"-5"));
    EXPECT_EQ(seen, "Long -5/0");
    EXPECT_EQ(Shown(), "3");
    spec->let_value(u"abc");
    EXPECT_TRUE(gui->consistent(u"-5"));
    EXPECT_EQ(seen, "Long -5/0");
    EXPECT_EQ(Shown(), "QNAN") << "value and state are back";
    EXPECT_EQ(Logged([&] { EXPECT_FALSE(gui->consistent(u"4")); }), "") << "Empty is False, without a line";
    group->scripts["4 > P(\"7\") Or 4 = 1"] = [] { return Variant(u"word"); };
    EXPECT_EQ(Logged([&] { EXPECT_FALSE(gui->consistent(u"4")); }),
              "EvaluateConsistency(): ERROR: script #:4 > P(\"7\") Or 4 = 1 could not be processed!\n");
    EXPECT_EQ(Shown(), "QNAN");
    Make({{u"consistency", u"P() > 4"}});
    EXPECT_FALSE(gui->consistent(u"5")) << "without a prefix it is a literal, and no Boolean";
    group->module->generation = 0;
    group->scripts["5 > 4"] = [] { return Variant(true); };
    EXPECT_TRUE(gui->consistent(u"5"));
    EXPECT_EQ(Told(u"5"), "dependencies A:Value group:Value");
    EXPECT_EQ(Told(u"4"), std::string(kState) + " " + kState) << "an edit is checked by it too";
    EXPECT_EQ(Shown(), "5");
}

TEST_F(ParameterConsistencyTest, ConsistentTestsWithoutStoring) {
    Make({{u"subtype", u"u8"}, {u"Max", u"9"}, {u"DefaultValue", u"20"}});
    EXPECT_TRUE(gui->consistent()) << "as of the configuration";
    internal->CheckConsistency();
    events.clear();
    EXPECT_FALSE(gui->consistent());
    EXPECT_FALSE(gui->consistent(u"\x1b")) << "the same as left out";
    const std::pair<const char16_t*, bool> cases[] = {{u"", false},
                                                      {u"9", true},
                                                      {u"10", false},
                                                      {u"-1", false},
                                                      {u"x", false},
                                                      {u" 8 ", true},
                                                      {u"\x01"
                                                       u"8",
                                                       false}};
    for (const auto& [text, passes] : cases) {
        EXPECT_EQ(gui->consistent(text), passes) << Text(text).ToUtf8();
    }
    EXPECT_EQ(events, Events{});
    EXPECT_EQ(Shown(), "20");
    spec->let_value(u"abc");
    EXPECT_EQ(Check(false), "") << "a value with a state never passes";
    spec->let_value(5);
    EXPECT_EQ(Check(true), kState);
}

}  // namespace
}  // namespace ov
