// ovmodel set DB TYPE PATH=TEXT...
#include <iostream>
#include <memory>
#include <optional>

#include "contract/callbacks.h"
#include "ovmodel/parameter_path.h"
#include "platform/automation/conversions.h"

namespace ovmodel {

namespace {

using ov::Ref;
using ov::Text;

// Prints each event in order, with what the parameter shows at that moment.
class EventPrinter final : public ov::Object<EventPrinter, ov::Facet<ov::IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "EventPrinter";

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

// Editors refuse what is not editable; the library itself leaves that to them.
void Run(const Write& write) {
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
    std::cout << path << ": " << before << " -> " << after << "\n";
}

}  // namespace

void AddSetCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::string type;
        std::vector<std::string> writes;
        std::optional<std::int32_t> language;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("set", "Write to parameters of a fresh device as a user does, and show what that sets off");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("PATH=TEXT", options->writes, "What to write where, one after the other")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->callback([options] {
        const Ref<ov::Module> module = OpenDescriptor(options->database);
        const Ref<ov::CBase_Unload> guard = module->GetUnloadPointer();
        LoadType(*module, options->database, options->type);
        ChooseLanguage(*module, options->type, options->language);
        std::vector<Write> writes;
        for (const std::string& argument : options->writes) {
            writes.push_back(FindWrite(*module, argument));
        }
        const Ref<EventPrinter> printer = ov::MakeObject<EventPrinter>();
        module->RegisterCallback(printer->Dispatch());
        for (const Write& write : writes) {
            printer->rows.clear();
            Run(write);
            PrintTable(printer->rows);
        }
    });
}

}  // namespace ovmodel
