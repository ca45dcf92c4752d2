#include "platform/format/format_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/automation/errors.h"
#include "platform/format/round_to_places.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;

// How digits round, and what they are of each type, is told of the pictures.
TEST(FormatNumber, WritesAsManyDecimalsAsAskedFor) {
    const ScopedLocale english("en-US");
    const struct {
        Variant number;
        int decimals;
        const char* text;
    } cases[] = {
        {2.675, 2, "2.68"},
        {-0.125, 2, "-0.13"},
        {0.5, 0, "1"},
        {1.5, 20, "1.50000000000000000000"},
        {-0.004, 2, "0.00"},
        {-0.0, 1, "0.0"},
        {9.995, 2, "10.00"},
        {Decimal(true, 0, 12345, 3), 2, "-12.35"},
        {Currency{-50}, 2, "-0.01"},
        {u" (7) ", 2, "-7.00"},
        {Variant(), 2, "0.00"},
        {true, 0, "-1"},
    };
    for (const auto& [number, decimals, text] : cases) {
        EXPECT_EQ(FormatNumber(number, {.decimals = decimals, .grouping = false}).ToUtf8(), text);
    }
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::max(), {.decimals = 99}).size(), 309u + 102 + 100);
}

TEST(FormatNumber, FollowsStyleAndLocale) {
    const NumberStyle brackets{.brackets = true};
    const NumberStyle bare{.decimals = 2, .leadingDigit = false};
    const struct {
        const char* locale;
        double number;
        NumberStyle style;
        const char16_t* text;
    } cases[] = {
        {"en-US", 1234567.891, {}, u"1,234,567.89"},
        {"en-US", 123456, {.decimals = 0}, u"123,456"},
        {"en-US", 999, {.decimals = 0}, u"999"},
        {"en-US", -1234.5, brackets, u"(1,234.50)"},
        {"en-US", 1234.5, brackets, u"1,234.50"},
        {"en-US", -0.001, brackets, u"0.00"},
        {"en-US", 0.5, bare, u".50"},
        {"en-US", -0.5, bare, u"-.50"},
        {"en-US", 0.999, bare, u"1.00"},
        {"en-US", 0, {.decimals = 0, .leadingDigit = false}, u"0"},
        {"de-DE", -1234567.891, {}, u"-1.234.567,89"},
        {"fr-FR", 1234.5, {}, u"1\u202F234,50"},
        {"de-CH", 1234.5, {}, u"1’234.50"},
        {"hi-IN", 1234567, {}, u"1,234,567.00"},
        {"sv-SE", -1234.5, {}, u"-1\u00A0234,50"},
        {"en_US_POSIX", 1234.5, {}, u"1234.50"},
    };
    for (const auto& [locale, number, style, text] : cases) {
        const ScopedLocale scoped(locale);
        EXPECT_EQ(FormatNumber(number, style).ToUtf8(), Text(text).ToUtf8()) << locale << " " << number;
    }
}

TEST(FormatNumber, RaisesForWhatIsNoNumber) {
    const struct {
        Variant value;
        NumberStyle style;
        std::int32_t number;
    } cases[] = {
        {Variant::Null(), {}, 94},
        {u"abc", {}, 13},
        {u"", {}, 13},
        {ErrorCode{7}, {}, 13},
        {Variant::Nothing(), {}, 91},
        {Variant::Missing(), {}, 448},
        {1.0, {.decimals = -1}, 5},
        {1.0, {.decimals = 100}, 5},
    };
    for (const auto& [value, style, number] : cases) {
        try {
            FormatNumber(value, style);
            ADD_FAILURE() << number;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), number);
        }
    }
    EXPECT_NO_THROW(FormatNumber(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_NO_THROW(FormatNumber(-std::numeric_limits<float>::infinity()));
}

TEST(RoundToPlaces, RoundsHalvesToEven) {
    const struct {
        double value;
        int places;
        double rounded;
    } cases[] = {
        {0.125, 2, 0.12},   {0.375, 2, 0.38}, {2.675, 2, 2.68},   {-2.5, 0, -2},     {3.5, 0, 4},
        {12.346, 2, 12.35}, {1.5, -3, 2},     {1e300, 10, 1e300}, {1.25, 300, 1.25}, {1.25, 400, 1.25},
        {5e-324, 5, 0},     {0, 400, 0},      {1e-10, 12, 1e-10},
    };
    for (const auto& [value, places, rounded] : cases)
        EXPECT_EQ(RoundToPlaces(value, places), rounded) << value;
    EXPECT_TRUE(std::isnan(RoundToPlaces(std::numeric_limits<double>::quiet_NaN(), 2)));
}

}  // namespace
}  // namespace ov
