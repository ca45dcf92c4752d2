/// @file
/// The contract's interfaces by name.
#pragma once

#include <string_view>

#include "platform/automation/guid.h"

namespace ov {

/// The identifier of an interface, by its name with or without the leading underscore and without regard to case;
/// nullptr for a name that the contract does not have.
const Guid* FindInterface(std::u16string_view name);

}  // namespace ov
