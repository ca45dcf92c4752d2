#include "platform/format/decimal_number.h"

#include <charconv>
#include <cmath>

#include "platform/automation/conversions.h"
#include "platform/automation/number_digits.h"
#include "platform/automation/rounding.h"

namespace ov {

DecimalNumber::DecimalNumber(double value, int significant) noexcept {
    const RoundedDigits rounded = RoundToDigits(value, significant);
    mNegative = rounded.negative;
    Take(rounded.Digits(), rounded.exponent - static_cast<int>(rounded.count) + 1);
}

DecimalNumber::DecimalNumber(const Decimal& value) noexcept {
    std::array<char, kCapacity> digits;
    std::size_t at = digits.size();
    for (UInt128 rest = (UInt128{value.High()} << 64) | value.Low(); rest != 0; rest /= 10) {
        digits[--at] = static_cast<char>('0' + static_cast<int>(rest % 10));
    }
    mNegative = value.IsNegative();
    Take(std::string_view(digits.data(), digits.size()).substr(at), -int{value.Scale()});
}

DecimalNumber::DecimalNumber(std::int64_t value) noexcept {
    std::array<char, kCapacity> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    std::string_view digits(text.data(), static_cast<std::size_t>(end - text.data()));
    mNegative = value < 0;
    if (mNegative) digits.remove_prefix(1);
    Take(digits, 0);
}

std::optional<DecimalNumber> DecimalNumber::Of(const Variant& value) {
    switch (value.Type()) {
        case VarType::Byte:
        case VarType::Integer:
        case VarType::Long:
            return DecimalNumber(std::int64_t{ToLong(value)});
        case VarType::Currency: {
            constexpr int kPlaces = 4;
            DecimalNumber number(value.AsCurrency().scaled);
            number.MultiplyByPower(-kPlaces);
            return number;
        }
        case VarType::Decimal:
            return DecimalNumber(value.AsDecimal());
        default: {
            const double number = ToDouble(value);
            if (!std::isfinite(number)) return std::nullopt;
            return DecimalNumber(number, value.Type() == VarType::Single ? kSingleDigits : kDoubleDigits);
        }
    }
}

void DecimalNumber::Take(std::string_view digits, int exponent) noexcept {
    while (digits.starts_with('0')) {
        digits.remove_prefix(1);
    }
    mCount = static_cast<int>(digits.copy(mDigits.data(), mDigits.size()));
    mPoint = mCount + exponent;
    TrimZeros();
}

void DecimalNumber::KeepDigits(int count) noexcept {
    if (count >= mCount) return;
    const bool up = count >= 0 && mDigits[static_cast<std::size_t>(count)] >= '5';
    mCount = count > 0 ? count : 0;
    if (!up) return TrimZeros();
    while (mCount > 0 && mDigits[static_cast<std::size_t>(mCount) - 1] == '9') {
        --mCount;
    }
    if (mCount > 0) {
        ++mDigits[static_cast<std::size_t>(mCount) - 1];
    } else {
        mDigits[0] = '1';
        mCount = 1;
        ++mPoint;
    }
}

void DecimalNumber::TrimZeros() noexcept {
    while (mCount > 0 && mDigits[static_cast<std::size_t>(mCount) - 1] == '0') {
        --mCount;
    }
    if (mCount == 0) mPoint = 0;
}

void AppendGroupedDigit(std::u16string& out, const DecimalNumber& number, int place, const Locale& locale) {
    out += number.DigitAt(place);
    if (place > 0 && place % locale.groupSize == 0) out += locale.group;
}

}  // namespace ov
