#include "platform/store/sqlite/sql_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/store/sqlite/engine_error.h"
#include "platform/store/sqlite/sql_tokens.h"

namespace ov::sqlite {

namespace {

// Brackets inside brackets; SQLite's own parser ends about here.
constexpr std::size_t kMaxDepth = 100;
// Enough for what is asked again and again.
constexpr std::size_t kMaxValues = 8;

template <std::size_t N>
bool IsOneOf(const SqlToken& token, const std::array<std::string_view, N>& words) {
    return token.kind == SqlTokenKind::Word &&
           std::ranges::any_of(words, [&](std::string_view word) { return EqualsUpper(token.text, word); });
}

// Words that end an operand of "&": those between the parts of a statement, and operators that bind weaker.
bool EndsOperand(const SqlToken& token) {
    static constexpr std::array<std::string_view, 46> kWords = {
        "SELECT", "ALL",   "DISTINCT", "AS",    "FROM",   "WHERE",  "GROUP",  "BY",        "HAVING", "ORDER",
        "ASC",    "DESC",  "NULLS",    "LIMIT", "OFFSET", "UNION",  "EXCEPT", "INTERSECT", "VALUES", "WITH",
        "JOIN",   "INNER", "LEFT",     "RIGHT", "FULL",   "OUTER",  "CROSS",  "NATURAL",   "ON",     "USING",
        "AND",    "OR",    "NOT",      "IS",    "IN",     "LIKE",   "GLOB",   "REGEXP",    "MATCH",  "BETWEEN",
        "ESCAPE", "WHEN",  "THEN",     "ELSE",  "ISNULL", "NOTNULL"};
    static constexpr std::array<std::string_view, 10> kSymbols = {"=",  "==", "<>", "!=", "<",
                                                                  "<=", ">",  ">=", ",",  ";"};
    if (token.kind == SqlTokenKind::Symbol) return std::ranges::find(kSymbols, token.text) != kSymbols.end();
    return IsOneOf(token, kWords);
}

bool IsSignificant(const SqlToken& token) noexcept {
    return token.kind != SqlTokenKind::Space;
}

// The tokens that mean something, by their numbers among all.
std::vector<std::size_t> Significant(const std::vector<SqlToken>& tokens) {
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (IsSignificant(tokens[i])) numbers.push_back(i);
    }
    return numbers;
}

// A walk over the tokens that mean something, with a look at the neighbours.
class Neighbours {
public:
    explicit Neighbours(std::vector<SqlToken>& tokens) : mTokens(tokens), mNumbers(Significant(tokens)) {}

