#include "platform/system/clock.h"

#include <time.h>

#include <chrono>

#include "platform/automation/unrepeatable.h"

namespace ov {

namespace {

struct LocalTime {
    std::tm calendar{};
    long nanoseconds = 0;

    int Seconds() const { return (calendar.tm_hour * 60 + calendar.tm_min) * 60 + calendar.tm_sec; }
};

LocalTime ReadLocalTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    LocalTime local;
    localtime_r(&now.tv_sec, &local.calendar);
    local.nanoseconds = now.tv_nsec;
    return local;
}

}  // namespace

Date Now() {
    Traces::Leave(Unrepeatable::Clock);
    using namespace std::chrono;
    constexpr sys_days kDayZero{year{1899} / December / 30};
    const LocalTime local = ReadLocalTime();
    const sys_days today{year{local.calendar.tm_year + 1900} / month{static_cast<unsigned>(local.calendar.tm_mon + 1)} /
                         day{static_cast<unsigned>(local.calendar.tm_mday)}};
    constexpr double kSecondsPerDay = 86400;
    return {static_cast<double>((today - kDayZero).count()) + local.Seconds() / kSecondsPerDay};
}

double SecondsSinceMidnight() {
    Traces::Leave(Unrepeatable::Clock);
    const LocalTime local = ReadLocalTime();
    return local.Seconds() + static_cast<double>(local.nanoseconds) * 1e-9;
}

std::int64_t PerformanceCounter() noexcept {
    return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace ov
