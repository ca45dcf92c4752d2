// ovmodel compare DB TYPE A.json B.json
#include <memory>
#include <optional>

#include "ovmodel/device_difference.h"
#include "ovmodel/parameter_path.h"
#include "ovmodel/saved_state.h"

namespace ovmodel {

namespace {

constexpr int kDifferent = 1;
constexpr int kTrouble = 2;  // so that scripts can tell the two apart

struct Options {
    std::string database, type, a, b;
    std::optional<std::int32_t> language;
    bool json = false;
};

ov::Ref<ov::Module> LoadedDevice(const Options& options, const std::string& file) {
    ov::Ref<ov::Module> module = OpenDescriptor(options.database);
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    LoadWholeState(*module, file);
    return module;
}

int Run(const Options& options) {
    try {
        const ov::Ref<ov::Module> a = LoadedDevice(options, options.a), b = LoadedDevice(options, options.b);
        const std::vector<Difference> differences = FindDifferences(*a, *b);
        if (options.json) {
            Print(DescribeDifferences(differences, "a", "b"));
        } else {
            PrintTable(DifferenceRows(differences));
        }
        return differences.empty() ? 0 : kDifferent;
    } catch (const Failure& failure) {
        throw Failure(failure.what(), kTrouble);
    }
}

}  // namespace

void AddCompareCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "compare", "Show what two files of values make different in a device; status 1 if anything, 2 for errors");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("A", options->a, "File that 'save' or 'set --save' wrote")->required();
    command->add_option("B", options->b, "Another one")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write a JSON array");
    command->callback([options, &status] { status = Run(*options); });
}

}  // namespace ovmodel
