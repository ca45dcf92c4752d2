#include "platform/automation/date_text.h"

#include <array>
#include <chrono>
#include <ctime>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/characters.h"
#include "platform/automation/conversions.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

constexpr std::array<std::u16string_view, 12> kEnglishMonths = {u"January",   u"February", u"March",    u"April",
                                                                u"May",       u"June",     u"July",     u"August",
                                                                u"September", u"October",  u"November", u"December"};

int CurrentYear() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

bool IsLetter(char16_t c) noexcept {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= 0x80 && !IsBlank(c));
}

bool StartsWithNoCase(std::u16string_view text, std::u16string_view word) noexcept {
    return text.size() >= word.size() && EqualNoCase(text.substr(0, word.size()), word);
}

/// The month of 1 to 12 that a word names, or 0: an abbreviation of the locale, or the whole name in the locale or in
/// English, or at least three letters of it.
int MonthOf(std::u16string_view word, const Locale& locale) noexcept {
    for (std::size_t i = 0; i < 12; ++i) {
        std::u16string_view abbreviation = locale.monthAbbreviations[i];
        while (abbreviation.ends_with(u'.')) {
            abbreviation.remove_suffix(1);
        }
        const bool isName = EqualNoCase(word, locale.monthNames[i]) || EqualNoCase(word, kEnglishMonths[i]);
        if (isName || (!word.empty() && EqualNoCase(word, abbreviation))) return static_cast<int>(i) + 1;
    }
    if (word.size() < 3) return 0;
    int month = 0;
    for (std::size_t i = 0; i < 12; ++i) {
        if (!StartsWithNoCase(locale.monthNames[i], word) && !StartsWithNoCase(kEnglishMonths[i], word)) continue;
        if (month != 0) return 0;  // it begins two names
        month = static_cast<int>(i) + 1;
    }
    return month;
}

/// A number in a date text. Two digits or less can be anything, more only a year.
struct DateNumber {
    int value = 0;
    std::size_t digits = 0;

    /// The number as a year: up to two digits are 1930 to 2029.
    int Year() const noexcept { return digits > 2 ? value : value + (value < 30 ? 2000 : 1900); }
};

constexpr DateNumber kFirst{1, 1};

/// Which of three numbers is what.
struct Order {
    std::size_t day;
    std::size_t month;
    std::size_t year;
};

/// The order @p local, and the others in the sequence in which they are tried.
std::array<Order, 4> OrdersOf(DateOrder local) noexcept {
    constexpr Order kMonthDayYear{1, 0, 2};
    constexpr Order kDayMonthYear{0, 1, 2};
    constexpr Order kYearMonthDay{2, 1, 0};
    constexpr Order kYearDayMonth{1, 2, 0};
    switch (local) {
        case DateOrder::DayMonthYear:
            return {kDayMonthYear, kMonthDayYear, kYearMonthDay, kYearDayMonth};
        case DateOrder::YearMonthDay:
            return {kYearMonthDay, kYearDayMonth, kMonthDayYear, kDayMonthYear};
        case DateOrder::MonthDayYear:
            break;
    }
    return {kMonthDayYear, kDayMonthYear, kYearMonthDay, kYearDayMonth};
}

/// Splits a date text into its numbers, its month's name and its time.
class DateReader {
public:
    explicit DateReader(std::u16string_view text) noexcept : mText(text), mLocale(CurrentLocale()) {}

    std::optional<Date> Read() {
        if (!Scan()) return std::nullopt;
        if (mCount == 0 && mMonth == 0) return mHasTime ? std::optional(At(1899, 12, 30)) : std::nullopt;
        if (mMonth != 0) return ResolveNamed();
        if (mIsLoose) return std::nullopt;
        std::optional<Date> date = ResolveNumbers();
        if (!date && TakeNumbersAsTime()) date = At(1899, 12, 30);
        return date;
    }

private:
    bool AtEnd() const noexcept { return mAt >= mText.size(); }
    char16_t Peek(std::size_t ahead = 0) const noexcept {
        return mAt + ahead < mText.size() ? mText[mAt + ahead] : u'\0';
    }
    void SkipBlanks() noexcept {
        while (IsBlank(Peek())) {
            ++mAt;
        }
    }

    bool Scan() {
        for (SkipBlanks(); !AtEnd(); SkipBlanks()) {
            const char16_t c = Peek();
            const bool read = IsDigit(c) ? ScanNumber() : IsLetter(c) ? ScanWord() : ScanSeparator();
            if (!read) return false;
        }
        return mPending == 0 || (mPending == u'.' && mCount > 0);
    }

