/// @file
/// Pictures of numbers: digit placeholders in sections by the number's sign.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/text.h"
#include "platform/format/decimal_number.h"
#include "platform/format/picture_form.h"
#include "platform/locale/locale.h"

namespace ov {

/// One section of a number picture, such as "#,##0.00".
class NumberSection {
public:
    /// Reads a section at @p at, which moves to the ";" behind it or to the end.
    NumberSection(std::u16string_view picture, std::size_t& at);

    /// Nothing stands between its semicolons.
    bool IsEmpty() const noexcept { return mItems.empty(); }
    /// Appends the size of @p number; the sign is the caller's.
    void Write(std::u16string& out, DecimalNumber number, const Locale& locale) const;

private:
    enum class Kind : std::uint8_t { Literal, Digit, Point, DateSeparator, TimeSeparator, Exponent };
    struct Item {
        Kind kind;
        char16_t character;  // of a Literal; the letter of the Exponent
    };

    void AddLiterals(std::u16string_view characters);
    void AddDigit(bool isForced);
    void AddCommas(std::u16string_view picture, std::size_t& at);
    bool AddExponent(std::u16string_view picture, std::size_t& at);
    void AddPower(int power) noexcept;
    void FinishScaling() noexcept;
    int TakeExponent(DecimalNumber& number) const noexcept;
    void WriteExponent(std::u16string& out, char16_t letter, int exponent) const;

    std::vector<Item> mItems;
    int mWholePlaces = 0;     // placeholders before the point
    int mForcedWhole = 0;     // digits that are written there at least
    int mFractionPlaces = 0;  // the same behind the point
    int mForcedFraction = 0;
    int mPower = 0;       // the number is multiplied by ten to this power
    int mOpenCommas = 0;  // commas that group if a placeholder follows before the point, and scale if not
    int mExponentDigits = 0;
    bool mHasPoint = false;
    bool mHasExponent = false;
    bool mHasPlus = false;  // "+" before an exponent that is not negative
    bool mIsGrouped = false;
};

class NumberPicture final : public PictureForm {
public:
    explicit NumberPicture(std::u16string_view picture);
    Text Apply(const Variant& value) const override;

private:
    const NumberSection* SectionAt(std::size_t index) const noexcept;

    std::vector<NumberSection> mSections;  // 1 to 4
};

}  // namespace ov
