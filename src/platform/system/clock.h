/// @file
/// The clocks: the time of day, and a counter for measuring.
#pragma once

#include <cstdint>

#include "platform/automation/variant.h"

namespace ov {

/// The local date and time, in whole seconds.
Date Now();
/// Seconds since local midnight, with a fraction.
double SecondsSinceMidnight();
/// Nanoseconds of a clock that only goes forward.
std::int64_t PerformanceCounter() noexcept;

}  // namespace ov
