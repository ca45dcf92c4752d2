// ovmodel save DB TYPE
#include <memory>
#include <optional>

#include "ovmodel/parameter_path.h"
#include "ovmodel/saved_state.h"

namespace ovmodel {

void AddSaveCommand(CLI::App& app) {
    struct Options {
        std::string database, type, output;
        std::optional<std::int32_t> language;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("save", "Write the values of a fresh device as JSON");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("-o,--output", options->output, "Write to this file instead of showing");
    command->add_option("--language", options->language, "Language of default texts, by its decimal id (default 7)");
    command->callback([options] {
        const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
        const ov::Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
        LoadType(*module, options->database, options->type);
        ChooseLanguage(*module, options->type, options->language);
        const Json state = SaveState(*module);
        if (options->output.empty()) {
            Print(state);
        } else {
            WriteStateFile(options->output, state);
        }
    });
}

}  // namespace ovmodel
