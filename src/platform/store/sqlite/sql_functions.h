/// @file
/// The SQL functions that authors of descriptors use and SQLite lacks or has with another meaning.
#pragma once

#include <sqlite3.h>

namespace ov::sqlite {

/// Gives @p db the functions Left, Right, Mid, Len, Val, CStr, CLng, UCase, LCase, InStr, Nz, the join of texts and the
/// patterns of LIKE. A Null argument gives Null, but for Nz and the join. What the arguments cannot be is an error of
/// the query with the words of the run-time error.
/// @returns a result code of SQLite
int AddSqlFunctions(sqlite3* db) noexcept;

}  // namespace ov::sqlite
