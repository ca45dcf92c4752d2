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

/// Where a rule runs: types of the module, the channel and the group around it.
struct Place {
    std::u16string module, channelType, groupType;
};

/// The structure of a descriptor, as rules walk it.
class Structure {
public:
    explicit Structure(const Descriptor& descriptor);

    /// The places of a group type; of all groups for "".
    std::vector<Place> PlacesOf(const std::u16string& groupType) const;
    /// The places of a module type's first channel, which runs the module's own scripts; of all types' for "".
    std::vector<Place> FirstChannelsOf(const std::u16string& module) const;

    /// What is wrong with the names of a chain, or "". An id that is not a literal is taken for right, and so is one
    /// that there is in one of the places.
    /// @param hasGroup the script runs on the host of a group, not of a channel
    std::string FaultOf(const ov::ScriptChain& chain, const std::vector<Place>& places, bool hasGroup) const;

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
    std::string FaultOfChannels(std::span<const ov::ScriptStep> steps, const std::vector<Place>& places) const;
    std::string FaultOfRow(const ov::ScriptStep& step, const std::string& object, std::u16string_view table,
                           const std::vector<Place>& places) const;
    std::string FaultOfScript(std::u16string_view id, const std::set<std::u16string>& groupTypes) const;

    const Descriptor& mDescriptor;
    std::map<std::u16string, Ids> mChannels;                         // by module
    std::map<std::u16string, Ids> mGroups;                           // by channel type
    std::map<std::u16string, std::set<std::u16string>> mParameters;  // by group type
    std::map<std::u16string, std::u16string> mFirstChannels;         // channel type by module
};

}  // namespace ovmodel
