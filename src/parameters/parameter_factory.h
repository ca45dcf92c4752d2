/// @file
/// Which class a row of the descriptor's parameters makes.
#pragma once

#include "contract/internal.h"
#include "platform/automation/variant.h"

namespace ov {

/// A new parameter for the word in column `Type`, which counts with its case, and for "INT" the width in column
/// `subtype`; not configured. Nothing for any other word.
Ref<IBase_Internal> MakeParameter(const Text& type, const Variant& subtype);

}  // namespace ov
