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
        std::cerr << "ovmodel: " << error.what() << " (see ovmodel --help)\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "ovmodel: " << error.what() << "\n";
        return 1;
    }
}
