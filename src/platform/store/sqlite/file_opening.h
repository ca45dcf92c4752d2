/// @file
/// How a database file is opened.
#pragma once

#include <memory>
#include <string>

#include "platform/store/sqlite/connection.h"

namespace ov::sqlite {

/// Opens the file @p path, which exists, and reads from it. @returns nullptr if it is no database of SQLite
/// @param exclusive the file must be this process's alone; then it is read even where no lock can be had
/// @throws RuntimeError 3050 for a file that another holds, others of the engine
std::shared_ptr<Connection> OpenFile(const std::string& path, bool exclusive);

}  // namespace ov::sqlite
