/// @file
/// A walk over the words of an SQL text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

/// Looks at the words one by one; blanks and comments are passed over.
class SqlTokenCursor {
public:
    /// @p sql must outlive the cursor. @throws RuntimeError 3075 for a text in quotes that does not end
    explicit SqlTokenCursor(std::string_view sql) : mSql(sql) {
        for (const SqlToken& token : ReadSqlTokens(sql)) {
            if (token.kind == SqlTokenKind::Space) continue;
            if (token.IsUnended()) throw BadQuery(u"unrecognized token: " + Text::FromUtf8(token.text));
            mTokens.push_back(token);
        }
    }

    bool AtEnd() const noexcept { return mAt >= mTokens.size(); }
    const SqlToken& Peek(std::size_t ahead = 0) const noexcept {
        static constexpr SqlToken kNone{SqlTokenKind::Space, {}};
        return mAt + ahead < mTokens.size() ? mTokens[mAt + ahead] : kNone;
    }
    bool AtWord(std::string_view upper, std::size_t ahead = 0) const noexcept { return Peek(ahead).IsWord(upper); }
    bool At(std::string_view symbol, std::size_t ahead = 0) const noexcept { return Peek(ahead).Is(symbol); }
    const SqlToken& Take() {
        if (AtEnd()) Fail();
        return mTokens[mAt++];
    }
    bool TakeWord(std::string_view upper) noexcept {
        const bool is = AtWord(upper);
        mAt += is ? 1 : 0;
        return is;
    }
    bool Take(std::string_view symbol) noexcept {
        const bool is = At(symbol);
        mAt += is ? 1 : 0;
        return is;
    }
    void NeedWord(std::string_view upper) {
        if (!TakeWord(upper)) Fail();
    }
    void Need(std::string_view symbol) {
        if (!Take(symbol)) Fail();
    }
    /// The text of a pair of brackets, brackets included. @pre At("(")
    std::string TakeBrackets() {
        const char* begin = Peek().text.data();
        int depth = 0;
        do {
            depth += At("(") ? 1 : At(")") ? -1 : 0;
            mAt += 1;
        } while (depth > 0 && !AtEnd());
        if (depth > 0) Fail();
        const SqlToken& last = mTokens[mAt - 1];
        return std::string(begin, last.text.data() + last.text.size());
    }
    /// The text from here on.
    std::string Rest() const { return AtEnd() ? std::string() : std::string(mSql.substr(Offset())); }
    [[noreturn]] void Fail() const {
        if (AtEnd()) throw BadQuery(u"incomplete input");
        throw BadQuery(u"near \"" + Text::FromUtf8(Peek().text) + u"\": syntax error");
    }

private:
    std::size_t Offset() const noexcept { return static_cast<std::size_t>(Peek().text.data() - mSql.data()); }

    std::string_view mSql;
    std::vector<SqlToken> mTokens;
    std::size_t mAt = 0;
};

}  // namespace ov::sqlite
