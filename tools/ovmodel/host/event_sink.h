/// @file
/// Events of an object as calls of a script's procedures.
#pragma once

#include "platform/automation/interface_info.h"
#include "platform/script/script_control.h"

namespace ovmodel {

/// A sink that calls the global procedure @p prefix + name of the event, where the script has one.
ov::Ref<ov::IDispatch> MakeEventSink(ov::ScriptControl& control, const ov::Text& prefix,
                                     const ov::InterfaceInfo& events);

}  // namespace ovmodel
