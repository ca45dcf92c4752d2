#include "platform/system/registry.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/automation/errors.h"
#include "platform/system/file_system.h"
#include "platform/system/ini_file.h"

namespace ov::registry {

namespace {

constexpr const char16_t* kDefaultValueName = u"@";

Text RegistryFile() {
    const char* told = std::getenv("OV_MODEL_REGISTRY");
    return Text::FromUtf8(told && *told ? told : "/etc/ov_model/registry.ini");
}

Text NameOrDefault(const Text& name) {
    return name.empty() ? Text(kDefaultValueName) : name;
}

bool IsNumber(std::string_view value) {
    return !value.empty() && std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == '"' && value.back() == '"';
}

Variant ToValue(std::string_view written) {
    if (IsQuoted(written)) return Text::FromUtf8(written.substr(1, written.size() - 2));
    std::uint32_t number = 0;
    if (IsNumber(written) &&
        std::from_chars(written.data(), written.data() + written.size(), number).ec == std::errc()) {
        return static_cast<std::int32_t>(number);
    }
    return Text::FromUtf8(written);
}

// A text as it stands in the file: in quotes where it would be read as something else without.
Text ToWritten(const Text& value) {
    const std::string bytes = value.ToUtf8();
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    const bool outerBlanks = !bytes.empty() && (isBlank(bytes.front()) || isBlank(bytes.back()));
    return outerBlanks || IsNumber(bytes) || IsQuoted(bytes) ? u"\"" + value + u"\"" : value;
}

bool HasLineBreak(std::u16string_view text) {
    return text.find_first_of(u"\r\n") != std::u16string_view::npos;
}

// True if the reader of lines finds the same name again: it ends a name at one of `ends`, drops blanks around it, and
// takes a line with one of `otherStarts` in front for something else.
bool IsReadable(std::u16string_view name, std::u16string_view ends, std::u16string_view otherStarts) {
    constexpr std::u16string_view kBlanks = u" \t";
    const auto in = [](std::u16string_view set, char16_t c) { return set.find(c) != std::u16string_view::npos; };
    if (HasLineBreak(name) || name.find_first_of(ends) != std::u16string_view::npos) return false;
    return name.empty() || !(in(kBlanks, name.front()) || in(kBlanks, name.back()) || in(otherStarts, name.front()));
}

bool IsReadableEntry(const Entry& entry) {
    return !entry.key.empty() && IsReadable(entry.key, u"]", u"") && IsReadable(entry.name, u"=", u";#[") &&
           !HasLineBreak(entry.value);
}

// The file's bytes; none if there is no file.
std::string ReadForEdit(const Text& path) {
    return file_system::FileExists(path) ? file_system::ReadFile(path) : std::string();
}

}  // namespace

Variant Read(const Text& key, const Text& name) {
    if (key.empty()) return {};
    std::string bytes;
    try {
        bytes = file_system::ReadFile(RegistryFile());
    } catch (const RuntimeError&) {
        return {};
    }
    const IniFile file(bytes);
    const std::optional<std::string_view> value = file.Find(key, NameOrDefault(name));
    return value ? ToValue(*value) : Variant();
}

void Write(const std::vector<Entry>& entries) {
    const bool readable = std::ranges::all_of(entries, IsReadableEntry);
    if (!readable) Raise(ErrorNumber::InvalidProcedureCall);
    const Text path = RegistryFile();
    IniFile file(ReadForEdit(path));
    for (const Entry& entry : entries)
        file.Set(entry.key, NameOrDefault(entry.name), ToWritten(entry.value));
    file_system::ReplaceFile(path, file.Bytes());
}

void RemoveKeys(const std::vector<Text>& keys) {
    const Text path = RegistryFile();
    IniFile file(ReadForEdit(path));
    bool removed = false;
    for (const Text& key : keys) {
        if (!key.empty() && file.RemoveTree(key)) removed = true;
    }
    if (removed) file_system::ReplaceFile(path, file.Bytes());
}

}  // namespace ov::registry
