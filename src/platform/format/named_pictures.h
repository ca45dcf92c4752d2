/// @file
/// Pictures that are asked for by name.
#pragma once

#include <memory>
#include <string_view>

#include "platform/format/picture_form.h"

namespace ov {

/// The picture that the name stands for, such as "0.00" for "Fixed" in any case; any other text as it is.
std::u16string_view SpelledOut(std::u16string_view name) noexcept;

/// The form of "General Number" or "Currency", for which there is no picture; nullptr for any other name.
std::unique_ptr<PictureForm> MakeNamedForm(std::u16string_view name);

}  // namespace ov
