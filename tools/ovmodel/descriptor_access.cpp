// Opening a descriptor and loading a type, with reasons that a person understands.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <numeric>

#include "module/host.h"
#include "ovmodel/command.h"
#include "platform/automation/conversions.h"

namespace ovmodel {

using ov::Text;

namespace {

std::string Join(const std::vector<std::string>& names) {
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? "" : ", ") + name;
    }
    return joined;
}

// Number of insertions, removals and replacements that turn one text into the other.
std::size_t EditDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (std::tolower(a[i - 1]) == std::tolower(b[j - 1]) ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
        }
    }
    return row.back();
}

std::vector<ov::Ref<ov::Module>>& OpenedModules() {
    static std::vector<ov::Ref<ov::Module>> modules;
    return modules;
}

}  // namespace

UnloadAtEnd::~UnloadAtEnd() {
    for (const ov::Ref<ov::Module>& module : std::exchange(OpenedModules(), {})) {
        module->Unload();
    }
}

std::string ClosestName(const std::string& name, const std::vector<std::string>& names) {
    std::string closest;
    std::size_t least = name.size() / 3 + 2;  // further away is another word
    for (const std::string& candidate : names) {
        const std::size_t distance = EditDistance(name, candidate);
        if (distance >= least) continue;
        least = distance;
        closest = candidate;
    }
    return closest;
}

ov::Ref<ov::Module> OpenDescriptor(const std::string& database) {
    // A path that begins with "." would be relative to the library's folder; here it is the caller's.
    const std::string path = database.starts_with('.') ? std::filesystem::absolute(database).string() : database;
    const Text reason = ov::ReasonOfFailedOpen(Text::FromUtf8(path));
    if (!reason.empty()) throw Failure(reason.ToUtf8());
    ov::Ref<ov::Module> module = ov::MakeObject<ov::Module>();
    OpenedModules().push_back(module);
    module->SetSourcePath(Text::FromUtf8(path));
    if (!module->Types()) throw Failure("'" + database + "' is no descriptor: it has no table 'ModuleTypes'");
    return module;
}

std::vector<std::string> TypeNames(ov::Module& module) {
    std::vector<std::string> names;
    const ov::Ref<ov::ICollection> types = module.Types();
    for (std::int32_t i = 1; types && i <= types->Count(); ++i) {
        names.push_back(ov::ToText(types->Item(i)).ToUtf8());
    }
    return names;
}

void LoadType(ov::Module& module, const std::string& database, const std::string& type) {
    if (module.Load(Text::FromUtf8(type), {}, {})) return;
    const std::vector<std::string> names = TypeNames(module);
    if (std::ranges::find(names, type) != names.end()) {
        throw Failure("type '" + type + "' of '" + database + "' cannot be loaded: " + module.LoadFailure().ToUtf8());
    }
    const std::string closest = ClosestName(type, names);
    throw Failure("no module type '" + type + "' in '" + database + "'" +
                  (closest.empty() ? "; it has: " + Join(names) : "; did you mean '" + closest + "'?"));
}

}  // namespace ovmodel
