// ovmodel convert IN.mdb -o OUT.db
#include <iostream>
#include <memory>
#include <optional>

#include "module/host.h"
#include "ovmodel/command.h"
#include "ovmodel/output_file.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

void PrintLosses(const ov::jet::ImportReport& report) {
    for (const std::string& loss : report.losses) {
        std::cerr << "ovmodel: left out: " << loss << "\n";
    }
}

ov::jet::ImportReport Convert(const std::string& source, const std::optional<std::string>& password,
                              const std::string& target, Existing existing, bool mayLose) {
    std::optional<ov::Text> given;
    if (password) given = ov::Text::FromUtf8(*password);
    OutputFile file(target, existing);
    try {
        ov::jet::ImportReport report = ov::ConvertToSqlite(ov::Text::FromUtf8(source), given, file.path());
        if (report.tables.empty()) throw Failure("'" + source + "' has no tables");
        if (!report.losses.empty() && file.WouldReplace() && !mayLose) {
            PrintLosses(report);
            throw Failure("'" + target + "' is not replaced, since something is left out; --lossy replaces it");
        }
        file.Finish();
        return report;
    } catch (const ov::jet::TargetError& error) {
        throw Failure("cannot write '" + target + "': " + error.what());
    } catch (const ov::RuntimeError& error) {
        throw Failure("'" + source + "': " + error.what());
    }
}

void PrintReport(const ov::jet::ImportReport& report, const std::string& target) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& table : report.tables) {
        rows.push_back({table.name, std::to_string(table.rows)});
    }
    PrintTable(rows);
    PrintLosses(report);
    std::cout << target << ": " << report.tables.size() << " tables\n";
}

Json ToJson(const ov::jet::ImportReport& report, const std::string& target) {
    Json tables = Json::array();
    for (const auto& table : report.tables) {
        tables.push_back({{"name", table.name}, {"rows", table.rows}});
    }
    return {{"file", target}, {"tables", tables}, {"leftOut", report.losses}};
}

}  // namespace

void AddConvertCommand(CLI::App& app, int& status) {
    struct Options {
        std::string source;
        std::string target;
        std::optional<std::string> password;
        bool force = false;
        bool lossy = false;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("convert", "Make a descriptor file of a Jet file");
    command->add_option("IN.mdb", options->source, "Jet file")->required();
    command->add_option("-o,--output", options->target, "Descriptor file to write")->required();
    command->add_option("--password", options->password, "Password of the Jet file (default: the descriptors')");
    CLI::Option* force =
        command->add_flag("--force", options->force, "Replace the file if it exists, unless something is lost");
    command->add_flag("--lossy", options->lossy, "Replace it also where something cannot be read")->needs(force);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options, &status] {
        const auto report = Convert(options->source, options->password, options->target,
                                    options->force ? Existing::Replaced : Existing::Kept, options->lossy);
        if (options->target == "-") {
            PrintLosses(report);
        } else if (options->json) {
            Print(ToJson(report, options->target));
        } else {
            PrintReport(report, options->target);
        }
        if (!report.losses.empty()) status = 1;
    });
}

}  // namespace ovmodel
