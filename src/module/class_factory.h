/// @file
/// How objects of the creatable classes are made.
#pragma once

#include "contract/classes.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// A new object of a class of the contract, as its default interface.
Ref<IDispatch> MakeObjectOfClass(const ClassDescription& description);

}  // namespace ov
