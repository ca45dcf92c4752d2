#include "support/diagnostics.h"

#include "platform/automation/errors.h"

#include <cstdint>
#include <string>

#include "platform/automation/conversions.h"
#include "platform/automation/unrepeatable.h"
#include "platform/locale/locale.h"
#include "platform/store/statement_timeout.h"
#include "platform/system/clock.h"
#include "platform/system/confinement.h"
#include "platform/system/debug_output.h"
#include "platform/system/file_system.h"
#include "platform/system/folders.h"
#include "platform/system/log_file.h"
#include "platform/system/registry.h"

namespace ov {

namespace {

constexpr const char16_t* kControlsKey = u"SOFTWARE\\Orvane\\Controls";
constexpr std::uint64_t kMostLog = std::uint64_t{64} << 20;  // as much again lies in the older file
constexpr const char16_t* kDtmKey = u"SOFTWARE\\Halvorn\\DTM";

bool IsSwitchedOn(const char16_t* key, const char16_t* name) {
    const Variant value = registry::Read(key, name);
    if (value.Type() == VarType::Long) return value.AsLong() == 1;
    return value.IsString() && value.AsText() == u"1";
}

// A number above 0, or what stands for it.
std::int32_t NumberOr(const char16_t* key, const char16_t* name, std::int32_t fallback) {
    try {
        const std::int32_t number = ToLong(registry::Read(key, name));
        return number > 0 ? number : fallback;
    } catch (const RuntimeError&) {
        return fallback;
    }
}

void SetSwitches(Diagnostics& diagnostics, DebugMode mode) {
    const bool fromRegistry = mode == DebugMode::FromRegistry;
    diagnostics.debugToOutput = fromRegistry ? IsSwitchedOn(kControlsKey, u"Debug")
                                             : mode == DebugMode::OutputOnly || mode == DebugMode::OutputAndFile;
    diagnostics.debugToFile =
        fromRegistry ? IsSwitchedOn(kControlsKey, u"DebugFile") : mode == DebugMode::OutputAndFile;
    diagnostics.timing = IsSwitchedOn(kControlsKey, u"Timing");
    diagnostics.fullSweep = IsSwitchedOn(kControlsKey, u"FullSweep");
    if (IsSwitchedOn(kControlsKey, u"ConfineFiles")) ConfineFiles();
    SetStatementTimeout(NumberOr(kControlsKey, u"StatementTimeout", kUsualStatementTimeout));
    diagnostics.scriptTimeout = NumberOr(kControlsKey, u"ScriptTimeout", Diagnostics().scriptTimeout);
    diagnostics.maxPasses = NumberOr(kControlsKey, u"MaxPasses", Diagnostics().maxPasses);
    diagnostics.typeAndAddressNotInTag = IsSwitchedOn(kDtmKey, u"TypeAndAddressNotInTag");
}

Text Prefix(std::u16string_view source) {
    Text prefix(u"OV_Model::");
    prefix += source;
    prefix += u": ";
    return prefix;
}

// "DATE, TIME: "
Text TimeStamp() {
    const Locale& locale = CurrentLocale();
    const CalendarTime now = ToCalendar(Now());
    return FormatDatePicture(locale, locale.shortDate + u"', '" + locale.shortTime + u"': '", now.year, now.month,
                             now.day, now.weekday, now.hour, now.minute, now.second);
}

void WriteToFile(const Text& prefix, const Text& text) {
    const Text path = file_system::BuildPath(LogFolder(), u"dtm.log");
    AppendToLog(file_system::NativePath(path), (TimeStamp() + prefix + text).ToUtf8() + '\n', kMostLog);
}

void WriteToOutput(const Text& prefix, std::u16string_view text) {
    constexpr std::u16string_view kLineEnd = u"\r\n";
    while (!text.empty()) {
        const std::size_t end = text.find(kLineEnd);
        WriteDebuggerOutput(prefix + text.substr(0, end));
        text.remove_prefix(end == std::u16string_view::npos ? text.size() : end + kLineEnd.size());
    }
}

void WriteDebugLine(std::u16string_view source, const Text& text) {
    if (!DebugOutput()) return;
    const Text prefix = Prefix(source);
    if (GlobalDiagnostics().debugToFile) WriteToFile(prefix, text);
    if (GlobalDiagnostics().debugToOutput) WriteToOutput(prefix, text);
}

Text SourceName(IDispatch* source) {
    Text name(u"(");
    name += Text::FromAscii(std::to_string(reinterpret_cast<std::uintptr_t>(source)));
    name += u")";
    return name + (source ? source->ClassName() : Text(u"Nothing"));
}

}  // namespace

Diagnostics& GlobalDiagnostics() noexcept {
    static Diagnostics diagnostics;
    return diagnostics;
}

bool DebugOutput() noexcept {
    Traces::Leave(Unrepeatable::Line);
    const Diagnostics& diagnostics = GlobalDiagnostics();
    if (!diagnostics.initialised) InitDebug(DebugMode::FromRegistry);
    return diagnostics.debugToOutput || diagnostics.debugToFile;
}

void InitDebug(DebugMode mode) noexcept {
    Diagnostics& diagnostics = GlobalDiagnostics();
    // Every module asks for the registry's switches, but they hold for a process, and a host's choice goes before them.
    if (mode == DebugMode::FromRegistry && diagnostics.initialised) return;
    diagnostics.initialised = true;
    try {
        SetSwitches(diagnostics, mode);
    } catch (...) {
        // Out of memory: the switches that were not reached stay off.
        return;
    }
}

void LogEntry(std::u16string_view source, const Text& message, std::u16string_view suffix) noexcept {
    if (!DebugOutput()) return;
    try {
        WriteDebugLine(source, suffix.empty() ? message : message + suffix);
    } catch (...) {
        // The log tells of failures; it has none of its own.
        return;
    }
}

void LogEntry(IDispatch* source, const Text& message, std::u16string_view suffix) noexcept {
    if (!DebugOutput()) return;
    try {
        LogEntry(SourceName(source), message, suffix);
    } catch (...) {
        return;
    }
}

void LogAlways(std::u16string_view source, const Text& message) noexcept {
    try {
        const Text prefix = Prefix(source);
        if (DebugOutput() && GlobalDiagnostics().debugToFile) WriteToFile(prefix, message);
        WriteToOutput(prefix, message);
    } catch (...) {
        return;
    }
}

void AppendToFile(const Text& path, const Text& text, bool append) noexcept {
    try {
        file_system::WriteFile(path, text.ToUtf8() + '\n', append);
    } catch (...) {
        return;
    }
}

Text TextForLog(const Variant& value) noexcept {
    try {
        return ToText(value);
    } catch (const RuntimeError&) {
        return Text();
    }
}

}  // namespace ov
