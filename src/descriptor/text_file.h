/// @file
/// Texts that stand in files beside the descriptor.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// The whole content of a file, from the single-byte code page, line ends included; "", which is logged, on an error.
Text LoadStringFromFile(const Text& path);

}  // namespace ov
