/// @file
/// Files that a descriptor names. Whoever wrote it may have written any path.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// The whole content of a file beside a descriptor in @p folder, from the single-byte code page, line ends included;
/// "", which is logged, on an error. Only a regular file of at most 16 MiB is read, never one that the system makes up
/// (/proc, /sys, /dev), and under confinement only one in the folder or below.
Text LoadStringFromFile(const Text& path, const Text& folder);

/// The path of a file for hosts: @p path as it is, or "" under confinement if it leads out of @p folder.
Text PermittedFile(const Text& path, const Text& folder);
/// The same for a name that hosts join with the folder.
Text PermittedName(const Text& name, const Text& folder);

}  // namespace ov
