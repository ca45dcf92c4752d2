/// @file
/// Plain number formatting with a unit: percentages and amounts of money, in the current locale.
#pragma once

#include "platform/format/format_number.h"

namespace ov {

/// A hundred times @p number with "%" behind it, in the brackets of a negative number. Errors as FormatNumber's.
Text FormatPercent(const Variant& number, const NumberStyle& style = {});

/// How the locale writes amounts of money.
NumberStyle CurrencyStyle();

/// @p amount with the locale's currency symbol, in the brackets of a negative number. Errors as FormatNumber's.
Text FormatCurrency(const Variant& amount, const NumberStyle& style = CurrencyStyle());

}  // namespace ov
