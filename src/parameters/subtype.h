/// @file
/// The column `subtype` of the number classes.
#pragma once

#include <string_view>

#include "platform/automation/text.h"

namespace ov {

/// What a subtype such as "u16reverseMapping" says to every class of numbers.
struct Subtype {
    char16_t letter = 0;          ///< the first letter in lower case, if it is one that the class knows; else 0
    double width = 0;             ///< in bits; 0 if it cannot be read
    bool reverseMapping = false;  ///< the bytes of a device image are in the other order
};

/// Reads a subtype whose first letter may be one of @p letters.
Subtype ReadSubtype(std::u16string_view text, std::u16string_view letters);

}  // namespace ov
