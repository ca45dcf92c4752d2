#include "platform/conversion/number_bytes.h"

#include <cmath>

#include "platform/automation/errors.h"

namespace ov {

float Long2Float(std::int32_t bits) {
    const auto value = std::bit_cast<float>(bits);
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    return value;
}

}  // namespace ov
