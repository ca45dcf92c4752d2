/// @file
/// Kinds of parameters as descriptors number them, 1 to 11, and as the bits of a mask.
#pragma once

#include <cstdint>

#include "contract/enumerations.h"

namespace ov {

/// The bit of kind number @p kind; no kind at all for a number outside 1 to 11.
constexpr eParameterKind KindToBit(std::int32_t kind) noexcept {
    return kind >= 1 && kind <= 11 ? static_cast<eParameterKind>(1 << (kind - 1)) : eParameterKind{};
}

/// The number of the one kind that @p mask holds; 0 for any other mask, also one of several bits.
constexpr std::int32_t BitToKind(eParameterKind mask) noexcept {
    for (std::int32_t kind = 1; kind <= 11; ++kind) {
        if (KindToBit(kind) == mask) return kind;
    }
    return 0;
}

}  // namespace ov
