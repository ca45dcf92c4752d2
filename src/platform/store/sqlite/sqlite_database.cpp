#include "platform/store/sqlite/sqlite_database.h"

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_scope.h"
#include "platform/store/sqlite/sql_text.h"
#include "platform/store/sqlite/sqlite_recordset.h"

namespace ov::sqlite {

Text SqliteDatabase::Version() {
    return Text::FromAscii(sqlite3_libversion());
}

std::vector<Text> SqliteDatabase::LeftOut() {
    std::vector<Text> lines;
    for (const std::string& line : mConnection->Losses()) {
        lines.push_back(Text::FromUtf8(line));
    }
    return lines;
}

Ref<Recordset> SqliteDatabase::OpenTable(const Text& name) {
    const std::shared_ptr<Table> table = mConnection->FindTable(name);
    if (!table) throw NoSuchTableOrQuery(name);
    return MakeObject<SqliteRecordset>(RowSource{mConnection, table, table->Shape(), nullptr});
}

Ref<Recordset> SqliteDatabase::RowsOf(QueryResult result) {
    auto rows = std::make_shared<const RowStore>(std::move(result.rows));
    return MakeObject<SqliteRecordset>(RowSource{mConnection, nullptr, std::move(result.shape), std::move(rows)});
}

Ref<Recordset> SqliteDatabase::OpenRecordset(const Text& source, std::optional<RecordsetType> type,
                                             std::optional<RecordsetOptions>) {
    const RecordsetType wanted = type.value_or(RecordsetType::Default);
    switch (wanted) {
        case RecordsetType::Default:
        case RecordsetType::dbOpenTable:
        case RecordsetType::dbOpenDynaset:
        case RecordsetType::dbOpenSnapshot:
            break;
        default:
            Raise(ErrorNumber::InvalidEngineArgument);
    }
    std::string words = source.ToUtf8();
    if (wanted != RecordsetType::dbOpenTable) {
        if (std::optional<QueryResult> known = mConnection->RunKnownQuery(words)) return RowsOf(std::move(*known));
    }
    const SqlText sql(std::move(words));
    const Text name = Text::FromUtf8(sql.Name());
    if (wanted == RecordsetType::dbOpenTable) return OpenTable(name);
    if (sql.MayBeName()) {
        if (const std::optional<Text> spelled = mConnection->FindTableOrView(name)) {
            if (wanted == RecordsetType::Default && mConnection->FindTable(*spelled)) return OpenTable(*spelled);
            return RowsOf(mConnection->RunQuery(SqlText("SELECT * FROM " + BracketName(spelled->ToUtf8()))));
        }
        if (sql.IsNameOnly() && !sql.BeginsStatement()) throw NoSuchTableOrQuery(name);
    }
    return RowsOf(mConnection->RunQuery(sql));
}

}  // namespace ov::sqlite
