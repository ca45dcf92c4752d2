/// @file
/// How texts compare in files of the descriptors' own engine.
#pragma once

#include <sqlite3.h>

namespace ov::sqlite {

/// Without regard to case, all of Unicode, in the order of a dictionary that no locale changes.
inline constexpr const char* kTextCollation = "texts";

/// Makes @p db know kTextCollation. @returns a result code of SQLite
int AddTextCollation(sqlite3* db) noexcept;

}  // namespace ov::sqlite
