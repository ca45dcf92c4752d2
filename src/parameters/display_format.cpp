#include "parameters/display_format.h"

#include <array>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/locale/locale.h"

namespace ov {

namespace {

struct Keyword {
    std::u16string_view word;
    DisplayKind kind;
    bool hasNumber;
    std::uint8_t digits;  // where no number stands behind
};

constexpr std::array<Keyword, 7> kKeywords = {{
    {u"hex", DisplayKind::Hex, true, 1},
    {u"unixtime", DisplayKind::UnixTime, false, 1},
    {u"seconds", DisplayKind::Seconds, false, 1},
    {u"minutes", DisplayKind::Minutes, false, 1},
    {u"techexpo", DisplayKind::TechExpo, true, 4},
    {u"scientific", DisplayKind::Scientific, true, 4},
    {u"version", DisplayKind::Version, true, 4},
}};

bool Matches(const Keyword& keyword, std::u16string_view text) {
    return keyword.hasNumber ? text.starts_with(keyword.word) : text == keyword.word;
}

void ReadDigits(std::u16string_view number, DisplayFormat& format) {
    if (number.empty()) return;
    try {
        format.digits = ToByte(number);
    } catch (const RuntimeError& failure) {
        format.complaint = u"caused parse Error: " + failure.description();
    }
}

void LimitHexDigits(std::uint8_t most, DisplayFormat& format) {
    if (format.digits <= most) return;
    format.digits = most;
    format.complaint = u"would cause trouble and is changed to 'hex" + Text::FromInteger(most) + u"'!";
}

}  // namespace

DisplayFormat ReadDisplayFormat(const Text& text, const DisplayGrammar& grammar) {
    const Text lowered = ToLowerCase(text);
    for (const Keyword& keyword : kKeywords) {
        if (keyword.kind == DisplayKind::UnixTime && !grammar.hasUnixTime) continue;
        if (!Matches(keyword, lowered)) continue;
        DisplayFormat format{keyword.kind, keyword.digits, {}};
        ReadDigits(lowered.view().substr(keyword.word.size()), format);
        if (keyword.kind == DisplayKind::Hex) LimitHexDigits(grammar.mostHexDigits, format);
        if (!format.complaint.empty()) {
            format.complaint = u"displayFormat = '" + lowered + u"' " + format.complaint;
        }
        return format;
    }
    return {};
}

}  // namespace ov
