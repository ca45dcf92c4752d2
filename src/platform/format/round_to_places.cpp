#include "platform/format/round_to_places.h"

#include <cmath>

#include "platform/automation/rounding.h"

namespace ov {

double RoundToPlaces(double value, int places) noexcept {
    // From here on a Double is whole; a product beyond it has no fraction to round.
    constexpr double kWholeFrom = 4503599627370496.0;  // 2^52
    const double power = std::pow(10.0, places > 0 ? places : 0);
    const double scaled = value * power;
    if (!(std::abs(scaled) < kWholeFrom)) return value;
    return RoundHalfEven(scaled) / power;
}

}  // namespace ov
