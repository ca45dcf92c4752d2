// The command-line tool of OV_Model.
#include <signal.h>

#include <algorithm>
#include <iostream>
#include <memory>

#include "module/host.h"
#include "ovmodel/command.h"
#include "ovmodel/coverage/rule_coverage.h"
#include "ovmodel/output_file.h"
#include "ovmodel/run_command.h"
#include "platform/locale/locale.h"
#include "platform/system/confinement.h"

namespace {

void AddGlobalOptions(CLI::App& app) {
    app.add_flag_callback(
        "--debug", [] { ov::SwitchDebugOutputOn(); }, "Write the diagnostics log to standard error");
    app.add_flag_callback("--confined", ov::ConfineFiles, "Descriptors reach no files outside of their folders");
    app.add_option_function<std::string>(
           "--locale",
           [](const std::string& name) {
               if (!ov::SetCurrentLocale(name)) throw ovmodel::Failure("no locale '" + name + "'");
           },
           "Locale of numbers and dates, such as de-DE")
        ->type_name("NAME");
}

// The script's own arguments are kept apart from the tool's, so that they may look like options.
void AddRunCommand(CLI::App& app, const std::vector<std::string>& arguments, int& status) {
    struct Options {
        std::string script;
        std::string coverage;
        int timeout = 0;
        bool compileOnly = false;
        bool dump = false;
    };
    const auto options = std::make_shared<Options>();
    app.add_option("--timeout", options->timeout, "Most milliseconds that a script may run (default: no bound)")
        ->check(CLI::NonNegativeNumber)
        ->type_name("MS");
    CLI::App* command = app.add_subcommand("run", "Run a VBScript file that drives the library");
    command->add_option("SCRIPT", options->script, "Script file; what follows it is the script's own")->required();
    CLI::Option* compileOnly = command->add_flag("--compile-only", options->compileOnly,
                                                 "Compile the script, and the files behind it, and run nothing");
    CLI::Option* dump =
        command->add_flag("--dump", options->dump, "Show what the script is compiled to, and run nothing")
            ->excludes(compileOnly);
    ovmodel::RuleCoverage::AddOption(*command, options->coverage)->excludes(compileOnly)->excludes(dump);
    command->callback([options, &arguments, &status] {
        if (options->compileOnly) {
            std::vector<std::string> paths{options->script};
            paths.insert(paths.end(), arguments.begin(), arguments.end());
            status = ovmodel::CompileScripts(paths);
        } else if (options->dump) {
            status = ovmodel::DumpScript(options->script);
        } else {
            status = ovmodel::WithCoverage(
                options->coverage, [&] { return ovmodel::RunScript(options->script, arguments, options->timeout); });
        }
    });
}

// The line for arguments that do not fit.
std::string UsageError(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<std::string> unread = app.remaining();
    if (unread.empty() || !app.get_subcommands().empty()) return error.what();
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        names.push_back(command->get_name());
    }
    const std::string closest = ovmodel::ClosestName(unread.front(), names);
    return "no command '" + unread.front() + "'" + (closest.empty() ? "" : "; did you mean '" + closest + "'?");
}

// Does what the arguments ask for.
void Run(CLI::App& app, std::vector<std::string> arguments) {
    std::ranges::reverse(arguments);  // the parser takes its words from the end
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success& success) {
        app.exit(success);  // help is shown
    }
    ovmodel::StandardOutput::Flush();
}

}  // namespace

int main(int argc, char** argv) {
    // A write that fails is told as such, whatever is the reason.
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    const ovmodel::StandardOutput output;
    CLI::App app("Reads device descriptors and drives the device models that they describe", "ovmodel");
    app.require_subcommand(1);
    app.set_version_flag("--version", "ovmodel " OV_MODEL_VERSION);
    const ovmodel::CommandLine line = ovmodel::SplitCommandLine(argc, argv);
    int status = 0;
    const ovmodel::UnloadAtEnd unload;
    try {
        AddGlobalOptions(app);
        ovmodel::AddTypesCommand(app);
        ovmodel::AddInfoCommand(app);
        ovmodel::AddTextCommand(app);
        ovmodel::AddTreeCommand(app);
        ovmodel::AddGetCommand(app);
        ovmodel::AddSetCommand(app);
        ovmodel::AddExplainCommand(app, status);
        ovmodel::AddGraphCommand(app);
        ovmodel::AddSaveCommand(app);
        ovmodel::AddLoadCommand(app);
        ovmodel::AddCompareCommand(app, status);
        ovmodel::AddPackCommand(app);
        ovmodel::AddUnpackCommand(app, status);
        ovmodel::AddCheckCommand(app, status);
        ovmodel::AddDiffCommand(app, status);
        ovmodel::AddConvertCommand(app, status);
        ovmodel::AddTablesCommand(app);
        ovmodel::AddImageCommand(app);
        ovmodel::AddShellCommand(app, status);
        AddRunCommand(app, line.script, status);
        ovmodel::AddCompletionWords(app);
        Run(app, line.own);
        return status;
    } catch (const CLI::ParseError& error) {
        std::cerr << "ovmodel: " << UsageError(app, error) << " (see ovmodel --help)\n";
        return 2;
    } catch (const ovmodel::Failure& failure) {
        std::cerr << "ovmodel: " << failure.what() << "\n";
        return failure.status;
    } catch (const std::exception& error) {
        std::cerr << "ovmodel: " << error.what() << "\n";
        return 1;
    }
}
