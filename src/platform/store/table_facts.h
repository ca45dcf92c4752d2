/// @file
/// What a database file has, table by table.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/automation/text.h"

namespace ov {

struct ColumnFacts {
    Text name;
    Text type;             ///< of its values: "Long", "String"; "Any" where the file does not tell
    std::size_t keyPlace;  ///< in the primary key, from 1 on; 0 for none
};

struct TableFacts {
    Text name;
    std::vector<ColumnFacts> columns;
    std::int64_t rows;
};

/// The tables of a database file of any kind, in the order of their making. @throws RuntimeError as opening does
std::vector<TableFacts> DescribeTables(const Text& path, const Text& password);

}  // namespace ov
