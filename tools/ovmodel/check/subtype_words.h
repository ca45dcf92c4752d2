/// @file
/// The grammar of subtypes and display formats, as authors should write it.
#pragma once

#include <optional>
#include <string>

#include "platform/automation/text.h"

namespace ovmodel {

// Each gives what is wrong, or "". "" itself is right everywhere.
std::string FaultOfIntegerSubtype(std::u16string_view subtype);
std::string FaultOfFloatSubtype(std::u16string_view subtype);
std::string FaultOfStringSubtype(std::u16string_view subtype);
std::string FaultOfIntegerFormat(std::u16string_view format, bool isWide);
std::string FaultOfFloatFormat(std::u16string_view format);

/// True for integers of more than 31 bits without sign and 32 with one, which are decimals.
bool IsWideInteger(std::u16string_view subtype);

/// What an integer of a subtype can hold, where the subtype tells.
struct IntegerRange {
    std::optional<double> low, high;
};
IntegerRange RangeOfInteger(std::u16string_view subtype);

}  // namespace ovmodel
