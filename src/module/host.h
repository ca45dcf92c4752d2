/// @file
/// What a program of this project that hosts the library needs besides the contract.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/automation/text.h"
#include "platform/store/jet/conversion.h"
#include "platform/store/store.h"
#include "platform/store/table_facts.h"
#include "record/rule_counts.h"
#include "scripting/rule_failures.h"

namespace ov {

/// Sends the lines of the diagnostics log to the debugger's output from now on, whatever the registry says.
void SwitchDebugOutputOn();
/// The lines go nowhere from now on.
void SwitchDebugOutputOff();

/// The store's words for why @p path cannot be opened, or "" if it can. Opens the file by the rule of the module's own
/// opening, so that a later Load meets it open.
Text ReasonOfFailedOpen(const Text& path);

/// The open database of @p path, which its modules share; Nothing if it cannot be opened.
Ref<Database> OpenedDatabase(const Text& path);

/// What a database file of any kind has.
/// @param password of a Jet file; without one it is the descriptors'
/// @throws RuntimeError with the reason why the file cannot be read
DatabaseFacts FactsOf(const Text& path, const std::optional<Text>& password);

/// Writes the tables of the Jet file @p source to the new SQLite file @p target. What cannot be read is left out and
/// reported. @param password as above @throws jet::TargetError if the new file cannot be written, RuntimeError with the
/// reason why nothing can be converted
jet::ImportReport ConvertToSqlite(const Text& source, const std::optional<Text>& password, const std::string& target);

}  // namespace ov
