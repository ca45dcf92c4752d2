#include "platform/automation/conversions.h"
#include "platform/format/format.h"
#include "platform/format/picture_testing.h"
#include "support/scoped_settings.h"

namespace ov {
namespace {

using ::ov::testing::ScopedLocale;

// From the language's documentation.
TEST(DatePicture, WritesTheDocumentedSamples) {
    const ScopedLocale english("en-US");
    ExpectFormats(FromCalendar(1958, 12, 7, 20, 50, 35),
                  "m/d/yy -> 12/7/58; d-mmm -> 7-Dec; d-mmmm-yy -> 7-December-58; d mmmm -> 7 December; "
                  "mmmm yy -> December 58; hh:mm AM/PM -> 08:50 PM; h:mm:ss a/p -> 8:50:35 p; h:mm -> 20:50; "
                  "h:mm:ss -> 20:50:35; m/d/yy h:mm -> 12/7/58 20:50");
    ExpectFormats(FromCalendar(1993, 1, 27, 17, 4, 23),
                  "h:m:s -> 17:4:23; hh:mm:ss AMPM -> 05:04:23 PM; dddd, mmm d yyyy -> Wednesday, Jan 27 1993");
}

TEST(DatePicture, WritesEveryField) {
    const ScopedLocale english("en-US");
    const Date saturday = FromCalendar(2024, 2, 3, 4, 5, 6);
    ExpectFormats(saturday,
                  "d dd ddd dddd -> 3 03 Sat Saturday; ddddd|ttttt -> 2/3/2024|4:05:06 AM; "
                  "dddddd -> Saturday, February 3, 2024; c -> 2/3/2024 4:05:06 AM; w ww q y -> 7 5 1 34; "
                  "m mm mmm mmmm oooo aaaa -> 2 02 Feb February February Saturday; yy yyyy yyy -> 24 2024 2434; "
                  "h hh n nn s ss -> 4 04 5 05 6 06; AM/PM am/pm A/P a/p AMPM ampm -> AM am A a AM AM; "
                  "YYYY-MM-DD HH:NN:SS -> 2024-02-03 04:05:06; yyyymmddhhmmss -> 20240203040506; "
                  "yyyy-mm-dd\"T\"hh:mm:ss\\Z -> 2024-02-03T04:05:06Z");
    // "m" behind hours is minutes, whatever stands between; behind any other field it is the month.
    ExpectFormats(saturday,
                  "hh\"h\" mm\"m\" -> 04h 05m; hh:mmm -> 04:Feb; h:m:m -> 4:5:2; mm:ss -> 02:06; ss mm -> 06 02");
    // Longer runs are split from the left; other characters stand for themselves.
    ExpectFormats(saturday,
                  "ddddddd -> Saturday, February 3, 20243; mmmmmm hhh -> February02 044; "
                  "[yyyy] 0#.%;@ -> [2024] 0#.%;@; tttt a o d -> tttt a o 3");
    ExpectFormats(
        "T45325|c -> 2/3/2024; T0.25|c -> 6:00:00 AM; T0.5|h AM/PM -> 12 PM; T0|h am/pm -> 12 am; T0.75|hh a/p -> 06 "
        "p");
}

TEST(DatePicture, CountsWeeksFromSundayAndTheFirstOfJanuary) {
    const struct {
        int year, month, day;
        const char16_t* text;
    } cases[] = {
        {2023, 1, 1, u"1 1"}, {2023, 1, 7, u"1 7"},    {2023, 1, 8, u"2 1"},    {2022, 1, 1, u"1 7"},
        {2022, 1, 2, u"2 1"}, {2024, 12, 31, u"53 3"}, {2000, 12, 31, u"54 1"},
    };
    for (const auto& [year, month, day, text] : cases) {
        EXPECT_EQ(Format(FromCalendar(year, month, day), u"ww w"), text) << year << '-' << month << '-' << day;
    }
}

TEST(DatePicture, TakesNumbersAndTexts) {
    const ScopedLocale english("en-US");
    ExpectFormats(
        "D45325.5|yyyy-mm-dd hh:mm -> 2024-02-03 12:00; L1|yyyy-mm-dd -> 1899-12-31; "
        "T-1.25|yyyy-mm-dd hh -> 1899-12-29 06; D0.999999|hh:mm:ss d -> 00:00:00 31; T-657434|yyyy -> 0100; "
        "T2958465|yyyy-mm-dd -> 9999-12-31; $3 Feb 2024 16:30|yyyy/mm/dd hh:mm -> 2024/02/03 16:30; "
        "$2/3/2024|yyyy -> 2024; $45325|yyyy -> 2024; $no date|yyyy -> no date; $1e10|yyyy -> 1e10; N|yyyy -> ; "
        "E|yyyy -> ");
    constexpr double kDay = 86400;
    ExpectFormats(90061 / kDay, "hh:mm:ss -> 01:01:01");
    ExpectFormats(359999 / kDay, "hh:mm:ss -> 03:59:59");
}

TEST(DatePicture, KnowsNamesAndFollowsTheLocale) {
    const Date date = FromCalendar(2024, 3, 5, 16, 5, 6);
    {
        const ScopedLocale english("en-US");
        ExpectFormats(date,
                      "General Date -> 3/5/2024 4:05:06 PM; Long Date -> Tuesday, March 5, 2024; "
                      "Medium Date -> 05-Mar-24; Short Date -> 3/5/2024; Long Time -> 4:05:06 PM; "
                      "medium time -> 04:05 PM; SHORT TIME -> 16:05");
    }
    const ScopedLocale german("de-DE");
    ExpectFormats(date,
                  "General Date -> 05.03.2024 16:05:06; Long Date -> Dienstag, 5. März 2024; Short Date -> 05.03.2024; "
                  "Long Time -> 16:05:06; Short Time -> 16:05; dd/mm/yyyy -> 05.03.2024; "
                  "d. mmmm yyyy, dddd -> 5. März 2024, Dienstag");
    ExpectFormats("$05.03.2024|yyyy-mm-dd -> 2024-03-05");
}

}  // namespace
}  // namespace ov
