#include "sqlite_file.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <vector>

namespace ov::bench {

namespace {

class TemporaryFiles {
public:
    ~TemporaryFiles() {
        for (const std::string& path : mPaths) {
            std::error_code ignored;
            std::filesystem::remove(path, ignored);
        }
    }
    std::string Add() {
        std::string path = (std::filesystem::temp_directory_path() / "ov_model_bench_XXXXXX").string();
        const int file = mkstemp(path.data());
        if (file < 0) throw std::runtime_error("no file can be made in the temporary folder");
        close(file);
        mPaths.push_back(path);
        return path;
    }

private:
    std::vector<std::string> mPaths;
};

std::string NewPath() {
    static TemporaryFiles files;
    return files.Add();
}

}  // namespace

SqliteFile::SqliteFile(Place place) : mPath(place == Place::Memory ? ":memory:" : NewPath()) {
    sqlite3* db = nullptr;
    const int code = sqlite3_open(mPath.c_str(), &db);
    mDb.reset(db);
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
    Run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
}

void SqliteFile::Run(const char* sql) {
    if (sqlite3_exec(mDb.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(mDb.get()));
    }
}

std::string SqliteFile::Finish() {
    Run("COMMIT");
    mDb.reset();
    return mPath;
}

std::string FreshName(const std::string& path) {
    std::string name = NewPath();
    std::filesystem::remove(name);
    std::filesystem::create_hard_link(path, name);
    return name;
}

Insert::Insert(SqliteFile& file, std::string_view table, int columns) {
    std::string sql = "INSERT INTO [" + std::string(table) + "] VALUES (?";
    for (int column = 1; column < columns; ++column) {
        sql += ",?";
    }
    sql += ")";
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(file.get(), sql.c_str(), -1, &statement, nullptr);
    mStatement.reset(statement);
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(file.get()));
}

void Insert::Bind(int column, std::nullptr_t) {
    Check(sqlite3_bind_null(mStatement.get(), column));
}

void Insert::Bind(int column, std::int64_t value) {
    Check(sqlite3_bind_int64(mStatement.get(), column, value));
}

void Insert::Bind(int column, double value) {
    Check(sqlite3_bind_double(mStatement.get(), column, value));
}

void Insert::Bind(int column, std::string_view value) {
    Check(sqlite3_bind_text64(mStatement.get(), column, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Insert::Bind(int column, const Cell& value) {
    std::visit(
        [&](const auto& stored) {
            if constexpr (std::is_same_v<decltype(stored), const std::monostate&>) {
                Bind(column, nullptr);
            } else {
                Bind(column, stored);
            }
        },
        value);
}

void Insert::Step() {
    const int code = sqlite3_step(mStatement.get());
    if (code != SQLITE_DONE) Check(code);
    Check(sqlite3_reset(mStatement.get()));
}

void Insert::Check(int code) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(sqlite3_db_handle(mStatement.get())));
}

}  // namespace ov::bench
