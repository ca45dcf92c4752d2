/// @file
/// The functions over rows that SQLite lacks.
#pragma once

#include <sqlite3.h>

namespace ov::sqlite {

/// Gives @p db First, Last, StDev, StDevP, Var and VarP. First and Last take the value and behind it the place of the
/// row, as many numbers as there are tables; without a place the row that comes first or last counts.
/// @returns a result code of SQLite
int AddSqlAggregates(sqlite3* db) noexcept;

}  // namespace ov::sqlite
