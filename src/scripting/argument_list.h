/// @file
/// The argument lists of `sel` and `isIn`, which all script objects read alike.
#pragma once

#include <optional>
#include <span>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/operators.h"

namespace ov {

/// The choice of `sel`: pairs of a value to compare and a result, and perhaps a last single value for all else.
/// @p value is called before each comparison. nullopt if nothing matched and there is no last single value.
/// @throws what @p value and the comparison raise
template <class Value>
std::optional<Variant> Select(std::span<const Variant> list, Value value) {
    for (std::size_t i = 0; i < list.size(); i += 2) {
        if (i + 1 == list.size()) return list[i];
        if (EqualValues(list[i], value())) return list[i + 1];
    }
    return std::nullopt;
}

/// True if the text of one of @p list is the text of @p value, case included. @p value is called before each
/// comparison.
/// @throws what @p value and the conversions raise
template <class Value>
bool IsInList(std::span<const Variant> list, Value value) {
    for (const Variant& entry : list) {
        if (ToText(entry) == ToText(value())) return true;
    }
    return false;
}

/// How the log lines of script objects end: the error's description, or "Err=0" for what has no number.
Text ErrorDetail(const RuntimeError& error);

}  // namespace ov
