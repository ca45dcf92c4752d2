/// @file
/// The words of an SQL text, as SQLite reads it.
#pragma once

#include <string_view>
#include <vector>

namespace ov::sqlite {

enum class SqlTokenKind {
    Space,   ///< blanks and comments
    Word,    ///< keyword, or a name without quotes
    Name,    ///< name in "", [] or ``
    String,  ///< text in ''
    Number,
    Parameter,  ///< a place for a value: "?", "$name"
    Symbol,     ///< operator, bracket, separator, or anything else
    Limit,      ///< never read: the number of a rewritten "TOP n"
};

/// A piece of the text. All pieces joined are the text.
struct SqlToken {
    SqlTokenKind kind;
    std::string_view text;

    bool Is(std::string_view symbol) const noexcept { return kind == SqlTokenKind::Symbol && text == symbol; }
    /// True for the word @p upper, which is in capital letters.
    bool IsWord(std::string_view upper) const noexcept;
};

std::vector<SqlToken> ReadSqlTokens(std::string_view sql);

/// How the words are compared: ASCII letters without regard to case. @p upper is in capital letters.
bool EqualsUpper(std::string_view word, std::string_view upper) noexcept;

}  // namespace ov::sqlite
