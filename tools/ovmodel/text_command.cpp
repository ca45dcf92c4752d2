// ovmodel text DB INDEX
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/command.h"

namespace ovmodel {

namespace {

std::string TextIn(ov::Module& module, std::int32_t language, std::int32_t index) {
    module.SetLanguage(language);
    return module.GetTranslatedText(index).ToUtf8();
}

}  // namespace

void AddTextCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::int32_t index = 0;
        std::optional<std::int32_t> language;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("text", "Show a text of a descriptor in each of its languages");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("INDEX", options->index, "Number of the text")->required();
    command->add_option("--language", options->language, "Only this language, by its decimal id");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] {
        const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
        if (!module->HasText(options->index)) {
            throw Failure("no text " + std::to_string(options->index) + " in '" + options->database + "'");
        }
        const std::vector<std::int32_t> languages =
            options->language ? std::vector{*options->language} : module->TextLanguages();
        Json texts = Json::object();
        std::vector<std::vector<std::string>> rows;
        for (const std::int32_t language : languages) {
            const std::string text = TextIn(*module, language, options->index);
            texts[std::to_string(language)] = text;
            rows.push_back({std::to_string(language), text});
        }
        if (options->json) {
            Print({{"index", options->index}, {"texts", texts}});
        } else if (options->language) {
            std::cout << rows.front().back() << "\n";
        } else {
            PrintTable(rows);
        }
    });
}

}  // namespace ovmodel
