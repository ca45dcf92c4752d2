#include "ovmodel/parameter_path.h"

#include <algorithm>

#include "platform/automation/conversions.h"

namespace ovmodel {

using ov::Ref;
using ov::Text;

namespace {

std::vector<std::string> Split(const std::string& path) {
    std::vector<std::string> ids;
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        ids.push_back(path.substr(at, end - at));
        at = end + 1;
    }
    return ids;
}

// The element of an id; else a reason that names the part of the path and a neighbour in spelling.
template <class Element>
Ref<Element> Find(const Ref<ov::TypedCollection<Element>>& collection, const std::string& what, const std::string& id,
                  const std::string& path) {
    if (collection) {
        if (Ref<Element> element = collection->get_Item(Text::FromUtf8(id))) return element;
    }
    std::vector<std::string> ids;
    for (const Ref<Element>& element : Elements(collection)) {
        ids.push_back(Utf8(element->id()));
    }
    const std::string place = path.empty() ? "" : " in " + path;
    if (ids.empty()) throw Failure("no " + what + " '" + id + "'" + place + ", which has none");
    const std::string closest = ClosestName(id, ids);
    throw Failure("no " + what + " '" + id + "'" + place +
                  (closest.empty() ? "; ids run from " + ids.front() + " to " + ids.back()
                                   : "; did you mean '" + (path.empty() ? "" : path + "/") + closest + "'?"));
}

}  // namespace

std::string Utf8(const ov::Variant& value) {
    return value.IsNull() ? "" : ov::ToText(value).ToUtf8();
}

Branch FindBranch(ov::Module& module, const std::string& path) {
    const Ref<ov::CBase_SpecChannelCollection> channels = module.Spec()->channels();
    if (path.empty()) return {Elements(channels), ""};
    const std::vector<std::string> ids = Split(path);
    if (ids.size() > 2) throw Failure("'" + path + "' is no path CHANNEL or CHANNEL/GROUP");
    const Ref<ov::IBase_SpecChannel> channel = Find(channels, "channel", ids[0], "");
    if (ids.size() == 2) Find(channel->groups(), "group", ids[1], ids[0]);
    return {{channel}, ids.size() == 2 ? ids[1] : ""};
}

std::vector<Ref<ov::IBase_SpecGroup>> GroupsOf(const Branch& branch, ov::IBase_SpecChannel& channel) {
    if (branch.group.empty()) return Elements(channel.groups());
    return {channel.groups()->get_Item(Text::FromUtf8(branch.group))};
}

Ref<ov::IBase_GuiParameter> FindParameter(ov::Module& module, const std::string& path) {
    const std::vector<std::string> ids = Split(path);
    if (ids.size() != 3 || std::ranges::any_of(ids, &std::string::empty)) {
        throw Failure("'" + path + "' is no path CHANNEL/GROUP/PARAMETER");
    }
    const auto channel = Find(module.Spec()->channels(), "channel", ids[0], "");
    const auto group = Find(channel->groups(), "group", ids[1], ids[0]);
    return Find(group->Gui()->parameters(), "parameter", ids[2], ids[0] + "/" + ids[1]);
}

std::vector<Ref<ov::IBase_GuiParameter>> AllParameters(ov::Module& module) {
    std::vector<Ref<ov::IBase_GuiParameter>> all;
    for (const auto& channel : Elements(module.Spec()->channels())) {
        for (const auto& group : Elements(channel->groups())) {
            for (auto& parameter : Elements(group->Gui()->parameters())) {
                all.push_back(std::move(parameter));
            }
        }
    }
    return all;
}

std::string PathOf(ov::IBase_GuiParameter& parameter) {
    const Ref<ov::IBase_GuiGroup> group = parameter.group();
    if (!group) return Utf8(parameter.id());
    return Utf8(group->channel()->id()) + "/" + Utf8(group->id()) + "/" + Utf8(parameter.id());
}

std::string ShownValue(ov::IBase_GuiParameter& parameter) {
    try {
        return parameter.get_value().ToUtf8();
    } catch (const ov::RuntimeError& error) {
        return "(" + std::string(error.what()) + ")";
    }
}

bool IsEditable(ov::IBase_GuiParameter& parameter) {
    try {
        return parameter.editable();
    } catch (const ov::RuntimeError&) {
        return false;
    }
}

std::string StateOf(ov::IBase_GuiParameter& parameter) {
    const auto state = parameter.configState();
    if (state == ov::eParameterConfigState::eParameterInvalid) return "removed";
    std::string marks;
    const auto mark = [&marks](bool set, const char* word) {
        if (set) marks += (marks.empty() ? "" : " ") + std::string(word);
    };
    mark(state == ov::eParameterConfigState::eParameterDisabled, "disabled");
    mark(!IsEditable(parameter), "read-only");
    mark(parameter.unknown(), "unknown");
    mark(parameter.modified(), "modified");
    mark(!parameter.consistent(), "inconsistent");
    mark(parameter.error() != u"0", "no-value");
    return marks.empty() ? "ok" : marks;
}

Json DescribeParameter(ov::IBase_GuiParameter& parameter) {
    return {{"path", PathOf(parameter)},
            {"name", parameter.name().ToUtf8()},
            {"value", ShownValue(parameter)},
            {"unit", parameter.unit().ToUtf8()},
            {"min", Utf8(parameter.Min())},
            {"max", Utf8(parameter.Max())},
            {"configState", static_cast<std::int32_t>(parameter.configState())},
            {"editable", IsEditable(parameter)},
            {"unknown", parameter.unknown()},
            {"modified", parameter.modified()},
            {"consistent", parameter.consistent()},
            {"error", parameter.error().ToUtf8()}};
}

void ChooseLanguage(ov::Module& module, const std::string& type, const std::optional<std::int32_t>& language) {
    if (!language || module.SetLanguage(*language)) return;
    throw Failure("type '" + type + "' does not support language " + std::to_string(*language));
}

}  // namespace ovmodel
