// ovmodel shell DB TYPE
#include <iostream>
#include <memory>

#include "ovmodel/coverage/rule_coverage.h"
#include "ovmodel/shell/line_reader.h"
#include "ovmodel/shell/shell.h"

namespace ovmodel {

namespace {

// A file of commands that has a failure in it fails; a person sees each failure at once.
int RunShell(Shell& shell) {
    bool hasFailed = false;
    const std::unique_ptr<LineReader> lines =
        MakeLineReader([&shell](const std::string& line) { return shell.Complete(line); });
    while (!shell.isOver() && std::cout) {
        const std::optional<std::string> line = lines->Next();
        if (!line) break;
        if (!shell.Run(*line)) hasFailed = true;
    }
    return hasFailed && !IsInteractive() ? 1 : 0;
}

}  // namespace

void AddShellCommand(CLI::App& app, int& status) {
    struct Options {
        std::string database;
        std::string type;
        std::string coverage;
        std::optional<std::int32_t> language;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("shell", "Commands on a living device, typed or from standard input");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    RuleCoverage::AddOption(*command, options->coverage);
    command->callback([options, &status] {
        status = WithCoverage(options->coverage, [&] {
            const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
            const ov::Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
            LoadType(*module, options->database, options->type);
            ChooseLanguage(*module, options->type, options->language);
            if (IsInteractive()) std::cout << module->name().ToUtf8() << "; 'help' lists the commands\n";
            Shell shell(module, options->type);
            return RunShell(shell);
        });
    });
}

}  // namespace ovmodel
