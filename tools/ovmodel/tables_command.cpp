// ovmodel tables DB
#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>

#include "module/host.h"
#include "ovmodel/command.h"
#include "platform/automation/errors.h"

namespace ovmodel {

namespace {

ov::DatabaseFacts ReadFacts(const std::string& database, const std::optional<std::string>& password) {
    try {
        std::optional<ov::Text> given;
        if (password) given = ov::Text::FromUtf8(*password);
        return ov::FactsOf(ov::Text::FromUtf8(database), given);
    } catch (const ov::RuntimeError& error) {
        throw Failure("'" + database + "': " + error.what());
    }
}

// Names of the primary key's columns in the order of the key.
std::vector<std::string> KeyOf(const ov::TableFacts& table) {
    std::vector<const ov::ColumnFacts*> columns;
    for (const ov::ColumnFacts& column : table.columns) {
        if (column.keyPlace > 0) columns.push_back(&column);
    }
    std::ranges::sort(columns, {}, &ov::ColumnFacts::keyPlace);
    std::vector<std::string> names;
    for (const ov::ColumnFacts* column : columns) {
        names.push_back(column->name.ToUtf8());
    }
    return names;
}

Json ToJson(const std::vector<ov::TableFacts>& tables) {
    Json json = Json::array();
    for (const ov::TableFacts& table : tables) {
        Json columns = Json::array();
        for (const ov::ColumnFacts& column : table.columns) {
            columns.push_back({{"name", column.name.ToUtf8()}, {"type", column.type.ToUtf8()}});
        }
        json.push_back(
            {{"name", table.name.ToUtf8()}, {"rows", table.rows}, {"key", KeyOf(table)}, {"columns", columns}});
    }
    return json;
}

void PrintTables(const std::vector<ov::TableFacts>& tables) {
    for (const ov::TableFacts& table : tables) {
        std::cout << table.name.ToUtf8() << ": " << table.rows << " rows\n";
        std::vector<std::vector<std::string>> rows;
        for (const ov::ColumnFacts& column : table.columns) {
            const std::string place = column.keyPlace > 0 ? "key " + std::to_string(column.keyPlace) : "";
            rows.push_back({"  " + column.name.ToUtf8(), column.type.ToUtf8(), place});
        }
        PrintTable(rows);
    }
}

}  // namespace

void AddTablesCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::optional<std::string> password;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("tables", "List the tables of a database file with their columns");
    command->add_option("DB", options->database, "Descriptor file, of SQLite or Jet")->required();
    command->add_option("--password", options->password, "Password of a Jet file (default: the descriptors')");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] {
        const ov::DatabaseFacts facts = ReadFacts(options->database, options->password);
        if (options->json) {
            Print(ToJson(facts.tables));
        } else {
            PrintTables(facts.tables);
        }
        for (const ov::Text& line : facts.leftOut) {
            std::cerr << "ovmodel: left out: " << line.ToUtf8() << "\n";
        }
    });
}

}  // namespace ovmodel
