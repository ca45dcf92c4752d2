/// @file
/// From a source text to tokens.
#pragma once

#include <string_view>
#include <vector>

#include "platform/automation/memory_account.h"
#include "platform/automation/variant.h"
#include "platform/script/vbscript/token.h"

namespace ov::vbscript {

/// Splits a source text into tokens, the last of which is End. Comments and continued lines are gone; the values of
/// literals stand in a list. Can be used again for another text, and keeps its memory then.
class Lexer {
public:
    /// @throws ScriptError
    void Run(std::u16string_view source);

    const std::vector<Token>& Tokens() const noexcept { return mTokens; }
    const std::vector<Variant>& Literals() const noexcept { return mLiterals; }
    void Clear() noexcept;

private:
    bool AtEnd() const noexcept { return mAt >= mSource.size(); }
    char16_t Peek(std::size_t ahead = 0) const noexcept {
        return mAt + ahead < mSource.size() ? mSource[mAt + ahead] : u'\0';
    }
    Position Here() const noexcept { return {mLine, static_cast<std::uint32_t>(mAt - mLineStart + 1)}; }

    void SkipBlanks();
    bool SkipContinuation();
    void SkipComment() noexcept;
    void NewLine() noexcept;
    void ReadToken();
    void ReadWord();
    void ReadBracketedName();
    void ReadNumber();
    bool IsAtReservedWord() const noexcept;
    void ReadPattern(int base);
    void ReadText();
    void ReadDate();
    void ReadOperator();
    Token& NewToken();
    void Add(TokenKind kind, std::size_t length);
    void AddName(TokenKind kind, std::u16string_view text, std::uint32_t hash, Position position);
    void AddLiteral(Variant value, Position position);

    std::u16string_view mSource;
    std::size_t mAt = 0;
    std::size_t mLineStart = 0;
    std::uint32_t mLine = 1;
    bool mBlankBefore = false;
    std::vector<Token> mTokens;
    std::vector<Variant> mLiterals;
    MemoryAccount::Share mMemory;  // of the tokens
};

}  // namespace ov::vbscript
