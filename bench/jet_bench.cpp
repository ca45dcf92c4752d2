// Opening a Jet file beside inserting the same rows, which lie in memory, into SQLite.
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "descriptor/database_cache.h"
#include "figures.h"
#include "platform/store/jet/jet_writer.h"
#include "sqlite_file.h"

namespace ov::bench {

namespace {

constexpr std::int64_t kRows = 50'000;
constexpr int kColumns = 20;

using jet::ColumnType;

// A key, then columns as descriptors mix them.
ColumnType TypeOf(int column) {
    if (column % 5 == 4) return ColumnType::Boolean;
    if (column % 5 == 3) return ColumnType::Memo;
    return column % 2 == 0 ? ColumnType::Long : ColumnType::Text;
}

testing::JetTable MakeTable() {
    testing::JetTable table{"Rows", {}, {}, {}};
    for (int column = 0; column < kColumns; ++column) {
        table.columns.push_back({"c" + std::to_string(column), TypeOf(column), column == 0});
    }
    for (std::int64_t i = 0; i < kRows; ++i) {
        testing::JetRow& row = table.rows.emplace_back();
        for (int column = 0; column < kColumns; ++column) {
            switch (TypeOf(column)) {
                case ColumnType::Boolean:
                    row.values.emplace_back(i % 2 == 0);
                    break;
                case ColumnType::Long:
                    row.values.emplace_back(i + column);
                    break;
                default:
                    row.values.emplace_back("text " + std::to_string(i * column));
            }
        }
    }
    return table;
}

/// A Jet file that goes when the bench ends.
class JetFileOnDisk {
public:
    JetFileOnDisk()
        : mPath(std::filesystem::temp_directory_path() / ("ov_model_bench_jet." + std::to_string(getpid()))) {
        testing::WriteJet({jet::Version::Jet4, "9kelp", 0x1357, {MakeTable()}}, mPath.string());
    }
    JetFileOnDisk(const JetFileOnDisk&) = delete;
    JetFileOnDisk& operator=(const JetFileOnDisk&) = delete;
    ~JetFileOnDisk() {
        std::error_code ignored;
        std::filesystem::remove(mPath, ignored);
    }
    Text Path() const { return Text::FromUtf8(mPath.string()); }

private:
    std::filesystem::path mPath;
};

std::vector<std::vector<Cell>> CellsOf(const testing::JetTable& table) {
    std::vector<std::vector<Cell>> rows;
    for (const testing::JetRow& row : table.rows) {
        std::vector<Cell>& cells = rows.emplace_back();
        for (const testing::JetValue& value : row.values) {
            if (const auto* truth = std::get_if<bool>(&value)) cells.emplace_back(std::int64_t{*truth ? -1 : 0});
            if (const auto* number = std::get_if<std::int64_t>(&value)) cells.emplace_back(*number);
            if (const auto* text = std::get_if<std::string>(&value)) cells.emplace_back(*text);
        }
    }
    return rows;
}

// The same rows in the same kind of database: in memory, with the same declarations.
SqliteFile InsertRows(const std::vector<std::vector<Cell>>& rows) {
    SqliteFile memory(SqliteFile::Place::Memory);
    std::string sql = "CREATE TABLE Rows (";
    for (int column = 0; column < kColumns; ++column) {
        const ColumnType type = TypeOf(column);
        sql += "c" + std::to_string(column) +
               (type == ColumnType::Boolean ? " YESNO, "
                : type == ColumnType::Long  ? " LONG, "
                                            : " TEXT, ");
    }
    memory.Run((sql + "PRIMARY KEY (c0))").c_str());
    Insert insert(memory, "Rows", kColumns);
    for (const std::vector<Cell>& row : rows) {
        for (int column = 0; column < kColumns; ++column) {
            insert.Bind(column + 1, row[static_cast<std::size_t>(column)]);
        }
        insert.Step();
    }
    memory.Run("COMMIT");
    return memory;
}

Ref<Database> Open(const Text& path) {
    return DefaultStoreEngine()
        .CreateWorkspace(u"bench", u"Admin", u"")
        ->OpenDatabase(path, false, true, kDescriptorConnect);
}

void JetOpening(benchmark::State& state) {
    const JetFileOnDisk file;
    const std::vector<std::vector<Cell>> rows = CellsOf(MakeTable());
    if (Open(file.Path())->OpenRecordset(u"Rows")->RecordCount() != kRows)
        return state.SkipWithError("rows are missing");
    Compare(
        state, 2, [&] { return Open(file.Path()); }, [&] { return InsertRows(rows); });
    state.SetItemsProcessed(state.iterations() * kRows);
}
BENCHMARK(JetOpening)->UseManualTime()->Unit(benchmark::kMillisecond);

// What the next module on a file pays that is open: a look-up, and none of the rows.
void JetOpenedAgain(benchmark::State& state) {
    const JetFileOnDisk file;
    const Text path = file.Path();
    if (!DatabaseCache(path)) return state.SkipWithError("the file cannot be opened");
    Compare(
        state, 0.001, [&] { return DatabaseCache(path); }, [&] { return Open(path); });
}
BENCHMARK(JetOpenedAgain)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace ov::bench
