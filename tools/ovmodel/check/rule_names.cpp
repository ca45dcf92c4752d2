#include "ovmodel/check/rule_names.h"

#include <algorithm>
#include <array>

#include "ovmodel/command.h"
#include "platform/automation/conversions.h"
#include "platform/script/vbscript/builtins.h"

namespace ovmodel {

using ov::ScriptStep;
using ov::Text;

namespace {

std::u16string Id(const Row& row, std::u16string_view column) {
    return Folded(row.TextOf(column));
}

// The id that a step asks for, or nullopt if only a run can tell.
std::optional<Text> LiteralId(const ScriptStep& step, std::size_t argument = 0) {
    if (argument >= step.arguments.size() || !step.arguments[argument]) return std::nullopt;
    const ov::Variant& value = *step.arguments[argument];
    return value.IsNull() || value.IsArray() ? std::nullopt : std::optional(ov::ToText(value));
}

bool IsOneOf(const Text& member, std::span<const std::u16string_view> names) {
    return std::ranges::any_of(names, [&](std::u16string_view name) { return ov::EqualNoCase(member, name); });
}

std::string Listed(const std::set<std::u16string>& types) {
    std::string list;
    for (const std::u16string& type : types) {
        list += (list.empty() ? "" : ", ") + Text(type).ToUtf8();
    }
    return list;
}

// Adds a neighbour in spelling to the words about an unknown id.
std::string WithClosest(const std::string& words, const Text& id, const std::vector<std::string>& known) {
    const std::string closest = ClosestName(id.ToUtf8(), known);
    return closest.empty() ? words : words + "; did you mean '" + closest + "'?";
}

std::string NoMember(const std::string& object, const ScriptStep& step, std::span<const std::u16string_view> names) {
    std::vector<std::string> known;
    for (const std::u16string_view name : names) {
        known.push_back(Text(name).ToUtf8());
    }
    return WithClosest(object + " has no member '" + step.member.ToUtf8() + "'", step.member, known);
}

constexpr std::array<std::u16string_view, 9> kParameterMembers = {u"value", u"val", u"SetValue", u"sVal",  u"hVal",
                                                                  u"Gui",   u"sel", u"isIn",     u"script"};
constexpr std::array<std::u16string_view, 9> kEnvironmentMembers = {
    u"Variable", u"SetVariable", u"sel", u"isIn", u"Out", u"IsValidIP", u"b", u"s", u"n"};
constexpr std::array<std::u16string_view, 3> kRowMembers = {u"value", u"isIn", u"sel"};
constexpr std::array<std::u16string_view, 2> kGroupMembers = {u"parameters", u"groups"};
constexpr std::array<std::u16string_view, 5> kHelpers = {u"Max", u"Min", u"Iif", u"Choose8", u"Choose16"};

// A call of what is nearly one of the helpers and no function of the language; "" for any other call.
std::string MisspelledHelper(const ov::ScriptChain& chain) {
    constexpr std::size_t kShortest = 4;  // a shorter name is near to everything
    const bool isCall = chain.steps[0].isCall && chain.steps[0].member.empty();
    const bool isKnown = IsOneOf(chain.name, kHelpers) || ov::vbscript::FindBuiltin(chain.name);
    if (!isCall || isKnown || chain.name.size() < kShortest) return "";
    std::vector<std::string> known;
    for (const std::u16string_view name : kHelpers) {
        known.push_back(Text(name).ToUtf8());
    }
    const std::string name = chain.name.ToUtf8();
    const std::string closest = ClosestName(name, known);
    return closest.empty() ? "" : "there is no function '" + name + "'; did you mean '" + closest + "'?";
}

}  // namespace

Structure::Structure(const Descriptor& descriptor) : mDescriptor(descriptor) {
    std::map<std::u16string, std::int32_t> firstOrders;
    for (const Row& row : descriptor.Rows(u"Channels")) {
        const std::u16string module = Id(row, u"ModuleType"), type = Id(row, u"ChannelType");
        mChannels[module][Id(row, u"ChannelId")].push_back(type);
        const std::int32_t order = row.LongOf(u"order").value_or(0);
        const auto [first, isNew] = firstOrders.emplace(module, order);
        if (isNew || order < first->second) {
            first->second = order;
            mFirstChannels[module] = type;
        }
    }
    for (const Row& row : descriptor.Rows(u"Groups")) {
        mGroups[Id(row, u"ChannelType")][Id(row, u"groupId")].push_back(Id(row, u"GroupType"));
    }
    for (const Row& row : descriptor.Rows(u"Parameters")) {
        mParameters[Id(row, u"GroupType")].insert(Id(row, u"ParameterId"));
    }
}

const Scope& Structure::ScopeOf(std::u16string_view groupType) {
    const std::u16string wanted = Folded(groupType);
    const auto [known, isNew] = mScopes.try_emplace(wanted);
    Scope& scope = known->second;
    if (!isNew) return scope;
    for (const auto& [channelType, groups] : mGroups) {
        for (const auto& [groupId, types] : groups) {
            for (const std::u16string& type : types) {
                if (!wanted.empty() && type != wanted) continue;
                scope.channelTypes.insert(channelType);
                scope.groupTypes.insert(type);
            }
        }
    }
    for (const auto& [module, channels] : mChannels) {
        for (const auto& [id, types] : channels) {
            const auto isThere = [&](const std::u16string& type) { return scope.channelTypes.contains(type); };
            if (std::ranges::any_of(types, isThere)) scope.modules.insert(module);
        }
    }
    if (scope.modules.empty()) scope = {};  // never loaded
    return scope;
}

void Scope::Join(const Scope& other) {
    modules.insert(other.modules.begin(), other.modules.end());
    channelTypes.insert(other.channelTypes.begin(), other.channelTypes.end());
    groupTypes.insert(other.groupTypes.begin(), other.groupTypes.end());
}

Scope Structure::FirstChannelsOf(const std::u16string& module) const {
    Scope scope;
    scope.hasGroup = false;
    for (const auto& [each, channelType] : mFirstChannels) {
        if (!module.empty() && module != each) continue;
        scope.modules.insert(each);
        scope.channelTypes.insert(channelType);
    }
    return scope;
}

std::vector<std::u16string> Structure::GroupTypes(const std::u16string& channelType, std::u16string_view id) const {
    const auto groups = mGroups.find(channelType);
    if (groups == mGroups.end()) return {};
    const auto types = groups->second.find(Folded(id));
    return types == groups->second.end() ? std::vector<std::u16string>() : types->second;
}

std::vector<std::u16string> Structure::ChannelTypes(const std::u16string& module, std::u16string_view id) const {
    const auto channels = mChannels.find(module);
    if (channels == mChannels.end()) return {};
    const auto types = channels->second.find(Folded(id));
    return types == channels->second.end() ? std::vector<std::u16string>() : types->second;
}

bool Structure::HasParameter(const std::u16string& groupType, std::u16string_view id) const {
    const auto known = mParameters.find(groupType);
    return known != mParameters.end() && known->second.contains(Folded(id));
}

std::string Structure::FaultOf(const ov::ScriptChain& chain, const Scope& scope) const {
    if (scope.IsNowhere() || chain.steps.empty()) return "";
    const std::span steps(chain.steps);
    const auto is = [&](std::u16string_view name) { return ov::EqualNoCase(chain.name, name); };
    if (!scope.hasGroup && (is(u"P") || is(u"CONFG"))) {
        return "'" + chain.name.ToUtf8() + "' is not there for scripts of a channel";
    }
    if (is(u"P")) return FaultOfParameters(steps, scope.groupTypes, "");
    if (is(u"G")) return FaultOfGroups(steps, scope.channelTypes, "");
    if (is(u"CH")) return FaultOfChannels(steps, scope);
    if (is(u"CONFM")) return FaultOfRow(steps[0], "CONFM", u"ModuleTypes", scope);
    if (is(u"CONFCH")) return FaultOfRow(steps[0], "CONFCH", u"Channels", scope);
    if (is(u"CONFG")) return FaultOfRow(steps[0], "CONFG", u"Groups", scope);
    if (is(u"ENV") && !IsOneOf(steps[0].member, kEnvironmentMembers)) {
        return NoMember("ENV", steps[0], kEnvironmentMembers);
    }
    if (is(u"GETTEXT")) {
        const std::optional<Text> id = LiteralId(steps[0]);
        const auto number = id ? ov::ReadNumber(*id) : std::nullopt;
        const bool isKnown = !number || mDescriptor.TextOf(static_cast<std::int32_t>(*number));
        return isKnown ? "" : "there is no text " + id->ToUtf8();
    }
    return MisspelledHelper(chain);
}

std::string Structure::FaultOfChannels(std::span<const ScriptStep> steps, const Scope& scope) const {
    if (!steps[0].member.empty() && !ov::EqualNoCase(steps[0].member, u"groups")) {
        return NoMember("CH", steps[0], std::span(kGroupMembers).last(1));
    }
    const std::optional<Text> id = LiteralId(steps[0]);
    std::set<std::u16string> types;
    std::vector<std::string> known;
    for (const std::u16string& module : scope.modules) {
        for (const auto& [each, channelTypes] : mChannels.at(module)) {
            known.push_back(Text(each).ToUtf8());
            if (!id || each == Folded(*id)) types.insert(channelTypes.begin(), channelTypes.end());
        }
    }
    if (types.empty()) return WithClosest("no module type has a channel " + Quoted(*id), *id, known);
    if (steps.size() == 1) return "";
    return FaultOfGroups(steps.subspan(1), types, id ? "channel " + id->ToUtf8() : "the channels");
}

std::string Structure::FaultOfGroups(std::span<const ScriptStep> steps, const std::set<std::u16string>& channelTypes,
                                     const std::string& path) const {
    if (!steps[0].member.empty() && !ov::EqualNoCase(steps[0].member, u"parameters")) {
        return NoMember("G", steps[0], std::span(kGroupMembers).first(1));
    }
    const std::optional<Text> id = LiteralId(steps[0]);
    std::set<std::u16string> types;
    std::vector<std::string> known;
    for (const std::u16string& channelType : channelTypes) {
        const auto groups = mGroups.find(channelType);
        if (groups == mGroups.end()) continue;
        for (const auto& [each, groupTypes] : groups->second) {
            known.push_back(Text(each).ToUtf8());
            if (!id || each == Folded(*id)) types.insert(groupTypes.begin(), groupTypes.end());
        }
    }
    const std::string where = path.empty() ? "channel type " + Listed(channelTypes) : path;
    if (types.empty()) {
        return id ? WithClosest(where + " has no group " + Quoted(*id), *id, known) : where + " has no groups";
    }
    if (steps.size() == 1) return "";
    return FaultOfParameters(steps.subspan(1), types, id ? "group " + id->ToUtf8() : "the groups");
}

std::string Structure::FaultOfParameters(std::span<const ScriptStep> steps, const std::set<std::u16string>& groupTypes,
                                         const std::string& path) const {
    const ScriptStep& step = steps[0];
    if (!step.member.empty() && !IsOneOf(step.member, kParameterMembers)) {
        return NoMember("P", step, kParameterMembers);
    }
    const std::optional<Text> id = LiteralId(step);
    if (!id) return "";
    if (ov::EqualNoCase(step.member, u"script")) return FaultOfScript(*id, groupTypes);
    std::vector<std::string> known;
    for (const std::u16string& groupType : groupTypes) {
        const auto parameters = mParameters.find(groupType);
        if (parameters == mParameters.end()) continue;
        if (parameters->second.contains(Folded(*id))) return "";
        for (const std::u16string& each : parameters->second) {
            known.push_back(Text(each).ToUtf8());
        }
    }
    const std::string where = path.empty() ? "group type " + Listed(groupTypes) : path;
    return WithClosest(where + " has no parameter " + Quoted(*id), *id, known);
}

std::string Structure::FaultOfScript(std::u16string_view id, const std::set<std::u16string>& groupTypes) const {
    std::vector<std::string> known;
    for (const Row& row : mDescriptor.Rows(u"GroupScripts")) {
        const bool isThere = row[u"GroupType"].IsNull() || groupTypes.contains(Id(row, u"GroupType"));
        if (!isThere) continue;
        if (ov::EqualNoCase(row.TextOf(u"ScriptId"), id)) return "";
        known.push_back(row.TextOf(u"ScriptId").ToUtf8());
    }
    return WithClosest("there is no group script " + Quoted(id), id, known);
}

std::string Structure::FaultOfRow(const ScriptStep& step, const std::string& object, std::u16string_view table,
                                  const Scope& scope) const {
    const bool isChild = (object == "CONFCH" && ov::EqualNoCase(step.member, u"gvalue")) ||
                         (object == "CONFG" && ov::EqualNoCase(step.member, u"pvalue"));
    if (!isChild && !step.member.empty() && !IsOneOf(step.member, kRowMembers)) {
        return NoMember(object, step, kRowMembers);
    }
    if (isChild) {
        table = object == "CONFCH" ? u"Groups" : u"Parameters";
        if (const std::optional<Text> id = LiteralId(step)) {
            const bool isKnown =
                object == "CONFCH"
                    ? std::ranges::any_of(scope.channelTypes,
                                          [&](const auto& type) { return !GroupTypes(type, *id).empty(); })
                    : std::ranges::any_of(scope.groupTypes, [&](const auto& type) { return HasParameter(type, *id); });
            if (!isKnown)
                return "there is no " + std::string(object == "CONFCH" ? "group " : "parameter ") + Quoted(*id);
        }
    }
    const std::optional<Text> field = LiteralId(step, isChild ? 1 : 0);
    const Table* found = mDescriptor.Find(table);
    if (!field || !found || found->Find(*field)) return "";
    std::vector<std::string> known;
    for (const Text& column : found->columns()) {
        known.push_back(column.ToUtf8());
    }
    return WithClosest(object + ": the table " + found->name() + " has no column " + Quoted(*field), *field, known);
}

}  // namespace ovmodel
