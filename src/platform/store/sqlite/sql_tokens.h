/// @file
/// The words of an SQL text of a descriptor.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ov::sqlite {

enum class SqlTokenKind {
    Space,      ///< blanks and comments
    Word,       ///< keyword, or a name without quotes
    Name,       ///< name in [] or ``
    Quoted,     ///< in "": a text where a value is wanted, a name where one is
    String,     ///< text in ''
    Number,     ///< in decimal, or hexadecimal behind "0x" or "&H"
    Date,       ///< between two "#"
    Parameter,  ///< a place for a value: "?", "$name"
    Symbol,     ///< operator, bracket, separator, or anything else
};

/// A piece of the text. All pieces joined are the text.
struct SqlToken {
    SqlTokenKind kind;
    std::string_view text;

    bool Is(std::string_view symbol) const noexcept { return kind == SqlTokenKind::Symbol && text == symbol; }
    /// True for the word @p upper, which is in capital letters.
    bool IsWord(std::string_view upper) const noexcept;
    /// True if it begins with a quote, bracket or "#" that does not end.
    bool IsUnended() const noexcept;
    /// What stands between the quotes or brackets, doubled quotes as one; the text itself where there are none.
    std::string Content() const;
};

std::vector<SqlToken> ReadSqlTokens(std::string_view sql);

/// How the words are compared: ASCII letters without regard to case. @p upper is in capital letters.
bool EqualsUpper(std::string_view word, std::string_view upper) noexcept;
/// True if two names are the same without regard to the case of ASCII letters.
bool SameName(std::string_view a, std::string_view b) noexcept;

}  // namespace ov::sqlite
