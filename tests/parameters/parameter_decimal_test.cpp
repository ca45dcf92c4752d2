#include "parameters/parameter_decimal.h"

#include <gtest/gtest.h>

#include "parameters/parameter_testing.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

using ::ov::testing::Cells;
using ::ov::testing::Fields;

class ParameterDecimalTest : public ::ov::testing::ParameterTest {
protected:
    void Make(const Cells& cells = {}) { Take(MakeObject<ParameterDecimal>(), cells); }
};

TEST_F(ParameterDecimalTest, WidthAndSignGiveTheLimits) {
    ExpectEach(
        "u32 -> 0..4294967295; s40 -> -549755813888..549755813887; u48 -> 0..281474976710655; "
        "s48 -> -140737488355328..140737488355327",
        [this](const Text& subtype) {
            Make({{u"subtype", subtype}});
            return ToText(gui->Min()).ToUtf8() + ".." + ToText(gui->Max()).ToUtf8();
        });
    Make();
    EXPECT_EQ(Describe(gui->Max()), "Decimal 4294967295") << "a Null is u32";
    Make({{u"subtype", u"u64"}});
    EXPECT_TRUE(gui->consistent(u"18446744073709551615"));
    EXPECT_EQ(ErrorOf([&] { Configure({{u"subtype", u"u100"}}); }), 6);
}

// A case is "subtype|displayFormat|text -> number|shown" of a text that is written; "no" stands for one that is
// refused.
TEST_F(ParameterDecimalTest, ReadsAndWritesItsForms) {
    ExpectEach(
        "u32|hex|FFFFFFFF -> 4294967295|FFFFFFFF; u32|hex|0 -> 0|0; s40|hex|FFFFFFFFFE -> -2|FFFFFFFFFE; "
        "s40|hex12|1 -> 1|000000000001; u64|hex|FFFFFFFFFFFFFFFF -> 18446744073709551615|FFFFFFFFFFFFFFFF; "
        "s40|hex|1FFFFFFFFFF -> no|0; u32|hex|x -> no|0; u32|hex20|1 -> 1|0000000000000001; "
        "u64||18446744073709551615 -> 18446744073709551615|18446744073709551615; u32||x -> no|0; "
        "u32|seconds|100000:00:01 -> 360000001|100000:00:01; u32|minutes|1:30 -> 5400|1:30; "
        "u32|techexpo|3G -> 3000000000|3G; u32|version|200.1.2.3 -> 3355509251|200.1.2.3; "
        "u32|unixtime|1970-01-02 00:00:00 -> 86400|1970-01-02 00:00:00; u32|UnixTime|no date -> 0|1970-01-01 00:00:00; "
        "u32|unixtime|2100-01-01 -> no|1970-01-01 00:00:00; u64|0.0|5 -> 5|5.0",
        [this](const Text& line) {
            const auto [subtype, form, text] = Fields(line);
            Make({{u"subtype", subtype}, {u"displayFormat", form.empty() ? Variant::Null() : form}});
            return NumberWritten(text);
        });
}

TEST_F(ParameterDecimalTest, TellsItsFaults) {
    EXPECT_EQ(Logged([&] {
                  Make({{u"displayFormat", u"hex20"}});
              }),
              "(ParamId 7) IBase_Internal_Config(): ERROR: displayFormat = 'hex20' would cause trouble and is changed "
              "to 'hex16'!\n");
    Make({{u"displayFormat", u"0E+00"}});
    EXPECT_EQ(Logged([&] { EXPECT_EQ(gui->FormatValue(1250), u"1250"); }),
              "Id '7': ID IBase_GuiParameter_FormatValue(): Format 0E+00konnte nicht rückkonvertiert werden!\n");
    spec->let_value(u"1E+40");
    EXPECT_EQ(gui->error(), u"2") << "beyond a Decimal";
    Make({{u"displayFormat", u"unixtime"}});
    spec->let_value(u"1000000000000000");
    EXPECT_EQ(ErrorOf([&] { gui->get_value(); }), 6) << "no date";
}

TEST_F(ParameterDecimalTest, KeepsAllDigitsButWhereItIsScaled) {
    Make({{u"subtype", u"u64"}});
    spec->let_realvalue(u"18446744073709551615");
    EXPECT_EQ(Describe(spec->get_realvalue()), "Decimal 18446744073709551615");
    Make({{u"subtype", u"u32"}, {u"realGain", 0.5}, {u"realOffset", 1}});
    internal->CheckConsistency();
    spec->let_realvalue(7);
    EXPECT_EQ(Describe(spec->get_value()), "Decimal 4.5");
    EXPECT_EQ(ToDouble(spec->get_realvalue()), 7);
}

}  // namespace
}  // namespace ov
