#include "platform/store/jet/import.h"

#include <algorithm>
#include <optional>
#include <set>

#include "platform/store/jet/catalogue.h"
#include "platform/store/jet/saved_queries.h"
#include "platform/store/jet/sql_writer.h"

namespace ov::jet {

namespace {

constexpr const char* kProperties = "FieldProperties";

std::string Words(const RuntimeError& error) {
    return error.description().ToUtf8();
}

class Importer {
public:
    Importer(PageFile& file, sqlite3* db, const char* textCollation)
        : mFile(file), mDb(db), mTextCollation(textCollation), mValues(file) {}

    ImportReport Run() {
        const Catalogue catalogue = ReadCatalogue(mFile, mValues);
        mReport.losses = catalogue.losses;
        mReport.isDamaged = catalogue.isDamaged;
        RunSql(mDb, "BEGIN");
        for (const CatalogueTable& table : catalogue.tables) {
            ImportTable(table);
        }
        ImportProperties(catalogue.tables);
        mReport.queries = ReadSavedQueries(mFile, mValues, catalogue);
        RunSql(mDb, "COMMIT");
        return std::move(mReport);
    }

private:
    void ImportTable(const CatalogueTable& entry) {
        try {
            // A second name for a table would be a second copy of its rows.
            if (!mDefinitions.insert(entry.definitionPage).second) Raise(ErrorNumber::ObjectDamaged);
            const TableDefinition table = ReadTableDefinition(mFile, entry.definitionPage, mValues.text());
            if (table.columns.empty()) Raise(ErrorNumber::ObjectDamaged);
            RunSql(mDb, CreateTableSql(entry.name, table, mTextCollation));
            mReport.tables.push_back({entry.name, 0});
            CopyRows(table, mReport.tables.back());
        } catch (const RuntimeError& error) {
            if (mFile.IsExhausted()) throw;
            Lose("table '" + entry.name + "': " + Words(error));
        }
    }

    void CopyRows(const TableDefinition& table, ImportReport::Table& counted) {
        RowInsert insert(mDb, counted.name, table.columns.size());
        RowWalk walk(mFile, table);
        std::int64_t unreadable = 0;
        for (;;) {
            try {
                const std::optional<Bytes> body = walk.Next();
                if (!body) break;
                const bool isNew = InsertRow(insert, table, *body);
                (isNew ? counted.rows : unreadable) += 1;
            } catch (const RuntimeError& error) {
                if (mFile.IsExhausted() || !IsDamage(error)) throw;
                ++unreadable;
            }
        }
        if (unreadable > 0) {
            Lose("table '" + counted.name + "': " + std::to_string(unreadable) + " rows or pages cannot be read");
        }
    }

    bool InsertRow(RowInsert& insert, const TableDefinition& table, const Bytes& body) {
        const Row row(mFile.header().version, table, body);
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            insert.Bind(i, mValues.Read(row, table.columns[i]));
        }
        return insert.Step();
    }

    void ImportProperties(const std::vector<CatalogueTable>& tables) {
        const auto hasNone = [](const CatalogueTable& table) { return table.properties.empty(); };
        if (std::ranges::all_of(tables, hasNone)) return;
        // A table of the very name is the descriptor's own, made for SQLite, and
        // goes before what the engine keeps.
        if (HasTable(kProperties)) return;
        RunSql(mDb, std::string("CREATE TABLE main.") + kProperties +
                        " (TableName TEXT, FieldName TEXT, PropertyName TEXT, "
                        "PropertyValue TEXT)");
        RowInsert insert(mDb, kProperties, 4);
        const auto bind = [&](std::size_t index, const std::string& text) {
            insert.Bind(index, {.kind = Value::Kind::Text, .bytes = text});
        };
        for (const CatalogueTable& table : tables) {
            for (const Property& property : table.properties) {
                bind(0, table.name);
                bind(1, property.column);
                bind(2, property.name);
                bind(3, property.value);
                insert.Step();
            }
        }
    }

    bool HasTable(const char* name) const {
        return std::ranges::any_of(mReport.tables, [name](const ImportReport::Table& table) {
            return sqlite3_stricmp(table.name.c_str(), name) == 0;
        });
    }

    static bool IsDamage(const RuntimeError& error) {
        return error.number() == static_cast<std::int32_t>(ErrorNumber::ObjectDamaged);
    }

    void Lose(std::string line) {
        mReport.losses.push_back(std::move(line));
        mReport.isDamaged = true;
    }

    PageFile& mFile;
    sqlite3* mDb;
    const char* mTextCollation;
    ValueReader mValues;
    std::set<std::uint32_t> mDefinitions;
    ImportReport mReport;
};

}  // namespace

ImportReport Import(PageFile& file, sqlite3* db, const char* textCollation) {
    return Importer(file, db, textCollation).Run();
}

}  // namespace ov::jet
