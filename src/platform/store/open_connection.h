/// @file
/// Opening a database file of any kind that is known.
#pragma once

#include <memory>

#include "platform/store/sqlite/connection.h"

namespace ov {

/// Opens the file @p name; its content tells its kind. @p connect is ";PWD=" and a password, which only files with a
/// password look at. @param exclusive the file must be this process's alone
/// @throws RuntimeError 3024, 3343, 3050, 3031, 3011
std::shared_ptr<sqlite::Connection> OpenConnection(const Text& name, bool exclusive, const Text& connect);

}  // namespace ov
