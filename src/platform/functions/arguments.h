/// @file
/// How the built-in functions read their arguments.
#pragma once

#include <cstdint>
#include <span>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"

namespace ov::vbscript {

/// False for an argument that was left out.
inline bool IsGiven(std::span<const Variant> arguments, std::size_t index) noexcept {
    return index < arguments.size() && !arguments[index].IsMissing();
}

/// An argument as a value: an object gives way to its default value, once, in its place.
inline const Variant& ValueAt(std::span<Variant> arguments, std::size_t index) {
    Variant& value = arguments[index];
    if (value.IsObject()) value = DefaultValue(value);
    return value;
}

inline bool IsNullAt(std::span<Variant> arguments, std::size_t index) {
    return ValueAt(arguments, index).IsNull();
}
inline Text TextAt(std::span<Variant> arguments, std::size_t index) {
    return ToText(arguments[index]);
}
inline std::int32_t LongAt(std::span<Variant> arguments, std::size_t index) {
    return ToLong(arguments[index]);
}
inline std::int32_t LongOr(std::span<Variant> arguments, std::size_t index, std::int32_t fallback) {
    return IsGiven(arguments, index) ? ToLong(arguments[index]) : fallback;
}
inline bool BooleanOr(std::span<Variant> arguments, std::size_t index, bool fallback) {
    return IsGiven(arguments, index) ? ToBoolean(arguments[index]) : fallback;
}

/// A number of characters or elements. @throws RuntimeError 5 below 0
inline std::size_t CountAt(std::span<Variant> arguments, std::size_t index) {
    const std::int32_t count = ToLong(arguments[index]);
    if (count < 0) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(count);
}

/// A place in a text, which counts from 1, as an offset from 0. @throws RuntimeError 5 below 1
inline std::size_t PlaceAt(std::span<Variant> arguments, std::size_t index) {
    const std::int32_t place = ToLong(arguments[index]);
    if (place < 1) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(place) - 1;
}

/// How texts compare.
enum class TextMode {
    Binary,      ///< by character code
    IgnoreCase,  ///< vbTextCompare
};

/// The mode that an optional argument gives: 0, the default, or 1. @throws RuntimeError 5 for any other
inline TextMode TextModeAt(std::span<Variant> arguments, std::size_t index) {
    const std::int32_t mode = LongOr(arguments, index, 0);
    if (mode != 0 && mode != 1) Raise(ErrorNumber::InvalidProcedureCall);
    return mode == 0 ? TextMode::Binary : TextMode::IgnoreCase;
}

}  // namespace ov::vbscript
