/// @file
/// Dates between "#" signs.
#pragma once

#include <optional>
#include <string_view>

#include "platform/automation/variant.h"

namespace ov::vbscript {

/// The date and time that the text of a literal names, whatever the locale: month before day ("2/28/2000", "28/2/2000"
/// too, since there is no month 28), ISO order ("2000-02-28"), English month names in full or by three letters, and a
/// time ("13:45", "1:45:10 PM") behind a date or by itself. Nullopt if it is no date.
std::optional<Date> ReadDateLiteral(std::u16string_view text);

}  // namespace ov::vbscript
