#include "platform/store/sqlite/key_indexes.h"

#include <algorithm>
#include <array>

#include "platform/store/sqlite/sql_scope.h"

namespace ov::sqlite {

namespace {

std::string Lowered(std::string name) {
    std::ranges::transform(name, name.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c; });
    return name;
}

// The affinity that SQLite gives a column for its declared type, in lower case.
const char* Affinity(const std::string& type) {
    struct Rule {
        const char* part;
        const char* affinity;
    };
    static constexpr std::array kRules = {Rule{"int", "INTEGER"}, Rule{"char", "TEXT"}, Rule{"clob", "TEXT"},
                                          Rule{"text", "TEXT"},   Rule{"blob", "BLOB"}, Rule{"real", "REAL"},
                                          Rule{"floa", "REAL"},   Rule{"doub", "REAL"}};
    if (type.empty()) return "BLOB";
    const auto* rule =
        std::ranges::find_if(kRules, [&](const Rule& each) { return type.find(each.part) != type.npos; });
    return rule != kRules.end() ? rule->affinity : "NUMERIC";
}

}  // namespace

std::string KeyIndexes::Find(const std::string& table, const std::string& column, const std::string& rowNumber) {
    const auto [known, isNew] = mNames.try_emplace({Lowered(table), Lowered(column)});
    if (!isNew) return known->second;
    const std::string name = BracketName("keys " + std::to_string(++mMade));
    if (Make(name, table, column, rowNumber)) known->second = "temp." + name;
    return known->second;
}

// The keys compare as the column does: by its affinity and its collation.
bool KeyIndexes::Make(const std::string& name, const std::string& table, const std::string& column,
                      const std::string& rowNumber) {
    const char* type = nullptr;
    const char* collation = nullptr;
    if (sqlite3_table_column_metadata(mDb, "main", table.c_str(), column.c_str(), &type, &collation, nullptr, nullptr,
                                      nullptr) != SQLITE_OK) {
        return false;
    }
    const std::string collated = collation ? " COLLATE " + BracketName(collation) : std::string();
    return Run("CREATE TEMP TABLE " + name + " (key " + Affinity(Lowered(type ? type : "")) + collated +
               ", place INTEGER)") &&
           Run("INSERT INTO temp." + name + " SELECT " + BracketName(column) + ", " + rowNumber + " FROM main." +
               BracketName(table)) &&
           Run("CREATE INDEX temp." + BracketName("by " + std::to_string(mMade)) + " ON " + name + " (key, place)");
}

void KeyIndexes::Drop() noexcept {
    for (const auto& [column, name] : mNames) {
        if (!name.empty()) Run("DROP TABLE " + name);
    }
    mNames.clear();
}

bool KeyIndexes::Run(const std::string& sql) noexcept {
    return sqlite3_exec(mDb, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace ov::sqlite