    bool ScanSeparator() noexcept {
        const char16_t c = Peek();
        const bool isSeparator =
            c == u'/' || c == u'-' || c == u'.' || c == u',' || mLocale.dateSeparator.starts_with(c);
        if (!isSeparator || mPending != 0 || (mCount == 0 && mMonth == 0 && !mHasTime)) return false;
        mPending = c;
        ++mAt;
        return true;
    }

    bool ScanWord() noexcept {
        const std::size_t start = mAt;
        while (IsLetter(Peek())) {
            ++mAt;
        }
        const std::u16string_view word = mText.substr(start, mAt - start);
        // The "T" of an ISO date and time.
        if (EqualNoCase(word, u"T") && mCount == 3 && mPending == 0 && IsDigit(Peek())) return true;
        if (mMonth != 0) return false;
        mMonth = MonthOf(word, mLocale);
        mPending = 0;
        return mMonth != 0;
    }

    std::optional<DateNumber> TakeDigits(std::size_t most) noexcept {
        DateNumber number;
        for (; IsDigit(Peek()); ++mAt) {
            if (++number.digits > most) return std::nullopt;
            number.value = number.value * 10 + (Peek() - u'0');
        }
        return number.digits > 0 ? std::optional(number) : std::nullopt;
    }

    bool ScanNumber() noexcept {
        const std::optional<DateNumber> number = TakeDigits(4);
        if (!number) return false;
        if (IsTimeSeparator(Peek()) && IsDigit(Peek(1))) return ScanTime(*number);
        if (const std::optional<bool> isAfternoon = TakeDayHalf()) {
            mHour = number->value;
            return SetTime(isAfternoon);
        }
        if (mCount == mNumbers.size()) return false;
        if (mCount > 0) {
            // Blanks and commas hold numbers together only around a month's name: "March 5, 2024".
            const char16_t separator = mPending == 0 ? u' ' : mPending;
            if (separator == u' ' || separator == u',' || (mSeparator != 0 && separator != mSeparator)) mIsLoose = true;
            mSeparator = separator;
        }
        mPending = 0;
        mNumbers[mCount++] = *number;
        return true;
    }

    /// ":" always; the locale's own, where that may also separate a date's numbers, only behind a whole date.
    bool IsTimeSeparator(char16_t c) const noexcept {
        if (!mLocale.IsTimeSeparator(c)) return false;
        return (c != u'.' && c != u'/' && c != u'-') || mCount == mNumbers.size();
    }

    bool ScanTime(const DateNumber& hour) noexcept {
        const char16_t separator = Peek();
        mHour = hour.value;
        ++mAt;
        const std::optional<DateNumber> minute = TakeDigits(2);
        if (!minute) return false;
        mMinute = minute->value;
        if (Peek() == separator) {
            ++mAt;
            const std::optional<DateNumber> second = TakeDigits(2);
            if (!second) return false;
            mSecond = second->value;
            if (separator == u':' && Peek() == u'.' && IsDigit(Peek(1))) {
                double place = 0.1;
                for (++mAt; IsDigit(Peek()); ++mAt, place /= 10) {
                    mSecond += (Peek() - u'0') * place;
                }
            }
        }
        return SetTime(TakeDayHalf());
    }

    /// The mark of a half of the day behind an hour: true for the second one.
    std::optional<bool> TakeDayHalf() noexcept {
        std::size_t at = mAt;
        while (at < mText.size() && IsBlank(mText[at])) {
            ++at;
        }
        const std::u16string_view rest = mText.substr(at);
        for (const bool isAfternoon : {false, true}) {
            const std::u16string_view own = isAfternoon ? mLocale.pm : mLocale.am;
            const std::u16string_view dotted = isAfternoon ? u"p.m." : u"a.m.";
            const std::u16string_view plain = isAfternoon ? u"pm" : u"am";
            for (const std::u16string_view mark : {own, dotted, plain, plain.substr(0, 1)}) {
                const bool isMark = !mark.empty() && StartsWithNoCase(rest, mark);
                if (!isMark || (rest.size() > mark.size() && IsLetter(rest[mark.size()]))) continue;
                mAt = at + mark.size();
                return isAfternoon;
            }
        }
        return std::nullopt;
    }

    bool SetTime(std::optional<bool> isAfternoon) noexcept {
        const bool follows = mPending == 0 || mPending == u',' || mPending == u'.';  // Hungarian dates end in a point
        if (mHasTime || !follows) return false;
        mPending = 0;
        mHasTime = true;
        if (isAfternoon && mHour <= 12) mHour = mHour % 12 + (*isAfternoon ? 12 : 0);
        const bool wrongHalf = isAfternoon && !*isAfternoon && mHour > 12;
        return !wrongHalf && mHour < 24 && mMinute < 60 && mSecond < 60;
    }

