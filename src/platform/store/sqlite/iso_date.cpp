#include "platform/store/sqlite/iso_date.h"

#include <chrono>

#include "platform/automation/conversions.h"

namespace ov::sqlite {

namespace {

// Reads fixed forms from the front of a text.
class FormReader {
public:
    explicit FormReader(std::string_view text) : mRest(text) {}

    bool AtEnd() const noexcept { return mRest.empty(); }
    bool Skip(char c) noexcept {
        if (mRest.empty() || mRest.front() != c) return false;
        mRest.remove_prefix(1);
        return true;
    }
    // Exactly `digits` digits of a number from `low` to `high`.
    bool Number(std::size_t digits, int low, int high, int& value) noexcept {
        if (mRest.size() < digits) return false;
        value = 0;
        for (const char c : mRest.substr(0, digits)) {
            if (c < '0' || c > '9') return false;
            value = value * 10 + (c - '0');
        }
        mRest.remove_prefix(digits);
        return value >= low && value <= high;
    }
    double Fraction() noexcept {
        double fraction = 0;
        for (double place = 0.1; !mRest.empty() && mRest.front() >= '0' && mRest.front() <= '9'; place /= 10) {
            fraction += (mRest.front() - '0') * place;
            mRest.remove_prefix(1);
        }
        return fraction;
    }
    bool LooksLikeTime() const noexcept { return mRest.size() > 2 && mRest[2] == ':'; }

private:
    std::string_view mRest;
};

bool ReadDay(FormReader& reader, CalendarTime& time) noexcept {
    if (!reader.Number(4, 100, 9999, time.year) || !reader.Skip('-') || !reader.Number(2, 1, 12, time.month) ||
        !reader.Skip('-') || !reader.Number(2, 1, 31, time.day)) {
        return false;
    }
    return std::chrono::year_month_day(std::chrono::year(time.year),
                                       std::chrono::month(static_cast<unsigned>(time.month)),
                                       std::chrono::day(static_cast<unsigned>(time.day)))
        .ok();
}

bool ReadTime(FormReader& reader, CalendarTime& time, double& fraction) noexcept {
    if (!reader.Number(2, 0, 23, time.hour) || !reader.Skip(':') || !reader.Number(2, 0, 59, time.minute)) return false;
    if (!reader.Skip(':')) return true;
    if (!reader.Number(2, 0, 59, time.second)) return false;
    if (reader.Skip('.')) fraction = reader.Fraction();
    return true;
}

}  // namespace

std::optional<Date> ReadIsoDate(std::string_view text) noexcept {
    FormReader reader(text);
    CalendarTime time;
    double fraction = 0;
    if (!reader.LooksLikeTime()) {
        if (!ReadDay(reader, time)) return std::nullopt;
        if (reader.AtEnd()) return FromCalendar(time.year, time.month, time.day);
        if (!reader.Skip('T')) {
            if (!reader.Skip(' ')) return std::nullopt;
            while (reader.Skip(' ')) {
            }
        }
    }
    if (!ReadTime(reader, time, fraction)) return std::nullopt;
    reader.Skip('Z');
    if (!reader.AtEnd()) return std::nullopt;
    return FromCalendar(time.year, time.month, time.day, time.hour, time.minute, time.second + fraction);
}

}  // namespace ov::sqlite
