/// @file
/// The names that a part of a query can use.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/store/sqlite/sql_schema.h"

namespace ov::sqlite {

/// The sources of one SELECT, and around it those of the SELECT that it stands in.
class SqlScope {
public:
    struct Source {
        std::string name;                              // its alias, or the table's name
        std::shared_ptr<const SqlNamedTypes> columns;  // nullptr where they are not known
        std::string rowNumber;
        std::string table{};  // "" for what is no table
    };
    /// A column of the result, which the columns behind it may use.
    struct Alias {
        std::string name;
        std::string text;
        ColumnType type;
    };
    struct Found {
        ColumnType type = ColumnType::AsStored;
        const Alias* alias = nullptr;  ///< it is no column but the name of one of the result
    };

    explicit SqlScope(SqlScope* outer) noexcept : mOuter(outer) {}

    /// What @p path names, or nullopt for nothing. A source whose columns are not known may have any.
    std::optional<Found> Find(const std::vector<std::string>& path);
    /// The source here that has the column @p path, or nullptr.
    const Source* FindSource(const std::vector<std::string>& path) const;
    /// How the places of the rows are written, source by source, up to the first that has none.
    std::vector<std::string> RowOrder() const;

    std::vector<Source> sources{};
    std::vector<Alias> aliases{};
    bool isAggregate = false;  ///< a function over all rows is used
    bool usesOuter = false;    ///< a name of the SELECT around is used

private:
    std::optional<Found> FindHere(const std::vector<std::string>& path) const;

    SqlScope* mOuter;
};

/// @p name in brackets, so that it is a name to SQLite whatever it reads.
std::string BracketName(std::string_view name);

}  // namespace ov::sqlite
