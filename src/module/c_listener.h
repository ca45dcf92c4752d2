/// @file
/// An object whose operations are a host's C functions.
#pragma once

#include <span>

#include "module/ov_model.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// @see ov_make_listener
Ref<IDispatch> MakeCListener(std::span<const ov_listener_entry> entries, void* context, void (*release)(void*));

/// What the operation that runs is about to fail with; its null texts are the standard ones. @returns the number, 51
/// for 0
std::int32_t RaiseFromListener(std::int32_t number, const char* source, const char* description);

}  // namespace ov