    std::size_t size() const noexcept { return mNumbers.size(); }
    SqlToken& operator[](std::size_t i) { return mTokens[mNumbers[i]]; }
    // The token `distance` before or behind number i, or an empty one.
    SqlToken& At(std::size_t i, std::ptrdiff_t distance) {
        const std::ptrdiff_t at = static_cast<std::ptrdiff_t>(i) + distance;
        if (at >= 0 && at < static_cast<std::ptrdiff_t>(size())) return (*this)[static_cast<std::size_t>(at)];
        mNone = {SqlTokenKind::Space, {}};
        return mNone;
    }

private:
    std::vector<SqlToken>& mTokens;
    std::vector<std::size_t> mNumbers;
    SqlToken mNone{SqlTokenKind::Space, {}};
};

bool IsEqual(const SqlToken& token) {
    return token.Is("=") || token.Is("==");
}
bool IsUnequal(const SqlToken& token) {
    return token.Is("<>") || token.Is("!=");
}

// True is stored as -1 or 1, so a comparison with it becomes one with 0, the other way round.
void RewriteTruth(Neighbours& tokens, std::size_t i) {
    SqlToken& before = tokens.At(i, -1);
    const bool isColumn = before.Is(".") || before.IsWord("AS") || tokens.At(i, 1).Is(".") || tokens.At(i, 1).Is("(");
    const bool isTest = before.IsWord("IS") || (before.IsWord("NOT") && tokens.At(i, -2).IsWord("IS"));
    if (isColumn || isTest) return;

    SqlToken& token = tokens[i];
    const bool truth = token.IsWord("TRUE");
    for (const std::ptrdiff_t side : {-1, 1}) {
        SqlToken& comparison = tokens.At(i, side);
        if (!IsEqual(comparison) && !IsUnequal(comparison)) continue;
        comparison.text = IsEqual(comparison) == truth ? "<>" : "=";
        token.text = "0";
        return;
    }
    token.text = truth ? "(-1)" : "0";  // in brackets, since "--" would begin a comment
}

// Takes "TOP n" out of a SELECT and leaves a Limit in its place.
void RewriteTop(Neighbours& tokens, std::size_t select) {
    std::ptrdiff_t top = 1;
    if (tokens.At(select, top).IsWord("DISTINCT") || tokens.At(select, top).IsWord("ALL")) ++top;
    SqlToken& number = tokens.At(select, top + 1);
    if (!tokens.At(select, top).IsWord("TOP") || number.kind != SqlTokenKind::Number) return;
    tokens.At(select, top) = {SqlTokenKind::Limit, number.text};
    number = {SqlTokenKind::Space, " "};
}

void RewriteWords(std::vector<SqlToken>& all) {
    Neighbours tokens(all);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        SqlToken& token = tokens[i];
        if (token.kind != SqlTokenKind::Word) continue;
        if (token.IsWord("TRUE") || token.IsWord("FALSE")) {
            RewriteTruth(tokens, i);
        } else if (token.IsWord("LEFT") && tokens.At(i, 1).Is("(")) {
            token = {SqlTokenKind::Name, "\"left\""};
        } else if (token.IsWord("RIGHT") && tokens.At(i, 1).Is("(")) {
            token = {SqlTokenKind::Name, "\"right\""};
        } else if (token.IsWord("SELECT")) {
            RewriteTop(tokens, i);
        }
    }
}

// The value of a literal, or Empty for a number that is better left to SQLite.
Variant LiteralValue(const SqlToken& token) {
    if (token.kind == SqlTokenKind::Number) {
        std::int32_t number = 0;
        const char* end = token.text.data() + token.text.size();
        const auto read = std::from_chars(token.text.data(), end, number);
        return read.ec == std::errc() && read.ptr == end ? Variant(number) : Variant();
    }
    std::string text;
    for (std::size_t i = 1; i + 1 < token.text.size(); ++i) {
        text += token.text[i];
        if (token.text[i] == '\'') ++i;  // the second of two
    }
    return Text::FromUtf8(text);
}

bool IsLiteral(const SqlToken& token) {
    const bool isClosed = token.text.size() > 1 && token.text.back() == '\'';
    return token.kind == SqlTokenKind::Number || (token.kind == SqlTokenKind::String && isClosed);
}

// Takes out the literals that a SELECT has behind "=". One with parameters of its own stays as it is, so that it can be
// told how many those are.
void TakeValues(std::vector<SqlToken>& all, std::vector<Variant>& values) {
    const auto isParameter = [](const SqlToken& token) { return token.kind == SqlTokenKind::Parameter; };
    if (std::ranges::any_of(all, isParameter)) return;
    Neighbours tokens(all);
    if (!tokens.At(0, 0).IsWord("SELECT")) return;
    for (std::size_t i = 1; i < tokens.size() && values.size() < kMaxValues; ++i) {
        if (!IsEqual(tokens[i - 1]) || !IsLiteral(tokens[i])) continue;
        Variant value = LiteralValue(tokens[i]);
        if (value.IsEmpty()) continue;
        values.push_back(std::move(value));
        tokens[i] = {SqlTokenKind::Parameter, "?"};
    }
}

// Writes the tokens of one bracket, of one CASE, or of the whole text; the operands of "&" become arguments.
class Level {
public:
    enum class Kind { Statement, Bracket, Case };

    explicit Level(Kind kind) : mKind(kind) {}

