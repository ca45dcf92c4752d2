/// @file
/// The built-in functions of the rule language alone, by theme. FindBuiltin joins these tables with those that queries
/// have, too.
#pragma once

#include <span>

#include "platform/functions/themes.h"

namespace ov::vbscript {

std::span<const Builtin> RandomBuiltins() noexcept;       ///< Rnd, Randomize
std::span<const Builtin> TextByteBuiltins() noexcept;     ///< the same by bytes: LeftB, AscB, InStrB
std::span<const Builtin> ListBuiltins() noexcept;         ///< Array, bounds, Split, Join, Filter
std::span<const Builtin> EscapeBuiltins() noexcept;       ///< Escape, Unescape
std::span<const Builtin> EnvironmentBuiltins() noexcept;  ///< ScriptEngine, locale, RGB, LoadPicture

}  // namespace ov::vbscript
