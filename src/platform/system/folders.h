/// @file
/// Folders that the system knows without being told.
#pragma once

#include "platform/automation/text.h"

namespace ov {

/// The library's own folder, where relative database paths begin: the environment variable OV_MODEL_HOME where it is
/// set, else the folder of the file that this code was loaded from. No separator at the end.
Text LibraryFolder();
/// The file that this code was loaded from: the shared library, or the program if the code is part of that.
Text LibraryFile();
/// Where `dtm.log` stands: the environment variable OV_MODEL_LOG_FOLDER where it is set, else LibraryFolder().
Text LogFolder();
/// The fallback for the registry value "Common AppData": XDG_CACHE_HOME where it is an absolute path, else ~/.cache.
Text CacheFolder();

}  // namespace ov
