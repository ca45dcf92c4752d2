// `ovmodel --completion-words`: what the completion of a shell may offer, told by the commands themselves.
#include <iostream>

#include "ovmodel/command.h"

namespace ovmodel {

namespace {

constexpr const char* kOption = "--completion-words";

// One line: the command, a tab, its options; one that takes a value ends in "=".
void PrintWords(const std::string& name, const CLI::App& app) {
    std::cout << name << "\t";
    for (const CLI::Option* option : app.get_options()) {
        const char* takesValue = option->get_items_expected_max() > 0 ? "=" : "";
        for (const std::string& word : option->get_snames()) {
            std::cout << "-" << word << takesValue << " ";
        }
        for (const std::string& word : option->get_lnames()) {
            if ("--" + word != kOption) std::cout << "--" << word << takesValue << " ";
        }
    }
    std::cout << "\n";
}

}  // namespace

void AddCompletionWords(CLI::App& app) {
    app.add_flag_callback(
           kOption,
           [&app] {
               PrintWords("-", app);
               for (const CLI::App* command : app.get_subcommands(nullptr)) {
                   PrintWords(command->get_name(), *command);
               }
               throw CLI::Success();
           },
           "What the completion of a shell may offer")
        ->group("");  // hidden: for programs
}

}  // namespace ovmodel
