#include "platform/store/sqlite/sql_parser.h"

#include <algorithm>
#include <array>

#include "platform/store/sqlite/sql_expression_parser.h"

namespace ov::sqlite {

namespace {

// Words that are names nowhere without brackets. Sorted.
constexpr std::array<std::string_view, 48> kReserved = {
    "ALL",      "AND",         "AS",    "ASC",       "BETWEEN", "BY",     "CASE",   "COLLATE", "CROSS", "DESC",
    "DISTINCT", "DISTINCTROW", "ELSE",  "END",       "ESCAPE",  "EXCEPT", "EXISTS", "FROM",    "FULL",  "GROUP",
    "HAVING",   "IN",          "INNER", "INTERSECT", "INTO",    "IS",     "JOIN",   "LEFT",    "LIKE",  "LIMIT",
    "MOD",      "NATURAL",     "NOT",   "NULL",      "OFFSET",  "OR",     "ORDER",  "OUTER",   "RIGHT", "SELECT",
    "THEN",     "UNION",       "USING", "VALUES",    "WHEN",    "WHERE",  "WITH",   "XOR"};
static_assert(std::ranges::is_sorted(kReserved));

class Parser final : public SqlExpressionParser {
public:
    using SqlExpressionParser::SqlExpressionParser;

    SqlStatement Statement() {
        SqlStatement statement;
        if (mCursor.TakeWord("PARAMETERS")) statement.parameters = Parameters();
        if (!AtQuery() && !mCursor.At("(")) {
            if (!statement.parameters.empty()) mCursor.Fail();
            return statement;
        }
        statement.query = Query();
        if (mCursor.TakeWord("WITH")) {
            mCursor.NeedWord("OWNERACCESS");
            mCursor.NeedWord("OPTION");
        }
        if (!mCursor.AtEnd() && !mCursor.At(";")) mCursor.Fail();
        statement.rest = mCursor.Rest();
        return statement;
    }

private:
    // "name type [(size)], ... ;"
    std::vector<std::string> Parameters() {
        std::vector<std::string> names;
        do {
            names.push_back(mCursor.Take().Content());
            while (!mCursor.AtEnd() && !mCursor.At(",") && !mCursor.At(";")) {
                mCursor.Take();
            }
        } while (mCursor.Take(","));
        mCursor.Need(";");
        return names;
    }

    SqlQueryPtr Query() override {
        const Depth depth(mDepth);
        auto query = std::make_unique<SqlQuery>();
        if (mCursor.TakeWord("WITH")) CommonTables(*query);
        for (const std::string_view write : {"INSERT", "UPDATE", "DELETE", "REPLACE"}) {
            if (mCursor.AtWord(write)) Raise(ErrorNumber::CannotUpdateReadOnly);
        }
        query->selects.push_back(Select());
        for (std::string words = UnionWords(); !words.empty(); words = UnionWords()) {
            query->unions.push_back(words);
            query->selects.push_back(Select());
        }
        if (mCursor.TakeWord("ORDER")) {
            mCursor.NeedWord("BY");
            do {
                query->orderBy.push_back(OrderTerm());
            } while (mCursor.Take(","));
        }
        if (mCursor.TakeWord("LIMIT")) {
            query->limit = Expression();
            if (mCursor.TakeWord("OFFSET")) {
                query->offset = Expression();
            } else if (mCursor.Take(",")) {
                query->offset = std::move(query->limit);
                query->limit = Expression();
            }
        }
        return query;
    }

    void CommonTables(SqlQuery& query) {
        query.isRecursive = mCursor.TakeWord("RECURSIVE");
        do {
            SqlCommonTable& table = query.with.emplace_back();
            table.name = mCursor.Take().Content();
            if (mCursor.Take("(")) table.columns = Names();
            mCursor.NeedWord("AS");
            if (mCursor.TakeWord("NOT"))
                mCursor.NeedWord("MATERIALIZED");
            else
                mCursor.TakeWord("MATERIALIZED");
            mCursor.Need("(");
            table.query = Query();
            mCursor.Need(")");
        } while (mCursor.Take(","));
    }

    // Names up to the bracket behind them.
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        do {
            names.push_back(mCursor.Take().Content());
        } while (mCursor.Take(","));
        mCursor.Need(")");
        return names;
    }

    std::string UnionWords() {
        for (const std::string_view word : {"UNION", "EXCEPT", "INTERSECT"}) {
            if (!mCursor.TakeWord(word)) continue;
            return std::string(word) + (mCursor.TakeWord("ALL") ? " ALL" : "");
        }
        return {};
    }

    SqlOrderTerm OrderTerm() {
        SqlOrderTerm term{Expression(), {}};
        for (const std::string_view word : {"ASC", "DESC"}) {
            if (mCursor.TakeWord(word)) term.direction = " " + std::string(word);
        }
        if (mCursor.TakeWord("NULLS")) term.direction += " NULLS " + std::string(mCursor.Take().text);
        return term;
    }

