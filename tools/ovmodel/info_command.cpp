// ovmodel info DB TYPE
#include <memory>
#include <optional>

#include "ovmodel/command.h"
#include "platform/automation/conversions.h"

namespace ovmodel {

namespace {

std::vector<std::string> Strings(const std::vector<ov::Text>& texts) {
    std::vector<std::string> strings;
    for (const ov::Text& text : texts) {
        strings.push_back(text.ToUtf8());
    }
    return strings;
}

Json Describe(ov::Module& module, const std::string& type) {
    const ov::tBaseFdtDeviceTypeInfo info = module.fdtDeviceTypeInformation();
    Json buses = Json::array();
    for (const ov::tBaseBusCategory& bus : info.busCategories) {
        buses.push_back({{"busCategory", bus.busCategory.ToUtf8()},
                         {"busCategoryName", bus.busCategoryName.ToUtf8()},
                         {"CommunicationTypeEntry", bus.CommunicationTypeEntry.ToUtf8()}});
    }
    return {{"type", type},
            {"name", module.name().ToUtf8()},
            {"description", module.description().ToUtf8()},
            {"language", module.GetLanguage()},
            {"databaseVersion", ov::ToText(module.GetDBVersion()).ToUtf8()},
            {"modelVersionIndex", module.GetModelVersionIndex()},
            {"image", module.image().ToUtf8()},
            {"deviceHelpFile", module.deviceHelpFile().ToUtf8()},
            {"authentification", module.authentification()},
            {"manufacturerId", info.manufacturerId},
            {"deviceTypeId", info.deviceTypeId},
            {"subDeviceType", info.subDeviceType.ToUtf8()},
            {"classificationId", static_cast<std::int32_t>(info.classificationId)},
            {"deviceTypeInformation", info.deviceTypeInformation.ToUtf8()},
            {"deviceIcon", info.deviceIcon.ToUtf8()},
            {"version",
             {{"name", info.version.name.ToUtf8()},
              {"vendor", info.version.vendor.ToUtf8()},
              {"version", info.version.version.ToUtf8()},
              {"date", info.version.date.ToUtf8()},
              {"descriptor", info.version.descriptor.ToUtf8()}}},
            {"supportedLanguages", Strings(info.supportedLanguages)},
            {"busCategories", buses}};
}

// The value of a member as a person reads it; a text of several lines by its first one.
std::string Plain(const Json& value) {
    if (!value.is_string()) return value.is_boolean() ? (value.get<bool>() ? "yes" : "no") : value.dump();
    const std::string text = value.get<std::string>();
    const std::size_t end = text.find_first_of("\r\n");
    return end == std::string::npos ? text : text.substr(0, end) + " ...";
}

void PrintPlain(const Json& description) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& [key, value] : description.items()) {
        if (key == "version") {
            for (const auto& [part, text] : value.items()) {
                rows.push_back({"version." + part, Plain(text)});
            }
        } else if (key == "busCategories") {
            for (const Json& bus : value) {
                rows.push_back({"busCategory", Plain(bus["busCategoryName"]) + " " + Plain(bus["busCategory"]) + " (" +
                                                   Plain(bus["CommunicationTypeEntry"]) + ")"});
            }
        } else if (key == "supportedLanguages") {
            std::string languages;
            for (const Json& language : value) {
                languages += (languages.empty() ? "" : " ") + Plain(language);
            }
            rows.push_back({key, languages});
        } else {
            rows.push_back({key, Plain(value)});
        }
    }
    PrintTable(rows);
}

}  // namespace

void AddInfoCommand(CLI::App& app) {
    struct Options {
        std::string database;
        std::string type;
        std::optional<std::int32_t> language;
        bool json = false;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("info", "Load a module type and show its device type record");
    command->add_option("DB", options->database, "Descriptor file")->required();
    command->add_option("TYPE", options->type, "Module type, as 'types' lists it")->required();
    command->add_option("--language", options->language, "Language of the texts, by its decimal id (default 7)");
    command->add_flag("--json", options->json, "Write JSON");
    command->callback([options] {
        const ov::Ref<ov::Module> module = OpenDescriptor(options->database);
        LoadType(*module, options->database, options->type);
        if (options->language && !module->SetLanguage(*options->language)) {
            throw Failure("type '" + options->type + "' does not support language " +
                          std::to_string(*options->language));
        }
        const Json description = Describe(*module, options->type);
        if (options->json) {
            Print(description);
        } else {
            PrintPlain(description);
        }
        module->Unload();
    });
}

}  // namespace ovmodel
