#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "platform/functions/arguments.h"
#include "platform/functions/pace.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

// A text as bytes: each character is two, the lower one first; a text may end with half a character.

Text BytePart(const Text& text, std::size_t offset, std::size_t count) {
    const std::size_t size = text.ByteCount();
    count = offset < size ? std::min(count, size - offset) : 0;
    if (offset == 0 && count == size) return text;
    std::vector<std::uint8_t> bytes(count);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = text.ByteAt(offset + i);
    }
    return Text::FromBytes(bytes);
}

Variant AscB(BuiltinContext&, std::span<Variant> arguments) {
    const Text text = TextAt(arguments, 0);
    if (text.ByteCount() == 0) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::int16_t>(text.ByteAt(0));
}

Variant ChrB(BuiltinContext&, std::span<Variant> arguments) {
    const std::uint8_t byte = ToByte(arguments[0]);
    return Text::FromBytes({&byte, 1});
}

Variant LenB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return static_cast<std::int32_t>(TextAt(arguments, 0).ByteCount());
}

Variant LeftB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    return BytePart(TextAt(arguments, 0), 0, CountAt(arguments, 1));
}

Variant RightB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const Text text = TextAt(arguments, 0);
    const std::size_t count = std::min(CountAt(arguments, 1), text.ByteCount());
    return BytePart(text, text.ByteCount() - count, count);
}

Variant MidB(BuiltinContext&, std::span<Variant> arguments) {
    if (IsNullAt(arguments, 0)) return Variant::Null();
    const std::size_t offset = PlaceAt(arguments, 1);
    const std::size_t count = IsGiven(arguments, 2) ? CountAt(arguments, 2) : Text::kMaxLength * 2;
    return BytePart(TextAt(arguments, 0), offset, count);
}

bool BytesStandAt(const Text& text, std::size_t offset, const Text& wanted, TextMode mode, Pace& pace) {
    const std::size_t count = wanted.ByteCount();
    std::size_t same = 0;
    for (; same < count; ++same) {
        const char16_t a = text.ByteAt(offset + same);
        const char16_t b = wanted.ByteAt(same);
        if (mode == TextMode::Binary ? a != b : FoldCase(a) != FoldCase(b)) break;
    }
    pace.Step(same + 1);
    return same == count;
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
    for (std::size_t at = offset; at < text.ByteCount() && at + wanted.ByteCount() <= text.ByteCount(); ++at) {
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
