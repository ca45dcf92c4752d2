// ovmodel get DB TYPE PATH...
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/parameter_path.h"

namespace ovmodel {

void PrintParameters(const std::vector<ov::Ref<ov::IBase_GuiParameter>>& parameters) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& parameter : parameters) {
        const std::string unit = parameter->unit().ToUtf8();
        rows.push_back(
            {PathOf(*parameter), ShownValue(*parameter) + (unit.empty() ? "" : " " + unit), StateOf(*parameter)});
    }
    PrintTable(rows);
}

void AddGetCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::string type;
        std::vector<std::string> paths;
        std::optional<std::int32_t> language;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("get", "Show parameters of a fresh device of a type");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("PATH", options->paths, "CHANNEL/GROUP/PARAMETER, by ids")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write a JSON array");
    command->callback([options] {
        const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
        const ov::Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
        LoadType(*module, options->database, options->type);
        ChooseLanguage(*module, options->type, options->language);
        std::vector<ov::Ref<ov::IBase_GuiParameter>> parameters;
        for (const std::string& path : options->paths) {
            parameters.push_back(FindParameter(*module, path));
        }
        if (!options->json) return PrintParameters(parameters);
        Json described = Json::array();
        for (const auto& parameter : parameters) {
            described.push_back(DescribeParameter(*parameter));
        }
        Print(described);
    });
}

}  // namespace ovmodel
