// ovmodel explain DB TYPE PATH [PATH=TEXT...]
#include <memory>
#include <optional>

#include "ovmodel/explanation.h"
#include "ovmodel/saved_state.h"
#include "ovmodel/user_write.h"

namespace ovmodel {

namespace {

using ov::Ref;

struct Options {
    std::string database, type, load;
    std::vector<std::string> arguments;
    std::optional<std::int32_t> language;
    bool json = false;
};

// Makes the edits among the arguments, in their order. Answers false if one was refused, which is explained.
bool MakeEdits(ov::Module& module, const Options& options, Json& described) {
    bool all = true;
    for (const std::string& argument : options.arguments) {
        if (argument.find('=') == std::string::npos) continue;
        const UserWrite write = FindWrite(module, argument);
        write.parameter->let_value(write.text);
        if (options.json) {
            Json refusal = DescribeRefusal(*write.parameter);
            if (refusal["refusal"] == "") continue;
            described.push_back(std::move(refusal));
            all = false;
        } else if (PrintRefusal(*write.parameter, write.text.ToUtf8())) {
            all = false;
        }
    }
    return all;
}

int Run(const Options& options) {
    const Ref<ov::Module> module = OpenDescriptor(options.database);
    const Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    if (!options.load.empty()) LoadWholeState(*module, options.load);
    AllParameters(*module);  // readers in groups that nobody has opened would not show
    Json described = Json::array();
    const bool allAccepted = MakeEdits(*module, options, described);
    for (const std::string& argument : options.arguments) {
        if (argument.find('=') != std::string::npos) continue;
        const Ref<ov::IBase_GuiParameter> parameter = FindParameter(*module, argument);
        if (options.json) {
            described.push_back(DescribeExplanation(*parameter));
        } else {
            PrintExplanation(*parameter);
        }
    }
    if (options.json) Print(described);
    return allAccepted ? 0 : 1;
}

}  // namespace

void AddExplainCommand(CLI::App& app, int& status) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("explain", "Tell why parameters are as they are: their rules and what these read");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command
        ->add_option("PATH", options->arguments, "CHANNEL/GROUP/PARAMETER; PATH=TEXT is written before, as by a user")
        ->required();
    command->add_option("--load", options->load, "Start from the values of this file, not from a fresh device");
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write a JSON array");
    command->callback([options, &status] { status = Run(*options); });
}

}  // namespace ovmodel
