/// @file
/// The built-in functions by theme. FindBuiltin joins these tables.
#pragma once

#include <span>

#include "platform/script/vbscript/builtins.h"

namespace ov::vbscript {

std::span<const Builtin> MathematicsBuiltins() noexcept;  ///< Abs to Tan, Round
std::span<const Builtin> RandomBuiltins() noexcept;       ///< Rnd, Randomize
std::span<const Builtin> ConversionBuiltins() noexcept;   ///< CBool to CStr, Hex, Oct
std::span<const Builtin> CharacterBuiltins() noexcept;    ///< Asc, Chr and their kin, Space, String
std::span<const Builtin> TextPartBuiltins() noexcept;     ///< Left, Mid, Trim, LCase and the like
std::span<const Builtin> TextByteBuiltins() noexcept;     ///< the same by bytes: LeftB, AscB, InStrB
std::span<const Builtin> TextSearchBuiltins() noexcept;   ///< InStr, InStrRev, Replace, StrComp
std::span<const Builtin> ListBuiltins() noexcept;         ///< Array, bounds, Split, Join, Filter
std::span<const Builtin> DateBuiltins() noexcept;         ///< clock, parts of dates, DateSerial and TimeSerial
std::span<const Builtin> IntervalBuiltins() noexcept;     ///< DateAdd, DateDiff, DatePart
std::span<const Builtin> FormattingBuiltins() noexcept;   ///< FormatNumber, FormatDateTime and the like
std::span<const Builtin> InspectionBuiltins() noexcept;   ///< IsArray and the like, TypeName, VarType
std::span<const Builtin> EscapeBuiltins() noexcept;       ///< Escape, Unescape
std::span<const Builtin> EnvironmentBuiltins() noexcept;  ///< ScriptEngine, locale, RGB, LoadPicture

}  // namespace ov::vbscript
