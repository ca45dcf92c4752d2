// ovmodel pack DESCRIPTOR.sql -o FILE
#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>

#include "ovmodel/command.h"
#include "ovmodel/input_file.h"
#include "ovmodel/output_file.h"
#include "ovmodel/sqlite_handles.h"

namespace ovmodel {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kMostText = 1024 * kMebibyte;  // what one call of the engine may take

Connection Create(const std::string& path, const std::string& target) {
    sqlite3* handle = nullptr;
    const int status = sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    Connection connection(handle, &sqlite3_close);
    if (status != SQLITE_OK) throw Failure("cannot write '" + target + "': " + sqlite3_errstr(status));
    return connection;
}

/// Runs the statements of a text one by one and tells where one fails.
class Script {
public:
    Script(std::string name, std::string sql) : mName(std::move(name)), mSql(std::move(sql)) {}

    void Run(sqlite3* database) {
        const char* const end = mSql.c_str() + mSql.size();
        for (const char* at = SkipToStatement(mSql.c_str()); at < end; at = SkipToStatement(at)) {
            sqlite3_stmt* prepared = nullptr;
            const char* tail = nullptr;
            const int length = static_cast<int>(end - at) + 1;  // with its NUL, which spares a copy of the rest
            if (sqlite3_prepare_v2(database, at, length, &prepared, &tail) != SQLITE_OK) {
                const int offset = sqlite3_error_offset(database);
                Fail(database, at, at + std::max(offset, 0));
            }
            const Statement statement(prepared, &sqlite3_finalize);
            int status = SQLITE_ROW;
            while (prepared && status == SQLITE_ROW) {
                status = sqlite3_step(prepared);
            }
            if (prepared && status != SQLITE_DONE) Fail(database, at, at);
            at = tail;
        }
    }

private:
    // Behind blanks and remarks, so that a line number is that of the statement.
    static const char* SkipToStatement(const char* at) {
        for (;;) {
            while (*at != 0 && (std::isspace(static_cast<unsigned char>(*at)) || *at == ';'))
                ++at;
            if (at[0] == '-' && at[1] == '-') {
                while (*at != 0 && *at != '\n')
                    ++at;
            } else if (at[0] == '/' && at[1] == '*') {
                const char* close = std::strstr(at + 2, "*/");
                if (!close) return at + std::strlen(at);
                at = close + 2;
            } else {
                return at;
            }
        }
    }

    [[noreturn]] void Fail(sqlite3* database, const char* statement, const char* place) const {
        const auto line = 1 + std::count(mSql.c_str(), place, '\n');
        std::string words(statement, std::min<std::size_t>(std::strcspn(statement, "\r\n"), 60));
        throw Failure(mName + ":" + std::to_string(line) + ": " + sqlite3_errmsg(database) + " in \"" + words + "\"");
    }

    std::string mName;
    std::string mSql;
};

// Answers the size of the file.
std::uintmax_t Pack(const std::string& source, const std::string& target, bool force) {
    const std::string sql = ReadInput(source, kMostText);
    if (sql.find('\0') != std::string::npos) throw Failure("'" + source + "' is no SQL text");
    OutputFile file(target, force ? Existing::Replaced : Existing::Kept);
    {
        const Connection database = Create(file.path(), target);
        // One transaction, and no journal for a file that is thrown away on a failure.
        sqlite3_exec(database.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
        Script(source, sql).Run(database.get());
        if (sqlite3_get_autocommit(database.get()) == 0) throw Failure(source + ": a transaction is not committed");
        sqlite3_exec(database.get(), "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    }
    const std::uintmax_t bytes = fs::file_size(file.path());
    if (bytes == 0) throw Failure("'" + source + "' makes no table");
    file.Finish();
    return bytes;
}

}  // namespace

void AddPackCommand(CLI::App& app) {
    struct Options {
        std::string source;
        std::string target;
        bool force = false;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("pack", "Make a descriptor file of SQL text");
    command->add_option("DESCRIPTOR.sql", options->source, "SQL text")->required();
    command->add_option("-o,--output", options->target, "Descriptor file to write")->required();
    command->add_flag("--force", options->force, "Replace the file if it exists");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] {
        const std::uintmax_t bytes = Pack(options->source, options->target, options->force);
        if (options->target == "-") return;
        if (options->json) {
            Print({{"file", options->target}, {"bytes", bytes}});
        } else {
            std::cout << options->target << ": " << bytes << " bytes\n";
        }
    });
}

}  // namespace ovmodel
