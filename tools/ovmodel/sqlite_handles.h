/// @file
/// Handles of SQLite that end by themselves.
#pragma once

#include <sqlite3.h>

#include <memory>

namespace ovmodel {

using Connection = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

}  // namespace ovmodel
