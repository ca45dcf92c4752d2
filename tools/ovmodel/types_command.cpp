// ovmodel types DB
#include <iostream>
#include <memory>

#include "ovmodel/command.h"

namespace ovmodel {

void AddTypesCommand(CLI::App& app) {
    struct Options {
        std::string database;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("types", "List the module types that a descriptor offers, one a line");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_flag("--json", options->json, "Write a JSON array of the names");
    command->callback([options] {
        const std::vector<std::string> names = TypeNames(*OpenDescriptor(options->database));
        if (options->json) {
            Print(Json(names));
            return;
        }
        for (const std::string& name : names) {
            std::cout << name << "\n";
        }
    });
}

}  // namespace ovmodel
