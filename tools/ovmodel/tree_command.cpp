// ovmodel tree DB TYPE
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/parameter_path.h"

namespace ovmodel {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t kWidestName = 26;
constexpr std::size_t kWidestValue = 18;
constexpr std::size_t kWidestLimits = 25;  // those of a Long

// Cut to a number of characters, which are whole in what is left.
std::string Cut(const std::string& text, std::size_t most) {
    const std::string line = text.substr(0, text.find_first_of("\r\n"));
    std::size_t count = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool begins = (static_cast<unsigned char>(line[at]) & 0xC0) != 0x80;
        if (begins && ++count > most) return line.substr(0, at) + "...";
    }
    return line;
}

std::string Limits(ov::IBase_GuiParameter& parameter) {
    const std::string least = Utf8(parameter.Min()), most = Utf8(parameter.Max());
    return least.empty() && most.empty() ? "" : least + " .. " + most;
}

Json DescribeTree(ov::Module& module, const Branch& branch) {
    Json channels = Json::array();
    for (const auto& channel : branch.channels) {
        Json groups = Json::array();
        for (const auto& group : GroupsOf(branch, *channel)) {
            Json parameters = Json::array();
            for (const auto& parameter : Elements(group->Gui()->parameters())) {
                parameters.push_back(DescribeParameter(*parameter));
            }
            groups.push_back(
                {{"id", Utf8(group->id())}, {"name", group->Gui()->name().ToUtf8()}, {"parameters", parameters}});
        }
        channels.push_back(
            {{"id", Utf8(channel->id())}, {"name", channel->Gui()->name().ToUtf8()}, {"groups", groups}});
    }
    return {{"name", module.name().ToUtf8()}, {"channels", channels}};
}

}  // namespace

void PrintTree(ov::Module& module, const Branch& branch) {
    Rows rows = {{"PATH", "NAME", "VALUE", "UNIT", "LIMITS", "STATE"}};
    for (const auto& channel : branch.channels) {
        rows.push_back({Utf8(channel->id()), Cut(channel->Gui()->name().ToUtf8(), kWidestName)});
        for (const auto& group : GroupsOf(branch, *channel)) {
            rows.push_back(
                {Utf8(channel->id()) + "/" + Utf8(group->id()), " " + Cut(group->Gui()->name().ToUtf8(), kWidestName)});
            for (const auto& parameter : Elements(group->Gui()->parameters())) {
                rows.push_back({PathOf(*parameter), "  " + Cut(parameter->name().ToUtf8(), kWidestName),
                                Cut(ShownValue(*parameter), kWidestValue), Cut(parameter->unit().ToUtf8(), 8),
                                Cut(Limits(*parameter), kWidestLimits), StateOf(*parameter)});
            }
        }
    }
    std::cout << module.name().ToUtf8() << "\n";
    PrintTable(rows);
}

void AddTreeCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::string type;
        std::string path;
        std::optional<std::int32_t> language;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("tree", "Load a module type and show its channels, groups and parameters");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("--path", options->path, "Only this channel, or group: CHANNEL or CHANNEL/GROUP, by ids");
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] {
        const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
        const ov::Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
        LoadType(*module, options->database, options->type);
        ChooseLanguage(*module, options->type, options->language);
        const Branch branch = FindBranch(*module, options->path);
        if (options->json) {
            Print(DescribeTree(*module, branch));
        } else {
            PrintTree(*module, branch);
        }
    });
}

}  // namespace ovmodel
