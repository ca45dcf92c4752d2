/// @file
/// The patterns of LIKE.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace ov::sqlite {

/// Which characters of a pattern stand for others.
enum class LikeForm : std::uint8_t {
    Both,         ///< "*" and "%" for any characters, "?" and "_" for one, "#" for a digit
    PercentOnly,  ///< "%" and "_" alone, as ALIKE has it
};

/// True if the whole of @p text matches @p pattern, without regard to case. In either form "[a-dx]" stands for one
/// character of a class and "[!a-d]" for one outside it; a bracket that does not end, or holds nothing, is itself.
/// @p escape, if not 0, makes the character behind it stand for itself.
/// Takes at most the product of the two lengths in steps; @p step is called at each and may end the search by raising.
bool MatchesLike(std::u16string_view text, std::u16string_view pattern, LikeForm form, char16_t escape,
                 const std::function<void()>& step);

}  // namespace ov::sqlite
