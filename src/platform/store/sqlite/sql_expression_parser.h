/// @file
/// Reading the values and conditions in the SQL of descriptors.
#pragma once

#include "platform/store/sqlite/sql_token_cursor.h"
#include "platform/store/sqlite/sql_tree.h"

namespace ov::sqlite {

/// Reads expressions. What binds stronger comes first: `^`; a sign; `* / ||`; `\`; `Mod`; `+ -`; `&`; comparisons,
/// LIKE, IN, BETWEEN, IS; NOT; AND; OR and XOR; EQV; IMP. SQLite's own `||` stands with the products.
class SqlExpressionParser {
public:
    explicit SqlExpressionParser(SqlTokenCursor& cursor) : mCursor(cursor) {}
    SqlExpressionParser(const SqlExpressionParser&) = delete;
    SqlExpressionParser& operator=(const SqlExpressionParser&) = delete;
    virtual ~SqlExpressionParser() = default;

    /// @throws RuntimeError 3075
    SqlExpressionPtr Expression() { return Level(0); }

protected:
    /// Counts brackets inside brackets. @throws RuntimeError 3075 where they are too deep
    class Depth {
    public:
        explicit Depth(int& depth) : mDepth(depth) {
            constexpr int kMost = 100;  // SQLite's own parser ends about here
            if (mDepth >= kMost) throw BadQuery(u"expression is nested too deeply");
            ++mDepth;
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
        ~Depth() { --mDepth; }

    private:
        int& mDepth;
    };

    /// Counts what can make a tree deep without brackets. @throws RuntimeError 3075 where there is more than any stack
    /// should have to hold
    void CountOperator() {
        constexpr int kMost = 1000;
        if (++mOperators > kMost) throw BadQuery(u"expression is too long");
    }

    bool AtQuery() const noexcept {
        return mCursor.AtWord("SELECT") || mCursor.AtWord("VALUES") || mCursor.AtWord("WITH");
    }
    std::vector<SqlExpressionPtr> Expressions();
    /// A name that may be qualified: by "." or "!".
    std::vector<std::string> Path();
    virtual SqlQueryPtr Query() = 0;

    SqlTokenCursor& mCursor;
    int mDepth = 0;
    int mOperators = 0;

private:
    SqlExpressionPtr Level(std::size_t level);
    SqlExpressionPtr Not();
    SqlExpressionPtr Comparison();
    SqlExpressionPtr ComparisonTail(SqlExpressionPtr operand);
    SqlExpressionPtr In(SqlExpressionPtr operand, bool isNegated);
    SqlExpressionPtr Test(SqlExpressionPtr operand);
    SqlExpressionPtr Sign();
    SqlExpressionPtr PowerOf();
    SqlExpressionPtr Postfix();
    SqlExpressionPtr Primary();
    SqlExpressionPtr Bracket();
    SqlExpressionPtr Case();
    SqlExpressionPtr Cast();
    SqlExpressionPtr NameOrCall();
    SqlExpressionPtr Call(std::string name);
};

}  // namespace ov::sqlite
