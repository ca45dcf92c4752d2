/// @file
/// SQLite's result codes as the engine's run-time errors.
#pragma once

#include <sqlite3.h>

#include <string_view>

#include "platform/automation/errors.h"

namespace ov::sqlite {

/// The engine's error for an extended result code and SQLite's words for it.
RuntimeError EngineError(int code, std::string_view words);

/// @throws RuntimeError for @p code, with the words that @p db has for its last failure.
[[noreturn]] void RaiseEngineError(sqlite3* db, int code);

/// Error 3078 with the name that was not found.
RuntimeError NoSuchTableOrQuery(const Text& name);
/// Error 3075 with @p words behind its text.
RuntimeError BadQuery(const Text& words);
/// Error 3001 for a query whose time is over.
RuntimeError QueryTimedOut();
/// Error 3061 for @p count names or parameters without a value.
RuntimeError TooFewParameters(int count);

}  // namespace ov::sqlite
