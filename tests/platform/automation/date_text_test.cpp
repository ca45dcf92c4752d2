#include "platform/automation/date_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <limits>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

/// Digits of a date and time, less midnight, or "none": "2024-03-05 14:30:00".
std::string Show(std::optional<Date> date) {
    if (!date) return "none";
    const CalendarTime t = ToCalendar(*date);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    const std::string shown = text;
    return shown.ends_with(" 00:00:00") ? shown.substr(0, 10) : shown;
}

int ThisYear() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    return localtime_r(&now, &local)->tm_year + 1900;
}

std::string Reading(std::u16string_view text) {
    return Show(ReadDate(text));
}

TEST(DateTextTest, ReadsDatesInTheLocaleOrder) {
    constexpr std::string_view kEverywhere =
        "2024-03-05 -> 2024-03-05; 2024-03-05T14:30:05 -> 2024-03-05 14:30:05; "
        "2024-03-05 14:30:04.9 -> 2024-03-05 14:30:05; 2024/3/5 2:30 pm -> 2024-03-05 14:30:00; "
        "12:15 am 2024-03-05 -> 2024-03-05 00:15:00; March 5, 2024 -> 2024-03-05; "
        "5 march 2024, 23:59:59 -> 2024-03-05 23:59:59; 5-Mar-29 -> 2029-03-05; 5 Mar 30 -> 1930-03-05; "
        "SEPT 2024 -> 2024-09-01; 29/2/2024 -> 2024-02-29; 2/29/2024 -> 2024-02-29; 31/12/99 -> 1999-12-31; "
        "14:30 -> 1899-12-30 14:30:00; 12 pm -> 1899-12-30 12:00:00; 7a -> 1899-12-30 07:00:00; "
        "1/1/100 -> 0100-01-01; 9999-12-31 23:59:59 -> 9999-12-31 23:59:59; 3/2024 -> 2024-03-01";
    ExpectEach(kEverywhere, Reading);
    ExpectEach("3/5/2024 -> 2024-03-05; 25/3/2024 -> 2024-03-25", Reading);
    const std::string year = std::to_string(ThisYear());
    EXPECT_EQ(Show(ReadDate(u"1/2")), year + "-01-02");
    EXPECT_EQ(Show(ReadDate(u"25/3 8:05")), year + "-03-25 08:05:00");
    EXPECT_EQ(Show(ReadDate(u"May 7")), year + "-05-07");
    EXPECT_EQ(Show(ReadDate(u"1.5")), "none");

    ScopedLocale german("de-DE");
    ExpectEach(kEverywhere, Reading);
    ExpectEach(
        "3.5.2024 -> 2024-05-03; 3. 5. 24 -> 2024-05-03; 3.25.2024 -> 2024-03-25; 5. März 2024 -> 2024-03-05; "
        "5. MAI 2024 -> 2024-05-05; 24. Dez. 2024 18:00 -> 2024-12-24 18:00:00",
        Reading);
    EXPECT_EQ(Show(ReadDate(u"1.2.")), year + "-02-01");
}

TEST(DateTextTest, KnowsTheMonthsOfTheLocale) {
    ScopedLocale french("fr-FR");
    ExpectEach(
        "5 décembre 2024 -> 2024-12-05; 5 déc. 2024 -> 2024-12-05; 5 juil. 2024 -> 2024-07-05; "
        "5 july 2024 -> 2024-07-05; 5 jui 2024 -> none",
        Reading);  // "jui" begins two names
}

TEST(DateTextTest, RefusesWhatIsNoDate) {
    ExpectEach(
        "; 5; 2024; abc; 1,5; 1,000; -5; 1/2/; /1/2; 1//2; 1/2/3/4; 30/2/2024x; 2024-02-30; 32/13/2024; "
        "1 2 2024; 1/2-2024; March; May May 5; 24:00; 12:60; 12:30:60; 13:00 am; 1:2:3:4; 1:2 3:4; 1/1/99999; "
        "1/1/10000; 1/1/099; Ma 5, 2024; Ju 1 2024; 5 Xyz 2024; Tuesday, March 5, 2024; $5; 2024-03-05X10:00; "
        "12:",
        Reading);
}

