/// @file
/// A descriptor's query in SQLite's words.
#pragma once

#include <string>
#include <vector>

#include "platform/automation/variant.h"
#include "platform/store/sqlite/sql_functions.h"
#include "platform/store/sqlite/sql_scope.h"
#include "platform/store/sqlite/sql_tree.h"

namespace ov::sqlite {

/// An expression as it is written, and what is known of it.
struct SqlWritten {
    std::string text;
    ColumnType type = ColumnType::AsStored;
    bool isCondition = false;     ///< SQLite has 1 for true; the engine of the descriptors has -1
    bool isColumn = false;        ///< SQLite knows its collation
    std::optional<bool> truth{};  ///< of the constants
    bool isLiteral = false;       ///< a number or text
};

/// Writes one query. Names are written in brackets, functions and operators by the table of sql_functions.h.
class SqlWriter {
public:
    /// Most literals that are taken out: enough for what is asked again and again.
    static constexpr std::size_t kMostValues = 8;

    /// @param mayTakeValues literals behind "=" become parameters
    SqlWriter(SqlSchema& schema, std::vector<std::string> parameters, bool mayTakeValues)
        : mSchema(schema), mParameters(std::move(parameters)), mMayTakeValues(mayTakeValues) {}

    std::string Write(const SqlQuery& query) { return Query(query, nullptr).text; }
    std::vector<Variant> TakeValues() noexcept { return std::move(mValues); }

private:
    struct Rows {
        std::string text;
        SqlNamedTypes columns;
    };
    struct CommonTable {
        std::string name;
        std::shared_ptr<const SqlNamedTypes> columns;
    };
    class OrderClause;
    /// What a condition says of one column of a table.
    struct KeyCondition {
        const SqlScope::Source* source;
        std::string column;
        ColumnType type;
        std::string text;  ///< in terms of `key`
    };

    // sql_key_writer.cpp
    std::string PlaceFilter(const SqlExpression& condition, SqlScope& scope);
    std::optional<KeyCondition> KeysOf(const SqlExpression& condition, SqlScope& scope);
    std::optional<KeyCondition> KeysOfEither(const SqlExpression& condition, SqlScope& scope);
    std::optional<KeyCondition> KeysOfColumn(const SqlExpression& column, SqlScope& scope);

    // sql_writer.cpp
    Rows Query(const SqlQuery& query, SqlScope* outer);
    std::string CommonTables(const SqlQuery& query);
    Rows Union(const SqlQuery& query, SqlScope* outer);
    Rows Select(const SqlSelect& select, const SqlQuery* order, SqlScope* outer);
    Rows ValueRows(const SqlSelect& select, SqlScope* outer);
    std::string ColumnList(const SqlSelect& select, bool comparesRows, SqlScope& scope, Rows& rows);
    std::string Source(const SqlSource& source, SqlScope& scope);
    std::string TableSource(const SqlSource& source, SqlScope& scope);
    std::string JoinSource(const SqlSource& source, SqlScope& scope);
    std::string Ordered(const SqlWritten& value) const;
    std::string LimitClause(const SqlQuery& query, SqlScope& scope);

    // sql_value_writer.cpp
    SqlWritten Value(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Name(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Binary(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Comparison(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Compared(const std::string& comparison, const SqlWritten& left, const SqlWritten& right) const;
    SqlWritten Prefix(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Like(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Between(const SqlExpression& expression, SqlScope& scope);
    SqlWritten In(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Quantified(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Case(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Call(const SqlExpression& expression, SqlScope& scope);
    SqlWritten Choice(const SqlExpression& call, SqlScope& scope);
    SqlWritten FirstOrLast(const SqlExpression& call, const SqlFunction& function, SqlScope& scope);
    std::string Condition(const SqlExpression& expression, SqlScope& scope);
    std::string Argument(const SqlExpression& expression, SqlScope& scope);
    std::string Arguments(const SqlExpression& call, SqlScope& scope);
    std::string CollationOf(const SqlWritten& value) const;

    SqlSchema& mSchema;
    std::vector<std::string> mParameters;
    bool mMayTakeValues;
    std::vector<Variant> mValues{};
    std::vector<const SqlExpression*> mTaken{};  // the literals that are mValues now
    std::vector<CommonTable> mCommonTables{};
};

}  // namespace ov::sqlite
