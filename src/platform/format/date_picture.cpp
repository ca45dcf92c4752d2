#include "platform/format/date_picture.h"

#include <array>
#include <charconv>
#include <string>

#include "platform/automation/conversions.h"
#include "platform/automation/date_text.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

// Of the tokens that begin alike the longest comes first. Case matters only between the two cases of a mark.
constexpr std::array<DateToken, 33> kTokens = {{
    {u"dddddd", DateField::LongDate},
    {u"ddddd", DateField::ShortDate},
    {u"dddd", DateField::DayName},
    {u"ddd", DateField::DayAbbreviation},
    {u"dd", DateField::Day, 2},
    {u"d", DateField::Day},
    {u"mmmm", DateField::MonthName},
    {u"mmm", DateField::MonthAbbreviation},
    {u"mm", DateField::Month, 2},
    {u"m", DateField::Month},
    {u"yyyy", DateField::Year, 4},
    {u"yy", DateField::YearOfCentury, 2},
    {u"y", DateField::DayOfYear},
    {u"hh", DateField::Hour, 2},
    {u"h", DateField::Hour},
    {u"nn", DateField::Minute, 2},
    {u"n", DateField::Minute},
    {u"ss", DateField::Second, 2},
    {u"s", DateField::Second},
    {u"/", DateField::DateSeparator},
    {u":", DateField::TimeSeparator},
    {u"ttttt", DateField::LongTime},
    {u"c", DateField::General},
    {u"ww", DateField::WeekOfYear},
    {u"w", DateField::Weekday},
    {u"q", DateField::Quarter},
    {u"aaaa", DateField::DayName},
    {u"oooo", DateField::MonthName},
    {u"am/pm", DateField::HalfLowerCase},
    {u"AM/PM", DateField::HalfUpperCase},
    {u"a/p", DateField::HalfLetterLowerCase},
    {u"A/P", DateField::HalfLetterUpperCase},
    {u"AMPM", DateField::HalfOfLocale},
}};

bool IsHalf(DateField field) noexcept {
    return field >= DateField::HalfUpperCase;
}

bool IsMarkWithCase(DateField field) noexcept {
    return IsHalf(field) && field != DateField::HalfOfLocale;
}

void AppendNumber(std::u16string& out, int number, std::size_t width) {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    if (count < width) out.append(width - count, u'0');
    out.append(digits.data(), end);
}

int WeekOfYear(const CalendarTime& time) noexcept {
    constexpr int kDays = 7;
    const int passed = time.dayOfYear - 1;
    const int firstWeekday = ((time.weekday - 1 - passed) % kDays + kDays) % kDays;  // of January 1, from 0
    return (passed + firstWeekday) / kDays + 1;
}

int NumberOf(DateField field, const CalendarTime& time) noexcept {
    switch (field) {
        case DateField::Day:
            return time.day;
        case DateField::Weekday:
            return time.weekday;
        case DateField::WeekOfYear:
            return WeekOfYear(time);
        case DateField::Month:
            return time.month;
        case DateField::Quarter:
            return (time.month + 2) / 3;
        case DateField::DayOfYear:
            return time.dayOfYear;
        case DateField::YearOfCentury:
            return time.year % 100;
        case DateField::Year:
            return time.year;
        case DateField::Hour:
            return time.hour;
        case DateField::Minute:
            return time.minute;
        default:
            return time.second;
    }
}

std::u16string_view HalfOfDay(DateField field, bool isMorning, const Locale& locale) noexcept {
    switch (field) {
        case DateField::HalfUpperCase:
            return isMorning ? u"AM" : u"PM";
        case DateField::HalfLowerCase:
            return isMorning ? u"am" : u"pm";
        case DateField::HalfLetterUpperCase:
            return isMorning ? u"A" : u"P";
        case DateField::HalfLetterLowerCase:
            return isMorning ? u"a" : u"p";
        default:
            return isMorning ? locale.am : locale.pm;
    }
}

// One moment, written field by field.
class DateWriter {
public:
    explicit DateWriter(Date date) : mDate(date), mTime(ToCalendar(date)), mLocale(CurrentLocale()) {}

