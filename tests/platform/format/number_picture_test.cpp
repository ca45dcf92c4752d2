#include <limits>

#include "platform/automation/conversions.h"
#include "platform/format/format.h"
#include "platform/format/picture_testing.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;

// From the language's documentation.
TEST(NumberPicture, WritesTheDocumentedSamples) {
    const ScopedLocale english("en-US");
    ExpectFormats(5.0,
                  " -> 5; 0 -> 5; 0.00 -> 5.00; #,##0 -> 5; $#,##0;($#,##0) -> $5; $#,##0.00;($#,##0.00) -> $5.00; "
                  "0% -> 500%; 0.00% -> 500.00%; 0.00E+00 -> 5.00E+00; 0.00E-00 -> 5.00E00");
    ExpectFormats(-5.0,
                  " -> -5; 0 -> -5; 0.00 -> -5.00; #,##0 -> -5; $#,##0;($#,##0) -> ($5); "
                  "$#,##0.00;($#,##0.00) -> ($5.00); 0% -> -500%; 0.00E+00 -> -5.00E+00; 0.00E-00 -> -5.00E00");
    ExpectFormats(0.5,
                  " -> 0.5; 0 -> 1; 0.00 -> 0.50; #,##0 -> 1; $#,##0;($#,##0) -> $1; 0% -> 50%; 0.00% -> 50.00%; "
                  "0.00E+00 -> 5.00E-01; 0.00E-00 -> 5.00E-01");
    ExpectFormats(
        R"(D5459.4|##,##0.00 -> 5,459.40; D334.9|###0.00 -> 334.90; D100000000|##0,, -> 100; D1900000|0,, -> 2; )"
        R"(D1900000|0,,.0 -> 1.9; D19|\####\# -> #19#; D19|"##"###"##" -> ##19##; D2.145|#.00 -> 2.15; )"
        R"(D.001|0.00E+00 -> 1.00E-03; D-7|$#,##0;;\Z\e\r\o -> -$7; D0|$#,##0;;\Z\e\r\o -> Zero)");
}

TEST(NumberPicture, PlacesDigits) {
    const ScopedLocale english("en-US");
    ExpectFormats(7.0, R"(000 -> 007; ### -> 7; 0## -> 007; "#"0\0\ -> #70; 0"open -> 7open; {0} -> {7})");
    ExpectFormats(
        "D12345|0 -> 12345; D0|# -> ; D0|#.## -> .; D0.25|#.## -> .25; D5|#.## -> 5.; D5.5|0.0## -> 5.5; "
        "D5.5|0.##0 -> 5.500; D5.0456|0.0## -> 5.046; D0.5|.00 -> .50; D10.23|$.00 -> $10.23; D1234|. -> 1234.; "
        "D1.5|0.0.0 -> 1.5.0");
    // Literals between placeholders stay where they are; the first placeholder takes what is too long.
    ExpectFormats(
        "D5551234567|(###) ###-#### -> (555) 123-4567; D1234567|(###) ###-#### -> () 123-4567; "
        "D15551234567|(000) 000-0000 -> (1555) 123-4567; D12.5|0 \"h\" .00 -> 12 h .50; D42|0 m/s -> 42 m/s; "
        "D42|0 °C -> 42 °C; D1230|00:00 -> 12:30; D123|正;負;零 -> 正");
}

TEST(NumberPicture, GroupsAndScales) {
    const ScopedLocale english("en-US");
    ExpectFormats(1234567.0,
                  "#,##0 -> 1,234,567; #,# -> 1,234,567; 0,0.0 -> 1,234,567.0; #,,# -> 1,234,567; #,##0, -> 1,235; "
                  "0.0, -> 1234567.0; 0,.00 -> 1234.57; ,0.00 -> 1234.57; 0,% -> 123457%");
    ExpectFormats(
        "D5|0,000 -> 0,005; D999|#,##0 -> 999; D1234567890|#,##0,,.0 -> 1,234.6; D499999|0,, -> 0; "
        "D0.1234|0.0% -> 12.3%; D1.23|0.00%% -> 12300.00%%; D0.5|\\%0 -> %1; D0.5|%0 -> %50");
}

TEST(NumberPicture, RoundsDecimalDigitsHalfAwayFromZero) {
    const ScopedLocale english("en-US");
    ExpectFormats(
        "D2.5|0 -> 3; D-2.5|0 -> -3; D2.675|0.00 -> 2.68; D1.005|0.00 -> 1.01; D0.075|$#.## -> $.08; "
        "D999.995|0.00 -> 1000.00; D0.05|0.0 -> 0.1; D0.049|0.0 -> 0.0; D0.004|#.## -> .; D9.9999|0.00E+00 -> "
        "1.00E+01; "
        "D1e22|0 -> 10000000000000000000000; D123456789012345678|#,##0 -> 123,456,789,012,346,000; "
        "D1e-300|0.00 -> 0.00; D5e-324|0.00E+00 -> 4.94E-324; "
        "D0.49999999999999994|0 -> 1; D0.4999999|0 -> 0");
    // The sign is that of the number, whatever is left of it.
    ExpectFormats("D-0.001|0.00 -> -0.00; D-0.001|0.00;(0.00) -> (0.00); D-0.0|0.0 -> 0.0");
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), u"0.0").size(), 311u);
}

