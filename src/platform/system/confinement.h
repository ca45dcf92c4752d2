/// @file
/// How far the files may lie that descriptors name.
#pragma once

#include <string>

namespace ov {

/// From now on, and for the whole process, descriptors reach no file outside of their own folders.
void ConfineFiles() noexcept;
bool FilesAreConfined() noexcept;

/// True if @p path lies in @p folder or in a folder below, after all links; a file need not exist. "" is the current
/// folder.
bool IsBelowFolder(const std::string& path, const std::string& folder);

/// True for what the system makes up: files below /proc, /sys and /dev. @p path is without links.
bool IsOfTheSystem(const std::string& path);

}  // namespace ov
