/// @file
/// The texts that the rows of a database say again and again.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/automation/text.h"

namespace ov::sqlite {

/// Makes texts of ASCII characters so that those that came of late lie once in memory. A few thousand at most are held.
class TextPool {
public:
    /// The text of @p characters, which are ASCII.
    const Text& Find(std::string_view characters);

    static constexpr std::size_t kLongest = 128;  ///< longer texts are not worth it

private:
    static constexpr int kBits = 12;

    std::array<Text, std::size_t{1} << kBits> mTexts;
};

}  // namespace ov::sqlite
