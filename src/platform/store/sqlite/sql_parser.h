/// @file
/// Reading the SQL of descriptors.
#pragma once

#include <string_view>

#include "platform/store/sqlite/sql_tree.h"

namespace ov::sqlite {

/// Reads a query as a query designer of the descriptors' engine writes it, and what SQLite has besides (WITH, CASE,
/// LIMIT, "||"). The statement has no query if the text begins with none of SELECT, WITH, VALUES and PARAMETERS.
/// @throws RuntimeError 3075 with the place for a text that is no query, 3027 for SELECT INTO
SqlStatement ParseSql(std::string_view sql);

/// True if @p word, in any case, begins a clause or joins two parts, so that it is no name there without brackets.
bool IsReservedSqlWord(std::string_view word) noexcept;

}  // namespace ov::sqlite
