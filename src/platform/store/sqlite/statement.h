/// @file
/// A prepared statement of SQLite.
#pragma once

#include <sqlite3.h>

#include <limits>
#include <memory>
#include <string_view>

#include "platform/automation/variant.h"
#include "platform/store/sqlite/row_store.h"

namespace ov::sqlite {

/// A prepared statement that is kept. It holds the file's read lock only inside ReadRows.
class Statement {
public:
    static constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

    /// Prepares the first statement of @p sql. The statement is null if there is none.
    /// @param rest is set to what stands behind it
    /// @throws RuntimeError of the engine
    Statement(sqlite3* db, std::string_view sql, std::string_view* rest = nullptr);

    sqlite3_stmt* get() const noexcept { return mHandle.get(); }
    explicit operator bool() const noexcept { return mHandle != nullptr; }
    int Columns() const noexcept { return sqlite3_column_count(mHandle.get()); }

    /// Sets parameter @p index, from 1 on. @returns false for a value that a statement cannot take
    bool Bind(int index, const Variant& value);

    /// Runs the statement from its begin and copies its rows, at most @p limit; takes the lock and gives it back.
    /// @throws RuntimeError of the engine, also if the statement has come to have other columns than @p width
    RowStore ReadRows(std::size_t width, std::size_t limit = kAllRows);

private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const noexcept { sqlite3_finalize(handle); }
    };

    std::unique_ptr<sqlite3_stmt, Finalize> mHandle;
};

}  // namespace ov::sqlite
