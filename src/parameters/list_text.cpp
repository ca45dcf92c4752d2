#include "parameters/list_text.h"

#include <cmath>
#include <limits>

#include "platform/automation/conversions.h"
#include "platform/automation/text_search.h"

namespace ov {

namespace {

constexpr const char16_t* kConsistent = u"%consistent";
constexpr std::u16string_view kGetText = u"gettext(";
// More marks than any text has: one whose translation holds its own mark would never come to an end.
constexpr int kMostMarks = 1000;

// The number that begins a text, up to the first character that is no digit; 0 for one that no text has.
std::int32_t LeadingNumber(std::u16string_view text) {
    const double number = ValPrefix(text);
    const bool fits = std::abs(number) <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(number) : 0;
}

Text ReplaceFirst(const Text& text, std::u16string_view mark, std::u16string_view content) {
    const std::size_t at = text.view().find(mark);
    if (at == std::u16string_view::npos) return text;
    return Concatenate(text.view().substr(0, at), content) + text.view().substr(at + mark.size());
}

// The mark "%1hex" at @p at, with the width behind it if one digit is there.
Text FillHex(const Text& format, std::size_t at, const Text& digits) {
    constexpr std::size_t kMark = 5;
    constexpr std::u16string_view kZeros = u"0000000";
    const std::u16string_view left = format.view().substr(0, at), right = format.view().substr(at + kMark);
    if (right.empty() || right.front() < u'0' || right.front() > u'9') return Concatenate(left, digits) + right;
    const auto width = static_cast<std::size_t>(right.front() - u'0');
    Text shown = digits.size() < width ? Concatenate(kZeros, digits) : digits;
    if (shown.size() > width) shown = shown.view().substr(shown.size() - width);
    return Concatenate(left, shown) + right.substr(1);
}

Text FillPlaceHolder(const Text& format, const Text& shown, const std::optional<Text>& hexadecimal) {
    const std::size_t at = format.view().find(u"%1");
    const std::u16string_view holder = at != format.view().npos ? format.view().substr(at, 5) : std::u16string_view();
    if (holder == u"%1non") return ReplaceFirst(format, holder, u"");
    // "%1str" fills "%1dec" as well, and stays as it is itself.
    if (holder == u"%1dec" || holder == u"%1str") return ReplaceFirst(format, u"%1dec", shown);
    if (holder == u"%1hex" && hexadecimal) return FillHex(format, at, *hexadecimal);
    return format + u" (" + shown + u")";
}

}  // namespace

Text GetTextMark(std::int32_t number) {
    return kGetText + (Text::FromInteger(number) + u")");
}

Text ResolveGetText(const Text& text, ModuleServices& module, Search search) {
    Text resolved = text;
    std::size_t from = 0;
    for (int marks = 0; marks < kMostMarks; ++marks) {
        const std::u16string_view whole = resolved;
        const std::size_t found = FindNoCase(whole.substr(from), kGetText);
        if (found == std::u16string_view::npos) break;
        const std::size_t at = from + found;
        const std::u16string_view argument = whole.substr(at + kGetText.size());
        const std::size_t close = argument.find(u')');
        const bool closed = close != std::u16string_view::npos;
        const std::u16string_view rest = closed ? argument.substr(close + 1) : std::u16string_view();
        const Text translation = module.GetTranslatedText(LeadingNumber(argument.substr(0, close)));
        resolved = Concatenate(whole.substr(0, at), translation) + rest;
        if (search == Search::Onward) from = at + translation.size();
    }
    return resolved;
}

bool AcceptsUnlisted(const Text& format) noexcept {
    return format.view().find(kConsistent) != std::u16string_view::npos;
}

Text FormatUnlistedValue(const Text& format, const Text& shown, const std::optional<Text>& hexadecimal) {
    return ReplaceAll(FillPlaceHolder(format, shown, hexadecimal), kConsistent, u"");
}

}  // namespace ov
