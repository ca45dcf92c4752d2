// ovmodel unpack DB -o DESCRIPTOR.sql
#include <stdlib.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "module/host.h"
#include "ovmodel/command.h"
#include "ovmodel/output_file.h"
#include "ovmodel/sqlite_handles.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

namespace fs = std::filesystem;

std::string QuoteName(const std::string& name) {
    const std::unique_ptr<char, decltype(&sqlite3_free)> quoted(sqlite3_mprintf("\"%w\"", name.c_str()), &sqlite3_free);
    return quoted ? quoted.get() : throw std::bad_alloc();
}

// The text in quotes, with line feeds as they are, so that scripts read well and compare line by line. What editors
// and version control may change or refuse is spelled out: carriage returns and NUL.
std::string TextLiteral(std::string_view text) {
    std::string literal = "'";
    for (const char c : text) {
        if (c == '\r' || c == '\0') {
            literal += c == '\r' ? "' || char(13) || '" : "' || char(0) || '";
        } else {
            literal += c;
            if (c == '\'') literal += c;
        }
    }
    return literal + "'";
}

std::string BytesLiteral(std::string_view bytes) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string literal = "X'";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        literal += {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return literal + "'";
}

// The number as a product that has no rounding: whole digits times powers of two.
std::string ExactProduct(double number) {
    int exponent = 0;
    const auto digits = static_cast<std::int64_t>(std::ldexp(std::frexp(number, &exponent), 53));
    std::string product = "(" + std::to_string(digits) + ".0";
    for (exponent -= 53; exponent != 0;) {
        const int step = std::clamp(exponent, -50, 50);
        product += (step > 0 ? " * " : " / ") + std::to_string(std::int64_t{1} << std::abs(step)) + ".0";
        exponent -= step;
    }
    return product + ")";
}

/// Numbers as texts that read back as the same numbers.
class RealWriter {
public:
    explicit RealWriter(sqlite3* database) {
        sqlite3_stmt* prepared = nullptr;
        sqlite3_prepare_v2(database, "SELECT CAST(? AS REAL)", -1, &prepared, nullptr);
        mRead.reset(prepared);
    }

    std::string Literal(double number) {
        if (std::isinf(number)) return number > 0 ? "9e999" : "-9e999";
        char digits[32];
        std::string literal(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
        // SQLite reads many digits with an error in the last place.
        if (Read(literal) != number) return ExactProduct(number);
        return literal.find_first_of(".e") == std::string::npos ? literal + ".0" : literal;
    }

private:
    double Read(const std::string& literal) {
        sqlite3_reset(mRead.get());
        sqlite3_bind_text(mRead.get(), 1, literal.c_str(), -1, SQLITE_TRANSIENT);
        return sqlite3_step(mRead.get()) == SQLITE_ROW ? sqlite3_column_double(mRead.get(), 0) : std::nan("");
    }

    Statement mRead{nullptr, &sqlite3_finalize};
};

std::string Literal(sqlite3_stmt* row, int column, RealWriter& reals) {
    const auto view = [&](const void* bytes) {
        return std::string_view(static_cast<const char*>(bytes),
                                static_cast<std::size_t>(sqlite3_column_bytes(row, column)));
    };
    switch (sqlite3_column_type(row, column)) {
        case SQLITE_INTEGER:
            return std::to_string(sqlite3_column_int64(row, column));
        case SQLITE_FLOAT:
            return reals.Literal(sqlite3_column_double(row, column));
        case SQLITE_TEXT:
            return TextLiteral(view(sqlite3_column_text(row, column)));
        case SQLITE_BLOB:
            return BytesLiteral(view(sqlite3_column_blob(row, column)));
        default:
            return "NULL";
    }
}

/// A database of SQLite as SQL text: the tables in the order of their making, one statement for each row in row order,
/// which the model gives meaning to, and then all that was made on them.
class Dump {
public:
    Dump(sqlite3* database, std::string name) : mDatabase(database), mName(std::move(name)), mReals(database) {}

    void Write(std::ostream& out) {
        out << "BEGIN;\n";
        ForEach(
            "SELECT name, sql FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
            "ORDER BY rowid",
            [&](sqlite3_stmt* row) { WriteTable(out, TextAt(row, 0), TextAt(row, 1)); });
        bool isFirst = true;
        ForEach("SELECT sql FROM sqlite_master WHERE type <> 'table' AND sql IS NOT NULL ORDER BY rowid",
                [&](sqlite3_stmt* row) {
                    out << (isFirst ? "\n" : "") << TextAt(row, 0) << ";\n";
                    isFirst = false;
                });
        out << "\nCOMMIT;\n";
    }

    std::size_t tables() const { return mTables; }

private:
    struct Columns {
        std::string names;
        bool areAll = true;  // else some are computed
    };

    static std::string TextAt(sqlite3_stmt* row, int column) {
        return reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    }

    Columns StoredColumns(const std::string& table) {
        Columns columns;
        ForEach("PRAGMA table_xinfo(" + QuoteName(table) + ")", [&](sqlite3_stmt* row) {
            if (sqlite3_column_int(row, 6) != 0) {
                columns.areAll = false;
            } else {
                columns.names += (columns.names.empty() ? "" : ", ") + QuoteName(TextAt(row, 1));
            }
        });
        return columns;
    }

