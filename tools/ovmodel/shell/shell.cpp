#include "ovmodel/shell/shell.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <sstream>

#include "module/host.h"
#include "ovmodel/output_file.h"
#include "ovmodel/saved_state.h"
#include "platform/automation/conversions.h"

namespace ovmodel {

using ov::Ref;
using ov::Text;

namespace {

std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

// The first word and what stands behind it.
std::pair<std::string, std::string> SplitFirst(const std::string& text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
    const std::size_t rest = std::min(text.find_first_not_of(" \t", end), text.size());
    return {text.substr(begin, end - begin), text.substr(rest)};
}

void ExpectNothing(const std::string& arguments) {
    if (!arguments.empty()) throw Failure("'" + arguments + "' is too much");
}

/// Runs scripts so that what fails in them is a Failure.
class ScriptRun {
public:
    ScriptRun() {
        ov::ListenToRuleFailures([this](const ov::RuleFailure& failure) {
            if (mReason.empty()) mReason = failure.reason.ToUtf8() + " in \"" + failure.script.ToUtf8() + "\"";
        });
    }
    ScriptRun(const ScriptRun&) = delete;
    ScriptRun& operator=(const ScriptRun&) = delete;
    ~ScriptRun() { ov::ListenToRuleFailures({}); }

    void Check() const {
        if (!mReason.empty()) throw Failure(mReason);
    }

private:
    std::string mReason;
};

// A value as the language itself would write it.
std::string Literal(const ov::Variant& value) {
    if (value.IsNull()) return "Null";
    if (value.IsEmpty()) return "Empty";
    if (value.IsObject()) return value.IsNothing() ? "Nothing" : "an object";
    if (value.IsArray()) return "an array of " + std::to_string(value.AsArray().size());
    const std::string text = ov::ToText(value).ToUtf8();
    return value.IsString() ? "\"" + text + "\"" : text;
}

}  // namespace

const std::vector<Shell::Command>& Shell::Commands() {
    static const std::vector<Command> commands = {
        {"get", "PATH...", "values of parameters; a path is CHANNEL/GROUP/PARAMETER", true, &Shell::Get},
        {"set", "PATH=TEXT", "write as a user does", true, &Shell::Set},
        {"tree", "[PATH]", "channels, groups and parameters", true, &Shell::Tree},
        {"watch", "[PATH]", "show events of a parameter, a group, a channel, or all", true, &Shell::Watch},
        {"unwatch", "[PATH]", "no longer, or no events at all", true, &Shell::Unwatch},
        {"eval", "PATH EXPRESSION", "the value of an expression in the engine of a group or channel", true,
         &Shell::Eval},
        {"execute", "PATH STATEMENT", "run statements there", true, &Shell::Execute},
        {"language", "[ID]", "the language of texts, or another one", false, &Shell::Language},
        {"image", "MAP.csv [FILE]", "the device image in hexadecimal digits, by a table of places", false,
         &Shell::Image},
        {"save", "FILE", "write all values to a file", false, &Shell::Save},
        {"load", "FILE", "go back to the values of a file", false, &Shell::Load},
        {"log", "on|off", "the diagnostics log, on standard error", false, &Shell::Log},
        {"help", "", "this list", false, &Shell::Help},
        {"quit", "", "the end", false, &Shell::Quit},
    };
    return commands;
}

Shell::Shell(Ref<ov::Module> module, std::string type) : mModule(std::move(module)), mType(std::move(type)) {
    AllParameters(*mModule);  // rules of groups that nobody has opened would set off nothing
    mModule->RegisterCallback(mEvents->Dispatch());
}

bool Shell::Run(const std::string& line) {
    const std::pair<std::string, std::string> words = SplitFirst(line);
    const auto& name = words.first;
    if (name.empty() || name.starts_with('#')) return true;
    mEvents->rows.clear();
    try {
        const auto command = std::ranges::find_if(Commands(), [&](const Command& each) { return name == each.name; });
        if (command == Commands().end()) {
            std::vector<std::string> names;
            for (const Command& each : Commands()) {
                names.emplace_back(each.name);
            }
            const std::string closest = ClosestName(name, names);
            throw Failure("no command '" + name + "'" +
                          (closest.empty() ? "; 'help' lists them" : "; did you mean '" + closest + "'?"));
        }
        std::invoke(command->run, *this, words.second);
        PrintEvents();
        std::cout.flush();
        return true;
    } catch (const std::exception& error) {
        PrintEvents();
        std::cout.flush();
        std::cerr << "ovmodel: " << error.what() << "\n";
        return false;
    }
}

void Shell::PrintEvents() {
    std::erase_if(mEvents->rows, [this](const auto& row) { return !IsWatched(row.front()); });
    PrintTable(mEvents->rows);
    mEvents->rows.clear();
}

bool Shell::IsWatched(const std::string& path) const {
    return std::ranges::any_of(mWatched, [&](const std::string& watched) {
        return watched.empty() || path == watched || path.starts_with(watched + "/");
    });
}

void Shell::Get(const std::string& arguments) {
    std::vector<Ref<ov::IBase_GuiParameter>> parameters;
    for (const std::string& path : Words(arguments)) {
        parameters.push_back(FindParameter(*mModule, path));
    }
    if (parameters.empty()) throw Failure("get what? A path is CHANNEL/GROUP/PARAMETER");
    PrintParameters(parameters);
}

void Shell::Set(const std::string& arguments) {
    const WriteResult result = WriteAsUser(FindWrite(*mModule, arguments), *mEvents);
    std::cout << result.path << ": " << result.before << " -> " << result.after << "\n";
}

void Shell::Tree(const std::string& arguments) {
    PrintTree(*mModule, FindBranch(*mModule, arguments));
}

void Shell::Watch(const std::string& arguments) {
    if (std::ranges::count(arguments, '/') >= 2) {
        FindParameter(*mModule, arguments);
    } else {
        FindBranch(*mModule, arguments);
    }
    if (std::ranges::find(mWatched, arguments) == mWatched.end()) mWatched.push_back(arguments);
}

void Shell::Unwatch(const std::string& arguments) {
    if (arguments.empty()) return mWatched.clear();
    if (std::erase(mWatched, arguments) == 0) throw Failure("'" + arguments + "' is not watched");
}

Shell::Target Shell::FindTarget(const std::string& arguments) {
    const auto [path, script] = SplitFirst(arguments);
    if (path.empty() || script.empty()) throw Failure("a path CHANNEL or CHANNEL/GROUP and a script are wanted");
    const Branch branch = FindBranch(*mModule, path);
    Target target{branch.channels.front(), {}, Text::FromUtf8(script)};
    if (!branch.group.empty()) target.group = GroupsOf(branch, *target.channel).front();
    return target;
}

void Shell::Eval(const std::string& arguments) {
    const Target target = FindTarget(arguments);
    const ScriptRun run;
    const ov::Variant value =
        target.group ? target.group->EvaluateScript(target.script) : target.channel->EvaluateScript(target.script);
    run.Check();
    std::cout << Literal(value) << "\n";
}

void Shell::Execute(const std::string& arguments) {
    const Target target = FindTarget(arguments);
    const ScriptRun run;
    if (target.group) {
        ov::facet<ov::CBase_Group>(target.group)->ExecuteScript(target.script);
    } else {
        ov::facet<ov::CBase_Channel>(target.channel)->ExecuteScript(target.script);
    }
    run.Check();
}

void Shell::Language(const std::string& arguments) {
    if (arguments.empty()) {
        std::cout << mModule->GetLanguage() << "\n";
        return;
    }
    const std::optional<double> id = ov::ReadNumber(Text::FromUtf8(arguments));
    if (!id || *id < 0 || *id > 0xFFFF) throw Failure("'" + arguments + "' is no id of a language");
    ChooseLanguage(*mModule, mType, static_cast<std::int32_t>(*id));
}

void Shell::Image(const std::string& arguments) {
    const std::vector<std::string> words = Words(arguments);
    if (words.empty() || words.size() > 2) throw Failure("a table of places and perhaps a file to write are wanted");
    const std::string image = ImageAsHex(*mModule, words[0]);
    if (words.size() == 1) {
        std::cout << image << "\n";
        return;
    }
    WriteWhole(words[1], image + "\n");
}

void Shell::Save(const std::string& arguments) {
    if (arguments.empty()) throw Failure("a file to write is wanted");
    WriteStateFile(arguments, SaveState(*mModule));
}

void Shell::Load(const std::string& arguments) {
    if (arguments.empty()) throw Failure("a file that 'save' wrote is wanted");
    LoadWholeState(*mModule, arguments);
}

void Shell::Log(const std::string& arguments) {
    if (arguments == "on") return ov::SwitchDebugOutputOn();
    if (arguments == "off") return ov::SwitchDebugOutputOff();
    throw Failure("'on' or 'off' is wanted");
}

void Shell::Help(const std::string& arguments) {
    ExpectNothing(arguments);
    std::vector<std::vector<std::string>> rows;
    for (const Command& command : Commands()) {
        rows.push_back({std::string(command.name) + " " + command.arguments, command.help});
    }
    PrintTable(rows);
}

void Shell::Quit(const std::string& arguments) {
    ExpectNothing(arguments);
    mIsOver = true;
}

std::vector<std::string> Shell::Complete(const std::string& line) {
    const std::size_t blank = line.find_last_of(' ');
    const std::string word = line.substr(blank + 1);
    std::vector<std::string> words;
    if (blank == std::string::npos) {
        for (const Command& command : Commands()) {
            words.emplace_back(command.name);
        }
    } else {
        const auto command = std::ranges::find_if(
            Commands(), [name = SplitFirst(line).first](const Command& each) { return name == each.name; });
        if (command != Commands().end() && command->takesPaths) {
            words = Children(word.substr(0, word.find_last_of('/') + 1));
        }
    }
    std::erase_if(words, [&](const std::string& each) { return !each.starts_with(word); });
    return words;
}

// The paths one level below a path that ends in "/", or the channels of "".
std::vector<std::string> Shell::Children(const std::string& path) {
    std::vector<std::string> children;
    try {
        const std::ptrdiff_t depth = std::ranges::count(path, '/');
        const Branch branch = FindBranch(*mModule, path.substr(0, path.find_last_of('/')));
        if (depth == 0) {
            for (const auto& channel : FindBranch(*mModule, "").channels) {
                children.push_back(Utf8(channel->id()) + "/");
            }
        } else if (depth == 1) {
            for (const auto& group : GroupsOf(branch, *branch.channels.front())) {
                children.push_back(path + Utf8(group->id()) + "/");
            }
        } else if (depth == 2) {
            const auto group = GroupsOf(branch, *branch.channels.front()).front();
            for (const auto& parameter : Elements(group->parameters())) {
                children.push_back(path + Utf8(parameter->id()));
            }
        }
    } catch (const std::exception&) {
        // A path that leads nowhere has nothing below it.
    }
    return children;
}

}  // namespace ovmodel
