/// @file
/// The values of a device as a JSON file of storage texts, and back.
#pragma once

#include <string>
#include <vector>

#include "ovmodel/command.h"

namespace ovmodel {

/// All values of the device by path, in the form that does not depend on locale and language, with what tells the type.
Json SaveState(ov::Module& module);

void WriteStateFile(const std::string& path, const Json& state);

/// @throws Failure for what is no file of values
Json ReadStateFile(const std::string& path);

/// A value that the device did not take.
struct Unplaced {
    std::string path, text, reason;
};

struct LoadReport {
    std::size_t values = 0;  ///< how many the file has
    std::vector<Unplaced> unplaced;
};

/// Gives the device the values of @p state: first those that rules read, until these have settled, then the others; in
/// rounds, as long as one changes anything. What a value already is is not written, so that it still counts as default.
/// @throws Failure if the values are of another type of device
LoadReport LoadState(ov::Module& module, const Json& state);

/// Reads @p path and gives the device all of its values. @throws Failure, also for a value that the device does not
/// take
void LoadWholeState(ov::Module& module, const std::string& path);

}  // namespace ovmodel
