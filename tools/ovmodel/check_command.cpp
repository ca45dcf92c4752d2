// ovmodel check DB
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

#include "ovmodel/check/inspection.h"
#include "ovmodel/command.h"

namespace ovmodel {

namespace {

constexpr std::array kChecks = {&CheckTables,     &CheckDoubles, &CheckReferences,  &CheckRules,
                                &CheckParameters, &CheckOrder,   &CheckEnumerations};

// Types that are to come to life: the one that was named, else all that are offered.
std::vector<std::string> WantedTypes(const Descriptor& descriptor, const std::string& type) {
    if (!descriptor.Find(u"ModuleTypes")) return {};
    const ov::Ref<ov::Module> module = OpenDescriptor(descriptor.path());
    std::vector<std::string> names = TypeNames(*module);
    if (type.empty()) {
        std::ranges::sort(names);
        names.erase(std::unique(names.begin(), names.end()), names.end());
        return names;
    }
    if (std::ranges::find(names, type) == names.end()) {
        const std::string closest = ClosestName(type, names);
        throw Failure("no module type '" + type + "'" + (closest.empty() ? "" : "; did you mean '" + closest + "'?"));
    }
    return {type};
}

std::vector<Finding> Inspect(const Descriptor& descriptor, const std::vector<std::string>& types) {
    Inspection inspection(descriptor);
    for (const auto& check : kChecks) {
        check(inspection);
    }
    for (const std::string& type : types) {
        CheckLife(inspection, type);
    }
    std::ranges::stable_sort(inspection.findings, {}, [](const Finding& finding) {
        return std::tie(finding.table, finding.row, finding.column);
    });
    return std::move(inspection.findings);
}

const char* WordOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

void PrintFindings(const std::vector<Finding>& findings, std::ptrdiff_t errors) {
    for (const Finding& finding : findings) {
        std::cout << finding.table;
        if (finding.row > 0) std::cout << " [" << finding.key << "]";
        if (!finding.column.empty()) std::cout << " " << finding.column;
        std::cout << ": " << WordOf(finding.severity) << ": " << finding.text << "\n";
    }
    const std::ptrdiff_t warnings = std::ssize(findings) - errors;
    std::cout << errors << (errors == 1 ? " error, " : " errors, ") << warnings
              << (warnings == 1 ? " warning\n" : " warnings\n");
}

Json ToJson(const std::vector<Finding>& findings) {
    Json json = Json::array();
    for (const Finding& finding : findings) {
        json.push_back({{"table", finding.table},
                        {"row", finding.row},
                        {"key", finding.key},
                        {"column", finding.column},
                        {"severity", WordOf(finding.severity)},
                        {"text", finding.text}});
    }
    return json;
}

int Check(const std::string& database, const std::string& type, bool json) {
    const Descriptor descriptor(database);
    const std::vector<Finding> findings = Inspect(descriptor, WantedTypes(descriptor, type));
    const std::ptrdiff_t errors = std::ranges::count(findings, Severity::Error, &Finding::severity);
    if (json) {
        Print(ToJson(findings));
    } else {
        PrintFindings(findings, errors);
    }
    return errors > 0 ? 2 : findings.empty() ? 0 : 1;
}

}  // namespace

void AddCheckCommand(CLI::App& app, int& status) {
    struct Options {
        std::string database;
        std::string type;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "check", "Report what is wrong in a descriptor; the status is 0, 1 for warnings alone, or 2 for errors");
    command->add_option("DB", options->database, "Descriptor file, of SQLite or Jet")->required();
    command->add_option("--type", options->type, "Load this module type alone (default: all)");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &status] {
        try {
            status = Check(options->database, options->type, options->json);
        } catch (const Failure& failure) {
            std::cerr << "ovmodel: " << failure.what() << "\n";
            status = 2;  // 1 would say that there are warnings
        }
    });
}

}  // namespace ovmodel
