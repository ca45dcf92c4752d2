/// @file
/// A number as decimal digits that can be rounded and read place by place.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/variant.h"
#include "platform/locale/locale.h"

namespace ov {

/// The decimal digits of a number: exact for the integer types, Currency and Decimal, 15 significant digits of a Double
/// and 7 of a Single, as in the number's text. Places are powers of ten: 0 is the units, -1 the tenths.
class DecimalNumber {
public:
    /// Zero.
    DecimalNumber() noexcept = default;
    /// @pre value is finite, significant is 1 to 17
    DecimalNumber(double value, int significant) noexcept;
    explicit DecimalNumber(const Decimal& value) noexcept;
    explicit DecimalNumber(std::int64_t value) noexcept;

    /// Other types as their Double; nullopt for NaN and infinity. @throws what ToDouble raises
    static std::optional<DecimalNumber> Of(const Variant& value);

    bool IsZero() const noexcept { return mCount == 0; }
    /// The sign that the number came with; it stays when the number is rounded to zero.
    bool IsNegative() const noexcept { return mNegative; }
    /// Places before the point, 0 below 1.
    int WholeDigits() const noexcept { return mPoint > 0 ? mPoint : 0; }
    /// Places behind the point up to the last digit that is not 0.
    int FractionDigits() const noexcept { return mCount > mPoint ? mCount - mPoint : 0; }
    /// Place of the first digit; 0 for zero.
    int Exponent() const noexcept { return IsZero() ? 0 : mPoint - 1; }
    /// The digit at a place; '0' where the number has none.
    char16_t DigitAt(int place) const noexcept {
        const int index = mPoint - 1 - place;
        return index >= 0 && index < mCount ? static_cast<char16_t>(mDigits[static_cast<std::size_t>(index)]) : u'0';
    }

    void MultiplyByPower(int power) noexcept {
        if (!IsZero()) mPoint += power;
    }
    /// Halves away from zero.
    void RoundToPlaces(int places) noexcept { KeepDigits(mPoint + places); }
    void RoundToSignificant(int digits) noexcept { KeepDigits(digits); }

private:
    static constexpr int kCapacity = 40;

    void Take(std::string_view digits, int exponent) noexcept;
    void KeepDigits(int count) noexcept;
    void TrimZeros() noexcept;

    // The first mCount digits are set; the first and the last of them are not 0.
    std::array<char, kCapacity> mDigits;
    int mCount = 0;
    int mPoint = 0;  // how many of the digits stand before the point; below 0 that many zeros follow it
    bool mNegative = false;
};

/// Appends the digit at @p place, and a group separator of @p locale where one follows it.
void AppendGroupedDigit(std::u16string& out, const DecimalNumber& number, int place, const Locale& locale);

}  // namespace ov
