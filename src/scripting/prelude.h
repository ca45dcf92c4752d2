/// @file
/// The helper functions that every rule engine has.
#pragma once

#include <span>

#include "platform/automation/text.h"

namespace ov {

/// The code texts, in the order in which they are added. `Iif` is a plain function: both of its branches are evaluated
/// before the choice. `Choose8` and `Choose16` count from 0; their last argument is the value for any other index.
std::span<const Text> Prelude();

}  // namespace ov
