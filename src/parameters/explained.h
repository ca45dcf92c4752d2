/// @file
/// What the record of a tree knows of a parameter's rules, as hosts are told of it.
#pragma once

#include "contract/explain.h"
#include "platform/automation/collection.h"

namespace ov {

class Parameter;

/// The path of a parameter, "CHANNEL/GROUP/PARAMETER"; "" once it has left its tree.
Text PathOf(IBase_GuiParameter& parameter);

/// The objects behind the operations of IExplain_Parameter.
Ref<ICollection> ExplainRules(Parameter& parameter);
Ref<ICollection> ExplainReaders(Parameter& parameter);
Ref<ICollection> ExplainRemedies(Parameter& parameter);

}  // namespace ov
