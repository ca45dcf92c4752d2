#include "platform/store/jet/conversion.h"

#include "platform/store/jet/file_opening.h"
#include "platform/store/jet/sql_writer.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/system/file_system.h"

namespace ov::jet {

namespace {

bool IsWriteFailure(int code) noexcept {
    switch (code & 0xFF) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            return true;
        default:
            return false;
    }
}

}  // namespace

ImportReport Convert(const Text& source, const Text& password, const std::string& target) {
    if (!file_system::FileExists(source)) {
        throw RuntimeError(ErrorNumber::FileNotFoundByEngine, u"Could not find file '" + source + u"'.");
    }
    std::optional<PageFile> file = ReadFile(file_system::NativePath(source), false, password);
    if (!file) throw RuntimeError(ErrorNumber::UnrecognizedFormat, u"Unrecognized database format '" + source + u"'.");
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(target.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const sqlite::Handle handle(db);
    if (code != SQLITE_OK) throw TargetError(Text::FromUtf8(sqlite3_errmsg(db)));
    // A file that did not become whole is thrown away, so it needs no journal.
    RunSql(db, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    try {
        ImportReport report = Import(*file, db, "NOCASE");  // the nearest that every reader of SQLite files knows
        for (const ImportReport::Query& query : report.queries) {
            report.losses.push_back("query '" + query.name + "' is not converted");
        }
        return report;
    } catch (const RuntimeError&) {
        if (IsWriteFailure(sqlite3_errcode(db))) throw TargetError(Text::FromUtf8(sqlite3_errmsg(db)));
        throw;
    }
}

}  // namespace ov::jet
