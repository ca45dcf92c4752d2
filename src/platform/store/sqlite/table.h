/// @file
/// One table of a database: its rows, its key.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/store/sqlite/row_shape.h"
#include "platform/store/sqlite/statement.h"

namespace ov::sqlite {

/// A table, with its statements, which are kept once they are needed.
class Table {
public:
    /// @param keyNames the columns of the primary key in their order; none if it has no key
    /// @throws RuntimeError of the engine
    Table(sqlite3* db, const std::string& name, const std::vector<std::string>& keyNames, RowShapes& shapes);

    const std::shared_ptr<const RowShape>& Shape() const noexcept { return mShape; }
    /// Columns of the primary key, by their numbers.
    std::span<const std::size_t> Key() const noexcept { return mKey; }

    /// All rows, in the order of the key or in row order.
    RowStore ReadRows(bool byKey);
    /// The first row, in the order of the key, whose key begins with @p values; none or one.
    /// @pre there are at most as many values as the key has columns, and at least one
    RowStore Find(std::span<const Variant> values);
    std::int64_t CountRows();

private:
    std::string KeyNames(const char* between, std::size_t count) const;
    bool BeginsWith(const Cell* row, std::span<const Variant> values) const;
    RowStore FindDecoded(std::span<const Variant> values);

    sqlite3* mDb;
    std::string mSource;                 // the name as SQL writes it
    std::vector<std::string> mKeyNames;  // the same
    std::vector<std::size_t> mKey;
    std::shared_ptr<const RowShape> mShape;
    std::optional<Statement> mWalk, mWalkByKey, mCount;
    std::vector<std::optional<Statement>> mFind;  // by the number of values
};

/// @p name as SQL writes it, whatever characters it has.
std::string QuoteName(std::string_view name);

}  // namespace ov::sqlite
