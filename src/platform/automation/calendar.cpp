#include <algorithm>
#include <chrono>
#include <cmath>

#include "platform/automation/conversions.h"
#include "platform/automation/date_text.h"
#include "platform/automation/errors.h"

namespace ov {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{std::chrono::December / 30 / 1899};
constexpr std::int64_t kSecondsOfDay = 86400;

static_assert((sys_days(std::chrono::January / 1 / 100) - kDayZero).count() == kFirstDay);
static_assert((sys_days(std::chrono::December / 31 / 9999) - kDayZero).count() == kLastDay);

}  // namespace

CalendarTime ToCalendar(Date date) noexcept {
    const double serial = std::isnan(date.days) ? 0 : std::clamp<double>(date.days, kFirstDay, kLastDay + 0.999999);
    // The fraction is the time of day before day 0, too: -1.25 is 6 o'clock of the day before.
    const double wholeDays = std::trunc(serial);
    auto day = static_cast<int>(wholeDays);
    std::int64_t time = std::llround(std::abs(serial - wholeDays) * kSecondsOfDay);
    if (time == kSecondsOfDay && day < kLastDay) {
        time = 0;
        ++day;
    }
    time = std::min(time, kSecondsOfDay - 1);

    const sys_days point = kDayZero + days(day);
    const year_month_day calendar(point);
    CalendarTime result;
    result.year = static_cast<int>(calendar.year());
    result.month = static_cast<int>(static_cast<unsigned>(calendar.month()));
    result.day = static_cast<int>(static_cast<unsigned>(calendar.day()));
    result.hour = static_cast<int>(time / 3600);
    result.minute = static_cast<int>(time / 60 % 60);
    result.second = static_cast<int>(time % 60);
    result.weekday = static_cast<int>(std::chrono::weekday(point).c_encoding()) + 1;
    const days passed = point - sys_days(calendar.year() / std::chrono::January / 1);
    result.dayOfYear = static_cast<int>(passed.count()) + 1;
    return result;
}

Date FromCalendar(int year, int month, int day, double hours, double minutes, double seconds) {
    const std::int64_t months = std::int64_t{year} * 12 + month - 1;
    const double time = hours * 3600 + minutes * 60 + seconds;
    const double carriedDays = std::floor(time / kSecondsOfDay);
    const bool isYear = months >= 0 && months < 20'000 * 12;  // what the calendar's types hold
    if (!isYear || !(std::abs(carriedDays) < 1e7)) Raise(ErrorNumber::InvalidProcedureCall);

    const std::chrono::year_month_day first =
        std::chrono::year(static_cast<int>(months / 12)) / static_cast<int>(months % 12 + 1) / 1;
    const std::int64_t serial =
        (sys_days(first) - kDayZero).count() + std::int64_t{day} - 1 + static_cast<std::int64_t>(carriedDays);
    if (serial < kFirstDay || serial > kLastDay) Raise(ErrorNumber::InvalidProcedureCall);
    const double timeOfDay = (time - carriedDays * kSecondsOfDay) / kSecondsOfDay;
    const auto wholeDays = static_cast<double>(serial);
    return {wholeDays < 0 ? wholeDays - timeOfDay : wholeDays + timeOfDay};
}

}  // namespace ov
