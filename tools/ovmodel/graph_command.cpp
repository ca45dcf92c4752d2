// ovmodel graph DB TYPE
#include <iostream>
#include <memory>
#include <optional>

#include "ovmodel/graph/drawings.h"
#include "ovmodel/output_file.h"
#include "ovmodel/parameter_path.h"
#include "ovmodel/saved_state.h"

namespace ovmodel {

namespace {

struct Options {
    std::string database, type, path, load, output;
    std::string format = "svg";
    std::optional<std::int32_t> language;
};

std::string Draw(const RuleGraph& graph, const std::string& format) {
    if (format == "mermaid") return MermaidOf(graph);
    if (format == "json") return JsonOf(graph).dump(2) + "\n";
    const std::string dot = DotOf(graph);
    return format == "dot" ? dot : SvgOf(dot);
}

void Run(const Options& options) {
    const ov::Ref<ov::Module> module = OpenDescriptor(options.database);
    const ov::Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    if (!options.load.empty()) LoadWholeState(*module, options.load);
    const std::string drawing = Draw(GraphOf(*module, options.type, options.path), options.format);
    if (options.output.empty()) {
        std::cout << drawing;
    } else {
        WriteWhole(options.output, drawing);
    }
}

}  // namespace

void AddGraphCommand(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("graph", "Draw which parameters the rules of a device read; circles in red");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("--path", options->path, "Only CHANNEL or CHANNEL/GROUP, and what it has to do with");
    command->add_option("--format", options->format, "svg (drawn by Graphviz), dot, mermaid or json (default svg)")
        ->check(CLI::IsMember({"svg", "dot", "mermaid", "json"}))
        ->type_name("NAME");
    command->add_option("-o,--output", options->output, "Write to this file instead of showing");
    command->add_option("--load", options->load, "Start from the values of this file, not from a fresh device");
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->callback([options] { Run(*options); });
}

}  // namespace ovmodel
