#include "platform/store/sqlite/sql_tokens.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace ov::sqlite {

namespace {

constexpr bool IsBlank(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}
constexpr bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool IsWordStart(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool IsWordPart(char c) noexcept {
    return IsWordStart(c) || IsDigit(c) || c == '$';
}

class Reader {
public:
    explicit Reader(std::string_view sql) : mSql(sql) {}

    bool AtEnd() const noexcept { return mAt == mSql.size(); }
    SqlToken Next() {
        const std::size_t begin = mAt;
        const SqlTokenKind kind = Skip();
        return {kind, mSql.substr(begin, mAt - begin)};
    }

private:
    char Peek(std::size_t ahead = 0) const noexcept { return mAt + ahead < mSql.size() ? mSql[mAt + ahead] : '\0'; }
    template <class Part>
    void SkipWhile(Part part) {
        while (mAt < mSql.size() && part(mSql[mAt])) {
            ++mAt;
        }
    }
    // To behind the next `end`, or to the end of the text.
    void SkipTo(std::string_view end, std::size_t from) {
        const std::size_t found = mSql.find(end, from);
        mAt = found == std::string_view::npos ? mSql.size() : found + end.size();
    }
    // A text whose quote stands for itself where it is doubled.
    void SkipQuoted(char quote) {
        do {
            SkipTo({&quote, 1}, mAt + 1);
        } while (Peek() == quote);
    }
    void SkipNumber() {
        if (Peek() == '0' && (Peek(1) == 'x' || Peek(1) == 'X')) {
            mAt += 2;
            SkipWhile(IsWordPart);
            return;
        }
        SkipWhile([](char c) { return IsDigit(c) || c == '.'; });
        if (Peek() == 'e' || Peek() == 'E') {
            mAt += Peek(1) == '+' || Peek(1) == '-' ? 2u : 1u;
            SkipWhile(IsDigit);
        }
    }
    // The length of "&H1F", or 0 if there is no such number here.
    std::size_t HexLength() const {
        if (Peek() != '&' || (Peek(1) != 'H' && Peek(1) != 'h')) return 0;
        std::size_t length = 2;
        while (std::isxdigit(static_cast<unsigned char>(Peek(length))) != 0) {
            ++length;
        }
        if (length == 2 || IsWordPart(Peek(length))) return 0;
        return length;
    }
    void SkipSymbol() {
        static constexpr std::array<std::string_view, 8> kPairs = {"<>", "<=", ">=", "!=", "==", "||", "<<", ">>"};
        const std::string_view pair = mSql.substr(mAt, 2);
        mAt += std::ranges::find(kPairs, pair) != kPairs.end() ? 2u : 1u;
    }

    SqlTokenKind Skip() {
        const char c = Peek();
        if (IsBlank(c)) {
            SkipWhile(IsBlank);
            return SqlTokenKind::Space;
        }
        if (c == '-' && Peek(1) == '-') {
            SkipTo("\n", mAt);
            return SqlTokenKind::Space;
        }
        if (c == '/' && Peek(1) == '*') {
            SkipTo("*/", mAt + 2);
            return SqlTokenKind::Space;
        }
        if (c == '\'') {
            SkipQuoted(c);
            return SqlTokenKind::String;
        }
        if (c == '"' || c == '`') {
            SkipQuoted(c);
            return c == '"' ? SqlTokenKind::Quoted : SqlTokenKind::Name;
        }
        if (c == '#') {
            SkipTo("#", mAt + 1);
            return SqlTokenKind::Date;
        }
        if (const std::size_t length = HexLength(); length > 0) {
            mAt += length;
            return SqlTokenKind::Number;
        }
        if (c == '[') {
            SkipTo("]", mAt);
            return SqlTokenKind::Name;
        }
        if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)))) {
            SkipNumber();
            return SqlTokenKind::Number;
        }
        if (IsWordStart(c)) {
            SkipWhile(IsWordPart);
            return SqlTokenKind::Word;
        }
        if (c == '?' || ((c == '$' || c == '@' || c == ':') && IsWordPart(Peek(1)))) {
            ++mAt;
            SkipWhile(IsWordPart);
            return SqlTokenKind::Parameter;
        }
        SkipSymbol();
        return SqlTokenKind::Symbol;
    }

    std::string_view mSql;
    std::size_t mAt = 0;
};

}  // namespace

bool EqualsUpper(std::string_view word, std::string_view upper) noexcept {
    return std::ranges::equal(word, upper, {},
                              [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; });
}

bool SqlToken::IsWord(std::string_view upper) const noexcept {
    return kind == SqlTokenKind::Word && EqualsUpper(text, upper);
}

bool SameName(std::string_view a, std::string_view b) noexcept {
    const auto fold = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; };
    return std::ranges::equal(a, b, {}, fold, fold);
}

bool SqlToken::IsUnended() const noexcept {
    switch (kind) {
        case SqlTokenKind::Name:
        case SqlTokenKind::Quoted:
        case SqlTokenKind::String:
        case SqlTokenKind::Date:
            if (text.front() == '[') return text.back() != ']';
            return std::ranges::count(text, text.front()) % 2 != 0;
        default:
            return false;
    }
}

std::string SqlToken::Content() const {
    switch (kind) {
        case SqlTokenKind::Name:
        case SqlTokenKind::Quoted:
        case SqlTokenKind::String:
        case SqlTokenKind::Date:
            break;
        default:
            return std::string(text);
    }
    std::string content;
    const bool isDoubled = text.front() != '[' && text.front() != '#';
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        content += text[i];
        if (isDoubled && text[i] == text.front()) ++i;  // the second of two
    }
    return content;
}

std::vector<SqlToken> ReadSqlTokens(std::string_view sql) {
    std::vector<SqlToken> tokens;
    for (Reader reader(sql); !reader.AtEnd();) {
        tokens.push_back(reader.Next());
    }
    return tokens;
}

}  // namespace ov::sqlite
