/// @file
/// The command-line tool, run as a person does.
#pragma once

#include <stdio.h>
#include <sys/wait.h>

#include <string>

namespace ov::testing {

struct Outcome {
    int status = -1;
    std::string text;  ///< standard output and standard error
};

/// Runs a command that the shell reads.
inline Outcome RunShell(const std::string& command) {
    Outcome outcome;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return outcome;
    char buffer[4096];
    for (std::size_t read = 0; (read = fread(buffer, 1, sizeof buffer, pipe)) > 0;) {
        outcome.text.append(buffer, read);
    }
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}

/// Runs the tool with @p arguments, which the shell reads.
inline Outcome RunTool(const std::string& arguments) {
    return RunShell(std::string(OV_MODEL_TOOL) + " " + arguments);
}

}  // namespace ov::testing
