/// @file
/// Why a parameter is as it is, for a person and as JSON.
#pragma once

#include <string>
#include <vector>

#include "contract/explain.h"
#include "ovmodel/parameter_path.h"
#include "platform/automation/collection.h"

namespace ovmodel {

/// What @p parameter answers to "why". @throws Failure for one that a host has put into the tree
ov::Ref<ov::IExplain_Parameter> Explained(ov::IBase_GuiParameter& parameter);

/// The elements of a list that it answers.
template <class Element>
std::vector<ov::Ref<Element>> ListOf(const ov::Ref<ov::ICollection>& list) {
    std::vector<ov::Ref<Element>> elements;
    const ov::Ref<ov::IEnumVariant> walk = list->NewEnum();
    for (ov::Variant item; walk->Next(item);) {
        elements.push_back(ov::facet<Element>(item.AsObject()));
    }
    return elements;
}

/// Writes what the rules of @p parameter say, what they read, what would put it in force, and who reads it.
void PrintExplanation(ov::IBase_GuiParameter& parameter);
Json DescribeExplanation(ov::IBase_GuiParameter& parameter);

/// Writes why the last edit of @p parameter was refused, with the rule behind it. @returns false if it was not
bool PrintRefusal(ov::IBase_GuiParameter& parameter, const std::string& text);
Json DescribeRefusal(ov::IBase_GuiParameter& parameter);

}  // namespace ovmodel
