#include "platform/format/format_number.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/format/decimal_number.h"
#include "platform/format/format.h"
#include "platform/locale/locale.h"

namespace ov {

Text FormatNumber(const Variant& number, const NumberStyle& style) {
    constexpr int kMaxDecimals = 99;
    if (style.decimals < 0 || style.decimals > kMaxDecimals) Raise(ErrorNumber::InvalidProcedureCall);
    std::optional<DecimalNumber> digits = DecimalNumber::Of(number.IsObject() ? DefaultValue(number) : number);
    if (!digits) return ToText(number);
    digits->RoundToPlaces(style.decimals);

    const Locale& locale = CurrentLocale();
    std::u16string out;
    const bool negative = digits->IsNegative() && !digits->IsZero();
    if (negative) out += style.brackets ? u'(' : u'-';
    const int leastWhole = style.leadingDigit || style.decimals == 0 ? 1 : 0;
    for (int place = std::max(digits->WholeDigits(), leastWhole); place-- > 0;) {
        if (style.grouping) {
            AppendGroupedDigit(out, *digits, place, locale);
        } else {
            out += digits->DigitAt(place);
        }
    }
    if (style.decimals > 0) out += locale.decimal;
    for (int place = -1; place >= -style.decimals; --place) {
        out += digits->DigitAt(place);
    }
    if (negative && style.brackets) out += u')';
    return out;
}

Text FormatScientific(double number) {
    static const Picture kScientific(u"Scientific");
    return kScientific.Apply(number);
}

}  // namespace ov
