/// @file
/// The shell: commands on a module that lives until the end.
#pragma once

#include <string>
#include <vector>

#include "ovmodel/user_write.h"

namespace ovmodel {

class Shell {
public:
    /// @param module is loaded with @p type
    Shell(ov::Ref<ov::Module> module, std::string type);
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    /// Runs one line. Whatever fails is told on standard error and ends nothing. @returns false for a failure
    bool Run(const std::string& line);
    /// True once "quit" was given.
    bool isOver() const { return mIsOver; }
    /// What the last word of a line may become.
    std::vector<std::string> Complete(const std::string& line);

private:
    struct Command {
        const char* name;
        const char* arguments;
        const char* help;
        bool takesPaths;
        void (Shell::*run)(const std::string& arguments);
    };
    static const std::vector<Command>& Commands();

    void Get(const std::string& arguments);
    void Set(const std::string& arguments);
    void Tree(const std::string& arguments);
    void Watch(const std::string& arguments);
    void Unwatch(const std::string& arguments);
    void Eval(const std::string& arguments);
    void Execute(const std::string& arguments);
    void Language(const std::string& arguments);
    void Image(const std::string& arguments);
    void Save(const std::string& arguments);
    void Load(const std::string& arguments);
    void Log(const std::string& arguments);
    void Help(const std::string& arguments);
    void Quit(const std::string& arguments);

    /// The channel, or the group, whose engine runs a script; and the script.
    struct Target {
        ov::Ref<ov::IBase_SpecChannel> channel;
        ov::Ref<ov::IBase_SpecGroup> group;  ///< Nothing for the channel's own engine
        ov::Text script;
    };
    Target FindTarget(const std::string& arguments);
    std::vector<std::string> Children(const std::string& path);
    bool IsWatched(const std::string& path) const;
    void PrintEvents();

    ov::Ref<ov::Module> mModule;
    std::string mType;
    ov::Ref<EventRecorder> mEvents = ov::MakeObject<EventRecorder>();
    std::vector<std::string> mWatched;  // paths of parameters, groups, channels; "" is all
    bool mIsOver = false;
};

}  // namespace ovmodel
