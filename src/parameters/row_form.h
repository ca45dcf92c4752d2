/// @file
/// Where the rows of parameters have their cells, and what is worked out of a row once for all parameters of it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/automation/collection.h"
#include "record/rule_record.h"

namespace ov {

/// The columns that every parameter reads when it is configured and checked. First those that may hold a rule, in
/// their order.
enum class RowCell : std::uint8_t {
    Dependency = static_cast<std::uint8_t>(RuleColumn::Dependency),
    RealGain,
    RealOffset,
    Min,
    Max,
    Consistency,
    Unit,
    DisplayFormat,
    DefaultValue = static_cast<std::uint8_t>(RuleColumn::DefaultValue),
    Idx,
    ParameterId,
    Kind,
    Subtype,
    RemoveOnDependency,
    ActionOnChange,
};

constexpr RowCell CellOf(RuleColumn column) noexcept {
    return static_cast<RowCell>(column);
}
std::u16string_view ColumnName(RowCell cell) noexcept;

/// The cell of a row, by its name or, in a row that is as it was read, by its place; nullptr for a missing column.
/// Valid until the next change.
const Variant* FindCell(const Collection& row, RowCell cell);

/// The text by which a parameter stands in its group, one for all parameters of the row. @p id is its column
/// `ParameterId`. @throws RuntimeError 94 for Null
const Text& ParameterKey(const Row& row, std::size_t id);

}  // namespace ov
