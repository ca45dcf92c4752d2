/// @file
/// What RegExp.Replace puts in place of a match.
#pragma once

#include "platform/script/vbscript/builtins/regex.h"

namespace ov::vbscript {

/// The replacement of one call of Replace: a procedure of the script, or a text with signs for parts of the match:
///
/// | sign         | stands for                                                            |
/// |--------------|-----------------------------------------------------------------------|
/// | "$1" to "$99"| a group; two digits where there are so many groups                    |
/// | "$&"         | the match                                                             |
/// | "$`", "$'"   | what stands before and behind the match                               |
/// | "$$"         | "$"                                                                   |
///
/// Any other "$" is itself.
class Replacement {
public:
    /// @throws RuntimeError 94 for Null, and as ToText does
    Replacement(const Variant& replacement, BuiltinContext::Link link);

    /// Appends the replacement of the search's present match.
    void AppendTo(Text& out, const RegexSearch& search) const;

private:
    void AppendResult(Text& out, const RegexSearch& search) const;
    std::size_t AppendSign(Text& out, const RegexSearch& search, std::u16string_view behindDollar) const;

    BuiltinContext::Link mLink;
    Variant mProcedure;  // Empty if the replacement is a text
    Text mText;
};

}  // namespace ov::vbscript
