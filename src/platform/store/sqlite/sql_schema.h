/// @file
/// What the translation of a query has to know of the database.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/sqlite/column_types.h"

namespace ov::sqlite {

struct SqlNamedType {
    std::string name;
    ColumnType type;
};
using SqlNamedTypes = std::vector<SqlNamedType>;

/// The tables and views that a query can name.
class SqlSchema {
public:
    struct Source {
        std::shared_ptr<const SqlNamedTypes> columns;
        std::string rowNumber;  ///< the name by which SQLite knows the place of a row in its table; "" for none
    };

    virtual ~SqlSchema() = default;
    /// The table or view of a name, without regard to case, or nullopt.
    virtual std::optional<Source> FindSource(const std::string& name) = 0;
    /// The collation by which all texts of the database compare; "" where each column has its own.
    virtual std::string_view TextCollation() const noexcept = 0;
    /// The index in memory over a column of a table: a table that has, for each row, the column's value as `key` and
    /// the row's number as `place`. "" where there is none.
    virtual std::string FindKeys(const std::string& /*table*/, const std::string& /*column*/) { return {}; }
};

}  // namespace ov::sqlite
