#include "platform/automation/decimal.h"

#include <algorithm>
#include <cmath>

#include "platform/automation/characters.h"
#include "platform/automation/errors.h"
#include "platform/automation/number_digits.h"
#include "platform/automation/rounding.h"
#include "platform/automation/wide_integer.h"

namespace ov {

namespace {

constexpr UInt128 kGreatest = (UInt128{1} << 96) - 1;
// Digits of kGreatest: 79,228,162,514,264,337,593,543,950,335.
constexpr int kGreatestDigits = 29;

UInt128 Magnitude(const Decimal& number) noexcept {
    return (UInt128{number.High()} << 64) | number.Low();
}

/// @pre magnitude <= kGreatest, scale is 0 to kMaxScale
Decimal Make(bool negative, UInt128 magnitude, int scale) noexcept {
    return {negative && magnitude != 0, static_cast<std::uint32_t>(magnitude >> 64),
            static_cast<std::uint64_t>(magnitude), static_cast<std::uint8_t>(scale)};
}

/// @pre places is 0 to 38
UInt128 PowerOfTen(int places) noexcept {
    const int low = std::min(places, 19);
    return UInt128{kPowersOfTen[static_cast<std::size_t>(low)]} * kPowersOfTen[static_cast<std::size_t>(places - low)];
}

UInt128 DropDigits(UInt128 magnitude, int count) noexcept {
    return DivideHalfEven(magnitude, PowerOfTen(count));
}

/// @pre count is 1 to 38
UInt128 DropDigits(Unsigned192 magnitude, int count) noexcept {
    // In two steps, of which the first only tells whether something was cut off.
    const int later = std::min(count, 19);
    const bool cutOff = magnitude.DivideBy(kPowersOfTen[static_cast<std::size_t>(count - later)]) != 0;
    const std::uint64_t divisor = kPowersOfTen[static_cast<std::size_t>(later)];
    const std::uint64_t rest = magnitude.DivideBy(divisor);
    const std::uint64_t half = divisor / 2;
    const UInt128 quotient = magnitude.Low128();
    const bool up = rest > half || (rest == half && (cutOff || quotient % 2 != 0));
    return quotient + (up ? 1 : 0);
}

/// Rounds a result to the most places that fit. @throws RuntimeError 6 where even the whole part does not.
Decimal Fit(bool negative, const Unsigned192& magnitude, int scale) {
    const int bits = magnitude.BitLength();
    if (bits <= 96 && scale <= Decimal::kMaxScale) return Make(negative, magnitude.Low128(), scale);
    // At least so many digits are too many: 1233 / 4096 is just below the logarithm of 2.
    const int tooMany = bits > 96 ? ((bits - 97) * 1233) >> 12 : 0;
    for (int drop = std::max({1, scale - Decimal::kMaxScale, tooMany}); drop <= scale; ++drop) {
        const UInt128 rounded = DropDigits(magnitude, drop);
        if (rounded <= kGreatest) return Make(negative, rounded, scale - drop);
    }
    Raise(ErrorNumber::Overflow);
}

/// The magnitude with @p places more decimal places. @pre places is 0 to 28
Unsigned192 Shifted(UInt128 magnitude, int places) noexcept {
    Unsigned192 shifted(magnitude);
    const int first = std::min(places, 19);
    shifted.MultiplyBy(kPowersOfTen[static_cast<std::size_t>(first)]);
    if (places > first) shifted.MultiplyBy(kPowersOfTen[static_cast<std::size_t>(places - first)]);
    return shifted;
}

Decimal AddSigned(const Decimal& a, const Decimal& b, bool negativeB) {
    const int scale = std::max(a.Scale(), b.Scale());
    Unsigned192 left = Shifted(Magnitude(a), scale - a.Scale());
    Unsigned192 right = Shifted(Magnitude(b), scale - b.Scale());
    if (a.IsNegative() == negativeB) return Fit(negativeB, left += right, scale);
    if (left < right) return Fit(negativeB, right -= left, scale);
    return Fit(a.IsNegative(), left -= right, scale);
}

}  // namespace

Decimal::Decimal(std::int64_t value) noexcept
    : mLow(value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value)),
      mNegative(value < 0) {}

