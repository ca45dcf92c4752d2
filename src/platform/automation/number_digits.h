/// @file
/// Decimal digits between texts and binary numbers, free of any locale.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ov {

/// 10 to the power 0 to 19, all that 64 bits hold.
inline constexpr std::array<std::uint64_t, 20> kPowersOfTen = [] {
    std::array<std::uint64_t, 20> powers{};
    powers[0] = 1;
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}();

/// The digits of a number as a reader meets them: the number is Digits() times ten to the power Exponent().
/// Any count of digits is taken. Those beyond what can change the rounding of a Double leave a trace, not their value.
class DecimalDigits {
public:
    void AppendWhole(char16_t digit) noexcept { Append(digit, 0); }
    void AppendFraction(char16_t digit) noexcept { Append(digit, -1); }
    /// Multiplies by ten to the power @p exponent.
    void MultiplyByPower(int exponent) noexcept { mExponent += exponent; }

    /// Without leading zeros; empty for 0.
    std::string_view Digits() const noexcept { return {mDigits.data(), mCount}; }
    int Exponent() const noexcept { return mExponent; }
    /// The nearest Double, 0 below the smallest; nullopt above the greatest.
    std::optional<double> ToDouble() const noexcept;

private:
    // No Double needs more than 768 digits for its rounding; the rest only tells a half from more than a half.
    static constexpr std::size_t kCapacity = 772;

    void Append(char16_t digit, int exponentStep) noexcept;

    std::array<char, kCapacity> mDigits;  // the first mCount are set
    std::size_t mCount = 0;
    int mExponent = 0;
};

/// An exponent behind "E" in a text: sign and digits at @p at, which moves behind them.
/// Nullopt, with @p at as it was, if there are no digits. Exponents beyond any number are cut to a size that is still
/// beyond.
std::optional<int> ReadExponent(std::u16string_view text, std::size_t& at) noexcept;

/// A finite number rounded to some significant digits, without trailing zeros: d.ddd times ten to the power exponent.
struct RoundedDigits {
    std::array<char, 17> digits;
    std::size_t count = 0;  ///< 1 for 0
    int exponent = 0;
    bool negative = false;

    std::string_view Digits() const noexcept { return {digits.data(), count}; }
};

/// @pre value is finite, significant is 1 to 17
RoundedDigits RoundToDigits(double value, int significant) noexcept;

/// Significant digits that the text of a Double and of a Single has.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kSingleDigits = 7;

}  // namespace ov
