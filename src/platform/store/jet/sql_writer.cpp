#include "platform/store/jet/sql_writer.h"

#include <algorithm>

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/table.h"

namespace ov::jet {

namespace {

void Check(sqlite3* db, int code) {
    if (code != SQLITE_OK) sqlite::RaiseEngineError(db, code);
}

// Words that the reader of SQLite files knows. Of those for texts only some
// keep SQLite from storing "007" as 7.
std::string DeclaredType(const Column& column) {
    switch (column.type) {
        case ColumnType::Boolean:
            return "YESNO";
        case ColumnType::Byte:
            return "BYTE";
        case ColumnType::Integer:
            return "SHORT";
        case ColumnType::Long:
            return column.isCounter ? "COUNTER" : "LONG";
        case ColumnType::Currency:
            return "CURRENCY";
        case ColumnType::Single:
            return "SINGLE";
        case ColumnType::Double:
            return "DOUBLE";
        case ColumnType::Date:
            return "DATETIME";
        case ColumnType::Text:
            return "TEXT";
        case ColumnType::Memo:
            return "LONGTEXT";
        case ColumnType::Guid:
            return "GUID";
        case ColumnType::Decimal:
            return "DECIMAL";
        case ColumnType::Binary:
        case ColumnType::LongBinary:
            break;
    }
    return "BLOB";
}

}  // namespace

std::string CreateTableSql(const std::string& name, const TableDefinition& table, std::string_view collation) {
    std::string sql = "CREATE TABLE main." + sqlite::QuoteName(name) + " (";
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Column& column = table.columns[i];
        sql += (i > 0 ? ", " : "") + sqlite::QuoteName(column.name) + " " + DeclaredType(column);
        const bool isText =
            column.type == ColumnType::Text || column.type == ColumnType::Memo || column.type == ColumnType::Guid;
        if (isText) sql += " COLLATE " + std::string(collation);
    }
    if (!table.primaryKey.empty()) {
        sql += ", PRIMARY KEY (";
        for (std::size_t i = 0; i < table.primaryKey.size(); ++i) {
            sql += (i > 0 ? ", " : "") + sqlite::QuoteName(table.columns[table.primaryKey[i]].name);
        }
        sql += ")";
    }
    return sql + ")";
}

void RunSql(sqlite3* db, const std::string& sql) {
    Check(db, sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr));
}

RowInsert::RowInsert(sqlite3* db, const std::string& table, std::size_t columns) {
    std::string sql = "INSERT INTO main." + sqlite::QuoteName(table) + " VALUES (?";
    for (std::size_t i = 1; i < columns; ++i) {
        sql += ",?";
    }
    sql += ")";
    sqlite3_stmt* statement = nullptr;
    Check(db, sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr));
    mStatement.reset(statement);
}

void RowInsert::Bind(std::size_t index, const Value& value) {
    sqlite3_stmt* statement = mStatement.get();
    const int place = static_cast<int>(index) + 1;
    const char* bytes = value.bytes.empty() ? "" : value.bytes.data();
    int code = SQLITE_OK;
    switch (value.kind) {
        case Value::Kind::Null:
            code = sqlite3_bind_null(statement, place);
            break;
        case Value::Kind::Integer:
            code = sqlite3_bind_int64(statement, place, value.integer);
            break;
        case Value::Kind::Real:
            code = sqlite3_bind_double(statement, place, value.real);
            break;
        case Value::Kind::Text:
            code = sqlite3_bind_text64(statement, place, bytes, value.bytes.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
            break;
        case Value::Kind::Blob:
            code = sqlite3_bind_blob64(statement, place, bytes, value.bytes.size(), SQLITE_TRANSIENT);
            break;
    }
    Check(sqlite3_db_handle(statement), code);
}

bool RowInsert::Step() {
    sqlite3_stmt* statement = mStatement.get();
    const int code = sqlite3_step(statement);
    const bool isKnownKey = (code & 0xFF) == SQLITE_CONSTRAINT;
    sqlite3_reset(statement);
    if (code != SQLITE_DONE && !isKnownKey) Check(sqlite3_db_handle(statement), code);
    return !isKnownKey;
}

}  // namespace ov::jet
