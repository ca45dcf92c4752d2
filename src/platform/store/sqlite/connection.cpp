#include "platform/store/sqlite/connection.h"

#include <algorithm>
#include <utility>

#include "platform/automation/errors.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/text_collation.h"
#include "platform/store/statement_timeout.h"
#include "platform/system/deadline.h"

namespace ov::sqlite {

namespace {

void Check(sqlite3* db, int code) {
    if (code != SQLITE_OK) RaiseEngineError(db, code);
}

// What SQLite advises for files that nobody vouches for.
void Secure(sqlite3* db) {
    Check(db, sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
    Check(db, sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr));
    Check(db, sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr));
    Check(db, sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr));
    Check(db, sqlite3_drop_modules(db, nullptr));  // so a virtual table of the file is an error and runs no code
    Check(db, sqlite3_exec(db, "PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0; PRAGMA temp_store = MEMORY", nullptr,
                           nullptr, nullptr));
    struct Limit {
        int id;
        int value;
    };
    // Far above what a descriptor needs.
    for (const Limit limit : {Limit{SQLITE_LIMIT_LENGTH, 16 << 20}, Limit{SQLITE_LIMIT_SQL_LENGTH, 1 << 20},
                              Limit{SQLITE_LIMIT_EXPR_DEPTH, 500}, Limit{SQLITE_LIMIT_COMPOUND_SELECT, 100},
                              Limit{SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 100}, Limit{SQLITE_LIMIT_ATTACHED, 0},
                              Limit{SQLITE_LIMIT_TRIGGER_DEPTH, 1}}) {
        sqlite3_limit(db, limit.id, limit.value);
    }
}

bool IsBlank(std::string_view sql) {
    return sql.find_first_not_of(" \t\r\n\f;") == std::string_view::npos;
}

std::u16string PropertyKey(std::u16string_view table, std::u16string_view column, std::u16string_view property) {
    std::u16string key;
    for (const std::u16string_view part : {table, column, property}) {
        for (const char16_t c : part) {
            key += FoldCase(c);
        }
        key += u'\0';
    }
    return key;
}

}  // namespace

/// While it lives, statements of the connection's own making run: pragmas pass. A statement is compiled anew when the
/// schema has changed, so it is not enough to compile them so.
class Connection::InternalStatements {
public:
    explicit InternalStatements(Connection& connection)
        : mConnection(connection), mOuter(std::exchange(connection.mInternal, true)) {}
    InternalStatements(const InternalStatements&) = delete;
    InternalStatements& operator=(const InternalStatements&) = delete;
    ~InternalStatements() { mConnection.mInternal = mOuter; }

private:
    Connection& mConnection;
    bool mOuter;
};

/// While it lives, all reads see one state of the file. One inside another does nothing.
class Connection::Snapshot {
public:
    explicit Snapshot(Connection& connection) : mConnection(connection) {
        if (sqlite3_get_autocommit(connection.mDb.get()) == 0) return;
        const InternalStatements internal(connection);
        if (!connection.mBegin) connection.mBegin.emplace(connection.mDb.get(), "BEGIN");
        if (!connection.mEnd) connection.mEnd.emplace(connection.mDb.get(), "COMMIT");
        connection.mBegin->ReadRows(0);
        mIsOwn = true;
    }
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    ~Snapshot() {
        if (!mIsOwn) return;
        const InternalStatements internal(mConnection);
        sqlite3_step(mConnection.mEnd->get());  // nothing was written, so nothing can fail
        sqlite3_reset(mConnection.mEnd->get());
    }

private:
    Connection& mConnection;
    bool mIsOwn = false;
};

/// The schema with the indexes in memory that its columns come to have.
class Connection::IndexedSchema final : public SqlSchema {
public:
    explicit IndexedSchema(Connection& connection) : mConnection(connection) {}

    std::optional<Source> FindSource(const std::string& name) override { return mConnection.FindSource(name); }
    std::string_view TextCollation() const noexcept override { return mConnection.TextCollation(); }
    std::string FindKeys(const std::string& table, const std::string& column) override {
        const std::optional<Source> source = FindSource(table);
        const InternalStatements internal(mConnection);
        return source ? mConnection.mIndexes.Find(table, column, source->rowNumber) : std::string();
    }

private:
    Connection& mConnection;
};

Connection::Connection(Handle db, Texts texts)
    : mDb(std::move(db)), mTexts(texts), mFunctions(mDb.get(), *this), mIndexes(mDb.get()) {
    Secure(mDb.get());
    Check(mDb.get(), sqlite3_set_authorizer(mDb.get(), &Authorize, this));
}

int Connection::Authorize(void* self, int action, const char*, const char* second, const char*, const char*) noexcept {
    if (static_cast<Connection*>(self)->mInternal) return SQLITE_OK;
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_RECURSIVE:
            return SQLITE_OK;
        case SQLITE_FUNCTION:
            return sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
        default:
            return SQLITE_DENY;
    }
}

