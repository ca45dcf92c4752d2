/// @file
/// How objects of the creatable classes are made.
#pragma once

#include "contract/classes.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// A new object of a creatable class, as its default interface; Nothing for a class that this version does not make.
Ref<IDispatch> MakeObjectOfClass(const ClassDescription& description);

/// True if MakeObjectOfClass makes objects of this class.
bool IsCreatable(const ClassDescription& description);

}  // namespace ov
