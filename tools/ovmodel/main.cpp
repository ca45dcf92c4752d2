// The command-line tool of OV_Model.
#include <iostream>

#include "module/host.h"
#include "ovmodel/command.h"
#include "platform/locale/locale.h"

namespace {

void AddGlobalOptions(CLI::App& app) {
    app.add_flag_callback(
        "--debug", [] { ov::SwitchDebugOutputOn(); }, "Write the diagnostics log to standard error");
    app.add_option_function<std::string>(
           "--locale",
           [](const std::string& name) {
               if (!ov::SetCurrentLocale(name)) throw ovmodel::Failure("no locale '" + name + "'");
           },
           "Locale of numbers and dates, such as de-DE")
        ->type_name("NAME");
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

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Reads device descriptors and drives the device models that they describe", "ovmodel");
    app.require_subcommand(1);
    app.set_version_flag("--version", "ovmodel " OV_MODEL_VERSION);
    try {
        AddGlobalOptions(app);
        ovmodel::AddTypesCommand(app);
        ovmodel::AddInfoCommand(app);
        ovmodel::AddTextCommand(app);
        ovmodel::AddPackCommand(app);
        app.parse(argc, argv);
        return 0;
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::cerr << "ovmodel: " << UsageError(app, error) << " (see ovmodel --help)\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "ovmodel: " << error.what() << "\n";
        return 1;
    }
}
