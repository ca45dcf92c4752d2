#include "platform/script/builtins/builtin_call.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;
using ov::testing::ScopedLocale;

TEST(FormattingBuiltins, FormatNumberTakesItsChoices) {
    const ScopedLocale english("en-US");
    CheckCalls({
        {u"FormatNumber", {1234.567}, "String 1,234.57"},
        {u"FormatNumber", {1234.567, 1}, "String 1,234.6"},
        {u"FormatNumber", {1234.567, -1, -1, -1, 0}, "String 1234.57"},
        {u"FormatNumber", {-0.5, 2, 0}, "String -.50"},
        {u"FormatNumber", {-0.5, 2, -2, -1}, "String (0.50)"},
        {u"FormatNumber", {-0.5, kMissing, kMissing, -1}, "String (0.50)"},
        {u"FormatNumber", {u"12"}, "String 12.00"},
        {u"FormatNumber", {Held(2.5), 0}, "String 3"},
        {u"FormatNumber", {1, -2}, "error 5"},
        {u"FormatNumber", {1, 100}, "error 5"},
        {u"FormatNumber", {1, 2, 1}, "error 5"},
        {u"FormatNumber", {1, 2, -3}, "error 5"},
        {u"FormatNumber", {kNull}, "error 13"},
        {u"FormatNumber", {Held(kNull)}, "error 13"},
        {u"FormatNumber", {u"abc"}, "error 13"},
        {u"FormatNumber", {1, kNull}, "error 94"},
    });
}

TEST(FormattingBuiltins, FormatPercentAndCurrency) {
    const ScopedLocale english("en-US");
    CheckCalls({
        {u"FormatPercent", {0.0625}, "String 6.25%"},
        {u"FormatPercent", {0.285, 0}, "String 29%"},
        {u"FormatPercent", {-12.5, 0, -1, -1}, "String (1,250%)"},
        {u"FormatPercent", {-0.001, 2, 0}, "String -.10%"},
        {u"FormatPercent", {Currency{5}, 2}, "String 0.05%"},
        {u"FormatPercent", {0.29f, 4}, "String 29.0000%"},
        {u"FormatPercent", {Decimal(false, 0, 12345, 5), 3}, "String 12.345%"},
        {u"FormatPercent", {Variant()}, "String 0.00%"},
        {u"FormatPercent", {1e307}, "error 6"},
        {u"FormatPercent", {kNull}, "error 13"},
        {u"FormatCurrency", {1234.5}, "String $1,234.50"},
        {u"FormatCurrency", {-1234.5}, "String ($1,234.50)"},
        {u"FormatCurrency", {-1234.5, 0, -2, 0, 0}, "String -$1235"},
        {u"FormatCurrency", {-0.001}, "String $0.00"},
        {u"FormatCurrency", {-0.5, -1, 0}, "String ($.50)"},
    });
    const ScopedLocale german("de-DE");
    CheckCalls({
        {u"FormatPercent", {12.5}, "String 1.250,00%"},
        {u"FormatCurrency", {-1234.5}, "String -1.234,50 €"},
        {u"FormatCurrency", {-1234.5, 2, -2, -1}, "String (1.234,50 €)"},
    });
    const ScopedLocale japanese("ja-JP");
    const std::string yen = Call(u"FormatCurrency", {-1234});
    EXPECT_EQ(yen.substr(0, 8), "String -");
    EXPECT_EQ(yen.substr(yen.size() - 8), "1,234.00");
}

TEST(FormattingBuiltins, FormatDateTime) {
    const ScopedLocale english("en-US");
    const Variant moment = Day(2024, 3, 5, 15, 4, 9);
    CheckCalls({
        {u"FormatDateTime", {moment}, "String 3/5/2024 3:04:09 PM"},
        {u"FormatDateTime", {moment, 0}, "String 3/5/2024 3:04:09 PM"},
        {u"FormatDateTime", {Day(2024, 3, 5)}, "String 3/5/2024"},
        {u"FormatDateTime", {Day(1899, 12, 30, 15)}, "String 3:00:00 PM"},
        {u"FormatDateTime", {moment, 1}, "String Tuesday, March 5, 2024"},
        {u"FormatDateTime", {moment, 2}, "String 3/5/2024"},
        {u"FormatDateTime", {moment, 3}, "String 3:04:09 PM"},
        {u"FormatDateTime", {moment, 4}, "String 15:04"},
        {u"FormatDateTime", {Day(2024, 3, 5), 4}, "String 00:00"},
        {u"FormatDateTime", {u"3/5/2024", 1}, "String Tuesday, March 5, 2024"},
        {u"FormatDateTime", {moment, 5}, "error 5"},
        {u"FormatDateTime", {moment, -1}, "error 5"},
        {u"FormatDateTime", {u"abc"}, "error 13"},
        {u"FormatDateTime", {kNull}, "error 13"},
    });
    const ScopedLocale german("de-DE");
    CheckCalls({
        {u"FormatDateTime", {moment}, "String 05.03.2024 15:04:09"},
        {u"FormatDateTime", {moment, 1}, "String Dienstag, 5. März 2024"},
        {u"FormatDateTime", {moment, 4}, "String 15:04"},
    });
}

}  // namespace
}  // namespace ov::vbscript