bool Connection::ReadFirstTime() {
    const int code = sqlite3_exec(mDb.get(), "SELECT 1 FROM sqlite_schema", nullptr, nullptr, nullptr);
    if ((code & 0xFF) == SQLITE_NOTADB) return false;
    Check(mDb.get(), code);
    return true;
}

void Connection::ReadSchema() {
    // The order of the rows is that of creation.
    Statement statement(mDb.get(),
                        "SELECT name, type = 'table', sql FROM sqlite_schema"
                        " WHERE type IN ('table', 'view') AND lower(substr(name, 1, 7)) <> 'sqlite_' ORDER BY rowid");
    const RowStore rows = statement.ReadRows(3);
    std::vector<SchemaEntry> schema;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const Cell& name = rows[row][0];
        if (name.kind == CellKind::Text) {
            const bool isTable = rows[row][1].integer != 0;
            const Cell& sql = rows[row][2];
            SchemaEntry& entry = schema.emplace_back(SchemaEntry{Text::FromUtf8(name.Bytes()), isTable, nullptr});
            if (!isTable && sql.kind == CellKind::Text) entry.sql = sql.Bytes();
        }
    }
    mSchema = std::move(schema);
}

// The schema is kept, and read again where it does not have a name.
Connection::SchemaEntry* Connection::FindEntry(const Text& name) {
    const auto find = [&] {
        return std::ranges::find_if(mSchema, [&](const SchemaEntry& entry) { return EqualNoCase(entry.name, name); });
    };
    auto at = find();
    if (at == mSchema.end()) {
        ReadSchema();
        at = find();
    }
    return at != mSchema.end() ? &*at : nullptr;
}

std::shared_ptr<Table> Connection::FindTable(const Text& name) {
    SchemaEntry* entry = FindEntry(name);
    if (!entry || !entry->isTable) return nullptr;
    if (!entry->table) {
        const std::string spelled = entry->name.ToUtf8();
        entry->table = std::make_shared<Table>(mDb.get(), spelled, ReadKeyNames(spelled), mShapes);
    }
    return entry->table;
}

std::optional<Text> Connection::FindTableOrView(const Text& name) {
    SchemaEntry* entry = FindEntry(name);
    if (!entry) return std::nullopt;
    CheckWeight(*entry);
    return entry->name;
}

std::string Connection::AddView(const std::string& name, const std::string& sql) {
    try {
        const std::string text = SqlText(sql).RewriteForView(*this);
        if (FindEntry(Text::FromUtf8(name))) return "there is a table of its name";
        const InternalStatements internal(*this);
        const auto run = [&](const std::string& words) {
            return sqlite3_exec(mDb.get(), words.c_str(), nullptr, nullptr, nullptr);
        };
        const std::string view = "main." + QuoteName(name);
        Check(mDb.get(), run("CREATE VIEW " + view + " AS " + text));
        try {
            const Statement works(mDb.get(), "SELECT * FROM " + view);
        } catch (const RuntimeError&) {
            run("DROP VIEW " + view);
            throw;
        }
        return {};
    } catch (const RuntimeError& error) {
        return error.description().ToUtf8();
    }
}

std::string_view Connection::TextCollation() const noexcept {
    return mTexts == Texts::IgnoreCase ? kTextCollation : std::string_view();
}

std::optional<SqlSchema::Source> Connection::FindSource(const std::string& name) {
    SchemaEntry* entry = FindEntry(Text::FromUtf8(name));
    if (!entry) return std::nullopt;
    CheckWeight(*entry);
    if (!entry->source) entry->source = DescribeSource(*entry);
    return entry->source;
}

// A query is compiled with all that its views stand for, and views of views can be made to double it again and again.
std::size_t Connection::WeightOf(SchemaEntry& entry) {
    if (entry.isTable) return 0;
    if (entry.weight > 0) return entry.weight;
    entry.weight = 1;  // of one that stands on itself, which is an error of its own
    std::size_t weight = 1;
    for (const SqlToken& token : ReadSqlTokens(entry.sql)) {
        if (token.kind == SqlTokenKind::Space || token.kind == SqlTokenKind::Symbol) continue;
        const Text word = Text::FromUtf8(token.Content());
        const auto named =
            std::ranges::find_if(mSchema, [&](const SchemaEntry& each) { return EqualNoCase(each.name, word); });
        if (named != mSchema.end() && &*named != &entry) weight = std::min(weight + WeightOf(*named), kMaxWeight + 1);
    }
    entry.weight = weight;
    return weight;
}

void Connection::CheckWeight(SchemaEntry& entry) {
    if (WeightOf(entry) > kMaxWeight) throw BadQuery(u"view '" + entry.name + u"' stands on too many others");
}

