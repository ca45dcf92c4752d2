/// @file
/// The patterns of LIKE.
#pragma once

#include <string_view>

namespace ov::sqlite {

/// True if the whole of @p text matches @p pattern, without regard to case: "*" or "%" stands for any characters, "?"
/// or
/// "_" for one, "#" for one digit. @p escape, if not 0, makes the character behind it stand for itself.
/// Takes at most the product of the two lengths in steps.
bool MatchesLike(std::u16string_view text, std::u16string_view pattern, char16_t escape) noexcept;

}  // namespace ov::sqlite
