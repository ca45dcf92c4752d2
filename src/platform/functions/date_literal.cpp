#include "platform/functions/date_literal.h"

#include <array>
#include <cstddef>
#include <span>
#include <tuple>
#include <utility>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/text.h"
#include "platform/system/clock.h"

namespace ov::vbscript {

namespace {

constexpr std::array<std::u16string_view, 12> kMonths = {u"january",   u"february", u"march",    u"april",
                                                         u"may",       u"june",     u"july",     u"august",
                                                         u"september", u"october",  u"november", u"december"};
constexpr int kNoNumber = -1;

/// A number or a word of the literal.
struct Part {
    int number = kNoNumber;
    std::u16string_view word;
    std::size_t digits = 0;
};

class Reader {
public:
    explicit Reader(std::u16string_view text) : mText(text) {}

    std::optional<Date> Read() {
        SkipBlanks();
        double hours = 0, minutes = 0, seconds = 0;
        std::array<Part, 3> parts;
        std::size_t count = 0;
        bool hasTime = false;
        while (mAt < mText.size()) {
            const std::size_t start = mAt;
            const Part part = Next();
            const bool isTime = part.number != kNoNumber && (Is(u':') || NextIsHalfDay());
            if (isTime && !hasTime) {
                mAt = start;
                if (!ReadTime(hours, minutes, seconds)) return std::nullopt;
                hasTime = true;
            } else if (!hasTime && count < parts.size() && (part.number != kNoNumber || !part.word.empty())) {
                parts[count++] = part;
                SkipSeparator();
            } else {
                return std::nullopt;
            }
        }
        return Compose({parts.data(), count}, hasTime, hours, minutes, seconds);
    }

private:
    bool Is(char16_t c) const noexcept { return mAt < mText.size() && mText[mAt] == c; }
    static bool IsDigit(char16_t c) noexcept { return c >= u'0' && c <= u'9'; }
    static bool IsLetter(char16_t c) noexcept { return (c | 0x20) >= u'a' && (c | 0x20) <= u'z'; }

    void SkipBlanks() noexcept {
        while (Is(u' ') || Is(u'\t')) {
            ++mAt;
        }
    }
    void SkipSeparator() noexcept {
        SkipBlanks();
        if (Is(u'/') || Is(u'-') || Is(u',') || Is(u'.')) ++mAt;
        SkipBlanks();
    }
    Part Next() noexcept {
        Part part;
        const std::size_t start = mAt;
        if (mAt < mText.size() && IsDigit(mText[mAt])) {
            part.number = 0;
            for (; mAt < mText.size() && IsDigit(mText[mAt]) && part.number < 100'000; ++mAt) {
                part.number = part.number * 10 + (mText[mAt] - u'0');
            }
            part.digits = mAt - start;
        } else {
            while (mAt < mText.size() && IsLetter(mText[mAt])) {
                ++mAt;
            }
            part.word = mText.substr(start, mAt - start);
        }
        return part;
    }
    std::optional<int> HalfDay() noexcept {  // hours to add: 0 for AM, 12 for PM
        const std::size_t start = mAt;
        SkipBlanks();
        const std::u16string_view word = Next().word;
        if (EqualNoCase(word, u"am")) return 0;
        if (EqualNoCase(word, u"pm")) return 12;
        mAt = start;
        return std::nullopt;
    }
    bool NextIsHalfDay() noexcept {
        const std::size_t start = mAt;
        const bool found = HalfDay().has_value();
        mAt = start;
        return found;
    }
    bool ReadTime(double& hours, double& minutes, double& seconds) noexcept {
        std::array<int, 3> numbers{};
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers[i] = Next().number;
            if (numbers[i] == kNoNumber) return false;
            if (i == 2 || !Is(u':')) break;
            ++mAt;
        }
        if (const std::optional<int> half = HalfDay()) {
            if (numbers[0] < 1 || numbers[0] > 12) return false;
            numbers[0] = numbers[0] % 12 + *half;
        }
        SkipBlanks();
        hours = numbers[0];
        minutes = numbers[1];
        seconds = numbers[2];
        return numbers[0] < 24 && numbers[1] < 60 && numbers[2] < 60;
    }

    static int MonthOf(std::u16string_view word) noexcept {
        for (std::size_t i = 0; i < kMonths.size(); ++i) {
            if (EqualNoCase(word, kMonths[i]) || EqualNoCase(word, kMonths[i].substr(0, 3))) {
                return static_cast<int>(i) + 1;
            }
        }
        return 0;
    }
    static int YearOf(const Part& part) noexcept {
        if (part.digits > 2) return part.number;
        return part.number < 30 ? 2000 + part.number : 1900 + part.number;
    }
    static bool IsMonth(int number) noexcept { return number >= 1 && number <= 12; }

    static std::optional<Date> Compose(std::span<const Part> parts, bool hasTime, double hours, double minutes,
                                       double seconds) {
        if (parts.empty()) {
            if (!hasTime) return std::nullopt;
            return FromCalendar(1899, 12, 30, hours, minutes, seconds);
        }
        int year = 0, month = 0, day = 0;
        if (!Assign(parts, year, month, day)) return std::nullopt;
        if (!IsMonth(month) || day < 1) return std::nullopt;
        try {
            const Date date = FromCalendar(year, month, day, hours, minutes, seconds);
            // A day that the month lacks would have carried over.
            if (ToCalendar(FromCalendar(year, month, day)).day != day) return std::nullopt;
            return date;
        } catch (const RuntimeError&) {
            return std::nullopt;  // a year outside the calendar
        }
    }
    static bool Assign(std::span<const Part> parts, int& year, int& month, int& day) {
        std::array<Part, 3> numbers;
        std::size_t count = 0;
        for (const Part& part : parts) {
            if (part.number != kNoNumber) {
                numbers[count++] = part;
            } else if (month == 0 && (month = MonthOf(part.word)) == 0) {
                return false;
            }
        }
        if (count + (month != 0 ? 1 : 0) != parts.size() || parts.size() < 2) return false;
        const int thisYear = ToCalendar(Now()).year;
        if (month != 0) {
            // "January 5, 2001", "5 January 2001", "2001 January 5", "January 2001", "January 5".
            const bool isYearAlone = count == 1 && (numbers[0].digits > 2 || numbers[0].number > 31);
            const bool yearFirst = count == 2 && numbers[0].digits > 2;
            if (yearFirst) std::swap(numbers[0], numbers[1]);
            day = isYearAlone ? 1 : numbers[0].number;
            year = isYearAlone ? numbers[0].number : count == 2 ? YearOf(numbers[1]) : thisYear;
            return true;
        }
        if (count == 2) {  // month and day, or month and year
            if (numbers[1].digits > 2 || numbers[1].number > 31) {
                std::tie(month, day, year) = std::tuple(numbers[0].number, 1, YearOf(numbers[1]));
            } else {
                std::tie(month, day, year) = std::tuple(numbers[0].number, numbers[1].number, thisYear);
                if (!IsMonth(month)) std::swap(month, day);
            }
            return true;
        }
        if (numbers[0].digits > 2) {
            std::tie(year, month, day) = std::tuple(numbers[0].number, numbers[1].number, numbers[2].number);
        } else {
            std::tie(month, day, year) = std::tuple(numbers[0].number, numbers[1].number, YearOf(numbers[2]));
            if (!IsMonth(month)) std::swap(month, day);
        }
        return true;
    }

    std::u16string_view mText;
    std::size_t mAt = 0;
};

}  // namespace

std::optional<Date> ReadDateLiteral(std::u16string_view text) {
    return Reader(text).Read();
}

}  // namespace ov::vbscript
