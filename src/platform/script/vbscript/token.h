/// @file
/// The words of the language.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/script/vbscript/compile_errors.h"

namespace ov::vbscript {

/// What a token is. Words that have a meaning in one place only (Default, Step, ...) are identifiers everywhere else.
enum class TokenKind : std::uint8_t {
    End,
    EndOfLine,
    Colon,
    Identifier,
    Literal,
    OpenBracket,
    CloseBracket,
    Comma,
    Dot,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Ampersand,
    // Reserved words
    And,
    ByRef,
    ByVal,
    Call,
    Case,
    Class,
    Const,
    Dim,
    Do,
    Each,
    Else,
    ElseIf,
    Empty,
    EndWord,
    Eqv,
    Exit,
    False,
    For,
    Function,
    Get,
    GoTo,
    If,
    Imp,
    In,
    Is,
    Let,
    Loop,
    Me,
    Mod,
    New,
    Next,
    Not,
    Nothing,
    Null,
    On,
    Option,
    Or,
    Private,
    Public,
    ReDim,
    Rem,
    Resume,
    Select,
    Set,
    Stop,
    Sub,
    Then,
    To,
    True,
    Until,
    Wend,
    While,
    With,
    Xor,
};

/// One token. Its text is a part of the source.
struct Token {
    TokenKind kind = TokenKind::End;
    bool blankBefore = false;
    std::uint32_t hash = 0;     ///< HashNoCase of an identifier or a reserved word
    std::uint32_t literal = 0;  ///< number of a literal in the lexer's list
    Position position;
    std::u16string_view text;  ///< of an identifier (without square brackets) or a reserved word

    bool IsReservedWord() const noexcept { return kind >= TokenKind::And; }
};

/// The kind of a word: Identifier, or the reserved word that it is. @p hash is HashNoCase of it.
TokenKind WordKind(std::u16string_view word, std::uint32_t hash) noexcept;

}  // namespace ov::vbscript
