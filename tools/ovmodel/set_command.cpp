// ovmodel set DB TYPE PATH=TEXT...
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/coverage/rule_coverage.h"
#include "ovmodel/saved_state.h"
#include "ovmodel/user_write.h"

namespace ovmodel {

namespace {

using ov::Ref;

struct Options {
    std::string database, type, load, save, coverage;
    std::vector<std::string> writes;
    std::optional<std::int32_t> language;
    bool json = false;
};

Json Describe(const WriteResult& result) {
    Json events = Json::array();
    for (const std::vector<std::string>& row : result.events) {
        events.push_back({{"path", row[0]}, {"event", row[1]}, {"value", row[2]}, {"state", row[3]}});
    }
    return {{"path", result.path}, {"before", result.before}, {"after", result.after}, {"events", std::move(events)}};
}

int Run(const Options& options) {
    const Ref<ov::Module> module = OpenDescriptor(options.database);
    const Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    if (!options.load.empty()) LoadWholeState(*module, options.load);
    std::vector<UserWrite> writes;
    for (const std::string& argument : options.writes) {
        writes.push_back(FindWrite(*module, argument));
    }
    AllParameters(*module);  // rules of groups that nobody has opened would set off nothing
    const Ref<EventRecorder> recorder = ov::MakeObject<EventRecorder>();
    module->RegisterCallback(recorder->Dispatch());
    Json results = Json::array();
    for (const UserWrite& write : writes) {
        const WriteResult result = WriteAsUser(write, *recorder);
        results.push_back(Describe(result));
        if (options.json) continue;
        std::cout << result.path << ": " << result.before << " -> " << result.after << "\n";
        PrintTable(result.events);
    }
    if (options.json) Print(results);
    if (!options.save.empty()) WriteStateFile(options.save, SaveState(*module));
    return 0;
}

}  // namespace

void AddSetCommand(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("set", "Write to parameters of a device as a user does, and show what that sets off");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("PATH=TEXT", options->writes, "What to write where, one after the other")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_option("--load", options->load, "Start from the values of this file, not from a fresh device");
    command->add_option("--save", options->save, "Write the values that the device has at the end to this file");
    RuleCoverage::AddOption(*command, options->coverage);
    command->add_flag("--json", options->json, "Write a JSON array");
    command->callback([options] { WithCoverage(options->coverage, [&] { return Run(*options); }); });
}

}  // namespace ovmodel
