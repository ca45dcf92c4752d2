#include "platform/format/format_number.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/number_digits.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

// A number in decimal digits: `digits` as a whole number, divided by ten to the power `scale`.
struct PlainNumber {
    bool negative = false;
    std::string digits;
    int scale = 0;

    bool IsZero() const { return digits.find_first_not_of('0') == std::string::npos; }
};

PlainNumber FromInteger(std::int64_t value, int scale) {
    std::string digits = std::to_string(value);
    const bool negative = digits.front() == '-';
    if (negative) digits.erase(0, 1);
    return {negative, std::move(digits), scale};
}

PlainNumber FromDouble(double value, int significant) {
    const RoundedDigits rounded = RoundToDigits(value, significant);
    return {rounded.negative, std::string(rounded.Digits()), static_cast<int>(rounded.count) - 1 - rounded.exponent};
}

PlainNumber FromDecimal(const Decimal& value) {
    PlainNumber number;
    bool fraction = false;
    for (const char16_t c : value.ToString()) {
        if (c == u'-') {
            number.negative = true;
        } else if (c == u'.') {
            fraction = true;
        } else {
            number.digits += static_cast<char>(c);
            if (fraction) ++number.scale;
        }
    }
    return number;
}

// Cuts the last `count` digits off, and adds one to the rest if they are half of its last place or more.
void DropDigits(std::string& digits, std::size_t count) {
    const bool up = count <= digits.size() && digits[digits.size() - count] >= '5';
    digits.resize(digits.size() - std::min(count, digits.size()));
    if (!up) return;
    std::size_t at = digits.size();
    while (at > 0 && digits[at - 1] == '9')
        digits[--at] = '0';
    if (at > 0) {
        ++digits[at - 1];
    } else {
        digits.insert(digits.begin(), '1');
    }
}

// Gives the number exactly `decimals` digits behind the point and at least one before it.
void SetDecimals(PlainNumber& number, int decimals) {
    if (number.scale > decimals) {
        DropDigits(number.digits, static_cast<std::size_t>(number.scale - decimals));
    } else {
        number.digits.append(static_cast<std::size_t>(decimals - number.scale), '0');
    }
    number.scale = decimals;
    const std::size_t least = static_cast<std::size_t>(decimals) + 1;
    if (number.digits.size() < least) number.digits.insert(0, least - number.digits.size(), '0');
}

PlainNumber ToPlainNumber(const Variant& number) {
    switch (number.Type()) {
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return FromInteger(ToLong(number), 0);
        case VarType::Currency:
            return FromInteger(number.AsCurrency().scaled, 4);
        case VarType::Decimal:
            return FromDecimal(number.AsDecimal());
        case VarType::Single:
            return FromDouble(ToDouble(number), kSingleDigits);
        default:
            return FromDouble(ToDouble(number), kDoubleDigits);
    }
}

std::u16string Widened(std::string_view digits) {
    return {digits.begin(), digits.end()};
}

void AppendGrouped(std::u16string& out, std::string_view whole, const Locale& locale) {
    const std::size_t size = static_cast<std::size_t>(locale.groupSize);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % size == 0) out += locale.group;
        out += static_cast<char16_t>(whole[i]);
    }
}

bool IsFinite(const Variant& number) {
    return (number.Type() != VarType::Double || std::isfinite(number.AsDouble())) &&
           (number.Type() != VarType::Single || std::isfinite(number.AsSingle()));
}

}  // namespace

Text FormatNumber(const Variant& number, const NumberStyle& style) {
    constexpr int kMaxDecimals = 99;
    if (style.decimals < 0 || style.decimals > kMaxDecimals) Raise(ErrorNumber::InvalidProcedureCall);
    if (number.IsObject()) return FormatNumber(DefaultValue(number), style);
    if (!IsFinite(number)) return ToText(number);

    const Locale& locale = CurrentLocale();
    PlainNumber plain = ToPlainNumber(number);
    SetDecimals(plain, style.decimals);
    const std::string_view digits = plain.digits;
    const std::string_view whole = digits.substr(0, digits.size() - static_cast<std::size_t>(style.decimals));

    std::u16string out;
    const bool negative = plain.negative && !plain.IsZero();
    if (negative) out += style.brackets ? u'(' : u'-';
    if (style.leadingDigit || whole != "0" || style.decimals == 0) {
        if (style.grouping && !locale.group.empty()) {
            AppendGrouped(out, whole, locale);
        } else {
            out += Widened(whole);
        }
    }
    if (style.decimals > 0) {
        out += locale.decimal;
        out += Widened(digits.substr(whole.size()));
    }
    if (negative && style.brackets) out += u')';
    return out;
}

Text FormatScientific(double number) {
    if (!std::isfinite(number)) return ToText(number);
    constexpr std::size_t kMantissaDigits = 3;
    const RoundedDigits rounded = RoundToDigits(number, kDoubleDigits);
    std::string digits(rounded.Digits());
    int exponent = rounded.exponent;
    if (digits.size() > kMantissaDigits) {
        DropDigits(digits, digits.size() - kMantissaDigits);
        if (digits.size() > kMantissaDigits) ++exponent;  // 9.995 has become 10.00
    }
    digits.resize(kMantissaDigits, '0');
    const std::string exponentDigits = std::to_string(std::abs(exponent));

    std::u16string out;
    if (rounded.negative) out += u'-';
    out += Widened(digits.substr(0, 1));
    out += CurrentLocale().decimal;
    out += Widened(digits.substr(1));
    out += exponent < 0 ? u"E-" : u"E+";
    if (exponentDigits.size() < 2) out += u'0';
    out += Widened(exponentDigits);
    return out;
}

}  // namespace ov
