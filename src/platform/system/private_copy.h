/// @file
/// Copies of files that are kept for later runs, where nobody else can put any.
#pragma once

#include <string>

namespace ov {

/// Where the copies lie: a folder, and one in it.
inline constexpr const char* kOwnFolder = "Orvane";
inline constexpr const char* kCopyFolder = "TempFileCopy";

/// Makes `FOLDER/Orvane/TempFileCopy/NAME` a copy of @p source with its time of last change, unless it is one already.
/// The copy appears whole or not at all, also to other processes.
///
/// Name and time may be those of another file; what decides is a record of where the copy comes from: full path,
/// device, inode, size and time. It lies in `FOLDER/Orvane/TempFileOrigin/NAME`. A file without one, and a link, is not
/// taken for a copy, but replaced. Both folders are made for their owner alone, and are refused if they are links or
/// belong to somebody else.
/// @throws RuntimeError 53 (no regular file @p source), 70, 75 or 76
void KeepPrivateCopy(const std::string& folder, const std::string& name, const std::string& source);

}  // namespace ov
