/// @file
/// Pictures of dates and times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/automation/text.h"
#include "platform/format/picture_form.h"

namespace ov {

/// What a date picture writes at one place.
enum class DateField : std::uint8_t {
    Literal,
    // Texts of the locale
    DateSeparator,
    TimeSeparator,
    General,  ///< short date and long time, or what of them the value has
    ShortDate,
    LongDate,
    LongTime,
    DayAbbreviation,
    DayName,
    MonthAbbreviation,
    MonthName,
    // Numbers
    Day,
    Weekday,     ///< 1 is Sunday
    WeekOfYear,  ///< of weeks that begin on Sunday; the first one holds the first of January
    Month,
    Quarter,
    DayOfYear,
    YearOfCentury,
    Year,
    Hour,
    Minute,
    Second,
    // Halves of the day
    HalfUpperCase,
    HalfLowerCase,
    HalfLetterUpperCase,
    HalfLetterLowerCase,
    HalfOfLocale,
};

/// A field as a picture spells it.
struct DateToken {
    std::u16string_view letters;
    DateField field;
    std::uint8_t width = 1;  ///< digits of a number at least
};

/// The longest token that begins at @p at, or nullptr. It takes no account of what stands before: "m" is a month.
const DateToken* DateTokenAt(std::u16string_view picture, std::size_t at) noexcept;

class DatePicture final : public PictureForm {
public:
    explicit DatePicture(std::u16string_view picture);
    Text Apply(const Variant& value) const override;

private:
    struct Item {
        DateField field;
        std::uint8_t width;
        char16_t character;  // of a Literal
    };

    std::vector<Item> mItems;
    bool mHas12Hours = false;  // a half of the day is written, so hours count to 12
};

}  // namespace ov
