/// @file
/// `ovmodel run`: the automation host.
#pragma once

#include <string>
#include <vector>

namespace ovmodel {

/// The command line, parted: what stands behind the script of `run` belongs to the script alone.
struct CommandLine {
    std::vector<std::string> own;     ///< the tool's, without its name
    std::vector<std::string> script;  ///< the script's arguments
};
CommandLine SplitCommandLine(int argc, char** argv);

/// Runs a script file to its end. @returns the exit status
/// @throws Failure for a file that cannot be read
int RunScript(const std::string& path, const std::vector<std::string>& arguments, int timeout);

/// Compiles script files and tells what does not compile. @returns the exit status: 0 if all do
/// @throws Failure for a file that cannot be read
int CompileScripts(const std::vector<std::string>& paths);

/// Writes what a script file is compiled to. @returns the exit status @throws Failure for a file that cannot be read
int DumpScript(const std::string& path);

}  // namespace ovmodel
