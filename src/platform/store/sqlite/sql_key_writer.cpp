// How a query comes to use an index in memory: what its condition says of a column is asked of the index first, which
// gives the numbers of the rows.
#include <algorithm>

#include "platform/store/sqlite/sql_tokens.h"
#include "platform/store/sqlite/sql_writer.h"

namespace ov::sqlite {

namespace {

using Kind = SqlExpression::Kind;

// Whether values of the type are compared as they are stored.
bool HasKeys(ColumnType type) noexcept {
    return type == ColumnType::AsStored || type == ColumnType::Byte || type == ColumnType::Integer ||
           type == ColumnType::Long || type == ColumnType::Double || type == ColumnType::String;
}

}  // namespace

// The condition itself stays, so that the index has to do no more than choose.
std::string SqlWriter::PlaceFilter(const SqlExpression& condition, SqlScope& scope) {
    const std::optional<KeyCondition> keys = mMayTakeValues ? KeysOf(condition, scope) : std::nullopt;
    const std::string index = keys ? mSchema.FindKeys(keys->source->table, keys->column) : std::string();
    if (index.empty()) return {};
    return " AND " + BracketName(keys->source->name) + "." + keys->source->rowNumber + " IN (SELECT place FROM " +
           index + " WHERE " + keys->text + ")";
}

// What a condition says of one column alone; of two that must both hold the first one that says anything will do.
std::optional<SqlWriter::KeyCondition> SqlWriter::KeysOf(const SqlExpression& condition, SqlScope& scope) {
    if (condition.kind == Kind::Test && condition.text == "IS NULL") {
        std::optional<KeyCondition> keys = KeysOfColumn(*condition.parts[0], scope);
        if (keys) keys->text = "key IS NULL";
        return keys;
    }
    if (condition.kind != Kind::Binary) return std::nullopt;
    if (condition.text == "OR") return KeysOfEither(condition, scope);
    if (condition.text == "AND") {
        std::optional<KeyCondition> keys = KeysOf(*condition.parts[0], scope);
        return keys ? keys : KeysOf(*condition.parts[1], scope);
    }
    const auto taken = std::ranges::find(mTaken, condition.parts[1].get());
    if (condition.text != "=" || taken == mTaken.end()) return std::nullopt;
    std::optional<KeyCondition> keys = KeysOfColumn(*condition.parts[0], scope);
    if (!keys) return std::nullopt;
    const SqlWritten value{.text = "?" + std::to_string(taken - mTaken.begin() + 1),
                           .type = (*taken)->kind == Kind::Text ? ColumnType::String : ColumnType::AsStored};
    keys->text = Compared("=", {.text = "key", .type = keys->type, .isColumn = true}, value).text;
    return keys;
}

std::optional<SqlWriter::KeyCondition> SqlWriter::KeysOfEither(const SqlExpression& condition, SqlScope& scope) {
    std::optional<KeyCondition> keys = KeysOf(*condition.parts[0], scope);
    const std::optional<KeyCondition> others = keys ? KeysOf(*condition.parts[1], scope) : std::nullopt;
    if (!others || others->source != keys->source || !SameName(others->column, keys->column)) return std::nullopt;
    keys->text = "(" + keys->text + " OR " + others->text + ")";
    return keys;
}

std::optional<SqlWriter::KeyCondition> SqlWriter::KeysOfColumn(const SqlExpression& column, SqlScope& scope) {
    if (column.kind != Kind::Name || !Name(column, scope).isColumn) return std::nullopt;
    const SqlScope::Source* source = scope.FindSource(column.path);
    if (!source || !source->columns || source->rowNumber.empty()) return std::nullopt;
    const std::optional<SqlScope::Found> found = scope.Find(column.path);
    if (!found || !HasKeys(found->type)) return std::nullopt;
    return KeyCondition{source, column.path.back(), found->type, {}};
}

}  // namespace ov::sqlite