    void WriteTable(std::ostream& out, const std::string& table, const std::string& sql) {
        if (sql.starts_with("CREATE VIRTUAL")) throw Failure("'" + mName + "' has a virtual table, '" + table + "'");
        ++mTables;
        out << "\n" << sql << ";\n";
        const Columns columns = StoredColumns(table);
        const std::string insert =
            "INSERT INTO " + QuoteName(table) + (columns.areAll ? "" : " (" + columns.names + ")") + " VALUES (";
        // No index may choose the order, which is that of the rows in the table itself.
        ForEach("SELECT " + columns.names + " FROM " + QuoteName(table) + " NOT INDEXED", [&](sqlite3_stmt* row) {
            out << insert;
            for (int i = 0; i < sqlite3_column_count(row); ++i) {
                out << (i > 0 ? ", " : "") << Literal(row, i, mReals);
            }
            out << ");\n";
        });
    }

    template <class Visit>
    void ForEach(const std::string& sql, const Visit& visit) {
        sqlite3_stmt* prepared = nullptr;
        Check(sqlite3_prepare_v2(mDatabase, sql.c_str(), -1, &prepared, nullptr));
        const Statement statement(prepared, &sqlite3_finalize);
        int status = SQLITE_OK;
        while ((status = sqlite3_step(prepared)) == SQLITE_ROW) {
            visit(prepared);
        }
        if (status != SQLITE_DONE) Check(status);
    }

    void Check(int status) {
        if (status != SQLITE_OK) throw Failure("'" + mName + "': " + sqlite3_errmsg(mDatabase));
    }

    sqlite3* mDatabase;
    std::string mName;
    RealWriter mReals;
    std::size_t mTables = 0;
};

bool IsSqlite(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    char head[15] = {};
    file.read(head, sizeof head);
    return std::string_view(head, sizeof head) == "SQLite format 3";
}

/// The file to read, of SQLite: the one that was named, or one made of it for the while.
class Source {
public:
    explicit Source(const std::string& database) : mPath(database) {
        if (!fs::exists(database)) throw Failure("Could not find file '" + database + "'.");
        if (fs::is_directory(database)) throw Failure("'" + database + "' is a folder");
        if (!fs::is_regular_file(database)) throw Failure("'" + database + "' is no regular file");
        if (IsSqlite(database)) return;
        std::string folder = (fs::temp_directory_path() / "ovmodel-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            throw Failure("cannot make a folder in '" + fs::temp_directory_path().string() + "'");
        mFolder = folder;
        mPath = folder + "/converted.db";
        try {
            mLosses = ov::ConvertToSqlite(ov::Text::FromUtf8(database), std::nullopt, mPath).losses;
        } catch (const ov::RuntimeError& error) {
            fs::remove_all(mFolder);
            throw Failure("'" + database + "': " + error.what());
        }
    }

    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    ~Source() {
        std::error_code ignored;
        if (!mFolder.empty()) fs::remove_all(mFolder, ignored);
    }

    const std::string& path() const { return mPath; }
    const std::vector<std::string>& losses() const { return mLosses; }

private:
    std::string mPath;
    std::string mFolder;  // of the one that was made
    std::vector<std::string> mLosses;
};

std::size_t Unpack(const Source& source, const std::string& database, std::ostream& out) {
    sqlite3* handle = nullptr;
    const int status = sqlite3_open_v2(source.path().c_str(), &handle, SQLITE_OPEN_READONLY, nullptr);
    const Connection connection(handle, &sqlite3_close);
    if (status != SQLITE_OK) throw Failure("'" + database + "': " + sqlite3_errstr(status));
    Dump dump(handle, database);
    dump.Write(out);
    return dump.tables();
}

void UnpackToFile(const Source& source, const std::string& database, const std::string& target, bool force, bool json) {
    OutputFile file(target, force ? Existing::Replaced : Existing::Kept);
    std::size_t tables = 0;
    {
        std::ofstream out(file.path(), std::ios::binary);
        if (!out) throw Failure("cannot write '" + target + "'");
        tables = Unpack(source, database, out);
        out.close();
        if (!out) throw Failure("cannot write '" + target + "'");
    }
    file.Finish();
    if (file.isStandardOutput()) return;
    if (json) {
        Print({{"file", target}, {"tables", tables}, {"leftOut", source.losses()}});
    } else {
        std::cout << target << ": " << tables << " tables\n";
    }
}

}  // namespace

void AddUnpackCommand(CLI::App& app, int& status) {
    struct Options {
        std::string database;
        std::string target;
        bool force = false;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("unpack", "Write a descriptor file as SQL text, of which 'pack' makes the same file");
    command->add_option("DB", options->database, "Descriptor file, of SQLite or Jet")->required();
    CLI::Option* output =
        command->add_option("-o,--output", options->target, "SQL text to write (default: standard output)");
    command->add_flag("--force", options->force, "Replace the file if it exists")->needs(output);
    command->add_flag("--json", options->json, "Write JSON about the file")->needs(output);
    command->callback([options, &status] {
        const Source source(options->database);
        if (options->target.empty()) {
            Unpack(source, options->database, std::cout);
        } else {
            UnpackToFile(source, options->database, options->target, options->force, options->json);
        }
        for (const std::string& loss : source.losses()) {
            std::cerr << "ovmodel: left out: " << loss << "\n";
        }
        if (!source.losses().empty()) status = 1;
    });
}

}  // namespace ovmodel
