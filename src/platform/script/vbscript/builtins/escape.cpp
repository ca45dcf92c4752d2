#include <array>
#include <optional>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

bool IsPlain(char16_t c) noexcept {
    const bool isLetterOrDigit = (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
    return isLetterOrDigit || (c != 0 && std::u16string_view(u"@*_+-./").find(c) != std::u16string_view::npos);
}

/// "%hh", or "%uhhhh" for what is beyond 8 bits.
void AppendEscaped(Text& out, char16_t c) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    out += c > 0xFF ? std::u16string_view(u"%u") : std::u16string_view(u"%");
    for (int shift = c > 0xFF ? 12 : 4; shift >= 0; shift -= 4) {
        out += kDigits[(c >> shift) & 0xF];
    }
}

/// The number that @p count hexadecimal digits at @p offset make, or nullopt.
std::optional<char16_t> HexAt(std::u16string_view text, std::size_t offset, std::size_t count) noexcept {
    if (offset + count > text.size()) return std::nullopt;
    unsigned number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const char16_t c = FoldCase(text[offset + i]);
        if (c >= u'0' && c <= u'9') {
            number = number * 16 + (c - u'0');
        } else if (c >= u'a' && c <= u'f') {
            number = number * 16 + (c - u'a' + 10u);
        } else {
            return std::nullopt;
        }
    }
    return static_cast<char16_t>(number);
}

Variant Escape(BuiltinContext& context, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    Pace pace(context);
    Text result;
    for (const char16_t c : text.view()) {
        if (IsPlain(c)) {
            result += c;
        } else {
            AppendEscaped(result, c);
        }
        pace.Step();
    }
    return result;
}

/// What is no whole escape stays as it is.
Variant Unescape(BuiltinContext& context, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const std::u16string_view view = text.view();
    Pace pace(context);
    Text result;
    for (std::size_t at = 0; at < view.size(); pace.Step()) {
        const bool isEscape = view[at] == u'%' && at + 1 < view.size();
        const bool isLong = isEscape && view[at + 1] == u'u';
        const std::optional<char16_t> c = isLong     ? HexAt(view, at + 2, 4)
                                          : isEscape ? HexAt(view, at + 1, 2)
                                                     : std::nullopt;
        result += c ? *c : view[at];
        at += !c ? 1u : isLong ? 6u : 3u;
    }
    return result;
}

constexpr std::array kBuiltins = {
    Builtin{u"Escape", 1, 1, &Escape},
    Builtin{u"Unescape", 1, 1, &Unescape},
};

}  // namespace

std::span<const Builtin> EscapeBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
