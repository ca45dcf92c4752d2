/// @file
/// The SQL that descriptors are written in, and how SQLite is told it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/variant.h"
#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

/// Name of the SQL function that joins texts; it stands for the operator "&".
inline constexpr const char* kJoinFunction = "&";

/// A statement in SQLite's words. Numbers and texts behind "=" are taken out as parameters, so that the queries for one
/// group of a device and for another are one text, whose prepared statement serves them all.
struct SqliteQuery {
    std::string text;
    std::vector<Variant> values;  ///< of the parameters, in their order
};

/// What a descriptor or the model gives to OpenRecordset.
class SqlText {
public:
    explicit SqlText(std::string sql) : mSql(std::move(sql)), mTokens(ReadSqlTokens(mSql)) {}
    SqlText(const SqlText&) = delete;
    SqlText& operator=(const SqlText&) = delete;

    /// True if it holds nothing but words and names.
    bool IsNameOnly() const noexcept;
    /// The text without blanks around it and without the square brackets around the whole of it.
    std::string_view Name() const noexcept;
    /// True if it begins with a word that begins a statement, of whatever kind.
    bool BeginsStatement() const noexcept;
    /// True if it can be the name of a table: it begins no statement, or is one word.
    bool MayBeName() const noexcept;

    /// What SQLite would read otherwise is put in its own words:
    ///
    /// | in a descriptor         | means                                                       |
    /// |-------------------------|-------------------------------------------------------------|
    /// | `a & b`                 | the texts joined; binds weaker than `+`, stronger than `=`  |
    /// | `x = True`, `x <> True` | x is any number but 0, x is 0; likewise with `False`        |
    /// | `True`, `False`         | -1, 0                                                       |
    /// | `Left(`, `Right(`       | functions, though they are words of a join                  |
    /// | `SELECT TOP n`          | `LIMIT n` at the end of the SELECT                          |
    ///
    /// Names in square brackets SQLite knows by itself. Bad SQL stays bad SQL.
    /// @throws RuntimeError 3075 for brackets that are too deep
    SqliteQuery Rewrite() const;

private:
    std::string mSql;
    std::vector<SqlToken> mTokens;  // of mSql
};

}  // namespace ov::sqlite
