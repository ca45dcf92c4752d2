#include "platform/locale/locale_facts.h"

#include <unicode/ucal.h>
#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace ov {

namespace {

// Calls one of ICU's functions that write a text; "" if it fails.
template <class Function>
std::u16string Fetch(Function function) {
    std::u16string text(64, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = function(text.data(), static_cast<int32_t>(text.size()), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        text.resize(static_cast<std::size_t>(length));
        status = U_ZERO_ERROR;
        length = function(text.data(), length, &status);
    }
    if (U_FAILURE(status)) return {};
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool IsDirectionMark(char16_t c) {
    return c == u'\u200E' || c == u'\u200F' || c == u'\u061C';
}

// Blanks become plain ones, and the marks that only steer the direction of writing go.
std::u16string Plain(std::u16string text) {
    std::erase_if(text, IsDirectionMark);
    std::ranges::replace_if(
        text, [](char16_t c) { return c == u'\u00A0' || c == u'\u202F'; }, u' ');
    return text;
}

std::u16string Trimmed(const std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

// One piece of an ICU pattern: a run of one field letter, or literal text, its quotes resolved.
struct Piece {
    char16_t field = 0;  // 0 for literal text
    std::u16string text;
};

bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

std::vector<Piece> ParsePattern(const std::u16string& pattern) {
    std::vector<Piece> pieces;
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t c = pattern[i];
        if (c == u'\'') {
            const bool doubled = i + 1 < pattern.size() && pattern[i + 1] == u'\'';
            if (!doubled) {
                quoted = !quoted;
                continue;
            }
            ++i;
        }
        const char16_t field = !quoted && IsLetter(c) ? c : u'\0';
        if (pieces.empty() || pieces.back().field != field) pieces.push_back({field, {}});
        pieces.back().text += c;
    }
    return pieces;
}

// Literal text as a picture has it: in quotes where it has letters or quotes of its own.
std::u16string QuotedLiteral(const std::u16string& text) {
    if (std::ranges::none_of(text, [](char16_t c) { return IsLetter(c) || c == u'"' || c == u'\''; })) return text;
    const char16_t quote = text.find(u'\'') == std::u16string::npos ? u'\'' : u'"';
    return quote + text + quote;
}

// A date pattern in d, M and y letters. ICU's letters have other counts: "E" is a day's name, a single "y" a whole
// year.
std::u16string DatePicture(const std::vector<Piece>& pieces) {
    std::u16string picture;
    for (const Piece& piece : pieces) {
        switch (piece.field) {
            case 0:
                picture += QuotedLiteral(piece.text);
                break;
            case u'y':
            case u'u':
                picture += u"yyyy";
                break;
            case u'M':
            case u'L':
                picture.append(std::min<std::size_t>(piece.text.size(), 4), u'M');
                break;
            case u'd':
                picture += piece.text;
                break;
            case u'E':
            case u'c':
                picture += piece.text.size() < 4 ? u"ddd" : u"dddd";
                break;
            default:  // an era, which no Gregorian date needs
                if (picture.ends_with(u' ')) picture.pop_back();
                break;
        }
    }
    return Trimmed(picture);
}

UDateFormat* OpenDateFormat(UDateFormatStyle time, UDateFormatStyle date, const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    UDateFormat* format = udat_open(time, date, name.c_str(), nullptr, 0, nullptr, 0, &status);
    if (U_SUCCESS(status)) return format;
    udat_close(format);
    return nullptr;
}

std::u16string PatternOf(const UDateFormat* format) {
    return Plain(Fetch([&](UChar* out, int32_t capacity, UErrorCode* status) {
        return udat_toPattern(format, false, out, capacity, status);
    }));
}

std::u16string DatePatternOf(UDateFormatStyle style, const std::string& name) {
    const icu::LocalUDateFormatPointer format(OpenDateFormat(UDAT_NONE, style, name));
    return format.isValid() ? PatternOf(format.getAlias()) : std::u16string();
}

std::u16string Symbol(const UDateFormat* format, UDateFormatSymbolType type, int32_t index) {
    return Plain(Fetch([&](UChar* out, int32_t capacity, UErrorCode* status) {
        return udat_getSymbols(format, type, index, out, capacity, status);
    }));
}

void SetNumberFacts(Locale& locale, const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUNumberFormatPointer format(unum_open(UNUM_DECIMAL, nullptr, 0, name.c_str(), nullptr, &status));
    if (U_FAILURE(status)) return;
    const auto symbol = [&](UNumberFormatSymbol which) {
        return Fetch([&](UChar* out, int32_t capacity, UErrorCode* error) {
            return unum_getSymbol(format.getAlias(), which, out, capacity, error);
        });
    };
    const std::u16string decimal = symbol(UNUM_DECIMAL_SEPARATOR_SYMBOL);
    if (decimal.size() == 1) locale.decimal = decimal.front();
    const int32_t groupSize = unum_getAttribute(format.getAlias(), UNUM_GROUPING_SIZE);
    if (unum_getAttribute(format.getAlias(), UNUM_GROUPING_USED) != 0 && groupSize > 0) {
        locale.groupSize = groupSize;
        locale.group = symbol(UNUM_GROUPING_SEPARATOR_SYMBOL);
    }
}

void SetCurrencyFacts(Locale& locale, const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUNumberFormatPointer format(unum_open(UNUM_CURRENCY, nullptr, 0, name.c_str(), nullptr, &status));
    if (U_FAILURE(status)) return;
    locale.currencySymbol = Plain(Fetch([&](UChar* out, int32_t capacity, UErrorCode* error) {
        return unum_getSymbol(format.getAlias(), UNUM_CURRENCY_SYMBOL, out, capacity, error);
    }));
    std::u16string pattern = Plain(Fetch([&](UChar* out, int32_t capacity, UErrorCode* error) {
        return unum_toPattern(format.getAlias(), false, out, capacity, error);
    }));
    pattern = pattern.substr(0, pattern.find(u';'));  // the form of negative amounts stands behind
    const std::size_t sign = pattern.find(u'\u00A4');
    if (sign == std::u16string::npos) return;
    locale.currencyBefore = sign < pattern.find_first_of(u"#0");
    locale.currencySpace = pattern.find(u' ') != std::u16string::npos;
}

void SetDateFacts(Locale& locale, const std::string& name) {
    std::vector<Piece> pieces = ParsePattern(DatePatternOf(UDAT_SHORT, name));
    // A word behind the date, such as one for "year", would not read back.
    if (!pieces.empty() && pieces.back().field == 0 && pieces.back().text.starts_with(u' ')) pieces.pop_back();
    locale.shortDate = DatePicture(pieces);
    locale.longDate = DatePicture(ParsePattern(DatePatternOf(UDAT_FULL, name)));

    const auto isField = [](const Piece& piece) { return piece.field != 0; };
    const auto first = std::ranges::find_if(pieces, isField);
    if (first == pieces.end()) return;
    locale.dateOrder = first->field == u'M'   ? DateOrder::MonthDayYear
                       : first->field == u'd' ? DateOrder::DayMonthYear
                                              : DateOrder::YearMonthDay;
    const auto separator = first + 1;
    if (separator != pieces.end() && !isField(*separator)) locale.dateSeparator = separator->text;
}

// A time is written out of its parts, since some locales' patterns have words in it ("HH 'h' mm 'min'") that nobody
// expects where values are shown and read.
void SetTimeFacts(Locale& locale, const std::string& name) {
    const icu::LocalUDateFormatPointer format(OpenDateFormat(UDAT_MEDIUM, UDAT_NONE, name));
    if (!format.isValid()) return;
    locale.am = Symbol(format.getAlias(), UDAT_AM_PMS, 0);
    locale.pm = Symbol(format.getAlias(), UDAT_AM_PMS, 1);

    const std::vector<Piece> pieces = ParsePattern(PatternOf(format.getAlias()));
    const auto hour = std::ranges::find_if(
        pieces, [](const Piece& p) { return std::u16string_view(u"HkhK").find(p.field) != std::u16string_view::npos; });
    if (hour == pieces.end()) return;
    locale.hours24 = hour->field == u'H' || hour->field == u'k';
    locale.hourTwoDigits = hour->text.size() == 2;
    const auto separator = hour + 1;
    const bool plain = separator != pieces.end() && separator->field == 0 && separator->text.size() == 1;
    locale.timeSeparator = plain ? separator->text : u":";

    const std::u16string digits = locale.hours24 ? u"HH" : u"hh";
    locale.shortTime = digits.substr(locale.hourTwoDigits ? 0 : 1) + locale.timeSeparator + u"mm";
    locale.longTime = locale.shortTime + locale.timeSeparator + u"ss";
    if (locale.hours24) return;
    const auto mark = std::find_if(pieces.begin(), hour, [](const Piece& p) { return p.field != 0; });
    for (std::u16string* picture : {&locale.shortTime, &locale.longTime}) {
        *picture = mark != hour ? u"tt " + *picture : *picture + u" tt";
    }
}

void SetNames(Locale& locale, const std::string& name) {
    const icu::LocalUDateFormatPointer format(OpenDateFormat(UDAT_NONE, UDAT_FULL, name));
    if (!format.isValid()) return;
    const auto fill = [&](auto& names, UDateFormatSymbolType type, int32_t firstIndex) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            names[i] = Symbol(format.getAlias(), type, firstIndex + static_cast<int32_t>(i));
        }
    };
    fill(locale.monthNames, UDAT_STANDALONE_MONTHS, 0);
    fill(locale.monthAbbreviations, UDAT_STANDALONE_SHORT_MONTHS, 0);
    // The days of the week are numbered from 1, Sunday; element 0 is no day.
    fill(locale.dayNames, UDAT_STANDALONE_WEEKDAYS, UCAL_SUNDAY);
    fill(locale.dayAbbreviations, UDAT_STANDALONE_SHORT_WEEKDAYS, UCAL_SUNDAY);
}

void SetWeekFacts(Locale& locale, const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUCalendarPointer calendar(ucal_open(nullptr, 0, name.c_str(), UCAL_GREGORIAN, &status));
    if (U_FAILURE(status)) return;
    locale.firstDayOfWeek = ucal_getAttribute(calendar.getAlias(), UCAL_FIRST_DAY_OF_WEEK);
    locale.daysInFirstWeek = ucal_getAttribute(calendar.getAlias(), UCAL_MINIMAL_DAYS_IN_FIRST_WEEK);
}

std::string LanguageTag(const std::string& icuName) {
    std::string tag(ULOC_FULLNAME_CAPACITY, '\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length =
        uloc_toLanguageTag(icuName.c_str(), tag.data(), static_cast<int32_t>(tag.size()), false, &status);
    if (U_FAILURE(status)) return icuName;
    tag.resize(static_cast<std::size_t>(length));
    return tag;
}

}  // namespace

Locale GatherLocale(const std::string& icuName) {
    Locale locale;
    locale.name = LanguageTag(icuName);
    locale.lcid = uloc_getLCID(icuName.c_str());
    // Some countries' own calendars and digits are not what values are made of.
    const std::string name = icuName + "@calendar=gregorian;numbers=latn";
    SetNumberFacts(locale, name);
    SetCurrencyFacts(locale, name);
    SetDateFacts(locale, name);
    SetTimeFacts(locale, name);
    SetNames(locale, name);
    SetWeekFacts(locale, name);
    return locale;
}

}  // namespace ov
