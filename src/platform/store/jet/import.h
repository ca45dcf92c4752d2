/// @file
/// The tables of a Jet file as tables of SQLite.
#pragma once

#include <sqlite3.h>

#include "platform/store/jet/import_report.h"
#include "platform/store/jet/page_file.h"

namespace ov::jet {

/// Copies all tables of @p file into @p db, which is empty. Rows keep their
/// order; declared types, keys and the table FieldProperties are those that
/// descriptors in SQLite have. What cannot be read is left out.
/// @param textCollation how all texts compare; @p db knows it
/// @throws RuntimeError 3011 if the catalogue cannot be read or the file is
/// made to give more than it has, else of @p db
ImportReport Import(PageFile& file, sqlite3* db, const char* textCollation);

}  // namespace ov::jet
