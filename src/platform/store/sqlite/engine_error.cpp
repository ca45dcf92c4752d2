#include "platform/store/sqlite/engine_error.h"

#include <string>

#include "platform/system/deadline.h"

namespace ov::sqlite {

namespace {

// The name behind a message such as "no such table: main.Groups", without the schema's.
Text NameBehind(std::string_view words, std::string_view prefix) {
    constexpr std::string_view kSchema = "main.";
    words.remove_prefix(prefix.size());
    if (words.starts_with(kSchema)) words.remove_prefix(kSchema.size());
    return Text::FromUtf8(words);
}

// SQLITE_ERROR says everything about a statement that cannot be compiled or run; only the words tell what.
RuntimeError StatementError(std::string_view words) {
    constexpr std::string_view kNoTable = "no such table: ";
    if (words.starts_with(kNoTable)) return NoSuchTableOrQuery(NameBehind(words, kNoTable));
    if (words.starts_with("no such column: ")) return TooFewParameters(1);
    if (words.starts_with("not authorized")) return RuntimeError(ErrorNumber::CannotUpdateReadOnly);
    return BadQuery(Text::FromUtf8(words));
}

// A lock that another holds is an I/O error where it is met by the file system's own calls.
bool IsLockFailure(int code) noexcept {
    switch (code) {
        case SQLITE_IOERR_LOCK:
        case SQLITE_IOERR_UNLOCK:
        case SQLITE_IOERR_RDLOCK:
        case SQLITE_IOERR_CHECKRESERVEDLOCK:
        case SQLITE_IOERR_BLOCKED:
        case SQLITE_IOERR_SHMOPEN:
        case SQLITE_IOERR_SHMSIZE:
        case SQLITE_IOERR_SHMLOCK:
        case SQLITE_IOERR_SHMMAP:
            return true;
        default:
            return false;
    }
}

}  // namespace

RuntimeError NoSuchTableOrQuery(const Text& name) {
    return RuntimeError(ErrorNumber::TableNotFound,
                        u"The database engine cannot find the input table or query '" + name + u"'.");
}

RuntimeError BadQuery(const Text& words) {
    return RuntimeError(ErrorNumber::QuerySyntax, u"Syntax error in query expression: " + words);
}

RuntimeError QueryTimedOut() {
    return RuntimeError(ErrorNumber::InvalidEngineArgument, u"Query timed out.");
}

RuntimeError TooFewParameters(int count) {
    return RuntimeError(ErrorNumber::TooFewParameters,
                        u"Too few parameters. Expected " + Text::FromInteger(count) + u".");
}

RuntimeError EngineError(int code, std::string_view words) {
    if (IsLockFailure(code)) return RuntimeError(ErrorNumber::CouldNotLockFile);
    const bool isBrokenOff = (code & 0xFF) == SQLITE_INTERRUPT || (code & 0xFF) == SQLITE_ERROR;
    if (isBrokenOff && Deadline::IsOver()) return QueryTimedOut();
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
        case SQLITE_CANTOPEN:  // a journal or shared memory that cannot be had: whether the file exists is seen before
        case SQLITE_READONLY:  // a journal that would have to be played back; writes end at the authorizer
            return RuntimeError(ErrorNumber::CouldNotLockFile);
        case SQLITE_NOTADB:
            return RuntimeError(ErrorNumber::UnrecognizedFormat);
        case SQLITE_NOMEM:
        case SQLITE_INTERRUPT:  // a query that takes too much memory
        case SQLITE_FULL:
            return RuntimeError(ErrorNumber::OutOfMemory);
        case SQLITE_AUTH:
        case SQLITE_PERM:
            return RuntimeError(ErrorNumber::CannotUpdateReadOnly);
        case SQLITE_ERROR:
            return StatementError(words);
        case SQLITE_TOOBIG:
        case SQLITE_MISMATCH:
        case SQLITE_RANGE:
            return BadQuery(Text::FromUtf8(words));
        default:  // SQLITE_CORRUPT, and what else a damaged file or a failing disk brings about
            return RuntimeError(ErrorNumber::ObjectDamaged);
    }
}

void RaiseEngineError(sqlite3* db, int code) {
    throw EngineError(code, sqlite3_errmsg(db));
}

}  // namespace ov::sqlite
