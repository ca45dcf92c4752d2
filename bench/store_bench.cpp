// Reading a descriptor beside a bare loop over SQLite's rows, and what a row that is kept costs.
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "descriptor/database_cache.h"
#include "descriptor/row_collection.h"
#include "descriptor/translation_table.h"
#include "figures.h"
#include "generator.h"
#include "heap.h"
#include "sqlite_file.h"

namespace ov::bench {

namespace {

constexpr int kTexts = 50'000;
constexpr int kRows = 20'000;
constexpr std::int32_t kEnglish = 9;

// A statement that is stepped without anything around it.
class BareQuery {
public:
    BareQuery(const std::string& path, const char* sql) {
        sqlite3* db = nullptr;
        const int opened = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
        mDb.reset(db);
        sqlite3_stmt* statement = nullptr;
        if (opened != SQLITE_OK || sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(db));
        }
        mStatement.reset(statement);
    }

    // Hands each row to `read`, which answers a number; answers their sum.
    template <class Read>
    std::size_t Walk(Read read) {
        std::size_t sum = 0;
        while (sqlite3_step(mStatement.get()) == SQLITE_ROW) {
            sum += read(mStatement.get());
        }
        sqlite3_reset(mStatement.get());
        return sum;
    }

private:
    struct Free {
        void operator()(sqlite3* db) const noexcept { sqlite3_close(db); }
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3, Free> mDb;
    std::unique_ptr<sqlite3_stmt, Free> mStatement;
};

// Reads a column as UTF-16.
std::size_t ReadText(sqlite3_stmt* row, int column) {
    benchmark::DoNotOptimize(sqlite3_column_text16(row, column));
    return static_cast<std::size_t>(sqlite3_column_bytes16(row, column));
}

// Reads a column as what it holds, texts as UTF-16.
std::size_t ReadNative(sqlite3_stmt* row, int column) {
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_NULL:
            return 0;
        case SQLITE_INTEGER:
            return static_cast<std::size_t>(sqlite3_column_int64(row, column));
        case SQLITE_FLOAT:
            return static_cast<std::size_t>(sqlite3_column_double(row, column) != 0);
        default:
            return ReadText(row, column);
    }
}

std::size_t ReadTextOrBase(sqlite3_stmt* row) {
    return ReadText(row, sqlite3_column_type(row, 1) == SQLITE_NULL ? 2 : 1);
}

Ref<Database> Open(const std::string& path) {
    Ref<Database> db = DatabaseCache(Text::FromUtf8(path));
    if (!db) throw std::runtime_error("cannot open " + path);
    return db;
}

std::vector<Ref<Collection>> RowsOf(Recordset& rs) {
    std::vector<Ref<Collection>> rows;
    rows.reserve(kRows);
    for (; !rs.Eof(); rs.MoveNext()) {
        rows.push_back(RowToCollection(rs));
    }
    return rows;
}

// The texts of one language, as a module reads them at its first text.
void TextCache(benchmark::State& state) {
    const std::string path = GenerateTextTable(kTexts);
    const Ref<Database> db = Open(path);
    BareQuery bare(path, "SELECT TEXT_IDX, Text_9, Text_7 FROM Texts");
    const auto read = [&] {
        TranslationTable texts;
        const Ref<Recordset> rows = RecordSetCache(db.get(), u"Texts")->Clone();
        texts.Read(*rows, u"TEXT_IDX", kEnglish);
        rows->Close();
        return texts;
    };
    if (read().size() != kTexts) return state.SkipWithError("texts are missing");
    Compare(
        state, 2, read,
        [&] { return bare.Walk([](sqlite3_stmt* row) { return ReadText(row, 0) + ReadTextOrBase(row); }); },
        AlsoBeside{"ratio_native", [&] {
                       return bare.Walk([](sqlite3_stmt* row) { return ReadNative(row, 0) + ReadTextOrBase(row); });
                   }});
    state.SetItemsProcessed(state.iterations() * kTexts);
}
BENCHMARK(TextCache)->UseManualTime()->Unit(benchmark::kMillisecond);

// All parameter rows, kept as the tree keeps them.
void ParameterRows(benchmark::State& state) {
    constexpr const char* kQuery = "SELECT * FROM [Parameters]";
    const std::string path = GenerateParameterTable(kRows);
    const Ref<Database> db = Open(path);
    BareQuery bare(path, kQuery);
    const auto walk = [&](auto read) {
        return bare.Walk([read](sqlite3_stmt* row) {
            std::size_t sum = 0;
            for (int column = 0; column < kParameterColumns; ++column) {
                sum += read(row, column);
            }
            return sum;
        });
    };
    const auto read = [&] {
        return RowsOf(*db->OpenRecordset(Text::FromAscii(kQuery), RecordsetType::dbOpenSnapshot));
    };
    if (read().size() != kRows) return state.SkipWithError("rows are missing");
    Compare(
        state, 2, read, [&] { return walk(ReadText); }, AlsoBeside{"ratio_native", [&] { return walk(ReadNative); }});
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(ParameterRows)->UseManualTime()->Unit(benchmark::kMillisecond);

// What a row of numbers and NULL costs that is kept: values, object, and the overhead of the allocator.
void RowMemory(benchmark::State& state) {
    const Ref<Database> db = Open(GenerateNumberTable(kRows));
    std::size_t bytes = 0;
    for (auto _ : state) {
        const Ref<Recordset> rs = db->OpenRecordset(u"Numbers", RecordsetType::dbOpenTable);
        static_cast<void>(rs->Eof());  // reads the rows, which are the recordset's and not counted
        const std::size_t before = BytesInUse();
        const std::vector<Ref<Collection>> rows = RowsOf(*rs);
        bytes = BytesInUse() - before - rows.capacity() * sizeof(rows[0]);
    }
    state.counters["bytes"] = static_cast<double>(bytes) / kRows;
    state.counters["limit"] = 700;
}
BENCHMARK(RowMemory)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace ov::bench
