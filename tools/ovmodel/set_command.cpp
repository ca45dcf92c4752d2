// ovmodel set DB TYPE PATH=TEXT...
#include <iostream>
#include <memory>
#include <optional>

#include "contract/callbacks.h"
#include "ovmodel/parameter_path.h"
#include "ovmodel/saved_state.h"
#include "platform/automation/conversions.h"

namespace ovmodel {

namespace {

using ov::Ref;
using ov::Text;

// Keeps each event in order, with what the parameter shows at that moment.
class EventRecorder final : public ov::Object<EventRecorder, ov::Facet<ov::IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "EventRecorder";

    void OnParameterReconfigured(ov::IBase_GuiParameter* p) override { Tell(*p, "reconfigured"); }
    void OnParameterStateChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "state"); }
    void OnParameterValueChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "value"); }
    void OnParameterConfigStateChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "config state"); }

    std::vector<std::vector<std::string>> rows;

private:
    void Tell(ov::IBase_GuiParameter& parameter, const char* event) {
        rows.push_back({PathOf(parameter), event, ShownValue(parameter), StateOf(parameter)});
    }
};

// One write, and the text to write.
struct Write {
    Ref<ov::IBase_GuiParameter> parameter;
    Text text;
};

Write FindWrite(ov::Module& module, const std::string& argument) {
    const std::size_t sign = argument.find('=');
    if (sign == std::string::npos) throw Failure("'" + argument + "' is no CHANNEL/GROUP/PARAMETER=TEXT");
    return {FindParameter(module, argument.substr(0, sign)), Text::FromUtf8(argument.substr(sign + 1))};
}

// Why a parameter does not take a text, as far as can be told from outside.
std::string Reason(const Write& write) {
    ov::IBase_GuiParameter& parameter = *write.parameter;
    const std::string limits = Utf8(parameter.Min()) + " .. " + Utf8(parameter.Max());
    if (const Ref<ov::ICollection> values = parameter.editValues(); values && values->Count() > 0) {
        std::vector<std::string> names;
        for (std::int32_t i = 1; i <= values->Count(); ++i) {
            names.push_back(Utf8(values->Item(i)));
        }
        const std::string closest = ClosestName(write.text.ToUtf8(), names);
        return "it is none of its values" + (closest.empty() ? "" : "; did you mean '" + closest + "'?");
    }
    if (Utf8(parameter.Spec()->desc(u"Type")) == "STRING") return "its rule or its number of characters, " + limits;
    try {
        const double number = ov::ToDouble(ov::Variant(write.text));
        const bool outside = number < ov::ToDouble(parameter.Min()) || number > ov::ToDouble(parameter.Max());
        if (outside) return "it is outside the limits " + limits;
        const bool hasRule = !Utf8(parameter.Spec()->desc(u"consistency")).empty();
        return hasRule ? "its rule of consistency is against it"
                       : "read in its display form it is outside the limits " + limits;
    } catch (const ov::RuntimeError&) {
        return "it does not read as a value of the parameter";
    }
}

struct Options {
    std::string database, type, load, save;
    std::vector<std::string> writes;
    std::optional<std::int32_t> language;
    bool json = false;
};

// What a write has made of its parameter, and all that it has set off.
struct Result {
    std::string path, before, after;
    std::vector<std::vector<std::string>> events;
};

// Editors refuse what is not editable; the library itself leaves that to them.
Result Do(const Write& write, EventRecorder& recorder) {
    recorder.rows.clear();
    const std::string path = PathOf(*write.parameter);
    if (write.parameter->configState() != ov::eParameterConfigState::eParameterValid) {
        throw Failure(path + " is not in force: " + StateOf(*write.parameter));
    }
    if (!IsEditable(*write.parameter)) throw Failure(path + " is not editable");
    const bool acceptable = write.parameter->consistent(write.text);
    const std::string before = ShownValue(*write.parameter);
    write.parameter->let_value(write.text);
    const std::string after = ShownValue(*write.parameter);
    if (before == after && (!acceptable || write.parameter->unknown())) {
        throw Failure(path + " refuses '" + write.text.ToUtf8() + "': " + Reason(write));
    }
    return {path, before, after, recorder.rows};
}

Json Describe(const Result& result) {
    Json events = Json::array();
    for (const std::vector<std::string>& row : result.events) {
        events.push_back({{"path", row[0]}, {"event", row[1]}, {"value", row[2]}, {"state", row[3]}});
    }
    return {{"path", result.path}, {"before", result.before}, {"after", result.after}, {"events", std::move(events)}};
}

void Run(const Options& options) {
    const Ref<ov::Module> module = OpenDescriptor(options.database);
    const Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
    LoadType(*module, options.database, options.type);
    ChooseLanguage(*module, options.type, options.language);
    if (!options.load.empty()) LoadWholeState(*module, options.load);
    std::vector<Write> writes;
    for (const std::string& argument : options.writes) {
        writes.push_back(FindWrite(*module, argument));
    }
    AllParameters(*module);  // rules of groups that nobody has opened would set off nothing
    const Ref<EventRecorder> recorder = ov::MakeObject<EventRecorder>();
    module->RegisterCallback(recorder->Dispatch());
    Json results = Json::array();
    for (const Write& write : writes) {
        const Result result = Do(write, *recorder);
        results.push_back(Describe(result));
        if (options.json) continue;
        std::cout << result.path << ": " << result.before << " -> " << result.after << "\n";
        PrintTable(result.events);
    }
    if (options.json) Print(results);
    if (!options.save.empty()) WriteStateFile(options.save, SaveState(*module));
}

}  // namespace

void AddSetCommand(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("set", "Write to parameters of a device as a user does, and show what that sets off");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("PATH=TEXT", options->writes, "What to write where, one after the other")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_option("--load", options->load, "Start from the values of this file, not from a fresh device");
    command->add_option("--save", options->save, "Write the values that the device has at the end to this file");
    command->add_flag("--json", options->json, "Write a JSON array");
    command->callback([options] { Run(*options); });
}

}  // namespace ovmodel