Decimal Decimal::FromDigits(bool negative, std::string_view digits, int exponent) {
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string_view::npos) return {};
    const std::size_t last = digits.find_last_not_of('0');
    const auto power = exponent + static_cast<std::int64_t>(digits.size() - 1 - last);
    digits = digits.substr(first, last + 1 - first);
    const auto count = static_cast<std::int64_t>(digits.size());
    const std::int64_t whole = count + power;  // digits before the point; negative for zeros behind it
    if (whole > kGreatestDigits) Raise(ErrorNumber::Overflow);

    std::int64_t places =
        std::clamp<std::int64_t>(-power, 0, std::min<std::int64_t>(kMaxScale, kGreatestDigits - whole));
    for (; places >= 0; --places) {
        const std::int64_t kept = whole + places;
        if (kept < 0) return {};
        UInt128 magnitude = 0;
        for (std::int64_t i = 0; i < kept; ++i) {
            const char digit = i < count ? digits[static_cast<std::size_t>(i)] : '0';
            magnitude = magnitude * 10 + static_cast<unsigned>(digit - '0');
        }
        if (kept < count) {
            const std::string_view rest = digits.substr(static_cast<std::size_t>(kept));
            const bool half = rest == "5";  // no zeros end it
            if (half ? magnitude % 2 != 0 : rest[0] >= '5') ++magnitude;
        }
        if (magnitude <= kGreatest) return Make(negative, magnitude, static_cast<int>(places));
    }
    Raise(ErrorNumber::Overflow);
}

namespace {

Decimal FromFloating(double value, int significant) {
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    const RoundedDigits rounded = RoundToDigits(value, significant);
    return Decimal::FromDigits(rounded.negative, rounded.Digits(),
                               rounded.exponent - static_cast<int>(rounded.count) + 1);
}

}  // namespace

Decimal Decimal::FromDouble(double value) {
    // Fast path: a whole number that needs no rounding to 15 digits.
    if (std::abs(value) < 1e15 && value == std::trunc(value)) return static_cast<std::int64_t>(value);
    return FromFloating(value, kDoubleDigits);
}

Decimal Decimal::FromSingle(float value) {
    return FromFloating(static_cast<double>(value), kSingleDigits);
}

std::optional<Decimal> Decimal::Parse(std::u16string_view text) {
    std::size_t at = 0;
    const bool hasSign = !text.empty() && (text[0] == u'-' || text[0] == u'+');
    const bool negative = hasSign && text[0] == u'-';
    if (hasSign) ++at;
    DecimalDigits digits;
    const std::size_t wholeAt = at;
    while (at < text.size() && IsDigit(text[at])) {
        digits.AppendWhole(text[at++]);
    }
    std::size_t count = at - wholeAt;
    if (at < text.size() && text[at] == u'.') {
        const std::size_t fractionAt = ++at;
        while (at < text.size() && IsDigit(text[at])) {
            digits.AppendFraction(text[at++]);
        }
        count += at - fractionAt;
    }
    if (count == 0) return std::nullopt;
    if (at < text.size() && (text[at] == u'E' || text[at] == u'e')) {
        const std::optional<int> exponent = ReadExponent(text, ++at);
        if (!exponent) return std::nullopt;
        digits.MultiplyByPower(*exponent);
    }
    if (at != text.size()) return std::nullopt;
    return FromDigits(negative, digits.Digits(), digits.Exponent());
}

double Decimal::ToDouble() const noexcept {
    const UInt128 magnitude = Magnitude(*this);
    // Fast path: both numbers are exact, so the division rounds correctly.
    if (magnitude < (UInt128{1} << 53) && mScale <= 15) {
        const double number = static_cast<double>(mLow) / static_cast<double>(kPowersOfTen[mScale]);
        return IsNegative() ? -number : number;
    }
    DecimalDigits digits;
    for (int place = kGreatestDigits - 1; place >= 0; --place) {
        digits.AppendWhole(static_cast<char16_t>(u'0' + static_cast<unsigned>(magnitude / PowerOfTen(place) % 10)));
    }
    digits.MultiplyByPower(-mScale);
    const double number = *digits.ToDouble();  // no Decimal is beyond the range of a Double
    return IsNegative() ? -number : number;
}

std::int64_t Decimal::ToInt64() const {
    const UInt128 magnitude = Magnitude(Round(0));
    const UInt128 limit = UInt128{1} << 63;
    if (magnitude > limit || (magnitude == limit && !mNegative)) Raise(ErrorNumber::Overflow);
    const auto bits = static_cast<std::uint64_t>(magnitude);
    return static_cast<std::int64_t>(mNegative ? 0 - bits : bits);
}

