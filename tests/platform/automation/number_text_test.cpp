#include "platform/automation/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

std::string Reading(std::u16string_view text) {
    const std::optional<double> number = ReadNumber(text);
    return number ? ToInvariantText(*number).ToUtf8() : "none";
}

TEST(NumberTextTest, ReadsWhatPeopleWrite) {
    ExpectEach(
        "&H1F -> 31; 1e5 -> 100000;  12  -> 12; $12 -> 12; 1,000 -> 1000; (5) -> -5; 5- -> -5; 1. -> 1; "
        ".5 -> 0.5; - 5 -> -5; +5 -> 5; 5 + -> 5; \t7\r\n -> 7; ($1,234.5) -> -1234.5; 12 $ -> 12; "
        "1d3 -> 1000; 1E+2 -> 100; 1.5e-3 -> 0.0015; 0 -> 0; 1,2,3, -> 123; 000012 -> 12; 1e-400 -> 0; "
        "&o17 -> 15; &HFFFF -> 65535; &hff& -> 255;   &HFFFFFFFF   -> 4294967295; "
        "123456789012345678 -> 1.23456789012346E+17",
        Reading);
}

TEST(NumberTextTest, RefusesWhatIsNoNumber) {
    ExpectEach(
        ";  ; .; 5%; abc; 1e; e5; 1e5.5; --5; -5-; (5; 5); (-5); (); $; $$5; 1 2; 1.2.3; 1.2,3; ,5; &H; &HG; "
        "&O8; &; -&H1; &H1 2; 1e400; 12abc; True; €5; &H12345678901234567",
        Reading);
}

TEST(NumberTextTest, FollowsTheLocale) {
    {
        ScopedLocale german("de-DE");
        ExpectEach(
            "1.234,5 -> 1234.5; 1,5 -> 1.5; 1.5 -> 15; 5 € -> 5; -3,50 € -> -3.5; $5 -> none; 1,5,2 -> none; "
            "&H1F -> 31",
            Reading);
        EXPECT_EQ(NumberToText(-1234.5, 15, CurrentLocale().decimal), u"-1234,5");
    }
    {
        ScopedLocale french("fr-FR");
        ExpectEach("1 234,5 -> 1234.5; 1\u202F234 -> 1234; 1\u00A0234,5 € -> 1234.5", Reading);
    }
    ScopedLocale swiss("de-CH");
    ExpectEach("1'234.5 -> 1234.5; 1\u2019234 -> 1234", Reading);
}

TEST(NumberTextTest, RoundsManyDigitsCorrectly) {
    // Halfway between two Doubles: the digit far behind decides.
    const std::u16string halfway = u"9007199254740993." + std::u16string(900, u'0');
    EXPECT_EQ(ReadNumber(halfway), 9007199254740992.0);
    EXPECT_EQ(ReadNumber(halfway + u"1"), 9007199254740994.0);
    EXPECT_EQ(ReadNumber(u"0." + std::u16string(400, u'0') + u"1e401"), 1.0);
    EXPECT_EQ(ReadNumber(u"1" + std::u16string(400, u'0') + u"e-400"), 1.0);
    EXPECT_EQ(ReadNumber(u"4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(ReadNumber(u"1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ReadNumber(u"1.7976931348623159e308"), std::nullopt);
}

TEST(NumberTextTest, WritesFixedAndScientificForms) {
    const auto write = [](double value, int significant) { return NumberToText(value, significant, u'.').ToUtf8(); };
    ExpectEach(
        "0 -> 0; -0 -> 0; 0.30000000000000004 -> 0.3; 3333333333333333e-16 -> 0.333333333333333; "
        "0.0666666666666666 -> 6.66666666666666E-02; 0.00001 -> 0.00001; 1e-15 -> 0.000000000000001; "
        "1.5e-15 -> 1.5E-15; 1.5e-16 -> 1.5E-16; 123456789012345 -> 123456789012345; "
        "123456789012345.6 -> 123456789012346; 999999999999999.9 -> 1E+15; 1e14 -> 100000000000000; "
        "1e15 -> 1E+15; -1.25e100 -> -1.25E+100; 1234.5 -> 1234.5; "
        "1.7976931348623157e308 -> 1.79769313486232E+308",
        [&](const Text& value) { return write(ReadNumber(value).value(), 15); });
    ExpectEach(
        "0.1 -> 0.1; 0.333333333 -> 0.3333333; 0.0333333333 -> 3.333333E-02; 1e7 -> 1E+07; "
        "1234567 -> 1234567; 12345678 -> 1.234568E+07; -2.5e-7 -> -2.5E-07",
        [&](const Text& value) { return write(ReadNumber(value).value(), 7); });
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(write(infinity, 15) + write(-infinity, 7) + write(std::nan(""), 15), "1.#INF-1.#INF-1.#IND");
}

TEST(NumberTextTest, TextsOfDoublesReadBack) {
    std::mt19937_64 random(2024);
    for (int i = 0; i < 5'000; ++i) {
        const double value = std::ldexp(static_cast<double>(random() >> 11), static_cast<int>(random() % 400) - 230);
        const std::optional<double> back = ReadNumber(NumberToText(value, 15, u'.'));
        ASSERT_TRUE(back);
        EXPECT_NEAR(*back, value, value * 5.1e-15);
    }
}

TEST(ValPrefixTest, ReadsTheLongestPrefix) {
    ScopedLocale german("de-DE");  // has no say here
    ExpectEach(
        "12abc -> 12; abc -> 0;  -> 0;  1 2\t3\n.5 -> 123.5; 1.5 -> 1.5; 1,5 -> 1; -.5 -> -0.5; - 7 -> -7; "
        "+3 -> 3; 1.2.3 -> 1.2; 1e3 -> 1000; 1D-2x -> 0.01; 1e -> 1; 1 e + 2 -> 100; 1e+x -> 1; &H1F -> 31; "
        "&hffff -> -1; &HFFFF& -> 65535; &H8000 -> -32768; &H1 0g -> 16; &HFFFFFFFF -> -1; &H10000 -> 65536; "
        "&O17 -> 15; & -> 0; &H -> 0; $5 -> 0; (5) -> 0; --5 -> 0; 1e-999 -> 0; "
        "-1e999 -> -1.79769313486232E+308; 1e99999999999999999999 -> 1.79769313486232E+308",
        [](const Text& text) { return ToInvariantText(ValPrefix(text)).ToUtf8(); });
}

}  // namespace
}  // namespace ov
