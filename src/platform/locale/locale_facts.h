/// @file
/// The facts of a locale, gathered from ICU's data.
#pragma once

#include <string>

#include "platform/locale/locale.h"

namespace ov {

/// The facts of ICU's locale @p icuName. What ICU has no data for stays as a default Locale has it.
Locale GatherLocale(const std::string& icuName);

}  // namespace ov
