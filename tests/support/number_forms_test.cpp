#include "support/number_forms.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "platform/automation/errors.h"
#include "support/diagnostics.h"
#include "support/localization.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Number2TechExponent, ChoosesLetterAndPlaces) {
    const ScopedLocale english("en-US");
    const struct {
        double value;
        int digits;
        const char* text;
    } cases[] = {
        {0, 3, "0"},
        {12346, 4, "12.35k"},
        {1234, 3, "1.23k"},
        {12, 3, "12"},
        {12.34, 3, "12.3"},
        {999, 4, "999"},
        {1000, 4, "1000"},  // the logarithm of a power of ten is whole
        {9999, 4, "9999"},
        {10000, 4, "10k"},
        {0.00123, 4, "1.23m"},
        {-5, 3, "-5"},
        {-5.678, 2, "-5.7"},
        {-1234, 3, "-1.23k"},
        {999.96, 4, "1000"},  // rounding does not choose the letter anew
        {999999, 3, "1000k"},
        {0.5, 3, "500m"},
        {0.001, 3, "1m"},
        {0.00099, 3, "990u"},
        {1e-6, 3, "1u"},
        {2e-9, 3, "2n"},
        {3.5e-12, 3, "3.5p"},
        {4.56e-13, 3, "456f"},
        {7e-18, 3, "0.007f"},
        {1.5e6, 3, "1.5M"},
        {2.5e9, 3, "2.5G"},
        {1e12, 3, "1T"},
        {5e17, 3, "500000T"},
        {12345, 4, "12.34k"},  // 1234.5 rounds to even
        {1.25, 2, "1.2"},
        {5, 0, "5"},
        {5, -3, "5"},
        {1.23456, 400, "1.23456"},
        {5, std::numeric_limits<int>::min(), "5"},
        {5, std::numeric_limits<int>::max(), "5"},
    };
    for (const auto& [value, digits, text] : cases) {
        EXPECT_EQ(Number2TechExponent(value, digits).ToUtf8(), text) << value << " with " << digits;
    }
    const ScopedLocale german("de-DE");
    EXPECT_EQ(Number2TechExponent(12346, 4).ToUtf8(), "12,35k");
    EXPECT_NO_THROW(Number2TechExponent(kInfinity, 3));
    EXPECT_NO_THROW(Number2TechExponent(std::numeric_limits<double>::quiet_NaN(), 3));
}

TEST(TechExponent2Number, ReadsLettersAndUnits) {
    const struct {
        const char* locale;
        const char16_t *text, *unit;
        double number;
    } cases[] = {
        {"en-US", u"1.5k", u"", 1500},   {"en-US", u"3mV", u"V", 0.003},     {"en-US", u"3m V  ", u"V", 0.003},
        {"en-US", u"3 m", u"", 0.003},   {"en-US", u"7V", u"V", 7},          {"en-US", u"-2M", u"", -2e6},
        {"en-US", u"4G", u"", 4e9},      {"en-US", u"5u", u"", 5 / 1e6},     {"en-US", u"6n", u"", 6 / 1e9},
        {"en-US", u"7p", u"", 7 / 1e12}, {"en-US", u"8f", u"", 8 / 1e15},    {"en-US", u"1e3", u"", 1000},
        {"en-US", u"5m", u"m", 5},       {"en-US", u"5mm", u"m", 0.005},     {"en-US", u"1,234.5k", u"", 1234500},
        {"de-DE", u"1,5k", u"", 1500},   {"de-DE", u"1.500,5", u"", 1500.5},
    };
    for (const auto& [locale, text, unit, number] : cases) {
        const ScopedLocale scoped(locale);
        EXPECT_DOUBLE_EQ(TechExponent2Number(text, unit), number) << Text(text).ToUtf8();
    }
}

TEST(Number2Scientific, HasTwoDecimalsAndTwoExponentDigits) {
    const ScopedLocale english("en-US");
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0, "0"},
        {1, "1.00E+00"},
        {1234.5, "1.23E+03"},
        {-0.00012, "-1.20E-04"},
        {9.995, "1.00E+01"},
        {9.994, "9.99E+00"},
        {1.125, "1.13E+00"},
        {1e100, "1.00E+100"},
        {1e-300, "1.00E-300"},
        {99999, "1.00E+05"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(Number2Scientific(value).ToUtf8(), text);
    const ScopedLocale german("de-DE");
    EXPECT_EQ(Number2Scientific(1234.5).ToUtf8(), "1,23E+03");
    EXPECT_EQ(Scientific2Number(u"1,23E+03 V ", u"V"), 1230);
    EXPECT_EQ(Scientific2Number(u"-5", u""), -5);
}

