/// @file
/// Paths CHANNEL/GROUP/PARAMETER, by ids, in a loaded tree.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "contract/channel.h"
#include "contract/group.h"
#include "contract/parameter.h"
#include "ovmodel/command.h"

namespace ovmodel {

/// The elements of a typed collection in order; none if that is Nothing.
template <class Element>
std::vector<ov::Ref<Element>> Elements(const ov::Ref<ov::TypedCollection<Element>>& collection) {
    std::vector<ov::Ref<Element>> elements;
    if (!collection) return elements;
    const ov::Ref<ov::IEnumVariant> walk = collection->NewEnum();
    for (ov::Variant item; walk->Next(item);) {
        if (auto element = ov::facet<Element>(item.AsObject())) elements.push_back(std::move(element));
    }
    return elements;
}

/// The channels, or the one that @p path names first; the same of their groups.
struct Branch {
    std::vector<ov::Ref<ov::IBase_SpecChannel>> channels;
    std::string group;  ///< id of the one group that is wanted, or "" for all
};

/// @param path "", CHANNEL or CHANNEL/GROUP. @throws Failure for ids that there are not
Branch FindBranch(ov::Module& module, const std::string& path);

/// The groups of a channel that the branch wants.
std::vector<ov::Ref<ov::IBase_SpecGroup>> GroupsOf(const Branch& branch, ov::IBase_SpecChannel& channel);

/// The parameter at CHANNEL/GROUP/PARAMETER. @throws Failure, with an id that may have been meant
ov::Ref<ov::IBase_GuiParameter> FindParameter(ov::Module& module, const std::string& path);

/// All parameters of the device in the order of the tree, which this opens as a whole.
std::vector<ov::Ref<ov::IBase_GuiParameter>> AllParameters(ov::Module& module);

/// The path of a parameter.
std::string PathOf(ov::IBase_GuiParameter& parameter);

/// The value as its editor shows it; the error's text in brackets where the parameter cannot show it.
std::string ShownValue(ov::IBase_GuiParameter& parameter);

/// Whether users may write it; not where the row does not say.
bool IsEditable(ov::IBase_GuiParameter& parameter);

/// What a person calls the state: "ok", or the marks that say otherwise, such as "unknown inconsistent".
std::string StateOf(ov::IBase_GuiParameter& parameter);

/// The parameter as JSON, with its path, names, value, limits and marks.
Json DescribeParameter(ov::IBase_GuiParameter& parameter);

/// Writes parameters with value and state, a line each.
void PrintParameters(const std::vector<ov::Ref<ov::IBase_GuiParameter>>& parameters);

/// Writes the tree, or the branch of it, as a table.
void PrintTree(ov::Module& module, const Branch& branch);

/// An id or a limit as UTF-8 text; "" for Null and Empty.
std::string Utf8(const ov::Variant& value);

/// Puts the module in @p language, if one is wanted. @throws Failure if its type does not support it
void ChooseLanguage(ov::Module& module, const std::string& type, const std::optional<std::int32_t>& language);

}  // namespace ovmodel
