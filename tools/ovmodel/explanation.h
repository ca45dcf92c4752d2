/// @file
/// Why a parameter is as it is, for a person and as JSON.
#pragma once

#include <string>

#include "ovmodel/parameter_path.h"

namespace ovmodel {

/// Writes what the rules of @p parameter say, what they read, what would put it in force, and who reads it.
void PrintExplanation(ov::IBase_GuiParameter& parameter);
Json DescribeExplanation(ov::IBase_GuiParameter& parameter);

/// Writes why the last edit of @p parameter was refused, with the rule behind it. @returns false if it was not
bool PrintRefusal(ov::IBase_GuiParameter& parameter, const std::string& text);
Json DescribeRefusal(ov::IBase_GuiParameter& parameter);

}  // namespace ovmodel
