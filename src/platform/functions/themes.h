/// @file
/// The built-in functions that work on values alone, by theme.
#pragma once

#include <span>

#include "platform/functions/builtin.h"

namespace ov::vbscript {

std::span<const Builtin> MathematicsBuiltins() noexcept;  ///< Abs to Tan, Round
std::span<const Builtin> ConversionBuiltins() noexcept;   ///< CBool to CStr, Hex, Oct
std::span<const Builtin> CharacterBuiltins() noexcept;    ///< Asc, Chr and their kin, Space, String
std::span<const Builtin> TextPartBuiltins() noexcept;     ///< Left, Mid, Trim, LCase and the like
std::span<const Builtin> TextSearchBuiltins() noexcept;   ///< InStr, InStrRev, Replace, StrComp
std::span<const Builtin> DateBuiltins() noexcept;         ///< clock, parts of dates, DateSerial and TimeSerial
std::span<const Builtin> IntervalBuiltins() noexcept;     ///< DateAdd, DateDiff, DatePart
std::span<const Builtin> FormattingBuiltins() noexcept;   ///< FormatNumber, FormatDateTime and the like
std::span<const Builtin> InspectionBuiltins() noexcept;   ///< IsArray and the like, TypeName, VarType

}  // namespace ov::vbscript
