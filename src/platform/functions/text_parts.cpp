#include <algorithm>
#include <array>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/functions/themes.h"
#include "platform/locale/locale.h"

namespace ov::vbscript {

namespace {

/// A part of @p text; the text itself, shared, if it is the whole.
Text Part(const Text& text, std::size_t offset, std::size_t count) {
    if (offset == 0 && count >= text.size() && !text.IsOdd()) return text;
    return offset < text.size() ? Text(text.view().substr(offset, count)) : Text();
}

Variant Left(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return Part(TextAt(arguments, 0), 0, CountAt(arguments, 1));
}

Variant Right(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const std::size_t count = std::min(CountAt(arguments, 1), text.size());
    return Part(text, text.size() - count, count);
}

Variant Mid(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const std::size_t offset = PlaceAt(arguments, 1);
    const std::size_t count = IsGiven(arguments, 2) ? CountAt(arguments, 2) : Text::kMaxLength;
    return Part(TextAt(arguments, 0), offset, count);
}

Variant Len(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return static_cast<std::int32_t>(TextAt(arguments, 0).size());
}

/// Which ends of a text lose their blanks.
struct Ends {
    bool left;
    bool right;
};

template <Ends Which>
Variant Trimmed(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const std::u16string_view view = text.view();
    const std::size_t first = Which.left ? std::min(view.find_first_not_of(u' '), view.size()) : 0;
    // Behind the last character that stays; find_last_not_of gives -1 if there is none.
    const std::size_t end = Which.right ? view.find_last_not_of(u' ') + 1 : view.size();
    return Part(text, first, end > first ? end - first : 0);
}

/// The text in another letter case, block by block.
template <std::u16string (*Map)(std::u16string_view)>
Variant InCase(BuiltinContext& context, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    constexpr std::size_t kBlock = 2048;
    const Text text = TextAt(arguments, 0);
    const std::u16string_view view = text.view();
    Pace pace(context);
    char16_t* to = nullptr;
    const Text result = Text::ForOverwrite(view.size(), to);
    for (std::size_t at = 0; at < view.size();) {
        std::size_t count = std::min(kBlock, view.size() - at);
        const bool splitsPair = (view[at + count - 1] & 0xFC00) == 0xD800 && count == kBlock;
        if (splitsPair) --count;
        std::ranges::copy(Map(view.substr(at, count)), to + at);
        at += count;
        pace.Step(count);
    }
    return result;
}

Variant StrReverse(BuiltinContext&, std::span<Variant> arguments) {
    const Text text = TextAt(arguments, 0);
    char16_t* to = nullptr;
    const Text result = Text::ForOverwrite(text.size(), to);
    std::ranges::reverse_copy(text.view(), to);
    return result;
}

constexpr std::array kBuiltins = {
    Builtin{u"LCase", 1, 1, &InCase<&ToLowerCase>},
    Builtin{u"Left", 2, 2, &Left},
    Builtin{u"Len", 1, 1, &Len},
    Builtin{u"LTrim", 1, 1, &Trimmed<Ends{.left = true, .right = false}>},
    Builtin{u"Mid", 2, 3, &Mid},
    Builtin{u"Right", 2, 2, &Right},
    Builtin{u"RTrim", 1, 1, &Trimmed<Ends{.left = false, .right = true}>},
    Builtin{u"StrReverse", 1, 1, &StrReverse},
    Builtin{u"Trim", 1, 1, &Trimmed<Ends{.left = true, .right = true}>},
    Builtin{u"UCase", 1, 1, &InCase<&ToUpperCase>},
};

}  // namespace

std::span<const Builtin> TextPartBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
