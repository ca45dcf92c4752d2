/// @file
/// The file system service: paths as descriptors write them, and the few file operations that the model needs.
///
/// Paths may use "\" or "/", and both separate, wherever a path comes from. Answers keep the separators that they got;
/// a separator that is added is "/". Files are opened with every "\" read as "/", unless a file of the very name
/// exists.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/automation/text.h"

namespace ov::file_system {

/// @p folder and @p name with one separator between them; the other one alone if one is empty.
Text BuildPath(const Text& folder, const Text& name);
/// The text before the last separator, or "" if there is none. A separator at the very end does not count, here and
/// below; the one of a root ("/", "X:\") stays, and a root itself has no parent.
Text GetParentFolderName(const Text& path);
/// The name behind the last separator less its extension.
Text GetBaseName(const Text& path);
/// What stands behind the last "." of the name, or "".
Text GetExtensionName(const Text& path);

/// True if @p path names a regular file.
bool FileExists(const Text& path);
/// True if @p path names a folder.
bool FolderExists(const Text& path);
/// True for the two forms "/..." and "X:\..." that do not depend on the current folder.
bool IsAbsolute(const Text& path);
/// Makes one folder; no error if it is there already. @throws RuntimeError 70, 75 or 76.
void CreateFolder(const Text& path);

/// Most bytes that ReadFile reads.
inline constexpr std::uint64_t kMostBytesRead = std::uint64_t{16} << 20;

/// The bytes of a regular file. @throws RuntimeError 53 (no such file), 70 or 75, the last one also for what is no
/// regular file, which is not waited for, and for one that is too large.
std::string ReadFile(const Text& path);
/// Writes @p bytes behind the end of the file, or instead of its content if @p append is false.
/// @throws RuntimeError 70, 75 or 76.
void WriteFile(const Text& path, const std::string& bytes, bool append);

/// Makes @p bytes the content of a file at once: other processes see the former content or the new one, and after a
/// failure the former one stays. Keeps the file's permissions. @throws RuntimeError 70, 75 or 76.
void ReplaceFile(const Text& path, const std::string& bytes);

/// The form in which the system is asked for @p path: UTF-8, "/" between folders.
std::string NativePath(const Text& path);

}  // namespace ov::file_system
