#include <algorithm>
#include <array>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/functions/themes.h"
#include "platform/locale/code_page.h"

namespace ov::vbscript {

namespace {

char16_t FirstCharacter(std::u16string_view text) {
    if (text.empty()) Raise(ErrorNumber::InvalidProcedureCall);
    return text.front();
}

Variant Asc(BuiltinContext&, std::span<Variant> arguments) {
    return static_cast<std::int16_t>(ToCodePage(FirstCharacter(TextAt(arguments, 0))));
}

Variant AscW(BuiltinContext&, std::span<Variant> arguments) {
    // Codes of 32768 and above are negative Integers.
    return static_cast<std::int16_t>(FirstCharacter(TextAt(arguments, 0)));
}

Variant Chr(BuiltinContext&, std::span<Variant> arguments) {
    const std::int32_t code = LongAt(arguments, 0);
    if (code < 0 || code > 0xFF) Raise(ErrorNumber::InvalidProcedureCall);
    return Text::Repeat(1, FromCodePage(static_cast<std::uint8_t>(code)));
}

Variant ChrW(BuiltinContext&, std::span<Variant> arguments) {
    const std::int32_t code = LongAt(arguments, 0);
    if (code < -0x8000 || code > 0xFFFF) Raise(ErrorNumber::InvalidProcedureCall);
    return Text::Repeat(1, static_cast<char16_t>(code));
}

Text Repeated(BuiltinContext& context, std::size_t count, char16_t c) {
    constexpr std::size_t kBlock = 65536;
    constexpr std::size_t kCharactersPerStep = 32;
    Pace pace(context);
    char16_t* to = nullptr;
    const Text text = Text::ForOverwrite(count, to);
    for (std::size_t at = 0; at < count; at += kBlock) {
        std::fill_n(to + at, std::min(kBlock, count - at), c);
        pace.Step(kBlock / kCharactersPerStep);
    }
    return text;
}

Variant Space(BuiltinContext& context, std::span<Variant> arguments) {
    return Repeated(context, CountAt(arguments, 0), u' ');
}

/// A number as the second argument is a character's code, of which only 8 bits count.
Variant String(BuiltinContext& context, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) return Variant::Null();
    const std::size_t count = CountAt(arguments, 0);
    const Variant& character = ValueAt(arguments, 1);
    const char16_t c = character.IsString() ? FirstCharacter(character.AsText())
                                            : FromCodePage(static_cast<std::uint8_t>(ToLong(character) & 0xFF));
    return Repeated(context, count, c);
}

constexpr std::array kBuiltins = {
    Builtin{u"Asc", 1, 1, &Asc},   Builtin{u"AscW", 1, 1, &AscW},   Builtin{u"Chr", 1, 1, &Chr},
    Builtin{u"ChrW", 1, 1, &ChrW}, Builtin{u"Space", 1, 1, &Space}, Builtin{u"String", 2, 2, &String},
};

}  // namespace

std::span<const Builtin> CharacterBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
