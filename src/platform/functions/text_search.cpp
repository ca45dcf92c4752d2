#include <algorithm>
#include <array>
#include <limits>

#include "platform/functions/text_finder.h"
#include "platform/functions/themes.h"
#include "platform/locale/locale.h"

namespace ov::vbscript {

namespace {

/// InStr([start, ]text, wanted[, mode]): the start is the first argument if there are three or more.
Variant InStr(BuiltinContext& context, std::span<Variant> arguments) {
    const bool hasStart = arguments.size() > 2;
    const std::size_t offset = hasStart && IsGiven(arguments, 0) ? PlaceAt(arguments, 0) : 0;
    const TextMode mode = TextModeAt(arguments, 3);
    if (hasStart) arguments = arguments.subspan(1);
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const Text wanted = TextAt(arguments, 1);
    if (offset >= text.size()) return 0;
    const std::size_t found = TextFinder(context, wanted, mode).Find(text, offset);
    return found == TextFinder::kNone ? 0 : static_cast<std::int32_t>(found + 1);
}

/// InStrRev(text, wanted[, start[, mode]]): what is found lies within the first `start` characters.
Variant InStrRev(BuiltinContext& context, std::span<Variant> arguments) {
    constexpr std::int32_t kFromEnd = -1;
    const std::int32_t start = LongOr(arguments, 2, kFromEnd);
    const TextMode mode = TextModeAt(arguments, 3);
    if (start == 0 || start < kFromEnd) Raise(ErrorNumber::InvalidProcedureCall);
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const Text wanted = TextAt(arguments, 1);
    const std::size_t end = start == kFromEnd ? text.size() : static_cast<std::size_t>(start);
    if (text.empty() || end > text.size()) return 0;
    if (wanted.empty()) return static_cast<std::int32_t>(end);
    const std::size_t found = TextFinder(context, wanted, mode).FindLast(text.view().substr(0, end));
    return found == TextFinder::kNone ? 0 : static_cast<std::int32_t>(found + 1);
}

Variant StrComp(BuiltinContext&, std::span<Variant> arguments) {
    const TextMode mode = TextModeAt(arguments, 2);
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) return Variant::Null();
    const Text a = TextAt(arguments, 0);
    const Text b = TextAt(arguments, 1);
    const int order = mode == TextMode::Binary ? a.view().compare(b.view()) : CompareTexts(a, b);
    return static_cast<std::int16_t>((order > 0 ? 1 : 0) - (order < 0 ? 1 : 0));
}

/// Replace(text, wanted, replacement[, start[, count[, mode]]]): the result begins at the start, too.
Variant Replace(BuiltinContext& context, std::span<Variant> arguments) {
    constexpr std::int32_t kAll = -1;
    const Text text = TextAt(arguments, 0);
    const Text wanted = TextAt(arguments, 1);
    const Text replacement = TextAt(arguments, 2);
    const std::size_t start = IsGiven(arguments, 3) ? PlaceAt(arguments, 3) : 0;
    std::int32_t left = LongOr(arguments, 4, kAll);
    const TextMode mode = TextModeAt(arguments, 5);
    if (left < kAll) Raise(ErrorNumber::InvalidProcedureCall);
    if (left == kAll) left = std::numeric_limits<std::int32_t>::max();
    if (start >= text.size()) return Text();

    const std::u16string_view view = text.view();
    TextFinder finder(context, wanted, mode);
    Text result;
    std::size_t done = start;
    for (; left > 0 && !wanted.empty(); --left) {
        const std::size_t found = finder.Find(view, done);
        if (found == TextFinder::kNone) break;
        result += view.substr(done, found - done);
        result += replacement;
        done = found + wanted.size();
    }
    if (done == 0) return text;
    result += view.substr(done);
    return result;
}

constexpr std::array kBuiltins = {
    Builtin{u"InStr", 2, 4, &InStr},
    Builtin{u"InStrRev", 2, 4, &InStrRev},
    Builtin{u"Replace", 3, 6, &Replace},
    Builtin{u"StrComp", 2, 3, &StrComp},
};

}  // namespace

std::span<const Builtin> TextSearchBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