TEST(Version, GoesBothWays) {
    const struct {
        const char16_t* text;
        double number;
    } reads[] = {{u"1.2.3", 0x010203},        {u"", 0}, {u"7", 7}, {u"1.300", 556}, {u"1.-1", 255}, {u" 1 . 2 ", 258},
                 {u"1.0.0.0.0", 4294967296.0}};
    for (const auto& [text, number] : reads)
        EXPECT_EQ(Version2Number(text), number) << Text(text).ToUtf8();

    const struct {
        double number;
        int parts;
        const char* text;
    } writes[] = {{0x010203, 3, "1.2.3"}, {0x010203, 2, "2.3"}, {0x010203, 4, "0.1.2.3"},      {0x010203, 0, ""},
                  {0x010203, -1, ""},     {-257, 2, "-1.-1"},   {4294967296.0, 5, "1.0.0.0.0"}};
    for (const auto& [number, parts, text] : writes)
        EXPECT_EQ(Number2Version(number, parts).ToUtf8(), text);
    EXPECT_NO_THROW(Number2Version(kInfinity, 2));
}

TEST(NumberForms, FailuresAreLoggedAndRaised) {
    const ScopedLocale english("en-US");
    const struct {
        std::function<void()> action;
        std::int32_t number;
        const char *source, *description, *line;
    } cases[] = {
        {[] { TechExponent2Number(u"2T", u""); }, 13, "TechExponent2Number", "unsupported exponent 'T'",
         "OV_Model::Module1: TechExponent2Number(): ERROR: unsupported exponent 'T'!\n"},
        {[] { TechExponent2Number(u"2K", u""); }, 13, "TechExponent2Number", "unsupported exponent 'K'",
         "OV_Model::Module1: TechExponent2Number(): ERROR: unsupported exponent 'K'!\n"},
        {[] { TechExponent2Number(u"xk", u""); }, 13, "", "Type mismatch",
         "OV_Model::Module1: TechExponent2Number(): ONERROR: Type mismatch\n"},
        {[] { TechExponent2Number(u" V", u"V"); }, 13, "", "Type mismatch",
         "OV_Model::Module1: TechExponent2Number(): ONERROR: Type mismatch\n"},
        {[] { TechExponent2Number(u"1e999k", u""); }, 6, "", "Overflow",
         "OV_Model::Module1: TechExponent2Number(): ONERROR: Overflow\n"},
        {[] { TechExponent2Number(u"-1e300G", u""); }, 6, "", "Overflow",
         "OV_Model::Module1: TechExponent2Number(): ONERROR: Overflow\n"},
        {[] { Scientific2Number(u"5 k", u"V"); }, 13, "Scientific2Number", "Type mismatch",
         "OV_Model::Module1: Scientific2Number(): ONERROR: Type mismatch\n"},
        {[] { Version2Number(u"1.x"); }, 13, "", "Type mismatch",
         "OV_Model::Version2Number(): Error:Type mismatch,Line:0\n"},
        {[] { Version2Number(u"1."); }, 13, "", "Type mismatch",
         "OV_Model::Version2Number(): Error:Type mismatch,Line:0\n"},
        {[] { Version2Number(u"40000"); }, 6, "", "Overflow", "OV_Model::Version2Number(): Error:Overflow,Line:0\n"},
    };
    const Diagnostics former = GlobalDiagnostics();
    GlobalDiagnostics() = {.debugToOutput = true, .initialised = true};
    for (const auto& [action, number, source, description, line] : cases) {
        ::testing::internal::CaptureStderr();
        try {
            action();
            ADD_FAILURE() << line;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), number) << line;
            EXPECT_EQ(error.source().ToUtf8(), source) << line;
            EXPECT_EQ(error.description().ToUtf8(), description) << line;
        }
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), line);
    }
    GlobalDiagnostics() = former;
}

TEST(CLocalization, FindsSeparatorsOnceAtItsMaking) {
    const struct {
        const char* locale;
        const char16_t *decimal, *group;
    } cases[] = {{"en-US", u".", u","}, {"de-DE", u",", u"."},      {"fr-FR", u",", u"\u202F"},
                 {"de-CH", u".", u"’"}, {"sv-SE", u",", u"\u00A0"}, {"en_US_POSIX", u".", u""}};
    for (const auto& [locale, decimal, group] : cases) {
        const ScopedLocale scoped(locale);
        const CLocalization localization;
        EXPECT_EQ(localization.DecimalChar(), decimal) << locale;
        EXPECT_EQ(localization.ThousandGroupDigit(), group) << locale;
    }
    const ScopedLocale german("de-DE");
    const CLocalization localization;
    const ScopedLocale english("en-US");
    EXPECT_EQ(localization.DecimalChar(), u",");
}

}  // namespace
}  // namespace ov
