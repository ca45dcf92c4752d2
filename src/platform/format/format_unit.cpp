#include "platform/format/format_unit.h"

#include <cmath>
#include <string>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

/// The number's digits with what stands before and behind them, and around all of it the sign of @p style.
Text WithUnit(const Variant& number, NumberStyle style, std::u16string_view before, std::u16string_view behind) {
    const bool brackets = std::exchange(style.brackets, false);
    const Text plain = FormatNumber(number, style);
    std::u16string_view digits = plain;
    const bool negative = digits.starts_with(u'-');
    if (negative) digits.remove_prefix(1);

    Text result;
    if (negative) result += brackets ? u'(' : u'-';
    result += before;
    result += digits;
    result += behind;
    if (negative && brackets) result += u')';
    return result;
}

Variant TimesHundred(const Variant& number) {
    constexpr int kHundred = 100;
    if (number.Type() == VarType::Currency || number.Type() == VarType::Decimal) {
        return ToDecimal(number) * Decimal(kHundred);
    }
    const double value = ToDouble(number);
    const double product = value * kHundred;
    if (!std::isfinite(product) && std::isfinite(value)) Raise(ErrorNumber::Overflow);
    // A Single keeps its type, since only the digits that it has count.
    if (number.Type() == VarType::Single) return static_cast<float>(product);
    return product;
}

}  // namespace

Text FormatPercent(const Variant& number, const NumberStyle& style) {
    if (number.IsObject()) return FormatPercent(DefaultValue(number), style);
    return WithUnit(TimesHundred(number), style, {}, u"%");
}

NumberStyle CurrencyStyle() {
    // The one country where brackets are how negative amounts are written.
    constexpr std::uint32_t kUnitedStates = 0x0409;
    return {.brackets = CurrentLocale().lcid == kUnitedStates};
}

Text FormatCurrency(const Variant& amount, const NumberStyle& style) {
    const Locale& locale = CurrentLocale();
    const std::u16string blank = locale.currencySpace ? u" " : u"";
    if (locale.currencyBefore) return WithUnit(amount, style, locale.currencySymbol + blank, {});
    return WithUnit(amount, style, {}, blank + locale.currencySymbol);
}

}  // namespace ov
