/// @file
/// Where the shell's lines come from: a person at a terminal, or a file.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ovmodel {

/// The words that may stand in the place of the last word of @p line, which is what stands before the cursor. A word
/// that ends in "/" goes on.
using Completer = std::function<std::vector<std::string>(const std::string& line)>;

class LineReader {
public:
    virtual ~LineReader() = default;
    /// The next line without its end; nullopt behind the last.
    virtual std::optional<std::string> Next() = 0;
};

/// A prompt with line editing, completion and a history that lasts, if standard input is a terminal; else the lines of
/// standard input, which nothing echoes.
std::unique_ptr<LineReader> MakeLineReader(Completer completer);

/// True if standard input is a terminal.
bool IsInteractive();

}  // namespace ovmodel
