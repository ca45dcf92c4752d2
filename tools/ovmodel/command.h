/// @file
/// What the subcommands share: how they are added, how they end, how they write.
#pragma once

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "module/module.h"

namespace ovmodel {

/// Keys keep the order in which they were written.
using Json = nlohmann::ordered_json;

/// Ends the tool with one clear line on standard error.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& line, int exitStatus = 1) : std::runtime_error(line), status(exitStatus) {}
    int status;
};

void AddTypesCommand(CLI::App& app);
void AddInfoCommand(CLI::App& app);
void AddTextCommand(CLI::App& app);
void AddTreeCommand(CLI::App& app);
void AddGetCommand(CLI::App& app);
void AddSetCommand(CLI::App& app);
void AddExplainCommand(CLI::App& app, int& status);
void AddGraphCommand(CLI::App& app);
void AddSaveCommand(CLI::App& app);
void AddLoadCommand(CLI::App& app);
void AddCompareCommand(CLI::App& app, int& status);
void AddPackCommand(CLI::App& app);
void AddUnpackCommand(CLI::App& app, int& status);
void AddCheckCommand(CLI::App& app, int& status);
void AddDiffCommand(CLI::App& app, int& status);
void AddConvertCommand(CLI::App& app, int& status);
void AddTablesCommand(CLI::App& app);
void AddImageCommand(CLI::App& app);
void AddShellCommand(CLI::App& app, int& status);

/// The hidden option `--completion-words`: a line for the tool ("-") and one for each command, with its options.
void AddCompletionWords(CLI::App& app);

/// Unloads at its end all modules that were opened: a tree is a ring of references that nothing else ends.
class UnloadAtEnd {
public:
    UnloadAtEnd() = default;
    ~UnloadAtEnd();
    UnloadAtEnd(const UnloadAtEnd&) = delete;
    UnloadAtEnd& operator=(const UnloadAtEnd&) = delete;
};

/// A module on the descriptor @p database. @throws Failure with the reason if it cannot be opened
ov::Ref<ov::Module> OpenDescriptor(const std::string& database);

/// Loads @p type. @throws Failure, for an unknown type with the ones that there are
void LoadType(ov::Module& module, const std::string& database, const std::string& type);

/// The names of the module types that the descriptor offers.
std::vector<std::string> TypeNames(ov::Module& module);

/// The one of @p names that @p name may have been meant to be, or "".
std::string ClosestName(const std::string& name, const std::vector<std::string>& names);

/// The device image of a module by a table of places, in hexadecimal digits.
/// @throws Failure with a line for each fault of the table
std::string ImageAsHex(ov::Module& module, const std::string& mapPath);

/// Writes JSON, indented.
void Print(const Json& json);

/// Rows in columns as wide as their texts.
std::string TableText(const std::vector<std::vector<std::string>>& rows);

/// Writes them.
void PrintTable(const std::vector<std::vector<std::string>>& rows);

}  // namespace ovmodel
