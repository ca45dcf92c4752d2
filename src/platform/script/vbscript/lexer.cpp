#include "platform/script/vbscript/lexer.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

#include "platform/automation/number_digits.h"
#include "platform/functions/date_literal.h"
#include "platform/script/vbscript/limits.h"
#include "platform/script/vbscript/run_guard.h"

namespace ov::vbscript {

namespace {

constexpr std::size_t kMaxKeptTokens = 16 * 1024;

bool IsDigit(char16_t c) noexcept {
    return c >= u'0' && c <= u'9';
}

bool IsLetter(char16_t c) noexcept {
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'z';
}

bool IsNamePart(char16_t c) noexcept {
    return IsLetter(c) || IsDigit(c) || c == u'_';
}

bool IsBlank(char16_t c) noexcept {
    return c == u' ' || c == u'\t' || c == u'\v' || c == u'\f';
}

bool IsLineEnd(char16_t c) noexcept {
    return c == u'\r' || c == u'\n';
}

int DigitValue(char16_t c) noexcept {
    if (IsDigit(c)) return c - u'0';
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

}  // namespace

void Lexer::Clear() noexcept {
    if (mTokens.capacity() > kMaxKeptTokens) mTokens = {};
    mTokens.clear();
    mLiterals.clear();
    mMemory.Resize(0);
}

Token& Lexer::NewToken() {
    RunGuard::Step();
    if (mTokens.size() == mTokens.capacity()) {
        const std::size_t capacity = std::max<std::size_t>(64, mTokens.capacity() * 2);
        mMemory.Resize((mTokens.capacity() + capacity) * sizeof(Token));  // both while they are moved
        mTokens.reserve(capacity);
        mMemory.Resize(capacity * sizeof(Token));
    }
    return mTokens.emplace_back();
}

void Lexer::Run(std::u16string_view source) {
    Clear();
    mSource = source;
    mAt = mLineStart = 0;
    mLine = 1;
    if (source.size() > kMaxSourceLength) Fail(CompileError::OutOfMemory, {});
    for (SkipBlanks(); !AtEnd(); SkipBlanks()) {
        ReadToken();
    }
    Add(TokenKind::End, 0);
}

void Lexer::Add(TokenKind kind, std::size_t length) {
    Token& token = NewToken();
    token.kind = kind;
    token.blankBefore = mBlankBefore;
    token.position = Here();
    mAt += length;
}

void Lexer::AddName(TokenKind kind, std::u16string_view text, std::uint32_t hash, Position position) {
    if (text.size() > kMaxNameLength) Fail(CompileError::IdentifierTooLong, position);
    Token& token = NewToken();
    token.kind = kind;
    token.blankBefore = mBlankBefore;
    token.hash = hash;
    token.position = position;
    token.text = text;
}

void Lexer::AddLiteral(Variant value, Position position) {
    Token& token = NewToken();
    token.kind = TokenKind::Literal;
    token.blankBefore = mBlankBefore;
    token.literal = static_cast<std::uint32_t>(mLiterals.size());
    token.position = position;
    mLiterals.push_back(std::move(value));
}

void Lexer::NewLine() noexcept {
    mAt += Peek() == u'\r' && Peek(1) == u'\n' ? 2u : 1u;
    ++mLine;
    mLineStart = mAt;
}

void Lexer::SkipBlanks() {
    mBlankBefore = false;
    while (IsBlank(Peek()) || (Peek() == u'_' && SkipContinuation())) {
        if (IsBlank(Peek())) ++mAt;
        mBlankBefore = true;
    }
}

// At "_": a statement goes on behind the end of the line if nothing else stands there.
bool Lexer::SkipContinuation() {
    std::size_t ahead = 1;
    while (IsBlank(Peek(ahead))) {
        ++ahead;
    }
    if (!IsLineEnd(Peek(ahead))) Fail(CompileError::InvalidCharacter, Here());
    mAt += ahead;
    NewLine();
    return true;
}

void Lexer::SkipComment() noexcept {
    while (!AtEnd() && !IsLineEnd(Peek())) {
        ++mAt;
    }
}

void Lexer::ReadToken() {
    const char16_t c = Peek();
    if (IsLetter(c)) return ReadWord();
    if (IsDigit(c) || (c == u'.' && IsDigit(Peek(1)))) return ReadNumber();
    if (IsLineEnd(c)) {
        Add(TokenKind::EndOfLine, 0);
        return NewLine();
    }
    switch (c) {
        case u'"':
            return ReadText();
        case u'\'':
            return SkipComment();
        case u'#':
            return ReadDate();
        case u'[':
            return ReadBracketedName();
        case u'&': {
            const char16_t radix = Peek(1) | 0x20;
            if (radix == u'h' && DigitValue(Peek(2)) < 16) return ReadPattern(16);
            if (radix == u'o' && DigitValue(Peek(2)) < 8) return ReadPattern(8);
            return Add(TokenKind::Ampersand, 1);
        }
        default:
            return ReadOperator();
    }
}

void Lexer::ReadWord() {
    const Position position = Here();
    const std::size_t start = mAt;
    while (IsNamePart(Peek())) {
        ++mAt;
    }
    const std::u16string_view word = mSource.substr(start, mAt - start);
    const std::uint32_t hash = HashNoCase(word);
    const bool isMember = !mTokens.empty() && mTokens.back().kind == TokenKind::Dot && !mBlankBefore;
    const TokenKind kind = isMember ? TokenKind::Identifier : WordKind(word, hash);
    if (kind == TokenKind::Rem) return SkipComment();
    AddName(kind, word, hash, position);
}

void Lexer::ReadBracketedName() {
    const Position position = Here();
    const std::size_t start = ++mAt;
    while (!AtEnd() && !IsLineEnd(Peek()) && Peek() != u']') {
        ++mAt;
    }
    if (Peek() != u']') Fail(CompileError::ExpectedCloseSquare, Here());
    const std::u16string_view name = mSource.substr(start, mAt - start);
    ++mAt;
    AddName(TokenKind::Identifier, name, HashNoCase(name), position);
}

void Lexer::ReadNumber() {
    const Position position = Here();
    DecimalDigits digits;
    bool isWhole = true;
    for (; IsDigit(Peek()); ++mAt) {
        digits.AppendWhole(Peek());
    }
    if (Peek() == u'.') {
        isWhole = false;
        for (++mAt; IsDigit(Peek()); ++mAt) {
            digits.AppendFraction(Peek());
        }
    }
    if ((Peek() | 0x20) == u'e' && !IsAtReservedWord()) {
        if (const std::optional<int> exponent = ReadExponent(mSource, ++mAt)) {
            digits.MultiplyByPower(*exponent);
            isWhole = false;
        } else {
            Fail(CompileError::InvalidNumber, position);
        }
    }
    const std::optional<double> number = digits.ToDouble();
    if (!number || (IsLetter(Peek()) && !IsAtReservedWord())) Fail(CompileError::InvalidNumber, position);
    if (isWhole && *number <= std::numeric_limits<std::int16_t>::max()) {
        return AddLiteral(static_cast<std::int16_t>(*number), position);
    }
    if (isWhole && *number <= std::numeric_limits<std::int32_t>::max()) {
        return AddLiteral(static_cast<std::int32_t>(*number), position);
    }
    AddLiteral(*number, position);
}

// True for a word that may stand right behind a number: 0Then, 1Step
bool Lexer::IsAtReservedWord() const noexcept {
    std::size_t length = 0;
    while (IsNamePart(Peek(length))) {
        ++length;
    }
    const std::u16string_view word = mSource.substr(mAt, length);
    return WordKind(word, HashNoCase(word)) != TokenKind::Identifier || EqualNoCase(word, u"step");
}

// At "&H" or "&O": a bit pattern of 16 bits, or of 32 where it needs them or "&" stands behind it.
void Lexer::ReadPattern(int base) {
    const Position position = Here();
    std::uint64_t pattern = 0;
    for (mAt += 2; DigitValue(Peek()) < base; ++mAt) {
        pattern = pattern * static_cast<unsigned>(base) + static_cast<unsigned>(DigitValue(Peek()));
        if (pattern > std::numeric_limits<std::uint32_t>::max()) Fail(CompileError::InvalidNumber, position);
    }
    bool isLong = pattern > std::numeric_limits<std::uint16_t>::max();
    if (Peek() == u'&') {
        isLong = true;
        ++mAt;
    }
    if (isLong) return AddLiteral(static_cast<std::int32_t>(pattern), position);
    AddLiteral(static_cast<std::int16_t>(pattern), position);
}

void Lexer::ReadText() {
    const Position position = Here();
    const std::size_t start = ++mAt;
    bool hasDoubledQuotes = false;
    for (;; ++mAt) {
        if (AtEnd() || IsLineEnd(Peek())) Fail(CompileError::UnterminatedString, Here());
        if (Peek() != u'"') continue;
        if (Peek(1) != u'"') break;
        hasDoubledQuotes = true;
        ++mAt;
    }
    const std::u16string_view raw = mSource.substr(start, mAt - start);
    ++mAt;
    if (!hasDoubledQuotes) return AddLiteral(Text(raw), position);
    std::u16string text;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        text += raw[i];
        if (raw[i] == u'"') ++i;
    }
    AddLiteral(Text(text), position);
}

void Lexer::ReadDate() {
    const Position position = Here();
    const std::size_t start = ++mAt;
    while (!AtEnd() && !IsLineEnd(Peek()) && Peek() != u'#') {
        ++mAt;
    }
    const std::optional<Date> date = ReadDateLiteral(mSource.substr(start, mAt - start));
    if (Peek() != u'#' || !date) Fail(CompileError::Syntax, position);
    ++mAt;
    AddLiteral(*date, position);
}

void Lexer::ReadOperator() {
    const char16_t next = Peek(1);
    switch (Peek()) {
        case u':':
            return Add(TokenKind::Colon, 1);
        case u'(':
            return Add(TokenKind::OpenBracket, 1);
        case u')':
            return Add(TokenKind::CloseBracket, 1);
        case u',':
            return Add(TokenKind::Comma, 1);
        case u'.':
            return Add(TokenKind::Dot, 1);
        case u'+':
            return Add(TokenKind::Plus, 1);
        case u'-':
            return Add(TokenKind::Minus, 1);
        case u'*':
            return Add(TokenKind::Star, 1);
        case u'/':
            return Add(TokenKind::Slash, 1);
        case u'\\':
            return Add(TokenKind::Backslash, 1);
        case u'^':
            return Add(TokenKind::Caret, 1);
        case u'=':
            if (next == u'<') return Add(TokenKind::LessEqual, 2);
            if (next == u'>') return Add(TokenKind::GreaterEqual, 2);
            return Add(TokenKind::Equal, 1);
        case u'<':
            if (next == u'>') return Add(TokenKind::NotEqual, 2);
            return next == u'=' ? Add(TokenKind::LessEqual, 2) : Add(TokenKind::Less, 1);
        case u'>':
            if (next == u'<') return Add(TokenKind::NotEqual, 2);
            return next == u'=' ? Add(TokenKind::GreaterEqual, 2) : Add(TokenKind::Greater, 1);
        default:
            Fail(CompileError::InvalidCharacter, Here());
    }
}

}  // namespace ov::vbscript
