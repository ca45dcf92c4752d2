/// @file
/// SQLite files that the benches write for themselves.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace ov::bench {

/// A value to be stored; NULL without one.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A new SQLite file in the temporary folder, or a database in memory, written in one transaction. The file is removed
/// when the program ends. Failures throw std::runtime_error.
class SqliteFile {
public:
    enum class Place { TemporaryFolder, Memory };

    explicit SqliteFile(Place place = Place::TemporaryFolder);

    /// Runs statements.
    void Run(const char* sql);
    /// Ends the transaction and closes the file. @returns its path
    std::string Finish();

    sqlite3* get() const noexcept { return mDb.get(); }

private:
    struct Close {
        void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
    };

    std::string mPath;
    std::unique_ptr<sqlite3, Close> mDb;
};

/// Another name for the file @p path, under which nobody has opened it yet. Removed when the program ends.
std::string FreshName(const std::string& path);

/// Adds rows to a table through one prepared statement. Ends before its file is finished.
class Insert {
public:
    Insert(SqliteFile& file, std::string_view table, int columns);

    /// Adds a row of as many values as the table has columns. A value is a number, a text, nullptr or a Cell.
    template <class... Values>
    void Row(const Values&... values) {
        int column = 0;
        (Bind(++column, values), ...);
        Step();
    }

    void Bind(int column, std::nullptr_t);
    void Bind(int column, std::int64_t value);
    void Bind(int column, int value) { Bind(column, std::int64_t{value}); }
    void Bind(int column, double value);
    void Bind(int column, std::string_view value);
    void Bind(int column, const char* value) { Bind(column, std::string_view(value)); }
    void Bind(int column, const std::string& value) { Bind(column, std::string_view(value)); }
    void Bind(int column, const Cell& value);
    /// Adds the row of the values that were bound.
    void Step();

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };

    void Check(int code);

    std::unique_ptr<sqlite3_stmt, Finalize> mStatement;
};

}  // namespace ov::bench
