// A console host: loads a device and obeys commands from standard input, telling every event of the device.
//
//   host_cpp DB TYPE
//
//   list              the groups, with the paths that the other commands take
//   show CH/G         the parameters of a group
//   set CH/G/P TEXT   a user's edit
//   language N        7 German, 9 English, ...
//
// DB is an absolute path. Exit status 2 for wrong arguments, 1 if the device cannot be loaded or a command failed.
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/group.h"
#include "contract/library.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "platform/automation/conversions.h"
#include "platform/automation/object.h"

namespace {

using ov::Ref;
using ov::Text;

/// Hears of the whole device: the module hands its parameters' events on.
class Listener final
    : public ov::Object<Listener, ov::Facet<ov::IBase_CallbackParameter>, ov::Facet<ov::IBase_CallbackModule>> {
public:
    static constexpr const char* kClassName = "Listener";

    void OnParameterReconfigured(ov::IBase_GuiParameter* p) override { Tell("new limits, unit or list", p); }
    void OnParameterStateChanged(ov::IBase_GuiParameter* p) override { Tell("new state", p); }
    void OnParameterValueChanged(ov::IBase_GuiParameter* p) override { Tell("new value", p); }
    void OnParameterConfigStateChanged(ov::IBase_GuiParameter* p) override { Tell("comes or goes", p); }
    void OnLanguageChanged(ov::IBase_GuiModule* m) override { std::cout << "* now " << m->name().ToUtf8() << "\n"; }
    void OnUnload(ov::IBase_GuiModule*) override { std::cout << "* the device is unloaded\n"; }
    void OnEnvironmentChanged(ov::IBase_GuiModule*, const Text& key, const ov::Variant&) override {
        std::cout << "* environment: " << key.ToUtf8() << "\n";
    }

private:
    static void Tell(const char* event, ov::IBase_GuiParameter* p) {
        std::cout << "* " << event << ": " << p->name().ToUtf8() << " = " << p->get_value().ToUtf8() << "\n";
    }
};

/// The elements of a typed collection, or none if there is no collection.
template <class Element>
std::vector<Ref<Element>> ElementsOf(const Ref<ov::TypedCollection<Element>>& collection) {
    std::vector<Ref<Element>> elements;
    if (!collection) return elements;
    const Ref<ov::IEnumVariant> walk = collection->NewEnum();
    for (ov::Variant item; walk->Next(item);) {
        elements.push_back(ov::facet<Element>(item.AsObject()));
    }
    return elements;
}

/// The parts of "CH/G/P". @throws std::runtime_error for another number of parts
std::vector<Text> PartsOf(const std::string& path, std::size_t count) {
    std::vector<Text> parts;
    std::istringstream stream(path);
    for (std::string part; std::getline(stream, part, '/');) {
        parts.push_back(Text::FromUtf8(part));
    }
    if (parts.size() != count)
        throw std::runtime_error("'" + path + "' is no path of " + std::to_string(count) + " parts");
    return parts;
}

class Host {
public:
    Host(const std::string& database, const std::string& type) {
        mModule->SetSourcePath(Text::FromUtf8(database));
        mModule->SetLanguage(9);
        if (!mModule->Load(Text::FromUtf8(type)))
            throw std::runtime_error("cannot load '" + type + "' from " + database);
        mModule->Gui()->RegisterCallback(mListener->Dispatch());
    }
    ~Host() { mModule->Unload(); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void Obey(const std::string& line) {
        static const std::map<std::string, void (Host::*)(std::istream&)> kCommands = {
            {"list", &Host::List}, {"show", &Host::Show}, {"set", &Host::Set}, {"language", &Host::SetLanguage}};
        std::istringstream words(line);
        std::string command;
        if (!(words >> command)) return;
        const auto found = kCommands.find(command);
        if (found == kCommands.end()) throw std::runtime_error("no command '" + command + "'");
        (this->*found->second)(words);
    }

private:
    void List(std::istream&) {
        for (const auto& channel : ElementsOf(mModule->Spec()->channels())) {
            for (const auto& group : ElementsOf(channel->groups())) {
                std::cout << ov::ToText(channel->id()).ToUtf8() << "/" << ov::ToText(group->id()).ToUtf8() << "  "
                          << group->Gui()->name().ToUtf8() << "\n";
            }
        }
    }
    void Show(std::istream& words) {
        std::string path;
        words >> path;
        for (const auto& parameter : ElementsOf(GroupAt(PartsOf(path, 2))->Gui()->parameters())) {
            std::cout << path << "/" << ov::ToText(parameter->id()).ToUtf8() << "  " << parameter->name().ToUtf8()
                      << " = " << parameter->get_value().ToUtf8() << " " << parameter->unit().ToUtf8() << "\n";
        }
    }
    void Set(std::istream& words) {
        std::string path, text;
        words >> path >> std::ws;
        std::getline(words, text);
        const std::vector<Text> parts = PartsOf(path, 3);
        const auto parameter = GroupAt(parts)->Gui()->parameters()->get_Item(parts[2]);
        if (!parameter) throw std::runtime_error("no parameter " + path);
        const Text wanted = Text::FromUtf8(text);
        const bool accepted = parameter->consistent(wanted);  // a refused edit raises nothing: ask before
        parameter->let_value(wanted);
        if (!accepted)
            std::cout << "'" << text << "' is refused; " << path << " stays " << parameter->get_value().ToUtf8()
                      << "\n";
    }
    void SetLanguage(std::istream& words) {
        std::int32_t language = 0;
        if (!(words >> language) || !mModule->SetLanguage(language)) throw std::runtime_error("no such language");
    }

    Ref<ov::IBase_SpecGroup> GroupAt(const std::vector<Text>& parts) {
        const auto channel = mModule->Spec()->channels()->get_Item(parts[0]);
        Ref<ov::IBase_SpecGroup> group = channel ? channel->groups()->get_Item(parts[1]) : nullptr;
        if (!group) throw std::runtime_error("no group " + (parts[0] + u"/" + parts[1]).ToUtf8());
        return group;
    }

    Ref<ov::CBase_Module> mModule = ov::CreateObject<ov::CBase_Module>(u"CBase_Module");
    Ref<Listener> mListener = ov::MakeObject<Listener>();
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: host_cpp DB TYPE\n";
        return 2;
    }
    int status = 0;
    try {
        Host host(argv[1], argv[2]);
        for (std::string line; std::getline(std::cin, line);) {
            try {
                host.Obey(line);
            } catch (const std::exception& error) {  // ov::RuntimeError is one, too
                std::cerr << "host_cpp: " << error.what() << "\n";
                status = 1;
            }
        }
    } catch (const std::exception& error) {
        std::cerr << "host_cpp: " << error.what() << "\n";
        return 1;
    }
    return status;
}
