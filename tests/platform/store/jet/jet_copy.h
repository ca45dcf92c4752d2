/// @file
/// SQLite descriptors as Jet files.
#pragma once

#include "platform/automation/text.h"
#include "platform/store/jet/jet_writer.h"

namespace ov::testing {

/// The tables, rows, keys and field properties of the SQLite file @p path, ready to be written.
JetFile CopyToJet(const Text& path);

}  // namespace ov::testing
