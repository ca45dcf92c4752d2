/// @file
/// The process-wide caches of open databases and table recordsets, the rule by which a database file is opened, and the
/// escape for a file that cannot be locked: a private copy.
///
/// Nothing here ever closes a database: it stays open, for the next module, until the process ends. So a file that
/// takes the place of another one is not seen by a running process, while a change inside an open SQLite file is, by
/// whatever is read after it.
#pragma once

#include <cstdint>

#include "platform/automation/text.h"
#include "platform/store/store.h"

namespace ov {

/// How descriptors are opened: with the password that their Jet files have. SQLite files have none.
constexpr const char16_t* kDescriptorConnect = u";PWD=9kelp";

/// The shared open database of @p path, or Nothing if it cannot be opened, which is logged; the next call tries again.
/// Paths that differ in case only are one; a relative and an absolute form of one path are two.
Ref<Database> DatabaseCache(const Text& path);

/// Lets go of what the open databases' modules have shared, which the next module reads again.
void ForgetSharedDescriptors() noexcept;

/// The shared table recordset of @p table in @p db, with its index set to "PrimaryKey" if it has one; Nothing, which is
/// logged, if there is no such table.
///
/// All callers share the current row: either Seek and read at once, with no call in between, or work on a Clone.
Ref<Recordset> RecordSetCache(Database* db, const Text& table);

/// Opens a database file: as asked; if it cannot be locked, exclusively; if it still cannot, a private copy of it.
/// @throws RuntimeError of the last attempt
Ref<Database> OpenDatabaseFile2(Workspace* workspace, const Text& path, bool exclusive, bool readOnly,
                                const Text& connect);

/// The path of the private copy of @p path, made or made fresh if its time of last change is not the file's; "" if
/// that fails. How fresh it is, is judged once per process and file.
Text GetTempFileCopy(const Text& path);

/// CRC-16/MCRF4XX over the code-page bytes of @p text; 0 for the empty text.
std::uint16_t PathChecksum(const Text& text);

/// The text @p value under @p key, or under @p subkey of it if that is not empty; "" if there is none.
Text ReadMachineRegistryString(const Text& key, const Text& value, const Text& subkey);

}  // namespace ov
