/// @file
/// When what runs has to be at its end.
#pragma once

#include <cstdint>

namespace ov {

/// A bound of time for what the thread does while it lives. They nest; an inner one never lasts longer than an outer.
class Deadline {
public:
    /// @param milliseconds from now on; 0 or less for no bound of its own
    explicit Deadline(std::int32_t milliseconds) noexcept;
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline() { sEnd = mOuterEnd; }

    /// True once the time of the innermost one is over.
    static bool IsOver() noexcept;

private:
    static inline std::int64_t sEnd = 0;  // milliseconds of the clock; 0 for none

    std::int64_t mOuterEnd = sEnd;
};

}  // namespace ov
