/// @file
/// Where rules stand in the table Parameters.
#pragma once

#include <cstdint>
#include <string_view>

namespace ov {

/// The columns of a row whose text can be a rule that runs again.
enum class RuleColumn : std::uint8_t {
    Dependency,
    RealGain,
    RealOffset,
    Min,
    Max,
    Consistency,
    Unit,
    DisplayFormat,
    DefaultValue,
};

/// The column's name in the table.
std::u16string_view ColumnName(RuleColumn column) noexcept;

}  // namespace ov
