/// @file
/// Indexes of a database's own, in memory, over columns that queries compare and the file has no index for.
#pragma once

#include <sqlite3.h>

#include <map>
#include <string>
#include <utility>

namespace ov::sqlite {

/// Makes and drops such indexes. Each is a temporary table of the keys and the row numbers of one column, with SQLite's
/// index over it: one pass over the column when it is made, and from then on a look-up in place of each further pass.
/// They hold for the content that the file has when they are made: whoever finds it changed drops them.
class KeyIndexes {
public:
    explicit KeyIndexes(sqlite3* db) noexcept : mDb(db) {}

    /// The name of the index over a column, as a query writes it, made at the first call; "" if it cannot be made.
    /// @pre statements of the connection's own making pass
    std::string Find(const std::string& table, const std::string& column, const std::string& rowNumber);
    /// @pre likewise
    void Drop() noexcept;
    bool empty() const noexcept { return mNames.empty(); }

private:
    bool Make(const std::string& name, const std::string& table, const std::string& column,
              const std::string& rowNumber);
    bool Run(const std::string& sql) noexcept;

    sqlite3* mDb;
    std::map<std::pair<std::string, std::string>, std::string> mNames;  // by table and column, in lower case
    int mMade = 0;
};

}  // namespace ov::sqlite