TEST(NumberPicture, ChoosesASectionByTheValue) {
    const ScopedLocale english("en-US");
    ExpectFormats(
        "D1.5|0.0;(0.0);zero;#null -> 1.5; D-1.5|0.0;(0.0);zero;#null -> (1.5); D0|0.0;(0.0);zero;#null -> zero; "
        "N|0.0;(0.0);zero;#null -> null; E|0.0;(0.0);zero;#null -> null; N|0.0;(0.0);zero -> ; E|0.0 -> ; "
        "N|0;0;0;00 -> 00; D0|0.0;(0.0) -> 0.0; D1.5|;(0) -> ; "
        "D1|\"a;b\"0;\\;- -> a;b1; D-1|0;\\;0 -> ;1; D1|0;0;0;0;00;0 -> 1; D-1|0;00.0 ;0 -> 01.0 ");
    EXPECT_EQ(Format(-1.5, u"0.0;"), u"-1.5");
    EXPECT_EQ(Format(0.0, u"0.0;;"), u"0.0");
}

TEST(NumberPicture, WritesExponents) {
    const ScopedLocale english("en-US");
    ExpectFormats(12345.0,
                  "0.0e+0 -> 1.2e+4; 00.00E+00 -> 12.35E+03; ##0.0E+0 -> 123.5E+2; 0E+0 -> 1E+4; "
                  "0.##E+## -> 1.23E+4; 0.00E+00 \"V\" -> 1.23E+04 V");
    ExpectFormats(
        "D0.00012345|.00E+000 -> .12E-003; D0.00012345|0.00e-00 -> 1.23e-04; D1e100|0E+0 -> 1E+100; "
        "D0|0.00E+00 -> 0.00E+00; D0|#.##E+# -> .E+0; D0.05|0.0E+0% -> 5.0E+0%");
    // No exponent without a sign, a placeholder behind it, or a number before it; nor a second one.
    ExpectFormats(5.0, "0E0 -> 0E5; 0E+ -> 5E+; E+0 -> E+5; 0E+0E- -> 5E+0E-");
}

TEST(NumberPicture, KnowsNamesInAnyCase) {
    const ScopedLocale english("en-US");
    ExpectFormats(
        "D1234.5678|General Number -> 1234.5678; $1,234,567.80|general number -> 1234567.8; B1|General Number -> -1; "
        "T1.5|General Number -> 1.5; N|General Number -> ; $abc|General Number -> abc; "
        "D1234567|Currency -> $1,234,567.00; D-0.5|CURRENCY -> ($0.50); $abc|Currency -> abc; E|Currency -> ; "
        "D1234.5|Fixed -> 1234.50; D0.5|fixed -> 0.50; D1234.5|Standard -> 1,234.50; D0.1234|Percent -> 12.34%; "
        "D1234567|Scientific -> 1.23E+06; D-3.14|Yes/No -> Yes; D0|yes/no -> No; B1|True/False -> True; "
        "L0|True/False -> False; D1|On/Off -> On; B0|on/off -> Off");
}

TEST(NumberPicture, TakesEveryTypeExactly) {
    const ScopedLocale english("en-US");
    ExpectFormats(
        "Y255|0.0 -> 255.0; I-32768|#,##0 -> -32,768; L-2147483648|0 -> -2147483648; "
        "S1.1|0.0000000000 -> 1.1000000000; S0.015|0.00 -> 0.02; C-0.005|0.00 -> -0.01; C-922337203685477.5808|0.0000 "
        "-> -922337203685477.5808; "
        "M79228162514264337593543950335|#,##0 -> 79,228,162,514,264,337,593,543,950,335; "
        "M-7.9228162514264337593543950335|0.0############################## -> -7.9228162514264337593543950335; "
        "M2.5|0 -> 3; B1|0 -> -1; T1.25|0.00 -> 1.25; $ 1,234.56 |0.0 -> 1234.6; $&H1F|0 -> 31; "
        "$12.5 mA|0.00 -> 12.5 mA; $|0.00 -> ");
    const Variant infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Format(infinity, u"0.00"), ToText(infinity));
    const Variant nothing = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(Format(nothing, u"0.00"), ToText(nothing));
}

TEST(NumberPicture, FollowsTheLocale) {
    const struct {
        const char* locale;
        const char* cases;
    } rows[] = {
        {"de-DE",
         "D1234567.891|#,##0.00 -> 1.234.567,89; $1.234,5|0.00 -> 1234,50; D0.5|Percent -> 50,00%; "
         "D1234.5|Currency -> 1.234,50 €; D-1234.5|Currency -> -1.234,50 €; D12345|00:00/0 -> 12:34.5"},
        {"en-GB", "D-5|Currency -> -£5.00"},
        {"fr-FR", "D1234.5|Standard -> 1\u202F234,50"},
        {"en_US_POSIX", "D1234.5|Standard -> 1234.50"},
    };
    for (const auto& [locale, cases] : rows) {
        const ScopedLocale scoped(locale);
        ExpectFormats(cases);
    }
}

}  // namespace
}  // namespace ov
