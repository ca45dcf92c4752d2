/// @file
/// The SQL that descriptors are written in, and how SQLite is told it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/variant.h"
#include "platform/store/sqlite/sql_schema.h"
#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

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

    const std::string& Words() const noexcept { return mSql; }
    /// True if it holds nothing but words and names.
    bool IsNameOnly() const noexcept;
    /// The text without blanks around it and without the square brackets around the whole of it.
    std::string_view Name() const noexcept;
    /// True if it begins with a word that begins a statement, of whatever kind.
    bool BeginsStatement() const noexcept;
    /// True if it can be the name of a table: it begins no statement, or is one word.
    bool MayBeName() const noexcept;

    /// The query as SQLite is to run it, with the meaning that the descriptors' engine gives its words:
    ///
    /// | in a descriptor           | means                                                       |
    /// |---------------------------|-------------------------------------------------------------|
    /// | `a & b`, `a + b`          | the texts joined; Null is "" for the one, spreads for the other |
    /// | `x = True`, `x <> True`   | x is any number but 0, x is 0; likewise with `False`        |
    /// | `True`, `Yes`, `On`       | -1, as is any condition that is used as a value             |
    /// | `"text"`, `#2/1/2003#`    | a text; a date, the month first                             |
    /// | `a / b`, `a \ b`, `a ^ b` | as in the rule language, with its errors                    |
    /// | `SELECT TOP n [PERCENT]`  | the first rows, and those that are level with the last      |
    /// | no ORDER BY               | the rows in the order of their tables                       |
    ///
    /// Statements that are no queries stay as they are; they end at SQLite's refusal.
    /// @throws RuntimeError 3075 for bad SQL
    SqliteQuery Rewrite(SqlSchema& schema) const;
    /// The same with all literals in their places. @throws RuntimeError 3075 for bad SQL, for what is no query, and for
    /// one with parameters
    std::string RewriteForView(SqlSchema& schema) const;

private:
    std::string mSql;
    std::vector<SqlToken> mTokens;  // of mSql
};

}  // namespace ov::sqlite