std::u16string Decimal::ToString() const {
    std::u16string reversed;
    UInt128 magnitude = Magnitude(*this);
    bool behindPoint = mScale > 0;
    bool trailing = behindPoint;
    for (int place = 0; magnitude != 0 || place <= mScale; ++place) {
        if (place == mScale && behindPoint) {
            behindPoint = false;
            if (!trailing) reversed += u'.';
            trailing = false;
        }
        const auto digit = static_cast<unsigned>(magnitude % 10);
        magnitude /= 10;
        trailing = trailing && digit == 0;
        if (!trailing) reversed += static_cast<char16_t>(u'0' + digit);
    }
    if (IsNegative()) reversed += u'-';
    return {reversed.rbegin(), reversed.rend()};
}

Decimal Decimal::Round(int places) const noexcept {
    if (places >= mScale) return *this;
    return Make(mNegative, DropDigits(Magnitude(*this), mScale - places), places);
}

Decimal Decimal::Fix() const noexcept {
    return Make(mNegative, Magnitude(*this) / PowerOfTen(mScale), 0);
}

Decimal Decimal::Floor() const {
    const Decimal whole = Fix();
    return IsNegative() && whole != *this ? whole - Decimal(std::int64_t{1}) : whole;
}

Decimal Decimal::Normalized() const noexcept {
    UInt128 magnitude = Magnitude(*this);
    int scale = mScale;
    while (scale > 0 && magnitude % 10 == 0) {
        magnitude /= 10;
        --scale;
    }
    return Make(mNegative, magnitude, scale);
}

Decimal Decimal::operator-() const noexcept {
    return Make(!mNegative, Magnitude(*this), mScale);
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    return AddSigned(a, b, b.IsNegative());
}

Decimal operator-(const Decimal& a, const Decimal& b) {
    return AddSigned(a, b, !b.IsNegative());
}

Decimal operator*(const Decimal& a, const Decimal& b) {
    return Fit(a.mNegative != b.mNegative, Unsigned192::Product(Magnitude(a), Magnitude(b)), a.mScale + b.mScale);
}

Decimal operator/(const Decimal& a, const Decimal& b) {
    const UInt128 divisor = Magnitude(b);
    if (divisor == 0) Raise(ErrorNumber::DivisionByZero);
    UInt128 quotient = Magnitude(a) / divisor;
    UInt128 rest = Magnitude(a) % divisor;
    int scale = a.mScale - b.mScale;
    // Long division: one place more as long as the quotient has room for it and is not exact.
    while (scale < 0 || (scale < Decimal::kMaxScale && rest != 0)) {
        const UInt128 longer = quotient * 10 + rest * 10 / divisor;
        if (longer > kGreatest) break;
        quotient = longer;
        rest = rest * 10 % divisor;
        ++scale;
    }
    if (scale < 0) Raise(ErrorNumber::Overflow);
    if (rest * 2 > divisor || (rest * 2 == divisor && quotient % 2 != 0)) ++quotient;
    if (quotient > kGreatest) {
        // Rounding carried into a 97th bit. The last digit of that number is 6, so it rounds up once more.
        if (scale == 0) Raise(ErrorNumber::Overflow);
        quotient = quotient / 10 + 1;
        --scale;
    }
    return Make(a.mNegative != b.mNegative, quotient, scale);
}

Decimal operator%(const Decimal& a, const Decimal& b) {
    if (b.IsZero()) Raise(ErrorNumber::DivisionByZero);
    const int scale = std::max(a.mScale, b.mScale);
    const Unsigned192 divisor = Shifted(Magnitude(b), scale - b.mScale);
    if (divisor.BitLength() > 96) return a;  // only a smaller scale is shifted, so a is the smaller number
    UInt128 rest = Magnitude(a) % divisor.Low128();
    for (int place = a.mScale; place < scale; ++place) {
        rest = rest * 10 % divisor.Low128();
    }
    return Make(a.mNegative, rest, scale);
}

std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept {
    if (a.IsNegative() != b.IsNegative()) return b.IsNegative() <=> a.IsNegative();
    if (a.mScale == b.mScale) return a.IsNegative() ? Magnitude(b) <=> Magnitude(a) : Magnitude(a) <=> Magnitude(b);
    const int scale = std::max(a.mScale, b.mScale);
    const Unsigned192 left = Shifted(Magnitude(a), scale - a.mScale);
    const Unsigned192 right = Shifted(Magnitude(b), scale - b.mScale);
    return a.IsNegative() ? right <=> left : left <=> right;
}

}  // namespace ov
