#include <algorithm>
#include <array>

#include "platform/automation/unrepeatable.h"
#include "platform/functions/arguments.h"
#include "platform/locale/locale.h"
#include "platform/script/vbscript/builtins/themes.h"

namespace ov::vbscript {

namespace {

Variant ScriptEngine(BuiltinContext&, std::span<Variant>) {
    return u"VBScript";
}

/// The language's version, not the library's.
template <std::int32_t Number>
Variant VersionNumber(BuiltinContext&, std::span<Variant>) {
    return Number;
}

Variant GetLocale(BuiltinContext&, std::span<Variant>) {
    return static_cast<std::int32_t>(CurrentLocale().lcid);
}

/// Takes a number or a name; the result is the former locale's number.
Variant SetLocale(BuiltinContext& context, std::span<Variant> arguments) {
    Traces::Leave(Unrepeatable::Locale);
    const Variant former = GetLocale(context, {});
    bool known = false;
    if (!IsGiven(arguments, 0)) {
        known = SetCurrentLocale(std::uint32_t{0});
    } else if (const Variant& wanted = ValueAt(arguments, 0); wanted.IsString() && !IsNumeric(wanted)) {
        known = !wanted.AsText().empty() && SetCurrentLocale(wanted.AsText().ToUtf8());
    } else {
        known = SetCurrentLocale(static_cast<std::uint32_t>(ToLong(wanted)));
    }
    if (!known) Raise(ErrorNumber::InvalidProcedureCall);
    return former;
}

/// A part of a colour; what is beyond 255 is 255. @throws RuntimeError 5 below 0
std::int32_t ColourPartAt(std::span<Variant> arguments, std::size_t index) {
    const std::int32_t part = LongAt(arguments, index);
    if (part < 0) Raise(ErrorNumber::InvalidProcedureCall);
    return std::min(part, std::int32_t{0xFF});
}

Variant Rgb(BuiltinContext&, std::span<Variant> arguments) {
    const std::int32_t red = ColourPartAt(arguments, 0);
    const std::int32_t green = ColourPartAt(arguments, 1);
    return red | green << 8 | ColourPartAt(arguments, 2) << 16;
}

/// Values are never pictures here, so no file holds one.
Variant LoadPicture(BuiltinContext&, std::span<Variant>) {
    constexpr std::int32_t kInvalidPicture = 481;
    throw RuntimeError(kInvalidPicture);
}

constexpr std::array kBuiltins = {
    Builtin{u"GetLocale", 0, 0, &GetLocale},
    Builtin{u"LoadPicture", 1, 1, &LoadPicture},
    Builtin{u"RGB", 3, 3, &Rgb},
    Builtin{u"ScriptEngine", 0, 0, &ScriptEngine},
    Builtin{u"ScriptEngineBuildVersion", 0, 0, &VersionNumber<16384>},
    Builtin{u"ScriptEngineMajorVersion", 0, 0, &VersionNumber<5>},
    Builtin{u"ScriptEngineMinorVersion", 0, 0, &VersionNumber<8>},
    Builtin{u"SetLocale", 0, 1, &SetLocale},
};

}  // namespace

std::span<const Builtin> EnvironmentBuiltins() noexcept {
    return kBuiltins;
}

}  // namespace ov::vbscript
