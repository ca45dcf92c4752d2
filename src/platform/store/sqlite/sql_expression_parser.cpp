#include "platform/store/sqlite/sql_expression_parser.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/store/sqlite/sql_parser.h"

namespace ov::sqlite {

namespace {

using Kind = SqlExpression::Kind;

SqlExpressionPtr Make(Kind kind, std::string text = {}) {
    auto made = std::make_unique<SqlExpression>();
    made->kind = kind;
    made->text = std::move(text);
    return made;
}

SqlExpressionPtr Make(Kind kind, std::string text, SqlExpressionPtr first, SqlExpressionPtr second = nullptr) {
    SqlExpressionPtr made = Make(kind, std::move(text));
    made->parts.push_back(std::move(first));
    if (second) made->parts.push_back(std::move(second));
    return made;
}

std::string Upper(std::string_view word) {
    std::string upper(word);
    std::ranges::transform(upper, upper.begin(), [](char c) { return c >= 'a' && c <= 'z' ? c - 0x20 : c; });
    return upper;
}

// The levels of operators with two sides, the weakest first; nullptr stands for those that Not and Comparison read.
constexpr std::array<std::string_view, 1> kImp = {"IMP"};
constexpr std::array<std::string_view, 1> kEqv = {"EQV"};
constexpr std::array<std::string_view, 2> kOr = {"OR", "XOR"};
constexpr std::array<std::string_view, 1> kAnd = {"AND"};
constexpr std::array<std::string_view, 4> kJoin = {"&", "|", "<<", ">>"};
constexpr std::array<std::string_view, 2> kSum = {"+", "-"};
constexpr std::array<std::string_view, 1> kModulo = {"MOD"};
constexpr std::array<std::string_view, 2> kWholeQuotient = {"\\", "%"};
constexpr std::array<std::string_view, 3> kProduct = {"*", "/", "||"};
constexpr std::size_t kConditionLevels = 4;
constexpr std::array<std::span<const std::string_view>, 9> kLevels = {
    kImp, kEqv, kOr, kAnd, kJoin, kSum, kModulo, kWholeQuotient, kProduct};

bool IsOneOf(const SqlToken& token, std::span<const std::string_view> operators) {
    return std::ranges::any_of(operators, [&](std::string_view name) { return token.Is(name) || token.IsWord(name); });
}

bool IsComparison(const SqlToken& token) {
    static constexpr std::array<std::string_view, 8> kComparisons = {"=", "==", "<>", "!=", "<", "<=", ">", ">="};
    return token.kind == SqlTokenKind::Symbol && std::ranges::find(kComparisons, token.text) != kComparisons.end();
}

}  // namespace

std::vector<SqlExpressionPtr> SqlExpressionParser::Expressions() {
    std::vector<SqlExpressionPtr> all;
    do {
        all.push_back(Expression());
    } while (mCursor.Take(","));
    return all;
}

SqlExpressionPtr SqlExpressionParser::Level(std::size_t level) {
    const auto next = [&] {
        if (level + 1 == kConditionLevels) return Not();
        return level + 1 == kLevels.size() ? Sign() : Level(level + 1);
    };
    SqlExpressionPtr left = next();
    while (IsOneOf(mCursor.Peek(), kLevels[level])) {
        CountOperator();
        std::string name = Upper(mCursor.Take().text);
        left = Make(Kind::Binary, std::move(name), std::move(left), next());
    }
    return left;
}

SqlExpressionPtr SqlExpressionParser::Not() {
    if (!mCursor.TakeWord("NOT")) return Comparison();
    const Depth depth(mDepth);
    return Make(Kind::Prefix, "NOT", Not());
}

SqlExpressionPtr SqlExpressionParser::Comparison() {
    SqlExpressionPtr left = Level(kConditionLevels);
    for (;;) {
        SqlExpression* before = left.get();
        left = ComparisonTail(std::move(left));
        if (left.get() == before) return left;
        CountOperator();
    }
}

// What compares the operand with something, or the operand if nothing does.
SqlExpressionPtr SqlExpressionParser::ComparisonTail(SqlExpressionPtr operand) {
    if (IsComparison(mCursor.Peek())) {
        std::string name(mCursor.Take().text);
        if (name == "==") name = "=";
        if (name == "!=") name = "<>";
        const bool isAny = mCursor.AtWord("ANY") || mCursor.AtWord("SOME");
        if ((isAny || mCursor.AtWord("ALL")) && mCursor.At("(", 1)) {
            mCursor.Take();
            mCursor.Need("(");
            SqlExpressionPtr made = Make(Kind::Quantified, std::move(name), std::move(operand));
            made->isAll = !isAny;
            made->query = Query();
            mCursor.Need(")");
            return made;
        }
        return Make(Kind::Binary, std::move(name), std::move(operand), Level(kConditionLevels));
    }
    if (mCursor.AtWord("IS") || mCursor.AtWord("ISNULL") || mCursor.AtWord("NOTNULL") ||
        (mCursor.AtWord("NOT") && mCursor.AtWord("NULL", 1))) {
        return Test(std::move(operand));
    }
    const std::size_t word = mCursor.AtWord("NOT") ? 1 : 0;
    const auto at = [&](std::string_view name) { return mCursor.AtWord(name, word); };
    const bool isLike = at("LIKE") || at("ALIKE");
    const bool isMatch = at("GLOB") || at("REGEXP") || at("MATCH");
    if (!isLike && !isMatch && !at("BETWEEN") && !at("IN")) return operand;
    if (word == 1) mCursor.Take();
    const std::string name = Upper(mCursor.Take().text);
    if (name == "IN") return In(std::move(operand), word == 1);
    SqlExpressionPtr made =
        Make(name == "BETWEEN" ? Kind::Between : Kind::Like, name, std::move(operand), Level(kConditionLevels));
    made->isNegated = word == 1;
    if (name == "BETWEEN") {
        mCursor.NeedWord("AND");
        made->parts.push_back(Level(kConditionLevels));
    } else if (isLike && mCursor.TakeWord("ESCAPE")) {
        made->parts.push_back(Level(kConditionLevels));
    }
    return made;
}

SqlExpressionPtr SqlExpressionParser::In(SqlExpressionPtr operand, bool isNegated) {
    SqlExpressionPtr made = Make(Kind::InList, {}, std::move(operand));
    made->isNegated = isNegated;
    mCursor.Need("(");
    if (AtQuery()) {
        made->kind = Kind::InQuery;
        made->query = Query();
    } else if (!mCursor.At(")")) {
        for (SqlExpressionPtr& value : Expressions()) {
            made->parts.push_back(std::move(value));
        }
    }
    mCursor.Need(")");
    return made;
}

// "IS [NOT] NULL", "IS [NOT] TRUE" and SQLite's short forms; "IS [NOT]" between two values.
SqlExpressionPtr SqlExpressionParser::Test(SqlExpressionPtr operand) {
    if (!mCursor.TakeWord("IS")) {
        const bool isNull = mCursor.AtWord("ISNULL");
        if (mCursor.TakeWord("NOT"))
            mCursor.NeedWord("NULL");
        else
            mCursor.Take();
        return Make(Kind::Test, isNull ? "IS NULL" : "IS NOT NULL", std::move(operand));
    }
    std::string words = mCursor.TakeWord("NOT") ? "IS NOT" : "IS";
    for (const std::string_view word : {"NULL", "TRUE", "FALSE"}) {
        if (mCursor.TakeWord(word)) return Make(Kind::Test, words + " " + std::string(word), std::move(operand));
    }
    return Make(Kind::Binary, std::move(words), std::move(operand), Level(kConditionLevels));
}

SqlExpressionPtr SqlExpressionParser::Sign() {
    for (const std::string_view sign : {"-", "+", "~"}) {
        if (!mCursor.Take(sign)) continue;
        const Depth depth(mDepth);
        return Make(Kind::Prefix, std::string(sign), Sign());
    }
    return PowerOf();
}

// An exponent may have a sign of its own; a sign before the base takes in the power.
SqlExpressionPtr SqlExpressionParser::PowerOf() {
    SqlExpressionPtr base = Postfix();
    while (mCursor.Take("^")) {
        CountOperator();
        const bool hasSign = mCursor.At("-") || mCursor.At("+");
        base = Make(Kind::Binary, "^", std::move(base), hasSign ? Sign() : Postfix());
    }
    return base;
}

SqlExpressionPtr SqlExpressionParser::Postfix() {
    SqlExpressionPtr value = Primary();
    while (mCursor.TakeWord("COLLATE")) {
        CountOperator();
        value = Make(Kind::Collate, mCursor.Take().Content(), std::move(value));
    }
    return value;
}

SqlExpressionPtr SqlExpressionParser::Primary() {
    const SqlToken& token = mCursor.Peek();
    switch (token.kind) {
        case SqlTokenKind::String:
            return Make(Kind::Text, mCursor.Take().Content());
        case SqlTokenKind::Quoted:
            if (mCursor.At(".", 1) || mCursor.At("!", 1)) return NameOrCall();
            return Make(Kind::Text, mCursor.Take().Content());
        case SqlTokenKind::Number:
            return Make(Kind::Number, std::string(mCursor.Take().text));
        case SqlTokenKind::Date:
            return Make(Kind::Date, mCursor.Take().Content());
        case SqlTokenKind::Parameter:
            return Make(Kind::Parameter, std::string(mCursor.Take().text));
        case SqlTokenKind::Name:
            return NameOrCall();
        case SqlTokenKind::Word:
            break;
        default:
            if (mCursor.Take("*")) return Make(Kind::Star);
            return Bracket();
    }
    if (mCursor.AtWord("CASE")) return Case();
    if (mCursor.AtWord("CAST") && mCursor.At("(", 1)) return Cast();
    if (mCursor.TakeWord("NULL")) return Make(Kind::Null);
    if (mCursor.AtWord("EXISTS") && mCursor.At("(", 1)) {
        mCursor.Take();
        SqlExpressionPtr made = Bracket();
        if (made->kind != Kind::Query) mCursor.Fail();
        made->kind = Kind::Exists;
        return made;
    }
    const bool isUse = mCursor.At(".", 1) || mCursor.At("!", 1) || mCursor.At("(", 1);
    if (IsReservedSqlWord(token.text) && !isUse) mCursor.Fail();
    return NameOrCall();
}

SqlExpressionPtr SqlExpressionParser::Bracket() {
    mCursor.Need("(");
    const Depth depth(mDepth);
    SqlExpressionPtr made;
    if (AtQuery()) {
        made = Make(Kind::Query);
        made->query = Query();
    } else {
        std::vector<SqlExpressionPtr> values = Expressions();
        if (values.size() == 1) {
            made = std::move(values.front());
        } else {
            made = Make(Kind::List);
            made->parts = std::move(values);
        }
    }
    mCursor.Need(")");
    return made;
}

SqlExpressionPtr SqlExpressionParser::Case() {
    mCursor.NeedWord("CASE");
    const Depth depth(mDepth);
    SqlExpressionPtr made = Make(Kind::Case);
    made->hasOperand = !mCursor.AtWord("WHEN");
    if (made->hasOperand) made->parts.push_back(Expression());
    while (mCursor.TakeWord("WHEN")) {
        made->parts.push_back(Expression());
        mCursor.NeedWord("THEN");
        made->parts.push_back(Expression());
    }
    made->hasElse = mCursor.TakeWord("ELSE");
    if (made->hasElse) made->parts.push_back(Expression());
    mCursor.NeedWord("END");
    return made;
}

SqlExpressionPtr SqlExpressionParser::Cast() {
    mCursor.NeedWord("CAST");
    mCursor.Need("(");
    SqlExpressionPtr made = Make(Kind::Cast, {}, Expression());
    mCursor.NeedWord("AS");
    while (!mCursor.AtEnd() && !mCursor.At(")")) {
        if (!made->text.empty()) made->text += ' ';
        made->text += mCursor.At("(") ? mCursor.TakeBrackets() : std::string(mCursor.Take().text);
    }
    mCursor.Need(")");
    return made;
}

std::vector<std::string> SqlExpressionParser::Path() {
    std::vector<std::string> path;
    for (;;) {
        const SqlToken& token = mCursor.Peek();
        const bool isName = token.kind == SqlTokenKind::Word || token.kind == SqlTokenKind::Name ||
                            token.kind == SqlTokenKind::Quoted || token.kind == SqlTokenKind::String;
        if (!isName) mCursor.Fail();
        path.push_back(mCursor.Take().Content());
        if (mCursor.At(".") && mCursor.At("*", 1)) return path;
        if (!mCursor.Take(".") && !mCursor.Take("!")) return path;
    }
}

SqlExpressionPtr SqlExpressionParser::NameOrCall() {
    const bool isBare = mCursor.Peek().kind == SqlTokenKind::Word;
    SqlExpressionPtr made = Make(Kind::Name);
    made->path = Path();
    made->isBareWord = isBare && made->path.size() == 1;
    if (mCursor.Take(".")) {
        mCursor.Need("*");
        made->kind = Kind::Star;
        return made;
    }
    if (made->path.size() == 1 && mCursor.At("(")) return Call(std::move(made->path.front()));
    return made;
}

SqlExpressionPtr SqlExpressionParser::Call(std::string name) {
    const Depth depth(mDepth);
    if (name.back() == '$') name.pop_back();  // "Left$" is "Left" whose result is said to be a text
    SqlExpressionPtr made = Make(Kind::Call, std::move(name));
    mCursor.Need("(");
    made->isDistinct = mCursor.TakeWord("DISTINCT");
    if (!mCursor.At(")")) made->parts = Expressions();
    mCursor.Need(")");
    for (const std::string_view word : {"FILTER", "OVER"}) {
        if (!mCursor.AtWord(word) || !mCursor.At("(", 1)) continue;
        mCursor.Take();
        made->tail += " " + std::string(word) + " " + mCursor.TakeBrackets();
    }
    return made;
}

}  // namespace ov::sqlite
