/// @file
/// The 96-bit scaled decimal number.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ov {

/// An exact decimal number: sign, a 96-bit magnitude and a scale of 0 to 28 (the number of decimal places).
/// Operations give the exact result where it fits; otherwise they round half to even to the most places that fit, and
/// raise RuntimeError 6 "Overflow" where not even the whole part fits. A division by zero is RuntimeError 11.
class Decimal {
public:
    static constexpr int kMaxScale = 28;

    constexpr Decimal() noexcept = default;
    Decimal(std::int64_t value) noexcept;
    Decimal(std::int32_t value) noexcept : Decimal(std::int64_t{value}) {}
    /// @pre scale <= kMaxScale
    constexpr Decimal(bool negative, std::uint32_t high, std::uint64_t low, std::uint8_t scale) noexcept
        : mLow(low), mHigh(high), mScale(scale), mNegative(negative) {}

    static Decimal FromUnsigned(std::uint64_t value) noexcept { return {false, 0, value, 0}; }
    /// Keeps 15 significant digits, as the conversion of a Double does. @throws RuntimeError 6 beyond the range.
    static Decimal FromDouble(double value);
    /// Keeps 7 significant digits.
    static Decimal FromSingle(float value);
    /// Digits with an optional sign, "." and exponent and nothing else; nullopt for any other text.
    /// Digits that do not fit are rounded away. @throws RuntimeError 6 beyond the range.
    static std::optional<Decimal> Parse(std::u16string_view text);
    /// @p digits ('0' to '9' only, any count) times ten to the power @p exponent, rounded as Parse does.
    static Decimal FromDigits(bool negative, std::string_view digits, int exponent);

    bool IsZero() const noexcept { return mLow == 0 && mHigh == 0; }
    bool IsNegative() const noexcept { return mNegative && !IsZero(); }
    std::uint8_t Scale() const noexcept { return mScale; }
    std::uint64_t Low() const noexcept { return mLow; }
    std::uint32_t High() const noexcept { return mHigh; }

    double ToDouble() const noexcept;
    /// Rounds half to even. @throws RuntimeError 6 where the result does not fit.
    std::int64_t ToInt64() const;
    /// Plain digits with "." and no exponent, places as the scale tells less trailing zeros: "1.5", "-0.001", "0".
    std::u16string ToString() const;

    /// Rounded to @p places decimal places, half to even. @pre places >= 0
    Decimal Round(int places) const noexcept;
    /// The whole part, cut towards zero.
    Decimal Fix() const noexcept;
    /// The greatest whole number that is not above this.
    Decimal Floor() const;
    /// The same number with no trailing zeros behind the point.
    Decimal Normalized() const noexcept;

    Decimal operator-() const noexcept;
    friend Decimal operator+(const Decimal& a, const Decimal& b);
    friend Decimal operator-(const Decimal& a, const Decimal& b);
    friend Decimal operator*(const Decimal& a, const Decimal& b);
    friend Decimal operator/(const Decimal& a, const Decimal& b);
    /// Remainder of the division that cuts towards zero; sign of @p a.
    friend Decimal operator%(const Decimal& a, const Decimal& b);
    /// Compares the numbers, whatever their scales.
    friend std::strong_ordering operator<=>(const Decimal& a, const Decimal& b) noexcept;
    friend bool operator==(const Decimal& a, const Decimal& b) noexcept {
        const bool isSameMagnitude = a.mLow == b.mLow && a.mHigh == b.mHigh;
        if (a.mScale == b.mScale) return isSameMagnitude && a.IsNegative() == b.IsNegative();
        return std::is_eq(a <=> b);
    }

private:
    friend class Variant;

    std::uint64_t mLow = 0;
    std::uint32_t mHigh = 0;
    std::uint8_t mScale = 0;
    bool mNegative = false;
};

static_assert(sizeof(Decimal) == 16);

}  // namespace ov