    void Append(std::u16string& out, DateField field, std::size_t width, bool has12Hours) const {
        if (IsHalf(field)) {
            out += HalfOfDay(field, mTime.hour < 12, mLocale);
        } else if (field == DateField::Hour && has12Hours) {
            AppendNumber(out, (mTime.hour + 11) % 12 + 1, width);
        } else if (field >= DateField::Day) {
            AppendNumber(out, NumberOf(field, mTime), width);
        } else {
            AppendText(out, field);
        }
    }

private:
    void AppendText(std::u16string& out, DateField field) const {
        switch (field) {
            case DateField::DateSeparator:
                out += mLocale.dateSeparator;
                break;
            case DateField::TimeSeparator:
                out += mLocale.timeSeparator;
                break;
            case DateField::ShortDate:
                AppendForm(out, mLocale.shortDate);
                break;
            case DateField::LongDate:
                AppendForm(out, mLocale.longDate);
                break;
            case DateField::LongTime:
                AppendForm(out, mLocale.longTime);
                break;
            case DateField::DayAbbreviation:
                out += mLocale.dayAbbreviations[static_cast<std::size_t>(mTime.weekday) - 1];
                break;
            case DateField::DayName:
                out += mLocale.dayNames[static_cast<std::size_t>(mTime.weekday) - 1];
                break;
            case DateField::MonthAbbreviation:
                out += mLocale.monthAbbreviations[static_cast<std::size_t>(mTime.month) - 1];
                break;
            case DateField::MonthName:
                out += mLocale.monthNames[static_cast<std::size_t>(mTime.month) - 1];
                break;
            default:
                out += DateToText(mDate).view();
                break;
        }
    }

    void AppendForm(std::u16string& out, const std::u16string& form) const {
        out += FormatDatePicture(mLocale, form, mTime.year, mTime.month, mTime.day, mTime.weekday, mTime.hour,
                                 mTime.minute, mTime.second);
    }

    Date mDate;
    CalendarTime mTime;
    const Locale& mLocale;
};

// The date that a value is for a picture, or nullopt for a text that is none.
std::optional<Date> DateOf(const Variant& value) {
    if (!value.IsString()) return ToDate(value);
    if (const std::optional<Date> date = ReadDate(value.AsText())) return date;
    const std::optional<double> days = ReadNumber(value.AsText());
    return days && IsDateNumber(*days) ? std::optional(Date{*days}) : std::nullopt;
}

}  // namespace

const DateToken* DateTokenAt(std::u16string_view picture, std::size_t at) noexcept {
    const char16_t first = FoldCase(picture[at]);
    for (const DateToken& token : kTokens) {
        if (FoldCase(token.letters.front()) != first) continue;
        if (IsMarkWithCase(token.field) && token.letters.front() != picture[at]) continue;
        if (EqualNoCase(picture.substr(at, token.letters.size()), token.letters)) return &token;
    }
    return nullptr;
}

DatePicture::DatePicture(std::u16string_view picture) {
    bool isBehindHour = false;
    for (std::size_t at = 0; at < picture.size();) {
        if (const auto literal = ReadLiteral(picture, at)) {
            for (const char16_t c : *literal) {
                mItems.push_back({DateField::Literal, 0, c});
            }
            continue;
        }
        const DateToken* token = DateTokenAt(picture, at);
        if (!token) {
            mItems.push_back({DateField::Literal, 0, picture[at++]});
            continue;
        }
        at += token->letters.size();
        const bool isMinute = isBehindHour && token->field == DateField::Month;
        const DateField field = isMinute ? DateField::Minute : token->field;
        mItems.push_back({field, token->width, u'\0'});
        if (IsHalf(field)) mHas12Hours = true;
        const bool isSeparator = field == DateField::DateSeparator || field == DateField::TimeSeparator;
        if (!isSeparator) isBehindHour = field == DateField::Hour;
    }
}

Text DatePicture::Apply(const Variant& value) const {
    if (value.IsNull() || value.IsEmpty()) return {};
    const std::optional<Date> date = DateOf(value);
    if (!date) return value.AsText();
    const DateWriter writer(*date);
    std::u16string out;
    for (const Item& item : mItems) {
        if (item.field == DateField::Literal) {
            out += item.character;
        } else {
            writer.Append(out, item.field, item.width, mHas12Hours);
        }
    }
    return out;
}

}  // namespace ov
