/// @file
/// The column `displayFormat` of the classes of numbers.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation/text.h"

namespace ov {

/// How a number reads as text. The values are those of the field `mDisplayKind` of whole numbers.
enum class DisplayKind : std::uint8_t {
    Picture = 0,     ///< the column is a picture of the platform's number format; the plain number if it is Null
    Hex = 1,         ///< upper case, filled with zeros to the digits
    Seconds = 2,     ///< a count of seconds as h:mm:ss
    Minutes = 3,     ///< a count of seconds as h:mm
    TechExpo = 4,    ///< with an SI letter; digits are significant ones
    Scientific = 5,  ///< with an exponent
    Version = 6,     ///< dotted bytes; digits are their number
    UnixTime = 7,    ///< a count of seconds since 1970 as a date
};

struct DisplayFormat {
    DisplayKind kind = DisplayKind::Picture;
    std::uint8_t digits = 1;
    Text complaint;  ///< what is wrong with the number behind the keyword, for the log; "" if nothing is
};

/// What a class takes for a display format.
struct DisplayGrammar {
    std::uint8_t mostHexDigits;  ///< more are a fault and cut down to this
    bool hasUnixTime;
};

/// Reads a column's text. Keywords count without regard to case; some have a number behind, which is a fault, and left
/// out, if it is no Byte.
DisplayFormat ReadDisplayFormat(const Text& text, const DisplayGrammar& grammar);

}  // namespace ov
