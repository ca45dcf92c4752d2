#include <algorithm>
#include <array>

#include "platform/locale/locale.h"

namespace ov {

namespace {

struct Moment {
    int year, month, day, weekday, hour, minute, second;
};

void AppendDigits(std::u16string& out, int number, std::size_t width) {
    std::array<char16_t, 12> digits;
    std::size_t count = 0;
    unsigned rest = number < 0 ? 0u - static_cast<unsigned>(number) : static_cast<unsigned>(number);
    do {
        digits[count++] = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0) out += u'-';
    if (count < width) out.append(width - count, u'0');
    while (count > 0)
        out += digits[--count];
}

template <std::size_t N>
void AppendName(std::u16string& out, const std::array<std::u16string, N>& names, int number) {
    if (number >= 1 && static_cast<std::size_t>(number) <= N) out += names[static_cast<std::size_t>(number) - 1];
}

// Writes a run of `count` times the letter `field`. Returns false for a letter that is no field.
bool AppendField(std::u16string& out, const Locale& locale, char16_t field, std::size_t count, const Moment& at) {
    const auto number = [&](int value) { AppendDigits(out, value, count < 2 ? 1 : 2); };
    switch (field) {
        case u'd':
            if (count <= 2) {
                number(at.day);
            } else {
                AppendName(out, count == 3 ? locale.dayAbbreviations : locale.dayNames, at.weekday);
            }
            return true;
        case u'M':
            if (count <= 2) {
                number(at.month);
            } else {
                AppendName(out, count == 3 ? locale.monthAbbreviations : locale.monthNames, at.month);
            }
            return true;
        case u'y':
            if (count <= 2) {
                number(at.year % 100);
            } else {
                AppendDigits(out, at.year, 4);
            }
            return true;
        case u'H':
            number(at.hour);
            return true;
        case u'h':
            number(at.hour % 12 == 0 ? 12 : at.hour % 12);
            return true;
        case u'm':
            number(at.minute);
            return true;
        case u's':
            number(at.second);
            return true;
        case u't': {
            const std::u16string_view mark = at.hour < 12 ? locale.am : locale.pm;
            out += count == 1 ? mark.substr(0, 1) : mark;
            return true;
        }
        default:
            return false;
    }
}

}  // namespace

std::u16string FormatDatePicture(const Locale& locale, std::u16string_view picture, int year, int month, int day,
                                 int weekday, int hour, int minute, int second) {
    const Moment moment{year, month, day, weekday, hour, minute, second};
    std::u16string out;
    for (std::size_t at = 0; at < picture.size();) {
        const char16_t c = picture[at];
        if (c == u'\'' || c == u'"') {
            const std::size_t end = std::min(picture.find(c, at + 1), picture.size());
            out += picture.substr(at + 1, end - at - 1);
            at = end + 1;
            continue;
        }
        const std::size_t end = std::min(picture.find_first_not_of(c, at), picture.size());
        if (!AppendField(out, locale, c, end - at, moment)) out += picture.substr(at, end - at);
        at = end;
    }
    return out;
}

}  // namespace ov
