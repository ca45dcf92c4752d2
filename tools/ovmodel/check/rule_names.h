/// @file
/// What the names in a rule stand for, where the rule runs.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "ovmodel/check/inspection.h"
#include "platform/script/script_outline.h"

namespace ovmodel {

/// Where a rule may run: types of the modules, the channels and the groups around it.
struct Scope {
    std::set<std::u16string> modules, channelTypes, groupTypes;
    bool hasGroup = true;  ///< it runs on the host of a group, not of a channel

    bool IsNowhere() const { return channelTypes.empty(); }
    void Join(const Scope& other);
};

/// The structure of a descriptor, as rules walk it.
class Structure {
public:
    explicit Structure(const Descriptor& descriptor);

    /// Where the rules of a group type run; of all groups for "".
    const Scope& ScopeOf(std::u16string_view groupType);
    /// A module type's first channel, which runs the module's own scripts; those of all types for "".
    Scope FirstChannelsOf(const std::u16string& module) const;

    /// What is wrong with the names of a chain, or "". An id that is not a literal is taken for right, and so is one
    /// that there is somewhere in the scope.
    std::string FaultOf(const ov::ScriptChain& chain, const Scope& scope) const;

    /// The types of the groups that have an id in a channel of a type, and of the channels in a module; none if there
    /// is no such id.
    std::vector<std::u16string> GroupTypes(const std::u16string& channelType, std::u16string_view id) const;
    std::vector<std::u16string> ChannelTypes(const std::u16string& module, std::u16string_view id) const;
    bool HasParameter(const std::u16string& groupType, std::u16string_view id) const;

private:
    using Ids = std::map<std::u16string, std::vector<std::u16string>>;  // id to types

    std::string FaultOfParameters(std::span<const ov::ScriptStep> steps, const std::set<std::u16string>& groupTypes,
                                  const std::string& path) const;
    std::string FaultOfGroups(std::span<const ov::ScriptStep> steps, const std::set<std::u16string>& channelTypes,
                              const std::string& path) const;
    std::string FaultOfChannels(std::span<const ov::ScriptStep> steps, const Scope& scope) const;
    std::string FaultOfRow(const ov::ScriptStep& step, const std::string& object, std::u16string_view table,
                           const Scope& scope) const;
    std::string FaultOfScript(std::u16string_view id, const std::set<std::u16string>& groupTypes) const;

    const Descriptor& mDescriptor;
    std::map<std::u16string, Ids> mChannels;                         // by module
    std::map<std::u16string, Ids> mGroups;                           // by channel type
    std::map<std::u16string, std::set<std::u16string>> mParameters;  // by group type
    std::map<std::u16string, std::u16string> mFirstChannels;         // channel type by module
    std::map<std::u16string, Scope> mScopes;                         // by group type
};

}  // namespace ovmodel
