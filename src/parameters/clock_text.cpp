#include "parameters/clock_text.h"

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "parameters/value_type.h"
#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "platform/format/format.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

constexpr std::int32_t kMinute = 60, kHour = 3600, kDay = 86400;
constexpr double kDaysTo1970 = 25569;  // from day 0 of a Date

Text NextPart(std::int64_t number) {
    return CurrentLocale().timeSeparator + (number < 10 ? u"0" : u"") + Text::FromInteger(number);
}

// Place of the last separator before @p end, or npos.
std::size_t SeparatorBefore(std::u16string_view text, std::size_t end) {
    const Locale& locale = CurrentLocale();
    while (end > 0) {
        if (locale.IsTimeSeparator(text[--end])) return end;
    }
    return std::u16string_view::npos;
}

// The seconds of the last hour, 0 to 3599.
std::int64_t SecondsOfHour(const Decimal& seconds) {
    return std::abs((seconds % Decimal(kHour)).ToInt64()) % kHour;
}

Text HoursAndMinutes(const Decimal& seconds) {
    const Decimal hours = (seconds / Decimal(kHour)).Fix();
    return Text(hours.IsZero() ? u"0" : hours.ToString()) + NextPart(SecondsOfHour(seconds) / kMinute);
}

template <class T>
T Number(std::u16string_view text) {
    return ValueType<T>::From(text);
}

template <class T>
T Times(const T& number, std::int32_t unit) {
    return ValueType<T>::From(Multiply(number, unit));
}

template <class T>
T Sum(const T& a, const T& b) {
    return ValueType<T>::From(Add(a, b));
}

}  // namespace

Text FormatSeconds(const Decimal& seconds) {
    return HoursAndMinutes(seconds) + NextPart(SecondsOfHour(seconds) % kMinute);
}

Text FormatMinutes(const Decimal& seconds) {
    return HoursAndMinutes(seconds);
}

template <class T>
T ParseSeconds(const Text& text) {
    const std::u16string_view whole = text;
    const std::size_t last = SeparatorBefore(whole, whole.size());
    if (last == std::u16string_view::npos) return Number<T>(whole);
    const T seconds = Number<T>(whole.substr(last + 1));
    if (last == 0) return seconds;
    const std::size_t first = SeparatorBefore(whole, last);
    if (first == std::u16string_view::npos) return Sum(Times(Number<T>(whole.substr(0, last)), kMinute), seconds);
    const T minutes = Number<T>(whole.substr(first + 1, last - first - 1));
    const T rest = Sum(Times(minutes, kMinute), seconds);
    return first == 0 ? rest : Sum(Times(Number<T>(whole.substr(0, first)), kHour), rest);
}

template <class T>
T ParseMinutes(const Text& text) {
    const std::u16string_view whole = text;
    const std::size_t mark = SeparatorBefore(whole, whole.size());
    if (mark == std::u16string_view::npos) return Number<T>(whole);
    const T minutes = Number<T>(whole.substr(mark + 1));
    return Sum(Times(minutes, kMinute), Times(Number<T>(whole.substr(0, mark)), kHour));
}

Text FormatUnixTime(double seconds) {
    static const Picture kPicture(u"yyyy-mm-dd hh:mm:ss");
    return kPicture.Apply(ToDate(kDaysTo1970 + seconds / kDay));
}

std::int32_t ParseUnixTime(const Text& text) {
    const std::optional<Date> date = ReadDate(text);
    return date ? ToLong((date->days - kDaysTo1970) * kDay) : 0;
}

template std::int32_t ParseSeconds(const Text&);
template std::int32_t ParseMinutes(const Text&);
template Decimal ParseSeconds(const Text&);
template Decimal ParseMinutes(const Text&);

}  // namespace ov
