/// @file
/// The locale service: separators, date forms, names and letter case, from ICU's data.
///
/// The process has one locale. It comes from the environment (LC_ALL, then LC_NUMERIC, then LANG; none, "C" or "POSIX"
/// reads as en-US) at its first use, or is set by the host. All text conversions of values go through it; stored texts
/// do not.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ov {

/// Order of year, month and day in the short date form.
enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

/// What the conversions need to know of a locale. Texts are as the locale writes them, but for blanks that do not break
/// a line: in pictures and marks they are plain ones, which is what a person types; a group separator keeps its own.
/// Dates are Gregorian and digits are 0 to 9 in every locale.
struct Locale {
    std::string name;        ///< BCP 47, such as "de-DE"
    std::uint32_t lcid = 0;  ///< language identifier, such as 0x0407
    char16_t decimal = u'.';
    std::u16string group;  ///< group separator, empty if numbers are not grouped
    int groupSize = 3;
    std::u16string currencySymbol;  ///< such as "$"
    bool currencyBefore = true;     ///< symbol before the number
    bool currencySpace = false;     ///< a blank between symbol and number
    DateOrder dateOrder = DateOrder::MonthDayYear;
    std::u16string dateSeparator;  ///< of the short date, such as "/"
    std::u16string timeSeparator;  ///< such as ":", which every locale reads beside its own
    bool IsTimeSeparator(char16_t c) const noexcept { return c == u':' || timeSeparator.starts_with(c); }
    std::u16string shortDate;    ///< picture of the short date, always with four year digits: "M/d/yyyy", "dd.MM.yyyy"
    std::u16string longDate;     ///< picture of the long date: "dddd, MMMM d, yyyy"
    std::u16string longTime;     ///< picture of the long time: "h:mm:ss tt", "HH:mm:ss"
    std::u16string shortTime;    ///< the same without seconds
    bool hours24 = false;        ///< the long time form counts 24 hours
    bool hourTwoDigits = false;  ///< the long time form writes hours with two digits
    std::u16string am, pm;       ///< day half marks, "AM" and "PM"
    int firstDayOfWeek = 1;      ///< 1 is Sunday
    int daysInFirstWeek = 1;     ///< least number of a year's days that make a week its first one
    /// January first, in the form that stands by itself; the same for the days, Sunday first.
    std::array<std::u16string, 12> monthNames, monthAbbreviations;
    std::array<std::u16string, 7> dayNames, dayAbbreviations;
};

/// The process's locale. Its facts are gathered at the first call and kept, so a reference never goes stale, but it is
/// that of the former locale after a change.
const Locale& CurrentLocale() noexcept;
/// Sets the process's locale by a name such as "de-DE", "de_DE.UTF-8" or "C"; a language alone, as "de", is that of
/// its main country. @returns false, with nothing changed, if there is no such locale.
bool SetCurrentLocale(std::string_view name);
/// The same by language identifier, such as 0x0407; 0 is the environment's locale.
bool SetCurrentLocale(std::uint32_t lcid);

/// Letter case by the rules of Unicode that do not depend on a language; one character stays one character.
std::u16string ToUpperCase(std::u16string_view text);
std::u16string ToLowerCase(std::u16string_view text);
/// The order of two texts for a person: without regard to case, by the locale's collation. -1, 0 or 1.
int CompareTexts(std::u16string_view a, std::u16string_view b);
/// The same in an order that no locale changes: what is stored in it is found in it again.
int CompareTextsNeutral(std::u16string_view a, std::u16string_view b);
/// The simple case folding of one character beyond ASCII; one half of a surrogate pair stays as it is.
char16_t FoldCharacter(char16_t c) noexcept;

/// A picture of d, M, y, H, h, m, s and t letters written out for one calendar time; text in quotes, single or double,
/// as it stands. @p weekday is 1 for Sunday. A part of the time outside its range leaves its name out.
std::u16string FormatDatePicture(const Locale& locale, std::u16string_view picture, int year, int month, int day,
                                 int weekday, int hour, int minute, int second);

}  // namespace ov
