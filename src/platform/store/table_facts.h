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

struct DatabaseFacts {
    std::vector<TableFacts> tables;  ///< in the order of their making
    std::vector<Text> leftOut;       ///< a line for each thing that cannot be opened
};

/// What a database file of any kind has. @throws RuntimeError as opening does
DatabaseFacts DescribeDatabase(const Text& path, const Text& password);

}  // namespace ov
