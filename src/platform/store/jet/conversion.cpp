#include "platform/store/jet/conversion.h"

#include "platform/store/jet/file_opening.h"
#include "platform/store/jet/sql_writer.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/system/file_system.h"

namespace ov::jet {

ImportReport Convert(const Text& source, const Text& password, const std::string& target) {
    if (!file_system::FileExists(source)) {
        throw RuntimeError(ErrorNumber::FileNotFoundByEngine, u"Could not find file '" + source + u"'.");
    }
    std::optional<PageFile> file = ReadFile(file_system::NativePath(source), false, password);
    if (!file) throw RuntimeError(ErrorNumber::UnrecognizedFormat, u"Unrecognized database format '" + source + u"'.");
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(target.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    const sqlite::Handle handle(db);
    if (code != SQLITE_OK) sqlite::RaiseEngineError(db, code);
    // A file that did not become whole is thrown away, so it needs no journal.
    RunSql(db, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    return Import(*file, db, "NOCASE");  // the nearest that every reader of SQLite files knows
}

}  // namespace ov::jet
