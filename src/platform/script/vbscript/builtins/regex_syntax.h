/// @file
/// The regular expressions of the rule language, in terms of the matching library's.
#pragma once

#include <string>
#include <string_view>

namespace ov::vbscript {

struct RegexFlags {
    bool ignoreCase = false;
    bool multiline = false;  ///< "^" and "$" stand for the ends of lines, too

    friend bool operator==(RegexFlags, RegexFlags) noexcept = default;
};

struct RegexSource {
    std::u16string pattern;    ///< in the library's syntax
    bool unicodeCase = false;  ///< the letter case of characters beyond ASCII counts
};

/// Checks a pattern and writes it in the library's syntax, of which it uses a part with one meaning in both worlds;
/// everything that only the library knows (named groups, look-behind, options) is an error or stands for itself.
///
/// Callouts are put where a match can spend its time: at the start, in front of everything that repeats and in each
/// group.
/// @throws RuntimeError 5017 to 5021 for an error in the syntax, 7 for a pattern beyond all bounds.
RegexSource TranslateRegex(std::u16string_view pattern, RegexFlags flags);

}  // namespace ov::vbscript
