/// @file
/// A query of a descriptor as a tree.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ov::sqlite {

struct SqlQuery;
struct SqlExpression;
using SqlExpressionPtr = std::unique_ptr<SqlExpression>;
using SqlQueryPtr = std::unique_ptr<SqlQuery>;

/// A value, a condition, or a part of one.
struct SqlExpression {
    enum class Kind : std::uint8_t {
        Text,    ///< `text` is its content
        Number,  ///< `text` as SQLite reads it
        Date,    ///< `text` is what stands between the "#"
        Null,
        Name,        ///< `path`: a column, with what qualifies it before it
        Star,        ///< "*", behind `path` if that is not empty
        Parameter,   ///< a place for a value; `text` as it is
        Call,        ///< the function `text` of `parts`
        Prefix,      ///< the operator `text` before its operand
        Binary,      ///< the operator `text` between two
        Test,        ///< the words `text` behind the operand: "IS NULL"
        Like,        ///< operand, pattern and perhaps the escape character; `text` is the operator
        Between,     ///< operand, lower and upper bound
        InList,      ///< operand and the list
        InQuery,     ///< operand; `query`
        Quantified,  ///< operand; `text` is the comparison, `isAll` tells ALL from ANY; `query`
        Query,       ///< the value of the first row of `query`
        Exists,      ///< whether `query` has rows
        Case,        ///< [operand,] WHEN and THEN in pairs [, ELSE]
        Cast,        ///< operand; `text` is the type
        Collate,     ///< operand; `text` is the collation
        List,        ///< values in brackets; one value in brackets is itself
    };

    Kind kind;
    std::string text{};
    std::vector<std::string> path{};
    std::vector<SqlExpressionPtr> parts{};
    SqlQueryPtr query{};
    std::string tail{};       ///< of a call: what SQLite alone has behind it, "OVER (...)", as it is
    bool isNegated = false;   ///< "NOT" before LIKE, BETWEEN and IN
    bool isAll = false;       ///< of a quantified comparison
    bool isDistinct = false;  ///< of a call: its argument counts once for each value
    bool hasOperand = false;  ///< of a CASE
    bool hasElse = false;     ///< of a CASE
    bool isBareWord = false;  ///< of a name: neither brackets nor quotes, so it may be a constant
};

/// One source of a FROM, or two that are joined.
struct SqlSource {
    enum class Kind : std::uint8_t { Table, Query, Function, Join };

    Kind kind = Kind::Table;
    std::vector<std::string> path{};  ///< the table's name, perhaps behind that of the schema
    std::string alias{};
    SqlQueryPtr query{};
    std::vector<SqlExpressionPtr> arguments{};  ///< of a function
    std::unique_ptr<SqlSource> left{}, right{};
    std::string join{};  ///< the words between the two, or ","
    SqlExpressionPtr on{};
    std::vector<std::string> usingColumns{};
};

struct SqlOrderTerm {
    SqlExpressionPtr value;
    std::string direction;  ///< words behind it
};

struct SqlColumn {
    SqlExpressionPtr value;
    std::string alias;
};

/// One SELECT, or the rows of VALUES.
struct SqlSelect {
    bool isDistinct = false;
    std::string top{};  ///< a number; "" for all rows
    bool isTopPercent = false;
    std::vector<SqlColumn> columns{};
    std::unique_ptr<SqlSource> from{};
    SqlExpressionPtr where{};
    std::vector<SqlExpressionPtr> groupBy{};
    SqlExpressionPtr having{};
    std::vector<SqlExpressionPtr> values{};  ///< rows of VALUES, each a list
    SqlQueryPtr inBrackets{};                ///< a query in brackets that stands for a SELECT
};

struct SqlCommonTable {
    std::string name;
    std::vector<std::string> columns;
    SqlQueryPtr query;
};

/// SELECTs that are joined by UNION and the like, and the order of their rows.
struct SqlQuery {
    bool isRecursive = false;
    std::vector<SqlCommonTable> with{};
    std::vector<SqlSelect> selects{};
    std::vector<std::string> unions{};  ///< the words between the selects
    std::vector<SqlOrderTerm> orderBy{};
    SqlExpressionPtr limit{}, offset{};
};

/// What a text holds.
struct SqlStatement {
    SqlQueryPtr query;                      ///< nullptr for a statement that reads no rows
    std::vector<std::string> parameters{};  ///< names that PARAMETERS declares
    std::string rest{};                     ///< what stands behind the query
};

}  // namespace ov::sqlite