    /// "14.30" in a locale that writes times with the separator of its dates.
    bool TakeNumbersAsTime() noexcept {
        if (mHasTime || mCount < 2 || !mLocale.timeSeparator.starts_with(mSeparator)) return false;
        mHour = mNumbers[0].value;
        mMinute = mNumbers[1].value;
        mSecond = mNumbers[2].value;
        return SetTime(std::nullopt);
    }

    Date At(int year, int month, int day) const { return FromCalendar(year, month, day, mHour, mMinute, mSecond); }

    std::optional<Date> DayOf(const DateNumber& day, const DateNumber& month, int year) const {
        using namespace std::chrono;
        if (day.digits > 2 || month.digits > 2 || year < 100) return std::nullopt;
        const auto date = std::chrono::year(year) / month.value / day.value;
        return date.ok() ? std::optional(At(year, month.value, day.value)) : std::nullopt;
    }

    std::optional<Date> ResolveNamed() const {
        const DateNumber month{mMonth, 1};
        const auto& [a, b, c] = mNumbers;
        std::optional<Date> date;
        if (mCount == 1) {
            date = DayOf(a, month, CurrentYear());
            if (!date) date = DayOf(kFirst, month, a.Year());
        } else if (mCount == 2) {
            date = DayOf(a, month, b.Year());
            if (!date) date = DayOf(b, month, a.Year());
        }
        return date;
    }

    /// The locale's order first, then whichever other one makes sense.
    std::optional<Date> ResolveNumbers() const {
        if (mCount == 3) {
            for (const Order& order : OrdersOf(mLocale.dateOrder)) {
                const int year = mNumbers[order.year].Year();
                if (const auto date = DayOf(mNumbers[order.day], mNumbers[order.month], year)) return date;
            }
        }
        const auto& [a, b, c] = mNumbers;
        // "1.5" is a number, unless dates are written so.
        if (mCount != 2 || (mSeparator == u'.' && !mLocale.dateSeparator.starts_with(u'.'))) return std::nullopt;
        const bool dayFirst = mLocale.dateOrder == DateOrder::DayMonthYear;
        const int year = CurrentYear();
        std::optional<Date> date = dayFirst ? DayOf(a, b, year) : DayOf(b, a, year);
        if (!date) date = dayFirst ? DayOf(b, a, year) : DayOf(a, b, year);
        if (!date) date = DayOf(kFirst, a, b.Year());
        if (!date) date = DayOf(kFirst, b, a.Year());
        return date;
    }

    std::u16string_view mText;
    const Locale& mLocale;
    std::size_t mAt = 0;
    std::array<DateNumber, 3> mNumbers;
    std::size_t mCount = 0;
    int mMonth = 0;           // that a name gave
    char16_t mPending = 0;    // separator that waits for what it separates
    char16_t mSeparator = 0;  // between the numbers
    bool mIsLoose = false;    // separators that only a month's name allows
    bool mHasTime = false;
    int mHour = 0;
    int mMinute = 0;
    double mSecond = 0;
};

void PutTwoDigits(std::u16string& out, int number) {
    out += static_cast<char16_t>(u'0' + number / 10);
    out += static_cast<char16_t>(u'0' + number % 10);
}

std::u16string TimeToText(const CalendarTime& time, const Locale& locale) {
    const int hour = locale.hours24 ? time.hour : (time.hour + 11) % 12 + 1;
    std::u16string out;
    PutTwoDigits(out, hour);
    if (hour < 10 && !locale.hourTwoDigits) out.erase(0, 1);
    out += locale.timeSeparator;
    PutTwoDigits(out, time.minute);
    out += locale.timeSeparator;
    PutTwoDigits(out, time.second);
    if (!locale.hours24) out += u' ' + (time.hour < 12 ? locale.am : locale.pm);
    return out;
}

}  // namespace

std::optional<Date> ReadDate(std::u16string_view text) {
    return DateReader(text).Read();
}

Text DateToText(Date date) {
    const Locale& locale = CurrentLocale();
    const CalendarTime time = ToCalendar(date);
    const bool isDayZero = time.year == 1899 && time.month == 12 && time.day == 30;
    const bool isMidnight = time.hour == 0 && time.minute == 0 && time.second == 0;
    if (isDayZero) return TimeToText(time, locale);
    std::u16string out = FormatDatePicture(locale, locale.shortDate, time.year, time.month, time.day, time.weekday,
                                           time.hour, time.minute, time.second);
    if (!isMidnight) out += u' ' + TimeToText(time, locale);
    return out;
}

}  // namespace ov
