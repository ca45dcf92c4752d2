#include "platform/store/jet/jet_copy.h"

#include "platform/automation/conversions.h"
#include "platform/store/store.h"
#include "platform/store/table_facts.h"

namespace ov::testing {

namespace {

using jet::ColumnType;

JetValue ToJet(const Variant& value) {
    switch (value.Type()) {
        case VarType::Null:
            return {};
        case VarType::Boolean:
            return value.AsBoolean();
        case VarType::String:
            return value.AsText().ToUtf8();
        case VarType::Double:
            return ToDouble(value);
        default:
            return std::int64_t{ToLong(value)};
    }
}

JetTable CopyTable(Database& db, const TableFacts& facts) {
    JetTable table{facts.name.ToUtf8(), {}, {}, {}};
    const Ref<Recordset> rows = db.OpenRecordset(facts.name, RecordsetType::dbOpenTable);
    for (const ColumnFacts& column : facts.columns) {
        const ColumnType type = column.type == u"Boolean"  ? ColumnType::Boolean
                                : column.type == u"Long"   ? ColumnType::Long
                                : column.type == u"Double" ? ColumnType::Double
                                                           : ColumnType::Memo;
        table.columns.push_back({column.name.ToUtf8(), type, column.keyPlace > 0});
    }
    for (; !rows->Eof(); rows->MoveNext()) {
        JetRow& row = table.rows.emplace_back();
        for (std::size_t i = 0; i < facts.columns.size(); ++i) {
            row.values.push_back(ToJet(rows->ValueAt(i)));
        }
    }
    return table;
}

// A Jet file keeps them beside its tables, a SQLite file in a table.
void CopyProperties(Database& db, JetFile& file) {
    const Ref<Recordset> rows = db.OpenRecordset(u"FieldProperties", RecordsetType::dbOpenTable);
    const auto text = [&](const char16_t* column) { return rows->Fields(column)->Value().AsText().ToUtf8(); };
    for (; !rows->Eof(); rows->MoveNext()) {
        for (JetTable& table : file.tables) {
            if (table.name != text(u"TableName")) continue;
            table.properties.push_back({text(u"FieldName"), text(u"PropertyName"), text(u"PropertyValue")});
        }
    }
}

}  // namespace

JetFile CopyToJet(const Text& path) {
    const Ref<Database> db =
        DefaultStoreEngine().CreateWorkspace(u"test", u"Admin", u"")->OpenDatabase(path, false, true, u"");
    JetFile file;
    bool hasProperties = false;
    for (const TableFacts& facts : DescribeDatabase(path, u"").tables) {
        if (facts.name == u"FieldProperties") {
            hasProperties = true;
        } else {
            file.tables.push_back(CopyTable(*db, facts));
        }
    }
    if (hasProperties) CopyProperties(*db, file);
    return file;
}

}  // namespace ov::testing
