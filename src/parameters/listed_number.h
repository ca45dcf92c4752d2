/// @file
/// Numbers that are chosen from a list.
#pragma once

#include <algorithm>
#include <limits>
#include <optional>

#include "parameters/device_image.h"
#include "parameters/scaled_parameter.h"

namespace ov {

/// A number whose limits come from its list, and whose width is that of its field in the device image.
class ListedNumber : public ScaledParameter<std::int32_t> {
public:
    bool MoveValue(const DeviceImage& image, const ImagePlace& place);

    // Its ways as a LongField.
    std::optional<std::int32_t> Pattern();
    bool TakePattern(std::int32_t pattern);

protected:
    ListedNumber() = default;
    ~ListedNumber() = default;

    void ReadType() override { OpenLimits(); }

    /// Lets every row in.
    void OpenLimits() {
        mMin = std::numeric_limits<std::int32_t>::min();
        mMax = std::numeric_limits<std::int32_t>::max();
    }
    /// Lets nothing in, until rows widen the limits.
    void CloseLimits() {
        mMin = std::numeric_limits<std::int32_t>::max();
        mMax = std::numeric_limits<std::int32_t>::min();
    }
    void WidenLimits(std::int32_t value) {
        mMin = std::min(mMin, value);
        mMax = std::max(mMax, value);
    }

    /// Whether the byte order of the device image is turned round.
    virtual bool IsReversed() const { return false; }
};

}  // namespace ov