SqlSchema::Source Connection::DescribeSource(const SchemaEntry& entry) {
    const std::string from = " FROM main." + QuoteName(entry.name.ToUtf8());
    const auto prepare = [&](const std::string& columns) -> std::optional<Statement> {
        try {
            return Statement(mDb.get(), "SELECT " + columns + from);
        } catch (const RuntimeError&) {
            return std::nullopt;  // a view that does not work, a table without row numbers
        }
    };
    Source source;
    const std::optional<Statement> all = prepare("*");
    if (!all) return source;
    const RowShape& shape = *mShapes.Of(all->get());
    auto columns = std::make_shared<SqlNamedTypes>();
    for (std::size_t i = 0; i < shape.columns.size(); ++i) {
        columns->push_back({(*shape.names)[i].ToUtf8(), shape.columns[i].type});
    }
    for (const char* name : {"rowid", "_rowid_", "oid"}) {
        const auto isName = [&](const SqlNamedType& column) { return SameName(column.name, name); };
        if (!entry.isTable || std::ranges::any_of(*columns, isName)) continue;
        if (prepare(name)) source.rowNumber = name;
        break;
    }
    source.columns = std::move(columns);
    return source;
}

// A query inside a query goes on with the outer one's time.
Variant Connection::ReadFirst(const std::string& sql) {
    constexpr int kMostDepth = 8;
    if (mDomainDepth >= kMostDepth) throw BadQuery(u"expression is nested too deeply");
    struct Depth {
        explicit Depth(int& depth) : mDepth(depth) { ++mDepth; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
        ~Depth() { --mDepth; }
        int& mDepth;
    } depth(mDomainDepth);
    const SqliteQuery rewritten = SqlText(sql).Rewrite(*this);
    Query query = Compile(rewritten);
    const RowStore rows = Rows(query, rewritten.values, 1);
    return rows.size() > 0 && rows.Width() > 0 ? Decode(rows[0][0], query.shape->columns[0].type) : Variant::Null();
}

std::vector<Text> Connection::TableNames() {
    ReadSchema();
    std::vector<Text> names;
    for (const SchemaEntry& entry : mSchema) {
        if (entry.isTable) names.push_back(entry.name);
    }
    return names;
}

std::vector<std::string> Connection::ReadKeyNames(const std::string& table) {
    constexpr std::size_t kWidth = 6;  // cid, name, type, notnull, dflt_value, pk
    const InternalStatements internal(*this);
    Statement statement(mDb.get(), "PRAGMA main.table_info(" + QuoteName(table) + ")");
    const RowStore columns = statement.ReadRows(kWidth);
    std::vector<std::string> names;
    for (std::size_t row = 0; row < columns.size(); ++row) {
        const std::int64_t place = columns[row][5].integer;  // in the key, from 1 on; 0 for none
        if (place < 1 || place > static_cast<std::int64_t>(columns.size())) continue;
        names.resize(std::max(names.size(), static_cast<std::size_t>(place)));
        names[static_cast<std::size_t>(place) - 1] = std::string(columns[row][1].Bytes());
    }
    return names;
}

QueryResult Connection::RunQuery(const SqlText& sql) {
    const SqliteQuery rewritten = sql.Rewrite(*this);
    QueryResult result = Run(rewritten, sql.Words());
    mForms.Learn(sql.Words(), rewritten, *this);
    return result;
}

std::optional<QueryResult> Connection::RunKnownQuery(const std::string& sql) {
    const std::optional<SqliteQuery> known = mForms.Find(sql);
    return known ? std::optional(Run(*known, sql)) : std::nullopt;
}

QueryResult Connection::Run(const SqliteQuery& rewritten, const std::string& sql) {
    Query* query = &FindQuery(rewritten);
    if (!query->wasIndexed && query->rowsScanned > kMostScanned) IndexTables(*query, sql);
    const Deadline deadline(StatementTimeout());
    // Indexes and rows have to be of one state of the file.
    std::optional<Snapshot> snapshot;
    if (!mIndexes.empty()) {
        snapshot.emplace(*this);
        if (Revision() != mIndexedRevision) {
            snapshot.reset();
            ForgetIndexes();
            query = &FindQuery(rewritten);
        }
    }
    return {query->shape, Rows(*query, rewritten.values, Statement::kAllRows)};
}

std::int64_t Connection::Revision() {
    const InternalStatements internal(*this);
    if (!mRevision) mRevision.emplace(mDb.get(), "PRAGMA main.data_version");
    return mRevision->ReadRows(1)[0]->integer;
}

// A query that walks through its tables again and again gets indexes over what it compares, so that a descriptor takes
// no longer for those that its file lacks.
void Connection::IndexTables(Query& query, const std::string& sql) {
    query.wasIndexed = true;
    const Snapshot snapshot(*this);
    const std::int64_t revision = Revision();
    if (mIndexes.empty()) mIndexedRevision = revision;
    if (revision != mIndexedRevision) return;  // found out by every query, which drops the indexes
    IndexedSchema schema(*this);
    const SqliteQuery indexed = SqlText(sql).Rewrite(schema);
    if (indexed.text != query.text) query.statement = Compile(indexed).statement;
}

void Connection::ForgetIndexes() {
    mQueryIndex.clear();
    mQueries.clear();
    const InternalStatements internal(*this);
    mIndexes.Drop();
}

RowStore Connection::Rows(Query& query, const std::vector<Variant>& values, std::size_t limit) {
    const auto places = static_cast<std::size_t>(sqlite3_bind_parameter_count(query.statement.get()));
    for (std::size_t i = 0; i < std::min(values.size(), places); ++i) {
        if (!query.statement.Bind(static_cast<int>(i) + 1, values[i])) throw BadQuery(u"value is too long");
    }
    RowStore rows = query.statement.ReadRows(query.shape->columns.size(), limit);
    const int scanned = sqlite3_stmt_status(query.statement.get(), SQLITE_STMTSTATUS_FULLSCAN_STEP, 1);
    query.rowsScanned += scanned;
    mRowsScanned += scanned;
    return rows;
}

Connection::Query& Connection::FindQuery(const SqliteQuery& query) {
    const auto kept = mQueryIndex.find(query.text);
    if (kept != mQueryIndex.end()) {
        mQueries.splice(mQueries.begin(), mQueries, kept->second);
        return mQueries.front();
    }
    mQueries.push_front(Compile(query));
    mQueryIndex.emplace(mQueries.front().text, mQueries.begin());
    if (mQueries.size() > kMaxQueries) {
        mQueryIndex.erase(mQueries.back().text);
        mQueries.pop_back();
    }
    return mQueries.front();
}

Connection::Query Connection::Compile(const SqliteQuery& query) {
    const std::string& text = query.text;
    if (text.size() > static_cast<std::size_t>(sqlite3_limit(mDb.get(), SQLITE_LIMIT_SQL_LENGTH, -1))) {
        throw BadQuery(u"query is too long");
    }
    if (text.find('\0') != std::string::npos) throw BadQuery(u"unrecognized token");
    std::string_view rest;
    Statement statement(mDb.get(), text, &rest);
    while (!IsBlank(rest)) {
        // A second statement is refused, and first for what it would do.
        const Statement second(mDb.get(), rest, &rest);
        if (second) throw BadQuery(u"characters found after end of SQL statement");
    }
    if (!statement) throw BadQuery(u"no statement");
    const int parameters = sqlite3_bind_parameter_count(statement.get()) - static_cast<int>(query.values.size());
    if (parameters > 0) throw TooFewParameters(parameters);
    if (statement.Columns() == 0) Raise(ErrorNumber::CannotUpdateReadOnly);
    std::shared_ptr<const RowShape> shape = mShapes.Of(statement.get());
    return {text, std::move(statement), std::move(shape)};
}

void Connection::ReadProperties() {
    std::unordered_map<std::u16string, Variant> properties;
    if (FindTable(u"FieldProperties")) {
        const auto [shape, rows] =
            RunQuery(SqlText("SELECT TableName, FieldName, PropertyName, PropertyValue FROM FieldProperties"));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const Cell* cells = rows[row];
            const auto name = [&](std::size_t column) {
                const bool isText = cells[column].kind == CellKind::Text;
                return isText ? Text::FromUtf8(cells[column].Bytes()) : Text();
            };
            properties.emplace(PropertyKey(name(0), name(1), name(2)), Decode(cells[3], shape->columns[3].type));
        }
    }
    mProperties = std::move(properties);
}

const Variant* Connection::FindProperty(const Column& column, const Text& name) {
    if (column.originTable.empty()) return nullptr;
    if (!mProperties) ReadProperties();
    const auto found =
        mProperties->find(PropertyKey(Text::FromUtf8(column.originTable), Text::FromUtf8(column.originColumn), name));
    return found != mProperties->end() ? &found->second : nullptr;
}

bool Connection::IsRequired(const Column& column) {
    if (column.originTable.empty()) return false;
    const char* type = nullptr;
    int notNull = 0;
    int isKey = 0;
    Check(mDb.get(),
          sqlite3_table_column_metadata(mDb.get(), "main", column.originTable.c_str(), column.originColumn.c_str(),
                                        &type, nullptr, &notNull, &isKey, nullptr));
    // A key of one INTEGER is the row's number. Keys of any other type take NULL, unless they are declared otherwise.
    const bool isRowNumber = isKey != 0 && type && sqlite3_stricmp(type, "INTEGER") == 0;
    return notNull != 0 || isRowNumber;
}

}  // namespace ov::sqlite
