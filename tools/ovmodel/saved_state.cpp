#include "ovmodel/saved_state.h"

#include <cstdlib>

#include "ovmodel/input_file.h"
#include "ovmodel/output_file.h"
#include "ovmodel/parameter_path.h"

namespace ovmodel {

using ov::Ref;
using ov::Text;

namespace {

constexpr const char* kContent = "OV_Model device values";
constexpr int kVersion = 1;
constexpr std::uint64_t kMostText = 256 * kMebibyte;
constexpr int kMostRounds = 100;  // rules and actions may turn each other's values for ever
constexpr const char16_t* kNoNumber = u"QNAN";

// What a file must have in common with a device to be its own.
Json IdentityOf(ov::Module& module) {
    const ov::tBaseFdtDeviceTypeInfo type = module.fdtDeviceTypeInformation();
    return {{"type", Utf8(module.GetModuleType({}, nullptr))},
            {"deviceTypeId", type.deviceTypeId},
            {"subDeviceType", type.subDeviceType.ToUtf8()}};
}

std::string StoredText(ov::IBase_GuiParameter& parameter) {
    return ov::facet<ov::IBase_SpecParameterStorage>(&parameter)->get_realvalueForStorage().ToUtf8();
}

void Store(ov::IBase_GuiParameter& parameter, const std::string& text) {
    const Text stored = Text::FromUtf8(text);
    if (stored == kNoNumber) {
        parameter.Spec()->let_value(stored);  // the storage face gives this text, but reads it as 0
    } else {
        ov::facet<ov::IBase_SpecParameterStorage>(&parameter)->let_realvalueForStorage(stored);
    }
}

// "1.50" is the number that is stored as "1.5".
bool IsSameNumber(const std::string& a, const std::string& b) {
    char *endOfA = nullptr, *endOfB = nullptr;
    const double numberA = std::strtod(a.c_str(), &endOfA), numberB = std::strtod(b.c_str(), &endOfB);
    return !a.empty() && !b.empty() && *endOfA == 0 && *endOfB == 0 && numberA == numberB;
}

bool Holds(ov::IBase_GuiParameter& parameter, const std::string& text) {
    const std::string stored = StoredText(parameter);
    return stored == text || IsSameNumber(stored, text);
}

// A value of the file, and its parameter as long as there is one.
struct Entry {
    std::string path, text;
    Ref<ov::IBase_GuiParameter> parameter;
    std::string reason;  // why it has no place, as far as that is known
};

std::vector<Entry> FindEntries(ov::Module& module, const Json& values) {
    std::vector<Entry> entries;
    for (const auto& [path, text] : values.items()) {
        Entry entry{path, text.get<std::string>(), nullptr, ""};
        try {
            entry.parameter = FindParameter(module, path);
        } catch (const Failure& failure) {
            entry.reason = failure.what();
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

// True if the parameter is not what it was. A text that it makes something else of leaves it as it was.
bool Write(Entry& entry) {
    const std::string before = StoredText(*entry.parameter);
    if (before == entry.text) return false;
    entry.reason.clear();
    Store(*entry.parameter, entry.text);
    if (!Holds(*entry.parameter, entry.text)) {
        entry.reason = "the parameter does not take '" + entry.text + "'";
        Store(*entry.parameter, before);
    }
    return StoredText(*entry.parameter) != before;
}

bool WriteAll(std::vector<Entry>& entries, bool (*wanted)(ov::IBase_GuiParameter&)) {
    bool changed = false;
    for (Entry& entry : entries) {
        if (entry.parameter && wanted(*entry.parameter)) changed = Write(entry) || changed;
    }
    return changed;
}

// Others depend on what rules have read, so that goes first: what they default to is right before they are written.
bool WriteRound(std::vector<Entry>& entries) {
    return WriteAll(entries, [](ov::IBase_GuiParameter& parameter) { return parameter.Spec()->scriptAccess(); }) ||
           WriteAll(entries, [](ov::IBase_GuiParameter&) { return true; });
}

}  // namespace

Json SaveState(ov::Module& module) {
    Json values = Json::object();
    for (const auto& parameter : AllParameters(module)) {
        values[PathOf(*parameter)] = StoredText(*parameter);
    }
    Json state = {{"content", kContent}, {"version", kVersion}};
    state.update(IdentityOf(module));
    state["descriptorVersion"] = Utf8(module.GetDBVersion());
    state["values"] = std::move(values);
    return state;
}

void WriteStateFile(const std::string& path, const Json& state) {
    WriteWhole(path, state.dump(2) + "\n");
}

Json ReadStateFile(const std::string& path) {
    const std::string content = ReadInput(path, kMostText);
    Json state;
    try {
        state = Json::parse(content);
    } catch (const Json::exception& error) {
        throw Failure("'" + path + "' is no JSON: " + error.what());
    }
    if (!state.is_object() || state.value("content", Json()) != kContent) {
        throw Failure("'" + path + "' is no file of device values");
    }
    if (state.value("version", Json()) != kVersion) throw Failure("'" + path + "' has a form of another version");
    if (!state.value("values", Json()).is_object()) throw Failure("'" + path + "' has no values");
    for (const auto& [place, text] : state["values"].items()) {
        if (text.is_string()) continue;
        throw Failure(std::string("'").append(path).append("': the value of ").append(place).append(" is no text"));
    }
    return state;
}

LoadReport LoadState(ov::Module& module, const Json& state) {
    const Json identity = IdentityOf(module);
    for (const auto& [key, expected] : identity.items()) {
        const Json found = state.value(key, Json());
        if (found == expected) continue;
        throw Failure("the values are of another device: its " + key + " is " + found.dump() + ", not " +
                      expected.dump());
    }
    std::vector<Entry> entries = FindEntries(module, state["values"]);
    for (int round = 0; round < kMostRounds && WriteRound(entries); ++round) {
        module.UpdateDependencies();
    }
    LoadReport report{entries.size(), {}};
    for (const Entry& entry : entries) {
        if (entry.parameter && Holds(*entry.parameter, entry.text)) continue;
        const bool overwritten = entry.parameter && entry.reason.empty();
        report.unplaced.push_back(
            {entry.path, entry.text,
             overwritten ? "rules make it '" + StoredText(*entry.parameter) + "' again" : entry.reason});
    }
    return report;
}

void LoadWholeState(ov::Module& module, const std::string& path) {
    const LoadReport report = LoadState(module, ReadStateFile(path));
    if (report.unplaced.empty()) return;
    const std::size_t others = report.unplaced.size() - 1;
    const Unplaced& first = report.unplaced.front();
    throw Failure("'" + path + "': no place for " + first.path + ": " + first.reason +
                  (others == 0 ? "" : " (and " + std::to_string(others) + " more)"));
}

}  // namespace ovmodel
