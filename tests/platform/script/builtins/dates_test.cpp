#include <cmath>

#include "platform/script/builtins/builtin_call.h"
#include "platform/system/clock.h"
#include "support/scoped_settings.h"

namespace ov::vbscript {
namespace {

using namespace testing;
using ov::testing::ScopedLocale;

TEST(DateBuiltins, TellTheClock) {
    TestContext context;
    const auto read = [&](std::u16string_view name) { return FindBuiltin(name)->call(context, {}); };
    // Read again where midnight or a second's end came in between.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const Date before = Now();
        const Variant now = read(u"Now");
        const Variant date = read(u"Date");
        const Variant time = read(u"Time");
        const Variant timer = read(u"Timer");
        if (!(before == Now())) continue;
        EXPECT_EQ(now.AsDate(), before);
        EXPECT_EQ(date.AsDate().days, std::floor(before.days));
        EXPECT_NEAR(time.AsDate().days, before.days - std::floor(before.days), 1e-9);
        ASSERT_EQ(timer.Type(), VarType::Single);
        EXPECT_NEAR(static_cast<double>(timer.AsSingle()), time.AsDate().days * 86400, 2);
        return;
    }
    FAIL() << "the clock went on at each attempt";
}

TEST(DateBuiltins, TakeDatesApart) {
    const ScopedLocale english("en-US");
    const Variant moment = Day(2024, 2, 29, 23, 59, 58);
    CheckCalls({
        {u"Year", {moment}, "Integer 2024"},
        {u"Month", {moment}, "Integer 2"},
        {u"Day", {moment}, "Integer 29"},
        {u"Hour", {moment}, "Integer 23"},
        {u"Minute", {moment}, "Integer 59"},
        {u"Second", {moment}, "Integer 58"},
        {u"Weekday", {moment}, "Integer 5"},
        {u"Weekday", {moment, 2}, "Integer 4"},
        {u"Weekday", {moment, 5}, "Integer 1"},
        {u"Weekday", {moment, 0}, "Integer 5"},
        {u"Weekday", {moment, 8}, "error 5"},
        {u"Weekday", {moment, -1}, "error 5"},
        {u"Weekday", {Day(100, 1, 1)}, "Integer 6"},
        {u"Weekday", {Day(9999, 12, 31), 7}, "Integer 7"},
        {u"Weekday", {kNull}, "Null"},
        {u"Year", {kNull}, "Null"},
        {u"Year", {Held(kNull)}, "Null"},
        {u"Year", {u"3/15/2020"}, "Integer 2020"},
        {u"Hour", {u"6:30 PM"}, "Integer 18"},
        {u"Day", {Variant()}, "Integer 30"},
        {u"Month", {1}, "Integer 12"},
        {u"Hour", {-1.25}, "Integer 6"},
        {u"Day", {u"no date"}, "error 13"},
        {u"Year", {1e9}, "error 6"},
    });
}

TEST(DateBuiltins, PutDatesTogether) {
    const ScopedLocale english("en-US");
    CheckCalls({
        {u"DateSerial", {2024, 2, 29}, "Date 2024-02-29 00:00:00"},
        {u"DateSerial", {2023, 14, 0}, "Date 2024-01-31 00:00:00"},
        {u"DateSerial", {2024, 3, -29}, "Date 2024-01-31 00:00:00"},
        {u"DateSerial", {2024, 0, 1}, "Date 2023-12-01 00:00:00"},
        {u"DateSerial", {29, 1, 1}, "Date 1929-01-01 00:00:00"},
        {u"DateSerial", {99, 12, 32}, "Date 2000-01-01 00:00:00"},
        {u"DateSerial", {100, 1, 1}, "Date 100-01-01 00:00:00"},
        {u"DateSerial", {100, 1, 0}, "error 5"},
        {u"DateSerial", {9999, 12, 32}, "error 5"},
        {u"DateSerial", {-1, 1, 1}, "error 5"},
        {u"DateSerial", {40000, 1, 1}, "error 6"},
        {u"DateSerial", {2024, kNull, 1}, "error 94"},
        {u"DateSerial", {u"2024", 1.5, 1}, "Date 2024-02-01 00:00:00"},
        {u"TimeSerial", {12 - 6, -15, 0}, "Date 1899-12-30 05:45:00"},
        {u"TimeSerial", {25, 0, 0}, "Date 1899-12-31 01:00:00"},
        {u"TimeSerial", {0, 0, 3661}, "Date 1899-12-30 01:01:01"},
        {u"TimeSerial", {0, 0, 40000}, "error 6"},
        {u"DateValue", {u"February 12, 1969 10:15"}, "Date 1969-02-12 00:00:00"},
        {u"DateValue", {Day(2024, 1, 2, 3, 4, 5)}, "Date 2024-01-02 00:00:00"},
        {u"DateValue", {u"10:15"}, "Date 1899-12-30 00:00:00"},
        {u"DateValue", {u"5.5"}, "error 13"},
        {u"DateValue", {u"x"}, "error 13"},
        {u"DateValue", {kNull}, "error 94"},
        {u"TimeValue", {u"1/2/2024 4:35:17 PM"}, "Date 1899-12-30 16:35:17"},
        {u"TimeValue", {Day(1800, 1, 2, 18)}, "Date 1899-12-30 18:00:00"},
        {u"TimeValue", {kNull}, "Null"},
        {u"TimeValue", {u"25:00"}, "error 13"},
    });
}

TEST(DateBuiltins, NameMonthsAndDays) {
    const ScopedLocale english("en-US");
    CheckCalls({
        {u"MonthName", {10}, "String October"},
        {u"MonthName", {10, true}, "String Oct"},
        {u"MonthName", {0}, "error 5"},
        {u"MonthName", {13}, "error 5"},
        {u"MonthName", {kNull}, "error 94"},
        {u"WeekdayName", {6, true}, "String Fri"},
        {u"WeekdayName", {1}, "String Sunday"},
        {u"WeekdayName", {1, false, 2}, "String Monday"},
        {u"WeekdayName", {7, false, 2}, "String Sunday"},
        {u"WeekdayName", {1, kMissing, 7}, "String Saturday"},
        {u"WeekdayName", {0}, "error 5"},
        {u"WeekdayName", {8}, "error 5"},
        {u"WeekdayName", {1, false, 8}, "error 5"},
    });
    const ScopedLocale german("de-DE");
    CheckCalls({
        {u"MonthName", {3}, "String März"},
        {u"WeekdayName", {1, false, 0}, "String Montag"},
        {u"Weekday", {Day(2024, 1, 1), 0}, "Integer 1"},
    });
}

TEST(IntervalBuiltins, DateAdd) {
    const ScopedLocale english("en-US");
    const Variant january = Day(2023, 1, 31, 12, 30);
    CheckCalls({
        {u"DateAdd", {u"m", 1, january}, "Date 2023-02-28 12:30:00"},
        {u"DateAdd", {u"m", 13, january}, "Date 2024-02-29 12:30:00"},
        {u"DateAdd", {u"m", -2, january}, "Date 2022-11-30 12:30:00"},
        {u"DateAdd", {u"q", 1, january}, "Date 2023-04-30 12:30:00"},
        {u"DateAdd", {u"yyyy", 1, Day(2024, 2, 29)}, "Date 2025-02-28 00:00:00"},
        {u"DateAdd", {u"YYYY", -1, january}, "Date 2022-01-31 12:30:00"},
        {u"DateAdd", {u"d", 1, january}, "Date 2023-02-01 12:30:00"},
        {u"DateAdd", {u"y", -31, january}, "Date 2022-12-31 12:30:00"},
        {u"DateAdd", {u"w", 2, january}, "Date 2023-02-02 12:30:00"},
        {u"DateAdd", {u"ww", 2, january}, "Date 2023-02-14 12:30:00"},
        {u"DateAdd", {u"h", 12, january}, "Date 2023-02-01 00:30:00"},
        {u"DateAdd", {u"n", -31, january}, "Date 2023-01-31 11:59:00"},
        {u"DateAdd", {u"s", 86400 * 2, january}, "Date 2023-02-02 12:30:00"},
        {u"DateAdd", {u"s", 1, Day(1899, 12, 29, 23, 59, 59)}, "Date 1899-12-30 00:00:00"},
        {u"DateAdd", {u"h", -1, Day(1899, 12, 30)}, "Date 1899-12-29 23:00:00"},
        {u"DateAdd", {u"d", -1, Day(1900, 1, 1, 6)}, "Date 1899-12-31 06:00:00"},
        {u"DateAdd", {u"d", -5, Day(1900, 1, 1, 6)}, "Date 1899-12-27 06:00:00"},
        {u"DateAdd", {u"d", 1.5, january}, "Date 2023-02-02 12:30:00"},
        {u"DateAdd", {u"d", 0.5, january}, "Date 2023-01-31 12:30:00"},
        {u"DateAdd", {u"d", u"1", u"1/31/2023"}, "Date 2023-02-01 00:00:00"},
        {u"DateAdd", {u"m", 1, Day(9999, 11, 30)}, "Date 9999-12-30 00:00:00"},
        {u"DateAdd", {u"m", 1, Day(9999, 12, 1)}, "error 5"},
        {u"DateAdd", {u"d", -1, Day(100, 1, 1)}, "error 5"},
        {u"DateAdd", {u"s", 1e300, january}, "error 5"},
        {u"DateAdd", {u"yyyy", 1e300, january}, "error 5"},
        {u"DateAdd", {u"x", 1, january}, "error 5"},
        {u"DateAdd", {u"d", kNull, january}, "error 94"},
        {u"DateAdd", {kNull, 1, january}, "error 94"},
        {u"DateAdd", {u"d", 1, kNull}, "Null"},
        {u"DateAdd", {u"d", 1, u"no date"}, "error 13"},
    });
}

TEST(IntervalBuiltins, DateDiffCountsBoundaries) {
    const ScopedLocale english("en-US");
    const Variant newYearsEve = Day(2023, 12, 31, 23, 59, 59);  // a Sunday
    const Variant newYear = Day(2024, 1, 1);
    CheckCalls({
        {u"DateDiff", {u"yyyy", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"q", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"m", newYear, newYearsEve}, "Long -1"},
        {u"DateDiff", {u"d", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"y", newYear, newYearsEve}, "Long -1"},
        {u"DateDiff", {u"h", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"n", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"s", newYearsEve, newYear}, "Long 1"},
        {u"DateDiff", {u"m", Day(2024, 1, 31), Day(2024, 3, 1)}, "Long 2"},
        {u"DateDiff", {u"h", Day(2024, 1, 1, 1, 59), Day(2024, 1, 1, 2, 1)}, "Long 1"},
        {u"DateDiff", {u"w", Day(2024, 1, 1), Day(2024, 1, 7)}, "Long 0"},
        {u"DateDiff", {u"w", Day(2024, 1, 1), Day(2024, 1, 8)}, "Long 1"},
        {u"DateDiff", {u"w", Day(2024, 1, 8), Day(2024, 1, 1)}, "Long -1"},
        // Calendar weeks: the Sundays (or what day is asked for) behind the first date, up to the second.
        {u"DateDiff", {u"ww", Day(2024, 1, 6), Day(2024, 1, 7)}, "Long 1"},
        {u"DateDiff", {u"ww", Day(2024, 1, 7), Day(2024, 1, 13)}, "Long 0"},
        {u"DateDiff", {u"ww", Day(2024, 1, 7), Day(2024, 1, 8), 2}, "Long 1"},
        {u"DateDiff", {u"ww", Day(2024, 1, 8), Day(2024, 1, 7), 2}, "Long -1"},
        {u"DateDiff", {u"ww", Day(1899, 12, 25), Day(1900, 1, 8)}, "Long 2"},
        {u"DateDiff", {u"d", Day(1899, 12, 28, 18), Day(1900, 1, 1)}, "Long 4"},
        {u"DateDiff", {u"h", Day(1899, 12, 29, 18), Day(1899, 12, 30, 6)}, "Long 12"},
        {u"DateDiff", {u"d", u"1/1/2024", u"12/31/2024"}, "Long 365"},
        {u"DateDiff", {u"s", Day(1900, 1, 1), Day(2024, 1, 1)}, "error 6"},
        {u"DateDiff", {u"d", kNull, newYear}, "Null"},
        {u"DateDiff", {u"d", newYear, kNull}, "Null"},
        {u"DateDiff", {u"z", newYear, newYear}, "error 5"},
        {u"DateDiff", {u"ww", newYear, newYear, 9}, "error 5"},
        {u"DateDiff", {u"ww", newYear, newYear, 1, 4}, "error 5"},
    });
}

TEST(IntervalBuiltins, DatePart) {
    const ScopedLocale english("en-US");
    const Variant moment = Day(2024, 8, 17, 14, 15, 16);  // a Saturday
    CheckCalls({
        {u"DatePart", {u"yyyy", moment}, "Integer 2024"},
        {u"DatePart", {u"q", moment}, "Integer 3"},
        {u"DatePart", {u"m", moment}, "Integer 8"},
        {u"DatePart", {u"y", moment}, "Integer 230"},
        {u"DatePart", {u"d", moment}, "Integer 17"},
        {u"DatePart", {u"w", moment}, "Integer 7"},
        {u"DatePart", {u"w", moment, 2}, "Integer 6"},
        {u"DatePart", {u"h", moment}, "Integer 14"},
        {u"DatePart", {u"n", moment}, "Integer 15"},
        {u"DatePart", {u"s", moment}, "Integer 16"},
        // January 1 of 2024 is a Monday, of 2021 a Friday.
        {u"DatePart", {u"ww", Day(2024, 1, 1)}, "Integer 1"},
        {u"DatePart", {u"ww", Day(2024, 1, 7)}, "Integer 2"},
        {u"DatePart", {u"ww", Day(2024, 1, 7), 2}, "Integer 1"},
        {u"DatePart", {u"ww", Day(2024, 12, 31)}, "Integer 53"},
        {u"DatePart", {u"ww", Day(2021, 1, 3), 2, 2}, "Integer 53"},
        {u"DatePart", {u"ww", Day(2021, 1, 4), 2, 2}, "Integer 1"},
        {u"DatePart", {u"ww", Day(2003, 12, 29), 2, 2}, "Integer 1"},
        {u"DatePart", {u"ww", Day(2020, 12, 31), 2, 2}, "Integer 53"},
        {u"DatePart", {u"ww", Day(2021, 1, 3), 2, 3}, "Integer 52"},
        {u"DatePart", {u"ww", Day(2023, 1, 1), 1, 3}, "Integer 1"},
        {u"DatePart", {u"ww", Day(100, 1, 1), 2, 3}, "Integer 52"},
        {u"DatePart", {u"ww", Day(9999, 12, 31), 2, 2}, "Integer 52"},
        {u"DatePart", {u"ww", Day(2021, 1, 1), 0, 0}, "Integer 1"},
        {u"DatePart", {u"d", kNull}, "Null"},
        {u"DatePart", {u"?", moment}, "error 5"},
        {u"DatePart", {u"ww", moment, 8}, "error 5"},
        {u"DatePart", {u"ww", moment, 1, 4}, "error 5"},
    });
    const ScopedLocale german("de-DE");
    CheckCalls({{u"DatePart", {u"ww", Day(2021, 1, 1), 0, 0}, "Integer 53"}});
}

TEST(IntervalBuiltins, WeeksFollowEachOtherThroughTheYears) {
    // The number goes up by one on the first day of each week, or back to one, and nowhere else.
    for (int firstDay = 1; firstDay <= 7; ++firstDay) {
        for (int rule = 2; rule <= 3; ++rule) {
            std::string former = Call(u"DatePart", {u"ww", Day(1995, 12, 1), firstDay, rule});
            for (double day = FromCalendar(1995, 12, 2).days; day < FromCalendar(2007, 2, 1).days; ++day) {
                const std::string week = Call(u"DatePart", {u"ww", Date{day}, firstDay, rule});
                const bool begins = Call(u"Weekday", {Date{day}, firstDay}) == "Integer 1";
                const int number = std::stoi(week.substr(8));
                const int before = std::stoi(former.substr(8));
                const bool follows = begins ? (number == before + 1 || (number == 1 && before >= 52)) : week == former;
                ASSERT_TRUE(follows) << firstDay << " " << rule << " day " << day << ": " << former << ", " << week;
                former = week;
            }
        }
    }
}

}  // namespace
}  // namespace ov::vbscript
