/// @file
/// The named forms of a date in the current locale.
#pragma once

#include "platform/automation/variant.h"

namespace ov {

/// The numbers are those of the rule language's FormatDateTime.
enum class DateForm {
    General = 0,    ///< short date and long time, each where the date has one
    LongDate = 1,   ///< with the names of day and month
    ShortDate = 2,  ///< in digits
    LongTime = 3,   ///< with seconds
    ShortTime = 4,  ///< hours and minutes of 24 hours, whatever the locale
};

Text FormatDate(Date date, DateForm form);

}  // namespace ov
