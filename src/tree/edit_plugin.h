/// @file
/// The external editor of a channel or group.
#pragma once

#include "platform/automation/collection.h"

namespace ov {

/// Column `EditPlugin` of a row; if that is not empty, @p args becomes column `editPluginArguments`. A column that the
/// row lacks counts as empty.
Text EditPluginOf(const Collection* row, Text* args);

}  // namespace ov
