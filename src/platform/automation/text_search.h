/// @file
/// Search in texts without regard to case, by the rule of EqualNoCase.
#pragma once

#include <cstddef>
#include <string_view>

namespace ov {

/// Where @p part begins in @p text; npos if it is not there.
std::size_t FindNoCase(std::u16string_view text, std::u16string_view part) noexcept;
inline bool HoldsNoCase(std::u16string_view text, std::u16string_view part) noexcept {
    return FindNoCase(text, part) != std::u16string_view::npos;
}

}  // namespace ov
