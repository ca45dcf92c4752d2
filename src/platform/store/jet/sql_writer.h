/// @file
/// Tables of SQLite that are made and filled.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/store/jet/table_definition.h"
#include "platform/store/jet/values.h"

namespace ov::jet {

/// The statement that makes a table like @p table, whose texts compare by @p collation.
std::string CreateTableSql(const std::string& name, const TableDefinition& table, std::string_view collation);

/// Runs a statement. @throws RuntimeError of the engine
void RunSql(sqlite3* db, const std::string& sql);

/// Adds rows to a table.
class RowInsert {
public:
    /// @throws RuntimeError of the engine
    RowInsert(sqlite3* db, const std::string& table, std::size_t columns);

    /// Sets column @p index, from 0 on; texts and bytes are copied.
    void Bind(std::size_t index, const Value& value);
    /// Adds the row. @returns false if its key is there already
    /// @throws RuntimeError of the engine
    bool Step();

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3_stmt, Finalize> mStatement;
};

}  // namespace ov::jet
