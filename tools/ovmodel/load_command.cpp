// ovmodel load DB TYPE FILE.json
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/device_difference.h"
#include "ovmodel/parameter_path.h"
#include "ovmodel/saved_state.h"

namespace ovmodel {

namespace {

struct Options {
    std::string database, type, file;
    std::optional<std::int32_t> language;
    bool json = false;
};

ov::Ref<ov::Module> FreshDevice(const Options& options) {
    ov::Ref<ov::Module> module = OpenDescriptor(options.database);
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    return module;
}

void PrintReport(const std::vector<Difference>& changes, const LoadReport& report) {
    PrintTable(DifferenceRows(changes));
    std::vector<std::vector<std::string>> rows;
    for (const Unplaced& unplaced : report.unplaced) {
        rows.push_back({unplaced.path, "no place", unplaced.reason});
    }
    PrintTable(rows);
    std::cout << report.values - report.unplaced.size() << " of " << report.values << " values placed\n";
}

void PrintJsonReport(const std::vector<Difference>& changes, const LoadReport& report) {
    Json unplaced = Json::array();
    for (const Unplaced& value : report.unplaced) {
        unplaced.push_back({{"path", value.path}, {"text", value.text}, {"reason", value.reason}});
    }
    Print({{"values", report.values},
           {"changes", DescribeDifferences(changes, "fresh", "loaded")},
           {"unplaced", std::move(unplaced)}});
}

void Run(const Options& options) {
    const Json state = ReadStateFile(options.file);
    const ov::Ref<ov::Module> module = FreshDevice(options);
    const LoadReport report = LoadState(*module, state);
    const std::vector<Difference> changes = FindDifferences(*FreshDevice(options), *module);
    (options.json ? PrintJsonReport : PrintReport)(changes, report);
    if (report.unplaced.empty()) return;
    throw Failure(std::to_string(report.unplaced.size()) + " of " + std::to_string(report.values) + " values of '" +
                  options.file + "' have no place");
}

}  // namespace

void AddLoadCommand(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("load", "Give a fresh device the values of a file, and show what is different then");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("FILE", options->file, "File that 'save' or 'set --save' wrote")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] { Run(*options); });
}

}  // namespace ovmodel
