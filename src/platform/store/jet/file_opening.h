/// @file
/// How a Jet file is opened.
#pragma once

#include <optional>
#include <string>

#include "platform/store/jet/import.h"
#include "platform/store/sqlite/connection.h"

namespace ov::jet {

/// The password of a connect string such as ";PWD=secret", or "".
Text PasswordOf(const Text& connect);

/// Reads the file @p path whole. Jet's own locks are byte ranges of its lock
/// file, which mean nothing to other systems: a file counts as held if another
/// process has a lock on it, flock's or POSIX's, that keeps readers out.
/// @param exclusive any lock of another process on the file counts
/// @returns nullopt if it is no Jet file
/// @throws RuntimeError 3050 for a file that another holds, 3031 for another
/// password than the file's, 3011
std::optional<PageFile> ReadFile(const std::string& path, bool exclusive, const Text& password);

/// The tables of the file @p path in memory, or nullptr if it is no Jet file.
/// @throws RuntimeError as ReadFile; 3011 also if any row cannot be read: a
/// part is not given for the whole
std::shared_ptr<sqlite::Connection> OpenFile(const std::string& path, bool exclusive, const Text& password);

}  // namespace ov::jet
