/// @file
/// Values that are the names of picture files.
#pragma once

#include "descriptor/module_services.h"
#include "platform/automation/text.h"

namespace ov {

/// Whether the column `displayFormat` says that values are file names of pictures.
bool IsIconFormat(const Text& displayFormat) noexcept;
/// The path of the picture @p name, which lies beside the module's database.
Text IconPath(ModuleServices* module, const Text& name);

}  // namespace ov