    bool IsEnd(const SqlToken& token) const noexcept {
        return (mKind == Kind::Bracket && token.Is(")")) || (mKind == Kind::Case && token.IsWord("END"));
    }
    void Write(std::string_view text) { mOperand += text; }
    void Join() {
        mOperands += mOperand;
        mOperands += ',';
        mOperand.clear();
    }
    void Separate(std::string_view separator) {
        EndOperand();
        mDone += separator;
    }
    void SetLimit(std::string_view limit) { mLimit = limit; }
    // What "TOP n" set goes where the SELECT ends.
    void EndSelect() {
        EndOperand();
        if (mLimit.empty()) return;
        mDone += " LIMIT ";
        mDone += mLimit;
        mDone += ' ';
        mLimit = {};
    }
    std::string Take() {
        EndSelect();
        return std::move(mDone);
    }

private:
    void EndOperand() {
        if (mOperands.empty()) {
            mDone += mOperand;
        } else {
            mDone += " \"";
            mDone += kJoinFunction;
            mDone += "\"(" + mOperands + mOperand + ") ";
        }
        mOperands.clear();
        mOperand.clear();
    }

    Kind mKind;
    std::string mDone;
    std::string mOperands;  // those before the last "&", each with a comma behind it
    std::string mOperand;
    std::string_view mLimit;
};

class Writer {
public:
    std::string Write(const std::vector<SqlToken>& tokens) {
        for (const SqlToken& token : tokens) {
            WriteToken(token);
        }
        while (mLevels.size() > 1) {
            Close("");
        }
        return mLevels.back().Take();
    }

private:
    void WriteToken(const SqlToken& token) {
        Level& level = mLevels.back();
        if (token.kind == SqlTokenKind::Space) {
            level.Write(" ");  // a comment to the end of the line would take in what is written behind it
        } else if (token.kind == SqlTokenKind::Limit) {
            level.SetLimit(token.text);
        } else if (token.Is("(")) {
            level.Write("(");
            Open(Level::Kind::Bracket);
        } else if (token.IsWord("CASE")) {
            level.Write(token.text);
            Open(Level::Kind::Case);
        } else if (level.IsEnd(token)) {
            Close(token.text);
        } else if (token.Is("&")) {
            level.Join();
        } else if (EndsOperand(token)) {
            if (token.Is(";")) level.EndSelect();
            level.Separate(token.text);
        } else {
            level.Write(token.text);
        }
    }

    void Open(Level::Kind kind) {
        if (mLevels.size() > kMaxDepth) throw BadQuery(u"expression is nested too deeply");
        mLevels.emplace_back(kind);
    }
    void Close(std::string_view end) {
        const std::string inner = mLevels.back().Take();
        mLevels.pop_back();
        mLevels.back().Write(inner);
        mLevels.back().Write(end);
    }

    std::vector<Level> mLevels{Level(Level::Kind::Statement)};
};

}  // namespace

bool SqlText::IsNameOnly() const noexcept {
    return std::ranges::all_of(mTokens, [](const SqlToken& token) {
        return token.kind == SqlTokenKind::Space || token.kind == SqlTokenKind::Word ||
               token.kind == SqlTokenKind::Name;
    });
}

std::string_view SqlText::Name() const noexcept {
    std::string_view name = mSql;
    const std::size_t first = name.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    name = name.substr(first, name.find_last_not_of(' ') - first + 1);
    const bool bracketed = name.size() > 2 && name.front() == '[' && name.find(']') == name.size() - 1;
    return bracketed ? name.substr(1, name.size() - 2) : name;
}

bool SqlText::BeginsStatement() const noexcept {
    static constexpr std::array<std::string_view, 23> kWords = {
        "SELECT", "WITH",    "VALUES", "INSERT",  "UPDATE",   "DELETE",    "REPLACE", "CREATE",
        "DROP",   "ALTER",   "ATTACH", "DETACH",  "PRAGMA",   "EXPLAIN",   "BEGIN",   "COMMIT",
        "END",    "ANALYZE", "VACUUM", "REINDEX", "ROLLBACK", "SAVEPOINT", "RELEASE"};
    const auto first = std::ranges::find_if(mTokens, IsSignificant);
    return first != mTokens.end() && IsOneOf(*first, kWords);
}

bool SqlText::MayBeName() const noexcept {
    return !BeginsStatement() || std::ranges::count_if(mTokens, IsSignificant) == 1;
}

SqliteQuery SqlText::Rewrite() const {
    SqliteQuery query;
    std::vector<SqlToken> tokens = mTokens;
    TakeValues(tokens, query.values);
    RewriteWords(tokens);
    query.text = Writer().Write(tokens);
    return query;
}

}  // namespace ov::sqlite
