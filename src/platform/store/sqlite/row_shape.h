/// @file
/// What the rows of a table or query have in common.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/automation/collection.h"
#include "platform/store/sqlite/column_types.h"

namespace ov::sqlite {

/// A column, and the column of a table that it comes from. The names are empty for an expression.
struct Column {
    ColumnType type = ColumnType::AsStored;
    std::string originTable;
    std::string originColumn;
};

struct RowShape {
    std::shared_ptr<const ColumnNames> names;
    std::vector<Column> columns;
};

/// The shapes that a database's queries have had. Queries that differ in a number alone, one for each group of a
/// device, have one shape, so that the rows kept from them share their names.
class RowShapes {
public:
    std::shared_ptr<const RowShape> Of(sqlite3_stmt* statement);

private:
    // More shapes than the tables and queries of a descriptor have; beyond it, sharing begins anew.
    static constexpr std::size_t kMaxShapes = 256;

    std::unordered_map<std::string, std::shared_ptr<const RowShape>> mShapes;  // by all that makes them differ
};

}  // namespace ov::sqlite
