/// @file
/// The diagnostics log: one way in for all messages, two ways out, both off in normal use.
///
/// The switches stand in the registry and are read once per process. Callers test DebugOutput() before they build a
/// long text; the gate inside is what counts.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation/dispatch.h"
#include "platform/automation/text.h"

namespace ov {

/// The process-wide state of the diagnostics.
struct Diagnostics {
    bool debugToOutput = false;           ///< lines go to the debugger's output
    bool debugToFile = false;             ///< lines go to `dtm.log` in the log folder
    bool timing = false;                  ///< the timing log is on
    bool initialised = false;             ///< the switches have been read
    bool typeAndAddressNotInTag = false;  ///< a switch of the parameters
    std::int32_t maxPasses = 10'000;      ///< most passes of one update of dependencies
    std::int32_t scriptTimeout = 1'000;   ///< milliseconds that a rule may take with all that it calls
    bool fullSweep = false;               ///< sweeps run every rule, also those that can have nothing to do
    std::int32_t debugCountEval = 0;      ///< script evaluations since the last Load
    std::uint32_t countBegun = 0;         ///< how often it was begun
};
/// `gDebugToOutput` and its companions.
Diagnostics& GlobalDiagnostics() noexcept;

/// True if lines go anywhere, so that building a text for the log is worth while. Reads the switches if nobody has.
/// Asking leaves a trace: who asks has a line, written or not.
bool DebugOutput() noexcept;

/// How InitDebug sets the switches.
enum class DebugMode : std::int32_t { FromRegistry = 0, OutputOnly = 1, OutputAndFile = 2, Off = 3 };
/// Sets the switches by @p mode; the ones that are no outputs come from the registry in any mode. FromRegistry changes
/// nothing once the switches have been set, whoever set them. Never fails: what cannot be read is off.
void InitDebug(DebugMode mode) noexcept;

/// The one entry into the log. @p suffix is appended to the message. Never fails.
///
/// A line is "OV_Model::SOURCE: TEXT". The debugger's output gets one for each piece of the text between CR LF pairs,
/// the file gets the whole text at once, behind the date and the time in the locale's short forms.
void LogEntry(std::u16string_view source, const Text& message, std::u16string_view suffix = {}) noexcept;
/// The same with an object as source: its address in brackets, in decimal, and the name of its class.
void LogEntry(IDispatch* source, const Text& message, std::u16string_view suffix = {}) noexcept;
/// Writes a line that must be seen, log or no log: to the debugger's output, and to the file if that is on.
void LogAlways(std::u16string_view source, const Text& message) noexcept;

/// The text of a value in a log line; "" for what has none, such as Null or an array. Never raises.
Text TextForLog(const Variant& value) noexcept;

/// Appends @p text and a line end to a file, or writes the file anew if @p append is false. Errors are swallowed.
void AppendToFile(const Text& path, const Text& text, bool append) noexcept;

}  // namespace ov
