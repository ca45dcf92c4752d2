#include "platform/format/format_date.h"

#include "platform/automation/conversions.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

std::u16string PictureOf(DateForm form, const Locale& locale) {
    switch (form) {
        case DateForm::LongDate:
            return locale.longDate;
        case DateForm::ShortDate:
            return locale.shortDate;
        case DateForm::LongTime:
            return locale.longTime;
        default:
            return u"HH" + locale.timeSeparator + u"mm";
    }
}

}  // namespace

Text FormatDate(Date date, DateForm form) {
    if (form == DateForm::General) return ToText(date);
    const Locale& locale = CurrentLocale();
    const CalendarTime time = ToCalendar(date);
    return FormatDatePicture(locale, PictureOf(form, locale), time.year, time.month, time.day, time.weekday, time.hour,
                             time.minute, time.second);
}

}  // namespace ov
