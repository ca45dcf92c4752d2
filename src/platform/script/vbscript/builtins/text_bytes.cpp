#include <algorithm>
#include <array>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

// A text as bytes: each character is two, the lower one first. A text of an odd number of bytes cannot be; one byte of
// 0 fills it up.

std::uint8_t ByteOf(std::u16string_view text, std::size_t offset) noexcept {
    const unsigned character = text[offset / 2];
    return static_cast<std::uint8_t>(offset % 2 == 0 ? character & 0xFF : character >> 8);
}

Text BytePart(const Text& text, std::size_t offset, std::size_t count) {
    const std::size_t size = text.size() * 2;
    count = offset < size ? std::min(count, size - offset) : 0;
    char16_t* to = nullptr;
    const Text part = Text::ForOverwrite((count + 1) / 2, to);
    for (std::size_t i = 0; i < count; i += 2) {
        const unsigned low = ByteOf(text, offset + i);
        const unsigned high = i + 1 < count ? ByteOf(text, offset + i + 1) : 0u;
        *to++ = static_cast<char16_t>(low | high << 8);
    }
    return part;
}

Variant AscB(BuiltinContext&, std::span<Variant> arguments) {
    const Text text = TextAt(arguments, 0);
    if (text.empty()) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::int16_t>(ByteOf(text, 0));
}

Variant ChrB(BuiltinContext&, std::span<Variant> arguments) {
    return Text::Repeat(1, ToByte(arguments[0]));
}

Variant LenB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return static_cast<std::int32_t>(TextAt(arguments, 0).size() * 2);
}

Variant LeftB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return BytePart(TextAt(arguments, 0), 0, CountAt(arguments, 1));
}

Variant RightB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const std::size_t count = std::min(CountAt(arguments, 1), text.size() * 2);
    return BytePart(text, text.size() * 2 - count, count);
}

Variant MidB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const std::size_t offset = PlaceAt(arguments, 1);
    const std::size_t count = IsGiven(arguments, 2) ? CountAt(arguments, 2) : Text::kMaxLength * 2;
    return BytePart(TextAt(arguments, 0), offset, count);
}

bool BytesStandAt(std::u16string_view text, std::size_t offset, std::u16string_view wanted, TextMode mode, Pace& pace) {
    std::size_t same = 0;
    for (; same < wanted.size() * 2; ++same) {
        const char16_t a = ByteOf(text, offset + same);
        const char16_t b = ByteOf(wanted, same);
        if (mode == TextMode::Binary ? a != b : FoldCase(a) != FoldCase(b)) break;
    }
    pace.Step(same + 1);
    return same == wanted.size() * 2;
}

Variant InStrB(BuiltinContext& context, std::span<Variant> arguments) {
    const bool hasStart = arguments.size() > 2;
    const std::size_t offset = hasStart && IsGiven(arguments, 0) ? PlaceAt(arguments, 0) : 0;
    const TextMode mode = TextModeAt(arguments, 3);
    if (hasStart) arguments = arguments.subspan(1);
    if (IsNullAt(arguments, 0) || IsNullAt(arguments, 1)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const Text wanted = TextAt(arguments, 1);
    Pace pace(context);
    for (std::size_t at = offset; at < text.size() * 2 && at + wanted.size() * 2 <= text.size() * 2; ++at) {
        if (BytesStandAt(text, at, wanted, mode, pace)) return static_cast<std::int32_t>(at + 1);
    }
    return 0;
}

constexpr std::array kBuiltins = {
    Builtin{u"AscB", 1, 1, &AscB},     Builtin{u"ChrB", 1, 1, &ChrB}, Builtin{u"InStrB", 2, 4, &InStrB},
    Builtin{u"LeftB", 2, 2, &LeftB},   Builtin{u"LenB", 1, 1, &LenB}, Builtin{u"MidB", 2, 3, &MidB},
    Builtin{u"RightB", 2, 2, &RightB},
};

}  // namespace

std::span<const Builtin> TextByteBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
