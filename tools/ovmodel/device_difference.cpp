#include "ovmodel/device_difference.h"

#include <algorithm>
#include <map>

#include "ovmodel/parameter_path.h"

namespace ovmodel {

namespace {

std::string ShownText(ov::IBase_GuiParameter& parameter) {
    const std::string unit = parameter.unit().ToUtf8();
    const bool inForce = parameter.configState() == ov::eParameterConfigState::eParameterValid;
    const bool removed = parameter.configState() == ov::eParameterConfigState::eParameterInvalid;
    return parameter.get_value().ToUtf8() + (unit.empty() ? "" : " " + unit) +
           (inForce   ? ""
            : removed ? " (removed)"
                      : " (disabled)");
}

std::string OneLine(std::string text) {
    std::erase(text, '\r');
    std::ranges::replace(text, '\n', '|');
    return text;
}

}  // namespace

std::vector<Difference> FindDifferences(ov::Module& a, ov::Module& b) {
    std::map<std::string, ov::Ref<ov::IBase_GuiParameter>> others;
    for (const auto& parameter : AllParameters(b)) {
        others[PathOf(*parameter)] = parameter;
    }
    std::vector<Difference> differences;
    for (const auto& parameter : AllParameters(a)) {
        const std::string path = PathOf(*parameter);
        const auto other = others.extract(path);
        Difference difference{path, parameter->name().ToUtf8(), ShownText(*parameter),
                              other ? ShownText(*other.mapped()) : ""};
        if (!other || difference.a != difference.b) differences.push_back(std::move(difference));
    }
    for (const auto& [path, parameter] : others) {
        differences.push_back({path, parameter->name().ToUtf8(), "", ShownText(*parameter)});
    }
    return differences;
}

std::vector<std::vector<std::string>> DifferenceRows(const std::vector<Difference>& differences) {
    std::vector<std::vector<std::string>> rows;
    for (const Difference& difference : differences) {
        rows.push_back({difference.path, difference.name, OneLine(difference.a) + " -> " + OneLine(difference.b)});
    }
    return rows;
}

Json DescribeDifferences(const std::vector<Difference>& differences, const char* a, const char* b) {
    Json described = Json::array();
    for (const Difference& difference : differences) {
        described.push_back(
            {{"path", difference.path}, {"name", difference.name}, {a, difference.a}, {b, difference.b}});
    }
    return described;
}

}  // namespace ovmodel