    SqlSelect Select() {
        SqlSelect select;
        if (mCursor.Take("(")) {
            select.inBrackets = Query();
            mCursor.Need(")");
            return select;
        }
        if (mCursor.TakeWord("VALUES")) {
            select.values = Expressions();
            return select;
        }
        mCursor.NeedWord("SELECT");
        Predicates(select);
        do {
            select.columns.push_back(Column());
        } while (mCursor.Take(","));
        if (mCursor.AtWord("INTO")) Raise(ErrorNumber::CannotUpdateReadOnly);
        if (mCursor.TakeWord("FROM")) select.from = From();
        if (mCursor.TakeWord("WHERE")) select.where = Expression();
        if (mCursor.TakeWord("GROUP")) {
            mCursor.NeedWord("BY");
            select.groupBy = Expressions();
        }
        if (mCursor.TakeWord("HAVING")) select.having = Expression();
        return select;
    }

    // DISTINCTROW makes a difference for queries that are edited alone.
    void Predicates(SqlSelect& select) {
        if (mCursor.TakeWord("DISTINCT"))
            select.isDistinct = true;
        else if (!mCursor.TakeWord("DISTINCTROW"))
            mCursor.TakeWord("ALL");
        if (!mCursor.AtWord("TOP") || mCursor.Peek(1).kind != SqlTokenKind::Number) return;
        mCursor.Take();
        select.top = std::string(mCursor.Take().text);
        select.isTopPercent = mCursor.TakeWord("PERCENT");
    }

    SqlColumn Column() {
        SqlColumn column{Expression(), {}};
        if (mCursor.TakeWord("AS") || AtAlias()) column.alias = mCursor.Take().Content();
        return column;
    }

    bool AtAlias() const {
        const SqlToken& token = mCursor.Peek();
        const bool isQuoted = token.kind == SqlTokenKind::Name || token.kind == SqlTokenKind::Quoted;
        return isQuoted || (token.kind == SqlTokenKind::Word && !IsReservedSqlWord(token.text) && !token.IsWord("ON"));
    }

    std::unique_ptr<SqlSource> From() {
        std::unique_ptr<SqlSource> left = Source();
        for (;;) {
            std::string join = JoinWords();
            if (join.empty()) return left;
            CountOperator();
            auto both = std::make_unique<SqlSource>();
            both->kind = SqlSource::Kind::Join;
            both->join = std::move(join);
            both->left = std::move(left);
            both->right = Source();
            if (mCursor.TakeWord("ON")) {
                both->on = Expression();
            } else if (mCursor.TakeWord("USING")) {
                mCursor.Need("(");
                both->usingColumns = Names();
            }
            left = std::move(both);
        }
    }

    std::string JoinWords() {
        if (mCursor.Take(",")) return ",";
        std::string words;
        while (!mCursor.TakeWord("JOIN")) {
            static constexpr std::array<std::string_view, 7> kWords = {"NATURAL", "LEFT",  "RIGHT", "FULL",
                                                                       "OUTER",   "INNER", "CROSS"};
            const bool isKnown =
                std::ranges::any_of(kWords, [&](std::string_view word) { return mCursor.AtWord(word); });
            if (!isKnown && words.empty()) return {};
            if (!isKnown) mCursor.Fail();
            words += std::string(mCursor.Take().text) + " ";
        }
        return words + "JOIN";
    }

    std::unique_ptr<SqlSource> Source() {
        const Depth depth(mDepth);
        auto source = std::make_unique<SqlSource>();
        if (mCursor.Take("(")) {
            if (AtQuery()) {
                source->kind = SqlSource::Kind::Query;
                source->query = Query();
                mCursor.Need(")");
            } else {
                source = From();
                mCursor.Need(")");
                return source;
            }
        } else {
            const SqlToken& first = mCursor.Peek();
            if (first.kind == SqlTokenKind::Word && IsReservedSqlWord(first.text)) mCursor.Fail();
            source->path = Path();
            if (mCursor.Take("(")) {
                source->kind = SqlSource::Kind::Function;
                if (!mCursor.At(")")) source->arguments = Expressions();
                mCursor.Need(")");
            }
        }
        if (mCursor.TakeWord("AS") || AtAlias()) source->alias = mCursor.Take().Content();
        if (mCursor.AtWord("IN") && mCursor.Peek(1).kind != SqlTokenKind::Symbol) {
            throw BadQuery(u"a table of another file");
        }
        return source;
    }
};

}  // namespace

bool IsReservedSqlWord(std::string_view word) noexcept {
    return std::ranges::any_of(kReserved, [&](std::string_view reserved) { return EqualsUpper(word, reserved); });
}

SqlStatement ParseSql(std::string_view sql) {
    SqlTokenCursor cursor(sql);
    return Parser(cursor).Statement();
}

}  // namespace ov::sqlite
