/// @file
/// An open database of SQLite and all that is known of it.
#pragma once

#include <sqlite3.h>

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/automation/text.h"
#include "platform/store/sqlite/key_indexes.h"
#include "platform/store/sqlite/query_forms.h"
#include "platform/store/sqlite/row_shape.h"
#include "platform/store/sqlite/sql_functions.h"
#include "platform/store/sqlite/sql_schema.h"
#include "platform/store/sqlite/sql_text.h"
#include "platform/store/sqlite/statement.h"
#include "platform/store/sqlite/table.h"

namespace ov::sqlite {

struct CloseHandle {
    void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

/// What a query gave.
struct QueryResult {
    std::shared_ptr<const RowShape> shape;
    RowStore rows;
};

/// A database that is read and never written, and not trusted: statements can read its tables and nothing else, and
/// what the file itself brings (views, virtual tables, damaged pages) can do no harm. Held by its database object and
/// by all recordsets; the last holder closes it.
///
/// No lock on the file outlives a call: all rows that a call needs are copied by it.
class Connection final : private SqlSchema, private SqlDomainReader {
public:
    /// How texts compare where nothing else is told.
    enum class Texts : std::uint8_t {
        ByColumn,    ///< as the column's collation tells
        IgnoreCase,  ///< without regard to case throughout, by the collation kTextCollation
    };

    /// @param db where the rows come from: a file, or a database in memory that was filled before. Not yet read.
    /// @throws RuntimeError of the engine
    explicit Connection(Handle db, Texts texts = Texts::ByColumn);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Reads for the first time. @returns false if the file is no database of SQLite
    /// @throws RuntimeError 3050 if another holds the file, others of the engine
    bool ReadFirstTime();

    /// The table of a name, without regard to case, or nullptr.
    std::shared_ptr<Table> FindTable(const Text& name);
    /// The name, as the database spells it, of a table or view, or nullopt.
    std::optional<Text> FindTableOrView(const Text& name);
    std::vector<Text> TableNames();

    /// Makes a view of a query in the words of descriptors. @returns "", or why there is none
    std::string AddView(const std::string& name, const std::string& sql);
    /// Keeps a line about something of the file that is not to be had here.
    void AddLoss(std::string line) { mLosses.push_back(std::move(line)); }
    const std::vector<std::string>& Losses() const noexcept { return mLosses; }

    /// Runs a query, for as long as StatementTimeout allows. Its statement is kept for the next of its form.
    /// @throws RuntimeError 3075, 3061, 3078, 3027, 3001 beyond the time, 7 beyond the memory, others of the engine
    QueryResult RunQuery(const SqlText& sql);
    /// The same for one that differs in a number alone from one that was run, without a look at its words; nullopt for
    /// any other.
    std::optional<QueryResult> RunKnownQuery(const std::string& sql);

    /// The property @p name of a column that comes from a table's, or nullptr. Valid as long as the connection.
    const Variant* FindProperty(const Column& column, const Text& name);
    /// True if a column that comes from a table's takes no NULL.
    bool IsRequired(const Column& column);

    /// Of the rows that are read.
    TextPool& Pool() noexcept { return mPool; }

    /// A number that is another one once a process has changed the file. @throws RuntimeError of the engine
    std::int64_t Revision();
    /// How many rows queries have passed in tables that they walked through from end to end.
    std::int64_t RowsScanned() const noexcept { return mRowsScanned; }

private:
    struct SchemaEntry {
        Text name;
        bool isTable;
        std::shared_ptr<Table> table;    // once somebody has asked for it
        std::optional<Source> source{};  // likewise, for a query
        std::string sql{};               // that made a view
        std::size_t weight = 0;          // of a view, once it is known: the views that it stands for, itself included
    };
    struct Query {
        std::string text;
        Statement statement;
        std::shared_ptr<const RowShape> shape;
        std::int64_t rowsScanned = 0;
        bool wasIndexed = false;  ///< indexes in memory have been looked for
    };
    class InternalStatements;
    class Snapshot;
    class IndexedSchema;

    static constexpr std::size_t kMaxQueries = 128;
    static constexpr std::size_t kMaxWeight = 1000;
    // What all runs of one query may scan before its tables are indexed: about what the first look-ups by an index
    // cost.
    static constexpr std::int64_t kMostScanned = 500;

    static int Authorize(void* self, int action, const char* first, const char* second, const char*,
                         const char*) noexcept;

    std::optional<Source> FindSource(const std::string& name) override;
    std::string_view TextCollation() const noexcept override;
    Variant ReadFirst(const std::string& sql) override;

    Source DescribeSource(const SchemaEntry& entry);
    std::size_t WeightOf(SchemaEntry& entry);
    void CheckWeight(SchemaEntry& entry);
    void ReadSchema();
    SchemaEntry* FindEntry(const Text& name);
    std::vector<std::string> ReadKeyNames(const std::string& table);
    Query& FindQuery(const SqliteQuery& query);
    Query Compile(const SqliteQuery& query);
    RowStore Rows(Query& query, const std::vector<Variant>& values, std::size_t limit);
    QueryResult Run(const SqliteQuery& rewritten, const std::string& sql);
    void IndexTables(Query& query, const std::string& sql);
    void ForgetIndexes();
    void ReadProperties();

    Handle mDb;
    Texts mTexts;
    SqlFunctions mFunctions;
    int mDomainDepth = 0;    // domain functions inside each other
    bool mInternal = false;  // a statement of this class is being compiled
    RowShapes mShapes;
    std::vector<SchemaEntry> mSchema;
    std::vector<std::string> mLosses;
    std::list<Query> mQueries;  // the one used last comes first
    std::unordered_map<std::string_view, std::list<Query>::iterator> mQueryIndex;
    std::optional<std::unordered_map<std::u16string, Variant>> mProperties;
    TextPool mPool;
    QueryForms mForms;
    std::optional<Statement> mRevision, mBegin, mEnd;
    KeyIndexes mIndexes;
    std::int64_t mIndexedRevision = 0;  // that mIndexes hold for
    std::int64_t mRowsScanned = 0;
};

}  // namespace ov::sqlite