TEST(DateTextTest, WritesTheLocalesForms) {
    const Date afternoon = FromCalendar(2024, 3, 5, 14, 5, 9);
    const Date midnight = FromCalendar(2024, 12, 31);
    EXPECT_EQ(DateToText(afternoon), u"3/5/2024 2:05:09 PM");
    EXPECT_EQ(DateToText(midnight), u"12/31/2024");
    EXPECT_EQ(DateToText({0.5}), u"12:00:00 PM");
    EXPECT_EQ(DateToText({0}), u"12:00:00 AM");
    EXPECT_EQ(DateToText({-1.25}), u"12/29/1899 6:00:00 AM");
    ScopedLocale german("de-DE");
    EXPECT_EQ(DateToText(afternoon), u"05.03.2024 14:05:09");
    EXPECT_EQ(DateToText(midnight), u"31.12.2024");
    EXPECT_EQ(DateToText({0}), u"00:00:00");
}

TEST(DateTextTest, TextsReadBackInManyLocales) {
    for (const char* name : {"en-US", "en-GB", "de-DE", "de-CH", "fr-FR", "it-IT", "es-ES", "sv-SE", "da-DK", "fi-FI",
                             "nl-NL", "pl-PL", "cs-CZ", "sk-SK", "hu-HU", "ru-RU", "ja-JP", "zh-CN", "pt-BR"}) {
        ScopedLocale locale(name);
        for (double days : {45356.60427083333, 45290.0, 2.75, -2.75, 0.25, 0.0}) {
            const Text text = DateToText({days});
            EXPECT_EQ(Show(ReadDate(text)), Show(Date{days})) << name << ": " << text.ToUtf8();
        }
    }
}

TEST(CalendarTest, SplitsAndJoins) {
    EXPECT_EQ(Show(Date{-1.5}), "1899-12-29 12:00:00");
    EXPECT_EQ(Show(Date{0.99999999}), "1899-12-31");  // rounds to the next day
    EXPECT_EQ(Show(Date{-0.99999999}), "1899-12-31");
    EXPECT_EQ(Show(Date{1e300}), "9999-12-31 23:59:59");
    EXPECT_EQ(Show(Date{std::nan("")}), "1899-12-30");
    EXPECT_EQ(Show(FromCalendar(2024, 14, 1)), "2025-02-01");
    EXPECT_EQ(Show(FromCalendar(2024, 3, 0)), "2024-02-29");
    EXPECT_EQ(Show(FromCalendar(2024, 0, -30, 25, 61, 61)), "2023-11-01 02:02:01");
    EXPECT_EQ(FromCalendar(1899, 12, 30, -1).days, -1 - 23.0 / 24);
    EXPECT_EQ(FromCalendar(1899, 12, 29, 6).days, -1.25);
    EXPECT_EQ(FromCalendar(100, 1, 1).days, kFirstDay);
    EXPECT_EQ(FromCalendar(9999, 12, 31).days, kLastDay);
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_EQ(ErrorOf([] { FromCalendar(99, 12, 31); }), 5);
    EXPECT_EQ(ErrorOf([] { FromCalendar(10000, 1, 1); }), 5);
    EXPECT_EQ(ErrorOf([] { FromCalendar(kMost, kMost, kMost); }), 5);
    EXPECT_EQ(ErrorOf([] { FromCalendar(-kMost, -kMost, -kMost); }), 5);
    EXPECT_EQ(ErrorOf([] { FromCalendar(2000, 1, 1, 1e308, 1e308); }), 5);
    EXPECT_EQ(ErrorOf([] { FromCalendar(2000, 1, 1, std::nan("")); }), 5);

    const CalendarTime leapDay = ToCalendar(FromCalendar(2024, 12, 31));
    EXPECT_EQ(leapDay.weekday, 3);  // a Tuesday
    EXPECT_EQ(leapDay.dayOfYear, 366);
}

}  // namespace
}  // namespace ov
